// Brent's method: the routines. C05AZF (reverse communication), C05AYF and
// its older interface C05ADF (direct communication, a given interval).
#include "roots/brent.hpp"

#include "gen/roots.hpp"

namespace lbx::roots {

ZeroReport zero_engine_step(double& x, double& y, double fx, double tolx, int ir, double* c,
                            int& ind)
{
    return zero_engine_step_inline(x, y, fx, tolx, ir, c, ind);
}

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
        case ZeroStatus::not_finite:
            return fail(C05AZF_msg::POINT_NOT_FINITE, r.v1, r.v2);
        case ZeroStatus::changed:
            return fail(C05AZF_msg::STATE_CHANGED, r.iv);
    }
}

void C05AYFN(double a, double b, double eps, double eta, const C05AYF_FProc& f, double& x,
             int* iuser, double* ruser, lbx::Fail& fail)
{
    auto eval = [&](double xx) { return f(xx, iuser, ruser); };
    solve_interval<C05AYF_msg>(a, b, eps, eta, eval, x, fail);
}

void C05ADFN(double a, double b, double eps, double eta, const C05ADF_FProc& f, double& x,
             lbx::Fail& fail)
{
    auto eval = [&](double xx) { return f(xx); };
    solve_interval<C05ADF_msg>(a, b, eps, eta, eval, x, fail);
}

}  // namespace lbx::roots
