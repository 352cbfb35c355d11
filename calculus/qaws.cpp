// D01APF: QUADPACK's QAWS (DQAWSE) for the integral over [A, B] of
// f(x) w(x) with the end-point weight w(x) = (x - A)^ALFA (B - x)^BETA times
// 1, log(x - A), log(B - x) or log(x - A) log(B - x) (KEY = 1 to 4):
// globally adaptive bisection with the modified Clenshaw-Curtis rule of 25
// points on the two subintervals that touch an end (DQC25S, with the
// modified Chebyshev moments of DQMOMO) and the 15-point Gauss-Kronrod rule
// with the weight elsewhere (DQK15W). The published order of operations is
// kept.
#include <algorithm>
#include <cmath>

#include "calculus/qags.hpp"
#include "calculus/weighted.hpp"
#include "gen/calculus.hpp"

namespace lbx::calculus {

namespace {

// The modified Chebyshev moments of DQMOMO, 1-based as published (element 0
// unused): ri, rj of (1 + x)^alfa and (1 - x)^beta, rg, rh of the same times
// log(1 + x) and log(1 - x).
struct Moments {
    double ri[26], rj[26], rg[26], rh[26];
};

// The moments times the logarithm, rl[1..25], from the plain ones r (one end:
// r2 = 2^(p + 1), p1 = p + 1, p2 = p + 2 for its exponent p).
void log_moments(const double* r, double r2, double p1, double p2, double* rl)
{
    rl[1] = -r[1] / p1;
    rl[2] = -(r2 + r2) / (p2 * p2) - rl[1];
    double an = 2.0;
    double anm1 = 1.0;
    for (int i = 3; i <= 25; ++i) {
        rl[i] = -(an * (an - p2) * rl[i - 1] - an * r[i - 1] + anm1 * r[i]) / (anm1 * (an + p1));
        anm1 = an;
        an = an + 1.0;
    }
}

void modified_moments(double alfa, double beta, int integr, Moments& m)
{
    double* ri = m.ri;
    double* rj = m.rj;
    double* rg = m.rg;
    double* rh = m.rh;
    const double alfp1 = alfa + 1.0;
    const double betp1 = beta + 1.0;
    const double alfp2 = alfa + 2.0;
    const double betp2 = beta + 2.0;
    const double ralf = std::pow(2.0, alfp1);
    const double rbet = std::pow(2.0, betp1);
    ri[1] = ralf / alfp1;
    rj[1] = rbet / betp1;
    ri[2] = ri[1] * alfa / alfp2;
    rj[2] = rj[1] * beta / betp2;
    double an = 2.0;
    double anm1 = 1.0;
    for (int i = 3; i <= 25; ++i) {
        ri[i] = -(ralf + an * (an - alfp2) * ri[i - 1]) / (anm1 * (an + alfp1));
        rj[i] = -(rbet + an * (an - betp2) * rj[i - 1]) / (anm1 * (an + betp1));
        anm1 = an;
        an = an + 1.0;
    }
    if (integr == 2 || integr == 4)
        log_moments(ri, ralf, alfp1, alfp2, rg);
    if (integr == 3 || integr == 4) {
        log_moments(rj, rbet, betp1, betp2, rh);
        for (int i = 2; i <= 25; i += 2) {
            rh[i] = -rh[i];
        }
    }
    for (int i = 2; i <= 25; i += 2) {
        rj[i] = -rj[i];
    }
}

// The sums of DQC25S over the 13 and 25 Chebyshev coefficients with the
// moments mom: res12 and res24.
void moment_sums(const double* cheb12, const double* cheb24, const double* mom, double& res12,
                 double& res24)
{
    for (int i = 1; i <= 13; ++i) {
        res12 = res12 + cheb12[i - 1] * mom[i];
        res24 = res24 + cheb24[i - 1] * mom[i];
    }
    for (int i = 14; i <= 25; ++i) {
        res24 = res24 + cheb24[i - 1] * mom[i];
    }
}

// The sums of the published DQC25S with the log(x - a) moments rg for
// integr = 2 on a subinterval at a: its loop over the first 13 coefficients
// sets res24 from res12 at each step (res24 = res12 + cheb24(i) rg(i)), so
// only the last of those steps counts in res24. Kept, to give the published
// results (SciPy's compiled Fortran agrees only so); the other three sums
// with moments of a logarithm (integr 4 at a, integr 3 and 4 at b) are
// plain.
void log_moment_sums(const double* cheb12, const double* cheb24, const double* mom, double& res12,
                     double& res24)
{
    res12 = 0.0;
    res24 = 0.0;
    for (int i = 1; i <= 13; ++i) {
        res12 = res12 + cheb12[i - 1] * mom[i];
        res24 = res12 + cheb24[i - 1] * mom[i];
    }
    for (int i = 14; i <= 25; ++i) {
        res24 = res24 + cheb24[i - 1] * mom[i];
    }
}

// DQC25S: the integral of f w over [bl, br] inside [a, b]; nev evaluations.
template <class F>
void D01APZN(F&& f, double a, double b, double bl, double br, double alfa, double beta,
             const Moments& m, int integr, double& result, double& abserr, double& resasc, int& nev)
{
    nev = 25;
    double fval[25], cheb12[13], cheb24[25];
    const bool at_a = bl == a && (alfa != 0.0 || integr == 2 || integr == 4);
    const bool at_b = br == b && (beta != 0.0 || integr == 3 || integr == 4);
    if (!at_a && !at_b) {
        auto w = [=](double x) {
            const double xma = x - a;
            const double bmx = b - x;
            double v = std::pow(xma, alfa) * std::pow(bmx, beta);
            switch (integr) {
                case 2:
                    return v * std::log(xma);
                case 3:
                    return v * std::log(bmx);
                case 4:
                    return v * std::log(xma) * std::log(bmx);
                default:
                    return v;
            }
        };
        double resabs;
        kronrod15_weighted(f, w, bl, br, result, abserr, resabs, resasc);
        nev = 15;
        return;
    }
    const double hlgth = 0.5 * (br - bl);
    const double centr = 0.5 * (br + bl);
    double res12 = 0.0;
    double res24 = 0.0;
    result = 0.0;
    abserr = 0.0;
    double factor;
    if (at_a) {
        // The Chebyshev series of (b - x)^beta f(x) on [bl, br], times
        // log(b - x) for integr 3 and 4.
        const double fix = b - centr;
        fval[0] = 0.5 * f(hlgth + centr) * std::pow(fix - hlgth, beta);
        fval[12] = f(centr) * std::pow(fix, beta);
        fval[24] = 0.5 * f(centr - hlgth) * std::pow(fix + hlgth, beta);
        for (int i = 2; i <= 12; ++i) {
            const double u = hlgth * xcos[i - 2];
            const int isym = 26 - i;
            fval[i - 1] = f(u + centr) * std::pow(fix - u, beta);
            fval[isym - 1] = f(centr - u) * std::pow(fix + u, beta);
        }
        factor = std::pow(hlgth, alfa + 1.0);
        if (integr > 2) {
            fval[0] = fval[0] * std::log(fix - hlgth);
            fval[12] = fval[12] * std::log(fix);
            fval[24] = fval[24] * std::log(fix + hlgth);
            for (int i = 2; i <= 12; ++i) {
                const double u = hlgth * xcos[i - 2];
                const int isym = 26 - i;
                fval[i - 1] = fval[i - 1] * std::log(fix - u);
                fval[isym - 1] = fval[isym - 1] * std::log(fix + u);
            }
        }
        chebyshev_series(fval, cheb12, cheb24);
        moment_sums(cheb12, cheb24, m.ri, res12, res24);
        if (integr == 2 || integr == 4) {
            const double dc = std::log(br - bl);
            result = res24 * dc;
            abserr = std::fabs((res24 - res12) * dc);
            if (integr == 2) {
                log_moment_sums(cheb12, cheb24, m.rg, res12, res24);
            } else {
                res12 = 0.0;
                res24 = 0.0;
                moment_sums(cheb12, cheb24, m.rg, res12, res24);
            }
        }
    } else {
        // The Chebyshev series of (x - a)^alfa f(x) on [bl, br], times
        // log(x - a) for integr 2 and 4.
        const double fix = centr - a;
        fval[0] = 0.5 * f(hlgth + centr) * std::pow(fix + hlgth, alfa);
        fval[12] = f(centr) * std::pow(fix, alfa);
        fval[24] = 0.5 * f(centr - hlgth) * std::pow(fix - hlgth, alfa);
        for (int i = 2; i <= 12; ++i) {
            const double u = hlgth * xcos[i - 2];
            const int isym = 26 - i;
            fval[i - 1] = f(u + centr) * std::pow(fix + u, alfa);
            fval[isym - 1] = f(centr - u) * std::pow(fix - u, alfa);
        }
        factor = std::pow(hlgth, beta + 1.0);
        if (integr == 2 || integr == 4) {
            fval[0] = fval[0] * std::log(fix + hlgth);
            fval[12] = fval[12] * std::log(fix);
            fval[24] = fval[24] * std::log(fix - hlgth);
            for (int i = 2; i <= 12; ++i) {
                const double u = hlgth * xcos[i - 2];
                const int isym = 26 - i;
                fval[i - 1] = fval[i - 1] * std::log(u + fix);
                fval[isym - 1] = fval[isym - 1] * std::log(fix - u);
            }
        }
        chebyshev_series(fval, cheb12, cheb24);
        moment_sums(cheb12, cheb24, m.rj, res12, res24);
        if (integr == 3 || integr == 4) {
            const double dc = std::log(br - bl);
            result = res24 * dc;
            abserr = std::fabs((res24 - res12) * dc);
            res12 = 0.0;
            res24 = 0.0;
            moment_sums(cheb12, cheb24, m.rh, res12, res24);
        }
    }
    result = (result + res24) * factor;
    abserr = (abserr + std::fabs(res24 - res12)) * factor;
}

// DQAWSE on the caller's lists; limit >= 2, b > a.
template <class F>
QagsOutcome qaws_core(F&& f, double a, double b, double alfa, double beta, int integr,
                      double epsabs, double epsrel, const Subintervals& s, double& result,
                      double& abserr)
{
    using quadpack::dmax;
    using quadpack::epmach;
    using quadpack::uflow;
    double* alist = s.alist - 1;
    double* blist = s.blist - 1;
    double* rlist = s.rlist - 1;
    double* elist = s.elist - 1;
    int* iord = s.iord - 1;
    const int limit = s.limit;

    QagsOutcome out;
    int& ier = out.ier;
    int& last = out.last;
    Moments m;
    modified_moments(alfa, beta, integr, m);
    int nev;
    double area1, error1, resas1, area2, error2, resas2;
    const double centre = 0.5 * (b + a);
    D01APZN(f, a, b, a, centre, alfa, beta, m, integr, area1, error1, resas1, nev);
    D01APZN(f, a, b, centre, b, alfa, beta, m, integr, area2, error2, resas2, nev);
    last = 2;
    result = area1 + area2;
    abserr = error1 + error2;
    double errbnd = dmax(epsabs, epsrel * std::fabs(result));
    if (!(error2 > error1)) {
        alist[1] = a;
        alist[2] = centre;
        blist[1] = centre;
        blist[2] = b;
        rlist[1] = area1;
        rlist[2] = area2;
        elist[1] = error1;
        elist[2] = error2;
    } else {
        alist[1] = centre;
        alist[2] = a;
        blist[1] = b;
        blist[2] = centre;
        rlist[1] = area2;
        rlist[2] = area1;
        elist[1] = error2;
        elist[2] = error1;
    }
    iord[1] = 1;
    iord[2] = 2;
    if (limit == 2) {
        ier = 1;
    }
    if (abserr <= errbnd || ier == 1) {
        return out;
    }
    double errmax = elist[1];
    int maxerr = 1;
    int nrmax = 1;
    double area = result;
    double errsum = abserr;
    int iroff1 = 0, iroff2 = 0;
    for (last = 3; last <= limit; ++last) {
        const double a1 = alist[maxerr];
        const double b1 = 0.5 * (alist[maxerr] + blist[maxerr]);
        const double a2 = b1;
        const double b2 = blist[maxerr];
        D01APZN(f, a, b, a1, b1, alfa, beta, m, integr, area1, error1, resas1, nev);
        D01APZN(f, a, b, a2, b2, alfa, beta, m, integr, area2, error2, resas2, nev);
        const double area12 = area1 + area2;
        const double erro12 = error1 + error2;
        errsum = errsum + erro12 - errmax;
        area = area + area12 - rlist[maxerr];
        if (!(a == a1 || b == b2) && !(resas1 == error1 || resas2 == error2)) {
            if (std::fabs(rlist[maxerr] - area12) < 1.0e-5 * std::fabs(area12) &&
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
            if (last == limit) {
                ier = 1;
            }
            if (iroff1 >= 6 || iroff2 >= 20) {
                ier = 2;
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
            break;
        }
    }
    if (last > limit) {
        last = limit;
    }
    result = 0.0;
    for (int k = 1; k <= last; ++k) {
        result = result + rlist[k];
    }
    abserr = errsum;
    return out;
}

}  // namespace

void D01APFN(const D01APF_GProc& g, double a, double b, double alfa, double beta, int key,
             double epsabs, double epsrel, double& result, double& abserr, double* w, int lw,
             int* iw, int liw, int* iuser, double* ruser, lbx::Fail& fail)
{
    if (!(b > a)) {
        return fail(D01APF_msg::B_NOT_GREATER, a, b);
    }
    if (!(alfa > -1.0)) {
        return fail(D01APF_msg::ALFA_TOO_SMALL, alfa);
    }
    if (!(beta > -1.0)) {
        return fail(D01APF_msg::BETA_TOO_SMALL, beta);
    }
    if (key < 1 || key > 4) {
        return fail(D01APF_msg::KEY_INVALID, key);
    }
    if (lw < 8) {
        return fail(D01APF_msg::LW_TOO_SMALL, lw);
    }
    if (liw < 2) {
        return fail(D01APF_msg::LIW_TOO_SMALL, liw);
    }
    const int limit = std::min(lw / 4, liw);
    const Subintervals s{w, w + limit, w + 2 * limit, w + 3 * limit, iw, limit};
    auto eval = [&](double x) { return g(x, iuser, ruser); };
    const QagsOutcome o = qaws_core(eval, a, b, alfa, beta, key, std::fabs(epsabs),
                                    std::fabs(epsrel), s, result, abserr);
    if (o.last < limit) {
        compact_lists(w, limit, o.last);
    }
    iw[0] = o.last;
    switch (o.ier) {
        case 1:
            return fail(D01APF_msg::LIMIT_REACHED, limit, lw, liw);
        case 2:
            return fail(D01APF_msg::ROUND_OFF, epsabs, epsrel);
        case 3:
            return fail(D01APF_msg::BAD_INTEGRAND, o.bad_left, o.bad_right);
        default:
            return;
    }
}

}  // namespace lbx::calculus
