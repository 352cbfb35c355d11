// Gamma function (S14AAF).
//
// Reduction to Gamma(1 + f), 0 <= f < 1, by the recurrence, then a
// polynomial of degree 23 in t = 2f - 1 (the set for 16 decimal digits).
#include <cmath>

#include "frame/polynomial.hpp"
#include "gen/special.hpp"

namespace lbx::special {
namespace {

// Gamma(1 + f) = p(2f - 1) on 0 <= f < 1, degree 23, constant term first
// (the 16-digit set of this library).
constexpr double kGammaP[24] = {
    0.886226925452758,      0.01616919872444251,   0.10370336342207545,   -0.013411850570596776,
    0.00904033494028102,    -0.002422595384362682, 0.0009157859972889331, -0.0002968901216332,
    0.00010092814882336512, -3.363758332402688e-5, 1.125246429755904e-5,  -3.75499034136576e-6,
    1.25281466396672e-6,    -4.1780877635584e-7,   1.3938352259072e-7,    -4.647749271552e-8,
    1.538352152576e-8,      -5.1196133376e-9,      1.8224316416e-9,       -6.1351395328e-10,
    1.2767985664e-10,       -4.014997504e-11,      4.265607168e-11,       -1.463812096e-11};

constexpr double kLargeResult = 4.3e304;                // returned at poles and x > 170
constexpr double kTinyResult = 4.4843049327354256e307;  // 1/2.23e-308

inline double gamma_one_plus(double f)
{
    return polynomial(kGammaP, 2.0 * f - 1.0);
}

// The factors x - k are exact in double; their products are accumulated in
// extended precision (64-bit significand on x86-64) in four interleaved
// chains, so that up to 169 multiplications cost less than an ULP of the
// result and overlap in the pipeline.
using Wide = long double;

// The product of the m factors x + s, x + s + step, x + s + 2 step, ...;
// the factors are formed in extended precision too (exactly).
inline Wide product(double x, Wide s, Wide step, int m)
{
    Wide p0 = 1, p1 = 1, p2 = 1, p3 = 1;
    Wide f0 = x + s;
    Wide f1 = f0 + step;
    Wide f2 = f1 + step;
    Wide f3 = f2 + step;
    const Wide step4 = 4 * step;
    int k = 0;
    for (; k + 4 <= m; k += 4) {
        p0 *= f0;
        p1 *= f1;
        p2 *= f2;
        p3 *= f3;
        f0 += step4;
        f1 += step4;
        f2 += step4;
        f3 += step4;
    }
    for (; k < m; ++k) {
        p0 *= f0;
        f0 += step;
    }
    return (p0 * p1) * (p2 * p3);
}

// (x - 1)(x - 2)...(x - m), m >= 0.
inline Wide falling_product(double x, int m)
{
    return product(x, -1, -1, m);
}

// x (x + 1)...(x + m - 1), m >= 1 factors.
inline Wide rising_product(double x, int m)
{
    return product(x, 0, 1, m);
}

}  // namespace

double S14AAFN(double x, lbx::Fail& fail)
{
    if (std::isnan(x))
        return x;
    const double a = std::fabs(x);
    if (a > 170.0) {
        if (x > 0.0) {
            fail(S14AAF_msg::X_TOO_LARGE, x, 170.0);
            return kLargeResult;
        }
        fail(S14AAF_msg::X_TOO_NEGATIVE, x, -170.0);
        return 0.0;
    }
    if (a <= 1e-17) {
        if (a < 2.23e-308) {
            fail(S14AAF_msg::X_TOO_SMALL, x, 2.23e-308);
            return x < 0.0 ? -kTinyResult : kTinyResult;
        }
        return 1.0 / x;
    }
    const int n = static_cast<int>(x);  // truncates toward zero
    if (x < 0.0 && x - (n - 1) == 1.0) {
        fail(S14AAF_msg::X_NEGATIVE_INTEGER, x);
        return kLargeResult;
    }
    if (x < 0.0) {
        const double f = x - (n - 1);
        return static_cast<double>(gamma_one_plus(f) / rising_product(x, 2 - n));
    }
    if (x < 1.0)
        return gamma_one_plus(x) / x;
    return static_cast<double>(gamma_one_plus(x - n) * falling_product(x, n - 1));
}

}  // namespace lbx::special
