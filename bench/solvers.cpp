// F04BAF and F04CAF against the external library's driver and condition
// estimator called directly (dgesv + dgecon, zgesv + zgecon) on the same
// matrices, n = 200 to 4000 on 1 and 2 threads: the best of three calls each,
// as GFLOP/s of the factorization and solve, the time ratio, and the fraction
// of this machine's dgemm (zgemm) rate on the same threads.
//
//   build-bench/bench/bench_solvers --benchmark_counters_tabular=true
#include <benchmark/benchmark.h>
#include <dlfcn.h>
#include <omp.h>

#include <algorithm>
#include <chrono>
#include <complex>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <vector>

namespace {

using Complex = std::complex<double>;

extern "C" {
void f04baf_(const int*, const int*, double*, const int*, int*, double*, const int*, double*,
             double*, int*);
void f04caf_(const int*, const int*, Complex*, const int*, int*, Complex*, const int*, double*,
             double*, int*);
}

void* external(const char* symbol)
{
    static void* const handle = dlopen("libopenblas.so.0", RTLD_NOW | RTLD_NOLOAD);
    void* f = handle != nullptr ? dlsym(handle, symbol) : nullptr;
    if (f == nullptr) {
        std::fprintf(stderr, "%s not found in libopenblas.so.0\n", symbol);
        std::abort();
    }
    return f;
}

template <class F>
F* peer(const char* symbol)
{
    return reinterpret_cast<F*>(external(symbol));
}

void set_threads(int threads)
{
    omp_set_num_threads(threads);
    peer<void(int)>("openblas_set_num_threads")(threads);
}

template <class T>
std::vector<T> random_matrix(int n, unsigned seed)
{
    std::mt19937_64 gen(seed);
    std::uniform_real_distribution<double> u(-1.0, 1.0);
    std::vector<T> a(static_cast<std::size_t>(n) * n);
    for (T& x : a) {
        if constexpr (std::is_same_v<T, Complex>)
            x = Complex(u(gen), u(gen));
        else
            x = u(gen);
    }
    return a;
}

// Seconds of the best of three calls of f, each on fresh copies of the inputs.
template <class F>
double best_of_three(F f)
{
    double best = 1e300;
    for (int k = 0; k < 3; ++k) {
        const auto t0 = std::chrono::steady_clock::now();
        f();
        const auto t1 = std::chrono::steady_clock::now();
        best = std::min(best, std::chrono::duration<double>(t1 - t0).count());
    }
    return best;
}

template <class T>
double gemm_rate(int n)
{
    const auto a = random_matrix<T>(n, 1), b = random_matrix<T>(n, 2);
    auto c = a;
    const T one = 1, zero = 0;
    using gemm_t =
        void(const char*, const char*, const int*, const int*, const int*, const T*, const T*,
             const int*, const T*, const int*, const T*, T*, const int*, std::size_t, std::size_t);
    auto* gemm = peer<gemm_t>(std::is_same_v<T, Complex> ? "zgemm_" : "dgemm_");
    const double s = best_of_three([&] {
        gemm("N", "N", &n, &n, &n, &one, a.data(), &n, b.data(), &n, &zero, c.data(), &n, 1, 1);
    });
    return (std::is_same_v<T, Complex> ? 8.0 : 2.0) * n * double(n) * n / s * 1e-9;
}

template <class T>
void compare(benchmark::State& state)
{
    const int n = static_cast<int>(state.range(0));
    const int threads = static_cast<int>(state.range(1));
    set_threads(threads);
    static double gemm[2][2] = {};  // [complex][threads - 1]
    double& rate = gemm[std::is_same_v<T, Complex>][threads - 1];
    if (rate == 0)
        rate = std::is_same_v<T, Complex> ? gemm_rate<T>(1000) : gemm_rate<T>(2000);
    const int nrhs = 1;
    const auto a0 = random_matrix<T>(n, 3);
    const auto b0 = random_matrix<T>(1, 4);
    std::vector<T> b1(n, b0[0]);
    std::vector<int> ipiv(n);
    const double flops =
        (std::is_same_v<T, Complex> ? 4.0 : 1.0) * (2.0 / 3.0 * n * double(n) * n + 2.0 * n * n);

    auto a = a0;
    auto b = b1;
    double rcond = 0, errbnd = 0;
    const double ours = best_of_three([&] {
        a = a0;
        b = b1;
        int ifail = 0;
        if constexpr (std::is_same_v<T, Complex>)
            f04caf_(&n, &nrhs, a.data(), &n, ipiv.data(), b.data(), &n, &rcond, &errbnd, &ifail);
        else
            f04baf_(&n, &nrhs, a.data(), &n, ipiv.data(), b.data(), &n, &rcond, &errbnd, &ifail);
    });

    using lange_t =
        double(const char*, const int*, const int*, const T*, const int*, double*, std::size_t);
    using gesv_t = void(const int*, const int*, T*, const int*, int*, T*, const int*, int*);
    const bool z = std::is_same_v<T, Complex>;
    auto* lange = peer<lange_t>(z ? "zlange_" : "dlange_");
    auto* gesv = peer<gesv_t>(z ? "zgesv_" : "dgesv_");
    std::vector<double> rwork(2 * n);
    std::vector<T> work(4 * n);
    std::vector<int> iwork(n);
    const double direct = best_of_three([&] {
        a = a0;
        b = b1;
        int info = 0;
        const double anorm = lange("1", &n, &n, a.data(), &n, rwork.data(), 1);
        gesv(&n, &nrhs, a.data(), &n, ipiv.data(), b.data(), &n, &info);
        double r = 0;
        if constexpr (std::is_same_v<T, Complex>)
            peer<void(const char*, const int*, const T*, const int*, const double*, double*, T*,
                      double*, int*, std::size_t)>("zgecon_")("1", &n, a.data(), &n, &anorm, &r,
                                                              work.data(), rwork.data(), &info, 1);
        else
            peer<void(const char*, const int*, const T*, const int*, const double*, double*, T*,
                      int*, int*, std::size_t)>("dgecon_")("1", &n, a.data(), &n, &anorm, &r,
                                                           work.data(), iwork.data(), &info, 1);
    });
    for (auto _ : state)
        state.SetIterationTime(ours);
    state.counters["gflops"] = flops / ours * 1e-9;
    state.counters["direct_gflops"] = flops / direct * 1e-9;
    state.counters["ratio"] = ours / direct;
    state.counters["of_gemm"] = flops / ours * 1e-9 / rate;
}

[[maybe_unused]] const bool registered = [] {
    for (auto [name, fn] : {std::pair{"F04BAF:dgesv+dgecon", &compare<double>},
                            std::pair{"F04CAF:zgesv+zgecon", &compare<Complex>}}) {
        auto* b = benchmark::RegisterBenchmark(name, fn);
        for (long threads : {1L, 2L})
            for (long n : {200L, 1000L, 2000L, 4000L})
                b->Args({n, threads});
        b->ArgNames({"n", "threads"})
            ->Unit(benchmark::kMillisecond)
            ->UseManualTime()
            ->Iterations(1);
    }
    return true;
}();

}  // namespace
