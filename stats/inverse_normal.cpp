// Inverse standard normal distribution function.
#include "stats/inverse_normal.hpp"

#include <cmath>

#include "frame/machine.hpp"
#include "frame/polynomial.hpp"

namespace lbx::stats {
namespace {

// Wichura, "The percentage points of the normal distribution", Appl. Statist.
// 37 (1988) 477-484, algorithm AS 241 (PPND16), coefficients as published,
// constant term first.
// Central region |p - 0.5| <= 0.425, rational of degree 7/7 in 0.180625 - q^2.
constexpr double kA[8] = {3.3871328727963666080e0,  1.3314166789178437745e+2,
                          1.9715909503065514427e+3, 1.3731693765509461125e+4,
                          4.5921953931549871457e+4, 6.7265770927008700853e+4,
                          3.3430575583588128105e+4, 2.5090809287301226727e+3};
constexpr double kB[8] = {1.0,
                          4.2313330701600911252e+1,
                          6.8718700749205790830e+2,
                          5.3941960214247511077e+3,
                          2.1213794301586595867e+4,
                          3.9307895800092710610e+4,
                          2.8729085735721942674e+4,
                          5.2264952788528545610e+3};
// Intermediate tail, r = sqrt(-ln m) <= 5, rational in r - 1.6 (AS 241).
constexpr double kC[8] = {1.42343711074968357734e0,  4.63033784615654529590e0,
                          5.76949722146069140550e0,  3.64784832476320460504e0,
                          1.27045825245236838258e0,  2.41780725177450611770e-1,
                          2.27238449892691845833e-2, 7.74545014278341407640e-4};
constexpr double kD[8] = {1.0,
                          2.05319162663775882187e0,
                          1.67638483018380384940e0,
                          6.89767334985100004550e-1,
                          1.48103976427480074590e-1,
                          1.51986665636164571966e-2,
                          5.47593808499534494600e-4,
                          1.05075007164441684324e-9};
// Far tail, r > 5, rational in r - 5 (AS 241).
constexpr double kE[8] = {6.65790464350110377720e0,  5.46378491116411436990e0,
                          1.78482653991729133580e0,  2.96560571828504891230e-1,
                          2.65321895265761230930e-2, 1.24266094738807843860e-3,
                          2.71155556874348757815e-5, 2.01033439929228813265e-7};
constexpr double kF[8] = {1.0,
                          5.99832206555887937690e-1,
                          1.36929880922735805310e-1,
                          1.48753612908506148525e-2,
                          7.86869131145613259100e-4,
                          1.84631831751005468180e-5,
                          1.42151175831644588870e-7,
                          2.04426310338993978564e-15};

}  // namespace

double inverse_normal(double p)
{
    const double q = p - 0.5;
    return inverse_normal_split(q, q < 0.0 ? p : 1.0 - p);
}

double inverse_normal_split(double q, double m)
{
    if (std::fabs(q) <= 0.425) {
        return q * rational(kA, kB, 0.180625 - q * q);
    }
    if (m <= 0.0)
        m = lbx::machine::safe_min;
    const double r = std::sqrt(-std::log(m));
    const double x = r <= 5.0 ? rational(kC, kD, r - 1.6) : rational(kE, kF, r - 5.0);
    return q < 0.0 ? -x : x;
}

}  // namespace lbx::stats
