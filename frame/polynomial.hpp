// Polynomials and ratios of polynomials by Horner's rule, for every
// coefficient table of the library.
//
// Coefficient order: constant term first.  A table c[0..N-1] stands for
//   c[0] + c[1] t + ... + c[N-1] t^(N-1),
// evaluated as s = c[N-1], then s = s t + c[i] for i = N-2 down to 0: one
// multiplication and one addition per coefficient, in this order and no
// other (the build does not contract them into fused multiply-adds), so a
// result is the same wherever the same table is evaluated.  A monic
// denominator keeps its leading 1 in the table; 1 * t is exact, so the
// result is the one of a recurrence that starts from t + c[N-2].
#pragma once

#include <cstddef>

namespace lbx {

// c[0] + c[1] t + ... + c[N-1] t^(N-1).
template <std::size_t N>
constexpr double polynomial(const double (&c)[N], double t) noexcept
{
    static_assert(N >= 1, "a polynomial needs a coefficient");
    double s = c[N - 1];
    for (std::size_t i = N - 1; i-- > 0;)
        s = s * t + c[i];
    return s;
}

// p(t) / q(t), both constant term first.
template <std::size_t N, std::size_t M>
constexpr double rational(const double (&p)[N], const double (&q)[M], double t) noexcept
{
    return polynomial(p, t) / polynomial(q, t);
}

}  // namespace lbx
