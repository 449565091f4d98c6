#include <embedded/Topology.hpp>

#include <algorithm>
#include <span>

namespace {

constexpr EntityKind shifted(EntityKind kind, int levels)
{
    return static_cast<EntityKind>(static_cast<int>(kind) + levels);
}

std::vector<int> to_vector(const IdList& ids)
{
    return {ids.begin(), ids.end()};
}

void sort_unique(std::vector<int>& ids)
{
    std::sort(ids.begin(), ids.end());
    ids.erase(std::unique(ids.begin(), ids.end()), ids.end());
}

} // namespace

EntityKind Topology::below(EntityKind kind)
{
    return shifted(kind, -1);
}

EntityKind Topology::above(EntityKind kind)
{
    return shifted(kind, 1);
}

const IdTable<GeometryRow>& Topology::rows(EntityKind kind) const
{
    return level(kind).rows;
}

GeometryRow& Topology::row(EntityKind kind, int id)
{
    return *level(kind).rows.find(id);
}

const GeometryRow& Topology::row(EntityKind kind, int id) const
{
    return *level(kind).rows.find(id);
}

std::vector<int> Topology::free_ids(EntityKind kind) const
{
    const std::set<int>& free = level(kind).free;
    return {free.begin(), free.end()};
}

std::vector<int> Topology::relatives(EntityKind kind, int id, EntityKind target) const
{
    if (kind == target) {
        return {};
    }
    const int step = target > kind ? 1 : -1;
    const auto links = step > 0 ? &GeometryRow::parents : &GeometryRow::children;

    std::vector<int> ids = to_vector(row(kind, id).*links);
    for (kind = shifted(kind, step); kind != target; kind = shifted(kind, step)) {
        std::vector<int> further;
        for (const int near : ids) {
            const IdList& linked = row(kind, near).*links;
            further.insert(further.end(), linked.begin(), linked.end());
        }
        sort_unique(further);
        ids = std::move(further);
    }
    return ids;
}

bool Topology::is_linked(EntityKind parent_kind, int parent, int child) const
{
    const IdList& children = row(parent_kind, parent).children;
    const IdList& parents = row(below(parent_kind), child).parents;
    return parents.size() < children.size() ? parents.contains(parent) : children.contains(child);
}

bool Topology::holds_virtual(EntityKind kind, int id) const
{
    return holds_virtual(row(kind, id));
}

bool Topology::holds_virtual(const GeometryRow& row)
{
    return row.is_virtual || row.virtual_children > 0;
}

GeometryRow& Topology::insert(EntityKind kind, int id)
{
    level(kind).free.insert(id);
    return level(kind).rows.insert(id);
}

void Topology::link(EntityKind parent_kind, int parent, int child, EntitySet& touched)
{
    GeometryRow& child_row = row(below(parent_kind), child);
    row(parent_kind, parent).children.append(child);
    child_row.parents.append(parent);
    level(below(parent_kind)).free.erase(child);
    touched.emplace(parent_kind, parent);
    if (holds_virtual(child_row)) {
        count_virtual_child(parent_kind, parent, 1, touched);
    }
}

void Topology::unlink(EntityKind parent_kind, int parent, int child, EntitySet& touched)
{
    GeometryRow& child_row = row(below(parent_kind), child);
    row(parent_kind, parent).children.remove(child);
    child_row.parents.remove(parent);
    if (child_row.parents.empty()) {
        level(below(parent_kind)).free.insert(child);
    }
    touched.emplace(parent_kind, parent);
    if (holds_virtual(child_row)) {
        count_virtual_child(parent_kind, parent, -1, touched);
    }
}

void Topology::set_virtual(EntityKind kind, int id, bool is_virtual, EntitySet& touched)
{
    GeometryRow& changed = row(kind, id);
    const bool held_virtual = holds_virtual(changed);
    changed.is_virtual = is_virtual;
    tell_parents(kind, changed, held_virtual, touched);
}

void Topology::count_virtual_child(EntityKind kind, int id, int difference, EntitySet& touched)
{
    GeometryRow& parent = row(kind, id);
    const bool held_virtual = holds_virtual(parent);
    parent.virtual_children += difference;
    if (holds_virtual(parent) != held_virtual) {
        touched.emplace(kind, id);
        tell_parents(kind, parent, held_virtual, touched);
    }
}

void Topology::tell_parents(
    EntityKind kind, const GeometryRow& row, bool held_virtual, EntitySet& touched)
{
    if (holds_virtual(row) == held_virtual) {
        return;
    }
    for (const int parent : row.parents) {
        count_virtual_child(above(kind), parent, held_virtual ? -1 : 1, touched);
    }
}

Topology::IdsByKind Topology::erase(EntityKind kind, int id, EntitySet& touched)
{
    for (const int parent : to_vector(row(kind, id).parents)) {
        unlink(above(kind), parent, id, touched);
    }
    level(kind).free.erase(id);

    IdsByKind erased;
    std::vector<int> doomed{id};
    for (;; kind = below(kind)) {
        std::vector<int> orphans;
        for (const int one : doomed) {
            for (const int child : row(kind, one).children) {
                IdList& parents = row(below(kind), child).parents;
                parents.remove(one);
                if (parents.empty()) {
                    orphans.push_back(child);
                }
            }
            level(kind).rows.erase(one);
        }
        std::sort(orphans.begin(), orphans.end());
        erased[static_cast<std::size_t>(kind)] = std::exchange(doomed, std::move(orphans));
        if (doomed.empty()) {
            return erased;
        }
    }
}

void Topology::renumber(EntityKind kind, int id, int new_id)
{
    const GeometryRow& renumbered = row(kind, id);
    for (const int parent : renumbered.parents) {
        row(above(kind), parent).children.replace(id, new_id);
    }
    for (const int child : renumbered.children) {
        row(below(kind), child).parents.replace(id, new_id);
    }
    Level& its_level = level(kind);
    if (its_level.free.erase(id) > 0) {
        its_level.free.insert(new_id);
    }
    its_level.rows.renumber(id, new_id);
}

void Topology::append(const ModelData& model, const std::array<int, 6>& offsets)
{
    std::array<std::span<GeometryRow>, 5> added;

    const auto add_rows = [&](EntityKind kind, const auto& entities) {
        const auto here = static_cast<std::size_t>(kind);
        added[here] = level(kind).rows.insert_range(offsets[here] + 1, entities.size());
        for (std::size_t i = 0; i < entities.size(); ++i) {
            added[here][i].name = entities[i].name;
            added[here][i].visible = entities[i].visible;
            added[here][i].is_virtual = entities[i].is_virtual;
        }
    };
    // From the lowest level up, so that what a row holds is complete when its parents come.
    const auto add_level = [&](EntityKind kind, const auto& entities) {
        add_rows(kind, entities);
        const auto here = static_cast<std::size_t>(kind);
        for (std::size_t i = 0; i < entities.size(); ++i) {
            GeometryRow& row = added[here][i];
            row.children.reserve(entities[i].children.size());
            for (const int child : entities[i].children) {
                GeometryRow& child_row = added[here - 1][static_cast<std::size_t>(child - 1)];
                row.children.append(offsets[here - 1] + child);
                row.virtual_children += holds_virtual(child_row) ? 1 : 0;
                child_row.parents.append(offsets[here] + static_cast<int>(i) + 1);
            }
        }
    };
    add_rows(EntityKind::VERTEX, model.vertices);
    add_level(EntityKind::CURVE, model.curves);
    add_level(EntityKind::SURFACE, model.surfaces);
    add_level(EntityKind::VOLUME, model.volumes);
    add_level(EntityKind::BODY, model.bodies);

    const auto volumes = added[static_cast<std::size_t>(EntityKind::VOLUME)];
    for (std::size_t i = 0; i < volumes.size(); ++i) {
        volumes[i].is_sheet = model.volumes[i].is_sheet;
    }

    for (const EntityKind kind : kinds_downwards) {
        const auto here = static_cast<std::size_t>(kind);
        std::set<int>& free = level(kind).free;
        for (std::size_t i = 0; i < added[here].size(); ++i) {
            if (added[here][i].parents.empty()) {
                free.insert(free.end(), offsets[here] + static_cast<int>(i) + 1);
            }
        }
    }
}
