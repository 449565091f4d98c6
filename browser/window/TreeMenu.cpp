#include <browser/window/TreeMenu.hpp>

#include <browser/window/CategoryMenu.hpp>
#include <browser/window/EditActions.hpp>
#include <browser/window/EntityView.hpp>
#include <browser/window/TreePane.hpp>

TreeMenu::TreeMenu(TreePane& tree, EditActions& actions, CategoryMenu& categories)
    : QObject(&tree)
    , m_tree(tree)
    , m_actions(actions)
    , m_categories(categories)
{
    connect(tree.view(), &EntityView::menu_wanted, this, &TreeMenu::open);
}

void TreeMenu::update_item(EntityItem* item)
{
    m_tree.join().update_item(item);
}

const std::string& TreeMenu::get_type_name(int type)
{
    return m_tree.join().get_type_name(type);
}

void TreeMenu::create_new_item_action(
    EntityItem* /*item*/, int type, QMenu* menu, const QString& text, const char* icon_path)
{
    if (QAction* const create = m_actions.create_action(ItemKind(type))) {
        QAction* const action = menu->addAction(QIcon(QLatin1String(icon_path)), text);
        connect(action, &QAction::triggered, create, &QAction::trigger);
    }
}

void TreeMenu::create_refresh_action(QMenu* menu)
{
    menu->addAction(m_actions.action("refresh"));
}

void TreeMenu::create_rename_action(QMenu* menu)
{
    menu->addAction(m_actions.action("rename"));
}

void TreeMenu::create_collapse_action(QMenu* menu)
{
    menu->addAction(m_tree.findChild<QAction*>("collapse"));
}

void TreeMenu::open(const QPoint& position)
{
    auto* const menu = new QMenu(m_tree.view());
    menu->setObjectName("tree_menu");
    menu->setAttribute(Qt::WA_DeleteOnClose);
    EntityItem* const item = m_tree.current_item();
    const bool is_category = item && !m_tree.join().record(item);
    if (is_category) {
        fill_for_category(menu, item);
    } else {
        fill_for_records(menu);
    }
    menu->addSeparator();
    menu->addAction(m_tree.findChild<QAction*>("expand"));
    create_collapse_action(menu);
    create_refresh_action(menu);
    menu->popup(position);
}

void TreeMenu::fill_for_category(QMenu* menu, EntityItem* item)
{
    const auto category = Category(item->getType() - int(ItemKind::FirstCategory));
    QMenu* const create = menu->addMenu(tr("&New"));
    for (int type = 0; type < int(ItemKind::FirstCategory); ++type) {
        const ItemKindInfo& info = item_kind_info(ItemKind(type));
        if (info.category == category) {
            create_new_item_action(item, type, create, info.name, info.icon.c_str());
        }
    }
    create->setEnabled(!create->isEmpty());
    menu->addAction(
        tr("&Hide Category"), this, [this, category] { m_categories.set_shown(category, false); });
}

void TreeMenu::fill_for_records(QMenu* menu)
{
    create_rename_action(menu);
    for (const char* name : {"show", "hide", "show_only", "restore", "copy", "delete"}) {
        menu->addAction(m_actions.action(name));
    }
    menu->addSeparator();
    m_actions.fill_create_menu(menu->addMenu(tr("&New")));
}
