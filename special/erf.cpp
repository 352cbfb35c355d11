// Error function and complementary error function (S15AEF, S15ADF).
//
// W. J. Cody's rational Chebyshev approximations (Math. Comp. 23 (1969)
// 631-637, and the CALERF routine of his special-function package), in three
// intervals of a = |x|: a <= 0.46875, 0.46875 < a <= 4 and a > 4.  The factor
// exp(-a^2) is formed as exp(-y^2) exp(-(a - y)(a + y)) with y = trunc(16a)/16,
// so that the large exponent is exact; exp(-y^2) is read from a table of its
// correctly rounded values (y = k/16, k < 426).
#include "special/erf.hpp"

#include <cmath>

#include "frame/math_constants.hpp"
#include "frame/polynomial.hpp"
#include "gen/special.hpp"
#include "special/erf_exp_table.hpp"

namespace lbx::special {
namespace {

// Cody, erf on |x| <= 0.46875: x P(x^2)/Q(x^2), P degree 4, Q degree 4 monic.
// Coefficients of the published set, constant term first.
constexpr double kErfP[5] = {3.20937758913846947e03, 3.77485237685302021e02, 1.13864154151050156e02,
                             3.16112374387056560e00, 1.85777706184603153e-1};
constexpr double kErfQ[5] = {2.84423683343917062e03, 1.28261652607737228e03, 2.44024637934444173e02,
                             2.36012909523441209e01, 1.0};

// Cody, exp(x^2) erfc(x) on 0.46875 < x <= 4: degree 8 over degree 8 (monic),
// constant term first.
constexpr double kErfcC[9] = {
    1.23033935479799725e03, 2.05107837782607147e03, 1.71204761263407058e03,
    8.81952221241769090e02, 2.98635138197400131e02, 6.61191906371416295e01,
    8.88314979438837594e00, 5.64188496988670089e-1, 2.15311535474403846e-8};
constexpr double kErfcD[9] = {
    1.23033935480374942e03, 3.43936767414372164e03, 4.36261909014324716e03,
    3.29079923573345963e03, 1.62138957456669019e03, 5.37181101862009858e02,
    1.17693950891312499e02, 1.57449261107098347e01, 1.0};

// Cody, x exp(x^2) erfc(x) on x > 4: 1/sqrt(pi) - z P(z)/Q(z), z = 1/x^2,
// degree 5 over degree 5 (monic), constant term first.
constexpr double kErfcP[6] = {6.58749161529837803e-4, 1.60837851487422766e-2,
                              1.25781726111229246e-1, 3.60344899949804439e-1,
                              3.05326634961232344e-1, 1.63153871373020978e-2};
constexpr double kErfcQ[6] = {2.33520497626869185e-3, 6.05183413124413191e-2,
                              5.27905102951428412e-1, 1.87295284992346047e00,
                              2.56852019228982242e00, 1.0};

// x P(x^2)/Q(x^2) for |x| <= 0.46875.
inline double erf_small(double x)
{
    const double z = x * x;
    return x * polynomial(kErfP, z) / polynomial(kErfQ, z);
}

// erfc(a) for a > 0.46875 (a below the underflow limit 26.6).
inline double erfc_positive(double a)
{
    double r;
    if (a <= 4.0) {
        r = rational(kErfcC, kErfcD, a);
    } else {
        const double inv_a = 1.0 / a;  // one division for both 1/a^2 and the final /a
        const double z = inv_a * inv_a;
        r = (lbx::math::inv_sqrt_pi - z * polynomial(kErfcP, z) / polynomial(kErfcQ, z)) * inv_a;
    }
    // exp(-y^2) for y = k/16 comes from the correctly rounded table.
    const int k = static_cast<int>(a * 16.0);
    const double y = k * 0.0625;
    const double del = (a - y) * (a + y);
    return kExpMinusSquare16[k] * std::exp(-del) * r;
}

}  // namespace

double erfc_kernel(double x)
{
    if (x >= 26.6)
        return 0.0;
    if (x <= -6.5)
        return 2.0;
    const double a = std::fabs(x);
    if (a <= 0.46875)
        return 1.0 - erf_small(x);
    if (!(a == a))
        return x;
    const double e = erfc_positive(a);
    return x < 0.0 ? 2.0 - e : e;
}

double erf_kernel(double x)
{
    const double a = std::fabs(x);
    if (a <= 0.46875)
        return erf_small(x);
    if (a > 10.0)
        return x < 0.0 ? -1.0 : 1.0;
    if (!(a == a))
        return x;
    // One rounding: 1 - E is never worse than (0.5 - E) + 0.5, which rounds
    // twice for E < 0.25.
    const double r = 1.0 - erfc_positive(a);
    return x < 0.0 ? -r : r;
}

double S15ADFN(double x, lbx::Fail& /*fail*/)
{
    return erfc_kernel(x);
}

double S15AEFN(double x, lbx::Fail& /*fail*/)
{
    return erf_kernel(x);
}

}  // namespace lbx::special
