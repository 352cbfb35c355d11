// Error function and complementary error function (S15AEF, S15ADF).
//
// W. J. Cody's rational Chebyshev approximations (Math. Comp. 23 (1969)
// 631-637, and the CALERF routine of his special-function package), in three
// intervals of a = |x|: a <= 0.46875, 0.46875 < a <= 4 and a > 4.  The factor
// exp(-a^2) of the outer intervals is the exponential of the exact square a^2
// (as an unevaluated sum of two doubles), computed here by a table-driven
// method instead of the system's exp: it is then straight-line code that the
// compiler schedules beside the rational, and it is correctly rounded but for
// 0.01 ULP, where the split exp(-y^2) exp(-(a - y)(a + y)) cost three roundings.
#include "special/erf.hpp"

#include <bit>
#include <cmath>
#include <cstdint>

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

// exp(-a^2) for 0 <= a < 26.6 (so that the result is a normal number), by
// Tang's table-driven method (ACM TOMS 15 (1989) 144-157) on the exact square:
// a^2 = s + e exactly (Dekker's product, a split into two 26-bit halves), then
//   -s - e = (128 m + j) ln2/128 + r,  |r| <= ln2/256 (about),
//   exp(-a^2) = 2^m (T_hi + (T_lo + T_hi expm1(r))),  T_hi + T_lo = 2^(j/128),
// with expm1(r) by its Taylor series to r^5 (the next term is below 2^-60).
// The reduction is exact up to the rounding of r itself (ln2/128 is split so
// that k ln2_hi is exact for |k| < 2^17, and -s - k ln2_hi cancels exactly),
// so the last addition is the only rounding that matters: the error is below
// 0.51 ULP.
inline double exp_minus_square(double a)
{
    constexpr double split = 0x1p27 + 1.0;
    const double c = split * a;
    const double ah = c - (c - a);
    const double al = a - ah;
    const double s = a * a;
    const double e = ((ah * ah - s) + 2.0 * ah * al) + al * al;

    constexpr double shift = 0x1.8p52;                    // adding it rounds to an integer
    constexpr double inv_ln2_128 = 0x1.71547652b82fep7;   // 128/ln2
    constexpr double ln2_128_hi = 0x1.62e42fefa0000p-8;   // 36 bits of ln2/128
    constexpr double ln2_128_lo = 0x1.cf79abc9e3b3ap-47;  // the rest
    const double kd = -s * inv_ln2_128 + shift;
    const auto k = static_cast<std::int64_t>(std::bit_cast<std::uint64_t>(kd) -
                                             std::bit_cast<std::uint64_t>(shift));
    const double kf = kd - shift;
    const double r = ((-s - kf * ln2_128_hi) - kf * ln2_128_lo) - e;
    const double p = r + (r * r) * (0.5 + r * (1.0 / 6.0 + r * (1.0 / 24.0 + r * (1.0 / 120.0))));
    const double* t = kExp2Over128[k & 127];
    const double v = t[0] + (t[1] + t[0] * p);
    // 2^m through the exponent field: v is in [1, 2) and m = floor(k/128) in
    // [-1021, 0], so the result is normal.
    return std::bit_cast<double>(std::bit_cast<std::uint64_t>(v) +
                                 (static_cast<std::uint64_t>(k >> 7) << 52));
}

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
        // Each polynomial as two halves joined by a^4 (see polynomial_halves).
        r = polynomial_halves<4>(kErfcC, a) / polynomial_halves<4>(kErfcD, a);
    } else {
        const double inv_a = 1.0 / a;  // one division for both 1/a^2 and the final /a
        const double z = inv_a * inv_a;
        r = (lbx::math::inv_sqrt_pi - z * polynomial(kErfcP, z) / polynomial(kErfcQ, z)) * inv_a;
    }
    return exp_minus_square(a) * r;
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
    return std::copysign(1.0 - erfc_positive(a), x);
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
