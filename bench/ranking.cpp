// M01DAF (stable ranks) through its plain entry against a stable argsort,
// std::stable_sort of the indices, on the same data in one run; M01NAF (one
// search a call, VALID false) against std::upper_bound.  Report: ns per element
// (ranking) or per search; bench/ranking_numpy.py measures NumPy's
// argsort(kind="stable") and searchsorted on data of the same kinds.
// Kind 0: uniform reals in (-1, 1); kind 1: 1000 distinct values (many ties).
#include <benchmark/benchmark.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <vector>

#include "lbx3207qk.h"

namespace {

std::vector<double> make(std::size_t n, int kind)
{
    std::vector<double> v(n);
    std::mt19937_64 gen(42);
    std::uniform_real_distribution<double> u(-1.0, 1.0);
    for (double& x : v)
        x = kind == 0 ? u(gen) : static_cast<double>(gen() % 1000);
    return v;
}

void counters(benchmark::State& state, std::size_t per_iteration)
{
    state.counters["ns/elem"] = benchmark::Counter(
        static_cast<double>(per_iteration) * static_cast<double>(state.iterations()),
        benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

void M01DAF(benchmark::State& state)
{
    const auto n = static_cast<std::size_t>(state.range(0));
    const std::vector<double> rv = make(n, static_cast<int>(state.range(1)));
    std::vector<int> irank(n);
    for (auto _ : state) {
        int m1 = 1, m2 = static_cast<int>(n), ifail = 0;
        m01daf_(rv.data(), &m1, &m2, "A", irank.data(), &ifail, 1);
        benchmark::DoNotOptimize(irank.data());
    }
    counters(state, n);
}

void StableArgsort(benchmark::State& state)
{
    const auto n = static_cast<std::size_t>(state.range(0));
    const std::vector<double> rv = make(n, static_cast<int>(state.range(1)));
    std::vector<int> idx(n);
    for (auto _ : state) {
        std::iota(idx.begin(), idx.end(), 0);
        std::stable_sort(idx.begin(), idx.end(), [&](int a, int b) { return rv[a] < rv[b]; });
        benchmark::DoNotOptimize(idx.data());
    }
    counters(state, n);
}

constexpr std::size_t searches = 1 << 16;

template <bool Library>
void search(benchmark::State& state)
{
    const auto n = static_cast<std::size_t>(state.range(0));
    std::vector<double> rv = make(n, 0);
    std::sort(rv.begin(), rv.end());
    const std::vector<double> items = make(searches, 0);
    const int valid = 0, m1 = 1, m2 = static_cast<int>(n);
    for (auto _ : state) {
        long sum = 0;
        for (double item : items) {
            if constexpr (Library) {
                int ifail = 0;
                sum += m01naf_(&valid, rv.data(), &m1, &m2, &item, &ifail);
            } else {
                sum += std::upper_bound(rv.begin(), rv.end(), item) - rv.begin();
            }
        }
        benchmark::DoNotOptimize(sum);
    }
    counters(state, searches);
}

void M01NAF(benchmark::State& s)
{
    search<true>(s);
}
void UpperBound(benchmark::State& s)
{
    search<false>(s);
}

void rank_sizes(benchmark::internal::Benchmark* b)
{
    for (int kind : {0, 1})
        for (long n : {1000000L, 10000000L})
            b->Args({n, kind});
    b->ArgNames({"n", "kind"})->Unit(benchmark::kMillisecond)->UseRealTime();
}

void search_sizes(benchmark::internal::Benchmark* b)
{
    b->Arg(1000000)->Arg(10000000)->ArgName("n")->Unit(benchmark::kMillisecond)->UseRealTime();
}

}  // namespace

BENCHMARK(M01DAF)->Apply(rank_sizes);
BENCHMARK(StableArgsort)->Apply(rank_sizes);
BENCHMARK(M01NAF)->Apply(search_sizes);
BENCHMARK(UpperBound)->Apply(search_sizes);
