// QUADPACK's QAGP (DQAGPE): QAGS with user-given break points. The range is
// first cut at the sorted break points, each piece integrated by the
// 21-point rule; bisection then follows the QAGS scheme with levels of
// bisection in place of interval lengths to decide when to extrapolate. The
// published order of operations is kept.
#pragma once

#include <cmath>

#include "calculus/qags.hpp"

namespace lbx::calculus {

// The lists of QAGP: the four of Subintervals, the break points pts
// (npts2 = npts + 2 elements), the bisection level of each subinterval
// (limit elements) and the flags ndin (npts2 elements).
struct BreakPointLists {
    double* pts;
    int* level;
    int* ndin;
};

// points: the npts break points, each inside [min(a, b), max(a, b)] (the
// caller checks); limit >= npts + 1.
template <class F>
QagsOutcome qagp_core(F&& f, double a, double b, int npts, const double* points, double epsabs,
                      double epsrel, const Subintervals& s, const BreakPointLists& bp,
                      double& result, double& abserr)
{
    using quadpack::dmax;
    using quadpack::dmin;
    using quadpack::epmach;
    using quadpack::oflow;
    using quadpack::uflow;
    double* alist = s.alist - 1;
    double* blist = s.blist - 1;
    double* rlist = s.rlist - 1;
    double* elist = s.elist - 1;
    int* iord = s.iord - 1;
    double* pts = bp.pts - 1;
    int* level = bp.level - 1;
    int* ndin = bp.ndin - 1;
    const int limit = s.limit;
    const int npts2 = npts + 2;

    QagsOutcome out;
    int& ier = out.ier;
    int& last = out.last;
    result = 0.0;
    abserr = 0.0;
    alist[1] = a;
    blist[1] = b;
    rlist[1] = 0.0;
    elist[1] = 0.0;
    iord[1] = 0;
    level[1] = 0;

    // Sort the break points into an ascending sequence.
    const double sign = a > b ? -1.0 : 1.0;
    pts[1] = dmin(a, b);
    for (int i = 1; i <= npts; ++i) {
        pts[i + 1] = points[i - 1];
    }
    pts[npts + 2] = dmax(a, b);
    const int nint = npts + 1;
    double a1 = pts[1];
    if (npts != 0) {
        const int nintp1 = nint + 1;
        for (int i = 1; i <= nint; ++i) {
            for (int j = i + 1; j <= nintp1; ++j) {
                if (!(pts[i] <= pts[j])) {
                    const double temp = pts[i];
                    pts[i] = pts[j];
                    pts[j] = temp;
                }
            }
        }
    }

    // First approximations on the pieces.
    double resabs = 0.0;
    for (int i = 1; i <= nint; ++i) {
        const double b1 = pts[i + 1];
        double area1, error1, defabs, resa;
        D01AJZN(f, a1, b1, area1, error1, defabs, resa);
        abserr = abserr + error1;
        result = result + area1;
        ndin[i] = 0;
        if (error1 == resa && error1 != 0.0) {
            ndin[i] = 1;
        }
        resabs = resabs + defabs;
        level[i] = 0;
        elist[i] = error1;
        alist[i] = a1;
        blist[i] = b1;
        rlist[i] = area1;
        iord[i] = i;
        a1 = b1;
    }
    double errsum = 0.0;
    for (int i = 1; i <= nint; ++i) {
        if (ndin[i] == 1) {
            elist[i] = abserr;
        }
        errsum = errsum + elist[i];
    }
    last = nint;
    const double dres = std::fabs(result);
    double errbnd = dmax(epsabs, epsrel * dres);
    if (abserr <= 100.0 * epmach * resabs && abserr > errbnd) {
        ier = 2;
    }
    if (nint != 1) {
        for (int i = 1; i <= npts; ++i) {
            int ind1 = iord[i];
            int k = 0;
            for (int j = i + 1; j <= nint; ++j) {
                const int ind2 = iord[j];
                if (!(elist[ind1] > elist[ind2])) {
                    ind1 = ind2;
                    k = j;
                }
            }
            if (ind1 != iord[i]) {
                iord[k] = iord[i];
                iord[i] = ind1;
            }
        }
        if (limit < npts2) {
            ier = 1;
        }
    }
    if (ier != 0 || abserr <= errbnd) {
        result = result * sign;  // 210
        return out;
    }

    double rlist2[quadpack::epstab_length];
    double res3la[3];
    rlist2[0] = result;
    int maxerr = iord[1];
    double errmax = elist[maxerr];
    double area = result;
    int nrmax = 1;
    int nres = 0;
    int numrl2 = 1;
    int ktmin = 0;
    bool extrap = false;
    bool noext = false;
    double erlarg = errsum;
    double ertest = errbnd;
    int levmax = 1;
    int iroff1 = 0, iroff2 = 0, iroff3 = 0;
    int ierro = 0;
    abserr = oflow;
    int ksgn = -1;
    if (dres >= (1.0 - 50.0 * epmach) * resabs) {
        ksgn = 1;
    }
    double correc = 0.0;
    bool sum_lists = false;
    bool looped = false;

    for (last = npts2; last <= limit; ++last) {
        looped = true;
        const int levcur = level[maxerr] + 1;
        a1 = alist[maxerr];
        const double b1 = 0.5 * (alist[maxerr] + blist[maxerr]);
        const double a2 = b1;
        const double b2 = blist[maxerr];
        const double erlast = errmax;
        double area1, error1, area2, error2, resa, defab1, defab2;
        D01AJZN(f, a1, b1, area1, error1, resa, defab1);
        D01AJZN(f, a2, b2, area2, error2, resa, defab2);
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
        level[maxerr] = levcur;
        level[last] = levcur;
        rlist[maxerr] = area1;
        rlist[last] = area2;
        errbnd = dmax(epsabs, epsrel * std::fabs(area));
        if (iroff1 + iroff2 >= 10 || iroff3 >= 20) {
            ier = 2;
        }
        if (iroff2 >= 5) {
            ierro = 3;
        }
        if (last == limit) {
            ier = 1;
        }
        if (dmax(std::fabs(a1), std::fabs(b2)) <=
            (1.0 + 100.0 * epmach) * (std::fabs(a2) + 1000.0 * uflow)) {
            ier = 4;
            out.bad_left = a1;
            out.bad_right = b2;
        }
        store_halves(s, maxerr, last, a1, b1, a2, b2, area1, area2, error1, error2);
        order_by_error(s, last, maxerr, errmax, nrmax);
        if (errsum <= errbnd) {
            sum_lists = true;  // 190
            break;
        }
        if (ier != 0) {
            break;  // 170
        }
        if (noext) {
            continue;
        }
        erlarg = erlarg - erlast;
        if (levcur + 1 <= levmax) {
            erlarg = erlarg + erro12;
        }
        if (!extrap) {
            if (level[maxerr] + 1 <= levmax) {
                continue;
            }
            extrap = true;
            nrmax = 2;
        }
        if (ierro != 3 && erlarg > ertest) {
            const int id = nrmax;
            const int jupbnd = (last > 2 + limit / 2) ? limit + 3 - last : last;
            bool larger_left = false;
            for (int k = id; k <= jupbnd; ++k) {
                maxerr = iord[nrmax];
                errmax = elist[maxerr];
                if (level[maxerr] + 1 <= levmax) {
                    larger_left = true;
                    break;
                }
                nrmax = nrmax + 1;
            }
            if (larger_left) {
                continue;
            }
        }
        // 140: extrapolate.
        numrl2 = numrl2 + 1;
        rlist2[numrl2 - 1] = area;
        if (numrl2 > 2) {
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
                ertest = dmax(epsabs, epsrel * std::fabs(reseps));
                if (abserr < ertest) {
                    break;  // 170
                }
            }
            // 150
            if (numrl2 == 1) {
                noext = true;
            }
            if (ier >= 5) {
                break;  // 170
            }
        }
        // 155: prepare bisection of the smallest interval.
        maxerr = iord[1];
        errmax = elist[maxerr];
        nrmax = 1;
        extrap = false;
        levmax = levmax + 1;
        erlarg = errsum;
    }
    if (!looped || last > limit) {
        // No bisection allowed (LIMIT = 1, no break point, accuracy not
        // met): the published code sums one element beyond the list and
        // reports success; here the one piece is the result, IFAIL = 1.
        last = looped ? limit : nint;
        if (!looped) {
            ier = 1;
        }
    }

    // 170: the final result.
    bool divergence_test = false;
    if (!sum_lists) {
        if (abserr == oflow) {
            sum_lists = true;
        } else if (ier + ierro == 0) {
            divergence_test = true;
        } else {
            if (ierro == 3) {
                abserr = abserr + correc;
            }
            if (ier == 0) {
                ier = 3;
            }
            if (result != 0.0 && area != 0.0) {
                if (abserr / std::fabs(result) > errsum / std::fabs(area)) {
                    sum_lists = true;
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
        if (!(ksgn == -1 && dmax(std::fabs(result), std::fabs(area)) <= resabs * 0.01)) {
            if (0.01 > result / area || result / area > 100.0 || errsum > std::fabs(area)) {
                ier = 6;
            }
        }
    } else if (sum_lists) {
        result = 0.0;
        for (int k = 1; k <= last; ++k) {
            result = result + rlist[k];
        }
        abserr = errsum;
    }
    if (ier > 2) {
        ier = ier - 1;
    }
    result = result * sign;
    return out;
}

}  // namespace lbx::calculus
