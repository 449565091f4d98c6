#pragma once

#include <treemodel/entity/EntityItem.hpp>

/// An item that shows an EntityItemData. Several of them, in different places of a
/// tree, can stand over one data and so have one name, one id and one visibility.
///
/// Always editable. A copy shows the same data but is not registered with it.
class TREEMODEL_EXPORT SharedItem : public EntityItem
{
public:
    /// Registers with `data`, which is not owned, not null and outlives the item.
    /// Takes ownership of `list`, which may be null.
    SharedItem(EntityItemData* data, EntityItemList* list);

    /// Not registered with the data that it shows.
    SharedItem(const SharedItem&) = default;
    SharedItem& operator=(const SharedItem&) = default;

    /// Leaves the data's list of items first; the children go after that.
    ~SharedItem() override;

    EntityItemData* getData() override;
    int getType() const override;
    int getId() const override;
    bool isEditable() const override;
    const QString& getName() const override;
    const QString& getDisplayName() const override;
    bool setDisplay(const QString& display) override;
    bool isVisible() const override;

private:
    EntityItemData* m_data; // Not owned
};
