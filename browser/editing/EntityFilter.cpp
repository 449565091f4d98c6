#include <browser/editing/EntityFilter.hpp>

#include <QScopedValueRollback>
#include <treemodel/entity/EntityModel.hpp>
#include <unordered_map>
#include <utility>

namespace {

constexpr int column_count = 2;

} // namespace

EntityFilter::EntityFilter(EntityModel& items, QObject* parent)
    : QAbstractProxyModel(parent)
    , m_items(items)
    , m_search(items)
    , m_tree(items)
{
    setSourceModel(&items);
    follow_items();
    connect(&m_search, &FilterSearch::found, this, &EntityFilter::take_in);
}

void EntityFilter::follow_items()
{
    const auto follow = [this](auto signal, auto slot) { connect(&m_items, signal, this, slot); };
    follow(&EntityModel::rowsAboutToBeInserted, &EntityFilter::begin_insertion);
    follow(&EntityModel::rowsInserted, &EntityFilter::end_insertion);
    follow(&EntityModel::rowsAboutToBeRemoved, &EntityFilter::begin_removal);
    follow(&EntityModel::rowsRemoved, &EntityFilter::end_pending);
    follow(&EntityModel::rowsAboutToBeMoved, &EntityFilter::begin_move);
    follow(&EntityModel::rowsMoved, &EntityFilter::end_pending);
    follow(&EntityModel::dataChanged, &EntityFilter::forward_change);
    follow(&EntityModel::layoutAboutToBeChanged, &EntityFilter::begin_layout);
    follow(&EntityModel::layoutChanged, &EntityFilter::end_layout);
    follow(&EntityModel::modelAboutToBeReset, &EntityFilter::begin_reset);
    follow(&EntityModel::modelReset, &EntityFilter::end_reset);
}

// What is shown.

EntityItem* EntityFilter::item(const QModelIndex& index) const
{
    return index.model() == this ? static_cast<EntityItem*>(index.internalPointer()) : nullptr;
}

QModelIndex EntityFilter::index(EntityItem* item) const
{
    return m_tree.contains(item) ? createIndex(m_tree.row_of(item), 0, item) : QModelIndex();
}

QModelIndex EntityFilter::index(int row, int column, const QModelIndex& parent) const
{
    if (row < 0 || column < 0 || column >= column_count || parent.column() > 0) {
        return {};
    }
    EntityItem* const found = m_tree.child(item(parent), row);
    return found ? createIndex(row, column, found) : QModelIndex();
}

QModelIndex EntityFilter::parent(const QModelIndex& index) const
{
    EntityItem* const node = item(index);
    EntityItem* const above = node ? ShownRows::parent_of(node) : nullptr;
    return above ? createIndex(m_tree.row_of(above), 0, above) : QModelIndex();
}

QModelIndex EntityFilter::sibling(int row, int column, const QModelIndex& index) const
{
    const bool is_same_row = row == index.row() && column >= 0 && column < column_count;
    return is_same_row ? createIndex(row, column, index.internalPointer())
                       : this->index(row, column, parent(index));
}

int EntityFilter::rowCount(const QModelIndex& parent) const
{
    return parent.column() > 0 ? 0 : m_tree.row_count(item(parent));
}

int EntityFilter::columnCount(const QModelIndex& /*parent*/) const
{
    return column_count;
}

bool EntityFilter::hasChildren(const QModelIndex& parent) const
{
    return rowCount(parent) > 0;
}

QVariant EntityFilter::headerData(int section, Qt::Orientation orientation, int role) const
{
    return m_items.headerData(section, orientation, role);
}

Qt::ItemFlags EntityFilter::flags(const QModelIndex& index) const
{
    return index.isValid() ? QAbstractProxyModel::flags(index) : Qt::NoItemFlags;
}

QModelIndex EntityFilter::mapToSource(const QModelIndex& proxy_index) const
{
    EntityItem* const node = item(proxy_index);
    return node ? createSourceIndex(
                      m_tree.source_row(node, proxy_index.row()), proxy_index.column(), node)
                : QModelIndex();
}

QModelIndex EntityFilter::mapFromSource(const QModelIndex& source_index) const
{
    EntityItem* const node = source_item(source_index);
    if (!node || !m_tree.rows().shows(node)) {
        return {};
    }
    const ShownRows::List* const list = m_tree.rows().find(ShownRows::parent_of(node));
    const int row = list ? m_tree.rows().row_in(*list, node) : source_index.row();
    return createIndex(row, source_index.column(), node);
}

EntityItem* EntityFilter::source_item(const QModelIndex& index) const
{
    return m_items.getEntity(index);
}

QItemSelection EntityFilter::selection(const std::vector<EntityItem*>& items) const
{
    QItemSelection result;
    for (const ShownTree::Siblings& siblings : m_tree.find(items)) {
        const auto& rows = siblings.rows;
        for (std::size_t first = 0, next = 0; first < rows.size(); first = next) {
            for (++next; next < rows.size() && rows[next].first == rows[next - 1].first + 1;) {
                ++next;
            }
            const auto& [bottom, bottom_item] = rows[next - 1];
            result.append(QItemSelectionRange(createIndex(rows[first].first, 0, rows[first].second),
                createIndex(bottom, column_count - 1, bottom_item)));
        }
    }
    return result;
}

// What happens to the items.

void EntityFilter::begin_insertion(const QModelIndex& parent, int first, int last)
{
    if (m_tree.rows().shows_all_below(source_item(parent))) {
        m_pending = Pending::INSERTION;
        beginInsertRows(mapFromSource(parent), first, last);
    }
}

void EntityFilter::end_insertion(const QModelIndex& parent, int first, int last)
{
    end_pending();
    m_search.note_inserted(source_item(parent), first, last - first + 1);
}

void EntityFilter::begin_removal(const QModelIndex& parent, int first, int last)
{
    EntityItem* const above = source_item(parent);
    if (m_tree.rows().shows_all_below(above)) {
        m_pending = Pending::REMOVAL;
        beginRemoveRows(mapFromSource(parent), first, last);
    } else {
        drop_rows(above, first, last);
    }
    m_search.note_leaving();
}

void EntityFilter::begin_move(
    const QModelIndex& source, int first, int last, const QModelIndex& target, int target_row)
{
    EntityItem* const from = source_item(source);
    EntityItem* const to = source_item(target);
    const bool is_all_from = m_tree.rows().shows_all_below(from);
    const bool is_all_to = m_tree.rows().shows_all_below(to);
    m_search.note_leaving();
    if (is_all_from && is_all_to) {
        m_pending = Pending::MOVE;
        beginMoveRows(mapFromSource(source), first, last, mapFromSource(target), target_row);
    } else if (from == to) {
        m_pending = m_tree.rows().find(from) ? Pending::ORDER : Pending::NOTHING;
        m_pending_parent = from;
    } else if (is_all_from) {
        m_pending = Pending::REMOVAL;
        beginRemoveRows(mapFromSource(source), first, last);
    } else {
        drop_rows(from, first, last);
        if (is_all_to) {
            m_pending = Pending::INSERTION;
            beginInsertRows(mapFromSource(target), target_row, target_row + last - first);
        }
    }
}

void EntityFilter::end_pending()
{
    switch (std::exchange(m_pending, Pending::NOTHING)) {
    case Pending::NOTHING:
        break;
    case Pending::INSERTION:
        endInsertRows();
        break;
    case Pending::REMOVAL:
        endRemoveRows();
        break;
    case Pending::MOVE:
        endMoveRows();
        break;
    case Pending::ORDER:
        reorder(m_pending_parent);
        break;
    }
}

void EntityFilter::drop_rows(EntityItem* parent, int first, int last)
{
    const auto [first_shown, last_shown] = m_tree.shown_part(parent, first, last);
    if (first_shown <= last_shown) {
        beginRemoveRows(index(parent), first_shown, last_shown);
        m_tree.rows().erase(parent, first_shown, last_shown);
        endRemoveRows();
    }
}

void EntityFilter::reorder(EntityItem* parent)
{
    const QList<QPersistentModelIndex> parents{QPersistentModelIndex(index(parent))};
    Q_EMIT layoutAboutToBeChanged(parents, VerticalSortHint);
    m_tree.rows().reorder(parent);
    rewrite_persistent_indexes();
    Q_EMIT layoutChanged(parents, VerticalSortHint);
}

void EntityFilter::forward_change(
    const QModelIndex& top_left, const QModelIndex& bottom_right, const QList<int>& roles)
{
    EntityItem* const first_item = source_item(top_left);
    EntityItem* const parent = ShownRows::parent_of(first_item);
    if (m_tree.rows().shows_all_below(parent)) {
        Q_EMIT dataChanged(createIndex(top_left.row(), top_left.column(), first_item),
            createIndex(bottom_right.row(), bottom_right.column(), source_item(bottom_right)),
            roles);
    } else {
        const auto [first, last] = m_tree.shown_part(parent, top_left.row(), bottom_right.row());
        if (first <= last) {
            Q_EMIT dataChanged(createIndex(first, top_left.column(), m_tree.child(parent, first)),
                createIndex(last, bottom_right.column(), m_tree.child(parent, last)), roles);
        }
    }
    m_search.note_changed();
}

void EntityFilter::sort(int column, Qt::SortOrder order)
{
    m_passes_layout_on = false;
    {
        const QScopedValueRollback<bool> sorting(m_is_sorting, true);
        m_items.sort(column, order);
    }
    if (std::exchange(m_passes_layout_on, false)) {
        m_tree.rows().reorder_all();
        rewrite_persistent_indexes();
        Q_EMIT layoutChanged({}, VerticalSortHint);
    }
}

void EntityFilter::begin_layout(const QList<QPersistentModelIndex>& parents, LayoutChangeHint hint)
{
    m_search.note_leaving();
    if (m_is_sorting) {
        if (!std::exchange(m_passes_layout_on, true)) {
            Q_EMIT layoutAboutToBeChanged({}, hint);
        }
        return;
    }
    m_layout_parents.clear();
    for (const QModelIndex parent : parents) {
        const QModelIndex mapped = mapFromSource(parent);
        if (mapped.isValid() || !parent.isValid()) {
            m_layout_parents.append(mapped);
        }
    }
    m_passes_layout_on = parents.isEmpty() || !m_layout_parents.isEmpty();
    if (m_passes_layout_on) {
        Q_EMIT layoutAboutToBeChanged(m_layout_parents, hint);
    }
}

void EntityFilter::end_layout(
    const QList<QPersistentModelIndex>& /*parents*/, LayoutChangeHint hint)
{
    if (m_is_sorting || !std::exchange(m_passes_layout_on, false)) {
        return;
    }
    if (m_layout_parents.isEmpty()) {
        m_tree.rows().reorder_all();
    }
    for (const QModelIndex parent : std::as_const(m_layout_parents)) {
        if (m_tree.rows().find(item(parent))) {
            m_tree.rows().reorder(item(parent));
        }
    }
    rewrite_persistent_indexes();
    Q_EMIT layoutChanged(m_layout_parents, hint);
}

void EntityFilter::begin_reset()
{
    m_search.note_leaving();
    beginResetModel();
}

void EntityFilter::end_reset()
{
    m_tree.rows() = {};
    if (is_active()) {
        m_tree.rows().set(nullptr, {});
    }
    endResetModel();
}

// What is found.

void EntityFilter::take_in(ShownRows& shown)
{
    show(shown);
    tell_paths(shown);
    Q_EMIT filtered(hits(), rows());
}

// Leaves in `shown` what was shown before.
void EntityFilter::show(ShownRows& shown)
{
    if (shown == m_tree.rows()) {
        return;
    }
    Q_EMIT layoutAboutToBeChanged();
    std::swap(m_tree.rows(), shown);
    rewrite_persistent_indexes();
    Q_EMIT layoutChanged();
}

void EntityFilter::tell_paths(const ShownRows& before)
{
    std::vector<EntityItem*> parents;
    m_tree.rows().visit_parents([&](EntityItem* parent) {
        if (!before.find(parent)) {
            parents.push_back(parent);
        }
    });
    QModelIndexList paths;
    for (const ShownTree::Siblings& siblings : m_tree.find(parents)) {
        for (const auto& [row, node] : siblings.rows) {
            paths.append(createIndex(row, 0, node));
        }
    }
    if (!paths.isEmpty()) {
        Q_EMIT paths_found(paths);
    }
}

void EntityFilter::rewrite_persistent_indexes()
{
    const QModelIndexList before = persistentIndexList();
    std::vector<EntityItem*> nodes;
    nodes.reserve(static_cast<std::size_t>(before.size()));
    for (const QModelIndex& index : before) {
        nodes.push_back(item(index));
    }
    std::unordered_map<const EntityItem*, int> rows;
    for (const ShownTree::Siblings& siblings : m_tree.find(nodes)) {
        for (const auto& [row, node] : siblings.rows) {
            rows.emplace(node, row);
        }
    }
    QModelIndexList after;
    after.reserve(before.size());
    for (const QModelIndex& index : before) {
        const auto found = rows.find(item(index));
        after.append(found == rows.end()
                         ? QModelIndex()
                         : createIndex(found->second, index.column(), index.internalPointer()));
    }
    changePersistentIndexList(before, after);
}
