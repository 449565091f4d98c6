#include <treemodel/kernel/IdSet.hpp>

#include <algorithm>
#include <utility>

IdSet::IdSet(std::vector<int> ids)
    : m_ids(std::move(ids))
{
    std::sort(m_ids.begin(), m_ids.end());
    m_ids.erase(std::unique(m_ids.begin(), m_ids.end()), m_ids.end());
    m_taken.resize(m_ids.size());
}

bool IdSet::take(int id)
{
    std::size_t place = m_next;
    if (place >= m_ids.size() || m_ids[place] != id) {
        place = std::lower_bound(m_ids.begin(), m_ids.end(), id) - m_ids.begin();
        if (place == m_ids.size() || m_ids[place] != id) {
            return false;
        }
    }
    m_next = place + 1;
    if (m_taken[place]) {
        return false;
    }
    m_taken[place] = true;
    return true;
}

std::vector<int> IdSet::rest() const
{
    std::vector<int> result;
    for (std::size_t i = 0; i < m_ids.size(); ++i) {
        if (!m_taken[i]) {
            result.push_back(m_ids[i]);
        }
    }
    return result;
}
