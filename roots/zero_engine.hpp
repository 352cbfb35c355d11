// Bracketing zero finder shared by C05AZF and its direct drivers.
//
// The whole state of a search lives in the caller's array c (ten elements,
// c[0] .. c[9] holding C(1) .. C(10)), in ind, x and y; nothing is static, so
// independent searches may be interleaved or run on different threads.
#pragma once

#include "roots/report.hpp"

namespace lbx::roots {

// Outcome of one entry of the engine (v1, v2 and iv carry the values that
// C05AZF's messages quote).
enum class ZeroStatus {
    ok,            // intermediate return (ind != 0) or successful finish (ind == 0)
    same_sign,     // f at the two starting points of the same sign, neither zero
    ind_invalid,   // ind not one of -1, 1, 2, 3, 4 on entry
    tolx_invalid,  // tolx not positive
    ir_invalid,    // ir not 0, 1 or 2
    pole,          // final abs(f) larger than at both starting points
    tolx_small,    // bracket cannot shrink further at machine precision
};

using ZeroReport = Report<ZeroStatus>;

// The sign test of the engine and its drivers: two values count as having
// the same sign when both are non-positive or both are positive. A NaN counts
// as non-positive.
inline bool nonpositive(double v)
{
    return !(v > 0.0);
}
inline bool same_sign(double f, double g)
{
    return nonpositive(f) == nonpositive(g);
}

// One entry of the reverse-communication engine (see docs/roots-zero.md for
// the states of ind and the contents of c).
ZeroReport zero_engine_step(double& x, double& y, double fx, double tolx, int ir, double* c,
                            int& ind);

}  // namespace lbx::roots
