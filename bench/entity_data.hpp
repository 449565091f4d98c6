#pragma once

#include <memory>
#include <QModelIndex>
#include <QString>
#include <vector>

class EntityItem;
class EntityModel;
class QAbstractItemModel;
class QStandardItem;
class QStandardItemModel;
class QTreeView;
class QTreeWidget;

/// How many items there are and how they hang together.
struct Shape
{
    enum Kind {
        Flat, ///< One parent with all items under it.
        Tree, ///< 100 parents with 100 parents each, and the items under those.
        Wide, ///< As many parents as leaves, one leaf each.
    };

    Kind kind;
    int size;
};

/// What the items show: "Volume <n>" with n in random order, and a rising id. The same for
/// everyone who is measured.
const std::vector<QString>& volume_names(int size);

/// Names to rename items by, spread like the first ones and different from all of them.
const std::vector<QString>& other_names(int size);

/// `count` different positions below `size`, in random order.
std::vector<int> random_positions(int size, int count);

/// A model and its items.
struct EntityWorld
{
    EntityWorld();
    EntityWorld(EntityWorld&&) noexcept;
    ~EntityWorld();

    std::unique_ptr<EntityModel> model;
    EntityItem* parent = nullptr;    ///< The last one made; of all leaves, where the shape is flat.
    std::vector<EntityItem*> leaves; ///< In order of ids. Owned by the model.
};

/// The same as QStandardItemModel. Never destroyed, but by the owner of a tree: that takes time
/// quadratic in siblings.
struct StandardWorld
{
    QStandardItemModel* model = nullptr;
    QStandardItem* parent = nullptr;
    std::vector<QStandardItem*> leaves;
};

/// Fills a model that keeps its rows in order of `column` meanwhile.
EntityWorld fill_entities(Shape shape, int column);

/// Appends everything, then sorts once.
StandardWorld fill_standard(Shape shape, int column);

/// Hangs everything together outside of the widget, then sorts once.
std::unique_ptr<QTreeWidget> fill_widget(Shape shape, int column);

/// Filled models in order of `column`, the quickest way to them. Those of Qt are kept for the next
/// caller, who may get them with other names and rows than they began with.
EntityWorld make_entities(Shape shape, int column);
StandardWorld& make_standard(Shape shape, int column);
QTreeWidget& make_widget(Shape shape);

/// The items of a flat shape in a plain vector, in order of `column`. Owned by the caller.
std::vector<EntityItem*> make_items(int size, int column);

/// A view that shows the children of `parent`.
std::unique_ptr<QTreeView> make_view(QAbstractItemModel* model, const QModelIndex& parent);
