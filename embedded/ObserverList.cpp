#include <embedded/ObserverList.hpp>

#include <algorithm>

using KestoInterface::KIObserve;

ObserverList& ObserverList::instance()
{
    static ObserverList list;
    return list;
}

void ObserverList::add(KIObserve* observer)
{
    if (std::find(m_observers.begin(), m_observers.end(), observer) == m_observers.end()) {
        m_observers.push_back(observer);
    }
}

void ObserverList::remove(KIObserve* observer)
{
    std::replace(
        m_observers.begin(), m_observers.end(), observer, static_cast<KIObserve*>(nullptr));
    if (!is_calling()) {
        std::erase(m_observers, nullptr);
    }
}

ObserverList::Calling::Calling(ObserverList& list)
    : m_list(list)
{
    ++m_list.m_depth;
}

ObserverList::Calling::~Calling()
{
    if (--m_list.m_depth == 0) {
        std::erase(m_list.m_observers, nullptr);
    }
}

// An observer makes the list before itself, so that the list outlives it also at the end of the
// program.
KIObserve::KIObserve()
{
    ObserverList::instance();
}

KIObserve::~KIObserve()
{
    unregister_observer();
}

void KIObserve::register_observer()
{
    ObserverList::instance().add(this);
}

void KIObserve::unregister_observer()
{
    ObserverList::instance().remove(this);
}
