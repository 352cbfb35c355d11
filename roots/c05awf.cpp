// C05AWF and its older interface C05AJF: zero of a continuous function near
// an initial estimate by a continuation method.
#include "gen/roots.hpp"
#include "roots/continuation_driver.hpp"

namespace lbx::roots {
namespace {

template <class Msg>
void report(const ContinuationDriverReport& r, lbx::Fail& fail)
{
    switch (r.status) {
        case ContinuationDriverStatus::ok:
            return;
        case ContinuationDriverStatus::eps_invalid:
            return fail(Msg::EPS_NOT_POSITIVE, r.v1);
        case ContinuationDriverStatus::nfmax_invalid:
            return fail(Msg::NFMAX_NOT_POSITIVE, r.iv);
        case ContinuationDriverStatus::too_many_calls:
            return fail(Msg::TOO_MANY_CALLS, r.iv);
        case ContinuationDriverStatus::no_progress:
            return fail(Msg::NO_PROGRESS, r.v1);
    }
}

}  // namespace

void C05AWFN(double& x, double eps, double eta, const C05AWF_FProc& f, int nfmax, int* iuser,
             double* ruser, lbx::Fail& fail)
{
    auto eval = [&](double xx) { return f(xx, iuser, ruser); };
    report<C05AWF_msg>(continuation_solve(x, eps, eta, eval, nfmax), fail);
}

void C05AJFN(double& x, double eps, double eta, const C05AJF_FProc& f, int nfmax, lbx::Fail& fail)
{
    auto eval = [&](double xx) { return f(xx); };
    report<C05AJF_msg>(continuation_solve(x, eps, eta, eval, nfmax), fail);
}

}  // namespace lbx::roots
