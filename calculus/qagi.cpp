// D01AMF: QUADPACK's QAGI on the caller's workspace: the range [BOUND,
// infinity), (-infinity, BOUND] or the whole line (INF = 1, -1, 2) mapped onto
// (0, 1] and integrated by the QAGS core with the transformed 15-point rule.
// The lists hold the subintervals of the transformed variable t.
#include <algorithm>
#include <cmath>

#include "calculus/qags.hpp"
#include "gen/calculus.hpp"

namespace lbx::calculus {

namespace {

// The end of the original range that t corresponds to (for INF = 2, the
// positive of the two points t stands for).
double original_point(double t, double bound, int inf)
{
    const double dinf = inf < 1 ? inf : 1;
    return (inf == 2 ? 0.0 : bound) + dinf * (1.0 - t) / t;
}

}  // namespace

void D01AMFN(const D01AMF_FProc& f, double bound, int inf, double epsabs, double epsrel,
             double& result, double& abserr, double* w, int lw, int* iw, int liw, int* iuser,
             double* ruser, lbx::Fail& fail)
{
    if (inf != -1 && inf != 1 && inf != 2) {
        return fail(D01AMF_msg::INF_INVALID, inf);
    }
    if (lw < 4) {
        return fail(D01AMF_msg::LW_TOO_SMALL, lw);
    }
    if (liw < 1) {
        return fail(D01AMF_msg::LIW_TOO_SMALL, liw);
    }
    const int limit = std::min(lw / 4, liw);
    const Subintervals s{w, w + limit, w + 2 * limit, w + 3 * limit, iw, limit};
    auto eval = [&](double x) { return f(x, iuser, ruser); };
    const double boun = inf == 2 ? 0.0 : bound;
    auto rule = [boun, inf](auto& g, double lo, double hi, double& r, double& e, double& ra,
                            double& rs) { D01AMZN(g, boun, inf, lo, hi, r, e, ra, rs); };
    const QagsOutcome o =
        qags_core(rule, eval, 0.0, 1.0, std::fabs(epsabs), std::fabs(epsrel), s, result, abserr);
    if (o.last < limit) {
        compact_lists(w, limit, o.last);
    }
    iw[0] = o.last;
    switch (o.ier) {
        case 1:
            return fail(D01AMF_msg::LIMIT_REACHED, limit, lw, liw);
        case 2:
            return fail(D01AMF_msg::ROUND_OFF, epsabs, epsrel);
        case 3: {
            // The interval of t, quoted in x: [x(b2), x(a1)] as x falls with t (INF = 1, 2).
            const double x1 = original_point(o.bad_right, bound, inf);
            const double x2 = original_point(o.bad_left, bound, inf);
            return fail(D01AMF_msg::BAD_INTEGRAND, std::min(x1, x2), std::max(x1, x2));
        }
        case 4:
            return fail(D01AMF_msg::EXTRAPOLATION_ROUND_OFF);
        case 5:
            return fail(D01AMF_msg::DIVERGENT);
        default:
            return;
    }
}

}  // namespace lbx::calculus
