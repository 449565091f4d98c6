#pragma once

#include <cstddef>
#include <unordered_map>
#include <vector>

class EntityItem;
class EntityModel;

/// What a filter shows of an item tree: below a parent that has a list here the rows of the
/// list, below any other one that is shown all rows. Without any list, the whole tree.
///
/// Null stands for the root, which has a list as soon as any parent has.
class ShownRows
{
public:
    struct Row
    {
        EntityItem* item;
        /// Where the item stood when the list was made: a place to look first.
        int source_row;

        bool operator==(const Row& other) const { return item == other.item; }
    };
    using List = std::vector<Row>; // In the order of the item tree

    /// The parent of an item of the tree, null for a top-level one.
    static EntityItem* parent_of(const EntityItem* item);

    /// An item by its parent, null for the root, and its row among all items.
    static EntityItem* child_of(const EntityModel& items, const EntityItem* parent, int row);

    /// Null for a parent of which all rows are shown, or none.
    const List* find(EntityItem* parent) const;
    void set(EntityItem* parent, List list);

    bool shows_everything() const { return m_lists.empty(); }
    bool shows(EntityItem* item) const;
    bool shows_all_below(EntityItem* parent) const;

    /// The row of an item in the list of its parent, -1 if it is not in it. One of many is
    /// found at once next to the one that was asked for before.
    int row_in(const List& list, const EntityItem* item) const;

    /// Takes rows out of the list of their parent, with all lists below them.
    void erase(EntityItem* parent, int first, int last);

    /// Brings the list of a parent back to the order of the tree.
    void reorder(EntityItem* parent);
    void reorder_all();

    /// Calls `visit` for each parent that has a list, but for the root.
    template <typename Visit>
    void visit_parents(Visit visit) const
    {
        for (const auto& [parent, list] : m_lists) {
            if (parent) {
                visit(parent);
            }
        }
    }

    bool operator==(const ShownRows& other) const { return m_lists == other.m_lists; }

private:
    void erase_lists_from(EntityItem* item);

    std::unordered_map<EntityItem*, List> m_lists;
    mutable std::ptrdiff_t m_last_row = 0; // In whatever list, found by row_in()
};
