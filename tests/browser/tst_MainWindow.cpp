#include "ItemTree.hpp"

#include <browser/editing/FilterBar.hpp>
#include <browser/KernelSession.hpp>
#include <browser/window/CategoryMenu.hpp>
#include <browser/window/EditActions.hpp>
#include <browser/window/EntityView.hpp>
#include <browser/window/MainWindow.hpp>
#include <browser/window/TreePane.hpp>
#include <memory>
#include <QApplication>
#include <QClipboard>
#include <QDockWidget>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTest>
#include <QToolBar>
#include <QTreeWidget>

namespace {

/// The entries of a menu and of the menus in it.
QList<QAction*> all_actions(const QMenu* menu)
{
    QList<QAction*> result;
    for (QAction* action : menu->actions()) {
        result << action;
        if (action->menu()) {
            result << all_actions(action->menu());
        }
    }
    return result;
}

} // namespace

// The window as a person uses it, by keyboard and mouse, on this model:
//
//   bodies Plate, Lid with one volume each, of which the surface Seam is shared;
//   group Parts with the body Plate; sideset Outside; force Push on it
class tst_MainWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void categoriesTellTheirCounts();
    void rowsFollowTheKernel();
    void emptyTreeTellsWhatToDo();

    void typingFiltersAndEscShowsAllAgain();
    void controlFGoesToTheFilter();

    void clickSelectsInTheKernel();
    void kernelSelectionIsShownAtEachPlace();
    void statusBarCountsTheSelection();
    void allRowsOfAWideOpenTreeAreSelected();
    void goToSelectionOpensTheWay();
    void followedSelectionIsGoneToAtOnce();
    void propertiesShowTheSelection();

    void renamingInPlaceGoesToTheKernel();
    void refusedNameIsToldAndChangesNothing();
    void categoriesAreNotRenamed();
    void rowWithoutANameOfItsOwnTellsSo();
    void deleteAsksAndDeletes();
    void whatIsDeletedIsDeselectedAtOnce();
    void deleteMeansWhatWasSelectedWhenItWasAsked();
    void deleteCanBeCalledOff();
    void deleteInTheFilterDeletesText();
    void hideAndShowTurnVisibility();
    void showOnlyTheseIsRestored();
    void actionsNeedASelection();

    void selectionBecomesAnEntity_data();
    void selectionBecomesAnEntity();
    void conditionOnSelectedSetHoldsIt();
    void selectedConditionIsAppliedToSelectedSets();
    void refusedOperationIsToldAndChangesNothing();

    void branchesAreExpandedAndCollapsed();
    void selectedRowsAreCopiedAsText();
    void nameOfTwoLinesIsCopiedAsOne();
    void keyboardAloneReachesEachMenu();

    void contextMenuOpensByKeyAtTheCurrentRow();
    void contextMenuOfARecordWorksOnIt();
    void contextMenuOfACategoryMakesOneOfItsKind();
    void contextMenuOfACategoryHidesIt();
    void categoriesAreHiddenAndShown();

    void signalMonitorOpensByItsKey();
    void hiddenCategoriesAndDocksAreKept();

private:
    TreePane& tree() { return window->tree(); }
    EntityView& view() { return *tree().view(); }
    QLineEdit* filter() { return tree().filter_bar()->findChild<QLineEdit*>(); }
    TreeData* body(int id) { return session->mirror().find_geometry(TreeGeometryData::BODY, id); }

    /// Waits for the rows to follow the kernel.
    void settle();
    /// Where the first place of a record stands in the view, all above it open.
    QModelIndex row_of(TreeData* record);
    void click(TreeData* record, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    /// Opens the context menu of a row, and triggers the entry with that text in it.
    void choose(const QModelIndex& row, const QString& text);
    /// "1 2" for each selected kind, from the kernel by way of the mirror.
    QString selected_names();
    QString message() const { return window->statusBar()->currentMessage(); }

    QTemporaryDir m_settings_folder;
    std::unique_ptr<KernelSession> session;
    std::unique_ptr<MainWindow> window;
    std::vector<TreeData*> kernel_selection;
};

void tst_MainWindow::initTestCase()
{
    QCoreApplication::setOrganizationName("treemodel");
    QCoreApplication::setApplicationName("tst_MainWindow");
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_settings_folder.path());
}

void tst_MainWindow::init()
{
    QSettings().clear();
    session = std::make_unique<KernelSession>();
    EmbeddedKernel& kernel = session->kernel();
    const int seam = kernel.create_surface({}, "Seam");
    kernel.create_body({kernel.create_volume({seam, kernel.create_surface()})}, "Plate");
    kernel.create_body({kernel.create_volume({seam})}, "Lid");
    kernel.add_to_group(kernel.create_group("Parts"), EntityKind::BODY, {1});
    kernel.create_set(EntityKind::SIDESET, "Outside");
    kernel.create_condition(EntityKind::FORCE, {1}, {}, "Push");

    kernel_selection.clear();
    connect(&session->mirror(), &TreeModel::selection_changed, this,
        [this](const std::vector<TreeData*>& records, bool selected) {
            for (TreeData* record : records) {
                std::erase(kernel_selection, record);
                if (selected) {
                    kernel_selection.push_back(record);
                }
            }
        });

    window = std::make_unique<MainWindow>(*session);
    window->show();
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    settle();
}

void tst_MainWindow::cleanup()
{
    window.reset();
    session.reset();
}

void tst_MainWindow::settle()
{
    QTRY_VERIFY(tree().is_settled());
}

QModelIndex tst_MainWindow::row_of(TreeData* record)
{
    settle();
    const QModelIndex index = tree().rows().index(tree().join().places(record).front());
    view().scrollTo(index);
    return index;
}

void tst_MainWindow::click(TreeData* record, Qt::KeyboardModifiers modifiers)
{
    const QRect place = view().visualRect(row_of(record));
    QTest::mouseClick(view().viewport(), Qt::LeftButton, modifiers, place.center());
}

void tst_MainWindow::choose(const QModelIndex& row, const QString& text)
{
    view().scrollTo(row);
    const QPoint position = view().visualRect(row).center();
    QTest::mouseClick(view().viewport(), Qt::LeftButton, {}, position);
    QContextMenuEvent event(
        QContextMenuEvent::Mouse, position, view().viewport()->mapToGlobal(position));
    QApplication::sendEvent(view().viewport(), &event);
    auto* const menu = view().findChild<QMenu*>("tree_menu");
    QVERIFY2(menu, "no menu opened");
    const QList<QAction*> actions = all_actions(menu);
    const auto action = std::find_if(actions.begin(), actions.end(),
        [&](const QAction* candidate) { return candidate->text() == text; });
    QVERIFY2(action != actions.end(), qPrintable("no entry " + text));
    (*action)->trigger();
    menu->close();
}

QString tst_MainWindow::selected_names()
{
    QStringList names;
    for (TreeData* record : kernel_selection) {
        names << record->name();
    }
    return names.join(' ');
}

void tst_MainWindow::categoriesTellTheirCounts()
{
    QStringList texts;
    for (int row = 0; row < view().model()->rowCount(); ++row) {
        texts << view().model()->index(row, 0).data().toString();
    }
    QCOMPARE(texts.mid(0, 6),
        (QStringList{"Geometry (2)", "Groups (1)", "Mesh", "Blocks", "Sidesets (1)", "Nodesets"}));
}

void tst_MainWindow::rowsFollowTheKernel()
{
    session->kernel().create_body({}, "Bolt");
    settle();
    const QString shown = shown_tree(*view().model());
    QVERIFY2(shown.startsWith("Geometry (3)(Plate("), qPrintable(shown));
    QVERIFY2(shown.contains("Bolt"), qPrintable(shown));

    session->kernel().clear();
    settle();
    QVERIFY2(shown_tree(*view().model()).startsWith("Geometry Groups Mesh"),
        qPrintable(shown_tree(*view().model())));
}

void tst_MainWindow::emptyTreeTellsWhatToDo()
{
    QCOMPARE(view().hint(), QString());
    tree().filter_bar()->set_text("no such part");
    settle();
    QVERIFY2(view().hint().contains("no such part"), qPrintable(view().hint()));
    tree().filter_bar()->set_text({});
    QCOMPARE(view().hint(), QString());

    session->kernel().clear();
    settle();
    QVERIFY2(view().hint().contains("Ctrl+O"), qPrintable(view().hint()));
    session->kernel().create_body({});
    settle();
    QCOMPARE(view().hint(), QString());
}

void tst_MainWindow::typingFiltersAndEscShowsAllAgain()
{
    const QString all = shown_tree(*view().model());
    QVERIFY(!view().isExpanded(view().model()->index(0, 0)));

    QTest::keyClicks(filter(), "lID");
    QTRY_COMPARE(shown_tree(*view().model()), "Geometry (2)(Lid(Volume 2(Seam)))");
    QVERIFY(view().isExpanded(view().model()->index(0, 0)));

    QTest::keyClick(filter(), Qt::Key_Escape);
    QTRY_COMPARE(shown_tree(*view().model()), all);
    QVERIFY(!view().isExpanded(view().model()->index(0, 0)));
}

void tst_MainWindow::controlFGoesToTheFilter()
{
    view().setFocus();
    QTest::keyClick(&view(), Qt::Key_F, Qt::ControlModifier);
    QVERIFY(filter()->hasFocus());
}

void tst_MainWindow::clickSelectsInTheKernel()
{
    click(body(1));
    QCOMPARE(selected_names(), "Plate");
    click(body(2));
    QCOMPARE(selected_names(), "Lid");
    click(body(1), Qt::ControlModifier);
    QCOMPARE(selected_names(), "Lid Plate");
}

void tst_MainWindow::kernelSelectionIsShownAtEachPlace()
{
    session->kernel().select(EntityKind::SURFACE, {1});
    QTRY_COMPARE(tree().selection().selectedRows().size(), 2);
    for (const QModelIndex& index : tree().selection().selectedRows()) {
        QCOMPARE(index.data().toString(), "Seam");
    }
    session->kernel().select_none();
    QTRY_VERIFY(!tree().selection().hasSelection());
}

void tst_MainWindow::statusBarCountsTheSelection()
{
    const auto* const label = window->findChild<QLabel*>("selection_text");
    click(body(1));
    QTRY_COMPARE(label->text(), "Selected: 1 body");
    session->kernel().select(EntityKind::SURFACE, {1, 2});
    session->kernel().select(EntityKind::GROUP, {1});
    QTRY_COMPARE(label->text(), "Selected: 1 body, 2 surfaces, 1 group");
    session->kernel().select_none();
    QTRY_COMPARE(label->text(), "");
}

void tst_MainWindow::allRowsOfAWideOpenTreeAreSelected()
{
    // So many that comparing each of the ranges with all others would not end in time.
    constexpr int count = 6000;
    ModelData model;
    for (int id = 1; id <= count; ++id) {
        model.bodies.push_back({"Bolt", {id}});
        model.volumes.emplace_back();
    }
    session->kernel().open_model(model, "bolts");
    settle();
    view().expandAll();
    settle();

    QTest::keyClick(&view(), Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(int(kernel_selection.size()), 2 * count);
    QVERIFY(
        window->findChild<QLabel*>("selection_text")->text().contains(QLocale().toString(count)));
}

void tst_MainWindow::goToSelectionOpensTheWay()
{
    session->kernel().select(EntityKind::SURFACE, {2});
    QVERIFY(!view().isExpanded(view().model()->index(0, 0)));
    view().setFocus();
    QTest::keyClick(&view(), Qt::Key_J, Qt::ControlModifier);
    QTRY_COMPARE(view().currentIndex().data().toString(), "Surface 2");
    QVERIFY(view().viewport()->rect().contains(view().visualRect(view().currentIndex()).center()));
}

void tst_MainWindow::followedSelectionIsGoneToAtOnce()
{
    window->findChild<QAction*>("follow_selection")->trigger();
    session->kernel().select(EntityKind::SURFACE, {2});
    QTRY_COMPARE(view().currentIndex().data().toString(), "Surface 2");
}

void tst_MainWindow::propertiesShowTheSelection()
{
    auto* const properties = window->findChild<QTreeWidget*>();
    QVERIFY(properties);
    click(body(2));
    QTRY_COMPARE(properties->topLevelItemCount(), 1);
    QCOMPARE(properties->topLevelItem(0)->text(0), "Lid");
    session->kernel().rename(EntityKind::BODY, 2, "Cover");
    QTRY_COMPARE(properties->topLevelItem(0)->text(0), "Cover");
}

void tst_MainWindow::renamingInPlaceGoesToTheKernel()
{
    click(body(1));
    QTest::keyClick(&view(), Qt::Key_F2);
    auto* const editor = view().findChild<QLineEdit*>();
    QVERIFY2(editor, "F2 opened no editor");
    QCOMPARE(editor->text(), "Plate");
    QTest::keyClicks(editor, "Base");
    QTest::keyClick(editor, Qt::Key_Return);
    QTRY_COMPARE(body(1)->name(), "Base");
    settle();
    QCOMPARE(row_of(body(1)).data().toString(), "Base");
}

void tst_MainWindow::refusedNameIsToldAndChangesNothing()
{
    view().model()->setData(row_of(body(1)), "Two\nlines");
    QCOMPARE(body(1)->name(), "Plate");
    QVERIFY(!message().isEmpty());
    QCOMPARE(row_of(body(1)).data().toString(), "Plate");
}

void tst_MainWindow::categoriesAreNotRenamed()
{
    view().setCurrentIndex(view().model()->index(0, 0));
    QTest::keyClick(&view(), Qt::Key_F2);
    QVERIFY(!view().findChild<QLineEdit*>());
}

void tst_MainWindow::rowWithoutANameOfItsOwnTellsSo()
{
    session->kernel().create_sizing_source();
    settle();
    click(session->mirror().sizing_sources().front());
    QTest::keyClick(&view(), Qt::Key_F2);
    QVERIFY(!view().findChild<QLineEdit*>());
    QVERIFY2(!message().isEmpty(), "F2 did nothing and nobody was told why");
}

void tst_MainWindow::deleteAsksAndDeletes()
{
    click(body(2));
    QTest::keyClick(&view(), Qt::Key_Delete);
    auto* const box = window->findChild<QMessageBox*>("delete");
    QVERIFY2(box, "nobody asked");
    QCOMPARE(box->text(), "Delete 1 body?");
    QVERIFY(body(2));
    QTest::keyClick(box, Qt::Key_Return);
    QVERIFY(!body(2));
    settle();
    QVERIFY(!shown_tree(*view().model()).contains("Lid"));
}

void tst_MainWindow::whatIsDeletedIsDeselectedAtOnce()
{
    click(body(1));
    click(body(2), Qt::ControlModifier);
    QCOMPARE(int(kernel_selection.size()), 2);
    QTest::keyClick(&view(), Qt::Key_Delete);
    auto* const box = tree().findChild<QMessageBox*>("delete");
    QVERIFY(box);

    QSignalSpy selection(&session->mirror(), &TreeModel::selection_changed);
    box->defaultButton()->click();
    QCOMPARE(selection.size(), 1);
    QVERIFY(kernel_selection.empty());
    QVERIFY(!body(1) && !body(2));
}

void tst_MainWindow::deleteMeansWhatWasSelectedWhenItWasAsked()
{
    const int gone = session->kernel().create_body({}, "Gone");
    const int other = session->kernel().create_body({}, "Other");
    settle();
    click(body(2));
    click(body(gone), Qt::ControlModifier);
    QTest::keyClick(&view(), Qt::Key_Delete);
    const auto* const box = tree().findChild<QMessageBox*>("delete");
    QCOMPARE(box->text(), "Delete 2 bodies?");

    // The kernel goes on while the question stands.
    session->kernel().remove(EntityKind::BODY, gone);
    session->kernel().select_none();
    session->kernel().select(EntityKind::BODY, {1});
    box->defaultButton()->click();

    QVERIFY(!body(2));
    QVERIFY2(body(1) && body(other), "what nobody asked about was deleted");
    QCOMPARE(int(kernel_selection.size()), 1);
}

void tst_MainWindow::deleteCanBeCalledOff()
{
    click(body(2));
    QTest::keyClick(&view(), Qt::Key_Delete);
    QTest::keyClick(window->findChild<QMessageBox*>("delete"), Qt::Key_Escape);
    QVERIFY(body(2));
}

void tst_MainWindow::deleteInTheFilterDeletesText()
{
    click(body(1));
    QTest::keyClicks(filter(), "pl");
    QTest::keyClick(filter(), Qt::Key_Home);
    QTest::keyClick(filter(), Qt::Key_Delete);
    QCOMPARE(filter()->text(), "l");
    QVERIFY(!window->findChild<QMessageBox*>());
    QVERIFY(body(1));
}

void tst_MainWindow::hideAndShowTurnVisibility()
{
    click(body(1));
    QTest::keyClick(&view(), Qt::Key_H, Qt::ControlModifier);
    QVERIFY(!body(1)->is_visible());
    QVERIFY(body(2)->is_visible());
    QTest::keyClick(&view(), Qt::Key_H, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(body(1)->is_visible());
}

void tst_MainWindow::showOnlyTheseIsRestored()
{
    session->kernel().create_body({}, "Bolt");
    session->kernel().set_visible(EntityKind::BODY, 3, false);
    auto* const restore = window->findChild<QAction*>("restore");
    QVERIFY(!restore->isEnabled());

    click(body(1));
    QTest::keyClick(&view(), Qt::Key_I, Qt::ControlModifier);
    QVERIFY(body(1)->is_visible());
    QVERIFY(!body(2)->is_visible());
    QVERIFY(restore->isEnabled());

    QTest::keyClick(&view(), Qt::Key_I, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(body(1)->is_visible());
    QVERIFY(body(2)->is_visible());
    QVERIFY2(!body(3)->is_visible(), "what was hidden before is to be hidden again");
    QVERIFY(!restore->isEnabled());
}

void tst_MainWindow::actionsNeedASelection()
{
    for (const char* name : {"rename", "delete", "show", "hide", "show_only"}) {
        QVERIFY2(!window->findChild<QAction*>(name)->isEnabled(), name);
    }
    click(body(1));
    for (const char* name : {"rename", "delete", "show", "hide", "show_only"}) {
        QVERIFY2(window->findChild<QAction*>(name)->isEnabled(), name);
    }
}

void tst_MainWindow::selectionBecomesAnEntity_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("row");
    QTest::newRow("group") << "create_group"
                           << "New group(Lid)";
    QTest::newRow("block") << "create_block"
                           << "Blocks (1)(Block 1)";
    QTest::newRow("sideset") << "create_sideset"
                             << "Sidesets (2)(Outside Sideset 2)";
    QTest::newRow("nodeset") << "create_nodeset"
                             << "Nodesets (1)(Nodeset 1)";
    QTest::newRow("material") << "create_material"
                              << "Materials (1)(Material)";
    QTest::newRow("medium") << "create_media"
                            << "Media (1)(Media)";
    QTest::newRow("sizing source") << "create_sizing source"
                                   << "Mesh (1)(Sizing Source 1)";
    QTest::newRow("boundary layer") << "create_boundary layer"
                                    << "Mesh (1)(Boundary Layer)";
}

void tst_MainWindow::selectionBecomesAnEntity()
{
    QFETCH(QString, action);
    QFETCH(QString, row);
    click(body(2));
    auto* const create = window->findChild<QAction*>(action);
    QVERIFY2(create, qPrintable(action));
    create->trigger();
    settle();
    const QString shown = shown_tree(*view().model());
    QVERIFY2(shown.contains(row), qPrintable(shown));
    QCOMPARE(message(), "");
}

void tst_MainWindow::conditionOnSelectedSetHoldsIt()
{
    click(session->mirror().find_exodus(TreeExodusData::SIDESET, 1));
    window->findChild<QAction*>("create_pressure")->trigger();
    settle();
    const QString shown = shown_tree(*view().model());
    QVERIFY2(shown.contains("FEA boundary conditions (2)(Push(Outside) Pressure(Outside))"),
        qPrintable(shown));
}

void tst_MainWindow::selectedConditionIsAppliedToSelectedSets()
{
    session->kernel().create_set(EntityKind::NODESET, "Corners");
    auto* const apply = window->findChild<QAction*>("apply_condition");
    click(session->mirror().find_exodus(TreeExodusData::NODESET, 1));
    apply->trigger();
    QCOMPARE(message(), "Select one boundary condition and the sets that it is to apply to.");

    click(session->mirror().find_fea_bc(TreeFeaBCData::FORCE, 1), Qt::ControlModifier);
    apply->trigger();
    settle();
    const QString shown = shown_tree(*view().model());
    QVERIFY2(shown.contains("Push(Corners)"), qPrintable(shown));
}

void tst_MainWindow::refusedOperationIsToldAndChangesNothing()
{
    click(body(2));
    const QString before = shown_tree(*view().model());
    window->findChild<QAction*>("create_pressure")->trigger();
    settle();
    QCOMPARE(shown_tree(*view().model()), before);
    QVERIFY(!message().isEmpty());
}

void tst_MainWindow::branchesAreExpandedAndCollapsed()
{
    const QModelIndex geometry = view().model()->index(0, 0);
    view().setFocus();
    view().setCurrentIndex(geometry);
    QTest::keyClick(&view(), Qt::Key_Right, Qt::ControlModifier);
    const QModelIndex volume = view().model()->index(0, 0, view().model()->index(0, 0, geometry));
    QVERIFY(view().isExpanded(geometry));
    QVERIFY(view().isExpanded(volume));
    QVERIFY(!view().isExpanded(view().model()->index(1, 0)));

    QTest::keyClick(&view(), Qt::Key_Left, Qt::ControlModifier);
    QVERIFY(!view().isExpanded(geometry));
    view().expand(geometry);
    QVERIFY(!view().isExpanded(volume));
}

void tst_MainWindow::selectedRowsAreCopiedAsText()
{
    session->kernel().select(EntityKind::SURFACE, {1, 2});
    QTRY_COMPARE(tree().selection().selectedRows().size(), 3);
    click(body(2), Qt::ControlModifier);
    QTest::keyClick(&view(), Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QGuiApplication::clipboard()->text(), "    Seam  [surface 1]\n"
                                                   "    Surface 2  [surface 2]\n"
                                                   "Lid  [body 2]\n"
                                                   "    Seam  [surface 1]\n");
}

void tst_MainWindow::nameOfTwoLinesIsCopiedAsOne()
{
    session->kernel().create_body({}, "Two\nlines");
    click(body(3));
    QTest::keyClick(&view(), Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), "Two lines  [body 3]\n");
}

void tst_MainWindow::keyboardAloneReachesEachMenu()
{
    for (const QAction* menu : window->menuBar()->actions()) {
        QVERIFY2(menu->text().contains('&'), qPrintable(menu->text()));
        for (const QAction* action : menu->menu()->actions()) {
            QVERIFY2(action->isSeparator() || action->text().contains('&') ||
                         !action->shortcut().isEmpty() || action->menu(),
                qPrintable(action->text()));
        }
    }
}

void tst_MainWindow::contextMenuOpensByKeyAtTheCurrentRow()
{
    click(body(2));
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
    QApplication::sendEvent(view().viewport(), &event);
    auto* const menu = view().findChild<QMenu*>("tree_menu");
    QVERIFY2(menu, "no menu opened");
    const QPoint row = view().visualRect(view().currentIndex()).bottomLeft();
    QCOMPARE(menu->pos(), view().viewport()->mapToGlobal(row));
    menu->close();
}

void tst_MainWindow::contextMenuOfARecordWorksOnIt()
{
    choose(row_of(body(2)), "&Hide");
    QVERIFY(!body(2)->is_visible());
    choose(row_of(body(2)), "&Group");
    QCOMPARE(session->mirror().find_group_children(session->mirror().find_group(2)),
        std::vector<TreeData*>{body(2)});
}

void tst_MainWindow::contextMenuOfACategoryMakesOneOfItsKind()
{
    EntityItem* const blocks = tree().join().category(Category::Blocks);
    choose(tree().rows().index(blocks), "block");
    QVERIFY(session->mirror().find_exodus(TreeExodusData::BLOCK, 1));
}

void tst_MainWindow::contextMenuOfACategoryHidesIt()
{
    EntityItem* const blocks = tree().join().category(Category::Blocks);
    choose(tree().rows().index(blocks), "&Hide Category");
    QVERIFY(!shown_tree(*view().model()).contains("Blocks"));
    QVERIFY(!window->findChild<CategoryMenu*>()->is_shown(Category::Blocks));
}

void tst_MainWindow::categoriesAreHiddenAndShown()
{
    auto* const categories = window->findChild<CategoryMenu*>();
    const QString all = shown_tree(*view().model());
    categories->actions().at(int(Category::Geometry))->trigger();
    QVERIFY(shown_tree(*view().model()).startsWith("Groups (1)"));
    session->kernel().create_body({}, "Bolt");
    session->kernel().remove(EntityKind::BODY, 3);
    settle();

    categories->show_all();
    settle();
    QCOMPARE(shown_tree(*view().model()), all);
}

void tst_MainWindow::signalMonitorOpensByItsKey()
{
    const auto* const monitor = window->findChild<QDockWidget*>("signal_monitor");
    QVERIFY(!monitor->isVisible());
    QTest::keyClick(window.get(), Qt::Key_M, Qt::ControlModifier);
    QVERIFY(monitor->isVisible());
}

void tst_MainWindow::hiddenCategoriesAndDocksAreKept()
{
    window->findChild<CategoryMenu*>()->set_shown(Category::Media, false);
    window->show_signal_monitor();
    window->close();

    window = std::make_unique<MainWindow>(*session);
    window->restore_state();
    window->show();
    settle();
    QVERIFY(!window->findChild<CategoryMenu*>()->is_shown(Category::Media));
    QVERIFY(!shown_tree(*view().model()).contains("Media"));
    QVERIFY(window->findChild<QDockWidget*>("signal_monitor")->isVisible());
}

QTEST_MAIN(tst_MainWindow)
#include "tst_MainWindow.moc"
