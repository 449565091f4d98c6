#pragma once

#include <browser/items/CategoryManager.hpp>
#include <browser/window/FileActions.hpp>
#include <QMainWindow>

class CategoryMenu;
class CategoryViews;
class EditActions;
class KernelSession;
class QLabel;
class TreePane;

/// The browser's window: the tree of a session in the middle, the properties of what is
/// selected and the signal monitor in docks, and the menus to all that can be done.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// Keeps the reference.
    explicit MainWindow(KernelSession& session, QWidget* parent = nullptr);

    FileActions& files() { return *m_files; }
    TreePane& tree() { return *m_tree; }

    /// Brings size, docks and hidden categories back to what they were when a window was closed.
    void restore_state();

    void show_signal_monitor();

    /// In the status bar, for some seconds.
    void show_message(const QString& sentence);

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void create_docks();
    void create_file_menu();
    void create_edit_menus();
    void create_view_menu();
    void create_help_menu();
    void create_tool_bar();
    void create_status_bar();
    void take_in_opened(FileOpening::Mode mode);
    void show_selection();
    void show_about();

    KernelSession& m_session;
    TreePane* m_tree;
    CategoryManager m_manager;
    CategoryViews* m_views;
    QDockWidget* m_monitor_dock;
    EditActions* m_edit_actions;
    CategoryMenu* m_categories;
    FileActions* m_files;
    QLabel* m_selection_text;
};
