#include "NotificationLog.hpp"
#include "TestModels.hpp"

#include <embedded/EmbeddedKernel.hpp>
#include <limits>
#include <QTest>
#include <stdexcept>

using namespace KestoInterface;

namespace {

using Ids = std::vector<int>;

// What a cube of its own has, as the log tells its removal beneath the body.
QString rest_of_cube_removed()
{
    QStringList events{QStringLiteral("volume_deleted 1")};
    const auto remove = [&events](const char* word, int count) {
        for (int id = 1; id <= count; ++id) {
            events << QStringLiteral("%1_removed %2").arg(QLatin1String(word)).arg(id);
        }
    };
    remove("surface", 6);
    remove("curve", 12);
    remove("vertex", 8);
    return events.join(QStringLiteral(", "));
}

} // namespace

class tst_EmbeddedGeometry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newEntityGetsTheNextIdAndItsChildren();
    void idAfterAGapFollowsTheHighest();
    void newEntityIsReadableInItsNotification();
    void newSheetBodyHasOneSheetVolume();
    void childOfNothingIsFree();
    void curveTakenByASurfaceIsNoLongerFree();

    void relatedChildComesLastAndTheParentIsToldModified();
    void relatedSurfaceTellsTheVolumeThenItsBodies();
    void unrelatedChildStaysFree();
    void unrelatedChildWithAnotherParentIsNotFree();
    void sharedEntityHasAllItsParents();

    void sheetFlagIsToldByTheVolumeThenItsBody();
    void virtualFlagReachesWhatHoldsTheEntity();
    void secondVirtualChildChangesOnlyItself();
    void virtualChildThatGoesClearsWhatHeldIt();
    void virtualFlagsOfAModelReachTheBodies();

    void newNameIsTold();
    void newIdIsToldAndKeepsLinksAndFlags();
    void hiddenEntityIsTold();
    void sameValueTellsNothing();

    void deletedBodyTakesAlongWhatIsItsOwn();
    void deletedBodyLeavesWhatIsShared();
    void deletedChildLeavesItsParents();
    void deletedFreeEntityIsNoLongerListed();

    void manyDeletedAreToldInTurnAndThenTheirParentsOnce();
    void whatWentWithAnEarlierOneIsPassedOver();
    void partDeletedBeforeItsWholeIsToldBeforeIt();
    void sharedPartGoesWithTheLastOfItsWholes();
    void manyDeletedAreGoneInTheFirstNotification();
    void unknownOneAmongManyIsRefusedAndNoneIsDeleted();

    void nonsenseIsRefusedAndChangesNothing_data();
    void nonsenseIsRefusedAndChangesNothing();
};

void tst_EmbeddedGeometry::newEntityGetsTheNextIdAndItsChildren()
{
    EmbeddedKernel kernel;
    NotificationLog log;

    QCOMPARE(kernel.create_vertex("Start"), 1);
    QCOMPARE(kernel.create_vertex(), 2);
    QCOMPARE(kernel.create_curve({2, 1}, "Rim"), 1);
    QCOMPARE(kernel.create_surface({1}), 1);
    QCOMPARE(kernel.create_volume({1}), 1);
    QCOMPARE(kernel.create_body({1}, "Bolt"), 1);

    QCOMPARE(log.take(),
        QStringLiteral("vertex_created 1, vertex_created 2, curve_created 1, surface_created 1, "
                       "volume_created 1, body_created 1"));
    QCOMPARE(get_relatives("curve", 1, "vertex"), (Ids{2, 1}));
    QCOMPARE(get_relatives("body", 1, "vertex"), (Ids{1, 2}));
    QCOMPARE(get_entity_name("body", 1, true), std::string("Bolt"));
    QCOMPARE(get_entity_name("curve", 1, true), std::string("Rim"));
    QVERIFY(is_visible("volume", 1));
    QVERIFY(!is_virtual("volume", 1));
    QVERIFY(!is_sheet_body(1));
}

void tst_EmbeddedGeometry::idAfterAGapFollowsTheHighest()
{
    EmbeddedKernel kernel;
    kernel.create_vertex();
    kernel.create_vertex();
    kernel.create_vertex();
    kernel.renumber(EntityKind::VERTEX, 2, 1000);
    QCOMPARE(kernel.create_vertex(), 1001);
    kernel.remove(EntityKind::VERTEX, 1001);
    kernel.remove(EntityKind::VERTEX, 1000);
    QCOMPARE(kernel.create_vertex(), 4);
    QCOMPARE(get_entities("vertex"), (Ids{1, 3, 4}));
}

void tst_EmbeddedGeometry::newEntityIsReadableInItsNotification()
{
    EmbeddedKernel kernel;
    kernel.create_vertex();
    NotificationLog log;
    QString read;
    log.on_event = [&read](const QString&) {
        read = QString::fromStdString(get_entity_name("curve", 1, true)) +
               QString::number(get_relatives("curve", 1, "vertex").size());
    };
    kernel.create_curve({1}, "Rim");
    QCOMPARE(read, QStringLiteral("Rim1"));
}

void tst_EmbeddedGeometry::newSheetBodyHasOneSheetVolume()
{
    EmbeddedKernel kernel;
    kernel.create_surface();
    NotificationLog log;

    QCOMPARE(kernel.create_sheet_body({1}, "Skin"), 1);

    QCOMPARE(log.take(), QStringLiteral("body_created 1, volume_created 1"));
    QCOMPARE(get_relatives("body", 1, "volume"), Ids{1});
    QCOMPARE(get_relatives("volume", 1, "surface"), Ids{1});
    QCOMPARE(get_entity_name("body", 1, true), std::string("Skin"));
    QVERIFY(is_sheet_body(1));
}

void tst_EmbeddedGeometry::childOfNothingIsFree()
{
    EmbeddedKernel kernel;
    kernel.create_vertex();
    kernel.create_curve();
    kernel.create_surface();
    kernel.create_volume();
    for (const char* type : {"vertex", "curve", "surface"}) {
        QCOMPARE(get_list_of_free_ref_entities(type), Ids{1});
    }
    QCOMPARE(get_list_of_free_ref_entities("volume"), Ids{});
}

void tst_EmbeddedGeometry::curveTakenByASurfaceIsNoLongerFree()
{
    EmbeddedKernel kernel;
    kernel.create_curve();
    kernel.create_curve();
    kernel.create_surface({1});
    QCOMPARE(get_list_of_free_ref_entities("curve"), Ids{2});
    kernel.relate(EntityKind::SURFACE, 1, 2);
    QCOMPARE(get_list_of_free_ref_entities("curve"), Ids{});
}

void tst_EmbeddedGeometry::relatedChildComesLastAndTheParentIsToldModified()
{
    EmbeddedKernel kernel;
    kernel.create_volume();
    kernel.create_volume();
    kernel.create_body({2});
    NotificationLog log;

    kernel.relate(EntityKind::BODY, 1, 1);

    QCOMPARE(log.take(), QStringLiteral("body_modified 1"));
    QCOMPARE(get_relatives("body", 1, "volume"), (Ids{2, 1}));
}

void tst_EmbeddedGeometry::relatedSurfaceTellsTheVolumeThenItsBodies()
{
    EmbeddedKernel kernel;
    kernel.create_surface();
    kernel.create_volume();
    kernel.create_body({1});
    kernel.create_body({1});
    NotificationLog log;
    kernel.relate(EntityKind::VOLUME, 1, 1);
    QCOMPARE(log.take(), QStringLiteral("volume_modified 1, body_changed 1, body_changed 2"));
}

void tst_EmbeddedGeometry::unrelatedChildStaysFree()
{
    EmbeddedKernel kernel;
    kernel.create_vertex();
    kernel.create_curve({1});
    kernel.create_surface({1});
    NotificationLog log;

    kernel.unrelate(EntityKind::SURFACE, 1, 1);
    QCOMPARE(log.take(), QStringLiteral("surface_modified 1, free_entities_changed"));
    QCOMPARE(get_list_of_free_ref_entities("curve"), Ids{1});

    kernel.unrelate(EntityKind::CURVE, 1, 1);
    QCOMPARE(log.take(), QStringLiteral("curve_added 1, free_entities_changed"));
    QCOMPARE(get_list_of_free_ref_entities("vertex"), Ids{1});
}

void tst_EmbeddedGeometry::unrelatedChildWithAnotherParentIsNotFree()
{
    EmbeddedKernel kernel;
    kernel.open_model(lattice(2, 1, 1), "two.step");
    NotificationLog log;

    kernel.unrelate(EntityKind::VOLUME, 2, 2);
    QCOMPARE(log.take(), QStringLiteral("volume_modified 2, body_changed 1"));
    QCOMPARE(get_relatives("surface", 2, "volume"), Ids{1});

    kernel.unrelate(EntityKind::BODY, 1, 2);
    QCOMPARE(log.take(), QStringLiteral("body_modified 1"));
}

void tst_EmbeddedGeometry::sharedEntityHasAllItsParents()
{
    EmbeddedKernel kernel;
    kernel.create_volume();
    kernel.create_body({1});
    kernel.create_body({1});
    QCOMPARE(get_relatives("volume", 1, "body"), (Ids{1, 2}));
    kernel.unrelate(EntityKind::BODY, 1, 1);
    QCOMPARE(get_relatives("volume", 1, "body"), Ids{2});
}

void tst_EmbeddedGeometry::sheetFlagIsToldByTheVolumeThenItsBody()
{
    EmbeddedKernel kernel;
    kernel.create_volume();
    kernel.create_body({1});
    NotificationLog log;
    kernel.set_sheet(1, true);
    QCOMPARE(log.take(), QStringLiteral("volume_modified 1, body_changed 1"));
    QVERIFY(is_sheet_body(1));
}

void tst_EmbeddedGeometry::virtualFlagReachesWhatHoldsTheEntity()
{
    EmbeddedKernel kernel;
    kernel.open_model(lattice(2, 1, 1), "two.step");
    NotificationLog log;

    // A vertex of the shared surface, so that both volumes hold it.
    kernel.set_virtual(EntityKind::VERTEX, 2, true);

    QCOMPARE(
        log.take(), QStringLiteral("vertex_added 2, curve_added 1, curve_added 2, curve_added 10, "
                                   "curve_added 16, surface_modified 2, surface_modified 4, "
                                   "surface_modified 5, surface_modified 8, surface_modified 9, "
                                   "volume_modified 1, volume_modified 2, body_modified 1"));
    QVERIFY(contains_virtual("volume", 1));
    QVERIFY(contains_virtual("volume", 2));
    QVERIFY(contains_virtual("body", 1));
    QVERIFY(contains_virtual("surface", 2));
    QVERIFY(!contains_virtual("surface", 1));
    QVERIFY(!is_virtual("volume", 1));
    QVERIFY(is_virtual("vertex", 2));

    kernel.set_virtual(EntityKind::VERTEX, 2, false);
    QVERIFY(!contains_virtual("volume", 1));
    QVERIFY(!contains_virtual("body", 1));
}

void tst_EmbeddedGeometry::secondVirtualChildChangesOnlyItself()
{
    EmbeddedKernel kernel;
    kernel.create_surface();
    kernel.create_surface();
    kernel.create_volume({1, 2});
    kernel.set_virtual(EntityKind::SURFACE, 1, true);
    NotificationLog log;
    kernel.set_virtual(EntityKind::SURFACE, 2, true);
    QCOMPARE(log.take(), QStringLiteral("surface_modified 2"));
    kernel.set_virtual(EntityKind::SURFACE, 1, false);
    QCOMPARE(log.take(), QStringLiteral("surface_modified 1"));
    QVERIFY(contains_virtual("volume", 1));
}

void tst_EmbeddedGeometry::virtualChildThatGoesClearsWhatHeldIt()
{
    EmbeddedKernel kernel;
    kernel.create_curve();
    kernel.create_surface({1});
    kernel.create_volume({1});
    kernel.create_body({1});
    kernel.set_virtual(EntityKind::CURVE, 1, true);
    QVERIFY(contains_virtual("body", 1));

    NotificationLog log;
    kernel.unrelate(EntityKind::SURFACE, 1, 1);
    QVERIFY(!contains_virtual("body", 1));
    QCOMPARE(log.take(), QStringLiteral("surface_modified 1, volume_modified 1, body_modified 1, "
                                        "free_entities_changed"));

    kernel.relate(EntityKind::SURFACE, 1, 1);
    QVERIFY(contains_virtual("body", 1));
    kernel.remove(EntityKind::SURFACE, 1);
    QVERIFY(!contains_virtual("body", 1));
}

void tst_EmbeddedGeometry::virtualFlagsOfAModelReachTheBodies()
{
    ModelData model = lattice(2, 2, 1);
    model.vertices[0].is_virtual = true;
    EmbeddedKernel kernel;
    kernel.open_model(model, "four.step");
    QVERIFY(contains_virtual("body", 1));
    QVERIFY(!contains_virtual("body", 2));
    kernel.import_model(model);
    QVERIFY(contains_virtual("body", 3));
    QVERIFY(!contains_virtual("body", 4));
}

void tst_EmbeddedGeometry::newNameIsTold()
{
    EmbeddedKernel kernel;
    kernel.create_surface();
    NotificationLog log;
    kernel.rename(EntityKind::SURFACE, 1, "Größe");
    QCOMPARE(log.take(), QStringLiteral("entity_name_changed surface 1"));
    QCOMPARE(get_entity_name("surface", 1, true), std::string("Größe"));
}

void tst_EmbeddedGeometry::newIdIsToldAndKeepsLinksAndFlags()
{
    EmbeddedKernel kernel;
    kernel.open_model(lattice(2, 1, 1), "two.step");
    kernel.rename(EntityKind::SURFACE, 2, "Shared");
    kernel.set_virtual(EntityKind::SURFACE, 2, true);
    NotificationLog log;

    kernel.renumber(EntityKind::SURFACE, 2, 2000000000);

    QCOMPARE(log.take(), QStringLiteral("entity_id_changed surface 2 2000000000"));
    QCOMPARE(get_entity_name("surface", 2000000000, true), std::string("Shared"));
    QCOMPARE(get_relatives("surface", 2000000000, "volume"), (Ids{1, 2}));
    QCOMPARE(get_relatives("volume", 1, "surface"), (Ids{1, 2000000000, 4, 6, 8, 10}));
    QCOMPARE(get_relatives("surface", 2000000000, "curve"), (Ids{10, 13, 16, 19}));
    QCOMPARE(get_relatives("curve", 10, "surface"), (Ids{2000000000, 8, 9}));
    QCOMPARE(get_relatives("surface", 2, "volume"), Ids{});
    QVERIFY(is_virtual("surface", 2000000000));
    QVERIFY(!is_virtual("surface", 2));

    kernel.create_vertex();
    kernel.renumber(EntityKind::VERTEX, 13, 99);
    QCOMPARE(get_list_of_free_ref_entities("vertex"), Ids{99});
}

void tst_EmbeddedGeometry::hiddenEntityIsTold()
{
    EmbeddedKernel kernel;
    kernel.open_model(lattice(1, 1, 1), "cube.step");
    NotificationLog log;
    kernel.set_visible(EntityKind::VOLUME, 1, false);
    QCOMPARE(log.take(), QStringLiteral("entity_visibility_changed volume 1"));
    QVERIFY(!is_visible("volume", 1));
    QVERIFY(is_visible("surface", 1));
}

void tst_EmbeddedGeometry::sameValueTellsNothing()
{
    EmbeddedKernel kernel;
    kernel.create_volume({}, "Core");
    NotificationLog log;
    kernel.rename(EntityKind::VOLUME, 1, "Core");
    kernel.renumber(EntityKind::VOLUME, 1, 1);
    kernel.set_visible(EntityKind::VOLUME, 1, true);
    kernel.set_virtual(EntityKind::VOLUME, 1, false);
    kernel.set_sheet(1, false);
    QCOMPARE(log.take(), QString());
}

void tst_EmbeddedGeometry::deletedBodyTakesAlongWhatIsItsOwn()
{
    EmbeddedKernel kernel;
    kernel.open_model(lattice(1, 1, 1), "cube.step");
    kernel.create_vertex();
    NotificationLog log;

    kernel.remove(EntityKind::BODY, 1);

    QCOMPARE(log.take(), QStringLiteral("body_deleted 1, ") + rest_of_cube_removed());
    QCOMPARE(get_entities("surface"), Ids{});
    QCOMPARE(get_entities("vertex"), Ids{9});
}

void tst_EmbeddedGeometry::deletedBodyLeavesWhatIsShared()
{
    EmbeddedKernel kernel;
    kernel.open_model(lattice(1, 2, 1), "two.step");
    NotificationLog log;

    kernel.remove(EntityKind::BODY, 2);

    // The shared surface with its four curves and vertices stays under the first body.
    QCOMPARE(get_entities("volume"), Ids{1});
    QCOMPARE(get_entities("surface").size(), std::size_t(6));
    QCOMPARE(get_entities("curve").size(), std::size_t(12));
    QCOMPARE(get_entities("vertex").size(), std::size_t(8));
    QCOMPARE(get_relatives("body", 1, "vertex"), get_entities("vertex"));
    QCOMPARE(get_relatives("surface", 6, "volume"), Ids{1});
    QCOMPARE(log.events().filter(QStringLiteral("surface")).size(), 5);
    QVERIFY(get_list_of_free_ref_entities("surface").empty());
}

void tst_EmbeddedGeometry::deletedChildLeavesItsParents()
{
    EmbeddedKernel kernel;
    kernel.create_curve();
    kernel.create_surface({1});
    kernel.create_volume({1});
    kernel.create_volume({1});
    kernel.create_body({2});
    NotificationLog log;

    kernel.remove(EntityKind::SURFACE, 1);

    QCOMPARE(log.take(), QStringLiteral("surface_deleted 1, curve_removed 1, "
                                        "volume_modified 1, volume_modified 2, body_changed 1"));
    QCOMPARE(get_relatives("volume", 1, "surface"), Ids{});
}

void tst_EmbeddedGeometry::deletedFreeEntityIsNoLongerListed()
{
    EmbeddedKernel kernel;
    kernel.create_vertex();
    kernel.create_vertex();
    kernel.create_curve({1, 2});
    kernel.remove(EntityKind::CURVE, 1);
    QCOMPARE(get_list_of_free_ref_entities("curve"), Ids{});
    QCOMPARE(get_list_of_free_ref_entities("vertex"), Ids{});
}

void tst_EmbeddedGeometry::manyDeletedAreToldInTurnAndThenTheirParentsOnce()
{
    EmbeddedKernel kernel;
    for (int i = 0; i < 3; ++i) {
        kernel.create_vertex();
    }
    kernel.create_curve({1, 2});
    kernel.create_curve({2, 3});
    kernel.create_curve();
    kernel.create_surface({1, 2, 3});
    kernel.create_volume({1});
    kernel.create_body({1});
    kernel.set_virtual(EntityKind::VERTEX, 3, true);
    kernel.select(EntityKind::VERTEX, {1});
    kernel.select(EntityKind::CURVE, {1, 3, 2});
    NotificationLog log;

    kernel.remove({{EntityKind::CURVE, 2}, {EntityKind::CURVE, 1}});

    QCOMPARE(log.take(),
        QStringLiteral("deselected vertex 1 curve 1 curve 2, curve_deleted 2, vertex_removed 3, "
                       "curve_deleted 1, vertex_removed 1, vertex_removed 2, surface_modified 1, "
                       "volume_modified 1, body_modified 1"));
    QCOMPARE(get_relatives("surface", 1, "curve"), Ids{3});
    QVERIFY(!contains_virtual("body", 1));
}

void tst_EmbeddedGeometry::whatWentWithAnEarlierOneIsPassedOver()
{
    EmbeddedKernel kernel;
    kernel.open_model(lattice(1, 1, 1), "cube.step");
    kernel.create_vertex();
    NotificationLog log;
    using enum EntityKind;

    kernel.remove({{BODY, 1}, {SURFACE, 3}, {VERTEX, 9}, {BODY, 1}, {VERTEX, 9}});

    QCOMPARE(log.take(), QStringLiteral("body_deleted 1, ") + rest_of_cube_removed() +
                             QStringLiteral(", vertex_deleted 9"));
    kernel.remove({});
    QCOMPARE(log.take(), QString());
}

void tst_EmbeddedGeometry::partDeletedBeforeItsWholeIsToldBeforeIt()
{
    EmbeddedKernel kernel;
    kernel.create_curve();
    kernel.create_surface({1});
    kernel.create_volume({1});
    kernel.create_body({1});
    NotificationLog log;

    kernel.remove({{EntityKind::SURFACE, 1}, {EntityKind::VOLUME, 1}});

    QCOMPARE(log.take(), QStringLiteral("surface_deleted 1, curve_removed 1, volume_deleted 1, "
                                        "body_modified 1"));
}

void tst_EmbeddedGeometry::sharedPartGoesWithTheLastOfItsWholes()
{
    EmbeddedKernel kernel;
    kernel.create_vertex();
    kernel.create_curve({1});
    kernel.create_curve({1});
    NotificationLog log;
    kernel.remove({{EntityKind::CURVE, 2}, {EntityKind::CURVE, 1}});
    QCOMPARE(log.take(), QStringLiteral("curve_deleted 2, curve_deleted 1, vertex_removed 1"));
}

void tst_EmbeddedGeometry::manyDeletedAreGoneInTheFirstNotification()
{
    EmbeddedKernel kernel;
    kernel.create_vertex();
    kernel.create_vertex();
    kernel.create_vertex();
    NotificationLog log;
    Ids left_in_the_first;
    log.on_event = [&](const QString& event) {
        if (event == QStringLiteral("vertex_deleted 3")) {
            left_in_the_first = get_entities("vertex");
        }
    };
    kernel.remove({{EntityKind::VERTEX, 3}, {EntityKind::VERTEX, 1}});
    QCOMPARE(left_in_the_first, Ids{2});
}

void tst_EmbeddedGeometry::unknownOneAmongManyIsRefusedAndNoneIsDeleted()
{
    EmbeddedKernel kernel;
    kernel.create_vertex();
    kernel.create_vertex();
    NotificationLog log;
    using enum EntityKind;
    QVERIFY_THROWS_EXCEPTION(std::invalid_argument, kernel.remove({{VERTEX, 1}, {VERTEX, 3}}));
    QVERIFY_THROWS_EXCEPTION(std::invalid_argument, kernel.remove({{VERTEX, 1}, {CURVE, 1}}));
    QVERIFY_THROWS_EXCEPTION(
        std::invalid_argument, kernel.remove({{VERTEX, 1}, {static_cast<EntityKind>(-1), 1}}));
    QCOMPARE(log.take(), QString());
    QCOMPARE(get_entities("vertex"), (Ids{1, 2}));
}

void tst_EmbeddedGeometry::nonsenseIsRefusedAndChangesNothing_data()
{
    QTest::addColumn<std::function<void(EmbeddedKernel&)>>("ask");
    QTest::addColumn<QString>("sentence");
    const auto newRow = [](const char* name, const std::function<void(EmbeddedKernel&)>& ask,
                            const char* sentence) {
        QTest::newRow(name) << ask << QString::fromLatin1(sentence);
    };
    using Kernel = EmbeddedKernel;
    using enum EntityKind;

    newRow(
        "unknown child",
        [](Kernel& k) {
            k.create_curve({1, 9});
        },
        "There is no vertex 9.");
    newRow(
        "repeated child",
        [](Kernel& k) {
            k.create_curve({1, 1});
        },
        "vertex 1 is named twice.");
    newRow(
        "sheet of nothing", [](Kernel& k) { k.create_sheet_body({9}); }, "There is no surface 9.");
    newRow(
        "related twice", [](Kernel& k) { k.relate(BODY, 1, 1); },
        "volume 1 hangs under body 1 already.");
    newRow(
        "unknown parent", [](Kernel& k) { k.relate(BODY, 2, 1); }, "There is no body 2.");
    newRow(
        "child of a vertex", [](Kernel& k) { k.relate(VERTEX, 1, 1); },
        "Nothing hangs under a vertex.");
    newRow(
        "child of a group", [](Kernel& k) { k.relate(GROUP, 1, 1); }, "A group is no geometry.");
    newRow(
        "not related", [](Kernel& k) { k.unrelate(CURVE, 1, 8); },
        "vertex 8 does not hang under curve 1.");
    newRow(
        "unknown sheet", [](Kernel& k) { k.set_sheet(2, true); }, "There is no volume 2.");
    newRow(
        "unknown virtual", [](Kernel& k) { k.set_virtual(CURVE, 0, true); },
        "There is no curve 0.");
    newRow(
        "virtual group", [](Kernel& k) { k.set_virtual(GROUP, 1, true); },
        "A group is no geometry.");
    newRow(
        "unknown name", [](Kernel& k) { k.rename(CURVE, 13, "x"); }, "There is no curve 13.");
    newRow(
        "unknown hidden", [](Kernel& k) { k.set_visible(BODY, -1, false); },
        "There is no body -1.");
    newRow(
        "unknown deleted", [](Kernel& k) { k.remove(BODY, 2); }, "There is no body 2.");
    newRow(
        "taken id", [](Kernel& k) { k.renumber(CURVE, 1, 2); },
        "curve 1 cannot be renumbered to 2, which is in use.");
    newRow(
        "id 0", [](Kernel& k) { k.renumber(CURVE, 1, 0); },
        "curve 1 cannot be renumbered to 0, which is no id.");
    newRow(
        "no id left",
        [](Kernel& k) {
            k.renumber(CURVE, 2, std::numeric_limits<int>::max());
            k.create_curve();
        },
        "Too few ids are left above curve 2147483647.");
}

void tst_EmbeddedGeometry::nonsenseIsRefusedAndChangesNothing()
{
    QFETCH(std::function<void(EmbeddedKernel&)>, ask);
    QFETCH(QString, sentence);
    EmbeddedKernel kernel;
    kernel.open_model(lattice(1, 1, 1), "cube.step");
    NotificationLog log;

    try {
        ask(kernel);
        QFAIL("Nonsense was taken.");
    } catch (const std::invalid_argument& refusal) {
        QCOMPARE(QString::fromUtf8(refusal.what()), sentence);
    }

    QVERIFY(log.take().remove(QStringLiteral("entity_id_changed curve 2 2147483647")).isEmpty());
    QCOMPARE(get_entities("body").size(), std::size_t(1));
    QCOMPARE(get_entities("volume").size(), std::size_t(1));
    QCOMPARE(get_entities("surface").size(), std::size_t(6));
    QCOMPARE(get_entities("curve").size(), std::size_t(12));
    QCOMPARE(get_entities("vertex").size(), std::size_t(8));
    QCOMPARE(get_relatives("body", 1, "vertex").size(), std::size_t(8));
}

QTEST_GUILESS_MAIN(tst_EmbeddedGeometry)
#include "tst_EmbeddedGeometry.moc"
