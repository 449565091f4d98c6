#include <memory>
#include <QTest>
#include <support/EventLog.hpp>
#include <support/SignalRecorder.hpp>
#include <treemodel/treedata/TreeData.hpp>

class tst_TreeData : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void newRecordIsVisibleUnnamedAndWithoutParent();
    void anyIdIsTaken_data();
    void anyIdIsTaken();
    void unnamedRecordShowsItsId();
    void ownNameReplacesTheDefaultName();

    void newIdOfUnnamedRecordEmitsIdThenName();
    void newIdOfNamedRecordEmitsIdAlone();
    void sameIdEmitsAgain();
    void idIsStoredWhenItsSignalComes();

    void nameIsEmittedOnRealChangeOnly();
    void letterCaseMakesADifferentName();
    void emptyNameIsEmittedAsItIs();
    void emptyNameOnUnnamedRecordIsSilent();
    void defaultTextCanBecomeTheOwnName();

    void visibilityEmitsAlways();

    void destructionIsToldOnceBeforeQObjectDestroyed();
    void dyingRecordIsOnlyATreeData();
    void recordMayBeDeletedInsideItsIdSignal();
    void pointerTypeIsKnownToTheMetaTypeSystem();

private:
    EventLog log;
    std::unique_ptr<SignalRecorder> recorder;
    std::unique_ptr<TreeData> record;
};

void tst_TreeData::init()
{
    recorder = std::make_unique<SignalRecorder>(log);
    record = std::make_unique<TreeData>(7);
    recorder->watch(record.get());
}

void tst_TreeData::cleanup()
{
    record.reset();
    recorder.reset();
    log.take();
}

void tst_TreeData::newRecordIsVisibleUnnamedAndWithoutParent()
{
    QCOMPARE(record->id(), 7);
    QVERIFY(record->is_visible());
    QCOMPARE(record->name(), "Entity 7");
    QCOMPARE(record->parent(), nullptr);
}

void tst_TreeData::anyIdIsTaken_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("name");
    QTest::newRow("zero") << 0 << "Entity 0";
    QTest::newRow("negative") << -3 << "Entity -3";
    QTest::newRow("largest") << 2147483647 << "Entity 2147483647";
    QTest::newRow("smallest") << int(-2147483647 - 1) << "Entity -2147483648";
}

void tst_TreeData::anyIdIsTaken()
{
    QFETCH(int, id);
    TreeData other(id);
    QCOMPARE(other.id(), id);
    QTEST(other.name(), "name");
}

void tst_TreeData::unnamedRecordShowsItsId()
{
    record->set_id(8);
    QCOMPARE(record->name(), "Entity 8");
}

void tst_TreeData::ownNameReplacesTheDefaultName()
{
    record->set_name("Lid");
    QCOMPARE(record->name(), "Lid");
}

void tst_TreeData::newIdOfUnnamedRecordEmitsIdThenName()
{
    record->set_id(8);
    QCOMPARE(log.take(),
        QStringList({"TreeData 8: id_changed(8)", "TreeData 8: name_changed(Entity 8)"}));
}

void tst_TreeData::newIdOfNamedRecordEmitsIdAlone()
{
    record->set_name("Lid");
    log.take();

    record->set_id(8);

    QCOMPARE(log.take(), QStringList("TreeData 8: id_changed(8)"));
    QCOMPARE(record->name(), "Lid");
}

void tst_TreeData::sameIdEmitsAgain()
{
    record->set_id(7);
    QCOMPARE(log.take(),
        QStringList({"TreeData 7: id_changed(7)", "TreeData 7: name_changed(Entity 7)"}));
}

void tst_TreeData::idIsStoredWhenItsSignalComes()
{
    int seen = 0;
    connect(record.get(), &TreeData::id_changed, this, [&] { seen = record->id(); });
    record->set_id(9);
    QCOMPARE(seen, 9);
}

void tst_TreeData::nameIsEmittedOnRealChangeOnly()
{
    record->set_name("Lid");
    record->set_name("Lid");
    record->set_name("Base");
    QCOMPARE(log.take(),
        QStringList({"TreeData 7: name_changed(Lid)", "TreeData 7: name_changed(Base)"}));
}

void tst_TreeData::letterCaseMakesADifferentName()
{
    record->set_name("Lid");
    log.take();
    record->set_name("LID");
    QCOMPARE(log.take(), QStringList("TreeData 7: name_changed(LID)"));
}

void tst_TreeData::emptyNameIsEmittedAsItIs()
{
    record->set_name("Lid");
    log.take();

    record->set_name("");

    QCOMPARE(log.take(), QStringList("TreeData 7: name_changed()"));
    QCOMPARE(record->name(), "Entity 7");
}

void tst_TreeData::emptyNameOnUnnamedRecordIsSilent()
{
    record->set_name("");
    record->set_name(QString());
    QCOMPARE(log.take(), QStringList());
}

void tst_TreeData::defaultTextCanBecomeTheOwnName()
{
    record->set_name("Entity 7");
    QCOMPARE(log.take(), QStringList("TreeData 7: name_changed(Entity 7)"));

    record->set_id(8);
    QVERIFY2(record->name() == "Entity 7", "the text is the record's own name now");
}

void tst_TreeData::visibilityEmitsAlways()
{
    record->set_visible(true);
    record->set_visible(false);
    record->set_visible(false);
    QVERIFY(!record->is_visible());
    QCOMPARE(log.take(),
        QStringList({"TreeData 7: visible_changed(true)", "TreeData 7: visible_changed(false)",
            "TreeData 7: visible_changed(false)"}));
}

void tst_TreeData::destructionIsToldOnceBeforeQObjectDestroyed()
{
    TreeData* const pointer = record.get();
    QStringList order;
    connect(pointer, &TreeData::treedata_destroyed, this,
        [&](TreeData* dying) { order << (dying == pointer ? "treedata_destroyed" : "wrong"); });
    connect(pointer, &QObject::destroyed, this, [&] { order << "destroyed"; });

    record.reset();

    QCOMPARE(order, QStringList({"treedata_destroyed", "destroyed"}));
}

namespace {

class NamedRecord : public TreeData
{
    Q_OBJECT

public:
    using TreeData::TreeData;

protected:
    QString default_name() override { return "Derived"; }
};

} // namespace

void tst_TreeData::dyingRecordIsOnlyATreeData()
{
    auto derived = std::make_unique<NamedRecord>(4);
    derived->set_visible(false);
    QCOMPARE(derived->name(), "Derived");
    QString seen;
    connect(derived.get(), &TreeData::treedata_destroyed, this, [&](TreeData* dying) {
        seen = QString("%1, %2, visible %3, derived %4")
                   .arg(dying->id())
                   .arg(dying->name())
                   .arg(dying->is_visible())
                   .arg(qobject_cast<NamedRecord*>(dying) != nullptr);
    });

    derived.reset();

    QCOMPARE(seen, "4, Entity 4, visible 0, derived 0");
}

void tst_TreeData::recordMayBeDeletedInsideItsIdSignal()
{
    connect(record.get(), &TreeData::id_changed, this, [this] { record.reset(); });
    record->set_id(8);
    QCOMPARE(log.take(),
        QStringList({"TreeData 8: id_changed(8)", "TreeData 8: treedata_destroyed(TreeData 8)"}));
}

void tst_TreeData::pointerTypeIsKnownToTheMetaTypeSystem()
{
    QVERIFY(QMetaType::fromName("TreeData*").isValid());
}

QTEST_GUILESS_MAIN(tst_TreeData)
#include "tst_TreeData.moc"
