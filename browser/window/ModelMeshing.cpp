#include <browser/window/ModelMeshing.hpp>

#include <importers/MeshGroups.hpp>

ModelMeshing::ModelMeshing(EmbeddedKernel& kernel, QObject* parent)
    : HelperTask(parent)
    , m_kernel(kernel)
{
    connect(&m_job, &MeshJob::counted, this, [this](const MeshCounts& counts) { count(counts); });
    follow(m_job);
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

void ModelMeshing::succeed()
{
    count(m_job.counts());
    m_mesh.reset();
    Q_EMIT meshed();
}

void ModelMeshing::give_up()
{
    if (m_mesh) {
        m_mesh->take_back();
        m_mesh.reset();
    }
}
