#pragma once

#include <treemodel/models/PointerSet.hpp>
#include <unordered_map>
#include <vector>

/// One side of the links between records: for each record the ordered set of those
/// that it is linked to. Owns nothing and never looks into a record.
template <typename From, typename To>
class LinkMap
{
public:
    /// False if the link is there.
    bool insert(From* from, To* to) { return m_sets[from].insert(to); }

    /// False if there is no such link.
    bool erase(From* from, To* to)
    {
        const auto entry = m_sets.find(from);
        return entry != m_sets.end() && entry->second.erase(to);
    }

    /// Forgets all links of a record.
    void erase(From* from) { m_sets.erase(from); }

    void clear() { m_sets.clear(); }

    /// What a record is linked to, in the order of addresses.
    std::vector<To*> find(From* from) const
    {
        const auto entry = m_sets.find(from);
        return entry == m_sets.end() ? std::vector<To*>() : entry->second.to_vector();
    }

private:
    std::unordered_map<From*, PointerSet<To>> m_sets;
};
