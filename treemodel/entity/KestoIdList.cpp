#include <treemodel/entity/KestoIdList.hpp>

#include <algorithm>
#include <utility>

KestoIdList::KestoIdList(const std::vector<int>& new_ids)
    : ids(new_ids)
{
}

KestoIdList::KestoIdList(std::vector<int>&& new_ids)
    : ids(std::move(new_ids))
{
}

void KestoIdList::add_ids(const std::vector<int>& new_ids)
{
    ids.insert(ids.end(), new_ids.begin(), new_ids.end());
}

void KestoIdList::add_ids(const std::vector<std::vector<int>>& new_ids)
{
    for (const std::vector<int>& inner : new_ids) {
        add_ids(inner);
    }
}

void KestoIdList::make_unique()
{
    std::sort(ids.begin(), ids.end());
    ids.erase(std::unique(ids.begin(), ids.end()), ids.end());
}
