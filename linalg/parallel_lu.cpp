// F07ADGN: LU factorization with partial pivoting, A = P*L*U, with the factors,
// pivots and INFO of the standard DGETRF, its work spread over the threads of
// one OpenMP parallel region.
//
// Right-looking blocked LU on a grid of NB columns.  Step k factors panel k
// (rows J..M of NB columns) by recursive halving, then every chunk of NB
// columns to its right gets the panel's row interchanges, the triangular solve
// of its block row and the matrix-product update of the rows below.  Thread 0
// updates the chunk holding the next panel first and factors that panel while
// the other threads update the remaining chunks (look-ahead); a chunk goes to
// whichever thread is free.  Each chunk's work is the same sequence of kernel
// calls whatever the number of threads, and the external library runs
// single-threaded meanwhile, so the factors do not depend on the thread count.
// The interchanges of the columns left of each panel are applied at the end,
// one call per block column: those columns are final once their own step is
// over, so applying the later interchanges there at the end gives the same
// matrix.
#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstddef>
#include <limits>
#include <mutex>
#include <utility>

#include <omp.h>

#include "gen/linalg.hpp"
#include "linalg/kernels.hpp"

LBX_EXTERNAL_ROUTINE(dgemm_,
                     void(const char*, const char*, const int*, const int*, const int*,
                          const double*, const double*, const int*, const double*, const int*,
                          const double*, double*, const int*, std::size_t, std::size_t));
LBX_EXTERNAL_ROUTINE(dtrsm_, void(const char*, const char*, const char*, const char*, const int*,
                                  const int*, const double*, const double*, const int*, double*,
                                  const int*, std::size_t, std::size_t, std::size_t, std::size_t));
LBX_EXTERNAL_ROUTINE(dlaswp_, void(const int*, double*, const int*, const int*, const int*,
                                   const int*, const int*));
LBX_EXTERNAL_ROUTINE(idamax_, int(const int*, const double*, const int*));
LBX_EXTERNAL_ROUTINE(dscal_, void(const int*, const double*, double*, const int*));
#if !defined(_WIN32)
LBX_EXTERNAL_ROUTINE(openblas_get_num_threads, int());
LBX_EXTERNAL_ROUTINE(openblas_set_num_threads, void(int));
#endif

namespace lbx::linalg {
namespace {

constexpr int one = 1;
constexpr double plus_one = 1.0;
constexpr double minus_one = -1.0;

// Element (i, j) of a column-major matrix, both 0-based.
inline double* at(double* a, int lda, int i, int j)
{
    return a + static_cast<std::ptrdiff_t>(j) * lda + i;
}

// The external library's own threads stay at one while any factorization
// runs: the parallelism is ours, and its kernels then compute the same
// numbers for every call whatever its thread setting.  Concurrent
// factorizations share one saved setting, restored by the last to leave.
class SerialKernels {
public:
    SerialKernels()
    {
        const std::lock_guard<std::mutex> hold(lock());
        State& s = state();
        if (s.users++ == 0) {
#if !defined(_WIN32)  // the DLL's BLAS has no threads of its own
            s.saved = openblas_get_num_threadskernel()();
            if (s.saved != 1)
                openblas_set_num_threadskernel()(1);
#endif
        }
    }
    ~SerialKernels()
    {
        const std::lock_guard<std::mutex> hold(lock());
        State& s = state();
#if !defined(_WIN32)
        if (--s.users == 0 && s.saved != 1)
            openblas_set_num_threadskernel()(s.saved);
#else
        --s.users;
#endif
    }
    SerialKernels(const SerialKernels&) = delete;
    SerialKernels& operator=(const SerialKernels&) = delete;

private:
    struct State {
        int users = 0;
        int saved = 1;
    };
    static std::mutex& lock()
    {
        static std::mutex m;
        return m;
    }
    static State& state()
    {
        static State s;
        return s;
    }
};

// The recursive LU of the standard DGETRF2 on the m x n matrix a: pivots
// ipiv[0..min(m,n)) are row numbers (from 1) within a.  Returns the index
// (from 1) of the first exactly zero pivot, 0 if there is none.
int factor_panel(int m, int n, double* a, int lda, int* ipiv)
{
    if (m == 0 || n == 0)
        return 0;
    if (m == 1) {
        ipiv[0] = 1;
        return a[0] == 0.0 ? 1 : 0;
    }
    if (n == 1) {
        const int p = idamax_kernel()(&m, a, &one);
        ipiv[0] = p;
        if (a[p - 1] == 0.0)
            return 1;
        if (p != 1)
            std::swap(a[0], a[p - 1]);
        if (std::abs(a[0]) >= std::numeric_limits<double>::min()) {
            const int below = m - 1;
            const double scale = 1.0 / a[0];
            dscal_kernel()(&below, &scale, a + 1, &one);
        } else {
            for (int i = 1; i < m; ++i)
                a[i] /= a[0];
        }
        return 0;
    }
    const int mn = std::min(m, n);
    const int n1 = mn / 2;
    const int n2 = n - n1;
    const int m2 = m - n1;
    double* a12 = at(a, lda, 0, n1);
    double* a21 = at(a, lda, n1, 0);
    double* a22 = at(a, lda, n1, n1);

    int info = factor_panel(m, n1, a, lda, ipiv);
    dlaswp_kernel()(&n2, a12, &lda, &one, &n1, ipiv, &one);
    dtrsm_kernel()("L", "L", "N", "U", &n1, &n2, &plus_one, a, &lda, a12, &lda, 1, 1, 1, 1);
    dgemm_kernel()("N", "N", &m2, &n2, &n1, &minus_one, a21, &lda, a12, &lda, &plus_one, a22, &lda,
                   1, 1);
    const int info2 = factor_panel(m2, n2, a22, lda, ipiv + n1);
    if (info == 0 && info2 > 0)
        info = info2 + n1;
    for (int i = n1; i < mn; ++i)
        ipiv[i] += n1;
    const int k1 = n1 + 1;
    dlaswp_kernel()(&n1, a, &lda, &k1, &mn, ipiv, &one);
    return info;
}

// The blocked factorization of the checked arguments (min(m,n) >= 1, block
// size 1 <= nb <= min(m,n)) on at most `threads` threads.
int factor_blocked(int m, int n, double* a, int lda, int* ipiv, int nb, int threads)
{
    const int mn = std::min(m, n);
    const int panels = (mn + nb - 1) / nb;
    int first_zero = 0;                 // written by thread 0 only
    std::atomic<int> next[2] = {0, 0};  // chunk tickets of the even and odd steps

    // Factors panel k and makes its pivots row numbers of a.
    auto factor = [&](int k) {
        const int j = k * nb;
        const int jb = std::min(nb, mn - j);
        const int zero = factor_panel(m - j, jb, at(a, lda, j, j), lda, ipiv + j);
        for (int i = j; i < j + jb; ++i)
            ipiv[i] += j;
        if (first_zero == 0 && zero > 0)
            first_zero = zero + j;
    };
    // Step k's update of chunk c of the columns right of panel k.
    auto update = [&](int k, int c) {
        const int j = k * nb;
        const int jb = std::min(nb, mn - j);
        const int col = j + jb + c * nb;
        const int width = std::min(nb, n - col);
        const int below = m - j - jb;
        const int k1 = j + 1;
        const int k2 = j + jb;
        dlaswp_kernel()(&width, at(a, lda, 0, col), &lda, &k1, &k2, ipiv, &one);
        dtrsm_kernel()("L", "L", "N", "U", &jb, &width, &plus_one, at(a, lda, j, j), &lda,
                       at(a, lda, j, col), &lda, 1, 1, 1, 1);
        if (below > 0)
            dgemm_kernel()("N", "N", &below, &width, &jb, &minus_one, at(a, lda, j + jb, j), &lda,
                           at(a, lda, j, col), &lda, &plus_one, at(a, lda, j + jb, col), &lda, 1,
                           1);
    };

#pragma omp parallel num_threads(threads) if (threads > 1)
    {
        const bool lead = omp_get_thread_num() == 0;
        if (lead)
            factor(0);
#pragma omp barrier
        for (int k = 0; k < panels; ++k) {
            const int j = k * nb;
            const int right = n - j - std::min(nb, mn - j);
            const int chunks = (right + nb - 1) / nb;
            const bool ahead = k + 1 < panels;  // chunk 0 holds panel k + 1
            if (lead) {
                // Nobody uses the other step's ticket before the barrier below.
                next[(k + 1) % 2].store(0, std::memory_order_relaxed);
                if (ahead) {
                    update(k, 0);
                    factor(k + 1);
                }
            }
            for (;;) {
                const int c = next[k % 2].fetch_add(1, std::memory_order_relaxed) + (ahead ? 1 : 0);
                if (c >= chunks)
                    break;
                update(k, c);
            }
#pragma omp barrier
        }
        // Block column b (left of panel b + 1) receives the interchanges of
        // the panels after it.
#pragma omp for schedule(dynamic)
        for (int b = 0; b < panels - 1; ++b) {
            const int k1 = (b + 1) * nb + 1;
            dlaswp_kernel()(&nb, at(a, lda, 0, b * nb), &lda, &k1, &mn, ipiv, &one);
        }
    }
    return first_zero;
}

}  // namespace

void F07ADGN(int m, int n, double* a, int lda, int* ipiv, int& info)
{
    info = 0;
    if (m < 0)
        info = -1;
    else if (n < 0)
        info = -2;
    else if (lda < std::max(1, m))
        info = -4;
    if (info != 0) {
        F06AAZN("F07ADG       ", -info);
        return;
    }
    const int mn = std::min(m, n);
    if (mn == 0)
        return;

    int nb = 0;
    F07ZAZN(1, "F07ADFN", nb, 0);
    if (nb <= 1 || nb >= mn)
        nb = mn;  // one panel: the recursive factorization of the whole matrix

    // Threads beyond the chunks of the first step would have nothing to do; a
    // region that the runtime cannot fork (nesting exhausted) runs serially.
    const int chunks = (n - nb + nb - 1) / nb;
    int threads = std::min(omp_get_max_threads(), std::max(1, chunks));
    if (omp_get_active_level() >= omp_get_max_active_levels())
        threads = 1;

    const SerialKernels serial;
    info = factor_blocked(m, n, a, lda, ipiv, nb, threads);
}

}  // namespace lbx::linalg
