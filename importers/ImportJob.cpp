#include <importers/ImportJob.hpp>

#include <array>
#include <importers/FileContent.hpp>
#include <importers/ModelPack.hpp>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <utility>

namespace {

// While they parse, the readers give no sign of life, so that a large file may take long.
constexpr qint64 parsed_bytes_per_millisecond = 5000;

// Indexed by ImportStage.
constexpr std::array stage_texts{
    QT_TRANSLATE_NOOP("ImportJob", "Reading the file"),
    QT_TRANSLATE_NOOP("ImportJob", "Checking the data"),
    QT_TRANSLATE_NOOP("ImportJob", "Building the shapes"),
    QT_TRANSLATE_NOOP("ImportJob", "Collecting the entities"),
    QT_TRANSLATE_NOOP("ImportJob", "Handing over the model"),
};

// What becomes of a file: a helper program reads it, or a reason why none can.
struct ContentRule
{
    const char* helper;
    const char* reason;
};

constexpr const char* cad_helper = "treemodel-import-cad";

// Indexed by FileContent.
constexpr std::array content_rules{
    ContentRule{nullptr, QT_TRANSLATE_NOOP("ImportJob", "there is no such file")},
    ContentRule{nullptr, QT_TRANSLATE_NOOP("ImportJob", "it is a directory")},
    ContentRule{nullptr, QT_TRANSLATE_NOOP("ImportJob", "it is a device, not a file")},
    ContentRule{nullptr, QT_TRANSLATE_NOOP("ImportJob", "it may not be read")},
    ContentRule{nullptr, QT_TRANSLATE_NOOP("ImportJob", "the file is empty")},
    ContentRule{
        nullptr, QT_TRANSLATE_NOOP("ImportJob", "its content is neither STEP nor IGES nor BREP")},
    ContentRule{cad_helper, nullptr},
    ContentRule{cad_helper, nullptr},
    ContentRule{cad_helper, nullptr},
};

// Ends its program without the warning that QProcess prints in that case.
class HelperProcess : public QProcess
{
public:
    using QProcess::QProcess;

    ~HelperProcess() override
    {
        kill();
        waitForFinished();
    }
};

const ContentRule& rule_for(const QString& file)
{
    const auto content = look_at_file(QFile::encodeName(file).toStdString());
    return content_rules[static_cast<std::size_t>(content)];
}

} // namespace

ImportJob::ImportJob(QObject* parent)
    : QObject(parent)
{
    m_launch_timer.setSingleShot(true);
    connect(&m_launch_timer, &QTimer::timeout, this, &ImportJob::launch);
    m_silence_timer.setSingleShot(true);
    connect(&m_silence_timer, &QTimer::timeout, this, &ImportJob::handle_silence);
}

ImportJob::~ImportJob()
{
    let_go_of_process();
}

void ImportJob::set_helper_folder(const QString& folder)
{
    m_helper_folder = folder;
}

void ImportJob::set_silence_limit(std::chrono::milliseconds limit)
{
    m_silence_limit = limit;
}

void ImportJob::start(const QString& file)
{
    if (m_is_running) {
        return;
    }
    m_file = file;
    m_error_text.clear();
    m_model = {};
    m_reader = {};
    m_stage = ImportStage::Read;
    m_is_running = true;
    m_launch_timer.start(0);
}

void ImportJob::cancel()
{
    if (m_is_running) {
        m_error_text =
            tr("The import of \"%1\" was cancelled.").arg(QDir::toNativeSeparators(m_file));
        finish(Cancelled);
    }
}

ModelData ImportJob::take_model()
{
    return std::exchange(m_model, {});
}

void ImportJob::launch()
{
    const auto& rule = rule_for(m_file);
    if (!rule.helper) {
        fail(tr(rule.reason));
        return;
    }
    const auto name = QString::fromLatin1(rule.helper);
    const auto helper = find_helper(name);
    if (helper.isEmpty()) {
        fail(tr("the program %1, which reads such files, is missing").arg(name));
        return;
    }
    m_process = new HelperProcess(this);
    // What the libraries print is for nobody.
    m_process->setStandardErrorFile(QProcess::nullDevice());
    connect(m_process, &QProcess::readyReadStandardOutput, this, &ImportJob::read_frames);
    connect(m_process, &QProcess::finished, this, &ImportJob::handle_end);
    connect(m_process, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) {
            fail(tr("the program %1 does not start: %2")
                     .arg(m_process->program(), m_process->errorString()));
        }
    });
    const QFileInfo file(m_file);
    m_silence_timer.start(
        m_silence_limit + std::chrono::milliseconds(file.size() / parsed_bytes_per_millisecond));
    m_process->start(helper, {file.absoluteFilePath()});
}

void ImportJob::read_frames()
{
    const auto bytes = m_process->readAllStandardOutput();
    m_silence_timer.start();
    m_reader.append({bytes.constData(), static_cast<std::size_t>(bytes.size())});
    while (const auto frame = m_reader.next()) {
        handle_frame(*frame);
    }
    if (m_is_running && m_reader.is_damaged()) {
        fail_unreadable();
    }
}

void ImportJob::handle_frame(const Frame& frame)
{
    // Indexed by FrameKind, which FrameReader has checked.
    static constexpr std::array<void (ImportJob::*)(const std::string&), 5> handlers{
        nullptr,
        &ImportJob::handle_progress,
        &ImportJob::handle_warning,
        &ImportJob::handle_failure,
        &ImportJob::handle_model,
    };
    if (m_is_running) {
        (this->*handlers[static_cast<std::size_t>(frame.kind)])(frame.payload);
    }
}

void ImportJob::handle_progress(const std::string& payload)
{
    if (const auto step = unpack_progress(payload)) {
        m_stage = step->stage;
        Q_EMIT progress(stage_text(), step->fraction);
    } else {
        fail_unreadable();
    }
}

void ImportJob::handle_warning(const std::string& payload)
{
    Q_EMIT warning(QString::fromStdString(payload));
}

void ImportJob::handle_failure(const std::string& payload)
{
    fail(QString::fromStdString(payload));
}

void ImportJob::handle_model(const std::string& payload)
{
    if (auto model = unpack_model(payload)) {
        m_model = std::move(*model);
        finish(Succeeded);
    } else {
        fail_unreadable();
    }
}

void ImportJob::handle_end()
{
    read_frames();
    if (m_is_running) {
        fail(tr(
            "the program that reads it crashed at the stage \"%1\"; the file is probably damaged")
                 .arg(stage_text()));
    }
}

void ImportJob::handle_silence()
{
    const std::chrono::duration<double> limit = m_silence_timer.intervalAsDuration();
    fail(tr("the program that reads it hung at the stage \"%1\" and was ended after %2 s; the file "
            "is probably damaged")
             .arg(stage_text())
             .arg(limit.count()));
}

void ImportJob::fail_unreadable()
{
    fail(tr("the program that reads it sent something unreadable"));
}

void ImportJob::fail(const QString& reason)
{
    m_error_text = tr("Cannot import \"%1\": %2.").arg(QDir::toNativeSeparators(m_file), reason);
    finish(Failed);
}

void ImportJob::finish(Outcome outcome)
{
    m_launch_timer.stop();
    m_silence_timer.stop();
    let_go_of_process();
    m_is_running = false;
    Q_EMIT finished(outcome);
}

void ImportJob::let_go_of_process()
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

QString ImportJob::stage_text() const
{
    return tr(stage_texts[static_cast<std::size_t>(m_stage)]);
}

QString ImportJob::find_helper(const QString& name) const
{
    QStringList folders{m_helper_folder};
    if (m_helper_folder.isEmpty()) {
        const auto program_folder = QCoreApplication::applicationDirPath();
        folders = {program_folder,
            program_folder + QLatin1Char('/') + QLatin1String(TREEMODEL_HELPER_PATH)};
    }
    return QStandardPaths::findExecutable(name, folders);
}
