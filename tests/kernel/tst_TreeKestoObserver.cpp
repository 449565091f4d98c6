#include <memory>
#include <QMetaMethod>
#include <QTest>
#include <support/FullModel.hpp>
#include <support/GeometryText.hpp>

using KestoInterface::KIObserve;

namespace {

struct Handled
{
    const char* name;
    void (*notify)(KIObserve&);
    const char* first_event; // none for the two that are reserved
};

// The notifications that the observer takes, and what comes first of each.
const Handled handled[]{
    {"notify_free_entities_changed", [](KIObserve& it) { it.notify_free_entities_changed(); },
        "get_list_of_free_ref_entities(surface)"},
    {"notify_model_refresh_requested", [](KIObserve& it) { it.notify_model_refresh_requested(); },
        "get_entities(body)"},
    {"notify_body_created", [](KIObserve& it) { it.notify_body_created(9); },
        "geometry_added(body 9, null)"},
    {"notify_volume_created", [](KIObserve& it) { it.notify_volume_created(9); },
        "geometry_added(volume 9, null)"},
    {"notify_surface_created", [](KIObserve& it) { it.notify_surface_created(9); },
        "geometry_added(surface 9, null)"},
    {"notify_curve_created", [](KIObserve& it) { it.notify_curve_created(9); },
        "geometry_added(curve 9, null)"},
    {"notify_vertex_created", [](KIObserve& it) { it.notify_vertex_created(9); },
        "geometry_added(vertex 9, null)"},
    {"notify_vertex_added", [](KIObserve& it) { it.notify_vertex_added(9); },
        "geometry_added(vertex 9, null)"},
    {"notify_curve_added", [](KIObserve& it) { it.notify_curve_added(9); },
        "geometry_added(curve 9, null)"},
    {"notify_surface_added", [](KIObserve& it) { it.notify_surface_added(9); },
        "geometry_added(surface 9, null)"},
    {"notify_body_added", [](KIObserve& it) { it.notify_body_added(9); },
        "geometry_added(body 9, null)"},
    {"notify_body_deleted", [](KIObserve& it) { it.notify_body_deleted(1); },
        "geometry_removed(body 1)"},
    {"notify_volume_deleted", [](KIObserve& it) { it.notify_volume_deleted(1); },
        "geometry_removed(volume 1)"},
    {"notify_surface_deleted", [](KIObserve& it) { it.notify_surface_deleted(1); },
        "geometry_removed(surface 1)"},
    {"notify_curve_deleted", [](KIObserve& it) { it.notify_curve_deleted(1); },
        "geometry_removed(curve 1)"},
    {"notify_vertex_deleted", [](KIObserve& it) { it.notify_vertex_deleted(1); },
        "geometry_removed(vertex 1)"},
    {"notify_vertex_removed", [](KIObserve& it) { it.notify_vertex_removed(1); },
        "geometry_removed(vertex 1)"},
    {"notify_curve_removed", [](KIObserve& it) { it.notify_curve_removed(1); },
        "geometry_removed(curve 1)"},
    {"notify_surface_removed", [](KIObserve& it) { it.notify_surface_removed(1); },
        "geometry_removed(surface 1)"},
    {"notify_body_removed", [](KIObserve& it) { it.notify_body_removed(1); },
        "geometry_removed(body 1)"},
    {"notify_body_modified", [](KIObserve& it) { it.notify_body_modified(1); },
        "get_relatives(body, 1, volume)"},
    {"notify_body_changed", [](KIObserve& it) { it.notify_body_changed(1); },
        "get_relatives(body, 1, volume)"},
    {"notify_volume_modified", [](KIObserve& it) { it.notify_volume_modified(1); },
        "is_sheet_body(1)"},
    {"notify_surface_modified", [](KIObserve& it) { it.notify_surface_modified(1); },
        "get_entity_name(surface, 1, true)"},
    {"notify_boundary_layer_created", [](KIObserve& it) { it.notify_boundary_layer_created(9); },
        "boundary_layer_added(boundary_layer 9)"},
    {"notify_boundary_layer_deleted", [](KIObserve& it) { it.notify_boundary_layer_deleted(1); },
        "boundary_layer_removed(boundary_layer 1)"},
    {"notify_sizing_source_created", [](KIObserve& it) { it.notify_sizing_source_created(9); },
        "sizing_source_added(sizing_source 9)"},
    {"notify_sizing_source_deleted", [](KIObserve& it) { it.notify_sizing_source_deleted(1); },
        "sizing_source_removed(sizing_source 1)"},
    {"notify_entity_id_changed", [](KIObserve& it) { it.notify_entity_id_changed("group", 1, 9); },
        "group 9: id_changed(9)"},
    {"notify_entities_selected",
        [](KIObserve& it) {
            it.notify_entities_selected({{"group", 1}});
        },
        "selection_changed([group 1], true)"},
    {"notify_entities_deselected",
        [](KIObserve& it) {
            it.notify_entities_deselected({{"group", 1}});
        },
        "selection_changed([group 1], false)"},
    {"notify_entity_name_changed", [](KIObserve& it) { it.notify_entity_name_changed("group", 1); },
        "get_entity_name(group, 1, false)"},
    {"notify_group_created", [](KIObserve& it) { it.notify_group_created(9); },
        "get_entity_name(group, 9, false)"},
    {"notify_group_modified", [](KIObserve& it) { it.notify_group_modified(1); },
        "get_entity_name(group, 1, false)"},
    {"notify_group_deleted", [](KIObserve& it) { it.notify_group_deleted(1); },
        "group_removed(group 1)"},
    {"notify_exodus_entity_modified",
        [](KIObserve& it) { it.notify_exodus_entity_modified("block", 9, "create"); },
        "exodus_entity_added(block 9)"},
    {"notify_material_modified", [](KIObserve& it) { it.notify_material_modified(9, "create"); },
        "material_added(material 9)"},
    {"notify_medium_modified", [](KIObserve& it) { it.notify_medium_modified(9, "create"); },
        "material_added(material 9)"},
    {"notify_fea_bc_modified",
        [](KIObserve& it) { it.notify_fea_bc_modified("force", 9, "create"); },
        "fea_bc_added(force 9)"},
    {"notify_bc_modified", [](KIObserve& it) { it.notify_bc_modified("wall", 9, "create"); },
        "cfd_bc_added(wall 9)"},
    {"notify_constraint_modified",
        [](KIObserve& it) { it.notify_constraint_modified(9, "create"); },
        "fea_bc_added(constraint 9)"},
    {"notify_model_reset", [](KIObserve& it) { it.notify_model_reset(); },
        "about_to_clear_geometry()"},
    {"notify_reserved_1", [](KIObserve& it) { it.notify_reserved_1(); }, ""},
    {"notify_reserved_2", [](KIObserve& it) { it.notify_reserved_2(); }, ""},
    {"notify_model_replaced", [](KIObserve& it) { it.notify_model_replaced(); },
        "about_to_clear_geometry()"},
    {"notify_geometry_repair_complete", [](KIObserve& it) { it.notify_geometry_repair_complete(); },
        "get_entities(body)"},
    {"notify_entity_visibility_changed",
        [](KIObserve& it) { it.notify_entity_visibility_changed("group", 1); },
        "is_visible(group, 1)"},
    {"notify_exodus_visibility_changed",
        [](KIObserve& it) { it.notify_exodus_visibility_changed("block", 1); },
        "is_visible(block, 1)"},
    {"notify_kes_file_opened", [](KIObserve& it) { it.notify_kes_file_opened("a.kes"); },
        "about_to_clear_geometry()"}};

} // namespace

class tst_TreeKestoObserver : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void observerIsAQObjectOfItsOwnClass();
    void observerHasSignalsOnly();
    void observerHasNoParent();

    void castOfNullIsNull();
    void castToItsClassIsTheObject();
    void castToTheBoundaryIsItsBoundaryBase();
    void castToQObjectIsTheObject();
    void castToAnythingElseIsNull_data();
    void castToAnythingElseIsNull();

    void handledNotificationHasItsEffect_data();
    void handledNotificationHasItsEffect();

    void constructionSendsNothing();
    void destructionSendsNothing();
    void boundaryBaseGoesBeforeTheQObject();
    void observerOutlivesTheRecords();
    void observerKeepsNothingBetweenTwoPasses();

private:
    std::unique_ptr<WatchedMirror> mirror;
    KIObserve* boundary = nullptr;
    QObject* observer = nullptr;
};

void tst_TreeKestoObserver::init()
{
    mirror = std::make_unique<WatchedMirror>();
    boundary = &mirror->observer();
    observer = dynamic_cast<QObject*>(boundary);
    QVERIFY(observer);
}

void tst_TreeKestoObserver::cleanup()
{
    mirror.reset();
}

void tst_TreeKestoObserver::observerIsAQObjectOfItsOwnClass()
{
    const QMetaObject* meta = observer->metaObject();
    QCOMPARE(meta->className(), "TreeKestoObserver");
    QCOMPARE(meta->superClass(), &QObject::staticMetaObject);
}

void tst_TreeKestoObserver::observerHasSignalsOnly()
{
    const QMetaObject* meta = observer->metaObject();
    for (int i = meta->methodOffset(); i < meta->methodCount(); ++i) {
        QCOMPARE(meta->method(i).methodType(), QMetaMethod::Signal);
    }
    QCOMPARE(meta->propertyCount(), meta->propertyOffset());
    QCOMPARE(meta->enumeratorCount(), meta->enumeratorOffset());
    QCOMPARE(meta->classInfoCount(), meta->classInfoOffset());
    QCOMPARE(meta->constructorCount(), 0);
}

void tst_TreeKestoObserver::observerHasNoParent()
{
    QCOMPARE(observer->parent(), nullptr);
}

void tst_TreeKestoObserver::castOfNullIsNull()
{
    QCOMPARE(observer->qt_metacast(nullptr), nullptr);
}

void tst_TreeKestoObserver::castToItsClassIsTheObject()
{
    QCOMPARE(observer->qt_metacast("TreeKestoObserver"), dynamic_cast<void*>(observer));
}

void tst_TreeKestoObserver::castToTheBoundaryIsItsBoundaryBase()
{
    void* base = observer->qt_metacast("KestoInterface::ObserverBase");
    QCOMPARE(base, static_cast<void*>(boundary));
    QVERIFY2(base != dynamic_cast<void*>(observer), "it is the second base");
}

void tst_TreeKestoObserver::castToQObjectIsTheObject()
{
    QCOMPARE(observer->qt_metacast("QObject"), dynamic_cast<void*>(observer));
}

void tst_TreeKestoObserver::castToAnythingElseIsNull_data()
{
    QTest::addColumn<QByteArray>("name");
    for (const char* name : {"", "KIObserve", "KestoInterface::KIObserve", "ObserverBase",
             "treekestoobserver", "TreeKestoObserver ", "TreeModel", "QAbstractItemModel"}) {
        QTest::addRow("'%s'", name) << QByteArray(name);
    }
}

void tst_TreeKestoObserver::castToAnythingElseIsNull()
{
    QFETCH(QByteArray, name);
    QCOMPARE(observer->qt_metacast(name), nullptr);
}

void tst_TreeKestoObserver::handledNotificationHasItsEffect_data()
{
    QCOMPARE(std::size(handled), 49U);
    QTest::addColumn<int>("row");
    for (int row = 0; row < int(std::size(handled)); ++row) {
        QTest::newRow(handled[row].name) << row;
    }
}

void tst_TreeKestoObserver::handledNotificationHasItsEffect()
{
    QFETCH(int, row);
    mirror.reset();
    FullMirror full;
    script_full_model(full);
    full.refresh();
    change_full_model(full);

    handled[row].notify(full.observer());

    QCOMPARE(full.log.take().value(0), handled[row].first_event);
}

void tst_TreeKestoObserver::constructionSendsNothing()
{
    mirror.reset();
    EventLog log;
    RecordingKernel kernel(log);
    const TreeModel model;
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(kernel.observer(), nullptr);
}

void tst_TreeKestoObserver::destructionSendsNothing()
{
    mirror.reset();
    EventLog log;
    RecordingKernel kernel(log);
    {
        TreeModel model;
        model.connect_to_kesto();
        log.take();
    }
    QVERIFY2(log.take().isEmpty(), "leaving the kernel is its owner's business");
}

void tst_TreeKestoObserver::boundaryBaseGoesBeforeTheQObject()
{
    mirror.reset();
    EventLog log;
    RecordingKernel kernel(log);
    auto model = std::make_unique<TreeModel>();
    model->connect_to_kesto();
    bool told = false;
    connect(dynamic_cast<QObject*>(kernel.observer()), &QObject::destroyed, this,
        [&] { told = kernel.observer() == nullptr; });

    model.reset();

    QVERIFY2(told, "the kernel's base knew of its end before QObject::destroyed");
}

void tst_TreeKestoObserver::observerOutlivesTheRecords()
{
    mirror.reset();
    EventLog log;
    RecordingKernel kernel(log);
    script_small_model(kernel);
    auto model = std::make_unique<TreeModel>();
    model->connect_to_kesto();
    model->refresh_model(false);
    QStringList order;
    connect(dynamic_cast<QObject*>(kernel.observer()), &QObject::destroyed, this,
        [&] { order << "observer"; });
    connect(model->find_geometry(TreeGeometryData::VERTEX, 7), &QObject::destroyed, this,
        [&] { order << "last record"; });

    model.reset();

    QCOMPARE(order, QStringList({"last record", "observer"}));
}

void tst_TreeKestoObserver::observerKeepsNothingBetweenTwoPasses()
{
    script_small_model(mirror->kernel);
    mirror->refresh();
    mirror->model.refresh_model(false);
    const QStringList second = mirror->log.take();
    mirror->model.refresh_model(false);
    QVERIFY2(mirror->log.take() == second, "each pass asks the kernel afresh");
}

QTEST_GUILESS_MAIN(tst_TreeKestoObserver)
#include "tst_TreeKestoObserver.moc"
