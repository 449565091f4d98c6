#pragma once

#include <importers/ImportJob.hpp>
#include <QStringList>

class EmbeddedKernel;

/// Reads files into a kernel, one at a time. A file that cannot be read, or is cancelled,
/// leaves the kernel as it was.
class FileOpening : public QObject
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
    void started();

    /// The last signal of an opening is one of these. The kernel holds the model (has not
    /// changed, and `sentence` tells why).
    void opened(FileOpening::Mode mode);
    void failed(const QString& sentence);
    void cancelled();

private:
    void finish(HelperJob::Outcome outcome);
    void hand_over();

    EmbeddedKernel& m_kernel;
    ImportJob m_job;
    QString m_file;
    Mode m_mode = Replace;
    QStringList m_warnings;
};
