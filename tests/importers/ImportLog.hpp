#pragma once

#include <importers/ImportJob.hpp>
#include <QElapsedTimer>
#include <QStringList>
#include <QTest>

/// Writes down the signals of a job, a line each.
class ImportLog : public QObject
{
public:
    explicit ImportLog(ImportJob& job)
        : m_job(job)
    {
        connect(&job, &ImportJob::progress, this, [this](const QString& stage, double fraction) {
            m_lines << QStringLiteral("progress: %1 %2").arg(stage).arg(fraction);
        });
        connect(&job, &ImportJob::warning, this,
            [this](const QString& sentence) { m_lines << QStringLiteral("warning: ") + sentence; });
        connect(&job, &ImportJob::finished, this, [this](ImportJob::Outcome outcome) {
            static const QStringList names{
                QStringLiteral("Succeeded"), QStringLiteral("Failed"), QStringLiteral("Cancelled")};
            m_lines << QStringLiteral("finished: ") + names.at(outcome);
        });
    }

    const QStringList& lines() const { return m_lines; }
    QString last() const { return m_lines.isEmpty() ? QString() : m_lines.last(); }

    /// Starts an import and waits for its end.
    void import(const QString& file)
    {
        m_lines.clear();
        m_job.start(file);
        wait();
    }

    void wait() const
    {
        QVERIFY2(QTest::qWaitFor([this] { return !m_job.is_running(); }, 120'000),
            "the import does not end");
    }

private:
    ImportJob& m_job;
    QStringList m_lines;
};
