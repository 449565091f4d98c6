#pragma once

#include <browser/window/HelperTask.hpp>
#include <importers/ImportJob.hpp>
#include <QStringList>

class EmbeddedKernel;

/// Reads files into a kernel, one at a time. A file that cannot be read, or is cancelled,
/// leaves the kernel as it was.
class FileOpening : public HelperTask
{
    Q_OBJECT

public:
    /// Whether the file's model takes the place of the present one or is added to it.
    enum Mode : int {
        Replace,
        Add,
    };

    /// Keeps the reference.
    explicit FileOpening(EmbeddedKernel& kernel, QObject* parent = nullptr);

    /// What reads the files.
    ImportJob& job() { return m_job; }

    /// Begins to read the file, and ends the reading of any other one. A script is run only
    /// with trust.
    void open(const QString& file, Mode mode, bool trusts_scripts = false);

    /// The file that is being read or was read last.
    QString file() const { return m_file; }

    /// What was left out of that file or repaired in it, a sentence each.
    QStringList warnings() const { return m_warnings; }

Q_SIGNALS:
    /// The kernel holds the model.
    void opened(FileOpening::Mode mode);

private:
    void succeed() override;
    void give_up() override {}

    EmbeddedKernel& m_kernel;
    ImportJob m_job;
    QString m_file;
    Mode m_mode = Replace;
    QStringList m_warnings;
};
