#include <QDir>
#include <QImage>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

namespace {

struct Run
{
    int exit_code;
    QString output;
    QString messages;
};

Run treebrowser(const QStringList& arguments)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("LC_ALL", "C.UTF-8");
    // As on a machine without a display.
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        environment.remove(name);
    }
    process.setProcessEnvironment(environment);
    process.start(TREEBROWSER, arguments);
    process.waitForFinished(120'000);
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
        QString::fromUtf8(process.readAllStandardOutput()),
        QString::fromUtf8(process.readAllStandardError())};
}

QString sample(const QString& name)
{
    return QDir(SAMPLE_MODELS).filePath(name);
}

} // namespace

class tst_treebrowser : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void printEndsInTheCounts_data();
    void printEndsInTheCounts();
    void partsKeepTheirNames();
    void assembliesAreNestedGroups();
    void jsonIsWellFormed();
    void unreadableFileIsOneSentenceAndExitCodeOne_data();
    void unreadableFileIsOneSentenceAndExitCodeOne();
    void misuseIsOneSentenceAndExitCodeTwo();
    void helpAndVersionGoToStandardOutput();

    void filterPrintsHitsAndWhatIsAboveThem();
    void selectedEntitiesAreMarked();
    void unknownSelectionIsOneSentenceAndExitCodeOne_data();
    void unknownSelectionIsOneSentenceAndExitCodeOne();

    void screenshotNeedsNoDisplay();
    void screenshotShowsWhatWasAskedFor_data();
    void screenshotShowsWhatWasAskedFor();
    void failedScreenshotIsOneSentenceAndExitCodeOne_data();
    void failedScreenshotIsOneSentenceAndExitCodeOne();
    void windowWithoutADisplayIsOneSentenceAndExitCodeOne();
};

void tst_treebrowser::printEndsInTheCounts_data()
{
    QTest::addColumn<QString>("counts");
    QTest::newRow("pump_station.step")
        << "25 bodies, 25 volumes, 90 surfaces, 120 curves, 80 vertices, 7 groups";
}

void tst_treebrowser::printEndsInTheCounts()
{
    const Run run = treebrowser({"--print", sample(QTest::currentDataTag())});
    QVERIFY2(run.exit_code == 0, qPrintable(run.messages));
    QTEST(run.output.trimmed().section('\n', -1), "counts");
}

void tst_treebrowser::partsKeepTheirNames()
{
    const Run run = treebrowser({"--print", "--depth", "1", sample("pump_station.step")});
    const QStringList lines = run.output.split('\n');
    QCOMPARE(lines.value(0), QString::fromUtf8("Base plate  [body 1]  … 1 below"));
    QCOMPARE(lines.value(1), QString::fromUtf8("Gehäuse  [body 2]  … 1 below"));
}

void tst_treebrowser::assembliesAreNestedGroups()
{
    const Run run = treebrowser({"--print", sample("pump_station.step")});
    const QString groups = run.output.mid(run.output.indexOf("Pump station"));
    QVERIFY2(groups.contains(QString::fromUtf8("─ Duty pump  [group ")), qPrintable(groups));
    QVERIFY2(groups.contains(QString::fromUtf8("   ├─ Inlet  [group ")) ||
                 groups.contains(QString::fromUtf8("│  ├─ Inlet  [group ")),
        qPrintable(groups));
}

void tst_treebrowser::jsonIsWellFormed()
{
    const Run run = treebrowser({"--print", "--json", sample("roof.step")});
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(run.output.toUtf8(), &error);
    QVERIFY2(error.error == QJsonParseError::NoError, qPrintable(error.errorString()));
    QCOMPARE(document["tree"][0]["flags"][0].toString(), "sheet");
}

void tst_treebrowser::unreadableFileIsOneSentenceAndExitCodeOne_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("reason");
    QTest::newRow("empty") << QByteArray() << "the file is empty";
    QTest::newRow("foreign")
        << QByteArray("dear diary\n")
        << "its content is none of STEP, IGES, BREP, MSH, Medit, VTK and Nastran";
}

void tst_treebrowser::unreadableFileIsOneSentenceAndExitCodeOne()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, reason);
    const QTemporaryDir folder;
    const QString path = folder.filePath("model.step");
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
    file.close();

    const Run run = treebrowser({"--print", path});

    QCOMPARE(run.exit_code, 1);
    QCOMPARE(run.output, QString());
    QCOMPARE(
        run.messages, QStringLiteral("treebrowser: Cannot import \"%1\": %2.\n").arg(path, reason));
}

void tst_treebrowser::misuseIsOneSentenceAndExitCodeTwo()
{
    const Run run = treebrowser({"--print"});
    QCOMPARE(run.exit_code, 2);
    QCOMPARE(run.messages, "treebrowser: Give one file to print.\n");
}

void tst_treebrowser::helpAndVersionGoToStandardOutput()
{
    const Run help = treebrowser({"--help"});
    QCOMPARE(help.exit_code, 0);
    QVERIFY2(help.output.contains("--depth <N>"), qPrintable(help.output));

    const Run version = treebrowser({"--version"});
    QCOMPARE(version.exit_code, 0);
    QVERIFY2(version.output.startsWith("treebrowser 0."), qPrintable(version.output));
}

void tst_treebrowser::filterPrintsHitsAndWhatIsAboveThem()
{
    const Run run = treebrowser({"--print", "--filter", "inlet", sample("pump_station.step")});
    QCOMPARE(run.exit_code, 0);
    const QStringList lines = run.output.split('\n');
    QCOMPARE(lines.value(0), "Pump station  [group 1]");
    QCOMPARE(lines.value(2), QString::fromUtf8("│  └─ Inlet  [group 3]"));
    QCOMPARE(lines.value(3), QString::fromUtf8("│     ├─ Disc  [body 4]"));
}

void tst_treebrowser::selectedEntitiesAreMarked()
{
    const Run run =
        treebrowser({"--print", "--select", "body 2 3 surface 7", sample("pump_station.step")});
    QCOMPARE(run.exit_code, 0);
    QVERIFY2(run.output.contains(QString::fromUtf8("Gehäuse  [body 2, selected]")),
        qPrintable(run.output));
    QVERIFY2(run.output.contains("Surface 7  [surface 7, selected]"), qPrintable(run.output));
    QVERIFY2(!run.output.contains("[body 4, selected]"), qPrintable(run.output));
}

void tst_treebrowser::unknownSelectionIsOneSentenceAndExitCodeOne_data()
{
    QTest::addColumn<QStringList>("action");
    const QTemporaryDir folder;
    QTest::newRow("print") << QStringList{"--print"};
    QTest::newRow("screenshot") << QStringList{"--screenshot", folder.filePath("a.png")};
}

void tst_treebrowser::unknownSelectionIsOneSentenceAndExitCodeOne()
{
    QFETCH(QStringList, action);
    const Run run =
        treebrowser(action + QStringList{"--select", "body 99", sample("pump_station.step")});
    QCOMPARE(run.exit_code, 1);
    QCOMPARE(run.output, QString());
    QCOMPARE(run.messages, "treebrowser: The model holds nothing to select by \"body 99\".\n");
}

void tst_treebrowser::screenshotNeedsNoDisplay()
{
    const QTemporaryDir folder;
    const QString picture = folder.filePath("window.png");
    const Run run = treebrowser({"--screenshot", picture, sample("pump_station.step")});
    QCOMPARE(run.exit_code, 0);
    QCOMPARE(run.output, QString());
    QCOMPARE(run.messages, QString());
    QVERIFY(QImage(picture).width() > 600);
}

void tst_treebrowser::screenshotShowsWhatWasAskedFor_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::newRow("filter") << QStringList{"--filter", "inlet"};
    QTest::newRow("selection") << QStringList{"--select", "body 1"};
    QTest::newRow("depth") << QStringList{"--depth", "4"};
    QTest::newRow("signal monitor") << QStringList{"--show-signals"};
    QTest::newRow("dark") << QStringList{"--dark"};
}

void tst_treebrowser::screenshotShowsWhatWasAskedFor()
{
    QFETCH(QStringList, options);
    const QTemporaryDir folder;
    const QString plain = folder.filePath("plain.png");
    const QString other = folder.filePath("other.png");
    QCOMPARE(treebrowser({"--screenshot", plain, sample("roof.step")}).exit_code, 0);
    QCOMPARE(
        treebrowser(options + QStringList{"--screenshot", other, sample("roof.step")}).exit_code,
        0);
    QVERIFY(QImage(plain) != QImage(other));
}

void tst_treebrowser::failedScreenshotIsOneSentenceAndExitCodeOne_data()
{
    QTest::addColumn<QString>("picture");
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("sentence");
    QTest::newRow("no folder") << "/nowhere/a.png" << sample("roof.step")
                               << "treebrowser: Cannot write the picture \"/nowhere/a.png\": ";
    QTest::newRow("no file") << "a.png"
                             << "/nowhere/a.step"
                             << "treebrowser: Cannot import \"/nowhere/a.step\": ";
}

void tst_treebrowser::failedScreenshotIsOneSentenceAndExitCodeOne()
{
    QFETCH(QString, picture);
    QFETCH(QString, file);
    QFETCH(QString, sentence);
    const Run run = treebrowser({"--screenshot", picture, file});
    QCOMPARE(run.exit_code, 1);
    QVERIFY2(run.messages.startsWith(sentence), qPrintable(run.messages));
    QCOMPARE(run.messages.count('\n'), 1);
}

void tst_treebrowser::windowWithoutADisplayIsOneSentenceAndExitCodeOne()
{
    const Run run = treebrowser({sample("roof.step")});
    QCOMPARE(run.exit_code, 1);
    QCOMPARE(run.messages,
        "treebrowser: There is no display to open a window on; give --print or --screenshot.\n");
}

QTEST_GUILESS_MAIN(tst_treebrowser)
#include "tst_treebrowser.moc"
