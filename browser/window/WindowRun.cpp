#include <browser/window/WindowRun.hpp>

#include <browser/CommandLine.hpp>
#include <browser/editing/FilterBar.hpp>
#include <browser/KernelSession.hpp>
#include <browser/window/DarkPalette.hpp>
#include <browser/window/MainWindow.hpp>
#include <browser/window/Screenshot.hpp>
#include <browser/window/Translations.hpp>
#include <browser/window/TreePane.hpp>
#include <QApplication>
#include <QLocale>
#include <QTextStream>

namespace {

void tell(const QString& sentence)
{
    QTextStream(stderr) << "treebrowser: " << sentence << Qt::endl;
}

// The platform without a display warns of all that it does without.
void pass_over_warnings(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    if (type == QtCriticalMsg || type == QtFatalMsg) {
        tell(message);
    }
}

bool has_display()
{
    return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
           qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
}

void set_dark_colours()
{
    QApplication::setStyle("Fusion");
    QApplication::setPalette(dark_palette());
}

// What the command says of the file, once it is open. Empty, or why it cannot be done.
QString arrange(const CommandLine& command, KernelSession& session, MainWindow& window)
{
    if (command.depth) {
        window.tree().show_levels(*command.depth);
    }
    window.tree().filter_bar()->set_text(command.filter);
    QString problem = session.select(command.selection);
    window.tree().go_to_selection();
    return problem;
}

ExitCode show_window(const CommandLine& command, KernelSession& session, MainWindow& window)
{
    QObject::connect(
        &window.files().opening(), &FileOpening::opened, &window,
        [&] {
            if (const QString problem = arrange(command, session, window); !problem.isEmpty()) {
                window.show_message(problem);
            }
        },
        Qt::SingleShotConnection);
    window.restore_state();
    if (command.makes_sets) {
        window.files().set_makes_sets(true);
    }
    window.show();
    if (command.trusts_scripts && !command.file.isEmpty()) {
        window.files().opening().open(command.file, FileOpening::Replace, true);
    } else if (!command.file.isEmpty()) {
        window.files().open(command.file, FileOpening::Replace);
    }
    return QApplication::exec() == 0 ? Success : Failure;
}

ExitCode take_screenshot(const CommandLine& command, KernelSession& session, MainWindow& window)
{
    Screenshot screenshot(window, command.picture);
    const auto give_up = [](const QString& sentence) {
        tell(sentence);
        QApplication::exit(Failure);
    };
    QObject::connect(&window.files().opening(), &FileOpening::failed, &window, give_up);
    QObject::connect(&window.files().opening(), &FileOpening::opened, &window, [&] {
        if (const QString problem = arrange(command, session, window); !problem.isEmpty()) {
            give_up(problem);
        } else {
            screenshot.take();
        }
    });
    QObject::connect(&screenshot, &Screenshot::taken, &window, [] { QApplication::exit(Success); });
    QObject::connect(&screenshot, &Screenshot::failed, &window, give_up);
    window.files().set_makes_sets(command.makes_sets);
    window.show();
    window.files().opening().open(command.file, FileOpening::Replace, command.trusts_scripts);
    return ExitCode(QApplication::exec());
}

} // namespace

ExitCode run_window(const CommandLine& command, int& argc, char** argv)
{
    const bool takes_picture = command.action == CommandLine::TakeScreenshot;
    if (takes_picture) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        qInstallMessageHandler(pass_over_warnings);
    } else if (!has_display()) {
        tell(QCoreApplication::translate(
            "WindowRun", "There is no display to open a window on; give --print or --screenshot."));
        return Failure;
    }
    const QApplication application(argc, argv);
    // By which a desktop finds the icon of the window.
    QGuiApplication::setDesktopFileName(QCoreApplication::applicationName());
    install_translations(QLocale::system());
    if (command.dark) {
        set_dark_colours();
    }
    KernelSession session;
    MainWindow window(session);
    if (command.show_signals) {
        window.show_signal_monitor();
    }
    return takes_picture ? take_screenshot(command, session, window)
                         : show_window(command, session, window);
}
