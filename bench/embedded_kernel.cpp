// The embedded kernel by itself: loading a lattice, and the questions that an observer asks of each
// entity, per entity, from ten thousand entities to a million.

#include <benchmark/benchmark.h>
#include <cmath>
#include <embedded/EmbeddedKernel.hpp>
#include <malloc.h>
#include <memory>
#include <tests/embedded/TestModels.hpp>
#include <treemodel/kernel/KestoInterface.hpp>

using namespace KestoInterface;

namespace {

constexpr const char* types[] = {"body", "volume", "surface", "curve", "vertex"};

// A cube of cubes with about so many entities.
ModelData lattice_of(std::int64_t entities)
{
    const int side = static_cast<int>(std::cbrt(static_cast<double>(entities) / 8));
    return lattice(side, side, side);
}

std::size_t size_of(const ModelData& model)
{
    return model.bodies.size() + model.volumes.size() + model.surfaces.size() +
           model.curves.size() + model.vertices.size();
}

std::size_t heap_in_use()
{
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

void report_per_entity(benchmark::State& state, std::size_t entities)
{
    state.counters["entities"] = static_cast<double>(entities);
    state.counters["per_entity"] = benchmark::Counter(static_cast<double>(entities),
        benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void load(benchmark::State& state)
{
    const ModelData model = lattice_of(state.range(0));
    for (auto _ : state) {
        EmbeddedKernel kernel;
        kernel.open_model(model, "lattice");
        state.PauseTiming();
        benchmark::DoNotOptimize(kernel);
        state.ResumeTiming();
    }
    const std::size_t before = heap_in_use();
    EmbeddedKernel kernel;
    kernel.open_model(model, "lattice");
    state.counters["bytes"] =
        static_cast<double>(heap_in_use() - before) / static_cast<double>(size_of(model));
    report_per_entity(state, size_of(model));
}

// What a refresh asks: every name, visibility, virtual flag and list of children.
void read_all(benchmark::State& state)
{
    const ModelData model = lattice_of(state.range(0));
    EmbeddedKernel kernel;
    kernel.open_model(model, "lattice");
    for (auto _ : state) {
        for (std::size_t i = 0; i < std::size(types); ++i) {
            const std::string type = types[i];
            for (const int id : get_entities(type)) {
                benchmark::DoNotOptimize(get_entity_name(type, id, true));
                benchmark::DoNotOptimize(is_visible(type, id));
                benchmark::DoNotOptimize(contains_virtual(type, id));
                if (i + 1 < std::size(types)) {
                    benchmark::DoNotOptimize(get_relatives(type, id, types[i + 1]));
                }
            }
        }
    }
    report_per_entity(state, size_of(model));
}

// One question about ids spread over the whole model.
void relatives(benchmark::State& state, const char* source, const char* target)
{
    EmbeddedKernel kernel;
    kernel.open_model(lattice_of(state.range(0)), "lattice");
    const auto count = get_entities(source).size();
    std::size_t i = 0;
    for (auto _ : state) {
        i = (i + 7919) % count;
        benchmark::DoNotOptimize(get_relatives(source, static_cast<int>(i) + 1, target));
    }
}

void create_and_remove(benchmark::State& state)
{
    EmbeddedKernel kernel;
    kernel.open_model(lattice_of(state.range(0)), "lattice");
    for (auto _ : state) {
        const int curve = kernel.create_curve({1, 2});
        kernel.remove(EntityKind::CURVE, curve);
    }
}

void sizes(benchmark::internal::Benchmark* bench)
{
    bench->Arg(10'000)->Arg(100'000)->Arg(1'000'000);
}

BENCHMARK(load)->Apply(sizes)->Unit(benchmark::kMillisecond);
BENCHMARK(read_all)->Apply(sizes)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(relatives, surface_to_curves, "surface", "curve")->Apply(sizes);
BENCHMARK_CAPTURE(relatives, surface_to_volumes, "surface", "volume")->Apply(sizes);
BENCHMARK_CAPTURE(relatives, body_to_surfaces, "body", "surface")->Apply(sizes);
BENCHMARK_CAPTURE(relatives, vertex_to_bodies, "vertex", "body")->Apply(sizes);
BENCHMARK(create_and_remove)->Apply(sizes);

} // namespace

BENCHMARK_MAIN();
