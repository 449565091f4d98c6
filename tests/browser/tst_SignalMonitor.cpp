#include <browser/KernelSession.hpp>
#include <browser/window/SignalMonitor.hpp>
#include <memory>
#include <QAbstractItemModelTester>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>
#include <QTreeView>

class tst_SignalMonitor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void logStandsTheModelTester();
    void logKeepsTheLastSignals();
    void logTakesABurstInOneInsertion();
    void clearedLogCountsAnew();

    void hiddenMonitorHearsNothing();
    void signalsAreListedAsTheyAreEmitted();
    void newRecordIsHeardFromItsAddedSignalOn();
    void recordsThatStoodBeforeAreHeard();
    void signalsOfAllClassesOfRecordsAreHeard();
    void dyingRecordIsHeardToTheEnd();
    void pausedMonitorHearsNothingAndHearsAgain();
    void clearButtonEmptiesTheTable();
    void nameFiltersTheTable();
    void manyRecordsComeAndGoUnderTheMonitor();

private:
    // The rows of the table as "sender signal(arguments)".
    QStringList rows() const;
    QToolButton* button(const char* name) const;

    std::unique_ptr<KernelSession> session;
    std::unique_ptr<SignalMonitor> monitor;
};

void tst_SignalMonitor::init()
{
    session = std::make_unique<KernelSession>();
    monitor = std::make_unique<SignalMonitor>(session->mirror());
    monitor->resize(600, 300);
}

void tst_SignalMonitor::cleanup()
{
    monitor.reset();
    session.reset();
}

QStringList tst_SignalMonitor::rows() const
{
    QCoreApplication::processEvents();
    const QAbstractItemModel* const table = monitor->findChild<QTreeView*>()->model();
    QStringList result;
    for (int row = 0; row < table->rowCount(); ++row) {
        const auto text = [&](int column) { return table->index(row, column).data().toString(); };
        result << QStringLiteral("%1 %2(%3)")
                      .arg(text(SignalLog::Sender), text(SignalLog::Signal),
                          text(SignalLog::Arguments));
    }
    return result;
}

QToolButton* tst_SignalMonitor::button(const char* name) const
{
    return monitor->findChild<QToolButton*>(name);
}

void tst_SignalMonitor::logStandsTheModelTester()
{
    SignalLog log(3);
    const QAbstractItemModelTester tester(
        &log, QAbstractItemModelTester::FailureReportingMode::QtTest);
    for (int i = 0; i < 5; ++i) {
        log.append("surface 1", "name_changed", QString::number(i));
        QCoreApplication::processEvents();
    }
    log.clear();
    QCOMPARE(log.rowCount(), 0);
}

void tst_SignalMonitor::logKeepsTheLastSignals()
{
    SignalLog log(3);
    for (int i = 0; i < 5; ++i) {
        log.append("surface 1", "name_changed", QString::number(i));
    }
    QTRY_COMPARE(log.rowCount(), 3);
    QCOMPARE(log.index(0, SignalLog::Arguments).data().toString(), "2");
    QCOMPARE(log.index(2, SignalLog::Arguments).data().toString(), "4");
    QCOMPARE(log.heard(), 5);
}

void tst_SignalMonitor::logTakesABurstInOneInsertion()
{
    SignalLog log;
    const QSignalSpy insertions(&log, &QAbstractItemModel::rowsInserted);
    for (int i = 0; i < 1000; ++i) {
        log.append("surface 1", "name_changed", {});
    }
    QCOMPARE(log.rowCount(), 0);
    QTRY_COMPARE(log.rowCount(), 1000);
    QCOMPARE(insertions.size(), 1);
}

void tst_SignalMonitor::clearedLogCountsAnew()
{
    SignalLog log;
    log.append("surface 1", "name_changed", {});
    log.clear();
    QCoreApplication::processEvents();
    QCOMPARE(log.rowCount(), 0);
    QCOMPARE(log.heard(), 0);
}

void tst_SignalMonitor::hiddenMonitorHearsNothing()
{
    session->kernel().create_vertex("Origin");
    QCOMPARE(rows(), QStringList());

    monitor->show();
    QCOMPARE(rows(), QStringList());
    monitor->hide();
    session->kernel().create_vertex("Tip");
    QCOMPARE(rows(), QStringList());
}

void tst_SignalMonitor::signalsAreListedAsTheyAreEmitted()
{
    monitor->show();
    const int vertex = session->kernel().create_vertex("Origin");
    session->kernel().create_curve({vertex});

    const QStringList heard = rows();
    QVERIFY2(heard.startsWith("TreeModel geometry_added(vertex 1 \"Vertex 1\", none)"),
        qPrintable(heard.join('\n')));
    QVERIFY2(
        heard.contains("TreeModel geometry_associated(curve 1 \"Curve 1\", vertex 1 \"Origin\")"),
        qPrintable(heard.join('\n')));
    QCOMPARE(monitor->log().heard(), heard.size());
}

void tst_SignalMonitor::newRecordIsHeardFromItsAddedSignalOn()
{
    monitor->show();
    session->kernel().create_vertex("Origin");
    const QStringList heard = rows();
    const auto added = heard.indexOf("TreeModel geometry_added(vertex 1 \"Vertex 1\", none)");
    const auto named = heard.indexOf("vertex 1 name_changed(Origin)");
    QVERIFY2(added >= 0 && named > added, qPrintable(heard.join('\n')));
}

void tst_SignalMonitor::recordsThatStoodBeforeAreHeard()
{
    session->kernel().create_vertex("Origin");
    monitor->show();
    QCOMPARE(rows(), QStringList());

    session->kernel().rename(EntityKind::VERTEX, 1, "Tip");
    QCOMPARE(rows(), QStringList("vertex 1 name_changed(Tip)"));
}

void tst_SignalMonitor::signalsOfAllClassesOfRecordsAreHeard()
{
    EmbeddedKernel& kernel = session->kernel();
    kernel.create_volume();
    kernel.create_set(EntityKind::BLOCK, "Solid");
    kernel.create_group("Parts");
    kernel.set_element_counts(1, ElementCounts{.hexes = 2});
    monitor->show();
    rows();

    kernel.set_virtual(EntityKind::VOLUME, 1, true);
    kernel.set_lite(EntityKind::BLOCK, 1, true);
    kernel.set_element_counts(1, ElementCounts{.hexes = 3});
    kernel.renumber(EntityKind::VOLUME, 1, 7);

    const QStringList heard = rows();
    for (const char* row : {"volume 1 virtual_changed(true)", "block 1 lite_status_changed(true)",
             "hex 0 element_count_changed(3)", "volume 7 id_changed(7)"}) {
        QVERIFY2(heard.contains(QLatin1String(row)), qPrintable(heard.join('\n')));
    }
}

void tst_SignalMonitor::dyingRecordIsHeardToTheEnd()
{
    session->kernel().create_vertex("Origin");
    monitor->show();
    rows();
    session->kernel().remove(EntityKind::VERTEX, 1);
    const QStringList heard = rows();
    QVERIFY2(heard.contains("TreeModel geometry_removed(vertex 1 \"Origin\")"),
        qPrintable(heard.join('\n')));
    QCOMPARE(heard.constLast(), "record 1 treedata_destroyed(record 1 \"Origin\")");
}

void tst_SignalMonitor::pausedMonitorHearsNothingAndHearsAgain()
{
    monitor->show();
    QTest::mouseClick(button("pause"), Qt::LeftButton);
    session->kernel().create_vertex("Origin");
    QCOMPARE(rows(), QStringList());

    QTest::mouseClick(button("pause"), Qt::LeftButton);
    QCOMPARE(rows(), QStringList());
    session->kernel().rename(EntityKind::VERTEX, 1, "Tip");
    QCOMPARE(rows(), QStringList("vertex 1 name_changed(Tip)"));
}

void tst_SignalMonitor::clearButtonEmptiesTheTable()
{
    monitor->show();
    session->kernel().create_vertex("Origin");
    QVERIFY(!rows().isEmpty());
    QTest::mouseClick(button("clear"), Qt::LeftButton);
    QCOMPARE(rows(), QStringList());
}

void tst_SignalMonitor::nameFiltersTheTable()
{
    monitor->show();
    session->kernel().create_vertex("Origin");
    QTest::keyClicks(monitor->findChild<QLineEdit*>("signal_name"), "NAME_");
    QCOMPARE(rows(), QStringList("vertex 1 name_changed(Origin)"));
}

void tst_SignalMonitor::manyRecordsComeAndGoUnderTheMonitor()
{
    constexpr int count = 500;
    monitor->show();
    for (int i = 0; i < count; ++i) {
        session->kernel().create_vertex();
    }
    rows();
    session->kernel().clear();
    session->kernel().create_vertex("Origin");
    QVERIFY(rows().contains("vertex 1 name_changed(Origin)"));
    // More rows than records: each is heard alone, and once.
    QCOMPARE(rows().filter("geometry_added").size(), count + 1);
    QCOMPARE(rows().filter("treedata_destroyed").size(), count);
}

QTEST_MAIN(tst_SignalMonitor)
#include "tst_SignalMonitor.moc"
