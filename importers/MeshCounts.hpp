#pragma once

#include <embedded/ElementCounts.hpp>
#include <string_view>
#include <vector>

/// How many nodes and elements lie on each entity of a model itself, not on what bounds it.
/// Entity `i` of a kind has its counts at `i - 1`.
struct MeshCounts
{
    std::vector<ElementCounts> volumes;
    std::vector<ElementCounts> surfaces;
    std::vector<ElementCounts> curves;
    std::vector<ElementCounts> vertices;

    bool operator==(const MeshCounts&) const = default;
};

/// The name of the group that stands for a whole mesh.
inline constexpr std::string_view whole_mesh_name = "Mesh";
