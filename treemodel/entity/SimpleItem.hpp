#pragma once

#include <treemodel/entity/EntityItem.hpp>

/// An item that owns all it shows: a name, a label for as long as the name is
/// empty, a type, an id, and whether a view may edit it.
class TREEMODEL_EXPORT SimpleItem : public EntityItem
{
public:
    /// An item with a label, no name, the id 0, not editable. Takes ownership of `list`,
    /// which may be null.
    SimpleItem(const QString& display, int type, EntityItemList* list);

    /// An item with neither label nor name, not editable. Takes ownership of `list`,
    /// which may be null.
    SimpleItem(int type, int id, EntityItemList* list);

    int getType() const override;
    int getId() const override;
    bool isEditable() const override;
    const QString& getName() const override;
    const QString& getDisplayName() const override;
    bool setDisplay(const QString& display) override;

    /// Write the field. Call EntityModel::updateEntity() afterwards.
    void setType(int type);
    void setId(int id);
    void setEditable(bool editable);

    /// Returns true if the name differs from the one before. An empty name shows the label.
    bool setName(const QString& name);

private:
    QString m_display;
    QString m_name;
    int m_type;
    int m_id = 0;
    bool m_editable = false;
};
