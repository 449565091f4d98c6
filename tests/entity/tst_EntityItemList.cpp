#include "TestItems.hpp"

#include <algorithm>
#include <functional>
#include <memory>
#include <QTest>
#include <random>

namespace {

using Less = std::function<bool(const EntityItem*, const EntityItem*)>;

enum ListClass { SortsById, SortsByTypeAndId };

EntityItemList* new_list(ListClass kind)
{
    if (kind == SortsById) {
        return new SortedEntityList;
    }
    return new SortedTypeIdList;
}

int compare_names(const EntityItem* a, const EntityItem* b)
{
    return QString::compare(a->getDisplayName(), b->getDisplayName(), Qt::CaseSensitive);
}

/// The order that a list should keep, written down once more: ascending, for items.
Less order_of(ListClass kind, int column)
{
    if (column == 0) {
        return [](auto* a, auto* b) { return compare_names(a, b) < 0; };
    }
    if (kind == SortsById) {
        return [](auto* a, auto* b) {
            return a->getId() != b->getId() ? a->getId() < b->getId() : compare_names(a, b) < 0;
        };
    }
    return [](auto* a, auto* b) {
        return a->getType() != b->getType() ? a->getType() < b->getType() : a->getId() < b->getId();
    };
}

Less directed(Less less, bool ascending)
{
    if (ascending) {
        return less;
    }
    return [less](auto* a, auto* b) { return less(b, a); };
}

/// A list with a parent item, for lists that are filled by hand.
struct Family
{
    explicit Family(EntityItemList* child_list)
        : list(child_list)
        , parent("parent", 1, child_list)
    {
    }

    EntityItemList* list; // The parent's
    SimpleItem parent;
};

/// Items of many kinds of names, each with a few ids and types.
std::vector<EntityItem*> various_items(int count, unsigned seed)
{
    static const QStringList stems{"", "Volume ", "Volume", "volume ", "Z", "a", "ab",
        QStringLiteral("a\0b"), "Überfläche ", "体积 ", "体", QString(QChar(0x00ff)),
        QString(QChar(0x0100)), QString(QChar(0xffff)), QString::fromUcs4(U"\U0001F600", 1),
        "a shared beginning that is longer than any packed key: "};
    std::mt19937 random(seed);
    const auto below = [&random](int end) { return static_cast<int>(random() % end); };
    std::vector<EntityItem*> items;
    for (int i = 0; i < count; ++i) {
        QString name = stems[below(static_cast<int>(stems.size()))];
        if (below(4) > 0) {
            name += QString::number(below(count));
        }
        items.push_back(new_item(name, below(count) - count / 2, below(7) - 3));
    }
    return items;
}

QString first_disorder(const EntityItem& parent, const Less& less)
{
    for (int row = 1; row < parent.childCount(); ++row) {
        const EntityItem* before = parent.getChild(row - 1);
        const EntityItem* after = parent.getChild(row);
        if (less(after, before)) {
            return QString("row %1: '%2' type %3 id %4 stands before '%5' type %6 id %7")
                .arg(row)
                .arg(before->getDisplayName())
                .arg(before->getType())
                .arg(before->getId())
                .arg(after->getDisplayName())
                .arg(after->getType())
                .arg(after->getId());
        }
    }
    return {};
}

void add_orders()
{
    QTest::addColumn<ListClass>("kind");
    QTest::addColumn<int>("column");
    QTest::addColumn<bool>("ascending");
    QTest::newRow("id list, name, ascending") << SortsById << 0 << true;
    QTest::newRow("id list, name, descending") << SortsById << 0 << false;
    QTest::newRow("id list, id, ascending") << SortsById << 1 << true;
    QTest::newRow("id list, id, descending") << SortsById << 1 << false;
    QTest::newRow("type list, name, ascending") << SortsByTypeAndId << 0 << true;
    QTest::newRow("type list, name, descending") << SortsByTypeAndId << 0 << false;
    QTest::newRow("type list, type, ascending") << SortsByTypeAndId << 1 << true;
    QTest::newRow("type list, type, descending") << SortsByTypeAndId << 1 << false;
    QTest::newRow("any other column is the id's") << SortsById << 7 << true;
    QTest::newRow("no column is the id's") << SortsById << -1 << false;
    QTest::newRow("any other column is the type's") << SortsByTypeAndId << 2 << false;
}

} // namespace

class tst_EntityItemList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newListIsEmpty();
    void plainListKeepsTheOrderOfInsertion();
    void plainListNeverFindsAnItemAgain();
    void listInsertsWithoutLinking();
    void removalUnlinksAndKeepsTheChild();
    void rowOutOfRangeHasNoChild();
    void firstOfTwoEntriesIsFound();
    void visitStopsAtTheFirstTrue();
    void clearDeletesInOrderWhileTheChildrenStillStand();
    void clearSkipsNullAndEmptyLists();
    void destroyedListLeavesNoChildAlive();
    void copyOfAListOwnsNothingNew();

    void typeComesBeforeId_data();
    void typeComesBeforeId();
    void nullGoesLastByTypeAndId();

    void emptyListInsertsAtZero();
    void insertionGoesToTheLowerBound_data();
    void insertionGoesToTheLowerBound();
    void insertionAmongIds();
    void childAtItsPlaceIsNoticed();
    void childBehindItsEqualIsNotNoticed();
    void nullItemGoesToTheEnd();
    void typeListPassesOverNames();
    void equalIdsAreOrderedByName();
    void equalNamesAreNotOrderedById();
    void nameIsTheOneShown();

    void names_data();
    void names();

    void updatedRow_data();
    void updatedRow();
    void updatedRowFitsTheOrder_data();
    void updatedRowFitsTheOrder();

    void smallListIsSorted_data();
    void smallListIsSorted();
    void largeListIsSorted_data();
    void largeListIsSorted();
    void sortKeepsEveryChildAndItsParent();
    void sortedListOfEqualNamesKeepsEveryChild();
    void longLikeNamesAreSorted();
    void nullChildrenAreSortedLast_data();
    void nullChildrenAreSortedLast();
    void emptyListIsSorted();
};

void tst_EntityItemList::newListIsEmpty()
{
    const EntityItemList list;
    QVERIFY(!list.hasChildren());
    QCOMPARE(list.childCount(), 0);
    QCOMPARE(list.getChild(0), nullptr);
    QCOMPARE(list.getChildIndex(nullptr), -1);
}

void tst_EntityItemList::plainListKeepsTheOrderOfInsertion()
{
    Family family(new EntityItemList);
    append_children(family.parent, {new_item("c", 3), new_item("a", 1), new_item("b", 2)});
    for (const int column : {0, 1}) {
        QCOMPARE(family.list->findInsertIndex(family.parent.getChild(0), column, true), 3);
        for (const int row : {0, 1, 2}) {
            QCOMPARE(family.list->findUpdatedIndex(row, column, true), row);
        }
        family.list->sortChildren(column, true);
        QCOMPARE(shown_children(family.parent), "c a b");
    }
}

void tst_EntityItemList::plainListNeverFindsAnItemAgain()
{
    Family family(new EntityItemList);
    auto* item = new_item("a");
    append_children(family.parent, {item});
    QCOMPARE(family.list->findInsertIndex(item, 0, true), 1);
}

void tst_EntityItemList::listInsertsWithoutLinking()
{
    EntityItemList list;
    auto* item = new_item("a");
    list.insertChild(0, item);
    QCOMPARE(item->getParentEntity(), nullptr);
    QCOMPARE(list.getChild(0), item);
    QVERIFY(list.hasChildren());
}

void tst_EntityItemList::removalUnlinksAndKeepsTheChild()
{
    QStringList deaths;
    Family family(new EntityItemList);
    append_children(family.parent, {new_item("a"), new_mortal(deaths, "b"), new_item("c")});
    const std::unique_ptr<EntityItem> removed(family.list->removeChild(1));
    QCOMPARE(removed->getParentEntity(), nullptr);
    QCOMPARE(removed->getDisplayName(), "b");
    QCOMPARE(shown_children(family.parent), "a c");
    QVERIFY(deaths.isEmpty());
}

void tst_EntityItemList::rowOutOfRangeHasNoChild()
{
    Family family(new EntityItemList);
    append_children(family.parent, {new_item("a")});
    QCOMPARE(family.list->getChild(-1), nullptr);
    QCOMPARE(family.list->getChild(1), nullptr);
    QCOMPARE(family.list->getChild(0)->getDisplayName(), "a");
}

void tst_EntityItemList::firstOfTwoEntriesIsFound()
{
    Family family(new EntityItemList);
    auto* twice = new_item("twice");
    append_children(family.parent, {new_item("a"), twice, new_item("b"), twice});
    QCOMPARE(family.list->getChildIndex(twice), 1);
    family.list->removeChild(3);
}

void tst_EntityItemList::visitStopsAtTheFirstTrue()
{
    Family family(new EntityItemList);
    append_children(family.parent, {new_item("a"), new_item("b"), new_item("c")});
    const auto visited_until = [&family](const QString& last) {
        QString visited;
        family.list->iterateChildren([&](EntityItem* child) {
            visited += child->getDisplayName();
            return child->getDisplayName() == last;
        });
        return visited;
    };
    QCOMPARE(visited_until("a"), "a");
    QCOMPARE(visited_until("b"), "ab");
    QCOMPARE(visited_until("none"), "abc");
}

void tst_EntityItemList::clearDeletesInOrderWhileTheChildrenStillStand()
{
    class Witness : public SimpleItem
    {
    public:
        Witness(const EntityItemList& list, QList<int>& counts)
            : SimpleItem(1, 0, nullptr)
            , m_list(list)
            , m_counts(counts)
        {
        }
        ~Witness() override { m_counts.append(m_list.childCount()); }

    private:
        const EntityItemList& m_list;
        QList<int>& m_counts;
    };
    QStringList deaths;
    QList<int> counts;
    Family family(new EntityItemList);
    append_children(family.parent,
        {new_mortal(deaths, "b"), new Witness(*family.list, counts), new_mortal(deaths, "a")});
    family.list->clear();
    QCOMPARE(deaths, (QStringList{"b", "a"}));
    QCOMPARE(counts, QList<int>{3});
    QVERIFY(!family.list->hasChildren());
}

void tst_EntityItemList::clearSkipsNullAndEmptyLists()
{
    QStringList deaths;
    EntityItemList list;
    list.clear();
    list.insertChild(0, nullptr);
    list.insertChild(1, new_mortal(deaths, "a"));
    list.clear();
    QCOMPARE(deaths, QStringList{"a"});
    QCOMPARE(list.childCount(), 0);
}

void tst_EntityItemList::destroyedListLeavesNoChildAlive()
{
    QStringList deaths;
    {
        SortedEntityList list;
        list.insertChild(0, new_mortal(deaths, "a"));
        list.insertChild(1, new_mortal(deaths, "b"));
    }
    QCOMPARE(deaths, (QStringList{"a", "b"}));
}

void tst_EntityItemList::copyOfAListOwnsNothingNew()
{
    QStringList deaths;
    Family family(new EntityItemList);
    append_children(family.parent, {new_mortal(deaths, "a"), new_mortal(deaths, "b")});
    EntityItemList copy(*family.list);
    QCOMPARE(copy.getChild(1), family.list->getChild(1));

    // Emptied by hand: one of the two would delete the children of the other.
    QCOMPARE(copy.removeChild(0), family.list->getChild(0));
    copy.removeChild(0);
    QVERIFY(!copy.hasChildren());
    QCOMPARE(shown_children(family.parent), "a b");
    copy = EntityItemList();
    QVERIFY(deaths.isEmpty());
}

void tst_EntityItemList::typeComesBeforeId_data()
{
    QTest::addColumn<int>("type_a");
    QTest::addColumn<int>("id_a");
    QTest::addColumn<int>("type_b");
    QTest::addColumn<int>("id_b");
    QTest::addColumn<bool>("before");
    QTest::newRow("lower type, higher id") << 1 << 9 << 2 << 1 << true;
    QTest::newRow("higher type, lower id") << 2 << 1 << 1 << 9 << false;
    QTest::newRow("one type, lower id") << 1 << 1 << 1 << 2 << true;
    QTest::newRow("one type, higher id") << 1 << 2 << 1 << 1 << false;
    QTest::newRow("equal") << 1 << 1 << 1 << 1 << false;
    QTest::newRow("types are signed") << -1 << 0 << 1 << 0 << true;
    QTest::newRow("ids are signed") << 1 << -5 << 1 << 0 << true;
}

void tst_EntityItemList::typeComesBeforeId()
{
    QFETCH(int, type_a);
    QFETCH(int, id_a);
    QFETCH(int, type_b);
    QFETCH(int, id_b);
    QFETCH(bool, before);
    const SimpleItem a(type_a, id_a, nullptr);
    const SimpleItem b(type_b, id_b, nullptr);
    QCOMPARE(entity_compare_by_type_id(&a, &b), before);
}

void tst_EntityItemList::nullGoesLastByTypeAndId()
{
    const SimpleItem item(1, 1, nullptr);
    QVERIFY(entity_compare_by_type_id(&item, nullptr));
    QVERIFY(!entity_compare_by_type_id(nullptr, &item));
    QVERIFY(!entity_compare_by_type_id(nullptr, nullptr));
    QVERIFY(!entity_compare_by_type_id(&item, &item));
}

void tst_EntityItemList::emptyListInsertsAtZero()
{
    SimpleItem item("item", 1, nullptr);
    QCOMPARE(EntityItemList().findInsertIndex(&item, 0, true), 0);
    QCOMPARE(SortedEntityList().findInsertIndex(&item, 0, true), 0);
    QCOMPARE(SortedTypeIdList().findInsertIndex(&item, 1, false), 0);
}

void tst_EntityItemList::insertionGoesToTheLowerBound_data()
{
    add_orders();
}

void tst_EntityItemList::insertionGoesToTheLowerBound()
{
    QFETCH(ListClass, kind);
    QFETCH(int, column);
    QFETCH(bool, ascending);
    const Less less = directed(order_of(kind, column), ascending);
    Family family(new_list(kind));
    for (EntityItem* item : various_items(300, 11)) {
        int expected = 0;
        while (
            expected < family.parent.childCount() && less(family.parent.getChild(expected), item)) {
            ++expected;
        }
        const int row = family.list->findInsertIndex(item, column, ascending);
        QCOMPARE(row, expected);
        family.parent.insertChild(row, item);
    }
}

void tst_EntityItemList::insertionAmongIds()
{
    SimpleItem five("x", 1, nullptr);
    five.setId(5);
    Family ascending(new SortedEntityList);
    append_children(ascending.parent, {new_item("a", 3), new_item("b", 7)});
    QCOMPARE(ascending.list->findInsertIndex(&five, 1, true), 1);
    Family descending(new SortedEntityList);
    append_children(descending.parent, {new_item("a", 7), new_item("b", 3)});
    QCOMPARE(descending.list->findInsertIndex(&five, 1, false), 1);
}

void tst_EntityItemList::childAtItsPlaceIsNoticed()
{
    for (const ListClass kind : {SortsById, SortsByTypeAndId}) {
        Family family(new_list(kind));
        auto* a = new_item("a", 1);
        auto* b = new_item("b", 2);
        append_children(family.parent, {a, b});
        for (const int column : {0, 1}) {
            QCOMPARE(family.list->findInsertIndex(a, column, true), -2);
            QCOMPARE(family.list->findInsertIndex(b, column, true), -2);
        }
    }
}

void tst_EntityItemList::childBehindItsEqualIsNotNoticed()
{
    Family family(new SortedEntityList);
    auto* second = new_item("same", 2);
    append_children(family.parent, {new_item("same", 1), second, new_item("z", 3)});
    QCOMPARE(family.list->findInsertIndex(second, 0, true), 0);
    QCOMPARE(family.list->findInsertIndex(second, 1, true), -2);
}

void tst_EntityItemList::nullItemGoesToTheEnd()
{
    for (const bool ascending : {true, false}) {
        Family family(new SortedEntityList);
        append_children(family.parent, {new_item("a", 1), new_item("a", 1)});
        QCOMPARE(family.list->findInsertIndex(nullptr, 0, ascending), 2);
        QCOMPARE(family.list->findInsertIndex(nullptr, 1, ascending), 2);
    }
}

void tst_EntityItemList::typeListPassesOverNames()
{
    Family family(new SortedTypeIdList);
    append_children(family.parent, {new_item("z", 9, 1), new_item("b", 4, 2)});
    SimpleItem item("a", 2, nullptr);
    item.setId(1);
    QCOMPARE(family.list->findInsertIndex(&item, 1, true), 1);
    item.setId(4);
    QVERIFY2(family.list->findInsertIndex(&item, 1, true) == 1, "equal keys, whatever the names");
    item.setName("z");
    QCOMPARE(family.list->findInsertIndex(&item, 1, true), 1);
}

void tst_EntityItemList::equalIdsAreOrderedByName()
{
    Family family(new SortedEntityList);
    append_children(family.parent, {new_item("c"), new_item("a"), new_item("b", -1)});
    family.list->sortChildren(1, true);
    QCOMPARE(shown_children(family.parent), "b a c");
    family.list->sortChildren(1, false);
    QCOMPARE(shown_children(family.parent), "c a b");
}

void tst_EntityItemList::equalNamesAreNotOrderedById()
{
    Family family(new SortedEntityList);
    append_children(family.parent, {new_item("same", 5), new_item("same", 9)});
    SimpleItem item("same", 1, nullptr);
    item.setId(7);
    QCOMPARE(family.list->findInsertIndex(&item, 0, true), 0);
    QCOMPARE(family.list->findInsertIndex(&item, 0, false), 0);
    QCOMPARE(family.list->findUpdatedIndex(0, 0, true), 0);
}

void tst_EntityItemList::nameIsTheOneShown()
{
    Family family(new SortedEntityList);
    auto* labelled = new_item("m");
    auto* named = new_item("a");
    named->setName("z");
    append_children(family.parent, {named, labelled});
    family.list->sortChildren(0, true);
    QCOMPARE(shown_children(family.parent), "m z");
}

void tst_EntityItemList::names_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::newRow("digits are letters") << "Volume 10"
                                        << "Volume 2";
    QTest::newRow("capitals come first") << "Z"
                                         << "a";
    QTest::newRow("the shorter one of two that begin alike") << "ab"
                                                             << "abc";
    QTest::newRow("no text before any") << "" << QStringLiteral("\0");
    QTest::newRow("a zero unit counts") << "ab" << QStringLiteral("ab\0");
    QTest::newRow("a zero unit is the lowest") << QStringLiteral("ab\0z") << "ab a";
    QTest::newRow("accents lie behind the alphabet") << "z"
                                                     << "ä";
    QTest::newRow("beyond Latin-1") << QString(QChar(0xfe)) + "b" << QString(QChar(0x100)) + "a";
    QTest::newRow("at the end of Latin-1")
        << QString(QChar(0xff)) + "b" << QString(QChar(0x100)) + "a";
    QTest::newRow("both beyond Latin-1")
        << QString(QChar(0x4f53)) + "b" << QString(QChar(0x7a4d)) + "a";
    QTest::newRow("code units, not code points")
        << QString::fromUcs4(U"\U0001F600", 1) << QString(QChar(0xff21));
    QTest::newRow("behind a long common beginning")
        << QString(50, 'x') + "a" << QString(50, 'x') + "b";
}

void tst_EntityItemList::names()
{
    QFETCH(QString, first);
    QFETCH(QString, second);
    for (const bool ascending : {true, false}) {
        Family family(new SortedEntityList);
        EntityItem* a = new_item(first, 1);
        EntityItem* b = new_item(second, 2);
        family.parent.insertChild(0, a);
        QCOMPARE(family.list->findInsertIndex(b, 0, ascending), ascending ? 1 : 0);
        family.parent.insertChild(0, b);
        family.list->sortChildren(0, ascending);
        QCOMPARE(family.parent.getChild(0), ascending ? a : b);
    }
}

void tst_EntityItemList::updatedRow_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("target");
    QTest::newRow("alone") << QStringList{"a"} << 0 << 0;
    QTest::newRow("first, in order") << QStringList{"a", "b", "c"} << 0 << 0;
    QTest::newRow("middle, in order") << QStringList{"a", "b", "c"} << 1 << 1;
    QTest::newRow("last, in order") << QStringList{"a", "b", "c"} << 2 << 2;
    QTest::newRow("first to the end") << QStringList{"z", "b", "c", "d"} << 0 << 4;
    QTest::newRow("first to the middle") << QStringList{"bb", "b", "c", "d"} << 0 << 2;
    QTest::newRow("last to the top") << QStringList{"b", "c", "d", "a"} << 3 << 0;
    QTest::newRow("last to the middle") << QStringList{"b", "c", "d", "bb"} << 3 << 1;
    QTest::newRow("middle up") << QStringList{"b", "c", "a", "d"} << 2 << 0;
    QTest::newRow("middle down by one") << QStringList{"a", "cc", "c", "d"} << 1 << 3;
    QTest::newRow("before its equals above") << QStringList{"a", "b", "b", "b"} << 3 << 1;
    QTest::newRow("before its equals below") << QStringList{"b", "a", "b", "b"} << 0 << 2;
    QTest::newRow("its equal is next") << QStringList{"b", "b", "c"} << 0 << 0;
}

void tst_EntityItemList::updatedRow()
{
    QFETCH(QStringList, names);
    QFETCH(int, row);
    QFETCH(int, target);
    for (const ListClass kind : {SortsById, SortsByTypeAndId}) {
        Family family(new_list(kind));
        for (const QString& name : names) {
            append_children(family.parent, {new_item(name)});
        }
        QCOMPARE(family.list->findUpdatedIndex(row, 0, true), target);
    }
}

void tst_EntityItemList::updatedRowFitsTheOrder_data()
{
    add_orders();
}

void tst_EntityItemList::updatedRowFitsTheOrder()
{
    QFETCH(ListClass, kind);
    QFETCH(int, column);
    QFETCH(bool, ascending);
    const Less less = directed(order_of(kind, column), ascending);
    Family family(new_list(kind));
    for (EntityItem* item : various_items(60, 5)) {
        family.parent.insertChild(family.list->findInsertIndex(item, column, ascending), item);
    }
    std::mt19937 random(17);
    for (int change = 0; change < 300; ++change) {
        const int row = static_cast<int>(random() % 60);
        auto* item = static_cast<SimpleItem*>(family.parent.getChild(row));
        item->setName(QString::number(random() % 40));
        item->setId(static_cast<int>(random() % 40));
        item->setType(static_cast<int>(random() % 5));
        const int target = family.list->findUpdatedIndex(row, column, ascending);
        QVERIFY2(target != row + 1, "a model cannot announce a move to the row below");
        if (target != row) {
            family.list->removeChild(row);
            family.parent.insertChild(target > row ? target - 1 : target, item);
        }
        QCOMPARE(first_disorder(family.parent, less), QString());
    }
}

void tst_EntityItemList::smallListIsSorted_data()
{
    add_orders();
}

void tst_EntityItemList::smallListIsSorted()
{
    QFETCH(ListClass, kind);
    QFETCH(int, column);
    QFETCH(bool, ascending);
    const Less less = directed(order_of(kind, column), ascending);
    for (unsigned seed = 0; seed < 50; ++seed) {
        Family family(new_list(kind));
        for (EntityItem* item : various_items(static_cast<int>(seed), seed)) {
            append_children(family.parent, {item});
        }
        family.list->sortChildren(column, ascending);
        QCOMPARE(first_disorder(family.parent, less), QString());
    }
}

void tst_EntityItemList::largeListIsSorted_data()
{
    add_orders();
}

void tst_EntityItemList::largeListIsSorted()
{
    QFETCH(ListClass, kind);
    QFETCH(int, column);
    QFETCH(bool, ascending);
    Family family(new_list(kind));
    for (EntityItem* item : various_items(5000, 3)) {
        append_children(family.parent, {item});
    }
    family.list->sortChildren(column, ascending);
    QCOMPARE(first_disorder(family.parent, directed(order_of(kind, column), ascending)), QString());
    family.list->sortChildren(column, !ascending);
    QCOMPARE(
        first_disorder(family.parent, directed(order_of(kind, column), !ascending)), QString());
}

void tst_EntityItemList::sortKeepsEveryChildAndItsParent()
{
    Family family(new SortedEntityList);
    std::vector<EntityItem*> items = various_items(1500, 8);
    for (EntityItem* item : items) {
        append_children(family.parent, {item});
    }
    family.list->sortChildren(0, false);
    QCOMPARE(family.parent.childCount(), 1500);
    std::vector<EntityItem*> sorted;
    family.list->iterateChildren([&sorted](EntityItem* child) {
        sorted.push_back(child);
        return false;
    });
    QVERIFY(std::all_of(sorted.begin(), sorted.end(),
        [&family](const EntityItem* child) { return child->getParentEntity() == &family.parent; }));
    std::sort(items.begin(), items.end());
    std::sort(sorted.begin(), sorted.end());
    QVERIFY2(items == sorted, "a sort must lose no child and double none");
}

void tst_EntityItemList::sortedListOfEqualNamesKeepsEveryChild()
{
    Family family(new SortedEntityList);
    for (int i = 0; i < 1000; ++i) {
        append_children(family.parent, {new_item(QString("a name like all others"), i)});
    }
    family.list->sortChildren(0, true);
    std::set<int> ids;
    family.parent.getChildIds(ids);
    QCOMPARE(ids.size(), 1000U);
}

void tst_EntityItemList::longLikeNamesAreSorted()
{
    Family family(new SortedEntityList);
    for (int i = 0; i < 2000; ++i) {
        const QString place = QString::number(i * 7919 % 2000).rightJustified(4, '0');
        append_children(family.parent,
            {new_item(QString("assembly %1 of the part number %2").arg(place.left(2), place))});
    }
    family.list->sortChildren(0, true);
    QCOMPARE(first_disorder(family.parent, order_of(SortsById, 0)), QString());
}

void tst_EntityItemList::nullChildrenAreSortedLast_data()
{
    add_orders();
}

void tst_EntityItemList::nullChildrenAreSortedLast()
{
    QFETCH(ListClass, kind);
    QFETCH(int, column);
    QFETCH(bool, ascending);
    const std::unique_ptr<EntityItemList> list(new_list(kind));
    EntityItem* low = new_item("a", 1);
    EntityItem* high = new_item("b", 2);
    for (EntityItem* child : std::initializer_list<EntityItem*>{nullptr, high, nullptr, low}) {
        list->insertChild(0, child);
    }
    list->sortChildren(column, ascending);
    QCOMPARE(list->childCount(), 4);
    QCOMPARE(list->getChild(0), ascending ? low : high);
    QCOMPARE(list->getChild(1), ascending ? high : low);
    QCOMPARE(list->getChild(2), nullptr);
    QCOMPARE(list->getChild(3), nullptr);

    SimpleItem last(ascending ? "z" : "A", 1, nullptr);
    last.setId(ascending ? 9 : 0);
    QCOMPARE(list->findInsertIndex(&last, column, ascending), 2);
}

void tst_EntityItemList::emptyListIsSorted()
{
    SortedEntityList list;
    list.sortChildren(0, true);
    list.sortChildren(1, false);
    QVERIFY(!list.hasChildren());
}

QTEST_GUILESS_MAIN(tst_EntityItemList)
#include "tst_EntityItemList.moc"
