// Regularised incomplete beta function.
//
// The continued fraction of I_x(a, b) (modified Lentz), used for the
// argument below the mean, x < (a + 1)/(a + b + 2), and through
// I_x(a, b) = 1 - I_y(b, a) otherwise.  The factor x^a y^b / (a B(a, b)) is
// formed on the logarithmic scale; for a or b >= 10 the gamma ratios go
// through Stirling's remainder so that no large logarithms cancel.
#include "stats/incomplete_beta.hpp"

#include <algorithm>
#include <cmath>

#include "special/gamma.hpp"
#include "stats/incomplete_gamma.hpp"

namespace lbx::stats {
namespace {

// ln(1 + d): two terms of the series for the tiny factors of a converging
// fraction, the library logarithm otherwise.
inline double log1p_small(double d) {
  return std::fabs(d) < 1e-6 ? d - 0.5 * d * d : std::log1p(d);
}

constexpr int kMaxIterations = 1000000;

// a ln x + b ln y + ln Gamma(a + b) - ln Gamma(a) - ln Gamma(b), the
// logarithm of x^a y^b / B(a, b); lx and ly are ln x and ln y.
double log_beta_factor(double a, double b, double x, double y, double lx, double ly) {
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
  double r = s * joined - s + (big - 0.5) * std::log1p(s / big) +
             stirling_remainder(sum) - stirling_remainder(big);
  if (s >= 10.0) {
    // ln Gamma(s) by the same form.
    r -= (s - 0.5) * std::log(s) - s + 0.91893853320467274 + stirling_remainder(s);
  } else {
    r -= lbx::special::log_gamma_kernel(s);
  }
  return other + r;
}

// Continued fraction for I_x(a, b) / (x^a y^b / (a B(a, b))), modified
// Lentz.  As for the incomplete gamma function, the product of the factors
// is kept as the sum of their logarithms, each formed from its exact
// difference from 1.
double beta_fraction(double a, double b, double x, double y, bool& ok) {
  constexpr double tiny = 1e-300;
  const double qab = a + b;
  const double qap = a + 1.0;
  const double qam = a - 1.0;
  // 1 - (a + b) x / (a + 1), through y when x is near 1.
  double first = x > 0.5 ? (1.0 - b + qab * y) / qap : 1.0 - qab * x / qap;
  if (std::fabs(first) < tiny) first = tiny;
  double c = 1.0;
  double d = 1.0 / first;
  const double log_start = -std::log(std::fabs(first));
  double log_sum = 0.0;
  ok = false;
  auto step = [&](double aa) {
    const double d_old = d;
    const double inv_c = 1.0 / c;
    double den = 1.0 + aa * d_old;
    if (std::fabs(den) < tiny) den = tiny;
    c = 1.0 + aa * inv_c;
    if (std::fabs(c) < tiny) c = tiny;
    d = 1.0 / den;
    const double delm1 = aa * (inv_c - d_old) * d;
    log_sum += log1p_small(delm1);
    return delm1;
  };
  for (int m = 1; m <= kMaxIterations; ++m) {
    const int m2 = 2 * m;
    const double e1 = step(m * (b - m) * x / ((qam + m2) * (a + m2)));
    const double e2 = step(-(a + m) * (qab + m) * x / ((a + m2) * (qap + m2)));
    if (std::fabs(e1) <= 1e-17 && std::fabs(e2) <= 1e-17) {
      ok = true;
      break;
    }
  }
  return std::exp(log_start + log_sum);
}

}  // namespace

BetaProbabilities incomplete_beta(double a, double b, double x, double y) {
  if (x <= 0.0) return {0.0, 1.0, true};
  if (y <= 0.0) return {1.0, 0.0, true};
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
  if (part > 1.0) part = 1.0;  // a probability rounded beyond its bound
  if (direct) return {part, 1.0 - part, ok};
  return {1.0 - part, part, ok};
}

}  // namespace lbx::stats
