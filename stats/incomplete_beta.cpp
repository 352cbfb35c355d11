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

constexpr int kMaxIterations = 1000000;

// ln Gamma(a + b) - ln Gamma(a) - ln Gamma(b).
double log_inverse_beta(double a, double b) {
  const double big = std::max(a, b);
  const double small = std::min(a, b);
  if (big < 10.0) {
    using lbx::special::log_gamma_kernel;
    return log_gamma_kernel(a + b) - log_gamma_kernel(a) - log_gamma_kernel(b);
  }
  // ln Gamma(s + B) - ln Gamma(B) by Stirling's form: with
  // ln Gamma(z) = (z - 1/2) ln z - z + ln sqrt(2 pi) + r(z),
  // the difference is s ln(s + B) - s + (B - 1/2) ln(1 + s/B) + r(s + B) - r(B).
  const double s = small;
  const double sum = s + big;
  double ratio = s * std::log(sum) - s + (big - 0.5) * std::log1p(s / big) +
                 stirling_remainder(sum) - stirling_remainder(big);
  if (s >= 10.0) {
    // ln Gamma(s) by the same form.
    ratio -= (s - 0.5) * std::log(s) - s + 0.91893853320467274 + stirling_remainder(s);
  } else {
    ratio -= lbx::special::log_gamma_kernel(s);
  }
  return ratio;
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
    const double c_old = c;
    double den = 1.0 + aa * d_old;
    if (std::fabs(den) < tiny) den = tiny;
    c = 1.0 + aa / c_old;
    if (std::fabs(c) < tiny) c = tiny;
    d = 1.0 / den;
    const double delm1 = aa * (1.0 / c_old - d_old) * d;
    log_sum += std::log1p(delm1);
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
  const double lead = std::exp(aa * lx + bb * ly + log_inverse_beta(aa, bb)) / aa;
  bool ok = true;
  const double part = lead * beta_fraction(aa, bb, xx, yy, ok);
  if (direct) return {part, 1.0 - part, ok};
  return {1.0 - part, part, ok};
}

}  // namespace lbx::stats
