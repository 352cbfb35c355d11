// Direct driver for C05AUF and C05AGF: outward search from X for a sign
// change within [X - 1024|H|, X + 1024|H|], then the bracketing engine on the
// interval found, with the acceptance test abs(f) < ETA on every value.
#pragma once

#include <cmath>

#include "roots/bracket_driver.hpp"
#include "roots/search_engine.hpp"

namespace lbx::roots {

// Distance of the search bounds from the starting point, in units of |H|.
inline constexpr double kSearchReach = 1024.0;

// The computation of C05AUF and C05AGF (Msg is C05AUF_msg or C05AGF_msg).
template <class Msg, class Eval>
void search_and_solve(double& x, double h, double eps, double eta, Eval&& eval, double& a,
                      double& b, lbx::Fail& fail)
{
    if (!(eps > 0.0)) {
        return fail(Msg::EPS_NOT_POSITIVE, eps);
    }
    const double x0 = x;
    if (!(x0 + h != x0) || !std::isfinite(h) || !std::isfinite(x0)) {
        return fail(Msg::H_TOO_SMALL, x0, h);
    }
    const double reach = kSearchReach * std::fabs(h);
    double c[11];
    double y = x0;
    double fx = 0.0;
    int ind = 1;
    a = b = x0;
    SearchReport r = search_engine_step(x, fx, h, x0 - reach, x0 + reach, y, c, ind);
    while (ind != 0) {
        fx = eval(x);
        if (accepted(fx, eta)) {
            a = b = x;
            return;
        }
        r = search_engine_step(x, fx, h, x0 - reach, x0 + reach, y, c, ind);
    }
    if (r.status != SearchStatus::ok) {
        // Only the exhausted search can fail here: the bounds are built
        // around x0 and H has been checked.
        a = r.v1;
        b = r.v2;
        x = x0;
        return fail(Msg::NO_SIGN_CHANGE, r.v1, r.v2);
    }
    // Interval found: x holds the last probe (value fx), y the other end (value c[0]).
    a = std::fmin(x, y);
    b = std::fmax(x, y);
    if (y == x) {
        return;  // exact zero met during the search
    }
    solve_known_bracket<Msg>(y, c[0], x, fx, eps, eta, eval, x, fail);
}

}  // namespace lbx::roots
