#pragma once

#include <QVarLengthArray>
#include <vector>

/// The ids that the mirror holds while they are compared with a kernel's list:
/// an ordered set from which ids are only taken out.
class IdSet
{
public:
    /// The ids of the records, in any order; a repeated one counts once.
    template <typename Record>
    explicit IdSet(const std::vector<Record*>& records);

    /// Any ids; a repeated one counts once.
    explicit IdSet(const std::vector<int>& ids);

    /// Takes the id out; false if it is not in the set (any more). In constant
    /// time for a list that runs along the set's order, else in logarithmic time.
    bool take(int id);

    /// The ids that are left, ascending.
    std::vector<int> rest() const;

private:
    struct Entry
    {
        int id;
        bool is_taken = false;
    };

    void sort();

    QVarLengthArray<Entry, 32> m_entries;
    qsizetype m_next = 0;
};

template <typename Record>
IdSet::IdSet(const std::vector<Record*>& records)
{
    m_entries.reserve(qsizetype(records.size()));
    for (Record* record : records) {
        m_entries.append({record->id()});
    }
    sort();
}
