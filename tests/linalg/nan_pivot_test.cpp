// The symmetric and Hermitian indefinite factorizations and their drivers on
// matrices holding NaN, through the plain entries (the own path): guard cells
// around A (AP), IPIV, B and WORK keep their value, every IPIV entry names a
// row, and a matrix of NaNs reports a NaN pivot as a zero one (INFO > 0).
// Both triangles; all NaN, then a NaN at each element of the triangle.
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
constexpr int all_nan = -1;
const int n = N, nrhs = NRHS, lw = LW;
const std::size_t L1 = 1;

template <class T>
struct Guarded {
    std::vector<T> cells;
    explicit Guarded(int size, T fill = T(0)) : cells(size + 2 * G, T(-7777.0))
    {
        std::fill_n(cells.begin() + G, size, fill);
    }
    T* data() { return cells.data() + G; }
    bool guards_kept() const
    {
        for (int i = 0; i < G; ++i)
            if (cells[i] != T(-7777.0) || cells[cells.size() - 1 - i] != T(-7777.0))
                return false;
        return true;
    }
};

struct Outcome {
    int info;
    bool guards_kept, ipiv_in_range;
};

// The UPLO triangle (diagonally weak, so that pivoting happens), full or
// packed, with NaN at element `fill` of the triangle or everywhere.
template <class T, bool packed, class Entry>
Outcome run(char uplo, int fill, Entry entry)
{
    Guarded<T> a(packed ? N * (N + 1) / 2 : N * N), b(N * NRHS, T(1.0)), work(LW);
    Guarded<int> ipiv(N);
    int p = 0;
    for (int j = 0; j < N; ++j)
        for (int i = uplo == 'U' ? 0 : j; i <= (uplo == 'U' ? j : N - 1); ++i, ++p) {
            T v = T(std::sin(1.0 + i + 3.0 * j));
            if constexpr (!std::is_same_v<T, double>)
                v += T(0.0, i == j ? 0.0 : std::cos(2.0 * i + j));
            if (fill == all_nan || fill == p)
                v = T(std::numeric_limits<double>::quiet_NaN());
            a.data()[packed ? p : i + j * N] = v;
        }
    int info = -99;
    entry(&uplo, a.data(), ipiv.data(), b.data(), work.data(), &info);
    bool in_range = true;
    for (int k = 0; k < N; ++k)
        in_range = in_range && std::abs(ipiv.data()[k]) >= 1 && std::abs(ipiv.data()[k]) <= N;
    return {info, a.guards_kept() && b.guards_kept() && work.guards_kept() && ipiv.guards_kept(),
            in_range};
}

struct Row {
    const char* name;
    Outcome (*call)(char, int);
};

// clang-format off
#define LBX_ROW(NAME, T, PACKED, CALL)                                                      \
    {NAME, [](char u, int f) {                                                              \
         return run<T, PACKED>(u, f, [](const char* uplo, auto* a, int* ipiv,               \
                                        [[maybe_unused]] auto* b, [[maybe_unused]] auto* w, \
                                        int* info) { CALL; });                              \
     }}
const Row rows[] = {
    LBX_ROW("F07MDF/DSYTRF", double, false, f07mdf_(uplo, &n, a, &n, ipiv, w, &lw, info, L1)),
    LBX_ROW("F07MRF/ZHETRF", Cplx, false, f07mrf_(uplo, &n, a, &n, ipiv, w, &lw, info, L1)),
    LBX_ROW("F07NRF/ZSYTRF", Cplx, false, f07nrf_(uplo, &n, a, &n, ipiv, w, &lw, info, L1)),
    LBX_ROW("F07PDF/DSPTRF", double, true, f07pdf_(uplo, &n, a, ipiv, info, L1)),
    LBX_ROW("F07PRF/ZHPTRF", Cplx, true, f07prf_(uplo, &n, a, ipiv, info, L1)),
    LBX_ROW("F07QRF/ZSPTRF", Cplx, true, f07qrf_(uplo, &n, a, ipiv, info, L1)),
    LBX_ROW("F07MAF/DSYSV", double, false, f07maf_(uplo, &n, &nrhs, a, &n, ipiv, b, &n, w, &lw, info, L1)),
    LBX_ROW("F07MNF/ZHESV", Cplx, false, f07mnf_(uplo, &n, &nrhs, a, &n, ipiv, b, &n, w, &lw, info, L1)),
    LBX_ROW("F07NNF/ZSYSV", Cplx, false, f07nnf_(uplo, &n, &nrhs, a, &n, ipiv, b, &n, w, &lw, info, L1)),
    LBX_ROW("F07PAF/DSPSV", double, true, f07paf_(uplo, &n, &nrhs, a, ipiv, b, &n, info, L1)),
    LBX_ROW("F07PNF/ZHPSV", Cplx, true, f07pnf_(uplo, &n, &nrhs, a, ipiv, b, &n, info, L1)),
    LBX_ROW("F07QNF/ZSPSV", Cplx, true, f07qnf_(uplo, &n, &nrhs, a, ipiv, b, &n, info, L1)),
};
#undef LBX_ROW
// clang-format on

TEST(NanPivot, StaysInsideItsArraysAndReportsTheNaN)
{
    for (const Row& r : rows)
        for (char uplo : {'U', 'L'})
            for (int fill = all_nan; fill < N * (N + 1) / 2; ++fill) {
                SCOPED_TRACE(std::string(r.name) + " " + uplo + " NaN at " + std::to_string(fill));
                const Outcome o = r.call(uplo, fill);
                EXPECT_TRUE(o.guards_kept) << "wrote outside its arrays";
                EXPECT_TRUE(o.ipiv_in_range);
                EXPECT_GE(o.info, fill == all_nan ? 1 : 0);
                EXPECT_LE(o.info, N);
            }
}

}  // namespace
