#include <treemodel/entity/SortedEntityList.hpp>

#include <treemodel/entity/SortedChildren.hpp>

using Sorted = SortedByColumn<IdKey>;

int SortedEntityList::findInsertIndex(EntityItem* item, int column, bool ascending) const
{
    return Sorted::insertIndex(children(), item, column, ascending);
}

int SortedEntityList::findUpdatedIndex(int row, int column, bool ascending) const
{
    return Sorted::updatedIndex(children(), row, column, ascending);
}

void SortedEntityList::sortChildren(int column, bool ascending)
{
    Sorted::sort(children(), column, ascending);
}
