#pragma once

#include <importers/HelperJob.hpp>
#include <importers/MeshCounts.hpp>

/// Makes a mesh of a CAD file and tells how many nodes and elements lie on each entity, by the
/// ids that the entities have when ImportJob reads the same file. The mesh itself is not kept.
///
/// See count_into_groups() for the way of the counts into a kernel.
class MeshJob : public HelperJob
{
    Q_OBJECT

public:
    struct Options
    {
        /// How long the edge of an element should be, in the units of the model.
        double element_size = 0;
        /// 1 for elements with straight edges, up to 3.
        int element_order = 1;
    };

    /// The silence limit is ten minutes: a mesher may work on one surface for long.
    explicit MeshJob(QObject* parent = nullptr);

    /// Begins to mesh and returns at once; no signal is emitted meanwhile. finished()
    /// follows in any case. Does nothing while a job is running.
    void start(const QString& file, const Options& options);

    /// The counts of the last job; empty if it did not succeed.
    const MeshCounts& counts() const { return m_counts; }

Q_SIGNALS:
    /// What stands of the mesh so far: after its curves, after its surfaces, after its
    /// volumes. The order of the elements is raised after that; counts() has the last word.
    void counted(const MeshCounts& counts);

private:
    void prepare() override;
    bool take_result(const Frame& frame) override;
    QString failure_text(const QString& native_file, const QString& reason) const override;
    QString cancelled_text(const QString& native_file) const override;

    Options m_options;
    MeshCounts m_counts;
};
