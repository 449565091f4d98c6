#include <treemodel/models/TreeSimModel.hpp>

#include <QScopeGuard>
#include <treemodel/models/RecordMaps.hpp>
#include <treemodel/treedata/RecordDeaths.hpp>

namespace {

// The boundary conditions of one kind among those linked to the entity.
template <typename BoundaryCondition>
std::vector<BoundaryCondition*> linked_bcs(
    const LinkMap<TreeExodusData, TreeData>& links, TreeExodusData* exodus)
{
    std::vector<BoundaryCondition*> result;
    for (TreeData* linked : links.find(exodus)) {
        if (auto* bc = qobject_cast<BoundaryCondition*>(linked)) {
            result.push_back(bc);
        }
    }
    return result;
}

} // namespace

TreeSimModel::TreeSimModel() = default;

TreeSimModel::~TreeSimModel()
{
    clear();
    delete_displaced_records(this);
}

TreeExodusData* TreeSimModel::add_exodus(TreeExodusData::ExodusType type, int id)
{
    return add_record(
        exodus_map_from_type(type), this, &TreeSimModel::exodus_entity_added, id, type, id);
}

void TreeSimModel::remove_exodus(TreeExodusData::ExodusType type, int id)
{
    if (const auto exodus = take_record(exodus_map_from_type(type), id)) {
        // The links, and those that receivers make meanwhile.
        const auto unlink = qScopeGuard([&] { clear_associations(exodus.get()); });
        clear_associations(exodus.get());
        Q_EMIT exodus_entity_removed(exodus.get());
    }
}

TreeExodusData* TreeSimModel::find_exodus(TreeExodusData::ExodusType type, int id)
{
    return find_record(exodus_map_from_type(type), id);
}

std::vector<TreeExodusData*> TreeSimModel::exodus_entities(TreeExodusData::ExodusType type)
{
    return all_records(exodus_map_from_type(type));
}

void TreeSimModel::clear_exodus()
{
    Q_EMIT about_to_clear_exodus();
    m_bc_exodus_map.clear();
    m_exodus_bc_map.clear();
    for (ExodusMap& exodus_map : m_exodus_maps) {
        delete_linked_records(exodus_map);
    }
}

TreeFeaBCData* TreeSimModel::add_fea_bc(TreeFeaBCData::FEAType type, int id)
{
    return add_record(fea_map_from_type(type), this, &TreeSimModel::fea_bc_added, id, type, id);
}

void TreeSimModel::remove_fea_bc(TreeFeaBCData::FEAType type, int id)
{
    if (const auto bc = take_record(fea_map_from_type(type), id)) {
        // The links, and those that receivers make meanwhile.
        const auto unlink = qScopeGuard([&] { clear_associations(bc.get()); });
        clear_associations(bc.get());
        Q_EMIT fea_bc_removed(bc.get());
    }
}

void TreeSimModel::change_fea_bc_id(TreeFeaBCData::FEAType type, int old_id, int new_id)
{
    change_record_id(fea_map_from_type(type), old_id, new_id, this);
}

TreeFeaBCData* TreeSimModel::find_fea_bc(TreeFeaBCData::FEAType type, int id)
{
    return find_record(fea_map_from_type(type), id);
}

std::vector<TreeFeaBCData*> TreeSimModel::fea_bcs(TreeFeaBCData::FEAType type)
{
    return all_records(fea_map_from_type(type));
}

void TreeSimModel::clear_fea()
{
    Q_EMIT about_to_clear_fea();
    for (FeaMap& fea_map : m_fea_maps) {
        delete_linked_records(fea_map);
    }
}

TreeCfdBCData* TreeSimModel::add_cfd_bc(TreeCfdBCData::CFDType type, int id)
{
    return add_record(m_cfd_map, this, &TreeSimModel::cfd_bc_added, id, type, id);
}

void TreeSimModel::remove_cfd_bc(int id)
{
    if (auto bc = take_record(m_cfd_map, id)) {
        clear_associations(bc.get());
        // It can still be written to, and linked, until it dies.
        connect(
            bc.get(), &TreeData::treedata_destroyed, this, &TreeSimModel::clear_bc_associations);
        Q_EMIT cfd_bc_removed(bc.get());
        bc.release()->deleteLater();
    }
}

void TreeSimModel::change_cfd_bc_id(int old_id, int new_id)
{
    change_record_id(m_cfd_map, old_id, new_id, this);
}

TreeCfdBCData* TreeSimModel::find_cfd_bc(int id)
{
    return find_record(m_cfd_map, id);
}

std::vector<TreeCfdBCData*> TreeSimModel::cfd_bcs(TreeCfdBCData::CFDType type)
{
    std::vector<TreeCfdBCData*> result;
    for (const auto& [id, bc] : m_cfd_map) {
        if (bc->cfd_bc_type() == type) {
            result.push_back(bc);
        }
    }
    return result;
}

void TreeSimModel::clear_cfd()
{
    Q_EMIT about_to_clear_cfd();
    delete_linked_records(m_cfd_map);
}

TreeMaterialData* TreeSimModel::add_material(int id, bool is_cfd)
{
    return add_record(m_material_map, this, &TreeSimModel::material_added, id, id, is_cfd);
}

void TreeSimModel::remove_material(int id)
{
    if (const auto material = take_record(m_material_map, id)) {
        Q_EMIT material_removed(material.get());
    }
}

TreeMaterialData* TreeSimModel::find_material(int id)
{
    return find_record(m_material_map, id);
}

std::vector<TreeMaterialData*> TreeSimModel::materials(bool is_cfd)
{
    std::vector<TreeMaterialData*> result;
    for (const auto& [id, material] : m_material_map) {
        if (material->is_cfd() == is_cfd) {
            result.push_back(material);
        }
    }
    return result;
}

void TreeSimModel::clear_material()
{
    Q_EMIT about_to_clear_material();
    delete_records(m_material_map);
}

void TreeSimModel::fea_add_exodus(TreeFeaBCData* bc, TreeExodusData* exodus)
{
    if (associate_bc(bc, exodus)) {
        Q_EMIT exodus_added_to_fea(bc, exodus);
    }
}

void TreeSimModel::fea_remove_exodus(TreeFeaBCData* bc, TreeExodusData* exodus)
{
    if (bc && exodus && disassociate_bc(bc, exodus)) {
        Q_EMIT exodus_removed_from_fea(bc, exodus);
    }
}

void TreeSimModel::cfd_add_exodus(TreeCfdBCData* bc, TreeExodusData* exodus)
{
    if (associate_bc(bc, exodus)) {
        Q_EMIT exodus_added_to_cfd(bc, exodus);
    }
}

void TreeSimModel::cfd_remove_exodus(TreeCfdBCData* bc, TreeExodusData* exodus)
{
    if (bc && exodus && disassociate_bc(bc, exodus)) {
        Q_EMIT exodus_removed_from_cfd(bc, exodus);
    }
}

std::vector<TreeExodusData*> TreeSimModel::find_exodus_from_fea(TreeFeaBCData* bc)
{
    return m_bc_exodus_map.find(bc);
}

std::vector<TreeExodusData*> TreeSimModel::find_exodus_from_cfd(TreeCfdBCData* bc)
{
    return m_bc_exodus_map.find(bc);
}

std::vector<TreeFeaBCData*> TreeSimModel::find_fea_from_exodus(TreeExodusData* exodus)
{
    return linked_bcs<TreeFeaBCData>(m_exodus_bc_map, exodus);
}

std::vector<TreeCfdBCData*> TreeSimModel::find_cfd_from_exodus(TreeExodusData* exodus)
{
    return linked_bcs<TreeCfdBCData>(m_exodus_bc_map, exodus);
}

void TreeSimModel::clear()
{
    clear_exodus();
    clear_fea();
    clear_cfd();
    clear_material();
}

TreeSimModel::ExodusMap& TreeSimModel::exodus_map_from_type(TreeExodusData::ExodusType type)
{
    return m_exodus_maps[type];
}

TreeSimModel::FeaMap& TreeSimModel::fea_map_from_type(TreeFeaBCData::FEAType type)
{
    return m_fea_maps[type];
}

bool TreeSimModel::associate_bc(TreeData* bc, TreeExodusData* exodus)
{
    if (!RecordDeaths::is_alive(bc) || !RecordDeaths::is_alive(exodus)) {
        return false;
    }
    m_exodus_bc_map.insert(exodus, bc);
    return m_bc_exodus_map.insert(bc, exodus);
}

bool TreeSimModel::disassociate_bc(TreeData* bc, TreeExodusData* exodus)
{
    m_exodus_bc_map.erase(exodus, bc);
    return m_bc_exodus_map.erase(bc, exodus);
}

void TreeSimModel::clear_associations(TreeData* record)
{
    if (auto* exodus = qobject_cast<TreeExodusData*>(record)) {
        clear_exodus_associations(exodus);
    } else {
        clear_bc_associations(record);
    }
}

void TreeSimModel::clear_exodus_associations(TreeExodusData* exodus)
{
    for (TreeData* bc : m_exodus_bc_map.find(exodus)) {
        disassociate_bc(bc, exodus);
    }
    m_exodus_bc_map.erase(exodus);
}

// Also the last step of an outgoing record, which is no more than a key then.
void TreeSimModel::clear_bc_associations(TreeData* bc)
{
    for (TreeExodusData* exodus : m_bc_exodus_map.find(bc)) {
        disassociate_bc(bc, exodus);
    }
    m_bc_exodus_map.erase(bc);
}

template <typename Record>
void TreeSimModel::delete_linked_records(std::map<int, Record*>& records)
{
    delete_records(records, [this](Record* record) { clear_associations(record); });
}
