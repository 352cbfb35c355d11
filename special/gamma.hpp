// Gamma function kernels, shared with the statistics and random-variate chapters.
#pragma once

namespace lbx::special {

// ln Gamma(x) for 0 < x <= 2.55e305, without argument checks
// (the computation of S14ABF after its checks).
double log_gamma_kernel(double x);

// ln Gamma(1 + a) for 0 <= a < 1 without forming 1 + a (which would cost
// the digits of a small a): the same approximations in y = a or y = a - 1.
double log_gamma_1p_kernel(double a);

// ln Gamma(x) - ((x - 1/2) ln x - x + ln sqrt(2 pi)), the remainder of
// Stirling's formula, for x > 0: Stirling's series for x >= 10, with an
// absolute error of about 2 ULPs of the remainder (below 3e-18); below 10 the
// difference itself, formed from log_gamma_kernel (absolute error about 1e-14).
double stirling_remainder(double x);

}  // namespace lbx::special
