// Normal, Student's t and chi-squared tail probabilities and the normal
// deviate: accuracy against the committed reference tables, the TAIL
// convention, exact values at the limits, and every catalogue message in its
// check order.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <map>
#include <string>

#include "gen/stats.hpp"
#include "lbx3207qk.h"
#include "tests/support/messages.hpp"
#include "tests/support/reference_data.hpp"

namespace {

using lbx::test::ReferenceCase;

// Each routine through its plain entry, IFAIL = 1; the name's letter: E(A), F(A), B, C.
double g01(char routine, char tail, double x, double df = 0)
{
    int ifail = 1;
    const double r = routine == 'E'   ? g01eaf_(&tail, &x, &ifail, 1)
                     : routine == 'F' ? g01faf_(&tail, &x, &ifail, 1)
                     : routine == 'B' ? g01ebf_(&tail, &x, &df, &ifail, 1)
                                      : g01ecf_(&tail, &x, &df, &ifail, 1);
    EXPECT_EQ(ifail, 0) << routine << tail << " " << x << " " << df;
    return r;
}

// The largest error in ULPs per group of a reference table, against its bound.
void check_accuracy(const char* file, char routine, std::string (*group)(const ReferenceCase&),
                    const std::map<std::string, double>& bounds)
{
    auto value = [&](const ReferenceCase& c) {
        return g01(routine, routine == 'F' ? 'L' : c.label[0], c.x, c.df);
    };
    lbx::test::check_accuracy(file, routine == 'B' || routine == 'C', value, group, bounds);
}

// Tail and df group for the t and chi-squared tables; "far": results below 1e-30.
std::string df_group(const ReferenceCase& c)
{
    return c.label +
           (c.df <= 10     ? " df<=10"
            : c.df <= 2000 ? " df<=2000"
                           : " df>2000") +
           (c.ref > 0 && c.ref < 1e-30L ? " far" : "");
}

TEST(DistributionAccuracy, NormalG01EAF)
{
    // Up to |x| = 5 the error is that of erfc or erf plus the rounding of
    // x/sqrt(2).  Beyond, the tail's relative condition number is about x^2:
    // the one rounding of x/sqrt(2) alone moves the result by up to x^2/2 ULPs
    // (about 740 at x = 38.5); glibc's erfc through the same formula shows the
    // same growth.
    check_accuracy("g01eaf.txt", 'E',
                   [](const ReferenceCase& c) {
                       return c.label + (std::fabs(c.x) <= 5 ? " |x|<=5" : " |x|>5");
                   },
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
    // The published rationals are good to about 16 digits: a few ULPs.
    check_accuracy("g01faf.txt", 'F', [](const ReferenceCase& c) { return c.label; },
                   {{"central", 5.0}, {"tail", 5.0}, {"fartail", 5.5}});
}

TEST(DistributionAccuracy, StudentTG01EBF)
{
    // Bounds: the measured errors with a margin.  The tails' relative
    // condition number grows like T^2 (for large DF) or DF (for large T), so a
    // few tens of ULPs at T near 10 come from the rounding of T^2/DF alone.
    // "far": the factor x^a y^b is an exponential of a large argument whose
    // rounding grows with it (about 0.5 ULP per unit).
    check_accuracy("g01ebf.txt", 'B', df_group,
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
    // Measured errors with a margin.  In the far groups the prefactor is an
    // exponential of an argument of up to about 2000, rounded to about 0.5 ULP
    // per unit of it.  Elsewhere the error is that of the series or fraction (a
    // rounding per term) and of 1 - P or 1 - Q where that tail is the larger one.
    check_accuracy("g01ecf.txt", 'C', df_group,
                   {{"L df<=10", 12.0},
                    {"L df<=2000", 75.0},
                    {"L df<=2000 far", 1050.0},
                    {"L df>2000", 110.0},
                    {"L df>2000 far", 1050.0},
                    {"U df<=10", 25.0},
                    {"U df<=2000", 140.0},
                    {"U df<=2000 far", 1050.0},
                    {"U df>2000", 180.0},
                    {"U df>2000 far", 1050.0}});
}

// Values at the limits, closed forms and published percentage points.
TEST(DistributionEdges, KnownValues)
{
    const double inf = std::numeric_limits<double>::infinity(), pi = M_PI;
    struct Case {
        char routine, tail;
        double x, df, want, tol;  // tol: relative; 0 asks for the exact value
    } cases[] = {
        {'E', 'L', 0, 0, 0.5, 0},
        {'E', 'U', 0, 0, 0.5, 0},
        {'E', 'S', 0, 0, 1, 0},
        {'E', 'C', 0, 0, 0, 0},
        {'E', 'l', 0, 0, 0.5, 0},
        {'E', 'u', 0, 0, 0.5, 0},
        {'E', 's', 0, 0, 1, 0},
        {'E', 'c', 0, 0, 0, 0},
        {'E', 'U', 40, 0, 0, 0},
        {'E', 'L', -40, 0, 0, 0},
        {'E', 'L', 40, 0, 1, 0},
        {'E', 'U', -40, 0, 1, 0},
        {'E', 'S', 40, 0, 0, 0},
        {'E', 'C', -40, 0, 1, 0},
        {'E', 'S', 1e300, 0, 0, 0},
        {'E', 'C', 1e300, 0, 1, 0},
        {'F', 'L', 0.5, 0, 0, 0},
        {'F', 'C', 0.95, 0, 1.959963984540054, 4e-16},
        {'F', 'L', 5e-324, 0, -38.467405617144344, 3e-15},
        {'F', 'L', 1 - 0x1p-53, 0, 8.2095361516013844, 2e-15},
        // Central deviates whose 0.5 + P/2 would round (mpmath, 40 digits).
        {'F', 'C', 1 - 0x1p-53, 0, 8.2923610758135955, 2e-15},
        {'F', 'C', 1e-20, 0, 1.2533141373155003e-20, 2e-15},
        // t with one degree of freedom is Cauchy: P(T >= t) = 1/2 - atan(t)/pi.
        {'B', 'U', -50, 1, 0.5 + std::atan(50.0) / pi, 1e-15},
        {'B', 'U', 0.5, 1, 0.5 - std::atan(0.5) / pi, 3e-15},
        {'B', 'U', 3, 1, 0.5 - std::atan(3.0) / pi, 1e-14},
        {'B', 'U', 1e6, 1, 0.5 - std::atan(1e6) / pi, 1e-9},
        {'B', 'S', 0, 7, 1, 0},
        {'B', 'S', 3.78e-74, 81, 1, 0},  // 1 - 1.5e-73: no probability above 1
        {'B', 'C', 0, 7, 0, 0},
        {'B', 'U', 0, 7, 0.5, 0},
        {'B', 'U', inf, 5, 0, 0},
        {'B', 'L', -inf, 5, 0, 0},
        {'B', 'C', inf, 5, 1, 0},
        // Beyond 1e20 degrees of freedom the normal distribution.
        {'B', 'U', 1, 1e30, 0.15865525393145705, 1e-15},
        {'B', 'S', 1e200, 1e250, 0, 0},
        // Chi-squared with 2 degrees of freedom: P(X2 >= x) = exp(-x/2).
        {'C', 'U', 1e-10, 2, std::exp(-0.5e-10), 1e-14},
        {'C', 'U', 3, 2, std::exp(-1.5), 1e-14},
        {'C', 'U', 700, 2, std::exp(-350.0), 1e-14},
        {'C', 'U', 1400, 2, std::exp(-700.0), 1e-14},
        {'C', 'L', 0, 3, 0, 0},
        {'C', 'U', 0, 3, 1, 0},
        {'C', 'U', inf, 5, 0, 0},
        {'C', 'L', inf, 5, 1, 0},
        {'C', 'U', 1e300, 3e10, 0, 0},
        {'C', 'L', 1e300, 3e10, 1, 0},
    };
    for (const Case& c : cases)
        EXPECT_NEAR(g01(c.routine, c.tail, c.x, c.df), c.want, c.tol * std::fabs(c.want))
            << c.routine << c.tail << " " << c.x << " " << c.df;
    for (double x : {-3.0, -0.3, 0.7, 2.5}) {
        EXPECT_EQ(g01('E', 'S', x), g01('E', 'S', -x));
        EXPECT_NEAR(g01('E', 'L', x) + g01('E', 'U', x), 1.0, 2.3e-16);
        EXPECT_NEAR(g01('E', 'S', x) + g01('E', 'C', x), 1.0, 2.3e-16);
    }
    // 'U' and 'S' deviates are the lower deviate at 1 - P and P/2 ('C' is in the
    // table: 0.5 + P/2 would round).
    for (double p : {1e-200, 1e-10, 0.01, 0.3, 0.7, 0.99}) {
        EXPECT_EQ(g01('F', 'U', p), -g01('F', 'L', p)) << p;
        EXPECT_EQ(g01('F', 's', p), -g01('F', 'L', p / 2)) << p;
    }
    // Huge and tiny statistics and degrees of freedom: probabilities, never NaN.
    for (double df : {1e-300, 1e-10, 1.0, 1e5, 1e19, 1e25, 1e300}) {
        for (double x : {-1e300, -1e20, -3.0, 1e-300, 1e-10, 2.0, 1e8, 1e155, 1e300}) {
            for (char tail : {'L', 'U', 'S', 'C'}) {
                const double pt = df >= 1 ? g01('B', tail, x, df) : 0.5;
                const double pc =
                    x > 0 && df < 1e9 && tail != 'S' && tail != 'C' ? g01('C', tail, x, df) : 0.5;
                EXPECT_TRUE(pt >= 0 && pt <= 1 && pc >= 0 && pc <= 1) << tail << x << " " << df;
            }
        }
    }
}

// A traced call; a failure returns 0 (NO_CONVERGENCE an approximation).
template <class F>
lbx::test::Raised stat(F f)
{
    double r = -1;
    const lbx::test::Raised raised = lbx::test::traced([&](char* e, int* i) { r = f(e, i); });
    if (raised.ifail != 0 && raised.code != lbx::stats::G01ECF_msg::NO_CONVERGENCE.code) {
        EXPECT_EQ(r, 0.0);
    }
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

}  // namespace
