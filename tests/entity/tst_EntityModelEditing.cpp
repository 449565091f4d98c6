#include "ModelWatch.hpp"
#include "TestItems.hpp"

#include <memory>
#include <QPersistentModelIndex>
#include <QTest>
#include <treemodel/entity/EntityTypeRange.hpp>

namespace {

/// What an item is given to carry its children.
enum ListClass { NoList, PlainList, SortedList };

EntityItemList* new_list(ListClass kind)
{
    switch (kind) {
    case NoList:
        return nullptr;
    case PlainList:
        return new EntityItemList;
    case SortedList:
        break;
    }
    return new SortedEntityList;
}

EntityItem* root_of(EntityItem* top_level_item)
{
    return top_level_item->getParentEntity();
}

} // namespace

class tst_EntityModelEditing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void firstRowIsAddedAtTopLevel();
    void childIsAddedWhereItBelongs();
    void sortInUseDecidesThePlace();
    void itemThatCanNotBeAddedIsDeleted_data();
    void itemThatCanNotBeAddedIsDeleted();
    void failedSubtreeIsDeletedWhole();
    void childAtItsPlaceIsNotAddedAgain();
    void categoryIsNotAddedTwice();
    void childOfAHiddenItemIsAddedInSilence();
    void subtreeIsAddedAsOneRow();
    void newCategoryTakesChildrenOnceItHasAList();

    void categoriesStandByTheirNumbers_data();
    void categoriesStandByTheirNumbers();
    void plainItemsStandBehindAllCategories();

    void moveToThePresentParentIsDoneAlready();
    void moveBetweenVisibleParentsIsOneMove();
    void itemMovesUpToItsGrandparent();
    void topLevelItemMovesBelow();
    void itemDoesNotMoveToTopLevel();
    void itemThatCanNotMoveStaysAlive_data();
    void itemThatCanNotMoveStaysAlive();
    void moveOutOfSightIsARemoval();
    void moveIntoSightIsAnInsertion();
    void hiddenTopLevelItemMovesIntoSight();
    void moveOutOfSightAndBackWithinHidingIsSilent();
    void hiddenTopLevelItemMovesUnderAnotherHiddenOne();
    void movedSubtreeGoesAlong();

    void removedItemDiesAfterItsSignals();
    void removedSubtreeDiesOnce();
    void hiddenItemIsRemovedInSilence();
    void hiddenTopLevelItemIsRemovedInSilence();
    void unknownItemIsNotRemoved();
    void sharedItemsLeaveTheirDataOnRemoval();

    void updateWithoutANewPlaceChangesBothCells();
    void updateThatMovesTheRowIsAMoveAlone_data();
    void updateThatMovesTheRowIsAMoveAlone();
    void updateOfTheLastRowInOrderChangesCells();
    void updateFollowsTheSortInUse();
    void updateOfATopLevelRowChangesCells();
    void updateOfAHiddenItemIsSilent();
    void updateOfAStrangerIsSilent();
    void updatedRowIsFollowedByPersistentIndexes();

    void hiddenCategoryLeavesTheViewAlone();
    void onlyTopLevelItemsHide();
    void hidingTwiceHidesOnce();
    void shownCategoryComesBackToItsPlace();
    void shownSubtreeIsOneRow();
    void showingWhatIsNotHiddenDoesNothing();

    void clearedCategoryLosesItsChildren();
    void clearedHiddenCategoryIsSilent();
    void clearingAnEmptyCategoryIsSilent();
    void clearingAStrangerDoesNothing();

    void clearResetsTheModel();
    void clearOfAnEmptyModelStillResets();
    void clearKeepsSortAndIcons();
    void destructionResetsAndDeletesEachItemOnce();

    void readersSeeTheTreeBeforeAndAfter_data();
    void readersSeeTheTreeBeforeAndAfter();
    void hiddenItemIsInNoRegionWhileItChangesRegion();

private:
    EntityItem* add(
        EntityItem* parent, const QString& name, int id = 0, ListClass kind = SortedList)
    {
        auto* item = new MortalItem<SimpleItem>(deaths, name, 1, new_list(kind));
        item->setId(id);
        model->addEntity(parent, item);
        return item;
    }

    EntityItem* add_category(const QString& name, int category, int preferred_index)
    {
        auto* item = new MortalItem<EntityCategory>(deaths, name, 1, category, preferred_index);
        item->setList(new SortedEntityList);
        model->addEntity(nullptr, item);
        return item;
    }

    /// "a(a1 a2) b(b1)" in view and, hidden, h(h1 h2( h21 )).
    void fill();

    QString tree() const { return ModelWatch::tree(*model); }

    QStringList deaths;
    std::unique_ptr<EntityModel> model;
    std::unique_ptr<ModelWatch> watch;
    EntityItem *a, *a1, *a2, *b, *b1, *h, *h1, *h2, *h21;
};

void tst_EntityModelEditing::init()
{
    deaths.clear();
    model = std::make_unique<EntityModel>();
    watch = std::make_unique<ModelWatch>(model.get());
}

void tst_EntityModelEditing::cleanup()
{
    watch.reset();
    model.reset();
}

void tst_EntityModelEditing::fill()
{
    a = add_category("a", 0, 0);
    b = add_category("b", 1, 0);
    h = add_category("h", 2, 0);
    a1 = add(a, "a1", 1);
    a2 = add(a, "a2", 2);
    b1 = add(b, "b1", 1);
    h1 = add(h, "h1", 1);
    h2 = add(h, "h2", 2);
    h21 = add(h2, "h21", 1);
    model->hideCategory(h);
    QCOMPARE(tree(), "a(a1 a2) b(b1)");
    watch->take();
}

void tst_EntityModelEditing::firstRowIsAddedAtTopLevel()
{
    QVERIFY(model->addEntity(nullptr, new EntityCategory("a", 1, 0, 0)));
    QCOMPARE(model->rowCount(), 1);
    QCOMPARE(watch->take(), ModelWatch::insertion("root", 0));
}

void tst_EntityModelEditing::childIsAddedWhereItBelongs()
{
    fill();
    auto* child = new_item("between", 1);
    child->setId(2);
    model->removeEntity(a2);
    add(a, "a3", 3);
    watch->take();
    QVERIFY(model->addEntity(a, child));
    QCOMPARE(tree(), "a(a1 between a3) b(b1)");
    QCOMPARE(watch->take(), ModelWatch::insertion("a", 1));
    QCOMPARE(child->getParentEntity(), a);
}

void tst_EntityModelEditing::sortInUseDecidesThePlace()
{
    EntityItem* parent = add(nullptr, "parent");
    model->sort(0, Qt::DescendingOrder);
    add(parent, "b", 1);
    add(parent, "c", 2);
    add(parent, "a", 3);
    QCOMPARE(tree(), "parent(c b a)");
    EntityItem* plain = add(nullptr, "plain", 0, PlainList);
    add(plain, "b", 1);
    add(plain, "c", 2);
    add(plain, "a", 3);
    QCOMPARE(tree(), "plain(b c a) parent(c b a)");
}

void tst_EntityModelEditing::itemThatCanNotBeAddedIsDeleted_data()
{
    QTest::addColumn<QString>("parent");
    QTest::newRow("a parent without a list") << "leaf";
    QTest::newRow("a hidden parent without a list") << "hidden leaf";
    QTest::newRow("a parent that is not in the model") << "stranger";
    QTest::newRow("a child of one that is not in the model") << "under stranger";
    QTest::newRow("the root itself") << "root";
}

void tst_EntityModelEditing::itemThatCanNotBeAddedIsDeleted()
{
    QFETCH(QString, parent);
    fill();
    SimpleItem stranger("stranger", 1, new EntityItemList);
    append_children(stranger, {new_item("under stranger", 1, 1, new EntityItemList)});
    const QHash<QString, EntityItem*> parents{{"leaf", add(a, "leaf", 9, NoList)},
        {"hidden leaf", add(h, "hidden leaf", 9, NoList)}, {"stranger", &stranger},
        {"under stranger", stranger.getChild(0)}, {"root", root_of(a)}};
    const QString before = tree();
    watch->take();

    QVERIFY(!model->addEntity(parents.value(parent), new_mortal(deaths, "child")));

    QCOMPARE(deaths, QStringList{"child"});
    QCOMPARE(watch->take(), QStringList());
    QCOMPARE(tree(), before);
}

void tst_EntityModelEditing::failedSubtreeIsDeletedWhole()
{
    EntityItem* leaf = add(nullptr, "leaf", 0, NoList);
    auto* child = new_mortal(deaths, "child", new EntityItemList);
    append_children(*child, {new_mortal(deaths, "grandchild")});
    QVERIFY(!model->addEntity(leaf, child));
    QCOMPARE(deaths, (QStringList{"child", "grandchild"}));
}

void tst_EntityModelEditing::childAtItsPlaceIsNotAddedAgain()
{
    fill();
    QVERIFY(model->addEntity(a, a2));
    QVERIFY(model->addEntity(h, h1));
    QCOMPARE(watch->take(), QStringList());
    QCOMPARE(tree(), "a(a1 a2) b(b1)");
    QCOMPARE(h->childCount(), 2);
    QCOMPARE(deaths, QStringList());
}

void tst_EntityModelEditing::categoryIsNotAddedTwice()
{
    fill();
    QVERIFY(model->addEntity(nullptr, b));
    QCOMPARE(watch->take(), QStringList());
    QCOMPARE(model->rowCount(), 2);
}

void tst_EntityModelEditing::childOfAHiddenItemIsAddedInSilence()
{
    fill();
    auto* child = new_item("h22", 2);
    QVERIFY(model->addEntity(h2, child));
    QCOMPARE(watch->take(), QStringList());
    QCOMPARE(shown_children(*h2), "h21 h22");
    bool hidden = false;
    QVERIFY(model->contains(child, hidden));
    QVERIFY(hidden);
    QVERIFY(!model->index(child).isValid());
}

void tst_EntityModelEditing::subtreeIsAddedAsOneRow()
{
    auto* item = new_item("item", 1, 1, new EntityItemList);
    append_children(*item, {new_item("x"), new_item("y")});
    model->addEntity(nullptr, item);
    QCOMPARE(watch->take(), ModelWatch::insertion("root", 0));
    QCOMPARE(tree(), "item(x y)");
}

void tst_EntityModelEditing::newCategoryTakesChildrenOnceItHasAList()
{
    auto* category = new EntityCategory("a", 1, 0, 0);
    model->addEntity(nullptr, category);
    QVERIFY(!model->addEntity(category, new_mortal(deaths, "early")));
    QCOMPARE(deaths, QStringList{"early"});
    category->setList(new EntityItemList);
    QVERIFY(model->addEntity(category, new_item("late")));
    QCOMPARE(tree(), "a(late)");
}

void tst_EntityModelEditing::categoriesStandByTheirNumbers_data()
{
    QTest::addColumn<int>("category");
    QTest::addColumn<int>("preferred_index");
    QTest::addColumn<int>("row");
    QTest::newRow("before all") << 0 << 0 << 0;
    QTest::newRow("between indexes") << 1 << 3 << 1;
    QTest::newRow("index below 0 behind its siblings") << 1 << -1 << 2;
    QTest::newRow("before its equal") << 1 << 5 << 1;
    QTest::newRow("next category") << 2 << 0 << 2;
    QTest::newRow("before all of -1") << -5 << 0 << 2;
    QTest::newRow("of -1 by index") << -1 << 0 << 2;
    QTest::newRow("of -1 before -1") << -1 << -1 << 2;
    QTest::newRow("the highest number") << 2147483647 << 0 << 2;
}

void tst_EntityModelEditing::categoriesStandByTheirNumbers()
{
    QFETCH(int, category);
    QFETCH(int, preferred_index);
    QFETCH(int, row);
    add_category("first", 1, 2);
    add_category("second", 1, 5);
    add_category("last", -1, -1);
    QCOMPARE(tree(), "first second last");
    for (const auto& [column, order] : {std::pair(1, Qt::DescendingOrder),
             std::pair(0, Qt::AscendingOrder), std::pair(0, Qt::DescendingOrder)}) {
        model->sort(column, order);
        const EntityItem* added = add_category("added", category, preferred_index);
        QCOMPARE(model->getEntity(model->index(row, 0)), added);
        model->removeEntity(const_cast<EntityItem*>(added));
    }
}

void tst_EntityModelEditing::plainItemsStandBehindAllCategories()
{
    add(nullptr, "plain");
    add_category("b", 7, 0);
    add_category("late", 7, -1);
    add_category("a", 0, 4);
    QCOMPARE(tree(), "a b late plain");
}

void tst_EntityModelEditing::moveToThePresentParentIsDoneAlready()
{
    fill();
    QVERIFY(model->moveEntity(a1, a));
    QVERIFY(model->moveEntity(a, nullptr));
    QVERIFY(model->moveEntity(a, root_of(a)));
    QVERIFY(model->moveEntity(h1, h));
    QCOMPARE(watch->take(), QStringList());

    SimpleItem stranger("stranger", 1, new EntityItemList);
    append_children(stranger, {new_item("child")});
    QVERIFY2(
        model->moveEntity(stranger.getChild(0), &stranger), "it is there, in the model or not");
}

void tst_EntityModelEditing::moveBetweenVisibleParentsIsOneMove()
{
    fill();
    QVERIFY2(!model->moveEntity(a1, b), "only a needless move is true");
    QCOMPARE(watch->take(), ModelWatch::move("a", 0, "b", 0));
    QCOMPARE(tree(), "a(a2) b(a1 b1)");
    QCOMPARE(a1->getParentEntity(), b);

    QVERIFY(!model->moveEntity(a2, b));
    QCOMPARE(watch->take(), ModelWatch::move("a", 0, "b", 2));
    QCOMPARE(tree(), "a b(a1 b1 a2)");
    QCOMPARE(deaths, QStringList());
}

void tst_EntityModelEditing::itemMovesUpToItsGrandparent()
{
    fill();
    EntityItem* deep = add(a2, "deep", 1);
    watch->take();
    QVERIFY(!model->moveEntity(deep, a));
    QCOMPARE(watch->take(), ModelWatch::move("a2", 0, "a", 1));
    QCOMPARE(tree(), "a(a1 deep a2) b(b1)");
}

void tst_EntityModelEditing::topLevelItemMovesBelow()
{
    fill();
    QVERIFY(!model->moveEntity(a, b));
    QCOMPARE(watch->take(), ModelWatch::move("root", 0, "b", 0));
    QCOMPARE(tree(), "b(a(a1 a2) b1)");
    model->hideCategory(a);
    QCOMPARE(watch->take(), QStringList());
}

void tst_EntityModelEditing::itemDoesNotMoveToTopLevel()
{
    fill();
    QVERIFY(!model->moveEntity(a1, nullptr));
    QVERIFY(!model->moveEntity(a1, root_of(a)));
    QVERIFY(!model->moveEntity(h, nullptr));
    QVERIFY(!model->moveEntity(h1, nullptr));
    QCOMPARE(watch->take(), QStringList());
    QCOMPARE(tree(), "a(a1 a2) b(b1)");
    QCOMPARE(h1->getParentEntity(), h);
}

void tst_EntityModelEditing::itemThatCanNotMoveStaysAlive_data()
{
    QTest::addColumn<QString>("item");
    QTest::addColumn<QString>("target");
    QTest::newRow("nothing") << ""
                             << "a";
    QTest::newRow("an item that is not in the model") << "stranger"
                                                      << "a";
    QTest::newRow("to one that is not in the model") << "a1"
                                                     << "stranger";
    QTest::newRow("to one without a list") << "a1"
                                           << "leaf";
    QTest::newRow("hidden, to one without a list") << "h1"
                                                   << "leaf";
    QTest::newRow("the root") << "root"
                              << "a";
}

void tst_EntityModelEditing::itemThatCanNotMoveStaysAlive()
{
    QFETCH(QString, item);
    QFETCH(QString, target);
    fill();
    SimpleItem stranger("stranger", 1, new EntityItemList);
    const QHash<QString, EntityItem*> items{{"", nullptr}, {"stranger", &stranger}, {"a", a},
        {"a1", a1}, {"h1", h1}, {"leaf", add(b, "leaf", 7, NoList)}, {"root", root_of(a)}};
    const QString before = tree();
    watch->take();

    QVERIFY(!model->moveEntity(items.value(item), items.value(target)));

    QCOMPARE(watch->take(), QStringList());
    QCOMPARE(tree(), before);
    QCOMPARE(shown_children(*h), "h1 h2");
    QCOMPARE(deaths, QStringList());
}

void tst_EntityModelEditing::moveOutOfSightIsARemoval()
{
    fill();
    QVERIFY(!model->moveEntity(a2, h));
    QCOMPARE(watch->take(), ModelWatch::removal("a", 1, 1));
    QCOMPARE(tree(), "a(a1) b(b1)");
    QCOMPARE(shown_children(*h), "h1 a2 h2");
    QCOMPARE(a2->getParentEntity(), h);

    QVERIFY(!model->moveEntity(b, h2));
    QCOMPARE(watch->take(), ModelWatch::removal("root", 1, 1));
    QCOMPARE(shown_children(*h2), "b h21");
    QCOMPARE(deaths, QStringList());
}

void tst_EntityModelEditing::moveIntoSightIsAnInsertion()
{
    fill();
    QVERIFY(!model->moveEntity(h2, a));
    QCOMPARE(watch->take(), ModelWatch::insertion("a", 2));
    QCOMPARE(tree(), "a(a1 a2 h2(h21)) b(b1)");
    QCOMPARE(shown_children(*h), "h1");
    QCOMPARE(deaths, QStringList());
}

void tst_EntityModelEditing::hiddenTopLevelItemMovesIntoSight()
{
    fill();
    QVERIFY(!model->moveEntity(h, b));
    QCOMPARE(watch->take(), ModelWatch::insertion("b", 0));
    QCOMPARE(tree(), "a(a1 a2) b(h(h1 h2(h21)) b1)");
    model->showCategory(h);
    QVERIFY2(watch->take().isEmpty(), "it is hidden no longer");
}

void tst_EntityModelEditing::moveOutOfSightAndBackWithinHidingIsSilent()
{
    fill();
    QVERIFY(!model->moveEntity(h21, h));
    QCOMPARE(shown_children(*h), "h1 h21 h2");
    QVERIFY(!model->moveEntity(h21, h2));
    QCOMPARE(shown_children(*h), "h1 h2");
    QCOMPARE(shown_children(*h2), "h21");
    QCOMPARE(watch->take(), QStringList());
}

void tst_EntityModelEditing::hiddenTopLevelItemMovesUnderAnotherHiddenOne()
{
    fill();
    model->hideCategory(b);
    watch->take();
    QVERIFY(!model->moveEntity(h, b));
    QCOMPARE(shown_children(*b), "h b1");
    QCOMPARE(watch->take(), QStringList());
    model->showCategory(h);
    QCOMPARE(tree(), "a(a1 a2)");
    model->showCategory(b);
    QCOMPARE(tree(), "a(a1 a2) b(h(h1 h2(h21)) b1)");
    model->clear();
    QVERIFY2(deaths.count("h") == 1, "an item must not stand in two places");
}

void tst_EntityModelEditing::movedSubtreeGoesAlong()
{
    fill();
    EntityItem* deep = add(a1, "deep", 1);
    const QPersistentModelIndex index(model->index(deep));
    model->moveEntity(a1, b1);
    QCOMPARE(tree(), "a(a2) b(b1(a1(deep)))");
    QCOMPARE(QModelIndex(index), model->index(deep));
}

void tst_EntityModelEditing::removedItemDiesAfterItsSignals()
{
    fill();
    bool alive = false;
    connect(model.get(), &QAbstractItemModel::rowsRemoved, watch.get(),
        [this, &alive] { alive = deaths.isEmpty() && a->getDisplayName() == "a"; });
    QVERIFY(model->removeEntity(a));
    QVERIFY2(alive, "the item must be readable inside the signal");
    QCOMPARE(deaths, (QStringList{"a", "a1", "a2"}));
    QCOMPARE(watch->take(), ModelWatch::removal("root", 0, 0));
    QCOMPARE(tree(), "b(b1)");
}

void tst_EntityModelEditing::removedSubtreeDiesOnce()
{
    fill();
    add(a1, "deep", 1);
    watch->take();
    QVERIFY(model->removeEntity(a1));
    QCOMPARE(watch->take(), ModelWatch::removal("a", 0, 0));
    QCOMPARE(deaths, (QStringList{"a1", "deep"}));
}

void tst_EntityModelEditing::hiddenItemIsRemovedInSilence()
{
    fill();
    QVERIFY(model->removeEntity(h2));
    QCOMPARE(watch->take(), QStringList());
    QCOMPARE(deaths, (QStringList{"h2", "h21"}));
    QCOMPARE(shown_children(*h), "h1");
}

void tst_EntityModelEditing::hiddenTopLevelItemIsRemovedInSilence()
{
    fill();
    QVERIFY(model->removeEntity(h));
    QCOMPARE(watch->take(), QStringList());
    QCOMPARE(deaths, (QStringList{"h", "h1", "h2", "h21"}));
    model->clear();
    QCOMPARE(deaths.count("h"), 1);
}

void tst_EntityModelEditing::unknownItemIsNotRemoved()
{
    fill();
    EntityModel other;
    auto* others = new_mortal(deaths, "others");
    other.addEntity(nullptr, others);
    SimpleItem stranger("stranger", 1, nullptr);
    QVERIFY(!model->removeEntity(nullptr));
    QVERIFY(!model->removeEntity(&stranger));
    QVERIFY(!model->removeEntity(others));
    QVERIFY(!model->removeEntity(root_of(a)));
    QCOMPARE(watch->take(), QStringList());
    QCOMPARE(deaths, QStringList());
    QCOMPARE(other.rowCount(), 1);
}

void tst_EntityModelEditing::sharedItemsLeaveTheirDataOnRemoval()
{
    fill();
    EntityItemData data(1, 5);
    for (EntityItem* parent : {a, b, h}) {
        QVERIFY(model->addEntity(parent, new SharedItem(&data, nullptr)));
    }
    QVERIFY(model->removeEntity(data.findItem(b)));
    QCOMPARE(data.findItem(b), nullptr);
    model->clearCategory(a);
    QCOMPARE(data.findItem(a), nullptr);
    QVERIFY(data.findItem(h));
    model->clear();
    QVERIFY(data.itemsEmpty());
}

void tst_EntityModelEditing::updateWithoutANewPlaceChangesBothCells()
{
    fill();
    static_cast<SimpleItem*>(a1)->setName("renamed");
    model->updateEntity(a1);
    QCOMPARE(watch->take(), ModelWatch::cells("renamed"));
}

void tst_EntityModelEditing::updateThatMovesTheRowIsAMoveAlone_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("target");
    QTest::addColumn<QString>("rows");
    QTest::newRow("first to the end") << 0 << "z" << 4 << "b c d z";
    QTest::newRow("first down by one") << 0 << "bb" << 2 << "b bb c d";
    QTest::newRow("middle down") << 1 << "z" << 4 << "a c d z";
    QTest::newRow("middle up") << 2 << "A" << 0 << "A a b d";
    QTest::newRow("last up") << 3 << "bb" << 2 << "a b bb c";
    QTest::newRow("last to the top") << 3 << "A" << 0 << "A a b c";
    QTest::newRow("up before its equal") << 3 << "b" << 1 << "a b b c";
}

void tst_EntityModelEditing::updateThatMovesTheRowIsAMoveAlone()
{
    QFETCH(int, row);
    QFETCH(QString, name);
    QFETCH(int, target);
    QFETCH(QString, rows);
    model->sort(0);
    EntityItem* parent = add(nullptr, "parent");
    for (const char* child : {"a", "b", "c", "d"}) {
        add(parent, child);
    }
    auto* item = static_cast<SimpleItem*>(parent->getChild(row));
    const QPersistentModelIndex index(model->index(item));
    item->setName(name);
    watch->take();

    model->updateEntity(item);

    QCOMPARE(shown_children(*parent), rows);
    QCOMPARE(watch->take(), ModelWatch::move("parent", row, "parent", target));
    QCOMPARE(item->getParentEntity(), parent);
    QCOMPARE(QModelIndex(index), model->index(item));
}

void tst_EntityModelEditing::updateOfTheLastRowInOrderChangesCells()
{
    model->sort(0);
    EntityItem* parent = add(nullptr, "parent");
    add(parent, "a");
    auto* last = static_cast<SimpleItem*>(add(parent, "b"));
    last->setName("z");
    watch->take();
    model->updateEntity(last);
    QCOMPARE(watch->take(), ModelWatch::cells("z"));
}

void tst_EntityModelEditing::updateFollowsTheSortInUse()
{
    fill();
    static_cast<SimpleItem*>(a1)->setName("z");
    model->updateEntity(a1);
    QVERIFY2(tree() == "a(z a2) b(b1)", "names do not matter in a sort by id");
    static_cast<SimpleItem*>(a1)->setId(9);
    watch->take();
    model->updateEntity(a1);
    QCOMPARE(watch->take(), ModelWatch::move("a", 0, "a", 2));
    QCOMPARE(tree(), "a(a2 z) b(b1)");
}

void tst_EntityModelEditing::updateOfATopLevelRowChangesCells()
{
    fill();
    static_cast<SimpleItem*>(a)->setName("z");
    model->updateEntity(a);
    QCOMPARE(watch->take(), ModelWatch::cells("z"));
    QCOMPARE(tree(), "z(a1 a2) b(b1)");
}

void tst_EntityModelEditing::updateOfAHiddenItemIsSilent()
{
    fill();
    static_cast<SimpleItem*>(h1)->setId(9);
    model->updateEntity(h1);
    model->updateEntity(h);
    QCOMPARE(watch->take(), QStringList());
    QCOMPARE(shown_children(*h), "h1 h2");
}

void tst_EntityModelEditing::updateOfAStrangerIsSilent()
{
    fill();
    SimpleItem stranger("stranger", 1, new EntityItemList);
    append_children(stranger, {new_item("child")});
    model->updateEntity(nullptr);
    model->updateEntity(&stranger);
    model->updateEntity(stranger.getChild(0));
    model->updateEntity(root_of(a));
    QCOMPARE(watch->take(), QStringList());
}

void tst_EntityModelEditing::updatedRowIsFollowedByPersistentIndexes()
{
    fill();
    const QPersistentModelIndex name_cell(model->index(a1));
    const QPersistentModelIndex id_cell(model->index(a1).siblingAtColumn(1));
    const QPersistentModelIndex other(model->index(a2));
    static_cast<SimpleItem*>(a1)->setId(9);
    model->updateEntity(a1);
    QCOMPARE(name_cell.row(), 1);
    QCOMPARE(id_cell.row(), 1);
    QCOMPARE(other.row(), 0);
}

void tst_EntityModelEditing::hiddenCategoryLeavesTheViewAlone()
{
    fill();
    model->hideCategory(a);
    QCOMPARE(watch->take(), ModelWatch::removal("root", 0, 0));
    QCOMPARE(tree(), "b(b1)");
    QCOMPARE(shown_children(*a), "a1 a2");
    QCOMPARE(a->getParentEntity(), nullptr);
    bool hidden = false;
    QVERIFY(model->contains(a, hidden) && hidden);
    QVERIFY(model->contains(a1, hidden) && hidden);
    QCOMPARE(deaths, QStringList());
}

void tst_EntityModelEditing::onlyTopLevelItemsHide()
{
    fill();
    SimpleItem stranger("stranger", 1, nullptr);
    model->hideCategory(nullptr);
    model->hideCategory(a1);
    model->hideCategory(&stranger);
    model->hideCategory(root_of(a));
    QCOMPARE(watch->take(), QStringList());
    QCOMPARE(tree(), "a(a1 a2) b(b1)");
    bool hidden = true;
    QVERIFY(!model->contains(&stranger, hidden));
}

void tst_EntityModelEditing::hidingTwiceHidesOnce()
{
    fill();
    model->hideCategory(h);
    QCOMPARE(watch->take(), QStringList());
    model->showCategory(h);
    QCOMPARE(watch->take(), ModelWatch::insertion("root", 2));
    model->showCategory(h);
    QCOMPARE(watch->take(), QStringList());
    QCOMPARE(model->rowCount(), 3);
}

void tst_EntityModelEditing::shownCategoryComesBackToItsPlace()
{
    fill();
    model->hideCategory(a);
    model->showCategory(h);
    QCOMPARE(tree(), "b(b1) h(h1 h2(h21))");
    watch->take();
    model->showCategory(a);
    QCOMPARE(watch->take(), ModelWatch::insertion("root", 0));
    QCOMPARE(tree(), "a(a1 a2) b(b1) h(h1 h2(h21))");
    QCOMPARE(a->getParentEntity(), root_of(b));
}

void tst_EntityModelEditing::shownSubtreeIsOneRow()
{
    fill();
    model->addEntity(h, new_item("h3", 3));
    model->removeEntity(h1);
    model->showCategory(h);
    QCOMPARE(watch->take(), ModelWatch::insertion("root", 2));
    QCOMPARE(tree(), "a(a1 a2) b(b1) h(h2(h21) h3)");
}

void tst_EntityModelEditing::showingWhatIsNotHiddenDoesNothing()
{
    fill();
    SimpleItem stranger("stranger", 1, nullptr);
    model->showCategory(nullptr);
    model->showCategory(a);
    model->showCategory(h1);
    model->showCategory(&stranger);
    QCOMPARE(watch->take(), QStringList());
    QCOMPARE(tree(), "a(a1 a2) b(b1)");
    QCOMPARE(stranger.getParentEntity(), nullptr);
}

void tst_EntityModelEditing::clearedCategoryLosesItsChildren()
{
    fill();
    add(a1, "deep", 1);
    watch->take();
    model->clearCategory(a);
    QCOMPARE(watch->take(), ModelWatch::removal("a", 0, 1));
    QCOMPARE(tree(), "a b(b1)");
    QCOMPARE(deaths, (QStringList{"a1", "deep", "a2"}));
    model->clearCategory(b1);
    QVERIFY2(watch->take().isEmpty(), "nothing lay under it");
    EntityItem* under = add(b1, "under", 1);
    QCOMPARE(under->getParentEntity(), b1);
    watch->take();
    model->clearCategory(b1);
    QCOMPARE(watch->take(), ModelWatch::removal("b1", 0, 0));
}

void tst_EntityModelEditing::clearedHiddenCategoryIsSilent()
{
    fill();
    model->clearCategory(h2);
    QCOMPARE(deaths, QStringList{"h21"});
    model->clearCategory(h);
    QCOMPARE(deaths, (QStringList{"h21", "h1", "h2"}));
    QCOMPARE(watch->take(), QStringList());
    bool hidden = false;
    QVERIFY(model->contains(h, hidden) && hidden);
}

void tst_EntityModelEditing::clearingAnEmptyCategoryIsSilent()
{
    fill();
    EntityItem* leaf = add(a, "leaf", 5, NoList);
    watch->take();
    model->clearCategory(a1);
    model->clearCategory(leaf);
    QCOMPARE(watch->take(), QStringList());
}

void tst_EntityModelEditing::clearingAStrangerDoesNothing()
{
    fill();
    SimpleItem stranger("stranger", 1, new EntityItemList);
    append_children(stranger, {new_mortal(deaths, "child")});
    model->clearCategory(nullptr);
    model->clearCategory(&stranger);
    model->clearCategory(root_of(a));
    QCOMPARE(watch->take(), QStringList());
    QCOMPARE(deaths, QStringList());
    QCOMPARE(tree(), "a(a1 a2) b(b1)");
}

void tst_EntityModelEditing::clearResetsTheModel()
{
    fill();
    model->hideCategory(b);
    watch->take();
    model->clear();
    QCOMPARE(watch->take(), ModelWatch::reset());
    QCOMPARE(deaths, (QStringList{"a", "a1", "a2", "h", "h1", "h2", "h21", "b", "b1"}));
    QCOMPARE(model->rowCount(), 0);
    add(nullptr, "new");
    QCOMPARE(tree(), "new");
}

void tst_EntityModelEditing::clearOfAnEmptyModelStillResets()
{
    model->clear();
    QCOMPARE(watch->take(), ModelWatch::reset());
}

void tst_EntityModelEditing::clearKeepsSortAndIcons()
{
    class Icons : public EntityIconFactory
    {
    public:
        const char* getIconPath(EntityItem* /*item*/) override
        {
            ++questions;
            return "";
        }
        int questions = 0;
    };
    Icons icons;
    model->setIcons(&icons);
    model->sort(0, Qt::DescendingOrder);
    model->clear();
    EntityItem* parent = add(nullptr, "parent");
    add(parent, "a", 1);
    add(parent, "b", 2);
    QCOMPARE(tree(), "parent(b a)");
    watch->take();
    model->sort(0, Qt::DescendingOrder);
    QCOMPARE(watch->take(), QStringList());
    icons.questions = 0;
    model->index(0, 0).data(Qt::DecorationRole);
    QCOMPARE(icons.questions, 1);
    model->clear();
    model->setIcons(nullptr);
}

void tst_EntityModelEditing::destructionResetsAndDeletesEachItemOnce()
{
    fill();
    watch.reset();
    QStringList notes;
    connect(model.get(), &QAbstractItemModel::modelAboutToBeReset, this,
        [&] { notes.append(QString("about to reset, %1 dead").arg(deaths.size())); });
    connect(model.get(), &QAbstractItemModel::modelReset, this,
        [&] { notes.append(QString("reset, %1 dead").arg(deaths.size())); });
    model.reset();
    QCOMPARE(notes, (QStringList{"about to reset, 0 dead", "reset, 9 dead"}));
    deaths.sort();
    QCOMPARE(deaths, (QStringList{"a", "a1", "a2", "b", "b1", "h", "h1", "h2", "h21"}));
}

void tst_EntityModelEditing::readersSeeTheTreeBeforeAndAfter_data()
{
    using Change = std::function<void(tst_EntityModelEditing*)>;
    QTest::addColumn<Change>("change");
    QTest::addColumn<QString>("after");
    using Test = tst_EntityModelEditing;
    QTest::newRow("add") << Change([](Test* t) { t->add(t->a, "a3", 3); }) << "a(a1 a2 a3) b(b1)";
    QTest::newRow("move in sight")
        << Change([](Test* t) { t->model->moveEntity(t->a1, t->b); }) << "a(a2) b(a1 b1)";
    QTest::newRow("move out of sight")
        << Change([](Test* t) { t->model->moveEntity(t->a1, t->h); }) << "a(a2) b(b1)";
    QTest::newRow("move into sight")
        << Change([](Test* t) { t->model->moveEntity(t->h1, t->b); }) << "a(a1 a2) b(b1 h1)";
    QTest::newRow("remove") << Change([](Test* t) { t->model->removeEntity(t->a); }) << "b(b1)";
    QTest::newRow("update") << Change([](Test* t) {
        static_cast<SimpleItem*>(t->a1)->setId(9);
        t->model->updateEntity(t->a1);
    }) << "a(a2 a1) b(b1)";
    QTest::newRow("hide") << Change([](Test* t) { t->model->hideCategory(t->a); }) << "b(b1)";
    QTest::newRow("show") << Change([](Test* t) { t->model->showCategory(t->h); })
                          << "a(a1 a2) b(b1) h(h1 h2(h21))";
    QTest::newRow("clear a category")
        << Change([](Test* t) { t->model->clearCategory(t->a); }) << "a b(b1)";
    QTest::newRow("clear") << Change([](Test* t) { t->model->clear(); }) << "";
}

void tst_EntityModelEditing::readersSeeTheTreeBeforeAndAfter()
{
    QFETCH(std::function<void(tst_EntityModelEditing*)>, change);
    QFETCH(QString, after);
    fill();
    change(this);
    QCOMPARE(watch->trees(), (QStringList{"a(a1 a2) b(b1)", after}));
}

void tst_EntityModelEditing::hiddenItemIsInNoRegionWhileItChangesRegion()
{
    fill();
    QStringList regions;
    const auto note = [this, &regions] {
        bool hidden = false;
        const bool known = model->contains(h, hidden);
        regions.append(known ? (hidden ? "hidden" : "visible") : "unknown");
    };
    connect(model.get(), &QAbstractItemModel::rowsAboutToBeInserted, watch.get(), note);
    connect(model.get(), &QAbstractItemModel::rowsInserted, watch.get(), note);
    connect(model.get(), &QAbstractItemModel::rowsAboutToBeRemoved, watch.get(), note);
    connect(model.get(), &QAbstractItemModel::rowsRemoved, watch.get(), note);
    model->showCategory(h);
    model->hideCategory(h);
    note();
    QCOMPARE(regions, (QStringList{"unknown", "visible", "visible", "unknown", "hidden"}));
}

QTEST_MAIN(tst_EntityModelEditing)
#include "tst_EntityModelEditing.moc"
