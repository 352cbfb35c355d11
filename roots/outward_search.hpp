// Outward search for a sign change, and the search-then-solve routines: the
// reverse-communication search (C05AVF; the state lives in the caller's array
// c, eleven elements) and the direct driver (C05AUF, C05AGF), which searches
// from X within [X - 1024|H|, X + 1024|H|] and then solves on the interval
// found with Brent's method, with the acceptance test abs(f) < ETA on every
// value.
#pragma once

#include <cmath>

#include "frame/fail.hpp"
#include "frame/report.hpp"
#include "roots/brent.hpp"

namespace lbx::roots {

// Outcome of one entry of the search (the values C05AVF's messages quote).
enum class SearchStatus {
    ok,              // intermediate return (ind != 0) or interval found (ind == 0)
    bounds_order,    // BOUNDL >= BOUNDU (v1, v2)
    x_outside,       // X outside [BOUNDL, BOUNDU] (v1, v2, v3)
    h_too_small,     // X + H == X (v1 = X, v2 = H)
    both_outside,    // X + H and X - H both outside the bounds (v1 .. v4)
    ind_invalid,     // iv = IND
    no_sign_change,  // bounds exhausted; v1, v2 the last interval searched
    changed,         // C not the array the last call left (iv = IND)
};

using SearchReport = Report<SearchStatus>;

// One entry of the outward search (see docs/roots-zero.md for IND and C).
// On a successful finish X and Y bracket a sign change, the caller's last
// value is f(X), and C(1) holds f(Y) (so the bracketing engine can start at
// once with IND = -1); an exact zero gives Y = X and C(1) = 0.
SearchReport search_engine_step(double& x, double fx, double h, double boundl, double boundu,
                                double& y, double* c, int& ind);

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
