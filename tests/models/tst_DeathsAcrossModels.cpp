#include <algorithm>
#include <array>
#include <memory>
#include <QTest>
#include <support/EventLog.hpp>
#include <support/SignalRecorder.hpp>
#include <treemodel/models/TreeGeomModel.hpp>
#include <treemodel/models/TreeGroupModel.hpp>
#include <treemodel/models/TreeMeshModel.hpp>

namespace {

constexpr auto SURFACE = TreeGeometryData::SURFACE;
constexpr auto HEX = TreeMeshData::HEX;
constexpr auto NODE = TreeMeshData::NODE;

} // namespace

/// The death of a record in one model and what it does in the others.
class tst_DeathsAcrossModels : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void removedGeometryLeavesItsGroupsWhenItIsDeleted();
    void clearedGeometryLeavesItsGroups();
    void removedMeshDataLeavesItsGroupsSilently();
    void clearedMeshDataLeavesItsGroupsSilently();

    void removedGroupTakesTheMeshRecordsThatAreItsMembers();
    void meshRecordOfADyingGroupLeavesItsOtherGroups();
    void clearedGroupsTakeTheirMeshRecords();
    void ownerThatIsItsOwnMemberGoesCleanly();
    void nestedOwnersGoOneByOne();
    void geometryMayBeMemberAndOwner();
    void meshRecordsOfMeshRecordsGoInDepth();
    void displacedGroupTakesItsMeshRecordsWithItsModel();
    void modelAnswersWhileItsDisplacedGroupsDie();

    void memberMayDieInTheSignalOfItsMembership();
    void groupMayDieInTheSignalOfItsMembership();
    void groupMayDieInTheAnnouncementOfItsMeshRecord();
    void outerGroupMayDieWhileAnInnerOneDies();
    void otherOwnerMayDieWhileMeshRecordsGo();
    void recordMayDieInItsOwnSignal_data();
    void recordMayDieInItsOwnSignal();
    void otherModelsMayBeClearedAtAnyMoment_data();
    void otherModelsMayBeClearedAtAnyMoment();
    void modelsMayGoInAnyOrder_data();
    void modelsMayGoInAnyOrder();

private:
    TreeGeometryData* add_surface(int id) { return geometry->add_geometry(SURFACE, id, nullptr); }
    TreeMeshData* add_mesh_member(TreeMeshData::MeshType type, TreeGroupData* group);

    EventLog log;
    // Of what a test connects; goes first, so that nothing runs past the test.
    std::unique_ptr<QObject> receiver;
    std::unique_ptr<TreeGeomModel> geometry;
    std::unique_ptr<TreeGroupModel> groups;
    std::unique_ptr<TreeMeshModel> mesh;
    std::unique_ptr<SignalRecorder> recorder;
};

void tst_DeathsAcrossModels::init()
{
    receiver = std::make_unique<QObject>();
    geometry = std::make_unique<TreeGeomModel>();
    groups = std::make_unique<TreeGroupModel>();
    mesh = std::make_unique<TreeMeshModel>();
    recorder = std::make_unique<SignalRecorder>(log);
    for (QObject* model :
        std::initializer_list<QObject*>{geometry.get(), groups.get(), mesh.get()}) {
        recorder->watch(model);
    }
}

void tst_DeathsAcrossModels::cleanup()
{
    receiver.reset();
    recorder.reset();
    geometry.reset();
    groups.reset();
    mesh.reset();
    log.take();
}

/// A mesh record that a group owns and holds, as the kernel's groups have them.
TreeMeshData* tst_DeathsAcrossModels::add_mesh_member(
    TreeMeshData::MeshType type, TreeGroupData* group)
{
    TreeMeshData* record = mesh->add_mesh_data(type, 12, group);
    groups->add_group_child(group, record);
    return record;
}

void tst_DeathsAcrossModels::removedGeometryLeavesItsGroupsWhenItIsDeleted()
{
    TreeGroupData* lid = groups->add_group("lid", 1);
    TreeGroupData* rim = groups->add_group("rim", 2);
    TreeGeometryData* surface = add_surface(5);
    TreeGeometryData* other = add_surface(6);
    groups->add_group_child(lid, surface);
    groups->add_group_child(lid, other);
    groups->add_group_child(rim, surface);
    std::size_t groups_in_signal = 0;
    connect(geometry.get(), &TreeGeomModel::geometry_removed, receiver.get(),
        [&](TreeGeometryData* record) {
            groups_in_signal = groups->find_groups_for_child(record).size();
        });
    log.take();

    geometry->remove_geometry(SURFACE, 5);

    QCOMPARE(log.take(),
        QStringList({"geometry_removed(surface 5)", "surface 5: treedata_destroyed(surface 5)"}));
    QVERIFY2(groups_in_signal == 2, "the memberships go with the record, not before");
    QCOMPARE(groups->find_group_children(lid), std::vector<TreeData*>{other});
    QVERIFY(groups->find_group_children(rim).empty());
}

void tst_DeathsAcrossModels::clearedGeometryLeavesItsGroups()
{
    TreeGroupData* lid = groups->add_group("lid", 1);
    for (int id = 0; id < 5; ++id) {
        groups->add_group_child(lid, add_surface(id));
    }
    groups->add_group_child(lid, lid);
    log.take();
    geometry->clear();
    QVERIFY(log.take_only({"group"}).isEmpty());
    QCOMPARE(groups->find_group_children(lid), std::vector<TreeData*>{lid});
}

void tst_DeathsAcrossModels::removedMeshDataLeavesItsGroupsSilently()
{
    TreeGroupData* lid = groups->add_group("lid", 1);
    add_mesh_member(HEX, lid);
    TreeMeshData* nodes = add_mesh_member(NODE, lid);
    log.take();
    mesh->remove_mesh_data(HEX, lid);
    QCOMPARE(log.take(), QStringList({"mesh_data_removed(hex of group 1, group 1)",
                             "hex of group 1: treedata_destroyed(hex of group 1)"}));
    QCOMPARE(groups->find_group_children(lid), std::vector<TreeData*>{nodes});
}

void tst_DeathsAcrossModels::clearedMeshDataLeavesItsGroupsSilently()
{
    TreeGroupData* lid = groups->add_group("lid", 1);
    add_mesh_member(HEX, lid);
    add_mesh_member(NODE, lid);
    log.take();
    mesh->clear();
    QVERIFY(log.take_only({"group", "mesh_data_removed"}).isEmpty());
    QVERIFY(groups->find_group_children(lid).empty());
}

void tst_DeathsAcrossModels::removedGroupTakesTheMeshRecordsThatAreItsMembers()
{
    TreeGroupData* lid = groups->add_group("lid", 1);
    groups->add_group_child(lid, add_surface(5));
    add_mesh_member(NODE, lid);
    add_mesh_member(HEX, lid);
    std::size_t memberships = 0;
    connect(mesh.get(), &TreeMeshModel::mesh_data_removed, receiver.get(),
        [&](TreeMeshData* md) { memberships += groups->find_groups_for_child(md).size(); });
    log.take();

    groups->remove_group(1);

    QCOMPARE(
        log.take(), QStringList({"group_removed(group 1)", "group 1: treedata_destroyed(group 1)",
                        "mesh_data_removed(hex of group 1, group 1)",
                        "hex of group 1: treedata_destroyed(hex of group 1)",
                        "mesh_data_removed(node of group 1, group 1)",
                        "node of group 1: treedata_destroyed(node of group 1)"}));
    QVERIFY2(memberships == 0, "the group's links go before its mesh records");
    QVERIFY(mesh->mesh_data().empty());
    QCOMPARE(geometry->geometry_data(SURFACE).size(), 1U);
}

void tst_DeathsAcrossModels::meshRecordOfADyingGroupLeavesItsOtherGroups()
{
    TreeGroupData* lid = groups->add_group("lid", 1);
    TreeGroupData* rim = groups->add_group("rim", 2);
    groups->add_group_child(rim, add_mesh_member(HEX, lid));
    log.take();
    groups->remove_group(1);
    QVERIFY(log.take_only({"group_child"}).isEmpty());
    QVERIFY(groups->find_group_children(rim).empty());
}

void tst_DeathsAcrossModels::clearedGroupsTakeTheirMeshRecords()
{
    add_mesh_member(HEX, groups->add_group("rim", 2));
    add_mesh_member(NODE, groups->add_group("lid", 1));
    log.take();
    groups->clear();
    QCOMPARE(log.take(),
        QStringList({"about_to_clear()", "group 1: treedata_destroyed(group 1)",
            "mesh_data_removed(node of group 1, group 1)",
            "node of group 1: treedata_destroyed(node of group 1)",
            "group 2: treedata_destroyed(group 2)", "mesh_data_removed(hex of group 2, group 2)",
            "hex of group 2: treedata_destroyed(hex of group 2)"}));
    QVERIFY(mesh->mesh_data().empty());
}

void tst_DeathsAcrossModels::ownerThatIsItsOwnMemberGoesCleanly()
{
    TreeGroupData* lid = groups->add_group("lid", 1);
    groups->add_group_child(lid, lid);
    add_mesh_member(HEX, lid);
    log.take();
    groups->remove_group(1);
    QCOMPARE(
        log.take(), QStringList({"group_removed(group 1)", "group 1: treedata_destroyed(group 1)",
                        "mesh_data_removed(hex of group 1, group 1)",
                        "hex of group 1: treedata_destroyed(hex of group 1)"}));
    QVERIFY(groups->groups().empty());
}

void tst_DeathsAcrossModels::nestedOwnersGoOneByOne()
{
    TreeGroupData* outer = groups->add_group("outer", 1);
    TreeGroupData* inner = groups->add_group("inner", 2);
    groups->add_group_child(outer, inner);
    TreeMeshData* outer_hexes = add_mesh_member(HEX, outer);
    TreeMeshData* inner_hexes = add_mesh_member(HEX, inner);

    groups->remove_group(2);
    QCOMPARE(mesh->mesh_data(), std::vector<TreeMeshData*>{outer_hexes});
    QCOMPARE(groups->find_group_children(outer), std::vector<TreeData*>{outer_hexes});
    QVERIFY(groups->find_groups_for_child(inner_hexes).empty());

    groups->remove_group(1);
    QVERIFY(mesh->mesh_data().empty());
}

void tst_DeathsAcrossModels::geometryMayBeMemberAndOwner()
{
    TreeGroupData* lid = groups->add_group("lid", 1);
    TreeGeometryData* surface = add_surface(5);
    groups->add_group_child(lid, surface);
    groups->add_group_child(lid, mesh->add_mesh_data(HEX, 1, surface));
    log.take();
    geometry->remove_geometry(SURFACE, 5);
    QCOMPARE(log.take(),
        QStringList({"geometry_removed(surface 5)", "surface 5: treedata_destroyed(surface 5)",
            "mesh_data_removed(hex of surface 5, surface 5)",
            "hex of surface 5: treedata_destroyed(hex of surface 5)"}));
    QVERIFY(groups->find_group_children(lid).empty());
    QVERIFY(mesh->mesh_data().empty());
}

void tst_DeathsAcrossModels::meshRecordsOfMeshRecordsGoInDepth()
{
    TreeData* owner = add_surface(5);
    for (int depth = 0; depth < 9; ++depth) {
        owner = mesh->add_mesh_data(TreeMeshData::MeshType(depth), 1, owner);
    }
    QCOMPARE(mesh->mesh_data().size(), 9U);
    geometry->clear();
    QVERIFY(mesh->mesh_data().empty());
}

void tst_DeathsAcrossModels::displacedGroupTakesItsMeshRecordsWithItsModel()
{
    groups->add_group("lid", 1);
    TreeGroupData* rim = groups->add_group("rim", 2);
    add_mesh_member(HEX, rim);
    groups->change_group_id(1, 2);
    QCOMPARE(mesh->mesh_data(rim).size(), 1U);
    groups.reset();
    QVERIFY(mesh->mesh_data().empty());
}

void tst_DeathsAcrossModels::modelAnswersWhileItsDisplacedGroupsDie()
{
    recorder.reset();
    groups->add_group("lid", 1);
    TreeGroupData* rim = groups->add_group("rim", 2);
    TreeMeshData* hexes = add_mesh_member(HEX, rim);
    groups->change_group_id(1, 2);
    std::vector<std::size_t> seen;
    connect(
        mesh.get(), &TreeMeshModel::mesh_data_removed, receiver.get(), [&, queried = groups.get()] {
            seen.push_back(queried->groups().size());
            seen.push_back(queried->find_groups_for_child(hexes).size());
            seen.push_back(queried->find_group_children(rim).size());
        });
    groups.reset();
    QCOMPARE(seen, (std::vector<std::size_t>{0, 0, 0}));
}

void tst_DeathsAcrossModels::memberMayDieInTheSignalOfItsMembership()
{
    TreeGroupData* lid = groups->add_group("lid", 1);
    connect(groups.get(), &TreeGroupModel::group_child_added, receiver.get(),
        [&] { geometry->remove_geometry(SURFACE, 5); });
    groups->add_group_child(lid, add_surface(5));
    QVERIFY(groups->find_group_children(lid).empty());
}

void tst_DeathsAcrossModels::groupMayDieInTheSignalOfItsMembership()
{
    TreeGroupData* lid = groups->add_group("lid", 1);
    TreeGeometryData* surface = add_surface(5);
    connect(groups.get(), &TreeGroupModel::group_child_added, receiver.get(),
        [&] { groups->remove_group(1); });
    groups->add_group_child(lid, surface);
    QVERIFY(groups->find_groups_for_child(surface).empty());
}

void tst_DeathsAcrossModels::groupMayDieInTheAnnouncementOfItsMeshRecord()
{
    recorder.reset();
    TreeGroupData* lid = groups->add_group("lid", 1);
    connect(mesh.get(), &TreeMeshModel::mesh_data_added, receiver.get(),
        [&] { groups->remove_group(1); });
    QCOMPARE(mesh->add_mesh_data(HEX, 1, lid), nullptr);
    QVERIFY(mesh->mesh_data().empty());
}

void tst_DeathsAcrossModels::outerGroupMayDieWhileAnInnerOneDies()
{
    TreeGroupData* outer = groups->add_group("outer", 1);
    TreeGroupData* inner = groups->add_group("inner", 2);
    groups->add_group_child(outer, inner);
    groups->add_group_child(inner, outer);
    add_mesh_member(HEX, outer);
    add_mesh_member(HEX, inner);
    connect(mesh.get(), &TreeMeshModel::mesh_data_removed, receiver.get(),
        [&] { groups->remove_group(1); });
    groups->remove_group(2);
    QVERIFY(groups->groups().empty());
    QVERIFY(mesh->mesh_data().empty());
}

void tst_DeathsAcrossModels::otherOwnerMayDieWhileMeshRecordsGo()
{
    TreeGroupData* lid = groups->add_group("lid", 1);
    TreeGroupData* rim = groups->add_group("rim", 2);
    for (auto type : {HEX, NODE}) {
        add_mesh_member(type, lid);
        groups->add_group_child(lid, add_mesh_member(type, rim));
    }
    connect(mesh.get(), &TreeMeshModel::mesh_data_removed, receiver.get(),
        [&] { groups->remove_group(2); });
    groups->remove_group(1);
    QVERIFY(groups->groups().empty());
    QVERIFY(mesh->mesh_data().empty());
}

void tst_DeathsAcrossModels::recordMayDieInItsOwnSignal_data()
{
    QTest::addColumn<QString>("signal");
    for (const char* signal : {"id", "name", "visible", "virtual"}) {
        QTest::newRow(signal) << signal;
    }
}

void tst_DeathsAcrossModels::recordMayDieInItsOwnSignal()
{
    QFETCH(QString, signal);
    TreeGroupData* lid = groups->add_group("lid", 1);
    TreeGeometryData* surface = add_surface(5);
    groups->add_group_child(lid, surface);
    mesh->add_mesh_data(HEX, 1, surface);
    const auto kill = [&] { geometry->clear(); };
    connect(surface, &TreeData::id_changed, receiver.get(), kill);
    connect(surface, &TreeData::name_changed, receiver.get(), kill);
    connect(surface, &TreeData::visible_changed, receiver.get(), kill);
    connect(surface, &TreeGeometryData::virtual_changed, receiver.get(), kill);

    if (signal == "id") {
        geometry->change_geometry_id(SURFACE, 5, 6);
    } else if (signal == "name") {
        surface->set_name("lid");
    } else if (signal == "visible") {
        surface->set_visible(false);
    } else {
        surface->set_virtual(true);
    }

    QVERIFY(groups->find_group_children(lid).empty());
    QVERIFY(mesh->mesh_data().empty());
}

void tst_DeathsAcrossModels::otherModelsMayBeClearedAtAnyMoment_data()
{
    QTest::addColumn<int>("cleared");
    QTest::addColumn<QString>("moment");
    const std::array names{"geometry", "groups", "mesh"};
    for (int cleared = 0; cleared < 3; ++cleared) {
        for (const char* moment : {"geometry_added", "geometry_removed", "group_added",
                 "group_removed", "child_added", "child_removed", "mesh_added", "mesh_removed"}) {
            QTest::addRow("%s at %s", names[cleared], moment) << cleared << moment;
        }
    }
}

void tst_DeathsAcrossModels::otherModelsMayBeClearedAtAnyMoment()
{
    QFETCH(int, cleared);
    QFETCH(QString, moment);
    recorder.reset();
    groups->add_group("lid", 1);
    groups->add_group("rim", 2);
    for (int id = 1; id <= 2; ++id) {
        TreeGroupData* group = groups->find_group(id);
        add_mesh_member(HEX, group);
        add_mesh_member(NODE, group);
        groups->add_group_child(group, add_surface(id));
        groups->add_group_child(group, groups->find_group(3 - id));
        mesh->add_mesh_data(HEX, 1, geometry->find_geometry(SURFACE, id));
    }
    int moments = 0;
    const auto act_at = [&](const char* name, auto* sender, auto signal) {
        if (moment != QLatin1String(name)) {
            return;
        }
        connect(sender, signal, receiver.get(), [&, cleared] {
            ++moments;
            switch (cleared) {
            case 0:
                return geometry->clear();
            case 1:
                return groups->clear();
            default:
                return mesh->clear();
            }
        });
    };
    act_at("geometry_added", geometry.get(), &TreeGeomModel::geometry_added);
    act_at("geometry_removed", geometry.get(), &TreeGeomModel::geometry_removed);
    act_at("group_added", groups.get(), &TreeGroupModel::group_added);
    act_at("group_removed", groups.get(), &TreeGroupModel::group_removed);
    act_at("child_added", groups.get(), &TreeGroupModel::group_child_added);
    act_at("child_removed", groups.get(), &TreeGroupModel::group_child_removed);
    act_at("mesh_added", mesh.get(), &TreeMeshModel::mesh_data_added);
    act_at("mesh_removed", mesh.get(), &TreeMeshModel::mesh_data_removed);

    add_surface(3);
    groups->add_group("new", 3);
    groups->add_group_child(groups->find_group(1), geometry->find_geometry(SURFACE, 3));
    groups->remove_group_child(groups->find_group(1), geometry->find_geometry(SURFACE, 1));
    mesh->add_mesh_data(HEX, 1, groups->find_group(3));
    mesh->remove_mesh_data(NODE, groups->find_group(2));
    geometry->remove_geometry(SURFACE, 2);
    groups->remove_group(1);

    QVERIFY2(moments > 0, "the moment did not come");
    // What still stands is reachable and alive.
    for (TreeGroupData* group : groups->groups()) {
        for (TreeData* child : groups->find_group_children(group)) {
            QVERIFY(!child->name().isEmpty());
        }
    }
    for (TreeMeshData* record : mesh->mesh_data()) {
        QVERIFY(!record->name().isEmpty());
    }
}

void tst_DeathsAcrossModels::modelsMayGoInAnyOrder_data()
{
    QTest::addColumn<QString>("order");
    QString order = "cgm";
    do {
        QTest::newRow(qPrintable(order)) << order;
    } while (std::next_permutation(order.begin(), order.end()));
}

void tst_DeathsAcrossModels::modelsMayGoInAnyOrder()
{
    QFETCH(QString, order);
    for (int id = 0; id < 3; ++id) {
        TreeGroupData* group = groups->add_group("", id);
        TreeGeometryData* surface = add_surface(id);
        groups->add_group_child(group, surface);
        groups->add_group_child(group, groups->find_group(0));
        groups->add_group_child(group, mesh->add_mesh_data(HEX, 1, surface));
        add_mesh_member(NODE, group);
    }
    groups->change_group_id(0, 1);
    for (QChar model : order) {
        if (model == 'c') {
            geometry.reset();
        } else if (model == 'g') {
            groups.reset();
        } else {
            mesh.reset();
        }
    }
    QCOMPARE(
        log.take_only({"group_child_removed", "group_removed", "geometry_removed"}), QStringList());
}

QTEST_GUILESS_MAIN(tst_DeathsAcrossModels)
#include "tst_DeathsAcrossModels.moc"
