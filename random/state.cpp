// The state check and the trailer, shared by every routine of the chapter.
#include "random/state.hpp"

#include "random/engines.hpp"

namespace lbx::random {

StateStatus check_state(const int* state, int n)
{
    if (n < 3 || n != state[0])
        return StateStatus::length_fault;
    const int genid = state[2];
    if (genid < 1 || genid > 6)
        return StateStatus::state_fault;
    if (!generator_length(genid, n))
        return StateStatus::not_generator_length;
    if (state[1] != state[n - 1] || state[n - 2] < 1 || state[n - 3] < 1)
        return StateStatus::state_fault;
    return StateStatus::ok;
}

void append_trailer(int* state, int block_len)
{
    state[block_len] = 1;
    state[block_len + 1] = 1;
    state[block_len + 2] = state[1];
    state[0] = block_len + 3;
}

}  // namespace lbx::random
