// Mathematical constants, each the double nearest to its value: written to
// 25 significant digits (mpmath, 40 digits), which the compiler rounds once.
#pragma once

namespace lbx::math {

inline constexpr double pi = 3.141592653589793238462643;
inline constexpr double two_pi = 6.283185307179586476925287;            // 2 pi
inline constexpr double sqrt_pi = 1.772453850905516027298167;           // sqrt(pi)
inline constexpr double inv_sqrt_pi = 0.5641895835477562869480795;      // 1/sqrt(pi)
inline constexpr double two_over_sqrt_pi = 1.128379167095512573896159;  // 2/sqrt(pi)
inline constexpr double sqrt_two_pi = 2.506628274631000502415765;       // sqrt(2 pi)
inline constexpr double ln_sqrt_two_pi = 0.9189385332046727417803297;   // ln sqrt(2 pi)
inline constexpr double inv_sqrt2 = 0.7071067811865475244008444;        // 1/sqrt(2)

// Two values one ULP below the nearest double, 0x1.6a09e667f3bccp-1 and
// 0x1.40d931ff62705p+1, that routines scaled by before these constants
// were shared: G01EAF, G01EBF (DF > 1e20) and the incomplete gamma
// function's normal approximation take x/sqrt(2) as x * inv_sqrt2_low, and
// its prefactor divides by sqrt_two_pi_low.  Kept so that their results stay
// bit for bit what they were; the nearest values would move some results by
// an ULP.
inline constexpr double inv_sqrt2_low = 0.7071067811865475;
inline constexpr double sqrt_two_pi_low = 2.5066282746310002;

}  // namespace lbx::math
