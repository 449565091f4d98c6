#include <embedded/ModelCheck.hpp>

#include <algorithm>
#include <embedded/EntityKind.hpp>
#include <stdexcept>
#include <string>
#include <utility>

namespace {

// Checks lists of references to the entities of one kind. Finds a repeated reference without
// sorting: it remembers for each entity the last list in which it was seen.
class ReferenceCheck
{
public:
    ReferenceCheck(EntityKind kind, std::size_t count)
        : m_kind(kind)
        , m_last_list(count, 0)
    {
    }

    void check_list(EntityKind owner_kind, int owner, const std::vector<int>& ids)
    {
        ++m_list;
        for (const int id : ids) {
            if (id < 1 || static_cast<std::size_t>(id) > m_last_list.size()) {
                refuse(owner_kind, owner, id, ", which the model does not have");
            }
            if (std::exchange(m_last_list[static_cast<std::size_t>(id - 1)], m_list) == m_list) {
                refuse(owner_kind, owner, id, " twice");
            }
        }
    }

private:
    [[noreturn]] void refuse(EntityKind owner_kind, int owner, int id, const char* flaw) const
    {
        throw std::invalid_argument("The model's " + entity_word(owner_kind) + " " +
                                    std::to_string(owner) + " names " + entity_word(m_kind) + " " +
                                    std::to_string(id) + flaw + ".");
    }

    EntityKind m_kind;
    std::size_t m_list = 0;
    std::vector<std::size_t> m_last_list;
};

template <typename Owner, typename Ids>
void check_lists(
    ReferenceCheck check, EntityKind owner_kind, const std::vector<Owner>& owners, Ids ids)
{
    for (std::size_t i = 0; i < owners.size(); ++i) {
        check.check_list(owner_kind, static_cast<int>(i + 1), owners[i].*ids);
    }
}

// Takes away, again and again, a group that no group left names; what names itself in a circle
// stays.
void check_nesting(const std::vector<ModelData::Group>& groups)
{
    std::vector<int> times_named(groups.size(), 0);
    for (const ModelData::Group& group : groups) {
        for (const int child : group.groups) {
            ++times_named[static_cast<std::size_t>(child - 1)];
        }
    }
    std::vector<std::size_t> outermost;
    for (std::size_t i = 0; i < groups.size(); ++i) {
        if (times_named[i] == 0) {
            outermost.push_back(i);
        }
    }
    for (std::size_t taken = 0; taken < outermost.size(); ++taken) {
        for (const int child : groups[outermost[taken]].groups) {
            if (--times_named[static_cast<std::size_t>(child - 1)] == 0) {
                outermost.push_back(static_cast<std::size_t>(child - 1));
            }
        }
    }
    const auto circle =
        std::find_if(times_named.begin(), times_named.end(), [](int count) { return count > 0; });
    if (circle != times_named.end()) {
        throw std::invalid_argument("The model's group " +
                                    std::to_string(circle - times_named.begin() + 1) +
                                    " belongs to a circle of groups that hold one another.");
    }
}

} // namespace

void check_model(const ModelData& model)
{
    using Entity = ModelData::Entity;
    using Group = ModelData::Group;

    const auto with_children = std::find_if(model.vertices.begin(), model.vertices.end(),
        [](const Entity& vertex) { return !vertex.children.empty(); });
    if (with_children != model.vertices.end()) {
        throw std::invalid_argument("The model's vertex " +
                                    std::to_string(with_children - model.vertices.begin() + 1) +
                                    " has children.");
    }

    const ReferenceCheck vertices(EntityKind::VERTEX, model.vertices.size());
    const ReferenceCheck curves(EntityKind::CURVE, model.curves.size());
    const ReferenceCheck surfaces(EntityKind::SURFACE, model.surfaces.size());
    const ReferenceCheck volumes(EntityKind::VOLUME, model.volumes.size());
    const ReferenceCheck bodies(EntityKind::BODY, model.bodies.size());
    const ReferenceCheck groups(EntityKind::GROUP, model.groups.size());

    check_lists(volumes, EntityKind::BODY, model.bodies, &Entity::children);
    check_lists(surfaces, EntityKind::VOLUME, model.volumes, &Entity::children);
    check_lists(curves, EntityKind::SURFACE, model.surfaces, &Entity::children);
    check_lists(vertices, EntityKind::CURVE, model.curves, &Entity::children);

    check_lists(groups, EntityKind::GROUP, model.groups, &Group::groups);
    check_lists(bodies, EntityKind::GROUP, model.groups, &Group::bodies);
    check_lists(volumes, EntityKind::GROUP, model.groups, &Group::volumes);
    check_lists(surfaces, EntityKind::GROUP, model.groups, &Group::surfaces);
    check_lists(curves, EntityKind::GROUP, model.groups, &Group::curves);
    check_lists(vertices, EntityKind::GROUP, model.groups, &Group::vertices);

    check_nesting(model.groups);

    const auto below_zero = std::find_if(model.groups.begin(), model.groups.end(),
        [](const Group& group) { return group.elements.has_negative(); });
    if (below_zero != model.groups.end()) {
        throw std::invalid_argument("The model's group " +
                                    std::to_string(below_zero - model.groups.begin() + 1) +
                                    " holds less than no elements.");
    }
}
