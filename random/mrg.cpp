// GENID 6, L'Ecuyer's MRG32k3a (Oper. Res. 47 (1999) 159-164):
//   x_n = (1403580 x_{n-2} - 810728 x_{n-3}) mod m1,  m1 = 2^32 - 209,
//   y_n = (527612 y_{n-1} - 1370589 y_{n-3}) mod m2,  m2 = 2^32 - 22853,
//   u = (x_n - y_n mod m1, with m1 for 0) * 2.328306549295728e-10, as in the authors' code.
// Block (elements of the whole array): STATE(4..6) = x_{n-3}, x_{n-2}, x_{n-1};
// STATE(7..9) = y_{n-3}, y_{n-2}, y_{n-1}; STATE(10..13) = 1403580, 810728, 527612, 1370589;
// STATE(14), STATE(15) = m1, m2 as 32-bit words (the engine uses its own constants and
// never reads STATE(10..15)); STATE(16) = 1 after a leap-frog, else 0 (any value but 0 is read
// as leap-frogged, the step matrices as they stand);
// STATE(17..25), STATE(26..34) = the step matrices of the two components after a leap-frog
// (row major); STATE(35..57) = 0; STATE(58) = 4826. Words hold 32-bit patterns.
#include <array>
#include <cstdint>

#include "frame/uint128.hpp"
#include "random/engines.hpp"
#include "random/state.hpp"

namespace lbx::random::mrg {
namespace {

using u64 = std::uint64_t;
using u128 = lbx::uint128;
using Matrix = std::array<u64, 9>;

constexpr std::int64_t kM1 = 4294967087;
constexpr std::int64_t kM2 = 4294944443;
constexpr std::int64_t kA12 = 1403580, kA13n = 810728, kA21 = 527612, kA23n = 1370589;
constexpr double kNorm = 2.328306549295728e-10;
constexpr int kS = 3, kConst = 9, kMods = 13, kFlag = 15, kB1 = 16, kB2 = 25;

constexpr Matrix kStep1 = {0, 1, 0, 0, 0, 1, static_cast<u64>(kM1 - kA13n), kA12, 0};
constexpr Matrix kStep2 = {0, 1, 0, 0, 0, 1, static_cast<u64>(kM2 - kA23n), 0, kA21};

u64 word(const int* p)
{
    return as_word(*p);
}

Matrix multiply(const Matrix& p, const Matrix& q, u64 m)
{
    Matrix r{};
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j) {
            u128 s = 0;
            for (int l = 0; l < 3; ++l)
                s += static_cast<u128>(p[3 * i + l]) * q[3 * l + j];
            r[3 * i + j] = static_cast<u64>(s % m);
        }
    }
    return r;
}

Matrix power(Matrix b, u128 e, u64 m)
{
    Matrix r = {1, 0, 0, 0, 1, 0, 0, 0, 1};
    while (e) {
        if (e & 1)
            r = multiply(r, b, m);
        b = multiply(b, b, m);
        e >>= 1;
    }
    return r;
}

// a * b mod q for q < 2^127 by doubling (no 256-bit product needed).
u128 mul_mod(u128 a, u128 b, u128 q)
{
    u128 r = 0;
    a %= q;
    while (b) {
        if (b & 1) {
            r += a;
            if (r >= q)
                r -= q;
        }
        a += a;
        if (a >= q)
            a -= q;
        b >>= 1;
    }
    return r;
}

u128 pow2_mod(int p, u128 q)
{
    u128 r = 1, b = 2;
    while (p) {
        if (p & 1)
            r = mul_mod(r, b, q);
        b = mul_mod(b, b, q);
        p >>= 1;
    }
    return r;
}

// The period of each component, m^3 - 1: every step matrix raised to it is the identity.
u128 period(u64 m)
{
    return static_cast<u128>(m) * m * m - 1;
}

Matrix current_step(const int* state, int comp)
{
    if (state[kFlag] == 0)
        return comp == 0 ? kStep1 : kStep2;
    Matrix r;
    const int base = comp == 0 ? kB1 : kB2;
    for (int i = 0; i < 9; ++i)
        r[i] = word(state + base + i);
    return r;
}

void apply(int* state, int comp, const Matrix& a, u64 m)
{
    int* s = state + kS + 3 * comp;
    u64 v[3] = {word(s), word(s + 1), word(s + 2)};
    for (int i = 0; i < 3; ++i) {
        u128 t = 0;
        for (int l = 0; l < 3; ++l)
            t += static_cast<u128>(a[3 * i + l]) * v[l];
        s[i] = to_int(static_cast<std::uint32_t>(t % m));
    }
}

void apply_both(int* state, const Matrix& a1, const Matrix& a2)
{
    apply(state, 0, a1, kM1);
    apply(state, 1, a2, kM2);
}

}  // namespace

void init(const std::vector<std::int64_t>& words, int* state)
{
    state[0] = kBlockMrg;
    state[1] = kCheck[6];
    state[2] = 6;
    for (int i = 0; i < 6; ++i)
        state[kS + i] = static_cast<int>(words[i]);  // 1 <= w < 2^31
    state[kConst] = kA12;
    state[kConst + 1] = kA13n;
    state[kConst + 2] = kA21;
    state[kConst + 3] = kA23n;
    state[kMods] = to_int(static_cast<std::uint32_t>(kM1));
    state[kMods + 1] = to_int(static_cast<std::uint32_t>(kM2));
    for (int i = kFlag; i < kBlockMrg - 1; ++i)
        state[i] = 0;
    state[kBlockMrg - 1] = kCheck[6];
}

void fill(int* state, double* out, int n)
{
    int* s = state + kS;
    if (state[kFlag] == 0) {
        std::int64_t x0 = word(s), x1 = word(s + 1), x2 = word(s + 2);
        std::int64_t y0 = word(s + 3), y1 = word(s + 4), y2 = word(s + 5);
        for (int i = 0; i < n; ++i) {
            std::int64_t p1 = (kA12 * x1 - kA13n * x0) % kM1;
            if (p1 < 0)
                p1 += kM1;
            x0 = x1;
            x1 = x2;
            x2 = p1;
            std::int64_t p2 = (kA21 * y2 - kA23n * y0) % kM2;
            if (p2 < 0)
                p2 += kM2;
            y0 = y1;
            y1 = y2;
            y2 = p2;
            out[i] = static_cast<double>(p1 > p2 ? p1 - p2 : p1 - p2 + kM1) * kNorm;
        }
        const std::int64_t v[6] = {x0, x1, x2, y0, y1, y2};
        for (int i = 0; i < 6; ++i)
            s[i] = to_int(static_cast<std::uint32_t>(v[i]));
        return;
    }
    const Matrix b1 = current_step(state, 0), b2 = current_step(state, 1);
    for (int i = 0; i < n; ++i) {
        apply_both(state, b1, b2);
        const std::int64_t p1 = word(s + 2), p2 = word(s + 5);
        out[i] = static_cast<double>(p1 > p2 ? p1 - p2 : p1 - p2 + kM1) * kNorm;
    }
}

void skip(int* state, std::uint64_t n)
{
    apply_both(state, power(current_step(state, 0), n, kM1), power(current_step(state, 1), n, kM2));
}

void skip_pow2(int* state, int p)
{
    apply_both(state, power(current_step(state, 0), pow2_mod(p, period(kM1)), kM1),
               power(current_step(state, 1), pow2_mod(p, period(kM2)), kM2));
}

void leap(int* state, int n, int k)
{
    const u64 mods[2] = {static_cast<u64>(kM1), static_cast<u64>(kM2)};
    Matrix stepped[2];
    for (int c = 0; c < 2; ++c) {
        const Matrix cur = current_step(state, c);
        // Start from C^(k-n) s = C^(period - (n-k)) s so that the first draw is the k-th value.
        apply(state, c, power(cur, period(mods[c]) - static_cast<u128>(n - k), mods[c]), mods[c]);
        stepped[c] = power(cur, static_cast<u128>(n), mods[c]);
    }
    state[kFlag] = 1;
    for (int i = 0; i < 9; ++i) {
        state[kB1 + i] = to_int(static_cast<std::uint32_t>(stepped[0][i]));
        state[kB2 + i] = to_int(static_cast<std::uint32_t>(stepped[1][i]));
    }
}

}  // namespace lbx::random::mrg
