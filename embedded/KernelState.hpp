#pragma once

#include <embedded/GroupStore.hpp>
#include <embedded/SetupStore.hpp>
#include <embedded/Topology.hpp>
#include <optional>
#include <vector>

/// All that one kernel holds.
struct KernelState
{
    Topology geometry;
    GroupStore groups;
    SetupStore setup;
    /// In the order of selecting.
    std::vector<Entity> selection;

    /// Null if there is none.
    const EntityRow* find(EntityKind kind, int id) const;
    EntityRow* find(EntityKind kind, int id);

    bool contains(EntityKind kind, int id) const { return find(kind, id) != nullptr; }

    /// The kind among those of the family that has the entity of this id.
    std::optional<EntityKind> kind_of(const EntityFamily& family, int id) const;

    /// The highest id in use among the kinds that share their ids, 0 if there is none.
    int highest_id(EntityKind kind) const;

    /// Ascending.
    std::vector<int> ids(EntityKind kind) const;

    /// Adds a model that has passed check_model(). Its entity `i` gets the id that is `i` above the
    /// highest one of its kind. Gives back those highest ids of geometry and groups, indexed by
    /// EntityKind.
    std::array<int, 6> append(const ModelData& model);

    void renumber(EntityKind kind, int id, int new_id);

    /// To another kind that shares the range of ids.
    void change_kind(EntityKind kind, int id, EntityKind new_kind);

    struct Erased
    {
        Entity entity;
        /// With the last one before it that did not, see Topology::erase().
        bool went_along;
    };

    /// Takes entities out, in their order; passes over what is not there or no longer. Gives back
    /// all that went. Touches what is left of the parents of that, of the groups that lost a member
    /// and of the conditions that lost a set.
    std::vector<Erased> erase(const std::vector<Entity>& entities, EntitySet& touched);

    /// The parents of an entity, the groups that hold it, the conditions that apply to it. Empty
    /// for an unknown one.
    EntitySet owners(EntityKind kind, int id) const;

    /// Gives back the entities that were not selected before.
    std::vector<Entity> select(const std::vector<Entity>& entities);

    /// Gives back the entities that were selected.
    std::vector<Entity> deselect(const std::vector<Entity>& entities);

    /// Strikes from the selection what is no longer selected or gone, and gives it back.
    std::vector<Entity> drop_unselected();

private:
    int highest_id_of(EntityKind kind) const;
    void erase(const Entity& entity, std::vector<Erased>& erased, EntitySet& touched);
    void leave_owners(const std::vector<Erased>& erased, EntitySet& touched);
    void replace_selected(const Entity& entity, const Entity& new_entity);
};

/// The state of the active kernel, for which the functions of the boundary answer. Null if there is
/// none.
const KernelState* active_state();
