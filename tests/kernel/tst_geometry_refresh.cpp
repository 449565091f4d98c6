#include <algorithm>
#include <memory>
#include <numeric>
#include <QTest>
#include <random>
#include <support/GeometryText.hpp>
#include <support/WatchedMirror.hpp>

namespace {

constexpr const char* words[]{"body", "volume", "surface", "curve", "vertex"};

// Fills the kernel with anything, but names all and gives each body a volume: what an
// unnamed virtual entity or an empty body shows depends on what it was before.
void script_at_random(RecordingKernel& kernel, std::mt19937& random)
{
    const auto any_ids = [&random] {
        std::vector<int> ids;
        for (int i = int(random() % 6); i > 0; --i) {
            ids.push_back(int(random() % 7));
        }
        return ids;
    };
    kernel.relatives.clear();
    kernel.hidden.clear();
    kernel.virtual_entities.clear();
    kernel.containing_virtual.clear();
    kernel.sheet_volumes.clear();
    for (int kind = 0; kind < 5; ++kind) {
        kernel.entities[words[kind]] = any_ids();
        for (int id = 0; id < 7; ++id) {
            const RecordingKernel::Entity entity(words[kind], id);
            kernel.names[entity] = "Name " + std::to_string(random() % 3);
            if (kind < 4) {
                auto& children = kernel.relatives[{words[kind], id, words[kind + 1]}];
                children = any_ids();
                if (kind == 0) {
                    children.push_back(int(random() % 7));
                }
            }
            for (auto* flags :
                {&kernel.hidden, &kernel.virtual_entities, &kernel.containing_virtual}) {
                if (random() % 4 == 0) {
                    flags->insert(entity);
                }
            }
            if (kind == 1 && random() % 4 == 0) {
                kernel.sheet_volumes.insert(id);
            }
        }
    }
}

// What geometry_text() should give for a mirror of the kernel, from its tables alone.
QStringList text_of(const RecordingKernel& kernel)
{
    const auto listed = [&kernel](int kind) {
        const auto& ids = kernel.entities.at(words[kind]);
        return std::set<int>(ids.begin(), ids.end());
    };
    const auto children = [&kernel](int kind, int id) {
        return kernel.relatives.at({words[kind], id, words[kind + 1]});
    };
    const auto links = [](const char* sign, const QStringList& names) {
        return names.isEmpty() ? QString() : sign + names.join(", ");
    };
    const auto name = [](int kind, int id) { return QString("%1 %2").arg(words[kind]).arg(id); };
    QStringList lines;
    for (int kind = 0; kind < 5; ++kind) {
        for (const int id : listed(kind)) {
            const RecordingKernel::Entity entity(words[kind], id);
            const auto& virtual_set =
                kind == 1 ? kernel.containing_virtual : kernel.virtual_entities;
            const bool is_virtual = virtual_set.contains(entity);
            QString line = name(kind, id) + " '" + QString::fromStdString(kernel.names.at(entity)) +
                           (is_virtual ? " (v)'" : "'");
            line += kernel.hidden.contains(entity) ? " hidden" : "";
            line += is_virtual ? " virtual" : "";
            if (kind == 0) {
                const std::vector<int> volumes = children(0, id);
                line += kernel.sheet_volumes.contains(volumes.front()) ? " sheet" : "";
                line += volumes.size() > 1 ? " multi" : "";
            }
            QStringList above;
            for (const int parent : kind > 0 ? listed(kind - 1) : std::set<int>()) {
                const std::vector<int> ids = children(kind - 1, parent);
                if (std::count(ids.begin(), ids.end(), id) > 0) {
                    above << name(kind - 1, parent);
                }
            }
            QStringList below;
            for (const int child : kind < 4 ? listed(kind + 1) : std::set<int>()) {
                const std::vector<int> ids = children(kind, id);
                if (std::count(ids.begin(), ids.end(), child) > 0) {
                    below << name(kind + 1, child);
                }
            }
            lines << line + links(" < ", above) + links(" > ", below);
        }
    }
    return lines;
}

} // namespace

class tst_geometry_refresh : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void emptyKernelIsAskedForEachTypeFromTheTop();
    void firstFillDescendsThenReadsEachTypeAgain();
    void mirrorEqualsTheKernel();
    void secondRefreshTellsVisibilityAlone();
    void kernelsOrderIsKept();
    void freeSurfaceHasNoParent();

    void vanishedGeometryGoesBodiesFirst();
    void vanishedRecordsGoByAscendingIdAfterTheNewOnes();
    void vanishedChildLosesItsLinkBeforeItGoes();
    void movedChildKeepsItsRecord();
    void repeatedIdIsReadAgain();
    void unlistedRelativeGoesInItsOwnPass();
    void recordThatGoesBeforeItsTurnIsAddedAgain();

    void unregisteredMirrorIsRefreshed();

    void anyModelIsMirroredFromAnyOther();

private:
    std::unique_ptr<WatchedMirror> mirror;
};

void tst_geometry_refresh::init()
{
    mirror = std::make_unique<WatchedMirror>();
}

void tst_geometry_refresh::cleanup()
{
    mirror.reset();
}

void tst_geometry_refresh::emptyKernelIsAskedForEachTypeFromTheTop()
{
    mirror->model.refresh_model(false);
    QCOMPARE(mirror->take_geometry(),
        QStringList({"get_entities(body)", "get_entities(volume)", "get_entities(surface)",
            "get_entities(curve)", "get_entities(vertex)"}));
}

void tst_geometry_refresh::firstFillDescendsThenReadsEachTypeAgain()
{
    mirror->kernel.entities = {
        {"body", {1}}, {"volume", {2}}, {"surface", {3}}, {"curve", {4}}, {"vertex", {5}}};
    mirror->kernel.relate("body", 1, "volume", {2});
    mirror->kernel.relate("volume", 2, "surface", {3});
    mirror->kernel.relate("surface", 3, "curve", {4});
    mirror->kernel.relate("curve", 4, "vertex", {5});

    mirror->model.refresh_model(false);

    QStringList body = plain_reading("body", 1);
    body.insert(1, "is_sheet_body(2)");
    QCOMPARE(mirror->take_geometry(),
        QStringList({"get_entities(body)", "geometry_added(body 1, null)"}) + body +
            QStringList("geometry_added(volume 2, body 1)") + plain_reading("volume", 2) +
            QStringList("geometry_added(surface 3, volume 2)") + plain_reading("surface", 3) +
            QStringList("geometry_added(curve 4, surface 3)") + plain_reading("curve", 4) +
            QStringList("geometry_added(vertex 5, curve 4)") + plain_reading("vertex", 5) +
            QStringList("get_entities(volume)") + plain_reading("volume", 2) +
            QStringList("get_entities(surface)") + plain_reading("surface", 3) +
            QStringList("get_entities(curve)") + plain_reading("curve", 4) +
            QStringList("get_entities(vertex)") + plain_reading("vertex", 5));
}

void tst_geometry_refresh::mirrorEqualsTheKernel()
{
    script_small_model(mirror->kernel);
    mirror->model.refresh_model(false);
    QCOMPARE(geometry_text(mirror->model),
        QStringList({
            "body 1 'Housing' multi > volume 1, volume 2",
            "body 2 'Body 2' sheet > volume 3",
            "volume 1 'Left (v)' virtual < body 1 > surface 1, surface 2",
            "volume 2 'Right (v)' hidden virtual < body 1 > surface 2, surface 3",
            "volume 3 'Volume 3' < body 2 > surface 4",
            "surface 1 'Surface 1' < volume 1 > curve 1, curve 2",
            "surface 2 'Interface (v)' virtual < volume 1, volume 2 > curve 2, curve 3",
            "surface 3 'Surface 3' < volume 2",
            "surface 4 'Surface 4' < volume 3 > curve 3",
            "surface 9 'Surface 9' > curve 1",
            "curve 1 'Curve 1' < surface 1, surface 9 > vertex 1, vertex 2",
            "curve 2 'Rim (v)' virtual < surface 1, surface 2 > vertex 2, vertex 3",
            "curve 3 'Curve 3' < surface 2, surface 4",
            "curve 8 'Curve 8' hidden > vertex 3",
            "vertex 1 'Vertex 1' < curve 1",
            "vertex 2 'Vertex 2' < curve 1, curve 2",
            "vertex 3 'Vertex 3' < curve 2, curve 8",
            "vertex 7 'Origin'",
        }));
}

void tst_geometry_refresh::secondRefreshTellsVisibilityAlone()
{
    script_small_model(mirror->kernel);
    mirror->refresh();

    mirror->model.refresh_model(false);

    QStringList signals_ = mirror->log.take_only(
        {"geometry_", "about_to", "body ", "volume ", "surface ", "curve ", "vertex "});
    QVERIFY(signals_.size() >= 18);
    signals_.removeIf([](const QString& event) { return event.contains(": visible_changed("); });
    QCOMPARE(signals_, QStringList());
}

void tst_geometry_refresh::kernelsOrderIsKept()
{
    mirror->kernel.entities["vertex"] = {7, -2, 5};
    mirror->model.refresh_model(false);
    QCOMPARE(mirror->log.take_only({"geometry_"}),
        QStringList({"geometry_added(vertex 7, null)", "geometry_added(vertex -2, null)",
            "geometry_added(vertex 5, null)"}));
}

void tst_geometry_refresh::freeSurfaceHasNoParent()
{
    mirror->kernel.entities = {{"volume", {1}}, {"surface", {4, 9}}};
    mirror->kernel.relate("volume", 1, "surface", {4});
    mirror->model.refresh_model(false);
    QCOMPARE(geometry_text(mirror->model),
        QStringList({"volume 1 'Volume 1' > surface 4", "surface 4 'Surface 4' < volume 1",
            "surface 9 'Surface 9'"}));
}

void tst_geometry_refresh::vanishedGeometryGoesBodiesFirst()
{
    for (const char* word : {"body", "volume", "surface", "curve", "vertex"}) {
        mirror->kernel.entities[word] = {2, 1};
    }
    mirror->kernel.relate("body", 1, "volume", {1});
    mirror->refresh();
    mirror->kernel.entities.clear();

    mirror->model.refresh_model(false);

    QStringList expected;
    for (const char* word : {"body", "volume", "surface", "curve", "vertex"}) {
        expected << QString("get_entities(%1)").arg(word);
        for (const int id : {1, 2}) {
            expected << QString("geometry_removed(%1 %2)").arg(word).arg(id)
                     << QString("%1 %2: treedata_destroyed(%1 %2)").arg(word).arg(id);
        }
    }
    QCOMPARE(mirror->take_geometry(), expected);
}

void tst_geometry_refresh::vanishedRecordsGoByAscendingIdAfterTheNewOnes()
{
    mirror->kernel.entities = {{"curve", {1, 2, 3, 4}}};
    mirror->refresh();
    mirror->kernel.entities = {{"curve", {9, 2}}};

    mirror->model.refresh_model(false);

    const QStringList log = mirror->take_geometry();
    QCOMPARE(log.mid(log.indexOf("get_entities(curve)")),
        QStringList({"get_entities(curve)", "geometry_added(curve 9, null)"}) +
            plain_reading("curve", 9) + plain_reading("curve", 2) +
            QStringList({"geometry_removed(curve 1)", "curve 1: treedata_destroyed(curve 1)",
                "geometry_removed(curve 3)", "curve 3: treedata_destroyed(curve 3)",
                "geometry_removed(curve 4)", "curve 4: treedata_destroyed(curve 4)",
                "get_entities(vertex)"}));
}

void tst_geometry_refresh::vanishedChildLosesItsLinkBeforeItGoes()
{
    mirror->kernel.entities = {{"surface", {4}}, {"curve", {5, 6}}};
    mirror->kernel.relate("surface", 4, "curve", {5, 6});
    mirror->refresh();
    mirror->kernel.entities["curve"] = {6};
    mirror->kernel.relate("surface", 4, "curve", {6});

    mirror->model.refresh_model(false);

    QCOMPARE(mirror->log.take_only({"geometry_", "get_entities"}),
        QStringList({"get_entities(body)", "get_entities(volume)", "get_entities(surface)",
            "geometry_disassociated(surface 4, curve 5)", "get_entities(curve)",
            "geometry_removed(curve 5)", "get_entities(vertex)"}));
}

void tst_geometry_refresh::movedChildKeepsItsRecord()
{
    mirror->kernel.entities = {{"surface", {4, 5}}, {"curve", {6}}};
    mirror->kernel.relate("surface", 4, "curve", {6});
    mirror->refresh();
    TreeGeometryData* curve = mirror->model.find_geometry(TreeGeometryData::CURVE, 6);
    mirror->kernel.relatives.clear();
    mirror->kernel.relate("surface", 5, "curve", {6});

    mirror->model.refresh_model(false);

    QCOMPARE(mirror->log.take_only({"geometry_"}),
        QStringList({"geometry_disassociated(surface 4, curve 6)",
            "geometry_associated(surface 5, curve 6)"}));
    QCOMPARE(mirror->model.find_geometry(TreeGeometryData::CURVE, 6), curve);
}

void tst_geometry_refresh::repeatedIdIsReadAgain()
{
    mirror->kernel.entities["vertex"] = {5, 5};
    mirror->model.refresh_model(false);
    const QStringList log = mirror->take_geometry();
    QCOMPARE(log.mid(log.indexOf("get_entities(vertex)") + 1),
        QStringList("geometry_added(vertex 5, null)") + plain_reading("vertex", 5) +
            plain_reading("vertex", 5));
}

// A kernel that names a relative which it does not list.
void tst_geometry_refresh::unlistedRelativeGoesInItsOwnPass()
{
    mirror->kernel.entities = {{"surface", {4}}};
    mirror->kernel.relate("surface", 4, "curve", {6});
    mirror->model.refresh_model(false);
    QCOMPARE(mirror->log.take_only({"geometry_"}),
        QStringList({"geometry_added(surface 4, null)", "geometry_added(curve 6, surface 4)",
            "geometry_removed(curve 6)"}));
}

// Records further down the list are made ready to be read while the first ones are.
void tst_geometry_refresh::recordThatGoesBeforeItsTurnIsAddedAgain()
{
    std::vector<int> ids(40);
    std::iota(ids.begin(), ids.end(), 1);
    mirror->kernel.entities["curve"] = ids;
    mirror->refresh();
    mirror->kernel.during("is_visible(curve, 2)", [this] {
        for (const int id : {3, 11, 12, 20, 40}) {
            mirror->observer().notify_curve_deleted(id);
        }
    });

    mirror->model.refresh_model(false);

    QCOMPARE(mirror->log.take_only({"geometry_"}),
        QStringList({"geometry_removed(curve 3)", "geometry_removed(curve 11)",
            "geometry_removed(curve 12)", "geometry_removed(curve 20)",
            "geometry_removed(curve 40)", "geometry_added(curve 3, null)",
            "geometry_added(curve 11, null)", "geometry_added(curve 12, null)",
            "geometry_added(curve 20, null)", "geometry_added(curve 40, null)"}));
    QCOMPARE(mirror->model.geometry(TreeGeometryData::CURVE).size(), ids.size());
}

void tst_geometry_refresh::unregisteredMirrorIsRefreshed()
{
    mirror->model.disconnect_from_kesto();
    mirror->kernel.entities["vertex"] = {5};
    mirror->model.refresh_model(false);
    QCOMPARE(mirror->log.take_only({"geometry_"}), QStringList("geometry_added(vertex 5, null)"));
}

void tst_geometry_refresh::anyModelIsMirroredFromAnyOther()
{
    for (unsigned seed = 0; seed < 60; ++seed) {
        std::mt19937 random(seed);
        mirror.reset();
        mirror = std::make_unique<WatchedMirror>();
        for (int round = 0; round < 5; ++round) {
            script_at_random(mirror->kernel, random);
            mirror->refresh();
            const QStringList actual = geometry_text(mirror->model);
            const QStringList expected = text_of(mirror->kernel);
            QVERIFY2(actual == expected,
                qPrintable(QString("seed %1, round %2: mirror\n%3\nshould be\n%4")
                               .arg(seed)
                               .arg(round)
                               .arg(actual.join('\n'), expected.join('\n'))));
        }
    }
}

QTEST_GUILESS_MAIN(tst_geometry_refresh)
#include "tst_geometry_refresh.moc"
