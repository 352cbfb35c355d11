// F16 vector routines against OpenBLAS's routines of the same task: DAXPBY
// (Y = alpha X + beta Y), DSUM (OpenBLAS's sum extension) and IDAMAX (index of
// the largest |x|, against BLAS_DAMAX_VAL), unit stride, in cache and beyond.
#include <benchmark/benchmark.h>

#include <vector>

#include "lbx3207qk.h"

extern "C" {
void daxpby_(const int* n, const double* alpha, const double* x, const int* incx,
             const double* beta, double* y, const int* incy);
double dsum_(const int* n, const double* x, const int* incx);
int idamax_(const int* n, const double* x, const int* incx);
}

namespace {

std::vector<double> values(int n, int seed)
{
    std::vector<double> v(n);
    for (int i = 0; i < n; ++i)
        v[i] = ((i * 7919 + seed * 104729) % 1009 - 504) * 0.125;
    return v;
}

template <bool own>
void axpby(benchmark::State& state)
{
    const int n = static_cast<int>(state.range(0)), one = 1;
    const double a = 1.5, b = 0.5;
    const std::vector<double> x = values(n, 1);
    std::vector<double> y = values(n, 2);
    for (auto _ : state) {
        if (own)
            blas_daxpby_(&n, &a, x.data(), &one, &b, y.data(), &one);
        else
            daxpby_(&n, &a, x.data(), &one, &b, y.data(), &one);
        benchmark::DoNotOptimize(y.data());
    }
    state.SetItemsProcessed(state.iterations() * n);
}

template <bool own>
void sum(benchmark::State& state)
{
    const int n = static_cast<int>(state.range(0)), one = 1;
    const std::vector<double> x = values(n, 1);
    for (auto _ : state)
        benchmark::DoNotOptimize(own ? blas_dsum_(&n, x.data(), &one) : dsum_(&n, x.data(), &one));
    state.SetItemsProcessed(state.iterations() * n);
}

template <bool own>
void amax(benchmark::State& state)
{
    const int n = static_cast<int>(state.range(0)), one = 1;
    const std::vector<double> x = values(n, 1);
    int k = 0;
    double r = 0;
    for (auto _ : state) {
        if (own)
            blas_damax_val_(&n, x.data(), &one, &k, &r);
        else
            k = idamax_(&n, x.data(), &one);
        benchmark::DoNotOptimize(k);
    }
    state.SetItemsProcessed(state.iterations() * n);
}

}  // namespace

BENCHMARK(axpby<true>)->Name("BLAS_DAXPBY")->Arg(1000)->Arg(1000000);
BENCHMARK(axpby<false>)->Name("OpenBLAS daxpby")->Arg(1000)->Arg(1000000);
BENCHMARK(sum<true>)->Name("BLAS_DSUM")->Arg(1000)->Arg(1000000);
BENCHMARK(sum<false>)->Name("OpenBLAS dsum")->Arg(1000)->Arg(1000000);
BENCHMARK(amax<true>)->Name("BLAS_DAMAX_VAL")->Arg(1000)->Arg(1000000);
BENCHMARK(amax<false>)->Name("OpenBLAS idamax")->Arg(1000)->Arg(1000000);
