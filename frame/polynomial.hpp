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

#include <array>
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

// The same polynomial by Estrin's scheme: c[2i] + c[2i+1] t pairwise, then
// those pairwise with t^2, t^4, ...  Its chain of dependent operations is
// about 2 log2(N) long instead of Horner's 2N, which lets a long polynomial
// overlap with the rest of a call; the roundings differ from Horner's, so a
// table is evaluated by one scheme or the other, always the same one.
template <std::size_t N>
constexpr double estrin(const std::array<double, N>& c, double t) noexcept
{
    static_assert(N >= 1, "a polynomial needs a coefficient");
    double v[N];
#pragma GCC unroll 64
    for (std::size_t i = 0; i < N; ++i)
        v[i] = c[i];
    std::size_t n = N;
    double p = t;
#pragma GCC unroll 8
    while (n > 1) {
#pragma GCC unroll 32
        for (std::size_t i = 0; i < n / 2; ++i)
            v[i] = v[2 * i] + v[2 * i + 1] * p;
        if (n % 2 == 1)
            v[n / 2] = v[n - 1];
        n = (n + 1) / 2;
        p = p * p;
    }
    return v[0];
}

// The same polynomial as two Horner recurrences, on c[0..L-1] and on
// c[L..N-1], joined by t^L (L a power of two, t^L by squaring): the two
// chains run side by side, so the dependent chain is about half of one
// recurrence's, while each half keeps Horner's roundings.
template <std::size_t L, std::size_t N>
constexpr double polynomial_halves(const double (&c)[N], double t) noexcept
{
    static_assert(L >= 2 && L < N && (L & (L - 1)) == 0, "L: a power of two inside the table");
    double low = c[L - 1];
    for (std::size_t i = L - 1; i-- > 0;)
        low = low * t + c[i];
    double high = c[N - 1];
    for (std::size_t i = N - 1; i-- > L;)
        high = high * t + c[i];
    double tl = t;
    for (std::size_t m = 1; m < L; m *= 2)
        tl = tl * tl;
    return low + high * tl;
}

// p(t) / q(t), both constant term first.
template <std::size_t N, std::size_t M>
constexpr double rational(const double (&p)[N], const double (&q)[M], double t) noexcept
{
    return polynomial(p, t) / polynomial(q, t);
}

}  // namespace lbx
