// C05AYF and its older interface C05ADF: zero of a continuous function in a
// given interval, direct communication over the bracketing engine.
#include "gen/roots.hpp"
#include "roots/bracket_driver.hpp"

namespace lbx::roots {
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
