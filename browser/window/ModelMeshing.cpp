#include <browser/window/ModelMeshing.hpp>

#include <importers/MeshGroups.hpp>

ModelMeshing::ModelMeshing(EmbeddedKernel& kernel, QObject* parent)
    : QObject(parent)
    , m_kernel(kernel)
{
    connect(&m_job, &MeshJob::counted, this, [this](const MeshCounts& counts) { count(counts); });
    connect(&m_job, &HelperJob::finished, this, &ModelMeshing::finish);
}

void ModelMeshing::start(const QString& file, const MeshJob::Options& options)
{
    if (!m_job.is_running()) {
        m_job.start(file, options);
        Q_EMIT started();
    }
}

void ModelMeshing::reset()
{
    // The groups with its counts have gone.
    m_is_counted = false;
    m_last_counts = {};
    m_job.cancel();
}

void ModelMeshing::count(const MeshCounts& counts)
{
    m_is_counted = true;
    count_into_groups(m_kernel, counts);
}

void ModelMeshing::finish(HelperJob::Outcome outcome)
{
    if (outcome == HelperJob::Succeeded) {
        m_last_counts = m_job.counts();
        count(m_last_counts);
    } else if (m_is_counted) {
        count(m_last_counts);
    }
    switch (outcome) {
    case HelperJob::Succeeded:
        Q_EMIT meshed();
        break;
    case HelperJob::Failed:
        Q_EMIT failed(m_job.error_text());
        break;
    case HelperJob::Cancelled:
        Q_EMIT cancelled();
        break;
    }
}
