#include <treemodel/entity/EntityTypeRange.hpp>

#include <algorithm>

namespace {

int end_of(const TypeRange& range)
{
    return range.start + range.count;
}

bool holds(const TypeRange& range, int type)
{
    return range.start <= type && type < end_of(range);
}

} // namespace

void EntityTypeRange::add_range(int count)
{
    m_ranges.push_back({next_offset(), count});
}

std::size_t EntityTypeRange::get_number_of_ranges() const
{
    return m_ranges.size();
}

int EntityTypeRange::next_offset() const
{
    return m_ranges.empty() ? m_base_offset : end_of(m_ranges.back());
}

int EntityTypeRange::next_offset(std::size_t i) const
{
    return i < m_ranges.size() ? end_of(m_ranges[i]) : next_offset();
}

int EntityTypeRange::offset(std::size_t i) const
{
    return i < m_ranges.size() ? m_ranges[i].start : m_base_offset;
}

bool EntityTypeRange::in_range(int type, std::size_t i) const
{
    return i < m_ranges.size() && holds(m_ranges[i], type);
}

bool EntityTypeRange::get_range(int type, std::size_t& i) const
{
    const auto found = std::find_if(m_ranges.begin(), m_ranges.end(),
        [type](const TypeRange& range) { return holds(range, type); });
    i = static_cast<std::size_t>(found - m_ranges.begin());
    return found != m_ranges.end();
}

void EntityTypeRange::offset_ranges(int delta)
{
    m_base_offset += delta;
    for (TypeRange& range : m_ranges) {
        range.start += delta;
    }
}
