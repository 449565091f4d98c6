#pragma once

#include <optional>
#include <QString>
#include <QStringList>

/// What the user asked for on the command line.
struct CommandLine
{
    enum Action : int {
        OpenWindow,
        Print,
        TakeScreenshot,
        ShowHelp,
        ShowVersion,
        ReportMisuse,
    };

    Action action = OpenWindow;
    /// May be empty for OpenWindow alone.
    QString file;
    bool json = false;
    /// How many levels of the tree to print or to expand; unset, all are printed and
    /// none is expanded.
    std::optional<int> depth;
    /// What a record's name must contain to be shown; empty for everything.
    QString filter;
    /// The words of a selection, such as "surface 3 5 body 1"; empty for none.
    QString selection;
    /// The picture file of TakeScreenshot.
    QString picture;
    /// Whether Gmsh scripts are run.
    bool trusts_scripts = false;
    /// Whether the named parts of a mesh become sets, too.
    bool makes_sets = false;
    /// Whether the window starts with the signal monitor, and in dark colours.
    bool show_signals = false;
    bool dark = false;
    /// For ShowHelp the help, for ReportMisuse one sentence.
    QString text;

    /// `arguments` begin with the name of the program.
    static CommandLine parse(const QStringList& arguments);
};
