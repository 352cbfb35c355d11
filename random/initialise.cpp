// G05KFF and G05KGF: fill STATE for a repeatable or a non-repeatable sequence.
#include <chrono>
#include <cstdint>
#include <random>
#include <vector>

#include "gen/random.hpp"
#include "random/engines.hpp"
#include "random/state.hpp"

namespace lbx::random {

void G05KFFN(int genid, int subid, const int* seed, int lseed, int* state, int& lstate,
             lbx::Fail& fail)
{
    if (genid < 1 || genid > 6)
        return fail(G05KFF_msg::GENID_RANGE, genid);
    if (lseed < 1)
        return fail(G05KFF_msg::LSEED_RANGE, lseed);
    if (lstate < 1) {
        lstate = requested_block_length(genid) + 3;
        return fail(G05KFF_msg::LSTATE_RETURNED);
    }
    if (lstate < minimum_lstate(genid)) {
        return fail(G05KFF_msg::LSTATE_SMALL, lstate, minimum_lstate(genid));
    }
    if (!seeds_valid(genid, seed, lseed))
        return fail(G05KFF_msg::SEED_INVALID);
    initialise(genid, subid, seed, lseed, state, lstate);
}

// Seed words from the clock count and the runtime's random source: word i is
// 1 + ((clock ^ (device * (2i + 1)) ^ i) mod (2^31 - 1)), so every word is >= 1. One word
// per seed word that the generator takes, at most 8 (the basic generator fills the rest).
void G05KGFN(int genid, int subid, int* state, int& lstate, lbx::Fail& fail)
{
    if (genid < 1 || genid > 6)
        return fail(G05KGF_msg::GENID_RANGE, genid);
    if (lstate < 1) {
        lstate = requested_block_length(genid) + 3;
        return fail(G05KGF_msg::LSTATE_RETURNED);
    }
    if (lstate < minimum_lstate(genid)) {
        return fail(G05KGF_msg::LSTATE_SMALL, lstate, minimum_lstate(genid));
    }
    const int count = seed_words_needed(genid) < 8 ? seed_words_needed(genid) : 8;
    std::vector<int> seed(count);
    {
        std::random_device device;
        const auto clock = static_cast<std::uint64_t>(
            std::chrono::high_resolution_clock::now().time_since_epoch().count());
        for (int i = 0; i < count; ++i) {
            const std::uint64_t d =
                (static_cast<std::uint64_t>(device()) << 32) ^ static_cast<std::uint64_t>(device());
            const std::uint64_t mixed = clock ^ (d * (2 * static_cast<std::uint64_t>(i) + 1)) ^
                                        static_cast<std::uint64_t>(i);
            seed[i] = static_cast<int>(1 + mixed % 2147483647u);
        }
    }
    initialise(genid, subid, seed.data(), count, state, lstate);
}

}  // namespace lbx::random
