#pragma once

#include <QAbstractItemModel>
#include <QByteArray>
#include <QHash>
#include <QIcon>
#include <QList>
#include <treemodel/entity/EntityIconFactory.hpp>
#include <treemodel/entity/EntityItem.hpp>
#include <treemodel/entity/EntityItemList.hpp>
#include <treemodel/treemodel_export.hpp>

/// Shows a tree of EntityItem nodes in two columns, name and id, and keeps every row in
/// the place that its parent's list gives it.
///
/// The model owns its items and holds no copy of what they show. Its top-level rows
/// are ordered by EntityItem::getCategory() and EntityItem::getPreferredIndex(); each
/// of them can be hidden with all its subtree, and items under a hidden one can
/// still be added, moved and removed, without a notification.
///
/// It starts sorted by the id column, ascending. Edits are requests: see nameEdited().
/// An index of another model is answered like an invalid one, or with nothing.
class TREEMODEL_EXPORT EntityModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    /// An empty model without icons.
    explicit EntityModel(QObject* parent = nullptr);

    /// Does what clear() does, signals included, and leaves the icon factory alone.
    ~EntityModel() override;

    /// The source of the row icons; null shows every row as invisible. Not owned. Signals
    /// nothing. Icons are loaded once per path; this call forgets those loaded so far.
    void setIcons(EntityIconFactory* icons);

    /// The item of a row, and the way back, which leads to column 0. index() takes a parent in
    /// either column.
    QModelIndex index(
        int row, int column, const QModelIndex& parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    using QObject::parent;

    /// Only indexes in column 0 have rows. There are two columns everywhere.
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;

    /// Column 0: display name, name for the edit role, icon. Column 1: the id if it is above 0.
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

    /// Changes nothing and returns false. In column 0, emits nameEdited() if `value` as a text
    /// differs from the item's name, whatever the role and even if the item is not editable.
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;

    /// The translated names of the two columns; ascending as the initial order of any.
    QVariant headerData(
        int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

    /// Selectable and enabled, for every index; editable in column 0 if the item is.
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    /// Sorts the rows of every visible parent by name (column 0) or id (any other), in the way of
    /// its list, and keeps them so. Does nothing if column and order are those in use.
    /// Emits layoutAboutToBeChanged() and layoutChanged() for one parent after the other, from
    /// the top down. Persistent indexes are followed in column 0 only. Hidden subtrees
    /// keep their order.
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

    /// The item of an index; null for an invalid one.
    EntityItem* getEntity(const QModelIndex& index) const;

    /// The index in column 0 of an item that stands in the visible tree; invalid for any other.
    QModelIndex index(EntityItem* item) const;

    /// True if the item stands in the visible tree or, `hidden` then being true, in the hidden
    /// part. `hidden` is always written.
    bool contains(EntityItem* item, bool& hidden) const;

    /// Inserts `child` under `parent`, or at top level if that is null, at the place that the
    /// parent's list gives it, and notifies if that place is visible. Takes ownership of
    /// `child` and deletes it, returning false, if `parent` is not in the model or can have
    /// no children. A child found at its place already stays there, and the result is true.
    bool addEntity(EntityItem* parent, EntityItem* child);

    /// Moves an item with its subtree under a new parent below top level, notifying of a
    /// move, a removal or an insertion as either end is visible or hidden.
    ///
    /// Returns true only if `newParent` is the parent already. The result is false after a
    /// move and also if nothing was moved: one of the two is not in the model, the new parent
    /// can have no children, or null was passed for an item that is not at top level.
    /// `newParent` must not stand under `item`. The item survives in every case.
    bool moveEntity(EntityItem* item, EntityItem* newParent);

    /// Takes the item out, notifying if it is visible, and deletes it with its subtree. False if
    /// it is not in the model; it is not deleted then.
    bool removeEntity(EntityItem* item);

    /// Call this after an item's name, label, id, type or visibility changed. Moves the row
    /// if it belongs elsewhere now, notifying of the move alone, or else emits
    /// dataChanged() for both columns. A hidden item is left where it is.
    void updateEntity(EntityItem* item);

    /// Takes a top-level item out of view with its subtree, notifying of the removal. The
    /// model keeps it. Does nothing for any other item.
    void hideCategory(EntityItem* item);

    /// Brings a hidden top-level item back to its place, notifying of one inserted row.
    /// Does nothing for any other item.
    void showCategory(EntityItem* item);

    /// Deletes all children of an item, notifying if it is visible and has any. Does nothing if
    /// it is not in the model.
    void clearCategory(EntityItem* item);

    /// Deletes all items, hidden ones too, in a model reset. The sort column, its order and
    /// the icons stay.
    void clear();

Q_SIGNALS:
    /// A view was given `name` for an item, which differs from EntityItem::getName().
    /// To accept it, name the item and call updateEntity().
    void nameEdited(EntityItem* entity, const QString& name);

private:
    enum class Region {
        Unknown,
        Visible,
        Hidden,
    };

    bool owns(const QModelIndex& index) const;
    Region regionOf(EntityItem* item) const;
    QModelIndex indexOf(EntityItem* item, int column) const;
    QVariant nameData(EntityItem* item, int role) const;
    QVariant idData(const EntityItem* item, int role) const;
    QIcon sharedIcon(const char* path) const;
    void sortChildrenOf(EntityItem* item, const QModelIndex& index);
    void insertEntity(EntityItem* parent, int row, EntityItem* item, Region region);
    void takeEntity(EntityItem* item);
    void takeHiddenEntity(EntityItem* item);

    QList<EntityItem*> m_hiddenCategories; // Owned
    EntityItem* m_rootItem;                // Owned
    EntityIconFactory* m_icons = nullptr;  // Not owned
    int m_sortColumn = 1;
    bool m_sortAscending = true;
    mutable QHash<QByteArray, QIcon> m_sharedIcons; // By path of a file there is
};
