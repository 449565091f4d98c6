#pragma once

#include <QStringList>
#include <utility>

/// What happened, in order: calls of the kernel boundary and signals, as lines
/// of text that a failing comparison shows as they are.
class EventLog
{
public:
    void add(const QString& event) { m_events.append(event); }

    /// The events since the last call of take(), which forgets them.
    QStringList take() { return std::exchange(m_events, {}); }

    /// Of these, the ones that begin with one of the words; take() as well.
    QStringList take_only(const QStringList& beginnings);

private:
    QStringList m_events;
};
