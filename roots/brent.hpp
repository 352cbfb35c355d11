// Brent's method for a zero in a bracket: the combination of bisection,
// secant and inverse quadratic interpolation on a bracket [b, c] with f(b),
// f(c) of opposite sign. Here are the reverse-communication engine (C05AZF;
// inline for the direct drivers, out of line in brent.cpp) and the direct
// driver (C05AYF, C05ADF, and the last phase of C05AUF, C05AGF).
//
// The whole state of a search lives in the caller's array c (ten elements,
// c[0] .. c[9] holding C(1) .. C(10)), in ind, x and y; nothing is static, so
// independent searches may be interleaved or run on different threads.
//
// Layout of the communication array (Fortran numbering C(1) .. C(10)):
//   C(1)  f(Y), supplied by the caller on an initial entry with IND = -1
//   C(2)  fa, the function value at the previous iterate
//   C(3)  a, the previous iterate
//   C(4)  b, the current iterate (the X returned)
//   C(5)  d, the last step
//   C(6)  e, the step before it
//   C(7)  c, the contrapoint (f(b) and f(c) of opposite sign)
//   C(8)  f(c)
//   C(9)  the largest abs(f) at the two starting points (reference of the pole test)
//   C(10) 0 while iterating, 1 once the bracket has converged and the final
//         function value has been requested
#pragma once

#include <cmath>

#include "frame/fail.hpp"
#include "frame/machine.hpp"
#include "frame/report.hpp"

namespace lbx::roots {

// Outcome of one entry of the engine (v1, v2 and iv carry the values that
// C05AZF's messages quote).
enum class ZeroStatus {
    ok,            // intermediate return (ind != 0) or successful finish (ind == 0)
    same_sign,     // f at the two starting points of the same sign, neither zero
    ind_invalid,   // ind not one of -1, 1, 2, 3, 4 on entry
    tolx_invalid,  // tolx not positive
    ir_invalid,    // ir not 0, 1 or 2
    pole,          // final abs(f) larger than at both starting points
    tolx_small,    // bracket cannot shrink further at machine precision (v2 = b, v3 = c)
    not_finite,    // X or Y not finite on an entry that takes them (v1 = X, v2 = Y)
    changed,       // C holds no bracket: changed between calls (iv = IND)
};

using ZeroReport = Report<ZeroStatus>;

// The sign test of the engine and its drivers: two values count as having
// the same sign when both are non-positive or both are positive. A NaN counts
// as non-positive.
inline bool nonpositive(double v)
{
    return !(v > 0.0);
}
inline bool same_sign(double f, double g)
{
    return nonpositive(f) == nonpositive(g);
}

// One entry of the reverse-communication engine, out of line (see
// docs/roots-zero.md for the states of ind and the contents of c).
ZeroReport zero_engine_step(double& x, double& y, double fx, double tolx, int ir, double* c,
                            int& ind);

// A value that ends the search at once: an exact zero, or abs(f) < eta.
inline bool accepted(double f, double eta)
{
    return f == 0.0 || std::fabs(f) < eta;
}

namespace zero_engine_detail {

// Indices of the communication array (0-based).
inline constexpr int kFy = 0, kFa = 1, kA = 2, kB = 3, kD = 4, kE = 5, kC = 6, kFc = 7, kFmax = 8,
                     kDone = 9;

// Largest of two magnitudes, ignoring a NaN on either side.
inline double max_ignoring_nan(double u, double v)
{
    return std::fmax(u, v);
}

inline double tolerance(double tolx, int ir, double b)
{
    // IR = 0: mixed TOLX max(1, abs(b)); 1: absolute TOLX; 2: relative TOLX abs(b).
    const double ab = std::fabs(b);
    if (ir == 1) {
        return tolx;
    }
    if (ir == 2) {
        return tolx * ab;
    }
    return tolx * (ab > 1.0 ? ab : 1.0);
}

inline ZeroReport finish_at_zero(double& x, double& y, int& ind)
{
    y = x;
    ind = 0;
    return {};
}

// Stores the iteration state in the caller's communication array.
inline void save_state(double* w, double fa, double a, double b, double d, double e, double c,
                       double fc)
{
    w[kFa] = fa;
    w[kA] = a;
    w[kB] = b;
    w[kD] = d;
    w[kE] = e;
    w[kC] = c;
    w[kFc] = fc;
}

// Brent's iteration step from the loaded state. Either asks for f at a new
// point (ind = 4), asks for the final value at the converged point (ind = 4,
// C(10) = 1), or fails at the accuracy limit (ind = 0).
[[gnu::always_inline]] inline ZeroReport iterate(double a, double fa, double b, double fb, double c,
                                                 double fc, double d, double e, double& x,
                                                 double& y, double tolx, int ir, double* w,
                                                 int& ind)
{
    // 1. Keep the bracket: c takes the previous iterate when b and c agree in sign.
    if (same_sign(fb, fc)) {
        c = a;
        fc = fa;
        d = e = b - a;
        if (same_sign(fb, fc)) {
            // The stored a and c were of one sign: not a state this engine
            // leaves, so C was changed between calls.
            ZeroReport r;
            r.status = ZeroStatus::changed;
            r.iv = ind;
            ind = 0;
            return r;
        }
    }
    // 2. Make b the point of smaller residual.
    if (std::fabs(fb) > std::fabs(fc)) {
        a = b;
        b = c;
        c = a;
        fa = fb;
        fb = fc;
        fc = fa;
    }
    // 3. Half-width and tolerance at the new b.
    const double m = 0.5 * (c - b);
    const double tol = tolerance(tolx, ir, b);

    // 4. Convergence: ask for f at b once more (pole test).
    if (tol >= std::fabs(m) || fb == 0.0) {
        save_state(w, fa, a, b, d, e, c, fc);
        w[kDone] = 1.0;
        x = b;
        y = c;
        ind = 4;
        return {};
    }
    // 5. Accuracy limit of the arithmetic: eps abs(b) >= abs(m). Written so
    //    that a half-width that is not finite (an infinite or NaN end point,
    //    which no bisection can shrink) also ends here instead of iterating
    //    for ever.
    //    X, Y and C are left as they stood; the report carries b and c.
    const double am = std::fabs(m);
    if (!(lbx::machine::eps * std::fabs(b) < am && am <= lbx::machine::huge)) {
        ind = 0;
        ZeroReport r;
        r.status = ZeroStatus::tolx_small;
        r.v1 = tolx;
        r.v2 = b;
        r.v3 = c;
        return r;
    }
    // 6. Step choice.
    if (tol > std::fabs(e) || std::fabs(fb) >= std::fabs(fa)) {
        d = e = m;
    } else {
        const double s = fb / fa;
        double p, q;
        if (a == c) {
            // secant
            p = 2.0 * m * s;
            q = 1.0 - s;
        } else {
            // inverse quadratic interpolation
            q = fa / fc;
            const double r = fb / fc;
            p = s * (2.0 * m * q * (q - r) - (b - a) * (r - 1.0));
            q = (q - 1.0) * (r - 1.0) * (s - 1.0);
        }
        if (p > 0.0) {
            q = -q;
        }
        p = std::fabs(p);
        if (2.0 * p < 3.0 * m * q - std::fabs(tol * q) && p < std::fabs(0.5 * e * q)) {
            e = d;
            d = p / q;
        } else {
            d = e = m;
        }
    }
    // 7. New point: the step, or exactly tol towards c.
    double bnew;
    if (std::fabs(d) > tol) {
        bnew = b + d;
    } else {
        bnew = (c > b) ? b + tol : b - tol;
    }
    // 8. Save the state; the old b becomes a.
    save_state(w, fb, b, bnew, d, e, c, fc);
    x = bnew;
    ind = 4;
    return {};
}

// Set-up step 2: the value at the first point is known; exchange X and Y.
// Returns true when that value is exactly zero (search finished).
inline bool take_first_value(double& x, double& y, double fx, double* w, int& ind)
{
    if (fx == 0.0) {
        finish_at_zero(x, y, ind);
        return true;
    }
    w[kFa] = fx;
    w[kFmax] = std::fabs(fx);
    w[kDone] = 0.0;
    x = y;
    y = w[kA];
    w[kB] = x;
    return false;
}

// Set-up step 3: the value at the second point is fx; test the signs and
// start the iteration.
inline ZeroReport take_second_value(double& x, double& y, double fx, double tolx, int ir, double* w,
                                    int& ind)
{
    if (same_sign(fx, w[kFa])) {
        // X and Y stay as the set-up left them: X the second point, Y the first.
        ind = 0;
        ZeroReport r;
        r.status = ZeroStatus::same_sign;
        r.v1 = w[kFa];
        r.v2 = fx;
        return r;
    }
    w[kFmax] = max_ignoring_nan(std::fabs(fx), w[kFmax]);
    const double a = w[kA], fa = w[kFa], b = w[kB], fb = fx;
    return iterate(a, fa, b, fb, a, fa, b - a, b - a, x, y, tolx, ir, w, ind);
}

}  // namespace zero_engine_detail

// The engine step, inline for the direct drivers (the reverse-communication
// entry uses the out-of-line zero_engine_step).
[[gnu::always_inline]] inline ZeroReport zero_engine_step_inline(double& x, double& y, double fx,
                                                                 double tolx, int ir, double* w,
                                                                 int& ind)
{
    // Re-checked on every entry, in this order.
    if (ind != -1 && (ind < 1 || ind > 4)) {
        ZeroReport r;
        r.status = ZeroStatus::ind_invalid;
        r.iv = ind;
        ind = 0;
        return r;
    }
    if (!(tolx > 0.0)) {
        ind = 0;
        ZeroReport r;
        r.status = ZeroStatus::tolx_invalid;
        r.v1 = tolx;
        return r;
    }
    if (ir < 0 || ir > 2) {
        ind = 0;
        ZeroReport r;
        r.status = ZeroStatus::ir_invalid;
        r.iv = ir;
        return r;
    }

    using namespace zero_engine_detail;
    if ((ind == 1 || ind == -1 || ind == 2) && !(std::isfinite(x) && std::isfinite(y))) {
        // The entries that take X or Y as a point never ask for f off the finite numbers.
        ZeroReport r;
        r.status = ZeroStatus::not_finite;
        r.v1 = x;
        r.v2 = y;
        ind = 0;
        return r;
    }
    switch (ind) {
        case 1:
            w[kA] = x;
            ind = 2;
            return {};
        case 2:
            if (!take_first_value(x, y, fx, w, ind)) {
                ind = 3;
            }
            return {};
        case -1:
            w[kA] = x;
            if (take_first_value(x, y, fx, w, ind)) {
                return {};
            }
            // The value at the new X is f(Y) from C(1); no zero test on it here.
            return take_second_value(x, y, w[kFy], tolx, ir, w, ind);
        case 3:
            if (fx == 0.0) {
                return finish_at_zero(x, y, ind);
            }
            return take_second_value(x, y, fx, tolx, ir, w, ind);
        default:  // 4
            break;
    }

    if (w[kDone] != 0.0 && w[kDone] != 1.0) {
        ZeroReport r;
        r.status = ZeroStatus::changed;
        r.iv = ind;
        ind = 0;
        return r;
    }
    // The final value: the convergence is checked again at the stored b and c
    // with the TOLX and IR of this entry; when it no longer holds (TOLX made
    // smaller, or C(10) set by the caller) the iteration goes on from fx = f(b).
    if (w[kDone] != 0.0 && !(std::fabs(0.5 * (w[kC] - w[kB])) <= tolerance(tolx, ir, w[kB]))) {
        w[kDone] = 0.0;
    }
    if (w[kDone] != 0.0) {
        // Pole test on the final value.
        if (fx == 0.0) {
            return finish_at_zero(x, y, ind);
        }
        ind = 0;
        if (std::fabs(fx) > w[kFmax]) {
            ZeroReport r;
            r.status = ZeroStatus::pole;
            return r;
        }
        return {};
    }
    if (fx == 0.0) {
        return finish_at_zero(x, y, ind);
    }
    return iterate(w[kA], w[kFa], w[kB], fx, w[kC], w[kFc], w[kD], w[kE], x, y, tolx, ir, w, ind);
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
    // converged, at a pole or at the accuracy limit (X is then its best point b).
    if (r.status == ZeroStatus::pole) {
        fail(Msg::POLE);
    } else if (r.status == ZeroStatus::tolx_small) {
        x_out = r.v2;
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
    if (!(std::isfinite(a) && std::isfinite(b))) {
        return fail(Msg::END_NOT_FINITE, a, b);
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
