#include <treemodel/kernel/IdSet.hpp>

#include <algorithm>
#include <utility>

IdSet::IdSet(const std::vector<int>& ids)
{
    m_entries.reserve(qsizetype(ids.size()));
    for (const int id : ids) {
        m_entries.append({id});
    }
    sort();
}

bool IdSet::take(int id)
{
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
    return !std::exchange(m_entries[place].is_taken, true);
}

std::vector<int> IdSet::rest() const
{
    std::vector<int> result;
    for (const Entry& entry : m_entries) {
        if (!entry.is_taken) {
            result.push_back(entry.id);
        }
    }
    return result;
}

void IdSet::sort()
{
    const auto by_id = [](const Entry& left, const Entry& right) { return left.id < right.id; };
    if (!std::is_sorted(m_entries.begin(), m_entries.end(), by_id)) {
        std::sort(m_entries.begin(), m_entries.end(), by_id);
    }
    const auto same_id = [](const Entry& left, const Entry& right) { return left.id == right.id; };
    m_entries.erase(std::unique(m_entries.begin(), m_entries.end(), same_id), m_entries.end());
}
