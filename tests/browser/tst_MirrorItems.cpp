#include "ItemRows.hpp"
#include "ModelFindings.hpp"

#include <browser/items/CategoryManager.hpp>
#include <browser/items/KindIcons.hpp>
#include <browser/items/MirrorItems.hpp>
#include <browser/items/PropertiesView.hpp>
#include <browser/items/RecordProperties.hpp>
#include <embedded/EmbeddedKernel.hpp>
#include <embedded/TestModels.hpp>
#include <memory>
#include <QFile>
#include <QSignalSpy>
#include <QTest>
#include <treemodel/entity/EntityModel.hpp>
#include <treemodel/kernel/TreeModel.hpp>

class tst_MirrorItems : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void categoriesStandInOrderFromTheStart();
    void filledMirrorIsShown();
    void categoryTellsTheCountOfItsRows();
    void rowsFollowByThemselvesInTheEventLoop();

    void geometryHangsFromBodyToVertex();
    void sharedRecordHasOneDataAndOneNodeForEachPlace();
    void geometryWithoutAParentStandsInItsCategory();
    void geometryThatFindsAParentLeavesItsCategory();
    void geometryThatLosesItsLastParentComesToItsCategory();
    void removedGeometryGoesWithItsRows();
    void partsThatLoseTheirParentSilentlyComeToTheCategory_data();
    void partsThatLoseTheirParentSilentlyComeToTheCategory();
    void clearedGeometryLeavesOtherRows();

    void groupShowsItsMembers();
    void memberGeometryIsNotOpened();
    void memberGroupStandsInTheCategoryAndBelowItsGroup();
    void memberThatLeavesGoes();
    void removedGroupLeavesItsMembers();
    void removedMemberLeavesItsGroup();

    void elementCountsStandUnderEveryPlaceOfTheirOwner();
    void changedElementCountIsShown();
    void elementCountHasNoId();
    void elementCountsGoWithTheirOwner();

    void meshControlsStandInTheMeshCategory();
    void setsStandInTheirCategories();
    void conditionShowsItsSets();
    void setThatLeavesAConditionGoes();
    void removedSetLeavesItsConditions();
    void removedConditionLeavesItsSets();
    void materialThatBecomesAMediumMoves();

    void newNameIsShownAndMovesTheRow();
    void newIdMovesTheRow();
    void hiddenRecordIsShownSoInAllItsPlaces();
    void manyHiddenRecordsAreToldAtOnce();
    void changedFlagIsToldToViews();
    void rowsAreEditableWhereTheKernelCanRename();

    void rowOfARemovedRecordHasNoneUntilItGoes();
    void placesAreThoseOfTheRecord();
    void recordOfForeignItemsIsNull();

    void fillGivesOneItemItsChildrenAtOnce();
    void advanceDoesOneStepAtATime();
    void settledComesOncePerChange();
    void largeTreeEqualsOneBuiltAtOnce();
    void hiddenCategoryIsInOrderWhenItIsShownAgain();
    void manyPlacesOfOneRecordAreRemovedTogether();
    void mostRowsOfACategoryGoAtOnce();
    void mostMembersOfAGroupGoAtOnce();
    void mostMembersOfAGroupDieAtOnce();
    void memberThatDiesWhileItsGroupIsFilledIsNotShown();
    void destructionLeavesTheModelAsItWas();

    void kindsLieInBlocks();
    void everyKindHasAWordAndAnIcon();
    void typeNameIsTheKernelsWord();
    void sheetBodyHasAnIconOfItsOwn();

    void propertiesTellTheLinksOfARecord();
    void longListsOfLinksAreCut();
    void propertiesViewFollowsTheRecord();
    void propertiesViewForgetsRemovedRecords();
    void propertiesViewListsByKindAndId();
    void managerOffersThePropertiesView();

private:
    QStringList rows(Category category);
    EntityItem* only_place(TreeData* record);
    TreeGeometryData* geometry(TreeGeometryData::GeometryType type, int id) const;

    std::unique_ptr<EmbeddedKernel> kernel;
    std::unique_ptr<TreeModel> mirror;
    std::unique_ptr<EntityModel> items;
    std::unique_ptr<ModelFindings> findings;
    std::unique_ptr<MirrorItems> join;
};

void tst_MirrorItems::init()
{
    kernel = std::make_unique<EmbeddedKernel>();
    mirror = std::make_unique<TreeModel>();
    mirror->connect_to_kesto();
    items = std::make_unique<EntityModel>();
    findings = std::make_unique<ModelFindings>(*items);
    join = std::make_unique<MirrorItems>(*mirror, *items);
}

void tst_MirrorItems::cleanup()
{
    if (findings) {
        QCOMPARE(findings->first(), QString());
    }
    join.reset();
    findings.reset();
    items.reset();
    mirror->disconnect_from_kesto();
    mirror.reset();
    kernel.reset();
}

// What stands in a category when all is done, and without its own row.
QStringList tst_MirrorItems::rows(Category category)
{
    join->settle();
    QStringList result = ItemRows::rows(join->category(category)).mid(1);
    for (QString& row : result) {
        row.remove(0, 2);
    }
    return result;
}

EntityItem* tst_MirrorItems::only_place(TreeData* record)
{
    join->settle();
    const std::vector<EntityItem*> places = join->places(record);
    return places.size() == 1 ? places.front() : nullptr;
}

TreeGeometryData* tst_MirrorItems::geometry(TreeGeometryData::GeometryType type, int id) const
{
    return mirror->find_geometry(type, id);
}

void tst_MirrorItems::categoriesStandInOrderFromTheStart()
{
    const QStringList expected{"Geometry", "Groups", "Mesh", "Blocks", "Sidesets", "Nodesets",
        "FEA boundary conditions", "CFD boundary conditions", "Materials", "Media"};
    QStringList shown;
    for (int row = 0; row < items->rowCount(); ++row) {
        shown << items->index(row, 0).data().toString();
    }
    QCOMPARE(shown, expected);
}

void tst_MirrorItems::filledMirrorIsShown()
{
    kernel->open_model(lattice(1, 1, 1), "cube");
    kernel->create_group("Grip");
    kernel->create_condition(EntityKind::FORCE, {kernel->create_set(EntityKind::SIDESET)});
    join->settle();

    EntityModel late_items;
    MirrorItems late(*mirror, late_items);
    late.settle();

    QCOMPARE(ItemRows::rows(late_items), ItemRows::rows(*items));
    QVERIFY(late.category(Category::Geometry)->childCount() > 0);
}

void tst_MirrorItems::categoryTellsTheCountOfItsRows()
{
    EntityItem* groups = join->category(Category::Groups);
    kernel->create_group();
    kernel->create_group();
    join->settle();
    QCOMPARE(groups->getDisplayName(), "Groups (2)");

    kernel->remove(EntityKind::GROUP, 1);
    join->settle();
    QCOMPARE(groups->getDisplayName(), "Groups (1)");

    kernel->clear();
    join->settle();
    QCOMPARE(groups->getDisplayName(), "Groups");
}

void tst_MirrorItems::rowsFollowByThemselvesInTheEventLoop()
{
    join->settle();
    QSignalSpy settled(join.get(), &MirrorItems::settled);
    kernel->create_vertex();
    QVERIFY(!join->is_settled());

    QVERIFY2(settled.wait(), "No slice was run");

    QVERIFY(join->is_settled());
    QCOMPARE(join->category(Category::Geometry)->childCount(), 1);
}

void tst_MirrorItems::geometryHangsFromBodyToVertex()
{
    const int vertex = kernel->create_vertex();
    const int curve = kernel->create_curve({vertex});
    const int surface = kernel->create_surface({curve}, "Lid");
    const int volume = kernel->create_volume({surface});
    kernel->create_body({volume});

    QCOMPARE(rows(Category::Geometry),
        QStringList({"Body 1 <body 1>", "  Volume 1 <volume 1>", "    Lid <surface 1>",
            "      Curve 1 <curve 1>", "        Vertex 1 <vertex 1>"}));
}

void tst_MirrorItems::sharedRecordHasOneDataAndOneNodeForEachPlace()
{
    const int shared = kernel->create_surface();
    kernel->create_volume({shared});
    kernel->create_volume({shared});
    join->settle();

    TreeGeometryData* record = geometry(TreeGeometryData::SURFACE, shared);
    const std::vector<EntityItem*> places = join->places(record);
    QCOMPARE(places.size(), std::size_t(2));
    QVERIFY(places[0]->getParentEntity() != places[1]->getParentEntity());
    for (EntityItem* place : places) {
        QCOMPARE(place->getData(), join->data(record));
        QCOMPARE(join->record(place), record);
    }
}

void tst_MirrorItems::geometryWithoutAParentStandsInItsCategory()
{
    kernel->create_vertex("Pin");
    kernel->create_curve();
    kernel->create_body();

    QCOMPARE(rows(Category::Geometry),
        QStringList({"Body 1 <body 1>", "Curve 1 <curve 1>", "Pin <vertex 1>"}));
}

void tst_MirrorItems::geometryThatFindsAParentLeavesItsCategory()
{
    kernel->create_surface();
    kernel->create_volume();
    join->settle();

    kernel->relate(EntityKind::VOLUME, 1, 1);

    QCOMPARE(
        rows(Category::Geometry), QStringList({"Volume 1 <volume 1>", "  Surface 1 <surface 1>"}));
}

void tst_MirrorItems::geometryThatLosesItsLastParentComesToItsCategory()
{
    kernel->create_surface();
    kernel->create_volume({1});
    join->settle();

    kernel->unrelate(EntityKind::VOLUME, 1, 1);

    QCOMPARE(
        rows(Category::Geometry), QStringList({"Volume 1 <volume 1>", "Surface 1 <surface 1>"}));
}

void tst_MirrorItems::removedGeometryGoesWithItsRows()
{
    kernel->create_surface({}, "Wall");
    kernel->create_surface({}, "Shared wall");
    kernel->create_volume({1, 2});
    kernel->create_volume({2});
    join->settle();

    kernel->remove(EntityKind::VOLUME, 1);

    QCOMPARE(rows(Category::Geometry),
        QStringList({"Volume 2 <volume 2>", "  Shared wall <surface 2>"}));
}

void tst_MirrorItems::partsThatLoseTheirParentSilentlyComeToTheCategory_data()
{
    QTest::addColumn<int>("steps");
    for (int steps = 0; steps < 8; ++steps) {
        QTest::addRow("after %d steps", steps) << steps;
    }
}

// The volume dies without a word about its surface, which lives a moment longer.
void tst_MirrorItems::partsThatLoseTheirParentSilentlyComeToTheCategory()
{
    QFETCH(int, steps);
    kernel->create_volume();
    join->settle();
    kernel->create_surface();
    kernel->relate(EntityKind::VOLUME, 1, 1);
    while (steps > 0 && join->advance(QDeadlineTimer(0))) {
        --steps;
    }
    QStringList inside;
    connect(mirror.get(), &TreeModel::geometry_removed, this, [&](TreeGeometryData* record) {
        if (record->geometry_type() == TreeGeometryData::VOLUME) {
            inside = rows(Category::Geometry);
        }
    });

    kernel->remove(EntityKind::VOLUME, 1);

    QCOMPARE(inside, QStringList("Surface 1 <surface 1>"));
    QCOMPARE(rows(Category::Geometry), QStringList());
    mirror->disconnect(this);
}

void tst_MirrorItems::clearedGeometryLeavesOtherRows()
{
    kernel->open_model(lattice(2, 2, 2), "cubes");
    join->settle();

    kernel->replace_model(loose_ends());

    join->settle();
    EntityModel fresh_items;
    MirrorItems fresh(*mirror, fresh_items);
    fresh.settle();
    QCOMPARE(ItemRows::rows(*items), ItemRows::rows(fresh_items));
}

void tst_MirrorItems::groupShowsItsMembers()
{
    kernel->create_vertex("Pin");
    kernel->create_surface({}, "Lid");
    const int group = kernel->create_group("Grip");
    kernel->add_to_group(group, EntityKind::VERTEX, {1});
    kernel->add_to_group(group, EntityKind::SURFACE, {1});

    QCOMPARE(rows(Category::Groups),
        QStringList({"Grip <group 1>", "  Lid <surface 1>", "  Pin <vertex 1>"}));
}

void tst_MirrorItems::memberGeometryIsNotOpened()
{
    kernel->create_surface();
    kernel->create_volume({1});
    kernel->add_to_group(kernel->create_group("Grip"), EntityKind::VOLUME, {1});

    QCOMPARE(rows(Category::Groups), QStringList({"Grip <group 1>", "  Volume 1 <volume 1>"}));
}

void tst_MirrorItems::memberGroupStandsInTheCategoryAndBelowItsGroup()
{
    kernel->create_vertex("Pin");
    kernel->create_group("Inner");
    kernel->create_group("Outer");
    kernel->add_to_group(1, EntityKind::VERTEX, {1});
    kernel->add_to_group(2, EntityKind::GROUP, {1});

    QCOMPARE(
        rows(Category::Groups), QStringList({"Inner <group 1>", "  Pin <vertex 1>",
                                    "Outer <group 2>", "  Inner <group 1>", "    Pin <vertex 1>"}));
}

void tst_MirrorItems::memberThatLeavesGoes()
{
    kernel->create_vertex("Pin");
    kernel->create_vertex("Bolt");
    kernel->create_group("Grip");
    kernel->add_to_group(1, EntityKind::VERTEX, {1, 2});
    join->settle();

    kernel->remove_from_group(1, EntityKind::VERTEX, {1});

    QCOMPARE(rows(Category::Groups), QStringList({"Grip <group 1>", "  Bolt <vertex 2>"}));
}

void tst_MirrorItems::removedGroupLeavesItsMembers()
{
    kernel->create_vertex("Pin");
    kernel->create_group("Inner");
    kernel->create_group("Outer");
    kernel->add_to_group(1, EntityKind::VERTEX, {1});
    kernel->add_to_group(2, EntityKind::GROUP, {1});
    join->settle();

    kernel->remove(EntityKind::GROUP, 1);

    QCOMPARE(rows(Category::Groups), QStringList("Outer <group 2>"));
    QCOMPARE(rows(Category::Geometry), QStringList("Pin <vertex 1>"));
}

void tst_MirrorItems::removedMemberLeavesItsGroup()
{
    kernel->create_vertex("Pin");
    kernel->create_group("Grip");
    kernel->add_to_group(1, EntityKind::VERTEX, {1});
    join->settle();

    kernel->remove(EntityKind::VERTEX, 1);

    QCOMPARE(rows(Category::Groups), QStringList("Grip <group 1>"));
}

void tst_MirrorItems::elementCountsStandUnderEveryPlaceOfTheirOwner()
{
    kernel->create_group("Inner");
    kernel->create_group("Outer");
    kernel->add_to_group(2, EntityKind::GROUP, {1});
    join->settle();

    ElementCounts counts;
    counts.hexes = 12;
    counts.nodes = 1;
    kernel->set_element_counts(1, counts);

    QCOMPARE(rows(Category::Groups),
        QStringList(
            {"Inner <group 1>", "  12 hex elements <hex 0>", "  1 node <node 0>", "Outer <group 2>",
                "  Inner <group 1>", "    12 hex elements <hex 0>", "    1 node <node 0>"}));
}

void tst_MirrorItems::changedElementCountIsShown()
{
    kernel->create_group("Grip");
    ElementCounts counts;
    counts.hexes = 12;
    kernel->set_element_counts(1, counts);
    join->settle();

    counts.hexes = 1;
    kernel->set_element_counts(1, counts);

    QCOMPARE(rows(Category::Groups), QStringList({"Grip <group 1>", "  1 hex element <hex 0>"}));
}

void tst_MirrorItems::elementCountHasNoId()
{
    kernel->create_group("Grip");
    ElementCounts counts;
    counts.nodes = 5;
    kernel->set_element_counts(1, counts);

    EntityItem* place = only_place(mirror->mesh_data().front());

    QVERIFY(place);
    QVERIFY(!items->index(place).siblingAtColumn(1).data().isValid());
}

void tst_MirrorItems::elementCountsGoWithTheirOwner()
{
    kernel->create_group("Grip");
    ElementCounts counts;
    counts.hexes = 12;
    kernel->set_element_counts(1, counts);
    join->settle();

    kernel->remove(EntityKind::GROUP, 1);

    QCOMPARE(rows(Category::Groups), QStringList());
}

void tst_MirrorItems::meshControlsStandInTheMeshCategory()
{
    kernel->create_boundary_layer();
    kernel->create_sizing_source();
    kernel->create_sizing_source();
    QCOMPARE(rows(Category::Mesh),
        QStringList({"Sizing Source 1 <sizing source 1>", "Sizing Source 2 <sizing source 2>",
            "Boundary Layer <boundary layer 1>"}));

    kernel->remove(EntityKind::SIZING_SOURCE, 1);
    kernel->remove(EntityKind::BOUNDARY_LAYER, 1);
    QCOMPARE(rows(Category::Mesh), QStringList("Sizing Source 2 <sizing source 2>"));

    kernel->clear();
    QCOMPARE(rows(Category::Mesh), QStringList());
}

void tst_MirrorItems::setsStandInTheirCategories()
{
    kernel->create_set(EntityKind::BLOCK, "Steel");
    kernel->create_set(EntityKind::SIDESET);
    kernel->create_set(EntityKind::NODESET);

    QCOMPARE(rows(Category::Blocks), QStringList("Steel <block 1>"));
    QCOMPARE(rows(Category::Sidesets), QStringList("Sideset 1 <sideset 1>"));
    QCOMPARE(rows(Category::Nodesets), QStringList("Nodeset 1 <nodeset 1>"));

    kernel->clear();
    QCOMPARE(rows(Category::Blocks), QStringList());
}

void tst_MirrorItems::conditionShowsItsSets()
{
    kernel->create_set(EntityKind::SIDESET);
    kernel->create_set(EntityKind::NODESET);
    kernel->create_condition(EntityKind::FORCE, {1}, {1}, "Push");
    kernel->create_condition(EntityKind::WALL, {1});

    QCOMPARE(rows(Category::FeaConditions),
        QStringList({"Push <force 1>", "  Sideset 1 <sideset 1>", "  Nodeset 1 <nodeset 1>"}));
    QCOMPARE(
        rows(Category::CfdConditions), QStringList({"cfd_bc <wall 1>", "  Sideset 1 <sideset 1>"}));
    QCOMPARE(rows(Category::Sidesets), QStringList("Sideset 1 <sideset 1>"));
}

void tst_MirrorItems::setThatLeavesAConditionGoes()
{
    kernel->create_set(EntityKind::SIDESET);
    kernel->create_set(EntityKind::NODESET);
    kernel->create_condition(EntityKind::FORCE, {1}, {}, "Push");
    kernel->create_condition(EntityKind::WALL, {1}, {}, "Duct");
    join->settle();

    kernel->set_condition_sets(EntityKind::FORCE, 1, {}, {1});
    kernel->set_condition_sets(EntityKind::WALL, 1, {}, {1});

    QCOMPARE(
        rows(Category::FeaConditions), QStringList({"Push <force 1>", "  Nodeset 1 <nodeset 1>"}));
    QCOMPARE(
        rows(Category::CfdConditions), QStringList({"Duct <wall 1>", "  Nodeset 1 <nodeset 1>"}));
}

void tst_MirrorItems::removedSetLeavesItsConditions()
{
    kernel->create_set(EntityKind::SIDESET);
    kernel->create_condition(EntityKind::FORCE, {1}, {}, "Push");
    join->settle();

    kernel->remove(EntityKind::SIDESET, 1);

    QCOMPARE(rows(Category::FeaConditions), QStringList("Push <force 1>"));
    QCOMPARE(rows(Category::Sidesets), QStringList());
}

void tst_MirrorItems::removedConditionLeavesItsSets()
{
    kernel->create_set(EntityKind::SIDESET);
    kernel->create_condition(EntityKind::FORCE, {1});
    kernel->create_condition(EntityKind::WALL, {1});
    join->settle();

    kernel->remove(EntityKind::FORCE, 1);
    kernel->remove(EntityKind::WALL, 1);

    QCOMPARE(rows(Category::FeaConditions), QStringList());
    QCOMPARE(rows(Category::CfdConditions), QStringList());
    QCOMPARE(rows(Category::Sidesets), QStringList("Sideset 1 <sideset 1>"));
}

void tst_MirrorItems::materialThatBecomesAMediumMoves()
{
    kernel->create_material("Brass");
    QCOMPARE(rows(Category::Materials), QStringList("Brass <material 1>"));

    kernel->change_kind(EntityKind::MATERIAL, 1, EntityKind::MEDIUM);

    QCOMPARE(rows(Category::Materials), QStringList());
    QCOMPARE(rows(Category::Media), QStringList("Brass <media 1>"));
}

void tst_MirrorItems::newNameIsShownAndMovesTheRow()
{
    items->sort(0);
    kernel->create_vertex("Pin");
    kernel->create_vertex("Bolt");
    QCOMPARE(rows(Category::Geometry), QStringList({"Bolt <vertex 2>", "Pin <vertex 1>"}));

    kernel->rename(EntityKind::VERTEX, 1, "Axle");
    QCOMPARE(rows(Category::Geometry), QStringList({"Axle <vertex 1>", "Bolt <vertex 2>"}));

    kernel->rename(EntityKind::VERTEX, 1, "");
    QCOMPARE(rows(Category::Geometry), QStringList({"Bolt <vertex 2>", "Vertex 1 <vertex 1>"}));
}

void tst_MirrorItems::newIdMovesTheRow()
{
    kernel->create_vertex("Pin");
    kernel->create_vertex("Bolt");
    join->settle();

    kernel->renumber(EntityKind::VERTEX, 1, 7);

    QCOMPARE(rows(Category::Geometry), QStringList({"Bolt <vertex 2>", "Pin <vertex 7>"}));
}

void tst_MirrorItems::hiddenRecordIsShownSoInAllItsPlaces()
{
    kernel->create_vertex("Pin");
    kernel->create_group("Grip");
    kernel->add_to_group(1, EntityKind::VERTEX, {1});
    join->settle();
    QSignalSpy changes(items.get(), &QAbstractItemModel::dataChanged);

    kernel->set_visible(EntityKind::VERTEX, 1, false);

    QCOMPARE(rows(Category::Geometry), QStringList("Pin <vertex 1> hidden"));
    QCOMPARE(rows(Category::Groups), QStringList({"Grip <group 1>", "  Pin <vertex 1> hidden"}));
    QCOMPARE(changes.size(), 2);
}

void tst_MirrorItems::manyHiddenRecordsAreToldAtOnce()
{
    findings.reset(); // Slow on many rows
    constexpr int count = 500;
    for (int id = 1; id <= count; ++id) {
        kernel->create_vertex();
    }
    join->settle();
    QSignalSpy changes(items.get(), &QAbstractItemModel::dataChanged);

    for (int id = 1; id <= count; ++id) {
        kernel->set_visible(EntityKind::VERTEX, id, false);
    }
    join->settle();

    QCOMPARE(changes.size(), 1);
    const QModelIndex category = items->index(join->category(Category::Geometry));
    QCOMPARE(changes[0][0].toModelIndex(), items->index(0, 0, category));
    QCOMPARE(changes[0][1].toModelIndex(), items->index(count - 1, 1, category));
}

void tst_MirrorItems::changedFlagIsToldToViews()
{
    const int body = kernel->create_sheet_body();
    TreeGeometryData* record = geometry(TreeGeometryData::BODY, body);
    EntityItem* place = only_place(record);
    QVERIFY(place);
    QSignalSpy changes(items.get(), &QAbstractItemModel::dataChanged);

    kernel->set_sheet(1, false);
    join->settle();

    const bool is_told = std::any_of(changes.begin(), changes.end(),
        [&](const auto& change) { return change[0].toModelIndex() == items->index(place); });
    QVERIFY(is_told);
}

void tst_MirrorItems::rowsAreEditableWhereTheKernelCanRename()
{
    kernel->create_vertex();
    kernel->create_sizing_source();
    join->settle();

    const auto is_editable = [&](EntityItem* item) {
        return items->flags(items->index(item)).testFlag(Qt::ItemIsEditable);
    };
    QVERIFY(is_editable(only_place(geometry(TreeGeometryData::VERTEX, 1))));
    QVERIFY(!is_editable(only_place(mirror->find_sizing_source(1))));
    QVERIFY(!is_editable(join->category(Category::Geometry)));
}

void tst_MirrorItems::rowOfARemovedRecordHasNoneUntilItGoes()
{
    kernel->create_vertex("Pin");
    EntityItem* place = only_place(geometry(TreeGeometryData::VERTEX, 1));
    QVERIFY(place);

    kernel->remove(EntityKind::VERTEX, 1);

    QCOMPARE(join->record(place), nullptr);
    QCOMPARE(place->getDisplayName(), "Pin");
    QVERIFY(items->index(place).isValid());
    QCOMPARE(rows(Category::Geometry), QStringList());
}

void tst_MirrorItems::placesAreThoseOfTheRecord()
{
    kernel->create_vertex();
    TreeGeometryData* record = geometry(TreeGeometryData::VERTEX, 1);
    QCOMPARE(join->places(record).size(), std::size_t(0));
    QCOMPARE(join->data(record), nullptr);

    join->settle();

    QCOMPARE(join->places(record).size(), std::size_t(1));
    QCOMPARE(join->places(nullptr).size(), std::size_t(0));
    QCOMPARE(join->data(nullptr), nullptr);
}

void tst_MirrorItems::recordOfForeignItemsIsNull()
{
    SimpleItem other("other", 0, nullptr);
    QCOMPARE(join->record(&other), nullptr);
    QCOMPARE(join->record(nullptr), nullptr);
    QCOMPARE(join->record(join->category(Category::Mesh)), nullptr);
}

void tst_MirrorItems::fillGivesOneItemItsChildrenAtOnce()
{
    findings.reset(); // Slow on many rows
    kernel->open_model(lattice(40, 1, 1), "bar");
    while (join->places(geometry(TreeGeometryData::BODY, 1)).empty()) {
        QVERIFY(join->advance(QDeadlineTimer(0)));
    }
    EntityItem* body = join->places(geometry(TreeGeometryData::BODY, 1)).front();
    QVERIFY(!join->is_settled());
    EntityItem* last_curve = body;
    while (last_curve->getType() != int(ItemKind::Curve)) {
        last_curve = last_curve->getChild(last_curve->childCount() - 1);
        QVERIFY(last_curve);
    }
    QCOMPARE(last_curve->childCount(), 0);

    join->fill(last_curve);

    QCOMPARE(last_curve->childCount(), 2);
    QVERIFY(!join->is_settled());
}

void tst_MirrorItems::advanceDoesOneStepAtATime()
{
    join->settle();
    kernel->create_vertex();
    kernel->create_vertex();

    QVERIFY(join->advance(QDeadlineTimer(0)));
    QCOMPARE(join->category(Category::Geometry)->childCount(), 1);
    QVERIFY(!join->advance(QDeadlineTimer(0)));
    QCOMPARE(join->category(Category::Geometry)->childCount(), 2);
}

void tst_MirrorItems::settledComesOncePerChange()
{
    join->settle();
    QSignalSpy settled(join.get(), &MirrorItems::settled);

    join->settle();
    QCOMPARE(settled.size(), 0);

    kernel->create_vertex();
    kernel->create_vertex();
    while (join->advance(QDeadlineTimer(0))) {}
    QCOMPARE(settled.size(), 1);
}

// Larger than what is added as one tree, so that parts of it are left to the queue.
void tst_MirrorItems::largeTreeEqualsOneBuiltAtOnce()
{
    findings.reset(); // Slow on many rows
    kernel->open_model(lattice(60, 1, 1), "bar");
    EntityModel other_items;
    MirrorItems other(*mirror, other_items);
    other.settle();
    items->sort(0, Qt::DescendingOrder);

    while (join->advance(QDeadlineTimer(0))) {}

    QCOMPARE(ItemRows::fault(*join, 0, Qt::DescendingOrder), QString());
    QCOMPARE(ItemRows::sorted_rows(*items), ItemRows::sorted_rows(other_items));
    QCOMPARE(join->places(geometry(TreeGeometryData::VERTEX, 1)).size(), std::size_t(6));
}

void tst_MirrorItems::hiddenCategoryIsInOrderWhenItIsShownAgain()
{
    EntityItem* category = join->category(Category::Geometry);
    kernel->create_vertex("Pin");
    kernel->create_vertex("Bolt");
    join->settle();

    items->hideCategory(category);
    items->sort(0);
    kernel->create_vertex("Cam");
    kernel->rename(EntityKind::VERTEX, 2, "Zip");
    join->settle();
    items->showCategory(category);

    QCOMPARE(rows(Category::Geometry),
        QStringList({"Cam <vertex 3>", "Pin <vertex 1>", "Zip <vertex 2>"}));
}

void tst_MirrorItems::manyPlacesOfOneRecordAreRemovedTogether()
{
    findings.reset(); // Slow on many rows
    constexpr int groups = 300;
    kernel->create_vertex("Pin");
    for (int id = 1; id <= groups; ++id) {
        kernel->create_group();
        kernel->add_to_group(id, EntityKind::VERTEX, {1});
    }
    join->settle();
    TreeGeometryData* pin = geometry(TreeGeometryData::VERTEX, 1);
    QCOMPARE(join->places(pin).size(), std::size_t(groups + 1));

    for (int id = 1; id <= groups; id += 2) {
        kernel->remove_from_group(id, EntityKind::VERTEX, {1});
    }
    while (join->advance(QDeadlineTimer(0))) {
        for (EntityItem* place : join->places(pin)) {
            QCOMPARE(place->getData(), join->data(pin));
        }
    }
    QCOMPARE(join->places(pin).size(), std::size_t(groups / 2 + 1));

    kernel->rename(EntityKind::VERTEX, 1, "Bolt");
    kernel->remove(EntityKind::GROUP, 2);
    QCOMPARE(rows(Category::Groups).mid(0, 3),
        QStringList({"Entity 1 <group 1>", "Entity 3 <group 3>", "Entity 4 <group 4>"}));
    QCOMPARE(join->places(pin).size(), std::size_t(groups / 2));

    kernel->remove(EntityKind::VERTEX, 1);
    QCOMPARE(rows(Category::Groups).size(), groups - 1);
}

// All rows go and those that stay come back, which costs less than to find so many rows.
void tst_MirrorItems::mostRowsOfACategoryGoAtOnce()
{
    findings.reset(); // Slow on many rows
    constexpr int count = 6'000;
    for (int id = 1; id <= count; ++id) {
        kernel->create_vertex();
    }
    join->settle();
    QSignalSpy removals(items.get(), &QAbstractItemModel::rowsRemoved);

    for (int id = 1; id <= count - 3; ++id) {
        kernel->remove(EntityKind::VERTEX, id);
    }

    QCOMPARE(
        rows(Category::Geometry), QStringList({"Vertex 5998 <vertex 5998>",
                                      "Vertex 5999 <vertex 5999>", "Vertex 6000 <vertex 6000>"}));
    QCOMPARE(removals.size(), 1);
}

void tst_MirrorItems::mostMembersOfAGroupGoAtOnce()
{
    findings.reset(); // Slow on many rows
    std::vector<int> vertices;
    for (int id = 1; id <= 6'000; ++id) {
        vertices.push_back(kernel->create_vertex());
    }
    kernel->add_to_group(kernel->create_group("Grip"), EntityKind::VERTEX, vertices);
    join->settle();
    QSignalSpy removals(items.get(), &QAbstractItemModel::rowsRemoved);

    vertices.resize(5'999);
    kernel->remove_from_group(1, EntityKind::VERTEX, vertices);

    QCOMPARE(
        rows(Category::Groups), QStringList({"Grip <group 1>", "  Vertex 6000 <vertex 6000>"}));
    QCOMPARE(removals.size(), 1);
}

void tst_MirrorItems::mostMembersOfAGroupDieAtOnce()
{
    findings.reset(); // Slow on many rows
    std::vector<int> vertices;
    for (int id = 1; id <= 6'000; ++id) {
        vertices.push_back(kernel->create_vertex());
    }
    kernel->add_to_group(kernel->create_group("Grip"), EntityKind::VERTEX, vertices);
    vertices.resize(5'999);
    kernel->create_curve(vertices);
    join->settle();

    kernel->remove(EntityKind::CURVE, 1);

    QCOMPARE(
        rows(Category::Groups), QStringList({"Grip <group 1>", "  Vertex 6000 <vertex 6000>"}));
}

// The members have no other row than that in the group: their curve is filled after it.
void tst_MirrorItems::memberThatDiesWhileItsGroupIsFilledIsNotShown()
{
    kernel->create_group("Grip");
    kernel->create_curve();
    join->settle();
    EntityItem* group = only_place(mirror->find_group(1));
    for (int id = 1; id <= 3; ++id) {
        kernel->create_vertex();
        kernel->add_to_group(1, EntityKind::VERTEX, {id});
        kernel->relate(EntityKind::CURVE, 1, id);
    }
    while (group->childCount() == 0) {
        QVERIFY(join->advance(QDeadlineTimer(0)));
    }
    QCOMPARE(group->childCount(), 1);
    QCOMPARE(join->data(geometry(TreeGeometryData::VERTEX, 3)), nullptr);

    kernel->remove(EntityKind::VERTEX, 3);

    QCOMPARE(rows(Category::Groups),
        QStringList({"Grip <group 1>", "  Vertex 1 <vertex 1>", "  Vertex 2 <vertex 2>"}));
}

void tst_MirrorItems::destructionLeavesTheModelAsItWas()
{
    EntityModel other_items;
    other_items.addEntity(nullptr, new SimpleItem("mine", 1, nullptr));
    kernel->open_model(lattice(2, 2, 2), "cubes");
    {
        MirrorItems other(*mirror, other_items);
        other.settle();
        QCOMPARE(other_items.rowCount(), category_count + 1);
        kernel->remove(EntityKind::BODY, 1);
    }
    QCOMPARE(other_items.rowCount(), 1);
    QCOMPARE(other_items.index(0, 0).data().toString(), "mine");
}

void tst_MirrorItems::kindsLieInBlocks()
{
    const EntityTypeRange blocks = item_kind_blocks();
    QCOMPARE(blocks.get_number_of_ranges(), std::size_t(8));
    QCOMPARE(blocks.next_offset(), item_kind_count);
    QVERIFY(blocks.in_range(int(ItemKind::Vertex), 0));
    QVERIFY(blocks.in_range(int(ItemKind::Group), 1));
    QVERIFY(blocks.in_range(int(ItemKind::BoundaryLayer), 2));
    QVERIFY(blocks.in_range(int(ItemKind::Sideset), 3));
    QVERIFY(blocks.in_range(int(ItemKind::Force), 4));
    QVERIFY(blocks.in_range(int(ItemKind::Wall), 5));
    QVERIFY(blocks.in_range(int(ItemKind::Medium), 6));
    QVERIFY(blocks.in_range(int(ItemKind::FirstCategory), 7));
}

void tst_MirrorItems::everyKindHasAWordAndAnIcon()
{
    const KindIcons icons;
    for (int kind = 0; kind < item_kind_count; ++kind) {
        const ItemKindInfo& info = item_kind_info(ItemKind(kind));
        QVERIFY2(!info.word.empty(), qPrintable(QString::number(kind)));
        QVERIFY2(!info.plural.isEmpty(), info.word.c_str());
        QVERIFY2(QFile::exists(QString::fromStdString(info.icon)), info.icon.c_str());
    }
    QVERIFY(QFile::exists(":/kestogui/light/invisible.svg"));
}

void tst_MirrorItems::typeNameIsTheKernelsWord()
{
    kernel->create_condition(EntityKind::CONTACT_PAIR);
    kernel->create_condition(EntityKind::VELOCITYINLET);
    join->settle();

    const auto word = [&](TreeData* record) {
        return QString::fromStdString(join->get_type_name(only_place(record)->getType()));
    };
    QCOMPARE(word(mirror->find_fea_bc(TreeFeaBCData::CONTACT_PAIR, 1)), "contact pair");
    QCOMPARE(word(mirror->find_cfd_bc(1)), "velocityinlet");
}

void tst_MirrorItems::sheetBodyHasAnIconOfItsOwn()
{
    kernel->create_sheet_body();
    kernel->create_body();
    join->settle();
    KindIcons icons;

    EntityItem* sheet = only_place(geometry(TreeGeometryData::BODY, 1));
    EntityItem* solid = only_place(geometry(TreeGeometryData::BODY, 2));
    QCOMPARE(QString(icons.getIconPath(sheet)), ":/treebrowser/icons/sheet-body.svg");
    QCOMPARE(QString(icons.getIconPath(solid)), ":/treebrowser/icons/body.svg");

    items->setIcons(&icons);
    QVERIFY(!items->index(solid).data(Qt::DecorationRole).value<QIcon>().isNull());
    items->setIcons(nullptr);
}

void tst_MirrorItems::propertiesTellTheLinksOfARecord()
{
    kernel->create_curve();
    kernel->create_surface({1}, "Lid");
    kernel->create_volume({1});
    kernel->create_volume({1});
    kernel->add_to_group(kernel->create_group("Grip"), EntityKind::SURFACE, {1});
    kernel->set_virtual(EntityKind::SURFACE, 1, true);

    QCOMPARE(record_properties(*mirror, geometry(TreeGeometryData::SURFACE, 1)),
        QList<RecordProperty>({{"Name", "Lid (v)"}, {"Kind", "surface"}, {"Id", "1"},
            {"Visible", "yes"}, {"Flags", "virtual"}, {"Parents", "Volume 1 (v), Volume 2 (v)"},
            {"Children", "Curve 1"}, {"Groups", "Grip"}}));

    kernel->create_set(EntityKind::SIDESET);
    kernel->create_condition(EntityKind::FORCE, {1}, {}, "Push");
    kernel->create_condition(EntityKind::WALL, {1}, {}, "Duct");
    QCOMPARE(
        record_properties(*mirror, mirror->find_exodus(TreeExodusData::SIDESET, 1)).constLast(),
        RecordProperty({"Conditions", "Push, Duct"}));
}

void tst_MirrorItems::longListsOfLinksAreCut()
{
    std::vector<int> vertices;
    for (int id = 1; id <= 15; ++id) {
        vertices.push_back(kernel->create_vertex());
    }
    kernel->create_curve(vertices);

    const QString children =
        record_properties(*mirror, geometry(TreeGeometryData::CURVE, 1)).constLast().value;

    QVERIFY2(children.startsWith("Vertex 1, Vertex 2, "), qPrintable(children));
    QVERIFY2(children.endsWith("Vertex 12, and 3 more"), qPrintable(children));
}

void tst_MirrorItems::propertiesViewFollowsTheRecord()
{
    kernel->create_vertex("Pin");
    EntityItem* place = only_place(geometry(TreeGeometryData::VERTEX, 1));
    PropertiesView view(*join);
    view.show();
    view.show_items({place, join->category(Category::Geometry), place});
    QCOMPARE(view.topLevelItemCount(), 1);
    QCOMPARE(view.topLevelItem(0)->text(0), "Pin");

    kernel->rename(EntityKind::VERTEX, 1, "Bolt");
    join->settle();

    QCOMPARE(view.topLevelItem(0)->text(0), "Bolt");
}

void tst_MirrorItems::propertiesViewForgetsRemovedRecords()
{
    kernel->create_vertex("Pin");
    PropertiesView view(*join);
    view.show();
    view.show_items({only_place(geometry(TreeGeometryData::VERTEX, 1))});
    QCOMPARE(view.topLevelItemCount(), 1);

    kernel->remove(EntityKind::VERTEX, 1);
    join->settle();

    QCOMPARE(view.topLevelItemCount(), 0);
}

void tst_MirrorItems::propertiesViewListsByKindAndId()
{
    kernel->create_vertex("Pin");
    kernel->create_vertex("Tip");
    kernel->create_curve({}, "Edge");
    PropertiesView view(*join);
    view.show();
    view.show_items({only_place(geometry(TreeGeometryData::VERTEX, 2)),
        only_place(geometry(TreeGeometryData::CURVE, 1)),
        only_place(geometry(TreeGeometryData::VERTEX, 1))});

    QStringList names;
    for (int row = 0; row < view.topLevelItemCount(); ++row) {
        names << view.topLevelItem(row)->text(0);
    }
    QCOMPARE(names, QStringList({"Edge", "Pin", "Tip"}));
}

void tst_MirrorItems::managerOffersThePropertiesView()
{
    kernel->create_vertex("Pin");
    EntityItem* place = only_place(geometry(TreeGeometryData::VERTEX, 1));
    CategoryManager manager(*join);
    QCOMPARE(manager.get_number_of_views(), 1);
    QString label;
    manager.get_view_label(0, label);
    QCOMPARE(label, "Properties");
    QCOMPARE(manager.type_blocks().next_offset(), item_kind_count);

    bool follows_selection = false;
    QCOMPARE(manager.create_view_widget(1, follows_selection), nullptr);
    QVERIFY(!follows_selection);
    const std::unique_ptr<QWidget> widget(manager.create_view_widget(0, follows_selection));
    QVERIFY(follows_selection);
    auto* view = qobject_cast<PropertiesView*>(widget.get());
    QVERIFY(view);
    view->show();

    manager.activate_view(0, view, {place});
    QCOMPARE(view->topLevelItemCount(), 1);
    manager.deactivate_view(0);
    QCOMPARE(view->topLevelItemCount(), 0);
}

QTEST_MAIN(tst_MirrorItems)
#include "tst_MirrorItems.moc"
