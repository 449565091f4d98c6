#include <embedded/EmbeddedKernel.hpp>

#include <algorithm>
#include <embedded/Announcer.hpp>
#include <embedded/KernelState.hpp>
#include <embedded/ModelCheck.hpp>
#include <embedded/Requirements.hpp>
#include <embedded/SelectCommand.hpp>
#include <numeric>
#include <treemodel/kernel/KestoInterface.hpp>

using KestoInterface::KIObserve;

struct EmbeddedKernel::Contents
{
    KernelState state;
    Announcer announcer{state};

    int insert(EntityKind kind, const std::vector<int>& children, const std::string& name);
    int create_setup(EntityKind kind, SetupRow row);
    void replace(const ModelData& model);
    void tell_modified(const EntitySet& entities);
};

namespace {

struct ActiveKernel
{
    EmbeddedKernel* kernel = nullptr;
    const KernelState* state = nullptr;
};
ActiveKernel active_kernel;

// A parent that may have children, and an entity of the kind below.
void require_levels(const KernelState& state, EntityKind parent_kind, int parent, int child)
{
    require_family(geometry_family, parent_kind, "no geometry");
    if (parent_kind == EntityKind::VERTEX) {
        refuse("Nothing hangs under a vertex.");
    }
    require_entity(state, parent_kind, parent);
    require_entity(state, Topology::below(parent_kind), child);
}

std::vector<Entity> to_entities(EntityKind kind, const std::vector<int>& ids)
{
    std::vector<Entity> entities;
    entities.reserve(ids.size());
    for (const int id : ids) {
        entities.emplace_back(kind, id);
    }
    return entities;
}

} // namespace

EmbeddedKernel::EmbeddedKernel()
    : m_contents(std::make_unique<Contents>())
{
    active_kernel = {this, &m_contents->state};
}

EmbeddedKernel::~EmbeddedKernel()
{
    if (active_kernel.kernel == this) {
        active_kernel = {};
    }
}

EmbeddedKernel* EmbeddedKernel::active()
{
    return active_kernel.kernel;
}

const KernelState* active_state()
{
    return active_kernel.state;
}

void EmbeddedKernel::open_model(const ModelData& model, const std::string& file)
{
    m_contents->replace(model);
    m_contents->announcer.tell_file_opened(file);
}

void EmbeddedKernel::replace_model(const ModelData& model)
{
    m_contents->replace(model);
    m_contents->announcer.tell(&KIObserve::notify_model_replaced);
}

void EmbeddedKernel::Contents::replace(const ModelData& model)
{
    check_model(model);
    KernelState opened;
    opened.append(model);
    state = std::move(opened);
}

void EmbeddedKernel::import_model(const ModelData& model)
{
    auto& [state, announcer] = *m_contents;
    check_model(model);
    require_ids_left(state, EntityKind::BODY, model.bodies.size());
    require_ids_left(state, EntityKind::VOLUME, model.volumes.size());
    require_ids_left(state, EntityKind::SURFACE, model.surfaces.size());
    require_ids_left(state, EntityKind::CURVE, model.curves.size());
    require_ids_left(state, EntityKind::VERTEX, model.vertices.size());
    require_ids_left(state, EntityKind::GROUP, model.groups.size());
    for (const auto& [kind, list] : setup_lists) {
        require_ids_left(state, kind, (model.*list).size());
    }

    const auto before = state.append(model);

    const std::array<std::size_t, 5> counts{model.vertices.size(), model.curves.size(),
        model.surfaces.size(), model.volumes.size(), model.bodies.size()};
    std::vector<int> groups(model.groups.size());
    std::iota(groups.begin(), groups.end(), before.back() + 1);
    groups = state.groups.innermost_first(groups);
    std::vector<Notice> setup;
    for (const auto& [kind, list] : setup_lists) {
        const int highest = state.highest_id(kind);
        for (int id = highest - static_cast<int>((model.*list).size()); id < highest;) {
            setup.push_back({Notice::CREATED, kind, ++id});
        }
    }

    for (const EntityKind kind : Topology::kinds_downwards) {
        const auto index = static_cast<std::size_t>(kind);
        for (std::size_t i = 1; i <= counts[index]; ++i) {
            announcer.tell({Notice::ADDED, kind, before[index] + static_cast<int>(i)});
        }
    }
    for (const int group : groups) {
        announcer.tell({Notice::CREATED, EntityKind::GROUP, group});
    }
    for (const Notice& notice : setup) {
        announcer.tell(notice);
    }
}

void EmbeddedKernel::clear()
{
    m_contents->state = KernelState();
    m_contents->announcer.tell(&KIObserve::notify_model_reset);
}

void EmbeddedKernel::request_refresh()
{
    m_contents->announcer.tell(&KIObserve::notify_model_refresh_requested);
}

void EmbeddedKernel::report_geometry_repair()
{
    m_contents->announcer.tell(&KIObserve::notify_geometry_repair_complete);
}

int EmbeddedKernel::create_body(const std::vector<int>& volumes, const std::string& name)
{
    return create(EntityKind::BODY, volumes, name);
}

int EmbeddedKernel::create_volume(const std::vector<int>& surfaces, const std::string& name)
{
    return create(EntityKind::VOLUME, surfaces, name);
}

int EmbeddedKernel::create_surface(const std::vector<int>& curves, const std::string& name)
{
    return create(EntityKind::SURFACE, curves, name);
}

int EmbeddedKernel::create_curve(const std::vector<int>& vertices, const std::string& name)
{
    return create(EntityKind::CURVE, vertices, name);
}

int EmbeddedKernel::create_vertex(const std::string& name)
{
    return create(EntityKind::VERTEX, {}, name);
}

int EmbeddedKernel::create(
    EntityKind kind, const std::vector<int>& children, const std::string& name)
{
    const int id = m_contents->insert(kind, children, name);
    m_contents->announcer.tell({Notice::CREATED, kind, id});
    return id;
}

int EmbeddedKernel::create_sheet_body(const std::vector<int>& surfaces, const std::string& name)
{
    auto& [state, announcer] = *m_contents;
    require_ids_left(state, EntityKind::BODY, 1);
    const int volume = m_contents->insert(EntityKind::VOLUME, surfaces, {});
    state.geometry.row(EntityKind::VOLUME, volume).is_sheet = true;
    const int body = m_contents->insert(EntityKind::BODY, {volume}, name);
    announcer.tell({Notice::CREATED, EntityKind::BODY, body});
    announcer.tell({Notice::CREATED, EntityKind::VOLUME, volume});
    return body;
}

int EmbeddedKernel::Contents::insert(
    EntityKind kind, const std::vector<int>& children, const std::string& name)
{
    require_ids_left(state, kind, 1);
    if (!children.empty()) {
        require_entities(state, Topology::below(kind), children);
    }

    const int id = state.highest_id(kind) + 1;
    state.geometry.insert(kind, id).name = name;
    EntitySet touched;
    for (const int child : children) {
        state.geometry.link(kind, id, child, touched);
    }
    return id;
}

void EmbeddedKernel::relate(EntityKind parent_kind, int parent, int child)
{
    auto& [state, announcer] = *m_contents;
    require_levels(state, parent_kind, parent, child);
    if (state.geometry.is_linked(parent_kind, parent, child)) {
        refuse(entity_text(Topology::below(parent_kind), child) + " hangs under " +
               entity_text(parent_kind, parent) + " already.");
    }
    EntitySet touched;
    state.geometry.link(parent_kind, parent, child, touched);
    m_contents->tell_modified(touched);
}

void EmbeddedKernel::unrelate(EntityKind parent_kind, int parent, int child)
{
    auto& [state, announcer] = *m_contents;
    require_levels(state, parent_kind, parent, child);
    const EntityKind child_kind = Topology::below(parent_kind);
    if (!state.geometry.is_linked(parent_kind, parent, child)) {
        refuse(entity_text(child_kind, child) + " does not hang under " +
               entity_text(parent_kind, parent) + ".");
    }
    EntitySet touched;
    state.geometry.unlink(parent_kind, parent, child, touched);
    const bool has_become_free =
        child_kind <= EntityKind::SURFACE && state.geometry.row(child_kind, child).parents.empty();
    m_contents->tell_modified(touched);
    if (has_become_free) {
        announcer.tell(&KIObserve::notify_free_entities_changed);
    }
}

void EmbeddedKernel::set_sheet(int volume, bool is_sheet)
{
    KernelState& state = m_contents->state;
    require_entity(state, EntityKind::VOLUME, volume);
    GeometryRow& row = state.geometry.row(EntityKind::VOLUME, volume);
    if (row.is_sheet != is_sheet) {
        row.is_sheet = is_sheet;
        m_contents->tell_modified({{EntityKind::VOLUME, volume}});
    }
}

void EmbeddedKernel::set_virtual(EntityKind kind, int id, bool is_virtual)
{
    KernelState& state = m_contents->state;
    require_family(geometry_family, kind, "no geometry");
    require_entity(state, kind, id);
    if (state.geometry.row(kind, id).is_virtual != is_virtual) {
        EntitySet touched{{kind, id}};
        state.geometry.set_virtual(kind, id, is_virtual, touched);
        m_contents->tell_modified(touched);
    }
}

int EmbeddedKernel::create_group(const std::string& name)
{
    auto& [state, announcer] = *m_contents;
    require_ids_left(state, EntityKind::GROUP, 1);
    const int id = state.highest_id(EntityKind::GROUP) + 1;
    state.groups.insert(id).name = name;
    announcer.tell({Notice::CREATED, EntityKind::GROUP, id});
    return id;
}

void EmbeddedKernel::add_to_group(int group, EntityKind kind, const std::vector<int>& ids)
{
    KernelState& state = m_contents->state;
    require_entity(state, EntityKind::GROUP, group);
    require_family(member_family, kind, "nothing that a group holds");
    require_entities(state, kind, ids);
    if (kind == EntityKind::GROUP) {
        for (const int id : ids) {
            if (state.groups.holds_group(id, group)) {
                refuse(entity_text(kind, group) + " would hold itself by way of " +
                       entity_text(kind, id) + ".");
            }
        }
    }
    if (state.groups.add_members(group, kind, ids)) {
        m_contents->tell_modified({{EntityKind::GROUP, group}});
    }
}

void EmbeddedKernel::remove_from_group(int group, EntityKind kind, const std::vector<int>& ids)
{
    KernelState& state = m_contents->state;
    require_entity(state, EntityKind::GROUP, group);
    require_family(member_family, kind, "nothing that a group holds");
    require_entities(state, kind, ids);
    if (state.groups.remove_members(group, kind, ids)) {
        m_contents->tell_modified({{EntityKind::GROUP, group}});
    }
}

void EmbeddedKernel::set_element_counts(int group, const ElementCounts& counts)
{
    KernelState& state = m_contents->state;
    require_entity(state, EntityKind::GROUP, group);
    if (counts.has_negative()) {
        refuse(entity_text(EntityKind::GROUP, group) + " cannot hold less than no elements.");
    }
    ElementCounts& present = state.groups.row(group).elements;
    if (present != counts) {
        present = counts;
        m_contents->tell_modified({{EntityKind::GROUP, group}});
    }
}

int EmbeddedKernel::create_sizing_source()
{
    return m_contents->create_setup(EntityKind::SIZING_SOURCE, {});
}

int EmbeddedKernel::create_boundary_layer()
{
    return m_contents->create_setup(EntityKind::BOUNDARY_LAYER, {});
}

int EmbeddedKernel::create_set(EntityKind kind, const std::string& name, bool is_lite)
{
    require_family(set_family, kind, "no block, sideset or nodeset");
    SetupRow row;
    row.name = name;
    row.is_lite = is_lite;
    return m_contents->create_setup(kind, std::move(row));
}

void EmbeddedKernel::set_lite(EntityKind kind, int id, bool is_lite)
{
    auto& [state, announcer] = *m_contents;
    require_family(set_family, kind, "no block, sideset or nodeset");
    require_entity(state, kind, id);
    bool& present = state.setup.row(kind, id).is_lite;
    if (present != is_lite) {
        present = is_lite;
        announcer.tell({Notice::MODIFIED, kind, id});
    }
}

int EmbeddedKernel::create_material(const std::string& name)
{
    SetupRow row;
    row.name = name;
    return m_contents->create_setup(EntityKind::MATERIAL, std::move(row));
}

int EmbeddedKernel::create_medium(const std::string& name)
{
    SetupRow row;
    row.name = name;
    return m_contents->create_setup(EntityKind::MEDIUM, std::move(row));
}

int EmbeddedKernel::create_condition(EntityKind kind, const std::vector<int>& sidesets,
    const std::vector<int>& nodesets, const std::string& name)
{
    require_family(condition_family, kind, "no boundary condition");
    require_entities(m_contents->state, EntityKind::SIDESET, sidesets);
    require_entities(m_contents->state, EntityKind::NODESET, nodesets);
    SetupRow row;
    row.name = name;
    row.sidesets = sidesets;
    row.nodesets = nodesets;
    return m_contents->create_setup(kind, std::move(row));
}

void EmbeddedKernel::set_condition_sets(
    EntityKind kind, int id, const std::vector<int>& sidesets, const std::vector<int>& nodesets)
{
    auto& [state, announcer] = *m_contents;
    require_family(condition_family, kind, "no boundary condition");
    require_entity(state, kind, id);
    require_entities(state, EntityKind::SIDESET, sidesets);
    require_entities(state, EntityKind::NODESET, nodesets);
    SetupRow& row = state.setup.row(kind, id);
    if (row.sidesets != sidesets || row.nodesets != nodesets) {
        row.sidesets = sidesets;
        row.nodesets = nodesets;
        announcer.tell({Notice::MODIFIED, kind, id});
    }
}

void EmbeddedKernel::change_kind(EntityKind kind, int id, EntityKind new_kind)
{
    auto& [state, announcer] = *m_contents;
    require_entity(state, kind, id);
    if (!id_range_of(kind).has(new_kind)) {
        refuse(entity_text(kind, id) + " cannot become a " + entity_word(new_kind) + ".");
    }
    if (kind != new_kind) {
        state.change_kind(kind, id, new_kind);
        announcer.tell({Notice::MODIFIED, new_kind, id});
    }
}

int EmbeddedKernel::Contents::create_setup(EntityKind kind, SetupRow row)
{
    require_ids_left(state, kind, 1);
    const int id = state.highest_id(kind) + 1;
    state.setup.rows(kind).insert(id) = std::move(row);
    announcer.tell({Notice::CREATED, kind, id});
    return id;
}

void EmbeddedKernel::select(EntityKind kind, const std::vector<int>& ids)
{
    auto& [state, announcer] = *m_contents;
    require_entities(state, kind, ids);
    announcer.tell_selected(state.select(to_entities(kind, ids)));
}

void EmbeddedKernel::deselect(EntityKind kind, const std::vector<int>& ids)
{
    auto& [state, announcer] = *m_contents;
    require_entities(state, kind, ids);
    announcer.tell_deselected(state.deselect(to_entities(kind, ids)));
}

void EmbeddedKernel::select_none()
{
    auto& [state, announcer] = *m_contents;
    const std::vector<Entity> all = state.selection;
    announcer.tell_deselected(state.deselect(all));
}

bool EmbeddedKernel::run_command(std::string_view line)
{
    auto& [state, announcer] = *m_contents;
    const std::optional<SelectCommand> command = parse_select_command(line);
    if (!command) {
        return false;
    }
    std::vector<Entity> entities;
    entities.reserve(command->entities.size());
    for (const auto& [family, id] : command->entities) {
        const std::optional<EntityKind> kind = state.kind_of(family, id);
        if (!kind) {
            return false;
        }
        entities.emplace_back(*kind, id);
    }
    switch (command->action) {
    case SelectCommand::SELECT:
        announcer.tell_selected(state.select(entities));
        break;
    case SelectCommand::DESELECT:
        announcer.tell_deselected(state.deselect(entities));
        break;
    case SelectCommand::CLEAR:
        select_none();
        break;
    }
    return true;
}

void EmbeddedKernel::rename(EntityKind kind, int id, const std::string& name)
{
    auto& [state, announcer] = *m_contents;
    require_entity(state, kind, id);
    std::string& present = state.find(kind, id)->name;
    if (present != name) {
        present = name;
        const bool is_told_as_change = setup_family.has(kind) && !mesh_control_family.has(kind);
        announcer.tell({is_told_as_change ? Notice::MODIFIED : Notice::RENAMED, kind, id});
    }
}

void EmbeddedKernel::renumber(EntityKind kind, int id, int new_id)
{
    auto& [state, announcer] = *m_contents;
    require_entity(state, kind, id);
    if (id == new_id) {
        return;
    }
    if (new_id < 1 || state.kind_of(id_range_of(kind), new_id)) {
        refuse(entity_text(kind, id) + " cannot be renumbered to " + std::to_string(new_id) +
               (new_id < 1 ? ", which is no id." : ", which is in use."));
    }
    state.renumber(kind, id, new_id);
    announcer.tell({Notice::RENUMBERED, kind, new_id, id});
}

void EmbeddedKernel::set_visible(EntityKind kind, int id, bool is_visible)
{
    auto& [state, announcer] = *m_contents;
    require_entity(state, kind, id);
    bool& present = state.find(kind, id)->visible;
    if (present != is_visible) {
        present = is_visible;
        announcer.tell({Notice::VISIBILITY, kind, id});
    }
}

void EmbeddedKernel::remove(EntityKind kind, int id)
{
    remove({{kind, id}});
}

void EmbeddedKernel::remove(const std::vector<std::pair<EntityKind, int>>& entities)
{
    auto& [state, announcer] = *m_contents;
    for (const auto& [kind, id] : entities) {
        require_entity(state, kind, id);
    }

    EntitySet touched;
    const std::vector<KernelState::Erased> erased = state.erase(entities, touched);

    announcer.tell_deselected(state.drop_unselected());
    for (const auto& [entity, went_along] : erased) {
        const Notice::Event event = went_along ? Notice::REMOVED : Notice::DELETED;
        announcer.tell({event, entity.first, entity.second});
    }
    m_contents->tell_modified(touched);
}

void EmbeddedKernel::Contents::tell_modified(const EntitySet& touched)
{
    EntitySet with_bodies = touched;
    for (const auto& [kind, id] : touched) {
        // An observer may have removed it meanwhile.
        if (kind == EntityKind::VOLUME && state.contains(kind, id)) {
            for (const int body : state.geometry.row(kind, id).parents) {
                with_bodies.emplace(EntityKind::BODY, body);
            }
        }
    }
    for (const auto& entity : with_bodies) {
        const Notice::Event event = touched.contains(entity) ? Notice::MODIFIED : Notice::CHANGED;
        announcer.tell({event, entity.first, entity.second});
    }
}
