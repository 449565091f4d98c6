#include <importers/MeshGroups.hpp>

#include <algorithm>
#include <array>
#include <embedded/EmbeddedKernel.hpp>
#include <set>
#include <treemodel/kernel/KestoInterface.hpp>

namespace {

struct Level
{
    EntityKind kind;
    std::vector<ElementCounts> MeshCounts::*counts;
};

constexpr std::array levels{
    Level{EntityKind::VOLUME, &MeshCounts::volumes},
    Level{EntityKind::SURFACE, &MeshCounts::surfaces},
    Level{EntityKind::CURVE, &MeshCounts::curves},
    Level{EntityKind::VERTEX, &MeshCounts::vertices},
};

std::vector<int> relatives(EntityKind kind, int id, EntityKind wanted)
{
    return KestoInterface::get_relatives(entity_word(kind), id, entity_word(wanted));
}

// What carries the mesh of a group: no bodies and groups, but what they stand for. Indexed as
// `levels`.
class MeshedMembers
{
public:
    explicit MeshedMembers(int group) { add_group(group); }

    ElementCounts counts_in(const MeshCounts& mesh) const
    {
        ElementCounts sum;
        for (std::size_t level = 0; level < levels.size(); ++level) {
            add_all(sum, m_ids[level], mesh.*levels[level].counts);
        }
        sum.nodes = nodes_in(mesh);
        return sum;
    }

private:
    using Ids = std::set<int>;

    static void add_all(
        ElementCounts& sum, const Ids& ids, const std::vector<ElementCounts>& counts)
    {
        for (const int id : ids) {
            if (static_cast<std::size_t>(id) <= counts.size()) {
                sum += counts[static_cast<std::size_t>(id) - 1];
            }
        }
    }

    void add_group(int id)
    {
        if (!m_groups.insert(id).second) {
            return;
        }
        std::vector<int> groups;
        std::vector<int> bodies;
        std::array<std::vector<int>, levels.size()> members;
        ElementCounts counts;
        auto& [volumes, surfaces, curves, vertices] = members;
        KestoInterface::get_group_children(id, groups, bodies, volumes, surfaces, curves, vertices,
            counts.nodes, counts.edges, counts.hexes, counts.quads, counts.tets, counts.tris,
            counts.wedges, counts.pyramids, counts.spheres);
        for (const int body : bodies) {
            const auto inner = relatives(EntityKind::BODY, body, EntityKind::VOLUME);
            volumes.insert(volumes.end(), inner.begin(), inner.end());
        }
        for (const int volume : volumes) {
            if (KestoInterface::is_sheet_body(volume)) {
                const auto inner = relatives(EntityKind::VOLUME, volume, EntityKind::SURFACE);
                surfaces.insert(surfaces.end(), inner.begin(), inner.end());
            }
        }
        for (std::size_t level = 0; level < levels.size(); ++level) {
            m_ids[level].insert(members[level].begin(), members[level].end());
        }
        for (const int group : groups) {
            add_group(group);
        }
    }

    int nodes_in(const MeshCounts& mesh) const
    {
        auto closure = m_ids;
        for (std::size_t level = 0; level + 1 < levels.size(); ++level) {
            for (const int id : closure[level]) {
                const auto below = relatives(levels[level].kind, id, levels[level + 1].kind);
                closure[level + 1].insert(below.begin(), below.end());
            }
        }
        ElementCounts sum;
        for (std::size_t level = 0; level < levels.size(); ++level) {
            add_all(sum, closure[level], mesh.*levels[level].counts);
        }
        return sum.nodes;
    }

    std::set<int> m_groups;
    std::array<Ids, levels.size()> m_ids;
};

int make_whole_mesh_group(EmbeddedKernel& kernel)
{
    const int id = kernel.create_group(std::string(whole_mesh_name));
    kernel.add_to_group(id, EntityKind::BODY, KestoInterface::get_entities("body"));
    for (const EntityKind kind : {EntityKind::SURFACE, EntityKind::CURVE, EntityKind::VERTEX}) {
        kernel.add_to_group(
            id, kind, KestoInterface::get_list_of_free_ref_entities(entity_word(kind)));
    }
    return id;
}

ElementCounts whole(const MeshCounts& mesh)
{
    ElementCounts sum;
    for (const auto& level : levels) {
        for (const auto& counts : mesh.*level.counts) {
            sum += counts;
        }
    }
    return sum;
}

} // namespace

int count_into_groups(EmbeddedKernel& kernel, const MeshCounts& mesh)
{
    std::vector<std::string> names;
    std::vector<int> groups;
    KestoInterface::group_list(names, groups);
    const auto found = std::find(names.begin(), names.end(), whole_mesh_name);
    const bool is_missing = found == names.end();
    const int whole_mesh = is_missing ? make_whole_mesh_group(kernel)
                                      : groups[static_cast<std::size_t>(found - names.begin())];
    for (const int group : groups) {
        if (group != whole_mesh) {
            kernel.set_element_counts(group, MeshedMembers(group).counts_in(mesh));
        }
    }
    kernel.set_element_counts(whole_mesh, whole(mesh));
    return is_missing ? whole_mesh : 0;
}
