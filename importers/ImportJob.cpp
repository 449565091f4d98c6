#include <importers/ImportJob.hpp>

#include <importers/ContentRule.hpp>
#include <importers/ModelPack.hpp>
#include <utility>

using namespace std::chrono_literals;

ImportJob::ImportJob(QObject* parent)
    : HelperJob(1min, parent)
{
}

void ImportJob::set_trusts_scripts(bool trusts_scripts)
{
    m_trusts_scripts = trusts_scripts;
}

void ImportJob::set_makes_sets(bool makes_sets)
{
    m_makes_sets = makes_sets;
}

void ImportJob::start(const QString& file)
{
    if (begin(file)) {
        m_model = {};
        m_extent = 0;
    }
}

ModelData ImportJob::take_model()
{
    return std::exchange(m_model, {});
}

void ImportJob::prepare()
{
    const auto& rule = ContentRule::of(file());
    if (rule.reader == ContentRule::None) {
        fail(rule.reason_text());
    } else if (rule.reader == ContentRule::Script && !m_trusts_scripts) {
        fail(tr("it is a script, which could run any program; import it as trusted (--trusted) "
                "only if you know where it comes from"));
    } else if (rule.reader == ContentRule::Cad) {
        launch(QString::fromLatin1(cad_helper), {});
    } else {
        launch(QString::fromLatin1(mesh_helper), mesh_options());
    }
}

QStringList ImportJob::mesh_options() const
{
    QStringList options;
    if (m_trusts_scripts) {
        options << QStringLiteral("--trusted");
    }
    if (m_makes_sets) {
        options << QStringLiteral("--sets");
    }
    return options;
}

bool ImportJob::take_result(const Frame& frame)
{
    if (frame.kind == FrameKind::Extent) {
        return take_extent(frame.payload);
    }
    auto model = frame.kind == FrameKind::Model ? unpack_model(frame.payload) : std::nullopt;
    if (!model) {
        return false;
    }
    m_model = std::move(*model);
    finish(Succeeded);
    return true;
}

bool ImportJob::take_extent(const std::string& payload)
{
    const auto extent = unpack_extent(payload);
    m_extent = extent.value_or(0);
    return extent.has_value();
}

QString ImportJob::failure_text(const QString& native_file, const QString& reason) const
{
    return tr("Cannot import \"%1\": %2.").arg(native_file, reason);
}

QString ImportJob::cancelled_text(const QString& native_file) const
{
    return tr("The import of \"%1\" was cancelled.").arg(native_file);
}
