// GENID 2 (Wichmann-Hill, one of 273 constant sets) and GENID 4 (Wichmann-Hill II, 2006):
// sums of four prime-modulus multiplicative congruential generators x_i <- a_i x_i mod m_i,
// u = fractional part of sum(x_i / m_i). Both keep x, a and m in the block:
//   STATE(4) set number (GENID 2) or 0, STATE(5..8) x, STATE(9..12) a, STATE(13..16) m.
// Leap-frog replaces a_i by a_i^N, so skip-ahead and drawing need no special case.
#include <cmath>
#include <cstdint>
#include <cstdlib>

#include "random/engines.hpp"
#include "random/state.hpp"
#include "random/wh_sets.hpp"

namespace lbx::random {
namespace {

constexpr int kX = 4, kA = 8, kM = 12;

// Wichmann and Hill (2006), Comput. Statist. Data Anal. 51, 1614-1622: four components.
constexpr int kWh2A[4] = {11600, 47003, 23000, 33000};
constexpr int kWh2M[4] = {2147483579, 2147483543, 2147483423, 2147483123};

std::uint64_t pow_mod(std::uint64_t a, std::uint64_t e, std::uint64_t m)
{
    std::uint64_t r = 1 % m;
    a %= m;
    while (e) {
        if (e & 1)
            r = r * a % m;
        a = a * a % m;
        e >>= 1;
    }
    return r;
}

// Component j as the engines read it: x, a and m as 32-bit patterns, a modulus word 0 taken
// as 1 (such a component is 0 from its first step). Every product of two words stays below
// 2^64, whatever the block holds.
struct Component {
    std::uint64_t x, a, m;
};

Component component(const int* state, int j)
{
    const std::uint64_t m = as_word(state[kM + j]);
    return {as_word(state[kX + j]), as_word(state[kA + j]), m == 0 ? 1 : m};
}

void fill4(int* state, double* out, int n)
{
    std::uint64_t x[4], a[4], m[4];
    double md[4];
    for (int j = 0; j < 4; ++j) {
        const Component c = component(state, j);
        x[j] = c.x;
        a[j] = c.a;
        m[j] = c.m;
        md[j] = static_cast<double>(m[j]);
    }
    for (int i = 0; i < n; ++i) {
        double w = 0.0;
        for (int j = 0; j < 4; ++j) {
            x[j] = a[j] * x[j] % m[j];
            w += static_cast<double>(x[j]) / md[j];
        }
        double u = w - std::floor(w);
        out[i] = u > 0.0 ? u : kAboveZero;  // a sum that is an integer in rounding gives 2^-53
    }
    for (int j = 0; j < 4; ++j)
        state[kX + j] = to_int(static_cast<std::uint32_t>(x[j]));
}

// a^n mod m, unreduced exponent: exact for every modulus.
void skip4(int* state, std::uint64_t n)
{
    for (int j = 0; j < 4; ++j) {
        const Component c = component(state, j);
        state[kX + j] =
            to_int(static_cast<std::uint32_t>(pow_mod(c.a, n, c.m) * (c.x % c.m) % c.m));
    }
}

// The exponent 2^p is reduced mod m - 1 (Fermat): exact for a prime modulus that does not
// divide its multiplier, as in every block that initialisation and leap-frog make. Moduli 1
// and 2 need no reduction (a^(2^p) = a mod m).
void skip_pow2_4(int* state, int p)
{
    for (int j = 0; j < 4; ++j) {
        const Component c = component(state, j);
        const std::uint64_t e = c.m > 2 ? pow_mod(2, static_cast<std::uint64_t>(p), c.m - 1) : 1;
        state[kX + j] =
            to_int(static_cast<std::uint32_t>(pow_mod(c.a, e, c.m) * (c.x % c.m) % c.m));
    }
}

void leap4(int* state, int n, int k)
{
    for (int j = 0; j < 4; ++j) {
        const Component c = component(state, j);
        // x' = c^(k-n) x, so that the first draw (c^n x') is the k-th value; the inverse is
        // taken by Fermat, as in skip_pow2_4.
        const std::uint64_t period = c.m > 1 ? c.m - 1 : 1;
        const std::uint64_t back = period - static_cast<std::uint64_t>(n - k) % period;
        state[kX + j] =
            to_int(static_cast<std::uint32_t>(pow_mod(c.a, back, c.m) * (c.x % c.m) % c.m));
        state[kA + j] =
            to_int(static_cast<std::uint32_t>(pow_mod(c.a, static_cast<std::uint64_t>(n), c.m)));
    }
}

}  // namespace

namespace wh {

void init(int subid, const std::vector<std::int64_t>& words, int* state)
{
    const int set = static_cast<int>((std::llabs(static_cast<long long>(subid)) + 272) % 273) + 1;
    state[0] = kBlockWh;
    state[1] = kCheck[2];
    state[2] = 2;
    state[3] = set;
    for (int j = 0; j < 4; ++j) {
        std::int64_t w = words[j];
        if (w > 16909320)
            w = w % 16909320 + 1;  // every modulus exceeds 16909320
        state[kX + j] = static_cast<int>(w);
        state[kA + j] = kWhSets[set - 1][j];
        state[kM + j] = kWhSets[set - 1][4 + j];
    }
    state[16] = 0;
    state[17] = kCheck[2];
}

void fill(int* state, double* x, int n)
{
    fill4(state, x, n);
}
void skip(int* state, std::uint64_t n)
{
    skip4(state, n);
}
void skip_pow2(int* state, int p)
{
    skip_pow2_4(state, p);
}
void leap(int* state, int n, int k)
{
    leap4(state, n, k);
}

}  // namespace wh

namespace wh2 {

void init(const std::vector<std::int64_t>& words, int* state)
{
    state[0] = kBlockWh2;
    state[1] = kCheck[4];
    state[2] = 4;
    state[3] = 0;
    for (int j = 0; j < 4; ++j) {
        state[kX + j] = static_cast<int>((words[j] - 1) % (kWh2M[j] - 1) + 1);
        state[kA + j] = kWh2A[j];
        state[kM + j] = kWh2M[j];
    }
    for (int i = 16; i < kBlockWh2 - 1; ++i)
        state[i] = 0;
    state[kBlockWh2 - 1] = kCheck[4];
}

void fill(int* state, double* x, int n)
{
    fill4(state, x, n);
}
void skip(int* state, std::uint64_t n)
{
    skip4(state, n);
}
void skip_pow2(int* state, int p)
{
    skip_pow2_4(state, p);
}
void leap(int* state, int n, int k)
{
    leap4(state, n, k);
}

}  // namespace wh2
}  // namespace lbx::random
