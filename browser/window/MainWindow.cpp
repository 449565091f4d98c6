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
#include <QDir>
#include <QDockWidget>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileDialog>
#include <QFileInfo>
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
    , m_opening(session.kernel())
    , m_tree(new TreePane(session.mirror()))
    , m_manager(m_tree->join())
    , m_edit_actions(new EditActions(session.kernel(), *m_tree, session.mirror()))
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
    follow_opening();
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
    using Row = ActionRow<MainWindow>;
    static constexpr std::array rows{
        Row{"open", QT_TR_NOOP("&Open…"), "Ctrl+O", &MainWindow::choose_file_to_open,
            ":/treebrowser/window/open.svg"},
        Row{"add", QT_TR_NOOP("&Add File…"), "Ctrl+Shift+O", &MainWindow::choose_file_to_add},
    };
    QMenu* const menu = menuBar()->addMenu(tr("&File"));
    add_actions(menu, this, std::span<const Row>(rows));

    QMenu* const recent = menu->addMenu(tr("Open &Recent"));
    recent->setToolTipsVisible(true);
    m_recent_files.fill(recent);
    connect(&m_recent_files, &RecentFiles::chosen, this, &MainWindow::open_file);

    menu->addSeparator();
    QAction* const quit = menu->addAction(tr("&Quit"), this, &QWidget::close);
    quit->setShortcut(QKeySequence("Ctrl+Q"));
}

void MainWindow::create_edit_menus()
{
    m_edit_actions->fill_edit_menu(menuBar()->addMenu(tr("&Edit")));
    m_edit_actions->fill_create_menu(menuBar()->addMenu(tr("&Create")));
    connect(m_edit_actions, &EditActions::refused, this, [this](const QString& sentence) {
        statusBar()->showMessage(sentence, message_milliseconds);
    });
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
    m_progress = new ProgressStrip;
    statusBar()->addPermanentWidget(m_selection_text);
    statusBar()->addPermanentWidget(m_progress);
    connect(
        &m_tree->selection(), &SelectionLink::records_changed, this, &MainWindow::show_selection);
}

void MainWindow::follow_opening()
{
    connect(&m_opening, &FileOpening::started, this,
        [this] { m_progress->begin(QFileInfo(m_opening.file()).fileName()); });
    connect(&m_opening.job(), &ImportJob::progress, m_progress, &ProgressStrip::set_progress);
    connect(m_progress, &ProgressStrip::cancel_clicked, &m_opening.job(), &ImportJob::cancel);
    connect(&m_opening, &FileOpening::opened, this, &MainWindow::take_in_opened);
    connect(&m_opening, &FileOpening::failed, this, [this](const QString& sentence) {
        m_progress->end();
        show_error(sentence);
    });
    connect(&m_opening, &FileOpening::cancelled, this, [this] {
        m_progress->end();
        statusBar()->showMessage(m_opening.job().error_text(), message_milliseconds);
    });
}

void MainWindow::restore_state()
{
    const QSettings settings;
    restoreGeometry(settings.value(geometry_key).toByteArray());
    restoreState(settings.value(state_key).toByteArray());
    m_categories->restore();
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    QSettings settings;
    settings.setValue(geometry_key, saveGeometry());
    settings.setValue(state_key, saveState());
    m_categories->save();
    QMainWindow::closeEvent(event);
}

void MainWindow::open_file(const QString& file)
{
    m_opening.open(file, FileOpening::Replace);
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
    open_file(dragged_file(event->mimeData()));
    event->acceptProposedAction();
}

void MainWindow::choose_file_to_open()
{
    choose_file(tr("Open a Model"), FileOpening::Replace);
}

void MainWindow::choose_file_to_add()
{
    choose_file(tr("Add a Model"), FileOpening::Add);
}

void MainWindow::choose_file(const QString& title, FileOpening::Mode mode)
{
    auto* const dialog = new QFileDialog(this, title);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setNameFilters({tr("Models (*.step *.stp *.iges *.igs *.brep)"), tr("All files (*)")});
    const QStringList recent = m_recent_files.files();
    if (!recent.isEmpty()) {
        dialog->setDirectory(QFileInfo(recent.constFirst()).absolutePath());
    }
    connect(dialog, &QFileDialog::fileSelected, this,
        [this, mode](const QString& file) { m_opening.open(file, mode); });
    dialog->open();
}

void MainWindow::take_in_opened(FileOpening::Mode mode)
{
    m_progress->end();
    m_recent_files.add(m_opening.file());
    if (mode == FileOpening::Replace) {
        setWindowFilePath(m_opening.file());
        m_tree->show_levels(first_levels);
    }
    statusBar()->showMessage(
        tr("Opened %1").arg(QDir::toNativeSeparators(m_opening.file())), message_milliseconds);
    show_warnings();
}

void MainWindow::show_warnings()
{
    const QStringList warnings = m_opening.warnings();
    if (warnings.isEmpty()) {
        return;
    }
    auto* const box = new QMessageBox(QMessageBox::Warning, tr("Open a Model"),
        tr("%1 was read with %n warning(s).", nullptr, static_cast<int>(warnings.size()))
            .arg(QFileInfo(m_opening.file()).fileName()),
        QMessageBox::Ok, this);
    box->setObjectName("warnings");
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setInformativeText(warnings.constFirst());
    box->setDetailedText(warnings.join(QLatin1Char('\n')));
    box->open();
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

void MainWindow::show_error(const QString& sentence)
{
    auto* const box =
        new QMessageBox(QMessageBox::Critical, tr("Open a Model"), sentence, QMessageBox::Ok, this);
    box->setObjectName("error");
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

void MainWindow::show_about()
{
    QMessageBox::about(this, tr("About treebrowser"),
        tr("treebrowser %1\n\nShows what a geometry kernel holds as a live tree.")
            .arg(QApplication::applicationVersion()));
}
