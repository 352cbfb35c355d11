// D01AKF: QUADPACK's QAG with the 61-point Gauss-Kronrod rule (key 6) on the
// caller's workspace, laid out as D01AJF's.
#include "calculus/qag.hpp"

#include <algorithm>
#include <cmath>

#include "gen/calculus.hpp"

namespace lbx::calculus {

void D01AKFN(const D01AKF_FProc& f, double a, double b, double epsabs, double epsrel,
             double& result, double& abserr, double* w, int lw, int* iw, int liw, int* iuser,
             double* ruser, lbx::Fail& fail)
{
    if (lw < 4) {
        return fail(D01AKF_msg::LW_TOO_SMALL, lw);
    }
    if (liw < 1) {
        return fail(D01AKF_msg::LIW_TOO_SMALL, liw);
    }
    const int limit = std::min(lw / 4, liw);
    const Subintervals s{w, w + limit, w + 2 * limit, w + 3 * limit, iw, limit};
    auto eval = [&](double x) { return f(x, iuser, ruser); };
    auto rule = [](auto& g, double lo, double hi, double& r, double& e, double& ra, double& rs) {
        D01AKZN(g, lo, hi, r, e, ra, rs);
    };
    const QagsOutcome o =
        qag_core(rule, eval, a, b, std::fabs(epsabs), std::fabs(epsrel), s, result, abserr);
    if (o.last < limit) {
        compact_lists(w, limit, o.last);
    }
    iw[0] = o.last;
    switch (o.ier) {
        case 1:
            return fail(D01AKF_msg::LIMIT_REACHED, limit, lw, liw);
        case 2:
            return fail(D01AKF_msg::ROUND_OFF, epsabs, epsrel);
        case 3:
            return fail(D01AKF_msg::BAD_INTEGRAND, o.bad_left, o.bad_right);
        default:
            return;
    }
}

}  // namespace lbx::calculus
