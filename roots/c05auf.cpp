// C05AUF and its older interface C05AGF: zero of a continuous function,
// searching outward from a starting point for a bracket, then solving on it.
#include "gen/roots.hpp"
#include "roots/search_driver.hpp"

namespace lbx::roots {
void C05AUFN(double& x, double h, double eps, double eta, const C05AUF_FProc& f, double& a,
             double& b, int* iuser, double* ruser, lbx::Fail& fail)
{
    auto eval = [&](double xx) { return f(xx, iuser, ruser); };
    search_and_solve<C05AUF_msg>(x, h, eps, eta, eval, a, b, fail);
}

void C05AGFN(double& x, double h, double eps, double eta, const C05AGF_FProc& f, double& a,
             double& b, lbx::Fail& fail)
{
    auto eval = [&](double xx) { return f(xx); };
    search_and_solve<C05AGF_msg>(x, h, eps, eta, eval, a, b, fail);
}

}  // namespace lbx::roots
