#include <browser/window/HelperTask.hpp>

HelperTask::HelperTask(QObject* parent)
    : QObject(parent)
{
}

void HelperTask::follow(HelperJob& job)
{
    connect(&job, &HelperJob::finished, this,
        [this, &job](HelperJob::Outcome outcome) { finish(job, outcome); });
}

void HelperTask::finish(const HelperJob& job, HelperJob::Outcome outcome)
{
    if (outcome == HelperJob::Succeeded) {
        succeed();
        return;
    }
    give_up();
    if (outcome == HelperJob::Failed) {
        Q_EMIT failed(job.error_text());
    } else {
        Q_EMIT cancelled(job.error_text());
    }
}
