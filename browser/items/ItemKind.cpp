#include <browser/items/ItemKind.hpp>

#include <array>
#include <QCoreApplication>
#include <QHash>
#include <treemodel/treedata/TreeBodyData.hpp>
#include <treemodel/treedata/TreeBoundaryLayerData.hpp>
#include <treemodel/treedata/TreeCfdBCData.hpp>
#include <treemodel/treedata/TreeExodusData.hpp>
#include <treemodel/treedata/TreeFeaBCData.hpp>
#include <treemodel/treedata/TreeGroupData.hpp>
#include <treemodel/treedata/TreeMaterialData.hpp>
#include <treemodel/treedata/TreeMeshData.hpp>
#include <treemodel/treedata/TreeSizingSourceData.hpp>

namespace {

struct Row
{
    const char* word;
    const char* plural;
    const char* icon;
    Category category;
    bool can_be_renamed;
};

constexpr std::array<Row, item_kind_count> rows{{
    {QT_TRANSLATE_NOOP("ItemKind", "body"), QT_TRANSLATE_NOOP("ItemKind", "bodies"), "body",
        Category::Geometry, true},
    {QT_TRANSLATE_NOOP("ItemKind", "volume"), QT_TRANSLATE_NOOP("ItemKind", "volumes"), "volume",
        Category::Geometry, true},
    {QT_TRANSLATE_NOOP("ItemKind", "surface"), QT_TRANSLATE_NOOP("ItemKind", "surfaces"), "surface",
        Category::Geometry, true},
    {QT_TRANSLATE_NOOP("ItemKind", "curve"), QT_TRANSLATE_NOOP("ItemKind", "curves"), "curve",
        Category::Geometry, true},
    {QT_TRANSLATE_NOOP("ItemKind", "vertex"), QT_TRANSLATE_NOOP("ItemKind", "vertices"), "vertex",
        Category::Geometry, true},

    {QT_TRANSLATE_NOOP("ItemKind", "group"), QT_TRANSLATE_NOOP("ItemKind", "groups"), "group",
        Category::Groups, true},

    {QT_TRANSLATE_NOOP("ItemKind", "sizing source"),
        QT_TRANSLATE_NOOP("ItemKind", "sizing sources"), "sizing-source", Category::Mesh, false},
    {QT_TRANSLATE_NOOP("ItemKind", "boundary layer"),
        QT_TRANSLATE_NOOP("ItemKind", "boundary layers"), "boundary-layer", Category::Mesh, false},
    {QT_TRANSLATE_NOOP("ItemKind", "hex"), QT_TRANSLATE_NOOP("ItemKind", "hex counts"), "hex",
        Category::Mesh, false},
    {QT_TRANSLATE_NOOP("ItemKind", "tet"), QT_TRANSLATE_NOOP("ItemKind", "tet counts"), "tet",
        Category::Mesh, false},
    {QT_TRANSLATE_NOOP("ItemKind", "wedge"), QT_TRANSLATE_NOOP("ItemKind", "wedge counts"), "wedge",
        Category::Mesh, false},
    {QT_TRANSLATE_NOOP("ItemKind", "pyramid"), QT_TRANSLATE_NOOP("ItemKind", "pyramid counts"),
        "pyramid", Category::Mesh, false},
    {QT_TRANSLATE_NOOP("ItemKind", "sphere"), QT_TRANSLATE_NOOP("ItemKind", "sphere counts"),
        "sphere", Category::Mesh, false},
    {QT_TRANSLATE_NOOP("ItemKind", "tri"), QT_TRANSLATE_NOOP("ItemKind", "tri counts"), "tri",
        Category::Mesh, false},
    {QT_TRANSLATE_NOOP("ItemKind", "quad"), QT_TRANSLATE_NOOP("ItemKind", "quad counts"), "quad",
        Category::Mesh, false},
    {QT_TRANSLATE_NOOP("ItemKind", "edge"), QT_TRANSLATE_NOOP("ItemKind", "edge counts"), "edge",
        Category::Mesh, false},
    {QT_TRANSLATE_NOOP("ItemKind", "node"), QT_TRANSLATE_NOOP("ItemKind", "node counts"), "node",
        Category::Mesh, false},

    {QT_TRANSLATE_NOOP("ItemKind", "block"), QT_TRANSLATE_NOOP("ItemKind", "blocks"), "block",
        Category::Blocks, true},
    {QT_TRANSLATE_NOOP("ItemKind", "sideset"), QT_TRANSLATE_NOOP("ItemKind", "sidesets"), "sideset",
        Category::Sidesets, true},
    {QT_TRANSLATE_NOOP("ItemKind", "nodeset"), QT_TRANSLATE_NOOP("ItemKind", "nodesets"), "nodeset",
        Category::Nodesets, true},

    {QT_TRANSLATE_NOOP("ItemKind", "force"), QT_TRANSLATE_NOOP("ItemKind", "forces"), "force",
        Category::FeaConditions, true},
    {QT_TRANSLATE_NOOP("ItemKind", "acceleration"), QT_TRANSLATE_NOOP("ItemKind", "accelerations"),
        "acceleration", Category::FeaConditions, true},
    {QT_TRANSLATE_NOOP("ItemKind", "velocity"), QT_TRANSLATE_NOOP("ItemKind", "velocities"),
        "velocity", Category::FeaConditions, true},
    {QT_TRANSLATE_NOOP("ItemKind", "pressure"), QT_TRANSLATE_NOOP("ItemKind", "pressures"),
        "pressure", Category::FeaConditions, true},
    {QT_TRANSLATE_NOOP("ItemKind", "temperature"), QT_TRANSLATE_NOOP("ItemKind", "temperatures"),
        "temperature", Category::FeaConditions, true},
    {QT_TRANSLATE_NOOP("ItemKind", "displacement"), QT_TRANSLATE_NOOP("ItemKind", "displacements"),
        "displacement", Category::FeaConditions, true},
    {QT_TRANSLATE_NOOP("ItemKind", "constraint"), QT_TRANSLATE_NOOP("ItemKind", "constraints"),
        "constraint", Category::FeaConditions, true},
    {QT_TRANSLATE_NOOP("ItemKind", "convection"), QT_TRANSLATE_NOOP("ItemKind", "convections"),
        "convection", Category::FeaConditions, true},
    {QT_TRANSLATE_NOOP("ItemKind", "heatflux"), QT_TRANSLATE_NOOP("ItemKind", "heat fluxes"),
        "heatflux", Category::FeaConditions, true},
    {QT_TRANSLATE_NOOP("ItemKind", "contact region"),
        QT_TRANSLATE_NOOP("ItemKind", "contact regions"), "contact-region", Category::FeaConditions,
        true},
    {QT_TRANSLATE_NOOP("ItemKind", "contact pair"), QT_TRANSLATE_NOOP("ItemKind", "contact pairs"),
        "contact-pair", Category::FeaConditions, true},

    {QT_TRANSLATE_NOOP("ItemKind", "axis"), QT_TRANSLATE_NOOP("ItemKind", "axes"), "axis",
        Category::CfdConditions, true},
    {QT_TRANSLATE_NOOP("ItemKind", "exhaustfan"), QT_TRANSLATE_NOOP("ItemKind", "exhaust fans"),
        "fan", Category::CfdConditions, true},
    {QT_TRANSLATE_NOOP("ItemKind", "fan"), QT_TRANSLATE_NOOP("ItemKind", "fans"), "fan",
        Category::CfdConditions, true},
    {QT_TRANSLATE_NOOP("ItemKind", "inletvent"), QT_TRANSLATE_NOOP("ItemKind", "inlet vents"),
        "inlet", Category::CfdConditions, true},
    {QT_TRANSLATE_NOOP("ItemKind", "intakefan"), QT_TRANSLATE_NOOP("ItemKind", "intake fans"),
        "fan", Category::CfdConditions, true},
    {QT_TRANSLATE_NOOP("ItemKind", "interface"), QT_TRANSLATE_NOOP("ItemKind", "interfaces"),
        "interface", Category::CfdConditions, true},
    {QT_TRANSLATE_NOOP("ItemKind", "interior"), QT_TRANSLATE_NOOP("ItemKind", "interiors"),
        "interior", Category::CfdConditions, true},
    {QT_TRANSLATE_NOOP("ItemKind", "massflowinlet"),
        QT_TRANSLATE_NOOP("ItemKind", "mass flow inlets"), "inlet", Category::CfdConditions, true},
    {QT_TRANSLATE_NOOP("ItemKind", "outflow"), QT_TRANSLATE_NOOP("ItemKind", "outflows"), "outlet",
        Category::CfdConditions, true},
    {QT_TRANSLATE_NOOP("ItemKind", "outletvent"), QT_TRANSLATE_NOOP("ItemKind", "outlet vents"),
        "outlet", Category::CfdConditions, true},
    {QT_TRANSLATE_NOOP("ItemKind", "periodic"), QT_TRANSLATE_NOOP("ItemKind", "periodics"),
        "periodic", Category::CfdConditions, true},
    {QT_TRANSLATE_NOOP("ItemKind", "periodicshadow"),
        QT_TRANSLATE_NOOP("ItemKind", "periodic shadows"), "periodic", Category::CfdConditions,
        true},
    {QT_TRANSLATE_NOOP("ItemKind", "porousjump"), QT_TRANSLATE_NOOP("ItemKind", "porous jumps"),
        "porous-jump", Category::CfdConditions, true},
    {QT_TRANSLATE_NOOP("ItemKind", "pressurefarfield"),
        QT_TRANSLATE_NOOP("ItemKind", "pressure far fields"), "far-field", Category::CfdConditions,
        true},
    {QT_TRANSLATE_NOOP("ItemKind", "pressureinlet"),
        QT_TRANSLATE_NOOP("ItemKind", "pressure inlets"), "inlet", Category::CfdConditions, true},
    {QT_TRANSLATE_NOOP("ItemKind", "pressureoutlet"),
        QT_TRANSLATE_NOOP("ItemKind", "pressure outlets"), "outlet", Category::CfdConditions, true},
    {QT_TRANSLATE_NOOP("ItemKind", "radiator"), QT_TRANSLATE_NOOP("ItemKind", "radiators"),
        "radiator", Category::CfdConditions, true},
    {QT_TRANSLATE_NOOP("ItemKind", "supersonicinflow"),
        QT_TRANSLATE_NOOP("ItemKind", "supersonic inflows"), "inlet", Category::CfdConditions,
        true},
    {QT_TRANSLATE_NOOP("ItemKind", "supersonicoutflow"),
        QT_TRANSLATE_NOOP("ItemKind", "supersonic outflows"), "outlet", Category::CfdConditions,
        true},
    {QT_TRANSLATE_NOOP("ItemKind", "symmetry"), QT_TRANSLATE_NOOP("ItemKind", "symmetries"),
        "symmetry", Category::CfdConditions, true},
    {QT_TRANSLATE_NOOP("ItemKind", "velocityinlet"),
        QT_TRANSLATE_NOOP("ItemKind", "velocity inlets"), "inlet", Category::CfdConditions, true},
    {QT_TRANSLATE_NOOP("ItemKind", "wall"), QT_TRANSLATE_NOOP("ItemKind", "walls"), "wall",
        Category::CfdConditions, true},

    {QT_TRANSLATE_NOOP("ItemKind", "material"), QT_TRANSLATE_NOOP("ItemKind", "materials"),
        "material", Category::Materials, true},
    {QT_TRANSLATE_NOOP("ItemKind", "media"), QT_TRANSLATE_NOOP("ItemKind", "media"), "medium",
        Category::Media, true},

    {"geometry", QT_TRANSLATE_NOOP("ItemKind", "Geometry"), "geometry", Category::Geometry, false},
    {"groups", QT_TRANSLATE_NOOP("ItemKind", "Groups"), "groups", Category::Groups, false},
    {"mesh", QT_TRANSLATE_NOOP("ItemKind", "Mesh"), "mesh", Category::Mesh, false},
    {"blocks", QT_TRANSLATE_NOOP("ItemKind", "Blocks"), "block", Category::Blocks, false},
    {"sidesets", QT_TRANSLATE_NOOP("ItemKind", "Sidesets"), "sideset", Category::Sidesets, false},
    {"nodesets", QT_TRANSLATE_NOOP("ItemKind", "Nodesets"), "nodeset", Category::Nodesets, false},
    {"fea conditions", QT_TRANSLATE_NOOP("ItemKind", "FEA boundary conditions"), "fea-conditions",
        Category::FeaConditions, false},
    {"cfd conditions", QT_TRANSLATE_NOOP("ItemKind", "CFD boundary conditions"), "cfd-conditions",
        Category::CfdConditions, false},
    {"materials", QT_TRANSLATE_NOOP("ItemKind", "Materials"), "material", Category::Materials,
        false},
    {"mediums", QT_TRANSLATE_NOOP("ItemKind", "Media"), "medium", Category::Media, false},
}};

ItemKindInfo info(const Row& row)
{
    return {row.word, QCoreApplication::translate("ItemKind", row.word),
        QCoreApplication::translate("ItemKind", row.plural),
        std::string(":/treebrowser/icons/") + row.icon + ".svg", row.category, row.can_be_renamed};
}

std::array<ItemKindInfo, item_kind_count> all_infos()
{
    std::array<ItemKindInfo, item_kind_count> result;
    std::transform(rows.begin(), rows.end(), result.begin(), info);
    return result;
}

constexpr ItemKind operator+(ItemKind first, int offset)
{
    return ItemKind(int(first) + offset);
}

ItemKind geometry_kind(TreeData* record)
{
    return ItemKind::Body +
           (TreeGeometryData::BODY - static_cast<TreeGeometryData*>(record)->geometry_type());
}

using KindReader = ItemKind (*)(TreeData*);

const QHash<const QMetaObject*, KindReader> kind_readers{
    {&TreeBodyData::staticMetaObject, [](TreeData* /*record*/) { return ItemKind::Body; }},
    {&TreeGeometryData::staticMetaObject, geometry_kind},
    {&TreeGroupData::staticMetaObject, [](TreeData* /*record*/) { return ItemKind::Group; }},
    {&TreeSizingSourceData::staticMetaObject,
        [](TreeData* /*record*/) { return ItemKind::SizingSource; }},
    {&TreeBoundaryLayerData::staticMetaObject,
        [](TreeData* /*record*/) { return ItemKind::BoundaryLayer; }},
    {&TreeMeshData::staticMetaObject,
        [](TreeData* record) {
            return ItemKind::Hex + static_cast<TreeMeshData*>(record)->mesh_type();
        }},
    {&TreeExodusData::staticMetaObject,
        [](TreeData* record) {
            return ItemKind::Block + static_cast<TreeExodusData*>(record)->exodus_type();
        }},
    {&TreeFeaBCData::staticMetaObject,
        [](TreeData* record) {
            return ItemKind::Force + static_cast<TreeFeaBCData*>(record)->fea_bc_type();
        }},
    {&TreeCfdBCData::staticMetaObject,
        [](TreeData* record) {
            return ItemKind::Axis + static_cast<TreeCfdBCData*>(record)->cfd_bc_type();
        }},
    {&TreeMaterialData::staticMetaObject,
        [](TreeData* record) {
            return static_cast<TreeMaterialData*>(record)->is_cfd() ? ItemKind::Medium
                                                                    : ItemKind::Material;
        }},
};

} // namespace

const ItemKindInfo& item_kind_info(ItemKind kind)
{
    static const std::array<ItemKindInfo, item_kind_count> infos = all_infos();
    return infos[std::size_t(kind)];
}

ItemKind item_kind(TreeData* record)
{
    return kind_readers.value(record->metaObject())(record);
}

ItemKind item_kind(Category category)
{
    return ItemKind::FirstCategory + int(category);
}

bool is_element_count(ItemKind kind)
{
    return kind >= ItemKind::Hex && kind <= ItemKind::Node;
}

EntityTypeRange item_kind_blocks()
{
    EntityTypeRange blocks;
    for (const ItemKind last :
        {ItemKind::Vertex, ItemKind::Group, ItemKind::Node, ItemKind::Nodeset,
            ItemKind::ContactPair, ItemKind::Wall, ItemKind::Medium, ItemKind::LastCategory}) {
        blocks.add_range(int(last) + 1 - blocks.next_offset());
    }
    return blocks;
}
