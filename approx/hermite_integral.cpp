// The definite integral of the piecewise cubic Hermite interpolant (E01BHF)
// from A to B: exact integrals of the cubics over the pieces of [min(A,B),
// max(A,B)] (the end cubics beyond [X(1), X(N)]), whole intervals summed with
// compensation, negated when A > B.  A or B outside [X(1), X(N)] (or a NaN)
// gives the warning IFAIL 3 with PINT set.
//
// Checks, in order: N >= 2, X strictly increasing; PINT is untouched on
// failure.
#include <cmath>
#include <utility>

#include "approx/hermite.hpp"
#include "gen/approx.hpp"

namespace lbx::approx {

namespace {

// The integral from a to b, a <= b.
double integral(std::ptrdiff_t n, const double* x, const double* f, const double* d, double a,
                double b)
{
    const std::ptrdiff_t ja = interval_of(n, x, a), jb = interval_of(n, x, b);
    const HermiteCubic first(x, f, d, ja);
    if (ja == jb)
        return first.between(a, b);
    // Neumaier's compensated sum of the pieces.
    double sum = first.to_right(a), carry = 0;
    const auto add = [&](double v) {
        const double t = sum + v;
        carry += std::fabs(sum) >= std::fabs(v) ? (sum - t) + v : (v - t) + sum;
        sum = t;
    };
    for (std::ptrdiff_t j = ja + 1; j < jb; ++j)
        add(HermiteCubic(x, f, d, j).whole());
    add(HermiteCubic(x, f, d, jb).from_left(b));
    return sum + carry;
}

}  // namespace

void E01BHFN(int n, const double* x, const double* f, const double* d, double a, double b,
             double& pint, lbx::Fail& fail)
{
    using Msg = E01BHF_msg;
    if (n < 2)
        return fail(Msg::N_LT_2, n);
    if (const int r = first_not_increasing(n, x))
        return fail(Msg::X_NOT_INCREASING, r, x[r - 2], x[r - 1]);
    pint = a <= b ? integral(n, x, f, d, a, b) : -integral(n, x, f, d, b, a);
    const double lo = x[0], hi = x[n - 1];
    if (!(a >= lo && a <= hi && b >= lo && b <= hi))
        fail(Msg::AB_OUTSIDE, a, b);
}

}  // namespace lbx::approx
