// Variates per second on one thread: 10^6 draws per call from the basic generator (GENID 1)
// and from MT19937 (GENID 3), the counter "ns_per_value" in wall-clock time. The peer is
// NumPy's Generator with PCG64 and MT19937 on the same distributions and parameters,
// measured by bench/variates_numpy.py.
#include <benchmark/benchmark.h>
#include <omp.h>

#include <functional>
#include <vector>

#include "lbx3207qk.h"

namespace {

constexpr int kN = 1000000;

std::vector<int> make_state(int genid)
{
    std::vector<int> state(1260);
    int subid = 1, lseed = 1, lstate = 1260, ifail = 0, seed = 1762;
    g05kff_(&genid, &subid, &seed, &lseed, state.data(), &lstate, &ifail);
    state.resize(state[0]);
    return state;
}

void finish(benchmark::State& st)
{
    st.counters["ns_per_value"] =
        benchmark::Counter(static_cast<double>(st.iterations()) * kN,
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

template <class F>
void run_real(benchmark::State& st, F f)
{
    omp_set_num_threads(1);
    std::vector<int> state = make_state(static_cast<int>(st.range(0)));
    std::vector<double> x(kN);
    for (auto _ : st) {
        int ifail = f(state.data(), x.data());
        benchmark::DoNotOptimize(x.data());
        if (ifail != 0)
            st.SkipWithError("IFAIL");
    }
    finish(st);
}

template <class F>
void run_int(benchmark::State& st, F f)
{
    omp_set_num_threads(1);
    std::vector<int> state = make_state(static_cast<int>(st.range(0)));
    std::vector<int> x(kN);
    std::vector<double> r(1);
    for (auto _ : st) {
        int ifail = f(state.data(), x.data(), r);
        benchmark::DoNotOptimize(x.data());
        if (ifail != 0)
            st.SkipWithError("IFAIL");
    }
    finish(st);
}

int n_ = kN;

void BM_Exponential(benchmark::State& st)
{
    run_real(st, [](int* s, double* x) {
        double a = 1.0;
        int ifail = 1;
        g05sff_(&n_, &a, s, x, &ifail);
        return ifail;
    });
}

void BM_Gamma(benchmark::State& st)
{
    const double shape = st.range(1) / 10.0;
    run_real(st, [shape](int* s, double* x) {
        double a = shape, b = 1.0;
        int ifail = 1;
        g05sjf_(&n_, &a, &b, s, x, &ifail);
        return ifail;
    });
}

void BM_Beta(benchmark::State& st)
{
    const double a = st.range(1) / 10.0, b = st.range(2) / 10.0;
    run_real(st, [a, b](int* s, double* x) {
        double aa = a, bb = b;
        int ifail = 1;
        g05sbf_(&n_, &aa, &bb, s, x, &ifail);
        return ifail;
    });
}

// MODE 3: the whole cost, set-up included, as NumPy has it.
void BM_Binomial(benchmark::State& st)
{
    const int m = static_cast<int>(st.range(1));
    run_int(st, [m](int* s, int* x, std::vector<double>& r) {
        int mode = 3, mm = m, lr = 1, ifail = 1;
        double p = 0.3;
        g05taf_(&mode, &n_, &mm, &p, r.data(), &lr, s, x, &ifail);
        return ifail;
    });
}

void BM_Geometric(benchmark::State& st)
{
    run_int(st, [](int* s, int* x, std::vector<double>& r) {
        int mode = 3, lr = 1, ifail = 1;
        double p = 0.1;
        g05tcf_(&mode, &n_, &p, r.data(), &lr, s, x, &ifail);
        return ifail;
    });
}

void BM_Hypergeometric(benchmark::State& st)
{
    run_int(st, [](int* s, int* x, std::vector<double>& r) {
        int mode = 3, ns = 1000, np = 100, m = 300, lr = 1, ifail = 1;
        g05tef_(&mode, &n_, &ns, &np, &m, r.data(), &lr, s, x, &ifail);
        return ifail;
    });
}

void BM_UniformIntegers(benchmark::State& st)
{
    run_int(st, [](int* s, int* x, std::vector<double>&) {
        int a = 0, b = 999, ifail = 1;
        g05tlf_(&n_, &a, &b, s, x, &ifail);
        return ifail;
    });
}

BENCHMARK(BM_Exponential)
    ->Arg(1)
    ->Arg(3)
    ->ArgName("GENID")
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Gamma)
    ->ArgsProduct({{1, 3}, {5, 20, 500}})
    ->ArgNames({"GENID", "shape_x10"})
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Beta)
    ->ArgsProduct({{1, 3}, {5, 20}, {5, 30}})
    ->ArgNames({"GENID", "a_x10", "b_x10"})
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Binomial)
    ->ArgsProduct({{1, 3}, {10, 100000}})
    ->ArgNames({"GENID", "M"})
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Geometric)
    ->Arg(1)
    ->Arg(3)
    ->ArgName("GENID")
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Hypergeometric)
    ->Arg(1)
    ->Arg(3)
    ->ArgName("GENID")
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_UniformIntegers)
    ->Arg(1)
    ->Arg(3)
    ->ArgName("GENID")
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
