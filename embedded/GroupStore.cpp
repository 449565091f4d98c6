#include <embedded/GroupStore.hpp>

#include <algorithm>
#include <iterator>
#include <set>

namespace {

// Both ascending. Gives back whether any was a member.
bool strike(std::vector<int>& members, const std::vector<int>& ids)
{
    return std::erase_if(members, [&ids](int member) {
        return std::binary_search(ids.begin(), ids.end(), member);
    }) > 0;
}

} // namespace

void GroupStore::append(const ModelData& model, const std::array<int, 6>& offsets)
{
    using Group = ModelData::Group;
    // Indexed by EntityKind.
    static constexpr std::array member_lists{&Group::vertices, &Group::curves, &Group::surfaces,
        &Group::volumes, &Group::bodies, &Group::groups};

    const auto rows = m_rows.insert_range(offsets.back() + 1, model.groups.size());
    for (std::size_t i = 0; i < model.groups.size(); ++i) {
        rows[i].name = model.groups[i].name;
        rows[i].elements = model.groups[i].elements;
        for (std::size_t kind = 0; kind < member_lists.size(); ++kind) {
            std::vector<int> members = model.groups[i].*member_lists[kind];
            for (int& member : members) {
                member += offsets[kind];
            }
            std::sort(members.begin(), members.end());
            rows[i].members[kind] = std::move(members);
        }
    }
}

bool GroupStore::holds_group(int outer, int inner) const
{
    std::set<int> seen{outer};
    std::vector<int> open{outer};
    while (!open.empty()) {
        const int id = open.back();
        if (id == inner) {
            return true;
        }
        open.pop_back();
        for (const int child : row(id).of(EntityKind::GROUP)) {
            if (seen.insert(child).second) {
                open.push_back(child);
            }
        }
    }
    return false;
}

std::vector<int> GroupStore::innermost_first(const std::vector<int>& ids) const
{
    const std::set<int> wanted(ids.begin(), ids.end());
    std::set<int> seen;
    std::vector<int> ordered;

    struct Step
    {
        int id;
        std::size_t next_child;
    };
    for (const int start : wanted) {
        std::vector<Step> path;
        const auto enter = [&](int id) {
            if (wanted.contains(id) && seen.insert(id).second) {
                path.push_back({id, 0});
            }
        };
        enter(start);
        while (!path.empty()) {
            const std::vector<int>& children = row(path.back().id).of(EntityKind::GROUP);
            if (path.back().next_child < children.size()) {
                enter(children[path.back().next_child++]);
            } else {
                ordered.push_back(path.back().id);
                path.pop_back();
            }
        }
    }
    return ordered;
}

std::vector<int> GroupStore::holders(EntityKind kind, int id) const
{
    std::vector<int> holders = m_rows.ids();
    std::erase_if(holders, [&](int group) {
        const std::vector<int>& members = row(group).of(kind);
        return !std::binary_search(members.begin(), members.end(), id);
    });
    return holders;
}

bool GroupStore::add_members(int id, EntityKind kind, std::vector<int> members)
{
    std::vector<int>& present = row(id).of(kind);
    std::sort(members.begin(), members.end());
    std::vector<int> all;
    all.reserve(present.size() + members.size());
    std::set_union(
        present.begin(), present.end(), members.begin(), members.end(), std::back_inserter(all));
    const bool changed = all.size() != present.size();
    present = std::move(all);
    return changed;
}

bool GroupStore::remove_members(int id, EntityKind kind, std::vector<int> members)
{
    std::sort(members.begin(), members.end());
    return strike(row(id).of(kind), members);
}

std::vector<int> GroupStore::forget(EntityKind kind, const std::vector<int>& ids)
{
    std::vector<int> changed = m_rows.ids();
    std::erase_if(changed, [&](int group) { return !strike(row(group).of(kind), ids); });
    return changed;
}

void GroupStore::renumber_member(EntityKind kind, int id, int new_id)
{
    for (const int group : holders(kind, id)) {
        remove_members(group, kind, {id});
        add_members(group, kind, {new_id});
    }
}
