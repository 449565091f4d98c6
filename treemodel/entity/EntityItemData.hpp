#pragma once

#include <functional>
#include <QList>
#include <QString>
#include <treemodel/treemodel_export.hpp>

class EntityItem;
class EntityModelInterface;

/// What all SharedItem nodes of one thing show: its name, label, type, id and visibility,
/// and which nodes those are.
///
/// The nodes register and unregister themselves. Neither side owns the other: the
/// data is the front end's, must outlive its nodes, and itemsEmpty() tells when the
/// last of them is gone. Setters tell nobody; call updateModel() afterwards.
class TREEMODEL_EXPORT EntityItemData
{
public:
    /// A visible thing without name, label and nodes.
    EntityItemData(int type, int id);

    /// The copy has the same nodes, which go on showing the original.
    EntityItemData(const EntityItemData&) = default;
    EntityItemData& operator=(const EntityItemData&) = default;

    /// Leaves the nodes alone.
    virtual ~EntityItemData();

    /// The name, or the label if that is empty. Every node shows what an override returns.
    virtual const QString& getDisplayName() const;

    /// What the nodes show. The name is the one of its own, which may be empty.
    int getType() const;
    int getId() const;
    const QString& getName() const;
    bool isVisible() const;

    /// Unlike the setters below, does not tell whether the id differs from the one before.
    void setId(int id);

    /// Each returns true if the value differs from the one before. A label compares
    /// with the label, whatever name covers it.
    bool setType(int type);
    bool setVisible(bool visible);
    bool setName(const QString& name);
    bool setDisplay(const QString& display);

    /// True if no node is registered.
    bool itemsEmpty() const;

    /// The node at position `i` in order of registration; `i` must be valid.
    EntityItem* getItem(int i) const;

    /// The first node that stands under `parent`, which may be null; null if there is none.
    EntityItem* findItem(EntityItem* parent) const;

    /// Registers a node, without a test for a second entry. SharedItem does this itself.
    void addItem(EntityItem* item);

    /// Removes all entries of a node. SharedItem does this itself.
    void removeItem(EntityItem* item);

    /// Calls `visit` for each node, first to last. It must not create or delete nodes of this data.
    void iterateItems(std::function<void(EntityItem*)> visit);

    /// Calls `visit` for each node, last to first. It may delete the node that it is given.
    void iterateItemsReverse(std::function<void(EntityItem*)> visit);

    /// Calls `model->update_item()` for each node, first to last. It must not create or delete
    /// nodes of this data.
    void updateModel(EntityModelInterface* model);

private:
    QString m_display;
    QList<EntityItem*> m_items; // Not owned
    QString m_name;
    int m_type;
    int m_id;
    bool m_visible = true;
};
