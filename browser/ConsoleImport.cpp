#include <browser/ConsoleImport.hpp>

#include <browser/CommandLine.hpp>
#include <importers/ImportJob.hpp>
#include <QEventLoop>
#include <QTextStream>

namespace {

const QLatin1String clear_line("\r\x1b[K");

} // namespace

std::optional<ModelData> import_on_console(
    const CommandLine& command, QTextStream& messages, bool show_progress)
{
    ImportJob job;
    job.set_trusts_scripts(command.trusts_scripts);
    job.set_makes_sets(command.makes_sets);
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

    job.start(command.file);
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
