// State of one entity: its name, its id, its visibility. Which kinds each
// notification serves is the kernel's contract; the others it passes over.

#include <treemodel/kernel/KernelText.hpp>
#include <treemodel/kernel/TreeKestoObserver.hpp>
#include <treemodel/models/TreeGeomModel.hpp>
#include <treemodel/models/TreeGroupModel.hpp>
#include <treemodel/models/TreeSimModel.hpp>

namespace {

// The kernel's queries do not know the other word for a body.
const std::string& query_word(const std::string& type)
{
    static const std::string body("body");
    return type == "sheet body" ? body : type;
}

} // namespace

void TreeKestoObserver::notify_entity_id_changed(std::string type, int old_id, int new_id)
{
    TreeGeometryData::GeometryType geometry_type{};
    TreeFeaBCData::FEAType fea_type{};
    TreeCfdBCData::CFDType cfd_type{};
    if (TreeGeometryData::string_to_type(type, geometry_type)) {
        m_geom_model->change_geometry_id(geometry_type, old_id, new_id);
    } else if (type == "group") {
        m_group_model->change_group_id(old_id, new_id);
    } else if (TreeFeaBCData::string_to_type(type, fea_type)) {
        m_sim_model->change_fea_bc_id(fea_type, old_id, new_id);
    } else if (TreeCfdBCData::string_to_type(type, cfd_type)) {
        m_sim_model->change_cfd_bc_id(old_id, new_id);
    }
}

void TreeKestoObserver::notify_entity_name_changed(std::string type, int id)
{
    const QString name =
        kernel_text(KestoInterface::get_entity_name(query_word(type), id, type != "group"));
    if (TreeData* record = find_geometry_or_group(type, id)) {
        record->set_name(name);
    }
}

void TreeKestoObserver::notify_entity_visibility_changed(std::string type, int id)
{
    const bool visible = KestoInterface::is_visible(query_word(type), id);
    if (TreeData* record = find_geometry_or_group(type, id)) {
        record->set_visible(visible);
    }
}

void TreeKestoObserver::notify_exodus_visibility_changed(std::string type, int id)
{
    const bool visible = KestoInterface::is_visible(type, id);
    TreeExodusData::ExodusType exodus_type{};
    if (!TreeExodusData::string_to_type(type, exodus_type)) {
        return;
    }
    if (TreeExodusData* record = m_sim_model->find_exodus(exodus_type, id)) {
        record->set_visible(visible);
    }
}

TreeData* TreeKestoObserver::find_geometry_or_group(const std::string& type, int id)
{
    TreeGeometryData::GeometryType geometry_type{};
    if (TreeGeometryData::string_to_type(type, geometry_type)) {
        return m_geom_model->find_geometry(geometry_type, id);
    }
    if (type == "group") {
        return m_group_model->find_group(id);
    }
    return nullptr;
}
