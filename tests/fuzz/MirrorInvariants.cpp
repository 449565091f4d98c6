#include "MirrorInvariants.hpp"

#include <algorithm>
#include <functional>
#include <set>
#include <support/RecordText.hpp>
#include <treemodel/kernel/KestoInterface.hpp>
#include <treemodel/kernel/TreeModel.hpp>

namespace {

/// Calls `visit` with every list of the mirror and the finder of the same records.
template <typename Visit>
void visit_lists(TreeModel& mirror, Visit visit)
{
    for (int i = TreeGeometryData::BODY; i >= TreeGeometryData::VERTEX; --i) {
        const auto type = TreeGeometryData::GeometryType(i);
        visit(mirror.geometry(type), [&, type](int id) { return mirror.find_geometry(type, id); });
    }
    visit(mirror.groups(), [&](int id) { return mirror.find_group(id); });
    visit(mirror.sizing_sources(), [&](int id) { return mirror.find_sizing_source(id); });
    visit(mirror.boundary_layers(), [&](int id) { return mirror.find_boundary_layer(id); });
    for (int i = TreeExodusData::BLOCK; i <= TreeExodusData::NODESET; ++i) {
        const auto type = TreeExodusData::ExodusType(i);
        visit(mirror.exodus_entities(type),
            [&, type](int id) { return mirror.find_exodus(type, id); });
    }
    for (int i = TreeFeaBCData::FORCE; i <= TreeFeaBCData::CONTACT_PAIR; ++i) {
        const auto type = TreeFeaBCData::FEAType(i);
        visit(mirror.fea_bcs(type), [&, type](int id) { return mirror.find_fea_bc(type, id); });
    }
    for (int i = TreeCfdBCData::AXIS; i <= TreeCfdBCData::WALL; ++i) {
        visit(mirror.cfd_bcs(TreeCfdBCData::CFDType(i)),
            [&](int id) { return mirror.find_cfd_bc(id); });
    }
    for (const bool is_cfd : {false, true}) {
        visit(mirror.materials(is_cfd), [&](int id) { return mirror.find_material(id); });
    }
}

template <typename Record>
bool contains(const std::vector<Record*>& records, TreeData* record)
{
    return std::find(records.begin(), records.end(), record) != records.end();
}

template <typename Record>
std::vector<int> ids_of(const std::vector<Record*>& records)
{
    std::vector<int> ids;
    std::transform(records.begin(), records.end(), std::back_inserter(ids),
        [](Record* record) { return record->id(); });
    return ids;
}

/// Looks through a mirror and keeps what it finds wrong first.
class RuleCheck
{
public:
    explicit RuleCheck(TreeModel& mirror)
        : m_mirror(mirror)
    {
        const std::vector<TreeData*> records = all_records(mirror);
        m_listed.insert(records.begin(), records.end());
        demand(m_listed.size() == records.size(), nullptr, "a record is listed twice");
    }

    QString run()
    {
        check_lists();
        check_geometry();
        check_groups();
        check_mesh();
        check_conditions();
        return m_broken;
    }

private:
    void demand(bool holds, TreeData* record, const char* otherwise)
    {
        if (!holds && m_broken.isEmpty()) {
            m_broken = (record ? record_text(record) + ": " : QString()) + otherwise;
        }
    }

    /// `back` gives the links of a linked record from its side.
    template <typename Record, typename Linked, typename Back>
    void check_links(Record* record, const std::vector<Linked*>& linked, Back back)
    {
        for (Linked* other : linked) {
            demand(m_listed.contains(other), record, "is linked to a record that is not listed");
            if (m_listed.contains(other)) {
                demand(contains(back(other), record), record, "is linked from one side alone");
            }
        }
    }

    void check_lists()
    {
        visit_lists(m_mirror, [this](const auto& records, auto find) {
            const std::vector<int> ids = ids_of(records);
            demand(std::adjacent_find(ids.begin(), ids.end(), std::greater_equal()) == ids.end(),
                nullptr, "a list does not ascend");
            for (auto* record : records) {
                demand(find(record->id()) == record, record, "is listed and not found");
                demand(!record->name().isEmpty(), record, "has no name");
            }
        });
    }

    void check_geometry()
    {
        for (int i = TreeGeometryData::VERTEX; i <= TreeGeometryData::BODY; ++i) {
            for (auto* record : m_mirror.geometry(TreeGeometryData::GeometryType(i))) {
                const auto children = m_mirror.find_geometry_children(record);
                const auto parents = m_mirror.find_geometry_parents(record);
                for (auto* child : children) {
                    demand(child->geometry_type() == i - 1, record, "has a child of a wrong type");
                }
                check_links(record, children,
                    [this](auto* child) { return m_mirror.find_geometry_parents(child); });
                check_links(record, parents,
                    [this](auto* parent) { return m_mirror.find_geometry_children(parent); });
                demand(record->geometry_type() == i, record, "is listed under a wrong type");
                demand(record->name().endsWith(QLatin1String(" (v)")) == record->is_virtual(),
                    record, "does not tell by its name whether it is virtual");
            }
        }
    }

    void check_groups()
    {
        for (TreeGroupData* group : m_mirror.groups()) {
            check_links(group, m_mirror.find_group_children(group),
                [this](TreeData* member) { return m_mirror.find_groups_for_child(member); });
        }
        for (TreeData* record : m_listed) {
            check_links(record, m_mirror.find_groups_for_child(record),
                [this](TreeGroupData* group) { return m_mirror.find_group_children(group); });
        }
    }

    void check_mesh()
    {
        std::size_t owned = 0;
        for (TreeGroupData* group : m_mirror.groups()) {
            for (TreeMeshData* mesh : m_mirror.find_mesh_data(group)) {
                ++owned;
                demand(m_mirror.find_mesh_data(mesh->mesh_type(), group) == mesh, mesh,
                    "is not found by its owner and type");
                demand(contains(m_mirror.find_mesh_data(mesh->mesh_type()), mesh), mesh,
                    "is not found by its type");
                demand(mesh->element_count() > 0, mesh, "counts nothing");
            }
        }
        demand(owned == m_mirror.mesh_data().size(), nullptr, "a mesh record has no owner");
    }

    void check_conditions()
    {
        for (int i = TreeFeaBCData::FORCE; i <= TreeFeaBCData::CONTACT_PAIR; ++i) {
            for (TreeFeaBCData* bc : m_mirror.fea_bcs(TreeFeaBCData::FEAType(i))) {
                check_links(bc, m_mirror.find_exodus_from_fea(bc),
                    [this](auto* set) { return m_mirror.find_fea_from_exodus(set); });
            }
        }
        for (int i = TreeCfdBCData::AXIS; i <= TreeCfdBCData::WALL; ++i) {
            for (TreeCfdBCData* bc : m_mirror.cfd_bcs(TreeCfdBCData::CFDType(i))) {
                check_links(bc, m_mirror.find_exodus_from_cfd(bc),
                    [this](auto* set) { return m_mirror.find_cfd_from_exodus(set); });
            }
        }
        for (int i = TreeExodusData::BLOCK; i <= TreeExodusData::NODESET; ++i) {
            for (auto* set : m_mirror.exodus_entities(TreeExodusData::ExodusType(i))) {
                check_links(set, m_mirror.find_fea_from_exodus(set),
                    [this](auto* bc) { return m_mirror.find_exodus_from_fea(bc); });
                check_links(set, m_mirror.find_cfd_from_exodus(set),
                    [this](auto* bc) { return m_mirror.find_exodus_from_cfd(bc); });
            }
        }
    }

    TreeModel& m_mirror;
    std::set<TreeData*> m_listed;
    QString m_broken;
};

std::vector<int> sorted(std::vector<int> ids)
{
    std::sort(ids.begin(), ids.end());
    return ids;
}

/// Compares a mirror with the answers of the kernel and keeps the first difference.
class KernelCheck
{
public:
    explicit KernelCheck(TreeModel& mirror)
        : m_mirror(mirror)
    {
    }

    QString run()
    {
        check_geometry();
        check_groups();
        check_setup();
        return m_difference;
    }

private:
    void compare(const std::vector<int>& ours, const std::vector<int>& kernels, const QString& what)
    {
        if (ours != sorted(kernels) && m_difference.isEmpty()) {
            m_difference = what + " differ from the kernel's";
        }
    }

    void check_geometry()
    {
        for (int i = TreeGeometryData::BODY; i >= TreeGeometryData::VERTEX; --i) {
            const auto type = TreeGeometryData::GeometryType(i);
            const std::string word = TreeGeometryData::type_to_string(type);
            const auto records = m_mirror.geometry(type);
            compare(ids_of(records), KestoInterface::get_entities(word),
                "the ids of " + QString::fromStdString(word));
            if (type == TreeGeometryData::VERTEX) {
                continue;
            }
            const std::string child_word =
                TreeGeometryData::type_to_string(TreeGeometryData::GeometryType(i - 1));
            for (TreeGeometryData* record : records) {
                compare(sorted(ids_of(m_mirror.find_geometry_children(record))),
                    KestoInterface::get_relatives(word, record->id(), child_word),
                    "the children of " + record_text(record));
            }
        }
    }

    void check_groups()
    {
        std::vector<std::string> names;
        std::vector<int> ids;
        KestoInterface::group_list(names, ids);
        compare(ids_of(m_mirror.groups()), ids, "the groups");
        for (std::size_t i = 0; i < ids.size(); ++i) {
            TreeGroupData* const group = m_mirror.find_group(ids[i]);
            const QString name = QString::fromStdString(names[i]);
            if (group && !name.isEmpty() && group->name() != name && m_difference.isEmpty()) {
                m_difference = record_text(group) + " is called otherwise than the kernel's";
            }
        }
    }

    void check_setup()
    {
        compare(ids_of(m_mirror.sizing_sources()), KestoInterface::sizing_source_ids(),
            "the sizing sources");
        compare(ids_of(m_mirror.boundary_layers()), KestoInterface::get_boundary_layer_id_list(),
            "the boundary layers");
        compare(ids_of(m_mirror.exodus_entities(TreeExodusData::BLOCK)),
            KestoInterface::get_block_id_list(), "the blocks");
        compare(ids_of(m_mirror.exodus_entities(TreeExodusData::SIDESET)),
            KestoInterface::get_sideset_id_list(), "the sidesets");
        compare(ids_of(m_mirror.exodus_entities(TreeExodusData::NODESET)),
            KestoInterface::get_nodeset_id_list(), "the nodesets");
        for (int i = TreeCfdBCData::AXIS; i <= TreeCfdBCData::WALL; ++i) {
            compare(ids_of(m_mirror.cfd_bcs(TreeCfdBCData::CFDType(i))),
                KestoInterface::get_bc_id_list(
                    KestoInterface::KI_BCTypes(KestoInterface::BC_AXIS + i)),
                "the boundary conditions of fluids");
        }
        auto* const materials = dynamic_cast<KestoInterface::MaterialInterface*>(
            KestoInterface::get_interface("Material"));
        for (const bool is_medium : {false, true}) {
            std::vector<int> ids;
            for (KestoInterface::MaterialHandle handle : materials->material_ids()) {
                if (materials->material_is_medium(handle) == is_medium) {
                    ids.push_back(materials->material_id(handle));
                }
            }
            compare(ids_of(m_mirror.materials(is_medium)), ids, "the materials");
        }
    }

    TreeModel& m_mirror;
    QString m_difference;
};

} // namespace

std::vector<TreeData*> all_records(TreeModel& mirror)
{
    std::vector<TreeData*> all;
    visit_lists(mirror, [&all](const auto& records, const auto& /*find*/) {
        all.insert(all.end(), records.begin(), records.end());
    });
    const auto mesh = mirror.mesh_data();
    all.insert(all.end(), mesh.begin(), mesh.end());
    return all;
}

QString broken_rule(TreeModel& mirror)
{
    return RuleCheck(mirror).run();
}

QString difference_from_kernel(TreeModel& mirror)
{
    return KernelCheck(mirror).run();
}
