// F07ADGN against the external library's DGETRF (called directly in its own
// handle): the factors to a tight tolerance and the pivots exactly on random
// matrices around and above the block size (64); INFO for exactly singular
// matrices, worked by hand for a small one; the argument checks; and the
// factors bit for bit the same on one, two and three threads, also when
// called from inside a parallel region.
#include <gtest/gtest.h>

#include <dlfcn.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <random>
#include <vector>

#include <omp.h>

#include "gen/linalg.hpp"
#include "recording.hpp"

namespace {

using dgetrf_t = void(const int*, const int*, double*, const int*, int*, int*);
using get_threads_t = int();

void* openblas(const char* symbol)
{
    static void* const handle = [] {
        void* h = dlopen("libopenblas.so.0", RTLD_NOW | RTLD_NOLOAD);
        return h != nullptr ? h : dlopen("libopenblas.so.0", RTLD_NOW | RTLD_LOCAL);
    }();
    return handle != nullptr ? dlsym(handle, symbol) : nullptr;
}

struct Factors {
    std::vector<double> a;
    std::vector<int> ipiv;
    int info = 0;
};

std::vector<double> random_matrix(int lda, int n, unsigned seed)
{
    std::mt19937_64 gen(seed);
    std::uniform_real_distribution<double> u(-1.0, 1.0);
    std::vector<double> a(static_cast<std::size_t>(lda) * n);
    for (double& x : a)
        x = u(gen);
    return a;
}

Factors ours(int m, int n, std::vector<double> a, int lda)
{
    Factors f{std::move(a), std::vector<int>(std::max(1, std::min(m, n)), -7), -99};
    lbx::linalg::F07ADGN(m, n, f.a.data(), lda, f.ipiv.data(), f.info);
    return f;
}

Factors peer(int m, int n, std::vector<double> a, int lda)
{
    auto* dgetrf = reinterpret_cast<dgetrf_t*>(openblas("dgetrf_"));
    Factors f{std::move(a), std::vector<int>(std::max(1, std::min(m, n)), -7), -99};
    dgetrf(&m, &n, f.a.data(), &lda, f.ipiv.data(), &f.info);
    return f;
}

Factors ours_on(int threads, int m, int n, const std::vector<double>& a, int lda)
{
    const int saved = omp_get_max_threads();
    omp_set_num_threads(threads);
    Factors f = ours(m, n, a, lda);
    omp_set_num_threads(saved);
    return f;
}

// Largest difference over the m x n part, relative to the largest reference
// element.
double difference(const Factors& x, const Factors& y, int m, int n, int lda)
{
    double diff = 0.0, size = 0.0;
    for (int j = 0; j < n; ++j)
        for (int i = 0; i < m; ++i) {
            const std::size_t k = static_cast<std::size_t>(j) * lda + i;
            diff = std::max(diff, std::abs(x.a[k] - y.a[k]));
            size = std::max(size, std::abs(y.a[k]));
        }
    return size > 0.0 ? diff / size : diff;
}

struct Shape {
    int m, n, pad;  // LDA = M + pad
};

const Shape shapes[] = {{1, 7, 0},     {7, 1, 2},     {63, 63, 0},  {65, 65, 0},
                        {129, 100, 3}, {130, 200, 5}, {320, 300, 0}};

TEST(F07ADGN, MatchesDgetrfOnRandomMatrices)
{
    ASSERT_NE(openblas("dgetrf_"), nullptr);
    unsigned seed = 1;
    for (const Shape& s : shapes) {
        SCOPED_TRACE(testing::Message() << "m " << s.m << " n " << s.n << " lda " << s.m + s.pad);
        const int lda = s.m + s.pad;
        const std::vector<double> a = random_matrix(lda, s.n, seed++);
        const Factors x = ours(s.m, s.n, a, lda);
        const Factors y = peer(s.m, s.n, a, lda);
        EXPECT_EQ(x.info, 0);
        EXPECT_EQ(y.info, 0);
        EXPECT_EQ(x.ipiv, y.ipiv);
        const double tol = 8.0 * std::max(s.m, s.n) * 0x1p-52;
        EXPECT_LE(difference(x, y, s.m, s.n, lda), tol);
        // The padding rows are left alone.
        for (int j = 0; j < s.n; ++j)
            for (int i = s.m; i < lda; ++i) {
                const std::size_t k = static_cast<std::size_t>(j) * lda + i;
                EXPECT_EQ(x.a[k], a[k]);
            }
    }
}

// One, two and three threads, and two calls inside a parallel region whose
// inner region is serialised, then forked: the same factors bit for bit.
TEST(F07ADGN, SameFactorsOnAnyNumberOfThreads)
{
    const Shape cases[] = {{257, 190, 1}, {190, 257, 0}, {260, 260, 0}};
    unsigned seed = 100;
    const int saved_levels = omp_get_max_active_levels();
    for (const Shape& s : cases) {
        SCOPED_TRACE(testing::Message() << "m " << s.m << " n " << s.n);
        const int lda = s.m + s.pad;
        const std::vector<double> a = random_matrix(lda, s.n, seed++);
        const Factors one = ours_on(1, s.m, s.n, a, lda);
        std::vector<Factors> others = {ours_on(2, s.m, s.n, a, lda), ours_on(3, s.m, s.n, a, lda)};
        for (int levels : {1, 2}) {
            omp_set_max_active_levels(levels);
            Factors f[2];
#pragma omp parallel num_threads(2)
            f[omp_get_thread_num()] = ours(s.m, s.n, a, lda);
            others.insert(others.end(), {f[0], f[1]});
        }
        omp_set_max_active_levels(saved_levels);
        for (const Factors& x : others) {
            EXPECT_EQ(std::memcmp(one.a.data(), x.a.data(), one.a.size() * sizeof(double)), 0);
            EXPECT_EQ(one.ipiv, x.ipiv);
            EXPECT_EQ(one.info, x.info);
        }
    }
}

TEST(F07ADGN, LeavesTheExternalThreadSettingAlone)
{
    auto* get = reinterpret_cast<get_threads_t*>(openblas("openblas_get_num_threads"));
    ASSERT_NE(get, nullptr);
    const int before = get();
    const std::vector<double> a = random_matrix(200, 200, 9);
    ours(200, 200, a, 200);
    EXPECT_EQ(get(), before);
}

// Worked by hand: the first column eliminates the second exactly, so the
// second pivot is zero (IDAMAX of zeros picks the first row), nothing below it
// is scaled, and the last row keeps 4.5.
TEST(F07ADGN, ZeroPivotByHand)
{
    std::vector<double> a = {2, 1, 1, 4, 2, 2, 1, 3, 5};  // columns
    const Factors x = ours(3, 3, a, 3);
    EXPECT_EQ(x.info, 2);
    EXPECT_EQ(x.ipiv, (std::vector<int>{1, 2, 3}));
    const std::vector<double> lu = {2, 0.5, 0.5, 4, 0, 0, 1, 2.5, 4.5};
    EXPECT_EQ(x.a, lu);
}

// Exactly zero columns stay zero through every update: INFO is the first of
// them (in panel 0 or a later one), and the factorization runs on to the end.
TEST(F07ADGN, SingularMatricesGiveTheFirstZeroPivot)
{
    struct Case {
        int m, n;
        std::vector<int> zero_columns;  // from 1
        int info;
    };
    const Case cases[] = {{150, 150, {130, 71}, 71},
                          {150, 150, {6, 140}, 6},
                          {120, 200, {65, 150}, 65},
                          {100, 150, {140}, 0}};
    unsigned seed = 50;
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << "m " << c.m << " n " << c.n << " info " << c.info);
        std::vector<double> a = random_matrix(c.m, c.n, seed++);
        for (int col : c.zero_columns)
            std::fill_n(a.begin() + static_cast<std::ptrdiff_t>(col - 1) * c.m, c.m, 0.0);
        const Factors x = ours(c.m, c.n, a, c.m);
        ASSERT_NE(openblas("dgetrf_"), nullptr);
        const Factors y = peer(c.m, c.n, a, c.m);
        EXPECT_EQ(x.info, c.info);
        EXPECT_EQ(y.info, c.info);
        EXPECT_EQ(x.ipiv, y.ipiv);
        EXPECT_LE(difference(x, y, c.m, c.n, c.m), 8.0 * std::max(c.m, c.n) * 0x1p-52);
    }
}

// Bad arguments in the order M, N, LDA; nothing is written.  An empty matrix
// returns at once.
TEST(F07ADGN, ArgumentChecks)
{
    struct Case {
        int m, n, lda, info;
    };
    const Case cases[] = {{-1, -1, 0, -1}, {2, -3, 1, -2}, {3, 2, 2, -4},
                          {0, 0, 0, -4},   {0, 5, 1, 0},   {5, 0, 5, 0}};
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << "m " << c.m << " n " << c.n << " lda " << c.lda);
        std::vector<double> a(64, 3.0);
        std::vector<int> ipiv(8, -7);
        int info = 99;
        {
            // A bad argument is reported through F06AAZN: recorded, not stopped.
            lbx_test::Recording rec(-c.info, "F07ADG");
            lbx::linalg::F07ADGN(c.m, c.n, a.data(), c.lda, ipiv.data(), info);
            EXPECT_EQ(rec.called(), c.info != 0);
            EXPECT_TRUE(rec.passed()) << lbx_test::Recording::env();
        }
        EXPECT_EQ(info, c.info);
        EXPECT_EQ(a, std::vector<double>(64, 3.0));
        EXPECT_EQ(ipiv, std::vector<int>(8, -7));
    }
}

}  // namespace
