#pragma once

#include <browser/editing/ShownRows.hpp>
#include <chrono>
#include <QStringMatcher>
#include <vector>

class EntityItem;
class EntityModel;

/// One search through the items of a model, made in as many slices as it takes: finds the items
/// whose display name contains a text, in whatever case, and lists the rows that lead to them.
///
/// Headings, which are items with a category of their own, are never hits themselves. Between
/// two slices rows may be inserted, of which the walk must hear, and values may change;
/// after anything else a walk must not be resumed, since it holds items.
class FilterWalk
{
public:
    /// Keeps the reference.
    FilterWalk(const EntityModel& items, const QString& text);

    /// Goes on for about so long. True at the end.
    bool run(std::chrono::nanoseconds time);

    void rows_inserted(const EntityItem* parent, int first, int count);

    /// The items found, and all items but headings, so far.
    int hits() const { return m_hits; }
    int rows() const { return m_rows; }

    /// Complete at the end.
    ShownRows& shown() { return m_shown; }

private:
    /// A parent on the way from the root to the present item.
    struct Level
    {
        EntityItem* parent; // Null for the root
        int next_row = 0;
        bool is_below_hit = false;
        ShownRows::List list = {};
    };

    void step();
    void look_at(EntityItem* item, int row);
    void leave_level();

    const EntityModel& m_items;
    QStringMatcher m_matcher;
    std::vector<Level> m_levels;
    ShownRows m_shown;
    int m_hits = 0;
    int m_rows = 0;
};
