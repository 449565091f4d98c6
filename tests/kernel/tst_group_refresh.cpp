#include <memory>
#include <QTest>
#include <support/FullModel.hpp>
#include <support/MirrorText.hpp>

namespace {

QStringList reading(int id)
{
    const QString n = QString::number(id);
    return {"get_entity_name(group, " + n + ", false)", "is_visible(group, " + n + ')',
        "group " + n + ": visible_changed(true)", "get_group_children(" + n + ')'};
}

} // namespace

class tst_group_refresh : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void listedGroupsAreAddedAndReadInTheKernelsOrder();
    void kernelWithoutGroupsIsAskedForNone();
    void vanishedGroupsGoLastByAscendingId();
    void keptGroupTakesItsNewNameBeforeItIsRead();
    void nameOfTheListIsCorrectedByTheReading();
    void repeatedGroupIsReadAgain();
    void oddNamesAreTaken();
    void groupListedBeforeItsMemberGetsItAtTheNextRefresh();
    void membersAreLookedUpInTheGeometryOfTheSameRefresh();

    void selectedGroupsAloneAreReported();
    void wordIsComparedInLowerCase();
    void emptySelectionIsNotReported();
    void groupThatVanishesIsNotReported();

private:
    // The events of a refresh from the list of groups up to the reading of the selection.
    QStringList refresh();

    std::unique_ptr<FullMirror> mirror;
};

void tst_group_refresh::init()
{
    mirror = std::make_unique<FullMirror>();
}

void tst_group_refresh::cleanup()
{
    mirror.reset();
}

QStringList tst_group_refresh::refresh()
{
    mirror->model.refresh_model(false);
    const QStringList events = mirror->log.take();
    const int begin = int(events.indexOf("group_list()"));
    const int end = int(events.indexOf("current_selection_count()", begin));
    return events.mid(begin, end - begin);
}

void tst_group_refresh::listedGroupsAreAddedAndReadInTheKernelsOrder()
{
    mirror->kernel.groups = {{"", 5}, {"", 2}};
    QCOMPARE(refresh(), QStringList({"group_list()", "group_added(group 5)"}) + reading(5) +
                            QStringList("group_added(group 2)") + reading(2));
}

void tst_group_refresh::kernelWithoutGroupsIsAskedForNone()
{
    QCOMPARE(refresh(), QStringList("group_list()"));
}

void tst_group_refresh::vanishedGroupsGoLastByAscendingId()
{
    mirror->kernel.groups = {{"", 9}, {"", 5}, {"", 2}};
    mirror->refresh();
    mirror->kernel.groups = {{"", 5}, {"", 7}};
    QCOMPARE(refresh(),
        QStringList("group_list()") + reading(5) + QStringList("group_added(group 7)") +
            reading(7) +
            QStringList({"group_removed(group 2)", "group 2: treedata_destroyed(group 2)",
                "group_removed(group 9)", "group 9: treedata_destroyed(group 9)"}));
}

void tst_group_refresh::keptGroupTakesItsNewNameBeforeItIsRead()
{
    mirror->kernel.groups = {{"", 5}};
    mirror->refresh();
    TreeGroupData* group = mirror->model.find_group(5);
    mirror->kernel.groups = {{"Bolts", 5}};
    mirror->kernel.names[{"group", 5}] = "Bolts";
    QCOMPARE(refresh(), QStringList({"group_list()", "group 5: name_changed(Bolts)"}) + reading(5));
    QCOMPARE(mirror->model.find_group(5), group);
}

void tst_group_refresh::nameOfTheListIsCorrectedByTheReading()
{
    mirror->kernel.groups = {{"Listed", 5}};
    mirror->kernel.names[{"group", 5}] = "Bolts";
    QCOMPARE(refresh().mid(0, 4),
        QStringList({"group_list()", "group_added(group 5)", "get_entity_name(group, 5, false)",
            "group 5: name_changed(Bolts)"}));
}

void tst_group_refresh::repeatedGroupIsReadAgain()
{
    mirror->kernel.groups = {{"", 5}, {"", 5}};
    QCOMPARE(
        refresh(), QStringList({"group_list()", "group_added(group 5)"}) + reading(5) + reading(5));
}

void tst_group_refresh::oddNamesAreTaken()
{
    mirror->kernel.groups = {{std::string("\0hidden", 7), 5}, {"\xFF", 6}};
    refresh();
    QCOMPARE(mirror->model.find_group(5)->name(), "Entity 5");
    QVERIFY(mirror->model.find_group(6));
}

// Each group looks its members up when it is read itself.
void tst_group_refresh::groupListedBeforeItsMemberGetsItAtTheNextRefresh()
{
    mirror->kernel.groups = {{"", 1}, {"", 2}};
    mirror->kernel.group_contents = {{1, {{{{2}, {}, {}, {}, {}, {}}}, {}}}};
    mirror->refresh();
    QCOMPARE(mirror_text(mirror->model), QStringList({"group 1 'Entity 1'", "group 2 'Entity 2'"}));
    mirror->refresh();
    QCOMPARE(mirror_text(mirror->model),
        QStringList({"group 1 'Entity 1' > group 2", "group 2 'Entity 2' < group 1"}));
}

void tst_group_refresh::membersAreLookedUpInTheGeometryOfTheSameRefresh()
{
    mirror->kernel.entities = {{"surface", {4}}};
    mirror->kernel.groups = {{"", 1}};
    mirror->kernel.group_contents = {{1, {{{{}, {}, {}, {4, 5}, {}, {}}}, {}}}};
    mirror->refresh();
    QCOMPARE(mirror_text(mirror->model).constLast(), "group 1 'Entity 1' > surface 4");
}

void tst_group_refresh::selectedGroupsAloneAreReported()
{
    mirror->kernel.entities = {{"volume", {4}}};
    mirror->kernel.groups = {{"", 1}, {"", 2}};
    mirror->kernel.selection = {{"volume", 4}, {"group", 2}, {"group", 77}, {"group", 1}};
    mirror->model.refresh_model(false);
    QCOMPARE(mirror->log.take_only({"selection_changed"}),
        QStringList({"selection_changed([volume 4], true)",
            "selection_changed([group 2, group 1], true)"}));
}

void tst_group_refresh::wordIsComparedInLowerCase()
{
    mirror->kernel.groups = {{"", 1}};
    mirror->kernel.selection = {{"GrouP", 1}, {"groups", 1}, {" group", 1}};
    mirror->model.refresh_model(false);
    QCOMPARE(mirror->log.take_only({"selection_changed"}),
        QStringList("selection_changed([group 1], true)"));
}

void tst_group_refresh::emptySelectionIsNotReported()
{
    mirror->kernel.groups = {{"", 1}};
    mirror->model.refresh_model(false);
    QCOMPARE(mirror->log.take_only({"selection_changed"}), QStringList());
}

void tst_group_refresh::groupThatVanishesIsNotReported()
{
    mirror->kernel.groups = {{"", 1}};
    mirror->refresh();
    mirror->kernel.groups.clear();
    mirror->kernel.selection = {{"group", 1}};
    mirror->model.refresh_model(false);
    QCOMPARE(mirror->log.take_only({"selection_changed"}), QStringList());
}

QTEST_GUILESS_MAIN(tst_group_refresh)
#include "tst_group_refresh.moc"
