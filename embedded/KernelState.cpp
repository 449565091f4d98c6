#include <embedded/KernelState.hpp>

#include <utility>

namespace {

const KernelState* active_state = nullptr;

} // namespace

const EntityRow* KernelState::find(EntityKind kind, int id) const
{
    if (Topology::is_geometry(kind)) {
        return geometry.rows(kind).find(id);
    }
    return groups.rows().find(id);
}

EntityRow* KernelState::find(EntityKind kind, int id)
{
    return const_cast<EntityRow*>(std::as_const(*this).find(kind, id));
}

int KernelState::highest_id(EntityKind kind) const
{
    return Topology::is_geometry(kind) ? geometry.rows(kind).highest() : groups.rows().highest();
}

std::vector<int> KernelState::ids(EntityKind kind) const
{
    return Topology::is_geometry(kind) ? geometry.rows(kind).ids() : groups.rows().ids();
}

std::array<int, 6> KernelState::append(const ModelData& model)
{
    std::array<int, 6> offsets;
    for (std::size_t kind = 0; kind < offsets.size(); ++kind) {
        offsets[kind] = highest_id(static_cast<EntityKind>(kind));
    }
    geometry.append(model, offsets);
    groups.append(model, offsets);
    return offsets;
}

void KernelState::renumber(EntityKind kind, int id, int new_id)
{
    if (Topology::is_geometry(kind)) {
        geometry.renumber(kind, id, new_id);
    } else {
        groups.renumber(id, new_id);
    }
    groups.renumber_member(kind, id, new_id);
}

Topology::IdsByKind KernelState::erase(EntityKind kind, int id, EntitySet& touched)
{
    const auto forget = [&](EntityKind erased_kind, const std::vector<int>& ids) {
        for (const int group : groups.forget(erased_kind, ids)) {
            touched.emplace(EntityKind::GROUP, group);
        }
    };
    Topology::IdsByKind erased;
    if (Topology::is_geometry(kind)) {
        erased = geometry.erase(kind, id, touched);
        for (const EntityKind erased_kind : Topology::kinds_downwards) {
            forget(erased_kind, erased[static_cast<std::size_t>(erased_kind)]);
        }
    } else {
        groups.erase(id);
        forget(kind, {id});
    }
    return erased;
}

EntitySet KernelState::owners(EntityKind kind, int id) const
{
    EntitySet owners;
    if (Topology::is_geometry(kind) && contains(kind, id)) {
        for (const int parent : geometry.row(kind, id).parents) {
            owners.emplace(Topology::above(kind), parent);
        }
    }
    for (const int group : groups.holders(kind, id)) {
        owners.emplace(EntityKind::GROUP, group);
    }
    return owners;
}

const KernelState* KernelState::active()
{
    return active_state;
}

void KernelState::set_active(const KernelState* state)
{
    active_state = state;
}
