#include <memory>
#include <QTest>
#include <support/FullModel.hpp>
#include <support/MirrorText.hpp>

using KestoInterface::KIObserve;
using Notification = void (KIObserve::*)(int);

namespace {

struct Kind
{
    const char* word;
    std::vector<int> RecordingKernel::*ids;
    Notification created;
    Notification deleted;
};

const Kind kinds[]{
    {"sizing_source", &RecordingKernel::sizing_sources, &KIObserve::notify_sizing_source_created,
        &KIObserve::notify_sizing_source_deleted},
    {"boundary_layer", &RecordingKernel::boundary_layers, &KIObserve::notify_boundary_layer_created,
        &KIObserve::notify_boundary_layer_deleted},
};

} // namespace

class tst_mesh_link : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void createdRecordIsAddedAndNothingIsAsked_data() { each_kind(); }
    void createdRecordIsAddedAndNothingIsAsked();
    void secondCreationIsSilent_data() { each_kind(); }
    void secondCreationIsSilent();
    void deletedRecordGoesAndNothingIsAsked_data() { each_kind(); }
    void deletedRecordGoesAndNothingIsAsked();
    void deletionOfAnUnknownIdIsSilent_data() { each_kind(); }
    void deletionOfAnUnknownIdIsSilent();
    void newRecordBearsItsDefaultName();
    void kindsHaveIdsOfTheirOwn();

    void sourcesAreReconciledBeforeLayersAreAskedFor();
    void newIdsComeAscendingBeforeOldIdsGoAscending();
    void knownIdsAreNotTouched();
    void repeatedNewIdIsAddedOnce();
    void emptyListsEndAll();
    void meshRecordsAreLeftAlone();
    void selectionOfBothKindsGoesOutTogether();
    void selectedRecordThatIsMissingIsDropped();

private:
    void each_kind();
    void tell(Notification notification, int id) { (mirror->observer().*notification)(id); }
    QStringList refresh();

    std::unique_ptr<FullMirror> mirror;
};

void tst_mesh_link::init()
{
    mirror = std::make_unique<FullMirror>();
}

void tst_mesh_link::cleanup()
{
    mirror.reset();
}

void tst_mesh_link::each_kind()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("sizing source") << 0;
    QTest::newRow("boundary layer") << 1;
}

// The events of a refresh from the sizing sources up to the reading of the selection.
QStringList tst_mesh_link::refresh()
{
    mirror->model.refresh_model(false);
    const QStringList events = mirror->log.take();
    const int begin = int(events.indexOf("sizing_source_ids()"));
    const int end = int(events.indexOf("current_selection_count()", begin));
    return events.mid(begin, end - begin);
}

void tst_mesh_link::createdRecordIsAddedAndNothingIsAsked()
{
    QFETCH(int, kind);
    const QString word = kinds[kind].word;
    tell(kinds[kind].created, 4);
    QCOMPARE(mirror->log.take(), QStringList(word + "_added(" + word + " 4)"));
}

void tst_mesh_link::secondCreationIsSilent()
{
    QFETCH(int, kind);
    tell(kinds[kind].created, 4);
    mirror->log.take();
    tell(kinds[kind].created, 4);
    QCOMPARE(mirror->log.take(), QStringList());
}

void tst_mesh_link::deletedRecordGoesAndNothingIsAsked()
{
    QFETCH(int, kind);
    const QString word = kinds[kind].word;
    tell(kinds[kind].created, 4);
    mirror->log.take();
    tell(kinds[kind].deleted, 4);
    QCOMPARE(mirror->log.take(), QStringList({word + "_removed(" + word + " 4)",
                                     QString("%1 4: treedata_destroyed(%1 4)").arg(word)}));
}

void tst_mesh_link::deletionOfAnUnknownIdIsSilent()
{
    QFETCH(int, kind);
    tell(kinds[1 - kind].created, 4);
    mirror->log.take();
    tell(kinds[kind].deleted, 4);
    QCOMPARE(mirror->log.take(), QStringList());
}

void tst_mesh_link::newRecordBearsItsDefaultName()
{
    mirror->observer().notify_sizing_source_created(4);
    mirror->observer().notify_boundary_layer_created(4);
    QCOMPARE(mirror_text(mirror->model),
        QStringList({"sizing_source 4 'Sizing Source 4'", "boundary_layer 4 'Boundary Layer'"}));
}

void tst_mesh_link::kindsHaveIdsOfTheirOwn()
{
    mirror->observer().notify_sizing_source_created(4);
    mirror->observer().notify_boundary_layer_created(4);
    mirror->observer().notify_sizing_source_deleted(4);
    QCOMPARE(mirror_text(mirror->model), QStringList("boundary_layer 4 'Boundary Layer'"));
}

void tst_mesh_link::sourcesAreReconciledBeforeLayersAreAskedFor()
{
    mirror->kernel.sizing_sources = {4};
    mirror->kernel.boundary_layers = {5};
    QCOMPARE(
        refresh(), QStringList({"sizing_source_ids()", "sizing_source_added(sizing_source 4)",
                       "get_boundary_layer_id_list()", "boundary_layer_added(boundary_layer 5)"}));
}

void tst_mesh_link::newIdsComeAscendingBeforeOldIdsGoAscending()
{
    mirror->kernel.sizing_sources = {9, 1, 5};
    mirror->kernel.boundary_layers = {9, 1, 5};
    mirror->refresh();
    mirror->kernel.sizing_sources = {8, 5, 2};
    mirror->kernel.boundary_layers = {8, 5, 2};
    QStringList expected;
    for (const auto& [question, word] : {std::pair("sizing_source_ids()", "sizing_source"),
             std::pair("get_boundary_layer_id_list()", "boundary_layer")}) {
        expected << question;
        for (const char* event : {"%1_added(%1 2)", "%1_added(%1 8)", "%1_removed(%1 1)",
                 "%1 1: treedata_destroyed(%1 1)", "%1_removed(%1 9)",
                 "%1 9: treedata_destroyed(%1 9)"}) {
            expected << QString(event).arg(word);
        }
    }
    QCOMPARE(refresh(), expected);
}

void tst_mesh_link::knownIdsAreNotTouched()
{
    mirror->kernel.sizing_sources = {4};
    mirror->kernel.boundary_layers = {5};
    mirror->refresh();
    mirror->model.find_sizing_source(4)->set_name("Own");
    mirror->log.take();
    QCOMPARE(refresh(), QStringList({"sizing_source_ids()", "get_boundary_layer_id_list()"}));
    QCOMPARE(mirror->model.find_sizing_source(4)->name(), "Own");
}

void tst_mesh_link::repeatedNewIdIsAddedOnce()
{
    mirror->kernel.sizing_sources = {4, 4, 4};
    QCOMPARE(refresh().filter("added"), QStringList("sizing_source_added(sizing_source 4)"));
    QVERIFY2(refresh().filter("added").isEmpty(), "and not again");
    QCOMPARE(mirror_text(mirror->model), QStringList("sizing_source 4 'Sizing Source 4'"));
}

void tst_mesh_link::emptyListsEndAll()
{
    mirror->kernel.sizing_sources = {4};
    mirror->kernel.boundary_layers = {5};
    mirror->refresh();
    mirror->kernel.sizing_sources.clear();
    mirror->kernel.boundary_layers.clear();
    mirror->refresh();
    QCOMPARE(mirror_text(mirror->model), QStringList());
}

void tst_mesh_link::meshRecordsAreLeftAlone()
{
    mirror->kernel.groups = {{"", 1}};
    mirror->kernel.group_contents = {{1, {{}, {0, 0, 5, 0, 0, 0, 0, 0, 0}}}};
    mirror->refresh();
    TreeMeshData* record = mirror->model.mesh_data().at(0);
    QCOMPARE(refresh(), QStringList({"sizing_source_ids()", "get_boundary_layer_id_list()"}));
    QCOMPARE(mirror->model.mesh_data(), std::vector<TreeMeshData*>{record});
}

void tst_mesh_link::selectionOfBothKindsGoesOutTogether()
{
    mirror->kernel.sizing_sources = {4};
    mirror->kernel.boundary_layers = {4};
    mirror->kernel.selection = {
        {"Boundary_Layer", 4}, {"SIZING_SOURCE", 4}, {"sizing source", 4}, {"mesh", 4}};
    mirror->model.refresh_model(false);
    QCOMPARE(mirror->log.take_only({"selection_changed"}),
        QStringList("selection_changed([boundary_layer 4, sizing_source 4], true)"));
}

void tst_mesh_link::selectedRecordThatIsMissingIsDropped()
{
    mirror->kernel.sizing_sources = {4};
    mirror->kernel.selection = {{"sizing_source", 5}, {"boundary_layer", 4}};
    mirror->model.refresh_model(false);
    QCOMPARE(mirror->log.take_only({"selection_changed"}), QStringList());
}

QTEST_GUILESS_MAIN(tst_mesh_link)
#include "tst_mesh_link.moc"
