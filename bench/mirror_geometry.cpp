// First fill and steady refresh of the geometry mirror, against what no mirror
// can do without: the same questions to the kernel, the same objects, the same
// ordered containers.

#include "support/LatticeKernel.hpp"

#include <benchmark/benchmark.h>
#include <malloc.h>
#include <map>
#include <memory>
#include <set>
#include <treemodel/kernel/KestoInterface.hpp>
#include <treemodel/kernel/TreeModel.hpp>
#include <treemodel/treedata/TreeBodyData.hpp>
#include <utility>
#include <vector>

/// Takes the news of a death and does nothing.
class Watcher : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void ignore(TreeData*) {}
};

namespace {

using Queries = std::vector<LatticeKernel::Query>;

Queries queries_of_first_fill(LatticeKernel& kernel)
{
    TreeModel mirror;
    kernel.start_recording();
    mirror.refresh_model(false);
    return kernel.stop_recording();
}

Queries queries_of_steady_refresh(LatticeKernel& kernel)
{
    TreeModel mirror;
    mirror.refresh_model(false);
    kernel.start_recording();
    mirror.refresh_model(false);
    return kernel.stop_recording();
}

std::unique_ptr<TreeGeometryData> new_record(int kind, int id)
{
    if (kind == TreeGeometryData::BODY) {
        return std::make_unique<TreeBodyData>(id);
    }
    return std::make_unique<TreeGeometryData>(TreeGeometryData::GeometryType(kind), id);
}

// The objects and containers of the mirror, filled by plain code.
class PlainMirror
{
public:
    enum Links : bool { WithoutLinks, WithLinks };

    PlainMirror(const LatticeKernel& kernel, Links links)
    {
        for (int kind = LatticeKernel::KindCount - 1; kind >= 0; --kind) {
            for (const int id : kernel.ids(kind)) {
                m_records[kind][id] = new_record(kind, id);
            }
        }
        for (int kind = LatticeKernel::KindCount - 1; links && kind > 0; --kind) {
            for (const auto& [id, parent] : m_records[kind]) {
                for (const int child_id : kernel.below(kind, id)) {
                    TreeGeometryData* child = m_records[kind - 1].at(child_id).get();
                    m_children[parent.get()].insert(child);
                    m_parents[child].insert(parent.get());
                }
            }
        }
    }

private:
    using LinkMap = std::map<TreeGeometryData*, std::set<TreeGeometryData*>>;

    std::map<int, std::unique_ptr<TreeGeometryData>> m_records[LatticeKernel::KindCount];
    LinkMap m_children;
    LinkMap m_parents;
};

void count_records(benchmark::State& state, const LatticeKernel& kernel)
{
    state.SetItemsProcessed(state.iterations() * kernel.entity_count());
    state.counters["records"] = double(kernel.entity_count());
    state.counters["time/record"] = benchmark::Counter(double(kernel.entity_count()),
        benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void FirstFill(benchmark::State& state)
{
    const LatticeKernel kernel(state.range(0));
    for (auto _ : state) {
        auto mirror = std::make_unique<TreeModel>();
        mirror->refresh_model(false);
        state.PauseTiming();
        mirror.reset();
        state.ResumeTiming();
    }
    count_records(state, kernel);
}

void FirstFill_floor(benchmark::State& state, PlainMirror::Links links)
{
    LatticeKernel kernel(state.range(0));
    const Queries queries = queries_of_first_fill(kernel);
    for (auto _ : state) {
        LatticeKernel::ask(queries);
        auto mirror = std::make_unique<PlainMirror>(kernel, links);
        state.PauseTiming();
        mirror.reset();
        state.ResumeTiming();
    }
    count_records(state, kernel);
}

void SteadyRefresh(benchmark::State& state)
{
    const LatticeKernel kernel(state.range(0));
    TreeModel mirror;
    mirror.refresh_model(false);
    for (auto _ : state) {
        mirror.refresh_model(false);
    }
    count_records(state, kernel);
}

void SteadyRefresh_floor(benchmark::State& state)
{
    LatticeKernel kernel(state.range(0));
    const Queries queries = queries_of_steady_refresh(kernel);
    for (auto _ : state) {
        LatticeKernel::ask(queries);
    }
    count_records(state, kernel);
}

// One surface in the middle of the model, told by the kernel as modified.
void SurfaceModified(benchmark::State& state)
{
    const LatticeKernel kernel(state.range(0));
    TreeModel mirror;
    mirror.refresh_model(false);
    mirror.connect_to_kesto();
    const auto& surfaces = kernel.ids(TreeGeometryData::SURFACE);
    for (auto _ : state) {
        LatticeKernel::observer()->notify_surface_modified(surfaces[surfaces.size() / 2]);
    }
    state.counters["time/notification"] = benchmark::Counter(
        1, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

enum Members : bool { WithoutMembers, WithMembers };

template <typename Mirror>
void measure_destruction(benchmark::State& state, Members members)
{
    LatticeKernel kernel(state.range(0));
    if (members) {
        kernel.group_all();
    }
    for (auto _ : state) {
        state.PauseTiming();
        auto mirror = std::make_unique<Mirror>(kernel, members);
        state.ResumeTiming();
        mirror.reset();
    }
    count_records(state, kernel);
}

struct FilledMirror : TreeModel
{
    FilledMirror(const LatticeKernel& /*kernel*/, Members /*members*/) { refresh_model(false); }
};

void Destruction(benchmark::State& state, Members members)
{
    measure_destruction<FilledMirror>(state, members);
}

std::vector<std::pair<int, int>> entities_in_order_of_first_fill()
{
    std::vector<std::pair<int, int>> entities;
    TreeModel mirror;
    QObject::connect(
        &mirror, &TreeModel::geometry_added, &mirror, [&entities](TreeGeometryData* record) {
            entities.emplace_back(record->geometry_type(), record->id());
        });
    mirror.refresh_model(false);
    return entities;
}

/// The objects of the mirror, made in the order in which a refresh meets them and deleted in that
/// in which a mirror must delete them: by kind and id, so that neighbours in memory do not go one
/// after the other. A member of a group is connected, once.
class PlainRecords
{
public:
    PlainRecords(const LatticeKernel& kernel, Members members)
    {
        for (int kind = 0; kind < LatticeKernel::KindCount; ++kind) {
            m_records[kind].resize(kernel.ids(kind).size() + 1);
        }
        for (const auto& [kind, id] : entities_in_order_of_first_fill()) {
            m_records[kind][id] = new_record(kind, id);
        }
        for (const auto& records : m_records) {
            for (const auto& record : records) {
                if (record && members) {
                    QObject::connect(record.get(), SIGNAL(treedata_destroyed(TreeData*)),
                        &m_watcher, SLOT(ignore(TreeData*)));
                }
            }
        }
    }

    ~PlainRecords()
    {
        for (int kind = LatticeKernel::KindCount - 1; kind >= 0; --kind) {
            for (auto& record : m_records[kind]) {
                record.reset();
            }
        }
    }

private:
    Watcher m_watcher;
    std::vector<std::unique_ptr<TreeGeometryData>> m_records[LatticeKernel::KindCount];
};

void Destruction_floor(benchmark::State& state, Members members)
{
    measure_destruction<PlainRecords>(state, members);
}

double heap_in_use()
{
    return double(mallinfo2().uordblks + mallinfo2().hblkhd);
}

template <typename Make>
void measure_heap(benchmark::State& state, Make make)
{
    LatticeKernel kernel(state.range(0));
    for (auto _ : state) {
        const double before = heap_in_use();
        const auto mirror = make(kernel);
        state.counters["bytes_per_item"] = (heap_in_use() - before) / double(kernel.entity_count());
    }
}

void Heap(benchmark::State& state)
{
    measure_heap(state, [](const LatticeKernel&) {
        auto mirror = std::make_unique<TreeModel>();
        mirror->refresh_model(false);
        return mirror;
    });
}

void Heap_floor(benchmark::State& state)
{
    measure_heap(state, [](const LatticeKernel& kernel) {
        return std::make_unique<PlainMirror>(kernel, PlainMirror::WithLinks);
    });
}

void sizes(benchmark::internal::Benchmark* family)
{
    family->Arg(10'000)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
}

BENCHMARK(FirstFill)->Apply(sizes);
BENCHMARK_CAPTURE(FirstFill_floor, objects, PlainMirror::WithoutLinks)->Apply(sizes);
BENCHMARK_CAPTURE(FirstFill_floor, objects_and_links, PlainMirror::WithLinks)->Apply(sizes);
BENCHMARK(SteadyRefresh)->Apply(sizes);
BENCHMARK(SteadyRefresh_floor)->Apply(sizes);
BENCHMARK(SurfaceModified)->Arg(10'000)->Arg(100'000)->Arg(1'000'000);
BENCHMARK_CAPTURE(Destruction, no_members, WithoutMembers)->Apply(sizes);
BENCHMARK_CAPTURE(Destruction_floor, no_members, WithoutMembers)->Apply(sizes);
BENCHMARK_CAPTURE(Destruction, members, WithMembers)->Apply(sizes);
BENCHMARK_CAPTURE(Destruction_floor, members, WithMembers)->Apply(sizes);
BENCHMARK(Heap)->Apply(sizes)->Iterations(1);
BENCHMARK(Heap_floor)->Apply(sizes)->Iterations(1);

} // namespace

BENCHMARK_MAIN();
#include "mirror_geometry.moc"
