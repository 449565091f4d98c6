#include <browser/window/CategoryViews.hpp>

#include <QAction>
#include <treemodel/entity/EntityCategoryManager.hpp>

CategoryViews::CategoryViews(EntityCategoryManager& manager, QWidget* window)
    : QObject(window)
    , m_manager(manager)
{
    for (int view = 0; view < manager.get_number_of_views(); ++view) {
        QString label;
        bool follows_selection = false;
        manager.get_view_label(view, label);
        QWidget* const widget = manager.create_view_widget(view, follows_selection);

        auto* const dock = new QDockWidget(label, window);
        dock->setObjectName(label);
        dock->setWidget(widget);
        dock->toggleViewAction()->setShortcut(
            QKeySequence(QStringLiteral("Ctrl+%1").arg(view + 1)));
        m_docks.push_back(dock);
        if (follows_selection) {
            m_views.push_back({view, widget});
        }
    }
}

void CategoryViews::show_items(const std::vector<EntityItem*>& items)
{
    for (const FollowingView& view : m_views) {
        if (items.empty()) {
            m_manager.deactivate_view(view.number);
        } else {
            m_manager.activate_view(view.number, view.widget, items);
        }
    }
}
