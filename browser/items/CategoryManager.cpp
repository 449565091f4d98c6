#include <browser/items/CategoryManager.hpp>

#include <browser/items/ItemKind.hpp>
#include <browser/items/PropertiesView.hpp>

namespace {

constexpr int properties = 0;
constexpr int view_count = 1;

} // namespace

CategoryManager::CategoryManager(MirrorItems& join)
    : m_join(join)
{
    type_range = item_kind_blocks();
}

int CategoryManager::get_number_of_views() const
{
    return view_count;
}

void CategoryManager::get_view_label(int view, QString& label) const
{
    if (view == properties) {
        label = PropertiesView::tr("Properties");
    }
}

QWidget* CategoryManager::create_view_widget(int view, bool& flag)
{
    if (view != properties) {
        return nullptr;
    }
    flag = true;
    return new PropertiesView(m_join);
}

void CategoryManager::activate_view(
    int view, QWidget* widget, const std::vector<EntityItem*>& items)
{
    auto* shown = qobject_cast<PropertiesView*>(widget);
    if (view == properties && shown) {
        m_active = shown;
        shown->show_items(items);
    }
}

void CategoryManager::deactivate_view(int view)
{
    if (view == properties && m_active) {
        m_active->show_items({});
        m_active.clear();
    }
}
