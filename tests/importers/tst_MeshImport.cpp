#include "ImportLog.hpp"

#include <algorithm>
#include <memory>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace std::chrono_literals;

#if defined(__SANITIZE_ADDRESS__)
constexpr int damaged_file_count = 36;
#else
constexpr int damaged_file_count = 72;
#endif

namespace {

QString example(const QString& name)
{
    return QStringLiteral(EXAMPLE_MESHES_DIR "/") + name;
}

QString text(const std::vector<int>& ids)
{
    QStringList words;
    for (const int id : ids) {
        words << QString::number(id);
    }
    return words.join(QLatin1Char(' '));
}

// "Floor: surfaces 1 2, curves 1 2; 3 edges".
QString text(const ModelData::Group& group)
{
    QStringList members;
    const auto add = [&members](const char* kind, const std::vector<int>& ids) {
        if (!ids.empty()) {
            members << QLatin1String(kind) + QLatin1Char(' ') + text(ids);
        }
    };
    add("bodies", group.bodies);
    add("volumes", group.volumes);
    add("surfaces", group.surfaces);
    add("curves", group.curves);
    add("vertices", group.vertices);
    return QStringLiteral("%1: %2; %3")
        .arg(QString::fromStdString(group.name), members.join(QLatin1String(", ")),
            text(group.elements));
}

QStringList groups_of(const ModelData& model)
{
    QStringList lines;
    for (const auto& group : model.groups) {
        lines << text(group);
    }
    return lines;
}

QStringList names(const std::vector<std::string>& list)
{
    QStringList result;
    for (const auto& name : list) {
        result << QString::fromStdString(name);
    }
    return result;
}

} // namespace

class tst_MeshImport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_log = std::make_unique<ImportLog>(MESH_HELPER_DIR);
        m_mark = m_folder.filePath("mark");
    }

    void everyExampleHasItsCounts_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("entities");
        QTest::addColumn<QString>("elements");

        const auto row = [](const char* what, const char* name, const char* entities,
                             const char* elements) {
            QTest::newRow(what) << QString(name) << QString(entities) << QString(elements);
        };
        // Without what is in no group.
        const auto* const parts = "1 bodies, 3 volumes, 8 surfaces, 9 curves, 6 vertices, 7 groups";
        const auto* const elements_of_parts =
            "33 nodes, 3 edges, 4 hexes, 4 quads, 24 tets, 9 tris, 5 wedges, 2 pyramids, 2 spheres";
        const auto* const all =
            "1 bodies, 3 volumes, 16 surfaces, 28 curves, 16 vertices, 7 groups";
        const auto* const elements_of_all = "33 nodes, 36 edges, 4 hexes, 19 quads, 24 tets, "
                                            "28 tris, 5 wedges, 2 pyramids, 2 spheres";
        const auto* const without_spheres =
            "33 nodes, 36 edges, 4 hexes, 19 quads, 24 tets, 28 tris, 5 wedges, 2 pyramids";
        row("msh 2.2", "blocks_22.msh", parts, elements_of_parts);
        row("msh 2.2 binary", "blocks_22_binary.msh", parts, elements_of_parts);
        row("msh 4.1", "blocks_41.msh", all, elements_of_all);
        row("msh 4.1 binary", "blocks_41_binary.msh", all, elements_of_all);
        row("msh in partitions", "blocks_in_partitions.msh", all, elements_of_all);
        row("nastran", "blocks.bdf",
            "1 bodies, 3 volumes, 16 surfaces, 28 curves, 16 vertices, 1 groups", without_spheres);
        row("vtk", "blocks.vtk",
            "1 bodies, 1 volumes, 1 surfaces, 12 curves, 16 vertices, 1 groups", without_spheres);
        // The format has no wedges and no pyramids.
        row("medit", "blocks.mesh",
            "2 bodies, 2 volumes, 17 surfaces, 28 curves, 16 vertices, 1 groups",
            "33 nodes, 36 edges, 4 hexes, 19 quads, 24 tets, 28 tris");
        row("plane", "strip_periodic.msh",
            "0 bodies, 0 volumes, 1 surfaces, 4 curves, 4 vertices, 1 groups",
            "5 nodes, 4 edges, 4 tris");
    }

    void everyExampleHasItsCounts()
    {
        QFETCH(QString, name);
        QFETCH(QString, entities);
        QFETCH(QString, elements);

        const auto model = m_log->imported(example(name));

        QCOMPARE(entity_counts(model), entities);
        QCOMPARE(QString::fromStdString(model.groups.back().name), QStringLiteral("Mesh"));
        QCOMPARE(text(model.groups.back().elements), elements);
    }

    void physicalGroupsBecomeGroupsWithTheirElements_data()
    {
        QTest::addColumn<QString>("name");

        QTest::newRow("ascii") << "blocks_41.msh";
        QTest::newRow("binary") << "blocks_41_binary.msh";
        QTest::newRow("in partitions") << "blocks_in_partitions.msh";
    }

    void physicalGroupsBecomeGroupsWithTheirElements()
    {
        QFETCH(QString, name);

        const auto model = m_log->imported(example(name));

        const QString whole_mesh =
            "Mesh: bodies 1; 33 nodes, 36 edges, 4 hexes, 19 quads, 24 tets, "
            "28 tris, 5 wedges, 2 pyramids, 2 spheres";
        const QStringList expected{
            "Geh\u00e4use: volumes 2; 18 nodes, 4 hexes",
            "Core: volumes 3; 15 nodes, 24 tets, 2 pyramids",
            "Physical volume 30: volumes 1; 12 nodes, 5 wedges",
            // Of surfaces and of curves: one name, one group.
            "Floor: surfaces 1 2, curves 1 2; 12 nodes, 3 edges, 4 quads, 5 tris",
            "Outlet: surfaces 16; 5 nodes, 4 tris",
            "Masses: vertices 1 2; 2 nodes, 2 spheres",
            whole_mesh,
        };
        QCOMPARE(groups_of(model), expected);
    }

    void olderVersionHasTheSameGroups()
    {
        const auto older = m_log->imported(example("blocks_22.msh"));
        const auto newer = m_log->imported(example("blocks_41.msh"));

        QCOMPARE(older.groups.size(), std::size_t(7));
        for (std::size_t i = 0; i + 1 < newer.groups.size(); ++i) {
            QCOMPARE(QString::fromStdString(older.groups[i].name),
                QString::fromStdString(newer.groups[i].name));
            QCOMPARE(text(older.groups[i].elements), text(newer.groups[i].elements));
        }
    }

    void freeEntitiesStandInTheGroupOfTheWholeMesh()
    {
        const auto model = m_log->imported(example("strip_periodic.msh"));

        QCOMPARE(groups_of(model), QStringList{"Mesh: surfaces 1; 5 nodes, 4 edges, 4 tris"});
    }

    void entitiesAreLinkedToWhatBoundsThem_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("surfaces");
        QTest::addColumn<QString>("vertices");

        QTest::newRow("told by the file") << "blocks_41.msh"
                                          << "1:14 2:2"
                                          << "3:8 4:8";
        QTest::newRow("worked out") << "blocks_22.msh"
                                    << "1:6 2:2"
                                    << "1:1 2:1 3:2 4:2";
    }

    void entitiesAreLinkedToWhatBoundsThem()
    {
        QFETCH(QString, name);
        QFETCH(QString, surfaces);
        QFETCH(QString, vertices);

        const auto model = m_log->imported(example(name));

        QCOMPARE(text(model.bodies.at(0).children), QStringLiteral("1 2 3"));
        QCOMPARE(parent_counts(model.volumes, model.surfaces), surfaces);
        QCOMPARE(parent_counts(model.curves, model.vertices), vertices);
    }

    void setsAreMadeOfTheGroupsIfWanted()
    {
        const auto without = m_log->imported(example("blocks_41.msh"));
        m_log->job().set_makes_sets(true);
        const auto with = m_log->imported(example("blocks_41.msh"));

        QCOMPARE(names(without.blocks) + names(without.sidesets) + names(without.nodesets),
            QStringList());
        QCOMPARE(names(with.blocks), QStringList({"Geh\u00e4use", "Core", "Physical volume 30"}));
        QCOMPARE(names(with.sidesets), QStringList({"Floor", "Outlet"}));
        QCOMPARE(names(with.nodesets), QStringList({"Floor", "Masses"}));
        QCOMPARE(groups_of(with), groups_of(without));
    }

    void formatIsFoundUnderAnyName_data()
    {
        QTest::addColumn<QString>("source");
        QTest::addColumn<QString>("name");

        QTest::newRow("msh as script") << "blocks_41.msh"
                                       << "file.geo";
        QTest::newRow("msh as step") << "blocks_41_binary.msh"
                                     << "file.step";
        QTest::newRow("medit as msh") << "blocks.mesh"
                                      << "file.msh";
        QTest::newRow("vtk as nastran") << "blocks.vtk"
                                        << "file.bdf";
        QTest::newRow("nastran as vtk") << "blocks.bdf"
                                        << "file.vtk";
        QTest::newRow("no suffix") << "blocks_22.msh"
                                   << "file";
        QTest::newRow("name with blanks and more") << "blocks_22.msh"
                                                   << "a % \u00e4 \"file\" %1.txt";
        QTest::newRow("name like an option") << "blocks_22.msh"
                                             << "--sets";
    }

    void formatIsFoundUnderAnyName()
    {
        QFETCH(QString, source);
        QFETCH(QString, name);

        const auto path = write_file(m_folder, name, content_of(example(source)));

        QCOMPARE(groups_of(m_log->imported(path)), groups_of(m_log->imported(example(source))));
    }

    void stagesAreReportedInTheirOrder()
    {
        m_log->import(example("blocks_41.msh"));

        QCOMPARE(m_log->stages(),
            QStringList({"Reading the file", "Collecting the entities", "Handing over the model"}));
    }

    void whatIsNotTakenInIsTold_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QStringList>("warnings");

        QTest::newRow("nothing") << "blocks_41.msh" << QStringList();
        QTest::newRow("partitions") << "blocks_in_partitions.msh"
                                    << QStringList{"The partitions of the mesh were ignored."};
        QTest::newRow("periodicity")
            << "strip_periodic.msh"
            << QStringList{"Periodic links between entities were ignored: 3."};
    }

    void whatIsNotTakenInIsTold()
    {
        QFETCH(QString, name);
        QFETCH(QStringList, warnings);

        m_log->import(example(name));

        QCOMPARE(m_log->warnings(), warnings);
    }

    void trustedScriptGivesGeometryAndSizes()
    {
        m_log->job().set_trusts_scripts(true);

        const auto model = m_log->imported(example("sizing.geo"));

        QCOMPARE(entity_counts(model),
            QStringLiteral("0 bodies, 0 volumes, 1 surfaces, 6 curves, 7 vertices, 2 groups"));
        QCOMPARE(groups_of(model), QStringList({"Plate: surfaces 1; ", "Hole: curves 5 6; "}));
        QCOMPARE(names(model.sizing_sources), QStringList({"Distance", "Threshold", "Box", "Min"}));
        QCOMPARE(names(model.boundary_layers), QStringList{"BoundaryLayer"});
    }

    void scriptIsRunOnlyIfTrusted()
    {
        const auto script = write_file(m_folder, "touch.geo", "Point(1) = {0, 0, 0};\n" + touch());

        m_log->import(script);
        QVERIFY2(!QFile::exists(m_mark), "a script that nobody trusts has run");
        QCOMPARE(m_log->error_text(),
            QStringLiteral("Cannot import \"%1\": it is a script, which could run any program; "
                           "import it as trusted (--trusted) only if you know where it comes from.")
                .arg(script));

        m_log->job().set_trusts_scripts(true);
        QCOMPARE(m_log->imported(script).vertices.size(), std::size_t(1));
        QVERIFY2(QFile::remove(m_mark), "what is trusted does run");
    }

    void scriptInDisguiseIsNeverRun_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("beginning");

        QTest::newRow("as msh") << "a.msh" << QByteArray();
        QTest::newRow("as step") << "a.step" << QByteArray();
        QTest::newRow("behind the head of msh")
            << "b.msh" << QByteArray("$MeshFormat\n4.1 0 8\n$EndMeshFormat\n");
        QTest::newRow("behind the mark of msh") << "b.msh" << QByteArray("$MeshFormat\n");
        QTest::newRow("behind the mark of medit")
            << "b.mesh" << QByteArray("MeshVersionFormatted 2\n");
        QTest::newRow("behind the mark of vtk")
            << "b.vtk" << QByteArray("# vtk DataFile Version 2.0\n");
        QTest::newRow("behind the mark of nastran") << "b.bdf" << QByteArray("BEGIN BULK\n");
        QTest::newRow("mesh as script") << "b.geo" << QByteArray("GRID,1\n");
    }

    void scriptInDisguiseIsNeverRun()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, beginning);

        m_log->import(write_file(m_folder, name, beginning + touch() + "$EndMesh\n"));

        QVERIFY2(!QFile::exists(m_mark), "the script has run");
        m_log->verify_failure();
    }

    // Gmsh runs it when it opens the mesh.
    void scriptBesideAMeshIsNeverRun()
    {
        const auto mesh = write_file(m_folder, "c.msh", content_of(example("blocks_41.msh")));
        write_file(m_folder, "c.msh.opt", touch());

        const auto model = m_log->imported(mesh);

        QVERIFY(!model.volumes.empty());
        QVERIFY2(!QFile::exists(m_mark), "the script has run");
    }

    void nothingIsLeftBehind()
    {
        QTemporaryDir folder;
        const auto before = qgetenv("TMPDIR");
        qputenv("TMPDIR", QFile::encodeName(folder.path()));
        m_log->job().set_trusts_scripts(true);

        for (const auto* name : {"blocks_41.msh", "sizing.geo"}) {
            m_log->import(example(name));
            QCOMPARE(m_log->last(), QStringLiteral("finished: Succeeded"));
        }
        m_log->job().start(example("blocks_41.msh"));
        QTRY_VERIFY(!m_log->stages().isEmpty());
        m_log->job().cancel();

        qputenv("TMPDIR", before);
        QTRY_COMPARE(
            QDir(folder.path()).entryList(QDir::NoDotAndDotDot | QDir::AllEntries), QStringList());
    }

    void uselessFileBecomesASentence_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("reason");

        const auto row = [](const char* what, const QByteArray& bytes, const char* reason) {
            QTest::newRow(what) << bytes << QString::fromLatin1(reason);
        };
        const auto ascii = content_of(example("blocks_41.msh"));
        const auto binary = content_of(example("blocks_41_binary.msh"));
        row("half a mesh", ascii.left(ascii.size() / 2), "it is truncated: its end is missing");
        row("half a binary mesh", binary.left(binary.size() / 2),
            "it is truncated: its end is missing");
        row("head of a mesh", "$MeshFormat\n4.1 0 8\n$EndMeshFormat\n",
            "it holds neither a mesh nor geometry");
        row("medit without a mesh", "MeshVersionFormatted 2\nDimension 3\nEnd\n",
            "it holds neither a mesh nor geometry");
        row("later version", "$MeshFormat\n9.9 0 8\n$EndMeshFormat\n",
            "it is damaged: Gmsh stopped with ");
    }

    void uselessFileBecomesASentence()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, reason);
        const auto path = write_file(m_folder, "useless.msh", bytes);

        m_log->import(path);

        const auto beginning = QStringLiteral("Cannot import \"%1\": %2").arg(path, reason);
        QVERIFY2(m_log->error_text().startsWith(beginning), qPrintable(m_log->error_text()));
        m_log->verify_failure();
    }

    void brokenScriptBecomesASentence()
    {
        m_log->job().set_trusts_scripts(true);

        m_log->import(write_file(m_folder, "broken.geo", "Point(1) = {0, 0;\n"));

        QVERIFY2(m_log->error_text().contains("it is damaged: Gmsh stopped with "),
            qPrintable(m_log->error_text()));
        m_log->verify_failure();
    }

    void damagedFilesGiveAModelOrASentence()
    {
        QList<QByteArray> sources;
        for (const char* const name :
            {"blocks_22.msh", "blocks_22_binary.msh", "blocks_41.msh", "blocks_41_binary.msh",
                "blocks_in_partitions.msh", "blocks.mesh", "blocks.vtk", "blocks.bdf"}) {
            sources << content_of(example(name));
        }
        m_log->job().set_silence_limit(2s);

        m_log->verify_damaged_files(sources, damaged_file_count, 3,
            [](const ModelData& model) { return !model.groups.empty(); });
    }

private:
    // A line of a script that leaves a mark when it is run.
    QByteArray touch() const
    {
        return "SystemCall \"touch '" + QFile::encodeName(m_mark) + "'\";\n";
    }

    QTemporaryDir m_folder;
    QString m_mark;
    std::unique_ptr<ImportLog> m_log;
};

QTEST_GUILESS_MAIN(tst_MeshImport)
#include "tst_MeshImport.moc"
