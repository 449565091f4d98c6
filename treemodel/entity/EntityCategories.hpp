#pragma once

#include <treemodel/entity/EntityItemList.hpp>

/// The top-level rows of an EntityModel: ordered by EntityItem::getCategory(), then
/// EntityItem::getPreferredIndex(), negative numbers last, whatever column is sorted by.
class EntityCategories : public EntityItemList
{
public:
    int findInsertIndex(EntityItem* item, int column, bool ascending) const override;
};
