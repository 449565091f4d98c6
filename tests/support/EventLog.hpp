#pragma once

#include <functional>
#include <map>
#include <QStringList>
#include <utility>

/// What happened, in order: calls of the kernel boundary and signals, as lines
/// of text that a failing comparison shows as they are.
class EventLog
{
public:
    void add(const QString& event);

    /// Runs `action` right after the n-th event from now (0: the next) is written, which
    /// is inside the call or the signal that the event tells of. Once.
    void interrupt(int n, std::function<void()> action);

    /// The events since the last call of take(), which forgets them.
    QStringList take() { return std::exchange(m_events, {}); }

    /// Of these, the ones that begin with one of the words; take() as well.
    QStringList take_only(const QStringList& beginnings);

private:
    QStringList m_events;
    std::map<int, std::function<void()>> m_interruptions;
    int m_count = 0;
};
