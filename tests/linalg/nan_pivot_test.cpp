// The symmetric and Hermitian indefinite factorizations and their drivers on
// matrices holding NaN, through the plain entries (the own path): nothing
// outside A (AP), IPIV, B and WORK is touched (guard cells around each keep
// their value; the sanitizer build sees no access outside), every IPIV entry
// names a row of the matrix, and a matrix of NaNs reports a NaN pivot as a
// zero one (INFO > 0).  One row per routine, both triangles, two fillings: all
// NaN, and finite entries with a NaN on the diagonal element reached last.
#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <cstdlib>
#include <limits>
#include <string>
#include <type_traits>
#include <vector>

#include "lbx3207qk.h"

namespace {

using Cplx = std::complex<double>;
constexpr int N = 12, NRHS = 2, LW = 64 * N, G = 8;  // G guard cells each side
const double nan = std::numeric_limits<double>::quiet_NaN();

// n cells between two runs of G guard cells.
template <class T>
struct Guarded {
    std::vector<T> cells;
    explicit Guarded(int n, T fill = T(0)) : cells(n + 2 * G, T(-7777.0))
    {
        for (int i = 0; i < n; ++i)
            cells[G + i] = fill;
    }
    T* data() { return cells.data() + G; }
    T& operator[](int i) { return cells[G + i]; }
    bool guards_kept() const
    {
        for (int i = 0; i < G; ++i)
            if (cells[i] != T(-7777.0) || cells[cells.size() - 1 - i] != T(-7777.0))
                return false;
        return true;
    }
};

// all NaN, or finite with a NaN at one element of the triangle (packed order).
using Fill = int;
constexpr Fill all_nan = -1;

// The matrix in full storage (LDA = N) or packed, the UPLO triangle filled.
template <class T>
Guarded<T> matrix(char uplo, bool packed, Fill fill)
{
    Guarded<T> a(packed ? N * (N + 1) / 2 : N * N);
    int p = 0;
    for (int j = 0; j < N; ++j)
        for (int i = 0; i < N; ++i) {
            if (uplo == 'U' ? i > j : i < j)
                continue;
            // Diagonally weak, so that pivoting happens.
            T v = T(std::sin(1.0 + i + 3.0 * j));
            if constexpr (!std::is_same_v<T, double>)
                v += T(0.0, i == j ? 0.0 : std::cos(2.0 * i + j));
            if (fill == all_nan || fill == p)
                v = T(nan);
            a[packed ? p : i + j * N] = v;
            ++p;
        }
    return a;
}

struct Outcome {
    int info;
    bool guards_kept;
    bool ipiv_in_range;
};

// One call: ENTRY(uplo, a, ipiv, b, work, info) on guarded arrays.
template <class T, bool packed, class Entry>
Outcome run(char uplo, Fill fill, Entry entry)
{
    Guarded<T> a = matrix<T>(uplo, packed, fill), b(N * NRHS, T(1.0)), work(LW);
    Guarded<int> ipiv(N);
    int info = -99;
    entry(&uplo, a.data(), ipiv.data(), b.data(), work.data(), &info);
    bool in_range = true;
    for (int k = 0; k < N; ++k)
        in_range = in_range && std::abs(ipiv[k]) >= 1 && std::abs(ipiv[k]) <= N;
    return {info, a.guards_kept() && b.guards_kept() && work.guards_kept() && ipiv.guards_kept(),
            in_range};
}

const int n = N, nrhs = NRHS, lw = LW;
const std::size_t L1 = 1;

struct Row {
    const char* name;
    Outcome (*call)(char, Fill);
};

const Row rows[] = {
    {"F07MDF/DSYTRF",
     [](char u, Fill f) {
         return run<double, false>(
             u, f,
             [](const char* uplo, auto* a, int* ipiv, [[maybe_unused]] auto* b,
                [[maybe_unused]] auto* w,
                int* info) { f07mdf_(uplo, &n, a, &n, ipiv, w, &lw, info, L1); });
     }},
    {"F07MRF/ZHETRF",
     [](char u, Fill f) {
         return run<Cplx, false>(u, f,
                                 [](const char* uplo, auto* a, int* ipiv, [[maybe_unused]] auto* b,
                                    [[maybe_unused]] auto* w, int* info) {
                                     f07mrf_(uplo, &n, a, &n, ipiv, w, &lw, info, L1);
                                 });
     }},
    {"F07NRF/ZSYTRF",
     [](char u, Fill f) {
         return run<Cplx, false>(u, f,
                                 [](const char* uplo, auto* a, int* ipiv, [[maybe_unused]] auto* b,
                                    [[maybe_unused]] auto* w, int* info) {
                                     f07nrf_(uplo, &n, a, &n, ipiv, w, &lw, info, L1);
                                 });
     }},
    {"F07PDF/DSPTRF",
     [](char u, Fill f) {
         return run<double, true>(
             u, f,
             [](const char* uplo, auto* a, int* ipiv, [[maybe_unused]] auto* b,
                [[maybe_unused]] auto* w, int* info) { f07pdf_(uplo, &n, a, ipiv, info, L1); });
     }},
    {"F07PRF/ZHPTRF",
     [](char u, Fill f) {
         return run<Cplx, true>(
             u, f,
             [](const char* uplo, auto* a, int* ipiv, [[maybe_unused]] auto* b,
                [[maybe_unused]] auto* w, int* info) { f07prf_(uplo, &n, a, ipiv, info, L1); });
     }},
    {"F07QRF/ZSPTRF",
     [](char u, Fill f) {
         return run<Cplx, true>(
             u, f,
             [](const char* uplo, auto* a, int* ipiv, [[maybe_unused]] auto* b,
                [[maybe_unused]] auto* w, int* info) { f07qrf_(uplo, &n, a, ipiv, info, L1); });
     }},
    {"F07MAF/DSYSV",
     [](char u, Fill f) {
         return run<double, false>(
             u, f,
             [](const char* uplo, auto* a, int* ipiv, [[maybe_unused]] auto* b,
                [[maybe_unused]] auto* w,
                int* info) { f07maf_(uplo, &n, &nrhs, a, &n, ipiv, b, &n, w, &lw, info, L1); });
     }},
    {"F07MNF/ZHESV",
     [](char u, Fill f) {
         return run<Cplx, false>(u, f,
                                 [](const char* uplo, auto* a, int* ipiv, [[maybe_unused]] auto* b,
                                    [[maybe_unused]] auto* w, int* info) {
                                     f07mnf_(uplo, &n, &nrhs, a, &n, ipiv, b, &n, w, &lw, info, L1);
                                 });
     }},
    {"F07NNF/ZSYSV",
     [](char u, Fill f) {
         return run<Cplx, false>(u, f,
                                 [](const char* uplo, auto* a, int* ipiv, [[maybe_unused]] auto* b,
                                    [[maybe_unused]] auto* w, int* info) {
                                     f07nnf_(uplo, &n, &nrhs, a, &n, ipiv, b, &n, w, &lw, info, L1);
                                 });
     }},
    {"F07PAF/DSPSV",
     [](char u, Fill f) {
         return run<double, true>(u, f,
                                  [](const char* uplo, auto* a, int* ipiv, [[maybe_unused]] auto* b,
                                     [[maybe_unused]] auto* w, int* info) {
                                      f07paf_(uplo, &n, &nrhs, a, ipiv, b, &n, info, L1);
                                  });
     }},
    {"F07PNF/ZHPSV",
     [](char u, Fill f) {
         return run<Cplx, true>(u, f,
                                [](const char* uplo, auto* a, int* ipiv, [[maybe_unused]] auto* b,
                                   [[maybe_unused]] auto* w, int* info) {
                                    f07pnf_(uplo, &n, &nrhs, a, ipiv, b, &n, info, L1);
                                });
     }},
    {"F07QNF/ZSPSV",
     [](char u, Fill f) {
         return run<Cplx, true>(u, f,
                                [](const char* uplo, auto* a, int* ipiv, [[maybe_unused]] auto* b,
                                   [[maybe_unused]] auto* w, int* info) {
                                    f07qnf_(uplo, &n, &nrhs, a, ipiv, b, &n, info, L1);
                                });
     }},
};

TEST(NanPivot, StaysInsideItsArraysAndReportsTheNaN)
{
    for (const Row& r : rows)
        for (char uplo : {'U', 'L'})
            for (Fill fill = all_nan; fill < N * (N + 1) / 2; ++fill) {
                SCOPED_TRACE(std::string(r.name) + " " + uplo + " NaN at " +
                             (fill == all_nan ? "every element" : std::to_string(fill)));
                const Outcome o = r.call(uplo, fill);
                EXPECT_TRUE(o.guards_kept) << "wrote outside its arrays";
                EXPECT_TRUE(o.ipiv_in_range);
                EXPECT_GE(o.info, fill == all_nan ? 1 : 0);
                EXPECT_LE(o.info, N);
            }
}

}  // namespace
