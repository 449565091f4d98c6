#pragma once

#include <importers/HelperJob.hpp>

/// Has a helper job do something for a kernel, and tells of its begin and its end.
class HelperTask : public QObject
{
    Q_OBJECT

Q_SIGNALS:
    void started();

    /// One of these, or the signal for success, is the last one of a run. The kernel is as it was
    /// before, and `sentence` tells why.
    void failed(const QString& sentence);
    void cancelled(const QString& sentence);

protected:
    explicit HelperTask(QObject* parent);

    /// Brings each run of the job to its end.
    void follow(HelperJob& job);

private:
    void finish(const HelperJob& job, HelperJob::Outcome outcome);

    /// Takes the result of the job and emits the last signal.
    virtual void succeed() = 0;

    /// Leaves the kernel as it was before.
    virtual void give_up() = 0;
};
