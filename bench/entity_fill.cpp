#include "entity_data.hpp"
#include "entity_measure.hpp"

#include <algorithm>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>
#include <QTreeView>
#include <QTreeWidget>
#include <treemodel/entity/EntityModel.hpp>
#include <treemodel/entity/SimpleItem.hpp>
#include <treemodel/entity/SortedEntityList.hpp>

// Filling in random order of names, sorted by name. "insert" takes items that are
// there already, "fill" makes them as well.

namespace {

struct Prepared
{
    EntityWorld world;
    std::vector<EntityItem*> items;
    std::unique_ptr<QTreeView> view;
};

Prepared prepare(int size)
{
    return {fill_entities({Shape::Flat, 0}, 0), make_items(size, 1), nullptr};
}

void insert_all(Prepared& prepared)
{
    for (EntityItem* item : prepared.items) {
        prepared.world.model->addEntity(prepared.world.parent, item);
    }
}

void insert_model(benchmark::State& state, int size)
{
    measure(
        state, [size] { return prepare(size); }, insert_all);
}

void insert_model_in_view(benchmark::State& state, int size)
{
    const auto make = [size] {
        Prepared prepared = prepare(size);
        EntityModel* model = prepared.world.model.get();
        prepared.view = make_view(model, model->index(0, 0));
        return prepared;
    };
    measure(state, make, insert_all);
}

/// The keys are read as the model reads them, and no one is told.
void insert_floor(benchmark::State& state, int size)
{
    struct Items
    {
        std::vector<EntityItem*> unsorted;
        std::vector<EntityItem*> sorted;
        ~Items()
        {
            for (EntityItem* item : sorted) {
                delete item;
            }
        }
    };
    const auto make = [size] { return std::make_unique<Items>(Items{make_items(size, 1), {}}); };
    measure(state, make, [](std::unique_ptr<Items>& items) {
        std::vector<EntityItem*>& sorted = items->sorted;
        for (EntityItem* item : items->unsorted) {
            const QString& name = item->getDisplayName();
            const auto at = std::partition_point(sorted.begin(), sorted.end(),
                [&name](const EntityItem* other) { return other->getDisplayName() < name; });
            sorted.insert(at, item);
        }
    });
}

struct Proxied
{
    std::unique_ptr<QStandardItemModel> model;
    std::unique_ptr<QSortFilterProxyModel> proxy;
    QStandardItem* parent = nullptr;
    std::unique_ptr<QTreeView> view;
};

Proxied prepare_proxied()
{
    Proxied proxied{std::make_unique<QStandardItemModel>(0, 2),
        std::make_unique<QSortFilterProxyModel>(), new QStandardItem("Volumes"), nullptr};
    proxied.model->appendRow(proxied.parent);
    proxied.proxy->setSourceModel(proxied.model.get());
    proxied.proxy->sort(0);
    // Only rows of parents that someone has looked at are kept in order.
    benchmark::DoNotOptimize(proxied.proxy->rowCount(proxied.proxy->index(0, 0)));
    return proxied;
}

void append_all(Proxied& proxied, int size)
{
    for (int i = 0; i < size; ++i) {
        auto* number = new QStandardItem;
        number->setData(i + 1, Qt::DisplayRole);
        proxied.parent->appendRow({new QStandardItem(volume_names(size)[i]), number});
    }
}

void fill_proxied(benchmark::State& state, int size)
{
    measure(state, prepare_proxied, [size](Proxied& proxied) { append_all(proxied, size); });
}

void fill_proxied_in_view(benchmark::State& state, int size)
{
    const auto make = [] {
        Proxied proxied = prepare_proxied();
        proxied.view = make_view(proxied.proxy.get(), proxied.proxy->index(0, 0));
        return proxied;
    };
    measure(state, make, [size](Proxied& proxied) { append_all(proxied, size); });
}

auto fill_model(Shape::Kind kind)
{
    return [kind](benchmark::State& state, int size) {
        volume_names(size);
        measure(
            state, [] { return std::vector<EntityWorld>(); },
            [=](auto& worlds) {
                worlds.push_back(fill_entities({kind, size}, 0));
            });
    };
}

auto fill_standard_model(Shape::Kind kind)
{
    return [kind](benchmark::State& state, int size) {
        volume_names(size);
        StandardWorld world;
        measure(
            state, [&world]() -> StandardWorld& { return world; },
            [=](StandardWorld& filled) {
                filled = fill_standard({kind, size}, 0);
            });
        if (kind == Shape::Tree) {
            delete world.model;
        }
    };
}

auto fill_tree_widget(Shape::Kind kind)
{
    return [kind](benchmark::State& state, int size) {
        volume_names(size);
        measure(
            state, [] { return std::unique_ptr<QTreeWidget>(); },
            [=](auto& widget) {
                widget = fill_widget({kind, size}, 0);
            });
    };
}

void register_shape(const char* name, Shape::Kind kind, int size)
{
    const std::string work = std::string("fill/") + name;
    register_once(work + "/model", size, fill_model(kind));
    register_once(work + "/standard", size, fill_standard_model(kind));
    register_once(work + "/widget", size, fill_tree_widget(kind));
}

} // namespace

void register_fill()
{
    for (int size : {10'000, 100'000}) {
        register_once("insert/flat/model", size, insert_model);
        register_once("insert/flat/floor", size, insert_floor);
        register_once("insert/flat, view/model", size, insert_model_in_view);
        register_once("fill/flat/proxy", size, fill_proxied);
        register_shape("flat", Shape::Flat, size);
        register_shape("wide", Shape::Wide, size);
    }
    register_once("fill/flat, view/proxy", 10'000, fill_proxied_in_view);
    for (int size : {10'000, 100'000, 1'000'000}) {
        register_shape("tree", Shape::Tree, size);
    }
    register_once("fill/wide/model", 1'000'000, fill_model(Shape::Wide));
}
