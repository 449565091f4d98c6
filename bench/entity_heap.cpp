#include "entity_data.hpp"
#include "entity_measure.hpp"

#include <malloc.h>
#include <QStandardItemModel>
#include <QTreeWidget>
#include <treemodel/entity/EntityCategory.hpp>
#include <treemodel/entity/EntityItemData.hpp>
#include <treemodel/entity/EntityModel.hpp>
#include <treemodel/entity/SharedItem.hpp>

// What an item takes from the heap, with its own name and id.

namespace {

size_t heap_in_use()
{
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

template <class Make>
void count_heap(benchmark::State& state, int size, Make make)
{
    volume_names(size);
    other_names(size);
    for (auto _ : state) {
        const size_t before = heap_in_use();
        const auto world = make();
        state.counters["bytes_per_item"] = double(heap_in_use() - before) / size;
        state.SetIterationTime(1.0);
    }
}

/// A name that shares no memory with another.
QString own_name(int size, int position)
{
    const QString& name = other_names(size)[position];
    return QString(name.constData(), name.size());
}

auto count_model(Shape::Kind kind)
{
    return [kind](benchmark::State& state, int size) {
        count_heap(state, size, [=] {
            EntityWorld world = fill_entities({kind, size}, 1);
            for (size_t i = 0; i < world.leaves.size(); ++i) {
                static_cast<SimpleItem*>(world.leaves[i])->setName(own_name(size, int(i)));
            }
            world.leaves = {};
            return world;
        });
    };
}

auto count_standard(Shape::Kind kind)
{
    return [kind](benchmark::State& state, int size) {
        count_heap(state, size, [=] {
            StandardWorld world = fill_standard({kind, size}, 1);
            for (size_t i = 0; i < world.leaves.size(); ++i) {
                world.leaves[i]->setText(own_name(size, int(i)));
            }
            world.leaves = {};
            return world;
        });
    };
}

/// Items over shared data, one node each.
struct SharedWorld
{
    std::vector<std::unique_ptr<EntityItemData>> data;
    EntityWorld world;
};

void count_shared(benchmark::State& state, int size)
{
    count_heap(state, size, [size] {
        SharedWorld shared{{}, fill_entities({Shape::Flat, 0}, 1)};
        for (int i = 0; i < size; ++i) {
            shared.data.push_back(std::make_unique<EntityItemData>(1, i + 1));
            shared.data.back()->setName(own_name(size, i));
            shared.world.model->addEntity(
                shared.world.parent, new SharedItem(shared.data.back().get(), nullptr));
        }
        return shared;
    });
}

} // namespace

void register_heap()
{
    const std::pair<const char*, Shape::Kind> shapes[] = {
        {"flat", Shape::Flat}, {"tree", Shape::Tree}, {"wide", Shape::Wide}};
    for (const auto& [name, kind] : shapes) {
        const std::string work = std::string("heap/") + name;
        register_once(work + "/model", 100'000, count_model(kind));
        register_once(work + "/standard", 100'000, count_standard(kind));
    }
    register_once("heap/flat, shared data/model", 100'000, count_shared);
}
