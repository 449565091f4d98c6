#include <memory>
#include <QMetaMethod>
#include <QTest>
#include <support/GeometryText.hpp>
#include <support/WatchedMirror.hpp>

using Type = TreeGeometryData::GeometryType;

class tst_TreeModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void newModelIsEmptyAndUnregistered();
    void modelOwnsNothingAsChildren();
    void signalStandsInItsRow_data();
    void signalStandsInItsRow();

    void geometryComesByTypeAndAscendingId();
    void geometryIsFoundByTypeAndId();
    void childrenAndParentsAreFound();
    void unknownGeometryIsNullOrEmpty_data();
    void unknownGeometryIsNullOrEmpty();
    void nullHasNoRelatives();

    void eachChangeIsToldOnce();
    void changeIsToldWhereItHappens();
    void clearIsToldBeforeAnyRecordIsGone();

    void connectingRegistersAndReadsNothing();
    void connectingTwiceIsPassedOn();
    void connectedModelFollowsTheKernel();
    void disconnectingEndsItAndKeepsTheMirror();
    void disconnectedModelCanBeConnectedAgain();

    void destructionTellsOfTheClearThenDeletesFromTheTop();
    void twoMirrorsOfOneKernelAreIndependent();

private:
    std::unique_ptr<WatchedMirror> mirror;
};

void tst_TreeModel::init()
{
    mirror = std::make_unique<WatchedMirror>();
}

void tst_TreeModel::cleanup()
{
    mirror.reset();
}

void tst_TreeModel::newModelIsEmptyAndUnregistered()
{
    mirror.reset();
    EventLog log;
    RecordingKernel kernel(log);
    TreeModel model;
    QCOMPARE(geometry_text(model), QStringList());
    QCOMPARE(kernel.observer(), nullptr);
    QCOMPARE(model.parent(), nullptr);
}

void tst_TreeModel::modelOwnsNothingAsChildren()
{
    script_small_model(mirror->kernel);
    mirror->refresh();
    QVERIFY(mirror->model.children().isEmpty());
}

void tst_TreeModel::signalStandsInItsRow_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QByteArrayList>("names");
    QTest::newRow("geometry_added(TreeGeometryData*,TreeGeometryData*)")
        << 0 << QByteArrayList{"geom", "parent"};
    QTest::newRow("geometry_removed(TreeGeometryData*)") << 1 << QByteArrayList{"geom"};
    QTest::newRow("geometry_associated(TreeGeometryData*,TreeGeometryData*)")
        << 2 << QByteArrayList{"parent", "child"};
    QTest::newRow("geometry_disassociated(TreeGeometryData*,TreeGeometryData*)")
        << 3 << QByteArrayList{"parent", "child"};
    QTest::newRow("about_to_clear_geometry()") << 4 << QByteArrayList{};
}

void tst_TreeModel::signalStandsInItsRow()
{
    QFETCH(int, row);
    const QMetaObject& meta = TreeModel::staticMetaObject;
    const QMetaMethod method = meta.method(meta.methodOffset() + row);
    QCOMPARE(method.methodSignature(), QByteArray(QTest::currentDataTag()));
    QCOMPARE(method.methodType(), QMetaMethod::Signal);
    QTEST(method.parameterNames(), "names");
}

void tst_TreeModel::geometryComesByTypeAndAscendingId()
{
    mirror->kernel.entities = {{"curve", {7, -2, 5}}, {"vertex", {5}}};
    mirror->refresh();
    QCOMPARE(names_of(mirror->model.geometry(TreeGeometryData::CURVE)),
        QStringList({"curve -2", "curve 5", "curve 7"}));
}

void tst_TreeModel::geometryIsFoundByTypeAndId()
{
    mirror->kernel.entities = {{"curve", {5}}, {"vertex", {5}}};
    mirror->refresh();
    TreeGeometryData* curve = mirror->model.find_geometry(TreeGeometryData::CURVE, 5);
    QCOMPARE(curve->geometry_type(), TreeGeometryData::CURVE);
    QCOMPARE(curve->id(), 5);
}

void tst_TreeModel::childrenAndParentsAreFound()
{
    script_small_model(mirror->kernel);
    mirror->refresh();
    TreeGeometryData* surface = mirror->model.find_geometry(TreeGeometryData::SURFACE, 2);
    QCOMPARE(sorted_names_of(mirror->model.find_geometry_children(surface)),
        QStringList({"curve 2", "curve 3"}));
    QCOMPARE(sorted_names_of(mirror->model.find_geometry_parents(surface)),
        QStringList({"volume 1", "volume 2"}));
}

void tst_TreeModel::unknownGeometryIsNullOrEmpty_data()
{
    QTest::addColumn<int>("type");
    QTest::newRow("above the last") << 5;
    QTest::newRow("below the first") << -1;
    QTest::newRow("without records") << int(TreeGeometryData::BODY);
}

void tst_TreeModel::unknownGeometryIsNullOrEmpty()
{
    QFETCH(int, type);
    mirror->kernel.entities = {{"curve", {5}}};
    mirror->refresh();
    QVERIFY(mirror->model.geometry(Type(type)).empty());
    QCOMPARE(mirror->model.find_geometry(Type(type), 5), nullptr);
    QCOMPARE(mirror->model.find_geometry(TreeGeometryData::CURVE, 6), nullptr);
}

void tst_TreeModel::nullHasNoRelatives()
{
    QVERIFY(mirror->model.find_geometry_children(nullptr).empty());
    QVERIFY(mirror->model.find_geometry_parents(nullptr).empty());
}

void tst_TreeModel::eachChangeIsToldOnce()
{
    auto& kernel = mirror->kernel;
    kernel.relate("surface", 4, "curve", {5});
    mirror->observer().notify_surface_created(3);
    mirror->observer().notify_surface_created(4);
    kernel.relate("surface", 3, "curve", {5});
    mirror->observer().notify_surface_created(3);
    kernel.relate("surface", 3, "curve", {});
    mirror->observer().notify_surface_created(3);
    mirror->observer().notify_surface_deleted(3);
    mirror->observer().notify_model_reset();

    QCOMPARE(mirror->log.take_only({"geometry_", "about_to_clear_geometry"}),
        QStringList({"geometry_added(surface 3, null)", "geometry_added(surface 4, null)",
            "geometry_added(curve 5, surface 4)", "geometry_associated(surface 3, curve 5)",
            "geometry_disassociated(surface 3, curve 5)", "geometry_removed(surface 3)",
            "about_to_clear_geometry()"}));
}

void tst_TreeModel::changeIsToldWhereItHappens()
{
    bool found_when_added = false;
    bool found_when_removed = true;
    auto& model = mirror->model;
    connect(&model, &TreeModel::geometry_added, this, [&](TreeGeometryData* geom) {
        found_when_added = model.find_geometry(TreeGeometryData::VERTEX, 5) == geom;
    });
    connect(&model, &TreeModel::geometry_removed, this, [&](TreeGeometryData* geom) {
        found_when_removed = model.find_geometry(TreeGeometryData::VERTEX, geom->id()) != nullptr;
    });
    mirror->observer().notify_vertex_created(5);
    mirror->observer().notify_vertex_deleted(5);
    QVERIFY(found_when_added);
    QVERIFY(!found_when_removed);
}

void tst_TreeModel::clearIsToldBeforeAnyRecordIsGone()
{
    script_small_model(mirror->kernel);
    mirror->refresh();
    const QStringList before = geometry_text(mirror->model);
    QStringList seen;
    auto& model = mirror->model;
    connect(
        &model, &TreeModel::about_to_clear_geometry, this, [&] { seen = geometry_text(model); },
        static_cast<Qt::ConnectionType>(Qt::DirectConnection | Qt::SingleShotConnection));
    model.refresh_model(true);
    QCOMPARE(seen, before);
}

void tst_TreeModel::connectingRegistersAndReadsNothing()
{
    mirror->model.disconnect_from_kesto();
    script_small_model(mirror->kernel);
    mirror->log.take();

    mirror->model.connect_to_kesto();

    QCOMPARE(mirror->log.take(), QStringList("register_observer()"));
    QVERIFY(mirror->kernel.observer());
    QCOMPARE(geometry_text(mirror->model), QStringList());
}

void tst_TreeModel::connectingTwiceIsPassedOn()
{
    mirror->model.connect_to_kesto();
    QCOMPARE(mirror->log.take(), QStringList("register_observer()"));
}

void tst_TreeModel::connectedModelFollowsTheKernel()
{
    mirror->observer().notify_vertex_created(5);
    QCOMPARE(geometry_text(mirror->model), QStringList("vertex 5 'Vertex 5'"));
}

void tst_TreeModel::disconnectingEndsItAndKeepsTheMirror()
{
    mirror->observer().notify_vertex_created(5);
    mirror->log.take();

    mirror->model.disconnect_from_kesto();

    QCOMPARE(mirror->log.take(), QStringList("unregister_observer()"));
    QCOMPARE(mirror->kernel.observer(), nullptr);
    QCOMPARE(geometry_text(mirror->model), QStringList("vertex 5 'Vertex 5'"));
}

void tst_TreeModel::disconnectedModelCanBeConnectedAgain()
{
    auto* const observer = &mirror->observer();
    mirror->model.disconnect_from_kesto();
    mirror->model.connect_to_kesto();
    QCOMPARE(&mirror->observer(), observer);
}

void tst_TreeModel::destructionTellsOfTheClearThenDeletesFromTheTop()
{
    mirror.reset();
    EventLog log;
    RecordingKernel kernel(log);
    SignalRecorder recorder(log);
    kernel.entities = {{"body", {2, 1}}, {"curve", {3}}};
    auto model = std::make_unique<TreeModel>();
    recorder.watch(model.get());
    model->refresh_model(false);
    log.take();

    model.reset();

    QCOMPARE(log.take_only({"about_to_clear_geometry", "geometry_", "body ", "curve ",
                 "selection_changed", "unregister_observer"}),
        QStringList({"about_to_clear_geometry()", "body 1: treedata_destroyed(body 1)",
            "body 2: treedata_destroyed(body 2)", "curve 3: treedata_destroyed(curve 3)"}));
}

void tst_TreeModel::twoMirrorsOfOneKernelAreIndependent()
{
    TreeModel other;
    other.connect_to_kesto();
    mirror->observer().notify_vertex_created(5);
    QVERIFY2(geometry_text(other) == QStringList("vertex 5 'Vertex 5'"),
        "its observer registered last, so it is the one to be told");
    QCOMPARE(geometry_text(mirror->model), QStringList());
}

QTEST_GUILESS_MAIN(tst_TreeModel)
#include "tst_TreeModel.moc"
