#pragma once

#include <functional>
#include <QObject>

class TreeData;
class TreeModel;

/// Calls back inside every signal of a mirror and of its records, after all other receivers.
/// Not inside treedata_destroyed(), from which a receiver must not use the mirror.
class SignalTap : public QObject
{
    Q_OBJECT

public:
    /// The mirror must be empty.
    SignalTap(TreeModel& mirror, std::function<void()> callback);

private Q_SLOTS:
    void call();

private:
    void follow_additions(TreeModel& mirror);
    void watch(TreeData* record);
    void tap(QObject* sender);

    std::function<void()> m_callback;
};
