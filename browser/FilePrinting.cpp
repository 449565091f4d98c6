#include <browser/FilePrinting.hpp>

#include <browser/CommandLine.hpp>
#include <browser/ConsoleImport.hpp>
#include <browser/JsonTree.hpp>
#include <browser/KernelSession.hpp>
#include <browser/MirrorTree.hpp>
#include <browser/TextTreeWriter.hpp>
#include <QJsonDocument>
#include <QTextStream>
#include <unistd.h>

ExitCode print_file(const CommandLine& command, QTextStream& output, QTextStream& messages)
{
    const std::optional<ModelData> model =
        import_on_console(command, messages, isatty(STDERR_FILENO));
    if (!model) {
        return Failure;
    }

    KernelSession session;
    MirrorTree tree(session.mirror());
    QObject::connect(&session.mirror(), &TreeModel::selection_changed,
        [&tree](const std::vector<TreeData*>& records) { tree.set_selected(records); });
    session.kernel().open_model(*model, command.file.toStdString());
    if (const QString problem = session.select(command.selection); !problem.isEmpty()) {
        messages << "treebrowser: " << problem << Qt::endl;
        return Failure;
    }

    tree.set_filter(command.filter);
    const int depth = command.depth.value_or(TextTreeWriter::AllLevels);
    if (command.json) {
        output << QJsonDocument(json_tree(tree, command.file, depth)).toJson();
    } else {
        TextTreeWriter(tree, output, depth).write();
        output << tree.counts_line() << '\n';
    }
    return Success;
}
