// The functions of the kernel boundary, answered for the active kernel. None of them throws: what
// cannot be answered has the empty answer.

#include <cstdint>
#include <embedded/EmbeddedKernel.hpp>
#include <embedded/KernelState.hpp>
#include <optional>
#include <treemodel/kernel/KestoInterface.hpp>

namespace {

// `ask` called with the active state; an empty answer without one, or if memory runs out.
template <typename Ask>
auto answer(Ask ask) noexcept -> decltype(ask(*active_state()))
{
    using Answer = decltype(ask(*active_state()));
    try {
        const KernelState* const state = active_state();
        return state != nullptr ? ask(*state) : Answer();
    } catch (...) {
        return Answer();
    }
}

// The same for a question about one entity: `ask` gets its kind too, but only if it is there.
template <typename Ask>
auto answer_for(const std::string& word, int id, Ask ask) noexcept
    -> decltype(ask(*active_state(), EntityKind()))
{
    using Answer = decltype(ask(*active_state(), EntityKind()));
    return answer([&](const KernelState& state) {
        const std::optional<EntityKind> kind = entity_kind(word);
        return kind && state.contains(*kind, id) ? ask(state, *kind) : Answer();
    });
}

std::optional<EntityKind> geometry_kind(const std::string& word)
{
    const std::optional<EntityKind> kind = entity_kind(word);
    return kind && geometry_family.has(*kind) ? kind : std::nullopt;
}

std::vector<int> ids_of(EntityKind kind)
{
    return answer([kind](const KernelState& state) { return state.ids(kind); });
}

std::vector<int> sets_of_condition(
    KestoInterface::KI_BCTypes type, int id, std::vector<int> SetupRow::*sets)
{
    return answer([&](const KernelState& state) {
        const std::optional<EntityKind> kind = condition_kind(type);
        return kind && state.contains(*kind, id) ? state.setup.row(*kind, id).*sets
                                                 : std::vector<int>();
    });
}

template <typename Ask>
auto answer_for_selected(int index, Ask ask) noexcept
{
    using Answer = std::decay_t<decltype(ask(Entity()))>;
    return answer([&](const KernelState& state) {
        const bool is_there =
            index >= 0 && static_cast<std::size_t>(index) < state.selection.size();
        return is_there ? ask(state.selection[static_cast<std::size_t>(index)]) : Answer();
    });
}

// A handle is the id of the material or medium itself.
class MaterialComponent : public KestoInterface::MaterialInterface
{
public:
    std::vector<KestoInterface::MaterialHandle> material_ids() override
    {
        return answer([](const KernelState& state) {
            std::vector<KestoInterface::MaterialHandle> handles;
            for (const EntityKind kind : {EntityKind::MATERIAL, EntityKind::MEDIUM}) {
                for (const int id : state.ids(kind)) {
                    // Never followed. NOLINTNEXTLINE(performance-no-int-to-ptr)
                    handles.push_back(reinterpret_cast<void*>(static_cast<std::intptr_t>(id)));
                }
            }
            return handles;
        });
    }

    int material_id(KestoInterface::MaterialHandle handle) override
    {
        return static_cast<int>(reinterpret_cast<std::intptr_t>(handle));
    }

    bool material_is_medium(KestoInterface::MaterialHandle handle) override
    {
        return answer([id = material_id(handle)](const KernelState& state) {
            return state.contains(EntityKind::MEDIUM, id);
        });
    }
};

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
    return ids_of(EntityKind::BLOCK);
}

std::vector<int> get_sideset_id_list()
{
    return ids_of(EntityKind::SIDESET);
}

std::vector<int> get_nodeset_id_list()
{
    return ids_of(EntityKind::NODESET);
}

std::vector<int> get_bc_id_list(KI_BCTypes type)
{
    const std::optional<EntityKind> kind = condition_kind(type);
    return kind ? ids_of(*kind) : std::vector<int>();
}

std::vector<int> get_sideset_id_list_for_bc(KI_BCTypes type, int bc_id)
{
    return sets_of_condition(type, bc_id, &SetupRow::sidesets);
}

std::vector<int> get_nodeset_id_list_for_bc(KI_BCTypes type, int bc_id)
{
    return sets_of_condition(type, bc_id, &SetupRow::nodesets);
}

std::vector<int> get_boundary_layer_id_list()
{
    return ids_of(EntityKind::BOUNDARY_LAYER);
}

std::vector<int> sizing_source_ids()
{
    return ids_of(EntityKind::SIZING_SOURCE);
}

// A group that is nested in another one before that one, so that whoever reads group after group
// knows the members.
void group_list(std::vector<std::string>& names, std::vector<int>& ids)
{
    answer([&](const KernelState& state) {
        std::vector<int> group_ids = state.groups.innermost_first(state.ids(EntityKind::GROUP));
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

std::string get_exodus_entity_name(std::string type, int id)
{
    return get_entity_name(type, id, true);
}

std::string get_exodus_entity_type(std::string type, int id)
{
    return answer_for(type, id, [id](const KernelState& state, EntityKind kind) {
        const bool is_lite = set_family.has(kind) && state.setup.row(kind, id).is_lite;
        return std::string(is_lite ? "lite" : "");
    });
}

bool is_visible(const std::string& type, int id)
{
    return answer_for(type, id,
        [id](const KernelState& state, EntityKind kind) { return state.find(kind, id)->visible; });
}

bool is_virtual(const std::string& type, int id)
{
    return answer_for(type, id, [id](const KernelState& state, EntityKind kind) {
        return geometry_family.has(kind) && state.geometry.row(kind, id).is_virtual;
    });
}

bool contains_virtual(const std::string& type, int id)
{
    return answer_for(type, id, [id](const KernelState& state, EntityKind kind) {
        return geometry_family.has(kind) && state.geometry.holds_virtual(kind, id);
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
        return geometry_family.has(kind) && target
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
    return answer(
        [](const KernelState& state) { return static_cast<int>(state.selection.size()); });
}

std::string get_selected_type(int index)
{
    return answer_for_selected(
        index, [](const Entity& entity) { return entity_word(entity.first); });
}

int get_selected_id(int index)
{
    return answer_for_selected(index, [](const Entity& entity) { return entity.second; });
}

bool silent_cmd(const char* command)
{
    EmbeddedKernel* const kernel = EmbeddedKernel::active();
    try {
        return kernel != nullptr && command != nullptr && kernel->run_command(command);
    } catch (...) {
        return false;
    }
}

KestoBaseInterface* get_interface(std::string name)
{
    static MaterialComponent materials;
    return active_state() != nullptr && name == "Material" ? &materials : nullptr;
}

} // namespace KestoInterface
