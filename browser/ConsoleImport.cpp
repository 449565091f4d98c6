#include <browser/ConsoleImport.hpp>

#include <importers/ImportJob.hpp>
#include <QEventLoop>
#include <QTextStream>

namespace {

const QLatin1String clear_line("\r\x1b[K");

} // namespace

std::optional<ModelData> import_on_console(
    const QString& file, QTextStream& messages, bool show_progress)
{
    ImportJob job;
    QEventLoop loop;
    bool has_progress_line = false;
    const auto say = [&](const QString& sentence) {
        if (has_progress_line) {
            messages << clear_line;
        }
        messages << "treebrowser: " << sentence << Qt::endl;
        has_progress_line = false;
    };

    QObject::connect(&job, &ImportJob::warning, &loop, say);
    if (show_progress) {
        QObject::connect(
            &job, &ImportJob::progress, &loop, [&](const QString& stage, double fraction) {
                messages << clear_line << stage;
                if (fraction >= 0) {
                    messages << QStringLiteral(" %1 %").arg(int(fraction * 100));
                }
                messages << Qt::flush;
                has_progress_line = true;
            });
    }
    ImportJob::Outcome outcome = ImportJob::Failed;
    QObject::connect(&job, &ImportJob::finished, &loop, [&](ImportJob::Outcome result) {
        outcome = result;
        loop.quit();
    });

    job.start(file);
    loop.exec();

    if (outcome != ImportJob::Succeeded) {
        say(job.error_text());
        return std::nullopt;
    }
    if (has_progress_line) {
        messages << clear_line << Qt::flush;
    }
    return job.take_model();
}
