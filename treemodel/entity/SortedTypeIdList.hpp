#pragma once

#include <treemodel/entity/EntityItemList.hpp>

/// @file

/// Children sorted by display name, as SortedEntityList does, or by type and then id.
class TREEMODEL_EXPORT SortedTypeIdList : public EntityItemList
{
public:
    int findInsertIndex(EntityItem* item, int column, bool ascending) const override;
    int findUpdatedIndex(int row, int column, bool ascending) const override;
    void sortChildren(int column, bool ascending) override;
};

/// The order of SortedTypeIdList by type and id, ascending: true if `a` goes before `b`.
/// A null item goes last.
TREEMODEL_EXPORT bool entity_compare_by_type_id(const EntityItem* a, const EntityItem* b);
