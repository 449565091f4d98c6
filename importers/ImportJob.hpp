#pragma once

#include <embedded/ModelData.hpp>
#include <importers/HelperJob.hpp>

/// Reads a foreign file, a CAD model or a mesh, into a ModelData. The content of the file
/// decides which helper program reads it.
///
/// The job delivers the whole model or none: what is done with it, such as
/// EmbeddedKernel::open_model(), is up to the caller.
class ImportJob : public HelperJob
{
    Q_OBJECT

public:
    /// The silence limit is one minute.
    explicit ImportJob(QObject* parent = nullptr);

    /// Whether Gmsh scripts are run. Such a script can do to the user's files whatever the user
    /// can; without trust, the default, it is refused.
    void set_trusts_scripts(bool trusts_scripts);

    /// Whether the named parts of a mesh become not only groups but also blocks (of volumes),
    /// sidesets (of surfaces) and nodesets (of curves and vertices). Not by default.
    void set_makes_sets(bool makes_sets);

    /// Begins to read the file and returns at once; no signal is emitted meanwhile.
    /// finished() follows in any case. Does nothing while an import is running.
    void start(const QString& file);

    /// Hands over the model of the last import; empty if it did not succeed or was
    /// taken before.
    ModelData take_model();

    /// How large the model of the last import is: the diagonal of the box around it, in its units.
    /// 0 if that is unknown, as for a mesh.
    double extent() const { return m_extent; }

private:
    void prepare() override;
    bool take_result(const Frame& frame) override;
    QString failure_text(const QString& native_file, const QString& reason) const override;
    QString cancelled_text(const QString& native_file) const override;
    QStringList mesh_options() const;
    bool take_extent(const std::string& payload);

    ModelData m_model;
    double m_extent = 0;
    bool m_trusts_scripts = false;
    bool m_makes_sets = false;
};
