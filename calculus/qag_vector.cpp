// D01AUF: QUADPACK's QAG with the Gauss-Kronrod rule chosen by KEY (1 to 6:
// 15, 21, 31, 41, 51 or 61 points) and a vectorised integrand: the user
// procedure receives the nodes of one rule application at once. Workspace,
// layout and messages are D01AKF's; with KEY = 6 and an F that computes each
// value as D01AKF's F would, so are the results.
#include <algorithm>
#include <cmath>

#include "calculus/qag.hpp"
#include "gen/calculus.hpp"

namespace lbx::calculus {

void D01AUFN(const D01AUF_FProc& f, double a, double b, int key, double epsabs, double epsrel,
             double& result, double& abserr, double* w, int lw, int* iw, int liw, int* iuser,
             double* ruser, lbx::Fail& fail)
{
    if (key < 1 || key > 6) {
        return fail(D01AUF_msg::KEY_INVALID, key);
    }
    if (lw < 4) {
        return fail(D01AUF_msg::LW_TOO_SMALL, lw);
    }
    if (liw < 1) {
        return fail(D01AUF_msg::LIW_TOO_SMALL, liw);
    }
    const int limit = std::min(lw / 4, liw);
    const Subintervals s{w, w + limit, w + 2 * limit, w + 3 * limit, iw, limit};
    auto fvec = [&](const double* x, double* fv, int n) { f(x, fv, n, iuser, ruser); };
    auto rule = [key](auto& g, double lo, double hi, double& r, double& e, double& ra, double& rs) {
        D01AUZN(key, g, lo, hi, r, e, ra, rs);
    };
    const QagsOutcome o =
        qag_core(rule, fvec, a, b, std::fabs(epsabs), std::fabs(epsrel), s, result, abserr);
    if (o.last < limit) {
        compact_lists(w, limit, o.last);
    }
    iw[0] = o.last;
    switch (o.ier) {
        case 1:
            return fail(D01AUF_msg::LIMIT_REACHED, limit, lw, liw);
        case 2:
            return fail(D01AUF_msg::ROUND_OFF, epsabs, epsrel);
        case 3:
            return fail(D01AUF_msg::BAD_INTEGRAND, o.bad_left, o.bad_right);
        default:
            return;
    }
}

}  // namespace lbx::calculus
