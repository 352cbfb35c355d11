// Regularised incomplete gamma functions.
//
// P(a, x) by its power series when x < a + 1 (and x < 0.5 for a < 1),
// Q(a, x) by its continued fraction (modified Lentz) otherwise; the other one
// by complement.  The common factor x^a e^-x / Gamma(a + 1) is formed without
// large cancelling logarithms: directly for a < 10, and for a >= 10 as
// exp(-a (u - ln(1 + u))) / (sqrt(2 pi a) exp(stirling_remainder(a))) with
// u = (x - a)/a.  For a > 1e10 the iteration limit would be reached near the
// mean; there the Wilson-Hilferty cube-root normal approximation is returned
// with converged = false (true more than 40 standard deviations out, where
// the probabilities are 0 and 1 exactly).
#include "stats/incomplete_gamma.hpp"

#include <algorithm>
#include <cmath>

#include "frame/math_constants.hpp"
#include "special/erf.hpp"
#include "special/gamma.hpp"
#include "special/log1pmx.hpp"

namespace lbx::stats {
namespace {

// ln(1 + d): two terms of the series for the tiny factors of a converging
// fraction, the library logarithm otherwise.
inline double log1p_small(double d)
{
    return std::fabs(d) < 1e-6 ? d - 0.5 * d * d : std::log1p(d);
}

constexpr int kMaxIterations = 1000000;
constexpr double kTolerance = 1e-17;

// x^a e^-x / Gamma(a + 1).
double gamma_prefactor(double a, double x)
{
    if (a >= 10.0) {
        // phi = u - ln(1 + u), u = (x - a)/a; far from the mean ln(x/a) is
        // taken directly, since 1 + u would lose the digits of a small x/a.
        const double u = (x - a) / a;
        const double phi = std::fabs(u) < 0.5 ? lbx::special::log1pmx_neg(u) : u - std::log(x / a);
        return std::exp(-a * phi - lbx::special::stirling_remainder(a)) /
               (lbx::math::sqrt_two_pi_low * std::sqrt(a));
    }
    const double lg =
        a < 1.0 ? lbx::special::log_gamma_1p_kernel(a) : lbx::special::log_gamma_kernel(a + 1.0);
    if (x < 1400.0) {
        // x^a e^-x with each factor correctly rounded; e^-x in two halves so
        // that it stays normal up to x = 1400.
        const double px = std::pow(x, a);
        if (px > 1e-290 && px < 1e290) {
            const double h = std::exp(-0.5 * x);
            return px * h * h * std::exp(-lg);
        }
    }
    return std::exp(a * std::log(x) - x - lg);
}

// A probability rounded a little beyond [0, 1] is put back at the bound.
inline double clamp01(double v)
{
    return v < 0.0 ? 0.0 : (v > 1.0 ? 1.0 : v);
}

// sum_{n>=0} x^n / ((a+1)...(a+n)); P = prefactor * sum.
double series_sum(double a, double x, bool& ok)
{
    double sum = 1.0;
    double term = 1.0;
    ok = false;
    for (int n = 1; n <= kMaxIterations; ++n) {
        term *= x / (a + n);
        sum += term;
        if (term <= kTolerance * sum) {
            ok = true;
            break;
        }
    }
    return sum;
}

// Continued fraction 1/(x+1-a- 1(1-a)/(x+3-a- 2(2-a)/(x+5-a- ...))), so that
// Q = prefactor * a * fraction.  Modified Lentz; the product of the factors
// is kept as the sum of their logarithms, each formed from its exact
// difference from 1, so that a slowly converging fraction (x near a large a)
// does not stop while its factors still add up.
double upper_fraction(double a, double x, bool& ok)
{
    constexpr double tiny = 1e-300;
    double b = (x - a) + 1.0;
    double c = 1.0 / tiny;
    double d = 1.0 / b;
    const double log_start = -std::log(b);
    double log_sum = 0.0;
    ok = false;
    for (int i = 1; i <= kMaxIterations; ++i) {
        const double an = -i * (i - a);
        b += 2.0;
        const double d_old = d;
        const double inv_c = 1.0 / c;
        double den = an * d_old + b;
        if (std::fabs(den) < tiny)
            den = tiny;
        c = b + an * inv_c;
        if (std::fabs(c) < tiny)
            c = tiny;
        d = 1.0 / den;
        const double delm1 = an * (inv_c - d_old) * d;
        log_sum += log1p_small(delm1);
        if (std::fabs(delm1) <= kTolerance) {
            ok = true;
            break;
        }
    }
    return std::exp(log_start + log_sum);
}

}  // namespace

GammaProbabilities incomplete_gamma(double a, double x)
{
    if (x <= 0.0)
        return {0.0, 1.0, true};
    if (x == INFINITY)
        return {1.0, 0.0, true};
    if (a > 1e10) {
        // Wilson-Hilferty: (x/a)^(1/3) is nearly normal with mean 1 - 1/(9a),
        // variance 1/(9a).
        const double z = (std::cbrt(x / a) - (1.0 - 1.0 / (9.0 * a))) * std::sqrt(9.0 * a);
        // More than 40 standard deviations out both tails are 0 and 1 exactly.
        return {0.5 * lbx::special::erfc_kernel(-z * lbx::math::inv_sqrt2_low),
                0.5 * lbx::special::erfc_kernel(z * lbx::math::inv_sqrt2_low), std::fabs(z) > 40.0};
    }
    const double d = gamma_prefactor(a, x);
    if (a < 1.0 && x < 1.5) {
        // P by its series; Q = 1 - x^a/Gamma(a + 1) (1 + T) with
        // T = a sum_{n>=1} (-x)^n / (n! (a + n)), written as -(E + T + E T),
        // E = expm1(a ln x - ln Gamma(1 + a)), so that a small Q keeps its digits.
        bool ok = false;
        const double p = d * series_sum(a, x, ok);
        double t = 0.0;
        double term = 1.0;
        for (int n = 1; n < 200; ++n) {
            term *= -x / n;
            const double add = term / (a + n);
            t += add;
            if (std::fabs(add) <= 1e-17 * std::fabs(t))
                break;
        }
        t *= a;
        const double e = std::expm1(a * std::log(x) - lbx::special::log_gamma_1p_kernel(a));
        return {clamp01(p), clamp01(-(e + t + e * t)), ok};
    }
    if (x < a + std::max(1.0, std::sqrt(a))) {
        // The series has positive terms and stays accurate up to a standard
        // deviation above the mean, where Q >= 0.15 still follows from 1 - P.
        bool ok = false;
        const double p = clamp01(d * series_sum(a, x, ok));
        return {p, 1.0 - p, ok};
    }
    bool ok = false;
    const double q = clamp01(d * a * upper_fraction(a, x, ok));
    return {1.0 - q, q, ok};
}

}  // namespace lbx::stats
