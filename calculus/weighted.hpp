// The pieces that QUADPACK's rules for weighted integrands share (QAWC,
// QAWS, QAWO): the Chebyshev series of the 25-point modified Clenshaw-Curtis
// rules (DQCHEB) and the 15-point Gauss-Kronrod rule with a weight (DQK15W).
#pragma once

#include <cmath>

#include "calculus/kronrod.hpp"

namespace lbx::calculus {

// cos(k pi / 24), k = 1..11: the published DQC25C table.
inline constexpr double xcos[11] = {
    0.991444861373810411144557526928563, 0.965925826289068286749743199728897,
    0.923879532511286756128183189396788, 0.866025403784438646763723170752936,
    0.793353340291235164579776961501299, 0.707106781186547524400844362104849,
    0.608761429008720639416097542898164, 0.500000000000000000000000000000000,
    0.382683432365089771728459984030399, 0.258819045102520762348898837624048,
    0.130526192220051591548406227895489};

// DQCHEB: the Chebyshev series of degrees 12 and 24 of the function whose
// values at cos(k pi / 24), k = 0..24, are fval(1..25). 1-based as published;
// fval is overwritten.
void chebyshev_series(double* fval1, double* cheb12_1, double* cheb24_1);

namespace kronrod15w {

// The tables of the published DQK15W: the 15-point rule's, given there to 16
// significant digits only (so some of these doubles differ from kronrod15's).
inline constexpr double xgk[8] = {0.9914553711208126, 0.9491079123427585, 0.8648644233597691,
                                  0.7415311855993944, 0.5860872354676911, 0.4058451513773972,
                                  0.2077849550078985, 0.0000000000000000};
inline constexpr double wgk[8] = {0.02293532201052922, 0.06309209262997855, 0.1047900103222502,
                                  0.1406532597155259,  0.1690047266392679,  0.1903505780647854,
                                  0.2044329400752989,  0.2094821410847278};
inline constexpr double wg[8] = {0.0, 0.1294849661688697, 0.0, 0.2797053914892767,
                                 0.0, 0.3818300505051189, 0.0, 0.4179591836734694};

}  // namespace kronrod15w

// DQK15W: the 15-point rule on [a, b] for f(x) w(x), w the weight of the
// caller (DQWGTC, DQWGTS, DQWGTF).
template <class F, class W>
void kronrod15_weighted(F&& f, W&& w, double a, double b, double& result, double& abserr,
                        double& resabs, double& resasc)
{
    using namespace kronrod15w;
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

}  // namespace lbx::calculus
