// Gauss-Kronrod rules on one interval: QUADPACK's DQK21 (D01AJZN, the
// 21-point Kronrod rule with its embedded 10-point Gauss rule) and DQK61
// (D01AKZN, 61 points, 30-point Gauss rule), the error estimate scaled as
// the published rules scale it.
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

namespace kronrod61 {

// The published DQK61 tables (QUADPACK, 1983), as exact decimal literals;
// largest node first, centre last; wg: the 30-point Gauss weights of the
// nodes xgk[1], xgk[3], ..., xgk[29].
inline constexpr double xgk[31] = {
    0.999484410050490637571325895705811, 0.996893484074649540271630050918695,
    0.991630996870404594858628366109486, 0.983668123279747209970032581605663,
    0.973116322501126268374693868423707, 0.960021864968307512216871025581798,
    0.944374444748559979415831324037439, 0.926200047429274325879324277080474,
    0.905573307699907798546522558925958, 0.882560535792052681543116462530226,
    0.857205233546061098958658510658944, 0.829565762382768397442898119732502,
    0.799727835821839083013668942322683, 0.767777432104826194917977340974503,
    0.733790062453226804726171131369528, 0.697850494793315796932292388026640,
    0.660061064126626961370053668149271, 0.620526182989242861140477556431189,
    0.579345235826361691756024932172540, 0.536624148142019899264169793311073,
    0.492480467861778574993693061207709, 0.447033769538089176780609900322854,
    0.400401254830394392535476211542661, 0.352704725530878113471037207089374,
    0.304073202273625077372677107199257, 0.254636926167889846439805129817805,
    0.204525116682309891438957671002025, 0.153869913608583546963794672743256,
    0.102806937966737030147096751318001, 0.051471842555317695833025213166723,
    0.000000000000000000000000000000000};
inline constexpr double wgk[31] = {
    0.001389013698677007624551591226760, 0.003890461127099884051267201844516,
    0.006630703915931292173319826369750, 0.009273279659517763428441146892024,
    0.011823015253496341742232898853251, 0.014369729507045804812451432443580,
    0.016920889189053272627572289420322, 0.019414141193942381173408951050128,
    0.021828035821609192297167485738339, 0.024191162078080601365686370725232,
    0.026509954882333101610601709335075, 0.028754048765041292843978785354334,
    0.030907257562387762472884252943092, 0.032981447057483726031814191016854,
    0.034979338028060024137499670731468, 0.036882364651821229223911065617136,
    0.038678945624727592950348651532281, 0.040374538951535959111995279752468,
    0.041969810215164246147147541285970, 0.043452539701356069316831728117073,
    0.044814800133162663192355551616723, 0.046059238271006988116271735559374,
    0.047185546569299153945261478181099, 0.048185861757087129140779492298305,
    0.049055434555029778887528165367238, 0.049795683427074206357811569379942,
    0.050405921402782346840893085653585, 0.050881795898749606492297473049805,
    0.051221547849258772170656282604944, 0.051426128537459025933862879215781,
    0.051494729429451567558340433647099};
inline constexpr double wg[15] = {
    0.007968192496166605615465883474674, 0.018466468311090959142302131912047,
    0.028784707883323369349719179611292, 0.038799192569627049596801936446348,
    0.048402672830594052902938140422808, 0.057493156217619066481721689402056,
    0.065974229882180495128128515115962, 0.073755974737705206268243850022191,
    0.080755895229420215354694938460530, 0.086899787201082979802387530715126,
    0.092122522237786128717632707087619, 0.096368737174644259639468626351810,
    0.099593420586795267062780282103569, 0.101762389748405504596428952168554,
    0.102852652893558840341285636705415};

}  // namespace kronrod61

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

// A Gauss-Kronrod rule of 2 n + 1 points whose Gauss rule has n points (n
// even, no Gauss node at the centre), in the published DQK21/DQK61 order of
// operations: the centre, the n Gauss nodes in pairs, then the n + 1 Kronrod
// nodes in pairs. xgk and wgk hold n + 1 values (centre last), wg n / 2.
// result, abserr, resabs (integral of abs(f)) and resasc (integral of
// abs(f - mean)) as the published rules return them.
template <int N, class F>
void gauss_kronrod(F&& f, double a, double b, const double* xgk, const double* wgk,
                   const double* wg, double& result, double& abserr, double& resabs, double& resasc)
{
    const double centr = 0.5 * (a + b);
    const double hlgth = 0.5 * (b - a);
    const double dhlgth = std::fabs(hlgth);
    double fv1[N], fv2[N];
    double resg = 0.0;
    const double fc = f(centr);
    double resk = wgk[N] * fc;
    double rabs = std::fabs(resk);
    for (int j = 0; j < N / 2; ++j) {  // the Gauss nodes
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
    for (int j = 0; j < N / 2; ++j) {  // the Kronrod nodes
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
    double rasc = wgk[N] * std::fabs(fc - reskh);
    for (int j = 0; j < N; ++j) {
        rasc = rasc + wgk[j] * (std::fabs(fv1[j] - reskh) + std::fabs(fv2[j] - reskh));
    }
    result = resk * hlgth;
    resabs = rabs * dhlgth;
    resasc = rasc * dhlgth;
    abserr = kronrod_error(std::fabs((resk - resg) * hlgth), resabs, resasc);
}

// D01AJZN: the 21-point rule on [a, b] (DQK21).
template <class F>
void D01AJZN(F&& f, double a, double b, double& result, double& abserr, double& resabs,
             double& resasc)
{
    gauss_kronrod<10>(f, a, b, kronrod21::xgk, kronrod21::wgk, kronrod21::wg, result, abserr,
                      resabs, resasc);
}

// D01AKZN: the 61-point rule on [a, b] (DQK61). The published DQK61 takes
// the nodes at centr -+ abs(hlgth) xgk, which for b < a only exchanges the
// two calls of a pair: the sums, being sums of the pair, are the same.
template <class F>
void D01AKZN(F&& f, double a, double b, double& result, double& abserr, double& resabs,
             double& resasc)
{
    gauss_kronrod<30>(f, a, b, kronrod61::xgk, kronrod61::wgk, kronrod61::wg, result, abserr,
                      resabs, resasc);
}

}  // namespace lbx::calculus

namespace lbx::calculus {

namespace kronrod15 {

// The published DQK15I tables (QUADPACK, 1983): 15-point Kronrod nodes and
// weights, centre last; wg: the 7-point Gauss weights at the same positions
// (zero where the node is the Kronrod rule's own).
inline constexpr double xgk[8] = {
    0.991455371120812639206854697526329, 0.949107912342758524526189684047851,
    0.864864423359769072789712788640926, 0.741531185599394439863864773280788,
    0.586087235467691130294144845693013, 0.405845151377397166906606412076961,
    0.207784955007898467600689403773245, 0.000000000000000000000000000000000};
inline constexpr double wgk[8] = {
    0.022935322010529224963732008058970, 0.063092092629978553290700663189204,
    0.104790010322250183839876322541518, 0.140653259715525918745189590510238,
    0.169004726639267902826583426598550, 0.190350578064785409913256402421014,
    0.204432940075298892414161999234649, 0.209482141084727828012999174891714};
inline constexpr double wg[8] = {
    0.0, 0.129484966168869693270611432679082, 0.0, 0.279705391489276667901467771423780,
    0.0, 0.381830050505118944950369775488975, 0.0, 0.417959183673469387755102040816327};

}  // namespace kronrod15

// D01AMZN: the 15-point rule on [a, b] inside (0, 1) for an infinite range
// (DQK15I): x = boun + dinf (1 - t) / t maps (0, 1] onto [boun, infinity)
// (inf = 1) or (-infinity, boun] (inf = -1, dinf = -1); for inf = 2 the
// integrand is f(x) + f(-x) on [0, infinity). The integrand of t is
// f(x) / t^2, in the published order of operations.
template <class F>
void D01AMZN(F&& f, double boun, int inf, double a, double b, double& result, double& abserr,
             double& resabs, double& resasc)
{
    using namespace kronrod15;
    const double dinf = inf < 1 ? inf : 1;
    const double centr = 0.5 * (a + b);
    const double hlgth = 0.5 * (b - a);
    double fv1[7], fv2[7];
    const double tabsc0 = boun + dinf * (1.0 - centr) / centr;
    double fval0 = f(tabsc0);
    if (inf == 2) {
        fval0 = fval0 + f(-tabsc0);
    }
    const double fc = (fval0 / centr) / centr;
    double resg = wg[7] * fc;
    double resk = wgk[7] * fc;
    double rabs = std::fabs(resk);
    for (int j = 0; j < 7; ++j) {
        const double absc = hlgth * xgk[j];
        const double absc1 = centr - absc;
        const double absc2 = centr + absc;
        const double tabsc1 = boun + dinf * (1.0 - absc1) / absc1;
        const double tabsc2 = boun + dinf * (1.0 - absc2) / absc2;
        double fval1 = f(tabsc1);
        double fval2 = f(tabsc2);
        if (inf == 2) {
            fval1 = fval1 + f(-tabsc1);
            fval2 = fval2 + f(-tabsc2);
        }
        fval1 = (fval1 / absc1) / absc1;
        fval2 = (fval2 / absc2) / absc2;
        fv1[j] = fval1;
        fv2[j] = fval2;
        const double fsum = fval1 + fval2;
        resg = resg + wg[j] * fsum;
        resk = resk + wgk[j] * fsum;
        rabs = rabs + wgk[j] * (std::fabs(fval1) + std::fabs(fval2));
    }
    const double reskh = resk * 0.5;
    double rasc = wgk[7] * std::fabs(fc - reskh);
    for (int j = 0; j < 7; ++j) {
        rasc = rasc + wgk[j] * (std::fabs(fv1[j] - reskh) + std::fabs(fv2[j] - reskh));
    }
    result = resk * hlgth;
    resasc = rasc * hlgth;
    resabs = rabs * hlgth;
    abserr = kronrod_error(std::fabs((resk - resg) * hlgth), resabs, resasc);
}

}  // namespace lbx::calculus

namespace lbx::calculus {

// D01ATZN: the 21-point rule of D01AJZN with the integrand called once for
// all 21 nodes: fvec(x, fv, 21) fills fv(i) = f(x(i)). The nodes are
// computed as D01AJZN computes them and handed over in the order D01AJZN
// asks for them (centre, the Gauss pairs, the Kronrod pairs, each pair
// centre - absc first), and the sums are D01AJZN's: the results are those of
// D01AJZN on the same integrand, bit for bit.
template <class V>
void D01ATZN(V&& fvec, double a, double b, double& result, double& abserr, double& resabs,
             double& resasc)
{
    using namespace kronrod21;
    const double centr = 0.5 * (a + b);
    const double hlgth = 0.5 * (b - a);
    double x[21], fv[21];
    int n = 0;
    x[n++] = centr;
    for (int j = 0; j < 5; ++j) {
        const double absc = hlgth * xgk[2 * j + 1];
        x[n++] = centr - absc;
        x[n++] = centr + absc;
    }
    for (int j = 0; j < 5; ++j) {
        const double absc = hlgth * xgk[2 * j];
        x[n++] = centr - absc;
        x[n++] = centr + absc;
    }
    fvec(x, fv, 21);
    int next = 0;
    auto replay = [&](double) { return fv[next++]; };
    gauss_kronrod<10>(replay, a, b, xgk, wgk, wg, result, abserr, resabs, resasc);
}

}  // namespace lbx::calculus
