// D01AHF: the older interface, a function returning the integral to a
// relative accuracy EPSR within NLIMIT evaluations of F (10000 when NLIMIT <=
// 0). It is QAGS with EPSABS = 0, EPSREL = EPSR and LIMIT = (NLIMIT + 21)/42
// subintervals (the most that 42 LIMIT - 21 <= NLIMIT evaluations allow), on
// a workspace of its own.  LIMIT is at most 5000 subintervals (NLIMIT beyond
// 209979 evaluations gives no more): the lists are kept by insertion, so the
// work grows with the square of LIMIT.
#include <algorithm>
#include <cmath>
#include <memory>

#include "calculus/qags.hpp"
#include "gen/calculus.hpp"

namespace lbx::calculus {

namespace {

constexpr int default_nlimit = 10000;
constexpr long long max_limit = 5000;
constexpr int stack_limit = (default_nlimit + 21) / 42;

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
    // The default NLIMIT's 238 subintervals live on the stack (9.5 KB); a
    // larger LIMIT takes the heap.  QAGS writes each list entry before it
    // reads it, so neither is cleared: an integral that ends after one rule
    // application costs no more than its 21 evaluations and the scheme.
    double stack_w[4 * stack_limit];
    int stack_iord[stack_limit];
    std::unique_ptr<double[]> heap_w;
    std::unique_ptr<int[]> heap_iord;
    double* w = stack_w;
    int* iord = stack_iord;
    if (limit > stack_limit) {
        heap_w.reset(new double[4 * static_cast<std::size_t>(limit)]);
        heap_iord.reset(new int[static_cast<std::size_t>(limit)]);
        w = heap_w.get();
        iord = heap_iord.get();
    }
    const Subintervals s{w, w + limit, w + 2 * limit, w + 3 * limit, iord, limit};
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
