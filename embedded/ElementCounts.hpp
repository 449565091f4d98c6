#pragma once

#include <algorithm>
#include <array>

/// How many nodes and elements of the mesh, by kind, a group holds.
struct ElementCounts
{
    /// The number of each kind.
    int nodes = 0;
    int edges = 0;
    int hexes = 0;
    int quads = 0;
    int tets = 0;
    int tris = 0;
    int wedges = 0;
    int pyramids = 0;
    int spheres = 0;

    /// True if one of them is below 0.
    bool has_negative() const
    {
        return std::min({nodes, edges, hexes, quads, tets, tris, wedges, pyramids, spheres}) < 0;
    }

    /// Equal if all of them are.
    bool operator==(const ElementCounts&) const = default;

    /// Adds kind by kind.
    ElementCounts& operator+=(const ElementCounts& other);
};

/// The nodes and the elements of each kind.
inline constexpr std::array element_count_fields{&ElementCounts::nodes, &ElementCounts::edges,
    &ElementCounts::hexes, &ElementCounts::quads, &ElementCounts::tets, &ElementCounts::tris,
    &ElementCounts::wedges, &ElementCounts::pyramids, &ElementCounts::spheres};

inline ElementCounts& ElementCounts::operator+=(const ElementCounts& other)
{
    for (const auto field : element_count_fields) {
        this->*field += other.*field;
    }
    return *this;
}
