#include "ImportLog.hpp"

#include <algorithm>
#include <cmath>
#include <memory>
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

using namespace std::chrono_literals;

#if defined(__SANITIZE_ADDRESS__)
constexpr int damaged_file_count = 60;
#else
constexpr int damaged_file_count = 200;
#endif

namespace {

QString example(const QString& name)
{
    return QStringLiteral(EXAMPLE_MODELS_DIR "/") + name;
}

/// The tree of groups, a line for each group and body, two blanks for each level.
class GroupTree
{
public:
    explicit GroupTree(const ModelData& model)
        : m_model(model)
    {
    }

    QStringList lines(int root)
    {
        add(root, {});
        return m_lines;
    }

private:
    void add(int group_id, const QString& indent)
    {
        const auto& group = m_model.groups.at(static_cast<std::size_t>(group_id) - 1);
        m_lines << indent + QString::fromStdString(group.name);
        for (const int body : group.bodies) {
            const auto& name = m_model.bodies.at(static_cast<std::size_t>(body) - 1).name;
            m_lines << indent + "  - " + QString::fromStdString(name);
        }
        for (const int child : group.groups) {
            add(child, indent + "  ");
        }
    }

    const ModelData& m_model;
    QStringList m_lines;
};

QByteArray step_file(const QByteArray& data)
{
    return "ISO-10303-21;\nHEADER;\nFILE_DESCRIPTION((''),'2;1');\n"
           "FILE_NAME('','',(''),(''),'','','');\nFILE_SCHEMA(('AUTOMOTIVE_DESIGN'));\n"
           "ENDSEC;\nDATA;\n" +
           data + "ENDSEC;\nEND-ISO-10303-21;\n";
}

} // namespace

class tst_CadImport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_log = std::make_unique<ImportLog>(CAD_HELPER_DIR); }

    void everyExampleHasItsCounts_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("expected");

        QTest::newRow("assembly")
            << "pump_station.step"
            << "25 bodies, 25 volumes, 90 surfaces, 120 curves, 80 vertices, 7 groups";
        QTest::newRow("conformal part")
            << "pile.brep"
            << "1 bodies, 6 volumes, 23 surfaces, 35 curves, 20 vertices, 0 groups";
        QTest::newRow("sheet")
            << "roof.step"
            << "1 bodies, 1 volumes, 2 surfaces, 9 curves, 11 vertices, 0 groups";
        QTest::newRow("solid")
            << "bracket.iges"
            << "1 bodies, 1 volumes, 9 surfaces, 21 curves, 14 vertices, 0 groups";
    }

    void everyExampleHasItsCounts()
    {
        QFETCH(QString, name);
        QFETCH(QString, expected);

        QCOMPARE(entity_counts(imported(example(name))), expected);
    }

    void extentIsTheDiagonalOfTheModel_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<double>("diagonal");

        QTest::newRow("assembly") << "pump_station.step" << std::hypot(300, 600, 140);
        QTest::newRow("conformal part") << "pile.brep" << std::hypot(20, 20, 15);
        QTest::newRow("sheet") << "roof.step" << std::hypot(20, 20, 11);
        QTest::newRow("solid") << "bracket.iges" << std::hypot(40, 30, 40);
    }

    void extentIsTheDiagonalOfTheModel()
    {
        QFETCH(QString, name);
        QFETCH(double, diagonal);

        imported(example(name));

        QVERIFY2(std::abs(m_log->job().extent() - diagonal) < 0.01 * diagonal,
            qPrintable(QString::number(m_log->job().extent())));
    }

    void formatIsFoundUnderAnyName_data()
    {
        QTest::addColumn<QString>("source");
        QTest::addColumn<QString>("name");

        QTest::newRow("step as iges") << "roof.step"
                                      << "file.igs";
        QTest::newRow("iges as brep") << "bracket.iges"
                                      << "file.brep";
        QTest::newRow("brep as step") << "pile.brep"
                                      << "file.step";
        QTest::newRow("no suffix") << "roof.step"
                                   << "file";
        QTest::newRow("name with blanks and more") << "roof.step"
                                                   << "a % \u00e4 \"file\" %1.txt";
        QTest::newRow("name like an option") << "roof.step"
                                             << "--help";
    }

    void formatIsFoundUnderAnyName()
    {
        QFETCH(QString, source);
        QFETCH(QString, name);

        const auto model = imported(write_file(m_folder, name, content_of(example(source))));

        QCOMPARE(entity_counts(model), entity_counts(imported(example(source))));
    }

    void fileIsFoundFromTheCurrentFolder()
    {
        const auto before = QDir::currentPath();
        QVERIFY(QDir::setCurrent(QStringLiteral(EXAMPLE_MODELS_DIR)));

        const auto model = imported("pile.brep");

        QVERIFY(QDir::setCurrent(before));
        QCOMPARE(model.volumes.size(), std::size_t(6));
    }

    void stagesAreReportedInTheirOrder()
    {
        m_log->import(example("roof.step"));

        QCOMPARE(m_log->stages(),
            QStringList({"Reading the file", "Checking the data", "Building the shapes",
                "Collecting the entities", "Handing over the model"}));
    }

    void assemblyBecomesGroupsUnderTheirInstanceNames()
    {
        const auto model = imported(example("pump_station.step"));

        const QStringList flange{
            "  - Disc", "  - Bolt 1", "  - Bolt 2", "  - Bolt 3", "  - Bolt 4"};
        QStringList pump{"  - Geh\u00e4use", "  - Shaft \u00d830"};
        pump << "  Inlet" << QStringList(flange).replaceInStrings(QRegularExpression("^"), "  ");
        pump << "  Outlet" << QStringList(flange).replaceInStrings(QRegularExpression("^"), "  ");
        pump.replaceInStrings(QRegularExpression("^"), "  ");
        const auto expected = QStringList{"Pump station", "  - Base plate"}
                              << "  Duty pump" << pump << "  Standby pump" << pump;
        QCOMPARE(GroupTree(model).lines(1), expected);
    }

    void instancesOfAPartShareNothing()
    {
        const auto model = imported(example("pump_station.step"));

        QCOMPARE(parent_counts(model.bodies, model.volumes), QStringLiteral("1:25"));
        QCOMPARE(parent_counts(model.volumes, model.surfaces), QStringLiteral("1:90"));
    }

    void conformalVolumesShareTheFacesBetweenThem()
    {
        const auto model = imported(example("pile.brep"));

        QCOMPARE(model.bodies[0].children, std::vector<int>({1, 2, 3, 4, 5, 6}));
        QVERIFY(std::none_of(model.volumes.begin(), model.volumes.end(),
            [](const ModelData::Volume& volume) { return volume.is_sheet; }));
        // Between the layers of ground, between those of the pile, around the pile.
        QCOMPARE(parent_counts(model.volumes, model.surfaces), QStringLiteral("1:16 2:7"));
        QCOMPARE(parent_counts(model.curves, model.vertices), QStringLiteral("2:2 3:10 4:8"));
    }

    void shellBecomesASheetBody()
    {
        const auto model = imported(example("roof.step"));

        QCOMPARE(model.bodies[0].name, std::string("Roof"));
        QCOMPARE(model.bodies[0].children, std::vector<int>{1});
        QVERIFY(model.volumes[0].is_sheet);
        QCOMPARE(model.volumes[0].children, std::vector<int>({1, 2}));
        // The vaults meet in one curve; the guide lines are free, and so is the datum.
        QCOMPARE(parent_counts(model.surfaces, model.curves), QStringLiteral("0:2 1:6 2:1"));
        QCOMPARE(
            parent_counts(model.curves, model.vertices).section(' ', 0, 0), QStringLiteral("0:1"));
    }

    void closedSurfaceNamesItsSeamOnce()
    {
        const auto model = imported(example("pump_station.step"));

        // A bolt: the round surface with two circles and a seam, and two discs.
        const auto& bolt =
            model.volumes.at(static_cast<std::size_t>(model.bodies.back().children.front()) - 1);
        std::vector<std::size_t> curve_counts;
        for (const int surface : bolt.children) {
            curve_counts.push_back(
                model.surfaces.at(static_cast<std::size_t>(surface) - 1).children.size());
        }
        std::sort(curve_counts.begin(), curve_counts.end());
        QCOMPARE(curve_counts, std::vector<std::size_t>({1, 1, 3}));
    }

    void namesInTheFileReachTheEntities()
    {
        auto step = content_of(example("roof.step"));
        step.replace("ADVANCED_FACE(''", "ADVANCED_FACE('vault'");
        step.replace("EDGE_CURVE(''", "EDGE_CURVE('#12'");
        step.replace("VERTEX_POINT(''", "VERTEX_POINT('NONE'");

        const auto model = imported(write_file(m_folder, "named.step", step));

        QCOMPARE(model.surfaces[0].name, std::string("vault"));
        QCOMPARE(model.surfaces[1].name, std::string("vault"));
        const auto is_named = [](const ModelData::Entity& entity) { return !entity.name.empty(); };
        QVERIFY2(std::none_of(model.curves.begin(), model.curves.end(), is_named),
            "the number of a record is no name");
        QVERIFY2(std::none_of(model.vertices.begin(), model.vertices.end(), is_named),
            "a filler is no name");
    }

    void instanceWithoutANameTakesTheOneOfItsProduct()
    {
        auto step = content_of(example("pump_station.step"));
        QVERIFY(step.contains(",'Base plate','',"));
        step.replace(",'Base plate','',", ",'','',");

        const auto model = imported(write_file(m_folder, "unnamed.step", step));

        QCOMPARE(model.bodies[0].name, std::string("Plate 600x300"));
    }

    void codedNameIsDecoded()
    {
        auto step = content_of(example("pump_station.step"));
        step.replace("Geh\u00e4use", R"(O''Brien \X2\00D8\X0\)");

        const auto model = imported(write_file(m_folder, "coded.step", step));

        QCOMPARE(model.bodies[1].name, std::string("O'Brien \u00d8"));
    }

    void partWithoutGeometryIsLeftOutWithAWarning()
    {
        auto step = content_of(example("roof.step"));
        step.replace("(#11,#169,#177)", "(#11)");

        m_log->import(write_file(m_folder, "gap.step", step));

        QCOMPARE(warnings(), QStringList{"The part \"Guide lines\" has no geometry of its own and "
                                         "was left out."});
        QCOMPARE(m_log->take_model().bodies.size(), std::size_t(1));
    }

    void damagedColourIsIgnoredWithAWarning()
    {
        auto step = content_of(example("roof.step"));
        step.replace("ENDSEC;\nEND-ISO", "#9000=COLOUR_RGB('',1.,'x',0.);\nENDSEC;\nEND-ISO");

        const auto model = imported(write_file(m_folder, "coloured.step", step));

        QCOMPARE(
            warnings(), QStringList{"Damaged records about colours or views were ignored: 1."});
        QCOMPARE(entity_counts(model), entity_counts(imported(example("roof.step"))));
    }

    void uselessFileBecomesASentence_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("reason");

        const auto row = [](const char* what, const QByteArray& bytes, const char* reason) {
            QTest::newRow(what) << bytes << QString::fromLatin1(reason);
        };
        const auto step = content_of(example("pump_station.step"));
        const auto iges = content_of(example("bracket.iges"));
        const auto brep = content_of(example("pile.brep"));
        row("empty", {}, "the file is empty");
        const char* const foreign =
            "its content is none of STEP, IGES, BREP, MSH, Medit, VTK and Nastran";
        row("text", "hello\n", foreign);
        row("picture", "\x89PNG\r\n\x1a\n", foreign);
        row("half a step file", step.left(step.size() / 2), "it is truncated: its end is missing");
        row("half an iges file", iges.left(iges.size() / 2), "it is truncated: its end is missing");
        row("half a brep file", brep.left(brep.size() / 2), "it is truncated: its end is missing");
        row("step without records", step_file({}), "it holds no geometry");
        row("step without shapes", step_file("#1=APPLICATION_CONTEXT('design');\n"),
            "it holds no geometry");
        row("broken syntax", step_file("#1=APPLICATION_CONTEXT('design'\n#2=();\n"),
            "it is damaged: its records cannot be read");
        row("broken reference", step_file("#1=VERTEX_POINT('',#99);\n"),
            "it is damaged: Unresolved Reference, Ent.Id.#1 ");
        row("broken brep", "CASCADE Topology V1, (c)\nhello\n*\n+1 0\n",
            "it is damaged: its shapes cannot be read");
    }

    void uselessFileBecomesASentence()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, reason);
        const auto path = write_file(m_folder, "useless.step", bytes);

        m_log->import(path);

        const auto beginning = QStringLiteral("Cannot import \"%1\": %2").arg(path, reason);
        QVERIFY2(m_log->error_text().startsWith(beginning), qPrintable(m_log->error_text()));
        m_log->verify_failure();
    }

    void placeWithoutAFileBecomesASentence_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("reason");

        QTest::newRow("nothing") << m_folder.filePath("none.step") << "there is no such file";
        QTest::newRow("no name") << ""
                                 << "there is no such file";
        QTest::newRow("directory") << m_folder.path() << "it is a directory";
        QTest::newRow("device") << "/dev/null"
                                << "it is a device, not a file";
    }

    void placeWithoutAFileBecomesASentence()
    {
        QFETCH(QString, path);
        QFETCH(QString, reason);

        m_log->import(path);

        QCOMPARE(m_log->lines(), QStringList{"finished: Failed"});
        QCOMPARE(
            m_log->error_text(), QStringLiteral("Cannot import \"%1\": %2.").arg(path, reason));
    }

    void damagedFilesGiveAModelOrASentence()
    {
        const QList<QByteArray> sources{content_of(example("roof.step")),
            content_of(example("pile.brep")), content_of(example("bracket.iges")),
            content_of(example("pump_station.step"))};
        m_log->job().set_silence_limit(1s);

        m_log->verify_damaged_files(sources, damaged_file_count, 2,
            [](const ModelData& model) { return !model.vertices.empty(); });
    }

private:
    QStringList warnings() const { return m_log->warnings(); }
    ModelData imported(const QString& path) { return m_log->imported(path); }

    QTemporaryDir m_folder;
    std::unique_ptr<ImportLog> m_log;
};

QTEST_GUILESS_MAIN(tst_CadImport)
#include "tst_CadImport.moc"
