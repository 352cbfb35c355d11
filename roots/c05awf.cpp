// C05AWF and its older interface C05AJF: zero of a continuous function near
// an initial estimate by a continuation method.
#include "gen/roots.hpp"
#include "roots/continuation_driver.hpp"

namespace lbx::roots {
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
