#include <treemodel/kernel/IdSet.hpp>

#include <algorithm>
#include <treemodel/kernel/radix_sort.hpp>

IdSet::IdSet(const std::vector<int>& ids)
{
    m_entries.reserve(qsizetype(ids.size()));
    for (const int id : ids) {
        add(id);
    }
}

bool IdSet::take(int id)
{
    sort();
    qsizetype place = m_next;
    if (place >= m_entries.size() || m_entries[place].id != id) {
        const auto found = std::lower_bound(m_entries.begin(), m_entries.end(), id,
            [](const Entry& entry, int sought) { return entry.id < sought; });
        if (found == m_entries.end() || found->id != id) {
            return false;
        }
        place = found - m_entries.begin();
    }
    m_next = place + 1;
    if (m_entries[place].is_taken) {
        return false;
    }
    m_entries[place].is_taken = true;
    ++m_taken;
    return true;
}

std::vector<int> IdSet::rest()
{
    sort();
    std::vector<int> result;
    if (m_taken == m_entries.size()) {
        return result;
    }
    for (const Entry& entry : m_entries) {
        if (!entry.is_taken) {
            result.push_back(entry.id);
        }
    }
    return result;
}

void IdSet::sort()
{
    if (m_is_sorted) {
        return;
    }
    m_is_sorted = true;
    // Keys without a sign, so that ids below 0 come first.
    radix_sort(m_entries, [](const Entry& entry) { return unsigned(entry.id) ^ (1U << 31); });
    const auto same_id = [](const Entry& left, const Entry& right) { return left.id == right.id; };
    m_entries.erase(std::unique(m_entries.begin(), m_entries.end(), same_id), m_entries.end());
}
