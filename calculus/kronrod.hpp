// Gauss-Kronrod rules on one interval, QUADPACK's DQK21 (D01AJZN): the
// 21-point Kronrod rule with its embedded 10-point Gauss rule, the error
// estimate scaled as the published rule scales it.
#pragma once

#include <cmath>

#include "calculus/quadpack.hpp"

namespace lbx::calculus {

namespace kronrod21 {

// Nodes and weights on [-1, 1]: the published DQK21 tables (Piessens et al.,
// QUADPACK, 1983), as exact decimal literals; largest node first, centre last.
inline constexpr double xgk[11] = {
    0.995657163025808080735527280689003, 0.973906528517171720077964012084452,
    0.930157491355708226001207180059508, 0.865063366688984510732096688423493,
    0.780817726586416897063717578345042, 0.679409568299024406234327365114874,
    0.562757134668604683339000099272694, 0.433395394129247190799265943165784,
    0.294392862701460198131126603103866, 0.148874338981631210884826001129720,
    0.000000000000000000000000000000000};
inline constexpr double wgk[11] = {
    0.011694638867371874278064396062192, 0.032558162307964727478818972459390,
    0.054755896574351996031381300244580, 0.075039674810919952767043140916190,
    0.093125454583697605535065465083366, 0.109387158802297641899210590325805,
    0.123491976262065851077208980478695, 0.134709217311473325928054001771707,
    0.142775938577060080797094273138717, 0.147739104901338491374841515972068,
    0.149445554002916905664936468389821};
// The 10-point Gauss weights, of the nodes xgk[1], xgk[3], ..., xgk[9].
inline constexpr double wg[5] = {
    0.066671344308688137593568809893332, 0.149451349150580593145776339657697,
    0.219086362515982043995534934228163, 0.269266719309996355091226921569469,
    0.295524224714752870173892994651338};

}  // namespace kronrod21

// The published error estimate of a Kronrod rule: the Kronrod-Gauss
// difference scaled by min(1, (200 err / resasc)^1.5), bounded below by
// 50 epmach resabs (all four already multiplied by the half-length).
inline double kronrod_error(double err, double resabs, double resasc)
{
    if (resasc != 0.0 && err != 0.0) {
        err = resasc * quadpack::dmin(1.0, std::pow(200.0 * err / resasc, 1.5));
    }
    if (resabs > quadpack::uflow / (50.0 * quadpack::epmach)) {
        err = quadpack::dmax((quadpack::epmach * 50.0) * resabs, err);
    }
    return err;
}

// D01AJZN: the 21-point rule on [a, b]. f(x) returns the integrand; result,
// abserr, resabs (integral of abs(f)) and resasc (integral of abs(f - mean))
// as DQK21 returns them, in its order of operations.
template <class F>
void D01AJZN(F&& f, double a, double b, double& result, double& abserr, double& resabs,
             double& resasc)
{
    using namespace kronrod21;
    const double centr = 0.5 * (a + b);
    const double hlgth = 0.5 * (b - a);
    const double dhlgth = std::fabs(hlgth);
    double fv1[10], fv2[10];
    double resg = 0.0;
    const double fc = f(centr);
    double resk = wgk[10] * fc;
    double rabs = std::fabs(resk);
    for (int j = 0; j < 5; ++j) {  // the Gauss nodes
        const int jtw = 2 * j + 1;
        const double absc = hlgth * xgk[jtw];
        const double fval1 = f(centr - absc);
        const double fval2 = f(centr + absc);
        fv1[jtw] = fval1;
        fv2[jtw] = fval2;
        const double fsum = fval1 + fval2;
        resg = resg + wg[j] * fsum;
        resk = resk + wgk[jtw] * fsum;
        rabs = rabs + wgk[jtw] * (std::fabs(fval1) + std::fabs(fval2));
    }
    for (int j = 0; j < 5; ++j) {  // the Kronrod nodes
        const int jtwm1 = 2 * j;
        const double absc = hlgth * xgk[jtwm1];
        const double fval1 = f(centr - absc);
        const double fval2 = f(centr + absc);
        fv1[jtwm1] = fval1;
        fv2[jtwm1] = fval2;
        const double fsum = fval1 + fval2;
        resk = resk + wgk[jtwm1] * fsum;
        rabs = rabs + wgk[jtwm1] * (std::fabs(fval1) + std::fabs(fval2));
    }
    const double reskh = resk * 0.5;
    double rasc = wgk[10] * std::fabs(fc - reskh);
    for (int j = 0; j < 10; ++j) {
        rasc = rasc + wgk[j] * (std::fabs(fv1[j] - reskh) + std::fabs(fv2[j] - reskh));
    }
    result = resk * hlgth;
    resabs = rabs * dhlgth;
    resasc = rasc * dhlgth;
    abserr = kronrod_error(std::fabs((resk - resg) * hlgth), resabs, resasc);
}

}  // namespace lbx::calculus
