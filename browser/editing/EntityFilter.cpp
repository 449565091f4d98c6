#include <browser/editing/EntityFilter.hpp>

#include <algorithm>
#include <QScopedValueRollback>
#include <treemodel/entity/EntityModel.hpp>
#include <unordered_map>

using namespace std::chrono_literals;

namespace {

constexpr int column_count = 2;
constexpr auto endless = 24h;
// From a change of the items to the search that heeds it.
constexpr auto search_delay = 250ms;

} // namespace

EntityFilter::EntityFilter(EntityModel& items, QObject* parent)
    : QAbstractProxyModel(parent)
    , m_items(items)
{
    setSourceModel(&items);
    follow_items();
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &EntityFilter::proceed);
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
    bool is_hidden = false;
    const bool stands = m_items.contains(item, is_hidden) && !is_hidden;
    return stands && m_shown.shows(item) ? createIndex(row_of(item), 0, item) : QModelIndex();
}

QModelIndex EntityFilter::index(int row, int column, const QModelIndex& parent) const
{
    if (row < 0 || column < 0 || column >= column_count || parent.column() > 0) {
        return {};
    }
    EntityItem* const found = child(item(parent), row);
    return found ? createIndex(row, column, found) : QModelIndex();
}

QModelIndex EntityFilter::parent(const QModelIndex& index) const
{
    EntityItem* const node = item(index);
    EntityItem* const above = node ? ShownRows::parent_of(node) : nullptr;
    return above ? createIndex(row_of(above), 0, above) : QModelIndex();
}

QModelIndex EntityFilter::sibling(int row, int column, const QModelIndex& index) const
{
    const bool is_same_row = row == index.row() && column >= 0 && column < column_count;
    return is_same_row ? createIndex(row, column, index.internalPointer())
                       : this->index(row, column, parent(index));
}

int EntityFilter::rowCount(const QModelIndex& parent) const
{
    if (parent.column() > 0) {
        return 0;
    }
    EntityItem* const node = item(parent);
    if (const ShownRows::List* list = m_shown.find(node)) {
        return static_cast<int>(list->size());
    }
    return node ? node->childCount() : m_items.rowCount();
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
    if (!node) {
        return {};
    }
    int row = proxy_index.row();
    if (const ShownRows::List* list = m_shown.find(ShownRows::parent_of(node))) {
        const EntityItem* const above = node->getParentEntity();
        row = list->at(static_cast<std::size_t>(row)).source_row;
        row = above->getChild(row) == node ? row : above->getChildIndex(node);
    }
    return createSourceIndex(row, proxy_index.column(), node);
}

QModelIndex EntityFilter::mapFromSource(const QModelIndex& source_index) const
{
    EntityItem* const node = source_item(source_index);
    if (!node || !m_shown.shows(node)) {
        return {};
    }
    const ShownRows::List* const list = m_shown.find(ShownRows::parent_of(node));
    const int row = list ? m_shown.row_in(*list, node) : source_index.row();
    return createIndex(row, source_index.column(), node);
}

EntityItem* EntityFilter::source_item(const QModelIndex& index) const
{
    return m_items.getEntity(index);
}

EntityItem* EntityFilter::child(EntityItem* parent, int row) const
{
    if (const ShownRows::List* list = m_shown.find(parent)) {
        const auto place = static_cast<std::size_t>(row);
        return place < list->size() ? (*list)[place].item : nullptr;
    }
    return parent ? parent->getChild(row) : source_item(m_items.index(row, 0));
}

int EntityFilter::row_of(EntityItem* item) const
{
    constexpr int many = 64;
    EntityItem* const above = ShownRows::parent_of(item);
    // Who asks for many rows mostly does so in their order.
    for (const int row : {m_row_found, m_row_found + 1}) {
        if (above && child(above, row) == item) {
            return m_row_found = row;
        }
    }
    const ShownRows::List* const list = m_shown.find(above);
    const int row =
        list ? m_shown.row_in(*list, item) : item->getParentEntity()->getChildIndex(item);
    if (row >= many) {
        m_row_found = row;
    }
    return row;
}

QItemSelection EntityFilter::selection(const std::vector<EntityItem*>& items) const
{
    QItemSelection result;
    for (const Siblings& siblings : rows_of(items)) {
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

// The shown ones of the items by their parents and rows, found by one look at the rows of
// a parent of which there are many.
std::vector<EntityFilter::Siblings> EntityFilter::rows_of(
    const std::vector<EntityItem*>& items) const
{
    constexpr std::size_t few = 4;

    std::unordered_map<EntityItem*, std::vector<EntityItem*>> wanted;
    for (EntityItem* const node : items) {
        wanted[node->getParentEntity()].push_back(node);
    }

    std::vector<Siblings> result;
    for (auto& [container, nodes] : wanted) {
        bool is_hidden = false;
        EntityItem* const some = nodes.front();
        EntityItem* const above = container ? ShownRows::parent_of(some) : nullptr;
        if (!m_items.contains(some, is_hidden) || is_hidden || (above && !m_shown.shows(above))) {
            continue;
        }
        std::sort(nodes.begin(), nodes.end());
        nodes.erase(std::unique(nodes.begin(), nodes.end()), nodes.end());
        Siblings siblings{above, {}};
        if (nodes.size() <= few) {
            for (EntityItem* const node : nodes) {
                if (m_shown.shows(node)) {
                    siblings.rows.emplace_back(row_of(node), node);
                }
            }
            std::sort(siblings.rows.begin(), siblings.rows.end());
        } else {
            siblings.rows.reserve(nodes.size());
            for (int row = 0; EntityItem* const node = child(above, row); ++row) {
                if (std::binary_search(nodes.begin(), nodes.end(), node)) {
                    siblings.rows.emplace_back(row, node);
                }
            }
        }
        result.push_back(std::move(siblings));
    }
    return result;
}

// What happens to the items.

void EntityFilter::begin_insertion(const QModelIndex& parent, int first, int last)
{
    if (m_shown.shows_all_below(source_item(parent))) {
        m_pending = Pending::INSERTION;
        beginInsertRows(mapFromSource(parent), first, last);
    }
}

void EntityFilter::end_insertion(const QModelIndex& parent, int first, int last)
{
    end_pending();
    if (m_walk) {
        m_walk->rows_inserted(source_item(parent), first, last - first + 1);
    }
    search_again();
}

void EntityFilter::begin_removal(const QModelIndex& parent, int first, int last)
{
    EntityItem* const above = source_item(parent);
    if (m_shown.shows_all_below(above)) {
        m_pending = Pending::REMOVAL;
        beginRemoveRows(mapFromSource(parent), first, last);
    } else {
        drop_rows(above, first, last);
    }
    search_from_the_start();
}

void EntityFilter::begin_move(
    const QModelIndex& source, int first, int last, const QModelIndex& target, int target_row)
{
    EntityItem* const from = source_item(source);
    EntityItem* const to = source_item(target);
    const bool is_all_from = m_shown.shows_all_below(from);
    const bool is_all_to = m_shown.shows_all_below(to);
    search_from_the_start();
    if (is_all_from && is_all_to) {
        m_pending = Pending::MOVE;
        beginMoveRows(mapFromSource(source), first, last, mapFromSource(target), target_row);
    } else if (from == to) {
        m_pending = m_shown.find(from) ? Pending::ORDER : Pending::NOTHING;
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
    const auto [first_shown, last_shown] = shown_part(parent, first, last);
    if (first_shown <= last_shown) {
        beginRemoveRows(index(parent), first_shown, last_shown);
        m_shown.erase(parent, first_shown, last_shown);
        endRemoveRows();
    }
}

// The first and the last shown row of those rows of the items; the first is behind the last if
// none is shown by a list.
std::pair<int, int> EntityFilter::shown_part(EntityItem* parent, int first, int last) const
{
    const ShownRows::List* const list = m_shown.find(parent);
    if (!list) {
        return {0, -1};
    }
    std::vector<EntityItem*> wanted;
    for (int row = first; row <= last; ++row) {
        wanted.push_back(parent ? parent->getChild(row) : source_item(m_items.index(row, 0)));
    }
    std::sort(wanted.begin(), wanted.end());
    const auto is_wanted = [&wanted](const ShownRows::Row& row) {
        return std::binary_search(wanted.begin(), wanted.end(), row.item);
    };
    // Neighbours among the items are neighbours here.
    const auto begin = std::find_if(list->begin(), list->end(), is_wanted);
    const auto end = std::find_if_not(begin, list->end(), is_wanted);
    return {static_cast<int>(begin - list->begin()), static_cast<int>(end - list->begin()) - 1};
}

void EntityFilter::reorder(EntityItem* parent)
{
    const QList<QPersistentModelIndex> parents{QPersistentModelIndex(index(parent))};
    Q_EMIT layoutAboutToBeChanged(parents, VerticalSortHint);
    m_shown.reorder(parent);
    rewrite_persistent_indexes();
    Q_EMIT layoutChanged(parents, VerticalSortHint);
}

void EntityFilter::forward_change(
    const QModelIndex& top_left, const QModelIndex& bottom_right, const QList<int>& roles)
{
    EntityItem* const first_item = source_item(top_left);
    EntityItem* const parent = ShownRows::parent_of(first_item);
    if (m_shown.shows_all_below(parent)) {
        Q_EMIT dataChanged(createIndex(top_left.row(), top_left.column(), first_item),
            createIndex(bottom_right.row(), bottom_right.column(), source_item(bottom_right)),
            roles);
    } else {
        const auto [first, last] = shown_part(parent, top_left.row(), bottom_right.row());
        if (first <= last) {
            Q_EMIT dataChanged(createIndex(first, top_left.column(), child(parent, first)),
                createIndex(last, bottom_right.column(), child(parent, last)), roles);
        }
    }
    search_again();
}

void EntityFilter::sort(int column, Qt::SortOrder order)
{
    m_passes_layout_on = false;
    {
        const QScopedValueRollback<bool> sorting(m_is_sorting, true);
        m_items.sort(column, order);
    }
    if (std::exchange(m_passes_layout_on, false)) {
        m_shown.reorder_all();
        rewrite_persistent_indexes();
        Q_EMIT layoutChanged({}, VerticalSortHint);
    }
}

void EntityFilter::begin_layout(const QList<QPersistentModelIndex>& parents, LayoutChangeHint hint)
{
    search_from_the_start();
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
        m_shown.reorder_all();
    }
    for (const QModelIndex parent : std::as_const(m_layout_parents)) {
        if (m_shown.find(item(parent))) {
            m_shown.reorder(item(parent));
        }
    }
    rewrite_persistent_indexes();
    Q_EMIT layoutChanged(m_layout_parents, hint);
}

void EntityFilter::begin_reset()
{
    search_from_the_start();
    beginResetModel();
}

void EntityFilter::end_reset()
{
    m_shown = {};
    if (is_active()) {
        m_shown.set(nullptr, {});
    }
    endResetModel();
}

// The search.

void EntityFilter::set_text(const QString& text)
{
    if (text == m_text) {
        return;
    }
    m_text = text;
    m_walk.reset();
    m_timer.stop();
    if (is_active()) {
        proceed();
    } else {
        m_hits = 0;
        m_rows = 0;
        ShownRows everything;
        show(everything);
        Q_EMIT filtered(0, 0);
    }
}

bool EntityFilter::is_settled() const
{
    return !m_walk && !m_timer.isActive();
}

void EntityFilter::settle()
{
    if (is_settled()) {
        return;
    }
    m_timer.stop();
    if (!m_walk || m_is_outdated) {
        m_is_outdated = false;
        m_walk.emplace(m_items, m_text);
    }
    m_walk->run(endless);
    finish();
}

void EntityFilter::search_again()
{
    if (m_walk) {
        m_is_outdated = true;
    } else if (is_active() && !m_timer.isActive()) {
        m_timer.start(search_delay);
    }
}

void EntityFilter::search_from_the_start()
{
    if (m_walk) {
        m_walk.reset();
        m_timer.stop();
    }
    search_again();
}

void EntityFilter::proceed()
{
    if (!m_walk) {
        m_is_outdated = false;
        m_walk.emplace(m_items, m_text);
    }
    if (m_walk->run(m_slice)) {
        finish();
    } else {
        m_timer.start(0);
    }
}

void EntityFilter::finish()
{
    m_hits = m_walk->hits();
    m_rows = m_walk->rows();
    ShownRows shown = std::move(m_walk->shown());
    m_walk.reset();
    if (std::exchange(m_is_outdated, false)) {
        m_timer.start(search_delay);
    }
    show(shown);
    tell_paths(shown);
    Q_EMIT filtered(m_hits, m_rows);
}

// Leaves in `shown` what was shown before.
void EntityFilter::show(ShownRows& shown)
{
    if (shown == m_shown) {
        return;
    }
    Q_EMIT layoutAboutToBeChanged();
    std::swap(m_shown, shown);
    rewrite_persistent_indexes();
    Q_EMIT layoutChanged();
}

void EntityFilter::tell_paths(const ShownRows& before)
{
    std::vector<EntityItem*> parents;
    m_shown.visit_parents([&](EntityItem* parent) {
        if (!before.find(parent)) {
            parents.push_back(parent);
        }
    });
    QModelIndexList paths;
    for (const Siblings& siblings : rows_of(parents)) {
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
    for (const Siblings& siblings : rows_of(nodes)) {
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
