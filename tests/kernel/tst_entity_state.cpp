#include <memory>
#include <QRegularExpression>
#include <QTest>
#include <support/FullModel.hpp>
#include <support/MirrorText.hpp>

// All kinds have a record 3, and the geometry and groups a record 5 as well.
class tst_entity_state : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void renameReadsTheNameOnly_data();
    void renameReadsTheNameOnly();
    void renameOfAnyOtherWordAsksAndDoesNothing_data() { other_words(); }
    void renameOfAnyOtherWordAsksAndDoesNothing();
    void renameOfAnUnknownIdAsksAndDoesNothing();
    void sameNameTellsNothing();
    void emptyNameGivesTheDefaultBack();
    void defaultTextIsStoredLikeAnyName();
    void virtualRecordKeepsItsMark();

    void visibilityIsReadAndAlwaysTold_data();
    void visibilityIsReadAndAlwaysTold();
    void visibilityOfAnyOtherWordAsksAndDoesNothing_data() { other_words(); }
    void visibilityOfAnyOtherWordAsksAndDoesNothing();
    void setVisibilityIsReadAndAlwaysTold_data();
    void setVisibilityIsReadAndAlwaysTold();
    void setVisibilityOfAnyOtherWordAsksAndDoesNothing_data();
    void setVisibilityOfAnyOtherWordAsksAndDoesNothing();
    void visibilityOfAnUnknownIdAsksAndDoesNothing();

    void idChangeMovesTheRecordUnasked_data();
    void idChangeMovesTheRecordUnasked();
    void idChangeOfAnyOtherWordDoesNothing_data();
    void idChangeOfAnyOtherWordDoesNothing();
    void idChangeOfAnUnknownIdDoesNothing();
    void idChangeKeepsTheLinks();
    void anyFluidWordMovesTheFluidCondition();
    void structuralWordMovesItsOwnKindOnly();
    void takenIdOfGeometryIsRefused();
    void takenIdOfAGroupIsTaken();
    void takenIdOfAConditionIsTaken();
    void sameIdIsToldAgain();

private:
    void other_words();

    std::unique_ptr<FullMirror> mirror;
};

void tst_entity_state::init()
{
    mirror = std::make_unique<FullMirror>();
    RecordingKernel& kernel = mirror->kernel;
    for (const char* word : {"body", "volume", "surface", "curve", "vertex"}) {
        kernel.entities[word] = {3, 5};
    }
    kernel.groups = {{"", 3}, {"", 5}};
    for (const char* word : {"block", "sideset", "nodeset"}) {
        kernel.exodus_ids[word] = {3};
    }
    kernel.bc_ids = {{KestoInterface::BC_FORCE, {3, 5}}, {KestoInterface::BC_PRESSURE, {3}},
        {KestoInterface::BC_WALL, {3, 5}}};
    kernel.sizing_sources = {3};
    kernel.boundary_layers = {3};
    mirror->materials.materials = {{3, false}, {5, true}};
    mirror->refresh();
}

void tst_entity_state::cleanup()
{
    mirror.reset();
}

// Words whose records neither a rename nor a change of visibility reaches.
void tst_entity_state::other_words()
{
    QTest::addColumn<std::string>("word");
    for (const char* word : {"block", "sideset", "nodeset", "force", "wall", "material", "media",
             "sizing_source", "boundary_layer", "Surface", "groups", "sheet", "nothing", ""}) {
        QTest::addRow("'%s'", word) << std::string(word);
    }
}

void tst_entity_state::renameReadsTheNameOnly_data()
{
    QTest::addColumn<std::string>("word");
    QTest::addColumn<QString>("query");
    QTest::addColumn<QString>("record");
    for (const char* word : {"vertex", "curve", "surface", "volume", "body"}) {
        QTest::newRow(word) << std::string(word)
                            << QString("get_entity_name(%1, 3, true)").arg(word)
                            << QString("%1 3").arg(word);
    }
    QTest::newRow("sheet body") << std::string("sheet body") << "get_entity_name(body, 3, true)"
                                << "body 3";
    QTest::newRow("group") << std::string("group") << "get_entity_name(group, 3, false)"
                           << "group 3";
}

void tst_entity_state::renameReadsTheNameOnly()
{
    QFETCH(std::string, word);
    QFETCH(QString, query);
    QFETCH(QString, record);
    mirror->kernel.names[{record.section(' ', 0, 0).toStdString(), 3}] = "Gro\xC3\x9F";
    mirror->observer().notify_entity_name_changed(word, 3);
    QCOMPARE(mirror->log.take(),
        QStringList({query, record + QString::fromUtf8(": name_changed(Gro\xC3\x9F)")}));
}

void tst_entity_state::renameOfAnyOtherWordAsksAndDoesNothing()
{
    QFETCH(std::string, word);
    mirror->kernel.names[{word, 3}] = "Own";
    const QStringList before = mirror_text(mirror->model);
    mirror->observer().notify_entity_name_changed(word, 3);
    QCOMPARE(mirror->log.take(),
        QStringList("get_entity_name(" + QString::fromStdString(word) + ", 3, true)"));
    QCOMPARE(mirror_text(mirror->model), before);
}

void tst_entity_state::renameOfAnUnknownIdAsksAndDoesNothing()
{
    const QStringList before = mirror_text(mirror->model);
    mirror->observer().notify_entity_name_changed("surface", 77);
    mirror->observer().notify_entity_name_changed("group", 77);
    QCOMPARE(mirror->log.take(),
        QStringList({"get_entity_name(surface, 77, true)", "get_entity_name(group, 77, false)"}));
    QCOMPARE(mirror_text(mirror->model), before);
}

void tst_entity_state::sameNameTellsNothing()
{
    mirror->kernel.names[{"group", 3}] = "Own";
    mirror->observer().notify_entity_name_changed("group", 3);
    mirror->log.take();
    mirror->observer().notify_entity_name_changed("group", 3);
    QCOMPARE(mirror->log.take(), QStringList("get_entity_name(group, 3, false)"));
}

void tst_entity_state::emptyNameGivesTheDefaultBack()
{
    mirror->kernel.names = {{{"group", 3}, "Own"}, {{"surface", 3}, "Own"}};
    mirror->refresh();
    mirror->kernel.names.clear();
    mirror->observer().notify_entity_name_changed("group", 3);
    mirror->observer().notify_entity_name_changed("surface", 3);
    QCOMPARE(mirror->model.find_group(3)->name(), "Entity 3");
    QCOMPARE(mirror->model.find_geometry(TreeGeometryData::SURFACE, 3)->name(), "Surface 3");
}

// Other than the reading of a group, which compares with the name that it shows.
void tst_entity_state::defaultTextIsStoredLikeAnyName()
{
    mirror->kernel.names[{"group", 3}] = "Entity 3";
    mirror->observer().notify_entity_name_changed("group", 3);
    QCOMPARE(mirror->log.take().value(1), "group 3: name_changed(Entity 3)");
    mirror->observer().notify_entity_id_changed("group", 3, 4);
    QCOMPARE(mirror->model.find_group(4)->name(), "Entity 3");
}

void tst_entity_state::virtualRecordKeepsItsMark()
{
    mirror->kernel.virtual_entities = {{"surface", 3}};
    mirror->refresh();
    mirror->kernel.names[{"surface", 3}] = "Lid";
    mirror->observer().notify_entity_name_changed("surface", 3);
    QCOMPARE(mirror->model.find_geometry(TreeGeometryData::SURFACE, 3)->name(), "Lid (v)");
}

void tst_entity_state::visibilityIsReadAndAlwaysTold_data()
{
    QTest::addColumn<std::string>("word");
    QTest::addColumn<QString>("entity");
    for (const char* word : {"vertex", "curve", "surface", "volume", "body", "group"}) {
        QTest::newRow(word) << std::string(word) << QString(word);
    }
    QTest::newRow("sheet body") << std::string("sheet body") << "body";
}

void tst_entity_state::visibilityIsReadAndAlwaysTold()
{
    QFETCH(std::string, word);
    QFETCH(QString, entity);
    const QString query = "is_visible(" + entity + ", 3)";
    mirror->observer().notify_entity_visibility_changed(word, 3);
    QCOMPARE(mirror->log.take(), QStringList({query, entity + " 3: visible_changed(true)"}));

    mirror->kernel.hidden = {{entity.toStdString(), 3}};
    mirror->observer().notify_entity_visibility_changed(word, 3);
    QCOMPARE(mirror->log.take(), QStringList({query, entity + " 3: visible_changed(false)"}));
}

void tst_entity_state::visibilityOfAnyOtherWordAsksAndDoesNothing()
{
    QFETCH(std::string, word);
    mirror->observer().notify_entity_visibility_changed(word, 3);
    QCOMPARE(
        mirror->log.take(), QStringList("is_visible(" + QString::fromStdString(word) + ", 3)"));
}

void tst_entity_state::setVisibilityIsReadAndAlwaysTold_data()
{
    QTest::addColumn<std::string>("word");
    for (const char* word : {"block", "sideset", "nodeset"}) {
        QTest::newRow(word) << std::string(word);
    }
}

void tst_entity_state::setVisibilityIsReadAndAlwaysTold()
{
    QFETCH(std::string, word);
    const QString entity = QString::fromStdString(word);
    const QString query = "is_visible(" + entity + ", 3)";
    mirror->observer().notify_exodus_visibility_changed(word, 3);
    QCOMPARE(mirror->log.take(), QStringList({query, entity + " 3: visible_changed(true)"}));

    mirror->kernel.hidden = {{word, 3}};
    mirror->observer().notify_exodus_visibility_changed(word, 3);
    QCOMPARE(mirror->log.take(), QStringList({query, entity + " 3: visible_changed(false)"}));
}

void tst_entity_state::setVisibilityOfAnyOtherWordAsksAndDoesNothing_data()
{
    QTest::addColumn<std::string>("word");
    for (const char* word : {"vertex", "curve", "surface", "volume", "body", "sheet body", "group",
             "force", "wall", "material", "media", "Block", ""}) {
        QTest::addRow("'%s'", word) << std::string(word);
    }
}

void tst_entity_state::setVisibilityOfAnyOtherWordAsksAndDoesNothing()
{
    QFETCH(std::string, word);
    mirror->observer().notify_exodus_visibility_changed(word, 3);
    QCOMPARE(
        mirror->log.take(), QStringList("is_visible(" + QString::fromStdString(word) + ", 3)"));
}

void tst_entity_state::visibilityOfAnUnknownIdAsksAndDoesNothing()
{
    mirror->observer().notify_entity_visibility_changed("surface", 77);
    mirror->observer().notify_entity_visibility_changed("group", 77);
    mirror->observer().notify_exodus_visibility_changed("block", 77);
    QCOMPARE(mirror->log.take(),
        QStringList({"is_visible(surface, 77)", "is_visible(group, 77)", "is_visible(block, 77)"}));
}

void tst_entity_state::idChangeMovesTheRecordUnasked_data()
{
    QTest::addColumn<std::string>("word");
    QTest::addColumn<QString>("record");
    QTest::addColumn<QString>("new_name");
    const std::tuple<const char*, const char*, const char*> rows[]{
        {"vertex", "vertex 4", "Vertex 4"}, {"curve", "curve 4", "Curve 4"},
        {"surface", "surface 4", "Surface 4"}, {"volume", "volume 4", "Volume 4"},
        {"body", "body 4", "Body 4"}, {"sheet body", "body 4", "Body 4"},
        {"group", "group 4", "Entity 4"}, {"force", "force 4", "Force"},
        {"pressure", "pressure 4", "Pressure"}, {"wall", "wall 4", "cfd_bc"}};
    for (const auto& [word, record, name] : rows) {
        QTest::newRow(word) << std::string(word) << QString(record) << QString(name);
    }
}

void tst_entity_state::idChangeMovesTheRecordUnasked()
{
    QFETCH(std::string, word);
    QFETCH(QString, record);
    QFETCH(QString, new_name);
    mirror->observer().notify_entity_id_changed(word, 3, 4);
    QCOMPARE(mirror->log.take(),
        QStringList({record + ": id_changed(4)", record + ": name_changed(" + new_name + ')'}));
    QVERIFY(!mirror_text(mirror->model).filter(QRegularExpression('^' + record + ' ')).isEmpty());
}

void tst_entity_state::idChangeOfAnyOtherWordDoesNothing_data()
{
    QTest::addColumn<std::string>("word");
    for (const char* word : {"block", "sideset", "nodeset", "material", "media", "sizing_source",
             "boundary_layer", "Group", "cfd_bc", ""}) {
        QTest::addRow("'%s'", word) << std::string(word);
    }
}

void tst_entity_state::idChangeOfAnyOtherWordDoesNothing()
{
    QFETCH(std::string, word);
    const QStringList before = mirror_text(mirror->model);
    mirror->observer().notify_entity_id_changed(word, 3, 4);
    QCOMPARE(mirror->log.take(), QStringList());
    QCOMPARE(mirror_text(mirror->model), before);
}

void tst_entity_state::idChangeOfAnUnknownIdDoesNothing()
{
    const QStringList before = mirror_text(mirror->model);
    for (const char* word : {"surface", "group", "force", "wall"}) {
        mirror->observer().notify_entity_id_changed(word, 77, 4);
    }
    QCOMPARE(mirror->log.take(), QStringList());
    QCOMPARE(mirror_text(mirror->model), before);
}

void tst_entity_state::idChangeKeepsTheLinks()
{
    mirror->kernel.group_contents[3] = {{{{}, {}, {}, {3}, {}, {}}}, {0, 0, 5, 0, 0, 0, 0, 0, 0}};
    mirror->kernel.sidesets_of_bc[{KestoInterface::BC_FORCE, 3}] = {3};
    mirror->refresh();
    for (const char* word : {"surface", "group", "force"}) {
        mirror->observer().notify_entity_id_changed(word, 3, 4);
    }
    const QStringList text = mirror_text(mirror->model);
    QVERIFY(text.contains("group 4 'Entity 4' > hex, surface 4"));
    QVERIFY(text.contains("hex of group 4 '5 hex elements' < group 4"));
    QVERIFY(text.contains("force 4 'Force' > sideset 3"));
}

void tst_entity_state::anyFluidWordMovesTheFluidCondition()
{
    mirror->observer().notify_entity_id_changed("axis", 3, 4);
    QCOMPARE(mirror->log.take().value(0), "wall 4: id_changed(4)");
}

void tst_entity_state::structuralWordMovesItsOwnKindOnly()
{
    mirror->observer().notify_entity_id_changed("pressure", 3, 4);
    QVERIFY(mirror->model.find_fea_bc(TreeFeaBCData::PRESSURE, 4));
    QVERIFY(mirror->model.find_fea_bc(TreeFeaBCData::FORCE, 3));
}

void tst_entity_state::takenIdOfGeometryIsRefused()
{
    const QStringList before = mirror_text(mirror->model);
    mirror->observer().notify_entity_id_changed("surface", 3, 5);
    QCOMPARE(mirror->log.take(), QStringList());
    QCOMPARE(mirror_text(mirror->model), before);
}

void tst_entity_state::takenIdOfAGroupIsTaken()
{
    TreeGroupData* moved = mirror->model.find_group(3);
    mirror->observer().notify_entity_id_changed("group", 3, 5);
    QCOMPARE(mirror->log.take(),
        QStringList({"group 5: id_changed(5)", "group 5: name_changed(Entity 5)"}));
    QVERIFY2(mirror->model.groups() == std::vector<TreeGroupData*>{moved},
        "the displaced group has left the mirror, unannounced and undeleted");
}

void tst_entity_state::takenIdOfAConditionIsTaken()
{
    TreeFeaBCData* force = mirror->model.find_fea_bc(TreeFeaBCData::FORCE, 3);
    TreeCfdBCData* wall = mirror->model.find_cfd_bc(3);
    mirror->observer().notify_entity_id_changed("force", 3, 5);
    mirror->observer().notify_entity_id_changed("wall", 3, 5);
    QVERIFY(mirror->model.fea_bcs(TreeFeaBCData::FORCE) == std::vector<TreeFeaBCData*>{force});
    QVERIFY(mirror->model.cfd_bcs(TreeCfdBCData::WALL) == std::vector<TreeCfdBCData*>{wall});
    QVERIFY(mirror->log.take_only({"fea_bc_removed", "cfd_bc_removed"}).isEmpty());
}

void tst_entity_state::sameIdIsToldAgain()
{
    mirror->observer().notify_entity_id_changed("group", 3, 3);
    mirror->observer().notify_entity_id_changed("force", 3, 3);
    mirror->observer().notify_entity_id_changed("wall", 3, 3);
    QCOMPARE(mirror->log.take().filter("id_changed"),
        QStringList({"group 3: id_changed(3)", "force 3: id_changed(3)", "wall 3: id_changed(3)"}));
    QCOMPARE(mirror->model.groups().size(), 2U);
}

QTEST_GUILESS_MAIN(tst_entity_state)
#include "tst_entity_state.moc"
