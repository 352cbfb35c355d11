// Direct-communication driver over the bracketing engine, shared by C05AYF,
// C05ADF (a given interval) and C05AUF, C05AGF (an interval found by search).
#pragma once

#include <cmath>

#include "frame/fail.hpp"
#include "roots/zero_engine_inline.hpp"

namespace lbx::roots {

// A value that ends the search at once: an exact zero, or abs(f) < eta.
inline bool accepted(double f, double eta)
{
    return f == 0.0 || std::fabs(f) < eta;
}

// Solve on a bracket [a, b] whose end values fa = f(a), fb = f(b) are known,
// non-zero and not accepted, with opposite signs. eval(x) returns f(x); a
// failure is raised as Msg::POLE or Msg::EPS_TOO_SMALL.
template <class Msg, class Eval>
void solve_known_bracket(double a, double fa, double b, double fb, double eps, double eta,
                         Eval&& eval, double& x_out, lbx::Fail& fail)
{
    // The search runs on locals (kept in registers across the calls of f);
    // x_out receives each point before f is called there, and the result.
    double c[10];
    c[0] = fa;
    double y = a;
    double x = b;
    double fx = fb;
    int ind = -1;
    ZeroReport r = zero_engine_step_inline(x, y, fx, eps, 1, c, ind);
    while (ind != 0) {
        x_out = x;
        fx = eval(x);
        if (accepted(fx, eta)) {
            return;
        }
        r = zero_engine_step_inline(x, y, fx, eps, 1, c, ind);
    }
    x_out = x;
    // Started here with valid arguments on a sign change, the engine ends
    // converged, at a pole or at the accuracy limit.
    if (r.status == ZeroStatus::pole) {
        fail(Msg::POLE);
    } else if (r.status == ZeroStatus::tolx_small) {
        fail(Msg::EPS_TOO_SMALL, r.v1);
    }
}

// The computation of C05AYF and C05ADF (Msg is C05AYF_msg or C05ADF_msg):
// checks, end values, then the engine.
template <class Msg, class Eval>
void solve_interval(double a, double b, double eps, double eta, Eval&& eval, double& x,
                    lbx::Fail& fail)
{
    if (!(eps > 0.0)) {
        return fail(Msg::EPS_NOT_POSITIVE, eps);
    }
    if (a == b) {
        return fail(Msg::A_EQUALS_B, a, b);
    }
    x = a;
    const double fa = eval(x);
    if (accepted(fa, eta)) {
        x = a;
        return;
    }
    x = b;
    const double fb = eval(x);
    if (accepted(fb, eta)) {
        x = b;
        return;
    }
    if (same_sign(fa, fb)) {
        return fail(Msg::SAME_SIGN, fa, fb);
    }
    solve_known_bracket<Msg>(a, fa, b, fb, eps, eta, eval, x, fail);
}

}  // namespace lbx::roots
