#include <browser/window/CategoryMenu.hpp>

#include <browser/items/MirrorItems.hpp>
#include <QSettings>
#include <treemodel/entity/EntityModel.hpp>

namespace {

constexpr const char* settings_key = "window/hidden_categories";

// By its word, which stays when a category is added.
QString settings_name(Category category)
{
    return QString::fromStdString(item_kind_info(item_kind(category)).word);
}

} // namespace

CategoryMenu::CategoryMenu(MirrorItems& join, QWidget* parent)
    : QMenu(tr("&Categories"), parent)
    , m_join(join)
{
    for (int category = 0; category < category_count; ++category) {
        m_actions[static_cast<std::size_t>(category)] = add_category(Category(category));
    }
    addSeparator();
    addAction(tr("Show &All"), this, &CategoryMenu::show_all)->setObjectName("show_all_categories");
}

QAction* CategoryMenu::add_category(Category category)
{
    const ItemKindInfo& info = item_kind_info(item_kind(category));
    QAction* const action = addAction(QIcon(QString::fromStdString(info.icon)), info.plural);
    action->setCheckable(true);
    action->setChecked(true);
    connect(action, &QAction::toggled, this, [this, category](bool shown) {
        EntityItem* const item = m_join.category(category);
        shown ? m_join.items().showCategory(item) : m_join.items().hideCategory(item);
    });
    return action;
}

bool CategoryMenu::is_shown(Category category) const
{
    return m_actions[static_cast<std::size_t>(category)]->isChecked();
}

void CategoryMenu::set_shown(Category category, bool shown)
{
    m_actions[static_cast<std::size_t>(category)]->setChecked(shown);
}

void CategoryMenu::show_all()
{
    for (QAction* action : m_actions) {
        action->setChecked(true);
    }
}

void CategoryMenu::restore()
{
    const QStringList hidden = QSettings().value(settings_key).toStringList();
    for (int category = 0; category < category_count; ++category) {
        set_shown(Category(category), !hidden.contains(settings_name(Category(category))));
    }
}

void CategoryMenu::save() const
{
    QStringList hidden;
    for (int category = 0; category < category_count; ++category) {
        if (!is_shown(Category(category))) {
            hidden << settings_name(Category(category));
        }
    }
    QSettings().setValue(settings_key, hidden);
}
