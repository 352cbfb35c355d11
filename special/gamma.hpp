// Gamma function kernels, shared with the statistics chapter.
#pragma once

namespace lbx::special {

// ln Gamma(x) for 0 < x <= 2.55e305, without argument checks
// (the computation of S14ABF after its checks).
double log_gamma_kernel(double x);

// ln Gamma(1 + a) for 0 <= a < 1 without forming 1 + a (which would cost
// the digits of a small a): the same approximations in y = a or y = a - 1.
double log_gamma_1p_kernel(double a);

}  // namespace lbx::special
