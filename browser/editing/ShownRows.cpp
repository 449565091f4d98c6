#include <browser/editing/ShownRows.hpp>

#include <algorithm>
#include <treemodel/entity/EntityModel.hpp>
#include <unordered_set>

EntityItem* ShownRows::parent_of(const EntityItem* item)
{
    EntityItem* parent = item->getParentEntity();
    return parent && parent->getParentEntity() ? parent : nullptr;
}

EntityItem* ShownRows::child_of(const EntityModel& items, const EntityItem* parent, int row)
{
    return parent ? parent->getChild(row) : items.getEntity(items.index(row, 0));
}

const ShownRows::List* ShownRows::find(EntityItem* parent) const
{
    const auto found = m_lists.find(parent);
    return found == m_lists.end() ? nullptr : &found->second;
}

void ShownRows::set(EntityItem* parent, List list)
{
    m_lists[parent] = std::move(list);
}

bool ShownRows::shows(EntityItem* item) const
{
    if (shows_everything()) {
        return true;
    }
    EntityItem* parent = parent_of(item);
    while (parent && !find(parent)) {
        item = parent;
        parent = parent_of(item);
    }
    return row_in(*find(parent), item) >= 0;
}

bool ShownRows::shows_all_below(EntityItem* parent) const
{
    return shows_everything() || (parent && !find(parent) && shows(parent));
}

int ShownRows::row_in(const List& list, const EntityItem* item) const
{
    constexpr std::ptrdiff_t many = 64;
    const auto is_wanted = [item](const Row& row) { return row.item == item; };
    const auto near_end = list.begin() + std::min(m_last_row + 2, std::ssize(list));
    const auto near_begin = near_end - std::min(std::ptrdiff_t(3), near_end - list.begin());
    auto found = std::find_if(near_begin, near_end, is_wanted);
    if (found == near_end) {
        found = std::find_if(list.begin(), list.end(), is_wanted);
    }
    if (found == list.end()) {
        return -1;
    }
    const auto row = found - list.begin();
    if (row >= many) {
        m_last_row = row;
    }
    return static_cast<int>(row);
}

void ShownRows::erase(EntityItem* parent, int first, int last)
{
    List& list = m_lists.at(parent);
    const auto begin = list.begin() + first;
    const auto end = list.begin() + last + 1;
    std::for_each(begin, end, [this](const Row& row) { erase_lists_from(row.item); });
    list.erase(begin, end);
}

void ShownRows::erase_lists_from(EntityItem* item)
{
    const auto node = m_lists.extract(item);
    if (!node.empty()) {
        for (const Row& row : node.mapped()) {
            erase_lists_from(row.item);
        }
    }
}

void ShownRows::reorder(EntityItem* parent)
{
    List& list = m_lists.at(parent);
    if (list.empty()) {
        return;
    }
    std::unordered_set<const EntityItem*> listed;
    listed.reserve(list.size());
    for (const Row& row : list) {
        listed.insert(row.item);
    }
    const EntityItem* container = list.front().item->getParentEntity();
    list.clear();
    for (int row = 0; row < container->childCount(); ++row) {
        EntityItem* child = container->getChild(row);
        if (listed.contains(child)) {
            list.push_back({child, row});
        }
    }
}

void ShownRows::reorder_all()
{
    for (const auto& [parent, list] : m_lists) {
        reorder(parent);
    }
}
