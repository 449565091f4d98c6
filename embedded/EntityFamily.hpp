#pragma once

#include <array>
#include <embedded/EntityKind.hpp>
#include <optional>
#include <treemodel/kernel/KestoInterface.hpp>

constexpr std::size_t entity_kind_count = static_cast<std::size_t>(EntityKind::WALL) + 1;

constexpr EntityKind next(EntityKind kind)
{
    return static_cast<EntityKind>(static_cast<int>(kind) + 1);
}

/// Kinds that follow one another in EntityKind and have a trait in common.
struct EntityFamily
{
    EntityKind first;
    EntityKind last;

    constexpr bool has(EntityKind kind) const { return first <= kind && kind <= last; }

    /// The place of a kind in the family.
    constexpr std::size_t index(EntityKind kind) const
    {
        return static_cast<std::size_t>(kind) - static_cast<std::size_t>(first);
    }
    constexpr std::size_t size() const { return index(last) + 1; }
};

constexpr EntityFamily geometry_family{EntityKind::VERTEX, EntityKind::BODY};
constexpr EntityFamily mesh_control_family{EntityKind::SIZING_SOURCE, EntityKind::BOUNDARY_LAYER};
constexpr EntityFamily set_family{EntityKind::BLOCK, EntityKind::NODESET};
constexpr EntityFamily material_family{EntityKind::MATERIAL, EntityKind::MEDIUM};
constexpr EntityFamily fea_family{EntityKind::FORCE, EntityKind::CONTACT_PAIR};
constexpr EntityFamily cfd_family{EntityKind::AXIS, EntityKind::WALL};
constexpr EntityFamily condition_family{EntityKind::FORCE, EntityKind::WALL};
/// All but geometry and groups.
constexpr EntityFamily setup_family{EntityKind::SIZING_SOURCE, EntityKind::WALL};
/// What a group can hold.
constexpr EntityFamily member_family{EntityKind::VERTEX, EntityKind::GROUP};

/// The kinds among which an id of this kind is unique: itself for the most part.
EntityFamily id_range_of(EntityKind kind);

/// The kind of boundary condition that the boundary's code stands for.
std::optional<EntityKind> condition_kind(KestoInterface::KI_BCTypes code);
