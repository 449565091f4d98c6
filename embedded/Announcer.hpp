#pragma once

#include <embedded/EntitySet.hpp>
#include <string>
#include <vector>

namespace KestoInterface {
class KIObserve;
}
struct KernelState;

/// One event in the life of an entity.
struct Notice
{
    enum Event {
        /// Made by an operation; came in with a model.
        CREATED,
        ADDED,
        /// Changed itself; changed by what it holds.
        MODIFIED,
        CHANGED,
        /// Was deleted; went along with what held it.
        DELETED,
        REMOVED,
        RENAMED,
        VISIBILITY,
        RENUMBERED,
    };

    Event event;
    EntityKind kind;
    int id;
    /// Of RENUMBERED only.
    int old_id = 0;
};

/// Tells the observers what has happened to a kernel's state, as long as it is the active one.
///
/// An observer may change the state from inside a notification, and what is still to be told may
/// then no longer be true. Such a notice is left out: nobody is told of an entity that has gone
/// again, nor of the end of one whose id is in use again. The operation that overtook it has told
/// of that. And as the observers may then hear of things in different orders, a new id amid
/// other notices is told as the end of the old one and a creation.
class Announcer
{
public:
    explicit Announcer(const KernelState& state);

    void tell(const Notice& notice);

    /// One of the notifications without an argument.
    void tell(void (KestoInterface::KIObserve::*notification)());

    void tell_file_opened(const std::string& file);

    /// Both tell nothing if the list is empty.
    void tell_selected(const std::vector<Entity>& entities);
    void tell_deselected(const std::vector<Entity>& entities);

private:
    template <typename Call>
    void for_each_observer(Call call);

    bool is_true(const Notice& notice) const;
    void deliver(KestoInterface::KIObserve& observer, const Notice& notice) const;
    void deliver_as_new(KestoInterface::KIObserve& observer, const Notice& renumbered) const;

    const KernelState& m_state;
    /// How many times observers have been called upon, which shows that a notice was overtaken.
    unsigned long m_calls = 0;
};
