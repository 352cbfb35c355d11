// M01CAF through its plain entry against std::sort, on the same data in one run.
// Report: ns per element; the ratio M01CAF / std::sort is the figure to watch.
// threads:1 runs M01CAF on one thread, threads:0 on all processors (std::sort
// is serial either way); kind 0 random, 1 sorted, 2 reversed.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <random>
#include <vector>

#include <omp.h>

#include "lbx3207qk.h"

namespace {

enum Kind { random_data, sorted_data, reversed_data };

std::vector<double> make(std::size_t n, Kind kind)
{
    std::vector<double> v(n);
    std::mt19937_64 gen(42);
    std::uniform_real_distribution<double> u(-1.0, 1.0);
    for (double& x : v)
        x = u(gen);
    if (kind == sorted_data)
        std::sort(v.begin(), v.end());
    if (kind == reversed_data)
        std::sort(v.begin(), v.end(), std::greater<>());
    return v;
}

void run(benchmark::State& state, bool library)
{
    const auto n = static_cast<std::size_t>(state.range(0));
    const auto kind = static_cast<Kind>(state.range(1));
    const int threads = static_cast<int>(state.range(2));
    omp_set_num_threads(threads > 0 ? threads : omp_get_num_procs());
    const std::vector<double> data = make(n, kind);
    std::vector<double> work(n);
    for (auto _ : state) {
        state.PauseTiming();
        work = data;
        state.ResumeTiming();
        if (library) {
            int m1 = 1, m2 = static_cast<int>(n), ifail = 0;
            m01caf_(work.data(), &m1, &m2, "A", &ifail, 1);
        } else {
            std::sort(work.begin(), work.end());
        }
        benchmark::DoNotOptimize(work.data());
    }
    state.counters["ns/elem"] =
        benchmark::Counter(static_cast<double>(n) * static_cast<double>(state.iterations()),
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

void M01CAF(benchmark::State& s)
{
    run(s, true);
}
void StdSort(benchmark::State& s)
{
    run(s, false);
}

void sizes(benchmark::internal::Benchmark* b)
{
    for (int kind : {random_data, sorted_data, reversed_data})
        for (long n : {1000000L, 10000000L})
            for (long threads : {1L, 0L})
                b->Args({n, kind, threads});
    b->ArgNames({"n", "kind", "threads"})->Unit(benchmark::kMillisecond)->UseRealTime();
}

}  // namespace

BENCHMARK(M01CAF)->Apply(sizes);
BENCHMARK(StdSort)->Apply(sizes);
