#pragma once

#include <QStringList>
#include <treemodel/entity/EntityCategory.hpp>
#include <treemodel/entity/EntityModel.hpp>

struct NoIcons : EntityIconFactory
{
    const char* getIconPath(EntityItem* /*item*/) override { return ""; }
};

/// A new child of `parent`, at top level if that is null, which can have children itself.
inline SimpleItem* add_item(EntityModel& items, EntityItem* parent, const QString& name, int id = 0)
{
    auto* item = new SimpleItem(name, 1, new SortedEntityList);
    item->setId(id);
    items.addEntity(parent, item);
    return item;
}

inline EntityItem* add_heading(EntityModel& items, const QString& name, int place = 0)
{
    auto* heading = new EntityCategory(name, 1, place, 0);
    heading->setList(new SortedEntityList);
    items.addEntity(nullptr, heading);
    return heading;
}

/// The rows of a model as "Wheel(Rim Tyre(Valve)) Axle".
inline QString shown_tree(const QAbstractItemModel& model, const QModelIndex& parent = {})
{
    QStringList texts;
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        const QString below = shown_tree(model, index);
        texts << index.data().toString() + (below.isEmpty() ? below : u'(' + below + u')');
    }
    return texts.join(u' ');
}
