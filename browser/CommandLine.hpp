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
    /// For ShowHelp the help, for ReportMisuse one sentence.
    QString text;

    /// `arguments` begin with the name of the program.
    static CommandLine parse(const QStringList& arguments);
};
