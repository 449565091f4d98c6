#include <browser/window/FileOpening.hpp>

#include <embedded/EmbeddedKernel.hpp>
#include <QDir>
#include <stdexcept>

FileOpening::FileOpening(EmbeddedKernel& kernel, QObject* parent)
    : HelperTask(parent)
    , m_kernel(kernel)
{
    connect(&m_job, &ImportJob::warning, this,
        [this](const QString& sentence) { m_warnings << sentence; });
    follow(m_job);
}

void FileOpening::open(const QString& file, Mode mode, bool trusts_scripts)
{
    m_job.cancel();
    m_file = file;
    m_mode = mode;
    m_warnings.clear();
    m_job.set_trusts_scripts(trusts_scripts);
    m_job.start(file);
    Q_EMIT started();
}

void FileOpening::succeed()
{
    try {
        const ModelData model = m_job.take_model();
        if (m_mode == Replace) {
            m_kernel.open_model(model, m_file.toStdString());
        } else {
            m_kernel.import_model(model);
        }
    } catch (const std::invalid_argument& error) {
        Q_EMIT failed(tr("Cannot import \"%1\": %2.")
                          .arg(QDir::toNativeSeparators(m_file), QString::fromUtf8(error.what())));
        return;
    }
    Q_EMIT opened(m_mode);
}
