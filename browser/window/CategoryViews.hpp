#pragma once

#include <QDockWidget>
#include <vector>

class EntityCategoryManager;
class EntityItem;

/// The views that a category manager offers, each in a dock.
class CategoryViews : public QObject
{
    Q_OBJECT

public:
    /// Makes the docks, which are owned by `window`. `manager` is not owned and outlives them.
    CategoryViews(EntityCategoryManager& manager, QWidget* window);

    const std::vector<QDockWidget*>& docks() const { return m_docks; }

    /// Has the views show these items.
    void show_items(const std::vector<EntityItem*>& items);

private:
    /// One that is activated with each new selection.
    struct FollowingView
    {
        int number;
        QWidget* widget; // Owned by its dock
    };

    EntityCategoryManager& m_manager;
    std::vector<QDockWidget*> m_docks; // Owned by the window
    std::vector<FollowingView> m_views;
};
