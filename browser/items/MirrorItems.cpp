#include <browser/items/MirrorItems.hpp>

#include <QScopedValueRollback>
#include <treemodel/entity/EntityModel.hpp>
#include <utility>

namespace {

constexpr int slice_ms = 8;

} // namespace

MirrorItems::MirrorItems(TreeModel& mirror, EntityModel& items, QObject* parent)
    : QObject(parent)
    , m_mirror(mirror)
    , m_items(items)
    , m_notes(mirror)
    , m_rows(mirror, items, *this, m_notes)
{
    connect(&m_notes, &MirrorNotes::noted, this, &MirrorItems::schedule);
    connect(&m_items, &EntityModel::rowsInserted, this, &MirrorItems::note_shown_rows);
    m_timer.callOnTimeout(this, [this] { advance(QDeadlineTimer(slice_ms)); });
    schedule();
}

TreeData* MirrorItems::record(EntityItem* item) const
{
    const auto* place = dynamic_cast<RecordItem*>(item);
    return place ? place->data().record() : nullptr;
}

RecordItemData* MirrorItems::data(TreeData* record) const
{
    return m_notes.data(record);
}

std::vector<EntityItem*> MirrorItems::places(TreeData* record) const
{
    RecordItemData* found = data(record);
    return found ? found->places() : std::vector<EntityItem*>();
}

EntityItem* MirrorItems::category(Category category) const
{
    return m_rows.category(category);
}

void MirrorItems::fill(EntityItem* item)
{
    auto* wanted = dynamic_cast<RecordItem*>(item);
    if (!wanted) {
        return;
    }
    m_rows.await(wanted);
    if (!m_is_working && m_rows.awaited()) {
        const QScopedValueRollback working(m_is_working, true);
        while (m_rows.awaited()) {
            m_rows.await(m_rows.awaited()); // Ahead of those that have come meanwhile
            m_rows.step(QDeadlineTimer::Forever);
        }
        finish_slice();
    }
}

bool MirrorItems::is_settled() const
{
    return m_rows.is_done();
}

bool MirrorItems::advance(QDeadlineTimer deadline)
{
    // Receivers of the row signals may ask for it.
    if (!m_is_working) {
        const QScopedValueRollback working(m_is_working, true);
        while (m_rows.step(deadline) && !deadline.hasExpired()) {}
        finish_slice();
    }
    return !is_settled();
}

void MirrorItems::settle()
{
    advance(QDeadlineTimer::Forever);
}

void MirrorItems::update_item(EntityItem* item)
{
    m_items.updateEntity(item);
}

const std::string& MirrorItems::get_type_name(int type)
{
    return item_kind_info(ItemKind(type)).word;
}

void MirrorItems::schedule()
{
    m_was_settled = false;
    if (!m_timer.isActive()) {
        m_timer.start(0);
    }
}

void MirrorItems::finish_slice()
{
    m_rows.finish_slice();
    Q_EMIT filling(m_rows.place_count(), m_rows.waiting_count());
    if (is_settled()) {
        m_timer.stop();
        if (!std::exchange(m_was_settled, true)) {
            Q_EMIT settled();
        }
    }
}

// Rows at top level are inserted when a hidden category is shown again.
void MirrorItems::note_shown_rows(const QModelIndex& parent, int first, int last)
{
    for (int row = first; row <= last && !parent.isValid(); ++row) {
        if (m_rows.note_shown(m_items.getEntity(m_items.index(row, 0)))) {
            schedule();
        }
    }
}
