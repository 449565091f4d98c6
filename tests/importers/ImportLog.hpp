#pragma once

#include <importers/ImportJob.hpp>
#include <QElapsedTimer>
#include <QRegularExpression>
#include <QStringList>
#include <QTest>

/// Writes down the signals of a job, a line each.
class JobLog : public QObject
{
public:
    explicit JobLog(HelperJob& job)
        : m_job(job)
    {
        connect(&job, &HelperJob::progress, this, [this](const QString& stage, double fraction) {
            m_lines << QStringLiteral("progress: %1 %2").arg(stage).arg(fraction);
        });
        connect(&job, &HelperJob::warning, this,
            [this](const QString& sentence) { m_lines << QStringLiteral("warning: ") + sentence; });
        connect(&job, &HelperJob::finished, this, [this](HelperJob::Outcome outcome) {
            static const QStringList names{
                QStringLiteral("Succeeded"), QStringLiteral("Failed"), QStringLiteral("Cancelled")};
            m_lines << QStringLiteral("finished: ") + names.at(outcome);
        });
    }

    const QStringList& lines() const { return m_lines; }
    QString last() const { return m_lines.isEmpty() ? QString() : m_lines.last(); }

    QStringList warnings() const
    {
        static const QRegularExpression prefix(QStringLiteral("^warning: "));
        QStringList warnings = m_lines.filter(prefix);
        warnings.replaceInStrings(prefix, {});
        return warnings;
    }

    /// The texts of the stages, each once, in the order in which they were reported.
    QStringList stages() const
    {
        QStringList stages;
        for (const auto& line : m_lines) {
            const auto stage = line.section(QLatin1Char(' '), 1, -2);
            if (line.startsWith(QLatin1String("progress")) &&
                (stages.isEmpty() || stages.last() != stage)) {
                stages << stage;
            }
        }
        return stages;
    }

    static bool is_sentence(const QString& text)
    {
        return text.startsWith(QLatin1String("Cannot import \"")) &&
               text.endsWith(QLatin1Char('.')) && !text.endsWith(QLatin1String("..")) &&
               !text.contains(QLatin1Char('\n'));
    }

    void wait() const
    {
        QVERIFY2(QTest::qWaitFor([this] { return !m_job.is_running(); }, 120'000),
            "the job does not end");
    }

    void clear() { m_lines.clear(); }

private:
    HelperJob& m_job;
    QStringList m_lines;
};

/// The same for imports, which it can start.
class ImportLog : public JobLog
{
public:
    explicit ImportLog(ImportJob& job)
        : JobLog(job)
        , m_job(job)
    {
    }

    /// Starts an import and waits for its end.
    void import(const QString& file)
    {
        clear();
        m_job.start(file);
        wait();
    }

    /// Gives back the model, empty after a failure.
    ModelData imported(const QString& file)
    {
        import(file);
        if (last() != QLatin1String("finished: Succeeded")) {
            qWarning("%s", qPrintable(m_job.error_text()));
        }
        return m_job.take_model();
    }

private:
    ImportJob& m_job;
};
