#include <browser/editing/ShownTree.hpp>

#include <algorithm>
#include <treemodel/entity/EntityModel.hpp>
#include <unordered_map>

ShownTree::ShownTree(const EntityModel& items)
    : m_items(items)
{
}

bool ShownTree::contains(EntityItem* item) const
{
    bool is_hidden = false;
    return m_items.contains(item, is_hidden) && !is_hidden && m_rows.shows(item);
}

int ShownTree::row_count(EntityItem* parent) const
{
    if (const ShownRows::List* list = m_rows.find(parent)) {
        return static_cast<int>(list->size());
    }
    return parent ? parent->childCount() : m_items.rowCount();
}

EntityItem* ShownTree::child(EntityItem* parent, int row) const
{
    if (const ShownRows::List* list = m_rows.find(parent)) {
        const auto place = static_cast<std::size_t>(row);
        return place < list->size() ? (*list)[place].item : nullptr;
    }
    return ShownRows::child_of(m_items, parent, row);
}

int ShownTree::row_of(EntityItem* item) const
{
    constexpr int many = 64;
    if (const ShownRows::List* list = m_rows.find(ShownRows::parent_of(item))) {
        return m_rows.row_in(*list, item);
    }
    const EntityItem* const container = item->getParentEntity();
    // Who asks for many rows mostly does so in their order.
    for (const int row : {m_row_found, m_row_found + 1}) {
        if (container->getChild(row) == item) {
            return m_row_found = row;
        }
    }
    const int row = container->getChildIndex(item);
    if (row >= many) {
        m_row_found = row;
    }
    return row;
}

int ShownTree::source_row(EntityItem* item, int row) const
{
    const ShownRows::List* const list = m_rows.find(ShownRows::parent_of(item));
    if (!list) {
        return row;
    }
    const EntityItem* const container = item->getParentEntity();
    const int former = list->at(static_cast<std::size_t>(row)).source_row;
    return container->getChild(former) == item ? former : container->getChildIndex(item);
}

std::vector<ShownTree::Siblings> ShownTree::find(const Items& items) const
{
    std::unordered_map<EntityItem*, Items> wanted; // By parent
    for (EntityItem* const item : items) {
        wanted[item->getParentEntity()].push_back(item);
    }
    std::vector<Siblings> result;
    for (auto& [container, siblings] : wanted) {
        bool is_hidden = false;
        EntityItem* const some = siblings.front();
        EntityItem* const above = container ? ShownRows::parent_of(some) : nullptr;
        if (m_items.contains(some, is_hidden) && !is_hidden && (!above || m_rows.shows(above))) {
            std::sort(siblings.begin(), siblings.end());
            siblings.erase(std::unique(siblings.begin(), siblings.end()), siblings.end());
            result.push_back({above, shown_rows(above, siblings)});
        }
    }
    return result;
}

// `wanted` is sorted.
ShownTree::Rows ShownTree::shown_rows(EntityItem* parent, const Items& wanted) const
{
    constexpr std::size_t few = 4;
    Rows rows;
    rows.reserve(wanted.size());
    if (wanted.size() <= few) {
        for (EntityItem* const item : wanted) {
            if (m_rows.shows(item)) {
                rows.emplace_back(row_of(item), item);
            }
        }
        std::sort(rows.begin(), rows.end());
        return rows;
    }
    for (int row = 0; EntityItem* const item = child(parent, row); ++row) {
        if (std::binary_search(wanted.begin(), wanted.end(), item)) {
            rows.emplace_back(row, item);
        }
    }
    return rows;
}

std::pair<int, int> ShownTree::shown_part(EntityItem* parent, int first, int last) const
{
    const ShownRows::List* const list = m_rows.find(parent);
    if (!list) {
        return {0, -1};
    }
    Items wanted;
    for (int row = first; row <= last; ++row) {
        wanted.push_back(ShownRows::child_of(m_items, parent, row));
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
