#include <browser/CommandLine.hpp>
#include <browser/JsonTree.hpp>
#include <browser/MirrorTree.hpp>
#include <browser/TextTreeWriter.hpp>
#include <embedded/EmbeddedKernel.hpp>
#include <memory>
#include <QJsonArray>
#include <QTest>
#include <QTextStream>
#include <treemodel/kernel/TreeModel.hpp>

class tst_PrintedTree : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void emptyMirrorPrintsNothingButItsCounts();
    void sharedEntityStandsUnderEachParent();
    void flagsAreTold();
    void freeEntitiesAreRoots();
    void depthCutsAndTellsWhatIsBelow();
    void groupNamesItsMembersAndOpensGroups();
    void controlCharactersDoNotReachTheTerminal();
    void jsonHoldsTheSameTree();
    void jsonStopsAtTheDepth();

    void commandLineIsRead_data();
    void commandLineIsRead();
    void misuseIsOneSentence_data();
    void misuseIsOneSentence();

private:
    QString text(int depth = TextTreeWriter::AllLevels) const;

    std::unique_ptr<EmbeddedKernel> kernel;
    std::unique_ptr<TreeModel> mirror;
};

void tst_PrintedTree::init()
{
    kernel = std::make_unique<EmbeddedKernel>();
    mirror = std::make_unique<TreeModel>();
    mirror->connect_to_kesto();
}

void tst_PrintedTree::cleanup()
{
    mirror->disconnect_from_kesto();
    mirror.reset();
    kernel.reset();
}

QString tst_PrintedTree::text(int depth) const
{
    QString result;
    QTextStream stream(&result);
    TextTreeWriter(MirrorTree(*mirror), stream, depth).write();
    return result;
}

void tst_PrintedTree::emptyMirrorPrintsNothingButItsCounts()
{
    QCOMPARE(text(), QString());
    QCOMPARE(
        MirrorTree(*mirror).counts_line(), "0 bodies, 0 volumes, 0 surfaces, 0 curves, 0 vertices");
}

void tst_PrintedTree::sharedEntityStandsUnderEachParent()
{
    const int shared = kernel->create_surface();
    const int volume = kernel->create_volume({shared});
    const int neighbour = kernel->create_volume({shared});
    kernel->create_body({volume}, "Plate");
    kernel->create_body({neighbour}, "Lid");

    QCOMPARE(text(), QString::fromUtf8(R"(Plate  [body 1]
└─ Volume 1  [volume 1]
   └─ Surface 1  [surface 1, shared by 2]
Lid  [body 2]
└─ Volume 2  [volume 2]
   └─ Surface 1  [surface 1, shared by 2]
)"));
    QCOMPARE(
        MirrorTree(*mirror).counts_line(), "2 bodies, 2 volumes, 1 surfaces, 0 curves, 0 vertices");
}

void tst_PrintedTree::flagsAreTold()
{
    kernel->create_body({kernel->create_volume(), kernel->create_volume()});
    kernel->create_sheet_body();
    kernel->set_visible(EntityKind::BODY, 2, false);
    kernel->set_virtual(EntityKind::VOLUME, 1, true);

    QCOMPARE(text(), QString::fromUtf8(R"(Body 1  [body 1, multi-volume]
├─ Volume 1 (v)  [volume 1, virtual]
└─ Volume 2  [volume 2]
Body 2  [body 2, sheet, hidden]
└─ Volume 3  [volume 3]
)"));
}

void tst_PrintedTree::freeEntitiesAreRoots()
{
    kernel->create_curve({kernel->create_vertex("Start"), kernel->create_vertex()});
    kernel->create_vertex("Datum");

    QCOMPARE(text(), QString::fromUtf8(R"(Curve 1  [curve 1, free]
├─ Start  [vertex 1]
└─ Vertex 2  [vertex 2]
Datum  [vertex 3, free]
)"));
}

void tst_PrintedTree::depthCutsAndTellsWhatIsBelow()
{
    kernel->create_body({kernel->create_volume({kernel->create_surface()})}, "Plate");

    QCOMPARE(text(1), QString::fromUtf8("Plate  [body 1]  … 1 below\n"));
    QCOMPARE(text(2), QString::fromUtf8(R"(Plate  [body 1]
└─ Volume 1  [volume 1]  … 1 below
)"));
}

void tst_PrintedTree::groupNamesItsMembersAndOpensGroups()
{
    const int body = kernel->create_body({kernel->create_volume()}, "Plate");
    const int inner = kernel->create_group("Inner");
    const int outer = kernel->create_group("Outer");
    kernel->add_to_group(inner, EntityKind::BODY, {body});
    kernel->add_to_group(outer, EntityKind::GROUP, {inner});
    kernel->set_element_counts(inner, ElementCounts{.hexes = 12});

    QCOMPARE(text(), QString::fromUtf8(R"(Plate  [body 1]
└─ Volume 1  [volume 1]
Outer  [group 2]
└─ Inner  [group 1]
   ├─ Plate  [body 1]
   └─ 12 hex elements  [elements 0]
)"));
}

void tst_PrintedTree::controlCharactersDoNotReachTheTerminal()
{
    kernel->create_vertex("evil\x1b[2Jname\n");
    QVERIFY2(!text().contains(QChar(0x1b)), qPrintable(text()));
    QCOMPARE(text().count('\n'), 1);
}

void tst_PrintedTree::jsonHoldsTheSameTree()
{
    kernel->create_body({kernel->create_volume()}, "Plate");

    const QJsonObject json =
        json_tree(MirrorTree(*mirror), "plate.step", TextTreeWriter::AllLevels);

    QCOMPARE(json["file"].toString(), "plate.step");
    QCOMPARE(json["counts"]["bodies"].toInt(), 1);
    QCOMPARE(json["counts"]["vertices"].toInt(-1), 0);
    const QJsonObject body = json["tree"][0].toObject();
    QCOMPARE(body["kind"].toString(), "body");
    QCOMPARE(body["id"].toInt(), 1);
    QCOMPARE(body["name"].toString(), "Plate");
    QCOMPARE(body["flags"].toArray(), QJsonArray());
    QCOMPARE(body["children"][0]["kind"].toString(), "volume");
}

void tst_PrintedTree::jsonStopsAtTheDepth()
{
    kernel->create_body({kernel->create_volume()}, "Plate");
    const QJsonObject json = json_tree(MirrorTree(*mirror), "plate.step", 1);
    QVERIFY(!json["tree"][0].toObject().contains("children"));
}

void tst_PrintedTree::commandLineIsRead_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("summary");
    QTest::newRow("text") << QStringList{"--print", "a.step"} << "0 a.step text all";
    QTest::newRow("json") << QStringList{"--print", "--json", "a.step"} << "0 a.step json all";
    QTest::newRow("depth") << QStringList{"a.step", "--print", "--depth", "2"} << "0 a.step text 2";
    QTest::newRow("help") << QStringList{"--help"} << "1  text all";
    QTest::newRow("version") << QStringList{"--version"} << "2  text all";
}

void tst_PrintedTree::commandLineIsRead()
{
    QFETCH(QStringList, arguments);
    const CommandLine command = CommandLine::parse(QStringList("treebrowser") + arguments);
    const QString summary = QStringLiteral("%1 %2 %3 %4")
                                .arg(int(command.action))
                                .arg(command.file)
                                .arg(command.json ? "json" : "text")
                                .arg(command.depth ? QString::number(*command.depth) : "all");
    QTEST(summary, "summary");
}

void tst_PrintedTree::misuseIsOneSentence_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("sentence");
    QTest::newRow("nothing") << QStringList() << "Nothing to do: give --print and a file.";
    QTest::newRow("no file") << QStringList{"--print"} << "Give one file to print.";
    QTest::newRow("two files") << QStringList{"--print", "a", "b"} << "Give one file to print.";
    QTest::newRow("unknown option") << QStringList{"--shiny"} << "Unknown option 'shiny'.";
    QTest::newRow("depth of nothing") << QStringList{"--print", "a", "--depth", "0"}
                                      << "The depth must be a whole number from 1 on, not \"0\".";
    QTest::newRow("depth of words") << QStringList{"--print", "a", "--depth", "two"}
                                    << "The depth must be a whole number from 1 on, not \"two\".";
}

void tst_PrintedTree::misuseIsOneSentence()
{
    QFETCH(QStringList, arguments);
    const CommandLine command = CommandLine::parse(QStringList("treebrowser") + arguments);
    QCOMPARE(command.action, CommandLine::ReportMisuse);
    QTEST(command.text, "sentence");
}

QTEST_GUILESS_MAIN(tst_PrintedTree)
#include "tst_PrintedTree.moc"
