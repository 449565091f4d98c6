#pragma once

#include <embedded/ElementCounts.hpp>
#include <string>
#include <vector>

/// A whole model as plain data: what an importer hands over and what
/// EmbeddedKernel::open_model() and import_model() take.
///
/// Entity `i` of a list has the id `i + 1`, counted for each kind by itself, and
/// all references are such ids. An entity that no other one names as its child is free.
struct ModelData
{
    /// One geometric entity.
    struct Entity
    {
        /// UTF-8; empty for an entity without a name of its own.
        std::string name;
        /// Ids of the kind one below: a body names volumes, a curve vertices. Each once.
        std::vector<int> children;
        /// As the kernel tells of it by `is_visible` and `is_virtual`.
        bool visible = true;
        bool is_virtual = false;
    };

    /// A geometric entity with what only a volume has.
    struct Volume : Entity
    {
        /// The volume of a sheet body: it holds surfaces and no solid.
        bool is_sheet = false;
    };

    /// A named collection.
    struct Group
    {
        /// UTF-8; empty for a group without a name of its own.
        std::string name;
        /// The ids of the direct members.
        std::vector<int> groups;
        std::vector<int> bodies;
        std::vector<int> volumes;
        std::vector<int> surfaces;
        std::vector<int> curves;
        std::vector<int> vertices;
        ElementCounts elements{};
    };

    /// The entities of each kind.
    std::vector<Entity> bodies;
    std::vector<Volume> volumes;
    std::vector<Entity> surfaces;
    std::vector<Entity> curves;
    std::vector<Entity> vertices;
    std::vector<Group> groups;

    /// The names of mesh controls and sets.
    std::vector<std::string> sizing_sources;
    std::vector<std::string> boundary_layers;
    std::vector<std::string> blocks;
    std::vector<std::string> sidesets;
    std::vector<std::string> nodesets;
};
