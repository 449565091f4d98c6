#include <treemodel/kernel/RecordFamily.hpp>

#include <treemodel/treedata/TreeBoundaryLayerData.hpp>
#include <treemodel/treedata/TreeCfdBCData.hpp>
#include <treemodel/treedata/TreeExodusData.hpp>
#include <treemodel/treedata/TreeFeaBCData.hpp>
#include <treemodel/treedata/TreeGeometryData.hpp>
#include <treemodel/treedata/TreeGroupData.hpp>
#include <treemodel/treedata/TreeMaterialData.hpp>
#include <treemodel/treedata/TreeMeshData.hpp>
#include <treemodel/treedata/TreeSizingSourceData.hpp>

RecordFamily RecordFamilyFinder::family_of(TreeData* record)
{
    struct Family
    {
        const QMetaObject& base;
        RecordFamily family;
    };
    static const Family families[]{
        {TreeGeometryData::staticMetaObject, RecordFamily::GEOMETRY},
        {TreeGroupData::staticMetaObject, RecordFamily::GROUP},
        {TreeBoundaryLayerData::staticMetaObject, RecordFamily::BOUNDARY_LAYER},
        {TreeSizingSourceData::staticMetaObject, RecordFamily::SIZING_SOURCE},
        {TreeExodusData::staticMetaObject, RecordFamily::EXODUS},
        {TreeFeaBCData::staticMetaObject, RecordFamily::FEA_BC},
        {TreeCfdBCData::staticMetaObject, RecordFamily::CFD_BC},
        {TreeMaterialData::staticMetaObject, RecordFamily::MATERIAL},
        {TreeMeshData::staticMetaObject, RecordFamily::MESH},
    };
    for (const auto& [base, family] : families) {
        if (base.cast(record)) {
            return family;
        }
    }
    return RecordFamily::OTHER;
}
