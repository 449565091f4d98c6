#include <algorithm>
#include <memory>
#include <QCoreApplication>
#include <QMetaMethod>
#include <QPointer>
#include <QTest>
#include <set>
#include <support/FullModel.hpp>
#include <support/GeometryText.hpp>
#include <support/MirrorText.hpp>

using Type = TreeGeometryData::GeometryType;

namespace {

// In the order of the meta-object.
const QList<const char*> declared_signals{
    "geometry_added(TreeGeometryData* geom, TreeGeometryData* parent)",
    "geometry_removed(TreeGeometryData* geom)",
    "geometry_associated(TreeGeometryData* parent, TreeGeometryData* child)",
    "geometry_disassociated(TreeGeometryData* parent, TreeGeometryData* child)",
    "about_to_clear_geometry()", "group_added(TreeGroupData* group)",
    "group_removed(TreeGroupData* group)",
    "group_child_added(TreeGroupData* group, TreeData* child)",
    "group_child_removed(TreeGroupData* group, TreeData* child)", "about_to_clear_groups()",
    "boundary_layer_added(TreeBoundaryLayerData* bl)",
    "boundary_layer_removed(TreeBoundaryLayerData* bl)",
    "mesh_data_added(TreeMeshData* md, TreeData* owner)",
    "mesh_data_removed(TreeMeshData* md, TreeData* owner)", "about_to_clear_boundary_layers()",
    "about_to_clear_sizing_sources()", "sizing_source_added(TreeSizingSourceData* bl)",
    "sizing_source_removed(TreeSizingSourceData* bl)", "about_to_clear_mesh_data()",
    "exodus_entity_added(TreeExodusData* exodus)", "exodus_entity_removed(TreeExodusData* exodus)",
    "fea_bc_added(TreeFeaBCData* fea_bc)", "fea_bc_removed(TreeFeaBCData* fea_bc)",
    "cfd_bc_added(TreeCfdBCData* cfd_bc)", "cfd_bc_removed(TreeCfdBCData* cfd_bc)",
    "exodus_added_to_fea_bc(TreeFeaBCData* bc, TreeExodusData* exo)",
    "exodus_added_to_cfd_bc(TreeCfdBCData* bc, TreeExodusData* exo)",
    "exodus_removed_from_fea_bc(TreeFeaBCData* bc, TreeExodusData* exo)",
    "exodus_removed_from_cfd_bc(TreeCfdBCData* bc, TreeExodusData* exo)",
    "material_added(TreeMaterialData* mat)", "material_removed(TreeMaterialData* mat)",
    "about_to_clear_exodus()", "about_to_clear_fea()", "about_to_clear_cfd()",
    "about_to_clear_material()",
    "selection_changed(std::vector<TreeData*> entities, bool selected)"};

} // namespace

class tst_TreeModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void newModelIsEmptyAndUnregistered();
    void newModelFindsNothing();
    void modelOwnsNothingAsChildren();
    void signalStandsInItsRow_data();
    void signalStandsInItsRow();
    void classHasNothingButItsSignals();
    void everySignalIsFed();

    void geometryComesByTypeAndAscendingId();
    void geometryIsFoundByTypeAndId();
    void childrenAndParentsAreFound();
    void unknownGeometryIsNullOrEmpty_data();
    void unknownGeometryIsNullOrEmpty();
    void nullHasNoRelatives();

    void groupsAndTheirMembersAreFound();
    void meshRecordsAreFound();
    void setsAndConditionsAreFound();
    void materialsAreFound();

    void eachChangeIsToldOnce();
    void changeIsToldWhereItHappens();
    void clearIsToldBeforeAnyRecordIsGone();

    void connectingRegistersAndReadsNothing();
    void connectingTwiceIsPassedOn();
    void connectedModelFollowsTheKernel();
    void disconnectingEndsItAndKeepsTheMirror();
    void disconnectedModelCanBeConnectedAgain();

    void destructionTellsOfTheClearThenDeletesFromTheTop();
    void destructionGoesThroughTheModelsInOrder();
    void modelAnswersThroughoutItsDestruction();
    void refreshDuringTheDestructionIsHarmless();
    void outgoingConditionMayOutliveTheModel();
    void twoMirrorsOfOneKernelAreIndependent();

private:
    std::unique_ptr<FullMirror> mirror;
};

void tst_TreeModel::init()
{
    mirror = std::make_unique<FullMirror>();
}

void tst_TreeModel::cleanup()
{
    mirror.reset();
}

void tst_TreeModel::newModelIsEmptyAndUnregistered()
{
    mirror.reset();
    EventLog log;
    RecordingKernel kernel(log);
    TreeModel model;
    QCOMPARE(mirror_text(model), QStringList());
    QCOMPARE(kernel.observer(), nullptr);
    QCOMPARE(model.parent(), nullptr);
}

void tst_TreeModel::newModelFindsNothing()
{
    TreeModel model;
    TreeData owner(1);
    QCOMPARE(model.find_geometry(TreeGeometryData::BODY, 1), nullptr);
    QCOMPARE(model.find_group(1), nullptr);
    QVERIFY(model.groups().empty());
    QVERIFY(model.find_group_children(nullptr).empty());
    QVERIFY(model.find_groups_for_child(nullptr).empty());
    QVERIFY(model.find_groups_for_child(&owner).empty());
    QCOMPARE(model.find_sizing_source(1), nullptr);
    QCOMPARE(model.find_boundary_layer(1), nullptr);
    QVERIFY(model.sizing_sources().empty());
    QVERIFY(model.boundary_layers().empty());
    QVERIFY(model.mesh_data().empty());
    QCOMPARE(model.find_mesh_data(TreeMeshData::HEX, &owner), nullptr);
    QCOMPARE(model.find_mesh_data(TreeMeshData::HEX, nullptr), nullptr);
    QVERIFY(model.find_mesh_data(TreeMeshData::HEX).empty());
    QVERIFY(model.find_mesh_data(&owner).empty());
    QVERIFY(model.find_mesh_data(nullptr).empty());
    QVERIFY(model.exodus_entities(TreeExodusData::BLOCK).empty());
    QVERIFY(model.fea_bcs(TreeFeaBCData::FORCE).empty());
    QVERIFY(model.cfd_bcs(TreeCfdBCData::WALL).empty());
    QVERIFY(model.materials(false).empty());
    QVERIFY(model.materials(true).empty());
    QCOMPARE(model.find_exodus(TreeExodusData::BLOCK, 1), nullptr);
    QCOMPARE(model.find_fea_bc(TreeFeaBCData::FORCE, 1), nullptr);
    QCOMPARE(model.find_cfd_bc(1), nullptr);
    QCOMPARE(model.find_material(1), nullptr);
    QVERIFY(model.find_fea_from_exodus(nullptr).empty());
    QVERIFY(model.find_cfd_from_exodus(nullptr).empty());
    QVERIFY(model.find_exodus_from_fea(nullptr).empty());
    QVERIFY(model.find_exodus_from_cfd(nullptr).empty());
}

void tst_TreeModel::modelOwnsNothingAsChildren()
{
    script_small_model(mirror->kernel);
    mirror->refresh();
    QVERIFY(mirror->model.children().isEmpty());
}

void tst_TreeModel::signalStandsInItsRow_data()
{
    QTest::addColumn<int>("row");
    for (int row = 0; row < declared_signals.size(); ++row) {
        QTest::newRow(declared_signals.at(row)) << row;
    }
}

void tst_TreeModel::signalStandsInItsRow()
{
    QFETCH(int, row);
    const QMetaObject& meta = TreeModel::staticMetaObject;
    const QMetaMethod method = meta.method(meta.methodOffset() + row);
    QStringList parameters;
    for (int i = 0; i < method.parameterCount(); ++i) {
        parameters << QString(method.parameterTypes().at(i) + ' ' + method.parameterNames().at(i));
    }
    QCOMPARE(method.name() + '(' + parameters.join(", ") + ')', QTest::currentDataTag());
    QCOMPARE(method.methodType(), QMetaMethod::Signal);
}

void tst_TreeModel::classHasNothingButItsSignals()
{
    const QMetaObject& meta = TreeModel::staticMetaObject;
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 36);
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
    QCOMPARE(meta.enumeratorCount(), meta.enumeratorOffset());
}

void tst_TreeModel::everySignalIsFed()
{
    script_full_model(*mirror);
    mirror->model.refresh_model(false);
    change_full_model(*mirror);
    mirror->model.refresh_model(false);
    mirror->model.refresh_model(true);
    const QStringList events = mirror->log.take();

    QCOMPARE(declared_signals.size(), 36);
    for (const char* signal : declared_signals) {
        const QString name = QString(signal).section('(', 0, 0) + '(';
        QVERIFY2(std::any_of(events.begin(), events.end(),
                     [&](const QString& event) { return event.startsWith(name); }),
            signal);
    }
}

void tst_TreeModel::geometryComesByTypeAndAscendingId()
{
    mirror->kernel.entities = {{"curve", {7, -2, 5}}, {"vertex", {5}}};
    mirror->refresh();
    QCOMPARE(names_of(mirror->model.geometry(TreeGeometryData::CURVE)),
        QStringList({"curve -2", "curve 5", "curve 7"}));
}

void tst_TreeModel::geometryIsFoundByTypeAndId()
{
    mirror->kernel.entities = {{"curve", {5}}, {"vertex", {5}}};
    mirror->refresh();
    TreeGeometryData* curve = mirror->model.find_geometry(TreeGeometryData::CURVE, 5);
    QCOMPARE(curve->geometry_type(), TreeGeometryData::CURVE);
    QCOMPARE(curve->id(), 5);
}

void tst_TreeModel::childrenAndParentsAreFound()
{
    script_small_model(mirror->kernel);
    mirror->refresh();
    TreeGeometryData* surface = mirror->model.find_geometry(TreeGeometryData::SURFACE, 2);
    QCOMPARE(sorted_names_of(mirror->model.find_geometry_children(surface)),
        QStringList({"curve 2", "curve 3"}));
    QCOMPARE(sorted_names_of(mirror->model.find_geometry_parents(surface)),
        QStringList({"volume 1", "volume 2"}));
}

void tst_TreeModel::unknownGeometryIsNullOrEmpty_data()
{
    QTest::addColumn<int>("type");
    QTest::newRow("above the last") << 5;
    QTest::newRow("below the first") << -1;
    QTest::newRow("without records") << int(TreeGeometryData::BODY);
}

void tst_TreeModel::unknownGeometryIsNullOrEmpty()
{
    QFETCH(int, type);
    mirror->kernel.entities = {{"curve", {5}}};
    mirror->refresh();
    QVERIFY(mirror->model.geometry(Type(type)).empty());
    QCOMPARE(mirror->model.find_geometry(Type(type), 5), nullptr);
    QCOMPARE(mirror->model.find_geometry(TreeGeometryData::CURVE, 6), nullptr);
}

void tst_TreeModel::nullHasNoRelatives()
{
    QVERIFY(mirror->model.find_geometry_children(nullptr).empty());
    QVERIFY(mirror->model.find_geometry_parents(nullptr).empty());
}

void tst_TreeModel::groupsAndTheirMembersAreFound()
{
    script_full_model(*mirror);
    mirror->refresh();
    TreeModel& model = mirror->model;
    TreeGroupData* outer = model.find_group(1);
    TreeGroupData* inner = model.find_group(2);
    QVERIFY(model.groups() == std::vector<TreeGroupData*>({outer, inner, model.find_group(3)}));
    QCOMPARE(outer->name(), "Outer");
    QCOMPARE(model.find_group_children(outer).size(), 2U + 7U + 9U);
    QCOMPARE(model.find_group_children(inner).size(), 3U);
    QCOMPARE(model.find_groups_for_child(inner), std::vector<TreeGroupData*>{outer});
    QCOMPARE(
        model.find_groups_for_child(model.find_geometry(TreeGeometryData::SURFACE, 2)).size(), 2U);
    QCOMPARE(model.find_group(77), nullptr);
}

void tst_TreeModel::meshRecordsAreFound()
{
    script_full_model(*mirror);
    mirror->refresh();
    TreeModel& model = mirror->model;
    TreeGroupData* inner = model.find_group(2);
    TreeMeshData* tet = model.find_mesh_data(TreeMeshData::TET, inner);
    QCOMPARE(tet->element_count(), 4);
    QCOMPARE(model.find_mesh_data(inner), std::vector<TreeMeshData*>{tet});
    QCOMPARE(model.find_mesh_data(TreeMeshData::HEX, inner), nullptr);
    QCOMPARE(model.find_mesh_data(TreeMeshData::TET).size(), 2U);
    QCOMPARE(model.find_mesh_data(TreeMeshData::HEX).size(), 1U);
    QCOMPARE(model.find_mesh_data(model.find_group(1)).size(), 9U);
    QCOMPARE(model.mesh_data().size(), 10U);
    QVERIFY(
        model.sizing_sources() == std::vector<TreeSizingSourceData*>(
                                      {model.find_sizing_source(1), model.find_sizing_source(2)}));
    QVERIFY(model.boundary_layers() ==
            std::vector<TreeBoundaryLayerData*>(
                {model.find_boundary_layer(1), model.find_boundary_layer(3)}));
    QCOMPARE(model.find_sizing_source(3), nullptr);
    QCOMPARE(model.find_boundary_layer(2), nullptr);
}

void tst_TreeModel::setsAndConditionsAreFound()
{
    script_full_model(*mirror);
    mirror->refresh();
    TreeModel& model = mirror->model;
    TreeExodusData* sideset = model.find_exodus(TreeExodusData::SIDESET, 2);
    TreeExodusData* nodeset = model.find_exodus(TreeExodusData::NODESET, 2);
    TreeFeaBCData* force = model.find_fea_bc(TreeFeaBCData::FORCE, 1);
    TreeCfdBCData* wall = model.find_cfd_bc(1);
    QCOMPARE(sideset->name(), "Inlet");
    QCOMPARE(model.exodus_entities(TreeExodusData::SIDESET).at(1), sideset);
    QCOMPARE(model.fea_bcs(TreeFeaBCData::FORCE).at(0), force);
    QCOMPARE(model.fea_bcs(TreeFeaBCData::PRESSURE).size(), 0U);
    QCOMPARE(model.cfd_bcs(TreeCfdBCData::WALL), std::vector<TreeCfdBCData*>{wall});
    QCOMPARE(model.find_fea_from_exodus(sideset), std::vector<TreeFeaBCData*>{force});
    QCOMPARE(model.find_cfd_from_exodus(sideset), std::vector<TreeCfdBCData*>{wall});
    QCOMPARE(model.find_exodus_from_fea(force).size(), 3U);
    const auto sets = model.find_exodus_from_cfd(wall);
    QCOMPARE(sets.size(), 2U);
    QCOMPARE(std::set(sets.begin(), sets.end()), std::set({sideset, nodeset}));
    QCOMPARE(model.find_fea_bc(TreeFeaBCData::CONTACT_PAIR, 2), nullptr);
    QCOMPARE(model.find_exodus(TreeExodusData::BLOCK, 3), nullptr);
}

void tst_TreeModel::materialsAreFound()
{
    script_full_model(*mirror);
    mirror->refresh();
    TreeModel& model = mirror->model;
    QCOMPARE(model.materials(false), std::vector<TreeMaterialData*>{model.find_material(1)});
    QCOMPARE(model.materials(true), std::vector<TreeMaterialData*>{model.find_material(2)});
    QCOMPARE(model.find_material(3), nullptr);
}

void tst_TreeModel::eachChangeIsToldOnce()
{
    auto& kernel = mirror->kernel;
    kernel.relate("surface", 4, "curve", {5});
    mirror->observer().notify_surface_created(3);
    mirror->observer().notify_surface_created(4);
    kernel.relate("surface", 3, "curve", {5});
    mirror->observer().notify_surface_created(3);
    kernel.relate("surface", 3, "curve", {});
    mirror->observer().notify_surface_created(3);
    mirror->observer().notify_surface_deleted(3);
    mirror->observer().notify_model_reset();

    QCOMPARE(mirror->log.take_only({"geometry_", "about_to_clear_geometry"}),
        QStringList({"geometry_added(surface 3, null)", "geometry_added(surface 4, null)",
            "geometry_added(curve 5, surface 4)", "geometry_associated(surface 3, curve 5)",
            "geometry_disassociated(surface 3, curve 5)", "geometry_removed(surface 3)",
            "about_to_clear_geometry()"}));
}

void tst_TreeModel::changeIsToldWhereItHappens()
{
    bool found_when_added = false;
    bool found_when_removed = true;
    auto& model = mirror->model;
    connect(&model, &TreeModel::geometry_added, this, [&](TreeGeometryData* geom) {
        found_when_added = model.find_geometry(TreeGeometryData::VERTEX, 5) == geom;
    });
    connect(&model, &TreeModel::geometry_removed, this, [&](TreeGeometryData* geom) {
        found_when_removed = model.find_geometry(TreeGeometryData::VERTEX, geom->id()) != nullptr;
    });
    mirror->observer().notify_vertex_created(5);
    mirror->observer().notify_vertex_deleted(5);
    QVERIFY(found_when_added);
    QVERIFY(!found_when_removed);
}

void tst_TreeModel::clearIsToldBeforeAnyRecordIsGone()
{
    script_small_model(mirror->kernel);
    mirror->refresh();
    const QStringList before = geometry_text(mirror->model);
    QStringList seen;
    auto& model = mirror->model;
    connect(
        &model, &TreeModel::about_to_clear_geometry, this, [&] { seen = geometry_text(model); },
        static_cast<Qt::ConnectionType>(Qt::DirectConnection | Qt::SingleShotConnection));
    model.refresh_model(true);
    QCOMPARE(seen, before);
}

void tst_TreeModel::connectingRegistersAndReadsNothing()
{
    mirror->model.disconnect_from_kesto();
    script_small_model(mirror->kernel);
    mirror->log.take();

    mirror->model.connect_to_kesto();

    QCOMPARE(mirror->log.take(), QStringList("register_observer()"));
    QVERIFY(mirror->kernel.observer());
    QCOMPARE(geometry_text(mirror->model), QStringList());
}

void tst_TreeModel::connectingTwiceIsPassedOn()
{
    mirror->model.connect_to_kesto();
    QCOMPARE(mirror->log.take(), QStringList("register_observer()"));
}

void tst_TreeModel::connectedModelFollowsTheKernel()
{
    mirror->observer().notify_vertex_created(5);
    QCOMPARE(geometry_text(mirror->model), QStringList("vertex 5 'Vertex 5'"));
}

void tst_TreeModel::disconnectingEndsItAndKeepsTheMirror()
{
    mirror->observer().notify_vertex_created(5);
    mirror->log.take();

    mirror->model.disconnect_from_kesto();

    QCOMPARE(mirror->log.take(), QStringList("unregister_observer()"));
    QCOMPARE(mirror->kernel.observer(), nullptr);
    QCOMPARE(geometry_text(mirror->model), QStringList("vertex 5 'Vertex 5'"));
}

void tst_TreeModel::disconnectedModelCanBeConnectedAgain()
{
    auto* const observer = &mirror->observer();
    mirror->model.disconnect_from_kesto();
    mirror->model.connect_to_kesto();
    QCOMPARE(&mirror->observer(), observer);
}

void tst_TreeModel::destructionTellsOfTheClearThenDeletesFromTheTop()
{
    mirror.reset();
    EventLog log;
    RecordingKernel kernel(log);
    SignalRecorder recorder(log);
    kernel.entities = {{"body", {2, 1}}, {"curve", {3}}};
    auto model = std::make_unique<TreeModel>();
    recorder.watch(model.get());
    model->refresh_model(false);
    log.take();

    model.reset();

    QCOMPARE(log.take_only({"about_to_clear_geometry", "geometry_", "body ", "curve ",
                 "selection_changed", "unregister_observer"}),
        QStringList({"about_to_clear_geometry()", "body 1: treedata_destroyed(body 1)",
            "body 2: treedata_destroyed(body 2)", "curve 3: treedata_destroyed(curve 3)"}));
}

// Groups and mesh go before the geometry that they point to, the simulation last.
void tst_TreeModel::destructionGoesThroughTheModelsInOrder()
{
    mirror.reset();
    EventLog log;
    RecordingKernel kernel(log);
    SignalRecorder recorder(log);
    kernel.entities = {{"surface", {4}}};
    kernel.groups = {{"", 3}};
    kernel.group_contents = {{3, {{{{}, {}, {}, {4}, {}, {}}}, {1, 0, 1, 0, 0, 0, 0, 0, 0}}}};
    kernel.sizing_sources = {1};
    kernel.boundary_layers = {2};
    kernel.exodus_ids = {{"sideset", {5}}};
    kernel.bc_ids = {{KestoInterface::BC_FORCE, {6}}, {KestoInterface::BC_WALL, {7}}};
    kernel.sidesets_of_bc = {{{KestoInterface::BC_FORCE, 6}, {5}}};
    kernel.selection = {{"group", 3}};
    auto model = std::make_unique<TreeModel>();
    recorder.watch(model.get());
    model->refresh_model(false);
    log.take();

    model.reset();

    QCOMPARE(log.take(),
        QStringList({"about_to_clear_groups()", "group 3: treedata_destroyed(group 3)",
            "mesh_data_removed(hex of group 3, group 3)",
            "hex of group 3: treedata_destroyed(hex of group 3)",
            "mesh_data_removed(node of group 3, group 3)",
            "node of group 3: treedata_destroyed(node of group 3)",
            "about_to_clear_boundary_layers()",
            "boundary_layer 2: treedata_destroyed(boundary_layer 2)",
            "about_to_clear_sizing_sources()",
            "sizing_source 1: treedata_destroyed(sizing_source 1)", "about_to_clear_mesh_data()",
            "about_to_clear_geometry()", "surface 4: treedata_destroyed(surface 4)",
            "about_to_clear_exodus()", "sideset 5: treedata_destroyed(sideset 5)",
            "about_to_clear_fea()", "force 6: treedata_destroyed(force 6)", "about_to_clear_cfd()",
            "wall 7: treedata_destroyed(wall 7)", "about_to_clear_material()"}));
}

// What is still to go can be read, and what has gone is empty.
void tst_TreeModel::modelAnswersThroughoutItsDestruction()
{
    mirror.reset();
    EventLog log;
    RecordingKernel kernel(log);
    kernel.entities = {{"surface", {4}}};
    kernel.groups = {{"", 3}};
    kernel.group_contents = {{3, {{{{}, {}, {}, {4}, {}, {}}}, {1, 0, 0, 0, 0, 0, 0, 0, 0}}}};
    kernel.sizing_sources = {1};
    kernel.exodus_ids = {{"sideset", {5}}};
    auto model = std::make_unique<TreeModel>();
    model->refresh_model(false);
    TreeGeometryData* surface = model->find_geometry(Type::SURFACE, 4);
    QCOMPARE(model->find_groups_for_child(surface).size(), 1U);
    QStringList seen;
    const auto look = [&, queried = model.get()] {
        seen << QStringLiteral("%1 groups, %2 around the surface, %3 mesh records, %4 sources, "
                               "%5 surfaces, %6 sidesets")
                    .arg(queried->groups().size())
                    .arg(queried->find_groups_for_child(surface).size())
                    .arg(queried->mesh_data().size())
                    .arg(queried->sizing_sources().size())
                    .arg(queried->geometry(Type::SURFACE).size())
                    .arg(queried->exodus_entities(TreeExodusData::SIDESET).size());
    };
    connect(model.get(), &TreeModel::about_to_clear_groups, this, look);
    connect(model.get(), &TreeModel::about_to_clear_sizing_sources, this, look);
    connect(model.get(), &TreeModel::about_to_clear_geometry, this, look);
    connect(model.get(), &TreeModel::about_to_clear_exodus, this, look);
    connect(model.get(), &TreeModel::about_to_clear_material, this, look);

    model.reset();

    const QString row("%1 groups, %1 around the surface, %1 mesh records, %2 sources, "
                      "%3 surfaces, %4 sidesets");
    QCOMPARE(seen, QStringList({row.arg(1).arg(1).arg(1).arg(1), row.arg(0).arg(1).arg(1).arg(1),
                       row.arg(0).arg(0).arg(1).arg(1), row.arg(0).arg(0).arg(0).arg(1),
                       row.arg(0).arg(0).arg(0).arg(0)}));
}

void tst_TreeModel::refreshDuringTheDestructionIsHarmless()
{
    script_full_model(*mirror);
    auto model = std::make_unique<TreeModel>();
    model->refresh_model(false);
    int refreshes = 0;
    connect(model.get(), &TreeModel::about_to_clear_geometry, this,
        [&refreshes, refreshed = model.get()] {
            ++refreshes;
            refreshed->refresh_model(false);
        });

    model.reset();

    QCOMPARE(refreshes, 1);
}

void tst_TreeModel::outgoingConditionMayOutliveTheModel()
{
    mirror->observer().notify_bc_modified("wall", 1, "create");
    QPointer<TreeCfdBCData> wall(mirror->model.find_cfd_bc(1));
    mirror->observer().notify_bc_modified("wall", 1, "delete");
    mirror.reset();
    QVERIFY(wall);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!wall);
}

void tst_TreeModel::twoMirrorsOfOneKernelAreIndependent()
{
    TreeModel other;
    other.connect_to_kesto();
    mirror->observer().notify_vertex_created(5);
    QVERIFY2(geometry_text(other) == QStringList("vertex 5 'Vertex 5'"),
        "its observer registered last, so it is the one to be told");
    QCOMPARE(geometry_text(mirror->model), QStringList());
}

QTEST_GUILESS_MAIN(tst_TreeModel)
#include "tst_TreeModel.moc"
