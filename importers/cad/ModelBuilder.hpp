#pragma once

#include <array>
#include <embedded/ModelData.hpp>
#include <functional>
#include <importers/cad/PartTree.hpp>
#include <string>
#include <TopTools_IndexedMapOfShape.hxx>
#include <vector>

/// Turns the parts of a CAD file into a model: assemblies into groups, parts into
/// bodies, solids and open shells into volumes. Faces, edges and vertices are one
/// entity wherever they are the same shape in the same place.
///
/// Ids are given in the order in which the parts are walked.
class ModelBuilder
{
public:
    /// The shape of entity `i` at index `i`, which begins at 1.
    using Shapes = TopTools_IndexedMapOfShape;

    using Warn = std::function<void(const std::string& sentence)>;

    /// `names` is not owned and outlives the builder.
    ModelBuilder(const ShapeNames& names, Warn warn);

    /// Adds the part with all that is beneath it.
    void add(const Part& part);

    bool is_empty() const;

    const ModelData& model() const { return m_model; }

    /// Solids, and the shells of sheets.
    const Shapes& volumes() const { return m_volumes; }
    const Shapes& surfaces() const { return m_entities[0]; }
    const Shapes& curves() const { return m_entities[1]; }
    const Shapes& vertices() const { return m_entities[2]; }

private:
    // Of the kinds beneath a volume, from the faces down.
    using Level = std::size_t;

    // The group takes what the part becomes as its members.
    void add_to(ModelData::Group& group, const Part& part);
    void add_assembly(ModelData::Group& group, const Part& part);
    void add_shape(ModelData::Group& group, const Part& part);
    void add_loose(ModelData::Group& group, const TopoDS_Shape& shape, Level level);
    std::vector<int> add_volumes(const Part& part, TopAbs_ShapeEnum type);
    int add_body(const std::string& name, std::vector<int> volumes);
    int entity_id(const TopoDS_Shape& shape, Level level);
    std::vector<int> ids_beneath(const TopoDS_Shape& shape, Level level);
    std::string name_of(const TopoDS_Shape& shape) const;

    const ShapeNames& m_names;
    Warn m_warn;
    ModelData m_model;
    Shapes m_volumes;
    std::array<Shapes, 3> m_entities;
};
