// Accuracy of the gamma, log gamma, error and Dawson functions against the
// committed 50-digit reference tables, per range, in ULPs.  Each bound is the
// error measured on these tables plus a small margin; the reason for its size
// is stated beside it.
#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <string>

#include "lbx3207qk.h"
#include "tests/support/reference_data.hpp"

namespace {

using Fn = double (*)(const double*, int*);

void check_table(const char* file, Fn f, const std::map<std::string, double>& bounds)
{
    auto value = [&](const lbx::test::ReferenceCase& c) {
        int ifail = 1;
        const double r = f(&c.x, &ifail);
        EXPECT_EQ(ifail, 0) << file << " x=" << c.x;
        return r;
    };
    lbx::test::check_accuracy(
        file, false, value, [](const auto& c) { return c.label; }, bounds);
}

TEST(SpecialAccuracy, GammaS14AAF)
{
    check_table("s14aaf.txt", s14aaf_,
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
    check_table("s14abf.txt", s14abf_,
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
    check_table("s15adf.txt", s15adf_,
                {
                    // 1 - x P/Q: one subtraction after a 2-ULP rational.
                    {"small", 2.5},
                    // The rational, exp(-x^2) to 0.51 ULP and their product.
                    {"middle", 4.0},
                    {"tail", 3.0},
                });
}

TEST(SpecialAccuracy, ErfS15AEF)
{
    check_table("s15aef.txt", s15aef_,
                {
                    {"small", 3.5},
                    // 1 - E with E the erfc of the middle range.
                    {"middle", 3.0},
                    // 1 - E rounded once; E < 1.6e-8 brings its error down by
                    // 2^-26, so only the final rounding is left.
                    {"tail", 0.51},
                });
}

TEST(SpecialAccuracy, DawsonS15AFF)
{
    check_table("s15aff.txt", s15aff_,
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
