// What MirrorItems does in a slice: it reads in the mirror what was noted, and brings the rows
// in line.

#include <browser/items/MirrorItems.hpp>

#include <algorithm>
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

void MirrorItems::clear_shown_category()
{
    EntityItem* category = m_shown_categories.back();
    m_shown_categories.pop_back();
    clear_children(category);
}

void MirrorItems::queue_places()
{
    for (RecordItemData* data : std::exchange(m_changed_children, {})) {
        data->m_children_changed = false;
        for (EntityItem* place : data->places()) {
            m_unfilled.append(static_cast<RecordItem*>(place));
        }
    }
    m_filling = nullptr;
}

void MirrorItems::read_changes(QDeadlineTimer deadline)
{
    put_crowds_back();
    QHash<EntityItem*, std::vector<EntityItem*>> repainted; // By parent
    do {
        RecordItemData* data = m_changed.back();
        m_changed.pop_back();
        const quint8 changes = std::exchange(data->m_changes, RecordItemData::Nothing);
        if (!data->record()) {
            continue;
        }
        const bool key_changed = (changes & RecordItemData::Values) && data->read_keys();
        const bool visibility_changed =
            (changes & RecordItemData::Values) && data->read_visibility();
        if (key_changed) {
            data->updateModel(this);
        } else if (visibility_changed || (changes & RecordItemData::Look)) {
            data->iterateItems(
                [&](EntityItem* item) { repainted[item->getParentEntity()].push_back(item); });
        }
    } while (!m_changed.empty() && !deadline.hasExpired());
    for (auto parent = repainted.cbegin(); parent != repainted.cend(); ++parent) {
        repaint(parent.key(), parent.value());
    }
}

/// EntityModel::updateEntity() finds each row by a search. None of these has to move, so one
/// signal does for many.
void MirrorItems::repaint(EntityItem* parent, const std::vector<EntityItem*>& children)
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

void MirrorItems::bury_dead(QDeadlineTimer deadline)
{
    // Receivers of the row signals may have more to read noted.
    while (!m_dead.empty() && m_changed.empty() && m_changed_children.empty()) {
        RecordItemData* data = m_dead.front();
        if (data->is_crowded() && !data->is_set_aside()) {
            data->set_places_aside();
            m_crowds.insert(data);
        }
        while (EntityItem* place = data->last_place()) {
            EntityItem* parent = place->getParentEntity();
            is_mostly_dead(parent) ? clear_children(parent) : remove(place);
            if (deadline.hasExpired()) {
                return;
            }
        }
        if (m_changed.empty() && m_changed_children.empty()) {
            m_dead.pop_front();
            m_crowds.remove(data);
            delete data;
        }
        if (deadline.hasExpired()) {
            return;
        }
    }
    m_not_mostly_dead = nullptr;
}

void MirrorItems::scan_kind()
{
    const ItemKind kind = *m_scans.cbegin();
    m_scans.erase(m_scans.cbegin());
    for (TreeData* record : m_records.all(kind)) {
        if (m_records.home(record)) {
            note_record(record);
        }
    }
}

void MirrorItems::place_records(QDeadlineTimer deadline)
{
    while (!m_placing.empty()) {
        TreeData* record = m_placing.front();
        m_placing.pop_front();
        // One that has died since may be here, but not there.
        if (m_unplaced.remove(record)) {
            place(record);
        }
        if (deadline.hasExpired()) {
            return;
        }
    }
    Q_ASSERT(m_unplaced.isEmpty());
}

void MirrorItems::fill_first(QDeadlineTimer deadline)
{
    RecordItem* item = m_unfilled.first();
    if (item != m_filling) {
        const quint64 deaths = m_deaths;
        find_missing_children(item);
        if (deaths != m_deaths) {
            return;
        }
        m_filling = item;
    }
    while (!m_missing.empty()) {
        TreeData* record = m_missing.back().record;
        m_missing.pop_back();
        add_tree(record, item);
        if (m_filling != item || deadline.hasExpired()) {
            return;
        }
    }
    m_filling = nullptr;
    m_unfilled.remove(item);
}

RecordItemData& MirrorItems::data_of(TreeData* record)
{
    RecordItemData*& data = m_datas[record];
    if (!data) {
        data = new RecordItemData(record);
        follow_record(*data);
    }
    return *data;
}

void MirrorItems::place(TreeData* record)
{
    const std::optional<Category> home = m_records.home(record);
    EntityItem* wanted = home ? category(*home) : nullptr;
    const RecordItemData* known = data(record);
    RecordItem* place = known ? known->home() : nullptr;
    if (place && place->getParentEntity() == wanted) {
        return;
    }
    const quint64 deaths = m_deaths;
    if (place) {
        remove(place);
    }
    if (wanted && deaths == m_deaths) {
        add_tree(record, wanted);
    }
}

// Grows the tree out of sight, where nobody is notified of each node, and shows it as one row.
// What would make it too large is left to the queue.
void MirrorItems::add_tree(TreeData* record, EntityItem* target)
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

RecordItem* MirrorItems::add_node(TreeData* record, EntityItem* parent, EntityItem* target)
{
    RecordItemData& data = data_of(record);
    EntityItem* shown_parent = parent == m_workbench ? target : parent;
    auto* node = new RecordItem(data, m_unfilled, opens_below(data, shown_parent, target));
    if (!parent->getList()) {
        parent->setList(new SortedTypeIdList);
    }
    m_items.addEntity(parent, node);
    return node;
}

bool MirrorItems::opens_below(
    const RecordItemData& data, EntityItem* parent, EntityItem* target) const
{
    const auto* place = dynamic_cast<RecordItem*>(parent);
    if (!place) {
        return true;
    }
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

// Removes the rows that the item is not to have, and puts those that it lacks in m_missing.
void MirrorItems::find_missing_children(RecordItem* item)
{
    m_missing = m_records.children(item->data().record(), item->opens());
    ++m_stamp;
    for (const Entry& entry : m_missing) {
        if (RecordItemData* known = data(entry.record)) {
            known->m_stamp = m_stamp;
        }
    }
    std::vector<EntityItem*> superfluous;
    for (int row = 0; row < item->childCount(); ++row) {
        RecordItem* child = child_at(item, row);
        if (child->data().m_stamp != m_stamp) {
            superfluous.push_back(child);
        }
    }
    if (clearing_pays(item->childCount(), int(superfluous.size()))) {
        clear_children(item);
    } else {
        std::for_each(
            superfluous.begin(), superfluous.end(), [this](EntityItem* child) { remove(child); });
    }
    for (int row = 0; row < item->childCount(); ++row) {
        child_at(item, row)->data().m_stamp = 0;
    }
    // What is there has lost its stamp, and what is not has kept it or is unknown.
    std::erase_if(m_missing, [this](const Entry& entry) {
        const RecordItemData* known = data(entry.record);
        return known && known->m_stamp != m_stamp;
    });
    std::reverse(m_missing.begin(), m_missing.end());
}

void MirrorItems::remove(EntityItem* item)
{
    m_filling = nullptr;
    set_crowds_aside(item);
    m_items.removeEntity(item);
}

void MirrorItems::clear_children(EntityItem* item)
{
    m_filling = nullptr;
    set_crowds_aside(item);
    m_items.clearCategory(item);
    if (auto* place = dynamic_cast<RecordItem*>(item)) {
        m_unfilled.append(place);
        return;
    }
    const Category cleared = item_kind_info(ItemKind(item->getType())).category;
    for (int kind = 0; kind < int(ItemKind::FirstCategory); ++kind) {
        if (item_kind_info(ItemKind(kind)).category == cleared) {
            m_scans.insert(ItemKind(kind));
        }
    }
}

/// Of the records that have a place at or below `top`.
void MirrorItems::set_crowds_aside(EntityItem* top)
{
    std::vector<EntityItem*> items{top};
    while (!items.empty()) {
        EntityItem* item = items.back();
        items.pop_back();
        auto* data = static_cast<RecordItemData*>(item->getData());
        if (data && data->is_crowded() && !data->is_set_aside()) {
            data->set_places_aside();
            m_crowds.insert(data);
        }
        for (int row = 0; row < item->childCount(); ++row) {
            items.push_back(item->getChild(row));
        }
    }
}

void MirrorItems::put_crowds_back()
{
    for (RecordItemData* data : std::exchange(m_crowds, {})) {
        data->put_places_back();
    }
}

bool MirrorItems::is_mostly_dead(EntityItem* parent)
{
    const int count = parent->childCount();
    if (parent == m_not_mostly_dead || !clearing_pays(count, int(m_dead.size()))) {
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
