#include <importers/HelperJob.hpp>

#include <array>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTemporaryDir>

namespace {

// While they parse, the readers give no sign of life, so that a large file may take long.
constexpr qint64 parsed_bytes_per_millisecond = 5000;

constexpr const char* damage = QT_TRANSLATE_NOOP("HelperJob", "the file is probably damaged");
constexpr const char* size = QT_TRANSLATE_NOOP("HelperJob", "another element size may help");

struct Stage
{
    const char* text;
    // What to think of a crash or a hang.
    const char* suspicion;
};

// Indexed by ImportStage.
constexpr std::array stages{
    Stage{QT_TRANSLATE_NOOP("HelperJob", "Reading the file"), damage},
    Stage{QT_TRANSLATE_NOOP("HelperJob", "Checking the data"), damage},
    Stage{QT_TRANSLATE_NOOP("HelperJob", "Building the shapes"), damage},
    Stage{QT_TRANSLATE_NOOP("HelperJob", "Collecting the entities"), damage},
    Stage{QT_TRANSLATE_NOOP("HelperJob", "Handing over the model"), damage},
    Stage{QT_TRANSLATE_NOOP("HelperJob", "Meshing the curves"), size},
    Stage{QT_TRANSLATE_NOOP("HelperJob", "Meshing the surfaces"), size},
    Stage{QT_TRANSLATE_NOOP("HelperJob", "Meshing the volumes"), size},
    Stage{QT_TRANSLATE_NOOP("HelperJob", "Raising the order of the elements"), size},
};

const Stage& row_of(ImportStage stage)
{
    return stages[static_cast<std::size_t>(stage)];
}

// Runs in a folder of its own, which goes with it, and ends its program without the warning
// that QProcess prints in that case.
class HelperProcess : public QProcess
{
public:
    explicit HelperProcess(QObject* parent)
        : QProcess(parent)
    {
        setWorkingDirectory(m_folder.path());
        // What the libraries print is for nobody.
        setStandardErrorFile(nullDevice());
    }

    ~HelperProcess() override
    {
        kill();
        waitForFinished();
    }

private:
    QTemporaryDir m_folder;
};

} // namespace

HelperJob::HelperJob(std::chrono::milliseconds silence_limit, QObject* parent)
    : QObject(parent)
    , m_silence_limit(silence_limit)
{
    m_launch_timer.setSingleShot(true);
    connect(&m_launch_timer, &QTimer::timeout, this, [this] { prepare(); });
    m_silence_timer.setSingleShot(true);
    connect(&m_silence_timer, &QTimer::timeout, this, &HelperJob::handle_silence);
}

HelperJob::~HelperJob()
{
    let_go_of_process();
}

void HelperJob::set_helper_folder(const QString& folder)
{
    m_helper_folder = folder;
}

void HelperJob::set_silence_limit(std::chrono::milliseconds limit)
{
    m_silence_limit = limit;
}

bool HelperJob::begin(const QString& file)
{
    if (m_is_running) {
        return false;
    }
    m_file = file;
    m_error_text.clear();
    m_reader = {};
    m_stage = ImportStage::Read;
    m_is_running = true;
    m_launch_timer.start(0);
    return true;
}

void HelperJob::cancel()
{
    if (m_is_running) {
        m_error_text = cancelled_text(native_file());
        finish(Cancelled);
    }
}

void HelperJob::launch(const QString& program, const QStringList& options)
{
    const auto helper = find_helper(program);
    if (helper.isEmpty()) {
        fail(tr("the program %1, which reads such files, is missing").arg(program));
        return;
    }
    m_process = new HelperProcess(this);
    connect(m_process, &QProcess::readyReadStandardOutput, this, &HelperJob::read_frames);
    connect(m_process, &QProcess::finished, this, &HelperJob::handle_end);
    connect(m_process, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) {
            fail(tr("the program %1 does not start: %2")
                     .arg(m_process->program(), m_process->errorString()));
        }
    });
    const QFileInfo info(m_file);
    m_silence_timer.start(
        m_silence_limit + std::chrono::milliseconds(info.size() / parsed_bytes_per_millisecond));
    m_process->start(helper, options + QStringList(info.absoluteFilePath()));
}

void HelperJob::read_frames()
{
    const auto bytes = m_process->readAllStandardOutput();
    m_silence_timer.start();
    m_reader.append({bytes.constData(), static_cast<std::size_t>(bytes.size())});
    bool is_readable = true;
    // The process goes with its run, whose last signal may begin the next one.
    for (auto frame = m_reader.next(); m_process && frame && is_readable; frame = m_reader.next()) {
        is_readable = handle_frame(*frame);
    }
    if (m_process && (!is_readable || m_reader.is_damaged())) {
        fail(tr("the program that reads it sent something unreadable"));
    }
}

bool HelperJob::handle_frame(const Frame& frame)
{
    switch (frame.kind) {
    case FrameKind::Progress:
        return handle_progress(frame.payload);
    case FrameKind::Warning:
        return handle_warning(frame.payload);
    case FrameKind::Failure:
        return handle_failure(frame.payload);
    default:
        return take_result(frame);
    }
}

bool HelperJob::handle_progress(const std::string& payload)
{
    const auto step = unpack_progress(payload);
    if (step) {
        m_stage = step->stage;
        Q_EMIT progress(stage_text(), step->fraction);
    }
    return step.has_value();
}

bool HelperJob::handle_warning(const std::string& payload)
{
    Q_EMIT warning(QString::fromStdString(payload));
    return true;
}

bool HelperJob::handle_failure(const std::string& payload)
{
    fail(QString::fromStdString(payload));
    return true;
}

void HelperJob::handle_end()
{
    read_frames();
    if (m_process) {
        fail(tr("the program that reads it crashed at the stage \"%1\"; %2")
                 .arg(stage_text(), tr(row_of(m_stage).suspicion)));
    }
}

void HelperJob::handle_silence()
{
    const std::chrono::duration<double> limit = m_silence_timer.intervalAsDuration();
    fail(tr("the program that reads it hung at the stage \"%1\" and was ended after %2 s; %3")
             .arg(stage_text())
             .arg(limit.count())
             .arg(tr(row_of(m_stage).suspicion)));
}

void HelperJob::fail(const QString& reason)
{
    m_error_text = failure_text(native_file(), reason);
    finish(Failed);
}

void HelperJob::finish(Outcome outcome)
{
    m_launch_timer.stop();
    m_silence_timer.stop();
    let_go_of_process();
    m_is_running = false;
    Q_EMIT finished(outcome);
}

void HelperJob::let_go_of_process()
{
    if (!m_process) {
        return;
    }
    m_process->disconnect(this);
    if (m_process->state() == QProcess::NotRunning) {
        m_process->deleteLater();
    } else {
        connect(m_process, &QProcess::finished, m_process, &QObject::deleteLater);
        m_process->kill();
    }
    m_process = nullptr;
}

QString HelperJob::native_file() const
{
    return QDir::toNativeSeparators(m_file);
}

QString HelperJob::stage_text() const
{
    return tr(row_of(m_stage).text);
}

QString HelperJob::find_helper(const QString& name) const
{
    QStringList folders{m_helper_folder};
    if (m_helper_folder.isEmpty()) {
        const auto program_folder = QCoreApplication::applicationDirPath();
        folders = {program_folder,
            program_folder + QLatin1Char('/') + QLatin1String(TREEMODEL_HELPER_PATH)};
    }
    return QStandardPaths::findExecutable(name, folders);
}
