#pragma once

#include <chrono>
#include <embedded/ModelData.hpp>
#include <importers/ImportFrames.hpp>
#include <QObject>
#include <QProcess>
#include <QString>
#include <QTimer>
#include <string>

/// Reads a foreign file into a ModelData, in a helper program that may crash or hang
/// without harm. One import at a time; a job can be used again.
///
/// The job delivers the whole model or none: what is done with it, such as
/// EmbeddedKernel::open_model(), is up to the caller. Needs a running event loop.
class ImportJob : public QObject
{
    Q_OBJECT

public:
    enum Outcome : int {
        Succeeded,
        Failed,
        Cancelled,
    };
    Q_ENUM(Outcome)

    explicit ImportJob(QObject* parent = nullptr);

    /// Ends a running helper program, without a signal.
    ~ImportJob() override;

    /// The folder of the helper programs. Empty, the default, stands for the
    /// folder of the running program, then the one where they are installed.
    void set_helper_folder(const QString& folder);

    /// How long the helper program may be silent before it is taken for hung and
    /// ended. One minute by default; a large file adds a second for every 5 MB.
    void set_silence_limit(std::chrono::milliseconds limit);

    /// Begins to read the file and returns at once; no signal is emitted meanwhile.
    /// finished() follows in any case. Does nothing while an import is running.
    void start(const QString& file);

    /// Ends a running import at once: emits finished(Cancelled) before it returns.
    void cancel();

    bool is_running() const { return m_is_running; }

    /// Why the last import did not succeed: one sentence with the file and the
    /// reason. Empty after success.
    QString error_text() const { return m_error_text; }

    /// Hands over the model of the last import; empty if it did not succeed or was
    /// taken before.
    ModelData take_model();

Q_SIGNALS:
    /// The stage, as a text for the user, and how much of it is done, from 0 to 1; below
    /// 0 if that is unknown.
    void progress(const QString& stage, double fraction);

    /// Something in the file was left out or repaired; the import goes on.
    void warning(const QString& sentence);

    /// The last signal of an import. take_model() or error_text() tells more; the
    /// slot may start the next import, but not delete the job.
    void finished(ImportJob::Outcome outcome);

private:
    void launch();
    void read_frames();
    void handle_frame(const Frame& frame);
    void handle_progress(const std::string& payload);
    void handle_warning(const std::string& payload);
    void handle_failure(const std::string& payload);
    void handle_model(const std::string& payload);
    void handle_end();
    void handle_silence();
    void fail(const QString& reason);
    void fail_unreadable();
    void finish(Outcome outcome);
    void let_go_of_process();
    QString stage_text() const;
    QString find_helper(const QString& name) const;

    QString m_helper_folder;
    QString m_file;
    QString m_error_text;
    std::chrono::milliseconds m_silence_limit = std::chrono::minutes(1);
    QTimer m_launch_timer;
    QTimer m_silence_timer;
    QProcess* m_process = nullptr;
    FrameReader m_reader;
    ImportStage m_stage = ImportStage::Read;
    ModelData m_model;
    bool m_is_running = false;
};
