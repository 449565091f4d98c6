#pragma once

#include <treemodel/models/ChunkedMap.hpp>
#include <treemodel/models/PointerSet.hpp>
#include <vector>

/// One side of the links between records: for each record the ordered set of those
/// that it is linked to. Owns nothing and never looks into a record.
template <typename From, typename To>
class LinkMap
{
public:
    /// False if the link is there.
    bool insert(From* from, To* to) { return m_sets.insert(from).first->insert(to); }

    /// False if there is no such link.
    bool erase(From* from, To* to)
    {
        PointerSet<To>* set = m_sets.find(from);
        return set && set->erase(to);
    }

    /// Forgets a record whose last link is gone. False if it has links, or is not known.
    bool forget_unlinked(From* from)
    {
        const PointerSet<To>* set = m_sets.find(from);
        const bool is_forgotten = set && set->is_empty();
        if (is_forgotten) {
            m_sets.erase(from);
        }
        return is_forgotten;
    }

    /// Forgets all links of a record.
    void erase(From* from) { m_sets.erase(from); }

    void clear() { m_sets.clear(); }

    bool contains(From* from) const { return m_sets.find(from) != nullptr; }

    /// All records that are known here.
    std::vector<From*> records() const { return m_sets.keys(); }

    /// What a record is linked to, in the order of addresses.
    std::vector<To*> find(From* from) const
    {
        const PointerSet<To>* set = m_sets.find(from);
        return set ? set->to_vector() : std::vector<To*>();
    }

    /// Calls `visit(to)` for each, in the same order.
    template <typename Visit>
    void visit(From* from, Visit visit) const
    {
        if (const PointerSet<To>* set = m_sets.find(from)) {
            set->for_each(visit);
        }
    }

private:
    ChunkedMap<From*, PointerSet<To>> m_sets;
};
