#include <treemodel/entity/EntityCategoryManager.hpp>

EntityCategoryManager::~EntityCategoryManager() = default;

void EntityCategoryManager::set_offset(int delta)
{
    type_range.offset_ranges(delta);
}

int EntityCategoryManager::get_number_of_views() const
{
    return 0;
}

void EntityCategoryManager::get_view_label(int /*view*/, QString& /*label*/) const {}

QWidget* EntityCategoryManager::create_view_widget(int /*view*/, bool& /*flag*/)
{
    return nullptr;
}

void EntityCategoryManager::activate_view(
    int /*view*/, QWidget* /*widget*/, const std::vector<EntityItem*>& /*items*/)
{
}

void EntityCategoryManager::deactivate_view(int /*view*/) {}
