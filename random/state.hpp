// Generator state array: layout, check values, trailer and the state check shared by every
// drawing routine of the chapter. STATE(k) of the documentation is state[k - 1] here.
#pragma once

#include <cstdint>

#include "frame/fail.hpp"

namespace lbx::random {

// Check value of each generator (index = GENID); GENID 4 and 6 share 4826 on purpose: the
// generator is told by STATE(3), never by the check value.
inline constexpr int kCheck[7] = {0, 1234, 2468, 3692, 4826, 5050, 4826};

// Block lengths (header and closing check value included, trailer excluded).
inline constexpr int kBlockBasic = 14;
inline constexpr int kBlockWh = 18;
inline constexpr int kBlockMtShort = 630;
inline constexpr int kBlockMtLong = 1257;
inline constexpr int kBlockWh2 = 26;
inline constexpr int kAcornOrder = 10;
inline constexpr int kBlockAcorn = kAcornOrder + 7;
inline constexpr int kBlockMrg = 58;

// Largest length an initialised STATE can have.
inline constexpr int kMaxStateLength = kBlockMtLong + 3;

enum class StateStatus { ok, length_fault, state_fault, not_generator_length };

// The state check: n is the declared length (the plain entries pass STATE(1)).
// 1. n < 3 or n != STATE(1): length fault. 2. STATE(2) != STATE(n): state fault.
// 3. STATE(3) outside 1..6, STATE(n-1) < 1 or STATE(n-2) < 1: state fault.
// Nothing else about the block is refused: the engines run on any contents of a block of
// their own length. A length that the generator named by STATE(3) never has cannot hold its
// block; it is reported on its own (not_generator_length) once STATE(3) is known and before
// STATE(n) is read, so a damaged STATE(1) cannot send the check beyond the array.
StateStatus check_state(const int* state, int n);

// The state check for a routine whose messages are Msg (STATE_CORRUPT, LSTATE_MISMATCH,
// STATE_LENGTH); true when the routine may draw from state.
template <class Msg>
bool state_usable(const int* state, int n, lbx::Fail& fail)
{
    switch (check_state(state, n)) {
        case StateStatus::length_fault:
            fail(Msg::LSTATE_MISMATCH, n);
            return false;
        case StateStatus::state_fault:
            fail(Msg::STATE_CORRUPT);
            return false;
        case StateStatus::not_generator_length:
            fail(Msg::STATE_LENGTH, state[0], state[2]);
            return false;
        case StateStatus::ok:
            break;
    }
    return true;
}

// Writes the trailer after a block of length block_len already in state[0..block_len-1].
void append_trailer(int* state, int block_len);

// Leap-frog stride and offset kept in the two trailer words.
inline int& trailer_stride(int* state)
{
    return state[state[0] - 3];
}
inline int& trailer_offset(int* state)
{
    return state[state[0] - 2];
}

// Reinterpret a 32-bit word of STATE as unsigned and back.
inline std::uint32_t as_word(int v)
{
    return static_cast<std::uint32_t>(v);
}
inline int to_int(std::uint32_t w)
{
    return static_cast<int>(w);
}

// Largest double below 1 and smallest value used for a zero fraction.
inline constexpr double kBelowOne = 0x1.fffffffffffffp-1;
inline constexpr double kAboveZero = 0x1p-53;

}  // namespace lbx::random
