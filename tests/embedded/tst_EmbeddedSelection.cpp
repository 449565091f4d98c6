#include "NotificationLog.hpp"
#include "TestModels.hpp"

#include <embedded/EmbeddedKernel.hpp>
#include <QTest>
#include <stdexcept>

using namespace KestoInterface;

namespace {

using enum EntityKind;

// "volume 1 wall 2", in the order of the kernel.
QString selection()
{
    QStringList words;
    for (int i = 0; i < current_selection_count(); ++i) {
        words << QString::fromStdString(get_selected_type(i))
              << QString::number(get_selected_id(i));
    }
    return words.join(u' ');
}

// A cube, and one of each other kind that a line can name.
void fill(EmbeddedKernel& kernel)
{
    kernel.open_model(lattice(1, 1, 1), "cube.step");
    kernel.create_group();
    kernel.create_sizing_source();
    kernel.create_boundary_layer();
    for (const EntityKind kind : {BLOCK, SIDESET, NODESET}) {
        kernel.create_set(kind);
    }
    kernel.create_material();
    kernel.create_medium();
    for (int kind = static_cast<int>(FORCE); kind <= static_cast<int>(WALL); ++kind) {
        kernel.create_condition(static_cast<EntityKind>(kind));
    }
}

} // namespace

class tst_EmbeddedSelection : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void selectedEntitiesAreToldAndListed();
    void entitySelectedTwiceIsListedAndToldOnce();
    void deselectedEntitiesAreTold();
    void selectionOfNothingClears();
    void unknownEntityIsRefused();
    void placeOutsideOfTheSelectionAnswersEmpty();

    void lineIsCarriedOut_data();
    void lineIsCarriedOut();
    void lineIsToldBeforeItReturns();
    void lineThatIsNoneChangesNothing_data();
    void lineThatIsNoneChangesNothing();
    void lineWithAMillionIdsIsCarriedOut();
    void throwingObserverDoesNotGetThroughTheBoundary();

    void deletedEntitiesLeaveTheSelectionFirst();
    void renumberedEntityStaysSelected();
    void entityOfANewKindStaysSelected();
    void openedModelBeginsWithoutASelection();
};

void tst_EmbeddedSelection::selectedEntitiesAreToldAndListed()
{
    EmbeddedKernel kernel;
    fill(kernel);
    NotificationLog log;
    kernel.select(SURFACE, {5, 2});
    kernel.select(GROUP, {1});
    kernel.select(SURFACE, {3});
    QCOMPARE(log.take(),
        QStringLiteral("selected surface 5 surface 2, selected group 1, selected surface 3"));
    QCOMPARE(selection(), QStringLiteral("surface 5 surface 2 group 1 surface 3"));
}

void tst_EmbeddedSelection::entitySelectedTwiceIsListedAndToldOnce()
{
    EmbeddedKernel kernel;
    fill(kernel);
    kernel.select(SURFACE, {1, 2});
    NotificationLog log;
    kernel.select(SURFACE, {2, 3});
    kernel.select(SURFACE, {1});
    QCOMPARE(log.take(), QStringLiteral("selected surface 3"));
    QVERIFY(silent_cmd("select curve 1 1 "));
    QCOMPARE(log.take(), QStringLiteral("selected curve 1"));
    QCOMPARE(selection(), QStringLiteral("surface 1 surface 2 surface 3 curve 1"));
}

void tst_EmbeddedSelection::deselectedEntitiesAreTold()
{
    EmbeddedKernel kernel;
    fill(kernel);
    kernel.select(SURFACE, {3, 1, 2});
    NotificationLog log;
    kernel.deselect(SURFACE, {4, 1, 3});
    kernel.deselect(SURFACE, {1});
    QCOMPARE(log.take(), QStringLiteral("deselected surface 3 surface 1"));
    QCOMPARE(selection(), QStringLiteral("surface 2"));
}

void tst_EmbeddedSelection::selectionOfNothingClears()
{
    EmbeddedKernel kernel;
    fill(kernel);
    kernel.select(SURFACE, {3});
    kernel.select(WALL, {22});
    NotificationLog log;
    kernel.select_none();
    kernel.select_none();
    QCOMPARE(log.take(), QStringLiteral("deselected surface 3 wall 22"));
    QCOMPARE(current_selection_count(), 0);
}

void tst_EmbeddedSelection::unknownEntityIsRefused()
{
    EmbeddedKernel kernel;
    fill(kernel);
    QVERIFY_THROWS_EXCEPTION(std::invalid_argument, kernel.select(SURFACE, {1, 7}));
    QVERIFY_THROWS_EXCEPTION(std::invalid_argument, kernel.deselect(SURFACE, {7}));
    QCOMPARE(selection(), QString());
}

void tst_EmbeddedSelection::placeOutsideOfTheSelectionAnswersEmpty()
{
    EmbeddedKernel kernel;
    fill(kernel);
    kernel.select(SURFACE, {1});
    for (const int index : {-1, 1, 2147483647}) {
        QCOMPARE(get_selected_type(index), std::string());
        QCOMPARE(get_selected_id(index), 0);
    }
}

void tst_EmbeddedSelection::lineIsCarriedOut_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("selected");
    const auto newRow = [](const char* line, const char* selected) {
        QTest::newRow(line) << QByteArray(line) << QString::fromLatin1(selected);
    };
    newRow("select none", "");
    newRow("select volume 1 ", "volume 1");
    newRow("select volume 1", "volume 1");
    newRow("select body 1 surface 2 1 group 1 ", "body 1 surface 2 surface 1 group 1");
    newRow("select curve 12 vertex 8 ", "curve 12 vertex 8");
    newRow("select boundary_layer 1 sizing_source 1 ", "boundary_layer 1 sizing_source 1");
    newRow("select block 1 sideset 1 nodeset 1 ", "block 1 sideset 1 nodeset 1");
    newRow("select force 1 acceleration 1 velocity 1 pressure 1 temperature 1 displacement 1 "
           "constraint 1 convection 1 heatflux 1 contact region 1 contact pair 1 ",
        "force 1 acceleration 1 velocity 1 pressure 1 temperature 1 displacement 1 "
        "constraint 1 convection 1 heatflux 1 contact region 1 contact pair 1");
    newRow("select cfd_bc 1 22 2 ", "axis 1 wall 22 exhaustfan 2");
    newRow("select material 1 2 ", "material 1 media 2");
    newRow("select surface 6 sideset 1 pressure 1 contact region 1 cfd_bc 9 material 1 ",
        "surface 6 sideset 1 pressure 1 contact region 1 outflow 9 material 1");
}

void tst_EmbeddedSelection::lineIsCarriedOut()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, selected);
    EmbeddedKernel kernel;
    fill(kernel);
    QVERIFY(silent_cmd(line.constData()));
    QCOMPARE(selection(), selected);

    if (!selected.isEmpty()) {
        NotificationLog log;
        const QByteArray remove = line.trimmed() + " remove";
        QVERIFY(silent_cmd(remove.constData()));
        QCOMPARE(log.take(), QStringLiteral("deselected ") + selected);
        QCOMPARE(selection(), QString());
    }
}

void tst_EmbeddedSelection::lineIsToldBeforeItReturns()
{
    EmbeddedKernel kernel;
    fill(kernel);
    NotificationLog log;
    QString inside;
    log.on_event = [&inside](const QString&) { inside = selection(); };
    QVERIFY(silent_cmd("select cfd_bc 22 body 1 "));
    QCOMPARE(log.take(), QStringLiteral("selected wall 22 body 1"));
    QCOMPARE(inside, QStringLiteral("wall 22 body 1"));
}

void tst_EmbeddedSelection::lineThatIsNoneChangesNothing_data()
{
    QTest::addColumn<QByteArray>("line");
    for (const char* line :
        {"", "select", "select ", "select  none", "select none ", "select nonesuch", "Select none",
            "select body", "select body ", "select body x", "select body 1 2 ", "select body 9 ",
            "select body 0 ", "select body -1 ", "select body 1  volume 1", "select body 1 volume",
            "select body 1 volume remove", "select body 1,2", "select body 1x",
            "select body 99999999999999999999", "select Body 1 ", "select solid 1 ",
            "select media 1 ", "select wall 22 ", "select cfd_bc 23 ", "select material 3 ",
            "select contact 1 ", "select contact_pair 1 ", "select remove", "select body 1 removed",
            "select body 1 remove ", "select body 1 remove volume 1", "select 1", "delete body 1",
            " select body 1", "select body +1 "}) {
        QTest::addRow("'%s'", line) << QByteArray(line);
    }
}

void tst_EmbeddedSelection::lineThatIsNoneChangesNothing()
{
    QFETCH(QByteArray, line);
    EmbeddedKernel kernel;
    fill(kernel);
    kernel.select(VOLUME, {1});
    NotificationLog log;
    QVERIFY(!silent_cmd(line.constData()));
    QVERIFY(!silent_cmd(nullptr));
    QCOMPARE(log.take(), QString());
    QCOMPARE(selection(), QStringLiteral("volume 1"));
}

void tst_EmbeddedSelection::lineWithAMillionIdsIsCarriedOut()
{
    ModelData model;
    model.vertices.resize(1'000'000);
    EmbeddedKernel kernel;
    kernel.open_model(model, "points.step");
    std::string line = "select vertex ";
    for (int id = 1'000'000; id > 0; --id) {
        line += std::to_string(id) + ' ';
    }
    QVERIFY(silent_cmd(line.c_str()));
    QCOMPARE(current_selection_count(), 1'000'000);
    QCOMPARE(get_selected_id(0), 1'000'000);
    QVERIFY(silent_cmd((line + "remove").c_str()));
    QCOMPARE(current_selection_count(), 0);
}

void tst_EmbeddedSelection::throwingObserverDoesNotGetThroughTheBoundary()
{
    EmbeddedKernel kernel;
    fill(kernel);
    NotificationLog log;
    log.on_event = [](const QString&) { throw std::runtime_error("no"); };
    QVERIFY(!silent_cmd("select body 1 "));
    QCOMPARE(selection(), QStringLiteral("body 1"));
}

void tst_EmbeddedSelection::deletedEntitiesLeaveTheSelectionFirst()
{
    EmbeddedKernel kernel;
    kernel.create_vertex();
    kernel.create_curve({1});
    kernel.create_set(BLOCK);
    kernel.select(VERTEX, {1});
    kernel.select(BLOCK, {1});
    kernel.select(CURVE, {1});
    NotificationLog log;
    kernel.remove(CURVE, 1);
    QCOMPARE(log.take(),
        QStringLiteral("deselected vertex 1 curve 1, curve_deleted 1, vertex_removed 1"));
    kernel.remove(BLOCK, 1);
    QCOMPARE(
        log.take(), QStringLiteral("deselected block 1, exodus_entity_modified block 1 delete"));
    QCOMPARE(current_selection_count(), 0);
    kernel.create_vertex();
    kernel.select(VERTEX, {1});
    QCOMPARE(selection(), QStringLiteral("vertex 1"));
}

void tst_EmbeddedSelection::renumberedEntityStaysSelected()
{
    EmbeddedKernel kernel;
    fill(kernel);
    kernel.select(SURFACE, {1, 2});
    kernel.renumber(SURFACE, 1, 77);
    QCOMPARE(selection(), QStringLiteral("surface 77 surface 2"));
    kernel.deselect(SURFACE, {77});
    QCOMPARE(selection(), QStringLiteral("surface 2"));
}

void tst_EmbeddedSelection::entityOfANewKindStaysSelected()
{
    EmbeddedKernel kernel;
    fill(kernel);
    kernel.select(WALL, {22});
    kernel.change_kind(WALL, 22, FAN);
    QCOMPARE(selection(), QStringLiteral("fan 22"));
    kernel.select_none();
    QCOMPARE(current_selection_count(), 0);
}

void tst_EmbeddedSelection::openedModelBeginsWithoutASelection()
{
    EmbeddedKernel kernel;
    fill(kernel);
    kernel.select(BODY, {1});
    NotificationLog log;
    kernel.open_model(lattice(1, 1, 1), "cube.step");
    QCOMPARE(log.take(), QStringLiteral("kes_file_opened cube.step"));
    QCOMPARE(current_selection_count(), 0);
}

QTEST_GUILESS_MAIN(tst_EmbeddedSelection)
#include "tst_EmbeddedSelection.moc"
