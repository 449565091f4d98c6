#pragma once

#include <embedded/ElementCounts.hpp>
#include <map>

/// Counts the elements on the entities of Gmsh's current model by their kinds.
class ElementCounter
{
public:
    /// The elements on the entity itself. Point elements count as spheres if wanted: Gmsh
    /// makes one on each vertex that it meshes, which is no element to anybody.
    ElementCounts elements_on(int dimension, int tag, bool points_are_spheres = false);

    /// How many elements were of a kind that is not counted.
    std::size_t uncounted() const { return m_uncounted; }

private:
    using Field = int ElementCounts::*;

    // Null for an uncounted kind.
    Field field_of(int type);

    std::map<int, Field> m_fields;
    std::size_t m_uncounted = 0;
};

/// How many nodes lie on the entity itself.
int nodes_on(int dimension, int tag);
