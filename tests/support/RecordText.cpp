#include <support/RecordText.hpp>

#include <array>
#include <treemodel/treedata/TreeBoundaryLayerData.hpp>
#include <treemodel/treedata/TreeCfdBCData.hpp>
#include <treemodel/treedata/TreeExodusData.hpp>
#include <treemodel/treedata/TreeFeaBCData.hpp>
#include <treemodel/treedata/TreeGeometryData.hpp>
#include <treemodel/treedata/TreeGroupData.hpp>
#include <treemodel/treedata/TreeMaterialData.hpp>
#include <treemodel/treedata/TreeMeshData.hpp>
#include <treemodel/treedata/TreeSizingSourceData.hpp>

namespace {

const char* mesh_word(TreeMeshData::MeshType type)
{
    static constexpr std::array words{
        "hex", "tet", "wedge", "pyramid", "sphere", "tri", "quad", "edge", "node"};
    return words.at(type);
}

QString kind_of(TreeData* record)
{
    const std::pair<const QMetaObject&, const char*> plain_kinds[]{
        {TreeGroupData::staticMetaObject, "group"},
        {TreeSizingSourceData::staticMetaObject, "sizing_source"},
        {TreeBoundaryLayerData::staticMetaObject, "boundary_layer"},
        {TreeMaterialData::staticMetaObject, "material"},
    };
    if (auto* geometry = qobject_cast<TreeGeometryData*>(record)) {
        return QString::fromStdString(TreeGeometryData::type_to_string(geometry->geometry_type()));
    }
    if (auto* exodus = qobject_cast<TreeExodusData*>(record)) {
        return QString::fromStdString(TreeExodusData::type_to_string(exodus->exodus_type()));
    }
    if (auto* fea = qobject_cast<TreeFeaBCData*>(record)) {
        return QString::fromStdString(TreeFeaBCData::type_to_string(fea->fea_bc_type()));
    }
    if (auto* cfd = qobject_cast<TreeCfdBCData*>(record)) {
        return QString::fromStdString(TreeCfdBCData::type_to_string(cfd->cfd_bc_type()));
    }
    for (const auto& [kind, word] : plain_kinds) {
        if (kind.cast(record)) {
            return QLatin1String(word);
        }
    }
    return QLatin1String(record->metaObject()->className());
}

} // namespace

QString record_text(TreeData* record)
{
    if (auto* mesh = qobject_cast<TreeMeshData*>(record)) {
        return QLatin1String(mesh_word(mesh->mesh_type()));
    }
    return kind_of(record) + QLatin1Char(' ') + QString::number(record->id());
}
