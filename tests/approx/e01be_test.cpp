// The monotone piecewise cubic Hermite family against exact rational
// references (tools/pchip_reference.py, tests/data/e01be.txt): E01BEF's
// derivatives and switch count, E01BGF's values and slopes (extrapolation
// included), E01BHF's integrals (reversed and outside limits); the locator
// against std::upper_bound on sorted, random and awkward points; shape kept at
// a million points; every message in its check order.
#include <gtest/gtest.h>

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <limits>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "approx/hermite.hpp"
#include "gen/approx.hpp"
#include "lbx3207qk.h"
#include "tests/support/messages.hpp"
#include "tests/support/reference_data.hpp"

namespace {

struct DataSet {
    std::string name;
    int switches = 0;
    std::vector<double> x, f, d;                     // d: the doubles nearest the exact derivatives
    std::vector<long double> dx;                     // exact derivatives (25 digits)
    std::vector<std::vector<double>> val, integral;  // {p, value, slope}, {a, b, integral}
};

std::vector<DataSet> load()
{
    std::vector<DataSet> sets;
    std::ifstream in(std::string(LBX_TEST_DATA) + "/e01be.txt");
    std::string line, tag;
    while (std::getline(in, line)) {
        std::istringstream s(line);
        s >> tag;
        std::vector<std::string> w;
        for (std::string v; s >> v;)
            w.push_back(v);
        const auto num = [&](int k) { return std::strtod(w[k].c_str(), nullptr); };
        if (tag == "set") {
            sets.emplace_back();
            sets.back().name = w[0];
            sets.back().switches = std::atoi(w[2].c_str());
        }
        if (tag == "pt") {
            sets.back().x.push_back(num(0));
            sets.back().f.push_back(num(1));
            sets.back().dx.push_back(std::strtold(w[2].c_str(), nullptr));
            sets.back().d.push_back(num(3));
        }
        if (tag == "val")
            sets.back().val.push_back({num(0), num(1), num(2)});
        if (tag == "int")
            sets.back().integral.push_back({num(0), num(1), num(2)});
    }
    EXPECT_EQ(sets.size(), 14u);
    return sets;
}

double max_abs(const std::vector<double>& v)
{
    double m = 0;
    for (double a : v)
        m = std::max(m, std::fabs(a));
    return m;
}

// Derivatives within 4 ulps of the exact ones, exact zeros exactly, the same
// bits with a stride of 3, and the switch count.
TEST(E01BEF, DerivativesMatchExactArithmetic)
{
    for (const DataSet& s : load()) {
        const int n = static_cast<int>(s.x.size());
        std::vector<double> d(n, -7.0), strided(3 * n, -7.0), f3(3 * n, 99.0);
        int ifail = 1;
        e01bef_(&n, s.x.data(), s.f.data(), d.data(), &ifail);
        ASSERT_EQ(ifail, 0) << s.name;
        for (int i = 0; i < n; ++i) {
            if (s.dx[i] == 0) {
                EXPECT_EQ(d[i], 0.0) << s.name << " point " << i + 1;
                continue;
            }
            EXPECT_LE(lbx::test::ulp_error(d[i], s.dx[i]), 4.0) << s.name << " point " << i + 1;
        }
        for (int i = 0; i < n; ++i)
            f3[3 * i] = s.f[i];
        EXPECT_EQ(lbx::approx::monotone_derivatives(n, s.x.data(), f3.data(), 3, strided.data()),
                  s.switches)
            << s.name;
        for (int i = 0; i < n; ++i) {
            EXPECT_EQ(strided[3 * i], d[i]) << s.name << " stride 3, point " << i + 1;
            EXPECT_EQ(strided[3 * i + 1], -7.0) << s.name << " stride 3 wrote between points";
        }
    }
}

// Values and slopes at the data, between them and beyond both ends: errors
// within 8 eps of the set's largest |F| (values) or largest slope (slopes)
// plus the size of the reference itself (extrapolated cubics grow).
TEST(E01BGF, ValuesAndSlopesMatchTheExactCubics)
{
    for (const DataSet& s : load()) {
        const int n = static_cast<int>(s.x.size()), m = static_cast<int>(s.val.size());
        std::vector<double> px, pf(m), pd(m);
        bool outside = false;
        for (const auto& v : s.val) {
            px.push_back(v[0]);
            outside |= v[0] < s.x.front() || v[0] > s.x.back();
        }
        int ifail = 1;
        e01bgf_(&n, s.x.data(), s.f.data(), s.d.data(), &m, px.data(), pf.data(), pd.data(),
                &ifail);
        EXPECT_EQ(ifail, outside ? 4 : 0) << s.name;
        std::vector<double> pf2(m);
        e01bff_(&n, s.x.data(), s.f.data(), s.d.data(), &m, px.data(), pf2.data(), &ifail);
        const double fs = max_abs(s.f), ds = std::max(max_abs(s.d), fs / (s.x.back() - s.x[0]));
        for (int k = 0; k < m; ++k) {
            const double fk = fs + std::fabs(s.val[k][1]), dk = ds + std::fabs(s.val[k][2]);
            EXPECT_NEAR(pf[k], s.val[k][1], 8 * DBL_EPSILON * fk) << s.name << " p=" << px[k];
            EXPECT_NEAR(pd[k], s.val[k][2], 8 * DBL_EPSILON * dk) << s.name << " p=" << px[k];
            EXPECT_EQ(pf2[k], pf[k]) << s.name << " E01BFF differs from E01BGF";
        }
    }
}

// Integrals within 8 eps of |B - A| times the set's largest |F| (and the
// extrapolated cubics' size beyond the ends), the warning exactly when a limit
// lies outside.
TEST(E01BHF, IntegralsMatchTheExactCubics)
{
    for (const DataSet& s : load()) {
        const int n = static_cast<int>(s.x.size());
        for (const auto& c : s.integral) {
            double pint = 0;
            int ifail = 1;
            e01bhf_(&n, s.x.data(), s.f.data(), s.d.data(), &c[0], &c[1], &pint, &ifail);
            const bool outside =
                std::min(c[0], c[1]) < s.x.front() || std::max(c[0], c[1]) > s.x.back();
            EXPECT_EQ(ifail, outside ? 3 : 0) << s.name << " " << c[0] << " " << c[1];
            const double scale = std::fabs(c[1] - c[0]) * (max_abs(s.f) + std::fabs(c[2]));
            EXPECT_NEAR(pint, c[2], 8 * DBL_EPSILON * scale)
                << s.name << " " << c[0] << " " << c[1];
        }
    }
}

// The locator finds the interval std::upper_bound finds (0 .. n-2) for any
// order of points: sorted, reversed, random, repeated, beyond both ends, NaN,
// and sorted runs sparser and denser than the abscissae.
TEST(E01BFF, LocatorAgreesWithUpperBound)
{
    std::mt19937_64 gen(7);
    for (int n : {2, 3, 4, 5, 64, 1000, 4097}) {
        std::vector<double> x(n);
        for (int i = 0; i < n; ++i)
            x[i] = i + 0.5 * std::uniform_real_distribution<double>()(gen);
        std::uniform_real_distribution<double> u(x[0] - 2, x[n - 1] + 2);
        for (int kind = 0; kind < 6; ++kind) {
            const int m = kind == 4 ? 37 : 5000;
            std::vector<double> p(m);
            for (int i = 0; i < m; ++i)
                p[i] = kind == 5 ? x[i % n] : u(gen);
            if (kind == 1 || kind == 4)
                std::sort(p.begin(), p.end());
            if (kind == 2)
                std::sort(p.begin(), p.end(), std::greater<>());
            if (kind == 3)
                for (int i = 0; i < m; i += 97)
                    p[i] = std::numeric_limits<double>::quiet_NaN();
            lbx::approx::Locator locator(n, x.data());
            std::vector<std::ptrdiff_t> j(m);
            for (int start = 0; start < m; start += lbx::approx::Locator::block)
                locator.find(p.data() + start, std::min<int>(64, m - start), j.data() + start);
            for (int i = 0; i < m; ++i) {
                std::ptrdiff_t want =
                    std::upper_bound(x.begin() + 1, x.end() - 1, p[i]) - x.begin() - 1;
                if (std::isnan(p[i]))
                    want = 0;
                ASSERT_EQ(j[i], std::max<std::ptrdiff_t>(want, 0))
                    << "n=" << n << " kind=" << kind << " p=" << p[i];
            }
        }
    }
}

// Increasing data with flat stretches: a million sorted points give a
// non-decreasing result that stays within each interval's data, and the same
// points shuffled give the same bits.
TEST(E01BFF, MonotoneDataStayMonotoneAtAMillionPoints)
{
    std::mt19937_64 gen(11);
    const int n = 2000, m = 1000000;
    std::vector<double> x(n), f(n), d(n);
    for (int i = 0; i < n; ++i) {
        x[i] = i == 0 ? 0 : x[i - 1] + std::exponential_distribution<double>(1.0)(gen) + 1e-3;
        const double step =
            i % 50 < 5 ? 0 : std::pow(10.0, std::uniform_real_distribution<double>(-6, 2)(gen));
        f[i] = i == 0 ? -3 : f[i - 1] + step;
    }
    int ifail = 0;
    e01bef_(&n, x.data(), f.data(), d.data(), &ifail);
    std::vector<double> p(m), pf(m);
    for (int k = 0; k < m; ++k)
        p[k] = x[0] + (x[n - 1] - x[0]) * k / (m - 1);
    e01bff_(&n, x.data(), f.data(), d.data(), &m, p.data(), pf.data(), &ifail);
    ASSERT_EQ(ifail, 0);
    for (int k = 1; k < m; ++k)
        ASSERT_LE(pf[k - 1], pf[k]) << "at " << p[k];
    for (int k = 0; k < m; ++k) {
        const auto j = lbx::approx::interval_of(n, x.data(), p[k]);
        ASSERT_TRUE(pf[k] >= f[j] && pf[k] <= f[j + 1]) << "at " << p[k];
    }
    std::vector<int> order(m);
    for (int k = 0; k < m; ++k)
        order[k] = k;
    std::shuffle(order.begin(), order.end(), gen);
    std::vector<double> q(m), qf(m);
    for (int k = 0; k < m; ++k)
        q[k] = p[order[k]];
    e01bff_(&n, x.data(), f.data(), d.data(), &m, q.data(), qf.data(), &ifail);
    for (int k = 0; k < m; ++k)
        ASSERT_EQ(qf[k], pf[order[k]]);
}

const double xs[4] = {1, 2, 3, 4}, fs[4] = {1, 4, 2, 2}, bad[4] = {1, 2, 2, 3};

lbx::test::Raised be(int n, const double* x)
{
    double d[4] = {-1, -1, -1, -1};
    const auto r = lbx::test::traced([&](char* e, int* i) { e01beft_(&n, x, fs, d, e, i, 200); });
    if (r.ifail != 0)
        EXPECT_TRUE(d[0] == -1 && d[1] == -1 && d[2] == -1 && d[3] == -1) << "D touched";
    return r;
}

template <bool Slopes>
lbx::test::Raised bf(int n, const double* x, int m, double p)
{
    const double d[4] = {0, 0, 0, 0}, px[2] = {p, 2.5};
    double pf[2] = {-1, -1}, pd[2] = {-1, -1};
    const auto r = lbx::test::traced([&](char* e, int* i) {
        if (Slopes)
            e01bgft_(&n, x, fs, d, &m, px, pf, pd, e, i, 200);
        else
            e01bfft_(&n, x, fs, d, &m, px, pf, e, i, 200);
    });
    if (r.ifail != 0 && r.ifail != 4)
        EXPECT_TRUE(pf[0] == -1 && pd[0] == -1) << "results touched";
    if (r.ifail == 4 && m == 2)
        EXPECT_EQ(pf[1], 3.0) << "results kept with the warning";
    return r;
}

lbx::test::Raised bh(int n, const double* x, double a, double b)
{
    const double d[4] = {1, 0, 0, 0};
    double pint = -1;
    const auto r = lbx::test::traced(
        [&](char* e, int* i) { e01bhft_(&n, x, fs, d, &a, &b, &pint, e, i, 200); });
    EXPECT_EQ(pint == -1, r.ifail != 0 && r.ifail != 3) << "PINT on failure";
    return r;
}

TEST(E01BEF, EveryMessageInItsCheckOrder)
{
    using T = lbx::test::Trigger;
    using lbx::test::e;
    const double nanx[4] = {1, std::numeric_limits<double>::quiet_NaN(), 3, 4};
    const std::vector<std::string> equal = {"3", e(2), e(2)};
    lbx::test::check_catalogue(
        lbx::approx::catalogue_messages,
        {
            T{"E01BEF", "N_LT_2", [] { return be(1, xs); }, {"1"}},
            T{"E01BEF", "N_LT_2", [] { return be(-3, bad); }, {"-3"}, "before X"},
            T{"E01BEF", "X_NOT_INCREASING", [] { return be(4, bad); }, equal,
              "second of the equal"},
            T{"E01BEF", "X_NOT_INCREASING", [=] { return be(4, nanx); }, {"2", e(1), "NaN"}, "NaN"},
            T{"E01BEF", "", [] { return be(2, bad); }, {}, "only the first N read"},
            T{"E01BFF", "N_LT_2", [] { return bf<false>(1, bad, 0, 9); }, {"1"}, "before M"},
            T{"E01BFF", "M_LT_1", [] { return bf<false>(4, bad, 0, 9); }, {"0"}, "before X"},
            T{"E01BFF", "X_NOT_INCREASING", [] { return bf<false>(4, bad, 2, 9); }, equal,
              "before PX"},
            T{"E01BFF", "PX_OUTSIDE", [] { return bf<false>(4, xs, 2, 4.5); }},
            T{"E01BFF", "PX_OUTSIDE", [] { return bf<false>(4, xs, 1, 0.5); }, {}, "below"},
            T{"E01BFF", "", [] { return bf<false>(4, xs, 1, 4); }, {}, "X(N) is inside"},
            T{"E01BGF", "N_LT_2", [] { return bf<true>(0, bad, -1, 9); }, {"0"}, "before M"},
            T{"E01BGF", "M_LT_1", [] { return bf<true>(4, bad, -1, 9); }, {"-1"}, "before X"},
            T{"E01BGF", "X_NOT_INCREASING", [] { return bf<true>(4, bad, 1, 1); }, equal},
            T{"E01BGF", "PX_OUTSIDE", [] { return bf<true>(4, xs, 2, NAN); }, {}, "NaN"},
            T{"E01BGF", "", [] { return bf<true>(4, xs, 2, 1); }, {}, "X(1) is inside"},
            T{"E01BHF", "N_LT_2", [] { return bh(1, bad, 9, 9); }, {"1"}},
            T{"E01BHF", "X_NOT_INCREASING", [] { return bh(4, bad, 1, 2); }, equal},
            T{"E01BHF", "AB_OUTSIDE", [] { return bh(4, xs, 0.5, 2); }, {e(0.5), e(2)}},
            T{"E01BHF", "AB_OUTSIDE", [] { return bh(4, xs, 2, 4.25); }, {e(2), e(4.25)}, "B"},
            T{"E01BHF", "", [] { return bh(4, xs, 4, 1); }, {}, "the ends are inside"},
        });
}

}  // namespace
