#pragma once

#include <treemodel/entity/EntityItemList.hpp>

/// Children sorted by display name, or by id and, where ids are equal, by display name.
///
/// Names compare by their UTF-16 code units: "Z" goes before "a" and "10" before "2".
class TREEMODEL_EXPORT SortedEntityList : public EntityItemList
{
public:
    int findInsertIndex(EntityItem* item, int column, bool ascending) const override;
    int findUpdatedIndex(int row, int column, bool ascending) const override;
    void sortChildren(int column, bool ascending) override;
};
