// Direct driver for C05AWF and C05AJF over the continuation engine: mixed
// error criterion (IR = 0) with TOL = EPS, difference step
// SCAL = sqrt(eps) * max(1, |X|), acceptance test abs(f) < ETA on every
// value, at most NFMAX calls of the user function.
#pragma once

#include <cmath>
#include <limits>

#include "frame/machine.hpp"
#include "roots/bracket_driver.hpp"
#include "roots/continuation_engine.hpp"

namespace lbx::roots {

enum class ContinuationDriverStatus {
    ok,
    eps_invalid,     // v1 = EPS
    nfmax_invalid,   // iv = NFMAX
    too_many_calls,  // iv = NFMAX
    no_progress,     // v1 = X
};

struct ContinuationDriverReport {
    ContinuationDriverStatus status = ContinuationDriverStatus::ok;
    double v1 = 0.0;
    int iv = 0;
};

// Difference step of the direct drivers.
inline double default_scal(double x)
{
    return std::sqrt(lbx::machine::eps) * std::fmax(1.0, std::fabs(x));
}

template <class Eval>
ContinuationDriverReport continuation_solve(double& x, double eps, double eta, Eval&& eval,
                                            int nfmax)
{
    ContinuationDriverReport out;
    if (!(eps > 0.0)) {
        out.status = ContinuationDriverStatus::eps_invalid;
        out.v1 = eps;
        return out;
    }
    if (nfmax <= 0) {
        out.status = ContinuationDriverStatus::nfmax_invalid;
        out.iv = nfmax;
        return out;
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
            out.status = ContinuationDriverStatus::too_many_calls;
            out.iv = nfmax;
            return out;
        }
        ++calls;
        fx = eval(x);
        if (accepted(fx, eta)) {
            return out;
        }
        if (std::fabs(fx) < fbest) {
            best = x;
            fbest = std::fabs(fx);
        }
        r = continuation_step(x, fx, eps, 0, scal, c, ind);
    }
    if (r.status != ContinuationStatus::ok) {
        // no_progress or zero_derivative: x is the point reached.
        out.status = ContinuationDriverStatus::no_progress;
        out.v1 = x;
    }
    return out;
}

}  // namespace lbx::roots
