// The set-up of a simulation: blocks, sidesets and nodesets, boundary conditions
// with the sets that they apply to, materials and media.

#include <treemodel/kernel/BoundaryConditionCode.hpp>
#include <treemodel/kernel/IdSet.hpp>
#include <treemodel/kernel/KernelText.hpp>
#include <treemodel/kernel/TreeKestoObserver.hpp>
#include <treemodel/models/TreeSimModel.hpp>

#include <array>
#include <QPointer>
#include <set>

using KestoInterface::MaterialHandle;
using KestoInterface::MaterialInterface;

namespace {

constexpr char create_action[] = "create";
constexpr char modify_action[] = "modify";
constexpr char delete_action[] = "delete";

// What the model offers for a kind of boundary condition.
template <typename Condition>
struct ConditionLinks;

template <>
struct ConditionLinks<TreeFeaBCData>
{
    static constexpr auto type = &TreeFeaBCData::fea_bc_type;
    static constexpr auto sets = &TreeSimModel::find_exodus_from_fea;
    static constexpr auto add = &TreeSimModel::fea_add_exodus;
    static constexpr auto remove = &TreeSimModel::fea_remove_exodus;
};

template <>
struct ConditionLinks<TreeCfdBCData>
{
    static constexpr auto type = &TreeCfdBCData::cfd_bc_type;
    static constexpr auto sets = &TreeSimModel::find_exodus_from_cfd;
    static constexpr auto add = &TreeSimModel::cfd_add_exodus;
    static constexpr auto remove = &TreeSimModel::cfd_remove_exodus;
};

// Reads the name of a boundary condition and brings its links in line with the
// kernel. A link to what the mirror does not have is not made.
template <typename Condition>
void read_condition(TreeSimModel& model, Condition* condition)
{
    using Links = ConditionLinks<Condition>;
    const QPointer<Condition> bc(condition);
    const auto type = (condition->*Links::type)();
    const int id = condition->id();

    const QString name =
        kernel_text(KestoInterface::get_exodus_entity_name(Condition::type_to_string(type), id));
    if (bc) {
        bc->set_name(name);
    }
    // Keys only: a set may die before its turn comes.
    const std::vector<TreeExodusData*> present = (model.*Links::sets)(bc);
    std::set<TreeExodusData*> unconfirmed(present.begin(), present.end());
    const auto confirm = [&](TreeExodusData::ExodusType set_type, const std::vector<int>& set_ids) {
        for (const int set_id : set_ids) {
            TreeExodusData* exodus = model.find_exodus(set_type, set_id);
            unconfirmed.erase(exodus);
            (model.*Links::add)(bc, exodus);
        }
    };
    const KestoInterface::KI_BCTypes code = boundary_condition_code(type);
    confirm(TreeExodusData::SIDESET, KestoInterface::get_sideset_id_list_for_bc(code, id));
    confirm(TreeExodusData::NODESET, KestoInterface::get_nodeset_id_list_for_bc(code, id));
    for (TreeExodusData* exodus : unconfirmed) {
        (model.*Links::remove)(bc, exodus);
    }
}

} // namespace

void TreeKestoObserver::notify_exodus_entity_modified(std::string type, int id, std::string action)
{
    TreeExodusData::ExodusType exodus_type{};
    if (!TreeExodusData::string_to_type(type, exodus_type)) {
        return;
    }
    if (action == create_action) {
        read_exodus_record(m_sim_model->add_exodus(exodus_type, id));
    } else if (action == modify_action) {
        read_exodus_record(m_sim_model->find_exodus(exodus_type, id));
    } else if (action == delete_action) {
        m_sim_model->remove_exodus(exodus_type, id);
    }
}

void TreeKestoObserver::notify_material_modified(int id, std::string action)
{
    change_material(false, id, action);
}

void TreeKestoObserver::notify_medium_modified(int id, std::string action)
{
    change_material(true, id, action);
}

void TreeKestoObserver::notify_fea_bc_modified(std::string type, int id, std::string action)
{
    TreeFeaBCData::FEAType fea_type{};
    if (TreeFeaBCData::string_to_type(type, fea_type)) {
        change_fea_bc(fea_type, id, action);
    }
}

void TreeKestoObserver::notify_bc_modified(std::string type, int id, std::string action)
{
    TreeFeaBCData::FEAType fea_type{};
    TreeCfdBCData::CFDType cfd_type{};
    if (TreeFeaBCData::string_to_type(type, fea_type)) {
        change_fea_bc(fea_type, id, action);
    } else if (TreeCfdBCData::string_to_type(type, cfd_type)) {
        change_cfd_bc(cfd_type, id, action);
    }
}

void TreeKestoObserver::notify_constraint_modified(int id, std::string action)
{
    change_fea_bc(TreeFeaBCData::CONSTRAINT, id, action);
}

void TreeKestoObserver::refresh_simulation()
{
    refresh_exodus();
    for (int i = TreeFeaBCData::FORCE; i <= TreeFeaBCData::CONTACT_PAIR; ++i) {
        const auto type = static_cast<TreeFeaBCData::FEAType>(i);
        IdSet unconfirmed(m_sim_model->fea_bcs(type));
        for (const int id : KestoInterface::get_bc_id_list(boundary_condition_code(type))) {
            update_fea_bc(m_sim_model->add_fea_bc(type, id));
            unconfirmed.take(id);
        }
        for (const int id : unconfirmed.rest()) {
            m_sim_model->remove_fea_bc(type, id);
        }
    }
    for (int i = TreeCfdBCData::AXIS; i <= TreeCfdBCData::WALL; ++i) {
        const auto type = static_cast<TreeCfdBCData::CFDType>(i);
        IdSet unconfirmed(m_sim_model->cfd_bcs(type));
        for (const int id : KestoInterface::get_bc_id_list(boundary_condition_code(type))) {
            update_cfd_bc(m_sim_model->add_cfd_bc(type, id));
            unconfirmed.take(id);
        }
        for (const int id : unconfirmed.rest()) {
            m_sim_model->remove_cfd_bc(id);
        }
    }
    refresh_materials();
    report_kernel_selection([](const std::string& word) {
        TreeExodusData::ExodusType exodus_type{};
        TreeFeaBCData::FEAType fea_type{};
        TreeCfdBCData::CFDType cfd_type{};
        return TreeExodusData::string_to_type(word, exodus_type) ||
               TreeFeaBCData::string_to_type(word, fea_type) ||
               TreeCfdBCData::string_to_type(word, cfd_type);
    });
}

void TreeKestoObserver::update_fea_bc(TreeFeaBCData* bc)
{
    if (bc) {
        read_condition(*m_sim_model, bc);
    }
}

void TreeKestoObserver::update_cfd_bc(TreeCfdBCData* bc)
{
    if (bc) {
        read_condition(*m_sim_model, bc);
    }
}

void TreeKestoObserver::refresh_exodus()
{
    struct Listed
    {
        TreeExodusData::ExodusType type;
        std::vector<int> (*kernel_ids)();
    };
    constexpr std::array<Listed, 3> all_listed{{
        {TreeExodusData::BLOCK, KestoInterface::get_block_id_list},
        {TreeExodusData::SIDESET, KestoInterface::get_sideset_id_list},
        {TreeExodusData::NODESET, KestoInterface::get_nodeset_id_list},
    }};
    for (const Listed& listed : all_listed) {
        IdSet unconfirmed(m_sim_model->exodus_entities(listed.type));
        for (const int id : listed.kernel_ids()) {
            unconfirmed.take(id);
            read_exodus_display(m_sim_model->add_exodus(listed.type, id));
        }
        for (const int id : unconfirmed.rest()) {
            m_sim_model->remove_exodus(listed.type, id);
        }
    }
}

// Name and visibility: all that a refresh reads. The lite status comes by
// notification only.
void TreeKestoObserver::read_exodus_display(TreeExodusData* exodus)
{
    if (!exodus) {
        return;
    }
    const QPointer<TreeExodusData> record(exodus);
    const std::string word = TreeExodusData::type_to_string(exodus->exodus_type());
    const int id = exodus->id();
    const QString name = kernel_text(KestoInterface::get_exodus_entity_name(word, id));
    if (record) {
        record->set_name(name);
    }
    const bool visible = KestoInterface::is_visible(word, id);
    if (record) {
        record->set_visible(visible);
    }
}

void TreeKestoObserver::read_exodus_record(TreeExodusData* exodus)
{
    const QPointer<TreeExodusData> record(exodus);
    read_exodus_display(exodus);
    if (!record) {
        return;
    }
    const std::string kind = KestoInterface::get_exodus_entity_type(
        TreeExodusData::type_to_string(record->exodus_type()), record->id());
    if (record) {
        record->set_lite(kind == "lite");
    }
}

void TreeKestoObserver::change_fea_bc(
    TreeFeaBCData::FEAType type, int id, const std::string& action)
{
    if (action == create_action) {
        update_fea_bc(m_sim_model->add_fea_bc(type, id));
    } else if (action == modify_action) {
        update_fea_bc(m_sim_model->find_fea_bc(type, id));
    } else if (action == delete_action) {
        m_sim_model->remove_fea_bc(type, id);
    }
}

void TreeKestoObserver::change_cfd_bc(
    TreeCfdBCData::CFDType type, int id, const std::string& action)
{
    if (action == create_action) {
        update_cfd_bc(m_sim_model->add_cfd_bc(type, id));
    } else if (action == modify_action) {
        modify_cfd_bc(type, id);
    } else if (action == delete_action) {
        m_sim_model->remove_cfd_bc(id);
    }
}

// A condition of another kind is replaced, and its successor is read with the
// next event: the reading that follows here is the outgoing record's last.
void TreeKestoObserver::modify_cfd_bc(TreeCfdBCData::CFDType type, int id)
{
    QPointer<TreeCfdBCData> bc(m_sim_model->find_cfd_bc(id));
    if (!bc) {
        bc = m_sim_model->add_cfd_bc(type, id);
    } else if (bc->cfd_bc_type() != type) {
        m_sim_model->remove_cfd_bc(id);
        m_sim_model->add_cfd_bc(type, id);
    }
    update_cfd_bc(bc);
}

// Materials and media share one range of ids, so a record may turn from one into the other.
void TreeKestoObserver::change_material(bool is_medium, int id, const std::string& action)
{
    if (action == delete_action) {
        m_sim_model->remove_material(id);
        return;
    }
    if (action != create_action && action != modify_action) {
        return;
    }
    const QPointer<TreeMaterialData> material(m_sim_model->add_material(id, is_medium));
    read_material_name(material, is_medium);
    if (action == modify_action && material && material->is_cfd() != is_medium) {
        material->set_cfd(is_medium);
    }
}

void TreeKestoObserver::read_material_name(TreeMaterialData* material, bool is_medium)
{
    if (!material) {
        return;
    }
    const QPointer<TreeMaterialData> record(material);
    const QString name = kernel_text(
        KestoInterface::get_exodus_entity_name(is_medium ? "media" : "material", material->id()));
    if (record) {
        record->set_name(name);
    }
}

void TreeKestoObserver::refresh_materials()
{
    std::vector<TreeMaterialData*> records = m_sim_model->materials(false);
    const std::vector<TreeMaterialData*> media = m_sim_model->materials(true);
    records.insert(records.end(), media.begin(), media.end());
    IdSet unconfirmed(records);

    auto* materials = dynamic_cast<MaterialInterface*>(KestoInterface::get_interface("Material"));
    if (materials) {
        for (MaterialHandle handle : materials->material_ids()) {
            const bool is_medium = materials->material_is_medium(handle);
            const int id = materials->material_id(handle);
            // A new medium, too, comes as a material first and turns into a medium then.
            const QPointer<TreeMaterialData> material(m_sim_model->add_material(id, false));
            if (material) {
                material->set_cfd(is_medium);
            }
            read_material_name(material, is_medium);
            unconfirmed.take(id);
        }
    }
    for (const int id : unconfirmed.rest()) {
        m_sim_model->remove_material(id);
    }
}
