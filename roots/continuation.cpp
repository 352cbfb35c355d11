// Continuation method for a zero of f near x0 (C05AXF, C05AWF, C05AJF).
//
// The homotopy h(x, t) = f(x) - t f(x0) has the known solution x0 at t = 1;
// the method follows its solution curve to t = 0. Every point x it visits
// solves the homotopy exactly at t = f(x) / f(x0), so the curve parameter is
// read off the function value and never drifts. One continuation step aims
// at the target t' = t (1 - rho) with a secant (quasi-Newton) step
//     x' = x - (f(x) - t' f(x0)) / s = x - rho f(x) / s,
// s being the latest difference quotient of f (at first from x0 and x0 + SCAL).
// The step is accepted when the new t has fallen at least a tenth of the way
// to t', written with the values themselves (t underflows where f(x) / f(x0)
// does): abs(f(x')) <= (1 - rho/10) abs(f(x)), and abs(f(x')) < abs(f(x));
// then rho doubles (up to 1, which aims at the zero itself) and s takes the
// new difference quotient. Otherwise the step is rejected, s takes the
// difference quotient through the rejected point and rho halves. The path is
// left for the bracketing engine as soon as f changes sign between the
// current and the new point, which guarantees convergence from there on. The
// search ends successfully when an accepted step aimed at the zero would have
// been within the tolerance (abs(x' - x) / rho <= tol: the full secant step),
// and fails when rho falls below 2^-30, when a rejected step is within the
// tolerance (f has a local minimum of abs(f) there, not a zero), or after
// kMaxSteps values in the continuation phase. A step that would leave the
// finite numbers is shortened by halving rho.
//
// Layout of the communication array (Fortran numbering C(1) .. C(26)):
//   C(1)  .. C(10)  the bracketing engine's array, once a sign change is found
//   C(11) phase: 0 f(x0) wanted, 1 f(x0 + SCAL) wanted, 2 continuation, 3 bracketing
//   C(12) x0    C(13) f(x0)   C(14) SCAL
//   C(15) current point x     C(16) f(x)
//   C(17) difference quotient s        C(18) rho
//   C(19) the other end Y of the bracketing engine
//   C(20) the point requested in the continuation phase (X is not read)
//   C(21) the number of values taken in the continuation phase
//   C(22) .. C(26) unused
#include "roots/continuation.hpp"

#include <cmath>

#include "gen/roots.hpp"

namespace lbx::roots {
namespace {

constexpr int kPhase = 10, kX0 = 11, kF0 = 12, kScal = 13, kX = 14, kFx = 15, kS = 16, kRho = 17,
              kY = 18, kReq = 19, kSteps = 20;
constexpr double kRhoMin = 0x1p-30;
constexpr double kSufficient = 0.1;
// Values taken in the continuation phase before it gives up (IFAIL 2). An
// accepted step of a secant path divides abs(f) by about e, and the doubles
// span about 1450 such factors; 4096 leaves room for rejected steps.
constexpr double kMaxSteps = 4096.0;

double tolerance(double tol, int ir, double x)
{
    const double s1 = (ir == 1) ? 0.0 : 1.0;
    const double s2 = (ir == 2) ? 0.0 : 1.0;
    return tol * std::fmax(s1 * std::fabs(x), s2);
}

ContinuationReport failure(ContinuationStatus s, int& ind)
{
    ind = 0;
    ContinuationReport r;
    r.status = s;
    return r;
}

// Propose the next continuation point from the stored state. A step that
// would leave the finite numbers is shortened by halving rho; when rho falls
// below its minimum the continuation has failed.
ContinuationReport propose(double& x, double* c, int& ind)
{
    const double t = c[kFx] / c[kF0];
    // rho lies in [2^-30, 1]: at most 31 halvings.
    for (;;) {
        const double step = -c[kRho] * c[kFx] / c[kS];
        x = c[kX] + step;
        if (std::isfinite(x)) {
            c[kReq] = x;
            ind = 4;
            return {};
        }
        if (c[kRho] * 0.5 < kRhoMin) {
            x = c[kX];
            ContinuationReport r = failure(ContinuationStatus::no_progress, ind);
            r.v1 = t;
            r.v2 = x;
            return r;
        }
        c[kRho] *= 0.5;
    }
}

// Hand the bracket [xcur, xnew] to the bracketing engine.
ContinuationReport start_bracketing(double& x, double fx, double tol, int ir, double* c, int& ind)
{
    c[kPhase] = 3.0;
    c[0] = c[kFx];
    double y = c[kX];
    int eind = -1;
    zero_engine_step(x, y, fx, tol, ir, c, eind);
    c[kY] = y;
    if (eind == 0 || c[9] != 0.0) {
        // Converged at once (the engine asks only for its final check).
        ind = 0;
        return {};
    }
    ind = 4;
    return {};
}

ContinuationReport changed(int& ind)
{
    const int given = ind;
    ContinuationReport r = failure(ContinuationStatus::changed, ind);
    r.iv = given;
    return r;
}

ContinuationReport continue_bracketing(double& x, double fx, double tol, int ir, double* c,
                                       int& ind)
{
    if (c[9] != 0.0) {
        // This search never re-enters the engine once its bracket has converged.
        return changed(ind);
    }
    double y = c[kY];
    int eind = 4;
    const ZeroReport r = zero_engine_step(x, y, fx, tol, ir, c, eind);
    c[kY] = y;
    if (r.status == ZeroStatus::tolx_small && std::isfinite(r.v2) && std::isfinite(r.v3)) {
        // The bracket cannot shrink further at machine precision: its best
        // point is as good as the arithmetic allows.
        x = r.v2;
        ind = 0;
        return {};
    }
    if (r.status != ZeroStatus::ok) {
        return changed(ind);  // an engine state this search cannot have left
    }
    // Finished at an exact zero, or converged: the engine's final check is
    // not needed here.
    ind = (eind == 0 || c[9] != 0.0) ? 0 : 4;
    return {};
}

// Whether c holds a continuation phase this search can have left.
bool continuation_consistent(const double* c)
{
    for (int k : {kX0, kF0, kX, kFx, kS, kRho, kReq, kSteps}) {
        if (!std::isfinite(c[k])) {
            return false;
        }
    }
    return c[kF0] != 0.0 && c[kFx] != 0.0 && same_sign(c[kFx], c[kF0]) && c[kS] != 0.0 &&
           kRhoMin <= c[kRho] && c[kRho] <= 1.0 && 0.0 <= c[kSteps] && c[kSteps] < kMaxSteps;
}

ContinuationReport continuation_value(double& x, double fx, double tol, int ir, double* c, int& ind)
{
    if (!continuation_consistent(c)) {
        return changed(ind);
    }
    x = c[kReq];
    const double xcur = c[kX], fcur = c[kFx];
    if (fx == 0.0) {
        ind = 0;
        return {};
    }
    if (std::isfinite(fx) && !same_sign(fx, fcur)) {
        return start_bracketing(x, fx, tol, ir, c, ind);
    }
    const double t = fcur / c[kF0];
    const double rho = c[kRho];
    const double dx = x - xcur;
    const double q = (fx - fcur) / dx;
    const bool usable_q = std::isfinite(q) && q != 0.0;
    c[kSteps] += 1.0;
    if (std::isfinite(fx) && std::fabs(fx) <= (1.0 - kSufficient * rho) * std::fabs(fcur) &&
        std::fabs(fx) < std::fabs(fcur)) {
        // Accepted.
        c[kX] = x;
        c[kFx] = fx;
        if (usable_q) {
            c[kS] = q;
        }
        if (std::fabs(dx) / rho <= tolerance(tol, ir, x)) {
            ind = 0;
            return {};
        }
        if (c[kSteps] >= kMaxSteps) {
            ContinuationReport r = failure(ContinuationStatus::no_progress, ind);
            r.v1 = fx / c[kF0];
            r.v2 = x;
            return r;
        }
        c[kRho] = std::fmin(1.0, 2.0 * rho);
        return propose(x, c, ind);
    }
    // Rejected.
    if (std::fabs(dx) <= tolerance(tol, ir, xcur) || c[kRho] * 0.5 < kRhoMin ||
        c[kSteps] >= kMaxSteps) {
        x = xcur;
        ContinuationReport r = failure(ContinuationStatus::no_progress, ind);
        r.v1 = t;
        r.v2 = xcur;
        return r;
    }
    if (usable_q) {
        c[kS] = q;
    }
    c[kRho] *= 0.5;
    return propose(x, c, ind);
}

}  // namespace

ContinuationReport continuation_step(double& x, double fx, double tol, int ir, double scal,
                                     double* c, int& ind)
{
    // Re-checked on every entry, in this order.
    if (ind != -1 && (ind < 1 || ind > 4)) {
        const int given = ind;
        ContinuationReport r = failure(ContinuationStatus::ind_invalid, ind);
        r.iv = given;
        return r;
    }
    if (!(tol > 0.0)) {
        ContinuationReport r = failure(ContinuationStatus::tol_invalid, ind);
        r.v1 = tol;
        return r;
    }
    if (ir < 0 || ir > 2) {
        ContinuationReport r = failure(ContinuationStatus::ir_invalid, ind);
        r.iv = ir;
        return r;
    }
    if (ind == 1 || ind == -1) {
        // X, SCAL and X + SCAL finite (f is never asked for off the finite
        // numbers), and X + SCAL /= X.
        if (!(x + scal != x) || !std::isfinite(x + scal) || !std::isfinite(x)) {
            ContinuationReport r = failure(ContinuationStatus::scal_too_small, ind);
            r.v1 = x;
            r.v2 = scal;
            return r;
        }
        c[kX0] = c[kX] = c[kReq] = x;
        c[kScal] = scal;
        c[kPhase] = 0.0;
        if (ind == 1) {
            ind = 2;
            return {};
        }
        ind = 2;  // fx = f(x0) supplied
    }

    // The phase (read by comparison: a damaged array gives the IND error).
    const double ph = c[kPhase];
    const int phase = ph == 0.0 ? 0 : ph == 1.0 ? 1 : ph == 2.0 ? 2 : ph == 3.0 ? 3 : -1;
    if ((phase == 0 || phase == 1) &&
        !(std::isfinite(c[kX0]) && std::isfinite(c[kX0] + c[kScal]) && c[kScal] != 0.0)) {
        return changed(ind);
    }
    if (ind == 2 && phase == 0) {
        x = c[kX0];
        if (fx == 0.0) {
            ind = 0;
            return {};
        }
        c[kF0] = c[kFx] = fx;
        c[kPhase] = 1.0;
        x = c[kX0] + c[kScal];
        ind = 3;
        return {};
    }
    if (ind == 3 && phase == 1) {
        x = c[kX0] + c[kScal];
        if (fx == 0.0) {
            ind = 0;
            return {};
        }
        if (std::isfinite(fx) && !same_sign(fx, c[kF0])) {
            // A sign change between x0 and x0 + SCAL: bracket at once.
            return start_bracketing(x, fx, tol, ir, c, ind);
        }
        const double s = (fx - c[kF0]) / c[kScal];
        if (!std::isfinite(s) || s == 0.0) {
            x = c[kX0];
            ContinuationReport r = failure(ContinuationStatus::zero_derivative, ind);
            r.v1 = x;
            return r;
        }
        c[kS] = s;
        c[kRho] = 1.0;
        c[kSteps] = 0.0;
        c[kPhase] = 2.0;
        // Start from the better of the two points.
        if (std::fabs(fx) < std::fabs(c[kF0])) {
            c[kX] = x;
            c[kFx] = fx;
        }
        return propose(x, c, ind);
    }
    if (ind == 4 && phase == 2) {
        return continuation_value(x, fx, tol, ir, c, ind);
    }
    if (ind == 4 && phase == 3) {
        return continue_bracketing(x, fx, tol, ir, c, ind);
    }
    // IND valid in itself but not the one this state asked for.
    const int given = ind;
    ContinuationReport r = failure(ContinuationStatus::ind_invalid, ind);
    r.iv = given;
    return r;
}

void C05AXFN(double& x, double fx, double tol, int ir, double scal, double* c, int& ind,
             lbx::Fail& fail)
{
    const ContinuationReport r = continuation_step(x, fx, tol, ir, scal, c, ind);
    switch (r.status) {
        case ContinuationStatus::ok:
            return;
        case ContinuationStatus::ind_invalid:
            return fail(C05AXF_msg::IND_INVALID, r.iv);
        case ContinuationStatus::tol_invalid:
            return fail(C05AXF_msg::TOL_NOT_POSITIVE, r.v1);
        case ContinuationStatus::ir_invalid:
            return fail(C05AXF_msg::IR_INVALID, r.iv);
        case ContinuationStatus::scal_too_small:
            return fail(C05AXF_msg::SCAL_TOO_SMALL, r.v1, r.v2);
        case ContinuationStatus::no_progress:
            return fail(C05AXF_msg::NO_PROGRESS, r.v1, r.v2);
        case ContinuationStatus::zero_derivative:
            return fail(C05AXF_msg::ZERO_DERIVATIVE, r.v1);
        case ContinuationStatus::changed:
            return fail(C05AXF_msg::STATE_CHANGED, r.iv);
    }
}

void C05AWFN(double& x, double eps, double eta, const C05AWF_FProc& f, int nfmax, int* iuser,
             double* ruser, lbx::Fail& fail)
{
    auto eval = [&](double xx) { return f(xx, iuser, ruser); };
    continuation_solve<C05AWF_msg>(x, eps, eta, eval, nfmax, fail);
}

void C05AJFN(double& x, double eps, double eta, const C05AJF_FProc& f, int nfmax, lbx::Fail& fail)
{
    auto eval = [&](double xx) { return f(xx); };
    continuation_solve<C05AJF_msg>(x, eps, eta, eval, nfmax, fail);
}

}  // namespace lbx::roots
