#include <browser/JsonTree.hpp>
#include <browser/MirrorTree.hpp>
#include <browser/TextTreeWriter.hpp>
#include <embedded/EmbeddedKernel.hpp>
#include <memory>
#include <QJsonArray>
#include <QTest>
#include <QTextStream>
#include <treemodel/kernel/TreeModel.hpp>

class tst_PrintedTree : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void emptyMirrorPrintsNothingButItsCounts();
    void sharedEntityStandsUnderEachParent();
    void flagsAreTold();
    void freeEntitiesAreRoots();
    void depthCutsAndTellsWhatIsBelow();
    void groupNamesItsMembersAndOpensGroups();
    void controlCharactersDoNotReachTheTerminal();
    void jsonHoldsTheSameTree();
    void jsonStopsAtTheDepth();
    void filterKeepsHitsAndWhatIsAboveAndBelow();
    void filterLooksIntoGroups();
    void selectedRecordsAreTold();

private:
    QString text(int depth = TextTreeWriter::AllLevels) const;

    std::unique_ptr<EmbeddedKernel> kernel;
    std::unique_ptr<TreeModel> mirror;
};

void tst_PrintedTree::init()
{
    kernel = std::make_unique<EmbeddedKernel>();
    mirror = std::make_unique<TreeModel>();
    mirror->connect_to_kesto();
}

void tst_PrintedTree::cleanup()
{
    mirror->disconnect_from_kesto();
    mirror.reset();
    kernel.reset();
}

QString tst_PrintedTree::text(int depth) const
{
    QString result;
    QTextStream stream(&result);
    TextTreeWriter(MirrorTree(*mirror), stream, depth).write();
    return result;
}

void tst_PrintedTree::emptyMirrorPrintsNothingButItsCounts()
{
    QCOMPARE(text(), QString());
    QCOMPARE(
        MirrorTree(*mirror).counts_line(), "0 bodies, 0 volumes, 0 surfaces, 0 curves, 0 vertices");
}

void tst_PrintedTree::sharedEntityStandsUnderEachParent()
{
    const int shared = kernel->create_surface();
    const int volume = kernel->create_volume({shared});
    const int neighbour = kernel->create_volume({shared});
    kernel->create_body({volume}, "Plate");
    kernel->create_body({neighbour}, "Lid");

    QCOMPARE(text(), QString::fromUtf8(R"(Plate  [body 1]
└─ Volume 1  [volume 1]
   └─ Surface 1  [surface 1, shared by 2]
Lid  [body 2]
└─ Volume 2  [volume 2]
   └─ Surface 1  [surface 1, shared by 2]
)"));
    QCOMPARE(
        MirrorTree(*mirror).counts_line(), "2 bodies, 2 volumes, 1 surfaces, 0 curves, 0 vertices");
}

void tst_PrintedTree::flagsAreTold()
{
    kernel->create_body({kernel->create_volume(), kernel->create_volume()});
    kernel->create_sheet_body();
    kernel->set_visible(EntityKind::BODY, 2, false);
    kernel->set_virtual(EntityKind::VOLUME, 1, true);

    QCOMPARE(text(), QString::fromUtf8(R"(Body 1  [body 1, multi-volume]
├─ Volume 1 (v)  [volume 1, virtual]
└─ Volume 2  [volume 2]
Body 2  [body 2, sheet, hidden]
└─ Volume 3  [volume 3]
)"));
}

void tst_PrintedTree::freeEntitiesAreRoots()
{
    kernel->create_curve({kernel->create_vertex("Start"), kernel->create_vertex()});
    kernel->create_vertex("Datum");

    QCOMPARE(text(), QString::fromUtf8(R"(Curve 1  [curve 1, free]
├─ Start  [vertex 1]
└─ Vertex 2  [vertex 2]
Datum  [vertex 3, free]
)"));
}

void tst_PrintedTree::depthCutsAndTellsWhatIsBelow()
{
    kernel->create_body({kernel->create_volume({kernel->create_surface()})}, "Plate");

    QCOMPARE(text(1), QString::fromUtf8("Plate  [body 1]  … 1 below\n"));
    QCOMPARE(text(2), QString::fromUtf8(R"(Plate  [body 1]
└─ Volume 1  [volume 1]  … 1 below
)"));
}

void tst_PrintedTree::groupNamesItsMembersAndOpensGroups()
{
    const int body = kernel->create_body({kernel->create_volume()}, "Plate");
    const int inner = kernel->create_group("Inner");
    const int outer = kernel->create_group("Outer");
    kernel->add_to_group(inner, EntityKind::BODY, {body});
    kernel->add_to_group(outer, EntityKind::GROUP, {inner});
    kernel->set_element_counts(inner, ElementCounts{.hexes = 12});

    QCOMPARE(text(), QString::fromUtf8(R"(Plate  [body 1]
└─ Volume 1  [volume 1]
Outer  [group 2]
└─ Inner  [group 1]
   ├─ Plate  [body 1]
   └─ 12 hex elements  [elements 0]
)"));
}

void tst_PrintedTree::controlCharactersDoNotReachTheTerminal()
{
    kernel->create_vertex("evil\x1b[2Jname\n");
    QVERIFY2(!text().contains(QChar(0x1b)), qPrintable(text()));
    QCOMPARE(text().count('\n'), 1);
}

void tst_PrintedTree::jsonHoldsTheSameTree()
{
    kernel->create_body({kernel->create_volume()}, "Plate");

    const QJsonObject json =
        json_tree(MirrorTree(*mirror), "plate.step", TextTreeWriter::AllLevels);

    QCOMPARE(json["file"].toString(), "plate.step");
    QCOMPARE(json["counts"]["bodies"].toInt(), 1);
    QCOMPARE(json["counts"]["vertices"].toInt(-1), 0);
    const QJsonObject body = json["tree"][0].toObject();
    QCOMPARE(body["kind"].toString(), "body");
    QCOMPARE(body["id"].toInt(), 1);
    QCOMPARE(body["name"].toString(), "Plate");
    QCOMPARE(body["flags"].toArray(), QJsonArray());
    QCOMPARE(body["children"][0]["kind"].toString(), "volume");
}

void tst_PrintedTree::jsonStopsAtTheDepth()
{
    kernel->create_body({kernel->create_volume()}, "Plate");
    const QJsonObject json = json_tree(MirrorTree(*mirror), "plate.step", 1);
    QVERIFY(!json["tree"][0].toObject().contains("children"));
}

void tst_PrintedTree::filterKeepsHitsAndWhatIsAboveAndBelow()
{
    const int top = kernel->create_surface({kernel->create_curve()}, "Top");
    kernel->create_body({kernel->create_volume({top, kernel->create_surface()})}, "Plate");
    kernel->create_body({kernel->create_volume()}, "Lid");

    MirrorTree tree(*mirror);
    tree.set_filter("tOp");

    QString printed;
    QTextStream stream(&printed);
    TextTreeWriter(tree, stream).write();
    QCOMPARE(printed, QString::fromUtf8(R"(Plate  [body 1]
└─ Volume 1  [volume 1]
   └─ Top  [surface 1]
      └─ Curve 1  [curve 1]
)"));
}

void tst_PrintedTree::filterLooksIntoGroups()
{
    const int bolt = kernel->create_body({}, "Bolt");
    const int inner = kernel->create_group("Inner");
    kernel->add_to_group(inner, EntityKind::BODY, {bolt});
    kernel->add_to_group(kernel->create_group("Outer"), EntityKind::GROUP, {inner});
    kernel->create_group("Other");

    MirrorTree tree(*mirror);
    tree.set_filter("bolt");

    QString printed;
    QTextStream stream(&printed);
    TextTreeWriter(tree, stream).write();
    QCOMPARE(printed, QString::fromUtf8(R"(Bolt  [body 1]
Outer  [group 2]
└─ Inner  [group 1]
   └─ Bolt  [body 1]
)"));
}

void tst_PrintedTree::selectedRecordsAreTold()
{
    kernel->create_vertex("Start");
    kernel->create_vertex("End");

    MirrorTree tree(*mirror);
    tree.set_selected({mirror->find_geometry(TreeGeometryData::VERTEX, 2)});

    const QJsonObject json = json_tree(tree, "ends.step", TextTreeWriter::AllLevels);
    QCOMPARE(json["tree"][0]["flags"].toArray(), QJsonArray{"free"});
    QCOMPARE(json["tree"][1]["flags"].toArray(), (QJsonArray{"free", "selected"}));
}

QTEST_GUILESS_MAIN(tst_PrintedTree)
#include "tst_PrintedTree.moc"
