#pragma once

#include <deque>
#include <QObject>
#include <QPointer>
#include <QTimer>

class SignalLog;
class TreeData;
class TreeModel;

/// Writes every signal of a TreeModel and of its records into a log, for as long as it
/// lives.
///
/// New records are heard from their added signal on; those that stood before are taken in
/// by and by in the event loop, so that the window stays alive over a large model.
class SignalTap : public QObject
{
    Q_OBJECT

public:
    /// Keeps the references.
    SignalTap(TreeModel& mirror, SignalLog& log);

    /// True once all records are heard.
    bool is_settled() const { return m_unheard.empty(); }

private:
    class Ear;

    void listen(QObject* speaker);
    void queue_present_records();
    void take_in_some();

    TreeModel& m_mirror;
    SignalLog& m_log;
    QPointer<Ear> m_ear; // The one that is not full yet
    std::deque<QPointer<TreeData>> m_unheard;
    QTimer m_take_in_timer;
};
