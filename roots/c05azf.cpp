// C05AZF: zero of a continuous function in a given interval, reverse communication.
#include "gen/roots.hpp"
#include "roots/zero_engine.hpp"

namespace lbx::roots {

void C05AZFN(double& x, double& y, double fx, double tolx, int ir, double* c, int& ind,
             lbx::Fail& fail)
{
    const ZeroReport r = zero_engine_step(x, y, fx, tolx, ir, c, ind);
    switch (r.status) {
        case ZeroStatus::ok:
            return;
        case ZeroStatus::same_sign:
            return fail(C05AZF_msg::SAME_SIGN, r.v1, r.v2);
        case ZeroStatus::ind_invalid:
            return fail(C05AZF_msg::IND_INVALID, r.iv);
        case ZeroStatus::tolx_invalid:
            return fail(C05AZF_msg::TOLX_NOT_POSITIVE, r.v1);
        case ZeroStatus::ir_invalid:
            return fail(C05AZF_msg::IR_INVALID, r.iv);
        case ZeroStatus::pole:
            return fail(C05AZF_msg::POLE);
        case ZeroStatus::tolx_small:
            return fail(C05AZF_msg::TOLX_TOO_SMALL, r.v1);
    }
}

}  // namespace lbx::roots
