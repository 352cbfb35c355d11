// Edge cases and failures of the gamma, error and Dawson functions: the value
// returned at each documented limit with the message raised there (values
// quoted, checked against the chapter's catalogue), through the traced entry
// and quietly through the plain entry.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "gen/special.hpp"
#include "lbx3207qk.h"
#include "tests/support/messages.hpp"

namespace {

using Traced = double (*)(const double*, char*, int*, size_t);
using Plain = double (*)(const double*, int*);

// f(x) through both entries: the exact result want and the same IFAIL.
lbx::test::Raised at(Traced traced, Plain plain, double x, double want)
{
    double got = 0;
    const lbx::test::Raised r =
        lbx::test::traced([&](char* e, int* i) { got = traced(&x, e, i, 200); });
    EXPECT_EQ(got, want) << "x = " << x;
    int ifail = 1;
    EXPECT_EQ(plain(&x, &ifail), want) << "x = " << x;
    EXPECT_EQ(ifail, r.ifail) << "x = " << x;
    return r;
}

lbx::test::Raised gamma(double x, double want)
{
    return at(s14aaft_, s14aaf_, x, want);
}
lbx::test::Raised log_gamma(double x, double want)
{
    return at(s14abft_, s14abf_, x, want);
}

constexpr double kHuge = std::numeric_limits<double>::max();
constexpr double kBig = 4.3e304, kTiny = 4.4843049327354256e307;

TEST(SpecialEdges, EveryMessageAndTheLimitsOfEachRange)
{
    using T = lbx::test::Trigger;
    lbx::test::check_catalogue(
        lbx::special::catalogue_messages,
        {
            T{"S14AAF",
              "X_TOO_LARGE",
              [] { return gamma(170.5, kBig); },
              {"1.705000000000000E+02", "1.700000000000000E+02"}},
            T{"S14AAF", "X_TOO_LARGE", [] { return gamma(std::nextafter(170.0, 200.0), kBig); }},
            T{"S14AAF",
              "X_TOO_NEGATIVE",
              [] { return gamma(-200.0, 0.0); },
              {"-2.000000000000000E+02", "-1.700000000000000E+02"}},
            T{"S14AAF", "X_TOO_NEGATIVE",
              [] { return gamma(std::nextafter(-170.0, -200.0), 0.0); }},
            T{"S14AAF",
              "X_TOO_SMALL",
              [] { return gamma(0.0, kTiny); },
              {"0.000000000000000E+00", "2.230000000000000-308"}},
            T{"S14AAF", "X_TOO_SMALL", [] { return gamma(-0.0, kTiny); }},
            T{"S14AAF", "X_TOO_SMALL", [] { return gamma(-1e-309, -kTiny); }},
            T{"S14AAF", "X_TOO_SMALL", [] { return gamma(2.2e-308, kTiny); }},
            T{"S14AAF",
              "X_NEGATIVE_INTEGER",
              [] { return gamma(-3.0, kBig); },
              {"-3.000000000000000E+00"}},
            T{"S14AAF", "X_NEGATIVE_INTEGER", [] { return gamma(-1.0, kBig); }},
            T{"S14AAF", "X_NEGATIVE_INTEGER", [] { return gamma(-170.0, kBig); }},
            // Gamma(x) = 1/x - 0.577... rounds to 1/x below 1e-17.
            T{"S14AAF", "", [] { return gamma(2.23e-308, 1.0 / 2.23e-308); }},
            T{"S14AAF", "", [] { return gamma(1e-17, 1e17); }},
            T{"S14AAF", "", [] { return gamma(-1e-17, -1e17); }},
            T{"S14ABF",
              "X_NOT_POSITIVE",
              [] { return log_gamma(-1.0, 0.0); },
              {"-1.000000000000000E+00"}},
            T{"S14ABF", "X_NOT_POSITIVE", [] { return log_gamma(0.0, kHuge); }},
            T{"S14ABF", "X_NOT_POSITIVE", [] { return log_gamma(-1e-300, 0.0); }},
            T{"S14ABF",
              "X_TOO_LARGE",
              [] { return log_gamma(3e305, kHuge); },
              {"3.000000000000000+305"}},
            T{"S14ABF", "X_TOO_LARGE", [] { return log_gamma(2.56e305, kHuge); }},
            T{"S14ABF", "", [] { return log_gamma(1.0, 0.0); }},
            T{"S14ABF", "", [] { return log_gamma(2.0, 0.0); }},
            // erfc and erf are 0, 2 and +-1 beyond the documented limits.
            T{"S15ADF", "", [] { return at(s15adft_, s15adf_, 26.6, 0.0); }},
            T{"S15ADF", "", [] { return at(s15adft_, s15adf_, 1e300, 0.0); }},
            T{"S15ADF", "", [] { return at(s15adft_, s15adf_, -6.5, 2.0); }},
            T{"S15ADF", "", [] { return at(s15adft_, s15adf_, 0.0, 1.0); }},
            T{"S15AEF", "", [] { return at(s15aeft_, s15aef_, 10.5, 1.0); }},
            T{"S15AEF", "", [] { return at(s15aeft_, s15aef_, -10.5, -1.0); }},
            T{"S15AEF", "", [] { return at(s15aeft_, s15aef_, 0.0, 0.0); }},
            // Dawson: x - 2x^3/3 rounds to x below 3.1e-9, 1/(2x) + 1/(4x^3) to 1/(2x)
            // from 3.2e8, and 0 from 2.24e307.
            T{"S15AFF", "", [] { return at(s15afft_, s15aff_, 0.0, 0.0); }},
            T{"S15AFF", "", [] { return at(s15afft_, s15aff_, -3.1e-9, -3.1e-9); }},
            T{"S15AFF", "", [] { return at(s15afft_, s15aff_, 3.2e8, 0.5 / 3.2e8); }},
            T{"S15AFF", "", [] { return at(s15afft_, s15aff_, -1e300, 0.5 / -1e300); }},
            T{"S15AFF", "", [] { return at(s15afft_, s15aff_, 2.24e307, 0.0); }},
            T{"S15AFF", "", [] { return at(s15afft_, s15aff_, -1.7e308, 0.0); }},
        });
}

TEST(SpecialEdges, GammaAtTheIntegersIsTheFactorial)
{
    double factorial = 1.0;  // (n - 1)!, exact up to 22!
    for (int n = 1; n <= 23; ++n) {
        const double x = n;
        int ifail = 1;
        EXPECT_NEAR(s14aaf_(&x, &ifail), factorial, 2.3e-16 * 4 * factorial) << n;
        factorial *= n;
    }
}

TEST(SpecialEdges, NaNPropagatesWithoutFailure)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (auto fn : {s14aaf_, s14abf_, s15adf_, s15aef_, s15aff_}) {
        int ifail = 1;
        EXPECT_TRUE(std::isnan(fn(&nan, &ifail)));
        EXPECT_EQ(ifail, 0);
    }
}

}  // namespace
