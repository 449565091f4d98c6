#include <browser/items/MirrorItems.hpp>

#include <QScopedValueRollback>
#include <treemodel/entity/EntityCategory.hpp>
#include <treemodel/entity/EntityItemList.hpp>
#include <treemodel/entity/EntityModel.hpp>
#include <treemodel/kernel/TreeModel.hpp>

namespace {

constexpr int slice_ms = 8;

} // namespace

MirrorItems::MirrorItems(TreeModel& mirror, EntityModel& items, QObject* parent)
    : QObject(parent)
    , m_mirror(mirror)
    , m_items(items)
    , m_records(mirror)
    , m_workbench(new SimpleItem(-1, 0, new EntityItemList))
{
    m_items.addEntity(nullptr, m_workbench);
    m_items.hideCategory(m_workbench);
    for (int i = 0; i < category_count; ++i) {
        const ItemKind kind = item_kind(Category(i));
        auto* category = new EntityCategory(item_kind_info(kind).plural, int(kind), 0, i);
        category->setList(new SortedTypeIdList);
        m_categories[i] = category;
        m_items.addEntity(nullptr, category);
    }
    connect(&m_items, &EntityModel::rowsInserted, this, &MirrorItems::note_shown_rows);
    m_timer.callOnTimeout(this, [this] { advance(QDeadlineTimer(slice_ms)); });
    follow_geometry();
    follow_groups();
    follow_mesh();
    follow_simulation();
    for (int kind = 0; kind < int(ItemKind::FirstCategory); ++kind) {
        m_scans.insert(ItemKind(kind));
    }
    schedule();
}

MirrorItems::~MirrorItems()
{
    m_items.disconnect(this);
    put_crowds_back();
    for (EntityCategory* category : m_categories) {
        set_crowds_aside(category);
        m_items.removeEntity(category);
    }
    m_items.removeEntity(m_workbench);
    qDeleteAll(m_datas);
    qDeleteAll(m_dead);
}

TreeData* MirrorItems::record(EntityItem* item) const
{
    const auto* place = dynamic_cast<RecordItem*>(item);
    return place ? place->data().record() : nullptr;
}

RecordItemData* MirrorItems::data(TreeData* record) const
{
    return m_datas.value(record);
}

std::vector<EntityItem*> MirrorItems::places(TreeData* record) const
{
    RecordItemData* found = data(record);
    return found ? found->places() : std::vector<EntityItem*>();
}

EntityItem* MirrorItems::category(Category category) const
{
    return m_categories[std::size_t(category)];
}

void MirrorItems::fill(EntityItem* item)
{
    auto* wanted = dynamic_cast<RecordItem*>(item);
    if (!wanted) {
        return;
    }
    m_unfilled.await(wanted);
    if (!m_is_working) {
        const QScopedValueRollback working(m_is_working, true);
        while (m_unfilled.awaited()) {
            m_unfilled.bring_forward(m_unfilled.awaited());
            step(QDeadlineTimer::Forever);
        }
        finish_slice();
    }
}

bool MirrorItems::is_settled() const
{
    return m_dead.empty() && m_changed.empty() && m_changed_children.empty() &&
           m_shown_categories.empty() && m_scans.isEmpty() && m_unplaced.isEmpty() &&
           m_unfilled.size() == 0;
}

bool MirrorItems::advance(QDeadlineTimer deadline)
{
    // Receivers of the row signals may ask for it.
    if (!m_is_working) {
        const QScopedValueRollback working(m_is_working, true);
        while (step(deadline) && !deadline.hasExpired()) {}
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

// Nothing is deleted of which there is still something to read, and rows are added only
// where none is left that has to go.
bool MirrorItems::step(QDeadlineTimer deadline)
{
    if (!m_changed_children.empty()) {
        queue_places();
    } else if (!m_changed.empty()) {
        read_changes(deadline);
    } else if (!m_shown_categories.empty()) {
        clear_shown_category();
    } else if (!m_dead.empty()) {
        bury_dead(deadline);
    } else if (!m_scans.isEmpty()) {
        scan_kind();
    } else if (!m_unplaced.isEmpty()) {
        place_records(deadline);
    } else if (m_unfilled.size() > 0) {
        fill_first(deadline);
    } else {
        return false;
    }
    return true;
}

void MirrorItems::finish_slice()
{
    put_crowds_back();
    show_counts();
    Q_EMIT filling(m_unfilled.node_count(), m_unfilled.size());
    if (is_settled()) {
        m_timer.stop();
        if (!std::exchange(m_was_settled, true)) {
            Q_EMIT settled();
        }
    }
}

void MirrorItems::show_counts()
{
    for (EntityCategory* category : m_categories) {
        const QString title = item_kind_info(ItemKind(category->getType())).plural;
        const int count = category->childCount();
        const QString display = count > 0 ? tr("%1 (%2)").arg(title).arg(count) : title;
        if (category->setDisplay(display)) {
            m_items.updateEntity(category);
        }
    }
}
