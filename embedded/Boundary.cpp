// The functions of the kernel boundary, answered for the active kernel. None of them throws: what
// cannot be answered has the empty answer.

#include <embedded/KernelState.hpp>
#include <optional>
#include <treemodel/kernel/KestoInterface.hpp>

namespace {

// `ask` called with the active state; an empty answer without one, or if memory runs out.
template <typename Ask>
auto answer(Ask ask) noexcept -> decltype(ask(*KernelState::active()))
{
    using Answer = decltype(ask(*KernelState::active()));
    try {
        const KernelState* const state = KernelState::active();
        return state != nullptr ? ask(*state) : Answer();
    } catch (...) {
        return Answer();
    }
}

// The same for a question about one entity: `ask` gets its kind too, but only if it is there.
template <typename Ask>
auto answer_for(const std::string& word, int id, Ask ask) noexcept
    -> decltype(ask(*KernelState::active(), EntityKind()))
{
    using Answer = decltype(ask(*KernelState::active(), EntityKind()));
    return answer([&](const KernelState& state) {
        const std::optional<EntityKind> kind = entity_kind(word);
        return kind && state.contains(*kind, id) ? ask(state, *kind) : Answer();
    });
}

std::optional<EntityKind> geometry_kind(const std::string& word)
{
    const std::optional<EntityKind> kind = entity_kind(word);
    return kind && Topology::is_geometry(*kind) ? kind : std::nullopt;
}

} // namespace

namespace KestoInterface {

std::vector<int> get_entities(const std::string& type)
{
    return answer([&](const KernelState& state) {
        const std::optional<EntityKind> kind = geometry_kind(type);
        return kind ? state.ids(*kind) : std::vector<int>();
    });
}

std::vector<int> get_list_of_free_ref_entities(const std::string& type)
{
    return answer([&](const KernelState& state) {
        const std::optional<EntityKind> kind = geometry_kind(type);
        return kind && *kind <= EntityKind::SURFACE ? state.geometry.free_ids(*kind)
                                                    : std::vector<int>();
    });
}

std::vector<int> get_block_id_list()
{
    return {};
}

std::vector<int> get_sideset_id_list()
{
    return {};
}

std::vector<int> get_nodeset_id_list()
{
    return {};
}

std::vector<int> get_bc_id_list(KI_BCTypes)
{
    return {};
}

std::vector<int> get_sideset_id_list_for_bc(KI_BCTypes, int)
{
    return {};
}

std::vector<int> get_nodeset_id_list_for_bc(KI_BCTypes, int)
{
    return {};
}

std::vector<int> get_boundary_layer_id_list()
{
    return {};
}

std::vector<int> sizing_source_ids()
{
    return {};
}

void group_list(std::vector<std::string>& names, std::vector<int>& ids)
{
    answer([&](const KernelState& state) {
        std::vector<int> group_ids = state.ids(EntityKind::GROUP);
        std::vector<std::string> group_names;
        group_names.reserve(group_ids.size());
        for (const int id : group_ids) {
            group_names.push_back(state.groups.row(id).name);
        }
        names = std::move(group_names);
        ids = std::move(group_ids);
        return true;
    });
}

std::string get_entity_name(const std::string& type, int id, bool)
{
    return answer_for(type, id,
        [id](const KernelState& state, EntityKind kind) { return state.find(kind, id)->name; });
}

std::string get_exodus_entity_name(std::string, int)
{
    return {};
}

std::string get_exodus_entity_type(std::string, int)
{
    return {};
}

bool is_visible(const std::string& type, int id)
{
    return answer_for(type, id,
        [id](const KernelState& state, EntityKind kind) { return state.find(kind, id)->visible; });
}

bool is_virtual(const std::string& type, int id)
{
    return answer_for(type, id, [id](const KernelState& state, EntityKind kind) {
        return Topology::is_geometry(kind) && state.geometry.row(kind, id).is_virtual;
    });
}

bool contains_virtual(const std::string& type, int id)
{
    return answer_for(type, id, [id](const KernelState& state, EntityKind kind) {
        return Topology::is_geometry(kind) && state.geometry.holds_virtual(kind, id);
    });
}

bool is_sheet_body(int volume_id)
{
    return answer_for("volume", volume_id, [volume_id](const KernelState& state, EntityKind kind) {
        return state.geometry.row(kind, volume_id).is_sheet;
    });
}

std::vector<int> get_relatives(
    const std::string& source_type, int source_id, const std::string& target_type)
{
    return answer_for(source_type, source_id, [&](const KernelState& state, EntityKind kind) {
        const std::optional<EntityKind> target = geometry_kind(target_type);
        return Topology::is_geometry(kind) && target
                   ? state.geometry.relatives(kind, source_id, *target)
                   : std::vector<int>();
    });
}

void get_group_children(int group_id, std::vector<int>& groups, std::vector<int>& bodies,
    std::vector<int>& volumes, std::vector<int>& surfaces, std::vector<int>& curves,
    std::vector<int>& vertices, int& nodes, int& edges, int& hexes, int& quads, int& tets,
    int& tris, int& wedges, int& pyramids, int& spheres)
{
    answer_for("group", group_id, [&](const KernelState& state, EntityKind) {
        GroupRow group = state.groups.row(group_id);
        groups = std::move(group.of(EntityKind::GROUP));
        bodies = std::move(group.of(EntityKind::BODY));
        volumes = std::move(group.of(EntityKind::VOLUME));
        surfaces = std::move(group.of(EntityKind::SURFACE));
        curves = std::move(group.of(EntityKind::CURVE));
        vertices = std::move(group.of(EntityKind::VERTEX));
        nodes = group.elements.nodes;
        edges = group.elements.edges;
        hexes = group.elements.hexes;
        quads = group.elements.quads;
        tets = group.elements.tets;
        tris = group.elements.tris;
        wedges = group.elements.wedges;
        pyramids = group.elements.pyramids;
        spheres = group.elements.spheres;
        return true;
    });
}

int current_selection_count()
{
    return 0;
}

std::string get_selected_type(int)
{
    return {};
}

int get_selected_id(int)
{
    return 0;
}

bool silent_cmd(const char*)
{
    return false;
}

KestoBaseInterface* get_interface(std::string)
{
    return nullptr;
}

} // namespace KestoInterface
