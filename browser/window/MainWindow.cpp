#include <browser/window/MainWindow.hpp>

#include <browser/KernelSession.hpp>
#include <browser/window/ActionRow.hpp>
#include <browser/window/CategoryMenu.hpp>
#include <browser/window/CategoryViews.hpp>
#include <browser/window/EditActions.hpp>
#include <browser/window/EntityView.hpp>
#include <browser/window/ProgressStrip.hpp>
#include <browser/window/RowDelegate.hpp>
#include <browser/window/SelectionCounts.hpp>
#include <browser/window/SignalMonitor.hpp>
#include <browser/window/TreeMenu.hpp>
#include <browser/window/TreePane.hpp>
#include <QApplication>
#include <QCloseEvent>
#include <QDockWidget>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QSettings>
#include <QStatusBar>
#include <QToolBar>

namespace {

constexpr const char* geometry_key = "window/geometry";
constexpr const char* state_key = "window/state";
constexpr int message_milliseconds = 8000;
// Of a new model the categories and what is in them.
constexpr int first_levels = 2;

// The one file that is dragged; empty if it is something else.
QString dragged_file(const QMimeData* data)
{
    const QList<QUrl> urls = data->urls();
    return urls.size() == 1 ? urls.constFirst().toLocalFile() : QString();
}

} // namespace

MainWindow::MainWindow(KernelSession& session, QWidget* parent)
    : QMainWindow(parent)
    , m_session(session)
    , m_tree(new TreePane(session.mirror()))
    , m_manager(m_tree->join())
    , m_edit_actions(new EditActions(session.kernel(), *m_tree, session.mirror()))
    , m_files(new FileActions(session.kernel(), this))
{
    setWindowIcon(QIcon(":/treebrowser/window/treebrowser.svg"));
    setWindowFilePath({});
    setCentralWidget(m_tree);
    setAcceptDrops(true);
    resize(1100, 720);
    create_docks();
    create_file_menu();
    create_edit_menus();
    create_view_menu();
    create_help_menu();
    create_tool_bar();
    create_status_bar();
    new TreeMenu(*m_tree, *m_edit_actions, *m_categories);
    for (QTreeView* view : findChildren<QTreeView*>()) {
        view->setItemDelegate(new RowDelegate(view));
    }
    m_tree->view()->setFocus();
}

void MainWindow::create_docks()
{
    m_views = new CategoryViews(m_manager, this);
    for (QDockWidget* dock : m_views->docks()) {
        addDockWidget(Qt::RightDockWidgetArea, dock);
        resizeDocks({dock}, {width() / 3}, Qt::Horizontal);
    }
    m_monitor_dock = new QDockWidget(tr("Signal Monitor"));
    m_monitor_dock->setObjectName("signal_monitor");
    m_monitor_dock->setWidget(new SignalMonitor(m_session.mirror()));
    m_monitor_dock->hide();
    m_monitor_dock->toggleViewAction()->setShortcut(QKeySequence("Ctrl+M"));
    addDockWidget(Qt::BottomDockWidgetArea, m_monitor_dock);
}

void MainWindow::create_file_menu()
{
    QMenu* const menu = menuBar()->addMenu(tr("&File"));
    m_files->fill_menu(menu);
    connect(m_files, &FileActions::opened, this, &MainWindow::take_in_opened);
    connect(m_files, &FileActions::told, this, &MainWindow::show_message);
    menu->addSeparator();
    QAction* const quit = menu->addAction(tr("&Quit"), this, &QWidget::close);
    quit->setShortcut(QKeySequence("Ctrl+Q"));
}

void MainWindow::create_edit_menus()
{
    m_edit_actions->fill_edit_menu(menuBar()->addMenu(tr("&Edit")));
    m_edit_actions->fill_create_menu(menuBar()->addMenu(tr("&Create")));
    connect(m_edit_actions, &EditActions::refused, this, &MainWindow::show_message);
}

void MainWindow::create_view_menu()
{
    using Row = ActionRow<TreePane>;
    static constexpr std::array rows{
        Row{"find", QT_TRANSLATE_NOOP("TreePane", "&Find\tCtrl+F"), "", &TreePane::edit_filter},
        Row{},
        Row{"expand", QT_TRANSLATE_NOOP("TreePane", "&Expand Branch"), "Ctrl+Right",
            &TreePane::expand_branch, ":/treebrowser/window/expand.svg"},
        Row{"collapse", QT_TRANSLATE_NOOP("TreePane", "C&ollapse Branch"), "Ctrl+Left",
            &TreePane::collapse_branch, ":/treebrowser/window/collapse.svg"},
        Row{"go_to_selection", QT_TRANSLATE_NOOP("TreePane", "&Go to Selection"), "Ctrl+J",
            &TreePane::go_to_selection, ":/treebrowser/window/goto.svg"},
    };
    QMenu* const menu = menuBar()->addMenu(tr("&View"));
    add_actions(menu, m_tree, std::span<const Row>(rows));

    QAction* const follow = menu->addAction(tr("Fo&llow Selection"));
    follow->setObjectName("follow_selection");
    follow->setCheckable(true);
    connect(follow, &QAction::toggled, this,
        [this](bool follows) { m_tree->selection().set_following(follows); });

    menu->addSeparator();
    m_categories = new CategoryMenu(m_tree->join(), this);
    menu->addMenu(m_categories);
    menu->addSeparator();
    for (const QDockWidget* dock : m_views->docks()) {
        menu->addAction(dock->toggleViewAction());
    }
    menu->addAction(m_monitor_dock->toggleViewAction());
}

void MainWindow::create_help_menu()
{
    QMenu* const menu = menuBar()->addMenu(tr("&Help"));
    menu->addAction(tr("&About treebrowser"), this, &MainWindow::show_about);
}

void MainWindow::create_tool_bar()
{
    QToolBar* const bar = addToolBar(tr("Tools"));
    bar->setObjectName("tools");
    bar->addAction(findChild<QAction*>("open"));
    bar->addSeparator();
    for (const char* name : {"show", "hide", "show_only", "restore", "delete"}) {
        bar->addAction(m_edit_actions->action(name));
    }
    bar->addSeparator();
    for (const ItemKind kind :
        {ItemKind::Group, ItemKind::Block, ItemKind::Sideset, ItemKind::Nodeset}) {
        bar->addAction(m_edit_actions->create_action(kind));
    }
    bar->addSeparator();
    for (const char* name : {"expand", "collapse", "go_to_selection"}) {
        bar->addAction(m_tree->findChild<QAction*>(name));
    }
}

void MainWindow::create_status_bar()
{
    m_selection_text = new QLabel;
    m_selection_text->setObjectName("selection_text");
    statusBar()->addPermanentWidget(m_selection_text);
    for (ProgressStrip* strip : m_files->progress_strips()) {
        statusBar()->addPermanentWidget(strip);
    }
    connect(
        &m_tree->selection(), &SelectionLink::records_changed, this, &MainWindow::show_selection);
}

void MainWindow::restore_state()
{
    const QSettings settings;
    restoreGeometry(settings.value(geometry_key).toByteArray());
    restoreState(settings.value(state_key).toByteArray());
    m_categories->restore();
    m_files->restore();
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    QSettings settings;
    settings.setValue(geometry_key, saveGeometry());
    settings.setValue(state_key, saveState());
    m_categories->save();
    m_files->save();
    QMainWindow::closeEvent(event);
}

void MainWindow::show_signal_monitor()
{
    m_monitor_dock->show();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (!dragged_file(event->mimeData()).isEmpty()) {
        event->acceptProposedAction();
    }
}

void MainWindow::dropEvent(QDropEvent* event)
{
    m_files->open(dragged_file(event->mimeData()), FileOpening::Replace);
    event->acceptProposedAction();
}

void MainWindow::take_in_opened(FileOpening::Mode mode)
{
    if (mode == FileOpening::Replace) {
        setWindowFilePath(m_files->opening().file());
        m_tree->show_levels(first_levels);
    }
}

void MainWindow::show_selection()
{
    const std::vector<TreeData*> records = m_tree->selection().records();
    const SelectionCounts counts(records);
    m_selection_text->setText(
        counts.total() > 0 ? tr("Selected: %1").arg(counts.text()) : QString());

    std::vector<EntityItem*> items;
    for (TreeData* record : records) {
        const std::vector<EntityItem*> places = m_tree->join().places(record);
        items.insert(items.end(), places.begin(), places.begin() + !places.empty());
    }
    m_views->show_items(items);
}

void MainWindow::show_message(const QString& sentence)
{
    statusBar()->showMessage(sentence, message_milliseconds);
}

void MainWindow::show_about()
{
    auto* const box = new QMessageBox(QMessageBox::Information, tr("About treebrowser"),
        tr("treebrowser %1").arg(QApplication::applicationVersion()), QMessageBox::Ok, this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setInformativeText(tr("Shows what a geometry kernel holds as a live tree."));
    box->open();
}
