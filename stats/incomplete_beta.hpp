// Regularised incomplete beta function I_x(a, b), shared by the distribution
// routines of this chapter.
#pragma once

namespace lbx::stats {

struct BetaProbabilities {
    double p;        // I_x(a, b)
    double q;        // 1 - I_x(a, b) = I_y(b, a)
    bool converged;  // false: the iteration limit was reached
};

// a > 0, b > 0, 0 <= x <= 1 and y = 1 - x, both supplied by the caller so
// that neither is formed by cancellation (not checked).
BetaProbabilities incomplete_beta(double a, double b, double x, double y);

}  // namespace lbx::stats
