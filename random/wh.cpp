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

void fill4(int* state, double* out, int n)
{
    std::uint64_t x[4], a[4], m[4];
    double md[4];
    for (int j = 0; j < 4; ++j) {
        x[j] = static_cast<std::uint64_t>(state[kX + j]);
        a[j] = static_cast<std::uint64_t>(state[kA + j]);
        m[j] = static_cast<std::uint64_t>(state[kM + j]);
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
        state[kX + j] = static_cast<int>(x[j]);
}

bool plausible4(const int* state)
{
    for (int j = 0; j < 4; ++j) {
        const int m = state[kM + j], a = state[kA + j], x = state[kX + j];
        if (m < 2 || a < 1 || a >= m || x < 1 || x >= m)
            return false;
    }
    return true;
}

void skip4(int* state, std::uint64_t n)
{
    for (int j = 0; j < 4; ++j) {
        const std::uint64_t m = static_cast<std::uint64_t>(state[kM + j]);
        const std::uint64_t c = pow_mod(static_cast<std::uint64_t>(state[kA + j]), n % (m - 1), m);
        state[kX + j] = static_cast<int>(c * static_cast<std::uint64_t>(state[kX + j]) % m);
    }
}

void skip_pow2_4(int* state, int p)
{
    for (int j = 0; j < 4; ++j) {
        const std::uint64_t m = static_cast<std::uint64_t>(state[kM + j]);
        const std::uint64_t e = pow_mod(2, static_cast<std::uint64_t>(p), m - 1);  // Fermat
        const std::uint64_t c = pow_mod(static_cast<std::uint64_t>(state[kA + j]), e, m);
        state[kX + j] = static_cast<int>(c * static_cast<std::uint64_t>(state[kX + j]) % m);
    }
}

void leap4(int* state, int n, int k)
{
    for (int j = 0; j < 4; ++j) {
        const std::uint64_t m = static_cast<std::uint64_t>(state[kM + j]);
        const std::uint64_t c = static_cast<std::uint64_t>(state[kA + j]);
        // x' = c^(k-n) x, so that the first draw (c^n x') is the k-th value.
        const std::uint64_t back = (m - 1) - static_cast<std::uint64_t>(n - k) % (m - 1);
        state[kX + j] =
            static_cast<int>(pow_mod(c, back, m) * static_cast<std::uint64_t>(state[kX + j]) % m);
        state[kA + j] = static_cast<int>(pow_mod(c, static_cast<std::uint64_t>(n), m));
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
bool plausible(const int* state)
{
    return state[0] == kBlockWh + 3 && state[3] >= 1 && state[3] <= 273 && plausible4(state);
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
bool plausible(const int* state)
{
    if (state[0] != kBlockWh2 + 3)
        return false;
    for (int j = 0; j < 4; ++j) {
        if (state[kM + j] != kWh2M[j])
            return false;
    }
    return plausible4(state);
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
