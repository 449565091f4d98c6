#include <memory>
#include <QTest>
#include <support/GeometryText.hpp>
#include <support/WatchedMirror.hpp>
#include <treemodel/treedata/TreeBodyData.hpp>

using KestoInterface::KIObserve;
using Type = TreeGeometryData::GeometryType;
using Notification = void (KIObserve::*)(int);

class tst_geometry_notifications : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void creationMakesTheRecordAndReadsIt_data();
    void creationMakesTheRecordAndReadsIt();
    void repeatedCreationReadsAgain_data() { creationMakesTheRecordAndReadsIt_data(); }
    void repeatedCreationReadsAgain();
    void bothNamesOfACreationMakeOneRecord_data();
    void bothNamesOfACreationMakeOneRecord();
    void createdRecordIsToldBeforeItsName();
    void createdRecordGetsChildrenAndNoParent();

    void deletionRemovesTheRecordUnasked_data();
    void deletionRemovesTheRecordUnasked();
    void deletionOfAnUnknownIdDoesNothing_data() { deletionRemovesTheRecordUnasked_data(); }
    void deletionOfAnUnknownIdDoesNothing();
    void deletionLeavesTheChildren();

    void modificationOfAnUnknownBodyMakesIt_data();
    void modificationOfAnUnknownBodyMakesIt();
    void modificationOfAKnownBodyReadsIt_data() { modificationOfAnUnknownBodyMakesIt_data(); }
    void modificationOfAKnownBodyReadsIt();

    void modificationOfAnUnknownVolumeMakesAndLinksIt();
    void modificationOfAKnownVolumeLinksIt();
    void linkedVolumeIsNotLinkedAgain();
    void formerBodyOfAVolumeKeepsIt();
    void volumeGivesItsSheetFlagToEachBody();
    void anyVolumeOfABodyGivesItsSheetFlag();
    void missingBodyOfAVolumeIsNotMade();

    void modificationOfAnUnknownSurfaceMakesAndLinksIt();
    void modificationOfAKnownSurfaceLeavesItsVolumes();
    void missingVolumeOfASurfaceIsNotMade();

    void freeEntitiesOfAnEmptyMirrorAreThreeQuestions();
    void parentlessRecordGoesUnlessItIsFree_data();
    void parentlessRecordGoesUnlessItIsFree();
    void bodiesAndVolumesAreNotLookedAt();
    void freeSurfaceStaysWithItsCurves();
    void lostSurfaceTakesWhatHungUnderItAlone();
    void lostRecordsGoByAscendingIdAndTypeByType();
    void unknownOrRepeatedFreeIdsArePassedOver();
    void freeEntityWithAParentStays();
    void modifiedEntityMayBeRemovedByWhoHearsOfIt();

private:
    KIObserve& observer() { return mirror->observer(); }
    TreeGeometryData* find(Type type, int id) { return mirror->model.find_geometry(type, id); }
    bool is_sheet(int body)
    {
        return qobject_cast<TreeBodyData*>(find(TreeGeometryData::BODY, body))->is_sheet_body();
    }

    std::unique_ptr<WatchedMirror> mirror;
};

void tst_geometry_notifications::init()
{
    mirror = std::make_unique<WatchedMirror>();
}

void tst_geometry_notifications::cleanup()
{
    mirror.reset();
}

void tst_geometry_notifications::creationMakesTheRecordAndReadsIt_data()
{
    QTest::addColumn<Notification>("notify");
    QTest::addColumn<QString>("word");
    QTest::newRow("body created") << &KIObserve::notify_body_created << "body";
    QTest::newRow("body added") << &KIObserve::notify_body_added << "body";
    QTest::newRow("volume created") << &KIObserve::notify_volume_created << "volume";
    QTest::newRow("surface created") << &KIObserve::notify_surface_created << "surface";
    QTest::newRow("surface added") << &KIObserve::notify_surface_added << "surface";
    QTest::newRow("curve created") << &KIObserve::notify_curve_created << "curve";
    QTest::newRow("curve added") << &KIObserve::notify_curve_added << "curve";
    QTest::newRow("vertex created") << &KIObserve::notify_vertex_created << "vertex";
    QTest::newRow("vertex added") << &KIObserve::notify_vertex_added << "vertex";
}

void tst_geometry_notifications::creationMakesTheRecordAndReadsIt()
{
    QFETCH(Notification, notify);
    QFETCH(QString, word);
    (observer().*notify)(5);
    QCOMPARE(mirror->log.take(),
        QStringList("geometry_added(" + word + " 5, null)") + plain_reading(word, 5));
}

void tst_geometry_notifications::repeatedCreationReadsAgain()
{
    QFETCH(Notification, notify);
    QFETCH(QString, word);
    (observer().*notify)(5);
    mirror->log.take();
    (observer().*notify)(5);
    QCOMPARE(mirror->log.take(), plain_reading(word, 5));
}

void tst_geometry_notifications::bothNamesOfACreationMakeOneRecord_data()
{
    QTest::addColumn<Notification>("first");
    QTest::addColumn<Notification>("second");
    QTest::newRow("created, added")
        << &KIObserve::notify_body_created << &KIObserve::notify_body_added;
    QTest::newRow("added, created")
        << &KIObserve::notify_body_added << &KIObserve::notify_body_created;
}

void tst_geometry_notifications::bothNamesOfACreationMakeOneRecord()
{
    QFETCH(Notification, first);
    QFETCH(Notification, second);
    (observer().*first)(5);
    (observer().*second)(5);
    QCOMPARE(mirror->log.take(), QStringList("geometry_added(body 5, null)") +
                                     plain_reading("body", 5) + plain_reading("body", 5));
    QCOMPARE(mirror->model.geometry(TreeGeometryData::BODY).size(), 1u);
}

void tst_geometry_notifications::createdRecordIsToldBeforeItsName()
{
    mirror->kernel.names[{"surface", 5}] = "Lid";
    QString seen;
    connect(&mirror->model, &TreeModel::geometry_added, this,
        [&](TreeGeometryData* geom) { seen = geom->name(); });
    observer().notify_surface_created(5);
    QCOMPARE(seen, "Surface 5");
    QCOMPARE(find(TreeGeometryData::SURFACE, 5)->name(), "Lid");
}

void tst_geometry_notifications::createdRecordGetsChildrenAndNoParent()
{
    mirror->kernel.relate("volume", 2, "surface", {5});
    mirror->kernel.relate("surface", 5, "curve", {6});
    observer().notify_volume_created(3);
    mirror->log.take();

    observer().notify_surface_created(5);

    QCOMPARE(mirror->log.take(),
        QStringList("geometry_added(surface 5, null)") + plain_reading("surface", 5) +
            QStringList("geometry_added(curve 6, surface 5)") + plain_reading("curve", 6));
    QVERIFY(mirror->model.find_geometry_parents(find(TreeGeometryData::SURFACE, 5)).empty());
}

void tst_geometry_notifications::deletionRemovesTheRecordUnasked_data()
{
    QTest::addColumn<Notification>("notify");
    QTest::addColumn<QString>("word");
    QTest::newRow("body deleted") << &KIObserve::notify_body_deleted << "body";
    QTest::newRow("body removed") << &KIObserve::notify_body_removed << "body";
    QTest::newRow("volume deleted") << &KIObserve::notify_volume_deleted << "volume";
    QTest::newRow("surface deleted") << &KIObserve::notify_surface_deleted << "surface";
    QTest::newRow("surface removed") << &KIObserve::notify_surface_removed << "surface";
    QTest::newRow("curve deleted") << &KIObserve::notify_curve_deleted << "curve";
    QTest::newRow("curve removed") << &KIObserve::notify_curve_removed << "curve";
    QTest::newRow("vertex deleted") << &KIObserve::notify_vertex_deleted << "vertex";
    QTest::newRow("vertex removed") << &KIObserve::notify_vertex_removed << "vertex";
}

void tst_geometry_notifications::deletionRemovesTheRecordUnasked()
{
    QFETCH(Notification, notify);
    QFETCH(QString, word);
    observer().notify_body_created(5);
    observer().notify_volume_created(5);
    observer().notify_surface_created(5);
    observer().notify_curve_created(5);
    observer().notify_vertex_created(5);
    mirror->log.take();

    (observer().*notify)(5);

    const QString record = word + " 5";
    QCOMPARE(mirror->log.take(), QStringList({"geometry_removed(" + record + ')',
                                     record + ": treedata_destroyed(" + record + ')'}));
    QCOMPARE(geometry_text(mirror->model).size(), 4);
}

void tst_geometry_notifications::deletionOfAnUnknownIdDoesNothing()
{
    QFETCH(Notification, notify);
    observer().notify_body_created(4);
    mirror->log.take();
    (observer().*notify)(5);
    QCOMPARE(mirror->log.take(), QStringList());
}

void tst_geometry_notifications::deletionLeavesTheChildren()
{
    mirror->kernel.relate("surface", 5, "curve", {6});
    observer().notify_surface_created(5);
    observer().notify_surface_deleted(5);
    QCOMPARE(geometry_text(mirror->model), QStringList("curve 6 'Curve 6'"));
}

void tst_geometry_notifications::modificationOfAnUnknownBodyMakesIt_data()
{
    QTest::addColumn<Notification>("notify");
    QTest::newRow("body modified") << &KIObserve::notify_body_modified;
    QTest::newRow("body changed") << &KIObserve::notify_body_changed;
}

void tst_geometry_notifications::modificationOfAnUnknownBodyMakesIt()
{
    QFETCH(Notification, notify);
    (observer().*notify)(5);
    QCOMPARE(
        mirror->log.take(), QStringList("geometry_added(body 5, null)") + plain_reading("body", 5));
}

void tst_geometry_notifications::modificationOfAKnownBodyReadsIt()
{
    QFETCH(Notification, notify);
    observer().notify_body_created(5);
    mirror->log.take();
    (observer().*notify)(5);
    QCOMPARE(mirror->log.take(), plain_reading("body", 5));
}

void tst_geometry_notifications::modificationOfAnUnknownVolumeMakesAndLinksIt()
{
    observer().notify_body_created(1);
    observer().notify_body_created(3);
    mirror->kernel.relate("volume", 7, "body", {3, 1});
    mirror->kernel.sheet_volumes = {7};
    mirror->log.take();

    observer().notify_volume_modified(7);

    QCOMPARE(mirror->log.take(),
        QStringList(
            {"geometry_added(volume 7, null)", "is_sheet_body(7)", "get_relatives(volume, 7, body)",
                "geometry_associated(body 3, volume 7)", "body 3: sheet_body_changed(true)",
                "geometry_associated(body 1, volume 7)", "body 1: sheet_body_changed(true)"}) +
            plain_reading("volume", 7));
}

void tst_geometry_notifications::modificationOfAKnownVolumeLinksIt()
{
    observer().notify_body_created(1);
    observer().notify_volume_created(7);
    mirror->kernel.relate("volume", 7, "body", {1});
    mirror->log.take();

    observer().notify_volume_modified(7);

    QCOMPARE(mirror->log.take(), QStringList({"is_sheet_body(7)", "get_relatives(volume, 7, body)",
                                     "geometry_associated(body 1, volume 7)"}) +
                                     plain_reading("volume", 7));
}

void tst_geometry_notifications::linkedVolumeIsNotLinkedAgain()
{
    mirror->kernel.relate("body", 1, "volume", {7});
    observer().notify_body_created(1);
    mirror->log.take();

    observer().notify_volume_modified(7);

    QCOMPARE(
        mirror->log.take(), QStringList({"is_sheet_body(7)", "get_relatives(volume, 7, body)"}) +
                                plain_reading("volume", 7));
}

void tst_geometry_notifications::formerBodyOfAVolumeKeepsIt()
{
    mirror->kernel.relate("body", 1, "volume", {7});
    observer().notify_body_created(1);
    mirror->kernel.relatives.clear();

    observer().notify_volume_modified(7);

    QVERIFY2(names_of(mirror->model.find_geometry_parents(find(TreeGeometryData::VOLUME, 7))) ==
                 QStringList("body 1"),
        "links upwards are only added here");
}

void tst_geometry_notifications::volumeGivesItsSheetFlagToEachBody()
{
    observer().notify_body_created(1);
    observer().notify_body_created(2);
    mirror->kernel.relate("volume", 7, "body", {1, 2});
    mirror->kernel.sheet_volumes = {7};
    observer().notify_volume_modified(7);
    QVERIFY(is_sheet(1) && is_sheet(2));
    mirror->log.take();

    observer().notify_volume_modified(7);
    QCOMPARE(mirror->log.take_only({"body", "is_sheet_body"}), QStringList("is_sheet_body(7)"));

    mirror->kernel.sheet_volumes.clear();
    observer().notify_volume_modified(7);
    QCOMPARE(mirror->log.take_only({"body"}),
        QStringList({"body 1: sheet_body_changed(false)", "body 2: sheet_body_changed(false)"}));
}

void tst_geometry_notifications::anyVolumeOfABodyGivesItsSheetFlag()
{
    mirror->kernel.relate("body", 1, "volume", {6, 7});
    mirror->kernel.sheet_volumes = {7};
    observer().notify_body_created(1);
    QVERIFY2(!is_sheet(1), "the body itself is asked for by its first volume");

    observer().notify_volume_modified(7);
    QVERIFY(is_sheet(1));
}

void tst_geometry_notifications::missingBodyOfAVolumeIsNotMade()
{
    observer().notify_body_created(1);
    mirror->kernel.relate("volume", 7, "body", {9, 1});
    mirror->log.take();

    observer().notify_volume_modified(7);

    QCOMPARE(mirror->log.take_only({"geometry_"}),
        QStringList({"geometry_added(volume 7, null)", "geometry_associated(body 1, volume 7)"}));
    QCOMPARE(find(TreeGeometryData::BODY, 9), nullptr);
}

void tst_geometry_notifications::modificationOfAnUnknownSurfaceMakesAndLinksIt()
{
    observer().notify_volume_created(1);
    observer().notify_volume_created(3);
    mirror->kernel.relate("surface", 7, "volume", {3, 1});
    mirror->log.take();

    observer().notify_surface_modified(7);

    QCOMPARE(mirror->log.take(),
        QStringList({"geometry_added(surface 7, null)", "get_relatives(surface, 7, volume)",
            "geometry_associated(volume 3, surface 7)",
            "geometry_associated(volume 1, surface 7)"}) +
            plain_reading("surface", 7));
}

void tst_geometry_notifications::modificationOfAKnownSurfaceLeavesItsVolumes()
{
    observer().notify_volume_created(1);
    observer().notify_volume_created(3);
    mirror->kernel.relate("surface", 7, "volume", {1});
    observer().notify_surface_modified(7);
    mirror->kernel.relate("surface", 7, "volume", {3});
    mirror->log.take();

    observer().notify_surface_modified(7);

    QCOMPARE(mirror->log.take(), plain_reading("surface", 7));
    QCOMPARE(names_of(mirror->model.find_geometry_parents(find(TreeGeometryData::SURFACE, 7))),
        QStringList("volume 1"));
}

void tst_geometry_notifications::missingVolumeOfASurfaceIsNotMade()
{
    mirror->kernel.relate("surface", 7, "volume", {9});
    observer().notify_surface_modified(7);
    QCOMPARE(geometry_text(mirror->model), QStringList("surface 7 'Surface 7'"));
}

void tst_geometry_notifications::freeEntitiesOfAnEmptyMirrorAreThreeQuestions()
{
    observer().notify_free_entities_changed();
    QCOMPARE(mirror->log.take(),
        QStringList({"get_list_of_free_ref_entities(surface)",
            "get_list_of_free_ref_entities(curve)", "get_list_of_free_ref_entities(vertex)"}));
}

void tst_geometry_notifications::parentlessRecordGoesUnlessItIsFree_data()
{
    QTest::addColumn<Notification>("create");
    QTest::addColumn<QString>("word");
    QTest::newRow("surface") << &KIObserve::notify_surface_created << "surface";
    QTest::newRow("curve") << &KIObserve::notify_curve_created << "curve";
    QTest::newRow("vertex") << &KIObserve::notify_vertex_created << "vertex";
}

void tst_geometry_notifications::parentlessRecordGoesUnlessItIsFree()
{
    QFETCH(Notification, create);
    QFETCH(QString, word);
    (observer().*create)(5);
    (observer().*create)(6);
    mirror->kernel.free_entities[word.toStdString()] = {6};
    mirror->log.take();

    observer().notify_free_entities_changed();

    QCOMPARE(mirror->log.take_only({"geometry_"}), QStringList("geometry_removed(" + word + " 5)"));
}

void tst_geometry_notifications::bodiesAndVolumesAreNotLookedAt()
{
    observer().notify_body_created(1);
    observer().notify_volume_created(2);
    observer().notify_free_entities_changed();
    QCOMPARE(geometry_text(mirror->model), QStringList({"body 1 'Body 1'", "volume 2 'Volume 2'"}));
}

void tst_geometry_notifications::freeSurfaceStaysWithItsCurves()
{
    mirror->kernel.relate("surface", 5, "curve", {6});
    mirror->kernel.relate("curve", 6, "vertex", {7});
    observer().notify_surface_created(5);
    mirror->kernel.free_entities["surface"] = {5};
    const QStringList before = geometry_text(mirror->model);

    observer().notify_free_entities_changed();

    QCOMPARE(geometry_text(mirror->model), before);
}

void tst_geometry_notifications::lostSurfaceTakesWhatHungUnderItAlone()
{
    // Given surface 5 with the curves 1, which is also of the free surface 6, 2, which is
    // free itself, and 3; vertex 1 is shared, 2 hangs under curve 3 alone.
    mirror->kernel.relate("surface", 5, "curve", {1, 2, 3});
    mirror->kernel.relate("surface", 6, "curve", {1});
    mirror->kernel.relate("curve", 1, "vertex", {1});
    mirror->kernel.relate("curve", 3, "vertex", {1, 2});
    observer().notify_surface_created(5);
    observer().notify_surface_created(6);
    mirror->kernel.free_entities = {{"surface", {6}}, {"curve", {2}}};
    mirror->log.take();

    observer().notify_free_entities_changed();

    QCOMPARE(mirror->log.take(),
        QStringList({"get_list_of_free_ref_entities(surface)", "geometry_removed(surface 5)",
            "surface 5: treedata_destroyed(surface 5)", "get_list_of_free_ref_entities(curve)",
            "geometry_removed(curve 3)", "curve 3: treedata_destroyed(curve 3)",
            "get_list_of_free_ref_entities(vertex)", "geometry_removed(vertex 2)",
            "vertex 2: treedata_destroyed(vertex 2)"}));
}

void tst_geometry_notifications::lostRecordsGoByAscendingIdAndTypeByType()
{
    for (const int id : {9, -1, 4}) {
        observer().notify_vertex_created(id);
        observer().notify_surface_created(id);
    }
    mirror->log.take();

    observer().notify_free_entities_changed();

    QCOMPARE(mirror->log.take_only({"geometry_", "get_list"}),
        QStringList({"get_list_of_free_ref_entities(surface)", "geometry_removed(surface -1)",
            "geometry_removed(surface 4)", "geometry_removed(surface 9)",
            "get_list_of_free_ref_entities(curve)", "get_list_of_free_ref_entities(vertex)",
            "geometry_removed(vertex -1)", "geometry_removed(vertex 4)",
            "geometry_removed(vertex 9)"}));
}

void tst_geometry_notifications::unknownOrRepeatedFreeIdsArePassedOver()
{
    observer().notify_surface_created(5);
    observer().notify_surface_created(6);
    mirror->kernel.free_entities["surface"] = {99, 6, 6, -4, 6};

    observer().notify_free_entities_changed();

    QCOMPARE(names_of(mirror->model.geometry(TreeGeometryData::SURFACE)), QStringList("surface 6"));
}

void tst_geometry_notifications::freeEntityWithAParentStays()
{
    mirror->kernel.relate("volume", 2, "surface", {5});
    observer().notify_volume_created(2);
    mirror->kernel.free_entities["surface"] = {5};
    observer().notify_free_entities_changed();
    QVERIFY(find(TreeGeometryData::SURFACE, 5));
}

void tst_geometry_notifications::modifiedEntityMayBeRemovedByWhoHearsOfIt()
{
    mirror->kernel.relate("volume", 2, "surface", {5});
    connect(
        &mirror->model, &TreeModel::geometry_added, &mirror->model, [this](TreeGeometryData* geom) {
            if (geom->geometry_type() == TreeGeometryData::VOLUME) {
                observer().notify_volume_deleted(geom->id());
            } else {
                observer().notify_surface_deleted(geom->id());
            }
        });

    observer().notify_volume_modified(2);
    observer().notify_surface_modified(5);

    QCOMPARE(mirror->log.take_only({"geometry_", "get_relatives"}),
        QStringList({"geometry_added(volume 2, null)", "geometry_removed(volume 2)",
            "geometry_added(surface 5, null)", "geometry_removed(surface 5)"}));
}

QTEST_GUILESS_MAIN(tst_geometry_notifications)
#include "tst_geometry_notifications.moc"
