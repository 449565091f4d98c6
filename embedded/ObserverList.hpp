#pragma once

#include <treemodel/kernel/KestoInterface.hpp>
#include <vector>

/// The registered observers of the process, whichever kernel is active. Observers may come and go
/// while they are being called.
class ObserverList
{
public:
    static ObserverList& instance();

    /// Registering twice counts once. What comes during a call is left out of that call.
    void add(KestoInterface::KIObserve* observer);
    void remove(KestoInterface::KIObserve* observer);

    /// Whether a call of for_each() is under way.
    bool is_calling() const { return m_depth > 0; }

    /// Calls `call` with each observer, in the order of registration.
    template <typename Call>
    void for_each(Call call)
    {
        const Calling calling(*this);
        const std::size_t count = m_observers.size();
        for (std::size_t i = 0; i < count; ++i) {
            if (m_observers[i] != nullptr) {
                call(*m_observers[i]);
            }
        }
    }

private:
    // Keeps places in the list steady while it is walked, also when an observer throws.
    class Calling
    {
    public:
        explicit Calling(ObserverList& list);
        Calling(const Calling&) = delete;
        Calling& operator=(const Calling&) = delete;
        ~Calling();

    private:
        ObserverList& m_list;
    };

    std::vector<KestoInterface::KIObserve*> m_observers;
    int m_depth = 0;
};
