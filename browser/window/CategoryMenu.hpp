#pragma once

#include <array>
#include <browser/items/ItemKind.hpp>
#include <QMenu>

class MirrorItems;

/// Shows and hides the categories of a tree.
class CategoryMenu : public QMenu
{
    Q_OBJECT

public:
    /// Keeps the reference.
    explicit CategoryMenu(MirrorItems& join, QWidget* parent = nullptr);

    bool is_shown(Category category) const;
    void set_shown(Category category, bool shown);
    void show_all();

    /// Hides what is hidden by the settings of the program, and shows the others.
    void restore();
    void save() const;

private:
    QAction* add_category(Category category);

    MirrorItems& m_join;
    std::array<QAction*, category_count> m_actions;
};
