#include <treemodel/entity/EntityCategories.hpp>

#include <treemodel/entity/SortedChildren.hpp>

int EntityCategories::findInsertIndex(EntityItem* item, int /*column*/, bool /*ascending*/) const
{
    return insert_index<CategoryKey>(children(), item, true);
}
