#pragma once

#include <browser/window/HelperTask.hpp>
#include <importers/MeshJob.hpp>
#include <importers/UnfinishedMesh.hpp>
#include <optional>

class EmbeddedKernel;

/// Meshes the model of a kernel, and brings the counts of the elements into its groups as
/// they grow. A mesh that fails or is cancelled leaves the counts and the groups as they were
/// before.
class ModelMeshing : public HelperTask
{
    Q_OBJECT

public:
    /// Keeps the reference.
    explicit ModelMeshing(EmbeddedKernel& kernel, QObject* parent = nullptr);

    /// What makes the meshes.
    MeshJob& job() { return m_job; }

    /// Begins to mesh the CAD file whose model the kernel holds. Does nothing while a mesh is
    /// being made.
    void start(const QString& file, const MeshJob::Options& options);

    /// The kernel has another model: ends a mesh that is being made, and touches no group.
    void reset();

Q_SIGNALS:
    /// The groups hold the counts of the whole mesh.
    void meshed();

private:
    void count(const MeshCounts& counts);
    void succeed() override;
    void give_up() override;

    EmbeddedKernel& m_kernel;
    MeshJob m_job;
    std::optional<UnfinishedMesh> m_mesh; // Since the first counts of the job
};
