// What a person does with the tree: how long the filter takes and the window waits for it, beside
// the proxy model of Qt; and selections, and show only these, of very many records.

#include <algorithm>
#include <benchmark/benchmark.h>
#include <browser/editing/EntityFilter.hpp>
#include <browser/editing/FilterBar.hpp>
#include <browser/editing/KernelEditor.hpp>
#include <browser/editing/SelectionLink.hpp>
#include <browser/items/MirrorItems.hpp>
#include <browser/window/EntityView.hpp>
#include <chrono>
#include <cmath>
#include <embedded/EmbeddedKernel.hpp>
#include <numeric>
#include <QApplication>
#include <QSortFilterProxyModel>
#include <QTreeView>
#include <tests/embedded/TestModels.hpp>
#include <treemodel/entity/EntityModel.hpp>
#include <treemodel/kernel/TreeModel.hpp>

namespace {

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

struct NoIcons : EntityIconFactory
{
    const char* getIconPath(EntityItem* /*item*/) override { return ""; }
};

SimpleItem* add(EntityModel& items, EntityItem* parent, int id)
{
    auto* item = new SimpleItem(QString("Volume %1").arg(id), 1, new SortedEntityList);
    item->setId(id);
    items.addEntity(parent, item);
    return item;
}

/// So many rows below one row.
void fill_flat(EntityModel& items, int count)
{
    EntityItem* top = add(items, nullptr, 0);
    for (int id = 1; id < count; ++id) {
        add(items, top, id);
    }
}

/// 100 rows, with 100 below each, with the rest of them below those.
void fill_tree(EntityModel& items, int count)
{
    int id = 0;
    for (int top = 0; top < 100; ++top) {
        EntityItem* top_item = add(items, nullptr, ++id);
        for (int middle = 0; middle < 100; ++middle) {
            EntityItem* middle_item = add(items, top_item, ++id);
            for (int leaf = 0; leaf < count / 10'000; ++leaf) {
                add(items, middle_item, ++id);
            }
        }
    }
}

using Fill = void (*)(EntityModel&, int);

// The longest time for which the event loop did not turn, from `begin` until `is_done`.
template <typename Begin, typename Done>
Clock::duration longest_wait(Begin begin, Done is_done)
{
    auto start = Clock::now();
    begin();
    Clock::duration longest = Clock::now() - start;
    while (!is_done()) {
        start = Clock::now();
        QCoreApplication::processEvents();
        longest = std::max(longest, Clock::now() - start);
    }
    return longest;
}

void report_wait(benchmark::State& state, Clock::duration longest)
{
    state.counters["longest_wait_ms"] = Milliseconds(longest).count();
}

// A search for a text and back, with no view.
void filter(benchmark::State& state, Fill fill, const char* text)
{
    EntityModel items;
    fill(items, int(state.range(0)));
    EntityFilter filter(items);
    Clock::duration longest{};
    int hits = 0;
    for (auto _ : state) {
        longest = std::max(longest,
            longest_wait([&] { filter.set_text(text); }, [&] { return filter.is_settled(); }));
        hits = filter.hits();
        longest =
            std::max(longest, longest_wait([&] { filter.set_text({}); }, [] { return true; }));
    }
    report_wait(state, longest);
    state.counters["hits"] = hits;
}

// The same in a tree view, with the rows on the way to the hits opened.
void filter_in_view(benchmark::State& state, Fill fill, const char* text)
{
    NoIcons icons;
    EntityModel items;
    items.setIcons(&icons);
    fill(items, int(state.range(0)));
    EntityFilter filter(items);
    QTreeView view;
    view.setUniformRowHeights(true);
    view.setModel(&filter);
    view.expand(filter.index(0, 0));
    view.show();
    FilterBar bar(filter, view);
    QCoreApplication::processEvents();

    Clock::duration longest{};
    Clock::duration back{};
    for (auto _ : state) {
        longest = std::max(longest,
            longest_wait([&] { bar.set_text(text); }, [&] { return filter.is_settled(); }));
        longest = std::max(
            longest, longest_wait([] { QCoreApplication::processEvents(); }, [] { return true; }));
        back = std::max(back, longest_wait(
                                  [&] {
                                      bar.set_text({});
                                      QCoreApplication::processEvents();
                                  },
                                  [] { return true; }));
    }
    report_wait(state, longest);
    state.counters["back_ms"] = Milliseconds(back).count();
}

void InsertRows_floor(benchmark::State& state)
{
    for (auto _ : state) {
        EntityModel items;
        fill_flat(items, int(state.range(0)));
    }
}

// Below an open row, with no text.
template <typename Proxy>
void insert_rows(benchmark::State& state, Proxy make_proxy)
{
    for (auto _ : state) {
        EntityModel items;
        EntityItem* top = add(items, nullptr, 0);
        const auto proxy = make_proxy(items);
        const QPersistentModelIndex open = proxy->index(0, 0);
        benchmark::DoNotOptimize(proxy->rowCount(open));
        for (int id = 1; id < int(state.range(0)); ++id) {
            add(items, top, id);
        }
        benchmark::DoNotOptimize(proxy->rowCount(open));
    }
}

void InsertRows(benchmark::State& state)
{
    insert_rows(state, [](EntityModel& items) { return std::make_unique<EntityFilter>(items); });
}

void InsertRows_QSortFilterProxyModel(benchmark::State& state)
{
    insert_rows(state, [](EntityModel& items) {
        auto proxy = std::make_unique<QSortFilterProxyModel>();
        proxy->setSourceModel(&items);
        return proxy;
    });
}

/// A kernel, the mirror that follows it, its rows in a view, and what a person can do with them.
struct Front
{
    Front()
    {
        mirror.connect_to_kesto();
        items.setIcons(&icons);
        view.setModel(&rows);
        view.setSelectionModel(&link);
        view.show();
    }
    ~Front()
    {
        mirror.disconnect_from_kesto();
        // Before the selection model that it uses.
        view.setModel(nullptr);
    }

    NoIcons icons;
    EmbeddedKernel kernel;
    TreeModel mirror;
    EntityModel items;
    MirrorItems join{mirror, items};
    EntityFilter rows{items};
    EntityView view;
    SelectionLink link{join, rows};
    KernelEditor editor{kernel, mirror};
};

std::vector<int> ids_up_to(int count, int step = 1)
{
    std::vector<int> ids;
    for (int id = 1; id <= count; id += step) {
        ids.push_back(id);
    }
    return ids;
}

void open_free_vertices(Front& front, int count)
{
    ModelData model;
    model.vertices.resize(std::size_t(count));
    front.kernel.open_model(model, "vertices");
    front.join.settle();
    front.view.expand(front.rows.index(front.join.category(Category::Geometry)));
    QCoreApplication::processEvents();
}

void SelectInKernel(benchmark::State& state)
{
    Front front;
    open_free_vertices(front, int(state.range(0)));
    const std::vector<int> ids = ids_up_to(int(state.range(0)), int(state.range(1)));
    for (auto _ : state) {
        front.kernel.select(EntityKind::VERTEX, ids);
        QCoreApplication::processEvents();
        state.PauseTiming();
        front.kernel.select_none();
        state.ResumeTiming();
    }
}

void DeselectInKernel(benchmark::State& state)
{
    Front front;
    open_free_vertices(front, int(state.range(0)));
    const std::vector<int> ids = ids_up_to(int(state.range(0)), int(state.range(1)));
    for (auto _ : state) {
        state.PauseTiming();
        front.kernel.select(EntityKind::VERTEX, ids);
        state.ResumeTiming();
        front.kernel.select_none();
        QCoreApplication::processEvents();
    }
}

void SelectAllInView(benchmark::State& state)
{
    Front front;
    open_free_vertices(front, int(state.range(0)));
    for (auto _ : state) {
        front.view.selectAll();
        QCoreApplication::processEvents();
        state.PauseTiming();
        front.kernel.select_none();
        state.ResumeTiming();
    }
}

void ClickAfterSelectAll(benchmark::State& state)
{
    Front front;
    open_free_vertices(front, int(state.range(0)));
    const QModelIndex category = front.rows.index(front.join.category(Category::Geometry));
    for (auto _ : state) {
        state.PauseTiming();
        front.view.selectAll();
        state.ResumeTiming();
        front.link.select(front.rows.index(7, 0, category),
            QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        QCoreApplication::processEvents();
    }
}

// A cube of cubes with about so many records.
void open_lattice(Front& front, int records)
{
    const int side = std::max(1, int(std::lround(std::cbrt(double(records) / 8))));
    front.kernel.open_model(lattice(side, side, side), "lattice");
    front.join.settle();
}

// One body, or half of all volumes.
void show_only(benchmark::State& state, bool is_half)
{
    Front front;
    open_lattice(front, int(state.range(0)));
    KernelEditor::Records records{front.mirror.find_geometry(TreeGeometryData::BODY, 1)};
    if (is_half) {
        const auto volumes = front.mirror.geometry(TreeGeometryData::VOLUME);
        records.assign(volumes.begin(), volumes.begin() + std::ptrdiff_t(volumes.size() / 2));
    }
    Clock::duration back{};
    for (auto _ : state) {
        front.editor.show_only(records);
        state.PauseTiming();
        back = std::max(
            back, longest_wait([&] { front.editor.restore_visibility(); }, [] { return true; }));
        front.join.settle();
        state.ResumeTiming();
    }
    state.counters["back_ms"] = Milliseconds(back).count();
}

// One of so many bodies, each open with a volume in it, under a filter that shows them all; until
// all rows tell so.
void show_only_of_open_bodies(benchmark::State& state, const char* text)
{
    Front front;
    ModelData model;
    model.bodies.resize(std::size_t(state.range(0)));
    model.volumes.resize(model.bodies.size());
    for (std::size_t i = 0; i < model.bodies.size(); ++i) {
        model.bodies[i].children = {int(i) + 1};
    }
    front.kernel.open_model(model, "bodies");
    front.join.settle();
    front.view.expandAll();
    front.rows.set_text(text);
    front.rows.settle();
    QCoreApplication::processEvents();

    Clock::duration longest{};
    for (auto _ : state) {
        longest = std::max(longest,
            longest_wait(
                [&] {
                    front.editor.show_only({front.mirror.find_geometry(TreeGeometryData::BODY, 1)});
                },
                [&] { return front.join.is_settled() && front.rows.is_settled(); }));
        state.PauseTiming();
        front.editor.restore_visibility();
        front.join.settle();
        front.rows.settle();
        state.ResumeTiming();
    }
    report_wait(state, longest);
}

// All bodies, which are members of one group.
void DeleteMembers(benchmark::State& state)
{
    for (auto _ : state) {
        state.PauseTiming();
        Front front;
        ModelData model;
        model.bodies.resize(std::size_t(state.range(0)));
        model.groups.resize(1);
        model.groups[0].bodies = ids_up_to(int(state.range(0)));
        front.kernel.open_model(model, "bodies");
        front.join.settle();
        const auto bodies = front.mirror.geometry(TreeGeometryData::BODY);
        const KernelEditor::Records records(bodies.begin(), bodies.end());
        state.ResumeTiming();
        front.editor.remove(records);
        front.join.settle();
        QCoreApplication::processEvents();
    }
}

void thrice(benchmark::internal::Benchmark* bench)
{
    bench->Unit(benchmark::kMillisecond)->Iterations(3);
}

void sizes(benchmark::internal::Benchmark* bench)
{
    bench->Arg(100'000)->Arg(1'000'000)->Apply(thrice);
}

BENCHMARK_CAPTURE(filter, flat_few, fill_flat, "volume 4242")->Apply(sizes);
BENCHMARK_CAPTURE(filter, flat_many, fill_flat, "7")->Apply(sizes);
BENCHMARK_CAPTURE(filter, tree_few, fill_tree, "volume 4242")->Apply(sizes);
BENCHMARK_CAPTURE(filter, tree_many, fill_tree, "7")->Apply(sizes);
BENCHMARK_CAPTURE(filter_in_view, flat_few, fill_flat, "volume 4242")->Apply(sizes);
BENCHMARK_CAPTURE(filter_in_view, flat_many, fill_flat, "7")->Apply(sizes);
BENCHMARK_CAPTURE(filter_in_view, tree_few, fill_tree, "volume 4242")->Apply(sizes);
BENCHMARK_CAPTURE(filter_in_view, tree_many, fill_tree, "7")->Apply(sizes);

BENCHMARK(InsertRows_floor)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(InsertRows)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(InsertRows_QSortFilterProxyModel)->Arg(100'000)->Unit(benchmark::kMillisecond);

// All, and every second one.
BENCHMARK(SelectInKernel)->Args({100'000, 1})->Args({100'000, 2})->Apply(thrice);
BENCHMARK(DeselectInKernel)->Args({100'000, 1})->Args({100'000, 2})->Apply(thrice);
BENCHMARK(SelectAllInView)->Arg(100'000)->Apply(thrice);
BENCHMARK(ClickAfterSelectAll)->Arg(100'000)->Apply(thrice);

BENCHMARK_CAPTURE(show_only, one_body, false)->Arg(100'000)->Apply(thrice);
BENCHMARK_CAPTURE(show_only, half, true)->Arg(100'000)->Apply(thrice);
BENCHMARK_CAPTURE(show_only_of_open_bodies, no_filter, "")->Arg(50'000)->Apply(thrice);
BENCHMARK_CAPTURE(show_only_of_open_bodies, bodies, "body")->Arg(50'000)->Apply(thrice);
BENCHMARK_CAPTURE(show_only_of_open_bodies, volumes, "volume")->Arg(50'000)->Apply(thrice);
BENCHMARK(DeleteMembers)->Arg(20'000)->Unit(benchmark::kMillisecond)->Iterations(1);

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
