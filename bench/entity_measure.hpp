#pragma once

#include <benchmark/benchmark.h>
#include <ctime>
#include <string>

/// Seconds of processor time that this thread has had. Everything here runs on one thread, and
/// other programs on the same machine count for less than on a clock on the wall.
inline double seconds_used()
{
    timespec time;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) + double(time.tv_nsec) * 1e-9;
}

/// Measures `work` alone, on a world from `make` in each iteration. `work` takes the world by
/// reference, and what `make` returned is destroyed outside of the measured time.
template <class Make, class Work>
void measure(benchmark::State& state, Make make, Work work)
{
    for (auto _ : state) {
        decltype(auto) world = make();
        const double start = seconds_used();
        work(world);
        state.SetIterationTime(seconds_used() - start);
    }
}

/// Registers what measure() is called in: one new world for each repetition.
template <class Function>
void register_once(const std::string& name, int size, Function function)
{
    benchmark::RegisterBenchmark((name + "/" + std::to_string(size)).c_str(),
        [function, size](benchmark::State& state) mutable { function(state, size); })
        ->UseManualTime()
        ->Iterations(1)
        ->Unit(benchmark::kMillisecond);
}

void register_fill();
void register_sort();
void register_edit();
void register_read();
void register_heap();
