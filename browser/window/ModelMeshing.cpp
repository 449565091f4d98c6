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
    m_mesh.reset();
    m_job.cancel();
}

void ModelMeshing::count(const MeshCounts& counts)
{
    if (!m_mesh) {
        m_mesh.emplace(m_kernel);
    }
    m_mesh->count(counts);
}

void ModelMeshing::finish(HelperJob::Outcome outcome)
{
    if (outcome == HelperJob::Succeeded) {
        count(m_job.counts());
    } else if (m_mesh) {
        m_mesh->take_back();
    }
    m_mesh.reset();
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
