// The incomplete beta function next to the mean of large, equal parameters:
// the continued fraction runs for hundreds of steps there, and its
// convergents' numerators and denominators leave [2^-300, 2^300] and are
// rescaled several times.  The references come from
// tools/beta_long_fraction_reference.py (mpmath quadrature, 40 digits).
#include <gtest/gtest.h>

#include <cmath>

#include "stats/incomplete_beta.hpp"

namespace {

struct LongFractionCase {
    double a;  // = b
    double x;  // 1/2 - 2^-13; y = 1 - x is exact
    long double p;
    long double q;
};

constexpr LongFractionCase kLongFractions[] = {
    {20000.0, 0.4998779296875, 0.4805282555085084483950865L, 0.5194717444914915516049135L},
    {100000.0, 0.4998779296875, 0.4565287226797435703707815L, 0.5434712773202564296292185L},
    {1000000.0, 0.4998779296875, 0.3649468472635143789914393L, 0.6350531527364856210085607L},
};

TEST(IncompleteBeta, LongFractionsNextToTheMean)
{
    for (const auto& c : kLongFractions) {
        const auto r = lbx::stats::incomplete_beta(c.a, c.a, c.x, 1.0 - c.x);
        EXPECT_TRUE(r.converged) << c.a;
        // The factor x^a y^a / (a B(a, a)) is the exponential of a sum of terms
        // of size 1.4 a that cancel; their rounding, not the fraction, sets the
        // error (measured 1.0e-15 a to 1.4e-15 a relative, the same as with a
        // modified-Lentz fraction), so the bound grows with a.  A wrong rescaling
        // would be off by a power of two or more.
        const long double tol = 2e-15L * c.a;
        EXPECT_LE(std::fabs((r.p - c.p) / c.p), tol) << "a=" << c.a << " p=" << r.p;
        EXPECT_LE(std::fabs((r.q - c.q) / c.q), tol) << "a=" << c.a << " q=" << r.q;
    }
}

}  // namespace
