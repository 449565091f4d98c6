#include <memory>
#include <QTest>
#include <support/GeometryText.hpp>
#include <support/WatchedMirror.hpp>

class tst_geometry_refresh : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void emptyKernelIsAskedForEachTypeFromTheTop();
    void firstFillDescendsThenReadsEachTypeAgain();
    void mirrorEqualsTheKernel();
    void secondRefreshTellsVisibilityAlone();
    void kernelsOrderIsKept();
    void freeSurfaceHasNoParent();

    void vanishedGeometryGoesBodiesFirst();
    void vanishedRecordsGoByAscendingIdAfterTheNewOnes();
    void vanishedChildLosesItsLinkBeforeItGoes();
    void movedChildKeepsItsRecord();
    void repeatedIdIsReadAgain();
    void unlistedRelativeGoesInItsOwnPass();

    void unregisteredMirrorIsRefreshed();

private:
    std::unique_ptr<WatchedMirror> mirror;
};

void tst_geometry_refresh::init()
{
    mirror = std::make_unique<WatchedMirror>();
}

void tst_geometry_refresh::cleanup()
{
    mirror.reset();
}

void tst_geometry_refresh::emptyKernelIsAskedForEachTypeFromTheTop()
{
    mirror->model.refresh_model(false);
    QCOMPARE(mirror->take_geometry(),
        QStringList({"get_entities(body)", "get_entities(volume)", "get_entities(surface)",
            "get_entities(curve)", "get_entities(vertex)"}));
}

void tst_geometry_refresh::firstFillDescendsThenReadsEachTypeAgain()
{
    mirror->kernel.entities = {
        {"body", {1}}, {"volume", {2}}, {"surface", {3}}, {"curve", {4}}, {"vertex", {5}}};
    mirror->kernel.relate("body", 1, "volume", {2});
    mirror->kernel.relate("volume", 2, "surface", {3});
    mirror->kernel.relate("surface", 3, "curve", {4});
    mirror->kernel.relate("curve", 4, "vertex", {5});

    mirror->model.refresh_model(false);

    QStringList body = plain_reading("body", 1);
    body.insert(1, "is_sheet_body(2)");
    QCOMPARE(mirror->take_geometry(),
        QStringList({"get_entities(body)", "geometry_added(body 1, null)"}) + body +
            QStringList("geometry_added(volume 2, body 1)") + plain_reading("volume", 2) +
            QStringList("geometry_added(surface 3, volume 2)") + plain_reading("surface", 3) +
            QStringList("geometry_added(curve 4, surface 3)") + plain_reading("curve", 4) +
            QStringList("geometry_added(vertex 5, curve 4)") + plain_reading("vertex", 5) +
            QStringList("get_entities(volume)") + plain_reading("volume", 2) +
            QStringList("get_entities(surface)") + plain_reading("surface", 3) +
            QStringList("get_entities(curve)") + plain_reading("curve", 4) +
            QStringList("get_entities(vertex)") + plain_reading("vertex", 5));
}

void tst_geometry_refresh::mirrorEqualsTheKernel()
{
    script_small_model(mirror->kernel);
    mirror->model.refresh_model(false);
    QCOMPARE(geometry_text(mirror->model),
        QStringList({
            "body 1 'Housing' multi > volume 1, volume 2",
            "body 2 'Body 2' sheet > volume 3",
            "volume 1 'Left (v)' virtual < body 1 > surface 1, surface 2",
            "volume 2 'Right (v)' hidden virtual < body 1 > surface 2, surface 3",
            "volume 3 'Volume 3' < body 2 > surface 4",
            "surface 1 'Surface 1' < volume 1 > curve 1, curve 2",
            "surface 2 'Interface (v)' virtual < volume 1, volume 2 > curve 2, curve 3",
            "surface 3 'Surface 3' < volume 2",
            "surface 4 'Surface 4' < volume 3 > curve 3",
            "surface 9 'Surface 9' > curve 1",
            "curve 1 'Curve 1' < surface 1, surface 9 > vertex 1, vertex 2",
            "curve 2 'Rim (v)' virtual < surface 1, surface 2 > vertex 2, vertex 3",
            "curve 3 'Curve 3' < surface 2, surface 4",
            "curve 8 'Curve 8' hidden > vertex 3",
            "vertex 1 'Vertex 1' < curve 1",
            "vertex 2 'Vertex 2' < curve 1, curve 2",
            "vertex 3 'Vertex 3' < curve 2, curve 8",
            "vertex 7 'Origin'",
        }));
}

void tst_geometry_refresh::secondRefreshTellsVisibilityAlone()
{
    script_small_model(mirror->kernel);
    mirror->refresh();

    mirror->model.refresh_model(false);

    QStringList signals_ = mirror->log.take_only(
        {"geometry_", "about_to", "body ", "volume ", "surface ", "curve ", "vertex "});
    QVERIFY(signals_.size() >= 18);
    signals_.removeIf([](const QString& event) { return event.contains(": visible_changed("); });
    QCOMPARE(signals_, QStringList());
}

void tst_geometry_refresh::kernelsOrderIsKept()
{
    mirror->kernel.entities["vertex"] = {7, -2, 5};
    mirror->model.refresh_model(false);
    QCOMPARE(mirror->log.take_only({"geometry_"}),
        QStringList({"geometry_added(vertex 7, null)", "geometry_added(vertex -2, null)",
            "geometry_added(vertex 5, null)"}));
}

void tst_geometry_refresh::freeSurfaceHasNoParent()
{
    mirror->kernel.entities = {{"volume", {1}}, {"surface", {4, 9}}};
    mirror->kernel.relate("volume", 1, "surface", {4});
    mirror->model.refresh_model(false);
    QCOMPARE(geometry_text(mirror->model),
        QStringList({"volume 1 'Volume 1' > surface 4", "surface 4 'Surface 4' < volume 1",
            "surface 9 'Surface 9'"}));
}

void tst_geometry_refresh::vanishedGeometryGoesBodiesFirst()
{
    for (const char* word : {"body", "volume", "surface", "curve", "vertex"}) {
        mirror->kernel.entities[word] = {2, 1};
    }
    mirror->kernel.relate("body", 1, "volume", {1});
    mirror->refresh();
    mirror->kernel.entities.clear();

    mirror->model.refresh_model(false);

    QStringList expected;
    for (const char* word : {"body", "volume", "surface", "curve", "vertex"}) {
        expected << QString("get_entities(%1)").arg(word);
        for (const int id : {1, 2}) {
            expected << QString("geometry_removed(%1 %2)").arg(word).arg(id)
                     << QString("%1 %2: treedata_destroyed(%1 %2)").arg(word).arg(id);
        }
    }
    QCOMPARE(mirror->take_geometry(), expected);
}

void tst_geometry_refresh::vanishedRecordsGoByAscendingIdAfterTheNewOnes()
{
    mirror->kernel.entities = {{"curve", {1, 2, 3, 4}}};
    mirror->refresh();
    mirror->kernel.entities = {{"curve", {9, 2}}};

    mirror->model.refresh_model(false);

    const QStringList log = mirror->take_geometry();
    QCOMPARE(log.mid(log.indexOf("get_entities(curve)")),
        QStringList({"get_entities(curve)", "geometry_added(curve 9, null)"}) +
            plain_reading("curve", 9) + plain_reading("curve", 2) +
            QStringList({"geometry_removed(curve 1)", "curve 1: treedata_destroyed(curve 1)",
                "geometry_removed(curve 3)", "curve 3: treedata_destroyed(curve 3)",
                "geometry_removed(curve 4)", "curve 4: treedata_destroyed(curve 4)",
                "get_entities(vertex)"}));
}

void tst_geometry_refresh::vanishedChildLosesItsLinkBeforeItGoes()
{
    mirror->kernel.entities = {{"surface", {4}}, {"curve", {5, 6}}};
    mirror->kernel.relate("surface", 4, "curve", {5, 6});
    mirror->refresh();
    mirror->kernel.entities["curve"] = {6};
    mirror->kernel.relate("surface", 4, "curve", {6});

    mirror->model.refresh_model(false);

    QCOMPARE(mirror->log.take_only({"geometry_", "get_entities"}),
        QStringList({"get_entities(body)", "get_entities(volume)", "get_entities(surface)",
            "geometry_disassociated(surface 4, curve 5)", "get_entities(curve)",
            "geometry_removed(curve 5)", "get_entities(vertex)"}));
}

void tst_geometry_refresh::movedChildKeepsItsRecord()
{
    mirror->kernel.entities = {{"surface", {4, 5}}, {"curve", {6}}};
    mirror->kernel.relate("surface", 4, "curve", {6});
    mirror->refresh();
    TreeGeometryData* curve = mirror->model.find_geometry(TreeGeometryData::CURVE, 6);
    mirror->kernel.relatives.clear();
    mirror->kernel.relate("surface", 5, "curve", {6});

    mirror->model.refresh_model(false);

    QCOMPARE(mirror->log.take_only({"geometry_"}),
        QStringList({"geometry_disassociated(surface 4, curve 6)",
            "geometry_associated(surface 5, curve 6)"}));
    QCOMPARE(mirror->model.find_geometry(TreeGeometryData::CURVE, 6), curve);
}

void tst_geometry_refresh::repeatedIdIsReadAgain()
{
    mirror->kernel.entities["vertex"] = {5, 5};
    mirror->model.refresh_model(false);
    const QStringList log = mirror->take_geometry();
    QCOMPARE(log.mid(log.indexOf("get_entities(vertex)") + 1),
        QStringList("geometry_added(vertex 5, null)") + plain_reading("vertex", 5) +
            plain_reading("vertex", 5));
}

// A kernel that names a relative which it does not list.
void tst_geometry_refresh::unlistedRelativeGoesInItsOwnPass()
{
    mirror->kernel.entities = {{"surface", {4}}};
    mirror->kernel.relate("surface", 4, "curve", {6});
    mirror->model.refresh_model(false);
    QCOMPARE(mirror->log.take_only({"geometry_"}),
        QStringList({"geometry_added(surface 4, null)", "geometry_added(curve 6, surface 4)",
            "geometry_removed(curve 6)"}));
}

void tst_geometry_refresh::unregisteredMirrorIsRefreshed()
{
    mirror->model.disconnect_from_kesto();
    mirror->kernel.entities["vertex"] = {5};
    mirror->model.refresh_model(false);
    QCOMPARE(mirror->log.take_only({"geometry_"}), QStringList("geometry_added(vertex 5, null)"));
}

QTEST_GUILESS_MAIN(tst_geometry_refresh)
#include "tst_geometry_refresh.moc"
