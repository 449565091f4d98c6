#include <functional>
#include <memory>
#include <QTest>
#include <support/EventLog.hpp>
#include <support/SignalRecorder.hpp>
#include <treemodel/models/TreeMeshModel.hpp>
#include <utility>

namespace {

constexpr auto HEX = TreeMeshData::HEX;
constexpr auto TET = TreeMeshData::TET;
constexpr auto NODE = TreeMeshData::NODE;

/// A record outside the model that tells how many listen for its death.
class Owner : public TreeData
{
public:
    using TreeData::TreeData;

    int watchers() const { return receivers(SIGNAL(treedata_destroyed(TreeData*))); }
};

/// The types of the records, as text.
QString types(const std::vector<TreeMeshData*>& records)
{
    QStringList result;
    for (TreeMeshData* record : records) {
        result << QString::number(record->mesh_type());
    }
    return result.join(' ');
}

} // namespace

class tst_TreeMeshModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void newSizingSourceStandsInTheModelWhenAnnounced();
    void sizingSourceOfAKnownIdIsGivenBackSilently();
    void removedSizingSourceIsReadableInItsSignal();
    void newBoundaryLayerStandsInTheModelWhenAnnounced();
    void boundaryLayerOfAKnownIdIsGivenBackSilently();
    void removedBoundaryLayerIsReadableInItsSignal();
    void listsComeByAscendingId();
    void unknownIdsHaveNoEffect();
    void addedRecordRemovedByAReceiverIsNotGivenBack();

    void newMeshDataStandsInTheModelWhenAnnounced();
    void anotherCountIsTheRecordsBusiness();
    void sameCountIsSilent();
    void nullOwnerHasNoRecords();
    void unknownOwnerAndTypeHaveNoEffect();
    void recordsOfAnOwnerComeByAscendingType();
    void recordsOfAllOwnersComeInTheOrderOfTheirAddresses();
    void removedMeshDataIsReadableInItsSignal();

    void ownerIsWatchedOnceForAllItsRecords();
    void ownerIsWatchedOnlyAfterTheAnnouncement();
    void ownerIsWatchedBehindItsReceivers();
    void dyingOwnerTakesItsRecordsByAscendingType();
    void recordOfADyingOwnerStillStandsInItsSignal();
    void ownerMayDieInTheAnnouncementOfItsFirstRecord();
    void ownerMayDieInTheAnnouncementOfALaterRecord();
    void ownerMayDieWhenItsRecordIsRemoved();
    void recordMayBeRemovedInItsOwnAnnouncement();
    void ownerThatLostItsRecordInTheAnnouncementIsNotWatched();
    void ownerThatGotItsRecordBackInTheAnnouncementIsWatchedOnce();

    void eachClearingAnnouncesItselfFirstAndNothingElse();
    void clearGoesThroughTheKindsInOrder();
    void clearedOwnersAreNotWatched();
    void clearMayBeCalledAtAnyMoment_data();
    void clearMayBeCalledAtAnyMoment();
    void ownerMayDieWhileItsRecordsAreCleared();
    void destructorClears();

private:
    EventLog log;
    // Of what a test connects; goes first, so that nothing runs past the test.
    std::unique_ptr<QObject> receiver;
    std::unique_ptr<TreeMeshModel> model;
    std::unique_ptr<SignalRecorder> recorder;
};

void tst_TreeMeshModel::init()
{
    receiver = std::make_unique<QObject>();
    model = std::make_unique<TreeMeshModel>();
    recorder = std::make_unique<SignalRecorder>(log);
    recorder->watch(model.get());
}

void tst_TreeMeshModel::cleanup()
{
    receiver.reset();
    recorder.reset();
    model.reset();
    log.take();
}

void tst_TreeMeshModel::newSizingSourceStandsInTheModelWhenAnnounced()
{
    bool found = false;
    connect(model.get(), &TreeMeshModel::sizing_source_added, receiver.get(),
        [&](TreeSizingSourceData* source) { found = model->find_sizing_source(4) == source; });
    TreeSizingSourceData* source = model->add_sizing_source(4);
    QVERIFY(found);
    QCOMPARE(source->id(), 4);
    QCOMPARE(log.take(), QStringList("sizing_source_added(sizing_source 4)"));
}

void tst_TreeMeshModel::sizingSourceOfAKnownIdIsGivenBackSilently()
{
    TreeSizingSourceData* source = model->add_sizing_source(4);
    log.take();
    QCOMPARE(model->add_sizing_source(4), source);
    QCOMPARE(log.take(), QStringList());
}

void tst_TreeMeshModel::removedSizingSourceIsReadableInItsSignal()
{
    model->add_sizing_source(4);
    QString seen;
    connect(model.get(), &TreeMeshModel::sizing_source_removed, receiver.get(),
        [&](TreeSizingSourceData* source) {
            seen = source->name() + (model->find_sizing_source(4) ? " listed" : " gone");
        });
    log.take();
    model->remove_sizing_source(4);
    QCOMPARE(seen, "Sizing Source 4 gone");
    QCOMPARE(log.take(), QStringList({"sizing_source_removed(sizing_source 4)",
                             "sizing_source 4: treedata_destroyed(sizing_source 4)"}));
}

void tst_TreeMeshModel::newBoundaryLayerStandsInTheModelWhenAnnounced()
{
    bool found = false;
    connect(model.get(), &TreeMeshModel::boundary_layer_added, receiver.get(),
        [&](TreeBoundaryLayerData* layer) { found = model->find_boundary_layer(4) == layer; });
    TreeBoundaryLayerData* layer = model->add_boundary_layer(4);
    QVERIFY(found);
    QCOMPARE(layer->id(), 4);
    QCOMPARE(log.take(), QStringList("boundary_layer_added(boundary_layer 4)"));
}

void tst_TreeMeshModel::boundaryLayerOfAKnownIdIsGivenBackSilently()
{
    TreeBoundaryLayerData* layer = model->add_boundary_layer(4);
    log.take();
    QCOMPARE(model->add_boundary_layer(4), layer);
    QCOMPARE(log.take(), QStringList());
}

void tst_TreeMeshModel::removedBoundaryLayerIsReadableInItsSignal()
{
    model->add_boundary_layer(4)->set_name("inner");
    QString seen;
    connect(model.get(), &TreeMeshModel::boundary_layer_removed, receiver.get(),
        [&](TreeBoundaryLayerData* layer) {
            seen = layer->name() + (model->find_boundary_layer(4) ? " listed" : " gone");
        });
    log.take();
    model->remove_boundary_layer(4);
    QCOMPARE(seen, "inner gone");
    QCOMPARE(log.take(), QStringList({"boundary_layer_removed(boundary_layer 4)",
                             "boundary_layer 4: treedata_destroyed(boundary_layer 4)"}));
}

void tst_TreeMeshModel::listsComeByAscendingId()
{
    for (int id : {7, -2, 3}) {
        model->add_sizing_source(id);
        model->add_boundary_layer(10 * id);
    }
    QString ids;
    for (TreeSizingSourceData* source : model->sizing_sources()) {
        ids += QString::number(source->id()) + ' ';
    }
    for (TreeBoundaryLayerData* layer : model->boundary_layers()) {
        ids += QString::number(layer->id()) + ' ';
    }
    QCOMPARE(ids, "-2 3 7 -20 30 70 ");
}

void tst_TreeMeshModel::unknownIdsHaveNoEffect()
{
    model->add_sizing_source(1);
    model->add_boundary_layer(2);
    log.take();
    model->remove_sizing_source(2);
    model->remove_boundary_layer(1);
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(model->find_sizing_source(2), nullptr);
    QCOMPARE(model->find_boundary_layer(1), nullptr);
}

void tst_TreeMeshModel::addedRecordRemovedByAReceiverIsNotGivenBack()
{
    Owner owner(1);
    connect(model.get(), &TreeMeshModel::sizing_source_added, receiver.get(),
        [&] { model->clear_sizing_sources(); });
    connect(model.get(), &TreeMeshModel::boundary_layer_added, receiver.get(),
        [&] { model->clear_boundary_layers(); });
    connect(model.get(), &TreeMeshModel::mesh_data_added, receiver.get(),
        [&] { model->clear_mesh_data(); });
    QCOMPARE(model->add_sizing_source(1), nullptr);
    QCOMPARE(model->add_boundary_layer(1), nullptr);
    QCOMPARE(model->add_mesh_data(HEX, 1, &owner), nullptr);
}

void tst_TreeMeshModel::newMeshDataStandsInTheModelWhenAnnounced()
{
    Owner owner(3);
    bool found = false;
    connect(model.get(), &TreeMeshModel::mesh_data_added, receiver.get(),
        [&](TreeMeshData* md, TreeData* o) { found = model->find_mesh_data(TET, o) == md; });
    TreeMeshData* tets = model->add_mesh_data(TET, 12, &owner);
    QVERIFY(found);
    QCOMPARE(tets->element_count(), 12);
    QCOMPARE(log.take(), QStringList("mesh_data_added(tet of TreeData 3, TreeData 3)"));
}

void tst_TreeMeshModel::anotherCountIsTheRecordsBusiness()
{
    Owner owner(3);
    TreeMeshData* tets = model->add_mesh_data(TET, 12, &owner);
    log.take();
    QCOMPARE(model->add_mesh_data(TET, 13, &owner), tets);
    QCOMPARE(log.take(), QStringList("tet of TreeData 3: element_count_changed(13)"));
}

void tst_TreeMeshModel::sameCountIsSilent()
{
    Owner owner(3);
    TreeMeshData* tets = model->add_mesh_data(TET, 12, &owner);
    log.take();
    QCOMPARE(model->add_mesh_data(TET, 12, &owner), tets);
    QCOMPARE(log.take(), QStringList());
}

void tst_TreeMeshModel::nullOwnerHasNoRecords()
{
    QCOMPARE(model->add_mesh_data(TET, 12, nullptr), nullptr);
    QCOMPARE(model->find_mesh_data(TET, nullptr), nullptr);
    model->remove_mesh_data(TET, nullptr);
    QVERIFY(model->mesh_data(nullptr).empty());
    QVERIFY(model->mesh_data().empty());
    QCOMPARE(log.take(), QStringList());
}

void tst_TreeMeshModel::unknownOwnerAndTypeHaveNoEffect()
{
    Owner owner(3);
    Owner stranger(4);
    model->add_mesh_data(TET, 12, &owner);
    log.take();
    model->remove_mesh_data(TET, &stranger);
    model->remove_mesh_data(HEX, &owner);
    QCOMPARE(model->find_mesh_data(TET, &stranger), nullptr);
    QCOMPARE(model->find_mesh_data(HEX, &owner), nullptr);
    QVERIFY(model->mesh_data(&stranger).empty());
    QVERIFY(model->mesh_data(HEX).empty());
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(types(model->mesh_data()), "1");
}

void tst_TreeMeshModel::recordsOfAnOwnerComeByAscendingType()
{
    Owner owner(3);
    for (auto type : {NODE, HEX, TET}) {
        model->add_mesh_data(type, 1, &owner);
    }
    QCOMPARE(types(model->mesh_data(&owner)), "0 1 8");
}

void tst_TreeMeshModel::recordsOfAllOwnersComeInTheOrderOfTheirAddresses()
{
    Owner owners[3]{Owner(3), Owner(2), Owner(1)};
    model->add_mesh_data(TET, 3, &owners[2]);
    model->add_mesh_data(NODE, 5, &owners[0]);
    model->add_mesh_data(TET, 4, &owners[0]);
    model->add_mesh_data(HEX, 2, &owners[1]);

    QString counts;
    for (TreeMeshData* md : model->mesh_data()) {
        counts += QString::number(md->element_count());
    }
    QCOMPARE(counts, "4523");
    counts.clear();
    for (TreeMeshData* md : model->mesh_data(TET)) {
        counts += QString::number(md->element_count());
    }
    QCOMPARE(counts, "43");
}

void tst_TreeMeshModel::removedMeshDataIsReadableInItsSignal()
{
    Owner owner(3);
    model->add_mesh_data(TET, 12, &owner);
    QString seen;
    connect(model.get(), &TreeMeshModel::mesh_data_removed, receiver.get(),
        [&](TreeMeshData* md, TreeData* o) {
            seen = md->name() + (model->find_mesh_data(TET, o) ? " listed" : " gone");
        });
    log.take();
    model->remove_mesh_data(TET, &owner);
    QCOMPARE(seen, "12 tet elements gone");
    QCOMPARE(log.take(), QStringList({"mesh_data_removed(tet of TreeData 3, TreeData 3)",
                             "tet of TreeData 3: treedata_destroyed(tet of TreeData 3)"}));
}

void tst_TreeMeshModel::ownerIsWatchedOnceForAllItsRecords()
{
    recorder.reset();
    Owner owner(3);
    model->add_mesh_data(TET, 1, &owner);
    QCOMPARE(owner.watchers(), 1);
    model->add_mesh_data(HEX, 1, &owner);
    model->add_mesh_data(HEX, 2, &owner);
    QCOMPARE(owner.watchers(), 1);
    model->remove_mesh_data(TET, &owner);
    QCOMPARE(owner.watchers(), 1);
    model->remove_mesh_data(HEX, &owner);
    QCOMPARE(owner.watchers(), 0);
}

void tst_TreeMeshModel::ownerIsWatchedOnlyAfterTheAnnouncement()
{
    recorder.reset();
    Owner owner(3);
    int watchers = -1;
    connect(model.get(), &TreeMeshModel::mesh_data_added, receiver.get(),
        [&] { watchers = owner.watchers(); });
    model->add_mesh_data(TET, 1, &owner);
    QCOMPARE(watchers, 0);
}

void tst_TreeMeshModel::ownerIsWatchedBehindItsReceivers()
{
    auto owner = std::make_unique<Owner>(3);
    QString seen;
    connect(model.get(), &TreeMeshModel::mesh_data_added, receiver.get(),
        [&](TreeMeshData*, TreeData* o) {
            connect(o, &TreeData::treedata_destroyed, receiver.get(),
                [&](TreeData* dying) { seen += types(model->mesh_data(dying)); });
        });
    model->add_mesh_data(TET, 1, owner.get());
    owner.reset();
    QVERIFY2(seen == "1", "the records had gone before a receiver of their announcement knew");
}

void tst_TreeMeshModel::dyingOwnerTakesItsRecordsByAscendingType()
{
    auto owner = std::make_unique<Owner>(3);
    Owner other(4);
    for (auto type : {NODE, HEX}) {
        model->add_mesh_data(type, 1, owner.get());
        model->add_mesh_data(type, 1, &other);
    }
    log.take();

    owner.reset();

    QCOMPARE(log.take(), QStringList({"TreeData 3: treedata_destroyed(TreeData 3)",
                             "mesh_data_removed(hex of TreeData 3, TreeData 3)",
                             "hex of TreeData 3: treedata_destroyed(hex of TreeData 3)",
                             "mesh_data_removed(node of TreeData 3, TreeData 3)",
                             "node of TreeData 3: treedata_destroyed(node of TreeData 3)"}));
    QCOMPARE(types(model->mesh_data()), "0 8");
}

void tst_TreeMeshModel::recordOfADyingOwnerStillStandsInItsSignal()
{
    auto owner = std::make_unique<Owner>(3);
    model->add_mesh_data(HEX, 1, owner.get());
    model->add_mesh_data(NODE, 1, owner.get());
    QStringList seen;
    connect(model.get(), &TreeMeshModel::mesh_data_removed, receiver.get(),
        [&](TreeMeshData* md, TreeData* dying) {
            seen << (model->find_mesh_data(md->mesh_type(), dying) == md ? "stands" : "gone");
            // No list gives a record that has been deleted already.
            seen << types(model->mesh_data(dying)) << types(model->mesh_data());
        });
    owner.reset();
    QCOMPARE(seen, QStringList({"stands", "0 8", "0 8", "stands", "8", "8"}));
    QVERIFY(model->mesh_data().empty());
}

void tst_TreeMeshModel::ownerMayDieInTheAnnouncementOfItsFirstRecord()
{
    auto owner = std::make_unique<Owner>(3);
    recorder.reset();
    connect(model.get(), &TreeMeshModel::mesh_data_added, receiver.get(), [&] { owner.reset(); });
    int removed = 0;
    connect(model.get(), &TreeMeshModel::mesh_data_removed, receiver.get(), [&] { ++removed; });

    QCOMPARE(model->add_mesh_data(HEX, 1, owner.get()), nullptr);

    QCOMPARE(removed, 1);
    QVERIFY(model->mesh_data().empty());
}

void tst_TreeMeshModel::ownerMayDieInTheAnnouncementOfALaterRecord()
{
    auto owner = std::make_unique<Owner>(3);
    model->add_mesh_data(HEX, 1, owner.get());
    connect(model.get(), &TreeMeshModel::mesh_data_added, receiver.get(), [&] { owner.reset(); });
    QCOMPARE(model->add_mesh_data(NODE, 1, owner.get()), nullptr);
    QVERIFY(model->mesh_data().empty());
}

void tst_TreeMeshModel::ownerMayDieWhenItsRecordIsRemoved()
{
    auto owner = std::make_unique<Owner>(3);
    model->add_mesh_data(HEX, 1, owner.get());
    model->add_mesh_data(NODE, 1, owner.get());
    QStringList removed;
    connect(model.get(), &TreeMeshModel::mesh_data_removed, receiver.get(), [&](TreeMeshData* md) {
        removed << QString::number(md->mesh_type());
        owner.reset();
    });
    model->remove_mesh_data(HEX, owner.get());
    QCOMPARE(removed, QStringList({"0", "8"}));
    QVERIFY(model->mesh_data().empty());
}

void tst_TreeMeshModel::recordMayBeRemovedInItsOwnAnnouncement()
{
    Owner owner(3);
    model->add_mesh_data(NODE, 1, &owner);
    connect(model.get(), &TreeMeshModel::mesh_data_added, receiver.get(),
        [&](TreeMeshData* md, TreeData* o) { model->remove_mesh_data(md->mesh_type(), o); });
    QCOMPARE(model->add_mesh_data(HEX, 1, &owner), nullptr);
    QCOMPARE(types(model->mesh_data()), "8");
}

void tst_TreeMeshModel::ownerThatLostItsRecordInTheAnnouncementIsNotWatched()
{
    recorder.reset();
    Owner owner(3);
    connect(model.get(), &TreeMeshModel::mesh_data_added, receiver.get(),
        [&](TreeMeshData* md, TreeData* o) { model->remove_mesh_data(md->mesh_type(), o); });
    model->add_mesh_data(HEX, 1, &owner);
    QCOMPARE(owner.watchers(), 0);
}

void tst_TreeMeshModel::ownerThatGotItsRecordBackInTheAnnouncementIsWatchedOnce()
{
    recorder.reset();
    Owner owner(3);
    bool first = true;
    connect(model.get(), &TreeMeshModel::mesh_data_added, receiver.get(),
        [&](TreeMeshData* md, TreeData* o) {
            if (std::exchange(first, false)) {
                model->remove_mesh_data(md->mesh_type(), o);
                model->add_mesh_data(TET, 1, o);
            }
        });
    model->add_mesh_data(HEX, 1, &owner);
    QCOMPARE(types(model->mesh_data(&owner)), "1");
    QCOMPARE(owner.watchers(), 1);
}

void tst_TreeMeshModel::eachClearingAnnouncesItselfFirstAndNothingElse()
{
    Owner owner(3);
    model->add_mesh_data(NODE, 1, &owner);
    model->add_mesh_data(HEX, 1, &owner);
    model->add_sizing_source(2);
    model->add_sizing_source(1);
    model->add_boundary_layer(2);
    model->add_boundary_layer(1);
    log.take();

    model->clear_mesh_data();
    QCOMPARE(log.take(), QStringList({"about_to_clear_mesh_data()",
                             "hex of TreeData 3: treedata_destroyed(hex of TreeData 3)",
                             "node of TreeData 3: treedata_destroyed(node of TreeData 3)"}));
    model->clear_sizing_sources();
    QCOMPARE(log.take(), QStringList({"about_to_clear_sizing_sources()",
                             "sizing_source 1: treedata_destroyed(sizing_source 1)",
                             "sizing_source 2: treedata_destroyed(sizing_source 2)"}));
    model->clear_boundary_layers();
    QCOMPARE(log.take(), QStringList({"about_to_clear_boundary_layers()",
                             "boundary_layer 1: treedata_destroyed(boundary_layer 1)",
                             "boundary_layer 2: treedata_destroyed(boundary_layer 2)"}));
    QVERIFY(model->mesh_data().empty());
    QVERIFY(model->sizing_sources().empty());
    QVERIFY(model->boundary_layers().empty());
}

void tst_TreeMeshModel::clearGoesThroughTheKindsInOrder()
{
    model->clear();
    QCOMPARE(log.take(), QStringList({"about_to_clear_boundary_layers()",
                             "about_to_clear_sizing_sources()", "about_to_clear_mesh_data()"}));
}

void tst_TreeMeshModel::clearedOwnersAreNotWatched()
{
    recorder.reset();
    auto owner = std::make_unique<Owner>(3);
    model->add_mesh_data(HEX, 1, owner.get());
    model->add_mesh_data(NODE, 1, owner.get());
    model->clear_mesh_data();
    QCOMPARE(owner->watchers(), 0);
    int removed = 0;
    connect(model.get(), &TreeMeshModel::mesh_data_removed, receiver.get(), [&] { ++removed; });
    owner.reset();
    QCOMPARE(removed, 0);
}

namespace {

using Action = std::function<void()>;
/// Has the action run at a certain signal of the model or of a record.
using Moment = std::function<void(TreeMeshModel&, TreeMeshData&, const Action&)>;

} // namespace

Q_DECLARE_METATYPE(Moment)

void tst_TreeMeshModel::clearMayBeCalledAtAnyMoment_data()
{
    QTest::addColumn<Moment>("moment");
    const auto row = [](const char* name, Moment moment) { QTest::newRow(name) << moment; };
    const auto of_model = [](auto signal) {
        return [signal](TreeMeshModel& m, TreeMeshData&, const Action& action) {
            connect(&m, signal, &m, action);
        };
    };
    row("source added", of_model(&TreeMeshModel::sizing_source_added));
    row("source removed", of_model(&TreeMeshModel::sizing_source_removed));
    row("layer added", of_model(&TreeMeshModel::boundary_layer_added));
    row("layer removed", of_model(&TreeMeshModel::boundary_layer_removed));
    row("mesh data added", of_model(&TreeMeshModel::mesh_data_added));
    row("mesh data removed", of_model(&TreeMeshModel::mesh_data_removed));
    row("count changed", [](TreeMeshModel& m, TreeMeshData& md, const Action& action) {
        connect(&md, &TreeMeshData::element_count_changed, &m, action);
    });
    row("destroyed", [](TreeMeshModel& m, TreeMeshData& md, const Action& action) {
        connect(&md, &TreeData::treedata_destroyed, &m, action);
    });
}

void tst_TreeMeshModel::clearMayBeCalledAtAnyMoment()
{
    QFETCH(Moment, moment);
    recorder.reset();
    auto owner = std::make_unique<Owner>(3);
    auto other = std::make_unique<Owner>(4);
    model->add_mesh_data(HEX, 1, other.get());
    model->add_mesh_data(HEX, 1, owner.get());
    int clearings = 0;
    moment(*model, *model->add_mesh_data(TET, 1, owner.get()), [&] {
        ++clearings;
        model->clear();
    });

    model->add_sizing_source(1);
    model->remove_sizing_source(1);
    model->add_boundary_layer(1);
    model->remove_boundary_layer(1);
    if (model->find_mesh_data(TET, owner.get())) {
        model->add_mesh_data(TET, 2, owner.get());
    }
    model->remove_mesh_data(HEX, owner.get());
    model->add_mesh_data(NODE, 1, owner.get());
    owner.reset();
    other.reset();

    QVERIFY2(clearings > 0, "the moment did not come");
    QVERIFY(model->mesh_data().empty());
}

void tst_TreeMeshModel::ownerMayDieWhileItsRecordsAreCleared()
{
    auto owner = std::make_unique<Owner>(3);
    TreeMeshData* hexes = model->add_mesh_data(HEX, 1, owner.get());
    model->add_mesh_data(NODE, 1, owner.get());
    connect(hexes, &TreeData::treedata_destroyed, receiver.get(), [&] { owner.reset(); });
    log.take();
    model->clear_mesh_data();
    QVERIFY(model->mesh_data().empty());
    QVERIFY2(log.take_only({"mesh_data_removed"}).isEmpty(),
        "the clearing signal stands for the records");
}

void tst_TreeMeshModel::destructorClears()
{
    Owner owner(3);
    model->add_mesh_data(HEX, 1, &owner);
    log.take();
    model.reset();
    QCOMPARE(log.take(), QStringList({"about_to_clear_boundary_layers()",
                             "about_to_clear_sizing_sources()", "about_to_clear_mesh_data()",
                             "hex of TreeData 3: treedata_destroyed(hex of TreeData 3)"}));
}

QTEST_GUILESS_MAIN(tst_TreeMeshModel)
#include "tst_TreeMeshModel.moc"
