// Gamma function (S14AAF).
//
// Reduction to Gamma(1 + f), 0 <= f < 1, by the recurrence, then a
// polynomial of degree 23 in t = 2f - 1 (the set for 16 decimal digits).
#include <array>
#include <cmath>
#if defined(__x86_64__) && defined(__ELF__)
#include <immintrin.h>
#endif

#include "frame/polynomial.hpp"
#include "gen/special.hpp"

namespace lbx::special {
namespace {

// Gamma(1 + f) = p(2f - 1) on 0 <= f < 1, degree 23, constant term first
// (the 16-digit set of this library).
constexpr double kGammaP[24] = {
    0.886226925452758,      0.01616919872444251,   0.10370336342207545,   -0.013411850570596776,
    0.00904033494028102,    -0.002422595384362682, 0.0009157859972889331, -0.0002968901216332,
    0.00010092814882336512, -3.363758332402688e-5, 1.125246429755904e-5,  -3.75499034136576e-6,
    1.25281466396672e-6,    -4.1780877635584e-7,   1.3938352259072e-7,    -4.647749271552e-8,
    1.538352152576e-8,      -5.1196133376e-9,      1.8224316416e-9,       -6.1351395328e-10,
    1.2767985664e-10,       -4.014997504e-11,      4.265607168e-11,       -1.463812096e-11};

constexpr double kLargeResult = 4.3e304;                // returned at poles and x > 170
constexpr double kTinyResult = 4.4843049327354256e307;  // 1/2.23e-308

// Horner's rule on the first two terms, which carry the result's accuracy;
// the tail t^2 (c[2] + c[3] t + ...), below an eighth of the result, by
// Estrin's scheme, whose shorter dependency chain (about 10 operations
// instead of 44) overlaps with the reduction.  Measured against the
// reference table, the pair is no less accurate than Horner's rule alone.
constexpr auto kGammaTail = [] {
    std::array<double, 22> tail{};
    for (std::size_t i = 0; i < tail.size(); ++i)
        tail[i] = kGammaP[i + 2];
    return tail;
}();

inline double gamma_one_plus(double f)
{
    const double t = 2.0 * f - 1.0;
    double s = estrin(kGammaTail, t);
    for (int i = 1; i >= 0; --i)
        s = s * t + kGammaP[i];
    return s;
}

// The recurrence's factors are consecutive, a, a + 1, ..., a + m - 1, and
// each is exact in double.  Their products are accumulated in extended
// precision (64-bit significand on x86-64) in four interleaved chains: up to
// 169 roundings of 2^-64 stay far below an ULP of the result.
using Wide = long double;

// a (a + 1) ... (a + m - 1), m >= 0, the factors formed in extended
// precision too (exactly).
inline Wide rising_product(double a, int m)
{
    Wide p0 = 1, p1 = 1, p2 = 1, p3 = 1;
    Wide f0 = a;
    int i = 0;
    for (; i + 4 <= m; i += 4, f0 += 4) {
        p0 *= f0;
        p1 *= f0 + 1;
        p2 *= f0 + 2;
        p3 *= f0 + 3;
    }
    for (; i < m; ++i, f0 += 1)
        p0 *= f0;
    return (p0 * p1) * (p2 * p3);
}

// The same product for a >= 1.  Paired from the ends, the factors give
//   (a + i)(b - i) = a b + i (m - 1 - i),  b = a + m - 1,
// one product a b for all and an exact integer per pair, so m factors cost
// m/2 additions and multiplications; every term is at least a b, so nothing
// cancels.  (Negative factors could cancel in a pair: rising_product serves
// them.)
inline Wide consecutive_product(double a, int m)
{
    const Wide ab = static_cast<Wide>(a) * (a + (m - 1));
    const int pairs = m / 2;
    Wide p0 = 1, p1 = 1, p2 = 1, p3 = 1;
    int i = 0;
    for (; i + 4 <= pairs; i += 4) {
        p0 *= ab + static_cast<double>(i * (m - 1 - i));
        p1 *= ab + static_cast<double>((i + 1) * (m - 2 - i));
        p2 *= ab + static_cast<double>((i + 2) * (m - 3 - i));
        p3 *= ab + static_cast<double>((i + 3) * (m - 4 - i));
    }
    for (; i < pairs; ++i)
        p0 *= ab + static_cast<double>(i * (m - 1 - i));
    if (m % 2 == 1)  // the middle factor has no partner
        p1 *= a + pairs;
    return (p0 * p1) * (p2 * p3);
}

#if defined(__x86_64__) && defined(__ELF__)
// With fused multiply-adds (x86-64 processors with AVX2 and FMA, checked once
// at run time) the product x (x + 1) ... is accumulated instead as an
// unevaluated sum hi + lo of doubles, exact to about 2^-104 per factor, in
// eight chains held in two vector registers: each factor costs a
// multiplication and two fused multiply-adds per chain,
//   h' = h t,  l' = l t + (h t - h'),
// where h t - h' is exact.  Machines without them take the extended-precision
// product above; both are correct to far below an ULP of the result, and may
// differ in its last bit.
bool has_fma()
{
    static const bool yes = [] {
        __builtin_cpu_init();  // may run before the runtime's own constructor
        return __builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma");
    }();
    return yes;
}

// Products of unevaluated sums hi + lo, lane by lane, to about 2^-104.
struct Sums {
    __m256d hi, lo;
};

[[gnu::target("avx2,fma")]] inline Sums times(Sums a, __m256d t)
{
    const __m256d h = _mm256_mul_pd(a.hi, t);
    return {h, _mm256_fmadd_pd(a.lo, t, _mm256_fmsub_pd(a.hi, t, h))};
}

[[gnu::target("avx2,fma")]] inline Sums times(Sums a, Sums b)
{
    const __m256d h = _mm256_mul_pd(a.hi, b.hi);
    const __m256d e = _mm256_fmsub_pd(a.hi, b.hi, h);
    return {h, _mm256_fmadd_pd(a.hi, b.lo, _mm256_fmadd_pd(a.lo, b.hi, e))};
}

// s a (a + 1) ... (a + m - 1), m >= 0, with a + m - 1 exact in double: the
// factors go round eight lanes (the last round padded with ones), the lanes
// are multiplied together pairwise, and s multiplies the sum with one
// rounding.
[[gnu::target("avx2,fma")]] double scaled_product_fma(double s, double a, int m)
{
    const __m256d one = _mm256_set1_pd(1.0);
    const __m256d lane0 = _mm256_setr_pd(0, 1, 2, 3);
    const __m256d lane1 = _mm256_setr_pd(4, 5, 6, 7);
    const __m256d eight = _mm256_set1_pd(8.0);
    Sums p0{one, _mm256_setzero_pd()}, p1 = p0;
    __m256d t0 = _mm256_add_pd(_mm256_set1_pd(a), lane0);
    __m256d t1 = _mm256_add_pd(_mm256_set1_pd(a), lane1);
    int i = 0;
    for (; i + 8 <= m; i += 8) {
        p0 = times(p0, t0);
        p1 = times(p1, t1);
        t0 = _mm256_add_pd(t0, eight);
        t1 = _mm256_add_pd(t1, eight);
    }
    const __m256d rest = _mm256_set1_pd(m - i);
    p0 = times(p0, _mm256_blendv_pd(one, t0, _mm256_cmp_pd(lane0, rest, _CMP_LT_OQ)));
    p1 = times(p1, _mm256_blendv_pd(one, t1, _mm256_cmp_pd(lane1, rest, _CMP_LT_OQ)));
    // Eight lanes to four, to two (the upper half on the lower), to one.
    Sums p = times(p0, p1);
    p = times(p,
              Sums{_mm256_permute2f128_pd(p.hi, p.hi, 1), _mm256_permute2f128_pd(p.lo, p.lo, 1)});
    p = times(p, Sums{_mm256_permute_pd(p.hi, 1), _mm256_permute_pd(p.lo, 1)});
    const double hi = _mm256_cvtsd_f64(p.hi);
    const double lo = _mm256_cvtsd_f64(p.lo);
    return __builtin_fma(s, hi, s * lo);
}
#endif

// s a (a + 1) ... (a + m - 1) for a >= 1, rounded once.
inline double scaled_product(double s, double a, int m)
{
#if defined(__x86_64__) && defined(__ELF__)
    if (has_fma())
        return scaled_product_fma(s, a, m);
#endif
    return static_cast<double>(s * consecutive_product(a, m));
}

}  // namespace

double S14AAFN(double x, lbx::Fail& fail)
{
    if (std::isnan(x))
        return x;
    const double a = std::fabs(x);
    if (a > 170.0) {
        if (x > 0.0) {
            fail(S14AAF_msg::X_TOO_LARGE, x, 170.0);
            return kLargeResult;
        }
        fail(S14AAF_msg::X_TOO_NEGATIVE, x, -170.0);
        return 0.0;
    }
    if (a <= 1e-17) {
        if (a < 2.23e-308) {
            fail(S14AAF_msg::X_TOO_SMALL, x, 2.23e-308);
            return x < 0.0 ? -kTinyResult : kTinyResult;
        }
        return 1.0 / x;
    }
    const int n = static_cast<int>(x);  // truncates toward zero
    if (x < 0.0 && x - (n - 1) == 1.0) {
        fail(S14AAF_msg::X_NEGATIVE_INTEGER, x);
        return kLargeResult;
    }
    if (x < 0.0) {
        const double f = x - (n - 1);
        return static_cast<double>(gamma_one_plus(f) / rising_product(x, 2 - n));
    }
    if (x < 1.0)
        return gamma_one_plus(x) / x;
    // (x - n + 1) ... (x - 1), the first factor exact as x - k is for k < x.
    return scaled_product(gamma_one_plus(x - n), x - (n - 1), n - 1);
}

}  // namespace lbx::special
