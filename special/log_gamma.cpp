// Logarithm of the gamma function (S14ABF).
//
// W. J. Cody and K. E. Hillstrom, "Chebyshev approximations for the natural
// logarithm of the gamma function", Math. Comp. 21 (1967) 198-203, as in the
// ALGAMA routine of Cody's special-function package: rational minimax
// approximations on [0.5, 1.5], [1.5, 4] and [4, 12] (break point 0.6796875
// inside the first), Stirling's series beyond 12.  The series is also the
// remainder of Stirling's formula that the statistics and random-variate
// chapters use from 10 on (stirling_remainder): on [10, 12] the
// minimax-adjusted set is as accurate as the Bernoulli-number series with a
// term more (about 2 ULPs of the remainder).
#include "special/gamma.hpp"

#include <array>
#include <cmath>

#include "frame/machine.hpp"
#include "frame/math_constants.hpp"
#include "frame/polynomial.hpp"
#include "gen/special.hpp"

namespace lbx::special {
namespace {

// Cody-Hillstrom, [0.5, 1.5]: numerator degree 7, denominator degree 8 monic,
// constant term first (the published tables list them highest power first,
// the denominator's leading 1 left implicit).
constexpr double kD1 = -5.772156649015328605195174e-1;  // -Euler's constant
constexpr double kP1[8] = {7.225813979700288197698961e3, 2.637748787624195437963534e4,
                           3.848496228443793359990269e4, 2.855724635671635335736389e4,
                           1.131967205903380828685045e4, 2.290838373831346393026739e3,
                           2.018112620856775083915565e2, 4.945235359296727046734888e0};
constexpr double kQ1[9] = {
    8.785536302431013170870835e3, 3.635127591501940507276287e4, 6.161122180066002127833352e4,
    5.499310206226157329794414e4, 2.763987074403340708898585e4, 7.738757056935398733233834e3,
    1.113332393857199323513008e3, 6.748212550303777196073036e1, 1.0};
// Cody-Hillstrom, [1.5, 4].
constexpr double kD2 = 4.227843350984671393993777e-1;  // 1 - Euler's constant
constexpr double kP2[8] = {3.074109054850539556250927e6, 5.106661678927352456275255e6,
                           3.338152967987029735917223e6, 1.088204769468828767498470e6,
                           1.847932904445632425417223e5, 1.550693864978364947665077e4,
                           5.424138599891070494101986e2, 4.974607845568932035012064e0};
constexpr double kQ2[9] = {
    9.533095591844353613395747e6, 1.782736530353274213975932e7, 1.346701454311101692290052e7,
    5.267964117437946917577538e6, 1.136705821321969608938755e6, 1.331903827966074194402448e5,
    7.765049321445005871323047e3, 1.830328399370592604055942e2, 1.0};
// Cody-Hillstrom, [4, 12]; the denominator's leading coefficient is -1.
constexpr double kD4 = 1.791759469228055000094023e0;  // ln 6
constexpr double kP4[8] = {5.606251856223951465078242e11, 4.926125793377430887588120e11,
                           1.702665737765398868392998e11, 2.940378956634553899906876e10,
                           2.663432449630976949898078e9,  1.214755574045093227939592e8,
                           2.426813369486704502836312e6,  1.474502166059939948905062e4};
constexpr double kQ4[9] = {
    4.463158187419713286462081e11, 3.417476345507377132798597e11, 1.016803586272438228077304e11,
    1.488613728678813811542398e10, 1.120872109616147941376570e9,  4.135599930241388052042842e7,
    6.393885654300092398984238e5,  2.690530175870899333379843e3,  -1.0};
// Stirling's series for x >= 10 in powers of 1/x^2, constant term first
// (Cody-Hillstrom's minimax-adjusted set).
constexpr std::array<double, 7> kStirling = {8.333333333333333331554247e-02,
                                             -2.777777777777681622553e-03,
                                             7.93650793500350248e-04,
                                             -5.952379913043012e-04,
                                             8.4171387781295e-04,
                                             -1.910444077728e-03,
                                             5.7083835261e-03};

// The series: ln Gamma(x) - ((x - 1/2) ln x - x + ln sqrt(2 pi)) for x >= 10.
inline double stirling_series(double x)
{
    const double r = 1.0 / x;  // one division for both 1/x^2 and S/x
    // Estrin's scheme: the series is below 0.007 of the result, so its
    // roundings do not reach the result's last bit, and the short chain
    // overlaps with the logarithm.
    return estrin(kStirling, r * r) * r;
}

// ln Gamma(x) for 12 < x <= 2.55e305: Stirling's formula with the series
// (dropped beyond 2.24e76, Cody's bound, where it lies far below an ULP of
// the result).
inline double log_gamma_stirling(double x)
{
    const double s = x <= 2.24e76 ? stirling_series(x) : 0.0;
    const double lnx = std::log(x);
    return ((s + lbx::math::ln_sqrt_two_pi) - 0.5 * lnx) + x * (lnx - 1.0);
}

}  // namespace

double log_gamma_kernel(double x)
{
    if (x <= lbx::machine::eps)
        return -std::log(x);
    if (x <= 1.5) {
        double corr;
        double y;
        if (x < 0.6796875) {
            corr = -std::log(x);
            y = x;
        } else {
            corr = 0.0;
            y = (x - 0.5) - 0.5;
        }
        if (x <= 0.5 || x >= 0.6796875) {
            return corr + y * (kD1 + y * rational(kP1, kQ1, y));
        }
        const double z = (x - 0.5) - 0.5;
        return corr + z * (kD2 + z * rational(kP2, kQ2, z));
    }
    if (x <= 4.0) {
        const double y = x - 2.0;
        return y * (kD2 + y * rational(kP2, kQ2, y));
    }
    if (x <= 12.0) {
        const double y = x - 4.0;
        return kD4 + y * rational(kP4, kQ4, y);
    }
    return log_gamma_stirling(x);
}

double log_gamma_1p_kernel(double a)
{
    if (a <= 0.5)
        return a * (kD1 + a * rational(kP1, kQ1, a));
    const double y = a - 1.0;  // exact for 0.5 < a < 1
    return y * (kD2 + y * rational(kP2, kQ2, y));
}

double stirling_remainder(double x)
{
    if (x >= 10.0)
        return stirling_series(x);
    return log_gamma_kernel(x) - (x - 0.5) * std::log(x) + x - lbx::math::ln_sqrt_two_pi;
}

double S14ABFN(double x, lbx::Fail& fail)
{
    // The range of Stirling's formula first: one test instead of the checks
    // and the kernel's four break points (a NaN fails it and goes on).
    if (x > 12.0 && x <= 2.55e305)
        return log_gamma_stirling(x);
    if (std::isnan(x))
        return x;
    if (x > 2.55e305) {
        fail(S14ABF_msg::X_TOO_LARGE, x);
        return lbx::machine::huge;
    }
    if (x <= 0.0) {
        fail(S14ABF_msg::X_NOT_POSITIVE, x);
        return x == 0.0 ? lbx::machine::huge : 0.0;
    }
    return log_gamma_kernel(x);
}

}  // namespace lbx::special
