#pragma once

#include <array>
#include <embedded/ElementCounts.hpp>
#include <embedded/EntityKind.hpp>
#include <embedded/EntityRow.hpp>
#include <embedded/IdTable.hpp>
#include <embedded/ModelData.hpp>
#include <vector>

/// One group: for each kind from the vertex to the group itself the ids of the direct members,
/// ascending, and how many elements of each kind it holds.
struct GroupRow : EntityRow
{
    std::array<std::vector<int>, 6> members;
    ElementCounts elements;

    std::vector<int>& of(EntityKind kind) { return members[static_cast<std::size_t>(kind)]; }
    const std::vector<int>& of(EntityKind kind) const
    {
        return members[static_cast<std::size_t>(kind)];
    }
};

/// The groups of a kernel. Trusts its caller that ids given to it are in use.
class GroupStore
{
public:
    const IdTable<GroupRow>& rows() const { return m_rows; }
    GroupRow& row(int id) { return *m_rows.find(id); }
    const GroupRow& row(int id) const { return *m_rows.find(id); }

    GroupRow& insert(int id) { return m_rows.insert(id); }

    /// Adds the groups of a model that has passed check_model(); see Topology::append().
    void append(const ModelData& model, const std::array<int, 6>& offsets);

    /// Whether `inner` is the group `outer` or a member of it at any depth.
    bool holds_group(int outer, int inner) const;

    /// The ids, all those of one nested in another before that one; ascending beyond that.
    std::vector<int> innermost_first(const std::vector<int>& ids) const;

    /// The groups, ascending, that have the entity among their direct members.
    std::vector<int> holders(EntityKind kind, int id) const;

    /// Both give back whether that changed anything.
    bool add_members(int id, EntityKind kind, std::vector<int> members);
    bool remove_members(int id, EntityKind kind, std::vector<int> members);

    /// Strikes entities that are gone, ids ascending, from all groups. Gives back the groups
    /// changed.
    std::vector<int> forget(EntityKind kind, const std::vector<int>& ids);

    /// An entity of any kind, groups included, goes by a new id in all groups.
    void renumber_member(EntityKind kind, int id, int new_id);

    void erase(int id) { m_rows.erase(id); }
    void renumber(int id, int new_id) { m_rows.renumber(id, new_id); }

private:
    IdTable<GroupRow> m_rows;
};
