#include <QTest>
#include <support/EventLog.hpp>
#include <support/SignalRecorder.hpp>
#include <treemodel/treedata/TreeGroupData.hpp>

class tst_TreeGroupData : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nameIsThereFromTheStart();
    void groupWithoutNameIsAnEntity();
    void nameOfTheStartIsTheOwnName();
    void namesAndIdsAreAnnouncedAsOfAnyRecord();
    void pointerTypeIsKnownToTheMetaTypeSystem();
};

void tst_TreeGroupData::nameIsThereFromTheStart()
{
    TreeGroupData group("inner parts", 3);
    QCOMPARE(group.name(), "inner parts");
    QCOMPARE(group.id(), 3);
    QVERIFY(group.is_visible());
}

void tst_TreeGroupData::groupWithoutNameIsAnEntity()
{
    QCOMPARE(TreeGroupData(QString(), 3).name(), "Entity 3");
    QCOMPARE(TreeGroupData("", 4).name(), "Entity 4");
}

void tst_TreeGroupData::nameOfTheStartIsTheOwnName()
{
    TreeGroupData group("inner parts", 3);
    EventLog log;
    SignalRecorder recorder(log);
    recorder.watch(&group);

    group.set_name("inner parts");
    group.set_id(4);

    QCOMPARE(log.take(), QStringList("group 4: id_changed(4)"));
}

void tst_TreeGroupData::namesAndIdsAreAnnouncedAsOfAnyRecord()
{
    TreeGroupData group("", 3);
    EventLog log;
    SignalRecorder recorder(log);
    recorder.watch(&group);

    group.set_name("a");
    group.set_name("A");
    group.set_name("");
    group.set_name("");
    group.set_id(5);

    QCOMPARE(log.take(), QStringList({"group 3: name_changed(a)", "group 3: name_changed(A)",
                             "group 3: name_changed()", "group 5: id_changed(5)",
                             "group 5: name_changed(Entity 5)"}));
}

void tst_TreeGroupData::pointerTypeIsKnownToTheMetaTypeSystem()
{
    TreeGroupData group("", 1);
    QVERIFY(QMetaType::fromName("TreeGroupData*").isValid());
}

QTEST_GUILESS_MAIN(tst_TreeGroupData)
#include "tst_TreeGroupData.moc"
