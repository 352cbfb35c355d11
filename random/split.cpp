// G05KHF (leap-frog), G05KJF (skip-ahead by N) and G05KKF (skip-ahead by 2^N).
// Every generator can skip ahead; all but ACORN can leap-frog. The Mersenne Twister skips
// ahead only in a STATE initialised with its long block (LSTATE >= 1260), whose working area
// holds the jump's accumulator.
#include <cstdint>

#include "gen/random.hpp"
#include "random/engines.hpp"
#include "random/state.hpp"

namespace lbx::random {
namespace {

bool header_usable(const int* state, int lstate)
{
    return lstate >= 3 && state[2] >= 1 && state[2] <= 6;
}

bool mt_short(const int* state)
{
    return state[2] == 3 && state[0] == kBlockMtShort + 3;
}

}  // namespace

void G05KHFN(int n, int k, int* state, int lstate, lbx::Fail& fail)
{
    if (!header_usable(state, lstate))
        return fail(G05KHF_msg::STATE_CORRUPT);
    if (state[2] == 5)
        return fail(G05KHF_msg::NO_LEAPFROG);
    if (n < 1)
        return fail(G05KHF_msg::N_RANGE, n);
    if (k < 1 || k > n)
        return fail(G05KHF_msg::K_RANGE, k, n);
    if (!state_usable<G05KHF_msg>(state, lstate, fail))
        return;
    if (!leap_frog(state, n, k))
        return fail(G05KHF_msg::NO_LEAPFROG);
}

void G05KJFN(int n, int* state, int lstate, lbx::Fail& fail)
{
    if (!header_usable(state, lstate))
        return fail(G05KJF_msg::STATE_CORRUPT);
    if (n < 0)
        return fail(G05KJF_msg::N_RANGE, n);
    if (!state_usable<G05KJF_msg>(state, lstate, fail))
        return;
    if (mt_short(state))
        return fail(G05KJF_msg::MT_SHORT_BLOCK);
    skip_ahead(state, static_cast<std::uint64_t>(n));
}

void G05KKFN(int n, int* state, int lstate, lbx::Fail& fail)
{
    if (!header_usable(state, lstate))
        return fail(G05KKF_msg::STATE_CORRUPT);
    if (n < 0)
        return fail(G05KKF_msg::N_RANGE, n);
    if (!state_usable<G05KKF_msg>(state, lstate, fail))
        return;
    if (mt_short(state))
        return fail(G05KKF_msg::MT_SHORT_BLOCK);
    skip_ahead_pow2(state, n);
}

}  // namespace lbx::random
