#pragma once

#include <array>
#include <embedded/EntityFamily.hpp>
#include <embedded/EntityRow.hpp>
#include <embedded/EntitySet.hpp>
#include <embedded/IdTable.hpp>
#include <embedded/ModelData.hpp>
#include <utility>
#include <vector>

/// One entity of the meshing and simulation set-up.
struct SetupRow : EntityRow
{
    /// Of a block, sideset or nodeset only.
    bool is_lite = false;
    /// Of a boundary condition only: the ids of the sets to which it applies, as they were given.
    std::vector<int> sidesets;
    std::vector<int> nodesets;
};

/// What of the set-up comes in with a model.
inline constexpr std::array setup_lists{
    std::pair{EntityKind::SIZING_SOURCE, &ModelData::sizing_sources},
    std::pair{EntityKind::BOUNDARY_LAYER, &ModelData::boundary_layers},
    std::pair{EntityKind::BLOCK, &ModelData::blocks},
    std::pair{EntityKind::SIDESET, &ModelData::sidesets},
    std::pair{EntityKind::NODESET, &ModelData::nodesets},
};

/// Mesh controls, sets, materials and boundary conditions of a kernel, kind by kind. Trusts its
/// caller that ids given to it are in use.
class SetupStore
{
public:
    const IdTable<SetupRow>& rows(EntityKind kind) const
    {
        return m_tables[setup_family.index(kind)];
    }
    IdTable<SetupRow>& rows(EntityKind kind) { return m_tables[setup_family.index(kind)]; }
    const SetupRow& row(EntityKind kind, int id) const { return *rows(kind).find(id); }
    SetupRow& row(EntityKind kind, int id) { return *rows(kind).find(id); }

    /// Adds what is in the model, under the ids above the highest one of each kind.
    void append(const ModelData& model);

    /// Moves an entity to another kind of the same range of ids.
    void change_kind(EntityKind kind, int id, EntityKind new_kind);

    /// The conditions that apply to the set.
    EntitySet conditions_on(EntityKind set_kind, int id) const;

    /// A set goes by a new id in all conditions.
    void renumber_set(EntityKind set_kind, int id, int new_id);

    /// Strikes sets that are gone, ids ascending, from all conditions. Gives back the conditions
    /// changed.
    EntitySet forget_sets(EntityKind set_kind, const std::vector<int>& ids);

private:
    static std::vector<int> SetupRow::*sets_of(EntityKind set_kind);

    std::array<IdTable<SetupRow>, setup_family.size()> m_tables;
};
