// Direct-communication driver over the bracketing engine, shared by C05AYF,
// C05ADF (a given interval) and C05AUF, C05AGF (an interval found by search).
#pragma once

#include <cmath>

#include "roots/zero_engine.hpp"
#include "roots/zero_engine_inline.hpp"

namespace lbx::roots {

enum class DriverStatus {
    ok,
    eps_invalid,   // EPS <= 0
    a_equals_b,    // A = B
    same_sign,     // f(A), f(B) of the same sign, both non-zero (v1 = f(A), v2 = f(B))
    eps_small,     // the bracket cannot shrink further (engine accuracy limit; v1 = EPS)
    pole,          // the final abs(f) exceeds both end values
    engine_other,  // any other engine failure (cannot occur: the driver's checks exclude
                   // them); engine_ifail holds the engine's error number
};

struct DriverReport {
    DriverStatus status = DriverStatus::ok;
    double v1 = 0.0;
    double v2 = 0.0;
    int engine_ifail = 0;
};

// The engine's error number for each failure status.
inline int engine_error_number(ZeroStatus s)
{
    switch (s) {
        case ZeroStatus::same_sign:
            return 1;
        case ZeroStatus::ind_invalid:
            return 2;
        case ZeroStatus::tolx_invalid:
        case ZeroStatus::ir_invalid:
            return 3;
        case ZeroStatus::pole:
            return 4;
        case ZeroStatus::tolx_small:
            return 5;
        case ZeroStatus::ok:
            break;
    }
    return 0;
}

// A value that ends the search at once: an exact zero, or abs(f) < eta.
inline bool accepted(double f, double eta)
{
    return f == 0.0 || std::fabs(f) < eta;
}

// Solve on a bracket [a, b] whose end values fa = f(a), fb = f(b) are known,
// non-zero and not accepted, with opposite signs. eval(x) returns f(x).
template <class Eval>
DriverReport solve_known_bracket(double a, double fa, double b, double fb, double eps, double eta,
                                 Eval&& eval, double& x_out)
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
            return {};
        }
        r = zero_engine_step_inline(x, y, fx, eps, 1, c, ind);
    }
    x_out = x;
    DriverReport out;
    switch (r.status) {
        case ZeroStatus::ok:
            break;
        case ZeroStatus::tolx_small:
            out.status = DriverStatus::eps_small;
            out.v1 = eps;
            break;
        case ZeroStatus::pole:
            out.status = DriverStatus::pole;
            break;
        default:
            out.status = DriverStatus::engine_other;
            out.engine_ifail = engine_error_number(r.status);
            break;
    }
    return out;
}

// The C05AYF driver: checks, end values, then the engine.
template <class Eval>
DriverReport solve_interval(double a, double b, double eps, double eta, Eval&& eval, double& x)
{
    DriverReport out;
    if (!(eps > 0.0)) {
        out.status = DriverStatus::eps_invalid;
        out.v1 = eps;
        return out;
    }
    if (a == b) {
        out.status = DriverStatus::a_equals_b;
        out.v1 = a;
        out.v2 = b;
        return out;
    }
    x = a;
    const double fa = eval(x);
    if (accepted(fa, eta)) {
        x = a;
        return out;
    }
    x = b;
    const double fb = eval(x);
    if (accepted(fb, eta)) {
        x = b;
        return out;
    }
    if (same_sign(fa, fb)) {
        out.status = DriverStatus::same_sign;
        out.v1 = fa;
        out.v2 = fb;
        return out;
    }
    return solve_known_bracket(a, fa, b, fb, eps, eta, eval, x);
}

}  // namespace lbx::roots
