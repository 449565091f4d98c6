#pragma once

#include <optional>
#include <QString>
#include <QStringList>

/// What the user asked for on the command line.
struct CommandLine
{
    enum Action : int {
        Print,
        ShowHelp,
        ShowVersion,
        ReportMisuse,
    };

    Action action = Print;
    QString file;
    bool json = false;
    /// How many levels of the tree to print; all of them if unset.
    std::optional<int> depth;
    /// Whether Gmsh scripts are run.
    bool trusts_scripts = false;
    /// Whether the named parts of a mesh become sets, too.
    bool makes_sets = false;
    /// For ShowHelp the help, for ReportMisuse one sentence.
    QString text;

    /// `arguments` begin with the name of the program.
    static CommandLine parse(const QStringList& arguments);
};
