// Normal and Poisson variates: relation to the uniforms, thread-count independence, and
// fixed-seed goodness-of-fit tests (thresholds from tools/random_thresholds.py: each test's
// false-alarm probability is below 1e-7).
#include <gtest/gtest.h>

#include <omp.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <vector>

#include "random_test_util.hpp"

namespace {

// Pearson's statistic of counts against expectations e (e.size() cells).
double chi2(const std::vector<double>& count, const std::vector<double>& e)
{
    double s = 0.0;
    for (std::size_t i = 0; i < count.size(); ++i)
        s += (count[i] - e[i]) * (count[i] - e[i]) / e[i];
    return s;
}

double normal_cdf(double x)
{
    return 0.5 * std::erfc(-x / std::sqrt(2.0));
}

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
    g05tjf_(&mode, &n, &lambda, r.data(), &lr, state.data(), x.data(), &ifail);
    return ifail;
}

TEST(RandomVariates, NormalIsTheNormalDeviateOfEachUniform)
{
    for (int genid = 1; genid <= 6; ++genid) {
        std::vector<int> a = rt::make(genid, {2024}), b = a;
        const std::vector<double> u = rt::uniforms(a, 10000);
        std::vector<double> z(10000);
        ASSERT_EQ(skf(b, -3.0, 4.0, z), 0);  // XMU + sqrt(VAR) G01FAF('L', u), sqrt(4) exact
        for (int i = 0; i < 10000; ++i) {
            int ifail = 0;
            ASSERT_EQ(z[i], -3.0 + 2.0 * g01faf_("L", &u[i], &ifail, 1)) << genid << " " << i;
        }
        EXPECT_EQ(a, b) << "N normals advance STATE exactly N uniforms";
    }
    std::vector<int> state = rt::make(6, {1});
    const std::vector<int> before = state;
    std::vector<double> x(5, 9.0);
    EXPECT_EQ(skf(state, 2.5, 0.0, x), 0);
    EXPECT_EQ(x, std::vector<double>(5, 2.5));
    EXPECT_EQ(state, before) << "VAR = 0 draws nothing";
}

TEST(RandomVariates, NormalTransformIsIndependentOfThreadCount)
{
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
}

TEST(RandomVariates, UniformsAndNormalsFitTheirDistributions)
{
    for (int genid = 1; genid <= 6; ++genid) {
        std::vector<int> state = rt::make(genid, {4711});
        const std::vector<double> u = rt::uniforms(state, 1000000);
        std::vector<double> count(1000, 0.0), grid(1024, 0.0);  // pairs in a 32 x 32 grid
        for (std::size_t i = 0; i < u.size(); ++i) {
            ASSERT_TRUE(u[i] > 0.0 && u[i] < 1.0);
            count[static_cast<int>(u[i] * 1000)] += 1;
            if (i % 2 == 1)
                grid[static_cast<int>(u[i - 1] * 32) * 32 + static_cast<int>(u[i] * 32)] += 1;
        }
        EXPECT_LT(chi2(count, std::vector<double>(1000, 1000.0)), rt::chi2_threshold(999)) << genid;
        EXPECT_LT(chi2(grid, std::vector<double>(1024, 500000.0 / 1024)), rt::chi2_threshold(1023));
        EXPECT_LT(rt::ks({u.begin(), u.begin() + 100000}, [](double v) { return v; }), rt::kKs)
            << genid;
        std::vector<double> x(200000), cells(200, 0.0);
        ASSERT_EQ(skf(state, 3.0, 4.0, x), 0);
        for (double& v : x) {
            v = (v - 3.0) / 2.0;
            cells[std::min(199, static_cast<int>(normal_cdf(v) * 200))] += 1;
        }
        EXPECT_LT(rt::ks({x.begin(), x.begin() + 100000}, normal_cdf), rt::kKs) << genid;
        EXPECT_LT(chi2(cells, std::vector<double>(200, 1000.0)), rt::chi2_threshold(199)) << genid;
    }
}

// Chi-squared of Poisson counts against exp(k log L - L - lgamma(k + 1)), the cells of
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
    std::vector<double> obs(hi - lo + 3, 0.0), e(hi - lo + 3, 0.0);
    for (int k = 0; k < lo; ++k)
        e[0] += pmf(k) * n;
    for (int k = lo; k <= hi; ++k)
        e[k - lo + 1] = pmf(k) * n;
    e.back() = n - std::accumulate(e.begin(), e.end() - 1, 0.0);
    for (int v : x)
        obs[std::clamp(v - lo + 1, 0, hi - lo + 2)] += 1;
    for (std::size_t i = e.size(); i-- > 0;) {  // tails of no weight hold nothing
        if (e[i] < 1e-9) {
            EXPECT_EQ(obs[i], 0.0);
            obs.erase(obs.begin() + i);
            e.erase(e.begin() + i);
        }
    }
    *df = static_cast<int>(e.size()) - 1;
    return chi2(obs, e);
}

TEST(RandomVariates, PoissonChiSquared)
{
    struct Case {
        int mode;
        double lambda;
        int genid;
    } cases[] = {{2, 0.5, 1},  {3, 0.5, 6},  {2, 4.0, 3}, {3, 4.0, 1}, {2, 25.0, 6}, {3, 25.0, 1},
                 {3, 9.99, 2}, {3, 10.0, 4}, {2, 1e4, 1}, {3, 1e4, 3}, {3, 1e7, 6},  {2, 1e7, 1}};
    for (const Case& c : cases) {
        std::vector<int> state = rt::make(c.genid, {606}), x(400000);
        std::vector<double> r(c.mode == 2 ? 80000 : 1);
        ASSERT_EQ(tjf(c.mode, c.lambda, r, state, x), 0) << c.lambda;
        int df = 0;
        const double statistic = poisson_chi2(x, c.lambda, &df);
        EXPECT_LT(statistic, rt::chi2_threshold(df)) << "MODE " << c.mode << " LAMBDA " << c.lambda;
        EXPECT_GE(df, 3);
    }
}

TEST(RandomVariates, PoissonModesAgree)
{
    // MODE 0 then MODE 1 gives what MODE 2 gives; the table costs one uniform per variate.
    std::vector<int> s1 = rt::make(1, {5}), s2 = s1, s3 = s1;
    std::vector<double> r1(500), r2(500);
    std::vector<int> none(1), x1(1000), x2(1000);
    ASSERT_EQ(tjf(0, 37.5, r1, s1, none), 0);
    EXPECT_EQ(s1, s2) << "MODE 0 draws nothing";
    ASSERT_EQ(tjf(1, 37.5, r1, s1, x1), 0);
    ASSERT_EQ(tjf(2, 37.5, r2, s2, x2), 0);
    EXPECT_EQ(x1, x2);
    EXPECT_EQ(r1, r2);
    rt::uniforms(s3, 1000);
    EXPECT_EQ(s1, s3);
    for (int mode : {2, 3}) {  // LAMBDA = 0 gives zeros
        ASSERT_EQ(tjf(mode, 0.0, r1, s1, x1), 0);
        EXPECT_EQ(x1, std::vector<int>(1000, 0));
    }
}

}  // namespace
