#include <QTest>
#include <support/EventLog.hpp>
#include <support/SignalRecorder.hpp>
#include <treemodel/treedata/TreeBoundaryLayerData.hpp>
#include <treemodel/treedata/TreeMeshData.hpp>
#include <treemodel/treedata/TreeSizingSourceData.hpp>

using Type = TreeMeshData::MeshType;

/// The records of the mesher: element counts, sizing sources, boundary layers.
class tst_TreeMeshData : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void eachTypeHasItsNames_data();
    void eachTypeHasItsNames();
    void idIsTheTypeWhateverTheCount();
    void onlyACountOfOneIsSingular_data();
    void onlyACountOfOneIsSingular();
    void countIsAnnouncedAlsoWhenItStays();
    void countIsStoredBeforeItsSignal();
    void countLeavesAnOwnNameAlone();

    void sizingSourceKeepsTheNumberItStartedWith();
    void boundaryLayersWithoutNameLookAlike();
    void ownNamesComeBeforeDefaultNames();
    void pointerTypesAreKnownToTheMetaTypeSystem();
};

void tst_TreeMeshData::eachTypeHasItsNames_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("many");
    QTest::addColumn<QString>("one");
    const auto row = [](int type, const char* many, const char* one) {
        QTest::newRow(one) << type << many << one;
    };
    row(0, "12 hex elements", "1 hex element");
    row(1, "12 tet elements", "1 tet element");
    row(2, "12 wedge elements", "1 wedge element");
    row(3, "12 pyramid elements", "1 pyramid element");
    row(4, "12 sphere elements", "1 sphere element");
    row(5, "12 tri elements", "1 tri element");
    row(6, "12 quad elements", "1 quad element");
    row(7, "12 edge elements", "1 edge element");
    row(8, "12 nodes", "1 node");
    row(9, "12 mesh elements", "1 mesh element");
    QTest::newRow("below the first") << -1 << "12 mesh elements"
                                     << "1 mesh element";
}

void tst_TreeMeshData::eachTypeHasItsNames()
{
    QFETCH(int, type);
    TreeMeshData many(Type(type), 12);
    TreeMeshData one(Type(type), 1);
    QTEST(many.name(), "many");
    QTEST(one.name(), "one");
    QCOMPARE(int(many.mesh_type()), type);
}

void tst_TreeMeshData::idIsTheTypeWhateverTheCount()
{
    TreeMeshData quads(TreeMeshData::QUAD, 400);
    QCOMPARE(quads.id(), 6);
    QCOMPARE(quads.element_count(), 400);
    QCOMPARE(int(TreeMeshData::NODE), 8);
}

void tst_TreeMeshData::onlyACountOfOneIsSingular_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("name");
    QTest::newRow("none") << 0 << "0 tet elements";
    QTest::newRow("one") << 1 << "1 tet element";
    QTest::newRow("negative") << -1 << "-1 tet elements";
    QTest::newRow("largest") << 2147483647 << "2147483647 tet elements";
}

void tst_TreeMeshData::onlyACountOfOneIsSingular()
{
    QFETCH(int, count);
    TreeMeshData tets(TreeMeshData::TET, 5);
    tets.set_element_count(count);
    QTEST(tets.name(), "name");
}

void tst_TreeMeshData::countIsAnnouncedAlsoWhenItStays()
{
    TreeMeshData hexes(TreeMeshData::HEX, 5);
    EventLog log;
    SignalRecorder recorder(log);
    recorder.watch(&hexes);

    hexes.set_element_count(5);
    hexes.set_element_count(6);

    QCOMPARE(log.take(),
        QStringList({"hex: element_count_changed(5)", "hex: element_count_changed(6)"}));
    QVERIFY2(hexes.name() == "6 hex elements", "receivers read the new name by themselves");
}

void tst_TreeMeshData::countIsStoredBeforeItsSignal()
{
    TreeMeshData hexes(TreeMeshData::HEX, 5);
    int seen = 0;
    connect(
        &hexes, &TreeMeshData::element_count_changed, this, [&] { seen = hexes.element_count(); });
    hexes.set_element_count(6);
    QCOMPARE(seen, 6);
}

void tst_TreeMeshData::countLeavesAnOwnNameAlone()
{
    TreeMeshData hexes(TreeMeshData::HEX, 5);
    hexes.set_name("bricks");
    hexes.set_element_count(1);
    QCOMPARE(hexes.name(), "bricks");
}

void tst_TreeMeshData::sizingSourceKeepsTheNumberItStartedWith()
{
    TreeSizingSourceData source(4);
    QCOMPARE(source.name(), "Sizing Source 4");
    EventLog log;
    SignalRecorder recorder(log);
    recorder.watch(&source);

    source.set_id(9);

    QCOMPARE(source.id(), 9);
    QCOMPARE(source.name(), "Sizing Source 4");
    QCOMPARE(log.take(), QStringList({"sizing_source 9: id_changed(9)",
                             "sizing_source 9: name_changed(Sizing Source 4)"}));
}

void tst_TreeMeshData::boundaryLayersWithoutNameLookAlike()
{
    QCOMPARE(TreeBoundaryLayerData(1).name(), "Boundary Layer");
    QCOMPARE(TreeBoundaryLayerData(2).name(), "Boundary Layer");
}

void tst_TreeMeshData::ownNamesComeBeforeDefaultNames()
{
    TreeSizingSourceData source(4);
    source.set_name("fine");
    QCOMPARE(source.name(), "fine");
    TreeBoundaryLayerData layer(1);
    layer.set_name("inner");
    QCOMPARE(layer.name(), "inner");
}

void tst_TreeMeshData::pointerTypesAreKnownToTheMetaTypeSystem()
{
    TreeMeshData mesh(TreeMeshData::HEX, 1);
    TreeSizingSourceData source(1);
    TreeBoundaryLayerData layer(1);
    QVERIFY(QMetaType::fromName("TreeMeshData*").isValid());
    QVERIFY(QMetaType::fromName("TreeSizingSourceData*").isValid());
    QVERIFY(QMetaType::fromName("TreeBoundaryLayerData*").isValid());
}

QTEST_GUILESS_MAIN(tst_TreeMeshData)
#include "tst_TreeMeshData.moc"
