// The linear-algebra chapter against the external BLAS/LAPACK library on the
// same data in one run.  Each benchmark calls a chapter routine through its
// plain entry (which takes the library's own path) and the external routine
// of the same standard name, looked up in the external library's own handle
// so that the library's exports of the standard names are bypassed.
//
// Report (per call): chapter_ms, openblas_ms and ratio = chapter / openblas,
// the figure to watch; the benchmark's own time is the chapter's.  Arguments:
// n (order) and threads (OpenMP and the external library's threads alike).
// Overhead/ times 1000 calls of a 1 x 1 x 1 matrix product.  F07ADGN, the
// library's parallel LU, is measured against DGETRF the same way.
#include <benchmark/benchmark.h>

#include <dlfcn.h>

#include <algorithm>
#include <chrono>
#include <complex>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include <omp.h>

using zcomplex = std::complex<double>;
using len = std::size_t;

// The standard argument lists, shared by the chapter entries and the external
// routines.
using gemm_t = void(const char*, const char*, const int*, const int*, const int*, const double*,
                    const double*, const int*, const double*, const int*, const double*, double*,
                    const int*, len, len);
using getrf_t = void(const int*, const int*, double*, const int*, int*, int*);
using getri_t = void(const int*, double*, const int*, const int*, double*, const int*, int*);
using gelqf_t = void(const int*, const int*, double*, const int*, double*, double*, const int*,
                     int*);
using syev_t = void(const char*, const char*, const int*, double*, const int*, double*, double*,
                    const int*, int*, len, len);
using syevd_t = void(const char*, const char*, const int*, double*, const int*, double*, double*,
                     const int*, int*, const int*, int*, len, len);
using gesvd_t = void(const char*, const char*, const int*, const int*, double*, const int*, double*,
                     double*, const int*, double*, const int*, double*, const int*, int*, len, len);
using geev_t = void(const char*, const char*, const int*, double*, const int*, double*, double*,
                    double*, const int*, double*, const int*, double*, const int*, int*, len, len);
using trtri_t = void(const char*, const char*, const int*, double*, const int*, int*, len, len);
using gels_t = void(const char*, const int*, const int*, const int*, double*, const int*, double*,
                    const int*, double*, const int*, int*, len);
using sytrf_t = void(const char*, const int*, double*, const int*, int*, double*, const int*, int*,
                     len);
using heev_t = void(const char*, const char*, const int*, zcomplex*, const int*, double*, zcomplex*,
                    const int*, double*, int*, len, len);

// The chapter's plain entries.
extern "C" {
gemm_t f06yaf_;    // DGEMM
getri_t f07ajf_;   // DGETRI
gelqf_t f08ahf_;   // DGELQF
syev_t f08faf_;    // DSYEV
syevd_t f08fcf_;   // DSYEVD
gesvd_t f08kbf_;   // DGESVD
geev_t f08naf_;    // DGEEV
trtri_t f07tjf_;   // DTRTRI
gels_t f08aaf_;    // DGELS
sytrf_t f07mdf_;   // DSYTRF
heev_t f08fnf_;    // ZHEEV
getrf_t f07adgn_;  // DGETRF's factorization in a parallel region
}

namespace {

void* external(const char* symbol)
{
    static void* const handle = [] {
        void* h = dlopen("libopenblas.so.0", RTLD_NOW | RTLD_NOLOAD);
        return h != nullptr ? h : dlopen("libopenblas.so.0", RTLD_NOW | RTLD_LOCAL);
    }();
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
    reinterpret_cast<void (*)(int)>(external("openblas_set_num_threads"))(threads);
}

std::vector<double> random_matrix(int m, int n, unsigned seed)
{
    std::mt19937_64 gen(seed);
    std::uniform_real_distribution<double> u(-1.0, 1.0);
    std::vector<double> a(static_cast<std::size_t>(m) * n);
    for (double& x : a)
        x = u(gen);
    return a;
}

std::vector<double> symmetric_matrix(int n, unsigned seed)
{
    std::vector<double> a = random_matrix(n, n, seed);
    for (int j = 0; j < n; ++j)
        for (int i = 0; i < j; ++i)
            a[static_cast<std::size_t>(j) * n + i] = a[static_cast<std::size_t>(i) * n + j];
    return a;
}

// The larger of two workspace queries (LWORK = -1 answers in WORK(1)).
template <class Query>
int workspace(Query query)
{
    double chapter = 0.0, ext = 0.0;
    query(true, chapter);
    query(false, ext);
    return std::max(1, static_cast<int>(std::max(chapter, ext)));
}

// One routine's data for order n: reset() restores the inputs, call(chapter)
// runs the chapter entry or the external routine on them.
struct Gemm {
    int n;
    std::vector<double> a, b, c;
    explicit Gemm(int n_) : n(n_), a(random_matrix(n, n, 1)), b(random_matrix(n, n, 2)), c(a) {}
    void reset() {}
    void call(bool chapter)
    {
        static gemm_t* const ext = peer<gemm_t>("dgemm_");
        const double one = 1.0, zero = 0.0;
        (chapter ? f06yaf_ : ext)("N", "N", &n, &n, &n, &one, a.data(), &n, b.data(), &n, &zero,
                                  c.data(), &n, 1, 1);
    }
};

struct Getrf {
    int n, info = 0;
    std::vector<double> a0, a;
    std::vector<int> ipiv;
    explicit Getrf(int n_) : n(n_), a0(random_matrix(n, n, 15)), a(a0), ipiv(n) {}
    void reset() { a = a0; }
    void call(bool chapter)
    {
        static getrf_t* const ext = peer<getrf_t>("dgetrf_");
        (chapter ? f07adgn_ : ext)(&n, &n, a.data(), &n, ipiv.data(), &info);
    }
};

struct Getri {
    int n, lwork = 1, info = 0;
    std::vector<double> lu, a, work;
    std::vector<int> ipiv;
    explicit Getri(int n_) : n(n_), lu(random_matrix(n, n, 3)), ipiv(n)
    {
        peer<getrf_t>("dgetrf_")(&n, &n, lu.data(), &n, ipiv.data(), &info);
        a = lu;
        lwork = workspace([&](bool chapter, double& w) {
            const int query = -1;
            (chapter ? f07ajf_ : peer<getri_t>("dgetri_"))(&n, a.data(), &n, ipiv.data(), &w,
                                                           &query, &info);
        });
        work.resize(lwork);
    }
    void reset() { a = lu; }
    void call(bool chapter)
    {
        static getri_t* const ext = peer<getri_t>("dgetri_");
        (chapter ? f07ajf_ : ext)(&n, a.data(), &n, ipiv.data(), work.data(), &lwork, &info);
    }
};

struct Gelqf {
    int n, lwork = 1, info = 0;
    std::vector<double> a0, a, tau, work;
    explicit Gelqf(int n_) : n(n_), a0(random_matrix(n, n, 4)), a(a0), tau(n)
    {
        lwork = workspace([&](bool chapter, double& w) {
            const int query = -1;
            (chapter ? f08ahf_ : peer<gelqf_t>("dgelqf_"))(&n, &n, a.data(), &n, tau.data(), &w,
                                                           &query, &info);
        });
        work.resize(lwork);
    }
    void reset() { a = a0; }
    void call(bool chapter)
    {
        static gelqf_t* const ext = peer<gelqf_t>("dgelqf_");
        (chapter ? f08ahf_ : ext)(&n, &n, a.data(), &n, tau.data(), work.data(), &lwork, &info);
    }
};

struct Syev {
    int n, lwork = 1, info = 0;
    std::vector<double> a0, a, w, work;
    explicit Syev(int n_) : n(n_), a0(symmetric_matrix(n, 5)), a(a0), w(n)
    {
        lwork = workspace([&](bool chapter, double& q) {
            const int query = -1;
            (chapter ? f08faf_ : peer<syev_t>("dsyev_"))("V", "L", &n, a.data(), &n, w.data(), &q,
                                                         &query, &info, 1, 1);
        });
        work.resize(lwork);
    }
    void reset() { a = a0; }
    void call(bool chapter)
    {
        static syev_t* const ext = peer<syev_t>("dsyev_");
        (chapter ? f08faf_ : ext)("V", "L", &n, a.data(), &n, w.data(), work.data(), &lwork, &info,
                                  1, 1);
    }
};

struct Syevd {
    int n, lwork = 1, liwork = 1, info = 0;
    std::vector<double> a0, a, w, work;
    std::vector<int> iwork;
    explicit Syevd(int n_) : n(n_), a0(symmetric_matrix(n, 6)), a(a0), w(n)
    {
        for (bool chapter : {true, false}) {
            const int query = -1;
            double q = 0.0;
            int iq = 0;
            (chapter ? f08fcf_ : peer<syevd_t>("dsyevd_"))("V", "L", &n, a.data(), &n, w.data(), &q,
                                                           &query, &iq, &query, &info, 1, 1);
            lwork = std::max(lwork, static_cast<int>(q));
            liwork = std::max(liwork, iq);
        }
        work.resize(lwork);
        iwork.resize(liwork);
    }
    void reset() { a = a0; }
    void call(bool chapter)
    {
        static syevd_t* const ext = peer<syevd_t>("dsyevd_");
        (chapter ? f08fcf_ : ext)("V", "L", &n, a.data(), &n, w.data(), work.data(), &lwork,
                                  iwork.data(), &liwork, &info, 1, 1);
    }
};

struct Gesvd {
    int n, lwork = 1, info = 0;
    std::vector<double> a0, a, s, u, vt, work;
    explicit Gesvd(int n_)
        : n(n_),
          a0(random_matrix(n, n, 7)),
          a(a0),
          s(n),
          u(static_cast<std::size_t>(n) * n),
          vt(u.size())
    {
        lwork = workspace([&](bool chapter, double& q) {
            const int query = -1;
            (chapter ? f08kbf_ : peer<gesvd_t>("dgesvd_"))("S", "S", &n, &n, a.data(), &n, s.data(),
                                                           u.data(), &n, vt.data(), &n, &q, &query,
                                                           &info, 1, 1);
        });
        work.resize(lwork);
    }
    void reset() { a = a0; }
    void call(bool chapter)
    {
        static gesvd_t* const ext = peer<gesvd_t>("dgesvd_");
        (chapter ? f08kbf_ : ext)("S", "S", &n, &n, a.data(), &n, s.data(), u.data(), &n, vt.data(),
                                  &n, work.data(), &lwork, &info, 1, 1);
    }
};

struct Geev {
    int n, lwork = 1, info = 0, one = 1;
    std::vector<double> a0, a, wr, wi, vl, vr, work;
    explicit Geev(int n_)
        : n(n_),
          a0(random_matrix(n, n, 8)),
          a(a0),
          wr(n),
          wi(n),
          vl(1),
          vr(static_cast<std::size_t>(n) * n)
    {
        lwork = workspace([&](bool chapter, double& q) {
            const int query = -1;
            (chapter ? f08naf_ : peer<geev_t>("dgeev_"))("N", "V", &n, a.data(), &n, wr.data(),
                                                         wi.data(), vl.data(), &one, vr.data(), &n,
                                                         &q, &query, &info, 1, 1);
        });
        work.resize(lwork);
    }
    void reset() { a = a0; }
    void call(bool chapter)
    {
        static geev_t* const ext = peer<geev_t>("dgeev_");
        (chapter ? f08naf_ : ext)("N", "V", &n, a.data(), &n, wr.data(), wi.data(), vl.data(), &one,
                                  vr.data(), &n, work.data(), &lwork, &info, 1, 1);
    }
};

struct Trtri {
    int n, info = 0;
    std::vector<double> a0, a;
    // Upper triangle of a random matrix with a diagonal of n: well conditioned.
    explicit Trtri(int n_) : n(n_), a0(random_matrix(n, n, 9))
    {
        for (int j = 0; j < n; ++j)
            a0[static_cast<std::size_t>(j) * n + j] = n;
        a = a0;
    }
    void reset() { a = a0; }
    void call(bool chapter)
    {
        static trtri_t* const ext = peer<trtri_t>("dtrtri_");
        (chapter ? f07tjf_ : ext)("U", "N", &n, a.data(), &n, &info, 1, 1);
    }
};

// Least squares with n equations in n/2 unknowns and one right-hand side.
struct Gels {
    int m, n, nrhs = 1, lwork = 1, info = 0;
    std::vector<double> a0, b0, a, b, work;
    explicit Gels(int order)
        : m(order),
          n(order / 2),
          a0(random_matrix(m, n, 10)),
          b0(random_matrix(m, 1, 11)),
          a(a0),
          b(b0)
    {
        lwork = workspace([&](bool chapter, double& q) {
            const int query = -1;
            (chapter ? f08aaf_ : peer<gels_t>("dgels_"))("N", &m, &n, &nrhs, a.data(), &m, b.data(),
                                                         &m, &q, &query, &info, 1);
        });
        work.resize(lwork);
    }
    void reset()
    {
        a = a0;
        b = b0;
    }
    void call(bool chapter)
    {
        static gels_t* const ext = peer<gels_t>("dgels_");
        (chapter ? f08aaf_ : ext)("N", &m, &n, &nrhs, a.data(), &m, b.data(), &m, work.data(),
                                  &lwork, &info, 1);
    }
};

struct Sytrf {
    int n, lwork = 1, info = 0;
    std::vector<double> a0, a, work;
    std::vector<int> ipiv;
    explicit Sytrf(int n_) : n(n_), a0(symmetric_matrix(n, 12)), a(a0), ipiv(n)
    {
        lwork = workspace([&](bool chapter, double& q) {
            const int query = -1;
            (chapter ? f07mdf_ : peer<sytrf_t>("dsytrf_"))("L", &n, a.data(), &n, ipiv.data(), &q,
                                                           &query, &info, 1);
        });
        work.resize(lwork);
    }
    void reset() { a = a0; }
    void call(bool chapter)
    {
        static sytrf_t* const ext = peer<sytrf_t>("dsytrf_");
        (chapter ? f07mdf_ : ext)("L", &n, a.data(), &n, ipiv.data(), work.data(), &lwork, &info,
                                  1);
    }
};

struct Heev {
    int n, lwork = 1, info = 0;
    std::vector<zcomplex> a0, a, work;
    std::vector<double> w, rwork;
    explicit Heev(int n_)
        : n(n_), a0(static_cast<std::size_t>(n) * n), w(n), rwork(std::max(1, 3 * n - 2))
    {
        const std::vector<double> re = random_matrix(n, n, 13), im = random_matrix(n, n, 14);
        for (int j = 0; j < n; ++j)
            for (int i = 0; i <= j; ++i) {
                const std::size_t ij = static_cast<std::size_t>(j) * n + i;
                const std::size_t ji = static_cast<std::size_t>(i) * n + j;
                a0[ij] = zcomplex(re[ij], i == j ? 0.0 : im[ij]);
                a0[ji] = std::conj(a0[ij]);
            }
        a = a0;
        for (bool chapter : {true, false}) {
            const int query = -1;
            zcomplex q = 0.0;
            (chapter ? f08fnf_ : peer<heev_t>("zheev_"))("V", "L", &n, a.data(), &n, w.data(), &q,
                                                         &query, rwork.data(), &info, 1, 1);
            lwork = std::max(lwork, static_cast<int>(q.real()));
        }
        work.resize(lwork);
    }
    void reset() { a = a0; }
    void call(bool chapter)
    {
        static heev_t* const ext = peer<heev_t>("zheev_");
        (chapter ? f08fnf_ : ext)("V", "L", &n, a.data(), &n, w.data(), work.data(), &lwork,
                                  rwork.data(), &info, 1, 1);
    }
};

using Clock = std::chrono::steady_clock;

template <class Routine>
void compare(benchmark::State& state)
{
    const int n = static_cast<int>(state.range(0));
    set_threads(static_cast<int>(state.range(1)));
    Routine r(n);
    double chapter = 0.0, ext = 0.0;
    // On several threads each call starts once the other side's helper
    // threads (which spin a while after their work) have gone to sleep.
    const auto settle = [&] {
        if (state.range(1) > 1)
            std::this_thread::sleep_for(std::chrono::milliseconds(300));
    };
    for (auto _ : state) {
        r.reset();
        settle();
        const auto t0 = Clock::now();
        r.call(true);
        const auto t1 = Clock::now();
        r.reset();
        settle();
        const auto t2 = Clock::now();
        r.call(false);
        const auto t3 = Clock::now();
        const double tc = std::chrono::duration<double>(t1 - t0).count();
        chapter += tc;
        ext += std::chrono::duration<double>(t3 - t2).count();
        state.SetIterationTime(tc);
    }
    const double calls = static_cast<double>(state.iterations());
    state.counters["chapter_ms"] = 1e3 * chapter / calls;
    state.counters["openblas_ms"] = 1e3 * ext / calls;
    state.counters["ratio"] = chapter / ext;
}

// The call layers' cost: a 1 x 1 x 1 product, 1000 calls a round.
void overhead(benchmark::State& state)
{
    set_threads(1);
    static gemm_t* const ext = peer<gemm_t>("dgemm_");
    constexpr int calls = 1000;
    const int one = 1;
    const double alpha = 1.0, beta = 0.5, a = 0.75, b = 1.25;
    double c = 0.0;
    double chapter = 0.0, external_s = 0.0;
    for (auto _ : state) {
        const auto t0 = Clock::now();
        for (int i = 0; i < calls; ++i)
            f06yaf_("N", "N", &one, &one, &one, &alpha, &a, &one, &b, &one, &beta, &c, &one, 1, 1);
        const auto t1 = Clock::now();
        for (int i = 0; i < calls; ++i)
            ext("N", "N", &one, &one, &one, &alpha, &a, &one, &b, &one, &beta, &c, &one, 1, 1);
        const auto t2 = Clock::now();
        benchmark::DoNotOptimize(c);
        const double tc = std::chrono::duration<double>(t1 - t0).count();
        chapter += tc;
        external_s += std::chrono::duration<double>(t2 - t1).count();
        state.SetIterationTime(tc);
    }
    const double total = static_cast<double>(state.iterations()) * calls;
    state.counters["chapter_ns"] = 1e9 * chapter / total;
    state.counters["openblas_ns"] = 1e9 * external_s / total;
    state.counters["ratio"] = chapter / external_s;
}

template <class Routine>
void add(const char* name)
{
    // Large orders take seconds a call: one call each.
    for (long n : {500L, 1000L, 2000L}) {
        auto* b = benchmark::RegisterBenchmark(name, compare<Routine>);
        for (long threads : {1L, 2L})
            b->Args({n, threads});
        b->ArgNames({"n", "threads"})->Unit(benchmark::kMillisecond)->UseManualTime();
        b->Iterations(n <= 500 ? 5 : 1);
    }
}

[[maybe_unused]] const bool registered = [] {
    add<Gemm>("F06YAF:DGEMM");
    add<Getrf>("F07ADGN:DGETRF");
    add<Getri>("F07AJF:DGETRI");
    add<Gelqf>("F08AHF:DGELQF");
    add<Syev>("F08FAF:DSYEV");
    add<Syevd>("F08FCF:DSYEVD");
    add<Gesvd>("F08KBF:DGESVD");
    add<Geev>("F08NAF:DGEEV");
    add<Trtri>("F07TJF:DTRTRI");
    add<Gels>("F08AAF:DGELS");
    add<Sytrf>("F07MDF:DSYTRF");
    add<Heev>("F08FNF:ZHEEV");
    benchmark::RegisterBenchmark("Overhead:F06YAF:DGEMM", overhead)
        ->Unit(benchmark::kNanosecond)
        ->UseManualTime();
    return true;
}();

}  // namespace
