// Continuation method for a zero near an initial estimate, shared by C05AXF
// and its direct drivers C05AWF and C05AJF. The state lives in the caller's
// array c (26 elements).
#pragma once

#include "roots/report.hpp"

namespace lbx::roots {

enum class ContinuationStatus {
    ok,               // intermediate return (ind != 0) or zero found (ind == 0)
    ind_invalid,      // iv = IND
    tol_invalid,      // v1 = TOL
    ir_invalid,       // iv = IR
    scal_too_small,   // v1 = X, v2 = SCAL
    no_progress,      // v1 = the homotopy parameter reached, v2 = X
    zero_derivative,  // v1 = X
};

using ContinuationReport = Report<ContinuationStatus>;

ContinuationReport continuation_step(double& x, double fx, double tol, int ir, double scal,
                                     double* c, int& ind);

}  // namespace lbx::roots
