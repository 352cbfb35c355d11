// Normal, Student's t and chi-squared tail probabilities and the normal
// deviate: accuracy against the committed reference tables, the TAIL
// convention, edge cases, and every catalogue message in its check order.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <map>
#include <string>
#include <vector>

#include "gen/stats.hpp"
#include "lbx3207qk.h"
#include "tests/support/messages.hpp"
#include "tests/support/reference_data.hpp"

namespace {

using lbx::test::ErrorStat;
using lbx::test::load_reference;
using lbx::test::record;
using lbx::test::ulp_error;

double g01eaf(char tail, double x, int& ifail)
{
    return g01eaf_(&tail, &x, &ifail, 1);
}
double g01faf(char tail, double p, int& ifail)
{
    return g01faf_(&tail, &p, &ifail, 1);
}
double g01ebf(char tail, double t, double df, int& ifail)
{
    return g01ebf_(&tail, &t, &df, &ifail, 1);
}
double g01ecf(char tail, double x, double df, int& ifail)
{
    return g01ecf_(&tail, &x, &df, &ifail, 1);
}

void expect_bounds(const char* file, const std::map<std::string, ErrorStat>& here,
                   const std::map<std::string, double>& bounds)
{
    EXPECT_EQ(here.size(), bounds.size()) << file << ": a group without a bound";
    for (const auto& [key, bound] : bounds) {
        const auto it = here.find(key);
        ASSERT_NE(it, here.end()) << file << " " << key;
        EXPECT_LE(it->second.max_ulp, bound)
            << file << " " << key << " worst x=" << it->second.worst_x
            << " df=" << it->second.worst_df;
    }
}

TEST(DistributionAccuracy, NormalG01EAF)
{
    const auto cases = load_reference("g01eaf.txt", false);
    ASSERT_GT(cases.size(), 5000u);
    std::map<std::string, ErrorStat> here, libm;
    for (const auto& c : cases) {
        int ifail = 1;
        const double got = g01eaf(c.label[0], c.x, ifail);
        EXPECT_EQ(ifail, 0);
        const std::string key = c.label + (std::fabs(c.x) <= 5 ? " |x|<=5" : " |x|>5");
        record(here, key, ulp_error(got, c.ref), c);
        const double s = 0.7071067811865475;
        const double peer = c.label == "L"   ? 0.5 * std::erfc(-c.x * s)
                            : c.label == "U" ? 0.5 * std::erfc(c.x * s)
                            : c.label == "S" ? std::erfc(std::fabs(c.x) * s)
                                             : std::erf(std::fabs(c.x) * s);
        record(libm, key, ulp_error(peer, c.ref), c);
    }
    lbx::test::print_stats("g01eaf", here, libm);
    // Up to |x| = 5 the error is that of erfc or erf plus the rounding of
    // x/sqrt(2).  Beyond, the tail's relative condition number is about x^2:
    // the one rounding of x/sqrt(2) alone moves the result by up to x^2/2 ULPs
    // (about 740 at x = 38.5); glibc's erfc through the same formula shows the
    // same growth.
    expect_bounds("g01eaf", here,
                  {{"L |x|<=5", 33.0},
                   {"U |x|<=5", 33.0},
                   {"S |x|<=5", 33.0},
                   {"C |x|<=5", 4.0},
                   {"L |x|>5", 1800.0},
                   {"U |x|>5", 1800.0},
                   {"S |x|>5", 1800.0},
                   {"C |x|>5", 1.0}});
}

TEST(DistributionAccuracy, NormalDeviateG01FAF)
{
    const auto cases = load_reference("g01faf.txt", false);
    ASSERT_GT(cases.size(), 2000u);
    std::map<std::string, ErrorStat> here, none;
    for (const auto& c : cases) {
        int ifail = 1;
        const double got = g01faf('L', c.x, ifail);
        EXPECT_EQ(ifail, 0);
        record(here, c.label, ulp_error(got, c.ref), c);
    }
    lbx::test::print_stats("g01faf", here, none);
    // The published rationals are good to about 16 digits: a few ULPs.
    expect_bounds("g01faf", here, {{"central", 5.0}, {"tail", 5.0}, {"fartail", 5.5}});
}

// df groups for the t and chi-squared tables.
std::string df_group(double df)
{
    if (df <= 10)
        return "df<=10";
    if (df <= 2000)
        return "df<=2000";
    return "df>2000";
}

TEST(DistributionAccuracy, StudentTG01EBF)
{
    const auto cases = load_reference("g01ebf.txt", true);
    ASSERT_GT(cases.size(), 2000u);
    std::map<std::string, ErrorStat> here, none;
    for (const auto& c : cases) {
        int ifail = 1;
        const double got = g01ebf(c.label[0], c.x, c.df, ifail);
        EXPECT_EQ(ifail, 0);
        const bool far = c.ref > 0 && c.ref < 1e-30L;
        record(here, c.label + " " + df_group(c.df) + (far ? " far" : ""), ulp_error(got, c.ref),
               c);
    }
    lbx::test::print_stats("g01ebf", here, none);
    // Bounds: the measured errors with a margin.  The tails' relative
    // condition number grows like T^2 (for large DF) or DF (for large T), so a
    // few tens of ULPs at T near 10 come from the rounding of T^2/DF alone.
    // "far": results below 1e-30, where the factor x^a y^b is an exponential of
    // a large argument whose rounding grows with it (about 0.5 ULP per unit).
    expect_bounds("g01ebf", here,
                  {
                      {"C df<=10", 30.0},        {"C df<=2000", 20.0},     {"C df>2000", 25.0},
                      {"L df<=10", 40.0},        {"L df<=2000", 70.0},     {"L df>2000", 100.0},
                      {"L df<=2000 far", 340.0}, {"L df>2000 far", 600.0}, {"S df<=10", 40.0},
                      {"S df<=2000", 70.0},      {"S df>2000", 100.0},     {"S df<=10 far", 65.0},
                      {"S df<=2000 far", 350.0}, {"S df>2000 far", 600.0}, {"U df<=10", 40.0},
                      {"U df<=2000", 70.0},      {"U df>2000", 100.0},     {"U df<=10 far", 65.0},
                      {"U df<=2000 far", 350.0}, {"U df>2000 far", 600.0},
                  });
}

TEST(DistributionAccuracy, ChiSquaredG01ECF)
{
    const auto cases = load_reference("g01ecf.txt", true);
    ASSERT_GT(cases.size(), 1000u);
    std::map<std::string, ErrorStat> here, none;
    for (const auto& c : cases) {
        int ifail = 1;
        const double got = g01ecf(c.label[0], c.x, c.df, ifail);
        EXPECT_EQ(ifail, 0);
        const bool far = c.ref > 0 && c.ref < 1e-30L;
        record(here, c.label + " " + df_group(c.df) + (far ? " far" : ""), ulp_error(got, c.ref),
               c);
    }
    lbx::test::print_stats("g01ecf", here, none);
    // Measured errors with a margin.  Below 1e-30 ("far") the prefactor is an
    // exponential of an argument of up to about 2000, rounded to about 0.5 ULP
    // per unit of it: one bound for all far groups.  Elsewhere the error is
    // that of the series or fraction (a rounding per term) and of 1 - P or
    // 1 - Q where that tail is the larger one.
    expect_bounds("g01ecf", here,
                  {
                      {"L df<=10", 12.0},
                      {"L df<=2000", 75.0},
                      {"L df<=2000 far", 1050.0},
                      {"L df>2000", 110.0},
                      {"L df>2000 far", 1050.0},
                      {"U df<=10", 25.0},
                      {"U df<=2000", 140.0},
                      {"U df<=2000 far", 1050.0},
                      {"U df>2000", 180.0},
                      {"U df>2000 far", 1050.0},
                  });
}

struct TailCase {
    char tail;
    double x;
    double want;
};

TEST(DistributionEdges, NormalTails)
{
    const TailCase cases[] = {
        {'L', 0.0, 0.5},  {'U', 0.0, 0.5},   {'S', 0.0, 1.0},   {'C', 0.0, 0.0},
        {'l', 0.0, 0.5},  {'u', 0.0, 0.5},   {'s', 0.0, 1.0},   {'c', 0.0, 0.0},
        {'U', 40.0, 0.0}, {'L', -40.0, 0.0}, {'L', 40.0, 1.0},  {'U', -40.0, 1.0},
        {'S', 40.0, 0.0}, {'C', -40.0, 1.0}, {'S', 1e300, 0.0}, {'C', 1e300, 1.0},
    };
    for (const TailCase& c : cases) {
        int ifail = 1;
        EXPECT_EQ(g01eaf(c.tail, c.x, ifail), c.want) << c.tail << " " << c.x;
        EXPECT_EQ(ifail, 0);
    }
    for (double x : {-3.0, -0.3, 0.7, 2.5}) {
        int ifail = 1;
        EXPECT_EQ(g01eaf('s', x, ifail), g01eaf('S', x, ifail));
        EXPECT_EQ(g01eaf('S', x, ifail), g01eaf('S', -x, ifail));
        EXPECT_NEAR(g01eaf('L', x, ifail) + g01eaf('U', x, ifail), 1.0, 2.3e-16);
        EXPECT_NEAR(g01eaf('S', x, ifail) + g01eaf('C', x, ifail), 1.0, 2.3e-16);
    }
    // Only the first character counts.
    const char word[] = "Upper";
    const double x = 1.0;
    int ifail = 1;
    EXPECT_EQ(g01eaf_(word, &x, &ifail, 5), g01eaf('U', 1.0, ifail));
}

TEST(DistributionEdges, NormalDeviates)
{
    int ifail = 1;
    EXPECT_EQ(g01faf('L', 0.5, ifail), 0.0);
    EXPECT_NEAR(g01faf('C', 0.95, ifail), 1.959963984540054, 4e-16 * 2);
    // 'U', 'S' and 'C' are the lower deviate at 1 - P, P/2 and (1 + P)/2.
    for (double p : {1e-200, 1e-10, 0.01, 0.3, 0.7, 0.99}) {
        EXPECT_EQ(g01faf('U', p, ifail), -g01faf('L', p, ifail)) << p;
        EXPECT_EQ(g01faf('s', p, ifail), -g01faf('L', p / 2, ifail)) << p;
        EXPECT_EQ(g01faf('C', p, ifail), g01faf('L', 0.5 + p / 2, ifail)) << p;
    }
    EXPECT_EQ(ifail, 0);
    // The smallest and largest P (mpmath).
    EXPECT_NEAR(g01faf('L', 5e-324, ifail), -38.467405617144344, 1e-13);
    EXPECT_NEAR(g01faf('L', 1.0 - 0x1p-53, ifail), 8.2095361516013844, 1e-14);
}

// A traced call; a failure returns 0 (NO_CONVERGENCE an approximation).
template <class F>
lbx::test::Raised stat(F f)
{
    double r = -1;
    const lbx::test::Raised raised = lbx::test::traced([&](char* e, int* i) { r = f(e, i); });
    if (raised.ifail != 0 && raised.code != lbx::stats::G01ECF_msg::NO_CONVERGENCE.code)
        EXPECT_EQ(r, 0.0);
    return raised;
}
lbx::test::Raised ea(char tail, double x)
{
    return stat([&](char* e, int* i) { return g01eaft_(&tail, &x, e, i, 1, 200); });
}
lbx::test::Raised fa(char tail, double p)
{
    return stat([&](char* e, int* i) { return g01faft_(&tail, &p, e, i, 1, 200); });
}
lbx::test::Raised eb(char tail, double t, double df)
{
    return stat([&](char* e, int* i) { return g01ebft_(&tail, &t, &df, e, i, 1, 200); });
}
lbx::test::Raised ec(char tail, double x, double df)
{
    return stat([&](char* e, int* i) { return g01ecft_(&tail, &x, &df, e, i, 1, 200); });
}

TEST(DistributionEdges, EveryMessageInItsCheckOrder)
{
    using T = lbx::test::Trigger;
    lbx::test::check_catalogue(
        lbx::stats::catalogue_messages,
        {
            T{"G01EAF", "TAIL_INVALID", [] { return ea('X', 1.0); }, {"X"}},
            T{"G01EAF", "TAIL_INVALID", [] { return ea(' ', 1.0); }, {""}},
            T{"G01FAF", "TAIL_INVALID", [] { return fa('X', 2.0); }, {"X"}, "before P"},
            T{"G01FAF", "P_NOT_POSITIVE", [] { return fa('L', 0.0); }, {"0.000000000000000E+00"}},
            T{"G01FAF", "P_NOT_POSITIVE", [] { return fa('U', -1.0); }},
            T{"G01FAF", "P_NOT_POSITIVE", [] { return fa('L', NAN); }},
            T{"G01FAF", "P_NOT_BELOW_ONE", [] { return fa('L', 1.0); }, {"1.000000000000000E+00"}},
            T{"G01FAF", "", [] { return fa('L', 1.0 - 0x1p-53); }},
            T{"G01FAF", "", [] { return fa('L', 5e-324); }},
            T{"G01EBF", "TAIL_INVALID", [] { return eb('X', 1.0, 0.0); }, {"X"}, "before DF"},
            T{"G01EBF",
              "DF_TOO_SMALL",
              [] { return eb('L', 1.0, 0.999); },
              {"9.990000000000000E-01"}},
            T{"G01EBF", "DF_TOO_SMALL", [] { return eb('L', 1.0, NAN); }},
            T{"G01EBF", "", [] { return eb('L', 1.0, 1.0); }},
            T{"G01ECF", "TAIL_INVALID", [] { return ec('S', 1.0, 1.0); }, {"S"}},
            T{"G01ECF", "TAIL_INVALID", [] { return ec('C', -1.0, -1.0); }, {"C"}, "before X"},
            T{"G01ECF",
              "X_NEGATIVE",
              [] { return ec('L', -1.0, -1.0); },
              {"-1.000000000000000E+00"},
              "before DF"},
            T{"G01ECF", "X_NEGATIVE", [] { return ec('L', NAN, 1.0); }},
            T{"G01ECF",
              "DF_NOT_POSITIVE",
              [] { return ec('U', 1.0, 0.0); },
              {"0.000000000000000E+00"}},
            T{"G01ECF", "", [] { return ec('U', 0.0, 1e-300); }},
            // Beyond 2e10 degrees of freedom the series cannot converge in its
            // iteration limit: the cube-root normal approximation, 0.5 here.
            T{"G01ECF", "NO_CONVERGENCE",
              [] {
                  double x = 3e10, df = 3e10;
                  int ifail = 1;
                  EXPECT_NEAR(g01ecf_("U", &x, &df, &ifail, 1), 0.5, 1e-5);
                  return ec('U', 3e10, 3e10);
              }},
            // Far out the probabilities are exact: nothing to report.
            T{"G01ECF", "", [] { return ec('U', 1e300, 3e10); }},
            T{"G01ECF", "", [] { return ec('L', 1.0, 3e10); }},
        });
}

TEST(DistributionEdges, StudentTAndChiSquaredSpecialValues)
{
    int ifail = 1;
    // t with one degree of freedom is Cauchy: P(T >= t) = 1/2 - atan(t)/pi.
    for (double t : {-50.0, -1.0, 0.0, 0.5, 3.0, 1e6}) {
        EXPECT_NEAR(g01ebf('U', t, 1.0, ifail), 0.5 - std::atan(t) / M_PI, 1e-15) << t;
    }
    EXPECT_EQ(g01ebf('S', 0.0, 7.0, ifail), 1.0);
    EXPECT_EQ(g01ebf('C', 0.0, 7.0, ifail), 0.0);
    EXPECT_EQ(g01ebf('U', 0.0, 7.0, ifail), 0.5);
    // Chi-squared with 2 degrees of freedom: P(X2 >= x) = exp(-x/2).
    for (double x : {0.0, 1e-10, 0.5, 3.0, 40.0, 700.0, 1400.0}) {
        EXPECT_NEAR(g01ecf('U', x, 2.0, ifail), std::exp(-x / 2), 1e-14 * std::exp(-x / 2)) << x;
    }
    EXPECT_EQ(g01ecf('L', 0.0, 3.0, ifail), 0.0);
    EXPECT_EQ(g01ecf('U', 0.0, 3.0, ifail), 1.0);
    EXPECT_EQ(ifail, 0);
}

TEST(DistributionEdges, ExtremeArguments)
{
    int ifail = 1;
    const double inf = std::numeric_limits<double>::infinity();
    // Infinite statistics, huge and tiny degrees of freedom: probabilities,
    // never NaN.
    EXPECT_EQ(g01ebf('U', inf, 5.0, ifail), 0.0);
    EXPECT_EQ(g01ebf('L', -inf, 5.0, ifail), 0.0);
    EXPECT_EQ(g01ebf('C', inf, 5.0, ifail), 1.0);
    EXPECT_EQ(g01ecf('U', inf, 5.0, ifail), 0.0);
    EXPECT_EQ(g01ecf('L', inf, 5.0, ifail), 1.0);
    EXPECT_EQ(ifail, 0);
    // Beyond 1e20 degrees of freedom the normal distribution.
    EXPECT_NEAR(g01ebf('U', 1.0, 1e30, ifail), 0.15865525393145705, 1e-16);
    EXPECT_EQ(g01ebf('S', 1e200, 1e250, ifail), 0.0);
    for (double df : {1.0, 1e5, 1e19, 1e25, 1e300}) {
        for (double t : {-1e300, -1e20, -3.0, 1e-300, 2.0, 1e155}) {
            for (char tail : {'L', 'U', 'S', 'C'}) {
                const double p = g01ebf(tail, t, df, ifail);
                EXPECT_TRUE(p >= 0.0 && p <= 1.0) << tail << " t=" << t << " df=" << df;
                EXPECT_EQ(ifail, 0);
            }
        }
    }
    for (double df : {1e-300, 1e-100, 1e-10, 1.0, 1e8}) {
        for (double x : {1e-300, 1e-10, 1.0, 1e8, 1e300}) {
            for (char tail : {'L', 'U'}) {
                const double p = g01ecf(tail, x, df, ifail);
                EXPECT_TRUE(p >= 0.0 && p <= 1.0) << tail << " x=" << x << " df=" << df;
                EXPECT_EQ(ifail, 0);
            }
        }
    }
}

}  // namespace
