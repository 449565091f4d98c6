#include "ImportLog.hpp"

#include <algorithm>
#include <importers/MeshJob.hpp>
#include <limits>
#include <memory>
#include <numeric>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

namespace {

QString example(const QString& name)
{
    return QStringLiteral(EXAMPLE_MODELS_DIR "/") + name;
}

ElementCounts sum(const std::vector<ElementCounts>& counts)
{
    return std::accumulate(counts.begin(), counts.end(), ElementCounts(),
        [](ElementCounts left, const ElementCounts& right) { return left += right; });
}

template <typename Entity>
const Entity& with_id(const std::vector<Entity>& list, int id)
{
    return list.at(static_cast<std::size_t>(id) - 1);
}

} // namespace

class tst_MeshJob : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_job = std::make_unique<MeshJob>();
        m_job->set_helper_folder(QStringLiteral(MESH_HELPER_DIR));
        m_log = std::make_unique<JobLog>(*m_job);
    }

    void everyEntityOfTheImportHasItsCounts_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<double>("size");

        QTest::newRow("assembly") << "pump_station.step" << 10.0;
        QTest::newRow("conformal part") << "pile.brep" << 3.0;
        QTest::newRow("solid") << "bracket.iges" << 8.0;
    }

    // Holds only if the counts stand at the right entities: they agree with the links of the
    // import.
    void everyEntityOfTheImportHasItsCounts()
    {
        QFETCH(QString, name);
        QFETCH(double, size);
        const auto model = imported(name);

        const auto mesh = meshed(name, size);

        QCOMPARE(mesh.volumes.size(), model.volumes.size());
        QCOMPARE(mesh.surfaces.size(), model.surfaces.size());
        QCOMPARE(mesh.curves.size(), model.curves.size());
        QCOMPARE(mesh.vertices.size(), model.vertices.size());
        for (const auto& vertex : mesh.vertices) {
            QCOMPARE(text(vertex), QStringLiteral("1 nodes"));
        }
        for (const auto& curve : mesh.curves) {
            QCOMPARE(curve.edges, curve.nodes + 1);
        }
        int compared = 0;
        for (std::size_t i = 0; i < mesh.surfaces.size(); ++i) {
            if (is_bounded_by_one_loop(model, model.surfaces[i])) {
                const int border = edges_around(model.surfaces[i], mesh);
                // Euler's formula for a disc of triangles.
                QCOMPARE(mesh.surfaces[i].tris, 2 * mesh.surfaces[i].nodes + border - 2);
                ++compared;
            }
        }
        QVERIFY2(compared >= 5, "the model has no surfaces to compare");
        for (const auto& volume : mesh.volumes) {
            QVERIFY(volume.tets > 0);
        }
    }

    void largePartHasMoreElementsThanASmallOne()
    {
        const auto model = imported("pump_station.step");

        const auto mesh = meshed("pump_station.step", 10);

        const auto tets_in = [&](const std::string& name) {
            const auto body = std::find_if(model.bodies.begin(), model.bodies.end(),
                [&name](const auto& candidate) { return candidate.name == name; });
            return with_id(mesh.volumes, body->children.front()).tets;
        };
        QVERIFY(tets_in("Base plate") > tets_in("Disc"));
        QVERIFY(tets_in("Disc") > tets_in("Bolt 1"));
    }

    void countsGrowFromTheCurvesToTheVolumes()
    {
        std::vector<MeshCounts> steps;
        connect(m_job.get(), &MeshJob::counted, this,
            [&steps](const MeshCounts& counts) { steps.push_back(counts); });

        const auto mesh = meshed("pile.brep", 3);

        QCOMPARE(steps.size(), std::size_t(3));
        QVERIFY(sum(steps[0].curves).edges > 0);
        QCOMPARE(text(sum(steps[0].surfaces)), QString());
        QVERIFY(sum(steps[1].surfaces).tris > 0);
        QCOMPARE(text(sum(steps[1].volumes)), QString());
        QVERIFY(steps[2] == mesh);
        QVERIFY(sum(mesh.volumes).tets > 0);
        QCOMPARE(m_log->stages(),
            QStringList({"Reading the file", "Collecting the entities", "Meshing the curves",
                "Meshing the surfaces", "Meshing the volumes"}));
    }

    // Bolts are too thin for it.
    void entitiesTooSmallForTheSizeAreTold()
    {
        const auto mesh = meshed("pump_station.step", 20);

        const auto unmeshed = std::count_if(mesh.volumes.begin(), mesh.volumes.end(),
            [](const auto& volume) { return volume.tets == 0; });
        QVERIFY(unmeshed > 0);
        QCOMPARE(m_log->warnings(),
            QStringList{
                QStringLiteral("Volumes that cannot be meshed with this size: %1.").arg(unmeshed)});
    }

    void finerSizeGivesMoreElements()
    {
        const auto coarse = meshed("bracket.iges", 10);
        const auto fine = meshed("bracket.iges", 5);

        QVERIFY(sum(fine.volumes).tets > 2 * sum(coarse.volumes).tets);
    }

    void higherOrderGivesMoreNodesToTheSameElements()
    {
        const auto straight = meshed("bracket.iges", 10);
        const auto curved = meshed("bracket.iges", 10, 2);

        QCOMPARE(sum(curved.volumes).tets, sum(straight.volumes).tets);
        QCOMPARE(sum(curved.curves).edges, sum(straight.curves).edges);
        // A node more in the middle of each edge.
        QCOMPARE(sum(curved.curves).nodes, sum(straight.curves).nodes + sum(straight.curves).edges);
        QCOMPARE(m_log->stages().last(), QStringLiteral("Raising the order of the elements"));
    }

    void sheetIsMeshedOnItsSurfaces()
    {
        const auto mesh = meshed("roof.step", 2);

        QCOMPARE(text(mesh.volumes.at(0)), QString());
        QCOMPARE(mesh.surfaces.size(), std::size_t(2));
        for (const auto& surface : mesh.surfaces) {
            QVERIFY(surface.tris > 0);
        }
        for (const auto& curve : mesh.curves) {
            QVERIFY2(curve.edges > 0, "free curves, too");
        }
        QCOMPARE(mesh.vertices.size(), std::size_t(11));
    }

    void nonsenseBecomesASentence_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<double>("size");
        QTest::addColumn<int>("order");
        QTest::addColumn<QString>("reason");

        const auto file = example("pile.brep");
        const QString size("the size of the elements must be above 0");
        const QString order("the order of the elements must be from 1 to 3");
        QTest::newRow("no size") << file << 0.0 << 1 << size;
        QTest::newRow("negative size") << file << -1.0 << 1 << size;
        QTest::newRow("endless size")
            << file << std::numeric_limits<double>::infinity() << 1 << size;
        QTest::newRow("size that is no number")
            << file << std::numeric_limits<double>::quiet_NaN() << 1 << size;
        QTest::newRow("order 0") << file << 1.0 << 0 << order;
        QTest::newRow("order 4") << file << 1.0 << 4 << order;
        QTest::newRow("no file") << m_folder.filePath("none") << 1.0 << 1
                                 << "there is no such file";
        QTest::newRow("mesh") << QStringLiteral(EXAMPLE_MESHES_DIR "/blocks_41.msh") << 1.0 << 1
                              << "it is not a CAD file";
        QTest::newRow("script") << QStringLiteral(EXAMPLE_MESHES_DIR "/sizing.geo") << 1.0 << 1
                                << "it is not a CAD file";
        const auto step = content_of(example("roof.step"));
        QTest::newRow("half a file")
            << write_file(m_folder, "half.step", step.left(step.size() / 2)) << 1.0 << 1
            << "it is truncated: its end is missing";
    }

    void nonsenseBecomesASentence()
    {
        QFETCH(QString, file);
        QFETCH(double, size);
        QFETCH(int, order);
        QFETCH(QString, reason);

        m_job->start(file, {size, order});
        m_log->wait();

        QCOMPARE(m_log->last(), QStringLiteral("finished: Failed"));
        QCOMPARE(m_job->error_text(), QStringLiteral("Cannot mesh \"%1\": %2.").arg(file, reason));
        QVERIFY(m_job->counts() == MeshCounts());
    }

    void cancelEndsTheMeshingAtOnce()
    {
        m_job->start(example("pump_station.step"), {1});
        QTRY_VERIFY_WITH_TIMEOUT(m_log->stages().contains("Meshing the surfaces"), 60'000);

        QElapsedTimer time;
        time.start();
        m_job->cancel();

        QVERIFY(time.elapsed() < 500);
        QCOMPARE(m_log->last(), QStringLiteral("finished: Cancelled"));
        QCOMPARE(m_job->error_text(), QStringLiteral("The meshing of \"%1\" was cancelled.")
                                          .arg(example("pump_station.step")));
        QVERIFY2(m_job->counts() == MeshCounts(), "only a whole mesh counts");
    }

    void cancelWhileCountsArriveIsTheEnd()
    {
        connect(m_job.get(), &MeshJob::counted, m_job.get(), &MeshJob::cancel);
        QSignalSpy counted(m_job.get(), &MeshJob::counted);

        m_job->start(example("bracket.iges"), {10});
        m_log->wait();
        QTest::qWait(50);

        QCOMPARE(m_log->last(), QStringLiteral("finished: Cancelled"));
        QCOMPARE(counted.size(), 1);
    }

    void nextMeshMayBeginInTheLastSignal()
    {
        bool is_first = true;
        connect(m_job.get(), &MeshJob::finished, this, [&] {
            if (std::exchange(is_first, false)) {
                m_job->start(example("pile.brep"), {0});
            }
        });

        m_job->start(example("bracket.iges"), {10});
        m_log->wait();

        QCOMPARE(m_log->last(), QStringLiteral("finished: Failed"));
        QVERIFY(m_job->counts() == MeshCounts());
    }

private:
    static ModelData imported(const QString& name)
    {
        return ImportLog(MESH_HELPER_DIR).imported(example(name));
    }

    MeshCounts meshed(const QString& name, double size, int order = 1)
    {
        m_job->start(example(name), {size, order});
        m_log->wait();
        if (m_log->last() != QLatin1String("finished: Succeeded")) {
            qWarning("%s", qPrintable(m_job->error_text()));
        }
        return m_job->counts();
    }

    // Walks along curves with two ends each until no further one begins there: there are
    // neither holes nor seams if that has been all of them.
    static bool is_bounded_by_one_loop(const ModelData& model, const ModelData::Entity& surface)
    {
        auto left = surface.children;
        std::vector<int> ends{with_id(model.curves, left.front()).children.front()};
        const auto continues = [&](int curve) {
            const auto& vertices = with_id(model.curves, curve).children;
            return vertices.size() == 2 &&
                   std::find(vertices.begin(), vertices.end(), ends.back()) != vertices.end();
        };
        for (auto next = left.end();
             (next = std::find_if(left.begin(), left.end(), continues)) != left.end();) {
            const auto& vertices = with_id(model.curves, *next).children;
            ends.push_back(vertices.front() == ends.back() ? vertices.back() : vertices.front());
            left.erase(next);
        }
        return left.empty() && ends.front() == ends.back();
    }

    static int edges_around(const ModelData::Entity& surface, const MeshCounts& mesh)
    {
        return std::accumulate(surface.children.begin(), surface.children.end(), 0,
            [&mesh](int edges, int curve) { return edges + with_id(mesh.curves, curve).edges; });
    }

    QTemporaryDir m_folder;
    std::unique_ptr<MeshJob> m_job;
    std::unique_ptr<JobLog> m_log;
};

QTEST_GUILESS_MAIN(tst_MeshJob)
#include "tst_MeshJob.moc"
