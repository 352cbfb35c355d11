// C05AXF: zero of a continuous function near an initial estimate by a
// continuation method, reverse communication.
#include "gen/roots.hpp"
#include "roots/continuation_engine.hpp"

namespace lbx::roots {

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
    }
}

}  // namespace lbx::roots
