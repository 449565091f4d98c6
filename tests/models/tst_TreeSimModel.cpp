#include <algorithm>
#include <functional>
#include <memory>
#include <QCoreApplication>
#include <QPointer>
#include <QTest>
#include <support/EventLog.hpp>
#include <support/SignalRecorder.hpp>
#include <treemodel/models/TreeSimModel.hpp>
#include <utility>

namespace {

constexpr auto BLOCK = TreeExodusData::BLOCK;
constexpr auto SIDESET = TreeExodusData::SIDESET;
constexpr auto NODESET = TreeExodusData::NODESET;
constexpr auto FORCE = TreeFeaBCData::FORCE;
constexpr auto PRESSURE = TreeFeaBCData::PRESSURE;
constexpr auto CONTACT_PAIR = TreeFeaBCData::CONTACT_PAIR;
constexpr auto AXIS = TreeCfdBCData::AXIS;
constexpr auto WALL = TreeCfdBCData::WALL;

template <typename Record>
QString ids(const std::vector<Record*>& records)
{
    QStringList result;
    for (Record* record : records) {
        result << QString::number(record->id());
    }
    return result.join(' ');
}

void run_event_loop()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace

class tst_TreeSimModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void newRecordStandsInTheModelWhenAnnounced();
    void recordOfAKnownIdIsGivenBackSilently();
    void idsAreUniquePerExodusType();
    void idsAreUniquePerFeaType();
    void fluidConditionKeepsTheTypeOfItsFirstDay();
    void materialKeepsTheKindOfItsFirstDay();
    void listsComeByAscendingId();
    void fluidConditionsAreListedByType();
    void materialsAreListedByKind();
    void materialThatBecomesAMediumChangesLists();
    void unknownIdsHaveNoEffect();
    void lastTypesHaveTheirMaps();
    void addedRecordRemovedByAReceiverIsNotGivenBack();

    void removedRecordIsReadableInItsSignal();
    void removedExodusEntityLosesItsLinksSilently();
    void removedConditionLosesItsLinksSilently();
    void removedFluidConditionWaitsForTheEventLoop();
    void removedFluidConditionFreesItsIdAtOnce();

    void linksGivenToAnOutgoingConditionStandUntilItGoes();
    void linksOfAnOutgoingConditionAreNotInherited();
    void entityOfAnOutgoingConditionMayGoFirst();
    void modelMayGoBeforeAnOutgoingCondition();

    void linkStandsWhenAnnounced();
    void pairStandsOnce();
    void nullMakesNoLink();
    void unlinkedPairIsSilent();
    void linkIsGoneWhenItsRemovalIsAnnounced();
    void entityTellsItsConditionsByKind();
    void linkedRecordsComeInTheOrderOfTheirAddresses();
    void lookupsWithoutAnEntryAreEmpty();

    void newIdIsTheRecordsBusiness();
    void newIdKeepsTheLinks();
    void sameIdIsAnnouncedAgain();
    void unknownOldIdLeavesTheNewOneAlone();
    void displacedConditionsStayAliveWithTheirLinks();
    void displacedConditionsGoSilentlyWithTheModel();
    void newIdStaysWithinItsType();

    void clearExodusLeavesConditionsWithoutLinks();
    void clearFeaLeavesTheRestAlone();
    void clearCfdDeletesAtOnceAndLeavesTheRestAlone();
    void clearMaterialDeletesBothKinds();
    void clearGoesThroughTheKindsInOrder();
    void clearingIsAnnouncedBeforeAnyChange();
    void clearMayBeCalledAtAnyMoment_data();
    void clearMayBeCalledAtAnyMoment();
    void destructorClears();

private:
    EventLog log;
    // Of what a test connects; goes first, so that nothing runs past the test.
    std::unique_ptr<QObject> receiver;
    std::unique_ptr<TreeSimModel> model;
    std::unique_ptr<SignalRecorder> recorder;
};

void tst_TreeSimModel::init()
{
    receiver = std::make_unique<QObject>();
    model = std::make_unique<TreeSimModel>();
    recorder = std::make_unique<SignalRecorder>(log);
    recorder->watch(model.get());
}

void tst_TreeSimModel::cleanup()
{
    receiver.reset();
    recorder.reset();
    model.reset();
    run_event_loop();
    log.take();
}

void tst_TreeSimModel::newRecordStandsInTheModelWhenAnnounced()
{
    TreeSimModel* m = model.get();
    int standing = 0;
    connect(m, &TreeSimModel::exodus_entity_added, receiver.get(),
        [&](TreeExodusData* r) { standing += m->find_exodus(SIDESET, 1) == r; });
    connect(m, &TreeSimModel::fea_bc_added, receiver.get(),
        [&](TreeFeaBCData* r) { standing += m->find_fea_bc(FORCE, 2) == r; });
    connect(m, &TreeSimModel::cfd_bc_added, receiver.get(),
        [&](TreeCfdBCData* r) { standing += m->find_cfd_bc(3) == r; });
    connect(m, &TreeSimModel::material_added, receiver.get(),
        [&](TreeMaterialData* r) { standing += m->find_material(4) == r; });

    QCOMPARE(m->add_exodus(SIDESET, 1)->exodus_type(), SIDESET);
    QCOMPARE(m->add_fea_bc(FORCE, 2)->fea_bc_type(), FORCE);
    QCOMPARE(m->add_cfd_bc(WALL, 3)->cfd_bc_type(), WALL);
    QVERIFY(m->add_material(4, true)->is_cfd());

    QCOMPARE(standing, 4);
    QCOMPARE(log.take(), QStringList({"exodus_entity_added(sideset 1)", "fea_bc_added(force 2)",
                             "cfd_bc_added(wall 3)", "material_added(material 4)"}));
}

void tst_TreeSimModel::recordOfAKnownIdIsGivenBackSilently()
{
    TreeExodusData* block = model->add_exodus(BLOCK, 1);
    TreeFeaBCData* force = model->add_fea_bc(FORCE, 1);
    log.take();
    QCOMPARE(model->add_exodus(BLOCK, 1), block);
    QCOMPARE(model->add_fea_bc(FORCE, 1), force);
    QCOMPARE(log.take(), QStringList());
}

void tst_TreeSimModel::idsAreUniquePerExodusType()
{
    TreeExodusData* block = model->add_exodus(BLOCK, 1);
    TreeExodusData* sideset = model->add_exodus(SIDESET, 1);
    QVERIFY(block != sideset);
    QCOMPARE(model->find_exodus(BLOCK, 1), block);
    QCOMPARE(model->find_exodus(SIDESET, 1), sideset);
    QCOMPARE(model->find_exodus(NODESET, 1), nullptr);
}

void tst_TreeSimModel::idsAreUniquePerFeaType()
{
    TreeFeaBCData* force = model->add_fea_bc(FORCE, 1);
    TreeFeaBCData* pressure = model->add_fea_bc(PRESSURE, 1);
    QVERIFY(force != pressure);
    model->remove_fea_bc(PRESSURE, 1);
    QCOMPARE(model->find_fea_bc(FORCE, 1), force);
    QCOMPARE(model->find_fea_bc(PRESSURE, 1), nullptr);
}

void tst_TreeSimModel::fluidConditionKeepsTheTypeOfItsFirstDay()
{
    TreeCfdBCData* wall = model->add_cfd_bc(WALL, 1);
    log.take();
    QCOMPARE(model->add_cfd_bc(AXIS, 1), wall);
    QCOMPARE(wall->cfd_bc_type(), WALL);
    QCOMPARE(log.take(), QStringList());
}

void tst_TreeSimModel::materialKeepsTheKindOfItsFirstDay()
{
    TreeMaterialData* medium = model->add_material(1, true);
    log.take();
    QCOMPARE(model->add_material(1, false), medium);
    QVERIFY(medium->is_cfd());
    QCOMPARE(log.take(), QStringList());
}

void tst_TreeSimModel::listsComeByAscendingId()
{
    for (int id : {7, -2, 3}) {
        model->add_exodus(NODESET, id);
        model->add_fea_bc(CONTACT_PAIR, id);
        model->add_cfd_bc(WALL, id);
        model->add_material(id, false);
    }
    QCOMPARE(ids(model->exodus_entities(NODESET)), "-2 3 7");
    QCOMPARE(ids(model->fea_bcs(CONTACT_PAIR)), "-2 3 7");
    QCOMPARE(ids(model->cfd_bcs(WALL)), "-2 3 7");
    QCOMPARE(ids(model->materials(false)), "-2 3 7");
    QVERIFY(model->exodus_entities(BLOCK).empty());
    QVERIFY(model->fea_bcs(FORCE).empty());
}

void tst_TreeSimModel::fluidConditionsAreListedByType()
{
    model->add_cfd_bc(WALL, 5);
    model->add_cfd_bc(AXIS, 3);
    model->add_cfd_bc(WALL, 1);
    QCOMPARE(ids(model->cfd_bcs(WALL)), "1 5");
    QCOMPARE(ids(model->cfd_bcs(AXIS)), "3");
    QVERIFY(model->cfd_bcs(TreeCfdBCData::FAN).empty());
}

void tst_TreeSimModel::materialsAreListedByKind()
{
    model->add_material(5, true);
    model->add_material(3, false);
    model->add_material(1, true);
    QCOMPARE(ids(model->materials(true)), "1 5");
    QCOMPARE(ids(model->materials(false)), "3");
}

void tst_TreeSimModel::materialThatBecomesAMediumChangesLists()
{
    model->add_material(1, false)->set_cfd(true);
    QVERIFY(model->materials(false).empty());
    QCOMPARE(ids(model->materials(true)), "1");
}

void tst_TreeSimModel::unknownIdsHaveNoEffect()
{
    model->add_exodus(BLOCK, 1);
    model->add_fea_bc(FORCE, 1);
    log.take();
    model->remove_exodus(SIDESET, 1);
    model->remove_fea_bc(PRESSURE, 1);
    model->remove_cfd_bc(1);
    model->remove_material(1);
    model->change_fea_bc_id(PRESSURE, 1, 2);
    model->change_cfd_bc_id(1, 2);
    QCOMPARE(model->find_cfd_bc(1), nullptr);
    QCOMPARE(model->find_material(1), nullptr);
    QCOMPARE(log.take(), QStringList());
}

void tst_TreeSimModel::lastTypesHaveTheirMaps()
{
    for (int type = 0; type < 3; ++type) {
        model->add_exodus(TreeExodusData::ExodusType(type), type);
    }
    for (int type = 0; type < 11; ++type) {
        model->add_fea_bc(TreeFeaBCData::FEAType(type), type);
    }
    QCOMPARE(ids(model->exodus_entities(NODESET)), "2");
    QCOMPARE(ids(model->fea_bcs(CONTACT_PAIR)), "10");
}

void tst_TreeSimModel::addedRecordRemovedByAReceiverIsNotGivenBack()
{
    TreeSimModel* m = model.get();
    connect(
        m, &TreeSimModel::exodus_entity_added, receiver.get(), [&] { m->remove_exodus(BLOCK, 1); });
    connect(m, &TreeSimModel::fea_bc_added, receiver.get(), [&] { m->remove_fea_bc(FORCE, 1); });
    connect(m, &TreeSimModel::cfd_bc_added, receiver.get(), [&] { m->clear_cfd(); });
    connect(m, &TreeSimModel::material_added, receiver.get(), [&] { m->remove_material(1); });
    QCOMPARE(m->add_exodus(BLOCK, 1), nullptr);
    QCOMPARE(m->add_fea_bc(FORCE, 1), nullptr);
    QCOMPARE(m->add_cfd_bc(WALL, 1), nullptr);
    QCOMPARE(m->add_material(1, true), nullptr);
}

void tst_TreeSimModel::removedRecordIsReadableInItsSignal()
{
    TreeSimModel* m = model.get();
    QStringList seen;
    connect(m, &TreeSimModel::exodus_entity_removed, receiver.get(), [&](TreeExodusData* r) {
        seen << r->name() + (m->find_exodus(BLOCK, 1) ? " listed" : " gone");
    });
    connect(m, &TreeSimModel::fea_bc_removed, receiver.get(), [&](TreeFeaBCData* r) {
        seen << r->name() + (m->find_fea_bc(FORCE, 1) ? " listed" : " gone");
    });
    connect(m, &TreeSimModel::cfd_bc_removed, receiver.get(),
        [&](TreeCfdBCData* r) { seen << r->name() + (m->find_cfd_bc(1) ? " listed" : " gone"); });
    connect(m, &TreeSimModel::material_removed, receiver.get(), [&](TreeMaterialData* r) {
        seen << r->name() + (m->find_material(1) ? " listed" : " gone");
    });
    m->add_exodus(BLOCK, 1);
    m->add_fea_bc(FORCE, 1);
    m->add_cfd_bc(WALL, 1);
    m->add_material(1, true);
    log.take();

    m->remove_exodus(BLOCK, 1);
    m->remove_fea_bc(FORCE, 1);
    m->remove_material(1);
    m->remove_cfd_bc(1);

    QCOMPARE(seen, QStringList({"Block 1 gone", "Force gone", "Media gone", "cfd_bc gone"}));
    QCOMPARE(
        log.take(), QStringList({"exodus_entity_removed(block 1)",
                        "block 1: treedata_destroyed(block 1)", "fea_bc_removed(force 1)",
                        "force 1: treedata_destroyed(force 1)", "material_removed(material 1)",
                        "material 1: treedata_destroyed(material 1)", "cfd_bc_removed(wall 1)"}));
}

void tst_TreeSimModel::removedExodusEntityLosesItsLinksSilently()
{
    TreeExodusData* sideset = model->add_exodus(SIDESET, 1);
    TreeExodusData* other = model->add_exodus(NODESET, 1);
    TreeFeaBCData* force = model->add_fea_bc(FORCE, 1);
    TreeCfdBCData* wall = model->add_cfd_bc(WALL, 1);
    for (TreeExodusData* exodus : {sideset, other}) {
        model->fea_add_exodus(force, exodus);
        model->cfd_add_exodus(wall, exodus);
    }
    std::size_t links_in_signal = 9;
    connect(model.get(), &TreeSimModel::exodus_entity_removed, receiver.get(),
        [&](TreeExodusData* exodus) {
            links_in_signal = model->find_fea_from_exodus(exodus).size();
        });
    log.take();

    model->remove_exodus(SIDESET, 1);

    QCOMPARE(log.take(), QStringList({"exodus_entity_removed(sideset 1)",
                             "sideset 1: treedata_destroyed(sideset 1)"}));
    QCOMPARE(links_in_signal, 0U);
    QCOMPARE(model->find_exodus_from_fea(force), std::vector<TreeExodusData*>{other});
    QCOMPARE(model->find_exodus_from_cfd(wall), std::vector<TreeExodusData*>{other});
}

void tst_TreeSimModel::removedConditionLosesItsLinksSilently()
{
    TreeExodusData* sideset = model->add_exodus(SIDESET, 1);
    model->fea_add_exodus(model->add_fea_bc(FORCE, 1), sideset);
    model->fea_add_exodus(model->add_fea_bc(FORCE, 2), sideset);
    model->cfd_add_exodus(model->add_cfd_bc(WALL, 1), sideset);
    log.take();

    model->remove_fea_bc(FORCE, 1);
    model->remove_cfd_bc(1);

    QVERIFY(log.take_only({"exodus_removed"}).isEmpty());
    QCOMPARE(ids(model->find_fea_from_exodus(sideset)), "2");
    QVERIFY(model->find_cfd_from_exodus(sideset).empty());
}

void tst_TreeSimModel::removedFluidConditionWaitsForTheEventLoop()
{
    QPointer<TreeCfdBCData> wall = model->add_cfd_bc(WALL, 1);
    log.take();

    model->remove_cfd_bc(1);

    QCOMPARE(log.take(), QStringList("cfd_bc_removed(wall 1)"));
    QVERIFY(wall);
    run_event_loop();
    QCOMPARE(log.take(), QStringList("wall 1: treedata_destroyed(wall 1)"));
    QVERIFY(!wall);
}

void tst_TreeSimModel::removedFluidConditionFreesItsIdAtOnce()
{
    TreeCfdBCData* wall = model->add_cfd_bc(WALL, 1);
    model->remove_cfd_bc(1);
    QCOMPARE(model->find_cfd_bc(1), nullptr);
    TreeCfdBCData* axis = model->add_cfd_bc(AXIS, 1);
    QVERIFY(axis != wall);
    QCOMPARE(model->cfd_bcs(AXIS), std::vector<TreeCfdBCData*>{axis});
    QVERIFY(model->cfd_bcs(WALL).empty());
}

void tst_TreeSimModel::linksGivenToAnOutgoingConditionStandUntilItGoes()
{
    TreeExodusData* sideset = model->add_exodus(SIDESET, 1);
    TreeCfdBCData* wall = model->add_cfd_bc(WALL, 1);
    model->remove_cfd_bc(1);
    log.take();

    model->cfd_add_exodus(wall, sideset);

    QCOMPARE(log.take(), QStringList("exodus_added_to_cfd(wall 1, sideset 1)"));
    QCOMPARE(model->find_exodus_from_cfd(wall), std::vector<TreeExodusData*>{sideset});
    QCOMPARE(model->find_cfd_from_exodus(sideset), std::vector<TreeCfdBCData*>{wall});

    run_event_loop();

    QCOMPARE(log.take(), QStringList("wall 1: treedata_destroyed(wall 1)"));
    QVERIFY(model->find_cfd_from_exodus(sideset).empty());
    QVERIFY(model->find_fea_from_exodus(sideset).empty());
}

void tst_TreeSimModel::linksOfAnOutgoingConditionAreNotInherited()
{
    TreeExodusData* sideset = model->add_exodus(SIDESET, 1);
    // The allocator gives freed addresses again: some of the new records get one.
    std::vector<TreeCfdBCData*> outgoing;
    for (int id = 0; id < 100; ++id) {
        outgoing.push_back(model->add_cfd_bc(WALL, id));
    }
    for (int id = 0; id < 100; ++id) {
        model->remove_cfd_bc(id);
        model->cfd_add_exodus(outgoing[id], sideset);
    }
    run_event_loop();
    for (int id = 0; id < 100; ++id) {
        QVERIFY(model->find_exodus_from_cfd(model->add_cfd_bc(WALL, id)).empty());
        QVERIFY(model->find_exodus_from_fea(model->add_fea_bc(FORCE, id)).empty());
    }
    QVERIFY(model->find_cfd_from_exodus(sideset).empty());
    QVERIFY(model->find_fea_from_exodus(sideset).empty());
}

void tst_TreeSimModel::entityOfAnOutgoingConditionMayGoFirst()
{
    TreeExodusData* sideset = model->add_exodus(SIDESET, 1);
    TreeExodusData* nodeset = model->add_exodus(NODESET, 1);
    TreeCfdBCData* wall = model->add_cfd_bc(WALL, 1);
    model->remove_cfd_bc(1);
    model->cfd_add_exodus(wall, sideset);
    model->cfd_add_exodus(wall, nodeset);
    model->remove_exodus(SIDESET, 1);
    QCOMPARE(model->find_exodus_from_cfd(wall), std::vector<TreeExodusData*>{nodeset});
    model->clear_exodus();
    QVERIFY(model->find_exodus_from_cfd(wall).empty());
    run_event_loop();
    QVERIFY(model->find_exodus_from_cfd(wall).empty());
}

void tst_TreeSimModel::modelMayGoBeforeAnOutgoingCondition()
{
    TreeExodusData* sideset = model->add_exodus(SIDESET, 1);
    QPointer<TreeCfdBCData> wall = model->add_cfd_bc(WALL, 1);
    model->remove_cfd_bc(1);
    model->cfd_add_exodus(wall, sideset);
    model.reset();
    QVERIFY(wall);
    run_event_loop();
    QVERIFY(!wall);
}

void tst_TreeSimModel::linkStandsWhenAnnounced()
{
    TreeSimModel* m = model.get();
    TreeExodusData* sideset = m->add_exodus(SIDESET, 1);
    TreeFeaBCData* force = m->add_fea_bc(FORCE, 2);
    TreeCfdBCData* wall = m->add_cfd_bc(WALL, 3);
    int standing = 0;
    connect(m, &TreeSimModel::exodus_added_to_fea, receiver.get(),
        [&](TreeFeaBCData* bc, TreeExodusData* exodus) {
            standing += m->find_exodus_from_fea(bc) == std::vector{exodus} &&
                        m->find_fea_from_exodus(exodus) == std::vector{bc};
        });
    connect(m, &TreeSimModel::exodus_added_to_cfd, receiver.get(),
        [&](TreeCfdBCData* bc, TreeExodusData* exodus) {
            standing += m->find_exodus_from_cfd(bc) == std::vector{exodus} &&
                        m->find_cfd_from_exodus(exodus) == std::vector{bc};
        });
    log.take();

    m->fea_add_exodus(force, sideset);
    m->cfd_add_exodus(wall, sideset);

    QCOMPARE(standing, 2);
    QCOMPARE(log.take(), QStringList({"exodus_added_to_fea(force 2, sideset 1)",
                             "exodus_added_to_cfd(wall 3, sideset 1)"}));
}

void tst_TreeSimModel::pairStandsOnce()
{
    TreeExodusData* sideset = model->add_exodus(SIDESET, 1);
    TreeFeaBCData* force = model->add_fea_bc(FORCE, 2);
    TreeCfdBCData* wall = model->add_cfd_bc(WALL, 3);
    model->fea_add_exodus(force, sideset);
    model->cfd_add_exodus(wall, sideset);
    log.take();
    model->fea_add_exodus(force, sideset);
    model->cfd_add_exodus(wall, sideset);
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(model->find_exodus_from_fea(force).size(), 1U);
    QCOMPARE(model->find_exodus_from_cfd(wall).size(), 1U);
}

void tst_TreeSimModel::nullMakesNoLink()
{
    TreeExodusData* sideset = model->add_exodus(SIDESET, 1);
    TreeFeaBCData* force = model->add_fea_bc(FORCE, 2);
    TreeCfdBCData* wall = model->add_cfd_bc(WALL, 3);
    log.take();
    model->fea_add_exodus(force, nullptr);
    model->fea_add_exodus(nullptr, sideset);
    model->cfd_add_exodus(wall, nullptr);
    model->cfd_add_exodus(nullptr, sideset);
    model->fea_remove_exodus(force, nullptr);
    model->fea_remove_exodus(nullptr, sideset);
    model->cfd_remove_exodus(wall, nullptr);
    model->cfd_remove_exodus(nullptr, sideset);
    QCOMPARE(log.take(), QStringList());
    QVERIFY(model->find_exodus_from_fea(force).empty());
    QVERIFY(model->find_cfd_from_exodus(sideset).empty());
}

void tst_TreeSimModel::unlinkedPairIsSilent()
{
    TreeExodusData* sideset = model->add_exodus(SIDESET, 1);
    TreeExodusData* nodeset = model->add_exodus(NODESET, 1);
    TreeFeaBCData* force = model->add_fea_bc(FORCE, 2);
    TreeCfdBCData* wall = model->add_cfd_bc(WALL, 3);
    model->fea_add_exodus(force, sideset);
    log.take();
    model->fea_remove_exodus(force, nodeset);
    model->cfd_remove_exodus(wall, sideset);
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(model->find_exodus_from_fea(force).size(), 1U);
}

void tst_TreeSimModel::linkIsGoneWhenItsRemovalIsAnnounced()
{
    TreeSimModel* m = model.get();
    TreeExodusData* sideset = m->add_exodus(SIDESET, 1);
    TreeFeaBCData* force = m->add_fea_bc(FORCE, 2);
    TreeCfdBCData* wall = m->add_cfd_bc(WALL, 3);
    m->fea_add_exodus(force, sideset);
    m->cfd_add_exodus(wall, sideset);
    int gone = 0;
    connect(m, &TreeSimModel::exodus_removed_from_fea, receiver.get(),
        [&](TreeFeaBCData* bc, TreeExodusData* exodus) {
            gone += m->find_exodus_from_fea(bc).empty() && m->find_fea_from_exodus(exodus).empty();
        });
    connect(m, &TreeSimModel::exodus_removed_from_cfd, receiver.get(),
        [&](TreeCfdBCData* bc, TreeExodusData* exodus) {
            gone += m->find_exodus_from_cfd(bc).empty() && m->find_cfd_from_exodus(exodus).empty();
        });
    log.take();

    m->fea_remove_exodus(force, sideset);
    m->cfd_remove_exodus(wall, sideset);

    QCOMPARE(gone, 2);
    QCOMPARE(log.take(), QStringList({"exodus_removed_from_fea(force 2, sideset 1)",
                             "exodus_removed_from_cfd(wall 3, sideset 1)"}));
}

void tst_TreeSimModel::entityTellsItsConditionsByKind()
{
    TreeExodusData* sideset = model->add_exodus(SIDESET, 1);
    TreeFeaBCData* force = model->add_fea_bc(FORCE, 2);
    TreeCfdBCData* wall = model->add_cfd_bc(WALL, 3);
    model->fea_add_exodus(force, sideset);
    model->cfd_add_exodus(wall, sideset);
    QCOMPARE(model->find_fea_from_exodus(sideset), std::vector<TreeFeaBCData*>{force});
    QCOMPARE(model->find_cfd_from_exodus(sideset), std::vector<TreeCfdBCData*>{wall});
}

void tst_TreeSimModel::linkedRecordsComeInTheOrderOfTheirAddresses()
{
    TreeFeaBCData* force = model->add_fea_bc(FORCE, 1);
    TreeExodusData* sideset = model->add_exodus(SIDESET, 1);
    for (int id = 20; id > 0; --id) {
        model->fea_add_exodus(force, model->add_exodus(NODESET, id));
        model->fea_add_exodus(model->add_fea_bc(PRESSURE, id), sideset);
        model->cfd_add_exodus(model->add_cfd_bc(WALL, id), sideset);
    }
    const auto entities = model->find_exodus_from_fea(force);
    const auto pressures = model->find_fea_from_exodus(sideset);
    const auto walls = model->find_cfd_from_exodus(sideset);
    QCOMPARE(entities.size() + pressures.size() + walls.size(), 60U);
    QVERIFY(std::is_sorted(entities.begin(), entities.end(), std::less<>()));
    QVERIFY(std::is_sorted(pressures.begin(), pressures.end(), std::less<>()));
    QVERIFY(std::is_sorted(walls.begin(), walls.end(), std::less<>()));
}

void tst_TreeSimModel::lookupsWithoutAnEntryAreEmpty()
{
    QVERIFY(model->find_exodus_from_fea(nullptr).empty());
    QVERIFY(model->find_exodus_from_cfd(nullptr).empty());
    QVERIFY(model->find_fea_from_exodus(nullptr).empty());
    QVERIFY(model->find_cfd_from_exodus(nullptr).empty());
    QVERIFY(model->find_fea_from_exodus(model->add_exodus(BLOCK, 1)).empty());
    QVERIFY(model->find_exodus_from_fea(model->add_fea_bc(FORCE, 1)).empty());
}

void tst_TreeSimModel::newIdIsTheRecordsBusiness()
{
    TreeFeaBCData* force = model->add_fea_bc(FORCE, 1);
    TreeCfdBCData* wall = model->add_cfd_bc(WALL, 1);
    wall->set_name("outer");
    log.take();
    model->change_fea_bc_id(FORCE, 1, 2);
    model->change_cfd_bc_id(1, 3);
    QCOMPARE(log.take(), QStringList({"force 2: id_changed(2)", "force 2: name_changed(Force)",
                             "wall 3: id_changed(3)"}));
    QCOMPARE(model->find_fea_bc(FORCE, 2), force);
    QCOMPARE(model->find_fea_bc(FORCE, 1), nullptr);
    QCOMPARE(model->find_cfd_bc(3), wall);
    QCOMPARE(model->find_cfd_bc(1), nullptr);
}

void tst_TreeSimModel::newIdKeepsTheLinks()
{
    TreeExodusData* sideset = model->add_exodus(SIDESET, 1);
    TreeFeaBCData* force = model->add_fea_bc(FORCE, 1);
    model->fea_add_exodus(force, sideset);
    model->change_fea_bc_id(FORCE, 1, 2);
    QCOMPARE(model->find_exodus_from_fea(force), std::vector<TreeExodusData*>{sideset});
    QCOMPARE(model->find_fea_from_exodus(sideset), std::vector<TreeFeaBCData*>{force});
}

void tst_TreeSimModel::sameIdIsAnnouncedAgain()
{
    TreeFeaBCData* force = model->add_fea_bc(FORCE, 1);
    TreeCfdBCData* wall = model->add_cfd_bc(WALL, 1);
    force->set_name("pull");
    wall->set_name("outer");
    log.take();
    model->change_fea_bc_id(FORCE, 1, 1);
    model->change_cfd_bc_id(1, 1);
    QCOMPARE(log.take(), QStringList({"force 1: id_changed(1)", "wall 1: id_changed(1)"}));
    QCOMPARE(model->find_fea_bc(FORCE, 1), force);
    QCOMPARE(model->find_cfd_bc(1), wall);
}

void tst_TreeSimModel::unknownOldIdLeavesTheNewOneAlone()
{
    TreeFeaBCData* force = model->add_fea_bc(FORCE, 1);
    TreeCfdBCData* wall = model->add_cfd_bc(WALL, 1);
    log.take();
    model->change_fea_bc_id(FORCE, 2, 1);
    model->change_cfd_bc_id(2, 1);
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(model->find_fea_bc(FORCE, 1), force);
    QCOMPARE(model->find_cfd_bc(1), wall);
}

void tst_TreeSimModel::displacedConditionsStayAliveWithTheirLinks()
{
    TreeExodusData* sideset = model->add_exodus(SIDESET, 1);
    model->add_fea_bc(FORCE, 1);
    model->add_cfd_bc(WALL, 1);
    QPointer<TreeFeaBCData> force = model->add_fea_bc(FORCE, 2);
    QPointer<TreeCfdBCData> wall = model->add_cfd_bc(WALL, 2);
    model->fea_add_exodus(force, sideset);
    model->cfd_add_exodus(wall, sideset);
    log.take();

    model->change_fea_bc_id(FORCE, 1, 2);
    model->change_cfd_bc_id(1, 2);
    model->clear_fea();
    model->clear_cfd();

    QVERIFY(log.take_only({"fea_bc_removed", "cfd_bc_removed", "exodus_removed"}).isEmpty());
    QVERIFY(force && wall);
    QCOMPARE(model->find_fea_from_exodus(sideset), std::vector<TreeFeaBCData*>{force});
    QCOMPARE(model->find_exodus_from_cfd(wall), std::vector<TreeExodusData*>{sideset});
    model->remove_exodus(SIDESET, 1);
    QVERIFY(model->find_exodus_from_fea(force).empty());
}

void tst_TreeSimModel::displacedConditionsGoSilentlyWithTheModel()
{
    model->add_fea_bc(FORCE, 1);
    model->add_cfd_bc(WALL, 1);
    QPointer<TreeFeaBCData> force = model->add_fea_bc(FORCE, 2);
    QPointer<TreeCfdBCData> wall = model->add_cfd_bc(WALL, 2);
    model->change_fea_bc_id(FORCE, 1, 2);
    model->change_cfd_bc_id(1, 2);
    log.take();

    model.reset();

    QVERIFY(!force && !wall);
    QCOMPARE(log.take_only({"fea", "cfd", "exodus", "about"}),
        QStringList({"about_to_clear_exodus()", "about_to_clear_fea()", "about_to_clear_cfd()",
            "about_to_clear_material()"}));
}

void tst_TreeSimModel::newIdStaysWithinItsType()
{
    TreeFeaBCData* force = model->add_fea_bc(FORCE, 1);
    TreeFeaBCData* pressure = model->add_fea_bc(PRESSURE, 2);
    model->change_fea_bc_id(FORCE, 1, 2);
    QCOMPARE(model->find_fea_bc(FORCE, 2), force);
    QCOMPARE(model->find_fea_bc(PRESSURE, 2), pressure);
}

void tst_TreeSimModel::clearExodusLeavesConditionsWithoutLinks()
{
    TreeExodusData* nodeset = model->add_exodus(NODESET, 1);
    model->add_exodus(SIDESET, 2);
    model->add_exodus(BLOCK, 4);
    model->add_exodus(BLOCK, 3);
    TreeFeaBCData* force = model->add_fea_bc(FORCE, 1);
    TreeCfdBCData* wall = model->add_cfd_bc(WALL, 1);
    model->fea_add_exodus(force, nodeset);
    model->cfd_add_exodus(wall, nodeset);
    log.take();

    model->clear_exodus();

    QCOMPARE(log.take(),
        QStringList({"about_to_clear_exodus()", "block 3: treedata_destroyed(block 3)",
            "block 4: treedata_destroyed(block 4)", "sideset 2: treedata_destroyed(sideset 2)",
            "nodeset 1: treedata_destroyed(nodeset 1)"}));
    QVERIFY(model->find_exodus_from_fea(force).empty());
    QVERIFY(model->find_exodus_from_cfd(wall).empty());
    QCOMPARE(model->find_fea_bc(FORCE, 1), force);
    QVERIFY(model->exodus_entities(BLOCK).empty());
}

void tst_TreeSimModel::clearFeaLeavesTheRestAlone()
{
    TreeExodusData* sideset = model->add_exodus(SIDESET, 1);
    TreeCfdBCData* wall = model->add_cfd_bc(WALL, 1);
    model->fea_add_exodus(model->add_fea_bc(PRESSURE, 3), sideset);
    model->fea_add_exodus(model->add_fea_bc(PRESSURE, 2), sideset);
    model->fea_add_exodus(model->add_fea_bc(FORCE, 4), sideset);
    model->cfd_add_exodus(wall, sideset);
    log.take();

    model->clear_fea();

    QCOMPARE(
        log.take(), QStringList({"about_to_clear_fea()", "force 4: treedata_destroyed(force 4)",
                        "pressure 2: treedata_destroyed(pressure 2)",
                        "pressure 3: treedata_destroyed(pressure 3)"}));
    QVERIFY(model->find_fea_from_exodus(sideset).empty());
    QCOMPARE(model->find_cfd_from_exodus(sideset), std::vector<TreeCfdBCData*>{wall});
}

void tst_TreeSimModel::clearCfdDeletesAtOnceAndLeavesTheRestAlone()
{
    TreeExodusData* sideset = model->add_exodus(SIDESET, 1);
    TreeFeaBCData* force = model->add_fea_bc(FORCE, 1);
    model->cfd_add_exodus(model->add_cfd_bc(WALL, 3), sideset);
    model->cfd_add_exodus(model->add_cfd_bc(AXIS, 2), sideset);
    model->fea_add_exodus(force, sideset);
    log.take();

    model->clear_cfd();

    QCOMPARE(log.take(), QStringList({"about_to_clear_cfd()", "axis 2: treedata_destroyed(axis 2)",
                             "wall 3: treedata_destroyed(wall 3)"}));
    QVERIFY(model->find_cfd_from_exodus(sideset).empty());
    QCOMPARE(model->find_fea_from_exodus(sideset), std::vector<TreeFeaBCData*>{force});
}

void tst_TreeSimModel::clearMaterialDeletesBothKinds()
{
    model->add_material(2, false);
    model->add_material(1, true);
    log.take();
    model->clear_material();
    QCOMPARE(log.take(),
        QStringList({"about_to_clear_material()", "material 1: treedata_destroyed(material 1)",
            "material 2: treedata_destroyed(material 2)"}));
    QVERIFY(model->materials(false).empty());
    QVERIFY(model->materials(true).empty());
}

void tst_TreeSimModel::clearGoesThroughTheKindsInOrder()
{
    model->add_exodus(BLOCK, 1);
    model->add_fea_bc(FORCE, 1);
    model->add_cfd_bc(WALL, 1);
    model->add_material(1, false);
    log.take();
    model->clear();
    QCOMPARE(log.take(),
        QStringList({"about_to_clear_exodus()", "block 1: treedata_destroyed(block 1)",
            "about_to_clear_fea()", "force 1: treedata_destroyed(force 1)", "about_to_clear_cfd()",
            "wall 1: treedata_destroyed(wall 1)", "about_to_clear_material()",
            "material 1: treedata_destroyed(material 1)"}));
}

void tst_TreeSimModel::clearingIsAnnouncedBeforeAnyChange()
{
    TreeSimModel* m = model.get();
    TreeExodusData* sideset = m->add_exodus(SIDESET, 1);
    m->fea_add_exodus(m->add_fea_bc(FORCE, 1), sideset);
    m->cfd_add_exodus(m->add_cfd_bc(WALL, 1), sideset);
    m->add_material(1, false);
    QObject until_cleared;
    QStringList seen;
    connect(m, &TreeSimModel::about_to_clear_exodus, &until_cleared, [&] {
        seen << QString::number(m->exodus_entities(SIDESET).size()) +
                    QString::number(m->find_fea_from_exodus(sideset).size());
    });
    connect(m, &TreeSimModel::about_to_clear_fea, &until_cleared,
        [&] { seen << QString::number(m->fea_bcs(FORCE).size()); });
    connect(m, &TreeSimModel::about_to_clear_cfd, &until_cleared,
        [&] { seen << QString::number(m->cfd_bcs(WALL).size()); });
    connect(m, &TreeSimModel::about_to_clear_material, &until_cleared,
        [&] { seen << QString::number(m->materials(false).size()); });
    m->clear();
    QCOMPARE(seen, QStringList({"11", "1", "1", "1"}));
}

namespace {

using Action = std::function<void()>;
/// Has the action run at a certain signal of the model.
using Moment = std::function<void(TreeSimModel&, const Action&)>;

} // namespace

Q_DECLARE_METATYPE(Moment)

void tst_TreeSimModel::clearMayBeCalledAtAnyMoment_data()
{
    QTest::addColumn<Moment>("moment");
    const auto row = [](const char* name, auto signal) {
        QTest::newRow(name) << Moment(
            [signal](TreeSimModel& m, const Action& action) { connect(&m, signal, &m, action); });
    };
    row("exodus added", &TreeSimModel::exodus_entity_added);
    row("exodus removed", &TreeSimModel::exodus_entity_removed);
    row("fea added", &TreeSimModel::fea_bc_added);
    row("fea removed", &TreeSimModel::fea_bc_removed);
    row("cfd added", &TreeSimModel::cfd_bc_added);
    row("cfd removed", &TreeSimModel::cfd_bc_removed);
    row("material added", &TreeSimModel::material_added);
    row("material removed", &TreeSimModel::material_removed);
    row("fea linked", &TreeSimModel::exodus_added_to_fea);
    row("fea unlinked", &TreeSimModel::exodus_removed_from_fea);
    row("cfd linked", &TreeSimModel::exodus_added_to_cfd);
    row("cfd unlinked", &TreeSimModel::exodus_removed_from_cfd);
    QTest::newRow("fea id changed") << Moment([](TreeSimModel& m, const Action& action) {
        connect(m.find_fea_bc(FORCE, 1), &TreeData::id_changed, &m, action);
    });
    QTest::newRow("cfd destroyed") << Moment([](TreeSimModel& m, const Action& action) {
        connect(m.find_cfd_bc(1), &TreeData::treedata_destroyed, &m, action);
    });
    QTest::newRow("exodus destroyed") << Moment([](TreeSimModel& m, const Action& action) {
        connect(m.find_exodus(SIDESET, 1), &TreeData::treedata_destroyed, &m, action);
    });
}

void tst_TreeSimModel::clearMayBeCalledAtAnyMoment()
{
    QFETCH(Moment, moment);
    recorder.reset();
    TreeSimModel* m = model.get();
    TreeExodusData* sideset = m->add_exodus(SIDESET, 1);
    m->fea_add_exodus(m->add_fea_bc(FORCE, 1), sideset);
    m->cfd_add_exodus(m->add_cfd_bc(WALL, 1), sideset);
    m->add_exodus(SIDESET, 2);
    m->add_material(1, false);
    bool cleared = false;
    moment(*m, [&] {
        if (!std::exchange(cleared, true)) {
            m->clear();
        }
    });

    m->add_exodus(BLOCK, 1);
    m->add_fea_bc(PRESSURE, 1);
    m->add_cfd_bc(AXIS, 2);
    m->add_material(2, true);
    m->fea_add_exodus(m->find_fea_bc(FORCE, 1), m->find_exodus(SIDESET, 2));
    m->cfd_add_exodus(m->find_cfd_bc(1), m->find_exodus(SIDESET, 2));
    m->fea_remove_exodus(m->find_fea_bc(FORCE, 1), m->find_exodus(SIDESET, 1));
    m->cfd_remove_exodus(m->find_cfd_bc(1), m->find_exodus(SIDESET, 1));
    m->change_fea_bc_id(FORCE, 1, 3);
    m->remove_exodus(SIDESET, 1);
    m->remove_fea_bc(FORCE, 3);
    m->remove_cfd_bc(1);
    m->remove_material(1);
    run_event_loop();

    QVERIFY2(cleared, "the moment did not come");
    QVERIFY(m->exodus_entities(SIDESET).empty());
    QVERIFY(m->fea_bcs(FORCE).empty());
    QVERIFY(m->cfd_bcs(WALL).empty());
    QVERIFY(m->materials(false).empty());
}

void tst_TreeSimModel::destructorClears()
{
    model->add_exodus(BLOCK, 1);
    log.take();
    model.reset();
    QCOMPARE(log.take(),
        QStringList({"about_to_clear_exodus()", "block 1: treedata_destroyed(block 1)",
            "about_to_clear_fea()", "about_to_clear_cfd()", "about_to_clear_material()"}));
}

QTEST_GUILESS_MAIN(tst_TreeSimModel)
#include "tst_TreeSimModel.moc"
