#include <support/EventLog.hpp>

#include <algorithm>

void EventLog::add(const QString& event)
{
    m_events.append(event);
    if (auto interruption = m_interruptions.extract(m_count++)) {
        interruption.mapped()();
    }
}

void EventLog::interrupt(int n, std::function<void()> action)
{
    m_interruptions.insert_or_assign(m_count + n, std::move(action));
}

QStringList EventLog::take_only(const QStringList& beginnings)
{
    QStringList result = take();
    result.removeIf([&beginnings](const QString& event) {
        return std::none_of(beginnings.begin(), beginnings.end(),
            [&event](const QString& beginning) { return event.startsWith(beginning); });
    });
    return result;
}
