#pragma once

#include <vector>

/// The ids that the mirror holds while they are compared with a kernel's list:
/// an ordered set from which ids are only taken out.
class IdSet
{
public:
    /// Ids in any order; repeated ones count once.
    explicit IdSet(std::vector<int> ids);

    /// Takes the id out; false if it is not in the set (any more). In constant
    /// time for a list that runs along the set's order, else in logarithmic time.
    bool take(int id);

    /// The ids that are left, ascending.
    std::vector<int> rest() const;

private:
    std::vector<int> m_ids;
    std::vector<bool> m_taken;
    std::size_t m_next = 0;
};
