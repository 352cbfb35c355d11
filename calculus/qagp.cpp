// D01ALF: QUADPACK's QAGP on the caller's workspace. With NPTS2 = NPTS + 2,
// LIMIT = min((LW - NPTS2)/4, (LIW - NPTS2)/2); W holds the four subinterval
// lists of LIMIT elements then the sorted break points (NPTS2), IW the
// ordering list and the bisection levels (LIMIT each) then the flags of the
// pieces (NPTS2). On exit IW(1) is LAST and the four lists lie at stride LAST.
#include "calculus/qagp.hpp"

#include <algorithm>
#include <cmath>

#include "gen/calculus.hpp"

namespace lbx::calculus {

void D01ALFN(const D01ALF_FProc& f, double a, double b, int npts, const double* points,
             double epsabs, double epsrel, double& result, double& abserr, double* w, int lw,
             int* iw, int liw, int* iuser, double* ruser, lbx::Fail& fail)
{
    if (npts < 0) {
        return fail(D01ALF_msg::NPTS_NEGATIVE, npts);
    }
    const int npts2 = npts + 2;
    const double lo = std::min(a, b), hi = std::max(a, b);
    for (int i = 0; i < npts; ++i) {
        if (!(points[i] >= lo && points[i] <= hi)) {
            return fail(D01ALF_msg::POINT_OUTSIDE, i + 1, points[i], a, b);
        }
    }
    // LIMIT >= NPTS + 1: every piece once, in the lists.
    if (lw < 4 * (npts + 1) + npts2) {
        return fail(D01ALF_msg::LW_TOO_SMALL, lw, npts);
    }
    if (liw < 2 * (npts + 1) + npts2) {
        return fail(D01ALF_msg::LIW_TOO_SMALL, liw, npts);
    }
    const int limit = std::min((lw - npts2) / 4, (liw - npts2) / 2);
    const Subintervals s{w, w + limit, w + 2 * limit, w + 3 * limit, iw, limit};
    const BreakPointLists bp{w + 4 * limit, iw + limit, iw + 2 * limit};
    auto eval = [&](double x) { return f(x, iuser, ruser); };
    const QagsOutcome o = qagp_core(eval, a, b, npts, points, std::fabs(epsabs), std::fabs(epsrel),
                                    s, bp, result, abserr);
    if (o.last < limit) {
        compact_lists(w, limit, o.last);
    }
    iw[0] = o.last;
    switch (o.ier) {
        case 1:
            return fail(D01ALF_msg::LIMIT_REACHED, limit, lw, liw);
        case 2:
            return fail(D01ALF_msg::ROUND_OFF, epsabs, epsrel);
        case 3:
            return fail(D01ALF_msg::BAD_INTEGRAND, o.bad_left, o.bad_right);
        case 4:
            return fail(D01ALF_msg::EXTRAPOLATION_ROUND_OFF);
        case 5:
            return fail(D01ALF_msg::DIVERGENT);
        default:
            return;
    }
}

}  // namespace lbx::calculus
