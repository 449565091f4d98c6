#include "entity_data.hpp"

#include <algorithm>
#include <map>
#include <numeric>
#include <QCoreApplication>
#include <QHeaderView>
#include <QStandardItemModel>
#include <QTreeView>
#include <QTreeWidget>
#include <random>
#include <treemodel/entity/EntityCategory.hpp>
#include <treemodel/entity/EntityModel.hpp>
#include <treemodel/entity/SimpleItem.hpp>
#include <treemodel/entity/SortedEntityList.hpp>
#include <utility>

namespace {

constexpr int branches = 100;

std::vector<int> shuffled(int size, int first, int step, unsigned seed)
{
    std::vector<int> numbers(size);
    std::iota(numbers.begin(), numbers.end(), 0);
    std::shuffle(numbers.begin(), numbers.end(), std::mt19937(seed));
    for (int& number : numbers) {
        number = first + step * number;
    }
    return numbers;
}

std::vector<QString> make_names(int size, int first, unsigned seed)
{
    std::vector<QString> names;
    names.reserve(size);
    for (int number : shuffled(size, first, 2, seed)) {
        names.push_back("Volume " + QString::number(number));
    }
    return names;
}

/// Calls `branch(name)` for each parent and `leaf(parent, name, id)` for each item of a
/// shape, a parent before its children. `branch` takes the parent's parent as well.
template <class Node, class Branch, class Leaf>
void build(Shape shape, Node* root, Branch branch, Leaf leaf)
{
    const std::vector<QString>& names = volume_names(shape.size);
    if (shape.kind == Shape::Flat) {
        Node* parent = branch(root, "Volumes");
        for (int i = 0; i < shape.size; ++i) {
            leaf(parent, names[i], i + 1);
        }
    } else if (shape.kind == Shape::Wide) {
        for (int i = 0; i < shape.size / 2; ++i) {
            const std::size_t name = 2 * std::size_t(i);
            leaf(branch(root, names[name]), names[name + 1], i + 1);
        }
    } else {
        const int count = shape.size / (branches * branches);
        int made = 0;
        for (int i = 0; i < branches; ++i) {
            Node* upper = branch(root, names[i]);
            for (int j = 0; j < branches; ++j) {
                Node* parent = branch(upper, names[branches + j]);
                for (int k = 0; k < count; ++k, ++made) {
                    leaf(parent, names[made], made + 1);
                }
            }
        }
    }
}

SimpleItem* new_item(const QString& name, int id, EntityItemList* list = nullptr)
{
    auto* item = new SimpleItem(1, id, list);
    item->setName(name);
    return item;
}

QList<QStandardItem*> new_row(const QString& name, int id)
{
    auto* number = new QStandardItem;
    number->setData(id, Qt::DisplayRole);
    return {new QStandardItem(name), number};
}

} // namespace

const std::vector<QString>& volume_names(int size)
{
    static std::map<int, std::vector<QString>> known;
    std::vector<QString>& names = known[size];
    if (names.empty()) {
        names = make_names(size, 0, 1);
    }
    return names;
}

const std::vector<QString>& other_names(int size)
{
    static std::map<int, std::vector<QString>> known;
    std::vector<QString>& names = known[size];
    if (names.empty()) {
        names = make_names(size, 1, 2);
    }
    return names;
}

std::vector<int> random_positions(int size, int count)
{
    std::vector<int> positions = shuffled(size, 0, 1, 3);
    positions.resize(count);
    return positions;
}

EntityWorld::EntityWorld() = default;
EntityWorld::EntityWorld(EntityWorld&&) noexcept = default;
EntityWorld::~EntityWorld() = default;

EntityWorld fill_entities(Shape shape, int column)
{
    EntityWorld world;
    world.model = std::make_unique<EntityModel>();
    world.model->sort(column);
    world.leaves.reserve(shape.size);
    EntityModel& model = *world.model;
    build(
        shape, static_cast<EntityItem*>(nullptr),
        [&](EntityItem* parent, const QString& name) {
            world.parent = new_item(name, 0, new SortedEntityList);
            model.addEntity(parent, world.parent);
            return world.parent;
        },
        [&](EntityItem* parent, const QString& name, int id) {
            world.leaves.push_back(new_item(name, id));
            model.addEntity(parent, world.leaves.back());
        });
    return world;
}

StandardWorld fill_standard(Shape shape, int column)
{
    StandardWorld world;
    world.model = new QStandardItemModel(0, 2);
    world.leaves.reserve(shape.size);
    std::vector<QList<QStandardItem*>> top;
    build(
        shape, static_cast<QStandardItem*>(nullptr),
        [&](QStandardItem* parent, const QString& name) {
            const QList<QStandardItem*> row = new_row(name, 0);
            if (parent) {
                parent->appendRow(row);
            } else {
                top.push_back(row);
            }
            world.parent = row.front();
            return world.parent;
        },
        [&](QStandardItem* parent, const QString& name, int id) {
            const QList<QStandardItem*> row = new_row(name, id);
            world.leaves.push_back(row.front());
            parent->appendRow(row);
        });
    for (const QList<QStandardItem*>& row : top) {
        world.model->appendRow(row);
    }
    world.model->sort(column);
    return world;
}

std::unique_ptr<QTreeWidget> fill_widget(Shape shape, int column)
{
    auto widget = std::make_unique<QTreeWidget>();
    widget->setColumnCount(2);
    QList<QTreeWidgetItem*> top;
    const auto fill = [](QTreeWidgetItem* item, const QString& name, int id) {
        item->setText(0, name);
        item->setData(1, Qt::DisplayRole, id);
        return item;
    };
    build(
        shape, static_cast<QTreeWidgetItem*>(nullptr),
        [&](QTreeWidgetItem* parent, const QString& name) {
            auto* item = fill(new QTreeWidgetItem(parent), name, 0);
            if (!parent) {
                top.append(item);
            }
            return item;
        },
        [&](QTreeWidgetItem* parent, const QString& name, int id) {
            fill(new QTreeWidgetItem(parent), name, id);
        });
    widget->addTopLevelItems(top);
    widget->sortItems(column, Qt::AscendingOrder);
    return widget;
}

EntityWorld make_entities(Shape shape, int column)
{
    EntityWorld world = fill_entities(shape, 1);
    world.model->sort(column);
    return world;
}

StandardWorld& make_standard(Shape shape, int column)
{
    static std::map<std::pair<Shape::Kind, int>, StandardWorld> known;
    StandardWorld& world = known[{shape.kind, shape.size}];
    if (!world.model) {
        world = fill_standard(shape, column);
    }
    world.model->sort(column);
    return world;
}

QTreeWidget& make_widget(Shape shape)
{
    static std::map<std::pair<Shape::Kind, int>, QTreeWidget*> known;
    QTreeWidget*& widget = known[{shape.kind, shape.size}];
    if (!widget) {
        widget = fill_widget(shape, 0).release();
    }
    return *widget;
}

std::vector<EntityItem*> make_items(int size, int column)
{
    std::vector<EntityItem*> items;
    items.reserve(size);
    for (int i = 0; i < size; ++i) {
        items.push_back(new_item(volume_names(size)[i], i + 1));
    }
    if (column == 0) {
        std::sort(items.begin(), items.end(),
            [](const EntityItem* a, const EntityItem* b) { return a->getName() < b->getName(); });
    }
    return items;
}

std::unique_ptr<QTreeView> make_view(QAbstractItemModel* model, const QModelIndex& parent)
{
    auto view = std::make_unique<QTreeView>();
    view->setUniformRowHeights(true);
    view->setModel(model);
    view->expand(parent);
    view->resize(400, 600);
    view->show();
    QCoreApplication::processEvents();
    return view;
}
