// C06PCF and C06PAF through their plain entries against FFTW with a plan made
// beforehand with FFTW_MEASURE plus the same 1/sqrt(N) scaling pass, repeated
// forward transforms of one array in place.  The library's calls are warmed
// up first (its policy measures a plan on the second call), so both sides run
// measured plans; the figure to watch is the ratio library / FFTW per size.
// Sizes: 2^10, 2^16, 2^20, 3*5*7*2^10 and the prime 999983.
#include <benchmark/benchmark.h>

#include <fftw3.h>

#include <cmath>
#include <complex>
#include <vector>

#include "lbx3207qk.h"

namespace {

using cd = std::complex<double>;

template <class T>
T* aligned(std::size_t count)
{
    return static_cast<T*>(fftw_malloc(sizeof(T) * count));
}

void fill(double* x, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
        x[i] = std::sin(0.37 * static_cast<double>(i));
}

void set_rate(benchmark::State& state, int n)
{
    state.counters["ns/point"] =
        benchmark::Counter(static_cast<double>(n) * static_cast<double>(state.iterations()),
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

void complex_library(benchmark::State& state)
{
    int n = static_cast<int>(state.range(0)), ifail = 0;
    cd* x = aligned<cd>(n);
    fill(reinterpret_cast<double*>(x), 2 * static_cast<std::size_t>(n));
    cd work[1];
    for (int i = 0; i < 3; ++i)
        c06pcf_("F", x, &n, work, &ifail, 1);
    for (auto _ : state) {
        c06pcf_("F", x, &n, work, &ifail, 1);
        benchmark::DoNotOptimize(x);
    }
    set_rate(state, n);
    fftw_free(x);
}

void complex_fftw(benchmark::State& state)
{
    const int n = static_cast<int>(state.range(0));
    cd* x = aligned<cd>(n);
    fftw_forget_wisdom();
    fftw_plan p = fftw_plan_dft_1d(n, reinterpret_cast<fftw_complex*>(x),
                                   reinterpret_cast<fftw_complex*>(x), FFTW_FORWARD, FFTW_MEASURE);
    fill(reinterpret_cast<double*>(x), 2 * static_cast<std::size_t>(n));
    const double s = 1.0 / std::sqrt(static_cast<double>(n));
    double* r = reinterpret_cast<double*>(x);
    for (auto _ : state) {
        fftw_execute(p);
        for (int i = 0; i < 2 * n; ++i)
            r[i] *= s;
        benchmark::DoNotOptimize(x);
    }
    set_rate(state, n);
    fftw_destroy_plan(p);
    fftw_free(x);
}

void real_library(benchmark::State& state)
{
    int n = static_cast<int>(state.range(0)), ifail = 0;
    double* x = aligned<double>(n + 2);
    fill(x, n);
    double work[1];
    for (int i = 0; i < 3; ++i)
        c06paf_("F", x, &n, work, &ifail, 1);
    for (auto _ : state) {
        c06paf_("F", x, &n, work, &ifail, 1);
        benchmark::DoNotOptimize(x);
    }
    set_rate(state, n);
    fftw_free(x);
}

void real_fftw(benchmark::State& state)
{
    const int n = static_cast<int>(state.range(0));
    double* x = aligned<double>(n + 2);
    fftw_forget_wisdom();
    fftw_plan p = fftw_plan_dft_r2c_1d(n, x, reinterpret_cast<fftw_complex*>(x), FFTW_MEASURE);
    fill(x, n);
    const double s = 1.0 / std::sqrt(static_cast<double>(n));
    const int m = 2 * (n / 2 + 1);
    for (auto _ : state) {
        fftw_execute(p);
        for (int i = 0; i < m; ++i)
            x[i] *= s;
        benchmark::DoNotOptimize(x);
    }
    set_rate(state, n);
    fftw_destroy_plan(p);
    fftw_free(x);
}

void sizes(benchmark::internal::Benchmark* b)
{
    for (int n : {1 << 10, 1 << 16, 1 << 20, 3 * 5 * 7 * 1024, 999983})
        b->Arg(n);
    b->Unit(benchmark::kMicrosecond);
}

BENCHMARK(complex_library)->Apply(sizes);
BENCHMARK(complex_fftw)->Apply(sizes);
BENCHMARK(real_library)->Apply(sizes);
BENCHMARK(real_fftw)->Apply(sizes);

}  // namespace
