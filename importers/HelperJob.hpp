#pragma once

#include <chrono>
#include <importers/ImportFrames.hpp>
#include <QObject>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <string>

/// Has a helper program, which may crash or hang without harm, do something with a file. One
/// run at a time; a job can be used again. Needs a running event loop.
class HelperJob : public QObject
{
    Q_OBJECT

public:
    enum Outcome : int {
        Succeeded,
        Failed,
        Cancelled,
    };
    Q_ENUM(Outcome)

    /// Ends a running helper program, without a signal.
    ~HelperJob() override;

    /// The folder of the helper programs. Empty, the default, stands for the
    /// folder of the running program, then the one where they are installed.
    void set_helper_folder(const QString& folder);

    /// How long the helper program may be silent before it is taken for hung and
    /// ended; a large file adds a second for every 5 MB.
    void set_silence_limit(std::chrono::milliseconds limit);

    /// Ends a running job at once: emits finished(Cancelled) before it returns.
    void cancel();

    bool is_running() const { return m_is_running; }

    /// Why the last run did not succeed: one sentence with the file and the reason.
    /// Empty after success.
    QString error_text() const { return m_error_text; }

Q_SIGNALS:
    /// The stage, as a text for the user, and how much of it is done, from 0 to 1; below
    /// 0 if that is unknown.
    void progress(const QString& stage, double fraction);

    /// Something in the file was left out or repaired; the job goes on.
    void warning(const QString& sentence);

    /// The last signal of a run. The slot may start the next one, but not delete the job.
    void finished(HelperJob::Outcome outcome);

protected:
    HelperJob(std::chrono::milliseconds silence_limit, QObject* parent);

    /// Begins a run, if none is running, and returns at once without a signal. False if one is.
    bool begin(const QString& file);

    QString file() const { return m_file; }

    /// Starts the program, with the file as its last argument.
    void launch(const QString& program, const QStringList& options);

    /// Ends the run with a reason, which ends the sentence about it.
    void fail(const QString& reason);

    /// Ends the run.
    void finish(Outcome outcome);

private:
    /// Called from the event loop when a run begins; calls launch() or fail().
    virtual void prepare() = 0;

    /// Takes a frame with a result and calls finish() if it is the last one. False for a frame
    /// that is out of place or cannot be read.
    virtual bool take_result(const Frame& frame) = 0;

    /// The sentence for a reason, and the one for a cancelled run.
    virtual QString failure_text(const QString& native_file, const QString& reason) const = 0;
    virtual QString cancelled_text(const QString& native_file) const = 0;

    void read_frames();
    bool handle_frame(const Frame& frame);
    bool handle_progress(const std::string& payload);
    bool handle_warning(const std::string& payload);
    bool handle_failure(const std::string& payload);
    void handle_end();
    void handle_silence();
    void let_go_of_process();
    QString native_file() const;
    QString stage_text() const;
    QString find_helper(const QString& name) const;

    QString m_helper_folder;
    QString m_file;
    QString m_error_text;
    std::chrono::milliseconds m_silence_limit;
    QTimer m_launch_timer;
    QTimer m_silence_timer;
    QProcess* m_process = nullptr;
    FrameReader m_reader;
    ImportStage m_stage = ImportStage::Read;
    bool m_is_running = false;
};
