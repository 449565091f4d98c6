#include <embedded/Announcer.hpp>

#include <algorithm>
#include <array>
#include <embedded/EntityFamily.hpp>
#include <embedded/KernelState.hpp>
#include <embedded/ObserverList.hpp>

using KestoInterface::EntityRef;
using KestoInterface::KIObserve;

namespace {

// By EntityKind, up to the mesh controls, and the first six events. Where the boundary has one
// notification for two events, or for a change none but that of the creation, upon which an entity
// is read anew, it stands in for the missing one.
using IdNotification = void (KIObserve::*)(int);
constexpr std::array<std::array<IdNotification, 6>, 8> id_notifications{{
    {&KIObserve::notify_vertex_created, &KIObserve::notify_vertex_added,
        &KIObserve::notify_vertex_added, &KIObserve::notify_vertex_added,
        &KIObserve::notify_vertex_deleted, &KIObserve::notify_vertex_removed},
    {&KIObserve::notify_curve_created, &KIObserve::notify_curve_added,
        &KIObserve::notify_curve_added, &KIObserve::notify_curve_added,
        &KIObserve::notify_curve_deleted, &KIObserve::notify_curve_removed},
    {&KIObserve::notify_surface_created, &KIObserve::notify_surface_added,
        &KIObserve::notify_surface_modified, &KIObserve::notify_surface_modified,
        &KIObserve::notify_surface_deleted, &KIObserve::notify_surface_removed},
    {&KIObserve::notify_volume_created, &KIObserve::notify_volume_created,
        &KIObserve::notify_volume_modified, &KIObserve::notify_volume_modified,
        &KIObserve::notify_volume_deleted, &KIObserve::notify_volume_deleted},
    {&KIObserve::notify_body_created, &KIObserve::notify_body_added,
        &KIObserve::notify_body_modified, &KIObserve::notify_body_changed,
        &KIObserve::notify_body_deleted, &KIObserve::notify_body_removed},
    {&KIObserve::notify_group_created, &KIObserve::notify_group_created,
        &KIObserve::notify_group_modified, &KIObserve::notify_group_modified,
        &KIObserve::notify_group_deleted, &KIObserve::notify_group_deleted},
    {&KIObserve::notify_sizing_source_created, &KIObserve::notify_sizing_source_created,
        &KIObserve::notify_sizing_source_created, &KIObserve::notify_sizing_source_created,
        &KIObserve::notify_sizing_source_deleted, &KIObserve::notify_sizing_source_deleted},
    {&KIObserve::notify_boundary_layer_created, &KIObserve::notify_boundary_layer_created,
        &KIObserve::notify_boundary_layer_created, &KIObserve::notify_boundary_layer_created,
        &KIObserve::notify_boundary_layer_deleted, &KIObserve::notify_boundary_layer_deleted},
}};

// The other kinds have one notification each for all of the six events, which tells one of three
// actions. The first family that has the kind counts.
constexpr std::array actions{"create", "create", "modify", "modify", "delete", "delete"};

struct ActionNotification
{
    EntityFamily family;
    void (*notify)(KIObserve& observer, const std::string& word, int id, const std::string& action);
};
constexpr std::array action_notifications{
    ActionNotification{set_family,
        [](KIObserve& observer, const std::string& word, int id, const std::string& action) {
            observer.notify_exodus_entity_modified(word, id, action);
        }},
    ActionNotification{{EntityKind::MATERIAL, EntityKind::MATERIAL},
        [](KIObserve& observer, const std::string&, int id, const std::string& action) {
            observer.notify_material_modified(id, action);
        }},
    ActionNotification{{EntityKind::MEDIUM, EntityKind::MEDIUM},
        [](KIObserve& observer, const std::string&, int id, const std::string& action) {
            observer.notify_medium_modified(id, action);
        }},
    ActionNotification{{EntityKind::CONSTRAINT, EntityKind::CONSTRAINT},
        [](KIObserve& observer, const std::string&, int id, const std::string& action) {
            observer.notify_constraint_modified(id, action);
        }},
    ActionNotification{fea_family,
        [](KIObserve& observer, const std::string& word, int id, const std::string& action) {
            observer.notify_fea_bc_modified(word, id, action);
        }},
    ActionNotification{cfd_family,
        [](KIObserve& observer, const std::string& word, int id, const std::string& action) {
            observer.notify_bc_modified(word, id, action);
        }},
};

void tell_event(KIObserve& observer, const Notice& notice)
{
    const auto kind = static_cast<std::size_t>(notice.kind);
    if (kind < id_notifications.size()) {
        (observer.*id_notifications[kind][notice.event])(notice.id);
        return;
    }
    const auto found = std::find_if(action_notifications.begin(), action_notifications.end(),
        [&](const ActionNotification& candidate) { return candidate.family.has(notice.kind); });
    found->notify(observer, entity_word(notice.kind), notice.id, actions[notice.event]);
}

std::vector<EntityRef> to_refs(const std::vector<Entity>& entities)
{
    std::vector<EntityRef> refs;
    refs.reserve(entities.size());
    for (const auto& [kind, id] : entities) {
        refs.push_back({entity_word(kind), id});
    }
    return refs;
}

} // namespace

Announcer::Announcer(const KernelState& state)
    : m_state(state)
{
}

template <typename Call>
void Announcer::for_each_observer(Call call)
{
    ++m_calls;
    if (active_state() == &m_state) {
        ObserverList::instance().for_each(call);
    }
}

void Announcer::tell(const Notice& notice)
{
    const bool is_amid_others = ObserverList::instance().is_calling();
    const unsigned long this_call = m_calls + 1;
    for_each_observer([&](KIObserve& observer) {
        if (notice.event == Notice::RENUMBERED && (is_amid_others || m_calls != this_call)) {
            deliver_as_new(observer, notice);
        } else {
            deliver(observer, notice);
        }
    });
}

void Announcer::tell(void (KIObserve::*notification)())
{
    for_each_observer([&](KIObserve& observer) { (observer.*notification)(); });
}

void Announcer::tell_file_opened(const std::string& file)
{
    for_each_observer([&](KIObserve& observer) { observer.notify_kes_file_opened(file); });
}

void Announcer::tell_selected(const std::vector<Entity>& entities)
{
    if (!entities.empty()) {
        const std::vector<EntityRef> refs = to_refs(entities);
        for_each_observer([&](KIObserve& observer) { observer.notify_entities_selected(refs); });
    }
}

void Announcer::tell_deselected(const std::vector<Entity>& entities)
{
    if (!entities.empty()) {
        const std::vector<EntityRef> refs = to_refs(entities);
        for_each_observer([&](KIObserve& observer) { observer.notify_entities_deselected(refs); });
    }
}

bool Announcer::is_true(const Notice& notice) const
{
    const bool tells_of_end = notice.event == Notice::DELETED || notice.event == Notice::REMOVED;
    return m_state.contains(notice.kind, notice.id) != tells_of_end;
}

void Announcer::deliver(KIObserve& observer, const Notice& notice) const
{
    if (!is_true(notice)) {
        return;
    }
    const std::string& word = entity_word(notice.kind);
    switch (notice.event) {
    case Notice::RENAMED:
        observer.notify_entity_name_changed(word, notice.id);
        break;
    case Notice::VISIBILITY:
        if (set_family.has(notice.kind)) {
            observer.notify_exodus_visibility_changed(word, notice.id);
        } else {
            observer.notify_entity_visibility_changed(word, notice.id);
        }
        break;
    case Notice::RENUMBERED:
        observer.notify_entity_id_changed(word, notice.old_id, notice.id);
        break;
    default:
        tell_event(observer, notice);
    }
}

void Announcer::deliver_as_new(KIObserve& observer, const Notice& renumbered) const
{
    const auto [event, kind, id, old_id] = renumbered;
    deliver(observer, {Notice::REMOVED, kind, old_id});
    deliver(observer, {Notice::ADDED, kind, id});
    for (const auto& [owner_kind, owner] : m_state.owners(kind, id)) {
        deliver(observer, {Notice::MODIFIED, owner_kind, owner});
    }
}
