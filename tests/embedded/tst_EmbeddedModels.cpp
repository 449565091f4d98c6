#include "NotificationLog.hpp"
#include "TestModels.hpp"

#include <embedded/EmbeddedKernel.hpp>
#include <QtTest>
#include <stdexcept>

using namespace KestoInterface;

namespace {

using Ids = std::vector<int>;

// "2 1 6 12 8": how many entities the kernel has, from the bodies down.
QString entity_counts()
{
    QStringList counts;
    for (const char* type : {"body", "volume", "surface", "curve", "vertex"}) {
        counts << QString::number(get_entities(type).size());
    }
    return counts.join(u' ');
}

Ids first_ids(int count)
{
    Ids ids(static_cast<std::size_t>(count));
    std::iota(ids.begin(), ids.end(), 1);
    return ids;
}

// Loose ends with mesh controls, sets, and elements in the first group.
ModelData meshed()
{
    ModelData model = loose_ends();
    model.groups[0].elements = {1, 2, 3, 4, 5, 6, 7, 8, 9};
    model.sizing_sources = {"Box", "Distance"};
    model.boundary_layers = {"BoundaryLayer"};
    model.blocks = {"Rotor"};
    model.sidesets = {"Wall"};
    model.nodesets = {"Tip", "Axis"};
    return model;
}

} // namespace

class tst_EmbeddedModels : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void openedModelAnswersAllItsRelations();
    void openedModelTakesThePlaceOfEverything();
    void replacedModelIsToldAsReplaced();
    void importedModelGetsTheIdsAboveTheHighest();
    void importedEntitiesAreToldFromTheBodiesDownAndGroupsFromTheInnermostOut();
    void importedEntityIsReadableInItsNotification();
    void meshOfAModelComesInWithIt();
    void importedMeshControlsAndSetsAreToldAfterTheGroups();
    void clearedKernelIsEmptyAndToldAsReset();
    void refreshRequestAndRepairReportOnlyTell();
    void flawedModelIsRefusedAsAWhole_data();
    void flawedModelIsRefusedAsAWhole();
    void modelThatDoesNotFitTheIdsLeftIsRefused();
    void millionEntitiesLoadAndAnswer();
};

void tst_EmbeddedModels::openedModelAnswersAllItsRelations()
{
    EmbeddedKernel kernel;
    kernel.open_model(lattice(2, 1, 1), "two.step");

    QCOMPARE(entity_counts(), QStringLiteral("1 2 11 20 12"));
    QCOMPARE(get_relatives("body", 1, "volume"), (Ids{1, 2}));
    QCOMPARE(get_relatives("volume", 1, "surface"), (Ids{1, 2, 4, 6, 8, 10}));
    QCOMPARE(get_relatives("surface", 2, "volume"), (Ids{1, 2}));
    QCOMPARE(get_relatives("body", 1, "surface"), first_ids(11));
    QCOMPARE(get_relatives("body", 1, "vertex"), first_ids(12));
    QCOMPARE(get_relatives("vertex", 12, "body"), (Ids{1}));
    QCOMPARE(get_relatives("vertex", 1, "volume"), (Ids{1}));
    QCOMPARE(get_relatives("surface", 1, "surface"), Ids{});
    QCOMPARE(get_list_of_free_ref_entities("surface"), Ids{});
}

void tst_EmbeddedModels::openedModelTakesThePlaceOfEverything()
{
    EmbeddedKernel kernel;
    kernel.open_model(lattice(2, 2, 2), "a.step");
    NotificationLog log;

    kernel.open_model(loose_ends(), "b.step");

    QCOMPARE(log.take(), QStringLiteral("kes_file_opened b.step"));
    QCOMPARE(entity_counts(), QStringLiteral("1 1 1 1 3"));
    QCOMPARE(get_entity_name("body", 1, true), std::string("Sheet"));
    QVERIFY(is_sheet_body(1));
    QCOMPARE(get_list_of_free_ref_entities("curve"), Ids{1});
    QCOMPARE(get_list_of_free_ref_entities("vertex"), Ids{3});
    QCOMPARE(get_list_of_free_ref_entities("surface"), Ids{});
}

void tst_EmbeddedModels::replacedModelIsToldAsReplaced()
{
    EmbeddedKernel kernel;
    NotificationLog log;
    kernel.replace_model(lattice(1, 1, 1));
    QCOMPARE(log.take(), QStringLiteral("model_replaced"));
    QCOMPARE(entity_counts(), QStringLiteral("1 1 6 12 8"));
}

void tst_EmbeddedModels::importedModelGetsTheIdsAboveTheHighest()
{
    EmbeddedKernel kernel;
    kernel.open_model(lattice(1, 1, 1), "cube.step");
    kernel.renumber(EntityKind::VERTEX, 8, 100);

    kernel.import_model(loose_ends());

    QCOMPARE(get_entities("body"), (Ids{1, 2}));
    QCOMPARE(get_relatives("body", 2, "volume"), (Ids{2}));
    QCOMPARE(get_relatives("volume", 2, "surface"), (Ids{7}));
    QCOMPARE(get_relatives("curve", 13, "vertex"), (Ids{101, 102}));
    QCOMPARE(get_relatives("vertex", 102, "curve"), (Ids{13}));
    QCOMPARE(get_list_of_free_ref_entities("vertex"), (Ids{103}));
    QCOMPARE(get_entity_name("vertex", 103, true), std::string("Tip"));
}

void tst_EmbeddedModels::importedEntitiesAreToldFromTheBodiesDownAndGroupsFromTheInnermostOut()
{
    EmbeddedKernel kernel;
    kernel.create_vertex();
    NotificationLog log;

    kernel.import_model(loose_ends());

    QCOMPARE(log.take(),
        QStringLiteral("body_added 1, volume_created 1, surface_added 1, curve_added 1, "
                       "vertex_added 2, vertex_added 3, vertex_added 4, "
                       "group_created 2, group_created 1"));
}

void tst_EmbeddedModels::importedEntityIsReadableInItsNotification()
{
    EmbeddedKernel kernel;
    NotificationLog log;
    std::string name;
    Ids volumes;
    log.on_event = [&](const QString& event) {
        if (event == QStringLiteral("body_added 1")) {
            name = get_entity_name("body", 1, true);
            volumes = get_relatives("body", 1, "volume");
        }
    };
    kernel.import_model(loose_ends());
    QCOMPARE(name, std::string("Sheet"));
    QCOMPARE(volumes, Ids{1});
}

void tst_EmbeddedModels::meshOfAModelComesInWithIt()
{
    ModelData model = meshed();
    EmbeddedKernel kernel;
    kernel.open_model(model, "a.msh");
    kernel.import_model(model);

    QCOMPARE(sizing_source_ids(), (Ids{1, 2, 3, 4}));
    QCOMPARE(get_boundary_layer_id_list(), (Ids{1, 2}));
    QCOMPARE(get_block_id_list(), (Ids{1, 2}));
    QCOMPARE(get_sideset_id_list(), (Ids{1, 2}));
    QCOMPARE(get_nodeset_id_list(), (Ids{1, 2, 3, 4}));
    QCOMPARE(get_exodus_entity_name("block", 2), std::string("Rotor"));
    QCOMPARE(get_exodus_entity_name("nodeset", 4), std::string("Axis"));
    for (const int group : {1, 3}) {
        Ids members;
        ElementCounts counts;
        get_group_children(group, members, members, members, members, members, members,
            counts.nodes, counts.edges, counts.hexes, counts.quads, counts.tets, counts.tris,
            counts.wedges, counts.pyramids, counts.spheres);
        QVERIFY2(counts == model.groups[0].elements, qPrintable(QString::number(group)));
    }
}

void tst_EmbeddedModels::importedMeshControlsAndSetsAreToldAfterTheGroups()
{
    EmbeddedKernel kernel;
    kernel.create_set(EntityKind::BLOCK);
    NotificationLog log;
    // What an observer makes meanwhile is told once, by its own making.
    log.on_event = [&kernel, is_first = true](const QString&) mutable {
        if (std::exchange(is_first, false)) {
            kernel.create_set(EntityKind::BLOCK);
        }
    };

    kernel.import_model(meshed());

    const QString told = log.take();
    QVERIFY2(
        told.endsWith(QStringLiteral("group_created 2, group_created 1, sizing_source_created 1, "
                                     "sizing_source_created 2, boundary_layer_created 1, "
                                     "exodus_entity_modified block 2 create, "
                                     "exodus_entity_modified sideset 1 create, "
                                     "exodus_entity_modified nodeset 1 create, "
                                     "exodus_entity_modified nodeset 2 create")),
        qPrintable(told));
    QCOMPARE(told.count(QStringLiteral("exodus_entity_modified block 3 create")), 1);
}

void tst_EmbeddedModels::clearedKernelIsEmptyAndToldAsReset()
{
    EmbeddedKernel kernel;
    kernel.open_model(loose_ends(), "a.step");
    NotificationLog log;

    kernel.clear();

    QCOMPARE(log.take(), QStringLiteral("model_reset"));
    QCOMPARE(entity_counts(), QStringLiteral("0 0 0 0 0"));
    QCOMPARE(kernel.create_body(), 1);
}

void tst_EmbeddedModels::refreshRequestAndRepairReportOnlyTell()
{
    EmbeddedKernel kernel;
    kernel.open_model(loose_ends(), "a.step");
    NotificationLog log;
    kernel.request_refresh();
    kernel.report_geometry_repair();
    QCOMPARE(log.take(), QStringLiteral("model_refresh_requested, geometry_repair_complete"));
    QCOMPARE(entity_counts(), QStringLiteral("1 1 1 1 3"));
}

void tst_EmbeddedModels::flawedModelIsRefusedAsAWhole_data()
{
    QTest::addColumn<std::function<void(ModelData&)>>("spoil");
    QTest::addColumn<QString>("sentence");
    const auto newRow = [](const char* name, const std::function<void(ModelData&)>& spoil,
                            const char* sentence) {
        QTest::newRow(name) << spoil << QString::fromLatin1(sentence);
    };

    newRow(
        "child beyond the end",
        [](ModelData& m) {
            m.curves[0].children = {1, 4};
        },
        "The model's curve 1 names vertex 4, which the model does not have.");
    newRow(
        "child 0", [](ModelData& m) { m.bodies[0].children = {0}; },
        "The model's body 1 names volume 0, which the model does not have.");
    newRow(
        "negative child", [](ModelData& m) { m.volumes[0].children = {-1}; },
        "The model's volume 1 names surface -1, which the model does not have.");
    newRow(
        "repeated child",
        [](ModelData& m) {
            m.curves[0].children = {2, 2};
        },
        "The model's curve 1 names vertex 2 twice.");
    newRow(
        "child of a vertex", [](ModelData& m) { m.vertices[1].children = {1}; },
        "The model's vertex 2 has children.");
    newRow(
        "member beyond the end", [](ModelData& m) { m.groups[1].surfaces = {2}; },
        "The model's group 2 names surface 2, which the model does not have.");
    newRow(
        "repeated member",
        [](ModelData& m) {
            m.groups[1].vertices = {3, 3};
        },
        "The model's group 2 names vertex 3 twice.");
    newRow(
        "unknown group", [](ModelData& m) { m.groups[1].groups = {3}; },
        "The model's group 2 names group 3, which the model does not have.");
    newRow(
        "group in itself", [](ModelData& m) { m.groups[1].groups = {2}; },
        "The model's group 2 belongs to a circle of groups that hold one another.");
    newRow(
        "less than no elements", [](ModelData& m) { m.groups[1].elements.tets = -1; },
        "The model's group 2 holds less than no elements.");
    newRow(
        "circle of groups", [](ModelData& m) { m.groups[1].groups = {1}; },
        "The model's group 1 belongs to a circle of groups that hold one another.");
}

void tst_EmbeddedModels::flawedModelIsRefusedAsAWhole()
{
    QFETCH(std::function<void(ModelData&)>, spoil);
    QFETCH(QString, sentence);
    ModelData flawed = loose_ends();
    spoil(flawed);
    EmbeddedKernel kernel;
    kernel.open_model(lattice(1, 1, 1), "cube.step");
    NotificationLog log;

    for (const bool import : {false, true}) {
        try {
            import ? kernel.import_model(flawed) : kernel.open_model(flawed, "bad.step");
            QFAIL("A model with a flaw was taken.");
        } catch (const std::invalid_argument& refusal) {
            QCOMPARE(QString::fromUtf8(refusal.what()), sentence);
        }
        QCOMPARE(entity_counts(), QStringLiteral("1 1 6 12 8"));
        QCOMPARE(log.take(), QString());
    }
}

void tst_EmbeddedModels::modelThatDoesNotFitTheIdsLeftIsRefused()
{
    EmbeddedKernel kernel;
    kernel.create_vertex();
    kernel.renumber(EntityKind::VERTEX, 1, std::numeric_limits<int>::max() - 2);
    NotificationLog log;

    QVERIFY_THROWS_EXCEPTION(std::invalid_argument, kernel.import_model(loose_ends()));

    QCOMPARE(entity_counts(), QStringLiteral("0 0 0 0 1"));
    QCOMPARE(log.take(), QString());
}

void tst_EmbeddedModels::millionEntitiesLoadAndAnswer()
{
    EmbeddedKernel kernel;
    kernel.open_model(lattice(50, 50, 50), "lattice.step");

    QCOMPARE(entity_counts(), QStringLiteral("2500 125000 382500 390150 132651"));
    for (int volume = 1; volume <= 125000; ++volume) {
        if (get_relatives("volume", volume, "surface").size() != 6 ||
            get_relatives("volume", volume, "vertex").size() != 8 ||
            get_relatives("volume", volume, "body") != Ids{(volume - 1) / 50 + 1}) {
            QFAIL(qPrintable(QStringLiteral("Volume %1 has wrong relatives.").arg(volume)));
        }
    }
    kernel.import_model(lattice(1, 1, 1));
    QCOMPARE(get_entities("vertex").back(), 132659);
}

QTEST_GUILESS_MAIN(tst_EmbeddedModels)
#include "tst_EmbeddedModels.moc"
