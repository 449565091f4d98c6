#include <memory>
#include <QTest>
#include <stdexcept>
#include <treemodel/models/TreeGeomModel.hpp>
#include <treemodel/models/TreeGroupModel.hpp>
#include <treemodel/models/TreeMeshModel.hpp>
#include <treemodel/models/TreeSimModel.hpp>

namespace {

constexpr auto BODY = TreeGeometryData::BODY;
constexpr auto VOLUME = TreeGeometryData::VOLUME;
constexpr auto SURFACE = TreeGeometryData::SURFACE;
constexpr auto HEX = TreeMeshData::HEX;
constexpr auto NODE = TreeMeshData::NODE;
constexpr auto BLOCK = TreeExodusData::BLOCK;
constexpr auto SIDESET = TreeExodusData::SIDESET;
constexpr auto FORCE = TreeFeaBCData::FORCE;
constexpr auto PRESSURE = TreeFeaBCData::PRESSURE;
constexpr auto WALL = TreeCfdBCData::WALL;

} // namespace

/// Receivers that link a record while it goes: no link outlives it. A dead record that
/// is still linked shows in the look-ups of those that it was linked to.
class tst_LinksOfDyingRecords : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void removedGeometryKeepsNoLink();
    void removedGeometryKeepsNoLinkIfAReceiverThrows();
    void clearedGeometryKeepsNoLink();
    void dyingGeometryIsNotLinked();
    void dyingGeometryGetsNoNewChild();

    void removedGroupKeepsNoMember();
    void removedGroupKeepsNoMemberIfAReceiverThrows();
    void clearedGroupKeepsNoMember();
    void dyingGroupGetsNoMember();
    void dyingMemberJoinsNoGroup();

    void removedExodusEntityKeepsNoCondition();
    void removedFeaConditionKeepsNoEntity();
    void removedConditionKeepsNoEntityIfAReceiverThrows();
    void clearedExodusEntityKeepsNoCondition();
    void clearedConditionsKeepNoEntity();
    void dyingSimulationRecordsAreNotLinked();

    void dyingOwnerGetsNoMeshRecord();
    void clearingOfMeshRecordsEnds();

private:
    // Calls `action` when the record dies, after the models have heard of it.
    template <typename Action>
    void at_death_of(TreeData* record, Action action)
    {
        connect(record, &TreeData::treedata_destroyed, receiver.get(), action);
    }

    // Of what a test connects; goes first, so that nothing runs past the test.
    std::unique_ptr<QObject> receiver;
    std::unique_ptr<TreeGeomModel> geometry;
    std::unique_ptr<TreeGroupModel> groups;
    std::unique_ptr<TreeMeshModel> mesh;
    std::unique_ptr<TreeSimModel> simulation;
};

void tst_LinksOfDyingRecords::init()
{
    receiver = std::make_unique<QObject>();
    geometry = std::make_unique<TreeGeomModel>();
    groups = std::make_unique<TreeGroupModel>();
    mesh = std::make_unique<TreeMeshModel>();
    simulation = std::make_unique<TreeSimModel>();
}

void tst_LinksOfDyingRecords::cleanup()
{
    receiver.reset();
    groups.reset();
    mesh.reset();
    geometry.reset();
    simulation.reset();
}

void tst_LinksOfDyingRecords::removedGeometryKeepsNoLink()
{
    TreeGeometryData* body = geometry->add_geometry(BODY, 1, nullptr);
    TreeGeometryData* surface = geometry->add_geometry(SURFACE, 3, nullptr);
    geometry->add_geometry(VOLUME, 2, nullptr);
    connect(geometry.get(), &TreeGeomModel::geometry_removed, receiver.get(),
        [&](TreeGeometryData* volume) {
            geometry->associate_geometry(body, volume);
            geometry->associate_geometry(volume, surface);
        });
    int unlinked = 0;
    connect(
        geometry.get(), &TreeGeomModel::association_removed, receiver.get(), [&] { ++unlinked; });

    geometry->remove_geometry(VOLUME, 2);

    QVERIFY(geometry->find_geometry_children(body).empty());
    QVERIFY(geometry->find_geometry_parents(surface).empty());
    QVERIFY2(unlinked == 0, "links go with their record in silence");
}

void tst_LinksOfDyingRecords::removedGeometryKeepsNoLinkIfAReceiverThrows()
{
    TreeGeometryData* surface = geometry->add_geometry(SURFACE, 3, nullptr);
    geometry->add_geometry(VOLUME, 2, nullptr);
    connect(geometry.get(), &TreeGeomModel::geometry_removed, receiver.get(),
        [&](TreeGeometryData* volume) {
            geometry->associate_geometry(volume, surface);
            throw std::runtime_error("receiver");
        });
    QVERIFY_THROWS_EXCEPTION(std::runtime_error, geometry->remove_geometry(VOLUME, 2));
    QVERIFY(geometry->find_geometry_parents(surface).empty());
}

void tst_LinksOfDyingRecords::clearedGeometryKeepsNoLink()
{
    TreeGeometryData* body = geometry->add_geometry(BODY, 1, nullptr);
    TreeGeometryData* volume = geometry->add_geometry(VOLUME, 2, body);
    at_death_of(body, [&] {
        geometry->add_geometry(BODY, 7, nullptr);
        geometry->associate_geometry(geometry->find_geometry(BODY, 7), volume);
    });
    geometry->clear();
    QVERIFY2(geometry->find_geometry(BODY, 7), "it came after the bodies had gone");
    QVERIFY(geometry->find_geometry_children(geometry->find_geometry(BODY, 7)).empty());
}

void tst_LinksOfDyingRecords::dyingGeometryIsNotLinked()
{
    TreeGeometryData* body = geometry->add_geometry(BODY, 1, nullptr);
    TreeGeometryData* surface = geometry->add_geometry(SURFACE, 3, nullptr);
    TreeGeometryData* volume = geometry->add_geometry(VOLUME, 2, nullptr);
    int links = 0;
    connect(geometry.get(), &TreeGeomModel::association_added, receiver.get(), [&] { ++links; });
    at_death_of(volume, [&] {
        geometry->associate_geometry(body, volume);
        geometry->associate_geometry(volume, surface);
    });
    geometry->remove_geometry(VOLUME, 2);
    QVERIFY(geometry->find_geometry_children(body).empty());
    QVERIFY(geometry->find_geometry_parents(surface).empty());
    QCOMPARE(links, 0);
}

void tst_LinksOfDyingRecords::dyingGeometryGetsNoNewChild()
{
    TreeGeometryData* volume = geometry->add_geometry(VOLUME, 2, nullptr);
    TreeGeometryData* told_parent = volume;
    connect(geometry.get(), &TreeGeomModel::geometry_added, receiver.get(),
        [&](TreeGeometryData*, TreeGeometryData* parent) { told_parent = parent; });
    at_death_of(volume, [&] { geometry->add_geometry(SURFACE, 3, volume); });
    geometry->remove_geometry(VOLUME, 2);
    QVERIFY(geometry->find_geometry_parents(geometry->find_geometry(SURFACE, 3)).empty());
    QCOMPARE(told_parent, nullptr);
}

void tst_LinksOfDyingRecords::removedGroupKeepsNoMember()
{
    TreeGeometryData* surface = geometry->add_geometry(SURFACE, 3, nullptr);
    groups->add_group("lid", 1);
    connect(groups.get(), &TreeGroupModel::group_removed, receiver.get(), [&](TreeGroupData* lid) {
        groups->add_group_child(lid, surface);
        groups->add_group_child(lid, lid);
    });
    int unlinked = 0;
    connect(
        groups.get(), &TreeGroupModel::group_child_removed, receiver.get(), [&] { ++unlinked; });

    groups->remove_group(1);

    QVERIFY(groups->find_groups_for_child(surface).empty());
    QVERIFY2(unlinked == 0, "members go with their group in silence");
}

void tst_LinksOfDyingRecords::removedGroupKeepsNoMemberIfAReceiverThrows()
{
    TreeGeometryData* surface = geometry->add_geometry(SURFACE, 3, nullptr);
    groups->add_group("lid", 1);
    connect(groups.get(), &TreeGroupModel::group_removed, receiver.get(), [&](TreeGroupData* lid) {
        groups->add_group_child(lid, surface);
        throw std::runtime_error("receiver");
    });
    QVERIFY_THROWS_EXCEPTION(std::runtime_error, groups->remove_group(1));
    QVERIFY(groups->find_groups_for_child(surface).empty());
}

void tst_LinksOfDyingRecords::clearedGroupKeepsNoMember()
{
    TreeGeometryData* surface = geometry->add_geometry(SURFACE, 3, nullptr);
    TreeGroupData* lid = groups->add_group("lid", 1);
    TreeGroupData* rim = groups->add_group("rim", 2);
    at_death_of(lid, [&] { groups->add_group_child(rim, surface); });
    groups->clear();
    QVERIFY(groups->find_groups_for_child(surface).empty());
}

void tst_LinksOfDyingRecords::dyingGroupGetsNoMember()
{
    TreeGeometryData* surface = geometry->add_geometry(SURFACE, 3, nullptr);
    TreeGroupData* lid = groups->add_group("lid", 1);
    at_death_of(lid, [&] { groups->add_group_child(lid, surface); });
    groups->remove_group(1);
    QVERIFY(groups->find_groups_for_child(surface).empty());
}

void tst_LinksOfDyingRecords::dyingMemberJoinsNoGroup()
{
    TreeGeometryData* surface = geometry->add_geometry(SURFACE, 3, nullptr);
    TreeGroupData* lid = groups->add_group("lid", 1);
    int joined = 0;
    connect(groups.get(), &TreeGroupModel::group_child_added, receiver.get(), [&] { ++joined; });
    at_death_of(surface, [&] { groups->add_group_child(lid, surface); });
    geometry->remove_geometry(SURFACE, 3);
    QVERIFY(groups->find_group_children(lid).empty());
    QCOMPARE(joined, 0);
}

void tst_LinksOfDyingRecords::removedExodusEntityKeepsNoCondition()
{
    TreeFeaBCData* force = simulation->add_fea_bc(FORCE, 1);
    simulation->add_exodus(SIDESET, 2);
    connect(simulation.get(), &TreeSimModel::exodus_entity_removed, receiver.get(),
        [&](TreeExodusData* sideset) { simulation->fea_add_exodus(force, sideset); });
    simulation->remove_exodus(SIDESET, 2);
    QVERIFY(simulation->find_exodus_from_fea(force).empty());
}

void tst_LinksOfDyingRecords::removedFeaConditionKeepsNoEntity()
{
    TreeExodusData* sideset = simulation->add_exodus(SIDESET, 2);
    simulation->add_fea_bc(FORCE, 1);
    connect(simulation.get(), &TreeSimModel::fea_bc_removed, receiver.get(),
        [&](TreeFeaBCData* force) { simulation->fea_add_exodus(force, sideset); });
    simulation->remove_fea_bc(FORCE, 1);
    QVERIFY(simulation->find_fea_from_exodus(sideset).empty());
}

void tst_LinksOfDyingRecords::removedConditionKeepsNoEntityIfAReceiverThrows()
{
    TreeExodusData* sideset = simulation->add_exodus(SIDESET, 2);
    simulation->add_fea_bc(FORCE, 1);
    simulation->add_cfd_bc(WALL, 1);
    connect(
        simulation.get(), &TreeSimModel::fea_bc_removed, receiver.get(), [&](TreeFeaBCData* force) {
            simulation->fea_add_exodus(force, sideset);
            throw std::runtime_error("receiver");
        });
    connect(
        simulation.get(), &TreeSimModel::cfd_bc_removed, receiver.get(), [&](TreeCfdBCData* wall) {
            simulation->cfd_add_exodus(wall, sideset);
            throw std::runtime_error("receiver");
        });
    QVERIFY_THROWS_EXCEPTION(std::runtime_error, simulation->remove_fea_bc(FORCE, 1));
    QVERIFY_THROWS_EXCEPTION(std::runtime_error, simulation->remove_cfd_bc(1));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(simulation->find_fea_from_exodus(sideset).empty());
    QVERIFY(simulation->find_cfd_from_exodus(sideset).empty());
}

void tst_LinksOfDyingRecords::clearedExodusEntityKeepsNoCondition()
{
    TreeFeaBCData* force = simulation->add_fea_bc(FORCE, 1);
    TreeExodusData* block = simulation->add_exodus(BLOCK, 1);
    TreeExodusData* sideset = simulation->add_exodus(SIDESET, 2);
    at_death_of(block, [&] { simulation->fea_add_exodus(force, sideset); });
    simulation->clear_exodus();
    QVERIFY(simulation->find_exodus_from_fea(force).empty());
}

void tst_LinksOfDyingRecords::clearedConditionsKeepNoEntity()
{
    TreeExodusData* sideset = simulation->add_exodus(SIDESET, 2);
    TreeFeaBCData* force = simulation->add_fea_bc(FORCE, 1);
    TreeFeaBCData* pressure = simulation->add_fea_bc(PRESSURE, 1);
    TreeCfdBCData* wall = simulation->add_cfd_bc(WALL, 1);
    TreeCfdBCData* other_wall = simulation->add_cfd_bc(WALL, 2);
    at_death_of(force, [&] { simulation->fea_add_exodus(pressure, sideset); });
    at_death_of(wall, [&] { simulation->cfd_add_exodus(other_wall, sideset); });
    simulation->clear_fea();
    simulation->clear_cfd();
    QVERIFY(simulation->find_fea_from_exodus(sideset).empty());
    QVERIFY(simulation->find_cfd_from_exodus(sideset).empty());
}

void tst_LinksOfDyingRecords::dyingSimulationRecordsAreNotLinked()
{
    TreeExodusData* sideset = simulation->add_exodus(SIDESET, 2);
    TreeExodusData* block = simulation->add_exodus(BLOCK, 2);
    TreeFeaBCData* force = simulation->add_fea_bc(FORCE, 1);
    TreeFeaBCData* pressure = simulation->add_fea_bc(PRESSURE, 1);
    TreeCfdBCData* wall = simulation->add_cfd_bc(WALL, 1);
    at_death_of(block, [&] { simulation->fea_add_exodus(pressure, block); });
    at_death_of(force, [&] { simulation->fea_add_exodus(force, sideset); });
    at_death_of(wall, [&] { simulation->cfd_add_exodus(wall, sideset); });
    simulation->remove_exodus(BLOCK, 2);
    simulation->remove_fea_bc(FORCE, 1);
    simulation->remove_cfd_bc(1);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(simulation->find_exodus_from_fea(pressure).empty());
    QVERIFY(simulation->find_fea_from_exodus(sideset).empty());
    QVERIFY(simulation->find_cfd_from_exodus(sideset).empty());
}

void tst_LinksOfDyingRecords::dyingOwnerGetsNoMeshRecord()
{
    TreeGroupData* lid = groups->add_group("lid", 1);
    mesh->add_mesh_data(HEX, 1, lid);
    TreeMeshData* given = nullptr;
    at_death_of(lid, [&] { given = mesh->add_mesh_data(NODE, 1, lid); });
    groups->remove_group(1);
    QCOMPARE(given, nullptr);
    QVERIFY(mesh->mesh_data().empty());
}

// A receiver that puts back each record that goes must not keep the model busy for ever.
void tst_LinksOfDyingRecords::clearingOfMeshRecordsEnds()
{
    TreeGroupData* lid = groups->add_group("lid", 1);
    int put_back = 0;
    connect(mesh.get(), &TreeMeshModel::mesh_data_added, receiver.get(), [&](TreeMeshData* record) {
        at_death_of(record, [&] {
            if (++put_back < 100) {
                mesh->add_mesh_data(HEX, 1, lid);
            }
        });
    });
    mesh->add_mesh_data(HEX, 1, lid);
    mesh->clear_mesh_data();
    QCOMPARE(put_back, 1);
    QCOMPARE(mesh->mesh_data(lid).size(), 1U);
    groups->remove_group(1);
    QVERIFY2(mesh->mesh_data().empty(), "the owner of the record put back is watched");
}

QTEST_GUILESS_MAIN(tst_LinksOfDyingRecords)
#include "tst_LinksOfDyingRecords.moc"
