#include <browser/CommandLine.hpp>
#include <QTest>

namespace {

// What the command asks for, in words.
QString summary(const CommandLine& command)
{
    static const QStringList actions{"window", "print", "picture", "help", "version", "misuse"};
    QStringList words{actions.at(command.action)};
    const auto add = [&words](const char* name, const QString& value) {
        if (!value.isEmpty()) {
            words << QLatin1String(name) + value;
        }
    };
    add("file=", command.file);
    add("", command.json ? "json" : "");
    add("depth=", command.depth ? QString::number(*command.depth) : QString());
    add("filter=", command.filter);
    add("select=", command.selection);
    add("to=", command.picture);
    add("", command.trusts_scripts ? "trusted" : "");
    add("", command.makes_sets ? "sets" : "");
    add("", command.show_signals ? "signals" : "");
    add("", command.dark ? "dark" : "");
    return words.join(' ');
}

} // namespace

class tst_CommandLine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void commandLineIsRead_data();
    void commandLineIsRead();
    void misuseIsOneSentence_data();
    void misuseIsOneSentence();
    void helpNamesEachOption_data();
    void helpNamesEachOption();
};

void tst_CommandLine::commandLineIsRead_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("expected");
    QTest::newRow("nothing") << QStringList() << "window";
    QTest::newRow("file") << QStringList{"a.step"} << "window file=a.step";
    QTest::newRow("file after --") << QStringList{"--", "--a.step"} << "window file=--a.step";
    QTest::newRow("text") << QStringList{"--print", "a.step"} << "print file=a.step";
    QTest::newRow("json") << QStringList{"--print", "--json", "a.step"} << "print file=a.step json";
    QTest::newRow("depth") << QStringList{"a.step", "--print", "--depth", "2"}
                           << "print file=a.step depth=2";
    QTest::newRow("levels of the window")
        << QStringList{"a.step", "--depth", "2"} << "window file=a.step depth=2";
    QTest::newRow("filter") << QStringList{"a.step", "--filter", "bolt"}
                            << "window file=a.step filter=bolt";
    QTest::newRow("selection") << QStringList{"a.step", "--select", "surface 3 5"}
                               << "window file=a.step select=surface 3 5";
    QTest::newRow("printed hits") << QStringList{"--print", "a.step", "--filter=bolt"}
                                  << "print file=a.step filter=bolt";
    QTest::newRow("picture") << QStringList{"--screenshot", "a.png", "a.step"}
                             << "picture file=a.step to=a.png";
    QTest::newRow("picture of everything")
        << QStringList{"--screenshot", "a.png", "--show-signals", "--dark", "a.step"}
        << "picture file=a.step to=a.png signals dark";
    QTest::newRow("mesh") << QStringList{"--print", "--trusted", "--sets", "a.geo"}
                          << "print file=a.geo trusted sets";
    QTest::newRow("help") << QStringList{"--help"} << "help";
    QTest::newRow("help before all") << QStringList{"--print", "--help"} << "help";
    QTest::newRow("version") << QStringList{"--version"} << "version";
}

void tst_CommandLine::commandLineIsRead()
{
    QFETCH(QStringList, arguments);
    QTEST(summary(CommandLine::parse(QStringList("treebrowser") + arguments)), "expected");
}

void tst_CommandLine::misuseIsOneSentence_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("sentence");
    QTest::newRow("nothing to print") << QStringList{"--print"} << "Give one file to print.";
    QTest::newRow("two files to print")
        << QStringList{"--print", "a", "b"} << "Give one file to print.";
    QTest::newRow("two files to open") << QStringList{"a", "b"} << "Give one file to open.";
    QTest::newRow("nothing to take a picture of")
        << QStringList{"--screenshot", "a.png"} << "Give one file to take a picture of.";
    QTest::newRow("text and picture") << QStringList{"--print", "--screenshot", "a.png", "a"}
                                      << "Give either --print or --screenshot, not both.";
    QTest::newRow("JSON in a window") << QStringList{"--json", "a"} << "--json goes with --print.";
    QTest::newRow("unknown option") << QStringList{"--shiny"} << "Unknown option 'shiny'.";
    QTest::newRow("filter of nothing")
        << QStringList{"a", "--filter"} << "Missing value after '--filter'.";
    QTest::newRow("depth of nothing") << QStringList{"--print", "a", "--depth", "0"}
                                      << "The depth must be a whole number from 1 on, not \"0\".";
    QTest::newRow("depth of words") << QStringList{"--print", "a", "--depth", "two"}
                                    << "The depth must be a whole number from 1 on, not \"two\".";
}

void tst_CommandLine::misuseIsOneSentence()
{
    QFETCH(QStringList, arguments);
    const CommandLine command = CommandLine::parse(QStringList("treebrowser") + arguments);
    QCOMPARE(command.action, CommandLine::ReportMisuse);
    QTEST(command.text, "sentence");
}

void tst_CommandLine::helpNamesEachOption_data()
{
    QTest::addColumn<QString>("option");
    for (const char* option : {"--print", "--json", "--depth <N>", "--filter <TEXT>",
             "--select <ENTITIES>", "--screenshot <PICTURE>", "--show-signals", "--dark",
             "--trusted", "--sets", "--help", "--version", "FILE"}) {
        QTest::newRow(option) << option;
    }
}

void tst_CommandLine::helpNamesEachOption()
{
    QFETCH(QString, option);
    const QString help = CommandLine::parse({"treebrowser", "--help"}).text;
    QVERIFY2(help.contains(option), qPrintable(help));
}

QTEST_GUILESS_MAIN(tst_CommandLine)
#include "tst_CommandLine.moc"
