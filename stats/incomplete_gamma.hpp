// Regularised incomplete gamma functions P(a, x) and Q(a, x) = 1 - P(a, x),
// shared by the distribution routines of this chapter.
#pragma once

namespace lbx::stats {

struct GammaProbabilities {
    double p;        // P(a, x) = gamma(a, x) / Gamma(a)
    double q;        // Q(a, x) = Gamma(a, x) / Gamma(a)
    bool converged;  // false: the iteration limit was reached (a > 1e10)
};

// a > 0, x >= 0 (not checked). Each of p and q is computed to about 1e-14
// relative wherever it is representable, the smaller one directly.
GammaProbabilities incomplete_gamma(double a, double x);

}  // namespace lbx::stats
