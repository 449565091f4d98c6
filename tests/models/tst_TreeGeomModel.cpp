#include <climits>
#include <memory>
#include <QTest>
#include <set>
#include <stdexcept>
#include <support/EventLog.hpp>
#include <support/GeometryText.hpp>
#include <support/SignalRecorder.hpp>
#include <treemodel/models/TreeGeomModel.hpp>
#include <treemodel/treedata/TreeBodyData.hpp>

using Type = TreeGeometryData::GeometryType;
constexpr Type VERTEX = TreeGeometryData::VERTEX;
constexpr Type CURVE = TreeGeometryData::CURVE;
constexpr Type SURFACE = TreeGeometryData::SURFACE;
constexpr Type VOLUME = TreeGeometryData::VOLUME;
constexpr Type BODY = TreeGeometryData::BODY;

class tst_TreeGeomModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void newModelIsEmpty();
    void signalsNameTheirArguments_data();
    void signalsNameTheirArguments();

    void newRecordWithoutParentStandsAlone();
    void newRecordIsLinkedWhenItsSignalComes();
    void repeatedRecordWithTheSameParentIsSilent();
    void repeatedRecordWithAFurtherParentIsAssociated();
    void repeatedRecordWithoutParentIsSilent();
    void eachTypeHasIdsOfItsOwn();
    void onlyABodyIsABodyRecord();
    void anyIdIsTaken_data();
    void anyIdIsTaken();
    void typeOutOfRangeIsAnsweredAsEmpty_data();
    void typeOutOfRangeIsAnsweredAsEmpty();
    void recordsComeByAscendingId();

    void linkIsToldOnceAndSeenFromBothSides();
    void linkIsOneWay();
    void nullIsNeverLinked();
    void anyTwoRecordsCanBeLinked();
    void recordCanBeItsOwnParent();
    void endOfALinkIsToldOnceAndSeenFromBothSides();
    void unknownLinkEndsSilently();
    void endedLinkCanBeMadeAgain();
    void linkIsGoneWhenItsEndIsTold();
    void linkedRecordsComeInTheOrderOfTheirAddresses();

    void removalIsToldBeforeTheRecordDies();
    void removedRecordIsReadableInItsSignal();
    void removalEndsLinksOnBothSidesInSilence();
    void removalDoesNotCascade();
    void unknownRecordIsRemovedSilently();
    void removedIdCanBeAddedAgain();

    void newIdMovesTheRecordWithItsLinks();
    void newIdOfANamedRecordKeepsTheName();
    void recordIsFoundUnderItsNewIdInItsSignal();
    void refusedIdChangesNothing_data();
    void refusedIdChangesNothing();
    void idTakenByAnotherTypeIsFree();

    void clearIsToldBeforeAnyChange();
    void clearDeletesBodiesFirstAndByAscendingId();
    void clearOfAnEmptyModelIsTold();
    void clearedModelIsEmptyAndUsable();
    void destructionClears();

    void recordRemovedWhenToldOfIsGivenBackAsNull();
    void recordRemovedWhenLinkedIsGivenBackAsNull();
    void recordReplacedWhenToldOfIsGivenBackAsItStands();
    void recordRenumberedWhenToldOfIsGivenBack();
    void otherRecordMayGoWhenOneIsAdded();
    void parentMayGoWhenItsChildIsAdded();
    void modelMayBeClearedWhenARecordIsAdded();
    void childrenMayGoWhenTheirParentIsRemoved();
    void idMayBeAddedAgainWhenItsRecordIsRemoved();
    void idMayBeAddedAgainWhileItsRecordDies();
    void modelMayBeClearedWhenARecordIsRemoved();
    void linkMayEndWhenItIsTold();
    void linkMayBeMadeAgainWhenItsEndIsTold();
    void recordMayGoWhenItGetsAnId();
    void recordMayMoveOnWhenItGetsAnId();
    void recordAddedWhenClearIsToldGoesWithTheRest();
    void recordRemovedWhenClearIsToldIsToldToo();
    void modelMayBeClearedWhenClearIsTold();

    void receiverThatThrowsOnAdditionLeavesTheRecord();
    void receiverThatThrowsOnRemovalLeavesNoRecord();
    void receiverThatThrowsOnClearLeavesAll();

private:
    // Runs `action` in the first emission of `signal` only.
    template <typename Signal, typename Action>
    void once(Signal signal, Action action);

    EventLog log;
    std::unique_ptr<SignalRecorder> recorder;
    std::unique_ptr<TreeGeomModel> model;
};

void tst_TreeGeomModel::init()
{
    recorder = std::make_unique<SignalRecorder>(log);
    model = std::make_unique<TreeGeomModel>();
    recorder->watch(model.get());
}

void tst_TreeGeomModel::cleanup()
{
    model.reset();
    recorder.reset();
    log.take();
}

template <typename Signal, typename Action>
void tst_TreeGeomModel::once(Signal signal, Action action)
{
    connect(
        model.get(), signal, this, [action = std::move(action)] { action(); },
        static_cast<Qt::ConnectionType>(Qt::DirectConnection | Qt::SingleShotConnection));
}

void tst_TreeGeomModel::newModelIsEmpty()
{
    for (const Type type : {BODY, VOLUME, SURFACE, CURVE, VERTEX}) {
        QVERIFY(model->geometry_data(type).empty());
        QCOMPARE(model->find_geometry(type, 1), nullptr);
    }
    QCOMPARE(model->parent(), nullptr);
    QCOMPARE(log.take(), QStringList());
}

void tst_TreeGeomModel::signalsNameTheirArguments_data()
{
    QTest::addColumn<QByteArrayList>("names");
    QTest::newRow("geometry_added(TreeGeometryData*,TreeGeometryData*)")
        << QByteArrayList{"geom", "parent"};
    QTest::newRow("geometry_removed(TreeGeometryData*)") << QByteArrayList{"geom"};
    QTest::newRow("association_added(TreeGeometryData*,TreeGeometryData*)")
        << QByteArrayList{"parent", "child"};
    QTest::newRow("association_removed(TreeGeometryData*,TreeGeometryData*)")
        << QByteArrayList{"parent", "child"};
    QTest::newRow("about_to_clear()") << QByteArrayList{};
}

void tst_TreeGeomModel::signalsNameTheirArguments()
{
    const QMetaObject* meta = model->metaObject();
    const int index = meta->indexOfSignal(QTest::currentDataTag());
    QVERIFY(index >= 0);
    QTEST(meta->method(index).parameterNames(), "names");
}

void tst_TreeGeomModel::newRecordWithoutParentStandsAlone()
{
    TreeGeometryData* surface = model->add_geometry(SURFACE, 5, nullptr);

    QCOMPARE(log.take(), QStringList("geometry_added(surface 5, null)"));
    QCOMPARE(surface->id(), 5);
    QCOMPARE(surface->geometry_type(), SURFACE);
    QCOMPARE(surface->parent(), nullptr);
    QCOMPARE(model->find_geometry(SURFACE, 5), surface);
    QVERIFY(model->find_geometry_children(surface).empty());
    QVERIFY(model->find_geometry_parents(surface).empty());
}

void tst_TreeGeomModel::newRecordIsLinkedWhenItsSignalComes()
{
    TreeGeometryData* volume = model->add_geometry(VOLUME, 2, nullptr);
    log.take();
    QStringList seen;
    once(&TreeGeomModel::geometry_added, [&] {
        TreeGeometryData* surface = model->find_geometry(SURFACE, 5);
        seen << names_of(model->find_geometry_children(volume))
             << names_of(model->find_geometry_parents(surface));
    });

    model->add_geometry(SURFACE, 5, volume);

    QCOMPARE(seen, QStringList({"surface 5", "volume 2"}));
    QCOMPARE(log.take(), QStringList("geometry_added(surface 5, volume 2)"));
}

void tst_TreeGeomModel::repeatedRecordWithTheSameParentIsSilent()
{
    TreeGeometryData* volume = model->add_geometry(VOLUME, 2, nullptr);
    TreeGeometryData* surface = model->add_geometry(SURFACE, 5, volume);
    log.take();

    QCOMPARE(model->add_geometry(SURFACE, 5, volume), surface);
    QCOMPARE(log.take(), QStringList());
}

void tst_TreeGeomModel::repeatedRecordWithAFurtherParentIsAssociated()
{
    TreeGeometryData* surface =
        model->add_geometry(SURFACE, 5, model->add_geometry(VOLUME, 2, nullptr));
    TreeGeometryData* other = model->add_geometry(VOLUME, 3, nullptr);
    log.take();

    QCOMPARE(model->add_geometry(SURFACE, 5, other), surface);

    QCOMPARE(log.take(), QStringList("association_added(volume 3, surface 5)"));
    QCOMPARE(sorted_names_of(model->find_geometry_parents(surface)),
        QStringList({"volume 2", "volume 3"}));
}

void tst_TreeGeomModel::repeatedRecordWithoutParentIsSilent()
{
    TreeGeometryData* surface =
        model->add_geometry(SURFACE, 5, model->add_geometry(VOLUME, 2, nullptr));
    log.take();

    QCOMPARE(model->add_geometry(SURFACE, 5, nullptr), surface);

    QCOMPARE(log.take(), QStringList());
    QCOMPARE(names_of(model->find_geometry_parents(surface)), QStringList("volume 2"));
}

void tst_TreeGeomModel::eachTypeHasIdsOfItsOwn()
{
    std::set<TreeGeometryData*> records;
    for (const Type type : {BODY, VOLUME, SURFACE, CURVE, VERTEX}) {
        TreeGeometryData* record = model->add_geometry(type, 1, nullptr);
        QCOMPARE(record->geometry_type(), type);
        QCOMPARE(model->find_geometry(type, 1), record);
        records.insert(record);
    }
    QCOMPARE(records.size(), 5u);
}

void tst_TreeGeomModel::onlyABodyIsABodyRecord()
{
    for (const Type type : {BODY, VOLUME, SURFACE, CURVE, VERTEX}) {
        auto* body = qobject_cast<TreeBodyData*>(model->add_geometry(type, 1, nullptr));
        QCOMPARE(body != nullptr, type == BODY);
    }
}

void tst_TreeGeomModel::anyIdIsTaken_data()
{
    QTest::addColumn<int>("id");
    QTest::newRow("zero") << 0;
    QTest::newRow("negative") << -3;
    QTest::newRow("largest") << INT_MAX;
    QTest::newRow("smallest") << INT_MIN;
}

void tst_TreeGeomModel::anyIdIsTaken()
{
    QFETCH(int, id);
    TreeGeometryData* record = model->add_geometry(CURVE, id, nullptr);
    QCOMPARE(record->id(), id);
    QCOMPARE(model->find_geometry(CURVE, id), record);
    model->remove_geometry(CURVE, id);
    QCOMPARE(model->find_geometry(CURVE, id), nullptr);
}

void tst_TreeGeomModel::typeOutOfRangeIsAnsweredAsEmpty_data()
{
    QTest::addColumn<int>("value");
    QTest::newRow("just above the last") << 5;
    QTest::newRow("far above the last") << INT_MAX;
    QTest::newRow("just below the first") << -1;
    QTest::newRow("far below the first") << INT_MIN;
}

void tst_TreeGeomModel::typeOutOfRangeIsAnsweredAsEmpty()
{
    QFETCH(int, value);
    const Type type = Type(value);
    TreeGeometryData* body = model->add_geometry(BODY, 1, nullptr);
    log.take();

    QCOMPARE(model->add_geometry(type, 1, nullptr), nullptr);
    QCOMPARE(model->add_geometry(type, 1, body), nullptr);
    QCOMPARE(model->find_geometry(type, 1), nullptr);
    QVERIFY(model->geometry_data(type).empty());
    model->change_geometry_id(type, 1, 2);
    model->remove_geometry(type, 1);

    QCOMPARE(log.take(), QStringList());
    QVERIFY(model->find_geometry_children(body).empty());
    QCOMPARE(model->find_geometry(BODY, 1), body);
}

void tst_TreeGeomModel::recordsComeByAscendingId()
{
    for (const int id : {5, -2, 9, 0, 7}) {
        model->add_geometry(CURVE, id, nullptr);
    }
    QCOMPARE(names_of(model->geometry_data(CURVE)),
        QStringList({"curve -2", "curve 0", "curve 5", "curve 7", "curve 9"}));
}

void tst_TreeGeomModel::linkIsToldOnceAndSeenFromBothSides()
{
    TreeGeometryData* surface = model->add_geometry(SURFACE, 5, nullptr);
    TreeGeometryData* curve = model->add_geometry(CURVE, 6, nullptr);
    log.take();

    model->associate_geometry(surface, curve);
    model->associate_geometry(surface, curve);

    QCOMPARE(log.take(), QStringList("association_added(surface 5, curve 6)"));
    QCOMPARE(names_of(model->find_geometry_children(surface)), QStringList("curve 6"));
    QCOMPARE(names_of(model->find_geometry_parents(curve)), QStringList("surface 5"));
}

void tst_TreeGeomModel::linkIsOneWay()
{
    TreeGeometryData* surface = model->add_geometry(SURFACE, 5, nullptr);
    TreeGeometryData* curve = model->add_geometry(CURVE, 6, surface);

    QVERIFY(model->find_geometry_parents(surface).empty());
    QVERIFY(model->find_geometry_children(curve).empty());
}

void tst_TreeGeomModel::nullIsNeverLinked()
{
    TreeGeometryData* surface = model->add_geometry(SURFACE, 5, nullptr);
    log.take();

    model->associate_geometry(nullptr, surface);
    model->associate_geometry(surface, nullptr);
    model->associate_geometry(nullptr, nullptr);
    model->disassociate_geometry(nullptr, surface);
    model->disassociate_geometry(surface, nullptr);
    model->disassociate_geometry(nullptr, nullptr);

    QCOMPARE(log.take(), QStringList());
    QVERIFY(model->find_geometry_children(surface).empty());
    QVERIFY(model->find_geometry_parents(surface).empty());
    QVERIFY(model->find_geometry_children(nullptr).empty());
    QVERIFY(model->find_geometry_parents(nullptr).empty());
}

void tst_TreeGeomModel::anyTwoRecordsCanBeLinked()
{
    TreeGeometryData* vertex = model->add_geometry(VERTEX, 1, nullptr);
    TreeGeometryData* body = model->add_geometry(BODY, 1, vertex);
    log.take();

    model->associate_geometry(body, vertex);

    QVERIFY2(log.take() == QStringList("association_added(body 1, vertex 1)"),
        "neither the types nor a cycle are checked");
    QCOMPARE(names_of(model->find_geometry_children(vertex)), QStringList("body 1"));
    QCOMPARE(names_of(model->find_geometry_children(body)), QStringList("vertex 1"));
}

void tst_TreeGeomModel::recordCanBeItsOwnParent()
{
    TreeGeometryData* surface = model->add_geometry(SURFACE, 5, nullptr);
    log.take();

    model->associate_geometry(surface, surface);
    QCOMPARE(log.take(), QStringList("association_added(surface 5, surface 5)"));
    QCOMPARE(names_of(model->find_geometry_children(surface)), QStringList("surface 5"));
    QCOMPARE(names_of(model->find_geometry_parents(surface)), QStringList("surface 5"));

    model->remove_geometry(SURFACE, 5);
    QCOMPARE(log.take(),
        QStringList({"geometry_removed(surface 5)", "surface 5: treedata_destroyed(surface 5)"}));
}

void tst_TreeGeomModel::endOfALinkIsToldOnceAndSeenFromBothSides()
{
    TreeGeometryData* surface = model->add_geometry(SURFACE, 5, nullptr);
    TreeGeometryData* curve = model->add_geometry(CURVE, 6, surface);
    log.take();

    model->disassociate_geometry(surface, curve);
    model->disassociate_geometry(surface, curve);

    QCOMPARE(log.take(), QStringList("association_removed(surface 5, curve 6)"));
    QVERIFY(model->find_geometry_children(surface).empty());
    QVERIFY(model->find_geometry_parents(curve).empty());
    QCOMPARE(model->find_geometry(CURVE, 6), curve);
}

void tst_TreeGeomModel::unknownLinkEndsSilently()
{
    TreeGeometryData* surface = model->add_geometry(SURFACE, 5, nullptr);
    TreeGeometryData* curve = model->add_geometry(CURVE, 6, surface);
    TreeGeometryData* other = model->add_geometry(CURVE, 7, nullptr);
    log.take();

    model->disassociate_geometry(surface, other);
    model->disassociate_geometry(other, surface);
    model->disassociate_geometry(curve, surface);

    QCOMPARE(log.take(), QStringList());
    QCOMPARE(names_of(model->find_geometry_children(surface)), QStringList("curve 6"));
}

void tst_TreeGeomModel::endedLinkCanBeMadeAgain()
{
    TreeGeometryData* surface = model->add_geometry(SURFACE, 5, nullptr);
    TreeGeometryData* curve = model->add_geometry(CURVE, 6, surface);
    model->disassociate_geometry(surface, curve);
    log.take();

    model->associate_geometry(surface, curve);

    QCOMPARE(log.take(), QStringList("association_added(surface 5, curve 6)"));
    QCOMPARE(names_of(model->find_geometry_parents(curve)), QStringList("surface 5"));
}

void tst_TreeGeomModel::linkIsGoneWhenItsEndIsTold()
{
    TreeGeometryData* surface = model->add_geometry(SURFACE, 5, nullptr);
    TreeGeometryData* curve = model->add_geometry(CURVE, 6, surface);
    bool gone = false;
    once(&TreeGeomModel::association_removed, [&] {
        gone = model->find_geometry_children(surface).empty() &&
               model->find_geometry_parents(curve).empty();
    });
    model->disassociate_geometry(surface, curve);
    QVERIFY(gone);
}

void tst_TreeGeomModel::linkedRecordsComeInTheOrderOfTheirAddresses()
{
    TreeGeometryData* surface = model->add_geometry(SURFACE, 1, nullptr);
    for (int id = 40; id > 0; --id) {
        TreeGeometryData* curve = model->add_geometry(CURVE, id, surface);
        model->associate_geometry(curve, surface);
    }
    const auto children = model->find_geometry_children(surface);
    const auto parents = model->find_geometry_parents(surface);

    QCOMPARE(children.size(), 40u);
    QVERIFY(std::is_sorted(children.begin(), children.end(), std::less<>()));
    QVERIFY(children == parents);
}

void tst_TreeGeomModel::removalIsToldBeforeTheRecordDies()
{
    model->add_geometry(SURFACE, 5, nullptr);
    log.take();
    model->remove_geometry(SURFACE, 5);
    QCOMPARE(log.take(),
        QStringList({"geometry_removed(surface 5)", "surface 5: treedata_destroyed(surface 5)"}));
}

void tst_TreeGeomModel::removedRecordIsReadableInItsSignal()
{
    TreeGeometryData* volume = model->add_geometry(VOLUME, 2, nullptr);
    TreeGeometryData* surface = model->add_geometry(SURFACE, 5, volume);
    TreeGeometryData* curve = model->add_geometry(CURVE, 6, surface);
    surface->set_name("Lid");
    QStringList seen;
    connect(model.get(), &TreeGeomModel::geometry_removed, this, [&](TreeGeometryData* geom) {
        QCOMPARE(geom, surface);
        seen << geom->name() << QString::number(geom->geometry_type());
        seen << names_of(model->find_geometry_children(geom))
             << names_of(model->find_geometry_parents(geom))
             << names_of(model->find_geometry_children(volume))
             << names_of(model->find_geometry_parents(curve));
        QCOMPARE(model->find_geometry(SURFACE, 5), nullptr);
        QVERIFY(model->geometry_data(SURFACE).empty());
    });

    model->remove_geometry(SURFACE, 5);

    QCOMPARE(seen, QStringList({"Lid", "2"}));
}

void tst_TreeGeomModel::removalEndsLinksOnBothSidesInSilence()
{
    TreeGeometryData* volumes[]{
        model->add_geometry(VOLUME, 1, nullptr), model->add_geometry(VOLUME, 2, nullptr)};
    TreeGeometryData* surface = model->add_geometry(SURFACE, 5, volumes[0]);
    model->associate_geometry(volumes[1], surface);
    TreeGeometryData* sibling = model->add_geometry(SURFACE, 6, volumes[1]);
    TreeGeometryData* curve = model->add_geometry(CURVE, 7, surface);
    model->associate_geometry(sibling, curve);
    log.take();

    model->remove_geometry(SURFACE, 5);

    QCOMPARE(log.take(),
        QStringList({"geometry_removed(surface 5)", "surface 5: treedata_destroyed(surface 5)"}));
    QVERIFY(model->find_geometry_children(volumes[0]).empty());
    QCOMPARE(names_of(model->find_geometry_children(volumes[1])), QStringList("surface 6"));
    QCOMPARE(names_of(model->find_geometry_parents(curve)), QStringList("surface 6"));
}

void tst_TreeGeomModel::removalDoesNotCascade()
{
    TreeGeometryData* volume = model->add_geometry(VOLUME, 2, nullptr);
    TreeGeometryData* surface = model->add_geometry(SURFACE, 5, volume);
    TreeGeometryData* curve = model->add_geometry(CURVE, 6, surface);

    model->remove_geometry(SURFACE, 5);

    QCOMPARE(model->find_geometry(VOLUME, 2), volume);
    QCOMPARE(model->find_geometry(CURVE, 6), curve);
    QVERIFY(model->find_geometry_parents(curve).empty());
}

void tst_TreeGeomModel::unknownRecordIsRemovedSilently()
{
    model->add_geometry(SURFACE, 5, nullptr);
    log.take();
    model->remove_geometry(SURFACE, 6);
    model->remove_geometry(CURVE, 5);
    QCOMPARE(log.take(), QStringList());
}

void tst_TreeGeomModel::removedIdCanBeAddedAgain()
{
    TreeGeometryData* volume = model->add_geometry(VOLUME, 2, nullptr);
    model->add_geometry(SURFACE, 5, volume)->set_name("Lid");
    model->remove_geometry(SURFACE, 5);
    log.take();

    TreeGeometryData* surface = model->add_geometry(SURFACE, 5, nullptr);

    QCOMPARE(log.take(), QStringList("geometry_added(surface 5, null)"));
    QCOMPARE(surface->name(), "Surface 5");
    QVERIFY(model->find_geometry_parents(surface).empty());
}

void tst_TreeGeomModel::newIdMovesTheRecordWithItsLinks()
{
    TreeGeometryData* volume = model->add_geometry(VOLUME, 2, nullptr);
    TreeGeometryData* surface = model->add_geometry(SURFACE, 5, volume);
    model->add_geometry(SURFACE, 6, volume);
    log.take();

    model->change_geometry_id(SURFACE, 5, 7);

    QVERIFY2(log.take() ==
                 QStringList({"surface 7: id_changed(7)", "surface 7: name_changed(Surface 7)"}),
        "the record alone tells of its new id");
    QCOMPARE(model->find_geometry(SURFACE, 7), surface);
    QCOMPARE(model->find_geometry(SURFACE, 5), nullptr);
    QCOMPARE(names_of(model->geometry_data(SURFACE)), QStringList({"surface 6", "surface 7"}));
    QCOMPARE(sorted_names_of(model->find_geometry_children(volume)),
        QStringList({"surface 6", "surface 7"}));
    QCOMPARE(names_of(model->find_geometry_parents(surface)), QStringList("volume 2"));
}

void tst_TreeGeomModel::newIdOfANamedRecordKeepsTheName()
{
    model->add_geometry(SURFACE, 5, nullptr)->set_name("Lid");
    log.take();
    model->change_geometry_id(SURFACE, 5, 7);
    QCOMPARE(log.take(), QStringList("surface 7: id_changed(7)"));
}

void tst_TreeGeomModel::recordIsFoundUnderItsNewIdInItsSignal()
{
    TreeGeometryData* surface = model->add_geometry(SURFACE, 5, nullptr);
    bool moved = false;
    connect(surface, &TreeData::id_changed, this, [&] {
        moved = model->find_geometry(SURFACE, 7) == surface &&
                model->find_geometry(SURFACE, 5) == nullptr;
    });
    model->change_geometry_id(SURFACE, 5, 7);
    QVERIFY(moved);
}

void tst_TreeGeomModel::refusedIdChangesNothing_data()
{
    QTest::addColumn<int>("old_id");
    QTest::addColumn<int>("new_id");
    QTest::newRow("unknown id") << 4 << 7;
    QTest::newRow("unknown id to a taken one") << 4 << 5;
    QTest::newRow("unknown id to itself") << 4 << 4;
    QTest::newRow("taken id") << 5 << 6;
    QTest::newRow("the same id") << 5 << 5;
}

void tst_TreeGeomModel::refusedIdChangesNothing()
{
    QFETCH(int, old_id);
    QFETCH(int, new_id);
    TreeGeometryData* five = model->add_geometry(SURFACE, 5, nullptr);
    TreeGeometryData* six = model->add_geometry(SURFACE, 6, nullptr);
    log.take();

    model->change_geometry_id(SURFACE, old_id, new_id);

    QCOMPARE(log.take(), QStringList());
    QCOMPARE(model->find_geometry(SURFACE, 5), five);
    QCOMPARE(model->find_geometry(SURFACE, 6), six);
    QCOMPARE(names_of(model->geometry_data(SURFACE)), QStringList({"surface 5", "surface 6"}));
}

void tst_TreeGeomModel::idTakenByAnotherTypeIsFree()
{
    TreeGeometryData* surface = model->add_geometry(SURFACE, 5, nullptr);
    model->add_geometry(CURVE, 7, nullptr);
    model->change_geometry_id(SURFACE, 5, 7);
    QCOMPARE(model->find_geometry(SURFACE, 7), surface);
}

void tst_TreeGeomModel::clearIsToldBeforeAnyChange()
{
    TreeGeometryData* volume = model->add_geometry(VOLUME, 2, nullptr);
    model->add_geometry(SURFACE, 5, volume);
    QStringList seen;
    once(&TreeGeomModel::about_to_clear, [&] {
        seen << names_of(model->geometry_data(VOLUME)) << names_of(model->geometry_data(SURFACE))
             << names_of(model->find_geometry_children(volume));
    });
    model->clear();
    QCOMPARE(seen, QStringList({"volume 2", "surface 5", "surface 5"}));
}

void tst_TreeGeomModel::clearDeletesBodiesFirstAndByAscendingId()
{
    TreeGeometryData* above = nullptr;
    for (const Type type : {VERTEX, CURVE, SURFACE, VOLUME, BODY}) {
        above = model->add_geometry(type, 8, above);
        model->add_geometry(type, 3, above);
    }
    log.take();

    model->clear();

    QStringList expected("about_to_clear()");
    for (const char* word : {"body", "volume", "surface", "curve", "vertex"}) {
        for (const int id : {3, 8}) {
            expected << QString("%1 %2: treedata_destroyed(%1 %2)").arg(word).arg(id);
        }
    }
    QCOMPARE(log.take(), expected);
}

void tst_TreeGeomModel::clearOfAnEmptyModelIsTold()
{
    model->clear();
    QCOMPARE(log.take(), QStringList("about_to_clear()"));
}

void tst_TreeGeomModel::clearedModelIsEmptyAndUsable()
{
    TreeGeometryData* volume = model->add_geometry(VOLUME, 2, nullptr);
    model->add_geometry(SURFACE, 5, volume);

    model->clear();
    for (const Type type : {BODY, VOLUME, SURFACE, CURVE, VERTEX}) {
        QVERIFY(model->geometry_data(type).empty());
    }
    log.take();

    volume = model->add_geometry(VOLUME, 2, nullptr);
    QVERIFY(model->find_geometry_children(volume).empty());
    QCOMPARE(log.take(), QStringList("geometry_added(volume 2, null)"));
}

void tst_TreeGeomModel::destructionClears()
{
    TreeGeometryData* volume = model->add_geometry(VOLUME, 2, nullptr);
    model->add_geometry(SURFACE, 5, volume);
    log.take();

    model.reset();

    QCOMPARE(log.take(), QStringList({"about_to_clear()", "volume 2: treedata_destroyed(volume 2)",
                             "surface 5: treedata_destroyed(surface 5)"}));
}

void tst_TreeGeomModel::recordRemovedWhenToldOfIsGivenBackAsNull()
{
    TreeGeometryData* volume = model->add_geometry(VOLUME, 2, nullptr);
    log.take();
    once(&TreeGeomModel::geometry_added, [this] { model->remove_geometry(SURFACE, 5); });

    QCOMPARE(model->add_geometry(SURFACE, 5, volume), nullptr);

    QCOMPARE(log.take(),
        QStringList({"geometry_added(surface 5, volume 2)", "geometry_removed(surface 5)",
            "surface 5: treedata_destroyed(surface 5)"}));
    QVERIFY(model->find_geometry_children(volume).empty());
}

void tst_TreeGeomModel::recordRemovedWhenLinkedIsGivenBackAsNull()
{
    TreeGeometryData* volume = model->add_geometry(VOLUME, 2, nullptr);
    model->add_geometry(SURFACE, 5, nullptr);
    log.take();
    once(&TreeGeomModel::association_added, [this] { model->remove_geometry(SURFACE, 5); });

    QCOMPARE(model->add_geometry(SURFACE, 5, volume), nullptr);

    QCOMPARE(log.take(),
        QStringList({"association_added(volume 2, surface 5)", "geometry_removed(surface 5)",
            "surface 5: treedata_destroyed(surface 5)"}));
}

void tst_TreeGeomModel::recordReplacedWhenToldOfIsGivenBackAsItStands()
{
    once(&TreeGeomModel::geometry_added, [this] {
        model->remove_geometry(SURFACE, 5);
        model->add_geometry(SURFACE, 5, nullptr);
    });
    TreeGeometryData* surface = model->add_geometry(SURFACE, 5, nullptr);
    QVERIFY(surface);
    QCOMPARE(surface, model->find_geometry(SURFACE, 5));
}

void tst_TreeGeomModel::recordRenumberedWhenToldOfIsGivenBack()
{
    once(&TreeGeomModel::geometry_added, [this] { model->change_geometry_id(SURFACE, 5, 6); });
    TreeGeometryData* surface = model->add_geometry(SURFACE, 5, nullptr);
    QVERIFY(surface);
    QCOMPARE(surface, model->find_geometry(SURFACE, 6));
}

void tst_TreeGeomModel::otherRecordMayGoWhenOneIsAdded()
{
    model->add_geometry(SURFACE, 4, nullptr);
    once(&TreeGeomModel::geometry_added, [this] { model->remove_geometry(SURFACE, 4); });
    TreeGeometryData* surface = model->add_geometry(SURFACE, 5, nullptr);
    QVERIFY(surface);
    QCOMPARE(surface, model->find_geometry(SURFACE, 5));
}

void tst_TreeGeomModel::parentMayGoWhenItsChildIsAdded()
{
    TreeGeometryData* volume = model->add_geometry(VOLUME, 2, nullptr);
    once(&TreeGeomModel::geometry_added, [this] { model->remove_geometry(VOLUME, 2); });
    TreeGeometryData* surface = model->add_geometry(SURFACE, 5, volume);
    QCOMPARE(surface, model->find_geometry(SURFACE, 5));
    QVERIFY(model->find_geometry_parents(surface).empty());
}

void tst_TreeGeomModel::modelMayBeClearedWhenARecordIsAdded()
{
    once(&TreeGeomModel::geometry_added, [this] { model->clear(); });
    QCOMPARE(model->add_geometry(SURFACE, 5, nullptr), nullptr);
    QVERIFY(model->geometry_data(SURFACE).empty());
}

void tst_TreeGeomModel::childrenMayGoWhenTheirParentIsRemoved()
{
    TreeGeometryData* surface = model->add_geometry(SURFACE, 5, nullptr);
    model->add_geometry(VERTEX, 7, model->add_geometry(CURVE, 6, surface));
    log.take();
    connect(model.get(), &TreeGeomModel::geometry_removed, this, [this](TreeGeometryData* geom) {
        if (geom->geometry_type() != VERTEX) {
            model->remove_geometry(Type(geom->geometry_type() - 1), geom->id() + 1);
        }
    });

    model->remove_geometry(SURFACE, 5);

    QCOMPARE(log.take(),
        QStringList({"geometry_removed(surface 5)", "geometry_removed(curve 6)",
            "geometry_removed(vertex 7)", "vertex 7: treedata_destroyed(vertex 7)",
            "curve 6: treedata_destroyed(curve 6)", "surface 5: treedata_destroyed(surface 5)"}));
}

void tst_TreeGeomModel::idMayBeAddedAgainWhenItsRecordIsRemoved()
{
    model->add_geometry(SURFACE, 5, nullptr)->set_name("Lid");
    log.take();
    once(&TreeGeomModel::geometry_removed, [this] { model->add_geometry(SURFACE, 5, nullptr); });

    model->remove_geometry(SURFACE, 5);

    QCOMPARE(
        log.take(), QStringList({"geometry_removed(surface 5)", "geometry_added(surface 5, null)",
                        "surface 5: treedata_destroyed(surface 5)"}));
    QVERIFY(model->find_geometry(SURFACE, 5));
    QVERIFY2(model->find_geometry(SURFACE, 5)->name() == "Surface 5", "it is the second record");
}

void tst_TreeGeomModel::idMayBeAddedAgainWhileItsRecordDies()
{
    TreeGeometryData* surface = model->add_geometry(SURFACE, 5, nullptr);
    connect(surface, &TreeData::treedata_destroyed, this, [this] {
        TreeGeometryData* second = model->add_geometry(SURFACE, 5, nullptr);
        model->add_geometry(CURVE, 6, second);
    });

    model->remove_geometry(SURFACE, 5);

    QVERIFY(model->find_geometry(SURFACE, 5));
    QCOMPARE(names_of(model->find_geometry_children(model->find_geometry(SURFACE, 5))),
        QStringList("curve 6"));
}

void tst_TreeGeomModel::modelMayBeClearedWhenARecordIsRemoved()
{
    model->add_geometry(CURVE, 6, model->add_geometry(SURFACE, 5, nullptr));
    log.take();
    once(&TreeGeomModel::geometry_removed, [this] { model->clear(); });

    model->remove_geometry(SURFACE, 5);

    QCOMPARE(log.take(),
        QStringList({"geometry_removed(surface 5)", "about_to_clear()",
            "curve 6: treedata_destroyed(curve 6)", "surface 5: treedata_destroyed(surface 5)"}));
}

void tst_TreeGeomModel::linkMayEndWhenItIsTold()
{
    TreeGeometryData* surface = model->add_geometry(SURFACE, 5, nullptr);
    TreeGeometryData* curve = model->add_geometry(CURVE, 6, nullptr);
    log.take();
    once(&TreeGeomModel::association_added, [&] { model->disassociate_geometry(surface, curve); });

    QCOMPARE(model->add_geometry(CURVE, 6, surface), curve);

    QCOMPARE(log.take(), QStringList({"association_added(surface 5, curve 6)",
                             "association_removed(surface 5, curve 6)"}));
    QVERIFY(model->find_geometry_children(surface).empty());
}

void tst_TreeGeomModel::linkMayBeMadeAgainWhenItsEndIsTold()
{
    TreeGeometryData* surface = model->add_geometry(SURFACE, 5, nullptr);
    TreeGeometryData* curve = model->add_geometry(CURVE, 6, surface);
    log.take();
    once(&TreeGeomModel::association_removed, [&] { model->associate_geometry(surface, curve); });

    model->disassociate_geometry(surface, curve);

    QCOMPARE(log.take(), QStringList({"association_removed(surface 5, curve 6)",
                             "association_added(surface 5, curve 6)"}));
    QCOMPARE(names_of(model->find_geometry_children(surface)), QStringList("curve 6"));
}

void tst_TreeGeomModel::recordMayGoWhenItGetsAnId()
{
    TreeGeometryData* surface = model->add_geometry(SURFACE, 5, nullptr);
    connect(surface, &TreeData::id_changed, this, [this] { model->remove_geometry(SURFACE, 7); });
    log.take();

    model->change_geometry_id(SURFACE, 5, 7);

    QCOMPARE(log.take(), QStringList({"surface 7: id_changed(7)", "geometry_removed(surface 7)",
                             "surface 7: treedata_destroyed(surface 7)"}));
}

void tst_TreeGeomModel::recordMayMoveOnWhenItGetsAnId()
{
    TreeGeometryData* surface = model->add_geometry(SURFACE, 5, nullptr);
    connect(
        surface, &TreeData::id_changed, this, [this] { model->change_geometry_id(SURFACE, 7, 8); });
    log.take();

    model->change_geometry_id(SURFACE, 5, 7);

    QCOMPARE(log.take(),
        QStringList({"surface 7: id_changed(7)", "surface 8: id_changed(8)",
            "surface 8: name_changed(Surface 8)", "surface 8: name_changed(Surface 8)"}));
    QCOMPARE(model->find_geometry(SURFACE, 8), surface);
    QCOMPARE(model->find_geometry(SURFACE, 7), nullptr);
}

void tst_TreeGeomModel::recordAddedWhenClearIsToldGoesWithTheRest()
{
    once(&TreeGeomModel::about_to_clear, [this] { model->add_geometry(SURFACE, 5, nullptr); });
    model->clear();
    QCOMPARE(log.take(), QStringList({"about_to_clear()", "geometry_added(surface 5, null)",
                             "surface 5: treedata_destroyed(surface 5)"}));
    QVERIFY(model->geometry_data(SURFACE).empty());
}

void tst_TreeGeomModel::recordRemovedWhenClearIsToldIsToldToo()
{
    model->add_geometry(SURFACE, 5, nullptr);
    log.take();
    once(&TreeGeomModel::about_to_clear, [this] { model->remove_geometry(SURFACE, 5); });
    model->clear();
    QCOMPARE(log.take(), QStringList({"about_to_clear()", "geometry_removed(surface 5)",
                             "surface 5: treedata_destroyed(surface 5)"}));
}

void tst_TreeGeomModel::modelMayBeClearedWhenClearIsTold()
{
    model->add_geometry(SURFACE, 5, nullptr);
    log.take();
    once(&TreeGeomModel::about_to_clear, [this] { model->clear(); });
    model->clear();
    QCOMPARE(log.take(), QStringList({"about_to_clear()", "about_to_clear()",
                             "surface 5: treedata_destroyed(surface 5)"}));
}

void tst_TreeGeomModel::receiverThatThrowsOnAdditionLeavesTheRecord()
{
    TreeGeometryData* volume = model->add_geometry(VOLUME, 2, nullptr);
    once(&TreeGeomModel::geometry_added, [] { throw std::runtime_error("added"); });

    QVERIFY_THROWS_EXCEPTION(std::runtime_error, model->add_geometry(SURFACE, 5, volume));

    QCOMPARE(names_of(model->geometry_data(SURFACE)), QStringList("surface 5"));
    QCOMPARE(names_of(model->find_geometry_children(volume)), QStringList("surface 5"));
}

void tst_TreeGeomModel::receiverThatThrowsOnRemovalLeavesNoRecord()
{
    model->add_geometry(SURFACE, 5, nullptr);
    log.take();
    once(&TreeGeomModel::geometry_removed, [] { throw std::runtime_error("removed"); });

    QVERIFY_THROWS_EXCEPTION(std::runtime_error, model->remove_geometry(SURFACE, 5));

    QVERIFY2(log.take() == QStringList({"geometry_removed(surface 5)",
                               "surface 5: treedata_destroyed(surface 5)"}),
        "the record is out of the model, so nobody else would delete it");
    QVERIFY(model->geometry_data(SURFACE).empty());
}

void tst_TreeGeomModel::receiverThatThrowsOnClearLeavesAll()
{
    model->add_geometry(SURFACE, 5, nullptr);
    once(&TreeGeomModel::about_to_clear, [] { throw std::runtime_error("clear"); });

    QVERIFY_THROWS_EXCEPTION(std::runtime_error, model->clear());

    QCOMPARE(names_of(model->geometry_data(SURFACE)), QStringList("surface 5"));
}

QTEST_GUILESS_MAIN(tst_TreeGeomModel)
#include "tst_TreeGeomModel.moc"
