// GENID 3, Matsumoto and Nishimura's MT19937 (ACM TOMACS 8 (1998) 3-30), u = (y + 1/2) 2^-32
// with y the tempered output (the authors' open-interval rule).
// Block: STATE(4..627) the 624 state words, STATE(628) the index of the next word (624: the
// next draw regenerates the words), STATE(629) = 0 and STATE(630) = 3692 for the short block;
// in the long block (1257) STATE(629..1252) is the working area of skip-ahead,
// STATE(1253..1256) = 0 and STATE(1257) = 3692. The first trailer word holds the leap-frog
// stride: each draw moves the index that many words, by a jump (below) for a long stride.
//
// Skip-ahead (Haramoto, Matsumoto, Nishimura, Panneton, L'Ecuyer, INFORMS J. Comput. 20
// (2008) 385-390): with phi the characteristic polynomial of the step map F (degree 19937,
// found once by Berlekamp-Massey from the generator's own bit sequence), F^M s = g(F) s for
// g = t^M mod phi on the 19937-dimensional part; g(F) s is evaluated by Horner's rule with
// one step of F per coefficient. The jump uses t^(M-1) and one true step, which clears the
// 31 bits of the first word that lie outside that part.
#include <cstdint>
#include <cstring>
#include <mutex>
#include <vector>

#include "random/engines.hpp"
#include "random/state.hpp"

namespace lbx::random::mt {
namespace {

using u32 = std::uint32_t;
using u64 = std::uint64_t;

constexpr int kN = 624, kM = 397;
constexpr u32 kMatrixA = 0x9908b0dfu, kUpper = 0x80000000u, kLower = 0x7fffffffu;
constexpr int kWords = 3, kIndex = 627, kWork = 628;
constexpr int kDeg = 19937;
constexpr int kPolyWords = (2 * kDeg + 64) / 64 + 1;  // room for a product before reduction
// Below this many raw steps a skip simply regenerates words (one pass per 624 values).
constexpr u64 kStepThreshold = 2 * kDeg;
// From this many raw steps on, a leap-frog's move and each move of a draw with a leap-frog
// stride are jumps (a polynomial in the step map applied by Horner's rule, about 2 ms here,
// plus about 10 ms per call for the polynomial) instead of regenerating the words stride / 624
// times, which costs as much at about 2^22 words (a stride of 2^31 - 1 took about 1 s per
// value that way).
constexpr u64 kJumpStride = u64{1} << 22;

u32* words(int* state)
{
    return reinterpret_cast<u32*>(state + kWords);
}

void twist(u32* mt)
{
    int k = 0;
    for (; k < kN - kM; ++k) {
        const u32 y = (mt[k] & kUpper) | (mt[k + 1] & kLower);
        mt[k] = mt[k + kM] ^ (y >> 1) ^ ((mt[k + 1] & 1u) ? kMatrixA : 0u);
    }
    for (; k < kN - 1; ++k) {
        const u32 y = (mt[k] & kUpper) | (mt[k + 1] & kLower);
        mt[k] = mt[k + kM - kN] ^ (y >> 1) ^ ((mt[k + 1] & 1u) ? kMatrixA : 0u);
    }
    const u32 y = (mt[kN - 1] & kUpper) | (mt[0] & kLower);
    mt[kN - 1] = mt[kM - 1] ^ (y >> 1) ^ ((mt[0] & 1u) ? kMatrixA : 0u);
}

inline double temper_unit(u32 y)
{
    y ^= y >> 11;
    y ^= (y << 7) & 0x9d2c5680u;
    y ^= (y << 15) & 0xefc60000u;
    y ^= y >> 18;
    return (static_cast<double>(y) + 0.5) * 0x1p-32;
}

// Moves the index by r raw words, regenerating as it passes the end of the words.
void advance_raw(u32* mt, int& mti, u64 r)
{
    u64 pos = static_cast<u64>(mti) + r;
    while (pos > static_cast<u64>(kN)) {
        twist(mt);
        pos -= kN;
    }
    mti = static_cast<int>(pos);
}

// ---- polynomials over GF(2), bit i = coefficient of t^i ----
using Poly = std::vector<u64>;

bool bit(const Poly& p, int i)
{
    return (p[i >> 6] >> (i & 63)) & 1u;
}

// p ^= q << s
void xor_shifted(Poly& p, const u64* q, int qwords, int s)
{
    const int ws = s >> 6, bs = s & 63;
    if (bs == 0) {
        for (int j = 0; j < qwords; ++j)
            p[ws + j] ^= q[j];
        return;
    }
    for (int j = 0; j < qwords; ++j) {
        p[ws + j] ^= q[j] << bs;
        p[ws + j + 1] ^= q[j] >> (64 - bs);
    }
}

// Berlekamp-Massey on 2*19937 + 64 bits of one bit position of the generator's words.
Poly find_characteristic_polynomial()
{
    std::vector<u32> mt(kN);
    u32 s = 5489u;  // any non-zero start: the words after one regeneration lie in phi's part
    for (int i = 0; i < kN; ++i) {
        mt[i] = s;
        s = 1812433253u * (s ^ (s >> 30)) + static_cast<u32>(i + 1);
    }
    const int nbits = 2 * kDeg + 64;
    std::vector<int> seq(nbits);
    for (int i = 0; i < nbits; ++i) {
        if (i % kN == 0)
            twist(mt.data());
        seq[i] = static_cast<int>(mt[i % kN] & 1u);
    }
    const int cap = (nbits + 64) / 64 + 2;
    // rev holds the sequence reversed so that the discrepancy is a contiguous window.
    std::vector<u64> rev(cap + 2, 0);
    for (int i = 0; i < nbits; ++i) {
        if (seq[nbits - 1 - i])
            rev[i >> 6] |= u64{1} << (i & 63);
    }
    auto window = [&](int off) {  // 64 bits of rev starting at bit off
        const int w = off >> 6, b = off & 63;
        return b == 0 ? rev[w] : (rev[w] >> b) | (rev[w + 1] << (64 - b));
    };
    Poly c(cap, 0), b(cap, 0), t;
    c[0] = b[0] = 1;
    int len = 0, m = 1;
    for (int n = 0; n < nbits; ++n) {
        const int off = nbits - 1 - n;
        u64 acc = 0;
        for (int w = 0; w <= len / 64; ++w)
            acc ^= c[w] & window(off + 64 * w);
        // bits of c beyond len are zero, and window bits beyond the sequence start read zeros
        if (!(__builtin_popcountll(acc) & 1)) {
            ++m;
            continue;
        }
        if (2 * len <= n) {
            t = c;
            xor_shifted(c, b.data(), cap - (m >> 6) - 1, m);
            len = n + 1 - len;
            b = t;
            m = 1;
        } else {
            xor_shifted(c, b.data(), cap - (m >> 6) - 1, m);
            ++m;
        }
    }
    // phi(t) = t^len c(1/t): reverse the connection polynomial.
    Poly phi(kPolyWords, 0);
    for (int i = 0; i <= len; ++i) {
        if (bit(c, i))
            phi[(len - i) >> 6] |= u64{1} << ((len - i) & 63);
    }
    return phi;
}

const Poly& phi()
{
    static Poly p;
    static std::once_flag once;
    std::call_once(once, [] { p = find_characteristic_polynomial(); });
    return p;
}

constexpr int kPhiWords = kDeg / 64 + 1;

void reduce_bitwise(Poly& r, int top, int bottom)
{
    const Poly& f = phi();
    for (int i = top; i >= bottom; --i) {
        if (bit(r, i))
            xor_shifted(r, f.data(), kPhiWords, i - kDeg);
    }
}

// R[b] = b(t) t^19937 mod phi for every byte b: reduces eight coefficients per XOR pass.
const std::vector<u64>& byte_table()
{
    static std::vector<u64> table;
    static std::once_flag once;
    std::call_once(once, [] {
        table.assign(256 * kPhiWords, 0);
        for (int b = 1; b < 256; ++b) {
            Poly p(kPolyWords, 0);
            for (int k = 0; k < 8; ++k) {
                if ((b >> k) & 1)
                    p[(kDeg + k) >> 6] |= u64{1} << ((kDeg + k) & 63);
            }
            reduce_bitwise(p, kDeg + 7, kDeg);
            for (int w = 0; w < kPhiWords; ++w)
                table[b * kPhiWords + w] = p[w];
        }
    });
    return table;
}

void reduce(Poly& r, int top)
{  // r has degree <= top
    const std::vector<u64>& table = byte_table();
    int i = top;
    for (; i >= kDeg + 7; i -= 8) {
        const int j = i - 7, w = j >> 6, sh = j & 63;
        u64 b = r[w] >> sh;
        if (sh > 56)
            b |= r[w + 1] << (64 - sh);
        b &= 0xff;
        if (!b)
            continue;
        r[w] &= ~(u64{0xff} << sh);
        if (sh > 56)
            r[w + 1] &= ~(u64{0xff} >> (64 - sh));
        xor_shifted(r, table.data() + b * kPhiWords, kPhiWords, j - kDeg);
    }
    reduce_bitwise(r, i, kDeg);
}

u64 spread32(u64 x)
{  // interleave zeros: bit i -> bit 2i
    x &= 0xffffffffu;
    x = (x | (x << 16)) & 0x0000ffff0000ffffULL;
    x = (x | (x << 8)) & 0x00ff00ff00ff00ffULL;
    x = (x | (x << 4)) & 0x0f0f0f0f0f0f0f0fULL;
    x = (x | (x << 2)) & 0x3333333333333333ULL;
    x = (x | (x << 1)) & 0x5555555555555555ULL;
    return x;
}

void square(Poly& r)
{  // r <- r^2 mod phi
    Poly s(kPolyWords, 0);
    for (int j = 0; j < kPhiWords; ++j) {
        s[2 * j] = spread32(r[j]);
        s[2 * j + 1] = spread32(r[j] >> 32);
    }
    reduce(s, 2 * kDeg - 2);
    r.swap(s);
}

void times_t(Poly& r)
{
    for (int j = kPolyWords - 1; j > 0; --j)
        r[j] = (r[j] << 1) | (r[j - 1] >> 63);
    r[0] <<= 1;
    if (bit(r, kDeg))
        xor_shifted(r, phi().data(), kPhiWords, 0);
}

void divide_t(Poly& r)
{  // t^-1 exists since phi(0) = 1
    if (r[0] & 1u)
        xor_shifted(r, phi().data(), kPhiWords, 0);
    for (int j = 0; j + 1 < kPolyWords; ++j)
        r[j] = (r[j] >> 1) | (r[j + 1] << 63);
    r[kPolyWords - 1] >>= 1;
}

Poly t_power(u64 e)
{  // t^e mod phi
    Poly r(kPolyWords, 0);
    r[0] = 1;
    for (int i = 63; i >= 0; --i) {
        square(r);
        if ((e >> i) & 1u)
            times_t(r);
    }
    return r;
}

// One step of F on a circular window w (logical word j at w[(start + j) % 624]).
inline void step(u32* w, int& start)
{
    const u32 x0 = w[start];
    const u32 x1 = w[start + 1 < kN ? start + 1 : start + 1 - kN];
    const u32 xm = w[start + kM < kN ? start + kM : start + kM - kN];
    const u32 y = (x0 & kUpper) | (x1 & kLower);
    w[start] = xm ^ (y >> 1) ^ ((x1 & 1u) ? kMatrixA : 0u);
    start = start + 1 < kN ? start + 1 : 0;
}

// Replaces the words (taken as the window whose first word is the next output) by
// F(g(F) window) and sets the index to 0; acc is the 624-word working area.
void apply_polynomial(u32* mt, u32* acc, const Poly& g)
{
    std::memset(acc, 0, kN * sizeof(u32));
    int start = 0;
    int top = kDeg - 1;
    while (top > 0 && !bit(g, top))
        --top;
    for (int i = top; i >= 0; --i) {
        step(acc, start);
        if (bit(g, i)) {
            for (int j = 0; j < kN - start; ++j)
                acc[start + j] ^= mt[j];
            for (int j = kN - start; j < kN; ++j)
                acc[j - (kN - start)] ^= mt[j];
        }
    }
    step(acc, start);
    for (int j = 0; j < kN; ++j)
        mt[j] = acc[(start + j) % kN];
    std::memset(acc, 0, kN * sizeof(u32));
}

// Jump so that the next output is the word 'ahead' raw steps after the current one, where
// the current window has its index at mti (0 <= mti < 624) and ahead + mti >= 1.
void jump(int* state, const Poly& g_to_ahead_minus_one_from_window)
{
    apply_polynomial(words(state), reinterpret_cast<u32*>(state + kWork),
                     g_to_ahead_minus_one_from_window);
    state[kIndex] = 0;
}

// The index of the next word as the engine reads it: a value outside 0..624 (no
// initialisation or draw leaves one) is taken as 624, so the next draw regenerates the words.
int next_index(const int* state)
{
    const int i = state[kIndex];
    return i >= 0 && i <= kN ? i : kN;
}

// Makes the index < 624 (regenerating if the words are used up).
void normalise(int* state)
{
    if (next_index(state) == kN) {
        twist(words(state));
        state[kIndex] = 0;
    }
}

}  // namespace

void init(const std::vector<std::uint32_t>& w, int* state, int block)
{
    state[0] = block;
    state[1] = kCheck[3];
    state[2] = 3;
    u32* mt = words(state);
    for (int i = 0; i < kN; ++i)
        mt[i] = w[i];
    state[kIndex] = kN;
    for (int i = kWork; i < block - 1; ++i)
        state[i] = 0;
    state[block - 1] = kCheck[3];
}

void fill(int* state, double* out, int n)
{
    u32* mt = words(state);
    int mti = next_index(state);
    const int stride = trailer_stride(state);
    if (stride == 1) {
        int i = 0;
        while (i < n) {
            if (mti >= kN) {
                twist(mt);
                mti = 0;
            }
            const int take = (n - i < kN - mti) ? n - i : kN - mti;
            for (int j = 0; j < take; ++j)
                out[i + j] = temper_unit(mt[mti + j]);
            i += take;
            mti += take;
        }
    } else if (static_cast<u64>(stride) < kJumpStride) {
        for (int i = 0; i < n; ++i) {
            if (mti >= kN) {
                twist(mt);
                mti = 0;
            }
            out[i] = temper_unit(mt[mti]);
            advance_raw(mt, mti, static_cast<u64>(stride));
        }
    } else {
        // Each move is a jump: from index 0 by t^(stride - 1), computed once per call; only the
        // first draw can start elsewhere. Everything is allocated before STATE changes, so an
        // allocation failure leaves it as it was.
        const int first = mti < kN ? mti : 0;
        std::vector<u32> acc(kN);
        Poly from_start, from_first;
        if (first != 0)
            from_first = t_power(static_cast<u64>(stride) + static_cast<u64>(first) - 1);
        if (first == 0 || n > 1)
            from_start = t_power(static_cast<u64>(stride) - 1);
        for (int i = 0; i < n; ++i) {
            if (mti >= kN) {
                twist(mt);
                mti = 0;
            }
            out[i] = temper_unit(mt[mti]);
            apply_polynomial(mt, acc.data(), mti == 0 ? from_start : from_first);
            mti = 0;
        }
    }
    state[kIndex] = mti;
}

void skip(int* state, std::uint64_t n)
{
    const u64 raw = n * static_cast<u64>(trailer_stride(state));
    if (raw == 0)
        return;
    int mti = next_index(state);
    if (raw < kStepThreshold) {
        advance_raw(words(state), mti, raw);
        state[kIndex] = mti;
        return;
    }
    normalise(state);
    jump(state, t_power(raw + static_cast<u64>(state[kIndex]) - 1));
}

void skip_pow2(int* state, int p)
{
    const u64 stride = static_cast<u64>(trailer_stride(state));
    if (p < 32 && (stride << p) < kStepThreshold) {
        skip(state, u64{1} << p);
        return;
    }
    normalise(state);
    // t^(stride * 2^p): t has order 2^19937 - 1 modulo phi, and 2^19937 = 1 modulo that order.
    Poly g = t_power(stride);
    for (int i = 0; i < p % kDeg; ++i)
        square(g);
    for (int i = 0; i < state[kIndex]; ++i)
        times_t(g);
    divide_t(g);
    jump(state, g);
}

bool leap(int* state, int n, int k)
{
    const u64 stride = static_cast<u64>(trailer_stride(state));
    if (stride * static_cast<u64>(n) > 2147483647u)
        return false;
    const u64 ahead = static_cast<u64>(k - 1) * stride;
    if (ahead < kJumpStride) {
        int mti = next_index(state);
        advance_raw(words(state), mti, ahead);
        state[kIndex] = mti;
    } else {
        normalise(state);
        std::vector<u32> acc(kN);  // the short block has no working area
        apply_polynomial(words(state), acc.data(),
                         t_power(ahead + static_cast<u64>(state[kIndex]) - 1));
        state[kIndex] = 0;
    }
    trailer_stride(state) = static_cast<int>(stride * static_cast<u64>(n));
    trailer_offset(state) = k;
    return true;
}

}  // namespace lbx::random::mt
