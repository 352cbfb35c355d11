// The monotone piecewise cubic Hermite family against GSL's Steffen
// interpolant (gsl_interp_steffen, the same kind of monotone cubic) in one
// binary: building the interpolant on 10^6 nodes (E01BEF against
// gsl_interp_init; the GSL object is allocated outside the timing) and
// evaluating it at 10^7 points, sorted or in random order (E01BFF against
// gsl_interp_eval with an accelerator, one call per point as GSL offers it).
// Counters: ns per node (build) and ns per point (evaluation).  The ratios
// E01BEF / GSL build and E01BFF / GSL evaluation are the figures to watch.
// Run with --benchmark_repetitions=3 --benchmark_report_aggregates_only=true
// and read the "_min" rows (the least disturbed run on a shared machine).
// SciPy's PchipInterpolator on the same data: bench/pchip_scipy.py.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

#include <gsl/gsl_errno.h>
#include <gsl/gsl_interp.h>

#include "lbx3207qk.h"

namespace {

constexpr int kNodes = 1000000;
constexpr int kPoints = 10000000;

// Increasing abscissae with uneven spacing, increasing values with flat and
// steep stretches (monotone data, the case the interpolants are made for).
struct Data {
    std::vector<double> x, f, d, sorted, random;
    Data() : x(kNodes), f(kNodes), d(kNodes), sorted(kPoints), random(kPoints)
    {
        std::mt19937_64 gen(2026);
        std::uniform_real_distribution<double> u(0, 1);
        for (int i = 0; i < kNodes; ++i) {
            x[i] = i == 0 ? 0 : x[i - 1] + 0.5 + u(gen);
            f[i] = i == 0 ? 0 : f[i - 1] + (i % 100 < 10 ? 0 : std::pow(u(gen), 3));
        }
        std::uniform_real_distribution<double> p(x[0], x[kNodes - 1]);
        for (double& v : random)
            v = p(gen);
        sorted = random;
        std::sort(sorted.begin(), sorted.end());
        int n = kNodes, ifail = 0;
        e01bef_(&n, x.data(), f.data(), d.data(), &ifail);
    }
};

const Data& data()
{
    static const Data d;
    return d;
}

void per(benchmark::State& state, double count, const char* name)
{
    state.counters[name] = benchmark::Counter(
        count, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void Build_E01BEF(benchmark::State& state)
{
    const Data& s = data();
    std::vector<double> d(kNodes);
    for (auto _ : state) {
        int n = kNodes, ifail = 0;
        e01bef_(&n, s.x.data(), s.f.data(), d.data(), &ifail);
        benchmark::DoNotOptimize(d.data());
    }
    per(state, kNodes, "ns/node");
}

void Build_GSL_steffen(benchmark::State& state)
{
    const Data& s = data();
    gsl_interp* interp = gsl_interp_alloc(gsl_interp_steffen, kNodes);
    for (auto _ : state) {
        gsl_interp_init(interp, s.x.data(), s.f.data(), kNodes);
        benchmark::ClobberMemory();
    }
    gsl_interp_free(interp);
    per(state, kNodes, "ns/node");
}

const std::vector<double>& points(const benchmark::State& state)
{
    return state.range(0) == 0 ? data().sorted : data().random;
}

void Eval_E01BFF(benchmark::State& state)
{
    const Data& s = data();
    const std::vector<double>& px = points(state);
    std::vector<double> pf(kPoints);
    for (auto _ : state) {
        int n = kNodes, m = kPoints, ifail = 1;
        e01bff_(&n, s.x.data(), s.f.data(), s.d.data(), &m, px.data(), pf.data(), &ifail);
        benchmark::DoNotOptimize(pf.data());
    }
    per(state, kPoints, "ns/point");
}

void Eval_GSL_steffen(benchmark::State& state)
{
    const Data& s = data();
    const std::vector<double>& px = points(state);
    std::vector<double> pf(kPoints);
    gsl_set_error_handler_off();
    gsl_interp* interp = gsl_interp_alloc(gsl_interp_steffen, kNodes);
    gsl_interp_init(interp, s.x.data(), s.f.data(), kNodes);
    gsl_interp_accel* acc = gsl_interp_accel_alloc();
    for (auto _ : state) {
        gsl_interp_accel_reset(acc);
        for (int k = 0; k < kPoints; ++k)
            pf[k] = gsl_interp_eval(interp, s.x.data(), s.f.data(), px[k], acc);
        benchmark::DoNotOptimize(pf.data());
    }
    gsl_interp_accel_free(acc);
    gsl_interp_free(interp);
    per(state, kPoints, "ns/point");
}

double least(const std::vector<double>& v)
{
    return *std::min_element(v.begin(), v.end());
}

void build(benchmark::internal::Benchmark* b)
{
    b->Unit(benchmark::kMillisecond)->UseRealTime()->ComputeStatistics("min", least);
}

void evaluate(benchmark::internal::Benchmark* b)
{
    build(b->ArgName("random")->Arg(0)->Arg(1));
}

}  // namespace

BENCHMARK(Build_E01BEF)->Apply(build);
BENCHMARK(Build_GSL_steffen)->Apply(build);
BENCHMARK(Eval_E01BFF)->Apply(evaluate);
BENCHMARK(Eval_GSL_steffen)->Apply(evaluate);
