#pragma once

#include <QString>
#include <set>
#include <treemodel/treemodel_export.hpp>

class EntityItemData;
class EntityItemList;

/// One node of an item tree: the links to its parent and to its children, and the
/// virtual getters through which views, lists and selections read it.
///
/// An item owns its child list and the list owns the children, so deleting an item
/// deletes its subtree. It does not take itself out of its parent's list: do
/// that first, or use EntityModel::removeEntity(). An item without a list can have
/// no children; the class of the list decides the order of the children.
///
/// Items tell nobody of their changes. Call EntityModel::updateEntity() afterwards.
///
/// Copies are member by member: the copy points to the same parent and the same list
/// and has no children of its own. They serve to hold a value, not to stand in a tree.
class TREEMODEL_EXPORT EntityItem
{
public:
    /// An item without a parent. Takes ownership of `list`.
    explicit EntityItem(EntityItemList* list = nullptr);

    /// Copies the links alone, see above.
    EntityItem(const EntityItem&) = default;
    EntityItem& operator=(const EntityItem&) = default;

    /// Deletes the list with all children. The item must stand in no list any more.
    virtual ~EntityItem();

    /// The major number of a top-level row's place; -1 unless overridden.
    virtual int getCategory() const;

    /// The minor number of a top-level row's place; -1 unless overridden.
    virtual int getPreferredIndex() const;

    /// The data that the item shows, if it shares one with other items; else null. Not owned.
    virtual EntityItemData* getData();

    /// The number of the item's kind; -1 for an item of no kind.
    virtual int getType() const;

    /// The item's number within its kind; 0 for an item that has none.
    virtual int getId() const;

    /// True if a view may edit the name. False unless overridden.
    virtual bool isEditable() const;

    /// The item's own name, which may be empty. It is what an editor opens with.
    virtual const QString& getName() const = 0;

    /// What a view shows and a sort by name compares: the name, or a label if that is empty.
    virtual const QString& getDisplayName() const = 0;

    /// Sets the label that is shown while the name is empty. Returns true if it differs
    /// from the label before.
    virtual bool setDisplay(const QString& display) = 0;

    /// False shows the item with the mark of an invisible one. True unless overridden.
    virtual bool isVisible() const;

    /// Null for an item that hangs nowhere.
    EntityItem* getParentEntity() const;

    /// Sets the link alone. No list changes.
    void setParentEntity(EntityItem* parent);

    /// Null for an item that can have no children. Stays owned by the item.
    EntityItemList* getList();

    /// Deletes the present list with all children and takes ownership of `list`,
    /// which must not be the present one.
    void setList(EntityItemList* list);

    /// Deletes all children.
    void clear();

    /// 0 without a list.
    int childCount() const;

    /// Null for a row out of range.
    EntityItem* getChild(int row) const;

    /// The first direct child with that id, and of that type if one is given; null if there
    /// is none. The search is linear.
    EntityItem* getChildById(int id) const;
    EntityItem* getChildById(int id, int type) const;

    /// Adds the ids of all direct children, or of those of one type, to `ids`.
    void getChildIds(std::set<int>& ids) const;
    void getChildIds(std::set<int>& ids, int type) const;

    /// The row of a child, by a linear search for the pointer; -1 if it is not among
    /// the children.
    int getChildIndex(EntityItem* child) const;

    /// EntityItemList::findInsertIndex(); -1 without a list.
    int findInsertIndex(EntityItem* child, int column, bool ascending) const;

    /// EntityItemList::findUpdatedIndex(); `row` itself without a list.
    int findUpdatedIndex(int row, int column, bool ascending) const;

    /// EntityItemList::sortChildren(); nothing without a list.
    void sortChildren(int column, bool ascending);

    /// Takes ownership of `child`, links it to this item, inserts it at `row`, which must be
    /// valid or the count, and returns it. Without a list, deletes `child` and returns null.
    EntityItem* insertChild(int row, EntityItem* child);

    /// Takes out the child at `row`, which must be valid, and passes it to the caller
    /// without a parent. Null without a list.
    EntityItem* removeChild(int row);

    /// The item after this one in a pre-order walk of the subtree under `stop`; null at
    /// the end. Where `stop` is no ancestor, the walk ends at the top of the tree.
    EntityItem* getNext(EntityItem* stop);

private:
    friend class EntityModel;

    EntityItem* m_parentEntity = nullptr; // Not owned
    EntityItemList* m_list;               // Owned
    int m_sortRow = 0;                    // The row before the sort that is under way
};

// With its concrete kinds, so that a front end includes one header for its items.
#include <treemodel/entity/EntityItemData.hpp>
#include <treemodel/entity/EntityModelInterface.hpp>
#include <treemodel/entity/SharedItem.hpp>
#include <treemodel/entity/SimpleItem.hpp>
