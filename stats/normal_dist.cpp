// Standard normal tail probabilities (G01EAF) and deviates (G01FAF).
#include <cmath>

#include "frame/math_constants.hpp"
#include "gen/stats.hpp"
#include "special/erf.hpp"
#include "stats/inverse_normal.hpp"
#include "stats/tail.hpp"

namespace lbx::stats {

double G01EAFN(char tail, double x, lbx::Fail& fail)
{
    constexpr double c = lbx::math::inv_sqrt2_low;  // 1/sqrt(2)
    switch (tail_code(tail)) {
        case Tail::lower:
            return 0.5 * lbx::special::erfc_kernel(-x * c);
        case Tail::upper:
            return 0.5 * lbx::special::erfc_kernel(x * c);
        case Tail::confidence:
            return lbx::special::erf_kernel(std::fabs(x) * c);
        case Tail::significance:
            return lbx::special::erfc_kernel(std::fabs(x) * c);
        case Tail::invalid:
            break;
    }
    fail(G01EAF_msg::TAIL_INVALID, tail);
    return 0.0;
}

double G01FAFN(char tail, double p, lbx::Fail& fail)
{
    const Tail t = tail_code(tail);
    if (t == Tail::invalid) {
        fail(G01FAF_msg::TAIL_INVALID, tail);
        return 0.0;
    }
    if (!(p > 0.0)) {  // also NaN
        fail(G01FAF_msg::P_NOT_POSITIVE, p);
        return 0.0;
    }
    if (p >= 1.0) {
        fail(G01FAF_msg::P_NOT_BELOW_ONE, p);
        return 0.0;
    }
    switch (t) {
        case Tail::lower:
            return inverse_normal(p);
        case Tail::upper:
            return -inverse_normal(p);
        case Tail::significance:
            return -inverse_normal(0.5 * p);
        default:  // confidence: P(Z <= x) = 0.5 + P/2, from P/2 and (1 - P)/2 as
                  // they are (1 - P is exact where the tail branch needs it)
            return inverse_normal_split(0.5 * p, 0.5 * (1.0 - p));
    }
}

}  // namespace lbx::stats
