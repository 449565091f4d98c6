#include <algorithm>
#include <memory>
#include <QTest>
#include <random>
#include <support/FullModel.hpp>
#include <support/MirrorText.hpp>

using Contents = RecordingKernel::GroupContents;

namespace {

const QStringList reading_of_group_3{"get_entity_name(group, 3, false)", "is_visible(group, 3)",
    "group 3: visible_changed(true)", "get_group_children(3)"};

} // namespace

class tst_group_notifications : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void createdGroupIsAddedThenRead();
    void createdGroupIsNamedFromTheStart();
    void secondCreationReadsTheGroupAgain();
    void secondCreationTakesTheNewName();
    void modificationOfAnUnknownGroupAsksNothing();
    void modificationReadsNameVisibilityAndMembers();
    void ownDefaultTextAsNameIsNotStored();
    void emptyNameEndsAnOwnName();

    void membersComeInTheirOrder();
    void membersOfOneKindComeInTheKernelsOrder();
    void membersOfOneKindGoByAscendingIdAfterTheNewOnes();
    void veryManyMembersGoByAscendingId();
    void eachKindIsFinishedBeforeTheNext();
    void sameIdOfTwoKindsIsTwoMembers();
    void missingMemberIsPassedOver();
    void missingMemberComesWithALaterModification();
    void reorderedListChangesNothing();
    void repeatedIdIsOneMember();
    void nestedGroupsLinkBothWays();
    void groupMayHoldItself();
    void emptyAnswerEndsAllMemberships();
    void vanishedMemberIsForgottenInSilence();

    void eachCountLandsOnItsKind_data();
    void eachCountLandsOnItsKind();
    void meshRecordsComeByAscendingKind();
    void changedCountIsTold();
    void sameCountTellsNothing();
    void countOfZeroEndsTheRecord();
    void negativeCountIsACount();
    void meshRecordsGoByAscendingKind();

    void deletedGroupLeavesItsMembers();
    void deletedGroupTakesItsMeshRecordsAlong();
    void deletionAsksNothing();
    void deletionOfAnUnknownGroupIsSilent();

private:
    // Creates group 3 with these contents, and forgets what was logged on the way.
    void create_group(const Contents& contents);
    QStringList modify(const Contents& contents);
    QStringList members();

    std::unique_ptr<FullMirror> mirror;
};

void tst_group_notifications::init()
{
    mirror = std::make_unique<FullMirror>();
    for (int id = 1; id <= 9; ++id) {
        mirror->observer().notify_body_created(id);
        mirror->observer().notify_volume_created(id);
        mirror->observer().notify_surface_created(id);
        mirror->observer().notify_curve_created(id);
        mirror->observer().notify_vertex_created(id);
    }
    mirror->log.take();
}

void tst_group_notifications::cleanup()
{
    mirror.reset();
}

void tst_group_notifications::create_group(const Contents& contents)
{
    mirror->kernel.group_contents[3] = contents;
    mirror->observer().notify_group_created(3);
    mirror->log.take();
}

// What the modification does beyond reading what every modification reads.
QStringList tst_group_notifications::modify(const Contents& contents)
{
    mirror->kernel.group_contents[3] = contents;
    mirror->observer().notify_group_modified(3);
    QStringList events = mirror->log.take();
    if (events.mid(0, 4) != reading_of_group_3) {
        return events;
    }
    return events.mid(4);
}

QStringList tst_group_notifications::members()
{
    return mirror_text(mirror->model).filter(" > ").filter("group 3 ");
}

void tst_group_notifications::createdGroupIsAddedThenRead()
{
    mirror->observer().notify_group_created(3);
    QCOMPARE(mirror->log.take(),
        QStringList({"get_entity_name(group, 3, false)", "group_added(group 3)"}) +
            reading_of_group_3);
}

void tst_group_notifications::createdGroupIsNamedFromTheStart()
{
    mirror->kernel.names[{"group", 3}] = "B\xC3\xB6rse";
    QString name_when_added;
    connect(&mirror->model, &TreeModel::group_added, this,
        [&](TreeGroupData* group) { name_when_added = group->name(); });
    mirror->observer().notify_group_created(3);
    QCOMPARE(name_when_added, QString::fromUtf8("B\xC3\xB6rse"));
    QCOMPARE(mirror->log.take_only({"group 3: name_changed"}), QStringList());
}

void tst_group_notifications::secondCreationReadsTheGroupAgain()
{
    mirror->kernel.names[{"group", 3}] = "Bolts";
    mirror->observer().notify_group_created(3);
    mirror->log.take();
    mirror->observer().notify_group_created(3);
    QCOMPARE(
        mirror->log.take(), QStringList("get_entity_name(group, 3, false)") + reading_of_group_3);
}

void tst_group_notifications::secondCreationTakesTheNewName()
{
    mirror->kernel.names[{"group", 3}] = "Bolts";
    mirror->observer().notify_group_created(3);
    mirror->log.take();
    mirror->kernel.names[{"group", 3}] = "Nuts";

    mirror->observer().notify_group_created(3);

    QCOMPARE(mirror->log.take(),
        QStringList({"get_entity_name(group, 3, false)", "group 3: name_changed(Nuts)"}) +
            reading_of_group_3);
}

void tst_group_notifications::modificationOfAnUnknownGroupAsksNothing()
{
    mirror->observer().notify_group_modified(3);
    QCOMPARE(mirror->log.take(), QStringList());
    QCOMPARE(mirror->model.find_group(3), nullptr);
}

void tst_group_notifications::modificationReadsNameVisibilityAndMembers()
{
    create_group({});
    mirror->kernel.names[{"group", 3}] = "Bolts";
    mirror->kernel.hidden = {{"group", 3}};
    mirror->kernel.group_contents[3] = {{{{}, {}, {}, {5}, {}, {}}}, {}};

    mirror->observer().notify_group_modified(3);

    QCOMPARE(mirror->log.take(),
        QStringList({"get_entity_name(group, 3, false)", "group 3: name_changed(Bolts)",
            "is_visible(group, 3)", "group 3: visible_changed(false)", "get_group_children(3)",
            "group_child_added(group 3, surface 5)"}));
}

void tst_group_notifications::ownDefaultTextAsNameIsNotStored()
{
    create_group({});
    mirror->kernel.names[{"group", 3}] = "Entity 3";
    mirror->observer().notify_group_modified(3);
    QCOMPARE(mirror->log.take(), reading_of_group_3);

    mirror->observer().notify_entity_id_changed("group", 3, 4);
    QVERIFY2(mirror->model.find_group(4)->name() == "Entity 4", "it has no name of its own");
}

void tst_group_notifications::emptyNameEndsAnOwnName()
{
    mirror->kernel.names[{"group", 3}] = "Bolts";
    create_group({});
    mirror->kernel.names.clear();
    mirror->observer().notify_group_modified(3);
    QCOMPARE(mirror->log.take().value(1), "group 3: name_changed()");
    QCOMPARE(mirror->model.find_group(3)->name(), "Entity 3");
}

void tst_group_notifications::membersComeInTheirOrder()
{
    mirror->observer().notify_group_created(4);
    create_group({});
    QCOMPARE(modify({{{{4}, {1}, {2}, {3}, {4}, {5}}}, {9, 0, 1, 0, 0, 0, 0, 0, 0}}),
        QStringList({"group_child_added(group 3, group 4)", "group_child_added(group 3, vertex 5)",
            "group_child_added(group 3, curve 4)", "group_child_added(group 3, surface 3)",
            "group_child_added(group 3, volume 2)", "group_child_added(group 3, body 1)",
            "mesh_data_added(hex of group 3, group 3)",
            "group_child_added(group 3, hex of group 3)",
            "mesh_data_added(node of group 3, group 3)",
            "group_child_added(group 3, node of group 3)"}));
}

void tst_group_notifications::membersOfOneKindComeInTheKernelsOrder()
{
    create_group({});
    QCOMPARE(modify({{{{}, {}, {}, {8, 2, 5}, {}, {}}}, {}}),
        QStringList({"group_child_added(group 3, surface 8)",
            "group_child_added(group 3, surface 2)", "group_child_added(group 3, surface 5)"}));
}

void tst_group_notifications::membersOfOneKindGoByAscendingIdAfterTheNewOnes()
{
    create_group({{{{}, {}, {}, {9, 1, 5}, {}, {}}}, {}});
    QCOMPARE(modify({{{{}, {}, {}, {7, 5}, {}, {}}}, {}}),
        QStringList({"group_child_added(group 3, surface 7)",
            "group_child_removed(group 3, surface 1)", "group_child_removed(group 3, surface 9)"}));
}

void tst_group_notifications::veryManyMembersGoByAscendingId()
{
    std::vector<int> ids;
    QStringList expected;
    for (int id = -100000; id < 200000; id += 100) {
        ids.push_back(id);
        expected.append(QString("group_child_removed(group 3, curve %1)").arg(id));
    }
    // So that the order of addresses is not that of ids.
    std::shuffle(ids.begin(), ids.end(), std::mt19937(1));
    for (const int id : ids) {
        mirror->observer().notify_curve_created(id);
    }
    create_group({{{{}, {}, {}, {}, ids, {}}}, {}});
    QCOMPARE(modify({}), expected);
}

void tst_group_notifications::eachKindIsFinishedBeforeTheNext()
{
    mirror->observer().notify_group_created(4);
    mirror->observer().notify_group_created(5);
    create_group({{{{4}, {1}, {1}, {1}, {1}, {1}}}, {0, 0, 1, 0, 0, 0, 0, 0, 0}});
    QCOMPARE(modify({{{{5}, {2}, {2}, {2}, {2}, {2}}}, {0, 0, 0, 0, 1, 0, 0, 0, 0}}),
        QStringList({"group_child_added(group 3, group 5)", "group_child_removed(group 3, group 4)",
            "group_child_added(group 3, vertex 2)", "group_child_removed(group 3, vertex 1)",
            "group_child_added(group 3, curve 2)", "group_child_removed(group 3, curve 1)",
            "group_child_added(group 3, surface 2)", "group_child_removed(group 3, surface 1)",
            "group_child_added(group 3, volume 2)", "group_child_removed(group 3, volume 1)",
            "group_child_added(group 3, body 2)", "group_child_removed(group 3, body 1)",
            "mesh_data_added(tet of group 3, group 3)",
            "group_child_added(group 3, tet of group 3)",
            "mesh_data_removed(hex of group 3, group 3)",
            "hex of group 3: treedata_destroyed(hex of group 3)"}));
}

void tst_group_notifications::sameIdOfTwoKindsIsTwoMembers()
{
    create_group({{{{}, {}, {}, {7}, {7}, {}}}, {}});
    QCOMPARE(members(), QStringList("group 3 'Entity 3' > curve 7, surface 7"));

    QCOMPARE(modify({{{{}, {}, {}, {7}, {}, {}}}, {}}),
        QStringList("group_child_removed(group 3, curve 7)"));
    QCOMPARE(members(), QStringList("group 3 'Entity 3' > surface 7"));
}

void tst_group_notifications::missingMemberIsPassedOver()
{
    create_group({});
    QCOMPARE(modify({{{{77}, {}, {}, {77, 2}, {}, {77}}}, {}}),
        QStringList("group_child_added(group 3, surface 2)"));
    QCOMPARE(mirror->model.find_geometry(TreeGeometryData::SURFACE, 77), nullptr);
}

void tst_group_notifications::missingMemberComesWithALaterModification()
{
    create_group({{{{}, {}, {}, {77}, {}, {}}}, {}});
    mirror->observer().notify_surface_created(77);
    QVERIFY2(members().isEmpty(), "nobody remembers what was missing");
    mirror->log.take();
    QCOMPARE(modify({{{{}, {}, {}, {77}, {}, {}}}, {}}).filter("group_child"),
        QStringList("group_child_added(group 3, surface 77)"));
}

void tst_group_notifications::reorderedListChangesNothing()
{
    create_group({{{{}, {}, {}, {1, 2, 3}, {}, {}}}, {}});
    QCOMPARE(modify({{{{}, {}, {}, {3, 1, 2}, {}, {}}}, {}}), QStringList());
}

void tst_group_notifications::repeatedIdIsOneMember()
{
    create_group({{{{}, {}, {}, {1}, {}, {}}}, {}});
    QCOMPARE(modify({{{{}, {}, {}, {1, 2, 1, 2}, {}, {}}}, {}}),
        QStringList("group_child_added(group 3, surface 2)"));
}

void tst_group_notifications::nestedGroupsLinkBothWays()
{
    mirror->observer().notify_group_created(4);
    create_group({{{{4}, {}, {}, {}, {}, {}}}, {}});
    TreeGroupData* outer = mirror->model.find_group(3);
    TreeGroupData* inner = mirror->model.find_group(4);
    QCOMPARE(mirror->model.find_group_children(outer) == std::vector<TreeData*>{inner}, true);
    QCOMPARE(mirror->model.find_groups_for_child(inner), std::vector<TreeGroupData*>{outer});
}

void tst_group_notifications::groupMayHoldItself()
{
    create_group({});
    QCOMPARE(modify({{{{3}, {}, {}, {}, {}, {}}}, {}}),
        QStringList("group_child_added(group 3, group 3)"));
    mirror->observer().notify_group_deleted(3);
    QCOMPARE(mirror->log.take(),
        QStringList({"group_removed(group 3)", "group 3: treedata_destroyed(group 3)"}));
}

void tst_group_notifications::emptyAnswerEndsAllMemberships()
{
    create_group({{{{}, {1}, {}, {2, 3}, {}, {}}}, {0, 0, 0, 0, 0, 0, 0, 0, 4}});
    QCOMPARE(modify({}),
        QStringList({"group_child_removed(group 3, surface 2)",
            "group_child_removed(group 3, surface 3)", "group_child_removed(group 3, body 1)",
            "mesh_data_removed(sphere of group 3, group 3)",
            "sphere of group 3: treedata_destroyed(sphere of group 3)"}));
    QVERIFY(mirror->model.find_group_children(mirror->model.find_group(3)).empty());
}

void tst_group_notifications::vanishedMemberIsForgottenInSilence()
{
    create_group({{{{}, {}, {}, {2, 3}, {}, {}}}, {}});
    mirror->observer().notify_surface_deleted(2);
    QCOMPARE(mirror->log.take(),
        QStringList({"geometry_removed(surface 2)", "surface 2: treedata_destroyed(surface 2)"}));
    QCOMPARE(members(), QStringList("group 3 'Entity 3' > surface 3"));
}

void tst_group_notifications::eachCountLandsOnItsKind_data()
{
    QTest::addColumn<int>("place");
    QTest::addColumn<int>("type");
    QTest::newRow("nodes") << 0 << int(TreeMeshData::NODE);
    QTest::newRow("edges") << 1 << int(TreeMeshData::EDGE);
    QTest::newRow("hexes") << 2 << int(TreeMeshData::HEX);
    QTest::newRow("quads") << 3 << int(TreeMeshData::QUAD);
    QTest::newRow("tets") << 4 << int(TreeMeshData::TET);
    QTest::newRow("tris") << 5 << int(TreeMeshData::TRI);
    QTest::newRow("wedges") << 6 << int(TreeMeshData::WEDGE);
    QTest::newRow("pyramids") << 7 << int(TreeMeshData::PYRAMID);
    QTest::newRow("spheres") << 8 << int(TreeMeshData::SPHERE);
}

void tst_group_notifications::eachCountLandsOnItsKind()
{
    QFETCH(int, place);
    QFETCH(int, type);
    create_group({{}, {10, 11, 12, 13, 14, 15, 16, 17, 18}});
    TreeGroupData* group = mirror->model.find_group(3);
    TreeMeshData* record = mirror->model.find_mesh_data(TreeMeshData::MeshType(type), group);
    QVERIFY(record);
    QCOMPARE(record->element_count(), 10 + place);
    QCOMPARE(mirror->model.find_mesh_data(group).size(), 9U);
}

void tst_group_notifications::meshRecordsComeByAscendingKind()
{
    create_group({});
    const QStringList events = modify({{}, {1, 1, 1, 1, 1, 1, 1, 1, 1}});
    QStringList expected;
    for (const char* kind :
        {"hex", "tet", "wedge", "pyramid", "sphere", "tri", "quad", "edge", "node"}) {
        expected << QString("mesh_data_added(%1 of group 3, group 3)").arg(kind)
                 << QString("group_child_added(group 3, %1 of group 3)").arg(kind);
    }
    QCOMPARE(events, expected);
}

void tst_group_notifications::changedCountIsTold()
{
    create_group({{}, {0, 0, 5, 0, 0, 0, 0, 0, 0}});
    TreeMeshData* record = mirror->model.mesh_data().at(0);
    QCOMPARE(modify({{}, {0, 0, 2, 0, 0, 0, 0, 0, 0}}),
        QStringList("hex of group 3: element_count_changed(2)"));
    QCOMPARE(mirror->model.mesh_data(), std::vector<TreeMeshData*>{record});
}

void tst_group_notifications::sameCountTellsNothing()
{
    create_group({{}, {0, 0, 5, 0, 0, 0, 0, 0, 0}});
    QCOMPARE(modify({{}, {0, 0, 5, 0, 0, 0, 0, 0, 0}}), QStringList());
}

void tst_group_notifications::countOfZeroEndsTheRecord()
{
    create_group({{}, {0, 0, 5, 0, 0, 0, 0, 0, 0}});
    QCOMPARE(modify({}), QStringList({"mesh_data_removed(hex of group 3, group 3)",
                             "hex of group 3: treedata_destroyed(hex of group 3)"}));
    QVERIFY2(mirror->model.find_group_children(mirror->model.find_group(3)).empty(),
        "the membership goes with the record");
}

void tst_group_notifications::negativeCountIsACount()
{
    create_group({{}, {0, 0, -1, 0, 0, 0, 0, 0, 0}});
    QCOMPARE(mirror->model.mesh_data().at(0)->element_count(), -1);
}

void tst_group_notifications::meshRecordsGoByAscendingKind()
{
    create_group({{}, {1, 0, 1, 0, 1, 0, 0, 0, 0}});
    QCOMPARE(modify({}).filter("mesh_data_removed"),
        QStringList({"mesh_data_removed(hex of group 3, group 3)",
            "mesh_data_removed(tet of group 3, group 3)",
            "mesh_data_removed(node of group 3, group 3)"}));
}

void tst_group_notifications::deletedGroupLeavesItsMembers()
{
    create_group({{{{}, {}, {}, {5}, {}, {}}}, {}});
    mirror->observer().notify_group_deleted(3);
    QCOMPARE(mirror->log.take(),
        QStringList({"group_removed(group 3)", "group 3: treedata_destroyed(group 3)"}));
    TreeGeometryData* surface = mirror->model.find_geometry(TreeGeometryData::SURFACE, 5);
    QVERIFY(surface);
    QVERIFY(mirror->model.find_groups_for_child(surface).empty());
}

void tst_group_notifications::deletedGroupTakesItsMeshRecordsAlong()
{
    create_group({{}, {1, 0, 5, 0, 0, 0, 0, 0, 0}});
    mirror->observer().notify_group_deleted(3);
    QCOMPARE(mirror->log.take(),
        QStringList({"group_removed(group 3)", "group 3: treedata_destroyed(group 3)",
            "mesh_data_removed(hex of group 3, group 3)",
            "hex of group 3: treedata_destroyed(hex of group 3)",
            "mesh_data_removed(node of group 3, group 3)",
            "node of group 3: treedata_destroyed(node of group 3)"}));
    QVERIFY(mirror->model.mesh_data().empty());
}

void tst_group_notifications::deletionAsksNothing()
{
    create_group({});
    const int calls = mirror->kernel.call_count();
    mirror->observer().notify_group_deleted(3);
    QCOMPARE(mirror->kernel.call_count(), calls);
}

void tst_group_notifications::deletionOfAnUnknownGroupIsSilent()
{
    mirror->observer().notify_group_deleted(77);
    QCOMPARE(mirror->log.take(), QStringList());
}

QTEST_GUILESS_MAIN(tst_group_notifications)
#include "tst_group_notifications.moc"
