// D01AQF: QUADPACK's QAWC (DQAWCE) for the Cauchy principal value of the
// integral of f(x)/(x - c) over [A, B]: globally adaptive bisection (the
// interval holding c is cut so that c is not an end) with the modified
// Clenshaw-Curtis rule of 25 points on the intervals near c (DQC25C with its
// Chebyshev series, DQCHEB) and the 15-point Gauss-Kronrod rule with the
// weight 1/(x - c) elsewhere (DQK15W). The published order of operations is
// kept.
#include <algorithm>
#include <cmath>

#include "calculus/kronrod.hpp"
#include "calculus/quadpack.hpp"
#include "calculus/weighted.hpp"
#include "gen/calculus.hpp"

namespace lbx::calculus {

namespace {

// DQC25C: the rule for f(x)/(x - c) on [a, b]; krul counts the 15-point
// applications down; neval is 15 or 25.
template <class F>
void D01AQZN(F&& f, double a, double b, double c, double& result, double& abserr, int& krul,
             int& neval)
{
    const double cc = (2.0 * c - b - a) / (b - a);
    if (!(std::fabs(cc) < 1.1)) {
        krul = krul - 1;
        double resabs, resasc;
        kronrod15_weighted(
            f, [c](double x) { return 1.0 / (x - c); }, a, b, result, abserr, resabs, resasc);
        neval = 15;
        if (resasc == abserr) {
            krul = krul + 1;
        }
        return;
    }
    const double hlgth = 0.5 * (b - a);
    const double centr = 0.5 * (b + a);
    neval = 25;
    double fval[25];
    fval[0] = 0.5 * f(hlgth + centr);
    fval[12] = f(centr);
    fval[24] = 0.5 * f(centr - hlgth);
    for (int i = 2; i <= 12; ++i) {
        const double u = hlgth * xcos[i - 2];
        const int isym = 26 - i;
        fval[i - 1] = f(u + centr);
        fval[isym - 1] = f(centr - u);
    }
    double cheb12[13], cheb24[25];
    chebyshev_series(fval, cheb12, cheb24);
    // Modified Chebyshev moments by forward recursion.
    double amom0 = std::log(std::fabs((1.0 - cc) / (1.0 + cc)));
    double amom1 = 2.0 + cc * amom0;
    double res12 = cheb12[0] * amom0 + cheb12[1] * amom1;
    double res24 = cheb24[0] * amom0 + cheb24[1] * amom1;
    for (int k = 3; k <= 25; ++k) {
        double amom2 = 2.0 * cc * amom1 - amom0;
        const double ak22 = (k - 2) * (k - 2);
        if (k % 2 == 0) {
            amom2 = amom2 - 4.0 / (ak22 - 1.0);
        }
        if (k <= 13) {
            res12 = res12 + cheb12[k - 1] * amom2;
        }
        res24 = res24 + cheb24[k - 1] * amom2;
        amom0 = amom1;
        amom1 = amom2;
    }
    result = res24;
    abserr = std::fabs(res24 - res12);
}

}  // namespace

void D01AQFN(const D01AQF_GProc& g, double a, double b, double c, double epsabs, double epsrel,
             double& result, double& abserr, double* w, int lw, int* iw, int liw, int* iuser,
             double* ruser, lbx::Fail& fail)
{
    if (c == a || c == b) {
        return fail(D01AQF_msg::C_AT_END, a, b, c);
    }
    if (lw < 4) {
        return fail(D01AQF_msg::LW_TOO_SMALL, lw);
    }
    if (liw < 1) {
        return fail(D01AQF_msg::LIW_TOO_SMALL, liw);
    }
    using quadpack::dmax;
    using quadpack::dmin;
    using quadpack::epmach;
    using quadpack::uflow;
    epsabs = std::fabs(epsabs);
    epsrel = std::fabs(epsrel);
    const int limit = std::min(lw / 4, liw);
    const Subintervals s{w, w + limit, w + 2 * limit, w + 3 * limit, iw, limit};
    // The published 1-based interval numbers (maxerr, last) index the lists
    // at [number - 1].
    double* alist = s.alist;
    double* blist = s.blist;
    double* rlist = s.rlist;
    double* elist = s.elist;
    auto eval = [&](double x) { return g(x, iuser, ruser); };

    int ier = 0;
    int last = 1;
    double bad_left = 0.0, bad_right = 0.0;
    const double aa = a <= b ? a : b;
    const double bb = a <= b ? b : a;
    int krule = 2, neval = 0;
    D01AQZN(eval, aa, bb, c, result, abserr, krule, neval);
    rlist[0] = result;
    elist[0] = abserr;
    s.iord[0] = 1;
    alist[0] = a;
    blist[0] = b;
    double errbnd = dmax(epsabs, epsrel * std::fabs(result));
    if (limit == 1) {
        ier = 1;
    }
    if (!(abserr < dmin(0.01 * std::fabs(result), errbnd) || ier == 1)) {
        alist[0] = aa;
        blist[0] = bb;
        rlist[0] = result;
        double errmax = abserr;
        int maxerr = 1;
        double area = result;
        double errsum = abserr;
        int nrmax = 1;
        int iroff1 = 0, iroff2 = 0;
        for (last = 2; last <= limit; ++last) {
            const double a1 = alist[maxerr - 1];
            double b1 = 0.5 * (alist[maxerr - 1] + blist[maxerr - 1]);
            const double b2 = blist[maxerr - 1];
            if (c <= b1 && c > a1) {
                b1 = 0.5 * (c + b2);
            }
            if (c > b1 && c < b2) {
                b1 = 0.5 * (a1 + c);
            }
            const double a2 = b1;
            krule = 2;
            double area1, error1, area2, error2;
            int nev = 0;
            D01AQZN(eval, a1, b1, c, area1, error1, krule, nev);
            D01AQZN(eval, a2, b2, c, area2, error2, krule, nev);
            const double area12 = area1 + area2;
            const double erro12 = error1 + error2;
            errsum = errsum + erro12 - errmax;
            area = area + area12 - rlist[maxerr - 1];
            if (std::fabs(rlist[maxerr - 1] - area12) < 1.0e-5 * std::fabs(area12) &&
                erro12 >= 0.99 * errmax && krule == 0) {
                iroff1 = iroff1 + 1;
            }
            if (last > 10 && erro12 > errmax && krule == 0) {
                iroff2 = iroff2 + 1;
            }
            rlist[maxerr - 1] = area1;
            rlist[last - 1] = area2;
            errbnd = dmax(epsabs, epsrel * std::fabs(area));
            if (!(errsum <= errbnd)) {
                if (iroff1 >= 6 && iroff2 > 20) {
                    ier = 2;
                }
                if (last == limit) {
                    ier = 1;
                }
                if (dmax(std::fabs(a1), std::fabs(b2)) <=
                    (1.0 + 100.0 * epmach) * (std::fabs(a2) + 1000.0 * uflow)) {
                    ier = 3;
                    bad_left = a1;
                    bad_right = b2;
                }
            }
            store_halves(s, maxerr, last, a1, b1, a2, b2, area1, area2, error1, error2);
            order_by_error(s, last, maxerr, errmax, nrmax);
            if (ier != 0 || errsum <= errbnd) {
                break;
            }
        }
        last = std::min(last, limit);
        result = 0.0;
        for (int k = 1; k <= last; ++k) {
            result = result + rlist[k - 1];
        }
        abserr = errsum;
    }
    if (aa == b) {
        result = -result;
    }
    if (last < limit) {
        compact_lists(w, limit, last);
    }
    iw[0] = last;
    switch (ier) {
        case 1:
            return fail(D01AQF_msg::LIMIT_REACHED, limit, lw, liw);
        case 2:
            return fail(D01AQF_msg::ROUND_OFF, epsabs, epsrel);
        case 3:
            return fail(D01AQF_msg::BAD_INTEGRAND, bad_left, bad_right);
        default:
            return;
    }
}

}  // namespace lbx::calculus
