#pragma once

#include <QMenu>
#include <QObject>
#include <treemodel/entity/EntityModelInterface.hpp>

class CategoryMenu;
class EditActions;
class TreePane;

/// The context menu of the tree. As the tree's model interface it puts the entries that every
/// menu of the tree may have into the menus of others, too.
class TreeMenu : public QObject, public EntityModelInterface
{
    Q_OBJECT

public:
    /// Keeps the references.
    TreeMenu(TreePane& tree, EditActions& actions, CategoryMenu& categories);

    void update_item(EntityItem* item) override;
    const std::string& get_type_name(int type) override;

    /// An entry that makes a new entity of that type out of what is selected.
    void create_new_item_action(EntityItem* item, int type, QMenu* menu, const QString& text,
        const char* icon_path) override;
    void create_refresh_action(QMenu* menu) override;
    void create_rename_action(QMenu* menu) override;
    void create_collapse_action(QMenu* menu) override;

private:
    void open(const QPoint& position);
    void fill_for_category(QMenu* menu, EntityItem* item);
    void fill_for_records(QMenu* menu);

    TreePane& m_tree;
    EditActions& m_actions;
    CategoryMenu& m_categories;
};
