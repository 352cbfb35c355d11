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
#include "gen/calculus.hpp"

namespace lbx::calculus {

namespace {

// cos(k pi / 24), k = 1..11: the published DQC25C table.
constexpr double xcos[11] = {
    0.991444861373810411144557526928563, 0.965925826289068286749743199728897,
    0.923879532511286756128183189396788, 0.866025403784438646763723170752936,
    0.793353340291235164579776961501299, 0.707106781186547524400844362104849,
    0.608761429008720639416097542898164, 0.500000000000000000000000000000000,
    0.382683432365089771728459984030399, 0.258819045102520762348898837624048,
    0.130526192220051591548406227895489};

// DQCHEB: the Chebyshev series of degrees 12 and 24 of the function whose
// values at cos(k pi / 24), k = 0..24, are fval(1..25). 1-based as published;
// fval is overwritten.
void chebyshev_series(double* fval1, double* cheb12_1, double* cheb24_1)
{
    const double* x = xcos - 1;
    double* fval = fval1 - 1;
    double* cheb12 = cheb12_1 - 1;
    double* cheb24 = cheb24_1 - 1;
    double v[13];
    for (int i = 1; i <= 12; ++i) {
        const int j = 26 - i;
        v[i] = fval[i] - fval[j];
        fval[i] = fval[i] + fval[j];
    }
    double alam1 = v[1] - v[9];
    double alam2 = x[6] * (v[3] - v[7] - v[11]);
    cheb12[4] = alam1 + alam2;
    cheb12[10] = alam1 - alam2;
    alam1 = v[2] - v[8] - v[10];
    alam2 = v[4] - v[6] - v[12];
    double alam = x[3] * alam1 + x[9] * alam2;
    cheb24[4] = cheb12[4] + alam;
    cheb24[22] = cheb12[4] - alam;
    alam = x[9] * alam1 - x[3] * alam2;
    cheb24[10] = cheb12[10] + alam;
    cheb24[16] = cheb12[10] - alam;
    const double part1 = x[4] * v[5];
    const double part2 = x[8] * v[9];
    const double part3 = x[6] * v[7];
    alam1 = v[1] + part1 + part2;
    alam2 = x[2] * v[3] + part3 + x[10] * v[11];
    cheb12[2] = alam1 + alam2;
    cheb12[12] = alam1 - alam2;
    alam = x[1] * v[2] + x[3] * v[4] + x[5] * v[6] + x[7] * v[8] + x[9] * v[10] + x[11] * v[12];
    cheb24[2] = cheb12[2] + alam;
    cheb24[24] = cheb12[2] - alam;
    alam = x[11] * v[2] - x[9] * v[4] + x[7] * v[6] - x[5] * v[8] + x[3] * v[10] - x[1] * v[12];
    cheb24[12] = cheb12[12] + alam;
    cheb24[14] = cheb12[12] - alam;
    alam1 = v[1] - part1 + part2;
    alam2 = x[10] * v[3] - part3 + x[2] * v[11];
    cheb12[6] = alam1 + alam2;
    cheb12[8] = alam1 - alam2;
    alam = x[5] * v[2] - x[9] * v[4] - x[1] * v[6] - x[11] * v[8] + x[3] * v[10] + x[7] * v[12];
    cheb24[6] = cheb12[6] + alam;
    cheb24[20] = cheb12[6] - alam;
    alam = x[7] * v[2] - x[3] * v[4] - x[11] * v[6] + x[1] * v[8] - x[9] * v[10] - x[5] * v[12];
    cheb24[8] = cheb12[8] + alam;
    cheb24[18] = cheb12[8] - alam;
    for (int i = 1; i <= 6; ++i) {
        const int j = 14 - i;
        v[i] = fval[i] - fval[j];
        fval[i] = fval[i] + fval[j];
    }
    alam1 = v[1] + x[8] * v[5];
    alam2 = x[4] * v[3];
    cheb12[3] = alam1 + alam2;
    cheb12[11] = alam1 - alam2;
    cheb12[7] = v[1] - v[5];
    alam = x[2] * v[2] + x[6] * v[4] + x[10] * v[6];
    cheb24[3] = cheb12[3] + alam;
    cheb24[23] = cheb12[3] - alam;
    alam = x[6] * (v[2] - v[4] - v[6]);
    cheb24[7] = cheb12[7] + alam;
    cheb24[19] = cheb12[7] - alam;
    alam = x[10] * v[2] - x[6] * v[4] + x[2] * v[6];
    cheb24[11] = cheb12[11] + alam;
    cheb24[15] = cheb12[11] - alam;
    for (int i = 1; i <= 3; ++i) {
        const int j = 8 - i;
        v[i] = fval[i] - fval[j];
        fval[i] = fval[i] + fval[j];
    }
    cheb12[5] = v[1] + x[8] * v[3];
    cheb12[9] = fval[1] - x[8] * fval[3];
    alam = x[4] * v[2];
    cheb24[5] = cheb12[5] + alam;
    cheb24[21] = cheb12[5] - alam;
    alam = x[8] * fval[2] - fval[4];
    cheb24[9] = cheb12[9] + alam;
    cheb24[17] = cheb12[9] - alam;
    cheb12[1] = fval[1] + fval[3];
    alam = fval[2] + fval[4];
    cheb24[1] = cheb12[1] + alam;
    cheb24[25] = cheb12[1] - alam;
    cheb12[13] = v[1] - v[3];
    cheb24[13] = cheb12[13];
    alam = 1.0 / 6.0;
    for (int i = 2; i <= 12; ++i) {
        cheb12[i] = cheb12[i] * alam;
    }
    alam = 0.5 * alam;
    cheb12[1] = cheb12[1] * alam;
    cheb12[13] = cheb12[13] * alam;
    for (int i = 2; i <= 24; ++i) {
        cheb24[i] = cheb24[i] * alam;
    }
    cheb24[1] = 0.5 * alam * cheb24[1];
    cheb24[25] = 0.5 * alam * cheb24[25];
}

// The tables of the published DQK15W: the 15-point rule's, given there to 16
// significant digits only (so some of these doubles differ from kronrod15's).
constexpr double xgk[8] = {0.9914553711208126, 0.9491079123427585, 0.8648644233597691,
                           0.7415311855993944, 0.5860872354676911, 0.4058451513773972,
                           0.2077849550078985, 0.0000000000000000};
constexpr double wgk[8] = {0.02293532201052922, 0.06309209262997855, 0.1047900103222502,
                           0.1406532597155259,  0.1690047266392679,  0.1903505780647854,
                           0.2044329400752989,  0.2094821410847278};
constexpr double wg[8] = {0.0, 0.1294849661688697, 0.0, 0.2797053914892767,
                          0.0, 0.3818300505051189, 0.0, 0.4179591836734694};

// DQK15W with the weight 1/(x - c) (DQWGTC).
template <class F>
void kronrod15_cauchy(F&& f, double c, double a, double b, double& result, double& abserr,
                      double& resabs, double& resasc)
{
    auto w = [c](double x) { return 1.0 / (x - c); };
    const double centr = 0.5 * (a + b);
    const double hlgth = 0.5 * (b - a);
    const double dhlgth = std::fabs(hlgth);
    double fv1[7], fv2[7];
    const double fc = f(centr) * w(centr);
    double resg = wg[7] * fc;
    double resk = wgk[7] * fc;
    double rabs = std::fabs(resk);
    for (int j = 1; j <= 3; ++j) {
        const int jtw = 2 * j;  // 1-based as published: nodes xgk(2), xgk(4), xgk(6)
        const double absc = hlgth * xgk[jtw - 1];
        const double absc1 = centr - absc;
        const double absc2 = centr + absc;
        const double fval1 = f(absc1) * w(absc1);
        const double fval2 = f(absc2) * w(absc2);
        fv1[jtw - 1] = fval1;
        fv2[jtw - 1] = fval2;
        const double fsum = fval1 + fval2;
        resg = resg + wg[jtw - 1] * fsum;
        resk = resk + wgk[jtw - 1] * fsum;
        rabs = rabs + wgk[jtw - 1] * (std::fabs(fval1) + std::fabs(fval2));
    }
    for (int j = 1; j <= 4; ++j) {
        const int jtwm1 = 2 * j - 1;
        const double absc = hlgth * xgk[jtwm1 - 1];
        const double absc1 = centr - absc;
        const double absc2 = centr + absc;
        const double fval1 = f(absc1) * w(absc1);
        const double fval2 = f(absc2) * w(absc2);
        fv1[jtwm1 - 1] = fval1;
        fv2[jtwm1 - 1] = fval2;
        const double fsum = fval1 + fval2;
        resk = resk + wgk[jtwm1 - 1] * fsum;
        rabs = rabs + wgk[jtwm1 - 1] * (std::fabs(fval1) + std::fabs(fval2));
    }
    const double reskh = resk * 0.5;
    double rasc = wgk[7] * std::fabs(fc - reskh);
    for (int j = 0; j < 7; ++j) {
        rasc = rasc + wgk[j] * (std::fabs(fv1[j] - reskh) + std::fabs(fv2[j] - reskh));
    }
    result = resk * hlgth;
    resabs = rabs * dhlgth;
    resasc = rasc * dhlgth;
    abserr = kronrod_error(std::fabs((resk - resg) * hlgth), resabs, resasc);
}

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
        kronrod15_cauchy(f, c, a, b, result, abserr, resabs, resasc);
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
    double* alist = s.alist - 1;
    double* blist = s.blist - 1;
    double* rlist = s.rlist - 1;
    double* elist = s.elist - 1;
    auto eval = [&](double x) { return g(x, iuser, ruser); };

    int ier = 0;
    int last = 1;
    double bad_left = 0.0, bad_right = 0.0;
    const double aa = a <= b ? a : b;
    const double bb = a <= b ? b : a;
    int krule = 2, neval = 0;
    D01AQZN(eval, aa, bb, c, result, abserr, krule, neval);
    rlist[1] = result;
    elist[1] = abserr;
    s.iord[0] = 1;
    alist[1] = a;
    blist[1] = b;
    double errbnd = dmax(epsabs, epsrel * std::fabs(result));
    if (limit == 1) {
        ier = 1;
    }
    if (!(abserr < dmin(0.01 * std::fabs(result), errbnd) || ier == 1)) {
        alist[1] = aa;
        blist[1] = bb;
        rlist[1] = result;
        double errmax = abserr;
        int maxerr = 1;
        double area = result;
        double errsum = abserr;
        int nrmax = 1;
        int iroff1 = 0, iroff2 = 0;
        for (last = 2; last <= limit; ++last) {
            const double a1 = alist[maxerr];
            double b1 = 0.5 * (alist[maxerr] + blist[maxerr]);
            const double b2 = blist[maxerr];
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
            area = area + area12 - rlist[maxerr];
            if (std::fabs(rlist[maxerr] - area12) < 1.0e-5 * std::fabs(area12) &&
                erro12 >= 0.99 * errmax && krule == 0) {
                iroff1 = iroff1 + 1;
            }
            if (last > 10 && erro12 > errmax && krule == 0) {
                iroff2 = iroff2 + 1;
            }
            rlist[maxerr] = area1;
            rlist[last] = area2;
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
            if (!(error2 > error1)) {
                alist[last] = a2;
                blist[maxerr] = b1;
                blist[last] = b2;
                elist[maxerr] = error1;
                elist[last] = error2;
            } else {
                alist[maxerr] = a2;
                alist[last] = a1;
                blist[last] = b1;
                rlist[maxerr] = area2;
                rlist[last] = area1;
                elist[maxerr] = error2;
                elist[last] = error1;
            }
            order_by_error(s, last, maxerr, errmax, nrmax);
            if (ier != 0 || errsum <= errbnd) {
                break;
            }
        }
        last = std::min(last, limit);
        result = 0.0;
        for (int k = 1; k <= last; ++k) {
            result = result + rlist[k];
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
