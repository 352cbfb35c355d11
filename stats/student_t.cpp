// Student's t tail probabilities (G01EBF).
//
// With a = DF/2, x = DF/(DF + T^2) and y = T^2/(DF + T^2):
// P(|T| >= |t|) = I_x(a, 1/2) and P(|T| <= |t|) = I_y(1/2, a), both from one
// evaluation of the regularised incomplete beta function, so that each tail
// keeps its relative accuracy.  For DF >= 50 and ln(1 + T^2/DF) < 1 the
// two-tailed probability comes from an expansion in incomplete gamma
// functions of half-integer order instead (next to the mean of a large a the
// continued fraction would cancel about log10(DF) digits, and elsewhere the
// expansion is the faster); only the central probability of a small |T|
// (a ln(1 + T^2/DF) <= 0.75) keeps the incomplete beta function.
#include <algorithm>
#include <cmath>

#include "frame/math_constants.hpp"
#include "frame/polynomial.hpp"
#include "gen/stats.hpp"
#include "special/erf.hpp"
#include "stats/incomplete_beta.hpp"
#include "stats/tail.hpp"

namespace lbx::stats {
namespace {

// Taylor coefficients of sqrt(v/(1 - exp(-v))), constant term first
// (tools/t_series_coefficients.py, mpmath at 40 digits).
constexpr double kTailSeries[24] = {
    1.0,
    0.25,
    0.010416666666666666,
    -0.0026041666666666665,
    -9.765625e-05,
    5.154079861111111e-05,
    1.2756024718915344e-06,
    -1.110097087880291e-06,
    -1.9670584004181822e-08,
    2.4836319884715677e-08,
    3.3966619960386745e-10,
    -5.690071833942187e-10,
    -6.3372301556671304e-12,
    1.3251315155878903e-11,
    1.2468358960996804e-13,
    -3.1229993780631886e-13,
    -2.546988626356897e-15,
    7.426702350918158e-15,
    5.3488858900327365e-17,
    -1.778579261088922e-16,
    -1.1473989542270475e-18,
    4.283476654726128e-18,
    2.5030337435180244e-20,
    -1.0363862910759544e-19,
};

// Gamma(a + 1/2)/(Gamma(a) sqrt(a)) = sum_k r_k a^-k, the asymptotic series
// (tools/gamma_ratio_series.py); for a >= 25 twelve terms leave 2e-20.
constexpr double kGammaHalfRatio[12] = {
    1.0,
    -0.125,
    0.0078125,
    0.0048828125,
    -0.000640869140625,
    -0.001522064208984375,
    0.0002071857452392578,
    0.0011719763278961182,
    -0.0001557529903948307,
    -0.0016715728561393917,
    0.00021717708659707569,
    0.003820047111275926,
};

// I_x(a, 1/2) with L = -ln x = ln(1 + T^2/DF), for a >= 25 and L < 1.
// Substituting w = exp(-v) in the beta integral and expanding
// sqrt(v/(1 - exp(-v))) = sum c_k v^k gives
//   I = Gamma(a + 1/2)/(sqrt(pi) Gamma(a)) sum_k c_k G_k,
//   G_k = Gamma(k + 1/2, aL)/a^(k + 1/2),
// with G_0 = sqrt(pi/a) erfc(sqrt(aL)) and the upward recurrence
// G_{k+1} = ((k + 1/2) G_k + L^(k + 1/2) exp(-aL))/a, whose terms are positive.
double t_tail_expansion(double a, double log_x_inv)
{
    const double L = log_x_inv;
    const double z = a * L;
    const double inv_a = 1.0 / a;
    const double ratio = polynomial(kGammaHalfRatio, inv_a);
    const double lead = lbx::special::erfc_kernel(std::sqrt(z));
    const double ez = std::exp(-z);
    const double sqrt_a = std::sqrt(a);
    double g = lbx::math::sqrt_pi / sqrt_a * lead;  // G_0
    double q = std::sqrt(L) * ez * inv_a;           // L^(k + 1/2) exp(-z)/a
    const double L2 = L * L;
    double sum = 0.0;
    // Two terms per pass: G_{k+1} = alpha_k G_k + q_k and, straight from G_k,
    // G_{k+2} = alpha_{k+1} alpha_k G_k + (alpha_{k+1} q_k + q_{k+1}), with
    // alpha_k = (k + 1/2)/a, so that the recurrence's chain is one product and
    // one sum per two terms.  The terms up to k = 22 are summed (c_23 G_23 is
    // below 1e-19 of the result for L < 1).
    for (int k = 0; k + 2 < 24; k += 2) {
        const double al0 = (k + 0.5) * inv_a;
        const double al1 = (k + 1.5) * inv_a;
        const double g1 = al0 * g + q;
        const double g2 = (al1 * al0) * g + (al1 * q + q * L);
        const double t1 = kTailSeries[k + 1] * g1;
        const double t2 = kTailSeries[k + 2] * g2;
        sum += t1;
        sum += t2;
        g = g2;
        q *= L2;
        if (std::fabs(t2) <= 1e-18 * (lead + std::fabs(sum)))
            break;
    }
    return ratio * (lead + sqrt_a * lbx::math::inv_sqrt_pi * sum);
}

// The probability TAIL asks for, from the two-sided parts.
double t_result(Tail which, double t, double both_tails, double central)
{
    // The expansions may stray past a bound by an ULP where a probability is 1.
    both_tails = std::min(both_tails, 1.0);
    central = std::min(central, 1.0);
    switch (which) {
        case Tail::significance:
            return both_tails;
        case Tail::confidence:
            return central;
        case Tail::upper:
            return t >= 0.0 ? 0.5 * both_tails : 0.5 + 0.5 * central;
        default:  // lower
            return t >= 0.0 ? 0.5 + 0.5 * central : 0.5 * both_tails;
    }
}

}  // namespace

double G01EBFN(char tail, double t, double df, lbx::Fail& fail)
{
    const Tail which = tail_code(tail);
    if (which == Tail::invalid) {
        fail(G01EBF_msg::TAIL_INVALID, tail);
        return 0.0;
    }
    if (!(df >= 1.0)) {  // also NaN
        fail(G01EBF_msg::DF_TOO_SMALL, df);
        return 0.0;
    }
    if (std::isnan(t))
        return t;
    const double at = std::fabs(t);
    double both_tails;  // P(|T| >= |t|)
    double central;     // P(|T| <= |t|)
    if (df > 1e20 || at == INFINITY) {
        // Beyond 1e20 degrees of freedom the t distribution is the normal one to
        // double precision (the first correction is about T^4/(4 DF) relative).
        constexpr double c = lbx::math::inv_sqrt2_low;  // 1/sqrt(2)
        both_tails = lbx::special::erfc_kernel(at * c);
        central = lbx::special::erf_kernel(at * c);
        if (at == INFINITY) {
            both_tails = 0.0;
            central = 1.0;
        }
        return t_result(which, t, both_tails, central);
    }
    const double a = 0.5 * df;
    // -ln x = ln(1 + T^2/DF), needed (and formed) only for a >= 25.
    const double log_x_inv = a >= 25.0 ? std::log1p(at / df * at) : 0.0;
    // The expansion gives the two-tailed probability to a few ULPs for any
    // aL > 0; only the central probability of a small |T| (aL <= 0.75, where it
    // is small and 1 - P(|T| >= |t|) would lose its leading digits) needs the
    // incomplete beta function.
    if (log_x_inv > 0.0 && log_x_inv < 1.0 && (a * log_x_inv > 0.75 || which != Tail::confidence)) {
        both_tails = t_tail_expansion(a, log_x_inv);
        central = 1.0 - both_tails;
    } else {
        double x;
        double y;
        if (at == 0.0) {
            x = 1.0;
            y = 0.0;
        } else if (at <= 1e150 && df <= 1e300) {
            const double s = df + at * at;
            x = df / s;
            y = at * at / s;
        } else {  // scaled so that nothing overflows
            const double w = df / at;
            x = w / (at + w);
            y = at / (at + w);
        }
        const BetaProbabilities b = incomplete_beta(a, 0.5, x, y);
        both_tails = b.p;
        central = b.q;
    }
    return t_result(which, t, both_tails, central);
}

}  // namespace lbx::stats
