#pragma once

#include <algorithm>

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
};
