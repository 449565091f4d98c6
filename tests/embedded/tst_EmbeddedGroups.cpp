#include "NotificationLog.hpp"
#include "TestModels.hpp"

#include <embedded/EmbeddedKernel.hpp>
#include <QTest>
#include <stdexcept>

using namespace KestoInterface;

namespace {

// "groups 2 surfaces 1 7 hexes 5": what get_group_children() tells, without what is empty.
QString contents(int group)
{
    std::array<std::vector<int>, 6> ids;
    std::array<int, 9> counts{};
    auto& [groups, bodies, volumes, surfaces, curves, vertices] = ids;
    auto& [nodes, edges, hexes, quads, tets, tris, wedges, pyramids, spheres] = counts;
    get_group_children(group, groups, bodies, volumes, surfaces, curves, vertices, nodes, edges,
        hexes, quads, tets, tris, wedges, pyramids, spheres);

    constexpr std::array id_words{"groups", "bodies", "volumes", "surfaces", "curves", "vertices"};
    constexpr std::array count_words{
        "nodes", "edges", "hexes", "quads", "tets", "tris", "wedges", "pyramids", "spheres"};
    QStringList words;
    for (std::size_t i = 0; i < ids.size(); ++i) {
        if (!ids[i].empty()) {
            words << QLatin1String(id_words[i]);
        }
        for (const int id : ids[i]) {
            words << QString::number(id);
        }
    }
    for (std::size_t i = 0; i < counts.size(); ++i) {
        if (counts[i] != 0) {
            words << QLatin1String(count_words[i]) << QString::number(counts[i]);
        }
    }
    return words.join(u' ');
}

// "1 Bolts, 2 Nuts"
QString groups()
{
    std::vector<std::string> names;
    std::vector<int> ids;
    group_list(names, ids);
    QStringList texts;
    for (std::size_t i = 0; i < names.size(); ++i) {
        texts << QStringLiteral("%1 %2").arg(ids[i]).arg(QString::fromStdString(names[i]));
    }
    return texts.join(QStringLiteral(", "));
}

} // namespace

class tst_EmbeddedGroups : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newGroupIsListedAndReadableInItsNotification();
    void membersOfAllKindsComeByAscendingId();
    void presentMemberIsAddedInVain();
    void removedMemberLeavesTheOthers();
    void sameIdOfTwoKindsIsTwoMembers();
    void elementCountsEachHaveTheirPlace();
    void groupsNest();
    void nestedGroupIsListedBeforeThoseThatHoldIt();
    void circleOfGroupsIsRefused();
    void renamedRenumberedAndHiddenGroupIsTold();
    void renumberedMemberStaysAMember();
    void deletedMembersLeaveTheirGroups();
    void deletedGroupLeavesItsMembersAndItsHolders();
    void membersDeletedAtOnceTellEachGroupOnce();
    void groupDeletedWithItsMembersIsNotToldModified();
    void openedModelBringsItsGroups();
    void importedGroupsHoldTheImportedEntities();
    void nonsenseIsRefused();
};

void tst_EmbeddedGroups::newGroupIsListedAndReadableInItsNotification()
{
    EmbeddedKernel kernel;
    NotificationLog log;
    QString read;
    log.on_event = [&read](const QString&) {
        read = QString::fromStdString(get_entity_name("group", 1, false));
    };

    QCOMPARE(kernel.create_group("Bolts"), 1);
    QCOMPARE(log.take(), QStringLiteral("group_created 1"));
    QCOMPARE(read, QStringLiteral("Bolts"));
    QCOMPARE(kernel.create_group("Nuts"), 2);
    QCOMPARE(groups(), QStringLiteral("1 Bolts, 2 Nuts"));
    QVERIFY(is_visible("group", 1));
    QCOMPARE(contents(1), QString());
}

void tst_EmbeddedGroups::membersOfAllKindsComeByAscendingId()
{
    EmbeddedKernel kernel;
    kernel.open_model(lattice(2, 1, 1), "two.step");
    kernel.create_group();
    kernel.create_group();
    NotificationLog log;

    kernel.add_to_group(1, EntityKind::SURFACE, {7, 3, 5});
    kernel.add_to_group(1, EntityKind::SURFACE, {4});
    kernel.add_to_group(1, EntityKind::BODY, {1});
    kernel.add_to_group(1, EntityKind::VOLUME, {2});
    kernel.add_to_group(1, EntityKind::CURVE, {20});
    kernel.add_to_group(1, EntityKind::VERTEX, {12, 1});
    kernel.add_to_group(1, EntityKind::GROUP, {2});

    QCOMPARE(log.events().count(QStringLiteral("group_modified 1")), 7);
    QCOMPARE(log.events().size(), 7);
    QCOMPARE(contents(1),
        QStringLiteral("groups 2 bodies 1 volumes 2 surfaces 3 4 5 7 curves 20 vertices 1 12"));
}

void tst_EmbeddedGroups::presentMemberIsAddedInVain()
{
    EmbeddedKernel kernel;
    kernel.open_model(lattice(1, 1, 1), "cube.step");
    kernel.create_group();
    kernel.add_to_group(1, EntityKind::CURVE, {1, 2});
    NotificationLog log;
    kernel.add_to_group(1, EntityKind::CURVE, {2, 1});
    QCOMPARE(log.take(), QString());
    kernel.add_to_group(1, EntityKind::CURVE, {2, 3});
    QCOMPARE(log.take(), QStringLiteral("group_modified 1"));
    QCOMPARE(contents(1), QStringLiteral("curves 1 2 3"));
}

void tst_EmbeddedGroups::removedMemberLeavesTheOthers()
{
    EmbeddedKernel kernel;
    kernel.open_model(lattice(1, 1, 1), "cube.step");
    kernel.create_group();
    kernel.add_to_group(1, EntityKind::CURVE, {1, 2, 3});
    NotificationLog log;
    kernel.remove_from_group(1, EntityKind::CURVE, {3, 1, 9});
    QCOMPARE(log.take(), QStringLiteral("group_modified 1"));
    QCOMPARE(contents(1), QStringLiteral("curves 2"));
    kernel.remove_from_group(1, EntityKind::CURVE, {1});
    QCOMPARE(log.take(), QString());
}

void tst_EmbeddedGroups::sameIdOfTwoKindsIsTwoMembers()
{
    EmbeddedKernel kernel;
    kernel.open_model(lattice(2, 1, 1), "two.step");
    kernel.create_group();
    kernel.add_to_group(1, EntityKind::SURFACE, {7});
    kernel.add_to_group(1, EntityKind::CURVE, {7});
    kernel.remove_from_group(1, EntityKind::CURVE, {7});
    QCOMPARE(contents(1), QStringLiteral("surfaces 7"));
}

void tst_EmbeddedGroups::elementCountsEachHaveTheirPlace()
{
    EmbeddedKernel kernel;
    kernel.create_group();
    NotificationLog log;
    ElementCounts counts{.nodes = 1,
        .edges = 2,
        .hexes = 3,
        .quads = 4,
        .tets = 5,
        .tris = 6,
        .wedges = 7,
        .pyramids = 8,
        .spheres = 9};

    kernel.set_element_counts(1, counts);
    QCOMPARE(log.take(), QStringLiteral("group_modified 1"));
    QCOMPARE(contents(1),
        QStringLiteral("nodes 1 edges 2 hexes 3 quads 4 tets 5 tris 6 wedges 7 pyramids 8 "
                       "spheres 9"));

    kernel.set_element_counts(1, counts);
    QCOMPARE(log.take(), QString());

    counts.tris = -1;
    QVERIFY_THROWS_EXCEPTION(std::invalid_argument, kernel.set_element_counts(1, counts));
    QVERIFY(contents(1).contains(QStringLiteral("tris 6")));
}

void tst_EmbeddedGroups::groupsNest()
{
    EmbeddedKernel kernel;
    kernel.create_group("Car");
    kernel.create_group("Wheel");
    kernel.create_group("Axle");
    kernel.add_to_group(1, EntityKind::GROUP, {2, 3});
    kernel.add_to_group(2, EntityKind::GROUP, {3});
    QCOMPARE(contents(1), QStringLiteral("groups 2 3"));
    QCOMPARE(contents(2), QStringLiteral("groups 3"));
}

void tst_EmbeddedGroups::nestedGroupIsListedBeforeThoseThatHoldIt()
{
    EmbeddedKernel kernel;
    for (const char* name : {"Car", "Wheel", "Bolt", "Road"}) {
        kernel.create_group(name);
    }
    kernel.add_to_group(1, EntityKind::GROUP, {2});
    kernel.add_to_group(2, EntityKind::GROUP, {3});
    QCOMPARE(groups(), QStringLiteral("3 Bolt, 2 Wheel, 1 Car, 4 Road"));
}

void tst_EmbeddedGroups::circleOfGroupsIsRefused()
{
    EmbeddedKernel kernel;
    for (int i = 0; i < 3; ++i) {
        kernel.create_group();
    }
    kernel.add_to_group(1, EntityKind::GROUP, {2});
    kernel.add_to_group(2, EntityKind::GROUP, {3});
    NotificationLog log;

    QVERIFY_THROWS_EXCEPTION(std::invalid_argument, kernel.add_to_group(3, EntityKind::GROUP, {1}));
    QVERIFY_THROWS_EXCEPTION(std::invalid_argument, kernel.add_to_group(1, EntityKind::GROUP, {1}));
    QCOMPARE(log.take(), QString());
    QCOMPARE(contents(3), QString());
}

void tst_EmbeddedGroups::renamedRenumberedAndHiddenGroupIsTold()
{
    EmbeddedKernel kernel;
    kernel.create_group("Bolts");
    NotificationLog log;
    kernel.rename(EntityKind::GROUP, 1, "Nuts");
    kernel.renumber(EntityKind::GROUP, 1, 8);
    kernel.set_visible(EntityKind::GROUP, 8, false);
    QCOMPARE(log.take(), QStringLiteral("entity_name_changed group 1, entity_id_changed group 1 8, "
                                        "entity_visibility_changed group 8"));
    QCOMPARE(groups(), QStringLiteral("8 Nuts"));
    QVERIFY(!is_visible("group", 8));
}

void tst_EmbeddedGroups::renumberedMemberStaysAMember()
{
    EmbeddedKernel kernel;
    kernel.open_model(lattice(1, 1, 1), "cube.step");
    kernel.create_group();
    kernel.create_group();
    kernel.add_to_group(1, EntityKind::CURVE, {1, 2, 3});
    kernel.add_to_group(1, EntityKind::GROUP, {2});
    kernel.renumber(EntityKind::CURVE, 1, 50);
    kernel.renumber(EntityKind::GROUP, 2, 9);
    QCOMPARE(contents(1), QStringLiteral("groups 9 curves 2 3 50"));
}

void tst_EmbeddedGroups::deletedMembersLeaveTheirGroups()
{
    EmbeddedKernel kernel;
    kernel.open_model(lattice(1, 1, 1), "cube.step");
    for (int i = 0; i < 3; ++i) {
        kernel.create_group();
    }
    kernel.add_to_group(1, EntityKind::BODY, {1});
    kernel.add_to_group(2, EntityKind::GROUP, {1});
    kernel.add_to_group(3, EntityKind::VERTEX, {1, 2});
    NotificationLog log;

    kernel.remove(EntityKind::BODY, 1);

    QCOMPARE(log.events().mid(log.events().size() - 3),
        (QStringList{QStringLiteral("vertex_removed 8"), QStringLiteral("group_modified 1"),
            QStringLiteral("group_modified 3")}));
    QCOMPARE(contents(1), QString());
    QCOMPARE(contents(2), QStringLiteral("groups 1"));
    QCOMPARE(contents(3), QString());
}

void tst_EmbeddedGroups::deletedGroupLeavesItsMembersAndItsHolders()
{
    EmbeddedKernel kernel;
    kernel.create_vertex();
    kernel.create_group();
    kernel.create_group();
    kernel.add_to_group(1, EntityKind::GROUP, {2});
    kernel.add_to_group(2, EntityKind::VERTEX, {1});
    NotificationLog log;
    kernel.remove(EntityKind::GROUP, 2);
    QCOMPARE(log.take(), QStringLiteral("group_deleted 2, group_modified 1"));
    QCOMPARE(contents(1), QString());
    QCOMPARE(get_entities("vertex"), std::vector<int>{1});
}

void tst_EmbeddedGroups::membersDeletedAtOnceTellEachGroupOnce()
{
    EmbeddedKernel kernel;
    kernel.create_vertex();
    kernel.create_vertex();
    kernel.create_curve({2});
    kernel.create_vertex();
    for (int i = 0; i < 4; ++i) {
        kernel.create_group();
    }
    using enum EntityKind;
    kernel.add_to_group(1, VERTEX, {1, 2, 3});
    kernel.add_to_group(1, CURVE, {1});
    kernel.add_to_group(2, GROUP, {1, 4});
    kernel.add_to_group(3, CURVE, {1});
    NotificationLog log;

    kernel.remove({{CURVE, 1}, {GROUP, 4}, {VERTEX, 1}});

    QCOMPARE(log.take(),
        QStringLiteral("curve_deleted 1, vertex_removed 2, group_deleted 4, vertex_deleted 1, "
                       "group_modified 1, group_modified 2, group_modified 3"));
    QCOMPARE(contents(1), QStringLiteral("vertices 3"));
    QCOMPARE(contents(2), QStringLiteral("groups 1"));
    QCOMPARE(contents(3), QString());
}

void tst_EmbeddedGroups::groupDeletedWithItsMembersIsNotToldModified()
{
    EmbeddedKernel kernel;
    kernel.create_vertex();
    kernel.create_group();
    kernel.create_group();
    using enum EntityKind;
    kernel.add_to_group(1, VERTEX, {1});
    kernel.add_to_group(2, GROUP, {1});
    NotificationLog log;
    kernel.remove({{VERTEX, 1}, {GROUP, 1}, {GROUP, 2}});
    QCOMPARE(log.take(), QStringLiteral("vertex_deleted 1, group_deleted 1, group_deleted 2"));
}

void tst_EmbeddedGroups::openedModelBringsItsGroups()
{
    EmbeddedKernel kernel;
    kernel.create_group("Old");
    kernel.open_model(loose_ends(), "ends.step");
    QCOMPARE(groups(), QStringLiteral("2 Tips, 1 All"));
    QCOMPARE(contents(1), QStringLiteral("groups 2 bodies 1"));
    QCOMPARE(contents(2), QStringLiteral("vertices 3"));
}

void tst_EmbeddedGroups::importedGroupsHoldTheImportedEntities()
{
    EmbeddedKernel kernel;
    kernel.open_model(loose_ends(), "ends.step");
    kernel.import_model(loose_ends());
    QCOMPARE(contents(3), QStringLiteral("groups 4 bodies 2"));
    QCOMPARE(contents(4), QStringLiteral("vertices 6"));
}

void tst_EmbeddedGroups::nonsenseIsRefused()
{
    EmbeddedKernel kernel;
    kernel.create_vertex();
    kernel.create_group();
    NotificationLog log;
    using enum EntityKind;
    QVERIFY_THROWS_EXCEPTION(std::invalid_argument, kernel.add_to_group(2, VERTEX, {1}));
    QVERIFY_THROWS_EXCEPTION(std::invalid_argument, kernel.add_to_group(1, VERTEX, {1, 2}));
    QVERIFY_THROWS_EXCEPTION(std::invalid_argument, kernel.add_to_group(1, VERTEX, {1, 1}));
    QVERIFY_THROWS_EXCEPTION(std::invalid_argument, kernel.remove_from_group(1, VERTEX, {2}));
    QVERIFY_THROWS_EXCEPTION(std::invalid_argument, kernel.set_element_counts(2, {}));
    QVERIFY_THROWS_EXCEPTION(std::invalid_argument, kernel.remove(GROUP, 2));
    QCOMPARE(log.take(), QString());
    QCOMPARE(contents(1), QString());
}

QTEST_GUILESS_MAIN(tst_EmbeddedGroups)
#include "tst_EmbeddedGroups.moc"
