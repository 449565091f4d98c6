#include "entity_data.hpp"
#include "entity_measure.hpp"

#include <algorithm>
#include <QStandardItemModel>
#include <QTreeView>
#include <treemodel/entity/EntityItem.hpp>
#include <treemodel/entity/EntityModel.hpp>
#include <utility>

// Switching the sort column of a filled model.

namespace {

/// A plain record with its keys as members.
struct Volume
{
    QString name;
    int id;
};

/// Switches from the other column to `column`.
auto switch_model(Shape::Kind kind, int column, bool in_view)
{
    return [=](benchmark::State& state, int size) {
        const auto make = [=] {
            EntityWorld world = make_entities({kind, size}, 1 - column);
            auto view = in_view ? make_view(world.model.get(), world.model->index(0, 0)) : nullptr;
            return std::pair(std::move(world), std::move(view));
        };
        measure(state, make, [column](auto& made) { made.first.model->sort(column); });
    };
}

auto switch_standard(Shape::Kind kind, int column, bool in_view)
{
    return [=](benchmark::State& state, int size) {
        const auto make = [=] {
            QStandardItemModel* model = make_standard({kind, size}, 1 - column).model;
            return std::pair(model, in_view ? make_view(model, model->index(0, 0)) : nullptr);
        };
        measure(state, make, [column](auto& made) { made.first->sort(column); });
    };
}

void sort_by_name_floor(benchmark::State& state, int size)
{
    std::vector<std::unique_ptr<Volume>> volumes;
    volumes.reserve(std::size_t(size));
    for (int i = 0; i < size; ++i) {
        volumes.push_back(std::make_unique<Volume>(Volume{volume_names(size)[i], i + 1}));
    }
    const auto make = [&volumes] {
        std::vector<Volume*> pointers;
        pointers.reserve(volumes.size());
        for (const auto& volume : volumes) {
            pointers.push_back(volume.get());
        }
        return pointers;
    };
    measure(state, make, [](std::vector<Volume*>& pointers) {
        std::sort(pointers.begin(), pointers.end(),
            [](const Volume* a, const Volume* b) { return a->name < b->name; });
    });
}

void sort_by_id_floor(benchmark::State& state, int size)
{
    const std::vector<EntityItem*> items = make_items(size, 0);
    const auto make = [&items] {
        std::vector<std::pair<int, EntityItem*>> pairs;
        pairs.reserve(items.size());
        for (EntityItem* item : items) {
            pairs.emplace_back(item->getId(), item);
        }
        return pairs;
    };
    measure(state, make, [](auto& pairs) { std::sort(pairs.begin(), pairs.end()); });
    for (EntityItem* item : items) {
        delete item;
    }
}

void register_switch(const std::string& work, int column, int size)
{
    const auto add = [&](const char* shape, Shape::Kind kind, bool in_view) {
        const std::string name = work + "/" + shape;
        register_once(name + "/model", size, switch_model(kind, column, in_view));
        if (size < 1'000'000 || !in_view) {
            register_once(name + "/standard", size, switch_standard(kind, column, in_view));
        }
    };
    add("flat", Shape::Flat, false);
    add("flat, view", Shape::Flat, true);
    add("tree", Shape::Tree, false);
    add("wide", Shape::Wide, false);
}

} // namespace

void register_sort()
{
    for (int size : {10'000, 100'000, 1'000'000}) {
        register_once("sort by name/flat/floor", size, sort_by_name_floor);
        register_once("sort by id/flat/floor", size, sort_by_id_floor);
        register_switch("sort by name", 0, size);
        register_switch("sort by id", 1, size);
    }
}
