// The floating-point and integer model the library is written against.
#pragma once

namespace lbx::machine {

inline constexpr double pi = 0x1.921fb54442d18p+1;           // 400921FB54442D18
inline constexpr double euler_gamma = 0x1.2788cfc6fb619p-1;  // 3FE2788CFC6FB619
inline constexpr double two_150 = 0x1p+150;                  // 4950000000000000
inline constexpr double eps = 0x1p-53;                       // machine precision, half an ulp of 1
inline constexpr double tiny = 0x1p-1022;                    // smallest positive normal
inline constexpr double huge = 0x1.fffffffffffffp+1023;      // largest finite value
inline constexpr double safe_min = 0x1.0000000000001p-1022;  // safe range: successor of tiny
inline constexpr int big_int = 2147483647;
inline constexpr int decimal_digits = 15;
inline constexpr int base = 2;
inline constexpr int mantissa_digits = 53;
inline constexpr int min_exponent = -1021;
inline constexpr int max_exponent = 1024;

}  // namespace lbx::machine
