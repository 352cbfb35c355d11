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

enum class SearchDriverStatus {
    ok,
    eps_invalid,     // v1 = EPS
    h_too_small,     // v1 = X, v2 = H
    no_sign_change,  // v1, v2 the last interval searched
    eps_small,       // v1 = EPS
    pole,
    engine_other,  // cannot occur; engine_ifail holds the engine's error number
};

struct SearchDriverReport {
    SearchDriverStatus status = SearchDriverStatus::ok;
    double v1 = 0.0, v2 = 0.0;
    int engine_ifail = 0;
};

template <class Eval>
SearchDriverReport search_and_solve(double& x, double h, double eps, double eta, Eval&& eval,
                                    double& a, double& b)
{
    SearchDriverReport out;
    if (!(eps > 0.0)) {
        out.status = SearchDriverStatus::eps_invalid;
        out.v1 = eps;
        return out;
    }
    const double x0 = x;
    if (!(x0 + h != x0) || !std::isfinite(h) || !std::isfinite(x0)) {
        out.status = SearchDriverStatus::h_too_small;
        out.v1 = x0;
        out.v2 = h;
        return out;
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
            return out;
        }
        r = search_engine_step(x, fx, h, x0 - reach, x0 + reach, y, c, ind);
    }
    if (r.status != SearchStatus::ok) {
        // Only the exhausted search can fail here: the bounds are built
        // around x0 and H has been checked.
        out.status = SearchDriverStatus::no_sign_change;
        out.v1 = a = r.v1;
        out.v2 = b = r.v2;
        x = x0;
        return out;
    }
    // Interval found: x holds the last probe (value fx), y the other end (value c[0]).
    a = std::fmin(x, y);
    b = std::fmax(x, y);
    if (y == x) {
        return out;  // exact zero met during the search
    }
    const DriverReport d = solve_known_bracket(y, c[0], x, fx, eps, eta, eval, x);
    switch (d.status) {
        case DriverStatus::ok:
            break;
        case DriverStatus::eps_small:
            out.status = SearchDriverStatus::eps_small;
            out.v1 = eps;
            break;
        case DriverStatus::pole:
            out.status = SearchDriverStatus::pole;
            break;
        default:
            out.status = SearchDriverStatus::engine_other;
            out.engine_ifail = d.engine_ifail;
            break;
    }
    return out;
}

}  // namespace lbx::roots
