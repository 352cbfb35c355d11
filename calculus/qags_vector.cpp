// D01ATF: D01AJF's QAGS with a vectorised integrand: the user procedure
// receives the 21 nodes of a rule application at once and returns the 21
// values. Workspace, layout, checks and messages are D01AJF's, and with an
// F that computes each value as D01AJF's F would, so are the results.
#include <algorithm>
#include <cmath>

#include "calculus/qags.hpp"
#include "gen/calculus.hpp"

namespace lbx::calculus {

void D01ATFN(const D01ATF_FProc& f, double a, double b, double epsabs, double epsrel,
             double& result, double& abserr, double* w, int lw, int* iw, int liw, int* iuser,
             double* ruser, lbx::Fail& fail)
{
    if (lw < 4) {
        return fail(D01ATF_msg::LW_TOO_SMALL, lw);
    }
    if (liw < 1) {
        return fail(D01ATF_msg::LIW_TOO_SMALL, liw);
    }
    const int limit = std::min(lw / 4, liw);
    const Subintervals s{w, w + limit, w + 2 * limit, w + 3 * limit, iw, limit};
    auto fvec = [&](const double* x, double* fv, int n) { f(x, fv, n, iuser, ruser); };
    auto rule = [](auto& g, double lo, double hi, double& r, double& e, double& ra, double& rs) {
        D01ATZN(g, lo, hi, r, e, ra, rs);
    };
    const QagsOutcome o =
        qags_core(rule, fvec, a, b, std::fabs(epsabs), std::fabs(epsrel), s, result, abserr);
    if (o.last < limit) {
        compact_lists(w, limit, o.last);
    }
    iw[0] = o.last;
    switch (o.ier) {
        case 1:
            return fail(D01ATF_msg::LIMIT_REACHED, limit, lw, liw);
        case 2:
            return fail(D01ATF_msg::ROUND_OFF, epsabs, epsrel);
        case 3:
            return fail(D01ATF_msg::BAD_INTEGRAND, o.bad_left, o.bad_right);
        case 4:
            return fail(D01ATF_msg::EXTRAPOLATION_ROUND_OFF);
        case 5:
            return fail(D01ATF_msg::DIVERGENT);
        default:
            return;
    }
}

}  // namespace lbx::calculus
