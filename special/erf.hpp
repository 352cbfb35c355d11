// Error function kernels, shared with the statistics chapter.
#pragma once

namespace lbx::special {

// erfc(x) for every x: 0 for x >= 26.6, 2 for x <= -6.5, NaN for NaN.
double erfc_kernel(double x);
// erf(x) for every x: +-1 for |x| > 10, NaN for NaN.
double erf_kernel(double x);

}  // namespace lbx::special
