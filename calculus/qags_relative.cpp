// D01AHF: the older interface, a function returning the integral to a
// relative accuracy EPSR within NLIMIT evaluations of F (10000 when NLIMIT <=
// 0). It is QAGS with EPSABS = 0, EPSREL = EPSR and LIMIT = (NLIMIT + 21)/42
// subintervals (the most that 42 LIMIT - 21 <= NLIMIT evaluations allow), on
// a workspace of its own.  LIMIT is at most 5000 subintervals (NLIMIT beyond
// 209979 evaluations gives no more): the lists are kept by insertion, so the
// work grows with the square of LIMIT.
#include <algorithm>
#include <cmath>
#include <vector>

#include "calculus/qags.hpp"
#include "gen/calculus.hpp"

namespace lbx::calculus {

namespace {

constexpr int default_nlimit = 10000;
constexpr long long max_limit = 5000;

}  // namespace

double D01AHFN(const D01AHF_FProc& f, double a, double b, double epsr, int& npts, double& relerr,
               int nlimit, int* iuser, double* ruser, lbx::Fail& fail)
{
    npts = 0;
    relerr = 0.0;
    if (!(epsr > 0.0)) {
        fail(D01AHF_msg::EPSR_NOT_POSITIVE, epsr);
        return 0.0;
    }
    if (nlimit > 0 && nlimit < 21) {
        fail(D01AHF_msg::NLIMIT_TOO_SMALL, nlimit);
        return 0.0;
    }
    const int evaluations = nlimit > 0 ? nlimit : default_nlimit;
    const int limit =
        static_cast<int>(std::min((static_cast<long long>(evaluations) + 21) / 42, max_limit));
    std::vector<double> w(4 * static_cast<std::size_t>(limit));
    std::vector<int> iord(static_cast<std::size_t>(limit));
    const Subintervals s{
        w.data(), w.data() + limit, w.data() + 2 * limit, w.data() + 3 * limit, iord.data(), limit};
    auto eval = [&](double x) { return f(x, iuser, ruser); };
    auto rule = [](auto& g, double lo, double hi, double& r, double& e, double& ra, double& rs) {
        D01AJZN(g, lo, hi, r, e, ra, rs);
    };
    double result = 0.0, abserr = 0.0;
    const QagsOutcome o = qags_core(rule, eval, a, b, 0.0, epsr, s, result, abserr);
    npts = 42 * o.last - 21;
    relerr = result != 0.0 ? abserr / std::fabs(result) : abserr;
    switch (o.ier) {
        case 1:
            fail(D01AHF_msg::NLIMIT_REACHED, evaluations);
            break;
        case 2:
        case 3:
        case 4:
            fail(D01AHF_msg::NOT_CONVERGED, epsr);
            break;
        case 5:
            fail(D01AHF_msg::DIVERGENT);
            break;
        default:
            break;
    }
    return result;
}

}  // namespace lbx::calculus
