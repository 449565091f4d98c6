#include <browser/items/MirrorRows.hpp>

#include <algorithm>
#include <browser/items/MirrorNotes.hpp>
#include <QCoreApplication>
#include <QHash>
#include <treemodel/entity/EntityCategory.hpp>
#include <treemodel/entity/EntityItemList.hpp>
#include <treemodel/entity/EntityModel.hpp>
#include <treemodel/treedata/TreeData.hpp>
#include <utility>

namespace {

constexpr std::size_t tree_size = 2'000; // Nodes of a tree that is added as one
constexpr int few_rows = 8;              // So many are updated one by one
constexpr int many_rows = 4'000;         // Up to here, a search through the siblings takes no time

// To make a row anew takes as long as a search through so many siblings, which is how a row is
// taken out.
constexpr double siblings_per_new_row = 40'000;

bool clearing_pays(int row_count, int removed_count)
{
    return row_count > many_rows &&
           double(removed_count) * row_count > siblings_per_new_row * (row_count - removed_count);
}

RecordItem* child_at(EntityItem* parent, int row)
{
    return static_cast<RecordItem*>(parent->getChild(row));
}

} // namespace

MirrorRows::MirrorRows(
    TreeModel& mirror, EntityModel& items, EntityModelInterface& front, MirrorNotes& notes)
    : m_items(items)
    , m_front(front)
    , m_notes(notes)
    , m_records(mirror)
    , m_workbench(new SimpleItem(-1, 0, new EntityItemList))
{
    m_items.addEntity(nullptr, m_workbench);
    m_items.hideCategory(m_workbench);
    for (int i = 0; i < category_count; ++i) {
        const ItemKind kind = item_kind(Category(i));
        auto* category = new EntityCategory(item_kind_info(kind).plural, int(kind), 0, i);
        category->setList(new SortedTypeIdList);
        m_categories[std::size_t(i)] = category;
        m_items.addEntity(nullptr, category);
    }
}

MirrorRows::~MirrorRows()
{
    put_crowds_back();
    for (EntityCategory* category : m_categories) {
        set_crowds_aside(category);
        m_items.removeEntity(category);
    }
    m_items.removeEntity(m_workbench);
}

EntityItem* MirrorRows::category(Category category) const
{
    return m_categories[std::size_t(category)];
}

bool MirrorRows::is_done() const
{
    return m_notes.is_empty() && m_shown_categories.empty() && waiting_count() == 0;
}

// Nothing is deleted of which there is still something to read, and rows are added only
// where none is left that has to go.
bool MirrorRows::step(QDeadlineTimer deadline)
{
    if (m_notes.has_changed_children()) {
        queue_places();
    } else if (m_notes.has_changes()) {
        read_changes(deadline);
    } else if (!m_shown_categories.empty()) {
        clear_shown_category();
    } else if (m_notes.dead_count() > 0) {
        bury_dead(deadline);
    } else if (m_notes.has_scans()) {
        scan_kind();
    } else if (m_notes.has_unplaced()) {
        place_records(deadline);
    } else if (waiting_count() > 0) {
        fill_first(deadline);
    } else {
        return false;
    }
    return true;
}

void MirrorRows::finish_slice()
{
    put_crowds_back();
    show_counts();
}

bool MirrorRows::note_shown(EntityItem* item)
{
    const bool is_category =
        std::find(m_categories.begin(), m_categories.end(), item) != m_categories.end();
    if (is_category) {
        m_shown_categories.push_back(item);
    }
    return is_category;
}

void MirrorRows::clear_shown_category()
{
    EntityItem* category = m_shown_categories.back();
    m_shown_categories.pop_back();
    clear_children(category);
}

void MirrorRows::queue_places()
{
    for (RecordItemData* data : m_notes.take_changed_children()) {
        for (EntityItem* place : data->places()) {
            m_unfilled.append(static_cast<RecordItem*>(place));
        }
    }
    m_filling = nullptr;
}

void MirrorRows::read_changes(QDeadlineTimer deadline)
{
    put_crowds_back();
    std::vector<EntityItem*> repainted;
    do {
        const auto [data, changes] = m_notes.take_change();
        if (!data->record()) {
            continue;
        }
        const bool key_changed = (changes & RecordItemData::Values) && data->read_keys();
        const bool visibility_changed =
            (changes & RecordItemData::Values) && data->read_visibility();
        if (key_changed) {
            data->updateModel(&m_front);
        } else if (visibility_changed || (changes & RecordItemData::Look)) {
            data->iterateItems([&](EntityItem* item) { repainted.push_back(item); });
        }
    } while (m_notes.has_changes() && !deadline.hasExpired());
    repaint(repainted);
}

// In the order of the changes, in which neighbours mostly follow each other: who hears of a row
// looks for it near the last one.
void MirrorRows::repaint(const std::vector<EntityItem*>& items)
{
    QHash<EntityItem*, std::vector<EntityItem*>> children;
    for (EntityItem* item : items) {
        children[item->getParentEntity()].push_back(item);
    }
    for (EntityItem* item : items) {
        EntityItem* parent = item->getParentEntity();
        repaint(parent, children.take(parent));
    }
}

// EntityModel::updateEntity() finds each row by a search. None of these has to move, so one
// signal does for many.
void MirrorRows::repaint(EntityItem* parent, const std::vector<EntityItem*>& children)
{
    if (children.size() <= few_rows) {
        std::for_each(children.begin(), children.end(),
            [this](EntityItem* item) { m_items.updateEntity(item); });
        return;
    }
    const QModelIndex index = m_items.index(parent);
    if (index.isValid()) {
        Q_EMIT m_items.dataChanged(
            m_items.index(0, 0, index), m_items.index(parent->childCount() - 1, 1, index));
    }
}

void MirrorRows::bury_dead(QDeadlineTimer deadline)
{
    // Receivers of the row signals may have more to read noted.
    const auto is_next = [this] {
        return m_notes.dead_count() > 0 && !m_notes.has_changes() &&
               !m_notes.has_changed_children();
    };
    while (is_next()) {
        RecordItemData* data = m_notes.first_dead();
        set_aside_if_crowded(*data);
        while (EntityItem* place = data->last_place()) {
            EntityItem* parent = place->getParentEntity();
            is_mostly_dead(parent) ? clear_children(parent) : remove(place);
            if (deadline.hasExpired()) {
                return;
            }
        }
        if (is_next()) {
            m_crowds.remove(data);
            m_notes.drop_first_dead();
        }
        if (deadline.hasExpired()) {
            return;
        }
    }
    m_not_mostly_dead = nullptr;
}

void MirrorRows::scan_kind()
{
    for (TreeData* record : m_records.all(m_notes.take_scan())) {
        if (m_records.home(record)) {
            m_notes.note_record(record);
        }
    }
}

void MirrorRows::place_records(QDeadlineTimer deadline)
{
    do {
        place(m_notes.take_unplaced());
    } while (m_notes.has_unplaced() && !deadline.hasExpired());
}

void MirrorRows::fill_first(QDeadlineTimer deadline)
{
    RecordItem* item = m_unfilled.first();
    const bool is_started = item == m_filling && m_known_deaths == m_notes.death_count();
    if (!is_started && !start_filling(item)) {
        return;
    }
    while (!m_missing.empty()) {
        TreeData* record = m_missing.back().record;
        m_missing.pop_back();
        add_tree(record, item);
        if (m_known_deaths != m_notes.death_count() || deadline.hasExpired()) {
            return;
        }
    }
    m_filling = nullptr;
    m_unfilled.remove(item);
}

void MirrorRows::place(TreeData* record)
{
    const std::optional<Category> home = m_records.home(record);
    EntityItem* wanted = home ? category(*home) : nullptr;
    const RecordItemData* known = m_notes.data(record);
    RecordItem* place = known ? known->home() : nullptr;
    if (place && place->getParentEntity() == wanted) {
        return;
    }
    const quint64 deaths = m_notes.death_count();
    if (place) {
        remove(place);
    }
    if (wanted && deaths == m_notes.death_count()) {
        add_tree(record, wanted);
    }
}

// Grows the tree out of sight, where nobody is notified of each node, and shows it as one row.
// What would make it too large is left to the queue.
void MirrorRows::add_tree(TreeData* record, EntityItem* target)
{
    RecordItem* top = add_node(record, m_workbench, target);
    std::vector<RecordItem*> nodes{top};
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        RecordItem* node = nodes[i];
        const std::vector<Entry> children =
            m_records.children(node->data().record(), node->opens());
        if (nodes.size() + children.size() > tree_size) {
            m_unfilled.append(node);
            continue;
        }
        for (const Entry& child : children) {
            nodes.push_back(add_node(child.record, node, target));
        }
    }
    if (!target->getList()) {
        target->setList(new SortedTypeIdList);
    }
    if (dynamic_cast<EntityCategory*>(target)) {
        top->data().m_home = top;
    }
    m_items.moveEntity(top, target);
}

RecordItem* MirrorRows::add_node(TreeData* record, EntityItem* parent, EntityItem* target)
{
    RecordItemData& data = m_notes.data_of(record);
    EntityItem* shown_parent = parent == m_workbench ? target : parent;
    auto* node = new RecordItem(data, m_unfilled, opens_below(data, shown_parent, target));
    if (!parent->getList()) {
        parent->setList(new SortedTypeIdList);
    }
    m_items.addEntity(parent, node);
    return node;
}

bool MirrorRows::opens_below(
    const RecordItemData& data, EntityItem* parent, EntityItem* target) const
{
    const auto* place = dynamic_cast<RecordItem*>(parent);
    if (!place) {
        return true;
    }
    // Geometry opens its parts, and a group the groups in it; nothing else opens what it holds.
    const ItemKind kind = place->data().kind();
    if (kind > ItemKind::Vertex && !(kind == ItemKind::Group && data.kind() == kind)) {
        return false;
    }
    for (EntityItem* above = parent; above; above = above->getParentEntity()) {
        if (above == m_workbench) {
            above = target;
        }
        if (above->getData() == &data) {
            return false;
        }
    }
    return true;
}

// Removes the rows that the item is not to have, and finds those that it lacks. False if records
// have died meanwhile.
bool MirrorRows::start_filling(RecordItem* item)
{
    m_known_deaths = m_notes.death_count();
    const std::vector<Entry> children = m_records.children(item->data().record(), item->opens());
    if (!remove_superfluous(item, children)) {
        return false;
    }
    m_missing = missing_children(item, children);
    m_filling = item;
    return true;
}

// A stamp on the data tells a row that is to be from one that is not.
bool MirrorRows::remove_superfluous(RecordItem* item, const std::vector<Entry>& children)
{
    const int wanted = stamp(children);
    std::vector<EntityItem*> superfluous;
    for (int row = 0; row < item->childCount(); ++row) {
        RecordItem* child = child_at(item, row);
        if (child->data().m_stamp != wanted) {
            superfluous.push_back(child);
        }
    }
    if (clearing_pays(item->childCount(), int(superfluous.size()))) {
        clear_children(item);
    } else {
        std::for_each(
            superfluous.begin(), superfluous.end(), [this](EntityItem* child) { remove(child); });
    }
    return m_known_deaths == m_notes.death_count();
}

// And a record that has a row has lost the stamp. The first one comes last.
std::vector<MirrorRecords::Entry> MirrorRows::missing_children(
    RecordItem* item, std::vector<Entry> children)
{
    const int wanted = stamp(children);
    for (int row = 0; row < item->childCount(); ++row) {
        child_at(item, row)->data().m_stamp = 0;
    }
    std::erase_if(children, [&](const Entry& entry) {
        const RecordItemData* known = m_notes.data(entry.record);
        return known && known->m_stamp != wanted;
    });
    std::reverse(children.begin(), children.end());
    return children;
}

int MirrorRows::stamp(const std::vector<Entry>& children)
{
    ++m_stamp;
    for (const Entry& entry : children) {
        if (RecordItemData* known = m_notes.data(entry.record)) {
            known->m_stamp = m_stamp;
        }
    }
    return m_stamp;
}

void MirrorRows::remove(EntityItem* item)
{
    m_filling = nullptr;
    set_crowds_aside(item);
    m_items.removeEntity(item);
}

void MirrorRows::clear_children(EntityItem* item)
{
    m_filling = nullptr;
    set_crowds_aside(item);
    m_items.clearCategory(item);
    const auto cleared_kind = ItemKind(item->getType());
    if (auto* place = dynamic_cast<RecordItem*>(item)) {
        m_unfilled.append(place);
        return;
    }
    const Category cleared = item_kind_info(cleared_kind).category;
    for (int kind = 0; kind < int(ItemKind::FirstCategory); ++kind) {
        if (item_kind_info(ItemKind(kind)).category == cleared) {
            m_notes.note_kind(ItemKind(kind));
        }
    }
}

void MirrorRows::set_aside_if_crowded(RecordItemData& data)
{
    if (data.is_crowded() && !data.is_set_aside()) {
        data.set_places_aside();
        m_crowds.insert(&data);
    }
}

// Those of the records that have a place at or below `top`.
void MirrorRows::set_crowds_aside(EntityItem* top)
{
    std::vector<EntityItem*> items{top};
    while (!items.empty()) {
        EntityItem* item = items.back();
        items.pop_back();
        auto* data = static_cast<RecordItemData*>(item->getData());
        if (data) {
            set_aside_if_crowded(*data);
        }
        for (int row = 0; row < item->childCount(); ++row) {
            items.push_back(item->getChild(row));
        }
    }
}

void MirrorRows::put_crowds_back()
{
    const QSet<RecordItemData*> crowds = std::exchange(m_crowds, {});
    for (RecordItemData* data : crowds) {
        data->put_places_back();
    }
}

bool MirrorRows::is_mostly_dead(EntityItem* parent)
{
    const int count = parent->childCount();
    if (parent == m_not_mostly_dead || !clearing_pays(count, m_notes.dead_count())) {
        return false;
    }
    int dead = 0;
    for (int row = 0; row < count; ++row) {
        dead += child_at(parent, row)->data().record() ? 0 : 1;
    }
    const bool result = clearing_pays(count, dead);
    if (!result) {
        m_not_mostly_dead = parent;
    }
    return result;
}

void MirrorRows::show_counts()
{
    for (EntityCategory* category : m_categories) {
        const QString title = item_kind_info(ItemKind(category->getType())).plural;
        const int count = category->childCount();
        const QString display =
            count > 0 ? QCoreApplication::translate("MirrorRows", "%1 (%2)").arg(title).arg(count)
                      : title;
        if (category->setDisplay(display)) {
            m_items.updateEntity(category);
        }
    }
}
