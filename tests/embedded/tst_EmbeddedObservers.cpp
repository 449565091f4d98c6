#include "NotificationLog.hpp"
#include "TestModels.hpp"

#include <embedded/EmbeddedKernel.hpp>
#include <memory>
#include <QTest>
#include <stdexcept>

using namespace KestoInterface;

class tst_EmbeddedObservers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void observerHearsNothingBeforeItIsRegistered();
    void observerHearsNothingAfterItIsUnregistered();
    void observerRegisteredTwiceHearsOnce();
    void observersAreCalledInTheOrderOfRegistration();
    void destroyedObserverIsDropped();
    void observerMayUnregisterAnotherFromInsideANotification();
    void observerMayDestroyAnotherFromInsideANotification();
    void observerRegisteredInsideANotificationHearsTheNext();
    void observerThatLeavesAndComesBackHearsEachNotificationOnce();
    void observerOutlivesTheKernel();

    void withoutAKernelEveryFunctionAnswersEmpty();
    void unknownWordsAndIdsAnswerEmpty();
    void lastKernelMadeIsTheActiveOne();
    void kernelThatIsNotActiveTellsNothing();

    void operationInsideANotificationTellsBeforeItReturns();
    void entityDeletedInsideANotificationIsNotToldAsAdded();
    void idUsedAgainInsideANotificationIsNotToldAsRemoved();
    void idChangedInsideANotificationIsToldAsRemovedAndAdded();
    void parentDeletedInsideANotificationIsNotToldAsModified();
    void operationsInsideTheDeletionOfManyAreToldBeforeTheRest();
    void observerThatThrowsLeavesTheChangeMade();
};

namespace {

using Log = NotificationLog;

QString events(Log& log)
{
    return log.take();
}

} // namespace

void tst_EmbeddedObservers::observerHearsNothingBeforeItIsRegistered()
{
    EmbeddedKernel kernel;
    Log log;
    log.unregister_observer();
    kernel.create_vertex();
    QCOMPARE(events(log), QString());
    log.register_observer();
    kernel.create_vertex();
    QCOMPARE(events(log), QStringLiteral("vertex_created 2"));
}

void tst_EmbeddedObservers::observerHearsNothingAfterItIsUnregistered()
{
    EmbeddedKernel kernel;
    Log log;
    log.unregister_observer();
    log.unregister_observer();
    kernel.create_vertex();
    QCOMPARE(events(log), QString());
}

void tst_EmbeddedObservers::observerRegisteredTwiceHearsOnce()
{
    EmbeddedKernel kernel;
    Log log;
    log.register_observer();
    kernel.create_vertex();
    QCOMPARE(events(log), QStringLiteral("vertex_created 1"));
    log.unregister_observer();
    kernel.create_vertex();
    QCOMPARE(events(log), QString());
}

void tst_EmbeddedObservers::observersAreCalledInTheOrderOfRegistration()
{
    EmbeddedKernel kernel;
    QString order;
    Log first;
    Log second;
    first.on_event = [&](const QString&) { order += u'1'; };
    second.on_event = [&](const QString&) { order += u'2'; };
    kernel.create_vertex();
    QCOMPARE(order, QStringLiteral("12"));
    first.unregister_observer();
    first.register_observer();
    kernel.create_vertex();
    QCOMPARE(order, QStringLiteral("1221"));
}

void tst_EmbeddedObservers::destroyedObserverIsDropped()
{
    EmbeddedKernel kernel;
    auto log = std::make_unique<Log>();
    log.reset();
    kernel.create_vertex();
    QCOMPARE(get_entities("vertex").size(), std::size_t(1));
}

void tst_EmbeddedObservers::observerMayUnregisterAnotherFromInsideANotification()
{
    EmbeddedKernel kernel;
    Log first;
    Log second;
    Log third;
    first.on_event = [&](const QString&) {
        first.unregister_observer();
        second.unregister_observer();
    };
    kernel.create_vertex();
    QCOMPARE(events(first), QStringLiteral("vertex_created 1"));
    QCOMPARE(events(second), QString());
    QCOMPARE(events(third), QStringLiteral("vertex_created 1"));
}

void tst_EmbeddedObservers::observerMayDestroyAnotherFromInsideANotification()
{
    EmbeddedKernel kernel;
    Log first;
    auto second = std::make_unique<Log>();
    Log third;
    first.on_event = [&](const QString&) { second.reset(); };
    kernel.create_vertex();
    kernel.create_vertex();
    QCOMPARE(events(third), QStringLiteral("vertex_created 1, vertex_created 2"));
}

void tst_EmbeddedObservers::observerRegisteredInsideANotificationHearsTheNext()
{
    EmbeddedKernel kernel;
    Log late;
    late.unregister_observer();
    Log log;
    log.on_event = [&](const QString&) { late.register_observer(); };
    kernel.create_vertex();
    QCOMPARE(events(late), QString());
    kernel.create_vertex();
    QCOMPARE(events(late), QStringLiteral("vertex_created 2"));
}

void tst_EmbeddedObservers::observerThatLeavesAndComesBackHearsEachNotificationOnce()
{
    EmbeddedKernel kernel;
    Log log;
    log.on_event = [&](const QString&) {
        log.unregister_observer();
        log.register_observer();
    };
    kernel.create_vertex();
    kernel.create_vertex();
    QCOMPARE(events(log), QStringLiteral("vertex_created 1, vertex_created 2"));
}

void tst_EmbeddedObservers::observerOutlivesTheKernel()
{
    auto kernel = std::make_unique<EmbeddedKernel>();
    Log log;
    kernel.reset();
    kernel = std::make_unique<EmbeddedKernel>();
    kernel->create_vertex();
    QCOMPARE(events(log), QStringLiteral("vertex_created 1"));
}

void tst_EmbeddedObservers::withoutAKernelEveryFunctionAnswersEmpty()
{
    {
        EmbeddedKernel gone;
        gone.open_model(loose_ends(), "ends.step");
    }
    std::vector<std::string> names;
    std::vector<int> ids;
    group_list(names, ids);
    QVERIFY(names.empty());
    QVERIFY(ids.empty());
    int count = 0;
    get_group_children(1, ids, ids, ids, ids, ids, ids, count, count, count, count, count, count,
        count, count, count);
    QVERIFY(ids.empty());
    QCOMPARE(count, 0);

    for (const char* type : {"body", "volume", "surface", "curve", "vertex"}) {
        QVERIFY(get_entities(type).empty());
        QVERIFY(get_list_of_free_ref_entities(type).empty());
        QVERIFY(get_entity_name(type, 1, true).empty());
        QVERIFY(get_exodus_entity_name(type, 1).empty());
        QVERIFY(get_exodus_entity_type(type, 1).empty());
        QVERIFY(!is_visible(type, 1));
        QVERIFY(!is_virtual(type, 1));
        QVERIFY(!contains_virtual(type, 1));
        QVERIFY(get_relatives(type, 1, "vertex").empty());
    }
    QVERIFY(!is_sheet_body(1));
    QVERIFY(get_block_id_list().empty());
    QVERIFY(get_sideset_id_list().empty());
    QVERIFY(get_nodeset_id_list().empty());
    QVERIFY(get_bc_id_list(BC_WALL).empty());
    QVERIFY(get_sideset_id_list_for_bc(BC_WALL, 1).empty());
    QVERIFY(get_nodeset_id_list_for_bc(BC_WALL, 1).empty());
    QVERIFY(get_boundary_layer_id_list().empty());
    QVERIFY(sizing_source_ids().empty());
    QCOMPARE(current_selection_count(), 0);
    QVERIFY(get_selected_type(0).empty());
    QCOMPARE(get_selected_id(0), 0);
    QVERIFY(!silent_cmd("select none"));
    QVERIFY(get_interface("Material") == nullptr);
}

void tst_EmbeddedObservers::unknownWordsAndIdsAnswerEmpty()
{
    EmbeddedKernel kernel;
    kernel.open_model(loose_ends(), "ends.step");
    for (const char* word : {"", "Body", "sheet body", "bodies", "solid"}) {
        QVERIFY(get_entities(word).empty());
        QVERIFY(get_entity_name(word, 1, true).empty());
        QVERIFY(!is_visible(word, 1));
        QVERIFY(get_relatives(word, 1, "vertex").empty());
        QVERIFY(get_relatives("curve", 1, word).empty());
    }
    for (const int id : {-2000000000, -1, 0, 2, 64, 2147483647}) {
        QVERIFY(get_entity_name("body", id, true).empty());
        QVERIFY(!is_visible("body", id));
        QVERIFY(!contains_virtual("volume", id));
        QVERIFY(!is_sheet_body(id));
        QVERIFY(get_relatives("body", id, "volume").empty());
    }
    QVERIFY(get_entities("group").empty());
    QVERIFY(get_relatives("group", 1, "body").empty());
    QVERIFY(get_relatives("body", 1, "group").empty());
    QVERIFY(!is_virtual("group", 1));
    QVERIFY(get_interface("Material2") == nullptr);
}

void tst_EmbeddedObservers::lastKernelMadeIsTheActiveOne()
{
    EmbeddedKernel first;
    first.create_vertex();
    {
        EmbeddedKernel second;
        QVERIFY(get_entities("vertex").empty());
    }
    QVERIFY(get_entities("vertex").empty());
}

void tst_EmbeddedObservers::kernelThatIsNotActiveTellsNothing()
{
    EmbeddedKernel first;
    EmbeddedKernel second;
    Log log;
    first.create_vertex();
    QCOMPARE(events(log), QString());
    second.create_curve();
    QCOMPARE(events(log), QStringLiteral("curve_created 1"));
}

void tst_EmbeddedObservers::operationInsideANotificationTellsBeforeItReturns()
{
    EmbeddedKernel kernel;
    Log log;
    QString seen_inside;
    log.on_event = [&](const QString& event) {
        if (event == QStringLiteral("vertex_created 1")) {
            kernel.rename(EntityKind::VERTEX, 1, "Tip");
            seen_inside = log.events().join(u'|');
        }
    };
    kernel.create_vertex();
    QCOMPARE(seen_inside, QStringLiteral("vertex_created 1|entity_name_changed vertex 1"));
}

void tst_EmbeddedObservers::entityDeletedInsideANotificationIsNotToldAsAdded()
{
    EmbeddedKernel kernel;
    Log log;
    log.on_event = [&](const QString& event) {
        if (event == QStringLiteral("body_added 1")) {
            kernel.remove(EntityKind::VOLUME, 1);
        }
    };
    kernel.import_model(loose_ends());
    QCOMPARE(events(log),
        QStringLiteral("body_added 1, volume_deleted 1, surface_removed 1, body_modified 1, "
                       "curve_added 1, vertex_added 1, vertex_added 2, vertex_added 3, "
                       "group_created 2, group_created 1"));
}

void tst_EmbeddedObservers::idUsedAgainInsideANotificationIsNotToldAsRemoved()
{
    EmbeddedKernel kernel;
    kernel.create_vertex();
    kernel.create_curve({1});
    Log log;
    log.on_event = [&](const QString& event) {
        if (event == QStringLiteral("curve_deleted 1")) {
            QCOMPARE(kernel.create_vertex(), 1);
        }
    };
    kernel.remove(EntityKind::CURVE, 1);
    QCOMPARE(events(log), QStringLiteral("curve_deleted 1, vertex_created 1"));
}

void tst_EmbeddedObservers::idChangedInsideANotificationIsToldAsRemovedAndAdded()
{
    EmbeddedKernel kernel;
    kernel.create_curve();
    kernel.create_group();
    Log log;
    log.on_event = [&](const QString& event) {
        if (event == QStringLiteral("surface_created 1")) {
            kernel.add_to_group(1, EntityKind::CURVE, {1});
            kernel.renumber(EntityKind::CURVE, 1, 7);
        }
    };
    kernel.create_surface({1});
    QCOMPARE(events(log),
        QStringLiteral("surface_created 1, group_modified 1, curve_removed 1, curve_added 7, "
                       "surface_modified 1, group_modified 1"));
}

void tst_EmbeddedObservers::parentDeletedInsideANotificationIsNotToldAsModified()
{
    EmbeddedKernel kernel;
    kernel.create_surface();
    kernel.create_volume({1});
    kernel.create_body({1});
    Log log;
    log.on_event = [&](const QString& event) {
        if (event == QStringLiteral("surface_deleted 1")) {
            kernel.remove(EntityKind::VOLUME, 1);
        }
    };
    kernel.remove(EntityKind::SURFACE, 1);
    QCOMPARE(events(log), QStringLiteral("surface_deleted 1, volume_deleted 1, body_modified 1"));
}

void tst_EmbeddedObservers::operationsInsideTheDeletionOfManyAreToldBeforeTheRest()
{
    EmbeddedKernel kernel;
    for (int i = 0; i < 4; ++i) {
        kernel.create_curve();
    }
    kernel.create_group();
    kernel.create_group();
    using enum EntityKind;
    kernel.add_to_group(1, CURVE, {1, 2, 3});
    kernel.add_to_group(2, CURVE, {2, 4});
    Log log;
    bool is_refused = false;
    log.on_event = [&](const QString& event) {
        if (event == QStringLiteral("curve_deleted 4")) {
            kernel.remove({{CURVE, 1}, {GROUP, 2}});
            QCOMPARE(kernel.create_curve(), 1);
            try {
                kernel.remove(CURVE, 3);
            } catch (const std::invalid_argument&) {
                is_refused = true;
            }
        }
    };

    kernel.remove({{CURVE, 4}, {CURVE, 3}, {CURVE, 2}});

    QCOMPARE(events(log),
        QStringLiteral("curve_deleted 4, curve_deleted 1, group_deleted 2, group_modified 1, "
                       "curve_created 1, curve_deleted 3, curve_deleted 2, group_modified 1"));
    QVERIFY2(is_refused, "what is still to be told has gone already");
}

void tst_EmbeddedObservers::observerThatThrowsLeavesTheChangeMade()
{
    EmbeddedKernel kernel;
    Log log;
    log.on_event = [](const QString&) { throw std::runtime_error("no"); };
    QVERIFY_THROWS_EXCEPTION(std::runtime_error, kernel.create_vertex());
    QCOMPARE(get_entities("vertex"), std::vector<int>{1});

    log.on_event = {};
    kernel.renumber(EntityKind::VERTEX, 1, 2);
    QCOMPARE(events(log), QStringLiteral("vertex_created 1, entity_id_changed vertex 1 2"));
}

QTEST_GUILESS_MAIN(tst_EmbeddedObservers)
#include "tst_EmbeddedObservers.moc"
