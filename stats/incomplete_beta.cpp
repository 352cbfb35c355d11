// Regularised incomplete beta function.
//
// The continued fraction of I_x(a, b) (forward recurrences), used for the
// argument below the mean, x < (a + 1)/(a + b + 2), and through
// I_x(a, b) = 1 - I_y(b, a) otherwise.  The factor x^a y^b / (a B(a, b)) is
// formed on the logarithmic scale; for a or b >= 10 the gamma ratios go
// through Stirling's remainder so that no large logarithms cancel.
#include "stats/incomplete_beta.hpp"

#include <algorithm>
#include <cmath>

#include "frame/math_constants.hpp"
#include "special/gamma.hpp"

namespace lbx::stats {
namespace {

constexpr int kMaxIterations = 1000000;

// a ln x + b ln y + ln Gamma(a + b) - ln Gamma(a) - ln Gamma(b), the
// logarithm of x^a y^b / B(a, b); lx and ly are ln x and ln y.
double log_beta_factor(double a, double b, double x, double y, double lx, double ly)
{
    const double big = std::max(a, b);
    const double s = std::min(a, b);
    if (big < 10.0) {
        using lbx::special::log_gamma_kernel;
        return a * lx + b * ly +
               (log_gamma_kernel(a + b) - log_gamma_kernel(a) - log_gamma_kernel(b));
    }
    // ln Gamma(s + B) - ln Gamma(B) by Stirling's form: with
    // ln Gamma(z) = (z - 1/2) ln z - z + ln sqrt(2 pi) + r(z),
    // the difference is s ln(s + B) - s + (B - 1/2) ln(1 + s/B) + r(s + B) - r(B).
    // The term s ln(s + B) joins s ln v (v the variable paired with s) as
    // s ln(v (s + B)), so that two large logarithms do not cancel.
    const double sum = s + big;
    const bool a_small = a <= b;
    const double v = a_small ? x : y;
    const double lv = a_small ? lx : ly;
    const double other = a_small ? b * ly : a * lx;
    const double joined = v <= 0.5 ? std::log(v * sum) : lv + std::log(sum);
    using lbx::special::stirling_remainder;
    double r = s * joined - s + (big - 0.5) * std::log1p(s / big) + stirling_remainder(sum) -
               stirling_remainder(big);
    if (s >= 10.0) {
        // ln Gamma(s) by the same form.
        r -= (s - 0.5) * std::log(s) - s + lbx::math::ln_sqrt_two_pi + stirling_remainder(s);
    } else {
        r -= lbx::special::log_gamma_kernel(s);
    }
    return other + r;
}

// Continued fraction for I_x(a, b) / (x^a y^b / (a B(a, b))),
//   K = 1/(1 + e/(1 + d_1/(1 + d_2/(1 + ...)))),  e = -(a + b) x/(a + 1),
// by the forward recurrences of its convergents K_n = A_n/B_n
// (A_n = A_(n-1) + d A_(n-2), likewise B_n), so that no division sits on the
// loop's dependency chain.  The relative change of the convergent,
// |W_n|/|A_n B_(n-1)| with W_n = A_n B_(n-1) - A_(n-1) B_n = -d W_(n-1), is
// formed without cancellation and ends the loop below 1e-17 for both steps
// of a pass.  A, B and W are rescaled by powers of two (exactly) when the
// convergent's terms leave [2^-300, 2^300].
double beta_fraction(double a, double b, double x, double y, bool& ok)
{
    const double qab = a + b;
    const double qap = a + 1.0;
    const double qam = a - 1.0;
    // 1 - (a + b) x / (a + 1), through y when x is near 1.
    const double first = x > 0.5 ? (1.0 - b + qab * y) / qap : 1.0 - qab * x / qap;
    // A_1 = B_1 = 1, A_2 = 1, B_2 = 1 + e.
    double a_prev = 1.0;  // A_(n-1), B_(n-1)
    double b_prev = 1.0;
    double a_cur = 1.0;  // A_n, B_n
    double b_cur = first;
    double w = qab * x / qap;  // W_2 = -e
    ok = false;
    // One step with partial numerator d; true when the change is negligible.
    auto step = [&](double d) {
        const double a_next = a_cur + d * a_prev;
        const double b_next = b_cur + d * b_prev;
        w = -d * w;
        const bool small = std::fabs(w) <= 1e-17 * std::fabs(a_next * b_cur);
        a_prev = a_cur;
        b_prev = b_cur;
        a_cur = a_next;
        b_cur = b_next;
        return small;
    };
    for (int m = 1; m <= kMaxIterations; ++m) {
        const int m2 = 2 * m;
        const bool s1 = step(m * (b - m) * x / ((qam + m2) * (a + m2)));
        const bool s2 = step(-(a + m) * (qab + m) * x / ((a + m2) * (qap + m2)));
        if (s1 && s2) {
            ok = true;
            break;
        }
        const double big = std::max(std::fabs(a_cur), std::fabs(b_cur));
        if (big > 0x1p300 || big < 0x1p-300) {
            int e;
            std::frexp(big, &e);
            a_prev = std::ldexp(a_prev, -e);
            b_prev = std::ldexp(b_prev, -e);
            a_cur = std::ldexp(a_cur, -e);
            b_cur = std::ldexp(b_cur, -e);
            w = std::ldexp(w, -2 * e);
        }
    }
    return a_cur / b_cur;
}

}  // namespace

BetaProbabilities incomplete_beta(double a, double b, double x, double y)
{
    if (x <= 0.0)
        return {0.0, 1.0, true};
    if (y <= 0.0)
        return {1.0, 0.0, true};
    const bool direct = x < (a + 1.0) / (a + b + 2.0);
    // Work with the argument below the mean: (a, b, x) or (b, a, y).
    const double aa = direct ? a : b;
    const double bb = direct ? b : a;
    const double xx = direct ? x : y;
    const double yy = direct ? y : x;
    // Logarithms of x and y without forming 1 - y or 1 - x again.
    const double lx = xx > 0.5 ? std::log1p(-yy) : std::log(xx);
    const double ly = yy > 0.5 ? std::log1p(-xx) : std::log(yy);
    const double lead = std::exp(log_beta_factor(aa, bb, xx, yy, lx, ly)) / aa;
    bool ok = true;
    double part = lead * beta_fraction(aa, bb, xx, yy, ok);
    if (part > 1.0)
        part = 1.0;  // a probability rounded beyond its bound
    if (direct)
        return {part, 1.0 - part, ok};
    return {1.0 - part, part, ok};
}

}  // namespace lbx::stats
