#include <memory>
#include <QTest>
#include <support/EventLog.hpp>
#include <support/SignalRecorder.hpp>
#include <treemodel/treedata/TreeBodyData.hpp>

using Type = TreeGeometryData::GeometryType;

/// As a subclass sees the record.
class LabelledRecord : public TreeGeometryData
{
public:
    using TreeGeometryData::base_name;
    using TreeGeometryData::TreeGeometryData;
};

class tst_TreeGeometryData : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void eachTypeHasItsWordAndDefaultName_data();
    void eachTypeHasItsWordAndDefaultName();
    void wordGivesItsType_data();
    void wordGivesItsType();
    void unknownWordLeavesTheTypeAlone_data();
    void unknownWordLeavesTheTypeAlone();

    void newRecordIsPlain();
    void labelIsTheTypeAloneWithABlank();
    void virtualMarkFollowsTheFlag_data();
    void virtualMarkFollowsTheFlag();
    void becomingVirtualMarksTheOwnName();
    void becomingPlainCutsTheMark();
    void flagOfUnnamedRecordChangesTheDefaultName();
    void sameFlagIsSilent();
    void flagIsStoredBeforeItsSignalAndNameAfter();
    void nameSetInsideTheFlagSignalStands();
    void newIdOfUnnamedVirtualRecordKeepsTheMark();
    void recordMayBeDeletedInsideItsFlagSignal();

    void bodyIsABodyWithoutFlags();
    void bodyFlagsEmitOnChangeOnly();
    void bodyFlagsLeaveTheNameAlone();
    void pointerTypesAreKnownToTheMetaTypeSystem();

private:
    EventLog log;
    std::unique_ptr<SignalRecorder> recorder;
    std::unique_ptr<TreeGeometryData> surface;
    std::unique_ptr<TreeBodyData> body;
};

void tst_TreeGeometryData::init()
{
    recorder = std::make_unique<SignalRecorder>(log);
    surface = std::make_unique<TreeGeometryData>(TreeGeometryData::SURFACE, 4);
    recorder->watch(surface.get());
    body = std::make_unique<TreeBodyData>(1);
    recorder->watch(body.get());
}

void tst_TreeGeometryData::cleanup()
{
    surface.reset();
    body.reset();
    recorder.reset();
    log.take();
}

void tst_TreeGeometryData::eachTypeHasItsWordAndDefaultName_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("word");
    QTest::addColumn<QString>("name");
    QTest::newRow("vertex") << int(TreeGeometryData::VERTEX) << "vertex"
                            << "Vertex 12";
    QTest::newRow("curve") << int(TreeGeometryData::CURVE) << "curve"
                           << "Curve 12";
    QTest::newRow("surface") << int(TreeGeometryData::SURFACE) << "surface"
                             << "Surface 12";
    QTest::newRow("volume") << int(TreeGeometryData::VOLUME) << "volume"
                            << "Volume 12";
    QTest::newRow("body") << int(TreeGeometryData::BODY) << "body"
                          << "Body 12";
    QTest::newRow("above the last") << 5 << ""
                                    << "Geometry 12";
    QTest::newRow("below the first") << -1 << ""
                                     << "Geometry 12";
}

void tst_TreeGeometryData::eachTypeHasItsWordAndDefaultName()
{
    QFETCH(int, type);
    TreeGeometryData record(Type(type), 12);
    QCOMPARE(int(record.geometry_type()), type);
    QTEST(record.name(), "name");
    QTEST(QString::fromStdString(TreeGeometryData::type_to_string(Type(type))), "word");
}

void tst_TreeGeometryData::wordGivesItsType_data()
{
    QTest::addColumn<int>("type");
    QTest::newRow("vertex") << 0;
    QTest::newRow("curve") << 1;
    QTest::newRow("surface") << 2;
    QTest::newRow("volume") << 3;
    QTest::newRow("body") << 4;
    QTest::newRow("sheet body") << 4;
}

void tst_TreeGeometryData::wordGivesItsType()
{
    QFETCH(int, type);
    Type result = Type(9);
    QVERIFY(TreeGeometryData::string_to_type(QTest::currentDataTag(), result));
    QCOMPARE(int(result), type);
}

void tst_TreeGeometryData::unknownWordLeavesTheTypeAlone_data()
{
    QTest::addColumn<QString>("word");
    for (const char* word : {"", "Surface", "SURFACE", "surface ", " surface", "surfaces",
             "sheet  body", "Sheet Body", "sheet", "group", "block"}) {
        QTest::addRow("'%s'", word) << word;
    }
}

void tst_TreeGeometryData::unknownWordLeavesTheTypeAlone()
{
    QFETCH(QString, word);
    Type result = TreeGeometryData::CURVE;
    QVERIFY(!TreeGeometryData::string_to_type(word.toStdString(), result));
    QCOMPARE(result, TreeGeometryData::CURVE);
}

void tst_TreeGeometryData::newRecordIsPlain()
{
    QVERIFY(!surface->is_virtual());
    QVERIFY(surface->is_visible());
    QCOMPARE(surface->name(), "Surface 4");
}

void tst_TreeGeometryData::labelIsTheTypeAloneWithABlank()
{
    LabelledRecord record(TreeGeometryData::SURFACE, 7);
    record.set_name("Lid");
    record.set_virtual(true);
    QCOMPARE(record.base_name(), "Surface ");
}

void tst_TreeGeometryData::virtualMarkFollowsTheFlag_data()
{
    QTest::addColumn<bool>("is_virtual");
    QTest::addColumn<QString>("given");
    QTest::addColumn<QString>("stored");
    QTest::newRow("virtual, no mark") << true << "Foo"
                                      << "Foo (v)";
    QTest::newRow("virtual, marked") << true << "Foo (v)"
                                     << "Foo (v)";
    QTest::newRow("virtual, other case") << true << "Foo (V)"
                                         << "Foo (V) (v)";
    QTest::newRow("virtual, mark without blank") << true << "Foo(v)"
                                                 << "Foo(v) (v)";
    QTest::newRow("virtual, mark alone") << true << " (v)"
                                         << " (v)";
    QTest::newRow("virtual, empty") << true << ""
                                    << " (v)";
    QTest::newRow("plain, no mark") << false << "Foo"
                                    << "Foo";
    QTest::newRow("plain, marked") << false << "Foo (v)"
                                   << "Foo";
    QTest::newRow("plain, marked twice") << false << "Foo (v) (v)"
                                         << "Foo (v)";
    QTest::newRow("plain, other case") << false << "Foo (V)"
                                       << "Foo (V)";
}

void tst_TreeGeometryData::virtualMarkFollowsTheFlag()
{
    QFETCH(bool, is_virtual);
    QFETCH(QString, given);
    QFETCH(QString, stored);
    surface->set_name("before");
    surface->set_virtual(is_virtual);
    log.take();

    surface->set_name(given);

    QCOMPARE(surface->name(), stored);
    QCOMPARE(log.take(), QStringList("surface 4: name_changed(" + stored + ")"));
}

void tst_TreeGeometryData::becomingVirtualMarksTheOwnName()
{
    surface->set_name("Foo");
    log.take();

    surface->set_virtual(true);

    QCOMPARE(log.take(),
        QStringList({"surface 4: virtual_changed(true)", "surface 4: name_changed(Foo (v))"}));
    QCOMPARE(surface->name(), "Foo (v)");
}

void tst_TreeGeometryData::becomingPlainCutsTheMark()
{
    surface->set_name("Foo");
    surface->set_virtual(true);
    log.take();

    surface->set_virtual(false);

    QCOMPARE(log.take(),
        QStringList({"surface 4: virtual_changed(false)", "surface 4: name_changed(Foo)"}));
    QCOMPARE(surface->name(), "Foo");
}

void tst_TreeGeometryData::flagOfUnnamedRecordChangesTheDefaultName()
{
    surface->set_virtual(true);
    QCOMPARE(log.take(), QStringList({"surface 4: virtual_changed(true)",
                             "surface 4: name_changed(Surface 4 (v))"}));

    surface->set_id(5);
    QVERIFY2(surface->name() == "Surface 5 (v)", "the default name was not stored");
}

void tst_TreeGeometryData::sameFlagIsSilent()
{
    surface->set_virtual(false);
    QCOMPARE(log.take(), QStringList());
}

void tst_TreeGeometryData::flagIsStoredBeforeItsSignalAndNameAfter()
{
    surface->set_name("Foo");
    QString seen;
    connect(surface.get(), &TreeGeometryData::virtual_changed, this,
        [&] { seen = QString::number(surface->is_virtual()) + ' ' + surface->name(); });
    surface->set_virtual(true);
    QCOMPARE(seen, "1 Foo");
}

void tst_TreeGeometryData::nameSetInsideTheFlagSignalStands()
{
    surface->set_name("Foo");
    connect(
        surface.get(), &TreeGeometryData::virtual_changed, this, [&] { surface->set_name("Bar"); });
    surface->set_virtual(true);
    QCOMPARE(surface->name(), "Bar (v)");
}

void tst_TreeGeometryData::newIdOfUnnamedVirtualRecordKeepsTheMark()
{
    TreeGeometryData curve(TreeGeometryData::CURVE, 2);
    curve.set_virtual(true);
    recorder->watch(&curve);

    curve.set_id(3);

    QCOMPARE(
        log.take(), QStringList({"curve 3: id_changed(3)", "curve 3: name_changed(Curve 3 (v))"}));
}

void tst_TreeGeometryData::recordMayBeDeletedInsideItsFlagSignal()
{
    surface->set_name("Foo");
    connect(surface.get(), &TreeGeometryData::virtual_changed, this, [this] { surface.reset(); });
    log.take();
    surface->set_virtual(true);
    QCOMPARE(log.take(), QStringList({"surface 4: virtual_changed(true)",
                             "surface 4: treedata_destroyed(surface 4)"}));
}

void tst_TreeGeometryData::bodyIsABodyWithoutFlags()
{
    QCOMPARE(body->geometry_type(), TreeGeometryData::BODY);
    QVERIFY(!body->is_sheet_body());
    QVERIFY(!body->is_multi_volume());
    QCOMPARE(body->name(), "Body 1");
}

void tst_TreeGeometryData::bodyFlagsEmitOnChangeOnly()
{
    body->set_sheet_body(false);
    body->set_multi_volume(false);
    QCOMPARE(log.take(), QStringList());

    body->set_sheet_body(true);
    body->set_sheet_body(true);
    body->set_multi_volume(true);
    body->set_multi_volume(true);
    QCOMPARE(log.take(),
        QStringList({"body 1: sheet_body_changed(true)", "body 1: multi_volume_changed(true)"}));
    QVERIFY(body->is_sheet_body());
    QVERIFY(body->is_multi_volume());
}

void tst_TreeGeometryData::bodyFlagsLeaveTheNameAlone()
{
    body->set_sheet_body(true);
    body->set_multi_volume(true);
    QCOMPARE(body->name(), "Body 1");
}

void tst_TreeGeometryData::pointerTypesAreKnownToTheMetaTypeSystem()
{
    QVERIFY(QMetaType::fromName("TreeGeometryData*").isValid());
    QVERIFY(QMetaType::fromName("TreeBodyData*").isValid());
}

QTEST_GUILESS_MAIN(tst_TreeGeometryData)
#include "tst_TreeGeometryData.moc"
