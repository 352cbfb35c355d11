// G05SAF: uniform variates on (0,1).
#include "gen/random.hpp"
#include "random/engines.hpp"
#include "random/state.hpp"

namespace lbx::random {

void G05SAFN(int n, int* state, double* x, int lstate, lbx::Fail& fail)
{
    if (lstate < 3 || state[2] < 1 || state[2] > 6)
        return fail(G05SAF_msg::STATE_CORRUPT);
    if (n < 0)
        return fail(G05SAF_msg::N_RANGE, n);
    if (n == 0)
        return;
    if (!state_usable<G05SAF_msg>(state, lstate, fail))
        return;
    fill_uniform(state, x, n);
}

}  // namespace lbx::random
