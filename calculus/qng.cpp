// D01BDF: QUADPACK's QNG (DQNG), non-adaptive: the 10-point Gauss rule and
// its successive Kronrod-Patterson extensions of 21, 43 and 87 points, each
// reusing the values of the last, until the error estimate meets the
// tolerance. The published order of operations is kept.
#include <algorithm>
#include <cmath>

#include "calculus/kronrod.hpp"
#include "gen/calculus.hpp"

namespace lbx::calculus {

namespace {

// The published DQNG tables (Piessens et al., QUADPACK, 1983; computed by
// L. W. Fullerton with 101 decimal digits), as exact decimal literals.
// x1: nodes of the 10-point rule, common to all four rules.
constexpr double x1[5] = {0.973906528517171720077964012084452, 0.865063366688984510732096688423493,
                          0.679409568299024406234327365114874, 0.433395394129247190799265943165784,
                          0.148874338981631210884826001129720};
constexpr double w10[5] = {0.066671344308688137593568809893332, 0.149451349150580593145776339657697,
                           0.219086362515982043995534934228163, 0.269266719309996355091226921569469,
                           0.295524224714752870173892994651338};
// x2: the nodes the 21-point rule adds.
constexpr double x2[5] = {0.995657163025808080735527280689003, 0.930157491355708226001207180059508,
                          0.780817726586416897063717578345042, 0.562757134668604683339000099272694,
                          0.294392862701460198131126603103866};
constexpr double w21a[5] = {
    0.032558162307964727478818972459390, 0.075039674810919952767043140916190,
    0.109387158802297641899210590325805, 0.134709217311473325928054001771707,
    0.147739104901338491374841515972068};
constexpr double w21b[6] = {
    0.011694638867371874278064396062192, 0.054755896574351996031381300244580,
    0.093125454583697605535065465083366, 0.123491976262065851077958109831074,
    0.142775938577060080797094273138717, 0.149445554002916905664936468389821};
// x3: the nodes the 43-point rule adds.
constexpr double x3[11] = {0.999333360901932081394099323919911, 0.987433402908088869795961478381209,
                           0.954807934814266299257919200290473, 0.900148695748328293625099494069092,
                           0.825198314983114150847066732588520, 0.732148388989304982612354848755461,
                           0.622847970537725238641159120344323, 0.499479574071056499952214885499755,
                           0.364901661346580768043989548502644, 0.222254919776601296498260928066212,
                           0.074650617461383322043914435796506};
constexpr double w43a[10] = {
    0.016296734289666564924281974617663, 0.037522876120869501461613795898115,
    0.054694902058255442147212685465005, 0.067355414609478086075553166302174,
    0.073870199632393953432140695251367, 0.005768556059769796184184327908655,
    0.027371890593248842081276069289151, 0.046560826910428830743339154433824,
    0.061744995201442564496240336030883, 0.071387267268693397768559114425516};
constexpr double w43b[12] = {
    0.001844477640212414100389106552965, 0.010798689585891651740465406741293,
    0.021895363867795428102523123075149, 0.032597463975345689443882222526137,
    0.042163137935191811847627924327955, 0.050741939600184577780189020092084,
    0.058379395542619248375475369330206, 0.064746404951445885544689259517511,
    0.069566197912356484528633315038405, 0.072824441471833208150939535192842,
    0.074507751014175118273571813842889, 0.074722147517403005594425168280423};
// x4: the nodes the 87-point rule adds.
constexpr double x4[22] = {
    0.999902977262729234490529830591582, 0.997989895986678745427496322365960,
    0.992175497860687222808523352251425, 0.981358163572712773571916941623894,
    0.965057623858384619128284110607926, 0.943167613133670596816416634507426,
    0.915806414685507209591826430720050, 0.883221657771316501372117548744163,
    0.845710748462415666605902011504855, 0.803557658035230982788739474980964,
    0.757005730685495558328942793432020, 0.706273209787321819824094274740840,
    0.651589466501177922534422205016736, 0.593223374057961088875273770349144,
    0.531493605970831932285268948562671, 0.466763623042022844871966781659270,
    0.399424847859218804732101665817923, 0.329874877106188288265053371824597,
    0.258503559202161551802280975429025, 0.185695396568346652015917141167606,
    0.111842213179907468172398359241362, 0.037352123394619870814998165437704};
constexpr double w87a[21] = {
    0.008148377384149172900002878448190, 0.018761438201562822243935059003794,
    0.027347451050052286161582829741283, 0.033677707311637930046581056957588,
    0.036935099820427907614589586742499, 0.002884872430211530501334156248695,
    0.013685946022712701888950035273128, 0.023280413502888311123409291030404,
    0.030872497611713358675466394126442, 0.035693633639418770719351355457044,
    0.000915283345202241360843392549948, 0.005399280219300471367738743391053,
    0.010947679601118931134327826856808, 0.016298731696787335262665703223280,
    0.021081568889203835112433060188190, 0.025370969769253827243467999831710,
    0.029189697756475752501446154084920, 0.032373202467202789685788194889595,
    0.034783098950365142750781997949596, 0.036412220731351787562801163687577,
    0.037253875503047708539592001191226};
constexpr double w87b[23] = {
    0.000274145563762072350016527092881, 0.001807124155057942948341311753254,
    0.004096869282759164864458070683480, 0.006758290051847378699816577897424,
    0.009549957672201646536053581325377, 0.012329447652244853694626639963780,
    0.015010447346388952376697286041943, 0.017548967986243191099665352925900,
    0.019938037786440888202278192730714, 0.022194935961012286796332102959499,
    0.024339147126000805470360647041454, 0.026374505414839207241503786552615,
    0.028286910788771200659968002987960, 0.030052581128092695322521110347341,
    0.031646751371439929404586051078883, 0.033050413419978503290785944862689,
    0.034255099704226061787082821046821, 0.035262412660156681033782717998428,
    0.036076989622888701185500318003895, 0.036698604498456094498018047441094,
    0.037120549269832576114119958413599, 0.037334228751935040321235449094698,
    0.037361073762679023410321241766599};

// One application of the rule sequence; returns false when even the
// 87-point rule does not meet the tolerance.
template <class F>
bool qng(F&& f, double a, double b, double epsabs, double epsrel, double& result, double& abserr)
{
    const double hlgth = 0.5 * (b - a);
    const double dhlgth = std::fabs(hlgth);
    const double centr = 0.5 * (b + a);
    const double fcentr = f(centr);
    double savfun[21], fv1[5], fv2[5], fv3[5], fv4[5];
    auto converged = [&](double err, double resabs, double resasc) {
        abserr = kronrod_error(err, resabs, resasc);
        return abserr <= quadpack::dmax(epsabs, epsrel * std::fabs(result));
    };

    // The 10- and 21-point rules.
    double res10 = 0.0;
    double res21 = w21b[5] * fcentr;
    double resabs = w21b[5] * std::fabs(fcentr);
    for (int k = 0; k < 5; ++k) {
        const double absc = hlgth * x1[k];
        const double fval1 = f(centr + absc);
        const double fval2 = f(centr - absc);
        const double fval = fval1 + fval2;
        res10 = res10 + w10[k] * fval;
        res21 = res21 + w21a[k] * fval;
        resabs = resabs + w21a[k] * (std::fabs(fval1) + std::fabs(fval2));
        savfun[k] = fval;
        fv1[k] = fval1;
        fv2[k] = fval2;
    }
    for (int k = 0; k < 5; ++k) {
        const double absc = hlgth * x2[k];
        const double fval1 = f(centr + absc);
        const double fval2 = f(centr - absc);
        const double fval = fval1 + fval2;
        res21 = res21 + w21b[k] * fval;
        resabs = resabs + w21b[k] * (std::fabs(fval1) + std::fabs(fval2));
        savfun[5 + k] = fval;
        fv3[k] = fval1;
        fv4[k] = fval2;
    }
    result = res21 * hlgth;
    resabs = resabs * dhlgth;
    const double reskh = 0.5 * res21;
    double resasc = w21b[5] * std::fabs(fcentr - reskh);
    for (int k = 0; k < 5; ++k) {
        resasc = resasc + w21a[k] * (std::fabs(fv1[k] - reskh) + std::fabs(fv2[k] - reskh)) +
                 w21b[k] * (std::fabs(fv3[k] - reskh) + std::fabs(fv4[k] - reskh));
    }
    resasc = resasc * dhlgth;
    if (converged(std::fabs((res21 - res10) * hlgth), resabs, resasc)) {
        return true;
    }

    // The 43-point rule.
    double res43 = w43b[11] * fcentr;
    for (int k = 0; k < 10; ++k) {
        res43 = res43 + savfun[k] * w43a[k];
    }
    for (int k = 0; k < 11; ++k) {
        const double absc = hlgth * x3[k];
        const double fval = f(absc + centr) + f(centr - absc);
        res43 = res43 + fval * w43b[k];
        savfun[10 + k] = fval;
    }
    result = res43 * hlgth;
    if (converged(std::fabs((res43 - res21) * hlgth), resabs, resasc)) {
        return true;
    }

    // The 87-point rule.
    double res87 = w87b[22] * fcentr;
    for (int k = 0; k < 21; ++k) {
        res87 = res87 + savfun[k] * w87a[k];
    }
    for (int k = 0; k < 22; ++k) {
        const double absc = hlgth * x4[k];
        res87 = res87 + w87b[k] * (f(absc + centr) + f(centr - absc));
    }
    result = res87 * hlgth;
    return converged(std::fabs((res87 - res43) * hlgth), resabs, resasc);
}

}  // namespace

void D01BDFN(const D01BDF_FProc& f, double a, double b, double epsabs, double epsrel,
             double& result, double& abserr, int* iuser, double* ruser, lbx::Fail& fail)
{
    auto eval = [&](double x) { return f(x, iuser, ruser); };
    if (!qng(eval, a, b, std::fabs(epsabs), std::fabs(epsrel), result, abserr)) {
        fail(D01BDF_msg::ACCURACY_NOT_REACHED, epsabs, epsrel);
    }
}

}  // namespace lbx::calculus

namespace lbx::calculus {

namespace {

// D01ARF's rules: the 10-point Gauss rule and its extensions of 21, 43 and 87
// points (QNG's tables), as nodes t in [-1, 1] with their weights, the
// centre first, then the pairs +-t in the order of the tables.
struct SequenceRule {
    int n = 0;
    double t[87], w[87];
    void pair(double x, double wt)
    {
        t[n] = x;
        w[n++] = wt;
        t[n] = -x;
        w[n++] = wt;
    }
};

SequenceRule sequence_rule(int rule)
{
    SequenceRule r;
    switch (rule) {
        case 1:
            for (int k = 0; k < 5; ++k)
                r.pair(x1[k], w10[k]);
            break;
        case 2:
            r.t[r.n] = 0.0;
            r.w[r.n++] = w21b[5];
            for (int k = 0; k < 5; ++k)
                r.pair(x1[k], w21a[k]);
            for (int k = 0; k < 5; ++k)
                r.pair(x2[k], w21b[k]);
            break;
        case 3:
            r.t[r.n] = 0.0;
            r.w[r.n++] = w43b[11];
            for (int k = 0; k < 5; ++k)
                r.pair(x1[k], w43a[k]);
            for (int k = 0; k < 5; ++k)
                r.pair(x2[k], w43a[5 + k]);
            for (int k = 0; k < 11; ++k)
                r.pair(x3[k], w43b[k]);
            break;
        default:
            r.t[r.n] = 0.0;
            r.w[r.n++] = w87b[22];
            for (int k = 0; k < 5; ++k)
                r.pair(x1[k], w87a[k]);
            for (int k = 0; k < 5; ++k)
                r.pair(x2[k], w87a[5 + k]);
            for (int k = 0; k < 11; ++k)
                r.pair(x3[k], w87a[10 + k]);
            for (int k = 0; k < 22; ++k)
                r.pair(x4[k], w87b[k]);
            break;
    }
    return r;
}

// The Legendre polynomials P_0..P_m at t (p has m + 1 elements).
void legendre(double t, int m, double* p)
{
    p[0] = 1.0;
    if (m >= 1)
        p[1] = t;
    for (int k = 1; k < m; ++k)
        p[k + 1] = ((2 * k + 1) * t * p[k] - k * p[k - 1]) / (k + 1);
}

// The layout of D01ARF's ALPHA: the interval, the error estimate, the
// number of coefficients and the Legendre coefficients of f on the interval.
constexpr int alpha_coefficients = 4;
constexpr int alpha_length = 48;

}  // namespace

// D01ARF: the rule sequence of D01BDF (10, 21, 43 and 87 points, each
// reusing the values of the last) with a plain error estimate, the
// difference of the last two rules, and an indefinite-integration mode:
// IPARM = 1 keeps the Legendre expansion of f on [A, B] computed with the
// last rule in ALPHA; IPARM = 2 integrates that expansion over [A, B] inside
// the first interval without calling F.
void D01ARFN(const D01ARF_FProc& f, double a, double b, double relacc, double absacc, int maxrul,
             int iparm, double& acc, double& ans, int& n, double* alpha, int* iuser, double* ruser,
             lbx::Fail& fail)
{
    acc = 0.0;
    ans = 0.0;
    n = 0;
    if (iparm < 0 || iparm > 2) {
        return fail(D01ARF_msg::IPARM_INVALID, iparm);
    }
    if (iparm == 2) {
        const double a0 = alpha[0], b0 = alpha[1];
        const double count = alpha[3];
        if (!(count == 5.0 || count == 11.0 || count == 22.0 || count == 44.0) || !(a0 != b0) ||
            !std::isfinite(a0) || !std::isfinite(b0)) {
            return fail(D01ARF_msg::NO_EXPANSION);
        }
        const int m = static_cast<int>(count);
        const double lo = std::min(a0, b0), hi = std::max(a0, b0);
        if (!(a >= lo && a <= hi && b >= lo && b <= hi)) {
            return fail(D01ARF_msg::OUTSIDE_EXPANSION, a, b, a0, b0);
        }
        // t in [-1, 1] of x in [a0, b0]; the integral of P_k from t1 to t2 is
        // (P_(k+1) - P_(k-1)) / (2k + 1) between them (k >= 1), t2 - t1 for k = 0.
        const double t1 = (2.0 * a - a0 - b0) / (b0 - a0);
        const double t2 = (2.0 * b - a0 - b0) / (b0 - a0);
        double p1[46], p2[46];
        legendre(t1, m, p1);
        legendre(t2, m, p2);
        double sum = alpha[alpha_coefficients] * (t2 - t1);
        for (int k = 1; k < m; ++k) {
            sum += alpha[alpha_coefficients + k] *
                   ((p2[k + 1] - p2[k - 1]) - (p1[k + 1] - p1[k - 1])) / (2 * k + 1);
        }
        ans = 0.5 * (b0 - a0) * sum;
        // The first call's error, in proportion to the length, and the two
        // last terms of the series as the size of the terms left out.
        const double tail = std::fabs(alpha[alpha_coefficients + m - 2]) +
                            std::fabs(alpha[alpha_coefficients + m - 1]);
        acc = alpha[2] * std::fabs(b - a) / std::fabs(b0 - a0) +
              0.5 * std::fabs(b0 - a0) * tail * std::fabs(t2 - t1);
        return;
    }
    if (maxrul <= 0 || maxrul > 4) {
        maxrul = 4;
    }
    const double tol_abs = std::fabs(absacc), tol_rel = std::fabs(relacc);
    const double hlgth = 0.5 * (b - a);
    const double centr = 0.5 * (b + a);
    // The values at the nodes of the 87-point rule, asked for rule by rule
    // (each rule's nodes extend the last's); 87-point rule order.
    const SequenceRule full = sequence_rule(4);
    double fval[87];
    bool have[87] = {};
    auto value = [&](double t) {
        for (int i = 0; i < full.n; ++i) {
            if (full.t[i] == t) {
                if (!have[i]) {
                    fval[i] = f(centr + hlgth * t, iuser, ruser);
                    have[i] = true;
                    ++n;
                }
                return fval[i];
            }
        }
        return 0.0;  // not reached: every node is one of the 87
    };
    double previous = 0.0;
    int rule = 1;
    SequenceRule r;
    for (;; ++rule) {
        r = sequence_rule(rule);
        // QNG's sums: the centre, then each pair's two values added first.
        double sum = 0.0;
        int i = 0;
        if (r.n % 2 == 1) {
            sum = r.w[0] * value(0.0);
            i = 1;
        }
        for (; i < r.n; i += 2) {
            const double fplus = value(r.t[i]);
            sum = sum + r.w[i] * (fplus + value(r.t[i + 1]));
        }
        ans = sum * hlgth;
        acc = rule == 1 ? std::fabs(ans) : std::fabs(ans - previous);
        previous = ans;
        if (acc <= quadpack::dmax(tol_abs, tol_rel * std::fabs(ans)) || rule == maxrul) {
            break;
        }
    }
    if (iparm == 1) {
        // c_k = (2k + 1)/2 times the rule applied to f P_k on [-1, 1].
        const int m = (r.n + 1) / 2;
        alpha[0] = a;
        alpha[1] = b;
        alpha[2] = acc;
        alpha[3] = m;
        double* c = alpha + alpha_coefficients;
        for (int k = 0; k < m; ++k) {
            c[k] = 0.0;
        }
        double p[46];
        for (int i = 0; i < r.n; ++i) {
            legendre(r.t[i], m - 1, p);
            const double wf = r.w[i] * value(r.t[i]);
            for (int k = 0; k < m; ++k) {
                c[k] += wf * p[k];
            }
        }
        for (int k = 0; k < m; ++k) {
            c[k] *= 0.5 * (2 * k + 1);
        }
        for (int k = alpha_coefficients + m; k < alpha_length; ++k) {
            alpha[k] = 0.0;
        }
    }
    if (!(acc <= quadpack::dmax(tol_abs, tol_rel * std::fabs(ans)))) {
        return fail(D01ARF_msg::ALL_RULES_USED, maxrul);
    }
}

}  // namespace lbx::calculus
