// C05AUF and its older interface C05AGF: zero of a continuous function,
// searching outward from a starting point for a bracket, then solving on it.
#include "gen/roots.hpp"
#include "roots/search_driver.hpp"

namespace lbx::roots {
namespace {

template <class Msg>
void report(const SearchDriverReport& r, lbx::Fail& fail)
{
    switch (r.status) {
        case SearchDriverStatus::ok:
            return;
        case SearchDriverStatus::eps_invalid:
            return fail(Msg::EPS_NOT_POSITIVE, r.v1);
        case SearchDriverStatus::h_too_small:
            return fail(Msg::H_TOO_SMALL, r.v1, r.v2);
        case SearchDriverStatus::no_sign_change:
            return fail(Msg::NO_SIGN_CHANGE, r.v1, r.v2);
        case SearchDriverStatus::eps_small:
            return fail(Msg::EPS_TOO_SMALL, r.v1);
        case SearchDriverStatus::pole:
            return fail(Msg::POLE);
        case SearchDriverStatus::engine_other:
            // Passed on unchanged (the plain entry reports "Unexpected error").
            return fail(lbx::Message<0>{r.engine_ifail, 0});
    }
}

}  // namespace

void C05AUFN(double& x, double h, double eps, double eta, const C05AUF_FProc& f, double& a,
             double& b, int* iuser, double* ruser, lbx::Fail& fail)
{
    auto eval = [&](double xx) { return f(xx, iuser, ruser); };
    report<C05AUF_msg>(search_and_solve(x, h, eps, eta, eval, a, b), fail);
}

void C05AGFN(double& x, double h, double eps, double eta, const C05AGF_FProc& f, double& a,
             double& b, lbx::Fail& fail)
{
    auto eval = [&](double xx) { return f(xx); };
    report<C05AGF_msg>(search_and_solve(x, h, eps, eta, eval, a, b), fail);
}

}  // namespace lbx::roots
