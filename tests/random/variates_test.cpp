// Normal and Poisson variates: relation to the uniforms, parallel bit-identity, argument
// checks, and fixed-seed goodness-of-fit tests (thresholds from tools/random_thresholds.py:
// each test's false-alarm probability is below 1e-7).
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#if __has_include(<omp.h>)
#include <omp.h>
#define RANDOM_TEST_HAVE_OMP 1
#endif

#include "random_test_util.hpp"
#include "stats/inverse_normal.hpp"

namespace {

// Wilson-Hilferty upper quantile with z = 5.6 (exact tail below 1.1e-8 for df >= 5).
double chi2_threshold(int df)
{
    const double d = df, c = 2.0 / (9.0 * d);
    return d * std::pow(1.0 - c + 5.6 * std::sqrt(c), 3);
}

constexpr double kKsThreshold = 2.9;  // P(sqrt(n) D_n > 2.9) = 9.9e-8 asymptotically

int skf(std::vector<int>& state, double xmu, double var, std::vector<double>& x)
{
    int n = static_cast<int>(x.size()), ifail = 1;
    g05skf_(&n, &xmu, &var, state.data(), x.data(), &ifail);
    return ifail;
}

int tjf(int mode, double lambda, std::vector<double>& r, std::vector<int>& state,
        std::vector<int>& x)
{
    int n = static_cast<int>(x.size()), lr = static_cast<int>(r.size()), ifail = 1;
    if (r.empty())
        r.push_back(0.0);
    g05tjf_(&mode, &n, &lambda, r.data(), &lr, state.data(), x.data(), &ifail);
    return ifail;
}

double ks_statistic(std::vector<double> v, double (*cdf)(double))
{
    std::sort(v.begin(), v.end());
    const double n = static_cast<double>(v.size());
    double d = 0.0;
    for (std::size_t i = 0; i < v.size(); ++i) {
        const double f = cdf(v[i]);
        d = std::max({d, f - i / n, (i + 1) / n - f});
    }
    return d * std::sqrt(n);
}

double uniform_cdf(double u)
{
    return u;
}
double normal_cdf(double x)
{
    return 0.5 * std::erfc(-x / std::sqrt(2.0));
}

TEST(RandomVariates, NormalIsInverseNormalOfEachUniform)
{
    for (int genid = 1; genid <= 6; ++genid) {
        std::vector<int> a = rt::make(genid, {2024}), b = a;
        const std::vector<double> u = rt::uniforms(a, 10000);
        std::vector<double> z(10000);
        ASSERT_EQ(skf(b, -3.0, 4.0, z), 0);  // XMU + sqrt(VAR) Phi^-1(u), sqrt(4) exact
        for (int i = 0; i < 10000; ++i) {
            ASSERT_EQ(z[i], -3.0 + 2.0 * lbx::stats::inverse_normal(u[i])) << genid << " " << i;
        }
        EXPECT_EQ(a, b) << "N normals advance STATE exactly N uniforms";
    }
}

TEST(RandomVariates, NormalTransformIsIndependentOfThreadCount)
{
#ifdef RANDOM_TEST_HAVE_OMP
    const int saved = omp_get_max_threads();
    std::vector<int> s1 = rt::make(1, {8}), s2 = s1;
    std::vector<double> x1(200003), x2(200003);
    omp_set_num_threads(1);
    ASSERT_EQ(skf(s1, 1.5, 2.5, x1), 0);
    omp_set_num_threads(2);
    ASSERT_EQ(skf(s2, 1.5, 2.5, x2), 0);
    omp_set_num_threads(saved);
    EXPECT_EQ(x1, x2);
    EXPECT_EQ(s1, s2);
#else
    GTEST_SKIP() << "built without OpenMP";
#endif
}

TEST(RandomVariates, NormalZeroVariance)
{
    std::vector<int> state = rt::make(6, {1});
    const std::vector<int> before = state;
    std::vector<double> x(5, 9.0);
    EXPECT_EQ(skf(state, 2.5, 0.0, x), 0);
    EXPECT_EQ(x, std::vector<double>(5, 2.5));
    EXPECT_EQ(state, before) << "VAR = 0 draws nothing";
}

TEST(RandomVariates, UniformsChiSquaredAndKs)
{
    for (int genid = 1; genid <= 6; ++genid) {
        std::vector<int> state = rt::make(genid, {4711});
        const std::vector<double> u = rt::uniforms(state, 1000000);
        std::vector<double> count(1000, 0.0);
        for (double v : u) {
            ASSERT_GT(v, 0.0);
            ASSERT_LT(v, 1.0);
            count[static_cast<int>(v * 1000)] += 1;
        }
        double chi2 = 0.0;
        for (double c : count)
            chi2 += (c - 1000.0) * (c - 1000.0) / 1000.0;
        EXPECT_LT(chi2, chi2_threshold(999)) << genid;
        // Pairs (u_2i, u_2i+1) in a 32 x 32 grid.
        std::vector<double> grid(1024, 0.0);
        for (int i = 0; i + 1 < 1000000; i += 2) {
            grid[static_cast<int>(u[i] * 32) * 32 + static_cast<int>(u[i + 1] * 32)] += 1;
        }
        double chi2p = 0.0;
        const double e = 500000.0 / 1024;
        for (double c : grid)
            chi2p += (c - e) * (c - e) / e;
        EXPECT_LT(chi2p, chi2_threshold(1023)) << genid;
        EXPECT_LT(ks_statistic(std::vector<double>(u.begin(), u.begin() + 100000), uniform_cdf),
                  kKsThreshold)
            << genid;
    }
}

TEST(RandomVariates, NormalsKsAndChiSquared)
{
    for (int genid = 1; genid <= 6; ++genid) {
        std::vector<int> state = rt::make(genid, {99});
        std::vector<double> x(200000);
        ASSERT_EQ(skf(state, 3.0, 4.0, x), 0);
        for (double& v : x)
            v = (v - 3.0) / 2.0;
        EXPECT_LT(ks_statistic(std::vector<double>(x.begin(), x.begin() + 100000), normal_cdf),
                  kKsThreshold)
            << genid;
        // 200 cells of equal probability under the normal distribution function (erfc).
        std::vector<double> count(200, 0.0);
        for (double v : x)
            count[std::min(199, static_cast<int>(normal_cdf(v) * 200))] += 1;
        double chi2 = 0.0;
        for (double c : count)
            chi2 += (c - 1000.0) * (c - 1000.0) / 1000.0;
        EXPECT_LT(chi2, chi2_threshold(199)) << genid;
    }
}

// Chi-squared of Poisson counts against exp(k log L - L - lgamma(k + 1)), with the cells of
// expectation below 20 pooled into the two tails.
double poisson_chi2(const std::vector<int>& x, double lambda, int* df)
{
    const double n = static_cast<double>(x.size());
    auto pmf = [&](int k) {
        return std::exp(k * std::log(lambda) - lambda - std::lgamma(k + 1.0));
    };
    int lo = static_cast<int>(lambda), hi = lo;
    while (lo > 0 && pmf(lo - 1) * n >= 20.0)
        --lo;
    while (pmf(hi + 1) * n >= 20.0)
        ++hi;
    double below = 0.0;
    for (int k = 0; k < lo; ++k)
        below += pmf(k);
    double inside = 0.0;
    for (int k = lo; k <= hi; ++k)
        inside += pmf(k);
    const double above = 1.0 - below - inside;
    std::vector<double> obs(hi - lo + 3, 0.0);
    for (int v : x) {
        if (v < lo)
            obs[0] += 1;
        else if (v > hi)
            obs[hi - lo + 2] += 1;
        else
            obs[v - lo + 1] += 1;
    }
    double chi2 = 0.0;
    int cells = 0;
    auto add = [&](double o, double p) {
        if (p * n < 1e-9) {
            EXPECT_EQ(o, 0.0);
            return;
        }
        chi2 += (o - p * n) * (o - p * n) / (p * n);
        ++cells;
    };
    add(obs[0], below);
    for (int k = lo; k <= hi; ++k)
        add(obs[k - lo + 1], pmf(k));
    add(obs[hi - lo + 2], above);
    *df = cells - 1;
    return chi2;
}

TEST(RandomVariates, PoissonChiSquared)
{
    struct Case {
        int mode;
        double lambda;
        int genid;
    };
    const Case cases[] = {{2, 0.5, 1},  {3, 0.5, 6},  {2, 4.0, 3},  {3, 4.0, 1},
                          {2, 25.0, 6}, {3, 25.0, 1}, {3, 9.99, 2}, {3, 10.0, 4},
                          {2, 1e4, 1},  {3, 1e4, 3},  {3, 1e7, 6},  {2, 1e7, 1}};
    for (const Case& c : cases) {
        std::vector<int> state = rt::make(c.genid, {606});
        std::vector<double> r(c.mode == 2 ? 80000 : 1);
        std::vector<int> x(400000);
        ASSERT_EQ(tjf(c.mode, c.lambda, r, state, x), 0) << c.lambda;
        int df = 0;
        const double chi2 = poisson_chi2(x, c.lambda, &df);
        EXPECT_LT(chi2, chi2_threshold(df)) << "MODE " << c.mode << " LAMBDA " << c.lambda;
        EXPECT_GE(df, 3);
    }
}

TEST(RandomVariates, PoissonModesAgree)
{
    // MODE 0 then MODE 1 gives what MODE 2 gives; the table costs one uniform per variate.
    std::vector<int> s1 = rt::make(1, {5}), s2 = s1, s3 = s1;
    std::vector<double> r1(500), r2(500);
    std::vector<int> none, x1(1000), x2(1000);
    ASSERT_EQ(tjf(0, 37.5, r1, s1, none), 0);
    EXPECT_EQ(s1, s2) << "MODE 0 draws nothing";
    ASSERT_EQ(tjf(1, 37.5, r1, s1, x1), 0);
    ASSERT_EQ(tjf(2, 37.5, r2, s2, x2), 0);
    EXPECT_EQ(x1, x2);
    EXPECT_EQ(r1, r2);
    rt::uniforms(s3, 1000);
    EXPECT_EQ(s1, s3);
    // LAMBDA = 0 gives zeros.
    std::vector<double> r0(100);
    ASSERT_EQ(tjf(2, 0.0, r0, s1, x1), 0);
    EXPECT_EQ(x1, std::vector<int>(1000, 0));
    ASSERT_EQ(tjf(3, 0.0, r0, s1, x1), 0);
    EXPECT_EQ(x1, std::vector<int>(1000, 0));
}

}  // namespace
