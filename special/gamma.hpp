// Gamma function kernels, shared with the statistics chapter.
#pragma once

namespace lbx::special {

// ln Gamma(x) for 0 < x <= 2.55e305, without argument checks
// (the computation of S14ABF after its checks).
double log_gamma_kernel(double x);

}  // namespace lbx::special
