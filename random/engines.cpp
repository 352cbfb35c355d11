// Dispatch from GENID to the six engines, block lengths and the filling of seed words.
#include "random/engines.hpp"

#include <cmath>

#include "random/state.hpp"

namespace lbx::random {
namespace {

// Scale applied to basic-generator uniforms when a generator fills missing seed words.
double fill_scale(int genid)
{
    switch (genid) {
        case 2:
            return 16909320.0;
        case 3:
            return 1073741824.0;
        case 4:
            return 2147483647.0;
        case 5:
            return 1073741823.0;
        default:
            return 1073741824.0;
    }
}

// The words a generator takes: SEED(1..LSEED-1) as given when LSEED is short, the rest as
// ceil(u * scale) from a basic generator seeded with SEED(LSEED), so every word is >= 1.
std::vector<std::int64_t> seed_words(int genid, const int* seed, int lseed)
{
    const int need = seed_words_needed(genid);
    std::vector<std::int64_t> w(need);
    if (lseed >= need) {
        for (int i = 0; i < need; ++i)
            w[i] = seed[i];
        return w;
    }
    for (int i = 0; i < lseed - 1; ++i)
        w[i] = seed[i];
    int basic_state[kBlockBasic + 3];
    basic::init(seed[lseed - 1], basic_state);
    append_trailer(basic_state, kBlockBasic);
    std::vector<double> u(need - (lseed - 1));
    basic::fill(basic_state, u.data(), static_cast<int>(u.size()));
    const double scale = fill_scale(genid);
    for (std::size_t i = 0; i < u.size(); ++i) {
        w[lseed - 1 + i] = static_cast<std::int64_t>(std::ceil(u[i] * scale));
    }
    return w;
}

}  // namespace

int block_length(int genid, int lstate)
{
    switch (genid) {
        case 1:
            return kBlockBasic;
        case 2:
            return kBlockWh;
        case 3:
            return lstate >= kBlockMtLong + 3 ? kBlockMtLong : kBlockMtShort;
        case 4:
            return kBlockWh2;
        case 5:
            return kBlockAcorn;
        default:
            return kBlockMrg;
    }
}

int requested_block_length(int genid)
{
    return genid == 3 ? kBlockMtLong : block_length(genid, 1);
}

int minimum_lstate(int genid)
{
    return block_length(genid, 1) + 3;
}

bool generator_length(int genid, int n)
{
    return n == block_length(genid, 1) + 3 || (genid == 3 && n == kBlockMtLong + 3);
}

int seed_words_needed(int genid)
{
    switch (genid) {
        case 1:
            return 1;
        case 2:
            return 4;
        case 3:
            return 624;
        case 4:
            return 4;
        case 5:
            return kAcornOrder + 1;
        default:
            return 6;
    }
}

bool seeds_valid(int genid, const int* seed, int lseed)
{
    if (genid == 3 && lseed >= 624) {
        // A whole MT19937 state: 32-bit patterns, not all zero in the 19937 significant bits.
        // The one exception to "every seed word >= 1", on purpose: these words are the
        // generator's state itself, half of all 32-bit patterns are negative as INTEGER and any
        // word may be 0, so that rule would shut out most states, the authors' reference
        // state from init_genrand(5489) among them. Only the state that cannot run (zero in
        // every significant bit) is refused.
        if (as_word(seed[0]) & 0x80000000u)
            return true;
        for (int i = 1; i < 624; ++i) {
            if (seed[i] != 0)
                return true;
        }
        return false;
    }
    const int need = seed_words_needed(genid);
    const int used = lseed < need ? lseed : need;
    for (int i = 0; i < used; ++i) {
        if (seed[i] < 1)
            return false;
    }
    return true;
}

void initialise(int genid, int subid, const int* seed, int lseed, int* state, int lstate)
{
    const int block = block_length(genid, lstate);
    switch (genid) {
        case 1:
            basic::init(seed[0], state);
            break;
        case 2:
            wh::init(subid, seed_words(genid, seed, lseed), state);
            break;
        case 3: {
            std::vector<std::uint32_t> words(624);
            if (lseed >= 624) {
                for (int i = 0; i < 624; ++i)
                    words[i] = as_word(seed[i]);
                mt::init(words, state, block);
            } else {
                const auto w = seed_words(genid, seed, lseed);
                for (int i = 0; i < 624; ++i)
                    words[i] = static_cast<std::uint32_t>(w[i]);
                mt::init(words, state, block);
            }
            break;
        }
        case 4:
            wh2::init(seed_words(genid, seed, lseed), state);
            break;
        case 5:
            acorn::init(seed_words(genid, seed, lseed), state);
            break;
        default:
            mrg::init(seed_words(genid, seed, lseed), state);
            break;
    }
    append_trailer(state, block);
}

void fill_uniform(int* state, double* x, int n)
{
    switch (state[2]) {
        case 1:
            basic::fill(state, x, n);
            break;
        case 2:
            wh::fill(state, x, n);
            break;
        case 3:
            mt::fill(state, x, n);
            break;
        case 4:
            wh2::fill(state, x, n);
            break;
        case 5:
            acorn::fill(state, x, n);
            break;
        default:
            mrg::fill(state, x, n);
            break;
    }
}

void skip_ahead(int* state, std::uint64_t n)
{
    switch (state[2]) {
        case 1:
            basic::skip(state, n);
            break;
        case 2:
            wh::skip(state, n);
            break;
        case 3:
            mt::skip(state, n);
            break;
        case 4:
            wh2::skip(state, n);
            break;
        case 5:
            acorn::skip(state, n);
            break;
        default:
            mrg::skip(state, n);
            break;
    }
}

void skip_ahead_pow2(int* state, int p)
{
    switch (state[2]) {
        case 1:
            basic::skip_pow2(state, p);
            break;
        case 2:
            wh::skip_pow2(state, p);
            break;
        case 3:
            mt::skip_pow2(state, p);
            break;
        case 4:
            wh2::skip_pow2(state, p);
            break;
        case 5:
            acorn::skip_pow2(state, p);
            break;
        default:
            mrg::skip_pow2(state, p);
            break;
    }
}

bool leap_frog(int* state, int n, int k)
{
    switch (state[2]) {
        case 1:
            basic::leap(state, n, k);
            break;
        case 2:
            wh::leap(state, n, k);
            break;
        case 3:
            return mt::leap(state, n, k);
        case 4:
            wh2::leap(state, n, k);
            break;
        default:  // 6; ACORN (5) is refused by the caller
            mrg::leap(state, n, k);
            break;
    }
    trailer_stride(state) = n;
    trailer_offset(state) = k;
    return true;
}

}  // namespace lbx::random
