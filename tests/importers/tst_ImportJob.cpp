#include "ImportLog.hpp"

#include <csignal>
#include <memory>
#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>

using namespace std::chrono_literals;

// The helper program of these tests does what the lines of its input file say.
class tst_ImportJob : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_log = std::make_unique<ImportLog>(SCRIPTED_HELPER_DIR);
        QFile::remove(m_folder.filePath("script.step.pid"));
    }

    void signalsComeInTheOrderOfTheFrames()
    {
        m_log->import(script({"progress 0 -1", "progress 2 0.25", "warning A face is missing.",
            "progress 3 1", "progress 4 0", "model Plate"}));

        const QStringList expected{"progress: Reading the file -1",
            "progress: Building the shapes 0.25", "warning: A face is missing.",
            "progress: Collecting the entities 1", "progress: Handing over the model 0",
            "finished: Succeeded"};
        QCOMPARE(m_log->lines(), expected);
        QCOMPARE(m_log->error_text(), QString());
    }

    void modelIsHandedOverOnce()
    {
        m_log->import(script({"model Plate"}));

        const auto model = m_log->take_model();
        QCOMPARE(model.bodies.size(), std::size_t(1));
        QCOMPARE(model.bodies[0].name, std::string("Plate"));
        QCOMPARE(model.volumes.size(), std::size_t(1));
        QVERIFY2(m_log->take_model().bodies.empty(), "a model taken is gone");
    }

    void startEmitsNothingItself_data()
    {
        QTest::addColumn<bool>("exists");

        QTest::newRow("file") << true;
        QTest::newRow("no file") << false;
    }

    void startEmitsNothingItself()
    {
        QFETCH(bool, exists);

        m_log->job().start(exists ? script({"model Plate"}) : m_folder.filePath("none"));

        QVERIFY(m_log->job().is_running());
        QCOMPARE(m_log->lines(), QStringList());
        m_log->wait();
        QCOMPARE(m_log->last(), exists ? "finished: Succeeded" : "finished: Failed");
    }

    void nothingFollowsTheLastFrame_data()
    {
        QTest::addColumn<QString>("last");
        QTest::addColumn<QString>("outcome");

        QTest::newRow("model") << "model Plate"
                               << "finished: Succeeded";
        QTest::newRow("failure") << "failure it is damaged"
                                 << "finished: Failed";
    }

    void nothingFollowsTheLastFrame()
    {
        QFETCH(QString, last);
        QFETCH(QString, outcome);

        m_log->import(script({last, "warning late", "failure late", "model late", "crash"}));
        QTest::qWait(50);

        QCOMPARE(m_log->lines(), QStringList{outcome});
    }

    void failureOfTheHelperBecomesASentence()
    {
        m_log->import(script({"progress 1 -1", "failure it is damaged: entity #8 \u00e4"}));

        QCOMPARE(m_log->last(), QStringLiteral("finished: Failed"));
        QCOMPARE(m_log->error_text(), sentence("it is damaged: entity #8 \u00e4"));
        QVERIFY(m_log->take_model().bodies.empty());
    }

    void endWithoutAResultBecomesASentence_data()
    {
        QTest::addColumn<QStringList>("commands");
        QTest::addColumn<QString>("stage");

        QTest::newRow("crash at once") << QStringList{"crash"} << "Reading the file";
        QTest::newRow("crash later")
            << QStringList{"progress 2 0.5", "crash"} << "Building the shapes";
        QTest::newRow("end") << QStringList{"progress 1 0"} << "Checking the data";
        QTest::newRow("end with an error") << QStringList{"exit 3"} << "Reading the file";
        QTest::newRow("end within a model")
            << QStringList{"progress 4 0", "cut-model"} << "Handing over the model";
    }

    void endWithoutAResultBecomesASentence()
    {
        QFETCH(QStringList, commands);
        QFETCH(QString, stage);

        m_log->import(script(commands));

        QCOMPARE(m_log->last(), QStringLiteral("finished: Failed"));
        QCOMPARE(m_log->error_text(),
            sentence(QStringLiteral("the program that reads it crashed at the stage \"%1\"; "
                                    "the file is probably damaged")
                         .arg(stage)));
    }

    void nonsenseFromTheHelperBecomesASentence_data()
    {
        QTest::addColumn<QString>("command");

        QTest::newRow("print") << "raw Reading the file, please wait";
        QTest::newRow("no kind") << "frame 9 text";
        QTest::newRow("no progress") << "frame 1 abc";
        QTest::newRow("no model") << "frame 4 abc";
    }

    void nonsenseFromTheHelperBecomesASentence()
    {
        QFETCH(QString, command);

        m_log->import(script({command, "hang"}));

        QCOMPARE(m_log->lines(), QStringList{"finished: Failed"});
        QCOMPARE(
            m_log->error_text(), sentence("the program that reads it sent something unreadable"));
        QTRY_VERIFY2(!is_helper_alive(), "the helper program must be ended");
    }

    void silentHelperIsEnded()
    {
        m_log->job().set_silence_limit(300ms);

        m_log->import(script({"progress 2 0.5", "hang"}));

        QCOMPARE(m_log->last(), QStringLiteral("finished: Failed"));
        QCOMPARE(m_log->error_text(),
            sentence("the program that reads it hung at the stage \"Building the shapes\" and "
                     "was ended after 0.3 s; the file is probably damaged"));
        QTRY_VERIFY2(!is_helper_alive(), "the helper program must be ended");
    }

    void helperMayBeSilentForLongerOverALargeFile()
    {
        m_log->job().set_silence_limit(100ms);
        const auto path = script({"hang"});
        QVERIFY(QFile::resize(path, 5'000'000));

        m_log->import(path);

        QVERIFY2(m_log->error_text().contains(" was ended after 1.1 s;"),
            qPrintable(m_log->error_text()));
    }

    void helperThatReportsMayTakeLongerThanTheLimit()
    {
        m_log->job().set_silence_limit(1s);
        QStringList commands;
        for (int i = 0; i < 6; ++i) {
            commands << "progress 2 0.5"
                     << "sleep 300";
        }

        m_log->import(script(commands << "model Plate"));

        QCOMPARE(m_log->last(), QStringLiteral("finished: Succeeded"));
    }

    void slowEventLoopIsNotTakenForASilentHelper()
    {
        m_log->job().set_silence_limit(300ms);
        connect(&m_log->job(), &ImportJob::progress, this, [] { QTest::qSleep(500); });

        m_log->import(
            script({"progress 2 0.5", "sleep 100", "progress 3 0.5", "sleep 100", "model Plate"}));

        QCOMPARE(m_log->last(), QStringLiteral("finished: Succeeded"));
    }

    void cancelEndsTheHelperAtOnce()
    {
        m_log->job().start(script({"progress 2 0.5", "hang"}));
        QTRY_COMPARE(m_log->lines().size(), 1);
        QVERIFY(is_helper_alive());

        QElapsedTimer time;
        time.start();
        m_log->job().cancel();

        QVERIFY(time.elapsed() < 500);
        QCOMPARE(m_log->last(), QStringLiteral("finished: Cancelled"));
        QVERIFY(!m_log->job().is_running());
        QCOMPARE(m_log->error_text(),
            QStringLiteral("The import of \"%1\" was cancelled.").arg(script_file()));
        QTRY_VERIFY2(!is_helper_alive(), "the helper program must be ended");
        QCOMPARE(m_log->lines().size(), 2);
    }

    void cancelBeforeTheHelperRunsKeepsItFromStarting()
    {
        m_log->job().start(script({"model Plate"}));
        m_log->job().cancel();
        QTest::qWait(100);

        QCOMPARE(m_log->lines(), QStringList{"finished: Cancelled"});
        QVERIFY(!QFile::exists(script_file() + ".pid"));
    }

    void cancelFromASlotIsTheEnd()
    {
        connect(&m_log->job(), &ImportJob::progress, &m_log->job(), &ImportJob::cancel);

        m_log->import(script({"progress 0 0", "progress 1 0", "warning late", "model Plate"}));
        QTest::qWait(50);

        QCOMPARE(
            m_log->lines(), QStringList({"progress: Reading the file 0", "finished: Cancelled"}));
        QVERIFY(m_log->take_model().bodies.empty());
    }

    void cancelWithoutAnImportDoesNothing()
    {
        m_log->job().cancel();
        QCOMPARE(m_log->lines(), QStringList());

        m_log->import(script({"model Plate"}));
        m_log->job().cancel();

        QCOMPARE(m_log->lines(), QStringList{"finished: Succeeded"});
        QCOMPARE(m_log->take_model().bodies.size(), std::size_t(1));
    }

    void startWhileRunningDoesNothing()
    {
        m_log->job().start(script({"sleep 50", "model Plate"}));
        m_log->job().start(m_folder.filePath("none"));
        m_log->wait();

        QCOMPARE(m_log->lines(), QStringList{"finished: Succeeded"});
    }

    void nextImportMayBeginInTheLastSignal()
    {
        const auto missing = m_folder.filePath("none");
        bool is_first = true;
        connect(&m_log->job(), &ImportJob::finished, this, [&] {
            if (std::exchange(is_first, false)) {
                m_log->job().start(missing);
            }
        });

        m_log->import(script({"model Plate", "warning late"}));

        QCOMPARE(m_log->lines(), QStringList({"finished: Succeeded", "finished: Failed"}));
        QVERIFY2(m_log->take_model().bodies.empty(), "a new import drops the model before");
    }

    void newImportForgetsTheErrorBefore()
    {
        m_log->import(script({"failure it is damaged"}));
        m_log->import(script({"model Plate"}));

        QCOMPARE(m_log->lines(), QStringList{"finished: Succeeded"});
        QCOMPARE(m_log->error_text(), QString());
    }

    void destroyedJobEndsItsHelper()
    {
        m_log->job().start(script({"progress 2 0.5", "hang"}));
        QTRY_COMPARE(m_log->lines().size(), 1);
        const QSignalSpy finished(&m_log->job(), &ImportJob::finished);

        m_log.reset();

        QVERIFY2(!is_helper_alive(), "the helper program must be ended");
        QVERIFY(finished.isEmpty());
    }

    void missingHelperBecomesASentence()
    {
        m_log->job().set_helper_folder(m_folder.path());

        m_log->import(script({"model Plate"}));

        QCOMPARE(m_log->lines(), QStringList{"finished: Failed"});
        QCOMPARE(m_log->error_text(),
            sentence("the program treemodel-import-cad, which reads such files, is missing"));
    }

    // As where the program was built without Gmsh.
    void missingHelperForMeshesBecomesASentence()
    {
        const auto mesh = write_file(m_folder, "a.msh", "$MeshFormat\n2.2 0 8\n$EndMeshFormat\n");

        m_log->import(mesh);

        QCOMPARE(m_log->lines(), QStringList{"finished: Failed"});
        QCOMPARE(m_log->error_text(),
            QStringLiteral("Cannot import \"%1\": the program treemodel-import-mesh, which reads "
                           "such files, is missing.")
                .arg(mesh));
    }

    void resultThatIsNoModelBecomesASentence_data()
    {
        QTest::addColumn<int>("kind");

        QTest::newRow("unfinished mesh") << int(FrameKind::UnfinishedMesh);
        QTest::newRow("mesh") << int(FrameKind::Mesh);
    }

    void resultThatIsNoModelBecomesASentence()
    {
        QFETCH(int, kind);

        m_log->import(script({QStringLiteral("frame %1 text").arg(kind), "hang"}));

        QCOMPARE(
            m_log->error_text(), sentence("the program that reads it sent something unreadable"));
    }

    void nextImportMayBeginWhenTheHelperHasEndedAlready()
    {
        const auto path = script({"sleep 50", "model Plate"});
        bool is_first = true;
        connect(&m_log->job(), &ImportJob::finished, this, [&] {
            if (std::exchange(is_first, false)) {
                m_log->job().start(path);
            }
        });
        m_log->job().start(path);
        QTRY_VERIFY(QFile::exists(path + ".pid"));
        // The end of the program and its last words come at once.
        QTest::qSleep(300);

        m_log->wait();

        QCOMPARE(m_log->lines(), QStringList({"finished: Succeeded", "finished: Succeeded"}));
    }

    void helperThatDoesNotStartBecomesASentence()
    {
        QTemporaryDir folder;
        QFile helper(folder.filePath("treemodel-import-cad"));
        QVERIFY(helper.open(QIODevice::WriteOnly));
        helper.write("#!/no/such/interpreter\n");
        helper.close();
        helper.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
        m_log->job().set_helper_folder(folder.path());

        m_log->import(script({"model Plate"}));

        QCOMPARE(m_log->lines(), QStringList{"finished: Failed"});
        QVERIFY2(
            m_log->error_text().startsWith(QStringLiteral("Cannot import \"%1\": the program %2 "
                                                          "does not start: ")
                                               .arg(script_file(), helper.fileName())),
            qPrintable(m_log->error_text()));
    }

    void helperIsFoundNextToTheProgram()
    {
        const auto link = QCoreApplication::applicationDirPath() + "/treemodel-import-cad";
        QVERIFY(QFile::link(QStringLiteral(SCRIPTED_HELPER_DIR "/treemodel-import-cad"), link));
        m_log->job().set_helper_folder({});

        m_log->import(script({"model Plate"}));

        QVERIFY(QFile::remove(link));
        QCOMPARE(m_log->last(), QStringLiteral("finished: Succeeded"));
    }

private:
    QString script_file() const { return m_folder.filePath("script.step"); }

    // The file that the helper is given, made of commands for it.
    QString script(const QStringList& commands) const
    {
        return write_file(m_folder, "script.step",
            "ISO-10303-21;\n" + commands.join(QLatin1Char('\n')).toUtf8() + '\n');
    }

    QString sentence(const QString& reason) const
    {
        return QStringLiteral("Cannot import \"%1\": %2.").arg(script_file(), reason);
    }

    bool is_helper_alive() const
    {
        QFile file(script_file() + ".pid");
        if (!file.open(QIODevice::ReadOnly)) {
            qFatal("the helper program has not run");
        }
        return ::kill(file.readAll().toInt(), 0) == 0;
    }

    QTemporaryDir m_folder;
    std::unique_ptr<ImportLog> m_log;
};

QTEST_GUILESS_MAIN(tst_ImportJob)
#include "tst_ImportJob.moc"
