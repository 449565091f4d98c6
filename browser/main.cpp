// treebrowser: opens a CAD model or a mesh in the embedded kernel and shows the mirror of it.
//
// It joins the pieces as a front end does: a kernel, a TreeModel that is
// connected to it, and a reader of the TreeModel.

#include <browser/CommandLine.hpp>
#include <browser/ConsoleImport.hpp>
#include <browser/JsonTree.hpp>
#include <browser/MirrorTree.hpp>
#include <browser/TextTreeWriter.hpp>
#include <embedded/EmbeddedKernel.hpp>
#include <QCoreApplication>
#include <QJsonDocument>
#include <QTextStream>
#include <treemodel/kernel/TreeModel.hpp>
#include <unistd.h>
#include <utility>

namespace {

enum ExitCode : int {
    Success = 0,
    ImportFailed = 1,
    Misuse = 2,
};

int print_file(const CommandLine& command, QTextStream& output, QTextStream& messages)
{
    std::optional<ModelData> model = import_on_console(command, messages, isatty(STDERR_FILENO));
    if (!model) {
        return ImportFailed;
    }

    EmbeddedKernel kernel;
    TreeModel mirror;
    mirror.connect_to_kesto();
    kernel.open_model(*std::move(model), command.file.toStdString());

    const MirrorTree tree(mirror);
    const int depth = command.depth.value_or(TextTreeWriter::AllLevels);
    if (command.json) {
        output << QJsonDocument(json_tree(tree, command.file, depth)).toJson();
    } else {
        TextTreeWriter(tree, output, depth).write();
        output << tree.counts_line() << '\n';
    }
    mirror.disconnect_from_kesto();
    return Success;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName("treebrowser");
    QCoreApplication::setApplicationVersion(TREEMODEL_VERSION);
    QTextStream output(stdout);
    QTextStream messages(stderr);

    const CommandLine command = CommandLine::parse(QCoreApplication::arguments());
    switch (command.action) {
    case CommandLine::ShowHelp:
        output << command.text;
        return Success;
    case CommandLine::ShowVersion:
        output << "treebrowser " << QCoreApplication::applicationVersion() << '\n';
        return Success;
    case CommandLine::ReportMisuse:
        messages << "treebrowser: " << command.text << '\n';
        return Misuse;
    case CommandLine::Print:
        break;
    }
    return print_file(command, output, messages);
}
