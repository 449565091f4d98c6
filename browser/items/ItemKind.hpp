#pragma once

#include <QString>
#include <string>
#include <treemodel/entity/EntityTypeRange.hpp>

class TreeData;

/// The top-level rows of the tree, in their order.
enum class Category : int {
    Geometry,
    Groups,
    Mesh,
    Blocks,
    Sidesets,
    Nodesets,
    FeaConditions,
    CfdConditions,
    Materials,
    Media,
};

constexpr int category_count = int(Category::Media) + 1;

/// What a row of the tree shows. The values are the type numbers of its items; where rows are
/// sorted by type, they come in this order.
enum class ItemKind : int {
    // Geometry.
    Body,
    Volume,
    Surface,
    Curve,
    Vertex,

    Group,

    // Mesh controls, and element counts in the order of TreeMeshData::MeshType.
    SizingSource,
    BoundaryLayer,
    Hex,
    Tet,
    Wedge,
    Pyramid,
    Sphere,
    Tri,
    Quad,
    Edge,
    Node,

    // Sets.
    Block,
    Sideset,
    Nodeset,

    // Boundary conditions in the order of TreeFeaBCData::FEAType and TreeCfdBCData::CFDType.
    Force,
    ContactPair = Force + 10,
    Axis,
    Wall = Axis + 21,

    Material,
    Medium,

    // The rows of the categories themselves.
    FirstCategory,
    LastCategory = FirstCategory + category_count - 1,
};

constexpr int item_kind_count = int(ItemKind::LastCategory) + 1;

/// What hangs on a kind.
struct ItemKindInfo
{
    /// The kernel's word for it: "surface", "contact pair". "geometry" for a category.
    std::string word;

    /// That word in the language of the user.
    QString name;

    /// "surfaces", "contact pairs". For a category what its row shows: "FEA boundary conditions".
    QString plural;

    /// The resource path of its icon.
    std::string icon;

    /// The category in which its records stand; that of element counts is only their block's.
    Category category;

    /// True if the kernel can give it a name.
    bool can_be_renamed;
};

/// `kind` must be one of those of the enumeration, or lie between two of them.
const ItemKindInfo& item_kind_info(ItemKind kind);

/// The kind of a record of a mirror, which must not be in destruction.
ItemKind item_kind(TreeData* record);

ItemKind item_kind(Category category);

/// True from ItemKind::Hex to ItemKind::Node.
bool is_element_count(ItemKind kind);

/// The type numbers as blocks: geometry, groups, mesh, sets, FEA conditions, CFD conditions,
/// materials, categories.
EntityTypeRange item_kind_blocks();
