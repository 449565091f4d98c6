#include <functional>
#include <QTest>
#include <support/GeometryText.hpp>
#include <support/WatchedMirror.hpp>

using Action = std::function<void(WatchedMirror&)>;

namespace {

// The small model without virtual entities: below one, records are read in the order
// of their addresses, which differs from mirror to mirror.
void script_plain_model(RecordingKernel& kernel)
{
    script_small_model(kernel);
    kernel.virtual_entities.clear();
    kernel.containing_virtual.clear();
}

// The events of the action on a mirror that lags behind its kernel, and the mirror after it.
struct Outcome
{
    explicit Outcome(const Action& action)
    {
        WatchedMirror mirror;
        script_plain_model(mirror.kernel);
        mirror.refresh();
        mirror.kernel.names[{"curve", 1}] = "Edge";
        mirror.kernel.entities["vertex"] = {1, 2, 3};
        action(mirror);
        events = mirror.log.take();
        picture = geometry_text(mirror.model);
    }

    QStringList events;
    QStringList picture;
};

} // namespace

class tst_resets : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void notificationDoesWhatARefreshDoes_data();
    void notificationDoesWhatARefreshDoes();
    void fileNameIsNotRead_data();
    void fileNameIsNotRead();

    void clearingRefreshTellsAndDeletesBeforeItAsks();
    void clearingRefreshMakesNewRecords();
    void plainRefreshKeepsTheRecords();
    void bothRefreshesFillAnEmptyMirrorAlike();
    void refreshNeedsNoRegistration_data();
    void refreshNeedsNoRegistration();

    void resetClearsGeometryAndAsksNothingOfIt();
    void resetMirrorFollowsTheNextNotification();
    void reservedNotificationsDoNothing();
};

void tst_resets::notificationDoesWhatARefreshDoes_data()
{
    QTest::addColumn<Action>("notify");
    QTest::addColumn<bool>("clear");
    QTest::newRow("refresh requested")
        << Action([](WatchedMirror& it) { it.observer().notify_model_refresh_requested(); })
        << false;
    QTest::newRow("geometry repaired")
        << Action([](WatchedMirror& it) { it.observer().notify_geometry_repair_complete(); })
        << false;
    QTest::newRow("model replaced")
        << Action([](WatchedMirror& it) { it.observer().notify_model_replaced(); }) << true;
    QTest::newRow("file opened") << Action([](WatchedMirror& it) {
        it.observer().notify_kes_file_opened("box.kes");
    }) << true;
}

void tst_resets::notificationDoesWhatARefreshDoes()
{
    QFETCH(Action, notify);
    QFETCH(bool, clear);
    const Outcome notified(notify);
    const Outcome refreshed([clear](WatchedMirror& it) { it.model.refresh_model(clear); });
    QCOMPARE(notified.events, refreshed.events);
    QCOMPARE(notified.picture, refreshed.picture);
}

void tst_resets::fileNameIsNotRead_data()
{
    QTest::addColumn<std::string>("file");
    QTest::newRow("empty") << std::string();
    QTest::newRow("broken UTF-8") << std::string("\xFF\xFE.kes");
    QTest::newRow("with a zero byte") << std::string("a\0b", 3);
}

void tst_resets::fileNameIsNotRead()
{
    QFETCH(std::string, file);
    const Outcome opened([&](WatchedMirror& it) { it.observer().notify_kes_file_opened(file); });
    const Outcome replaced([](WatchedMirror& it) { it.observer().notify_model_replaced(); });
    QCOMPARE(opened.events, replaced.events);
    QCOMPARE(opened.picture, replaced.picture);
}

void tst_resets::clearingRefreshTellsAndDeletesBeforeItAsks()
{
    WatchedMirror mirror;
    mirror.kernel.entities = {{"surface", {4}}, {"curve", {5}}};
    mirror.kernel.relate("surface", 4, "curve", {5});
    mirror.refresh();

    mirror.model.refresh_model(true);

    QCOMPARE(mirror.take_geometry().mid(0, 7),
        QStringList({"about_to_clear_geometry()", "surface 4: treedata_destroyed(surface 4)",
            "curve 5: treedata_destroyed(curve 5)", "get_entities(body)", "get_entities(volume)",
            "get_entities(surface)", "geometry_added(surface 4, null)"}));
}

void tst_resets::clearingRefreshMakesNewRecords()
{
    WatchedMirror mirror;
    script_small_model(mirror.kernel);
    mirror.refresh();
    const QStringList before = geometry_text(mirror.model);
    mirror.model.find_geometry(TreeGeometryData::SURFACE, 1)->setObjectName("old");

    mirror.model.refresh_model(true);

    QCOMPARE(geometry_text(mirror.model), before);
    QVERIFY(mirror.model.find_geometry(TreeGeometryData::SURFACE, 1)->objectName().isEmpty());
}

void tst_resets::plainRefreshKeepsTheRecords()
{
    WatchedMirror mirror;
    script_small_model(mirror.kernel);
    mirror.refresh();
    mirror.model.find_geometry(TreeGeometryData::SURFACE, 1)->setObjectName("old");

    mirror.model.refresh_model(false);

    QCOMPARE(mirror.model.find_geometry(TreeGeometryData::SURFACE, 1)->objectName(), "old");
    QCOMPARE(mirror.log.take_only({"geometry_", "about_to"}), QStringList());
}

void tst_resets::bothRefreshesFillAnEmptyMirrorAlike()
{
    QStringList pictures[2];
    QStringList events[2];
    for (const bool clear : {false, true}) {
        WatchedMirror mirror;
        script_plain_model(mirror.kernel);
        mirror.model.refresh_model(clear);
        events[clear] = mirror.take_geometry();
        pictures[clear] = geometry_text(mirror.model);
    }
    QCOMPARE(pictures[true], pictures[false]);
    QCOMPARE(events[true], QStringList("about_to_clear_geometry()") + events[false]);
}

void tst_resets::refreshNeedsNoRegistration_data()
{
    QTest::addColumn<bool>("clear");
    QTest::newRow("plain") << false;
    QTest::newRow("clearing") << true;
}

void tst_resets::refreshNeedsNoRegistration()
{
    QFETCH(bool, clear);
    const Outcome registered([clear](WatchedMirror& it) { it.model.refresh_model(clear); });
    const Outcome unregistered([clear](WatchedMirror& it) {
        it.model.disconnect_from_kesto();
        it.log.take();
        it.model.refresh_model(clear);
    });
    QCOMPARE(unregistered.events, registered.events);
    QCOMPARE(unregistered.picture, registered.picture);
}

void tst_resets::resetClearsGeometryAndAsksNothingOfIt()
{
    WatchedMirror mirror;
    mirror.kernel.entities = {{"surface", {4}}, {"curve", {5}}};
    mirror.kernel.relate("surface", 4, "curve", {5});
    mirror.refresh();

    mirror.observer().notify_model_reset();

    QCOMPARE(mirror.take_geometry(),
        QStringList({"about_to_clear_geometry()", "surface 4: treedata_destroyed(surface 4)",
            "curve 5: treedata_destroyed(curve 5)"}));
    QCOMPARE(geometry_text(mirror.model), QStringList());
}

void tst_resets::resetMirrorFollowsTheNextNotification()
{
    WatchedMirror mirror;
    script_small_model(mirror.kernel);
    mirror.refresh();
    mirror.observer().notify_model_reset();

    mirror.observer().notify_curve_created(8);

    QCOMPARE(geometry_text(mirror.model),
        QStringList({"curve 8 'Curve 8' hidden > vertex 3", "vertex 3 'Vertex 3' < curve 8"}));
}

void tst_resets::reservedNotificationsDoNothing()
{
    WatchedMirror mirror;
    script_small_model(mirror.kernel);
    mirror.refresh();
    mirror.kernel.entities.clear();

    mirror.observer().notify_reserved_1();
    mirror.observer().notify_reserved_2();

    QCOMPARE(mirror.log.take(), QStringList());
}

QTEST_GUILESS_MAIN(tst_resets)
#include "tst_resets.moc"
