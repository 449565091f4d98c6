#pragma once

#include <array>
#include <browser/items/ItemKind.hpp>
#include <QString>
#include <vector>

/// How many records of each kind there are in a list.
class SelectionCounts
{
public:
    SelectionCounts() = default;
    explicit SelectionCounts(const std::vector<TreeData*>& records);

    int total() const { return m_total; }

    /// Those of the kinds from `first` to `last`, both included.
    int between(ItemKind first, ItemKind last) const;

    /// "3 surfaces, 1 group"; empty for an empty list.
    QString text() const;

private:
    std::array<int, item_kind_count> m_counts{};
    int m_total = 0;
};
