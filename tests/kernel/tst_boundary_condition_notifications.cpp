#include <memory>
#include <QCoreApplication>
#include <QTest>
#include <support/FullModel.hpp>
#include <support/MirrorText.hpp>

namespace {

constexpr int force_code = 5;
constexpr int constraint_code = 7;
constexpr int axis_code = 11;
constexpr int wall_code = 32;

QStringList reading(const QString& word, int id, int code)
{
    return {QString("get_exodus_entity_name(%1, %2)").arg(word).arg(id),
        QString("get_sideset_id_list_for_bc(%1, %2)").arg(code).arg(id),
        QString("get_nodeset_id_list_for_bc(%1, %2)").arg(code).arg(id)};
}

} // namespace

class tst_boundary_condition_notifications : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void eachKindIsAskedForByItsWordAndCode_data();
    void eachKindIsAskedForByItsWordAndCode();
    void bothNotificationsServeStructuralKinds_data();
    void bothNotificationsServeStructuralKinds();
    void fluidKindsHaveOneNotification();
    void constraintHasOneOfItsOwn();
    void constraintFollowsItsActions();
    void otherTypeWordsDoNothing_data();
    void otherTypeWordsDoNothing();

    void createdConditionIsAddedThenReadThenLinked();
    void secondCreationReadsAgain();
    void modificationReadsAgain();
    void steadyModificationTellsNothing();
    void structuralModificationMakesNoRecord();
    void fluidModificationMakesAMissingRecord();
    void deletedConditionGoesUnasked();
    void deletedFluidConditionDiesWithTheEventLoop();
    void deletionOfAnUnknownConditionIsSilent();
    void sameIdOfTwoStructuralKindsIsTwoRecords();

    void sidesetsComeBeforeNodesetsAreAskedFor();
    void linksComeInTheKernelsOrder();
    void lostLinkIsToldLastAndAlone();
    void setsOfOneIdAreTwoLinks();
    void missingSetIsPassedOver();
    void repeatedSetIsLinkedOnce();
    void blockIsNoSet();
    void removedSetEndsItsLinksInSilence();
    void visibilityIsNotRead();

    void fluidCreationKeepsThePresentKind();
    void fluidDeletionTakesAnyKind();
    void fluidModificationReplacesAnotherKind();
    void replacementIsReadWithTheNextModification();
    void outgoingConditionLeavesNoLinkBehind();

private:
    void create_sets();

    std::unique_ptr<FullMirror> mirror;
};

void tst_boundary_condition_notifications::init()
{
    mirror = std::make_unique<FullMirror>();
}

void tst_boundary_condition_notifications::cleanup()
{
    mirror.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// Blocks, sidesets and nodesets 1 to 9.
void tst_boundary_condition_notifications::create_sets()
{
    for (const char* word : {"block", "sideset", "nodeset"}) {
        for (int id = 1; id <= 9; ++id) {
            mirror->observer().notify_exodus_entity_modified(word, id, "create");
        }
    }
    mirror->log.take();
}

void tst_boundary_condition_notifications::eachKindIsAskedForByItsWordAndCode_data()
{
    QTest::addColumn<QString>("word");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("signal");
    const std::pair<const char*, int> structural[]{{"force", 5}, {"acceleration", 1},
        {"velocity", 2}, {"pressure", 6}, {"temperature", 4}, {"displacement", 3},
        {"constraint", 7}, {"convection", 8}, {"heatflux", 9}, {"contact region", 10},
        {"contact pair", 40}};
    for (const auto& [word, code] : structural) {
        QTest::newRow(word) << word << code << "fea_bc_added";
    }
    int code = 11;
    for (const char* word : {"axis", "exhaustfan", "fan", "inletvent", "intakefan", "interface",
             "interior", "massflowinlet", "outflow", "outletvent", "periodic", "periodicshadow",
             "porousjump", "pressurefarfield", "pressureinlet", "pressureoutlet", "radiator",
             "supersonicinflow", "supersonicoutflow", "symmetry", "velocityinlet", "wall"}) {
        QTest::newRow(word) << word << code++ << "cfd_bc_added";
    }
}

void tst_boundary_condition_notifications::eachKindIsAskedForByItsWordAndCode()
{
    QFETCH(QString, word);
    QFETCH(int, code);
    QFETCH(QString, signal);
    mirror->observer().notify_bc_modified(word.toStdString(), 3, "create");
    QCOMPARE(mirror->log.take(),
        QStringList(QString("%1(%2 3)").arg(signal, word)) + reading(word, 3, code));
}

void tst_boundary_condition_notifications::bothNotificationsServeStructuralKinds_data()
{
    QTest::addColumn<std::string>("action");
    QTest::newRow("create") << std::string("create");
    QTest::newRow("modify") << std::string("modify");
    QTest::newRow("delete") << std::string("delete");
}

void tst_boundary_condition_notifications::bothNotificationsServeStructuralKinds()
{
    QFETCH(std::string, action);
    QStringList events[2];
    for (const bool own : {false, true}) {
        mirror.reset();
        init();
        mirror->observer().notify_fea_bc_modified("force", 1, "create");
        mirror->log.take();
        for (const int id : {1, 2}) {
            if (own) {
                mirror->observer().notify_fea_bc_modified("force", id, action);
            } else {
                mirror->observer().notify_bc_modified("force", id, action);
            }
        }
        events[own] = mirror->log.take();
    }
    QVERIFY(!events[true].isEmpty());
    QCOMPARE(events[false], events[true]);
}

void tst_boundary_condition_notifications::fluidKindsHaveOneNotification()
{
    for (const char* action : {"create", "modify", "delete"}) {
        mirror->observer().notify_fea_bc_modified("wall", 1, action);
    }
    QCOMPARE(mirror->log.take(), QStringList());
    mirror->observer().notify_bc_modified("wall", 1, "create");
    QCOMPARE(mirror_text(mirror->model), QStringList("wall 1 'cfd_bc'"));
}

void tst_boundary_condition_notifications::constraintHasOneOfItsOwn()
{
    mirror->observer().notify_constraint_modified(2, "create");
    QCOMPARE(mirror->log.take(),
        QStringList("fea_bc_added(constraint 2)") + reading("constraint", 2, constraint_code));
}

void tst_boundary_condition_notifications::constraintFollowsItsActions()
{
    mirror->observer().notify_constraint_modified(2, "modify");
    QCOMPARE(mirror->log.take(), QStringList());
    mirror->observer().notify_fea_bc_modified("constraint", 2, "create");
    mirror->log.take();
    mirror->observer().notify_constraint_modified(2, "modify");
    QCOMPARE(mirror->log.take(), reading("constraint", 2, constraint_code));
    mirror->observer().notify_constraint_modified(2, "delete");
    QCOMPARE(mirror->log.take(), QStringList({"fea_bc_removed(constraint 2)",
                                     "constraint 2: treedata_destroyed(constraint 2)"}));
}

void tst_boundary_condition_notifications::otherTypeWordsDoNothing_data()
{
    QTest::addColumn<std::string>("word");
    for (const char* word : {"Force", "HeatFlux", "contact_pair", "contact", "walls", "Wall",
             "cfd_bc", "block", "surface", "group", ""}) {
        QTest::addRow("'%s'", word) << std::string(word);
    }
}

void tst_boundary_condition_notifications::otherTypeWordsDoNothing()
{
    QFETCH(std::string, word);
    mirror->observer().notify_bc_modified("wall", 1, "create");
    mirror->observer().notify_bc_modified("force", 1, "create");
    mirror->log.take();
    for (const char* action : {"create", "modify", "delete"}) {
        mirror->observer().notify_bc_modified(word, 1, action);
        mirror->observer().notify_fea_bc_modified(word, 1, action);
    }
    QCOMPARE(mirror->log.take(), QStringList());
}

void tst_boundary_condition_notifications::createdConditionIsAddedThenReadThenLinked()
{
    create_sets();
    mirror->kernel.exodus_names[{"wall", 1}] = "Duct";
    mirror->kernel.sidesets_of_bc[{wall_code, 1}] = {4};
    mirror->kernel.nodesets_of_bc[{wall_code, 1}] = {5};
    mirror->observer().notify_bc_modified("wall", 1, "create");
    QCOMPARE(mirror->log.take(),
        QStringList({"cfd_bc_added(wall 1)", "get_exodus_entity_name(wall, 1)",
            "wall 1: name_changed(Duct)", "get_sideset_id_list_for_bc(32, 1)",
            "exodus_added_to_cfd_bc(wall 1, sideset 4)", "get_nodeset_id_list_for_bc(32, 1)",
            "exodus_added_to_cfd_bc(wall 1, nodeset 5)"}));
}

void tst_boundary_condition_notifications::secondCreationReadsAgain()
{
    mirror->observer().notify_bc_modified("force", 1, "create");
    mirror->observer().notify_bc_modified("wall", 1, "create");
    mirror->log.take();
    mirror->observer().notify_bc_modified("force", 1, "create");
    mirror->observer().notify_bc_modified("wall", 1, "create");
    QCOMPARE(mirror->log.take(), reading("force", 1, force_code) + reading("wall", 1, wall_code));
}

void tst_boundary_condition_notifications::modificationReadsAgain()
{
    mirror->observer().notify_bc_modified("force", 1, "create");
    mirror->kernel.exodus_names[{"force", 1}] = "Wind";
    mirror->log.take();
    mirror->observer().notify_bc_modified("force", 1, "modify");
    QStringList expected = reading("force", 1, force_code);
    expected.insert(1, "force 1: name_changed(Wind)");
    QCOMPARE(mirror->log.take(), expected);
}

void tst_boundary_condition_notifications::steadyModificationTellsNothing()
{
    create_sets();
    mirror->kernel.exodus_names[{"force", 1}] = "Wind";
    mirror->kernel.sidesets_of_bc[{force_code, 1}] = {4, 2};
    mirror->observer().notify_bc_modified("force", 1, "create");
    mirror->log.take();
    mirror->observer().notify_bc_modified("force", 1, "modify");
    QCOMPARE(mirror->log.take(), reading("force", 1, force_code));
}

void tst_boundary_condition_notifications::structuralModificationMakesNoRecord()
{
    mirror->observer().notify_bc_modified("force", 1, "modify");
    mirror->observer().notify_fea_bc_modified("force", 1, "modify");
    QCOMPARE(mirror->log.take(), QStringList());
}

void tst_boundary_condition_notifications::fluidModificationMakesAMissingRecord()
{
    mirror->observer().notify_bc_modified("wall", 1, "modify");
    QCOMPARE(
        mirror->log.take(), QStringList("cfd_bc_added(wall 1)") + reading("wall", 1, wall_code));
}

void tst_boundary_condition_notifications::deletedConditionGoesUnasked()
{
    mirror->observer().notify_bc_modified("force", 1, "create");
    mirror->log.take();
    mirror->observer().notify_fea_bc_modified("force", 1, "delete");
    QCOMPARE(mirror->log.take(),
        QStringList({"fea_bc_removed(force 1)", "force 1: treedata_destroyed(force 1)"}));
}

void tst_boundary_condition_notifications::deletedFluidConditionDiesWithTheEventLoop()
{
    mirror->observer().notify_bc_modified("wall", 1, "create");
    mirror->log.take();
    mirror->observer().notify_bc_modified("wall", 1, "delete");
    QCOMPARE(mirror->log.take(), QStringList("cfd_bc_removed(wall 1)"));
    QCOMPARE(mirror->model.find_cfd_bc(1), nullptr);

    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(mirror->log.take(), QStringList("wall 1: treedata_destroyed(wall 1)"));
}

void tst_boundary_condition_notifications::deletionOfAnUnknownConditionIsSilent()
{
    mirror->observer().notify_fea_bc_modified("force", 1, "delete");
    mirror->observer().notify_bc_modified("wall", 1, "delete");
    mirror->observer().notify_constraint_modified(1, "delete");
    QCOMPARE(mirror->log.take(), QStringList());
}

void tst_boundary_condition_notifications::sameIdOfTwoStructuralKindsIsTwoRecords()
{
    mirror->observer().notify_bc_modified("force", 1, "create");
    mirror->observer().notify_bc_modified("contact pair", 1, "create");
    mirror->observer().notify_bc_modified("force", 1, "delete");
    QCOMPARE(mirror_text(mirror->model), QStringList("contact pair 1 'Contact Pair'"));
}

void tst_boundary_condition_notifications::sidesetsComeBeforeNodesetsAreAskedFor()
{
    create_sets();
    mirror->kernel.sidesets_of_bc[{force_code, 1}] = {4};
    mirror->kernel.nodesets_of_bc[{force_code, 1}] = {4};
    mirror->observer().notify_bc_modified("force", 1, "create");
    QCOMPARE(mirror->log.take().mid(2),
        QStringList(
            {"get_sideset_id_list_for_bc(5, 1)", "exodus_added_to_fea_bc(force 1, sideset 4)",
                "get_nodeset_id_list_for_bc(5, 1)", "exodus_added_to_fea_bc(force 1, nodeset 4)"}));
}

void tst_boundary_condition_notifications::linksComeInTheKernelsOrder()
{
    create_sets();
    mirror->kernel.sidesets_of_bc[{force_code, 1}] = {9, 2, 5};
    mirror->observer().notify_bc_modified("force", 1, "create");
    QCOMPARE(mirror->log.take_only({"exodus_added"}),
        QStringList({"exodus_added_to_fea_bc(force 1, sideset 9)",
            "exodus_added_to_fea_bc(force 1, sideset 2)",
            "exodus_added_to_fea_bc(force 1, sideset 5)"}));
}

void tst_boundary_condition_notifications::lostLinkIsToldLastAndAlone()
{
    create_sets();
    for (const auto& [word, code, kind] :
        {std::tuple("force", force_code, "fea"), std::tuple("wall", wall_code, "cfd")}) {
        mirror->kernel.sidesets_of_bc[{code, 1}] = {4, 5};
        mirror->kernel.nodesets_of_bc[{code, 1}] = {4};
        mirror->observer().notify_bc_modified(word, 1, "create");
        mirror->log.take();
        mirror->kernel.sidesets_of_bc[{code, 1}] = {5};
        mirror->kernel.nodesets_of_bc[{code, 1}] = {4, 6};

        mirror->observer().notify_bc_modified(word, 1, "modify");

        QCOMPARE(mirror->log.take(),
            reading(word, 1, code) +
                QStringList({QString("exodus_added_to_%1_bc(%2 1, nodeset 6)").arg(kind, word),
                    QString("exodus_removed_from_%1_bc(%2 1, sideset 4)").arg(kind, word)}));
    }
}

void tst_boundary_condition_notifications::setsOfOneIdAreTwoLinks()
{
    create_sets();
    mirror->kernel.sidesets_of_bc[{force_code, 1}] = {5};
    mirror->kernel.nodesets_of_bc[{force_code, 1}] = {5};
    mirror->observer().notify_bc_modified("force", 1, "create");
    QCOMPARE(mirror_text(mirror->model).filter("force"),
        QStringList({"sideset 5 'Sideset 5' < force 1", "nodeset 5 'Nodeset 5' < force 1",
            "force 1 'Force' > nodeset 5, sideset 5"}));
}

void tst_boundary_condition_notifications::missingSetIsPassedOver()
{
    create_sets();
    mirror->kernel.sidesets_of_bc[{force_code, 1}] = {77, 4};
    mirror->observer().notify_bc_modified("force", 1, "create");
    QCOMPARE(mirror->log.take_only({"exodus_"}),
        QStringList("exodus_added_to_fea_bc(force 1, sideset 4)"));

    mirror->observer().notify_exodus_entity_modified("sideset", 77, "create");
    QCOMPARE(mirror->log.take_only({"exodus_added_to"}), QStringList());
    mirror->observer().notify_bc_modified("force", 1, "modify");
    QCOMPARE(mirror->log.take_only({"exodus_"}),
        QStringList("exodus_added_to_fea_bc(force 1, sideset 77)"));
}

void tst_boundary_condition_notifications::repeatedSetIsLinkedOnce()
{
    create_sets();
    mirror->kernel.sidesets_of_bc[{force_code, 1}] = {4, 4};
    mirror->observer().notify_bc_modified("force", 1, "create");
    QCOMPARE(mirror->log.take_only({"exodus_"}).size(), 1);
}

void tst_boundary_condition_notifications::blockIsNoSet()
{
    mirror->observer().notify_exodus_entity_modified("block", 4, "create");
    mirror->kernel.sidesets_of_bc[{force_code, 1}] = {4};
    mirror->observer().notify_bc_modified("force", 1, "create");
    QCOMPARE(mirror->log.take_only({"exodus_added_to"}), QStringList());
}

void tst_boundary_condition_notifications::removedSetEndsItsLinksInSilence()
{
    create_sets();
    mirror->kernel.sidesets_of_bc[{force_code, 1}] = {4};
    mirror->observer().notify_bc_modified("force", 1, "create");
    mirror->log.take();
    mirror->observer().notify_exodus_entity_modified("sideset", 4, "delete");
    QCOMPARE(mirror->log.take(), QStringList({"exodus_entity_removed(sideset 4)",
                                     "sideset 4: treedata_destroyed(sideset 4)"}));
    QCOMPARE(mirror_text(mirror->model).constLast(), "force 1 'Force'");
}

void tst_boundary_condition_notifications::visibilityIsNotRead()
{
    mirror->kernel.hidden = {{"force", 1}, {"wall", 1}};
    mirror->observer().notify_bc_modified("force", 1, "create");
    mirror->observer().notify_bc_modified("wall", 1, "create");
    QCOMPARE(mirror->log.take_only({"is_visible"}), QStringList());
    QVERIFY(mirror->model.find_cfd_bc(1)->is_visible());
}

void tst_boundary_condition_notifications::fluidCreationKeepsThePresentKind()
{
    mirror->observer().notify_bc_modified("wall", 1, "create");
    mirror->log.take();
    mirror->observer().notify_bc_modified("axis", 1, "create");
    QCOMPARE(mirror->log.take(), reading("wall", 1, wall_code));
    QCOMPARE(mirror->model.find_cfd_bc(1)->cfd_bc_type(), TreeCfdBCData::WALL);
}

void tst_boundary_condition_notifications::fluidDeletionTakesAnyKind()
{
    mirror->observer().notify_bc_modified("wall", 1, "create");
    mirror->observer().notify_bc_modified("axis", 1, "delete");
    QCOMPARE(mirror->model.find_cfd_bc(1), nullptr);
}

// The record on its way out gets the reading, the new one nothing.
void tst_boundary_condition_notifications::fluidModificationReplacesAnotherKind()
{
    create_sets();
    mirror->kernel.sidesets_of_bc[{wall_code, 1}] = {4};
    mirror->observer().notify_bc_modified("wall", 1, "create");
    mirror->kernel.exodus_names[{"wall", 1}] = "Duct";
    mirror->kernel.exodus_names[{"axis", 1}] = "Middle";
    mirror->kernel.sidesets_of_bc[{axis_code, 1}] = {5};
    mirror->log.take();

    mirror->observer().notify_bc_modified("axis", 1, "modify");

    QCOMPARE(mirror->log.take(),
        QStringList(
            {"cfd_bc_removed(wall 1)", "cfd_bc_added(axis 1)", "get_exodus_entity_name(wall, 1)",
                "wall 1: name_changed(Duct)", "get_sideset_id_list_for_bc(32, 1)",
                "exodus_added_to_cfd_bc(wall 1, sideset 4)", "get_nodeset_id_list_for_bc(32, 1)"}));
    QCOMPARE(mirror_text(mirror->model).constLast(), "axis 1 'cfd_bc'");
    QCOMPARE(mirror->model.cfd_bcs(TreeCfdBCData::WALL).size(), 0U);
}

void tst_boundary_condition_notifications::replacementIsReadWithTheNextModification()
{
    create_sets();
    mirror->kernel.exodus_names[{"axis", 1}] = "Middle";
    mirror->kernel.sidesets_of_bc[{axis_code, 1}] = {5};
    mirror->observer().notify_bc_modified("wall", 1, "create");
    mirror->observer().notify_bc_modified("axis", 1, "modify");
    mirror->log.take();
    mirror->observer().notify_bc_modified("axis", 1, "modify");
    QCOMPARE(mirror_text(mirror->model).constLast(), "axis 1 'Middle' > sideset 5");
}

void tst_boundary_condition_notifications::outgoingConditionLeavesNoLinkBehind()
{
    create_sets();
    mirror->kernel.sidesets_of_bc[{wall_code, 1}] = {4};
    mirror->observer().notify_bc_modified("wall", 1, "create");
    mirror->observer().notify_bc_modified("axis", 1, "modify");
    TreeExodusData* sideset = mirror->model.find_exodus(TreeExodusData::SIDESET, 4);
    QCOMPARE(mirror->model.find_cfd_from_exodus(sideset).size(), 1U);

    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    QVERIFY2(mirror->model.find_cfd_from_exodus(sideset).empty(), "it would dangle");
}

QTEST_GUILESS_MAIN(tst_boundary_condition_notifications)
#include "tst_boundary_condition_notifications.moc"
