#pragma once

#include <treemodel/treemodel_export.hpp>
#include <vector>

/// A list of ids in order of addition.
class TREEMODEL_EXPORT KestoIdList
{
public:
    /// An empty list, or the ids in the order given.
    KestoIdList() = default;
    KestoIdList(const std::vector<int>& ids);
    KestoIdList(std::vector<int>&& ids);

    /// Append, duplicates included.
    void add_ids(const std::vector<int>& new_ids);
    void add_ids(const std::vector<std::vector<int>>& new_ids);

    /// Sorts the ids ascending and keeps each once.
    void make_unique();

    /// The list itself.
    std::vector<int> ids;
};
