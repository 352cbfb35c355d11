// GENID 1, the basic generator: x <- 13^13 * x mod 2^60 with x = 2 * odd, held in STATE as
// four 15-bit digits (least significant first); u = x * 2^-60. A 64-bit product keeps the
// same residue mod 2^60 as the digit-by-digit product, so the digits are unpacked once per call.
#include <algorithm>
#include <cstdint>

#include "frame/uint128.hpp"
#include "random/engines.hpp"
#include "random/state.hpp"

namespace lbx::random::basic {
namespace {

constexpr std::uint64_t kMask60 = (std::uint64_t{1} << 60) - 1;
constexpr std::uint64_t kMultiplier = 302875106592253;  // 13^13

// The 60-bit number whose 15-bit digits are the low 15 bits of d[0..3].
std::uint64_t get60(const int* d)
{
    std::uint64_t v = 0;
    for (int i = 3; i >= 0; --i)
        v = v << 15 | (static_cast<std::uint64_t>(d[i]) & 0x7fff);
    return v;
}

void put60(int* d, std::uint64_t v)
{
    for (int i = 0; i < 4; ++i)
        d[i] = static_cast<int>((v >> (15 * i)) & 0x7fff);
}

// x * 2^-60 rounded once; a value that rounds up to 1 is held at the largest double below 1.
inline double to_unit(std::uint64_t x)
{
    return std::min(static_cast<double>(static_cast<std::int64_t>(x)) * 0x1p-60, kBelowOne);
}

// The next n values a x, a^2 x, ... passed to put(i, value); returns the last. Four
// interleaved chains, each advanced by a^4, give the same sequence.
template <class Put>
std::uint64_t walk(std::uint64_t a, std::uint64_t x, int n, Put put)
{
    int i = 0;
    if (n >= 8) {
        const std::uint64_t a2 = a * a, a3 = a2 * a, a4 = a3 * a;
        std::uint64_t y0 = (a * x) & kMask60, y1 = (a2 * x) & kMask60;
        std::uint64_t y2 = (a3 * x) & kMask60, y3 = (a4 * x) & kMask60;
        for (; i + 4 <= n; i += 4) {
            put(i, y0);
            put(i + 1, y1);
            put(i + 2, y2);
            put(i + 3, y3);
            x = y3;
            y0 = (y0 * a4) & kMask60;
            y1 = (y1 * a4) & kMask60;
            y2 = (y2 * a4) & kMask60;
            y3 = (y3 * a4) & kMask60;
        }
    }
    for (; i < n; ++i) {
        x = (a * x) & kMask60;
        put(i, x);
    }
    return x;
}

std::uint64_t pow_mod(std::uint64_t a, std::uint64_t e)
{
    std::uint64_t r = 1;
    while (e) {
        if (e & 1)
            r = r * a;
        a = a * a;
        e >>= 1;
    }
    return r & kMask60;
}

}  // namespace

void init(int s, int* state)
{
    state[0] = kBlockBasic;
    state[1] = kCheck[1];
    state[2] = 1;
    state[3] = 0;
    state[4] = 4 * (s % 8192) + 2;
    int q = s / 8192;
    for (int i = 5; i < 8; ++i) {
        state[i] = q & 0x7fff;
        q >>= 15;
    }
    put60(state + 8, kMultiplier);  // 17917, 13895, 19930, 8
    state[12] = 0;
    state[13] = kCheck[1];
}

void fill(int* state, double* out, int n)
{
    const std::uint64_t a = get60(state + 8);
    std::uint64_t x = get60(state + 4);
    if ((a & 1) == 0 || x == 0) {
        // Only a block changed by hand gets here (seeding and leap-frog keep a odd and x = 2
        // mod 4, and an odd a never takes a non-zero x to 0): x may reach 0, given as 2^-60.
        for (int i = 0; i < n; ++i) {
            x = (a * x) & kMask60;
            out[i] = x == 0 ? 0x1p-60 : to_unit(x);
        }
        put60(state + 4, x);
        return;
    }
    put60(state + 4, walk(a, x, n, [out](int i, std::uint64_t y) { out[i] = to_unit(y); }));
}

bool fill_integers(int* state, int lo, std::uint64_t w, int* out, int n)
{
    const std::uint64_t a = get60(state + 8);
    const std::uint64_t x = get60(state + 4);
    if ((a & 1) == 0 || x == 0)
        return false;
    // lo + floor(y w / 2^60) for each 60-bit value y; w <= 2^32, so the product fits 128 bits.
    put60(state + 4, walk(a, x, n, [=](int i, std::uint64_t y) {
              out[i] = static_cast<int>(
                  lo + static_cast<std::int64_t>((static_cast<lbx::uint128>(y) * w) >> 60));
          }));
    return true;
}

void skip(int* state, std::uint64_t n)
{
    const std::uint64_t c = pow_mod(get60(state + 8), n);
    put60(state + 4, (c * get60(state + 4)) & kMask60);
}

void skip_pow2(int* state, int p)
{
    // The multiplier is 1 mod 4, so its order divides 2^58: beyond 64 squarings nothing changes.
    std::uint64_t c = get60(state + 8);
    for (int i = 0; i < p && i < 64; ++i)
        c = c * c;
    put60(state + 4, (c * get60(state + 4)) & kMask60);
}

void leap(int* state, int n, int k)
{
    // New multiplier c^n; start from c^(k-n) x so that the first draw gives c^k x.
    const std::uint64_t c = get60(state + 8);
    std::uint64_t inv = c;  // Newton iteration for c^-1 mod 2^64 (c odd)
    for (int i = 0; i < 6; ++i)
        inv *= 2 - c * inv;
    const std::uint64_t x = get60(state + 4);
    put60(state + 4, (pow_mod(inv, static_cast<std::uint64_t>(n - k)) * x) & kMask60);
    put60(state + 8, pow_mod(c, static_cast<std::uint64_t>(n)));
}

}  // namespace lbx::random::basic
