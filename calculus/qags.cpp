// D01AJF: QUADPACK's QAGS on the caller's workspace. LIMIT = min(LW/4, LIW);
// W holds the four subinterval lists, IW the ordering list; on exit IW(1) is
// LAST and the lists lie at stride LAST.
#include "calculus/qags.hpp"

#include <algorithm>
#include <cmath>

#include "gen/calculus.hpp"

namespace lbx::calculus {

void D01AJFN(const D01AJF_FProc& f, double a, double b, double epsabs, double epsrel,
             double& result, double& abserr, double* w, int lw, int* iw, int liw, int* iuser,
             double* ruser, lbx::Fail& fail)
{
    if (lw < 4) {
        return fail(D01AJF_msg::LW_TOO_SMALL, lw);
    }
    if (liw < 1) {
        return fail(D01AJF_msg::LIW_TOO_SMALL, liw);
    }
    const int limit = std::min(lw / 4, liw);
    const Subintervals s{w, w + limit, w + 2 * limit, w + 3 * limit, iw, limit};
    auto eval = [&](double x) { return f(x, iuser, ruser); };
    auto rule = [](auto& g, double lo, double hi, double& r, double& e, double& ra, double& rs) {
        D01AJZN(g, lo, hi, r, e, ra, rs);
    };
    const QagsOutcome o =
        qags_core(rule, eval, a, b, std::fabs(epsabs), std::fabs(epsrel), s, result, abserr);
    if (o.last < limit) {
        compact_lists(w, limit, o.last);
    }
    iw[0] = o.last;
    switch (o.ier) {
        case 1:
            return fail(D01AJF_msg::LIMIT_REACHED, limit, lw, liw);
        case 2:
            return fail(D01AJF_msg::ROUND_OFF, epsabs, epsrel);
        case 3:
            return fail(D01AJF_msg::BAD_INTEGRAND, o.bad_left, o.bad_right);
        case 4:
            return fail(D01AJF_msg::EXTRAPOLATION_ROUND_OFF);
        case 5:
            return fail(D01AJF_msg::DIVERGENT);
        default:
            return;
    }
}

}  // namespace lbx::calculus
