// Continuation method for a zero near an initial estimate: the reverse-
// communication engine (C05AXF; the state lives in the caller's array c,
// 26 elements) and the direct driver (C05AWF, C05AJF): mixed error criterion
// (IR = 0) with TOL = EPS, difference step SCAL = sqrt(eps) * max(1, |X|),
// acceptance test abs(f) < ETA on every value, at most NFMAX calls of the
// user function.
#pragma once

#include <cmath>
#include <limits>

#include "frame/fail.hpp"
#include "frame/machine.hpp"
#include "frame/report.hpp"
#include "roots/brent.hpp"

namespace lbx::roots {

// Outcome of one entry of the engine (the values C05AXF's messages quote).
enum class ContinuationStatus {
    ok,               // intermediate return (ind != 0) or zero found (ind == 0)
    ind_invalid,      // iv = IND
    tol_invalid,      // v1 = TOL
    ir_invalid,       // iv = IR
    scal_too_small,   // v1 = X, v2 = SCAL
    no_progress,      // v1 = the homotopy parameter reached, v2 = X
    zero_derivative,  // v1 = X
    changed,          // C not the array the last call left (iv = IND)
};

using ContinuationReport = Report<ContinuationStatus>;

// One entry of the continuation (see docs/roots-zero.md for IND and C).
ContinuationReport continuation_step(double& x, double fx, double tol, int ir, double scal,
                                     double* c, int& ind);

// Difference step of the direct drivers, towards the origin where X + SCAL
// would overflow.
inline double default_scal(double x)
{
    const double scal = std::sqrt(lbx::machine::eps) * std::fmax(1.0, std::fabs(x));
    return std::isfinite(x + scal) ? scal : -scal;
}

// The computation of C05AWF and C05AJF (Msg is C05AWF_msg or C05AJF_msg).
template <class Msg, class Eval>
void continuation_solve(double& x, double eps, double eta, Eval&& eval, int nfmax, lbx::Fail& fail)
{
    if (!(eps > 0.0)) {
        return fail(Msg::EPS_NOT_POSITIVE, eps);
    }
    if (nfmax <= 0) {
        return fail(Msg::NFMAX_NOT_POSITIVE, nfmax);
    }
    if (!std::isfinite(x)) {
        return fail(Msg::X_NOT_FINITE, x);
    }
    double c[26];
    int ind = 1;
    double fx = 0.0;
    double best = x;  // evaluated point of least abs(f)
    double fbest = std::numeric_limits<double>::infinity();
    const double scal = default_scal(x);
    ContinuationReport r = continuation_step(x, fx, eps, 0, scal, c, ind);
    int calls = 0;
    while (ind != 0) {
        if (calls == nfmax) {
            x = best;  // the evaluated point of least abs(f)
            return fail(Msg::TOO_MANY_CALLS, nfmax);
        }
        ++calls;
        fx = eval(x);
        if (accepted(fx, eta)) {
            return;
        }
        if (std::fabs(fx) < fbest) {
            best = x;
            fbest = std::fabs(fx);
        }
        r = continuation_step(x, fx, eps, 0, scal, c, ind);
    }
    if (r.status != ContinuationStatus::ok) {
        // The continuation stalled (no_progress or zero_derivative, or
        // scal_too_small for an infinite X): x is the point reached.
        fail(Msg::NO_PROGRESS, x);
    }
}

}  // namespace lbx::roots
