// u - ln(1 + u): for |u| < 0.5 by the series of 2 atanh(u/(2 + u)), whose
// leading terms cancel exactly, otherwise from the library's log1p.
#include "special/log1pmx.hpp"

#include <cmath>

namespace lbx::special {

double log1pmx_neg(double u)
{
    if (std::fabs(u) >= 0.5)
        return u - std::log1p(u);
    // ln(1 + u) = 2 atanh(r), r = u/(2 + u), and u - 2r = r u.
    const double r = u / (2.0 + u);
    const double r2 = r * r;
    double term = r * r2;
    double sum = 0.0;
    for (int k = 3; k < 200; k += 2) {
        const double t = term / k;
        sum += t;
        if (std::fabs(t) <= 1e-18 * std::fabs(sum))
            break;
        term *= r2;
    }
    return r * u - 2.0 * sum;
}

}  // namespace lbx::special
