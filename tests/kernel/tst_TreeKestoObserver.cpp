#include <memory>
#include <QMetaMethod>
#include <QTest>
#include <support/GeometryText.hpp>
#include <support/WatchedMirror.hpp>

using KestoInterface::KIObserve;

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
