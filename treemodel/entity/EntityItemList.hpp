#pragma once

#include <functional>
#include <QList>
#include <treemodel/entity/EntityItem.hpp>
#include <treemodel/treemodel_export.hpp>

/// The children of one item, owned, and the order in which they stand. This class keeps
/// the order of insertion; subclasses sort.
///
/// A list answers where a child belongs and leaves the moving, with the notifications
/// that go with it, to EntityModel. It stores no sort column: each question brings
/// it along. Column 0 is the name, any other the id; `ascending` is the direction.
///
/// Copies are member by member and share the children: whichever is destroyed first
/// deletes them.
class TREEMODEL_EXPORT EntityItemList
{
public:
    /// An empty list.
    EntityItemList() = default;

    /// Shares the children, see above.
    EntityItemList(const EntityItemList&) = default;
    EntityItemList& operator=(const EntityItemList&) = default;

    /// Deletes all children.
    virtual ~EntityItemList();

    /// The row at which `item` is to be inserted: here the count. A sorted list answers -2 if
    /// `item` itself is the child that it finds there; elsewhere in the list it is not noticed.
    virtual int findInsertIndex(EntityItem* item, int column, bool ascending) const;

    /// Where the child at `row`, which must be valid, belongs now that its key may have
    /// changed: `row` itself if it stays, else the row before which it goes, counted with the
    /// child still in place as QAbstractItemModel::beginMoveRows() counts it.
    /// The other children must be in order.
    virtual int findUpdatedIndex(int row, int column, bool ascending) const;

    /// Puts all children in order; children that tie come in any order. Nobody is notified.
    virtual void sortChildren(int column, bool ascending);

    /// Whether there are children, and how many.
    bool hasChildren() const;
    int childCount() const;

    /// Null for a row out of range.
    EntityItem* getChild(int row) const;

    /// The first row that holds this pointer, by a linear search; -1 if there is none.
    int getChildIndex(EntityItem* child) const;

    /// Calls `visit` for each child, first to last, until it returns true. It must not
    /// add or remove children.
    void iterateChildren(std::function<bool(EntityItem*)> visit) const;

    /// Inserts and takes ownership of `child`, but sets no parent: EntityItem::insertChild() does.
    /// `row` must be valid or the count.
    void insertChild(int row, EntityItem* child);

    /// Takes out the child at `row`, which must be valid, sets its parent to null and
    /// passes it to the caller.
    EntityItem* removeChild(int row);

    /// Deletes the children, first to last, then empties the list. A child's destructor
    /// must not touch the list.
    void clear();

protected:
    /// The children, for subclasses to search and to sort.
    const QList<EntityItem*>& children() const { return m_children; }
    QList<EntityItem*>& children() { return m_children; }

private:
    friend class EntityModel;

    /// Moves the child at `row` to `target`, counted without it.
    void moveChild(int row, int target);

    QList<EntityItem*> m_children; // Owned
};

// With the lists that sort, so that a front end includes one header for its lists.
#include <treemodel/entity/SortedEntityList.hpp>
#include <treemodel/entity/SortedTypeIdList.hpp>
