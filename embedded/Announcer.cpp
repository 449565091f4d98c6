#include <embedded/Announcer.hpp>

#include <array>
#include <embedded/KernelState.hpp>
#include <embedded/ObserverList.hpp>

using KestoInterface::KIObserve;

namespace {

// By EntityKind and the first six events. Where the boundary has one notification for two
// events, or for a change none but that of the creation, upon which an entity is read anew, it
// stands in for the missing one.
using IdNotification = void (KIObserve::*)(int);
constexpr std::array<std::array<IdNotification, 6>, 6> id_notifications{{
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
}};

} // namespace

Announcer::Announcer(const KernelState& state)
    : m_state(state)
{
}

template <typename Call>
void Announcer::for_each_observer(Call call)
{
    ++m_calls;
    if (KernelState::active() == &m_state) {
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
        observer.notify_entity_visibility_changed(word, notice.id);
        break;
    case Notice::RENUMBERED:
        observer.notify_entity_id_changed(word, notice.old_id, notice.id);
        break;
    default:
        const auto kind = static_cast<std::size_t>(notice.kind);
        (observer.*id_notifications[kind][notice.event])(notice.id);
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
