#include <browser/MirrorRecords.hpp>

#include <treemodel/kernel/TreeModel.hpp>

namespace {

template <typename To, typename From>
void append(std::vector<To*>& list, const std::vector<From*>& records)
{
    list.insert(list.end(), records.begin(), records.end());
}

} // namespace

std::vector<TreeFeaBCData*> all_fea_bcs(TreeModel& mirror)
{
    std::vector<TreeFeaBCData*> result;
    for (int type = TreeFeaBCData::FORCE; type <= TreeFeaBCData::CONTACT_PAIR; ++type) {
        append(result, mirror.fea_bcs(TreeFeaBCData::FEAType(type)));
    }
    return result;
}

std::vector<TreeCfdBCData*> all_cfd_bcs(TreeModel& mirror)
{
    std::vector<TreeCfdBCData*> result;
    for (int type = TreeCfdBCData::AXIS; type <= TreeCfdBCData::WALL; ++type) {
        append(result, mirror.cfd_bcs(TreeCfdBCData::CFDType(type)));
    }
    return result;
}

std::vector<TreeData*> all_records(TreeModel& mirror)
{
    std::vector<TreeData*> result;
    for (int type = TreeGeometryData::VERTEX; type <= TreeGeometryData::BODY; ++type) {
        append(result, mirror.geometry(TreeGeometryData::GeometryType(type)));
    }
    append(result, mirror.groups());
    append(result, mirror.mesh_data());
    append(result, mirror.sizing_sources());
    append(result, mirror.boundary_layers());
    for (int type = TreeExodusData::BLOCK; type <= TreeExodusData::NODESET; ++type) {
        append(result, mirror.exodus_entities(TreeExodusData::ExodusType(type)));
    }
    append(result, all_fea_bcs(mirror));
    append(result, all_cfd_bcs(mirror));
    append(result, mirror.materials(false));
    append(result, mirror.materials(true));
    return result;
}
