#pragma once

#include <QVarLengthArray>
#include <treemodel/prefetch.hpp>
#include <vector>

/// The ids that the mirror holds while they are compared with a kernel's list: an
/// ordered set that is filled first and from which ids are then only taken out.
class IdSet
{
public:
    IdSet() = default;

    /// The ids of the records.
    template <typename Record>
    explicit IdSet(const std::vector<Record*>& records);

    /// Any ids; a repeated one counts once.
    explicit IdSet(const std::vector<int>& ids);

    /// In any order; a repeated id counts once.
    void add(int id);

    /// Takes the id out; false if it is not in the set (any more). In constant
    /// time for a list that runs along the set's order, else in logarithmic time.
    bool take(int id);

    /// The ids that are left, ascending.
    std::vector<int> rest();

private:
    struct Entry
    {
        int id;
        bool is_taken = false;
    };

    void sort();

    QVarLengthArray<Entry, 32> m_entries;
    bool m_is_sorted = true;
    qsizetype m_next = 0;
    qsizetype m_taken = 0;
};

template <typename Record>
IdSet::IdSet(const std::vector<Record*>& records)
{
    m_entries.reserve(qsizetype(records.size()));
    for_each_prefetched(records, [this](Record* record) { add(record->id()); });
}

inline void IdSet::add(int id)
{
    m_is_sorted = m_is_sorted && (m_entries.isEmpty() || m_entries.last().id < id);
    m_entries.append({id});
}
