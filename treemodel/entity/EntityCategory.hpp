#pragma once

#include <treemodel/entity/EntityItem.hpp>

/// A top-level row with a place of its own: rows are ordered by category, then by
/// preferred index, numbers below 0 after all others.
class TREEMODEL_EXPORT EntityCategory : public SimpleItem
{
public:
    /// A row that shows `display` and has neither id nor child list: EntityItem::setList()
    /// gives it one.
    EntityCategory(const QString& display, int type, int category, int preferredIndex);

    int getCategory() const override;
    int getPreferredIndex() const override;

private:
    int m_category;
    int m_preferredIndex;
};
