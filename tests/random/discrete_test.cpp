// Discrete variates: fixed-seed chi-squared tests of the counts against probabilities written
// out here from their textbook formulas (log-gamma binomial coefficients, not the saddle-point
// forms of the code), sample means against exact means, the MODE and R rules, and the uniforms
// each table draw consumes.
//
// False alarms: the chi-squared threshold is the Wilson-Hilferty quantile at z = 5.6 (tail
// 1.1e-8), the means are checked within 5.5 standard errors (3.8e-8); with about 150 checks the
// suite raises a false alarm with probability below 1e-5 for an arbitrary seed (the seeds are
// fixed, so it is deterministic).
#include <gtest/gtest.h>

#include <omp.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <numeric>
#include <string>
#include <vector>

#include "random_test_util.hpp"

namespace {

double log_choose(double n, double k)
{
    return std::lgamma(n + 1) - std::lgamma(k + 1) - std::lgamma(n - k + 1);
}

// Pearson's statistic of the values x against pmf on lo_s.., cells of expectation below 20
// pooled into the two tails; df returned.
double chi2_counts(const std::vector<int>& x, const std::function<double(int)>& pmf, int lo_s,
                   int centre, int* df)
{
    const double n = static_cast<double>(x.size());
    int lo = centre, hi = centre;
    while (lo > lo_s && pmf(lo - 1) * n >= 20.0)
        --lo;
    while (pmf(hi + 1) * n >= 20.0)
        ++hi;
    std::vector<double> obs(hi - lo + 3, 0.0), e(hi - lo + 3, 0.0);
    for (int k = lo; k <= hi; ++k)
        e[k - lo + 1] = pmf(k) * n;
    for (int k = lo - 1; k >= lo_s; --k) {  // the left tail, down to where it vanishes
        const double q = pmf(k);
        e[0] += q * n;
        if (q < 1e-30)
            break;
    }
    e.back() = n - std::accumulate(e.begin(), e.end() - 1, 0.0);
    for (int v : x) {
        EXPECT_GE(v, lo_s);
        obs[std::clamp(v - lo + 1, 0, hi - lo + 2)] += 1;
    }
    double s = 0.0;
    int cells = 0;
    for (std::size_t i = 0; i < e.size(); ++i) {
        if (e[i] < 1e-6) {
            EXPECT_EQ(obs[i], 0.0) << "a value of (almost) no probability, cell " << i;
            continue;
        }
        s += (obs[i] - e[i]) * (obs[i] - e[i]) / e[i];
        ++cells;
    }
    *df = cells - 1;
    return s;
}

using Draw =
    std::function<int(int mode, std::vector<double>& r, std::vector<int>& s, std::vector<int>& x)>;

Draw taf(int m, double p)
{
    return [=](int mode, std::vector<double>& r, std::vector<int>& s, std::vector<int>& x) {
        int n = static_cast<int>(x.size()), lr = static_cast<int>(r.size()), ifail = 1;
        g05taf_(&mode, &n, &m, &p, r.data(), &lr, s.data(), x.data(), &ifail);
        return ifail;
    };
}
Draw tcf(double p)
{
    return [=](int mode, std::vector<double>& r, std::vector<int>& s, std::vector<int>& x) {
        int n = static_cast<int>(x.size()), lr = static_cast<int>(r.size()), ifail = 1;
        g05tcf_(&mode, &n, &p, r.data(), &lr, s.data(), x.data(), &ifail);
        return ifail;
    };
}
Draw tef(int ns, int np, int m)
{
    return [=](int mode, std::vector<double>& r, std::vector<int>& s, std::vector<int>& x) {
        int n = static_cast<int>(x.size()), lr = static_cast<int>(r.size()), ifail = 1;
        g05tef_(&mode, &n, &ns, &np, &m, r.data(), &lr, s.data(), x.data(), &ifail);
        return ifail;
    };
}
Draw tff(double a)
{
    return [=](int mode, std::vector<double>& r, std::vector<int>& s, std::vector<int>& x) {
        int n = static_cast<int>(x.size()), lr = static_cast<int>(r.size()), ifail = 1;
        g05tff_(&mode, &n, &a, r.data(), &lr, s.data(), x.data(), &ifail);
        return ifail;
    };
}
Draw thf(int m, double p)
{
    return [=](int mode, std::vector<double>& r, std::vector<int>& s, std::vector<int>& x) {
        int n = static_cast<int>(x.size()), lr = static_cast<int>(r.size()), ifail = 1;
        g05thf_(&mode, &n, &m, &p, r.data(), &lr, s.data(), x.data(), &ifail);
        return ifail;
    };
}

struct Case {
    std::string name;
    Draw draw;
    std::function<double(int)> pmf;
    int lo_s;
    double mean, var;
};

std::vector<Case> cases()
{
    std::vector<Case> c;
    for (auto [m, p] :
         {std::pair{1, 0.3}, {10, 0.5}, {40, 0.02}, {1000, 0.97}, {2000000000, 0.25}}) {
        c.push_back({"binomial " + std::to_string(m) + " " + std::to_string(p), taf(m, p),
                     [=](int k) {
                         return k < 0 || k > m ? 0.0
                                               : std::exp(log_choose(m, k) + k * std::log(p) +
                                                          (m - k) * std::log1p(-p));
                     },
                     0, m * p, m * p * (1 - p)});
    }
    for (double p : {0.9, 0.3, 0.001}) {
        c.push_back({"geometric " + std::to_string(p), tcf(p),
                     [=](int k) { return k < 0 ? 0.0 : p * std::pow(1 - p, k); }, 0, (1 - p) / p,
                     (1 - p) / (p * p)});
    }
    for (auto [ns, np, m] : {std::tuple{10, 4, 5}, {1000, 100, 30}, {2000000, 1000000, 700000}}) {
        const double mean = static_cast<double>(np) * m / ns;
        c.push_back({"hypergeometric " + std::to_string(ns), tef(ns, np, m),
                     [=](int k) {
                         if (k < 0 || k > np || k > m || np - k > ns - m)
                             return 0.0;
                         return std::exp(log_choose(m, k) + log_choose(ns - m, np - k) -
                                         log_choose(ns, np));
                     },
                     0, mean, mean * (ns - m) / ns * (ns - np) / (ns - 1.0)});
    }
    for (double a : {0.2, 0.9, 0.9999}) {
        const double l = -1.0 / std::log1p(-a), mean = l * a / (1 - a);
        c.push_back({"logarithmic " + std::to_string(a), tff(a),
                     [=](int k) { return k < 1 ? 0.0 : l * std::pow(a, k) / k; }, 1, mean,
                     l * a * (1 - l * a) / ((1 - a) * (1 - a))});
    }
    for (auto [m, p] : {std::pair{1, 0.5}, {3, 0.2}, {50, 0.9}, {1000, 0.01}}) {
        const double q = 1 - p;
        c.push_back({"negative binomial " + std::to_string(m), thf(m, p),
                     [=](int k) {
                         return k < 0 ? 0.0
                                      : std::exp(log_choose(k + m - 1.0, k) + m * std::log(p) +
                                                 k * std::log(q));
                     },
                     0, m * q / p, m * q / (p * p)});
    }
    return c;
}

TEST(RandomDiscrete, FitsItsDistribution)
{
    const int n = 200000;
    for (const Case& c : cases()) {
        for (int mode : {2, 3}) {
            for (int genid : {1, 2, 3, 4, 5, 6}) {
                if ((mode + genid) % 2)
                    continue;  // each mode with three generators
                std::vector<int> state = rt::make(genid, {2718}), x(n);
                std::vector<double> r(3000000);
                ASSERT_EQ(c.draw(mode, r, state, x), 0) << c.name;
                int df = 0;
                const int centre = static_cast<int>(std::max<double>(c.lo_s, std::floor(c.mean)));
                const double s = chi2_counts(x, c.pmf, c.lo_s, centre, &df);
                const std::string what =
                    c.name + " MODE " + std::to_string(mode) + " GENID " + std::to_string(genid);
                if (df >= 1)
                    EXPECT_LT(s, rt::chi2_threshold(df)) << what;
                const double mean = std::accumulate(x.begin(), x.end(), 0.0,
                                                    [](double a, int v) { return a + v; }) /
                                    n;
                EXPECT_LE(std::fabs(mean - c.mean), 5.5 * std::sqrt(c.var / n) + 1e-12) << what;
            }
        }
    }
}

// MODE 0 then MODE 1 gives what MODE 2 gives; MODE 0 draws nothing; the table routines draw
// one uniform per variate (MODE 3 of the binomial, hypergeometric and negative binomial too,
// with the same variates as MODE 2; the geometric by closed-form inversion).
TEST(RandomDiscrete, ModesAndUniforms)
{
    const std::pair<std::string, Draw> draws[] = {
        {"binomial", taf(100, 0.3)},         {"geometric", tcf(0.2)},
        {"hypergeometric", tef(50, 20, 10)}, {"logarithmic", tff(0.5)},
        {"negative binomial", thf(4, 0.4)},
    };
    for (const auto& [name, d] : draws) {
        std::vector<int> s1 = rt::make(6, {5}), s2 = s1, s3 = s1, s4 = s1;
        std::vector<double> r1(5000), r2(5000), r3(1);
        std::vector<int> none(1), x1(1000), x2(1000), x3(1000);
        ASSERT_EQ(d(0, r1, s1, none), 0) << name;
        EXPECT_EQ(s1, s2) << name << ": MODE 0 draws nothing";
        ASSERT_EQ(d(1, r1, s1, x1), 0) << name;
        ASSERT_EQ(d(2, r2, s2, x2), 0) << name;
        EXPECT_EQ(x1, x2) << name;
        EXPECT_EQ(r1, r2) << name;
        rt::uniforms(s4, 1000);
        EXPECT_EQ(s1, s4) << name << ": one uniform per variate";
        ASSERT_EQ(d(3, r3, s3, x3), 0) << name;
        if (name != "logarithmic" && name != "geometric")
            EXPECT_EQ(s3, s4) << name << ": MODE 3, one uniform per variate";
        if (name == "logarithmic" || name == "geometric") {  // serial: pieces continue
            std::vector<int> s5 = rt::make(6, {5}), x5(1000);
            for (int at : {0, 1, 500}) {
                std::vector<int> piece(at == 0 ? 1 : at == 1 ? 499 : 500);
                ASSERT_EQ(d(3, r3, s5, piece), 0) << name;
                std::copy(piece.begin(), piece.end(), x5.begin() + at);
            }
            EXPECT_EQ(x5, x3) << name;
            EXPECT_EQ(s5, s3) << name;
        }
        if (name != "logarithmic" && name != "geometric")
            EXPECT_EQ(x3, x2) << name << ": MODE 3 uses the same table";
    }
}

TEST(RandomDiscrete, TableIndependentOfThreadCount)
{
    const int saved = omp_get_max_threads();
    std::vector<int> s1 = rt::make(3, {8}), s2 = s1, x1(100003), x2(100003);
    std::vector<double> r(10);
    omp_set_num_threads(1);
    ASSERT_EQ(taf(1000000, 0.4)(3, r, s1, x1), 0);
    omp_set_num_threads(2);
    ASSERT_EQ(taf(1000000, 0.4)(3, r, s2, x2), 0);
    omp_set_num_threads(saved);
    EXPECT_EQ(x1, x2);
    EXPECT_EQ(s1, s2);
}

TEST(RandomDiscrete, LogicalAndUniformIntegers)
{
    for (int genid = 1; genid <= 6; ++genid) {
        // Logical: a binomial count of trues.
        std::vector<int> s = rt::make(genid, {77}), t = s;
        const int n = 400000;
        std::vector<int> b(n, 7);
        int nn = n, ifail = 1;
        double p = 0.3;
        g05tbf_(&nn, &p, s.data(), b.data(), &ifail);
        ASSERT_EQ(ifail, 0);
        rt::uniforms(t, n);
        EXPECT_EQ(s, t) << "one uniform per logical";
        const double trues = static_cast<double>(std::count(b.begin(), b.end(), 1));
        EXPECT_EQ(trues + std::count(b.begin(), b.end(), 0), n);
        EXPECT_LT(std::fabs(trues - 0.3 * n), 5.5 * std::sqrt(n * 0.21)) << genid;
        // Uniform integers on -3..13: 17 equiprobable cells, -3 + floor(17 u) of the next n
        // uniforms (for the basic generator from its 60-bit values: equal but where 17 x / 2^60
        // lies within 2^-53 of an integer, never at this seed).
        int a = -3, bb = 13;
        std::vector<int> x(n);
        t = s;
        g05tlf_(&nn, &a, &bb, s.data(), x.data(), &ifail);
        ASSERT_EQ(ifail, 0);
        const std::vector<double> u = rt::uniforms(t, n);
        EXPECT_EQ(s, t) << "one uniform per integer";
        for (int i = 0; i < n; ++i)
            ASSERT_EQ(x[i], -3 + static_cast<int>(17 * u[i])) << genid << " " << i;
        std::vector<double> count(17, 0.0);
        for (int v : x) {
            ASSERT_TRUE(v >= -3 && v <= 13) << v;
            count[v + 3] += 1;
        }
        double chi = 0.0;
        for (double c : count)
            chi += (c - n / 17.0) * (c - n / 17.0) / (n / 17.0);
        EXPECT_LT(chi, rt::chi2_threshold(16)) << genid;
    }
    // The whole integer range and a single value.
    std::vector<int> s = rt::make(1, {5}), x(100000);
    int n = 100000, a = -2147483647 - 1, b = 2147483647, ifail = 1;
    g05tlf_(&n, &a, &b, s.data(), x.data(), &ifail);
    ASSERT_EQ(ifail, 0);
    EXPECT_GT(*std::max_element(x.begin(), x.end()), 2147483647 - 2147483647 / 1000);
    EXPECT_LT(*std::min_element(x.begin(), x.end()), a + 2147483647 / 1000);
    a = b = 12;
    g05tlf_(&n, &a, &b, s.data(), x.data(), &ifail);
    EXPECT_EQ(x, std::vector<int>(100000, 12));
    // P = 0 and P = 1 give constant results.
    double p0 = 0.0, p1 = 1.0;
    g05tbf_(&n, &p0, s.data(), x.data(), &ifail);
    EXPECT_EQ(x, std::vector<int>(100000, 0));
    g05tbf_(&n, &p1, s.data(), x.data(), &ifail);
    EXPECT_EQ(x, std::vector<int>(100000, 1));
}

// General discrete: probabilities and the equivalent distribution function give the same
// variates; zero-probability values never occur; counts fit.
TEST(RandomDiscrete, GeneralDiscrete)
{
    std::vector<double> p = {0.1, 0.0, 0.3, 0.6, 0.0}, cdf = {0.1, 0.1, 0.4, 1.0, 1.0};
    for (int genid = 1; genid <= 6; ++genid) {
        std::vector<int> s1 = rt::make(genid, {4}), s2 = s1, s3 = s1, x1(100000), x2(100000),
                         x3(100000);
        std::vector<double> r(20);
        int n = 100000, np = 5, ip1 = -2, lr = 20, ifail = 1, one = 1, two = 2;
        int mode = 2;
        g05tdf_(&mode, &n, p.data(), &np, &ip1, &one, r.data(), &lr, s1.data(), x1.data(), &ifail);
        ASSERT_EQ(ifail, 0);
        g05tdf_(&mode, &n, cdf.data(), &np, &ip1, &two, r.data(), &lr, s2.data(), x2.data(),
                &ifail);
        ASSERT_EQ(ifail, 0);
        mode = 3;
        g05tdf_(&mode, &n, p.data(), &np, &ip1, &one, r.data(), &lr, s3.data(), x3.data(), &ifail);
        ASSERT_EQ(ifail, 0);
        EXPECT_EQ(x1, x2);
        EXPECT_EQ(x1, x3);
        double count[5] = {0, 0, 0, 0, 0};
        for (int v : x1) {
            ASSERT_TRUE(v == -2 || v == 0 || v == 1) << v;
            count[v + 2] += 1;
        }
        double chi = 0.0;
        for (int k : {0, 2, 3})
            chi += (count[k] - n * p[k]) * (count[k] - n * p[k]) / (n * p[k]);
        EXPECT_LT(chi, rt::chi2_threshold(2)) << genid;
    }
}

// Varying means: the variates drawn for each mean fit its Poisson distribution; a constant
// vector gives what G05TJF gives with MODE 3.
TEST(RandomDiscrete, PoissonWithVaryingMeans)
{
    const double means[] = {0.5, 4.0, 30.0, 1e5};
    const int n = 400000;
    std::vector<double> v(n);
    for (int i = 0; i < n; ++i)
        v[i] = means[i % 4];
    std::vector<int> s = rt::make(3, {21}), x(n);
    int nn = n, ifail = 1;
    g05tkf_(&nn, v.data(), s.data(), x.data(), &ifail);
    ASSERT_EQ(ifail, 0);
    for (int j = 0; j < 4; ++j) {
        const double lambda = means[j];
        std::vector<int> sub;
        for (int i = j; i < n; i += 4)
            sub.push_back(x[i]);
        int df = 0;
        const double chi = chi2_counts(
            sub,
            [=](int k) {
                return k < 0 ? 0.0 : std::exp(k * std::log(lambda) - lambda - std::lgamma(k + 1.0));
            },
            0, static_cast<int>(lambda), &df);
        EXPECT_LT(chi, rt::chi2_threshold(df)) << lambda;
    }
    std::vector<int> a = rt::make(1, {9}), b = a, xa(1000), xb(1000);
    std::vector<double> c(1000, 12.5), r(1);
    int m = 1000, mode = 3, lr = 1;
    double lambda = 12.5;
    g05tkf_(&m, c.data(), a.data(), xa.data(), &ifail);
    ASSERT_EQ(ifail, 0);
    g05tjf_(&mode, &m, &lambda, r.data(), &lr, b.data(), xb.data(), &ifail);
    ASSERT_EQ(ifail, 0);
    EXPECT_EQ(xa, xb);
    EXPECT_EQ(a, b);
}

// Multinomial: every vector sums to M, each count is binomial (M, P(j)), SORDER = 2 is the
// transpose of SORDER = 1, MODE 0 + 1, 2 and 3 agree and take M uniforms per vector.
TEST(RandomDiscrete, Multinomial)
{
    std::vector<double> p = {0.2, 0.0, 0.5, 0.3}, r(10);
    int mode = 2, n = 20000, m = 12, k = 4, lr = 10, ld1 = 20000, ld2 = 4, s1o = 1, s2o = 2,
        ifail = 1;
    std::vector<int> st1 = rt::make(5, {3}), st2 = st1, st3 = st1, x1(ld1 * k), x2(ld2 * n),
                     x3(ld2 * n);
    g05tgf_(&mode, &n, &m, &k, p.data(), r.data(), &lr, st1.data(), x1.data(), &ld1, &s1o, &ifail);
    ASSERT_EQ(ifail, 0);
    mode = 1;
    g05tgf_(&mode, &n, &m, &k, p.data(), r.data(), &lr, st2.data(), x2.data(), &ld2, &s2o, &ifail);
    ASSERT_EQ(ifail, 0);
    mode = 3;
    g05tgf_(&mode, &n, &m, &k, p.data(), r.data(), &lr, st3.data(), x3.data(), &ld2, &s2o, &ifail);
    ASSERT_EQ(ifail, 0);
    EXPECT_EQ(x2, x3);
    EXPECT_EQ(st1, st2);
    std::vector<int> st4 = rt::make(5, {3});
    rt::uniforms(st4, n * m);
    EXPECT_EQ(st1, st4);
    std::vector<double> count(3 * 13, 0.0);
    for (int i = 0; i < n; ++i) {
        int sum = 0;
        for (int j = 0; j < k; ++j) {
            EXPECT_EQ(x1[i + j * ld1], x2[j + i * ld2]);
            sum += x1[i + j * ld1];
        }
        EXPECT_EQ(sum, m);
        EXPECT_EQ(x1[i + ld1], 0) << "P(2) = 0";
    }
    for (int j : {0, 2, 3}) {
        std::vector<int> col(x1.begin() + j * ld1, x1.begin() + j * ld1 + n);
        int df = 0;
        const double pj = p[j];
        const double chi = chi2_counts(
            col,
            [=](int c) {
                return c < 0 || c > m ? 0.0
                                      : std::exp(log_choose(m, c) + c * std::log(pj) +
                                                 (m - c) * std::log1p(-pj));
            },
            0, static_cast<int>(m * pj), &df);
        EXPECT_LT(chi, rt::chi2_threshold(df)) << j;
    }
}

// Long calls search from a guide table, short calls by bisection: both find the same values.
TEST(RandomDiscrete, GuideTableFindsWhatBisectionFinds)
{
    for (const Draw& d : {taf(100000, 0.3), tef(100000, 30000, 50000), thf(3, 0.001)}) {
        for (int genid : {1, 4}) {
            std::vector<int> a = rt::make(genid, {3}), b = a, shortx(40), longx(400000);
            std::vector<double> r(1);
            ASSERT_EQ(d(3, r, a, shortx), 0);
            ASSERT_EQ(d(3, r, b, longx), 0);
            EXPECT_TRUE(std::equal(shortx.begin(), shortx.end(), longx.begin())) << genid;
        }
    }
}

}  // namespace
