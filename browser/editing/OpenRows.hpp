#pragma once

#include <QObject>
#include <unordered_set>

class EntityFilter;
class EntityItem;
class QModelIndex;
class QTreeView;

/// Remembers which rows of a tree view are open while a filter hides some of them. Rows are known
/// by their items; an item that is removed is forgotten.
class OpenRows : public QObject
{
    Q_OBJECT

public:
    /// `view` shows `rows`. Both must outlive this object.
    OpenRows(EntityFilter& rows, QTreeView& view, QObject* parent = nullptr);

    /// Notes what is open, also below what is closed. All rows must be shown.
    void save();

    /// Opens what was noted and forgets it.
    void restore();

private:
    void save_below(const QModelIndex& parent);
    void forget(const QModelIndex& parent, int first, int last);
    void forget_from(EntityItem* top);

    EntityFilter& m_rows;
    QTreeView& m_view;
    std::unordered_set<EntityItem*> m_items;
};
