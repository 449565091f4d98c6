// treebrowser: opens a CAD model or a mesh in the embedded kernel and shows the mirror of
// it, in a window or as text.
//
// It joins the pieces as a front end does: a kernel, a TreeModel that is
// connected to it, and a reader of the TreeModel.

#include <browser/CommandLine.hpp>
#include <browser/FilePrinting.hpp>
#include <browser/window/WindowRun.hpp>
#include <QCoreApplication>
#include <QTextStream>

namespace {

// What needs no window. Nothing if the command asks for one.
std::optional<ExitCode> run_on_console(const CommandLine& command)
{
    QTextStream output(stdout);
    QTextStream messages(stderr);
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
        return print_file(command, output, messages);
    case CommandLine::OpenWindow:
    case CommandLine::TakeScreenshot:
        break;
    }
    return std::nullopt;
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication::setApplicationName("treebrowser");
    QCoreApplication::setOrganizationName("treemodel");
    QCoreApplication::setApplicationVersion(TREEMODEL_VERSION);
    CommandLine command;
    {
        const QCoreApplication application(argc, argv);
        command = CommandLine::parse(QCoreApplication::arguments());
        if (const std::optional<ExitCode> code = run_on_console(command)) {
            return *code;
        }
    }
    return run_window(command, argc, argv);
}
