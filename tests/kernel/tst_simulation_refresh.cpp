#include <memory>
#include <QCoreApplication>
#include <QRegularExpression>
#include <QTest>
#include <support/FullModel.hpp>
#include <support/MirrorText.hpp>

namespace {

constexpr int force_code = 5;
constexpr int wall_code = 32;
constexpr int axis_code = 11;

// What a component of the kernel may be that is not the one for materials.
class OtherComponent : public KestoInterface::KestoBaseInterface
{
};

} // namespace

class tst_simulation_refresh : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void emptyKernelIsAskedForEachKindInOrder();
    void emptyKernelEndsEverything();
    void setsAreAddedAndReadInTheKernelsOrder_data() { each_set(); }
    void setsAreAddedAndReadInTheKernelsOrder();
    void vanishedSetsGoAscendingAfterTheNewOnes_data() { each_set(); }
    void vanishedSetsGoAscendingAfterTheNewOnes();
    void oneKindOfSetIsFinishedBeforeTheNext();
    void knownSetIsReadAgain();

    void conditionsAreAddedAndReadInTheKernelsOrder_data() { each_condition(); }
    void conditionsAreAddedAndReadInTheKernelsOrder();
    void vanishedConditionsGoAscendingAfterTheNewOnes_data() { each_condition(); }
    void vanishedConditionsGoAscendingAfterTheNewOnes();
    void conditionFindsTheSetOfTheSameRefresh();
    void vanishedSetHasLeftItsConditionBeforeThatIsRead();
    void conditionsVisibilityIsNotRead();
    void fluidIdOfTwoKindsKeepsTheFirst();
    void fluidConditionOfAnotherKindGoesAndComesWithTheNextRefresh();

    void materialsAreAddedAsMaterialsThenCorrected();
    void knownMaterialTellsItsFlagAgain();
    void materialTurnsIntoAMedium();
    void vanishedMaterialsGoAscendingTogetherWithTheMedia();
    void repeatedMaterialIsReadAgain();
    void missingComponentEndsAllMaterialsAlone_data();
    void missingComponentEndsAllMaterialsAlone();

    void steadyRefreshTellsVisibilityAndFlagsAlone();
    void selectionOfTheDomainGoesOutTogether();

private:
    void each_set();
    void each_condition();
    QStringList refresh();

    std::unique_ptr<FullMirror> mirror;
};

void tst_simulation_refresh::init()
{
    mirror = std::make_unique<FullMirror>();
}

void tst_simulation_refresh::cleanup()
{
    mirror.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void tst_simulation_refresh::each_set()
{
    QTest::addColumn<QString>("word");
    for (const char* word : {"block", "sideset", "nodeset"}) {
        QTest::newRow(word) << QString(word);
    }
}

void tst_simulation_refresh::each_condition()
{
    QTest::addColumn<QString>("word");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("kind");
    QTest::newRow("force") << "force" << force_code << "fea_bc";
    QTest::newRow("contact pair") << "contact pair" << 40 << "fea_bc";
    QTest::newRow("axis") << "axis" << axis_code << "cfd_bc";
    QTest::newRow("wall") << "wall" << wall_code << "cfd_bc";
}

// The events of a refresh from the blocks on.
QStringList tst_simulation_refresh::refresh()
{
    mirror->model.refresh_model(false);
    const QStringList events = mirror->log.take();
    return events.mid(events.indexOf("get_block_id_list()"));
}

void tst_simulation_refresh::emptyKernelIsAskedForEachKindInOrder()
{
    QStringList expected{"get_block_id_list()", "get_sideset_id_list()", "get_nodeset_id_list()"};
    for (const int code : {5, 1, 2, 6, 4, 3, 7, 8, 9, 10, 40}) {
        expected << QString("get_bc_id_list(%1)").arg(code);
    }
    for (int code = 11; code <= 32; ++code) {
        expected << QString("get_bc_id_list(%1)").arg(code);
    }
    expected << "get_interface(Material)"
             << "material_ids()"
             << "current_selection_count()";
    QCOMPARE(refresh(), expected);
}

void tst_simulation_refresh::emptyKernelEndsEverything()
{
    script_full_model(*mirror);
    mirror->refresh();
    mirror->kernel.exodus_ids.clear();
    mirror->kernel.bc_ids.clear();
    mirror->materials.materials.clear();

    const QStringList events = refresh();

    QCOMPARE(events.filter("_removed(").size(), 6 + 6 + 2);
    QVERIFY(events.filter("_added(").isEmpty());
    QVERIFY2(events.filter("exodus_removed_from").isEmpty(), "links end in silence");
    QCOMPARE(mirror_text(mirror->model).constLast(),
        "mesh records: edge, hex, node, pyramid, quad, "
        "sphere, tet, tet, tri, wedge");
}

void tst_simulation_refresh::setsAreAddedAndReadInTheKernelsOrder()
{
    QFETCH(QString, word);
    const std::string kernel_word = word.toStdString();
    mirror->kernel.exodus_ids[kernel_word] = {5, 2};
    mirror->kernel.exodus_names[{kernel_word, 5}] = "F\xC3\xBCnf";
    mirror->kernel.hidden = {{kernel_word, 5}};
    const QString list = "get_" + word + "_id_list()";
    QStringList events = refresh();
    events = events.mid(events.indexOf(list), 9);
    QStringList expected{list, "exodus_entity_added(%1 5)", "get_exodus_entity_name(%1, 5)",
        QString::fromUtf8("%1 5: name_changed(F\xC3\xBCnf)"), "is_visible(%1, 5)",
        "%1 5: visible_changed(false)", "exodus_entity_added(%1 2)",
        "get_exodus_entity_name(%1, 2)", "is_visible(%1, 2)"};
    expected.replaceInStrings("%1", word);
    QCOMPARE(events, expected);
}

void tst_simulation_refresh::vanishedSetsGoAscendingAfterTheNewOnes()
{
    QFETCH(QString, word);
    mirror->kernel.exodus_ids[word.toStdString()] = {9, 1, 5};
    mirror->refresh();
    mirror->kernel.exodus_ids[word.toStdString()] = {7, 5};
    QStringList expected{
        "exodus_entity_added(%1 7)", "exodus_entity_removed(%1 1)", "exodus_entity_removed(%1 9)"};
    expected.replaceInStrings("%1", word);
    QCOMPARE(refresh().filter("exodus_entity_").filter(QRegularExpression("_(added|removed)")),
        expected);
}

void tst_simulation_refresh::oneKindOfSetIsFinishedBeforeTheNext()
{
    mirror->kernel.exodus_ids = {{"block", {1}}, {"sideset", {1}}, {"nodeset", {1}}};
    mirror->refresh();
    mirror->kernel.exodus_ids = {{"block", {2}}, {"sideset", {2}}, {"nodeset", {2}}};
    static const QRegularExpression lists_and_changes(
        "^(exodus_entity_(added|removed)|get_(block|sideset|nodeset)_id_list\\()");
    QCOMPARE(refresh().filter(lists_and_changes),
        QStringList({"get_block_id_list()", "exodus_entity_added(block 2)",
            "exodus_entity_removed(block 1)", "get_sideset_id_list()",
            "exodus_entity_added(sideset 2)", "exodus_entity_removed(sideset 1)",
            "get_nodeset_id_list()", "exodus_entity_added(nodeset 2)",
            "exodus_entity_removed(nodeset 1)"}));
}

void tst_simulation_refresh::knownSetIsReadAgain()
{
    mirror->kernel.exodus_ids["block"] = {1, 1};
    mirror->refresh();
    TreeExodusData* block = mirror->model.find_exodus(TreeExodusData::BLOCK, 1);
    mirror->kernel.exodus_names[{"block", 1}] = "Own";
    QCOMPARE(refresh().mid(1, 7),
        QStringList({"get_exodus_entity_name(block, 1)", "block 1: name_changed(Own)",
            "is_visible(block, 1)", "block 1: visible_changed(true)",
            "get_exodus_entity_name(block, 1)", "is_visible(block, 1)",
            "block 1: visible_changed(true)"}));
    QCOMPARE(mirror->model.find_exodus(TreeExodusData::BLOCK, 1), block);
}

void tst_simulation_refresh::conditionsAreAddedAndReadInTheKernelsOrder()
{
    QFETCH(QString, word);
    QFETCH(int, code);
    QFETCH(QString, kind);
    mirror->kernel.bc_ids[code] = {5, 2};
    mirror->kernel.exodus_names[{word.toStdString(), 5}] = "Five";
    QStringList events = refresh();
    events = events.mid(events.indexOf(QString("get_bc_id_list(%1)").arg(code)), 10);
    QStringList expected{"get_bc_id_list(%3)", "%2_added(%1 5)", "get_exodus_entity_name(%1, 5)",
        "%1 5: name_changed(Five)", "get_sideset_id_list_for_bc(%3, 5)",
        "get_nodeset_id_list_for_bc(%3, 5)", "%2_added(%1 2)", "get_exodus_entity_name(%1, 2)",
        "get_sideset_id_list_for_bc(%3, 2)", "get_nodeset_id_list_for_bc(%3, 2)"};
    expected.replaceInStrings("%1", word).replaceInStrings("%2", kind);
    expected.replaceInStrings("%3", QString::number(code));
    QCOMPARE(events, expected);
}

void tst_simulation_refresh::vanishedConditionsGoAscendingAfterTheNewOnes()
{
    QFETCH(QString, word);
    QFETCH(int, code);
    QFETCH(QString, kind);
    mirror->kernel.bc_ids[code] = {9, 1, 5};
    mirror->refresh();
    mirror->kernel.bc_ids[code] = {7, 5};
    QStringList expected{"%2_added(%1 7)", "%2_removed(%1 1)", "%2_removed(%1 9)"};
    expected.replaceInStrings("%1", word).replaceInStrings("%2", kind);
    QCOMPARE(refresh().filter(QRegularExpression("bc_(added|removed)")), expected);
}

void tst_simulation_refresh::conditionFindsTheSetOfTheSameRefresh()
{
    mirror->kernel.exodus_ids = {{"sideset", {4}}, {"nodeset", {4}}};
    mirror->kernel.bc_ids = {{force_code, {1}}, {wall_code, {1}}};
    mirror->kernel.sidesets_of_bc = {{{force_code, 1}, {4}}, {{wall_code, 1}, {4, 5}}};
    mirror->kernel.nodesets_of_bc = {{{force_code, 1}, {4}}};
    mirror->refresh();
    QCOMPARE(mirror_text(mirror->model),
        QStringList({"sideset 4 'Sideset 4' < force 1, wall 1", "nodeset 4 'Nodeset 4' < force 1",
            "force 1 'Force' > nodeset 4, sideset 4", "wall 1 'cfd_bc' > sideset 4"}));
}

void tst_simulation_refresh::vanishedSetHasLeftItsConditionBeforeThatIsRead()
{
    conditionFindsTheSetOfTheSameRefresh();
    mirror->kernel.exodus_ids["sideset"] = {};
    QCOMPARE(refresh().filter("exodus_").filter(QRegularExpression("removed|added")),
        QStringList("exodus_entity_removed(sideset 4)"));
}

void tst_simulation_refresh::conditionsVisibilityIsNotRead()
{
    mirror->kernel.bc_ids = {{force_code, {1}}, {wall_code, {1}}};
    mirror->materials.materials = {{1, false}};
    QVERIFY(refresh().filter("visible").isEmpty());
}

void tst_simulation_refresh::fluidIdOfTwoKindsKeepsTheFirst()
{
    mirror->kernel.bc_ids = {{axis_code, {1}}, {wall_code, {1}}};
    const QStringList events = refresh();
    QCOMPARE(events.filter("cfd_bc_added"), QStringList("cfd_bc_added(axis 1)"));
    QVERIFY2(
        events.filter("get_exodus_entity_name") ==
            QStringList({"get_exodus_entity_name(axis, 1)", "get_exodus_entity_name(axis, 1)"}),
        "it is read under the kind that it has");
}

// The record is found under its id for the new kind, read under its old one, and
// then taken for one of the old kind that the kernel does not list any more.
void tst_simulation_refresh::fluidConditionOfAnotherKindGoesAndComesWithTheNextRefresh()
{
    mirror->kernel.bc_ids = {{wall_code, {1}}};
    mirror->refresh();
    mirror->kernel.bc_ids = {{axis_code, {1}}};
    mirror->refresh();
    QCOMPARE(mirror_text(mirror->model), QStringList());
    mirror->refresh();
    QCOMPARE(mirror_text(mirror->model), QStringList("axis 1 'cfd_bc'"));
}

void tst_simulation_refresh::materialsAreAddedAsMaterialsThenCorrected()
{
    mirror->materials.materials = {{5, true}, {2, false}};
    mirror->kernel.exodus_names = {{{"media", 5}, "Air"}, {{"material", 2}, "Steel"}};
    QList<bool> was_medium_when_added;
    connect(&mirror->model, &TreeModel::material_added, this,
        [&](TreeMaterialData* material) { was_medium_when_added << material->is_cfd(); });
    QStringList events = refresh();
    events = events.mid(events.indexOf("get_interface(Material)"));
    QCOMPARE(events,
        QStringList({"get_interface(Material)", "material_ids()", "material_is_medium(5)",
            "material_id(5)", "material_added(material 5)", "material 5: cfd_flag_changed(true)",
            "get_exodus_entity_name(media, 5)", "material 5: name_changed(Air)",
            "material_is_medium(2)", "material_id(2)", "material_added(material 2)",
            "material 2: cfd_flag_changed(false)", "get_exodus_entity_name(material, 2)",
            "material 2: name_changed(Steel)", "current_selection_count()"}));
    QCOMPARE(was_medium_when_added, QList<bool>({false, false}));
}

void tst_simulation_refresh::knownMaterialTellsItsFlagAgain()
{
    mirror->materials.materials = {{5, true}};
    mirror->refresh();
    QCOMPARE(refresh().filter("material 5"), QStringList("material 5: cfd_flag_changed(true)"));
}

void tst_simulation_refresh::materialTurnsIntoAMedium()
{
    mirror->materials.materials = {{5, false}};
    mirror->kernel.exodus_names = {{{"media", 5}, "Air"}, {{"material", 5}, "Steel"}};
    mirror->refresh();
    TreeMaterialData* material = mirror->model.find_material(5);
    mirror->materials.materials = {{5, true}};
    QCOMPARE(refresh().filter("material 5"),
        QStringList({"material 5: cfd_flag_changed(true)", "material 5: name_changed(Air)"}));
    QCOMPARE(mirror->model.materials(true), std::vector<TreeMaterialData*>{material});
}

void tst_simulation_refresh::vanishedMaterialsGoAscendingTogetherWithTheMedia()
{
    mirror->materials.materials = {{9, false}, {1, true}, {5, false}, {3, true}};
    mirror->refresh();
    mirror->materials.materials = {{3, true}, {7, false}};
    QCOMPARE(refresh().filter(QRegularExpression("material_(added|removed)")),
        QStringList({"material_added(material 7)", "material_removed(material 1)",
            "material_removed(material 5)", "material_removed(material 9)"}));
}

void tst_simulation_refresh::repeatedMaterialIsReadAgain()
{
    mirror->materials.materials = {{5, true}, {5, false}};
    refresh();
    QVERIFY2(!mirror->model.find_material(5)->is_cfd(), "the last word holds");
}

void tst_simulation_refresh::missingComponentEndsAllMaterialsAlone_data()
{
    QTest::addColumn<bool>("is_foreign");
    QTest::newRow("null") << false;
    QTest::newRow("another class") << true;
}

void tst_simulation_refresh::missingComponentEndsAllMaterialsAlone()
{
    QFETCH(bool, is_foreign);
    mirror->materials.materials = {{1, false}, {2, true}};
    mirror->kernel.bc_ids = {{force_code, {1}}};
    mirror->kernel.exodus_ids = {{"block", {1}}};
    mirror->kernel.selection = {{"block", 1}};
    mirror->refresh();
    OtherComponent other;
    mirror->kernel.material_component = is_foreign ? &other : nullptr;

    QStringList events = refresh();

    events = events.mid(events.indexOf("get_interface(Material)"));
    QCOMPARE(events,
        QStringList({"get_interface(Material)", "material_removed(material 1)",
            "material 1: treedata_destroyed(material 1)", "material_removed(material 2)",
            "material 2: treedata_destroyed(material 2)", "current_selection_count()",
            "get_selected_type(0)", "get_selected_id(0)", "selection_changed([block 1], true)"}));
    QCOMPARE(mirror_text(mirror->model), QStringList({"block 1 'Block 1'", "force 1 'Force'"}));
}

void tst_simulation_refresh::steadyRefreshTellsVisibilityAndFlagsAlone()
{
    script_full_model(*mirror);
    mirror->kernel.selection.clear();
    mirror->refresh();
    QStringList events = refresh().filter(": ");
    QVERIFY(!events.isEmpty());
    events.removeIf([](const QString& event) {
        return event.contains("visible_changed") || event.contains("cfd_flag_changed");
    });
    QCOMPARE(events, QStringList());
}

void tst_simulation_refresh::selectionOfTheDomainGoesOutTogether()
{
    mirror->kernel.exodus_ids = {{"block", {1}}};
    mirror->kernel.bc_ids = {{force_code, {2}}, {wall_code, {3}}};
    mirror->materials.materials = {{1, false}};
    mirror->kernel.selection = {
        {"wall", 3}, {"material", 1}, {"block", 1}, {"force", 2}, {"surface", 1}};
    QCOMPARE(refresh().constLast(), "selection_changed([wall 3, block 1, force 2], true)");
}

QTEST_GUILESS_MAIN(tst_simulation_refresh)
#include "tst_simulation_refresh.moc"
