#include <browser/editing/SelectionLink.hpp>

#include <algorithm>
#include <browser/editing/EntityFilter.hpp>
#include <browser/items/MirrorItems.hpp>
#include <iterator>
#include <QScopedValueRollback>
#include <treemodel/kernel/TreeModel.hpp>

using namespace std::chrono_literals;

namespace {

// From the first row that comes or goes to the look at what has by then.
constexpr auto catch_up_delay = 100ms;

template <typename Visit>
void visit_items(const QItemSelection& selection, const EntityFilter& rows, Visit visit)
{
    for (const QItemSelectionRange& range : selection) {
        const QModelIndex parent = range.parent();
        for (int row = range.top(); row <= range.bottom(); ++row) {
            if (EntityItem* item = rows.item(rows.index(row, 0, parent))) {
                visit(item);
            }
        }
    }
}

// Qt makes whole rows of each range by a comparison with all before it, even if it is that already.
QItemSelectionModel::SelectionFlags without_needless_rows(
    const QItemSelection& rows, QItemSelectionModel::SelectionFlags command)
{
    const bool is_whole =
        std::all_of(rows.begin(), rows.end(), [](const QItemSelectionRange& range) {
            return range.model() && range.left() == 0 &&
                   range.right() == range.model()->columnCount() - 1;
        });
    return command.setFlag(
        QItemSelectionModel::Rows, command.testFlag(QItemSelectionModel::Rows) && !is_whole);
}

template <typename Value>
std::vector<Value> to_vector(const std::unordered_set<Value>& values)
{
    return {values.begin(), values.end()};
}

} // namespace

SelectionLink::SelectionLink(MirrorItems& items, EntityFilter& rows, QObject* parent)
    : QItemSelectionModel(&rows, parent)
    , m_items(items)
    , m_rows(rows)
    , m_mirror(items.mirror())
{
    connect(this, &QItemSelectionModel::selectionChanged, this,
        [this](const QItemSelection& selected, const QItemSelection& deselected) {
            if (Change* change = std::exchange(m_change, nullptr)) {
                *change = {selected, deselected};
            }
        });
    connect(&m_mirror, &TreeModel::selection_changed, this, &SelectionLink::receive);

    m_timer.setSingleShot(true);
    m_timer.setInterval(catch_up_delay);
    connect(&m_timer, &QTimer::timeout, this, &SelectionLink::catch_up);
    const auto catch_up_later = [this] {
        if (!m_timer.isActive()) {
            m_timer.start();
        }
    };
    connect(&rows, &EntityFilter::rowsInserted, this, catch_up_later);
    connect(&rows, &EntityFilter::layoutChanged, this, catch_up_later);
    connect(&rows, &EntityFilter::rowsRemoved, this, catch_up_later);
    connect(&rows, &EntityFilter::modelReset, this, catch_up_later);
}

std::vector<TreeData*> SelectionLink::records() const
{
    Records records = records_of(selection());
    records.insert(m_selected.begin(), m_selected.end());
    return to_vector(records);
}

void SelectionLink::select(const QItemSelection& rows, SelectionFlags command)
{
    if (m_is_resetting) {
        QItemSelectionModel::select(rows, command);
        return;
    }
    Change change;
    {
        const QScopedValueRollback<Change*> listening(m_change, &change);
        QItemSelectionModel::select(rows, without_needless_rows(rows, command));
    }
    send(change, command.testFlag(Clear));
}

void SelectionLink::reset()
{
    const QScopedValueRollback<bool> resetting(m_is_resetting, true);
    QItemSelectionModel::reset();
}

void SelectionLink::send(const Change& change, bool begins_anew)
{
    const QScopedValueRollback<bool> sending(m_is_sending, true);

    Records leaving = records_of(change.deselected);
    const Records staying = records_of(begins_anew ? selection() : change.selected);
    const bool has_lost_places =
        std::erase_if(leaving, [&](TreeData* record) { return staying.contains(record); }) > 0;
    if (begins_anew) {
        std::copy_if(m_selected.begin(), m_selected.end(), std::inserter(leaving, leaving.end()),
            [&](TreeData* record) { return !staying.contains(record); });
    }
    // An empty list would deselect everything.
    if (!leaving.empty()) {
        m_mirror.select_entities(to_vector(leaving), false);
    }

    // These are read only now: the kernel may have removed records meanwhile.
    Records coming = records_of(change.selected);
    std::erase_if(coming, [this](TreeData* record) { return m_selected.contains(record); });
    if (!coming.empty()) {
        m_mirror.select_entities(to_vector(coming), true);
    }
    if (has_lost_places) {
        mark_all();
    }
    if (!change.selected.isEmpty() || !change.deselected.isEmpty()) {
        Q_EMIT records_changed();
    }
}

void SelectionLink::receive(const std::vector<TreeData*>& records, bool selected)
{
    for (TreeData* record : records) {
        if (!selected) {
            disconnect(record, &TreeData::treedata_destroyed, this, nullptr);
            m_selected.erase(record);
        } else if (m_selected.insert(record).second) {
            connect(record, &TreeData::treedata_destroyed, this, &SelectionLink::forget);
        }
    }
    m_is_going = false;
    m_latest = selected ? records.front() : nullptr;
    mark(places(records), selected);
    if (!m_is_sending) {
        Q_EMIT records_changed();
        if (selected && m_is_following) {
            go_to_selection();
        }
    }
}

void SelectionLink::forget(TreeData* record)
{
    m_selected.erase(record);
    if (m_latest == record) {
        m_latest = nullptr;
    }
    if (!m_timer.isActive()) {
        m_timer.start();
    }
}

// Selects or deselects the rows of items past select().
void SelectionLink::mark(const std::vector<EntityItem*>& items, bool selected)
{
    constexpr qsizetype few = 100'000; // Pairs of ranges

    std::unordered_set<EntityItem*> marked = selected_items();
    std::vector<EntityItem*> changed;
    for (EntityItem* item : items) {
        if (marked.contains(item) != selected) {
            changed.push_back(item);
        }
    }
    const QItemSelection change = m_rows.selection(changed);
    if (change.isEmpty()) {
        return;
    }
    const QItemSelection present = selection();
    if (present.size() * change.size() <= few) {
        QItemSelectionModel::select(change, selected ? Select : Deselect);
        return;
    }
    for (EntityItem* item : changed) {
        if (selected) {
            marked.insert(item);
        } else {
            marked.erase(item);
        }
    }
    // Qt compares each range of what was with each of what will be, unless one of them is empty.
    const QItemSelection all = m_rows.selection(to_vector(marked));
    QItemSelectionModel::select(QItemSelection(), Clear);
    QItemSelectionModel::select(all, Select);
}

void SelectionLink::mark_all()
{
    mark(places(to_vector(m_selected)), true);
}

void SelectionLink::catch_up()
{
    mark_all();
    if (m_is_going && !m_selected.empty()) {
        try_to_go();
    }
    Q_EMIT records_changed();
}

void SelectionLink::go_to_selection()
{
    if (!m_selected.empty()) {
        m_is_going = true;
        try_to_go();
    }
}

void SelectionLink::try_to_go()
{
    TreeData* const record = m_latest ? m_latest : *m_selected.begin();
    for (EntityItem* item : m_items.places(record)) {
        const QModelIndex index = m_rows.index(item);
        if (index.isValid()) {
            m_is_going = false;
            setCurrentIndex(index, NoUpdate);
            Q_EMIT went_to(index);
            return;
        }
    }
}

std::vector<EntityItem*> SelectionLink::places(const std::vector<TreeData*>& records) const
{
    std::vector<EntityItem*> places;
    places.reserve(records.size());
    for (TreeData* record : records) {
        const std::vector<EntityItem*> more = m_items.places(record);
        places.insert(places.end(), more.begin(), more.end());
    }
    return places;
}

std::unordered_set<EntityItem*> SelectionLink::selected_items() const
{
    std::unordered_set<EntityItem*> items;
    visit_items(selection(), m_rows, [&items](EntityItem* item) { items.insert(item); });
    return items;
}

SelectionLink::Records SelectionLink::records_of(const QItemSelection& rows) const
{
    Records records;
    visit_items(rows, m_rows, [&](EntityItem* item) {
        if (TreeData* record = m_items.record(item)) {
            records.insert(record);
        }
    });
    return records;
}
