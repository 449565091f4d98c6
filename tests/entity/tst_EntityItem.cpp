#include "TestItems.hpp"

#include <cstddef>
#include <memory>
#include <new>
#include <QTest>

namespace {

/// The least that a concrete item must implement.
class BareItem : public EntityItem
{
public:
    using EntityItem::EntityItem;
    const QString& getName() const override { return m_text; }
    const QString& getDisplayName() const override { return m_text; }
    bool setDisplay(const QString& /*display*/) override { return false; }

private:
    QString m_text;
};

class ShoutingData : public EntityItemData
{
public:
    using EntityItemData::EntityItemData;
    const QString& getDisplayName() const override
    {
        static const QString text = "LOUD";
        return text;
    }
};

/// Notes the items that it is told of.
class FrontEnd : public EntityModelInterface
{
public:
    void update_item(EntityItem* item) override { updated.push_back(item); }
    const std::string& get_type_name(int /*type*/) override { return m_name; }

    std::vector<EntityItem*> updated;

private:
    std::string m_name;
};

/// a( b( c d ) e( f ) ) g
struct Tree
{
    Tree()
    {
        for (const char* name : {"a", "b", "c", "d", "e", "f", "g"}) {
            items.push_back(new_item(name, 0, 1, new EntityItemList));
        }
        const auto [a, b, c, d, e, f, g] =
            std::array{items[0], items[1], items[2], items[3], items[4], items[5], items[6]};
        append_children(*b, {c, d});
        append_children(*e, {f});
        append_children(*a, {b, e});
        append_children(top, {a, g});
    }

    EntityItem* find(const QString& name)
    {
        const auto found = std::find_if(items.begin(), items.end(),
            [&](const EntityItem* item) { return item->getDisplayName() == name; });
        return found == items.end() ? nullptr : *found;
    }

    SimpleItem top{"top", 1, new EntityItemList};
    std::vector<EntityItem*> items;
};

} // namespace

class tst_EntityItem : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void bareItemAnswersTheDefaults();
    void simpleItemWithLabelHasNeitherNameNorId();
    void simpleItemWithIdHasNoText();
    void simpleItemKeepsWhatItIsGiven();
    void simpleItemLeavesTheRestToTheBase();

    void nameCoversTheLabelUntilItIsEmptied();
    void settersOfTextTellRealChangesOnly();
    void labelComparesWithTheLabelUnderTheName();

    void itemWithoutListHasNoChildren();
    void itemWithoutListAnswersForItself();
    void itemWithoutListDeletesTheChildItIsGiven();

    void insertedChildIsLinkedAndReturned();
    void rowOutOfRangeHasNoChild_data();
    void rowOutOfRangeHasNoChild();
    void removedChildIsFreeAndAlive();
    void parentLinkAloneMovesNothing();
    void childIsFoundByIdAndType();
    void grandchildrenAreNotLookedAt();
    void idsOfChildrenAreAdded();
    void childIsFoundByItsPointer_data();
    void childIsFoundByItsPointer();
    void strangerOfLikeAddressIsNotFound();

    void deletedItemDeletesItsSubtreeOnce();
    void deletedItemDoesNotTouchItsParent();
    void newListReplacesTheOldWithItsChildren();
    void clearDeletesTheChildrenAlone();

    void walkVisitsEachItemOnceFromTheTopDown();
    void walkStaysUnderItsStop_data();
    void walkStaysUnderItsStop();
    void walkWithAStrangeStopEndsAtTheTop();
    void walkEndsAtAParentWithoutList();

    void copyOfAnItemPointsToTheSameParentAndList();
    void copyOfASharedItemIsNotRegistered();
    void copyOfDataSharesTheEntries();

    void newDataIsVisibleAndEmpty();
    void settersOfDataTellRealChangesOnly();
    void dataTextFollowsTheRuleOfSimpleItems();
    void sharedItemShowsItsData();
    void sharedItemHonoursAnOverriddenDisplayName();
    void sharedItemsRegisterInOrderAndUnregister();
    void sharedItemLeavesItsDataBeforeItsChildrenGo();
    void dataOutlivesItsLastItem();
    void dataFindsItsNodeUnderAParent();
    void entriesAreNotTestedForDuplicatesAndGoTogether();
    void itemsAreVisitedInOrder();
    void reverseVisitMayDeleteTheItem();
    void updateTellsTheFrontEndOfEachNode();
    void menuHooksAddNothing();
};

void tst_EntityItem::bareItemAnswersTheDefaults()
{
    BareItem item;
    QCOMPARE(item.getCategory(), -1);
    QCOMPARE(item.getPreferredIndex(), -1);
    QCOMPARE(item.getData(), nullptr);
    QCOMPARE(item.getType(), -1);
    QCOMPARE(item.getId(), 0);
    QVERIFY(!item.isEditable());
    QVERIFY(item.isVisible());
    QCOMPARE(item.getParentEntity(), nullptr);
    QCOMPARE(item.getList(), nullptr);
}

void tst_EntityItem::simpleItemWithLabelHasNeitherNameNorId()
{
    SimpleItem item("Volumes", 4, nullptr);
    QCOMPARE(item.getDisplayName(), "Volumes");
    QCOMPARE(item.getName(), QString());
    QCOMPARE(item.getType(), 4);
    QCOMPARE(item.getId(), 0);
    QVERIFY(!item.isEditable());
}

void tst_EntityItem::simpleItemWithIdHasNoText()
{
    auto* list = new EntityItemList;
    SimpleItem item(4, 9, list);
    QCOMPARE(item.getDisplayName(), QString());
    QCOMPARE(item.getName(), QString());
    QCOMPARE(item.getType(), 4);
    QCOMPARE(item.getId(), 9);
    QVERIFY(!item.isEditable());
    QCOMPARE(item.getList(), list);
}

void tst_EntityItem::simpleItemKeepsWhatItIsGiven()
{
    SimpleItem item(1, 2, nullptr);
    item.setType(-7);
    item.setId(-8);
    item.setEditable(true);
    QCOMPARE(item.getType(), -7);
    QCOMPARE(item.getId(), -8);
    QVERIFY(item.isEditable());
    item.setEditable(false);
    QVERIFY(!item.isEditable());
}

void tst_EntityItem::simpleItemLeavesTheRestToTheBase()
{
    SimpleItem item(1, 2, nullptr);
    QCOMPARE(item.getCategory(), -1);
    QCOMPARE(item.getPreferredIndex(), -1);
    QCOMPARE(item.getData(), nullptr);
    QVERIFY(item.isVisible());
}

void tst_EntityItem::nameCoversTheLabelUntilItIsEmptied()
{
    SimpleItem item("X", 1, nullptr);
    QCOMPARE(item.getDisplayName(), "X");
    item.setName("Y");
    QCOMPARE(item.getDisplayName(), "Y");
    QCOMPARE(item.getName(), "Y");
    item.setName("");
    QCOMPARE(item.getDisplayName(), "X");
    QCOMPARE(item.getName(), "");
}

void tst_EntityItem::settersOfTextTellRealChangesOnly()
{
    SimpleItem item("X", 1, nullptr);
    QVERIFY(!item.setName(""));
    QVERIFY(item.setName("lid"));
    QVERIFY(!item.setName("lid"));
    QVERIFY2(item.setName("Lid"), "letter case makes another name");
    QVERIFY2(item.setName("Lip"), "names of one length differ by their letters");
    QVERIFY(!item.setDisplay("X"));
    QVERIFY(item.setDisplay("Y"));
    QVERIFY(!item.setDisplay("Y"));
}

void tst_EntityItem::labelComparesWithTheLabelUnderTheName()
{
    SimpleItem item("label", 1, nullptr);
    item.setName("name");
    QVERIFY2(item.setDisplay("name"), "the label changes, though the text shown does not");
    QCOMPARE(item.getDisplayName(), "name");
    item.setName("");
    QCOMPARE(item.getDisplayName(), "name");
}

void tst_EntityItem::itemWithoutListHasNoChildren()
{
    SimpleItem item("leaf", 1, nullptr);
    QCOMPARE(item.childCount(), 0);
    QCOMPARE(item.getChild(0), nullptr);
    QCOMPARE(item.getChildById(5), nullptr);
    QCOMPARE(item.getChildById(5, 1), nullptr);
    QCOMPARE(item.getChildIndex(&item), -1);
    std::set<int> ids{3};
    item.getChildIds(ids);
    item.getChildIds(ids, 1);
    QCOMPARE(ids, std::set<int>{3});
    item.clear();
    item.sortChildren(0, true);
    QCOMPARE(item.removeChild(0), nullptr);
}

void tst_EntityItem::itemWithoutListAnswersForItself()
{
    SimpleItem item("leaf", 1, nullptr);
    SimpleItem child("child", 1, nullptr);
    QCOMPARE(item.findInsertIndex(&child, 0, true), -1);
    QCOMPARE(item.findUpdatedIndex(3, 0, true), 3);
}

void tst_EntityItem::itemWithoutListDeletesTheChildItIsGiven()
{
    QStringList deaths;
    SimpleItem item("leaf", 1, nullptr);
    QCOMPARE(item.insertChild(0, new_mortal(deaths, "child")), nullptr);
    QCOMPARE(deaths, QStringList{"child"});
}

void tst_EntityItem::insertedChildIsLinkedAndReturned()
{
    SimpleItem parent("parent", 1, new EntityItemList);
    auto* b = new_item("b");
    QCOMPARE(parent.insertChild(0, b), b);
    QCOMPARE(b->getParentEntity(), &parent);
    parent.insertChild(0, new_item("a"));
    parent.insertChild(2, new_item("c"));
    QCOMPARE(shown_children(parent), "a b c");
}

void tst_EntityItem::rowOutOfRangeHasNoChild_data()
{
    QTest::addColumn<int>("row");
    QTest::newRow("before the first") << -1;
    QTest::newRow("at the count") << 2;
    QTest::newRow("far behind") << 2147483647;
    QTest::newRow("far before") << int(-2147483647 - 1);
}

void tst_EntityItem::rowOutOfRangeHasNoChild()
{
    QFETCH(int, row);
    SimpleItem parent("parent", 1, new EntityItemList);
    append_children(parent, {new_item("a"), new_item("b")});
    QCOMPARE(parent.getChild(row), nullptr);
}

void tst_EntityItem::removedChildIsFreeAndAlive()
{
    QStringList deaths;
    SimpleItem parent("parent", 1, new EntityItemList);
    EntityItem* child = new_mortal(deaths, "b");
    append_children(parent, {new_item("a"), child, new_item("c")});

    const std::unique_ptr<EntityItem> removed(parent.removeChild(1));

    QCOMPARE(removed.get(), child);
    QCOMPARE(removed->getParentEntity(), nullptr);
    QCOMPARE(shown_children(parent), "a c");
    QVERIFY(deaths.isEmpty());
}

void tst_EntityItem::parentLinkAloneMovesNothing()
{
    SimpleItem parent("parent", 1, new EntityItemList);
    SimpleItem item("item", 1, nullptr);
    item.setParentEntity(&parent);
    QCOMPARE(item.getParentEntity(), &parent);
    QCOMPARE(parent.childCount(), 0);
    item.setParentEntity(nullptr);
    QCOMPARE(item.getParentEntity(), nullptr);
}

void tst_EntityItem::childIsFoundByIdAndType()
{
    SimpleItem parent("parent", 1, new EntityItemList);
    auto* first = new_item("first", 5, 1);
    auto* second = new_item("second", 5, 2);
    auto* third = new_item("third", 5, 2);
    append_children(parent, {first, second, third});
    QCOMPARE(parent.getChildById(5), first);
    QCOMPARE(parent.getChildById(5, 2), second);
    QCOMPARE(parent.getChildById(2, 5), nullptr);
    QCOMPARE(parent.getChildById(6), nullptr);
    QCOMPARE(parent.getChildById(5, 3), nullptr);
}

void tst_EntityItem::grandchildrenAreNotLookedAt()
{
    SimpleItem parent("parent", 1, new EntityItemList);
    auto* child = new_item("child", 1, 1, new EntityItemList);
    auto* grandchild = new_item("grandchild", 5);
    append_children(parent, {child});
    append_children(*child, {grandchild});
    QCOMPARE(parent.getChildById(5), nullptr);
    QCOMPARE(parent.getChildIndex(grandchild), -1);
    std::set<int> ids;
    parent.getChildIds(ids);
    QCOMPARE(ids, std::set<int>{1});
}

void tst_EntityItem::idsOfChildrenAreAdded()
{
    SimpleItem parent("parent", 1, new EntityItemList);
    append_children(parent, {new_item("a", 4, 1), new_item("b", 2, 2), new_item("c", 3, 2)});
    std::set<int> ids{9};
    parent.getChildIds(ids, 2);
    QCOMPARE(ids, (std::set<int>{2, 3, 9}));
    parent.getChildIds(ids);
    QCOMPARE(ids, (std::set<int>{2, 3, 4, 9}));
}

void tst_EntityItem::childIsFoundByItsPointer_data()
{
    QTest::addColumn<int>("count");
    QTest::newRow("no child") << 0;
    QTest::newRow("one child") << 1;
    QTest::newRow("few children") << 31;
    QTest::newRow("a full block of the search") << 32;
    QTest::newRow("one more") << 33;
    QTest::newRow("several blocks and a rest") << 105;
}

void tst_EntityItem::childIsFoundByItsPointer()
{
    QFETCH(int, count);
    SimpleItem parent("parent", 1, new EntityItemList);
    for (int row = 0; row < count; ++row) {
        append_children(parent, {new_item(QString::number(row))});
    }
    for (int row = 0; row < count; ++row) {
        QCOMPARE(parent.getChildIndex(parent.getChild(row)), row);
    }
    QCOMPARE(parent.getChildIndex(&parent), -1);
    QCOMPARE(parent.getChildIndex(nullptr), -1);
}

void tst_EntityItem::strangerOfLikeAddressIsNotFound()
{
    SimpleItem parent("parent", 1, new EntityItemList);
    for (int row = 0; row < 70; ++row) {
        append_children(parent, {new_item(QString::number(row))});
    }
    const auto address = reinterpret_cast<quintptr>(parent.getChild(3));
    const auto like_address = static_cast<quintptr>(address ^ (quint64(1) << 33));
    if (like_address == address) {
        QSKIP("addresses have 32 bits here");
    }
    // Never followed. NOLINTNEXTLINE(performance-no-int-to-ptr)
    QCOMPARE(parent.getChildIndex(reinterpret_cast<EntityItem*>(like_address)), -1);
}

void tst_EntityItem::deletedItemDeletesItsSubtreeOnce()
{
    QStringList deaths;
    auto* top = new_mortal(deaths, "top", new EntityItemList);
    auto* a = new_mortal(deaths, "a", new SortedEntityList);
    append_children(*top, {a, new_mortal(deaths, "b")});
    append_children(*a, {new_mortal(deaths, "a1"), new_mortal(deaths, "a2")});
    delete top;
    QCOMPARE(deaths, (QStringList{"top", "a", "a1", "a2", "b"}));
}

void tst_EntityItem::deletedItemDoesNotTouchItsParent()
{
    auto* parent = new SimpleItem("parent", 1, new EntityItemList);
    auto* child = new_item("child");
    append_children(*parent, {child});
    parent->removeChild(0);
    child->setParentEntity(parent);
    append_children(*parent, {new_item("other")});
    delete child;
    QCOMPARE(shown_children(*parent), "other");
    delete parent;
}

void tst_EntityItem::newListReplacesTheOldWithItsChildren()
{
    QStringList deaths;
    SimpleItem item("item", 1, new EntityItemList);
    append_children(item, {new_mortal(deaths, "a"), new_mortal(deaths, "b")});
    auto* list = new SortedEntityList;
    item.setList(list);
    QCOMPARE(deaths, (QStringList{"a", "b"}));
    QCOMPARE(item.getList(), list);
    QCOMPARE(item.childCount(), 0);
    item.setList(nullptr);
    QCOMPARE(item.getList(), nullptr);
    item.setList(nullptr);
    QCOMPARE(item.findInsertIndex(&item, 0, true), -1);
}

void tst_EntityItem::clearDeletesTheChildrenAlone()
{
    QStringList deaths;
    auto* list = new EntityItemList;
    SimpleItem item("item", 1, list);
    append_children(item, {new_mortal(deaths, "a"), new_mortal(deaths, "b")});
    item.clear();
    QCOMPARE(deaths, (QStringList{"a", "b"}));
    QCOMPARE(item.getList(), list);
    QCOMPARE(item.childCount(), 0);
}

void tst_EntityItem::walkVisitsEachItemOnceFromTheTopDown()
{
    Tree tree;
    QString visited;
    for (EntityItem* item = tree.top.getNext(&tree.top); item; item = item->getNext(&tree.top)) {
        visited += item->getDisplayName();
    }
    QCOMPARE(visited, "abcdefg");
}

void tst_EntityItem::walkStaysUnderItsStop_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("stop");
    QTest::addColumn<QString>("next");
    QTest::newRow("into the subtree") << "b"
                                      << "b"
                                      << "c";
    QTest::newRow("to the next sibling") << "c"
                                         << "b"
                                         << "d";
    QTest::newRow("from the last, though the tree goes on") << "d"
                                                            << "b"
                                                            << "";
    QTest::newRow("up one level") << "d"
                                  << "a"
                                  << "e";
    QTest::newRow("from the last over two levels") << "f"
                                                   << "a"
                                                   << "";
    QTest::newRow("a leaf that is the stop") << "c"
                                             << "c"
                                             << "";
}

void tst_EntityItem::walkStaysUnderItsStop()
{
    QFETCH(QString, from);
    QFETCH(QString, stop);
    QFETCH(QString, next);
    Tree tree;
    QCOMPARE(tree.find(from)->getNext(tree.find(stop)), tree.find(next));
}

void tst_EntityItem::walkWithAStrangeStopEndsAtTheTop()
{
    Tree tree;
    QCOMPARE(tree.find("d")->getNext(tree.find("g")), tree.find("e"));
    QCOMPARE(tree.find("f")->getNext(tree.find("b")), tree.find("g"));
    QCOMPARE(tree.find("g")->getNext(tree.find("b")), nullptr);
    QCOMPARE(tree.find("g")->getNext(nullptr), nullptr);
}

void tst_EntityItem::walkEndsAtAParentWithoutList()
{
    SimpleItem parent("parent", 1, nullptr);
    SimpleItem item("item", 1, nullptr);
    item.setParentEntity(&parent);
    QCOMPARE(item.getNext(&parent), nullptr);
}

void tst_EntityItem::copyOfAnItemPointsToTheSameParentAndList()
{
    SimpleItem parent("parent", 1, new EntityItemList);
    auto* source = new SimpleItem(3, 8, new EntityItemList);
    append_children(parent, {source});
    append_children(*source, {new_item("child")});

    // Never destroyed: it would delete the list a second time.
    alignas(SimpleItem) std::array<std::byte, sizeof(SimpleItem)> storage;
    auto* copy = new (storage.data()) SimpleItem(*source);

    QCOMPARE(copy->getParentEntity(), &parent);
    QCOMPARE(copy->getList(), source->getList());
    QCOMPARE(copy->getType(), 3);
    QCOMPARE(copy->getId(), 8);
    QCOMPARE(source->getChild(0)->getParentEntity(), source);
    QCOMPARE(parent.childCount(), 1);
}

void tst_EntityItem::copyOfASharedItemIsNotRegistered()
{
    EntityItemData data(1, 2);
    SharedItem source(&data, nullptr);
    {
        // It is what is tested. NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
        const SharedItem copy(source);
        QCOMPARE(copy.getId(), 2);
        int count = 0;
        data.iterateItems([&count](EntityItem*) { ++count; });
        QCOMPARE(count, 1);
    }
    QCOMPARE(data.getItem(0), &source);

    EntityItemData other_data(1, 3);
    SharedItem target(&other_data, nullptr);
    target = source;
    QCOMPARE(target.getId(), 2);
    QCOMPARE(other_data.getItem(0), &target);
    other_data.removeItem(&target);
}

void tst_EntityItem::copyOfDataSharesTheEntries()
{
    EntityItemData data(1, 2);
    data.setName("name");
    const SharedItem item(&data, nullptr);
    const EntityItemData copy(data);
    QCOMPARE(copy.getItem(0), &item);
    QCOMPARE(copy.getName(), "name");
    QCOMPARE(item.getName(), "name");
}

void tst_EntityItem::newDataIsVisibleAndEmpty()
{
    const EntityItemData data(4, 9);
    QCOMPARE(data.getType(), 4);
    QCOMPARE(data.getId(), 9);
    QCOMPARE(data.getName(), QString());
    QCOMPARE(data.getDisplayName(), QString());
    QVERIFY(data.isVisible());
    QVERIFY(data.itemsEmpty());
    QCOMPARE(data.findItem(nullptr), nullptr);
}

void tst_EntityItem::settersOfDataTellRealChangesOnly()
{
    EntityItemData data(4, 9);
    QVERIFY(!data.setVisible(true));
    QVERIFY(data.setVisible(false));
    QVERIFY(!data.setVisible(false));
    QVERIFY(!data.isVisible());
    QVERIFY(!data.setType(4));
    QVERIFY(data.setType(5));
    QCOMPARE(data.getType(), 5);
    data.setId(-3);
    QCOMPARE(data.getId(), -3);
}

void tst_EntityItem::dataTextFollowsTheRuleOfSimpleItems()
{
    EntityItemData data(4, 9);
    QVERIFY(data.setDisplay("label"));
    QVERIFY(!data.setDisplay("label"));
    QCOMPARE(data.getDisplayName(), "label");
    QVERIFY(data.setName("name"));
    QVERIFY(!data.setName("name"));
    QVERIFY(data.setName("Name"));
    QCOMPARE(data.getDisplayName(), "Name");
    QVERIFY(data.setDisplay("Name"));
    QVERIFY(data.setName(""));
    QCOMPARE(data.getName(), "");
    QCOMPARE(data.getDisplayName(), "Name");
}

void tst_EntityItem::sharedItemShowsItsData()
{
    EntityItemData data(4, 9);
    SharedItem item(&data, nullptr);
    SharedItem other(&data, nullptr);
    QVERIFY2(item.isEditable(), "a shared item is always editable");
    QCOMPARE(item.getData(), &data);
    QCOMPARE(item.getType(), 4);
    QCOMPARE(item.getId(), 9);
    QCOMPARE(item.getCategory(), -1);
    QCOMPARE(item.getPreferredIndex(), -1);
    QVERIFY(item.isVisible());

    QVERIFY(item.setDisplay("label"));
    QVERIFY(!other.setDisplay("label"));
    QCOMPARE(other.getDisplayName(), "label");
    QCOMPARE(other.getName(), "");
    data.setName("name");
    data.setVisible(false);
    QCOMPARE(item.getDisplayName(), "name");
    QCOMPARE(other.getName(), "name");
    QVERIFY(!other.isVisible());
}

void tst_EntityItem::sharedItemHonoursAnOverriddenDisplayName()
{
    ShoutingData data(4, 9);
    data.setName("quiet");
    const SharedItem item(&data, nullptr);
    QCOMPARE(item.getDisplayName(), "LOUD");
    QCOMPARE(item.getName(), "quiet");
}

void tst_EntityItem::sharedItemsRegisterInOrderAndUnregister()
{
    EntityItemData data(4, 9);
    const SharedItem first(&data, nullptr);
    {
        const SharedItem second(&data, nullptr);
        const SharedItem third(&data, nullptr);
        QVERIFY(!data.itemsEmpty());
        QCOMPARE(data.getItem(0), &first);
        QCOMPARE(data.getItem(1), &second);
        QCOMPARE(data.getItem(2), &third);
    }
    QCOMPARE(data.getItem(0), &first);
    QVERIFY(!data.itemsEmpty());
}

void tst_EntityItem::sharedItemLeavesItsDataBeforeItsChildrenGo()
{
    class Witness : public BareItem
    {
    public:
        Witness(const EntityItemData& data, bool& saw_empty)
            : m_data(data)
            , m_saw_empty(saw_empty)
        {
        }
        ~Witness() override { m_saw_empty = m_data.itemsEmpty(); }

    private:
        const EntityItemData& m_data;
        bool& m_saw_empty;
    };
    EntityItemData data(4, 9);
    bool saw_empty = false;
    auto* item = new SharedItem(&data, new EntityItemList);
    append_children(*item, {new Witness(data, saw_empty)});
    delete item;
    QVERIFY2(saw_empty, "the children must die after their parent has left the data");
}

void tst_EntityItem::dataOutlivesItsLastItem()
{
    EntityItemData data(4, 9);
    data.setName("name");
    delete new SharedItem(&data, nullptr);
    QVERIFY(data.itemsEmpty());
    QCOMPARE(data.getName(), "name");
}

void tst_EntityItem::dataFindsItsNodeUnderAParent()
{
    EntityItemData data(4, 9);
    SimpleItem parent("parent", 1, new EntityItemList);
    SharedItem free_node(&data, nullptr);
    auto* node = new SharedItem(&data, nullptr);
    auto* later_node = new SharedItem(&data, nullptr);
    append_children(parent, {later_node, node});
    QCOMPARE(data.findItem(&parent), node);
    QCOMPARE(data.findItem(nullptr), &free_node);
    QCOMPARE(data.findItem(node), nullptr);
}

void tst_EntityItem::entriesAreNotTestedForDuplicatesAndGoTogether()
{
    EntityItemData data(4, 9);
    BareItem item;
    BareItem other;
    data.addItem(&item);
    data.addItem(&other);
    data.addItem(&item);
    QCOMPARE(data.getItem(2), &item);
    data.removeItem(&item);
    QStringList left;
    data.iterateItems([&](EntityItem* entry) { left.append(entry == &other ? "other" : "item"); });
    QCOMPARE(left, QStringList{"other"});
    data.removeItem(&item);
    QCOMPARE(data.getItem(0), &other);
    data.removeItem(&other);
    QVERIFY(data.itemsEmpty());
}

void tst_EntityItem::itemsAreVisitedInOrder()
{
    EntityItemData data(4, 9);
    SharedItem first(&data, nullptr);
    SharedItem second(&data, nullptr);
    std::vector<EntityItem*> visited;
    const auto visit = [&visited](EntityItem* item) { visited.push_back(item); };
    data.iterateItems(visit);
    data.iterateItemsReverse(visit);
    QCOMPARE(visited, (std::vector<EntityItem*>{&first, &second, &second, &first}));
}

void tst_EntityItem::reverseVisitMayDeleteTheItem()
{
    QStringList deaths;
    EntityItemData data(4, 9);
    for (int i = 0; i < 3; ++i) {
        new MortalItem<SharedItem>(deaths, &data, nullptr);
    }
    const EntityItem* survivor = data.getItem(0);
    data.iterateItemsReverse([survivor](EntityItem* item) {
        if (item != survivor) {
            delete item;
        }
    });
    QCOMPARE(deaths.size(), 2);
    QCOMPARE(data.getItem(0), survivor);
    data.iterateItemsReverse([](EntityItem* item) { delete item; });
    QCOMPARE(deaths.size(), 3);
    QVERIFY(data.itemsEmpty());
}

void tst_EntityItem::updateTellsTheFrontEndOfEachNode()
{
    EntityItemData data(4, 9);
    FrontEnd front_end;
    data.updateModel(&front_end);
    QVERIFY(front_end.updated.empty());
    SharedItem first(&data, nullptr);
    SharedItem second(&data, nullptr);
    data.updateModel(&front_end);
    QCOMPARE(front_end.updated, (std::vector<EntityItem*>{&first, &second}));
}

void tst_EntityItem::menuHooksAddNothing()
{
    FrontEnd front_end;
    BareItem item;
    front_end.create_new_item_action(&item, 1, nullptr, "New", ":/icon.svg");
    front_end.create_refresh_action(nullptr);
    front_end.create_rename_action(nullptr);
    front_end.create_collapse_action(nullptr);
    QVERIFY(front_end.updated.empty());
}

QTEST_GUILESS_MAIN(tst_EntityItem)
#include "tst_EntityItem.moc"
