#pragma once

#include <NCollection_DataMap.hxx>
#include <string>
#include <TopoDS_Shape.hxx>
#include <TopTools_ShapeMapHasher.hxx>
#include <vector>

/// A node of the assembly tree of a CAD file: an assembly of parts, or a part with a
/// shape in its place.
struct Part
{
    /// Of the instance, else of the product; empty if the file gives none.
    std::string name;
    /// Null for an assembly and for a part without geometry.
    TopoDS_Shape shape;
    bool is_assembly = false;
    std::vector<Part> parts;
};

/// Names of solids, faces, edges and vertices, under their shapes without location.
using ShapeNames = NCollection_DataMap<TopoDS_Shape, std::string, TopTools_ShapeMapHasher>;

/// What is read from a CAD file.
struct CadContent
{
    std::vector<Part> roots;
    ShapeNames names;
};
