#include "JoinedModel.hpp"

#include <browser/editing/EntityFilter.hpp>
#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>
#include <random>
#include <TestModels.hpp>

namespace {

using FailureMode = QAbstractItemModelTester::FailureReportingMode;

/// A car: "Car(Axle(Wheel A(Rim Tyre) Wheel B(Rim Tyre)) Body(Door(Handle)))" and the rest.
struct Car
{
    EntityModel items;
    EntityFilter filter{items};
    QAbstractItemModelTester tester{&filter, FailureMode::QtTest};
    SimpleItem* car = add_item(items, nullptr, "Car");
    SimpleItem* axle = add_item(items, car, "Axle", 1);
    SimpleItem* wheel_a = add_item(items, axle, "Wheel A", 1);
    SimpleItem* rim_a = add_item(items, wheel_a, "Rim", 1);
    SimpleItem* tyre_a = add_item(items, wheel_a, "Tyre", 2);
    SimpleItem* wheel_b = add_item(items, axle, "Wheel B", 2);
    SimpleItem* rim_b = add_item(items, wheel_b, "Rim", 1);
    SimpleItem* tyre_b = add_item(items, wheel_b, "Tyre", 2);
    SimpleItem* body = add_item(items, car, "Body", 2);
    SimpleItem* door = add_item(items, body, "Door", 1);
    SimpleItem* handle = add_item(items, door, "Handle", 1);

    QString shown() const { return shown_tree(filter); }

    void rename(SimpleItem* item, const QString& name)
    {
        item->setName(name);
        items.updateEntity(item);
    }
};

const QString whole_car = "Car(Axle(Wheel A(Rim Tyre) Wheel B(Rim Tyre)) Body(Door(Handle)))";

/// What the filter has to show, told by plain recursion; "" for nothing.
QString expected_tree(const EntityModel& items, const QString& text, const QModelIndex& parent = {},
    bool is_below_hit = false)
{
    QStringList texts;
    for (int row = 0; row < items.rowCount(parent); ++row) {
        const QModelIndex index = items.index(row, 0, parent);
        const QString name = index.data().toString();
        const bool is_hit = is_below_hit || name.contains(text, Qt::CaseInsensitive);
        const QString below = expected_tree(items, text, index, is_hit);
        if (is_hit || !below.isEmpty()) {
            texts << name + (below.isEmpty() ? below : u'(' + below + u')');
        }
    }
    return texts.join(u' ');
}

} // namespace

/// What is shown with and without a text, and how it follows the items.
class tst_EntityFilter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void withoutATextEverythingIsShown();
    void withoutATextEachChangeOfTheItemsComesThrough();
    void hitIsShownWithAllAboveAndBelowIt_data();
    void hitIsShownWithAllAboveAndBelowIt();
    void headingIsNoHitAndIsNotCounted();
    void countsAreToldWithTheResult();
    void pathsToNewHitsAreTold();
    void indexesMapToTheItemsAndBack();
    void persistentIndexFollowsARowThatStays();
    void itemsFindTheirRows();
    void itemsThatAreNotShownHaveNoRow();
    void neighboursShareARangeOfTheSelection();
    void newRowBelowAHitAppearsAtOnce();
    void newRowElsewhereAppearsWithTheNextSearch();
    void removedHitGoesAtOnce();
    void removedBranchGoesWithItsPaths();
    void clearedParentLosesItsRowsInOneStep();
    void renamedRowIsFollowedAndThenJudgedAnew();
    void rowMovesFromHitToHit();
    void rowMovesOutOfAHitAndIntoOne();
    void changeOfAShownRowIsPassedOn();
    void changeOfManyRowsIsPassedOnInOne();
    void sortTellsOfOneChangeOfLayout();
    void sortOfTheItemsIsFollowed();
    void hiddenCategoryGoesAndComesBack();
    void clearedItemsLeaveNothing();
    void searchOfManyRowsLeavesTheEventLoopRunning();
    void removalDuringASearchIsSafe();
    void insertionDuringASearchIsNotLost();
    void nextTextReplacesTheSearch();
    void rowsOfAJoinAreFoundAsTheyAreFilled();
    void agreesWithAPlainFilterUnderRandomChanges_data();
    void agreesWithAPlainFilterUnderRandomChanges();
};

void tst_EntityFilter::withoutATextEverythingIsShown()
{
    Car car;
    QVERIFY(!car.filter.is_active());
    QVERIFY(car.filter.is_settled());
    QCOMPARE(car.shown(), whole_car);
    QCOMPARE(car.filter.columnCount(), 2);
    QCOMPARE(car.filter.headerData(0, Qt::Horizontal).toString(), QString("Name"));
    QCOMPARE(car.filter.index(car.wheel_b).siblingAtColumn(1).data(), QVariant(2));
}

void tst_EntityFilter::withoutATextEachChangeOfTheItemsComesThrough()
{
    Car car;
    QSignalSpy inserted(&car.filter, &EntityFilter::rowsInserted);
    QSignalSpy removed(&car.filter, &EntityFilter::rowsRemoved);
    QSignalSpy moved(&car.filter, &EntityFilter::rowsMoved);
    QSignalSpy changed(&car.filter, &EntityFilter::dataChanged);
    QSignalSpy reset(&car.filter, &EntityFilter::modelReset);

    car.items.sort(0);
    SimpleItem* hub = add_item(car.items, car.wheel_a, "Hub", 3);
    QCOMPARE(car.shown(),
        QString("Car(Axle(Wheel A(Hub Rim Tyre) Wheel B(Rim Tyre)) Body(Door(Handle)))"));
    car.rename(hub, "Zapper");
    car.items.removeEntity(car.rim_a);
    car.items.updateEntity(car.tyre_a);
    car.items.moveEntity(car.tyre_a, car.wheel_b);
    QCOMPARE(car.shown(),
        QString("Car(Axle(Wheel A(Zapper) Wheel B(Rim Tyre Tyre)) Body(Door(Handle)))"));
    car.items.clear();

    QCOMPARE(inserted.size(), 1);
    QCOMPARE(removed.size(), 1);
    QCOMPARE(moved.size(), 2);
    QCOMPARE(changed.size(), 1);
    QCOMPARE(reset.size(), 1);
    QCOMPARE(car.shown(), QString());
}

void tst_EntityFilter::hitIsShownWithAllAboveAndBelowIt_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<int>("hits");

    QTest::newRow("leaf") << "handle"
                          << "Car(Body(Door(Handle)))" << 1;
    QTest::newRow("inner row with its children") << "Wheel A"
                                                 << "Car(Axle(Wheel A(Rim Tyre)))" << 1;
    QTest::newRow("several") << "rim"
                             << "Car(Axle(Wheel A(Rim) Wheel B(Rim)))" << 2;
    QTest::newRow("hit below a hit") << "e"
                                     << "Car(Axle(Wheel A(Rim Tyre) Wheel B(Rim Tyre)) "
                                        "Body(Door(Handle)))"
                                     << 6;
    QTest::newRow("other case") << "TYRE"
                                << "Car(Axle(Wheel A(Tyre) Wheel B(Tyre)))" << 2;
    QTest::newRow("part of a word") << "oo"
                                    << "Car(Body(Door(Handle)))" << 1;
    QTest::newRow("blank") << " b"
                           << "Car(Axle(Wheel B(Rim Tyre)))" << 1;
    QTest::newRow("no pattern") << "."
                                << "" << 0;
    QTest::newRow("nothing") << "Engine"
                             << "" << 0;
}

void tst_EntityFilter::hitIsShownWithAllAboveAndBelowIt()
{
    QFETCH(QString, text);
    QFETCH(QString, shown);
    QFETCH(int, hits);

    Car car;
    car.filter.set_text(text);
    QVERIFY2(car.filter.is_settled(), "a small tree is searched at once");
    QCOMPARE(car.shown(), shown);
    QCOMPARE(car.filter.hits(), hits);
    QCOMPARE(car.filter.rows(), 11);

    car.filter.set_text({});
    QCOMPARE(car.shown(), whole_car);
}

void tst_EntityFilter::headingIsNoHitAndIsNotCounted()
{
    EntityModel items;
    EntityFilter filter(items);
    EntityItem* groups = add_heading(items, "Groups (2)");
    add_item(items, groups, "Group 1", 1);
    add_item(items, groups, "Bolts", 2);
    filter.set_text("group");
    QCOMPARE(shown_tree(filter), QString("Groups (2)(Group 1)"));
    QCOMPARE(filter.hits(), 1);
    QCOMPARE(filter.rows(), 2);
}

void tst_EntityFilter::countsAreToldWithTheResult()
{
    Car car;
    QString shown_in_signal;
    connect(&car.filter, &EntityFilter::filtered, this, [&] { shown_in_signal = car.shown(); });
    QSignalSpy filtered(&car.filter, &EntityFilter::filtered);

    car.filter.set_text("tyre");
    QCOMPARE(filtered.takeFirst(), QVariantList({2, 11}));
    QCOMPARE(shown_in_signal, QString("Car(Axle(Wheel A(Tyre) Wheel B(Tyre)))"));
    car.filter.set_text("tyre");
    QVERIFY2(filtered.isEmpty(), "the same text changes nothing");
    car.filter.set_text({});
    QCOMPARE(filtered.takeFirst(), QVariantList({0, 0}));
    QCOMPARE(shown_in_signal, whole_car);
}

void tst_EntityFilter::pathsToNewHitsAreTold()
{
    Car car;
    QStringList paths;
    connect(&car.filter, &EntityFilter::paths_found, this, [&](const QModelIndexList& found) {
        for (const QModelIndex& index : found) {
            paths << index.data().toString();
        }
        paths.sort();
    });

    car.filter.set_text("rim");
    QCOMPARE(paths, QStringList({"Axle", "Car", "Wheel A", "Wheel B"}));
    paths.clear();
    car.filter.set_text("r");
    QVERIFY2(paths.isEmpty(), "the car itself is a hit, with everything below it");
    car.filter.set_text("handle");
    QCOMPARE(paths, QStringList({"Body", "Car", "Door"}));
    paths.clear();
    add_item(car.items, car.axle, "Brake handle", 3);
    car.filter.settle();
    QCOMPARE(paths, QStringList({"Axle"}));
}

void tst_EntityFilter::indexesMapToTheItemsAndBack()
{
    Car car;
    for (const QString& text : {QString(), QString("rim"), QString("tyre")}) {
        car.filter.set_text(text);
        QModelIndexList rows{car.filter.index(0, 0)};
        for (int i = 0; i < rows.size(); ++i) {
            const QModelIndex index = rows.at(i).siblingAtColumn(i % 2);
            const QModelIndex source = car.filter.mapToSource(index);
            QCOMPARE(source, car.items.index(source.row(), i % 2, source.parent()));
            QCOMPARE(car.filter.mapFromSource(source), index);
            QCOMPARE(car.filter.item(index), car.items.getEntity(source));
            for (int row = 0; row < car.filter.rowCount(rows.at(i)); ++row) {
                rows.append(car.filter.index(row, 0, rows.at(i)));
            }
        }
    }
    QVERIFY(!car.filter.mapFromSource(car.items.index(car.rim_a)).isValid());
    QVERIFY(!car.filter.mapToSource({}).isValid());
    QVERIFY(!car.filter.mapFromSource({}).isValid());
    QCOMPARE(car.filter.item(car.items.index(car.axle)), nullptr);
}

void tst_EntityFilter::persistentIndexFollowsARowThatStays()
{
    Car car;
    const QPersistentModelIndex wheel = car.filter.index(car.wheel_b).siblingAtColumn(1);
    const QPersistentModelIndex door = car.filter.index(car.door);
    QCOMPARE(wheel.row(), 1);
    car.filter.set_text("Wheel b");
    QCOMPARE(car.filter.item(wheel), car.wheel_b);
    QCOMPARE(wheel.row(), 0);
    QCOMPARE(wheel.column(), 1);
    QVERIFY(!door.isValid());
    car.filter.set_text({});
    QCOMPARE(wheel.row(), 1);
}

void tst_EntityFilter::itemsFindTheirRows()
{
    Car car;
    QCOMPARE(car.filter.index(car.wheel_b), car.filter.index(1, 0, car.filter.index(car.axle)));
    car.filter.set_text("wheel b");
    QCOMPARE(car.filter.index(car.wheel_b), car.filter.index(0, 0, car.filter.index(car.axle)));
    QCOMPARE(car.filter.index(car.tyre_b).row(), 1);
}

void tst_EntityFilter::itemsThatAreNotShownHaveNoRow()
{
    Car car;
    SimpleItem stranger("Stranger", 1, nullptr);
    QVERIFY(!car.filter.index(static_cast<EntityItem*>(nullptr)).isValid());
    QVERIFY(!car.filter.index(&stranger).isValid());
    QVERIFY(!car.filter.index(car.car->getParentEntity()).isValid());
    car.filter.set_text("wheel b");
    QVERIFY(!car.filter.index(car.wheel_a).isValid());
    QVERIFY(!car.filter.index(car.rim_a).isValid());
    QVERIFY(car.filter.selection({car.wheel_a, car.rim_a, &stranger}).isEmpty());
}

void tst_EntityFilter::neighboursShareARangeOfTheSelection()
{
    EntityModel items;
    EntityFilter filter(items);
    SimpleItem* box = add_item(items, nullptr, "Box");
    std::vector<EntityItem*> bolts;
    for (int id = 1; id <= 20; ++id) {
        bolts.push_back(add_item(items, box, QString("Bolt %1").arg(id), id));
    }
    const auto ranges = [&](const std::vector<EntityItem*>& wanted) {
        QStringList texts;
        for (const QItemSelectionRange& range : filter.selection(wanted)) {
            if (range.left() != 0 || range.right() != 1 || range.parent() != filter.index(box)) {
                return QString("not whole rows of the box");
            }
            texts << QString("%1-%2").arg(range.top()).arg(range.bottom());
        }
        return texts.join(u' ');
    };

    QCOMPARE(ranges({}), QString());
    QCOMPARE(ranges({bolts[3]}), QString("3-3"));
    QCOMPARE(ranges({bolts[4], bolts[3], bolts[4]}), QString("3-4"));
    QCOMPARE(ranges({bolts[9], bolts[0], bolts[8], bolts[1], bolts[19], bolts[2]}),
        QString("0-2 8-9 19-19"));
    QCOMPARE(ranges(bolts), QString("0-19"));
    filter.set_text("Bolt 1");
    QCOMPARE(
        ranges({bolts[9], bolts[0], bolts[8], bolts[1], bolts[19], bolts[10]}), QString("0-2"));
}

void tst_EntityFilter::newRowBelowAHitAppearsAtOnce()
{
    Car car;
    car.filter.set_text("wheel a");
    QSignalSpy inserted(&car.filter, &EntityFilter::rowsInserted);
    add_item(car.items, car.wheel_a, "Hub", 3);
    QCOMPARE(inserted.size(), 1);
    QCOMPARE(car.shown(), QString("Car(Axle(Wheel A(Rim Tyre Hub)))"));
}

void tst_EntityFilter::newRowElsewhereAppearsWithTheNextSearch()
{
    Car car;
    car.filter.set_text("rim");
    QSignalSpy inserted(&car.filter, &EntityFilter::rowsInserted);
    QSignalSpy filtered(&car.filter, &EntityFilter::filtered);
    for (int id = 3; id < 10; ++id) {
        add_item(car.items, car.axle, "Spare rim", id);
    }
    QVERIFY(!car.filter.is_settled());
    QCOMPARE(inserted.size(), 0);
    QTRY_VERIFY(car.filter.is_settled());
    QCOMPARE(filtered.size(), 1);
    QCOMPARE(filtered.takeFirst(), QVariantList({9, 18}));
    QVERIFY(car.shown().endsWith("Spare rim Spare rim))"));
}

void tst_EntityFilter::removedHitGoesAtOnce()
{
    Car car;
    car.filter.set_text("rim");
    const QPersistentModelIndex rim_b = car.filter.index(car.rim_b);
    QSignalSpy removed(&car.filter, &EntityFilter::rowsRemoved);
    car.items.removeEntity(car.rim_a);
    QCOMPARE(removed.size(), 1);
    QCOMPARE(car.shown(), QString("Car(Axle(Wheel A Wheel B(Rim)))"));
    car.filter.settle();
    QCOMPARE(car.shown(), QString("Car(Axle(Wheel B(Rim)))"));
    QVERIFY(rim_b.isValid());
}

void tst_EntityFilter::removedBranchGoesWithItsPaths()
{
    Car car;
    car.filter.set_text("rim");
    car.items.removeEntity(car.axle);
    QCOMPARE(car.shown(), QString("Car"));
    add_item(car.items, car.car, "Axle", 1);
    QCOMPARE(car.shown(), QString("Car"));
    car.filter.settle();
    QCOMPARE(car.shown(), QString());
}

void tst_EntityFilter::clearedParentLosesItsRowsInOneStep()
{
    Car car;
    SimpleItem* spare = add_item(car.items, car.wheel_a, "Spare rim", 3);
    add_item(car.items, car.wheel_a, "Hub", 4);
    add_item(car.items, spare, "Valve");
    car.filter.set_text("rim");
    QSignalSpy removed(&car.filter, &EntityFilter::rowsRemoved);
    car.items.clearCategory(car.wheel_a);
    QCOMPARE(removed.size(), 1);
    QCOMPARE(car.shown(), QString("Car(Axle(Wheel A Wheel B(Rim)))"));
}

void tst_EntityFilter::renamedRowIsFollowedAndThenJudgedAnew()
{
    Car car;
    car.items.sort(0);
    car.filter.set_text("wheel");
    const QPersistentModelIndex wheel = car.filter.index(car.wheel_a);
    car.rename(car.wheel_a, "Wheel Z");
    QCOMPARE(car.shown(), QString("Car(Axle(Wheel B(Rim Tyre) Wheel Z(Rim Tyre)))"));
    QCOMPARE(wheel.row(), 1);
    car.rename(car.wheel_a, "Roll");
    QCOMPARE(car.shown(), QString("Car(Axle(Roll(Rim Tyre) Wheel B(Rim Tyre)))"));
    car.filter.settle();
    QCOMPARE(car.shown(), QString("Car(Axle(Wheel B(Rim Tyre)))"));
    car.rename(car.door, "Steering wheel");
    QTRY_COMPARE(car.shown(), QString("Car(Axle(Wheel B(Rim Tyre)) Body(Steering wheel(Handle)))"));
}

void tst_EntityFilter::rowMovesFromHitToHit()
{
    Car car;
    car.filter.set_text("wheel");
    QSignalSpy moved(&car.filter, &EntityFilter::rowsMoved);
    car.items.moveEntity(car.tyre_a, car.wheel_b);
    QCOMPARE(moved.size(), 1);
    QCOMPARE(car.shown(), QString("Car(Axle(Wheel A(Rim) Wheel B(Rim Tyre Tyre)))"));
}

void tst_EntityFilter::rowMovesOutOfAHitAndIntoOne()
{
    Car car;
    car.filter.set_text("wheel");
    car.items.moveEntity(car.tyre_a, car.body);
    QCOMPARE(car.shown(), QString("Car(Axle(Wheel A(Rim) Wheel B(Rim Tyre)))"));
    car.items.moveEntity(car.tyre_a, car.wheel_a);
    QCOMPARE(car.shown(), QString("Car(Axle(Wheel A(Rim Tyre) Wheel B(Rim Tyre)))"));
    car.items.moveEntity(car.wheel_b, car.wheel_a);
    QCOMPARE(car.shown(), QString("Car(Axle(Wheel A(Rim Tyre Wheel B(Rim Tyre))))"));
    car.items.moveEntity(car.wheel_b, car.body);
    QCOMPARE(car.shown(), QString("Car(Axle(Wheel A(Rim Tyre)))"));
    car.filter.settle();
    QCOMPARE(car.shown(), QString("Car(Axle(Wheel A(Rim Tyre)) Body(Wheel B(Rim Tyre)))"));
}

void tst_EntityFilter::changeOfAShownRowIsPassedOn()
{
    Car car;
    car.filter.set_text("wheel b");
    QSignalSpy changed(&car.filter, &EntityFilter::dataChanged);
    car.items.updateEntity(car.wheel_a);
    QCOMPARE(changed.size(), 0);
    car.items.updateEntity(car.wheel_b);
    QCOMPARE(changed.size(), 1);
    QCOMPARE(changed.at(0).at(0).toModelIndex(), car.filter.index(car.wheel_b));
    QCOMPARE(changed.at(0).at(1).toModelIndex(), car.filter.index(car.wheel_b).siblingAtColumn(1));
}

void tst_EntityFilter::changeOfManyRowsIsPassedOnInOne()
{
    EntityModel items;
    EntityFilter filter(items);
    SimpleItem* const box = add_item(items, nullptr, "Box");
    for (int id = 1; id <= 100; ++id) {
        add_item(items, box, id % 2 ? "Bolt" : "Nut", id);
    }
    filter.set_text("bolt");
    const QModelIndex shown_box = filter.index(box);
    QCOMPARE(filter.rowCount(shown_box), 50);

    QSignalSpy changed(&filter, &EntityFilter::dataChanged);
    const QModelIndex parent = items.index(box);
    Q_EMIT items.dataChanged(items.index(10, 0, parent), items.index(99, 1, parent));
    QCOMPARE(changed.size(), 1);
    QCOMPARE(changed.at(0).at(0).toModelIndex(), filter.index(5, 0, shown_box));
    QCOMPARE(changed.at(0).at(1).toModelIndex(), filter.index(49, 1, shown_box));
}

void tst_EntityFilter::sortTellsOfOneChangeOfLayout()
{
    Car car;
    for (const QString& text : {QString(), QString("wheel"), QString("rim")}) {
        car.filter.set_text(text);
        car.filter.sort(1, Qt::AscendingOrder);
        const QPersistentModelIndex wheel = car.filter.index(car.wheel_b);
        QSignalSpy layouts(&car.filter, &EntityFilter::layoutChanged);
        car.filter.sort(0, Qt::DescendingOrder);
        QCOMPARE(layouts.size(), 1);
        QCOMPARE(wheel.row(), 0);
        QCOMPARE(car.filter.item(wheel), car.wheel_b);
        car.filter.sort(0, Qt::DescendingOrder);
        QCOMPARE(layouts.size(), 1);
    }
    QCOMPARE(car.shown(), QString("Car(Axle(Wheel B(Rim) Wheel A(Rim)))"));
}

void tst_EntityFilter::sortOfTheItemsIsFollowed()
{
    Car car;
    car.filter.set_text("wheel");
    const QPersistentModelIndex wheel = car.filter.index(car.wheel_b);
    car.items.sort(0, Qt::DescendingOrder);
    QCOMPARE(car.shown(), QString("Car(Axle(Wheel B(Tyre Rim) Wheel A(Tyre Rim)))"));
    QCOMPARE(wheel.row(), 0);
    car.filter.settle();
    QCOMPARE(car.shown(), QString("Car(Axle(Wheel B(Tyre Rim) Wheel A(Tyre Rim)))"));
}

void tst_EntityFilter::hiddenCategoryGoesAndComesBack()
{
    Car car;
    car.filter.set_text("rim");
    car.items.hideCategory(car.car);
    QCOMPARE(car.shown(), QString());
    QVERIFY(!car.filter.index(car.rim_a).isValid());
    car.filter.settle();
    QCOMPARE(car.filter.rows(), 0);
    car.items.showCategory(car.car);
    car.filter.settle();
    QCOMPARE(car.shown(), QString("Car(Axle(Wheel A(Rim) Wheel B(Rim)))"));
}

void tst_EntityFilter::clearedItemsLeaveNothing()
{
    Car car;
    car.filter.set_text("rim");
    car.items.clear();
    QCOMPARE(car.shown(), QString());
    add_item(car.items, nullptr, "Rim");
    QCOMPARE(car.shown(), QString());
    car.filter.settle();
    QCOMPARE(car.shown(), QString("Rim"));
}

namespace {

/// More items than the shortest slice holds.
struct Warehouse
{
    EntityModel items;
    EntityFilter filter{items};
    std::vector<SimpleItem*> shelves;

    Warehouse()
    {
        filter.set_slice(std::chrono::nanoseconds(0));
        for (int shelf = 1; shelf <= 40; ++shelf) {
            shelves.push_back(add_item(items, nullptr, QString("Shelf %1").arg(shelf), shelf));
            for (int box = 1; box <= 40; ++box) {
                add_item(items, shelves.back(), QString("Box %1").arg(box), box);
            }
        }
    }

    // Goes one slice into the search for "Box 7".
    void begin_search()
    {
        filter.set_text("Box 7");
        QVERIFY2(!filter.is_settled(), "a slice ends before the items do");
    }
};

} // namespace

void tst_EntityFilter::searchOfManyRowsLeavesTheEventLoopRunning()
{
    Warehouse house;
    int beats = 0;
    QTimer pulse;
    connect(&pulse, &QTimer::timeout, this, [&beats] { ++beats; });
    pulse.start(0);

    house.filter.set_text("Box 7");
    QCOMPARE(house.filter.rowCount(house.filter.index(0, 0)), 40);
    QTRY_VERIFY(house.filter.is_settled());
    QVERIFY2(beats > 1, "the event loop turns between slices");
    QCOMPARE(house.filter.hits(), 40);
    QCOMPARE(house.filter.rows(), 40 * 41);
    QCOMPARE(house.filter.rowCount(house.filter.index(0, 0)), 1);
}

void tst_EntityFilter::removalDuringASearchIsSafe()
{
    Warehouse house;
    house.begin_search();
    for (int shelf = 0; shelf < 40; shelf += 2) {
        house.items.removeEntity(house.shelves[std::size_t(shelf)]);
    }
    QTRY_VERIFY(house.filter.is_settled());
    QCOMPARE(house.filter.hits(), 20);
}

void tst_EntityFilter::insertionDuringASearchIsNotLost()
{
    Warehouse house;
    house.begin_search();
    for (SimpleItem* shelf : house.shelves) {
        add_item(house.items, shelf, "Box 7a", 0);
        add_item(house.items, nullptr, "Box 7b", 0);
    }
    house.filter.settle();
    QCOMPARE(house.filter.hits(), 120);
    QTRY_VERIFY(house.filter.is_settled());
    QCOMPARE(house.filter.hits(), 120);
    QCOMPARE(shown_tree(house.filter), expected_tree(house.items, "Box 7"));
}

void tst_EntityFilter::nextTextReplacesTheSearch()
{
    Warehouse house;
    QSignalSpy filtered(&house.filter, &EntityFilter::filtered);
    house.begin_search();
    house.filter.set_text("Box 30");
    house.filter.settle();
    QCOMPARE(filtered.size(), 1);
    QCOMPARE(house.filter.hits(), 40);
    house.begin_search();
    house.filter.set_text({});
    QVERIFY(house.filter.is_settled());
    QCOMPARE(house.filter.rowCount(house.filter.index(0, 0)), 40);
}

void tst_EntityFilter::rowsOfAJoinAreFoundAsTheyAreFilled()
{
    JoinedModel model;
    EntityFilter filter(model.items);
    const QAbstractItemModelTester tester(&filter, FailureMode::QtTest);
    filter.set_text("Vertex 8");
    model.kernel.open_model(lattice(2, 2, 1), "four.step");
    QTRY_VERIFY(model.join.is_settled() && filter.is_settled());
    QCOMPARE(filter.hits(), int(model.join.places(model.vertex(8)).size()));
    model.kernel.rename(EntityKind::VERTEX, 9, "Vertex 8b");
    model.kernel.remove(EntityKind::BODY, 2);
    QTRY_VERIFY(model.join.is_settled() && filter.is_settled());
    const std::size_t places = model.join.places(model.vertex(8)).size() +
                               (model.vertex(9) ? model.join.places(model.vertex(9)).size() : 0);
    QCOMPARE(filter.hits(), int(places));
}

void tst_EntityFilter::agreesWithAPlainFilterUnderRandomChanges_data()
{
    QTest::addColumn<unsigned>("seed");
    for (unsigned seed = 1; seed <= 12; ++seed) {
        QTest::addRow("seed %u", seed) << seed;
    }
}

namespace {

/// Does to the items of a model whatever may be done to them.
class RandomChanges
{
public:
    RandomChanges(EntityModel& items, unsigned seed)
        : m_items(items)
        , m_random(seed)
    {
    }

    int below(int bound) { return std::uniform_int_distribution(0, bound - 1)(m_random); }

    QString text()
    {
        static const QStringList texts{"", "a", "B", "ab", "bA", "ccc", "dad", "abba"};
        return texts.at(below(int(texts.size())));
    }

    void run()
    {
        const std::vector<SimpleItem*> all = everything();
        SimpleItem* item = all.empty() ? nullptr : all[std::size_t(below(int(all.size())))];
        SimpleItem* other = all.empty() ? nullptr : all[std::size_t(below(int(all.size())))];
        const int choice = below(100);
        if (choice < 40 || !item) {
            add_item(m_items, below(5) ? item : nullptr, name(), below(50));
        } else if (choice < 60) {
            item->setName(name());
            m_items.updateEntity(item);
        } else if (choice < 75) {
            if (!stands_under(other, item)) {
                m_items.moveEntity(item, other);
            }
        } else if (choice < 87) {
            if (item->childCount() < 4) {
                m_items.removeEntity(item);
            }
        } else if (choice < 90) {
            m_items.clearCategory(item);
        } else if (choice < 96) {
            m_items.sort(below(2), below(2) ? Qt::AscendingOrder : Qt::DescendingOrder);
        } else if (choice < 99) {
            if (m_hidden) {
                m_items.showCategory(std::exchange(m_hidden, nullptr));
            } else if (!ShownRows::parent_of(item)) {
                m_hidden = item;
                m_items.hideCategory(item);
            }
        } else if (below(10) == 0) {
            m_hidden = nullptr;
            m_items.clear();
        }
    }

private:
    QString name()
    {
        QString result;
        for (int i = 0; i < 4; ++i) {
            result += "abcdABCD"[below(8)];
        }
        return result;
    }

    static bool stands_under(EntityItem* item, EntityItem* ancestor)
    {
        while (item && item != ancestor) {
            item = item->getParentEntity();
        }
        return item;
    }

    std::vector<SimpleItem*> everything() const
    {
        std::vector<SimpleItem*> found;
        for (int row = 0; row < m_items.rowCount(); ++row) {
            EntityItem* top = m_items.getEntity(m_items.index(row, 0));
            for (EntityItem* item = top; item; item = item->getNext(top)) {
                found.push_back(static_cast<SimpleItem*>(item));
            }
        }
        return found;
    }

    EntityModel& m_items;
    std::mt19937 m_random;
    EntityItem* m_hidden = nullptr;
};

} // namespace

void tst_EntityFilter::agreesWithAPlainFilterUnderRandomChanges()
{
    QFETCH(unsigned, seed);
    EntityModel items;
    EntityFilter filter(items);
    const QAbstractItemModelTester tester(&filter, FailureMode::QtTest);
    RandomChanges changes(items, seed);
    QList<QPersistentModelIndex> held;

    for (int step = 0; step < 400; ++step) {
        changes.run();
        if (step % 5 == 0) {
            held.append(filter.index(filter.rowCount() / 2, step % 2));
        }
        if (step % 7 == 0) {
            filter.set_text(changes.text());
        }
        if (step % 3 == 0) {
            filter.settle();
            QCOMPARE(shown_tree(filter), expected_tree(items, filter.text()));
        }
        for (const QModelIndex index : std::as_const(held)) {
            QCOMPARE(index, filter.index(index.row(), index.column(), index.parent()));
        }
    }
}

QTEST_MAIN(tst_EntityFilter)
#include "tst_EntityFilter.moc"
