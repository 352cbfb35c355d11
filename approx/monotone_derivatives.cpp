// Derivatives of the monotonicity-preserving piecewise cubic Hermite
// interpolant (E01BEF), after Fritsch and Butland: at an interior point the
// weighted harmonic mean of the neighbouring slopes, or 0 where the data have
// an extremum or a flat interval; at the ends a three-point formula limited
// so that it keeps the sign of the end slope and, next to a change of
// direction, does not exceed three times it.
//
// Checks, in order: N >= 2, X strictly increasing (IFAIL 2 quotes the first r
// with X(r-1) < X(r) false and the two abscissae); D is untouched on failure.
#include <algorithm>
#include <cfloat>
#include <cmath>

#include "approx/hermite.hpp"
#include "gen/approx.hpp"

namespace lbx::approx {

namespace {

// +1, -1 or 0: the product of the signs of a and b.
int sign_product(double a, double b)
{
    return ((a > 0) - (a < 0)) * ((b > 0) - (b < 0));
}

// D at an end: the three-point formula through the end interval (h1, del1)
// and its neighbour (h2, del2), limited to the sign of del1 and, when the
// slopes change direction, to three times del1.
double end_derivative(double h1, double h2, double del1, double del2)
{
    const double hs = h1 + h2;
    const double d = ((h1 + hs) / hs) * del1 - (h1 / hs) * del2;
    if (sign_product(d, del1) <= 0)
        return 0;
    if (sign_product(del1, del2) < 0 && std::fabs(d) > std::fabs(3 * del1))
        return 3 * del1;
    return d;
}

// The weighted harmonic mean of two slopes of one sign,
// dmin / (w1 del1 / dmax + w2 del2 / dmax) with w1 = (hs + h1) / (3 hs),
// w2 = (hs + h2) / (3 hs), computed as 3 hs del1 del2 / ((hs + h1) del1 +
// (hs + h2) del2) (one division) when that form neither overflows nor
// leaves the normal range, otherwise as written.
double harmonic_mean(double h1, double h2, double del1, double del2)
{
    const double hs = h1 + h2;
    const double num = 3 * hs * (del1 * del2);
    const double den = (hs + h1) * del1 + (hs + h2) * del2;
    if (num <= DBL_MAX && num >= 0x1p-960 && std::fabs(den) <= DBL_MAX && std::fabs(den) >= DBL_MIN)
        return num / den;
    const double w1 = (hs + h1) / (3 * hs), w2 = (hs + h2) / (3 * hs);
    const double dmax = std::max(std::fabs(del1), std::fabs(del2));
    const double dmin = std::min(std::fabs(del1), std::fabs(del2));
    return dmin / (w1 * (del1 / dmax) + w2 * (del2 / dmax));
}

}  // namespace

// The derivatives d[0], d[incfd], ... at the n >= 2 abscissae x (strictly
// increasing, not checked) for the values f[0], f[incfd], ...; returns the
// number of switches of the direction of monotonicity.
int monotone_derivatives(int n, const double* x, const double* f, std::ptrdiff_t incfd, double* d)
{
    const auto at = [incfd](std::ptrdiff_t i) { return i * incfd; };
    double h1 = x[1] - x[0];
    double del1 = (f[at(1)] - f[at(0)]) / h1;
    if (n == 2) {
        d[at(0)] = del1;
        d[at(1)] = del1;
        return 0;
    }
    double h2 = x[2] - x[1];
    double del2 = (f[at(2)] - f[at(1)]) / h2;
    d[at(0)] = end_derivative(h1, h2, del1, del2);
    int switches = 0;
    double last = del1;  // the last nonzero slope seen (by its sign)
    for (std::ptrdiff_t i = 1; i < n - 1; ++i) {
        if (i > 1) {
            h1 = h2;
            del1 = del2;
            h2 = x[i + 1] - x[i];
            del2 = (f[at(i + 1)] - f[at(i)]) / h2;
        }
        const int sp = sign_product(del1, del2);
        if (sp > 0) {
            d[at(i)] = harmonic_mean(h1, h2, del1, del2);
            continue;
        }
        d[at(i)] = 0;
        if (sp < 0) {
            ++switches;
            last = del2;
        } else if (del2 != 0) {
            switches += sign_product(last, del2) < 0;
            last = del2;
        }
    }
    d[at(n - 1)] = end_derivative(h2, h1, del2, del1);
    return switches;
}

void E01BEFN(int n, const double* x, const double* f, double* d, lbx::Fail& fail)
{
    using Msg = E01BEF_msg;
    if (n < 2)
        return fail(Msg::N_LT_2, n);
    if (const int r = first_not_increasing(n, x))
        return fail(Msg::X_NOT_INCREASING, r, x[r - 2], x[r - 1]);
    monotone_derivatives(n, x, f, 1, d);
}

}  // namespace lbx::approx
