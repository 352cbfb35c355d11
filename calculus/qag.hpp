// QUADPACK's QAG (DQAGE): globally adaptive bisection on a finite interval
// with one Gauss-Kronrod rule, no extrapolation. The published order of
// operations is kept, so results agree with the Fortran bit for bit.
#pragma once

#include <cmath>

#include "calculus/qags.hpp"

namespace lbx::calculus {

// rule(f, a, b, result, abserr, resabs, resasc) applies the Kronrod rule
// (D01AKZN for D01AKF). The outcome's ier is the published one (0 to 3).
template <class Rule, class F>
QagsOutcome qag_core(Rule&& rule, F&& f, double a, double b, double epsabs, double epsrel,
                     const Subintervals& s, double& result, double& abserr)
{
    using quadpack::dmax;
    using quadpack::epmach;
    using quadpack::uflow;
    double* alist = s.alist - 1;  // published 1-based indexing
    double* blist = s.blist - 1;
    double* rlist = s.rlist - 1;
    double* elist = s.elist - 1;
    const int limit = s.limit;

    QagsOutcome out;
    int& ier = out.ier;
    int& last = out.last;
    result = 0.0;
    abserr = 0.0;
    alist[1] = a;
    blist[1] = b;
    rlist[1] = 0.0;
    elist[1] = 0.0;

    double defabs, resabs;
    rule(f, a, b, result, abserr, defabs, resabs);
    last = 1;
    rlist[1] = result;
    elist[1] = abserr;
    s.iord[0] = 1;
    double errbnd = dmax(epsabs, epsrel * std::fabs(result));
    if (abserr <= 50.0 * epmach * defabs && abserr > errbnd) {
        ier = 2;
    }
    if (limit == 1) {
        ier = 1;
    }
    if (ier != 0 || (abserr <= errbnd && abserr != resabs) || abserr == 0.0) {
        return out;  // 60
    }

    double errmax = abserr;
    int maxerr = 1;
    double area = result;
    double errsum = abserr;
    int nrmax = 1;
    int iroff1 = 0, iroff2 = 0;
    for (last = 2; last <= limit; ++last) {
        const double a1 = alist[maxerr];
        const double b1 = 0.5 * (alist[maxerr] + blist[maxerr]);
        const double a2 = b1;
        const double b2 = blist[maxerr];
        double area1, error1, area2, error2, defab1, defab2;
        rule(f, a1, b1, area1, error1, resabs, defab1);
        rule(f, a2, b2, area2, error2, resabs, defab2);
        const double area12 = area1 + area2;
        const double erro12 = error1 + error2;
        errsum = errsum + erro12 - errmax;
        area = area + area12 - rlist[maxerr];
        if (!(defab1 == error1 || defab2 == error2)) {
            if (std::fabs(rlist[maxerr] - area12) <= 1.0e-5 * std::fabs(area12) &&
                erro12 >= 0.99 * errmax) {
                iroff1 = iroff1 + 1;
            }
            if (last > 10 && erro12 > errmax) {
                iroff2 = iroff2 + 1;
            }
        }
        rlist[maxerr] = area1;
        rlist[last] = area2;
        errbnd = dmax(epsabs, epsrel * std::fabs(area));
        if (!(errsum <= errbnd)) {
            if (iroff1 >= 6 || iroff2 >= 20) {
                ier = 2;
            }
            if (last == limit) {
                ier = 1;
            }
            if (dmax(std::fabs(a1), std::fabs(b2)) <=
                (1.0 + 100.0 * epmach) * (std::fabs(a2) + 1000.0 * uflow)) {
                ier = 3;
                out.bad_left = a1;
                out.bad_right = b2;
            }
        }
        store_halves(s, maxerr, last, a1, b1, a2, b2, area1, area2, error1, error2);
        order_by_error(s, last, maxerr, errmax, nrmax);
        if (ier != 0 || errsum <= errbnd) {
            break;  // 40
        }
    }
    if (last > limit) {
        last = limit;
    }
    // 40: the final result is the sum over the list.
    result = 0.0;
    for (int k = 1; k <= last; ++k) {
        result = result + rlist[k];
    }
    abserr = errsum;
    return out;
}

}  // namespace lbx::calculus
