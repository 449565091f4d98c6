// Groups: their notifications, their members and element counts, and the
// reconciliation of all of them.

#include <treemodel/kernel/IdSet.hpp>
#include <treemodel/kernel/KernelText.hpp>
#include <treemodel/kernel/RecordFamily.hpp>
#include <treemodel/kernel/TreeKestoObserver.hpp>
#include <treemodel/models/TreeGeomModel.hpp>
#include <treemodel/models/TreeGroupModel.hpp>
#include <treemodel/models/TreeMeshModel.hpp>

#include <array>
#include <utility>

namespace {

constexpr std::size_t geometry_type_count = TreeGeometryData::BODY + 1;
constexpr std::size_t mesh_type_count = TreeMeshData::NODE + 1;

// What a group holds, by the kind of its members: ids, and kinds of element.
struct GroupMembers
{
    std::vector<int> groups;
    std::array<std::vector<int>, geometry_type_count> geometry; // indexed by GeometryType
    std::vector<int> mesh_types;
};

GroupMembers members_by_kind(const std::vector<TreeData*>& records)
{
    GroupMembers members;
    for_each_with_family(records, [&members](TreeData* record, RecordFamily family) {
        switch (family) {
        case RecordFamily::GEOMETRY:
            members.geometry[static_cast<TreeGeometryData*>(record)->geometry_type()].push_back(
                record->id());
            break;
        case RecordFamily::GROUP:
            members.groups.push_back(record->id());
            break;
        case RecordFamily::MESH:
            members.mesh_types.push_back(static_cast<TreeMeshData*>(record)->mesh_type());
            break;
        default:
            break;
        }
    });
    return members;
}

// What the kernel says that a group holds.
struct KernelGroup
{
    explicit KernelGroup(int id)
    {
        using G = TreeGeometryData;
        using M = TreeMeshData;
        KestoInterface::get_group_children(id, groups, geometry[G::BODY], geometry[G::VOLUME],
            geometry[G::SURFACE], geometry[G::CURVE], geometry[G::VERTEX], counts[M::NODE],
            counts[M::EDGE], counts[M::HEX], counts[M::QUAD], counts[M::TET], counts[M::TRI],
            counts[M::WEDGE], counts[M::PYRAMID], counts[M::SPHERE]);
    }

    std::vector<int> groups;
    std::array<std::vector<int>, geometry_type_count> geometry; // indexed by GeometryType
    std::array<int, mesh_type_count> counts{};                  // indexed by MeshType
};

} // namespace

void TreeKestoObserver::notify_group_created(int id)
{
    m_group_model->add_group(kernel_text(KestoInterface::get_entity_name("group", id, false)), id);
    notify_group_modified(id);
}

void TreeKestoObserver::notify_group_modified(int id)
{
    if (!m_group_model->find_group(id)) {
        return;
    }
    const QString name = kernel_text(KestoInterface::get_entity_name("group", id, false));
    TreeGroupData* group = m_group_model->find_group(id);
    if (group && group->name() != name) {
        group->set_name(name);
    }
    const bool visible = KestoInterface::is_visible("group", id);
    group = m_group_model->find_group(id);
    if (!group) {
        return;
    }
    group->set_visible(visible);
    reconcile_group(id);
}

void TreeKestoObserver::notify_group_deleted(int id)
{
    m_group_model->remove_group(id);
}

void TreeKestoObserver::refresh_groups()
{
    IdSet unconfirmed(m_group_model->groups());
    std::vector<std::string> names;
    std::vector<int> ids;
    KestoInterface::group_list(names, ids);
    for (std::size_t k = 0; k < std::min(names.size(), ids.size()); ++k) {
        m_group_model->add_group(kernel_text(names[k]), ids[k]);
        notify_group_modified(ids[k]);
        unconfirmed.take(ids[k]);
    }
    for (const int id : unconfirmed.rest()) {
        m_group_model->remove_group(id);
    }
    report_kernel_selection([](const std::string& word) { return word == "group"; });
}

// The group is looked up at each step: whoever hears of a member may remove it.
void TreeKestoObserver::reconcile_group(int id)
{
    const auto group = [this, id] { return m_group_model->find_group(id); };
    const GroupMembers present = members_by_kind(m_group_model->find_group_children(group()));
    const KernelGroup listed(id);

    const auto reconcile = [&](const std::vector<int>& present_ids,
                               const std::vector<int>& listed_ids, const auto& find) {
        IdSet unconfirmed(present_ids);
        for (const int member : listed_ids) {
            if (!unconfirmed.take(member)) {
                m_group_model->add_group_child(group(), find(member));
            }
        }
        for (const int member : unconfirmed.rest()) {
            m_group_model->remove_group_child(group(), find(member));
        }
    };
    reconcile(present.groups, listed.groups,
        [this](int member) { return m_group_model->find_group(member); });
    for (std::size_t i = 0; i < geometry_type_count; ++i) {
        const auto type = static_cast<TreeGeometryData::GeometryType>(i);
        reconcile(present.geometry[i], listed.geometry[i],
            [this, type](int member) { return m_geom_model->find_geometry(type, member); });
    }

    IdSet unconfirmed_types(present.mesh_types);
    for (std::size_t i = 0; i < mesh_type_count; ++i) {
        if (listed.counts[i] != 0) {
            const auto type = static_cast<TreeMeshData::MeshType>(i);
            unconfirmed_types.take(type);
            TreeMeshData* record = m_mesh_model->add_mesh_data(type, listed.counts[i], group());
            m_group_model->add_group_child(group(), record);
        }
    }
    // The membership goes with the record.
    for (const int type : unconfirmed_types.rest()) {
        m_mesh_model->remove_mesh_data(static_cast<TreeMeshData::MeshType>(type), group());
    }
}
