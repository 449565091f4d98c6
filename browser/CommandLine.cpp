#include <browser/CommandLine.hpp>

#include <QCommandLineParser>
#include <QCoreApplication>

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("CommandLine", text);
}

CommandLine misuse(const QString& sentence)
{
    CommandLine result;
    result.action = CommandLine::ReportMisuse;
    result.text = sentence;
    return result;
}

} // namespace

CommandLine CommandLine::parse(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(tr("Shows what a geometry kernel holds as a live tree."));
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();
    const QCommandLineOption print("print", tr("Print the tree of the file and end."));
    const QCommandLineOption json("json", tr("Print JSON instead of text."));
    const QCommandLineOption depth("depth", tr("Print no more than <N> levels."), tr("N"));
    const QCommandLineOption trusted(
        "trusted", tr("Run the file if it is a Gmsh script, which can do anything that you can."));
    const QCommandLineOption sets(
        "sets", tr("Make blocks, sidesets and nodesets of the named parts of a mesh."));
    parser.addOptions({print, json, depth, trusted, sets});
    parser.addPositionalArgument(tr("FILE"),
        tr("The file to open: a CAD model (STEP, IGES, BREP) or a mesh (MSH, Medit, VTK, Nastran, "
           "GEO)."));

    if (!parser.parse(arguments)) {
        return misuse(parser.errorText());
    }
    CommandLine result;
    if (parser.isSet(help)) {
        result.action = ShowHelp;
        result.text = parser.helpText();
        return result;
    }
    if (parser.isSet(version)) {
        result.action = ShowVersion;
        return result;
    }
    if (!parser.isSet(print)) {
        return misuse(tr("Nothing to do: give --print and a file."));
    }
    if (parser.positionalArguments().size() != 1) {
        return misuse(tr("Give one file to print."));
    }
    result.file = parser.positionalArguments().constFirst();
    result.json = parser.isSet(json);
    result.trusts_scripts = parser.isSet(trusted);
    result.makes_sets = parser.isSet(sets);
    if (parser.isSet(depth)) {
        bool is_number = false;
        result.depth = parser.value(depth).toInt(&is_number);
        if (!is_number || *result.depth < 1) {
            return misuse(tr("The depth must be a whole number from 1 on, not \"%1\".")
                              .arg(parser.value(depth)));
        }
    }
    return result;
}
