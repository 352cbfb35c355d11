// Chi-squared tail probabilities (G01ECF).
//
// P(X2 <= x) = P(DF/2, x/2) and P(X2 >= x) = Q(DF/2, x/2), the regularised
// incomplete gamma functions; the smaller of the two is computed directly.
#include "gen/stats.hpp"
#include "stats/incomplete_gamma.hpp"
#include "stats/tail.hpp"

namespace lbx::stats {

double G01ECFN(char tail, double x, double df, lbx::Fail& fail)
{
    const Tail which = tail_code(tail);
    if (which != Tail::lower && which != Tail::upper) {
        fail(G01ECF_msg::TAIL_INVALID, tail);
        return 0.0;
    }
    if (!(x >= 0.0)) {  // also NaN
        fail(G01ECF_msg::X_NEGATIVE, x);
        return 0.0;
    }
    if (!(df > 0.0)) {
        fail(G01ECF_msg::DF_NOT_POSITIVE, df);
        return 0.0;
    }
    const GammaProbabilities g = incomplete_gamma(0.5 * df, 0.5 * x);
    const double result = which == Tail::lower ? g.p : g.q;
    if (!g.converged)
        fail(G01ECF_msg::NO_CONVERGENCE);
    return result;
}

}  // namespace lbx::stats
