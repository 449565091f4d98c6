#include <functional>
#include <QRegularExpression>
#include <QTest>
#include <support/FullModel.hpp>
#include <support/MirrorText.hpp>

using Action = std::function<void(FullMirror&)>;

namespace {

// The events of the action on a mirror that lags behind its kernel, and the mirror after it.
struct Outcome
{
    explicit Outcome(const Action& action)
    {
        FullMirror mirror;
        script_full_model(mirror);
        mirror.refresh();
        change_full_model(mirror);
        action(mirror);
        events = mirror.log.take();
        picture = mirror_text(mirror.model);
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
    void refreshGoesThroughTheDomainsInOrder_data();
    void refreshGoesThroughTheDomainsInOrder();
    void steadyRefreshTellsOnlyWhatAReadingAlwaysTells();
    void bothRefreshesFillAnEmptyMirrorAlike();
    void refreshNeedsNoRegistration_data();
    void refreshNeedsNoRegistration();

    void resetClearsGeometryAndAsksNothingOfIt();
    void resetReadsTheGroupsAlone();
    void resetLeavesTheOtherDomainsEmpty();
    void resetMirrorFollowsTheNextNotification();
    void reservedNotificationsDoNothing();
};

void tst_resets::notificationDoesWhatARefreshDoes_data()
{
    QTest::addColumn<Action>("notify");
    QTest::addColumn<bool>("clear");
    QTest::newRow("refresh requested")
        << Action([](FullMirror& it) { it.observer().notify_model_refresh_requested(); }) << false;
    QTest::newRow("geometry repaired")
        << Action([](FullMirror& it) { it.observer().notify_geometry_repair_complete(); }) << false;
    QTest::newRow("model replaced")
        << Action([](FullMirror& it) { it.observer().notify_model_replaced(); }) << true;
    QTest::newRow("file opened") << Action([](FullMirror& it) {
        it.observer().notify_kes_file_opened("box.kes");
    }) << true;
}

void tst_resets::notificationDoesWhatARefreshDoes()
{
    QFETCH(Action, notify);
    QFETCH(bool, clear);
    const Outcome notified(notify);
    const Outcome refreshed([clear](FullMirror& it) { it.model.refresh_model(clear); });
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
    const Outcome opened([&](FullMirror& it) { it.observer().notify_kes_file_opened(file); });
    const Outcome replaced([](FullMirror& it) { it.observer().notify_model_replaced(); });
    QCOMPARE(opened.events, replaced.events);
    QCOMPARE(opened.picture, replaced.picture);
}

void tst_resets::clearingRefreshTellsAndDeletesBeforeItAsks()
{
    FullMirror mirror;
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
    FullMirror mirror;
    script_full_model(mirror);
    mirror.refresh();
    const QStringList before = mirror_text(mirror.model);
    mirror.model.find_geometry(TreeGeometryData::SURFACE, 1)->setObjectName("old");

    mirror.model.refresh_model(true);

    QCOMPARE(mirror_text(mirror.model), before);
    QVERIFY(mirror.model.find_geometry(TreeGeometryData::SURFACE, 1)->objectName().isEmpty());
}

void tst_resets::plainRefreshKeepsTheRecords()
{
    FullMirror mirror;
    script_full_model(mirror);
    mirror.refresh();
    mirror.model.find_geometry(TreeGeometryData::SURFACE, 1)->setObjectName("old");

    mirror.model.refresh_model(false);

    QCOMPARE(mirror.model.find_geometry(TreeGeometryData::SURFACE, 1)->objectName(), "old");
    QCOMPARE(mirror.log.take_only({"geometry_", "about_to"}), QStringList());
}

void tst_resets::refreshGoesThroughTheDomainsInOrder_data()
{
    QTest::addColumn<bool>("clear");
    QTest::newRow("plain") << false;
    QTest::newRow("clearing") << true;
}

// The selection of each domain is told before the next domain is asked for.
void tst_resets::refreshGoesThroughTheDomainsInOrder()
{
    QFETCH(bool, clear);
    FullMirror mirror;
    script_full_model(mirror);
    mirror.refresh();

    if (clear) {
        mirror.observer().notify_model_replaced();
    } else {
        mirror.observer().notify_model_refresh_requested();
    }

    const QStringList clears{"about_to_clear_geometry()", "about_to_clear_groups()",
        "about_to_clear_boundary_layers()", "about_to_clear_sizing_sources()",
        "about_to_clear_mesh_data()", "about_to_clear_exodus()", "about_to_clear_fea()",
        "about_to_clear_cfd()", "about_to_clear_material()"};
    QCOMPARE(mirror.log.take_only({"about_to_clear", "get_entities(body)", "group_list",
                 "sizing_source_ids", "get_block_id_list", "selection_changed"}),
        (clear ? clears : QStringList()) +
            QStringList({"get_entities(body)", "selection_changed([surface 2], true)",
                "group_list()", "selection_changed([group 2], true)", "sizing_source_ids()",
                "selection_changed([sizing_source 1, boundary_layer 3], true)",
                "get_block_id_list()", "selection_changed([block 1, force 2, wall 1], true)"}));
}

void tst_resets::steadyRefreshTellsOnlyWhatAReadingAlwaysTells()
{
    FullMirror mirror;
    script_full_model(mirror);
    mirror.refresh();
    const QStringList before = mirror_text(mirror.model);

    mirror.observer().notify_model_refresh_requested();

    QStringList events = mirror.log.take();
    events.removeIf([](const QString& event) {
        static const QRegularExpression expected(
            "^(get_|group_list|is_|contains_|sizing_source_ids|material_i|current_selection|"
            "selection_changed|.*: visible_changed|material .: cfd_flag_changed)");
        return expected.match(event).hasMatch();
    });
    QCOMPARE(events, QStringList());
    QCOMPARE(mirror_text(mirror.model), before);
}

void tst_resets::bothRefreshesFillAnEmptyMirrorAlike()
{
    QStringList pictures[2];
    QStringList events[2];
    const QStringList clears{"about_to_clear_geometry()", "about_to_clear_groups()",
        "about_to_clear_boundary_layers()", "about_to_clear_sizing_sources()",
        "about_to_clear_mesh_data()", "about_to_clear_exodus()", "about_to_clear_fea()",
        "about_to_clear_cfd()", "about_to_clear_material()"};
    for (const bool clear : {false, true}) {
        FullMirror mirror;
        script_full_model(mirror);
        mirror.model.refresh_model(clear);
        events[clear] = mirror.log.take();
        pictures[clear] = mirror_text(mirror.model);
    }
    QCOMPARE(pictures[true], pictures[false]);
    QCOMPARE(events[true], clears + events[false]);
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
    const Outcome registered([clear](FullMirror& it) { it.model.refresh_model(clear); });
    const Outcome unregistered([clear](FullMirror& it) {
        it.model.disconnect_from_kesto();
        it.log.take();
        it.model.refresh_model(clear);
    });
    QCOMPARE(unregistered.events, registered.events);
    QCOMPARE(unregistered.picture, registered.picture);
}

void tst_resets::resetClearsGeometryAndAsksNothingOfIt()
{
    FullMirror mirror;
    mirror.kernel.entities = {{"surface", {4}}, {"curve", {5}}};
    mirror.kernel.relate("surface", 4, "curve", {5});
    mirror.refresh();

    mirror.observer().notify_model_reset();

    QCOMPARE(mirror.take_geometry(),
        QStringList({"about_to_clear_geometry()", "surface 4: treedata_destroyed(surface 4)",
            "curve 5: treedata_destroyed(curve 5)"}));
    QCOMPARE(mirror_text(mirror.model), QStringList());
}

void tst_resets::resetReadsTheGroupsAlone()
{
    FullMirror mirror;
    mirror.kernel.entities = {{"surface", {4, 5}}};
    mirror.kernel.groups = {{"Lids", 3}};
    mirror.kernel.names = {{{"group", 3}, "Lids"}};
    mirror.kernel.group_contents = {{3, {{{{}, {}, {}, {4, 5}, {}, {}}}, {}}}};
    mirror.kernel.selection = {{"group", 3}, {"surface", 4}};
    mirror.refresh();

    mirror.observer().notify_model_reset();

    const QStringList events = mirror.log.take();
    QCOMPARE(events.mid(events.indexOf("about_to_clear_material()") + 1),
        QStringList({"group_list()", "group_added(group 3)", "get_entity_name(group, 3, false)",
            "is_visible(group, 3)", "group 3: visible_changed(true)", "get_group_children(3)",
            "current_selection_count()", "get_selected_type(0)", "get_selected_id(0)",
            "get_selected_type(1)", "selection_changed([group 3], true)"}));
    QCOMPARE(mirror_text(mirror.model), QStringList("group 3 'Lids'"));
}

void tst_resets::resetLeavesTheOtherDomainsEmpty()
{
    FullMirror mirror;
    script_full_model(mirror);
    mirror.refresh();
    mirror.observer().notify_model_reset();
    const QStringList rest = mirror_text(mirror.model);
    QVERIFY(!rest.isEmpty());
    QCOMPARE(rest.filter(QRegularExpression("^(group|.* of group|mesh records)")), rest);
}

void tst_resets::resetMirrorFollowsTheNextNotification()
{
    FullMirror mirror;
    script_full_model(mirror);
    mirror.refresh();
    mirror.observer().notify_model_reset();

    mirror.observer().notify_curve_created(1);

    QCOMPARE(mirror.model.geometry(TreeGeometryData::CURVE).size(), 1U);
    QCOMPARE(mirror.model.geometry(TreeGeometryData::VERTEX).size(), 1U);
    QCOMPARE(mirror.model.geometry(TreeGeometryData::SURFACE).size(), 0U);
}

void tst_resets::reservedNotificationsDoNothing()
{
    FullMirror mirror;
    script_full_model(mirror);
    mirror.refresh();
    mirror.kernel.entities.clear();

    mirror.observer().notify_reserved_1();
    mirror.observer().notify_reserved_2();

    QCOMPARE(mirror.log.take(), QStringList());
}

QTEST_GUILESS_MAIN(tst_resets)
#include "tst_resets.moc"
