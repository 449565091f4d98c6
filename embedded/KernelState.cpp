#include <embedded/KernelState.hpp>

#include <algorithm>
#include <map>
#include <utility>

const EntityRow* KernelState::find(EntityKind kind, int id) const
{
    if (geometry_family.has(kind)) {
        return geometry.rows(kind).find(id);
    }
    if (setup_family.has(kind)) {
        return setup.rows(kind).find(id);
    }
    return kind == EntityKind::GROUP ? groups.rows().find(id) : nullptr;
}

EntityRow* KernelState::find(EntityKind kind, int id)
{
    return const_cast<EntityRow*>(std::as_const(*this).find(kind, id));
}

std::optional<EntityKind> KernelState::kind_of(const EntityFamily& family, int id) const
{
    for (EntityKind kind = family.first; kind <= family.last; kind = next(kind)) {
        if (contains(kind, id)) {
            return kind;
        }
    }
    return std::nullopt;
}

int KernelState::highest_id(EntityKind kind) const
{
    const EntityFamily range = id_range_of(kind);
    int highest = 0;
    for (EntityKind one = range.first; one <= range.last; one = next(one)) {
        highest = std::max(highest, highest_id_of(one));
    }
    return highest;
}

int KernelState::highest_id_of(EntityKind kind) const
{
    if (geometry_family.has(kind)) {
        return geometry.rows(kind).highest();
    }
    return setup_family.has(kind) ? setup.rows(kind).highest() : groups.rows().highest();
}

std::vector<int> KernelState::ids(EntityKind kind) const
{
    if (geometry_family.has(kind)) {
        return geometry.rows(kind).ids();
    }
    return setup_family.has(kind) ? setup.rows(kind).ids() : groups.rows().ids();
}

std::array<int, 6> KernelState::append(const ModelData& model)
{
    std::array<int, 6> offsets{};
    for (std::size_t kind = 0; kind < offsets.size(); ++kind) {
        offsets[kind] = highest_id(static_cast<EntityKind>(kind));
    }
    geometry.append(model, offsets);
    groups.append(model, offsets);
    setup.append(model);
    return offsets;
}

void KernelState::renumber(EntityKind kind, int id, int new_id)
{
    replace_selected({kind, id}, {kind, new_id});
    if (geometry_family.has(kind)) {
        geometry.renumber(kind, id, new_id);
    } else if (setup_family.has(kind)) {
        setup.rows(kind).renumber(id, new_id);
        setup.renumber_set(kind, id, new_id);
    } else {
        groups.renumber(id, new_id);
    }
    if (member_family.has(kind)) {
        groups.renumber_member(kind, id, new_id);
    }
}

void KernelState::change_kind(EntityKind kind, int id, EntityKind new_kind)
{
    replace_selected({kind, id}, {new_kind, id});
    setup.change_kind(kind, id, new_kind);
}

void KernelState::replace_selected(const Entity& entity, const Entity& new_entity)
{
    if (find(entity.first, entity.second)->selected) {
        std::replace(selection.begin(), selection.end(), entity, new_entity);
    }
}

std::vector<KernelState::Erased> KernelState::erase(
    const std::vector<Entity>& entities, EntitySet& touched)
{
    std::vector<Erased> erased;
    for (const Entity& entity : entities) {
        if (contains(entity.first, entity.second)) {
            erase(entity, erased, touched);
        }
    }
    leave_owners(erased, touched);
    std::erase_if(
        touched, [this](const Entity& entity) { return !contains(entity.first, entity.second); });
    return erased;
}

void KernelState::erase(const Entity& entity, std::vector<Erased>& erased, EntitySet& touched)
{
    const auto [kind, id] = entity;
    erased.push_back({entity, false});
    if (setup_family.has(kind)) {
        setup.rows(kind).erase(id);
    } else if (kind == EntityKind::GROUP) {
        groups.erase(id);
    } else {
        const Topology::IdsByKind gone = geometry.erase(kind, id, touched);
        for (EntityKind along = kind; along != EntityKind::VERTEX;) {
            along = Topology::below(along);
            for (const int gone_id : gone[static_cast<std::size_t>(along)]) {
                erased.push_back({{along, gone_id}, true});
            }
        }
    }
}

void KernelState::leave_owners(const std::vector<Erased>& erased, EntitySet& touched)
{
    std::map<EntityKind, std::vector<int>> gone;
    for (const auto& [entity, went_along] : erased) {
        gone[entity.first].push_back(entity.second);
    }
    for (auto& [kind, ids] : gone) {
        std::sort(ids.begin(), ids.end());
        if (member_family.has(kind)) {
            for (const int group : groups.forget(kind, ids)) {
                touched.emplace(EntityKind::GROUP, group);
            }
        } else {
            touched.merge(setup.forget_sets(kind, ids));
        }
    }
}

EntitySet KernelState::owners(EntityKind kind, int id) const
{
    if (!contains(kind, id)) {
        return {};
    }
    EntitySet owners = setup.conditions_on(kind, id);
    if (geometry_family.has(kind)) {
        for (const int parent : geometry.row(kind, id).parents) {
            owners.emplace(Topology::above(kind), parent);
        }
    }
    if (member_family.has(kind)) {
        for (const int group : groups.holders(kind, id)) {
            owners.emplace(EntityKind::GROUP, group);
        }
    }
    return owners;
}

std::vector<Entity> KernelState::select(const std::vector<Entity>& entities)
{
    std::vector<Entity> selected;
    for (const Entity& entity : entities) {
        if (!std::exchange(find(entity.first, entity.second)->selected, true)) {
            selected.push_back(entity);
        }
    }
    selection.insert(selection.end(), selected.begin(), selected.end());
    return selected;
}

std::vector<Entity> KernelState::deselect(const std::vector<Entity>& entities)
{
    for (const auto& [kind, id] : entities) {
        find(kind, id)->selected = false;
    }
    return drop_unselected();
}

std::vector<Entity> KernelState::drop_unselected()
{
    const auto is_selected = [this](const Entity& entity) {
        const EntityRow* const row = find(entity.first, entity.second);
        return row != nullptr && row->selected;
    };
    const auto first_dropped =
        std::stable_partition(selection.begin(), selection.end(), is_selected);
    std::vector<Entity> dropped(first_dropped, selection.end());
    selection.erase(first_dropped, selection.end());
    return dropped;
}
