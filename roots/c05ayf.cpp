// C05AYF and its older interface C05ADF: zero of a continuous function in a
// given interval, direct communication over the bracketing engine.
#include "gen/roots.hpp"
#include "roots/bracket_driver.hpp"

namespace lbx::roots {
namespace {

// Turns a driver report into the routine's message (Msg is C05AYF_msg or C05ADF_msg).
template <class Msg>
void report(const DriverReport& r, lbx::Fail& fail)
{
    switch (r.status) {
        case DriverStatus::ok:
            return;
        case DriverStatus::eps_invalid:
            return fail(Msg::EPS_NOT_POSITIVE, r.v1);
        case DriverStatus::a_equals_b:
            return fail(Msg::A_EQUALS_B, r.v1, r.v2);
        case DriverStatus::same_sign:
            return fail(Msg::SAME_SIGN, r.v1, r.v2);
        case DriverStatus::eps_small:
            return fail(Msg::EPS_TOO_SMALL, r.v1);
        case DriverStatus::pole:
            return fail(Msg::POLE);
        case DriverStatus::engine_other:
            // Passed on unchanged: the error number is the engine's, with a
            // message code of none of the routine's messages, so the plain entry
            // reports "Unexpected error".
            return fail(lbx::Message<0>{r.engine_ifail, 0});
    }
}

}  // namespace

void C05AYFN(double a, double b, double eps, double eta, const C05AYF_FProc& f, double& x,
             int* iuser, double* ruser, lbx::Fail& fail)
{
    auto eval = [&](double xx) { return f(xx, iuser, ruser); };
    report<C05AYF_msg>(solve_interval(a, b, eps, eta, eval, x), fail);
}

void C05ADFN(double a, double b, double eps, double eta, const C05ADF_FProc& f, double& x,
             lbx::Fail& fail)
{
    auto eval = [&](double xx) { return f(xx); };
    report<C05ADF_msg>(solve_interval(a, b, eps, eta, eval, x), fail);
}

}  // namespace lbx::roots
