#include <treemodel/entity/SortedTypeIdList.hpp>

#include <treemodel/entity/SortedChildren.hpp>

using Sorted = SortedByColumn<TypeIdKey>;

int SortedTypeIdList::findInsertIndex(EntityItem* item, int column, bool ascending) const
{
    return Sorted::insertIndex(children(), item, column, ascending);
}

int SortedTypeIdList::findUpdatedIndex(int row, int column, bool ascending) const
{
    return Sorted::updatedIndex(children(), row, column, ascending);
}

void SortedTypeIdList::sortChildren(int column, bool ascending)
{
    Sorted::sort(children(), column, ascending);
}

bool entity_compare_by_type_id(const EntityItem* a, const EntityItem* b)
{
    if (!a || a == b) {
        return false;
    }
    return !b || TypeIdKey(a) < TypeIdKey(b);
}
