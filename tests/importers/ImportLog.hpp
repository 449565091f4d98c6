#pragma once

#include "JobLog.hpp"
#include "TestFiles.hpp"

#include <importers/ImportJob.hpp>
#include <map>
#include <QRandomGenerator>

/// An import job, run for one file after the other, and the log of it.
class ImportLog
{
public:
    /// Of the helper programs in that folder.
    explicit ImportLog(const char* helper_folder)
    {
        m_job.set_helper_folder(QString::fromUtf8(helper_folder));
    }

    ImportJob& job() { return m_job; }

    QStringList lines() const { return m_log.lines(); }
    QString last() const { return m_log.last(); }
    QStringList warnings() const { return m_log.warnings(); }
    QStringList stages() const { return m_log.stages(); }
    QString error_text() const { return m_job.error_text(); }
    ModelData take_model() { return m_job.take_model(); }
    void wait() const { m_log.wait(); }

    /// Starts an import and waits for its end.
    void import(const QString& file)
    {
        m_log.clear();
        m_job.start(file);
        wait();
    }

    /// Gives back the model, empty after a failure.
    ModelData imported(const QString& file)
    {
        import(file);
        if (last() != QLatin1String("finished: Succeeded")) {
            qWarning("%s", qPrintable(error_text()));
        }
        return take_model();
    }

    /// Fails the test unless the last import has failed with one sentence and without a model.
    void verify_failure()
    {
        const QString text = error_text();
        QCOMPARE(last(), QStringLiteral("finished: Failed"));
        QVERIFY2(text.startsWith(QLatin1String("Cannot import \"")) &&
                     text.endsWith(QLatin1Char('.')) && !text.endsWith(QLatin1String("..")) &&
                     !text.contains(QLatin1Char('\n')),
            qPrintable(text));
        QCOMPARE(entity_counts(take_model()), entity_counts({}));
    }

    /// Imports so many files, each of which is one of the sources but for a few bytes. Fails the
    /// test unless each becomes a model, which `is_whole` accepts, or a sentence, and both occur.
    void verify_damaged_files(const QList<QByteArray>& sources, int file_count, quint32 seed,
        bool (*is_whole)(const ModelData& model))
    {
        const QTemporaryDir folder;
        QRandomGenerator random(seed);
        std::map<QString, int> outcomes;
        for (int i = 0; i < file_count; ++i) {
            auto bytes = sources.at(i % sources.size());
            for (int changes = random.bounded(1, 6); changes > 0; --changes) {
                bytes[random.bounded(bytes.size())] = static_cast<char>(random.bounded(256));
            }

            import(write_file(folder, QStringLiteral("damaged"), bytes));

            ++outcomes[last()];
            if (last() == QLatin1String("finished: Succeeded")) {
                QVERIFY(is_whole(take_model()));
            } else {
                verify_failure();
            }
            if (QTest::currentTestFailed()) {
                return;
            }
        }
        QCOMPARE(outcomes.size(), std::size_t(2));
    }

private:
    ImportJob m_job;
    JobLog m_log{m_job};
};
