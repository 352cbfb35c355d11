// The state check and the trailer, shared by every routine of the chapter.
#include "random/state.hpp"

#include "random/engines.hpp"

namespace lbx::random {

StateStatus check_state(const int* state, int n)
{
    if (n < 3 || n != state[0])
        return StateStatus::length_fault;
    // A length that the generator named by STATE(3) never has is refused before STATE(n) is
    // read, so a damaged STATE(1) cannot send the check beyond the array.
    const int genid = state[2];
    if (genid < 1 || genid > 6)
        return StateStatus::state_fault;
    const bool length_possible = n == block_length(genid, 1) + 3 ||
                                 (genid == 3 && n == block_length(genid, kMaxStateLength) + 3);
    if (!length_possible)
        return StateStatus::state_fault;
    if (state[1] != state[n - 1])
        return StateStatus::state_fault;
    if (state[n - 2] < 1 || state[n - 3] < 1)
        return StateStatus::state_fault;
    if (state[1] != kCheck[genid] || !block_plausible(state))
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
