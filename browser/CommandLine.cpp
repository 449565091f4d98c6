#include <browser/CommandLine.hpp>

#include <QCommandLineParser>
#include <QCoreApplication>

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("CommandLine", text);
}

struct Options
{
    QCommandLineOption print{"print", tr("Print the tree of the file and end.")};
    QCommandLineOption json{"json", tr("Print JSON instead of text.")};
    QCommandLineOption depth{
        "depth", tr("Print, or expand in the window, no more than <N> levels."), "N"};
    QCommandLineOption filter{"filter",
        tr("Show only what has <TEXT> in its name, with what is above and below it."), "TEXT"};
    QCommandLineOption select{
        "select", tr("Select entities of the file, such as \"surface 3 5 body 1\"."), "ENTITIES"};
    QCommandLineOption screenshot{"screenshot",
        tr("Write a picture of the window to the file <PICTURE> and end. Needs no display."),
        "PICTURE"};
    QCommandLineOption show_signals{"show-signals", tr("Open the window with the signal monitor.")};
    QCommandLineOption trusted{
        "trusted", tr("Run the file if it is a Gmsh script, which can do anything that you can.")};
    QCommandLineOption sets{
        "sets", tr("Make blocks, sidesets and nodesets of the named parts of a mesh.")};
    QCommandLineOption dark{"dark", tr("Open the window in dark colours.")};

    QList<QCommandLineOption> all() const
    {
        return {print, json, depth, filter, select, screenshot, trusted, sets, show_signals, dark};
    }
};

CommandLine misuse(const QString& sentence)
{
    CommandLine result;
    result.action = CommandLine::ReportMisuse;
    result.text = sentence;
    return result;
}

/// What does not go together, in one sentence; empty if all is well.
QString contradiction(const QCommandLineParser& parser, const Options& options)
{
    const auto files = parser.positionalArguments().size();
    const bool prints = parser.isSet(options.print);
    const bool takes_picture = parser.isSet(options.screenshot);
    if (prints && takes_picture) {
        return tr("Give either --print or --screenshot, not both.");
    }
    if (prints && files != 1) {
        return tr("Give one file to print.");
    }
    if (takes_picture && files != 1) {
        return tr("Give one file to take a picture of.");
    }
    if (files > 1) {
        return tr("Give one file to open.");
    }
    if (parser.isSet(options.json) && !prints) {
        return tr("--json goes with --print.");
    }
    return {};
}

CommandLine::Action action_of(const QCommandLineParser& parser, const Options& options)
{
    if (parser.isSet(options.print)) {
        return CommandLine::Print;
    }
    return parser.isSet(options.screenshot) ? CommandLine::TakeScreenshot : CommandLine::OpenWindow;
}

} // namespace

CommandLine CommandLine::parse(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(tr("Shows what a geometry kernel holds as a live tree."));
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();
    const Options options;
    parser.addOptions(options.all());
    parser.addPositionalArgument(tr("FILE"),
        tr("The file to open: a CAD model (STEP, IGES, BREP) or a mesh (MSH, Medit, VTK, Nastran, "
           "GEO)."),
        tr("[FILE]"));

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
    if (const QString sentence = contradiction(parser, options); !sentence.isEmpty()) {
        return misuse(sentence);
    }
    result.action = action_of(parser, options);
    result.file = parser.positionalArguments().value(0);
    result.json = parser.isSet(options.json);
    result.filter = parser.value(options.filter);
    result.selection = parser.value(options.select);
    result.picture = parser.value(options.screenshot);
    result.trusts_scripts = parser.isSet(options.trusted);
    result.makes_sets = parser.isSet(options.sets);
    result.show_signals = parser.isSet(options.show_signals);
    result.dark = parser.isSet(options.dark);
    if (parser.isSet(options.depth)) {
        bool is_number = false;
        result.depth = parser.value(options.depth).toInt(&is_number);
        if (!is_number || *result.depth < 1) {
            return misuse(tr("The depth must be a whole number from 1 on, not \"%1\".")
                              .arg(parser.value(options.depth)));
        }
    }
    return result;
}
