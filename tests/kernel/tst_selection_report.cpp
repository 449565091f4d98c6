#include <memory>
#include <QMetaType>
#include <QSequentialIterable>
#include <QTest>
#include <support/FullModel.hpp>

using KestoInterface::EntityRef;
using Refs = std::vector<EntityRef>;
using Records = std::vector<TreeData*>;

class tst_selection_report : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void wordFindsItsRecord_data();
    void wordFindsItsRecord();
    void wordFindsNothing_data();
    void wordFindsNothing();
    void recordsComeInTheKernelsOrder();
    void repeatedEntityComesTwice();
    void unknownEntitiesAreLeftOut();
    void nothingKnownIsNotReported();
    void anyFluidWordFindsTheFluidCondition();
    void reportAsksNothing();
    void deselectionIsToldAsSuch();
    void vectorTravelsAsAMetaType();

    void refreshAsksForEachEntryOnce();
    void refreshReportsEachDomainAfterItself();
    void refreshAsksForTheIdOfItsOwnWordsOnly();
    void wordsOfTheKernelsSelectionComeInAnyCase();
    void sheetBodyIsABody();
    void oddWordsOfTheKernelsSelectionAreDropped();
    void emptySelectionIsNotReported();

    void selectionMadeInsideTheSignalIsBlockedUntilItReturns();
    void nestedReportEndsTheBlock();
    void exceptionLeavesTheBlockInPlace();
    void laterReportEndsTheBlock();
    void receiverMayDeleteWhatIsSelected();
    void kernelMayChangeItsSelectionWhileItIsRead();

private:
    QStringList report(const Refs& refs, bool selected = true);

    std::unique_ptr<FullMirror> mirror;
};

void tst_selection_report::init()
{
    mirror = std::make_unique<FullMirror>();
    RecordingKernel& kernel = mirror->kernel;
    for (const char* word : {"body", "volume", "surface", "curve", "vertex"}) {
        kernel.entities[word] = {3, 4};
    }
    kernel.groups = {{"", 3}, {"", 4}};
    for (const char* word : {"block", "sideset", "nodeset"}) {
        kernel.exodus_ids[word] = {3};
    }
    for (int code = 1; code <= 10; ++code) {
        kernel.bc_ids[code] = {3};
    }
    kernel.bc_ids[40] = {3};
    kernel.bc_ids[32] = {3};
    kernel.sizing_sources = {3};
    kernel.boundary_layers = {3};
    mirror->materials.materials = {{3, false}};
    mirror->refresh();
}

void tst_selection_report::cleanup()
{
    mirror.reset();
}

QStringList tst_selection_report::report(const Refs& refs, bool selected)
{
    if (selected) {
        mirror->observer().notify_entities_selected(refs);
    } else {
        mirror->observer().notify_entities_deselected(refs);
    }
    return mirror->log.take();
}

void tst_selection_report::wordFindsItsRecord_data()
{
    QTest::addColumn<std::string>("word");
    QTest::addColumn<QString>("record");
    for (const char* word : {"body", "volume", "surface", "curve", "vertex", "group", "block",
             "sideset", "nodeset", "force", "acceleration", "velocity", "pressure", "temperature",
             "displacement", "constraint", "convection", "heatflux", "contact region",
             "contact pair", "wall", "sizing_source", "boundary_layer"}) {
        QTest::newRow(word) << std::string(word) << QString("%1 3").arg(word);
    }
    QTest::newRow("sheet body") << std::string("sheet body") << "body 3";
}

void tst_selection_report::wordFindsItsRecord()
{
    QFETCH(std::string, word);
    QFETCH(QString, record);
    QCOMPARE(report({{word, 3}}), QStringList("selection_changed([" + record + "], true)"));
    QCOMPARE(report({{word, 77}}), QStringList());
}

void tst_selection_report::wordFindsNothing_data()
{
    QTest::addColumn<std::string>("word");
    for (const char* word : {"material", "media", "mesh", "hex", "cfd_bc", "Surface", "GROUP",
             "surface ", "sizing source", "boundary layer", "contact_pair", ""}) {
        QTest::addRow("'%s'", word) << std::string(word);
    }
}

// The words of a notification are taken as they come.
void tst_selection_report::wordFindsNothing()
{
    QFETCH(std::string, word);
    QCOMPARE(report({{word, 3}}), QStringList());
}

void tst_selection_report::recordsComeInTheKernelsOrder()
{
    QCOMPARE(report({{"wall", 3}, {"group", 4}, {"vertex", 3}, {"group", 3}, {"body", 4}}),
        QStringList("selection_changed([wall 3, group 4, vertex 3, group 3, body 4], true)"));
}

void tst_selection_report::repeatedEntityComesTwice()
{
    QCOMPARE(report({{"group", 3}, {"group", 3}}),
        QStringList("selection_changed([group 3, group 3], true)"));
}

void tst_selection_report::unknownEntitiesAreLeftOut()
{
    QCOMPARE(report({{"group", 77}, {"group", 3}, {"material", 3}, {"nothing", 3}}),
        QStringList("selection_changed([group 3], true)"));
}

void tst_selection_report::nothingKnownIsNotReported()
{
    QCOMPARE(report({}), QStringList());
    QCOMPARE(report({}, false), QStringList());
    QCOMPARE(report({{"group", 77}, {"material", 3}}), QStringList());
    QCOMPARE(report({{"group", 77}, {"material", 3}}, false), QStringList());
}

void tst_selection_report::anyFluidWordFindsTheFluidCondition()
{
    QCOMPARE(report({{"axis", 3}}), QStringList("selection_changed([wall 3], true)"));
}

void tst_selection_report::reportAsksNothing()
{
    const int calls = mirror->kernel.call_count();
    report({{"group", 3}});
    QCOMPARE(mirror->kernel.call_count(), calls);
}

void tst_selection_report::deselectionIsToldAsSuch()
{
    QCOMPARE(report({{"group", 3}, {"body", 3}}, false),
        QStringList("selection_changed([group 3, body 3], false)"));
}

void tst_selection_report::vectorTravelsAsAMetaType()
{
    const QMetaType type = QMetaType::fromType<Records>();
    QVERIFY(type.isRegistered());
    QCOMPARE(QMetaType::fromName("std::vector<TreeData*>"), type);
    QVERIFY(QMetaType::canConvert(type, QMetaType::fromType<QSequentialIterable>()));
    QVERIFY(QMetaType::canView(type, QMetaType::fromType<QSequentialIterable>()));
}

void tst_selection_report::refreshAsksForEachEntryOnce()
{
    mirror->kernel.selection = {{"group", 3}, {"surface", 3}};
    mirror->model.refresh_model(false);
    QStringList questions = mirror->log.take_only({"current_sel", "get_selected", "selection"});
    QCOMPARE(questions,
        QStringList({"current_selection_count()", "get_selected_type(0)", "get_selected_type(1)",
            "get_selected_id(1)", "selection_changed([surface 3], true)",
            "current_selection_count()", "get_selected_type(0)", "get_selected_id(0)",
            "get_selected_type(1)", "selection_changed([group 3], true)",
            "current_selection_count()", "get_selected_type(0)", "get_selected_type(1)",
            "current_selection_count()", "get_selected_type(0)", "get_selected_type(1)"}));
}

void tst_selection_report::refreshReportsEachDomainAfterItself()
{
    mirror->kernel.selection = {
        {"wall", 3}, {"boundary_layer", 3}, {"group", 3}, {"body", 3}, {"force", 3}, {"block", 3}};
    mirror->model.refresh_model(false);
    QCOMPARE(mirror->log.take_only({"get_entities(vertex)", "selection_changed", "group_list",
                 "sizing_source_ids", "get_boundary_layer_id", "get_block_id", "get_interface"}),
        QStringList({"get_entities(vertex)", "selection_changed([body 3], true)", "group_list()",
            "selection_changed([group 3], true)", "sizing_source_ids()",
            "get_boundary_layer_id_list()", "selection_changed([boundary_layer 3], true)",
            "get_block_id_list()", "get_interface(Material)",
            "selection_changed([wall 3, force 3, block 3], true)"}));
}

void tst_selection_report::refreshAsksForTheIdOfItsOwnWordsOnly()
{
    mirror->kernel.selection = {{"material", 3}, {"nothing", 3}};
    mirror->model.refresh_model(false);
    QCOMPARE(mirror->log.take_only({"get_selected_id", "selection_changed"}), QStringList());
}

void tst_selection_report::wordsOfTheKernelsSelectionComeInAnyCase()
{
    mirror->kernel.selection = {{"SURFACE", 3}, {"Group", 3}, {"Sizing_Source", 3},
        {"BOUNDARY_LAYER", 3}, {"BlocK", 3}, {"Contact Pair", 3}, {"Wall", 3}};
    mirror->model.refresh_model(false);
    QCOMPARE(mirror->log.take_only({"selection_changed"}),
        QStringList({"selection_changed([surface 3], true)", "selection_changed([group 3], true)",
            "selection_changed([sizing_source 3, boundary_layer 3], true)",
            "selection_changed([block 3, contact pair 3, wall 3], true)"}));
}

void tst_selection_report::sheetBodyIsABody()
{
    mirror->kernel.selection = {{"Sheet Body", 3}};
    mirror->model.refresh_model(false);
    QCOMPARE(mirror->log.take_only({"selection_changed"}),
        QStringList("selection_changed([body 3], true)"));
}

void tst_selection_report::oddWordsOfTheKernelsSelectionAreDropped()
{
    mirror->kernel.selection = {{"", 3}, {"\xFF\xC3", 3}, {std::string("group\0s", 7), 3},
        {std::string(100'000, 'G'), 3}, {"surface", 3}};
    mirror->model.refresh_model(false);
    QCOMPARE(mirror->log.take_only({"selection_changed"}),
        QStringList(
            {"selection_changed([surface 3], true)", "selection_changed([group 3], true)"}));
}

void tst_selection_report::emptySelectionIsNotReported()
{
    mirror->kernel.selection = {{"surface", 3}};
    mirror->refresh();
    mirror->kernel.selection.clear();
    mirror->model.refresh_model(false);
    QCOMPARE(mirror->log.take_only({"selection_changed", "get_selected"}), QStringList());
}

void tst_selection_report::selectionMadeInsideTheSignalIsBlockedUntilItReturns()
{
    connect(&mirror->model, &TreeModel::selection_changed, this,
        [&](const Records& records) { mirror->model.select_entities(records, true); });
    QCOMPARE(report({{"group", 3}}), QStringList("selection_changed([group 3], true)"));
    mirror->model.select_entities({}, true);
    QCOMPARE(mirror->log.take(), QStringList("silent_cmd(select none)"));
}

void tst_selection_report::nestedReportEndsTheBlock()
{
    bool is_nested = false;
    connect(&mirror->model, &TreeModel::selection_changed, this, [&] {
        if (std::exchange(is_nested, true)) {
            return;
        }
        mirror->observer().notify_entities_deselected({{"group", 4}});
        mirror->model.select_entities({}, true);
    });
    QCOMPARE(report({{"group", 3}}),
        QStringList({"selection_changed([group 3], true)", "selection_changed([group 4], false)",
            "silent_cmd(select none)"}));
}

void tst_selection_report::exceptionLeavesTheBlockInPlace()
{
    mirror->log.interrupt(0, [] { throw KernelFailure("in a receiver"); });
    QVERIFY_THROWS_EXCEPTION(KernelFailure, report({{"group", 3}}));
    mirror->log.take();
    mirror->model.select_entities({}, true);
    QCOMPARE(mirror->log.take(), QStringList());
}

void tst_selection_report::laterReportEndsTheBlock()
{
    mirror->log.interrupt(0, [] { throw KernelFailure("in a receiver"); });
    QVERIFY_THROWS_EXCEPTION(KernelFailure, report({{"group", 3}}));
    report({{"group", 3}});
    mirror->model.select_entities({}, true);
    QCOMPARE(mirror->log.take(), QStringList("silent_cmd(select none)"));
}

void tst_selection_report::receiverMayDeleteWhatIsSelected()
{
    mirror->log.interrupt(0, [&] { mirror->observer().notify_group_deleted(3); });
    report({{"group", 3}, {"group", 4}});
    QCOMPARE(
        report({{"group", 3}, {"group", 4}}), QStringList("selection_changed([group 4], true)"));
}

void tst_selection_report::kernelMayChangeItsSelectionWhileItIsRead()
{
    mirror->kernel.selection = {{"surface", 3}, {"surface", 4}};
    mirror->kernel.during(
        "get_selected_type(0)", [&] { mirror->observer().notify_surface_deleted(3); });
    mirror->model.refresh_model(false);
    QCOMPARE(mirror->log.take_only({"selection_changed"}),
        QStringList("selection_changed([surface 4], true)"));
}

QTEST_GUILESS_MAIN(tst_selection_report)
#include "tst_selection_report.moc"
