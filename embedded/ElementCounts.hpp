#pragma once

#include <algorithm>

/// How many nodes and elements of the mesh, by kind, a group holds.
struct ElementCounts
{
    int nodes = 0;
    int edges = 0;
    int hexes = 0;
    int quads = 0;
    int tets = 0;
    int tris = 0;
    int wedges = 0;
    int pyramids = 0;
    int spheres = 0;

    bool has_negative() const
    {
        return std::min({nodes, edges, hexes, quads, tets, tris, wedges, pyramids, spheres}) < 0;
    }

    bool operator==(const ElementCounts&) const = default;
};
