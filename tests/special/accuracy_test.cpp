// Accuracy of the gamma, log gamma, error and Dawson functions against the
// committed 50-digit reference tables, per range, in ULPs.  Each bound is the
// error measured on these tables plus a small margin; the reason for its size
// is stated beside it.  glibc's error on the same points is printed for
// comparison (not asserted).
#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <string>

#include "lbx3207qk.h"
#include "tests/support/reference_data.hpp"

namespace {

using lbx::test::ErrorStat;
using lbx::test::load_reference;
using lbx::test::record;
using lbx::test::ulp_error;

struct Bound {
    const char* range;
    double max_ulp;
};

using Fn = double (*)(const double*, int*);

void check_table(const char* file, Fn ours, double (*peer)(double),
                 std::initializer_list<Bound> bounds)
{
    const auto cases = load_reference(file, false);
    ASSERT_GT(cases.size(), 1000u) << file;
    std::map<std::string, ErrorStat> here, libm;
    for (const auto& c : cases) {
        int ifail = 1;
        const double got = ours(&c.x, &ifail);
        EXPECT_EQ(ifail, 0) << file << " x=" << c.x;
        record(here, c.label, ulp_error(got, c.ref), c);
        if (peer)
            record(libm, c.label, ulp_error(peer(c.x), c.ref), c);
    }
    lbx::test::print_stats(file, here, libm);
    EXPECT_EQ(here.size(), bounds.size()) << file << ": a range without a bound";
    for (const Bound& b : bounds) {
        const auto it = here.find(b.range);
        ASSERT_NE(it, here.end()) << file << " " << b.range;
        EXPECT_LE(it->second.max_ulp, b.max_ulp)
            << file << " " << b.range << " worst x=" << it->second.worst_x;
    }
}

TEST(SpecialAccuracy, GammaS14AAF)
{
    check_table("s14aaf.txt", s14aaf_, [](double x) { return std::tgamma(x); },
                {
                    // 1/x is one correctly rounded division.
                    {"tiny", 1.0},
                    // The degree-23 polynomial alone: about 1 ULP.
                    {"unit", 2.0},
                    // The recurrence's product is exact to 2^-64 per factor
                    // (extended precision): the polynomial's ULP, the product's
                    // fraction of one and the final rounding.
                    {"moderate", 1.7},
                    {"large", 1.8},
                    {"negative", 1.8},
                });
}

TEST(SpecialAccuracy, LogGammaS14ABF)
{
    check_table("s14abf.txt", s14abf_, [](double x) { return std::lgamma(x); },
                {
                    // -ln x, one correctly rounded logarithm.
                    {"tiny", 1.0},
                    // The published rationals are good to a few ULPs near 0.7 and 1.
                    {"below1.5", 4.5},
                    {"to4", 3.0},
                    {"to12", 4.0},
                    // ln x (x - 1/2) - x: a logarithm and two roundings.
                    {"asymptotic", 2.0},
                });
}

TEST(SpecialAccuracy, ErfcS15ADF)
{
    check_table("s15adf.txt", s15adf_, [](double x) { return std::erfc(x); },
                {
                    // 1 - x P/Q: one subtraction after a 2-ULP rational.
                    {"small", 2.5},
                    // Two exponentials and the rational.
                    {"middle", 5.5},
                    {"tail", 5.5},
                });
}

TEST(SpecialAccuracy, ErfS15AEF)
{
    check_table("s15aef.txt", s15aef_, [](double x) { return std::erf(x); },
                {
                    {"small", 3.5},
                    // 1 - E with E the erfc of the middle range.
                    {"middle", 3.5},
                    // 1 - E rounded once; E < 1.6e-8 brings its error down by
                    // 2^-26, so only the final rounding is left.
                    {"tail", 0.51},
                });
}

TEST(SpecialAccuracy, DawsonS15AFF)
{
    check_table("s15aff.txt", s15aff_, nullptr,
                {
                    {"tiny", 0.5},
                    // The fitted polynomial p carries 2 ULPs of coefficient rounding.
                    {"inner", 5.0},
                    {"outer", 2.5},
                    // 0.5/x, one division.
                    {"asymptotic", 0.6},
                });
}

}  // namespace
