#include <browser/editing/OpenRows.hpp>

#include <browser/editing/EntityFilter.hpp>
#include <QTreeView>
#include <treemodel/entity/EntityModel.hpp>

OpenRows::OpenRows(EntityFilter& rows, QTreeView& view, QObject* parent)
    : QObject(parent)
    , m_rows(rows)
    , m_view(view)
{
    connect(&rows.items(), &EntityModel::rowsAboutToBeRemoved, this, &OpenRows::forget);
    connect(&rows.items(), &EntityModel::modelAboutToBeReset, this, [this] { m_items.clear(); });
}

void OpenRows::save()
{
    m_items.clear();
    save_below({});
}

void OpenRows::restore()
{
    const std::vector<EntityItem*> items(m_items.begin(), m_items.end());
    m_items.clear();
    for (const QItemSelectionRange& range : m_rows.selection(items)) {
        const QModelIndex parent = range.parent();
        for (int row = range.top(); row <= range.bottom(); ++row) {
            m_view.expand(m_rows.index(row, 0, parent));
        }
    }
}

void OpenRows::save_below(const QModelIndex& parent)
{
    const EntityItem* const container = m_rows.item(parent);
    const int count = m_rows.rowCount(parent);
    for (int row = 0; row < count; ++row) {
        // Most rows of a large tree are leaves, which are looked at and no more. A category may
        // be open before it gets its first row.
        if (container && container->getChild(row)->childCount() == 0) {
            continue;
        }
        const QModelIndex index = m_rows.index(row, 0, parent);
        if (m_view.isExpanded(index)) {
            m_items.insert(m_rows.item(index));
        }
        save_below(index);
    }
}

void OpenRows::forget(const QModelIndex& parent, int first, int last)
{
    for (int row = first; row <= last && !m_items.empty(); ++row) {
        forget_from(m_rows.items().getEntity(m_rows.items().index(row, 0, parent)));
    }
}

void OpenRows::forget_from(EntityItem* top)
{
    std::vector<EntityItem*> items{top};
    while (!items.empty()) {
        EntityItem* const item = items.back();
        items.pop_back();
        m_items.erase(item);
        for (int row = 0; row < item->childCount(); ++row) {
            items.push_back(item->getChild(row));
        }
    }
}
