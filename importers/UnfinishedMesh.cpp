#include <importers/UnfinishedMesh.hpp>

#include <array>
#include <embedded/EmbeddedKernel.hpp>
#include <importers/MeshGroups.hpp>
#include <treemodel/kernel/KestoInterface.hpp>

namespace {

std::map<int, std::string> present_groups()
{
    std::vector<std::string> names;
    std::vector<int> ids;
    KestoInterface::group_list(names, ids);
    std::map<int, std::string> result;
    for (std::size_t i = 0; i < ids.size(); ++i) {
        result.emplace(ids[i], names[i]);
    }
    return result;
}

ElementCounts counts_of(int group)
{
    std::array<std::vector<int>, 6> members;
    auto& [groups, bodies, volumes, surfaces, curves, vertices] = members;
    ElementCounts counts;
    KestoInterface::get_group_children(group, groups, bodies, volumes, surfaces, curves, vertices,
        counts.nodes, counts.edges, counts.hexes, counts.quads, counts.tets, counts.tris,
        counts.wedges, counts.pyramids, counts.spheres);
    return counts;
}

} // namespace

UnfinishedMesh::UnfinishedMesh(EmbeddedKernel& kernel)
    : m_kernel(kernel)
{
    for (const auto& [id, name] : present_groups()) {
        m_former.emplace(id, counts_of(id));
    }
}

void UnfinishedMesh::count(const MeshCounts& mesh)
{
    if (const int made = count_into_groups(m_kernel, mesh)) {
        m_made_group = made;
    }
}

void UnfinishedMesh::take_back()
{
    for (const auto& [id, name] : present_groups()) {
        // The id may have gone to another group.
        if (id == m_made_group && name == whole_mesh_name) {
            m_kernel.remove(EntityKind::GROUP, id);
        } else {
            const auto former = m_former.find(id);
            m_kernel.set_element_counts(
                id, former == m_former.end() ? ElementCounts() : former->second);
        }
    }
}
