// The geometry mirror over the embedded kernel: what a refresh costs beside the
// answers of a kernel that looks things up, rather than reading them from a list.

#include <array>
#include <benchmark/benchmark.h>
#include <cmath>
#include <embedded/EmbeddedKernel.hpp>
#include <memory>
#include <string>
#include <tests/embedded/TestModels.hpp>
#include <treemodel/kernel/KestoInterface.hpp>
#include <treemodel/kernel/TreeModel.hpp>

using namespace KestoInterface;

namespace {

const std::array<std::string, 5> words{"body", "volume", "surface", "curve", "vertex"};

// A cube of cubes with about so many entities.
void open_lattice(EmbeddedKernel& kernel, std::int64_t entities)
{
    const int side = int(std::cbrt(double(entities) / 8));
    kernel.open_model(lattice(side, side, side), "lattice");
}

std::size_t entity_count()
{
    std::size_t count = 0;
    for (const std::string& word : words) {
        count += get_entities(word).size();
    }
    return count;
}

// The questions of a refresh that finds nothing changed, their answers thrown away.
void ask_about(std::size_t kind, int id)
{
    const std::string& word = words[kind];
    if (word == "body") {
        const std::vector<int> volumes = get_relatives(word, id, words[kind + 1]);
        benchmark::DoNotOptimize(!volumes.empty() && is_sheet_body(volumes.front()));
    }
    benchmark::DoNotOptimize(get_entity_name(word, id, true));
    benchmark::DoNotOptimize(is_visible(word, id));
    benchmark::DoNotOptimize(word == "volume" ? contains_virtual(word, id) : is_virtual(word, id));
    if (kind + 1 < words.size()) {
        benchmark::DoNotOptimize(get_relatives(word, id, words[kind + 1]));
    }
}

void count_records(benchmark::State& state)
{
    state.counters["time/record"] = benchmark::Counter(double(entity_count()),
        benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void SteadyRefresh(benchmark::State& state)
{
    EmbeddedKernel kernel;
    open_lattice(kernel, state.range(0));
    TreeModel mirror;
    mirror.refresh_model(false);
    for (auto _ : state) {
        mirror.refresh_model(false);
    }
    count_records(state);
}

void SteadyRefresh_floor(benchmark::State& state)
{
    EmbeddedKernel kernel;
    open_lattice(kernel, state.range(0));
    for (auto _ : state) {
        for (std::size_t kind = 0; kind < words.size(); ++kind) {
            for (const int id : get_entities(words[kind])) {
                ask_about(kind, id);
            }
        }
    }
    count_records(state);
}

void FirstFill(benchmark::State& state)
{
    EmbeddedKernel kernel;
    open_lattice(kernel, state.range(0));
    for (auto _ : state) {
        auto mirror = std::make_unique<TreeModel>();
        mirror->refresh_model(false);
        state.PauseTiming();
        mirror.reset();
        state.ResumeTiming();
    }
    count_records(state);
}

void sizes(benchmark::internal::Benchmark* family)
{
    family->Arg(10'000)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
}

BENCHMARK(FirstFill)->Apply(sizes);
BENCHMARK(SteadyRefresh)->Apply(sizes);
BENCHMARK(SteadyRefresh_floor)->Apply(sizes);

} // namespace

BENCHMARK_MAIN();
