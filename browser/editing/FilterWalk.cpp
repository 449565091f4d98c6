#include <browser/editing/FilterWalk.hpp>

#include <treemodel/entity/EntityModel.hpp>

FilterWalk::FilterWalk(const EntityModel& items, const QString& text)
    : m_items(items)
    , m_matcher(text, Qt::CaseInsensitive)
    , m_levels{{nullptr}}
{
}

bool FilterWalk::run(std::chrono::nanoseconds time)
{
    using Clock = std::chrono::steady_clock;
    constexpr int steps_between_looks_at_the_clock = 256;

    const Clock::time_point end = Clock::now() + time;
    do {
        for (int i = 0; i < steps_between_looks_at_the_clock && !m_levels.empty(); ++i) {
            step();
        }
    } while (!m_levels.empty() && Clock::now() < end);
    return m_levels.empty();
}

void FilterWalk::rows_inserted(const EntityItem* parent, int first, int count)
{
    for (Level& level : m_levels) {
        if (level.parent == parent && first < level.next_row) {
            level.next_row += count;
        }
    }
}

void FilterWalk::step()
{
    Level& level = m_levels.back();
    if (EntityItem* item = ShownRows::child_of(m_items, level.parent, level.next_row)) {
        look_at(item, level.next_row++);
    } else {
        leave_level();
    }
}

void FilterWalk::look_at(EntityItem* item, int row)
{
    Level& level = m_levels.back();
    const bool is_heading = item->getCategory() >= 0;
    const bool is_hit = !is_heading && m_matcher.indexIn(item->getDisplayName()) >= 0;
    m_rows += is_heading ? 0 : 1;
    m_hits += is_hit ? 1 : 0;
    if (is_hit && !level.is_below_hit) {
        level.list.push_back({item, row});
    }
    if (item->childCount() > 0) {
        m_levels.push_back({item, 0, is_hit || level.is_below_hit});
    }
}

void FilterWalk::leave_level()
{
    Level left = std::move(m_levels.back());
    m_levels.pop_back();
    if (m_levels.empty()) {
        m_shown.set(nullptr, std::move(left.list));
    } else if (!left.list.empty()) {
        m_levels.back().list.push_back({left.parent, m_levels.back().next_row - 1});
        m_shown.set(left.parent, std::move(left.list));
    }
}
