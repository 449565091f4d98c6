#pragma once

#include <embedded/GroupStore.hpp>
#include <embedded/Topology.hpp>

/// All that one kernel holds.
struct KernelState
{
    Topology geometry;
    GroupStore groups;

    /// Null if there is none.
    const EntityRow* find(EntityKind kind, int id) const;
    EntityRow* find(EntityKind kind, int id);

    bool contains(EntityKind kind, int id) const { return find(kind, id) != nullptr; }

    /// The highest id in use, 0 if there is none.
    int highest_id(EntityKind kind) const;

    /// Ascending.
    std::vector<int> ids(EntityKind kind) const;

    /// Adds a model that has passed check_model(). Its entity `i` gets the id that is `i` above the
    /// highest one of its kind. Gives back those highest ids, indexed by EntityKind.
    std::array<int, 6> append(const ModelData& model);

    void renumber(EntityKind kind, int id, int new_id);

    /// Takes an entity out. Gives back all the geometry that went, see Topology::erase(). Touches
    /// also the groups that lost a member.
    Topology::IdsByKind erase(EntityKind kind, int id, EntitySet& touched);

    /// The parents of an entity and the groups that hold it. Empty for an unknown one.
    EntitySet owners(EntityKind kind, int id) const;

    /// The state that the functions of the boundary answer for, null if there is none.
    static const KernelState* active();
    static void set_active(const KernelState* state);
};
