#pragma once

#include <array>
#include <embedded/ModelData.hpp>
#include <importers/mesh/ElementCounter.hpp>
#include <map>
#include <string>
#include <utility>
#include <vector>

/// Turns Gmsh's current model into a model: its entities of dimension 3 to 0 into volumes to
/// vertices, volumes that hang together into a body, physical groups of one name into a group.
/// A last group, "Mesh", holds everything if there is a mesh.
///
/// Ids are given in the order of Gmsh's tags.
class MeshModelBuilder
{
public:
    /// Takes up entities and groups.
    MeshModelBuilder();

    /// Makes blocks, sidesets and nodesets of the groups.
    void add_sets();

    ModelData take_model() { return std::move(m_model); }

    /// How many elements are of a kind that is not counted.
    std::size_t uncounted_elements() const { return m_counter.uncounted(); }

private:
    // What is kept for each dimension.
    struct Level
    {
        // Of the entities that stand in the file.
        std::map<int, ElementCounts> elements_by_tag;
        // Of all entities; the elements of entity `i` at `i - 1`.
        std::map<int, int> ids_by_tag;
        std::vector<ElementCounts> elements;
    };

    struct PhysicalGroup
    {
        int dimension;
        int tag;
        std::string name;
    };

    void count_elements(int dimension);
    void add_entities(int dimension);
    std::vector<int> children_of(int dimension, int tag) const;
    void add_bodies();
    void add_group(const std::vector<PhysicalGroup>& parts);
    void add_groups();
    void add_whole_mesh();
    std::vector<int> ids_in(const PhysicalGroup& group) const;
    static std::vector<PhysicalGroup> physical_groups();

    ModelData m_model;
    ElementCounter m_counter;
    std::array<Level, 4> m_levels;
};
