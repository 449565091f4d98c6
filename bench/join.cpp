// The join of a mirror to the item model: what it costs to bring the rows in line after a change
// that the kernel and the mirror have made already, and how long a window waits for a slice, both
// in processor time. The floor makes and deletes a million bare nodes.

#include <algorithm>
#include <benchmark/benchmark.h>
#include <browser/items/MirrorItems.hpp>
#include <cmath>
#include <ctime>
#include <embedded/EmbeddedKernel.hpp>
#include <numeric>
#include <QCoreApplication>
#include <tests/embedded/TestModels.hpp>
#include <treemodel/entity/EntityModel.hpp>
#include <treemodel/kernel/TreeModel.hpp>

namespace {

constexpr int timer_ms = 8; // As the timer of the join has it

/// A kernel, the mirror that follows it, and the rows that follow the mirror.
struct Front
{
    Front() { mirror.connect_to_kesto(); }
    ~Front() { mirror.disconnect_from_kesto(); }

    EmbeddedKernel kernel;
    TreeModel mirror;
    EntityModel items;
    MirrorItems join{mirror, items};
};

std::vector<int> ids_up_to(int count)
{
    std::vector<int> ids(std::size_t(count), 0);
    std::iota(ids.begin(), ids.end(), 1);
    return ids;
}

// A cube of cubes with about so many records.
void open_lattice(Front& front, int records)
{
    const int side = std::max(1, int(std::lround(std::cbrt(double(records) / 8))));
    front.kernel.open_model(lattice(side, side, side), "lattice");
}

void open_free_vertices(Front& front, int count)
{
    ModelData model;
    model.vertices.resize(std::size_t(count));
    front.kernel.open_model(model, "vertices");
}

void open_one_large_group(Front& front, int count)
{
    ModelData model;
    model.vertices.resize(std::size_t(count));
    model.groups.emplace_back().vertices = ids_up_to(count);
    front.kernel.open_model(model, "large group");
}

void open_one_vertex_in_many_groups(Front& front, int count)
{
    ModelData model;
    model.vertices.resize(1);
    model.groups.resize(std::size_t(count));
    for (ModelData::Group& group : model.groups) {
        group.vertices = {1};
    }
    front.kernel.open_model(model, "many groups");
}

void change_nothing(Front& /*front*/, int /*count*/) {}

void clear(Front& front, int /*count*/)
{
    front.kernel.clear();
}

void hide_all(Front& front, int count)
{
    for (int id = 1; id <= count; ++id) {
        front.kernel.set_visible(EntityKind::VERTEX, id, false);
    }
}

void rename_all(Front& front, int count)
{
    for (int id = 1; id <= count; ++id) {
        front.kernel.rename(EntityKind::VERTEX, id, "Pin " + std::to_string(id));
    }
}

void remove_every_second(Front& front, int count)
{
    for (int id = 1; id <= count; id += 2) {
        front.kernel.remove(EntityKind::VERTEX, id);
    }
}

void remove_every_hundredth(Front& front, int count)
{
    for (int id = 1; id <= count; id += 100) {
        front.kernel.remove(EntityKind::VERTEX, id);
    }
}

void empty_the_group(Front& front, int count)
{
    front.kernel.remove_from_group(1, EntityKind::VERTEX, ids_up_to(count));
}

void leave_every_group(Front& front, int count)
{
    for (int id = 1; id <= count; ++id) {
        front.kernel.remove_from_group(id, EntityKind::VERTEX, {1});
    }
}

void remove_every_group(Front& front, int count)
{
    for (int id = 1; id <= count; ++id) {
        front.kernel.remove(EntityKind::GROUP, id);
    }
}

void remove_the_vertex(Front& front, int /*count*/)
{
    front.kernel.remove(EntityKind::VERTEX, 1);
}

using Operation = void (*)(Front&, int);

double processor_ms()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return double(now.tv_sec) * 1e3 + double(now.tv_nsec) / 1e6;
}

// Settles in slices as the timer does, and gives back what the longest one took.
double settle_in_slices(MirrorItems& join)
{
    double longest = 0;
    for (bool is_left = true; is_left;) {
        const double start = processor_ms();
        is_left = join.advance(QDeadlineTimer(timer_ms));
        longest = std::max(longest, processor_ms() - start);
    }
    return longest;
}

// `build` is settled before, `change` is what the rows then have to follow.
void follow(benchmark::State& state, Operation build, Operation change)
{
    const int count = int(state.range(0));
    double longest = 0;
    int places = 0;
    for (auto _ : state) {
        state.PauseTiming();
        Front front;
        QObject::connect(&front.join, &MirrorItems::filling,
            [&](int now, int /*pending*/) { places = std::max(places, now); });
        front.join.settle();
        build(front, count);
        if (change != change_nothing) {
            front.join.settle();
            change(front, count);
        }
        state.ResumeTiming();
        longest = std::max(longest, settle_in_slices(front.join));
        state.PauseTiming();
        front.kernel.clear();
        front.join.settle();
        state.ResumeTiming();
    }
    state.counters["longest_slice_ms"] = longest;
    state.counters["places"] = places;
}

void NodesFloor(benchmark::State& state)
{
    const int count = int(state.range(0));
    for (auto _ : state) {
        SimpleItem parent(0, 0, new EntityItemList);
        for (int i = 0; i < count; ++i) {
            parent.insertChild(i, new SimpleItem(0, i, new EntityItemList));
        }
        benchmark::DoNotOptimize(parent.childCount());
    }
}

void sizes(benchmark::internal::Benchmark* bench)
{
    bench->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond)->Iterations(1);
}

#define FOLLOW(build, change) BENCHMARK_CAPTURE(follow, build / change, build, change)->Apply(sizes)

BENCHMARK(NodesFloor)->Arg(1'000'000)->Unit(benchmark::kMillisecond)->Iterations(2);
FOLLOW(open_lattice, change_nothing);
FOLLOW(open_lattice, clear);
FOLLOW(open_free_vertices, change_nothing);
FOLLOW(open_free_vertices, hide_all);
FOLLOW(open_free_vertices, rename_all);
FOLLOW(open_free_vertices, remove_every_second);
FOLLOW(open_free_vertices, remove_every_hundredth);
FOLLOW(open_free_vertices, clear);
FOLLOW(open_one_large_group, change_nothing);
FOLLOW(open_one_large_group, empty_the_group);
FOLLOW(open_one_large_group, clear);
FOLLOW(open_one_vertex_in_many_groups, change_nothing);
FOLLOW(open_one_vertex_in_many_groups, leave_every_group);
// The kernel itself takes long to tell of more.
BENCHMARK_CAPTURE(follow, open_one_vertex_in_many_groups / remove_every_group,
    open_one_vertex_in_many_groups, remove_every_group)
    ->Arg(5'000)
    ->Arg(20'000)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1);
FOLLOW(open_one_vertex_in_many_groups, remove_the_vertex);
FOLLOW(open_one_vertex_in_many_groups, clear);

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
