#include <algorithm>
#include <memory>
#include <numeric>
#include <QTest>
#include <random>
#include <support/GeometryText.hpp>
#include <support/WatchedMirror.hpp>
#include <treemodel/treedata/TreeBodyData.hpp>

class tst_geometry_update : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void eachTypeAsksItsOwnQuestions_data();
    void eachTypeAsksItsOwnQuestions();

    void bodyWithoutVolumesIsNotMultiAndKeepsItsSheetFlag();
    void bodyWithOneVolumeIsNotMulti();
    void bodyWithTwoVolumesIsMulti();
    void bodyIsASheetIfItsFirstVolumeIs();
    void flagsOfABodyComeBeforeItsName();

    void nameIsUtf8();
    void nameEndsAtItsFirstZeroByte();
    void nameIsToldOnChangeOnly();
    void lostNameIsToldEmpty();
    void visibilityIsToldAtEachReading();
    void nameGoesInBeforeTheVirtualFlag();
    void volumeIsVirtualIfItHoldsSomethingVirtual();
    void secondReadingOfAnUnnamedVirtualRecordNamesItByItsMark();

    void newChildrenAreAllLinkedBeforeTheFirstIsRead();
    void lostChildrenLoseTheirLinkAndStay();
    void lostOnesOfVeryManyChildrenGoByAscendingId();
    void newChildrenComeBeforeLostOnesGo();
    void emptyAnswerEndsAllLinks();
    void knownChildrenAreNotReadAgain();
    void childKnownElsewhereIsLinkedAndReadAgain();
    void sharedCurveIsOneRecordReadTwice();
    void repeatedNewChildIsLinkedAndReadOnce();
    void repeatedKnownChildIsReadOnceMore();

    void virtualRecordReadsAllItsChildrenAtEachUpdate();
    void descentGoesByTheFlagJustRead();
    void descentReachesTheVertices();
    void recordThatGoesIsAskedAboutNoMore_data();
    void recordThatGoesIsAskedAboutNoMore();

private:
    void modify_body(int id) { mirror->observer().notify_body_modified(id); }
    void modify_surface(int id) { mirror->observer().notify_surface_modified(id); }
    TreeBodyData* body(int id);
    TreeGeometryData* surface(int id);

    std::unique_ptr<WatchedMirror> mirror;
};

void tst_geometry_update::init()
{
    mirror = std::make_unique<WatchedMirror>();
}

void tst_geometry_update::cleanup()
{
    mirror.reset();
}

TreeBodyData* tst_geometry_update::body(int id)
{
    return qobject_cast<TreeBodyData*>(mirror->model.find_geometry(TreeGeometryData::BODY, id));
}

TreeGeometryData* tst_geometry_update::surface(int id)
{
    return mirror->model.find_geometry(TreeGeometryData::SURFACE, id);
}

void tst_geometry_update::eachTypeAsksItsOwnQuestions_data()
{
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("body") << QStringList{"geometry_added(body 4, null)",
        "get_relatives(body, 4, volume)", "get_entity_name(body, 4, true)", "is_visible(body, 4)",
        "body 4: visible_changed(true)", "is_virtual(body, 4)", "get_relatives(body, 4, volume)"};
    QTest::newRow("volume") << QStringList{"geometry_added(volume 4, null)",
        "get_entity_name(volume, 4, true)", "is_visible(volume, 4)",
        "volume 4: visible_changed(true)", "contains_virtual(volume, 4)",
        "get_relatives(volume, 4, surface)"};
    QTest::newRow("surface") << QStringList{"geometry_added(surface 4, null)",
        "get_entity_name(surface, 4, true)", "is_visible(surface, 4)",
        "surface 4: visible_changed(true)", "is_virtual(surface, 4)",
        "get_relatives(surface, 4, curve)"};
    QTest::newRow("curve") << QStringList{"geometry_added(curve 4, null)",
        "get_entity_name(curve, 4, true)", "is_visible(curve, 4)", "curve 4: visible_changed(true)",
        "is_virtual(curve, 4)", "get_relatives(curve, 4, vertex)"};
    QTest::newRow("vertex") << QStringList{"geometry_added(vertex 4, null)",
        "get_entity_name(vertex, 4, true)", "is_visible(vertex, 4)",
        "vertex 4: visible_changed(true)", "is_virtual(vertex, 4)"};
}

void tst_geometry_update::eachTypeAsksItsOwnQuestions()
{
    const QByteArray word = QTest::currentDataTag();
    auto& observer = mirror->observer();
    if (word == "body") {
        observer.notify_body_created(4);
    } else if (word == "volume") {
        observer.notify_volume_created(4);
    } else if (word == "surface") {
        observer.notify_surface_created(4);
    } else if (word == "curve") {
        observer.notify_curve_created(4);
    } else {
        observer.notify_vertex_created(4);
    }
    QTEST(mirror->log.take(), "expected");
}

void tst_geometry_update::bodyWithoutVolumesIsNotMultiAndKeepsItsSheetFlag()
{
    mirror->kernel.relate("body", 1, "volume", {2, 3});
    mirror->kernel.sheet_volumes = {2};
    modify_body(1);
    QVERIFY(body(1)->is_sheet_body());
    QVERIFY(body(1)->is_multi_volume());
    mirror->kernel.relatives.clear();
    mirror->log.take();

    modify_body(1);

    QCOMPARE(mirror->log.take(),
        QStringList({"get_relatives(body, 1, volume)", "body 1: multi_volume_changed(false)",
            "get_entity_name(body, 1, true)", "is_visible(body, 1)",
            "body 1: visible_changed(true)", "is_virtual(body, 1)",
            "get_relatives(body, 1, volume)", "geometry_disassociated(body 1, volume 2)",
            "geometry_disassociated(body 1, volume 3)"}));
    QVERIFY(body(1)->is_sheet_body());
    QVERIFY(!body(1)->is_multi_volume());
}

void tst_geometry_update::bodyWithOneVolumeIsNotMulti()
{
    mirror->kernel.relate("body", 1, "volume", {2});
    modify_body(1);
    QVERIFY(!body(1)->is_multi_volume());
    QVERIFY(!mirror->log.take().join('\n').contains("multi_volume_changed"));
}

void tst_geometry_update::bodyWithTwoVolumesIsMulti()
{
    mirror->kernel.relate("body", 1, "volume", {2, 3});
    modify_body(1);
    QVERIFY(body(1)->is_multi_volume());
}

void tst_geometry_update::bodyIsASheetIfItsFirstVolumeIs()
{
    mirror->kernel.relate("body", 1, "volume", {9, 2});
    mirror->kernel.sheet_volumes = {1, 2};
    modify_body(1);
    QCOMPARE(mirror->log.take_only({"is_sheet_body"}), QStringList("is_sheet_body(9)"));
    QVERIFY2(!body(1)->is_sheet_body(), "neither its own id nor the lowest volume counts");

    mirror->kernel.sheet_volumes = {9};
    modify_body(1);
    QVERIFY(body(1)->is_sheet_body());

    mirror->kernel.sheet_volumes.clear();
    modify_body(1);
    QVERIFY(!body(1)->is_sheet_body());
}

void tst_geometry_update::flagsOfABodyComeBeforeItsName()
{
    modify_body(1);
    mirror->kernel.relate("body", 1, "volume", {3, 2});
    mirror->kernel.sheet_volumes = {3};
    mirror->kernel.names[{"body", 1}] = "Housing";
    mirror->log.take();

    modify_body(1);

    QCOMPARE(mirror->log.take().mid(0, 6),
        QStringList({"get_relatives(body, 1, volume)", "body 1: multi_volume_changed(true)",
            "is_sheet_body(3)", "body 1: sheet_body_changed(true)",
            "get_entity_name(body, 1, true)", "body 1: name_changed(Housing)"}));
}

void tst_geometry_update::nameIsUtf8()
{
    mirror->kernel.names[{"surface", 4}] = "Fl\xC3\xA4"
                                           "che \xE9\x9D\xA2";
    modify_surface(4);
    QCOMPARE(surface(4)->name(), QString::fromUtf16(u"Fl\u00E4che \u9762"));
}

void tst_geometry_update::nameEndsAtItsFirstZeroByte()
{
    mirror->kernel.names[{"surface", 4}] = std::string("Lid\0 of the box", 15);
    modify_surface(4);
    QCOMPARE(surface(4)->name(), "Lid");
}

void tst_geometry_update::nameIsToldOnChangeOnly()
{
    mirror->kernel.names[{"surface", 4}] = "Lid";
    modify_surface(4);
    QVERIFY(mirror->log.take().contains("surface 4: name_changed(Lid)"));
    modify_surface(4);
    QCOMPARE(mirror->log.take(), plain_reading("surface", 4));
}

void tst_geometry_update::lostNameIsToldEmpty()
{
    mirror->kernel.names[{"surface", 4}] = "Lid";
    modify_surface(4);
    mirror->kernel.names.clear();
    mirror->log.take();

    modify_surface(4);

    QCOMPARE(mirror->log.take_only({"surface 4: name"}), QStringList("surface 4: name_changed()"));
    QCOMPARE(surface(4)->name(), "Surface 4");
}

void tst_geometry_update::visibilityIsToldAtEachReading()
{
    mirror->kernel.hidden = {{"surface", 4}};
    modify_surface(4);
    modify_surface(4);
    mirror->kernel.hidden.clear();
    modify_surface(4);
    QCOMPARE(mirror->log.take_only({"surface 4: visible"}),
        QStringList({"surface 4: visible_changed(false)", "surface 4: visible_changed(false)",
            "surface 4: visible_changed(true)"}));
}

void tst_geometry_update::nameGoesInBeforeTheVirtualFlag()
{
    mirror->kernel.names[{"surface", 4}] = "Lid";
    mirror->kernel.virtual_entities = {{"surface", 4}};

    modify_surface(4);
    QCOMPARE(mirror->log.take_only({"surface 4"}),
        QStringList({"surface 4: name_changed(Lid)", "surface 4: visible_changed(true)",
            "surface 4: virtual_changed(true)", "surface 4: name_changed(Lid (v))"}));

    mirror->kernel.virtual_entities.clear();
    modify_surface(4);
    QCOMPARE(mirror->log.take_only({"surface 4"}),
        QStringList({"surface 4: visible_changed(true)", "surface 4: virtual_changed(false)",
            "surface 4: name_changed(Lid)"}));
}

void tst_geometry_update::volumeIsVirtualIfItHoldsSomethingVirtual()
{
    mirror->kernel.virtual_entities = {{"volume", 2}};
    mirror->observer().notify_volume_created(2);
    TreeGeometryData* volume = mirror->model.find_geometry(TreeGeometryData::VOLUME, 2);
    QVERIFY2(!volume->is_virtual(), "a volume is not asked whether it is virtual itself");

    mirror->kernel.virtual_entities.clear();
    mirror->kernel.containing_virtual = {{"volume", 2}, {"surface", 4}};
    mirror->observer().notify_volume_created(2);
    QVERIFY(volume->is_virtual());
    modify_surface(4);
    QVERIFY2(!surface(4)->is_virtual(), "a surface is not asked what it holds");
}

// A name is completed to fit the flag, so an empty one becomes the mark alone,
// which the first reading, for which the record is still plain, does not store.
void tst_geometry_update::secondReadingOfAnUnnamedVirtualRecordNamesItByItsMark()
{
    mirror->kernel.virtual_entities = {{"surface", 4}};
    modify_surface(4);
    QCOMPARE(mirror->log.take_only({"surface 4"}),
        QStringList({"surface 4: visible_changed(true)", "surface 4: virtual_changed(true)",
            "surface 4: name_changed(Surface 4 (v))"}));

    modify_surface(4);
    QCOMPARE(mirror->log.take_only({"surface 4"}),
        QStringList({"surface 4: name_changed( (v))", "surface 4: visible_changed(true)"}));
}

void tst_geometry_update::newChildrenAreAllLinkedBeforeTheFirstIsRead()
{
    modify_surface(4);
    mirror->kernel.relate("surface", 4, "curve", {9, 3, 5});
    mirror->log.take();

    modify_surface(4);

    QCOMPARE(mirror->log.take(),
        plain_reading("surface", 4) +
            QStringList({"geometry_added(curve 3, surface 4)", "geometry_added(curve 5, surface 4)",
                "geometry_added(curve 9, surface 4)"}) +
            plain_reading("curve", 3) + plain_reading("curve", 5) + plain_reading("curve", 9));
}

void tst_geometry_update::lostChildrenLoseTheirLinkAndStay()
{
    mirror->kernel.relate("surface", 4, "curve", {9, 3, 5});
    modify_surface(4);
    mirror->kernel.relate("surface", 4, "curve", {5});
    mirror->log.take();

    modify_surface(4);

    QCOMPARE(mirror->log.take(),
        plain_reading("surface", 4) + QStringList({"geometry_disassociated(surface 4, curve 3)",
                                          "geometry_disassociated(surface 4, curve 9)"}));
    QCOMPARE(names_of(mirror->model.geometry(TreeGeometryData::CURVE)),
        QStringList({"curve 3", "curve 5", "curve 9"}));
}

void tst_geometry_update::lostOnesOfVeryManyChildrenGoByAscendingId()
{
    std::vector<int> ids(5000);
    std::iota(ids.begin(), ids.end(), -100);
    std::vector<int> in_any_order = ids;
    std::shuffle(in_any_order.begin(), in_any_order.end(), std::mt19937(1));
    for (const int id : in_any_order) {
        mirror->observer().notify_curve_created(id);
    }
    mirror->kernel.relate("surface", 4, "curve", in_any_order);
    modify_surface(4);
    std::erase_if(in_any_order, [](int id) { return id % 10 == 0; });
    mirror->kernel.relate("surface", 4, "curve", in_any_order);
    mirror->log.take();

    modify_surface(4);

    QStringList expected;
    for (const int id : ids) {
        if (id % 10 == 0) {
            expected << QString("geometry_disassociated(surface 4, curve %1)").arg(id);
        }
    }
    QCOMPARE(mirror->log.take(), plain_reading("surface", 4) + expected);
}

void tst_geometry_update::newChildrenComeBeforeLostOnesGo()
{
    mirror->kernel.relate("surface", 4, "curve", {1});
    modify_surface(4);
    mirror->kernel.relate("surface", 4, "curve", {2});
    mirror->log.take();

    modify_surface(4);

    QCOMPARE(mirror->log.take(), plain_reading("surface", 4) +
                                     QStringList({"geometry_added(curve 2, surface 4)",
                                         "geometry_disassociated(surface 4, curve 1)"}) +
                                     plain_reading("curve", 2));
}

void tst_geometry_update::emptyAnswerEndsAllLinks()
{
    mirror->kernel.relate("surface", 4, "curve", {1, 2});
    modify_surface(4);
    mirror->kernel.relatives.clear();

    modify_surface(4);

    QVERIFY(mirror->model.find_geometry_children(surface(4)).empty());
    QCOMPARE(mirror->model.geometry(TreeGeometryData::CURVE).size(), 2u);
}

void tst_geometry_update::knownChildrenAreNotReadAgain()
{
    mirror->kernel.relate("surface", 4, "curve", {1, 2});
    modify_surface(4);
    mirror->log.take();

    modify_surface(4);

    QCOMPARE(mirror->log.take(), plain_reading("surface", 4));
}

void tst_geometry_update::childKnownElsewhereIsLinkedAndReadAgain()
{
    mirror->observer().notify_curve_created(1);
    modify_surface(4);
    mirror->kernel.relate("surface", 4, "curve", {1});
    mirror->log.take();

    modify_surface(4);

    QCOMPARE(mirror->log.take(), plain_reading("surface", 4) +
                                     QStringList("geometry_associated(surface 4, curve 1)") +
                                     plain_reading("curve", 1));
}

void tst_geometry_update::sharedCurveIsOneRecordReadTwice()
{
    mirror->kernel.relate("volume", 2, "surface", {4, 5});
    mirror->kernel.relate("surface", 4, "curve", {7});
    mirror->kernel.relate("surface", 5, "curve", {7});

    mirror->observer().notify_volume_created(2);

    QCOMPARE(mirror->log.take(),
        QStringList("geometry_added(volume 2, null)") + plain_reading("volume", 2) +
            QStringList(
                {"geometry_added(surface 4, volume 2)", "geometry_added(surface 5, volume 2)"}) +
            plain_reading("surface", 4) + QStringList("geometry_added(curve 7, surface 4)") +
            plain_reading("curve", 7) + plain_reading("surface", 5) +
            QStringList("geometry_associated(surface 5, curve 7)") + plain_reading("curve", 7));
    TreeGeometryData* curve = mirror->model.find_geometry(TreeGeometryData::CURVE, 7);
    QCOMPARE(sorted_names_of(mirror->model.find_geometry_parents(curve)),
        QStringList({"surface 4", "surface 5"}));
}

void tst_geometry_update::repeatedNewChildIsLinkedAndReadOnce()
{
    modify_surface(4);
    mirror->kernel.relate("surface", 4, "curve", {7, 7, 6, 7});
    mirror->log.take();

    modify_surface(4);

    QCOMPARE(mirror->log.take(), plain_reading("surface", 4) +
                                     QStringList({"geometry_added(curve 6, surface 4)",
                                         "geometry_added(curve 7, surface 4)"}) +
                                     plain_reading("curve", 6) + plain_reading("curve", 7));
}

// The first mention confirms the child, any further one counts as not yet linked.
void tst_geometry_update::repeatedKnownChildIsReadOnceMore()
{
    mirror->kernel.relate("surface", 4, "curve", {6, 7});
    modify_surface(4);
    mirror->kernel.relate("surface", 4, "curve", {7, 7, 6, 7});
    mirror->log.take();

    modify_surface(4);

    QCOMPARE(mirror->log.take(), plain_reading("surface", 4) + plain_reading("curve", 7));
    QCOMPARE(sorted_names_of(mirror->model.find_geometry_children(surface(4))),
        QStringList({"curve 6", "curve 7"}));
}

void tst_geometry_update::virtualRecordReadsAllItsChildrenAtEachUpdate()
{
    mirror->kernel.names[{"surface", 4}] = "Lid";
    mirror->kernel.virtual_entities = {{"surface", 4}};
    mirror->kernel.relate("surface", 4, "curve", {9, 3, 5});
    mirror->kernel.relate("curve", 3, "vertex", {1});
    modify_surface(4);
    mirror->kernel.relate("surface", 4, "curve", {9, 3, 6});
    mirror->log.take();

    modify_surface(4);

    const QStringList log = mirror->log.take();
    QStringList expected =
        plain_reading("surface", 4) + QStringList({"geometry_added(curve 6, surface 4)",
                                          "geometry_disassociated(surface 4, curve 5)"});
    for (TreeGeometryData* curve : mirror->model.find_geometry_children(surface(4))) {
        expected += plain_reading("curve", curve->id());
    }
    QVERIFY2(log == expected, "all of them, in the order in which the model gives them; the plain "
                              "curve 3 gained nothing");
}

void tst_geometry_update::descentGoesByTheFlagJustRead()
{
    mirror->kernel.names[{"surface", 4}] = "Lid";
    mirror->kernel.relate("surface", 4, "curve", {1});
    modify_surface(4);
    mirror->kernel.virtual_entities = {{"surface", 4}};
    mirror->log.take();

    modify_surface(4);
    QVERIFY(mirror->log.take().contains("get_entity_name(curve, 1, true)"));

    mirror->kernel.virtual_entities.clear();
    modify_surface(4);
    QVERIFY(!mirror->log.take().contains("get_entity_name(curve, 1, true)"));
}

void tst_geometry_update::descentReachesTheVertices()
{
    mirror->kernel.relate("body", 1, "volume", {2});
    mirror->kernel.relate("volume", 2, "surface", {3});
    mirror->kernel.relate("surface", 3, "curve", {4});
    mirror->kernel.relate("curve", 4, "vertex", {5});

    mirror->observer().notify_body_created(1);

    QStringList body = plain_reading("body", 1);
    body.insert(1, "is_sheet_body(2)");
    QCOMPARE(mirror->log.take(),
        QStringList("geometry_added(body 1, null)") + body +
            QStringList("geometry_added(volume 2, body 1)") + plain_reading("volume", 2) +
            QStringList("geometry_added(surface 3, volume 2)") + plain_reading("surface", 3) +
            QStringList("geometry_added(curve 4, surface 3)") + plain_reading("curve", 4) +
            QStringList("geometry_added(vertex 5, curve 4)") + plain_reading("vertex", 5));
}

void tst_geometry_update::recordThatGoesIsAskedAboutNoMore_data()
{
    QTest::addColumn<QStringList>("events");
    WatchedMirror probe;
    probe.kernel.relate("body", 4, "volume", {5});
    probe.observer().notify_body_created(4);
    const QStringList events = probe.log.take();
    for (int i = 0; !events.at(i).startsWith("geometry_added(volume"); ++i) {
        QTest::addRow("%d, in %s", i, qPrintable(events.at(i))) << events.mid(0, i + 1);
    }
}

void tst_geometry_update::recordThatGoesIsAskedAboutNoMore()
{
    QFETCH(QStringList, events);
    mirror->kernel.relate("body", 4, "volume", {5});
    mirror->log.interrupt(
        int(events.size()) - 1, [&] { mirror->observer().notify_body_deleted(4); });

    mirror->observer().notify_body_created(4);

    QCOMPARE(mirror->log.take(),
        events + QStringList({"geometry_removed(body 4)", "body 4: treedata_destroyed(body 4)"}));
}

QTEST_GUILESS_MAIN(tst_geometry_update)
#include "tst_geometry_update.moc"
