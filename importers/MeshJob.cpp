#include <importers/MeshJob.hpp>

#include <cmath>
#include <importers/ContentRule.hpp>
#include <importers/ModelPack.hpp>

using namespace std::chrono_literals;

namespace {

constexpr int highest_order = 3;

} // namespace

MeshJob::MeshJob(QObject* parent)
    : HelperJob(10min, parent)
{
}

void MeshJob::start(const QString& file, const Options& options)
{
    if (begin(file)) {
        m_options = options;
        m_counts = {};
    }
}

void MeshJob::prepare()
{
    const auto& rule = ContentRule::of(file());
    if (!std::isfinite(m_options.element_size) || m_options.element_size <= 0) {
        fail(tr("the size of the elements must be above 0"));
    } else if (m_options.element_order < 1 || m_options.element_order > highest_order) {
        fail(tr("the order of the elements must be from 1 to %1").arg(highest_order));
    } else if (rule.reader == ContentRule::None) {
        fail(rule.reason_text());
    } else if (rule.reader != ContentRule::Cad) {
        fail(tr("it is not a CAD file"));
    } else {
        launch(QString::fromLatin1(mesh_helper),
            {QStringLiteral("--mesh"), QString::number(m_options.element_size, 'g', 17),
                QString::number(m_options.element_order)});
    }
}

bool MeshJob::take_result(const Frame& frame)
{
    auto counts = frame.kind == FrameKind::Model ? std::nullopt : unpack_mesh(frame.payload);
    if (!counts) {
        return false;
    }
    if (frame.kind == FrameKind::UnfinishedMesh) {
        Q_EMIT counted(*counts);
    } else {
        m_counts = std::move(*counts);
        finish(Succeeded);
    }
    return true;
}

QString MeshJob::failure_text(const QString& native_file, const QString& reason) const
{
    return tr("Cannot mesh \"%1\": %2.").arg(native_file, reason);
}

QString MeshJob::cancelled_text(const QString& native_file) const
{
    return tr("The meshing of \"%1\" was cancelled.").arg(native_file);
}
