#include "TestFiles.hpp"

#include <embedded/EmbeddedKernel.hpp>
#include <importers/MeshGroups.hpp>
#include <importers/UnfinishedMesh.hpp>
#include <QTest>
#include <treemodel/kernel/KestoInterface.hpp>

namespace {

ElementCounts nodes_and(int nodes, int ElementCounts::*field = &ElementCounts::edges, int count = 0)
{
    ElementCounts counts;
    counts.nodes = nodes;
    counts.*field += count;
    return counts;
}

// Two volumes with a surface between them, each with one of its own; a surface is bounded by
// one closed curve. A sheet, a free curve. Every number occurs once in a sum.
ModelData model()
{
    ModelData model;
    model.bodies.push_back({"Block", {1, 2}});
    model.bodies.push_back({"Sheet", {3}});
    model.volumes.resize(3);
    model.volumes[0].children = {1, 2};
    model.volumes[1].children = {2, 3};
    model.volumes[2].children = {4};
    model.volumes[2].is_sheet = true;
    for (const int curve : {1, 1, 2, 3}) {
        model.surfaces.push_back({{}, {curve}});
    }
    for (const int vertex : {1, 2, 3, 4}) {
        model.curves.push_back({{}, {vertex}});
    }
    model.vertices.resize(4);
    return model;
}

MeshCounts mesh()
{
    MeshCounts mesh;
    mesh.volumes = {nodes_and(1000, &ElementCounts::tets, 10),
        nodes_and(2000, &ElementCounts::hexes, 20), ElementCounts()};
    mesh.surfaces = {nodes_and(100, &ElementCounts::tris, 1),
        nodes_and(200, &ElementCounts::tris, 2), nodes_and(300, &ElementCounts::tris, 4),
        nodes_and(400, &ElementCounts::tris, 8)};
    mesh.curves = {nodes_and(10, &ElementCounts::edges, 1), nodes_and(20, &ElementCounts::edges, 2),
        nodes_and(30, &ElementCounts::edges, 4), nodes_and(40, &ElementCounts::edges, 8)};
    mesh.vertices.assign(4, nodes_and(1));
    return mesh;
}

} // namespace

class tst_MeshGroups : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void groupHoldsTheElementsOnItsMembersAndAllTheirNodes_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<std::vector<int>>("members");
        QTest::addColumn<QString>("elements");

        const auto row = [](const char* what, EntityKind kind, const std::vector<int>& members,
                             const char* elements) {
            QTest::newRow(what) << int(kind) << members << QString(elements);
        };
        row("volume", EntityKind::VOLUME, {1}, "1311 nodes, 10 tets");
        row("two volumes that share a surface", EntityKind::VOLUME, {1, 2},
            "3632 nodes, 20 hexes, 10 tets");
        row("body of them", EntityKind::BODY, {1}, "3632 nodes, 20 hexes, 10 tets");
        row("sheet", EntityKind::BODY, {2}, "431 nodes, 8 tris");
        row("surfaces that share a curve", EntityKind::SURFACE, {1, 2}, "311 nodes, 3 tris");
        row("curve", EntityKind::CURVE, {4}, "41 nodes, 8 edges");
        row("vertices", EntityKind::VERTEX, {1, 2}, "2 nodes");
        row("nothing", EntityKind::VERTEX, {}, "");
    }

    void groupHoldsTheElementsOnItsMembersAndAllTheirNodes()
    {
        QFETCH(int, kind);
        QFETCH(std::vector<int>, members);
        QFETCH(QString, elements);
        EmbeddedKernel kernel;
        kernel.open_model(model(), "file");
        const int group = kernel.create_group("Group");
        kernel.add_to_group(group, EntityKind(kind), members);

        count_into_groups(kernel, mesh());

        QCOMPARE(elements_of(group), elements);
    }

    void groupHoldsWhatItsGroupsHoldOnce()
    {
        EmbeddedKernel kernel;
        kernel.open_model(model(), "file");
        const int inner = kernel.create_group("Inner");
        const int outer = kernel.create_group("Outer");
        kernel.add_to_group(inner, EntityKind::VOLUME, {1});
        kernel.add_to_group(outer, EntityKind::GROUP, {inner});
        kernel.add_to_group(outer, EntityKind::BODY, {1});

        count_into_groups(kernel, mesh());

        QCOMPARE(elements_of(inner), QStringLiteral("1311 nodes, 10 tets"));
        QCOMPARE(elements_of(outer), QStringLiteral("3632 nodes, 20 hexes, 10 tets"));
    }

    void wholeMeshStandsOnAGroupOfItsOwn()
    {
        EmbeddedKernel kernel;
        kernel.open_model(model(), "file");

        count_into_groups(kernel, mesh());

        QCOMPARE(group_names(), QStringList{"Mesh"});
        QCOMPARE(
            elements_of(1), QStringLiteral("4104 nodes, 15 edges, 20 hexes, 10 tets, 15 tris"));
        QCOMPARE(m_bodies, std::vector<int>({1, 2}));
        QCOMPARE(m_curves, std::vector<int>{4});
        QVERIFY2(m_surfaces.empty() && m_vertices.empty(), "what hangs beneath others is in them");
    }

    void newMeshTakesThePlaceOfTheFormerOne()
    {
        EmbeddedKernel kernel;
        kernel.open_model(model(), "file");
        const int group = kernel.create_group("Group");
        kernel.add_to_group(group, EntityKind::VOLUME, {1});
        count_into_groups(kernel, mesh());

        count_into_groups(kernel, {});

        QCOMPARE(group_names(), QStringList({"Group", "Mesh"}));
        QCOMPARE(elements_of(group), QString());
        QCOMPARE(elements_of(2), QString());
    }

    void entityBeyondTheMeshCountsAsUnmeshed()
    {
        EmbeddedKernel kernel;
        kernel.open_model(model(), "file");
        const int group = kernel.create_group("Group");
        kernel.add_to_group(group, EntityKind::VERTEX, {1, kernel.create_vertex()});

        count_into_groups(kernel, mesh());

        QCOMPARE(elements_of(group), QStringLiteral("1 nodes"));
    }

    void unfinishedMeshThatIsTakenBackLeavesNothing()
    {
        EmbeddedKernel kernel;
        kernel.open_model(model(), "file");
        UnfinishedMesh unfinished(kernel);
        unfinished.count(mesh());
        unfinished.count(mesh());
        QCOMPARE(group_names(), QStringList{"Mesh"});

        unfinished.take_back();

        QCOMPARE(group_names(), QStringList());
    }

    void groupsGetBackWhatTheyHeldBeforeAnUnfinishedMesh()
    {
        EmbeddedKernel kernel;
        kernel.open_model(model(), "file");
        const int from_file = kernel.create_group("From a file");
        kernel.set_element_counts(from_file, nodes_and(7));
        const int whole = kernel.create_group("Mesh");
        kernel.set_element_counts(whole, nodes_and(9));
        UnfinishedMesh unfinished(kernel);
        const int later = kernel.create_group("Later");
        kernel.add_to_group(later, EntityKind::VERTEX, {1});
        unfinished.count(mesh());
        QCOMPARE(elements_of(later), QStringLiteral("1 nodes"));

        unfinished.take_back();

        QCOMPARE(group_names(), QStringList({"From a file", "Mesh", "Later"}));
        QCOMPARE(elements_of(from_file), QStringLiteral("7 nodes"));
        QCOMPARE(elements_of(whole), QStringLiteral("9 nodes"));
        QCOMPARE(elements_of(later), QString());
    }

    void groupThatGotTheIdOfTheWholeMeshIsLeft()
    {
        EmbeddedKernel kernel;
        kernel.open_model(model(), "file");
        UnfinishedMesh unfinished(kernel);
        unfinished.count(mesh());
        kernel.remove(EntityKind::GROUP, 1);
        QCOMPARE(kernel.create_group("Somebody's"), 1);

        unfinished.take_back();

        QCOMPARE(group_names(), QStringList{"Somebody's"});
    }

private:
    QString elements_of(int group)
    {
        ElementCounts counts;
        std::vector<int> groups;
        std::vector<int> volumes;
        for (auto* members : {&m_bodies, &m_surfaces, &m_curves, &m_vertices}) {
            members->clear();
        }
        KestoInterface::get_group_children(group, groups, m_bodies, volumes, m_surfaces, m_curves,
            m_vertices, counts.nodes, counts.edges, counts.hexes, counts.quads, counts.tets,
            counts.tris, counts.wedges, counts.pyramids, counts.spheres);
        return text(counts);
    }

    static QStringList group_names()
    {
        std::vector<std::string> names;
        std::vector<int> ids;
        KestoInterface::group_list(names, ids);
        QStringList result;
        for (const auto& name : names) {
            result << QString::fromStdString(name);
        }
        return result;
    }

    std::vector<int> m_bodies;
    std::vector<int> m_surfaces;
    std::vector<int> m_curves;
    std::vector<int> m_vertices;
};

QTEST_GUILESS_MAIN(tst_MeshGroups)
#include "tst_MeshGroups.moc"
