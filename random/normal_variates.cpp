// G05SKF: normal variates XMU + sqrt(VAR) * Phi^-1(u), one uniform per variate, the
// uniforms exactly those G05SAF would give. The transform runs in parallel; each element
// depends only on its own uniform, so the result is the same for any number of threads.
#include <cmath>

#include "gen/random.hpp"
#include "random/engines.hpp"
#include "random/state.hpp"
#include "stats/inverse_normal.hpp"

namespace lbx::random {

void G05SKFN(int n, double xmu, double var, int* state, double* x, int lstate, lbx::Fail& fail)
{
    if (n < 0)
        return fail(G05SKF_msg::N_RANGE, n);
    if (n == 0)
        return;
    if (!(var >= 0.0))
        return fail(G05SKF_msg::VAR_RANGE, var);
    if (!state_usable<G05SKF_msg>(state, lstate, fail))
        return;
    if (var == 0.0) {
        for (int i = 0; i < n; ++i)
            x[i] = xmu;
        return;
    }
    fill_uniform(state, x, n);
    const double sigma = std::sqrt(var);
#pragma omp parallel for schedule(static) if (n >= 4096)
    for (int i = 0; i < n; ++i)
        x[i] = xmu + sigma * lbx::stats::inverse_normal(x[i]);
}

}  // namespace lbx::random
