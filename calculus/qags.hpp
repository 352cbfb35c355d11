// QUADPACK's QAGS (DQAGSE): globally adaptive bisection on a finite interval
// with the 21-point Gauss-Kronrod rule, extrapolated by the epsilon algorithm.
// The order of operations is the published one, so that results agree with
// the Fortran bit for bit; the published statement labels are named where
// the control flow follows them.
#pragma once

#include <cmath>

#include "calculus/kronrod.hpp"
#include "calculus/quadpack.hpp"

namespace lbx::calculus {

// What the core ends with: the published indicator ier (0 to 5 after its
// final renumbering), LAST, and for ier = 3 the interval where the integrand
// misbehaves.
struct QagsOutcome {
    int ier = 0;
    int last = 0;
    double bad_left = 0.0, bad_right = 0.0;
};

// rule(f, a, b, result, abserr, resabs, resasc) applies the Kronrod rule:
// D01AJZN for D01AJF; for D01AMF the 15-point rule on the transformed range
// (0, 1), which makes the core QUADPACK's QAGI (DQAGIE).
template <class Rule, class F>
QagsOutcome qags_core(Rule&& rule, F&& f, double a, double b, double epsabs, double epsrel,
                      const Subintervals& s, double& result, double& abserr)
{
    using quadpack::epmach;
    using quadpack::oflow;
    using quadpack::uflow;
    double* alist = s.alist - 1;  // published 1-based indexing
    double* blist = s.blist - 1;
    double* rlist = s.rlist - 1;
    double* elist = s.elist - 1;
    const int* iord = s.iord - 1;
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

    // First approximation to the integral.
    int ierro = 0;
    double defabs, resabs;
    rule(f, a, b, result, abserr, defabs, resabs);
    const double dres = std::fabs(result);
    double errbnd = quadpack::dmax(epsabs, epsrel * dres);
    last = 1;
    rlist[1] = result;
    elist[1] = abserr;
    s.iord[0] = 1;
    if (abserr <= 100.0 * epmach * defabs && abserr > errbnd) {
        ier = 2;
    }
    if (limit == 1) {
        ier = 1;
    }
    if (ier != 0 || (abserr <= errbnd && abserr != resabs) || abserr == 0.0) {
        return out;  // 140
    }

    // Initialisation.
    double rlist2[quadpack::epstab_length];
    double res3la[3];
    rlist2[0] = result;
    double errmax = abserr;
    int maxerr = 1;
    double area = result;
    double errsum = abserr;
    abserr = oflow;
    int nrmax = 1;
    int nres = 0;
    int numrl2 = 2;
    int ktmin = 0;
    bool extrap = false;
    bool noext = false;
    int iroff1 = 0, iroff2 = 0, iroff3 = 0;
    int ksgn = -1;
    if (dres >= (1.0 - 50.0 * epmach) * defabs) {
        ksgn = 1;
    }
    double small = 0.0, erlarg = 0.0, ertest = 0.0, correc = 0.0;
    bool sum_lists = false;  // leave through 115: RESULT is the sum of the list

    for (last = 2; last <= limit; ++last) {
        // Bisect the subinterval with the nrmax-th largest error estimate.
        const double a1 = alist[maxerr];
        const double b1 = 0.5 * (alist[maxerr] + blist[maxerr]);
        const double a2 = b1;
        const double b2 = blist[maxerr];
        const double erlast = errmax;
        double area1, error1, area2, error2, defab1, defab2;
        rule(f, a1, b1, area1, error1, resabs, defab1);
        rule(f, a2, b2, area2, error2, resabs, defab2);

        // Improve the previous approximations and test for accuracy.
        const double area12 = area1 + area2;
        const double erro12 = error1 + error2;
        errsum = errsum + erro12 - errmax;
        area = area + area12 - rlist[maxerr];
        if (!(defab1 == error1 || defab2 == error2)) {
            if (!(std::fabs(rlist[maxerr] - area12) > 1.0e-5 * std::fabs(area12) ||
                  erro12 < 0.99 * errmax)) {
                if (extrap) {
                    iroff2 = iroff2 + 1;
                } else {
                    iroff1 = iroff1 + 1;
                }
            }
            if (last > 10 && erro12 > errmax) {
                iroff3 = iroff3 + 1;
            }
        }
        rlist[maxerr] = area1;
        rlist[last] = area2;
        errbnd = quadpack::dmax(epsabs, epsrel * std::fabs(area));

        // Round-off, the limit, and bad behaviour at a point of the range.
        if (iroff1 + iroff2 >= 10 || iroff3 >= 20) {
            ier = 2;
        }
        if (iroff2 >= 5) {
            ierro = 3;
        }
        if (last == limit) {
            ier = 1;
        }
        if (quadpack::dmax(std::fabs(a1), std::fabs(b2)) <=
            (1.0 + 100.0 * epmach) * (std::fabs(a2) + 1000.0 * uflow)) {
            ier = 4;
            out.bad_left = a1;
            out.bad_right = b2;
        }

        // Append the new intervals to the list.
        store_halves(s, maxerr, last, a1, b1, a2, b2, area1, area2, error1, error2);
        // Keep the descending order; select the interval to bisect next.
        order_by_error(s, last, maxerr, errmax, nrmax);
        if (errsum <= errbnd) {
            sum_lists = true;  // 115
            break;
        }
        if (ier != 0) {
            break;  // 100
        }
        if (last == 2) {  // 80
            small = std::fabs(b - a) * 0.375;
            erlarg = errsum;
            ertest = errbnd;
            rlist2[1] = area;
            continue;
        }
        if (noext) {
            continue;
        }
        erlarg = erlarg - erlast;
        if (std::fabs(b1 - a1) > small) {
            erlarg = erlarg + erro12;
        }
        if (!extrap) {
            // Is the interval to be bisected next the smallest one?
            if (std::fabs(blist[maxerr] - alist[maxerr]) > small) {
                continue;
            }
            extrap = true;
            nrmax = 2;
        }
        if (ierro != 3 && erlarg > ertest) {
            // The smallest interval has the largest error: before bisecting,
            // decrease erlarg and extrapolate.
            const int id = nrmax;
            const int jupbnd = (last > 2 + limit / 2) ? limit + 3 - last : last;
            bool larger_left = false;
            for (int k = id; k <= jupbnd; ++k) {
                maxerr = iord[nrmax];
                errmax = elist[maxerr];
                if (std::fabs(blist[maxerr] - alist[maxerr]) > small) {
                    larger_left = true;
                    break;
                }
                nrmax = nrmax + 1;
            }
            if (larger_left) {
                continue;  // 90
            }
        }
        // 60: extrapolate.
        numrl2 = numrl2 + 1;
        rlist2[numrl2 - 1] = area;
        double reseps, abseps;
        D01AJYN(numrl2, rlist2, reseps, abseps, res3la, nres);
        ktmin = ktmin + 1;
        if (ktmin > 5 && abserr < 1.0e-3 * errsum) {
            ier = 5;
        }
        if (abseps < abserr) {
            ktmin = 0;
            abserr = abseps;
            result = reseps;
            correc = erlarg;
            ertest = quadpack::dmax(epsabs, epsrel * std::fabs(reseps));
            if (abserr <= ertest) {
                break;  // 100
            }
        }
        // 70: prepare bisection of the smallest interval.
        if (numrl2 == 1) {
            noext = true;
        }
        if (ier == 5) {
            break;  // 100
        }
        maxerr = iord[1];
        errmax = elist[maxerr];
        nrmax = 1;
        extrap = false;
        small = small * 0.5;
        erlarg = errsum;
    }
    if (last > limit) {
        last = limit;  // the loop ran to its end
    }

    // 100: final result and error estimate.
    bool divergence_test = false;
    if (!sum_lists) {
        if (abserr == oflow) {
            sum_lists = true;
        } else if (ier + ierro == 0) {
            divergence_test = true;  // 110
        } else {
            if (ierro == 3) {
                abserr = abserr + correc;
            }
            if (ier == 0) {
                ier = 3;
            }
            if (result != 0.0 && area != 0.0) {
                if (abserr / std::fabs(result) > errsum / std::fabs(area)) {
                    sum_lists = true;  // 115
                } else {
                    divergence_test = true;
                }
            } else if (abserr > errsum) {
                sum_lists = true;
            } else if (area != 0.0) {
                divergence_test = true;
            }
        }
    }
    if (divergence_test) {
        // 110: test on divergence.
        if (!(ksgn == -1 && quadpack::dmax(std::fabs(result), std::fabs(area)) <= defabs * 0.01)) {
            if (0.01 > result / area || result / area > 100.0 || errsum > std::fabs(area)) {
                ier = 6;
            }
        }
    } else if (sum_lists) {
        // 115: the global sum.
        result = 0.0;
        for (int k = 1; k <= last; ++k) {
            result = result + rlist[k];
        }
        abserr = errsum;
    }
    // 130
    if (ier > 2) {
        ier = ier - 1;
    }
    return out;
}

}  // namespace lbx::calculus
