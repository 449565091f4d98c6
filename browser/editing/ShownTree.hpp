#pragma once

#include <browser/editing/ShownRows.hpp>
#include <utility>
#include <vector>

class EntityModel;

/// The shown part of the items of a model: which item is in which row, and back. Null stands for
/// the root, which is above the top-level items.
class ShownTree
{
public:
    using Items = std::vector<EntityItem*>;
    using Rows = std::vector<std::pair<int, EntityItem*>>; // From the top down

    /// Some children of one parent.
    struct Siblings
    {
        EntityItem* parent;
        Rows rows;
    };

    /// Shows all items. Keeps the reference.
    explicit ShownTree(const EntityModel& items);

    /// What is shown of the items.
    ShownRows& rows() { return m_rows; }
    const ShownRows& rows() const { return m_rows; }

    /// True for a shown item; any other pointer is not looked at.
    bool contains(EntityItem* item) const;

    int row_count(EntityItem* parent) const;

    /// Null for a row that is not there.
    EntityItem* child(EntityItem* parent, int row) const;

    /// Of a shown item.
    int row_of(EntityItem* item) const;

    /// Among the items, of the shown item in the row.
    int source_row(EntityItem* item, int row) const;

    /// The shown ones of the items by their parents and rows, found by one look at the rows of a
    /// parent of which there are many.
    std::vector<Siblings> find(const Items& items) const;

    /// The first and the last shown row of those rows of the items; the first is behind the last
    /// if none is shown by a list.
    std::pair<int, int> shown_part(EntityItem* parent, int first, int last) const;

private:
    Rows shown_rows(EntityItem* parent, const Items& wanted) const;

    const EntityModel& m_items;
    ShownRows m_rows;
    mutable int m_row_found = 0; // A row to look at first, of a parent of many
};
