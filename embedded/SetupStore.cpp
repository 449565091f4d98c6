#include <embedded/SetupStore.hpp>

#include <algorithm>
#include <utility>

namespace {

// To which conditions apply.
constexpr EntityFamily condition_set_family{EntityKind::SIDESET, EntityKind::NODESET};

} // namespace

void SetupStore::append(const ModelData& model)
{
    for (const auto& [kind, list] : setup_lists) {
        const auto& names = model.*list;
        const auto added = rows(kind).insert_range(rows(kind).highest() + 1, names.size());
        for (std::size_t i = 0; i < names.size(); ++i) {
            added[i].name = names[i];
        }
    }
}

void SetupStore::change_kind(EntityKind kind, int id, EntityKind new_kind)
{
    SetupRow moved = std::move(row(kind, id));
    rows(kind).erase(id);
    rows(new_kind).insert(id) = std::move(moved);
}

EntitySet SetupStore::conditions_on(EntityKind set_kind, int id) const
{
    EntitySet conditions;
    if (!condition_set_family.has(set_kind)) {
        return conditions;
    }
    for (EntityKind kind = condition_family.first; kind <= condition_family.last;
         kind = next(kind)) {
        for (const int condition : rows(kind).ids()) {
            const std::vector<int>& sets = row(kind, condition).*sets_of(set_kind);
            if (std::find(sets.begin(), sets.end(), id) != sets.end()) {
                conditions.emplace(kind, condition);
            }
        }
    }
    return conditions;
}

void SetupStore::renumber_set(EntityKind set_kind, int id, int new_id)
{
    for (const auto& [kind, condition] : conditions_on(set_kind, id)) {
        std::vector<int>& sets = row(kind, condition).*sets_of(set_kind);
        std::replace(sets.begin(), sets.end(), id, new_id);
    }
}

EntitySet SetupStore::forget_sets(EntityKind set_kind, const std::vector<int>& ids)
{
    EntitySet changed;
    if (!condition_set_family.has(set_kind)) {
        return changed;
    }
    const auto is_gone = [&ids](int id) { return std::binary_search(ids.begin(), ids.end(), id); };
    for (EntityKind kind = condition_family.first; kind <= condition_family.last;
         kind = next(kind)) {
        for (const int condition : rows(kind).ids()) {
            if (std::erase_if(row(kind, condition).*sets_of(set_kind), is_gone) > 0) {
                changed.emplace(kind, condition);
            }
        }
    }
    return changed;
}

std::vector<int> SetupRow::*SetupStore::sets_of(EntityKind set_kind)
{
    return set_kind == EntityKind::SIDESET ? &SetupRow::sidesets : &SetupRow::nodesets;
}
