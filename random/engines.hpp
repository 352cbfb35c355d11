// The six base generators: seeding, uniform generation, skip-ahead and leap-frog.
// Each engine works on a whole STATE array that has passed the state check, whatever its block
// holds: every word is read as a 32-bit pattern and no value sends an engine outside STATE,
// divides by zero or makes it loop.
#pragma once

#include <cstdint>
#include <vector>

namespace lbx::random {

// Block length that GENID needs for a STATE of length lstate (lstate >= 1), as the
// generator's own set-up reports it (MT19937 picks the long block when it fits).
int block_length(int genid, int lstate);
// Block length reported by the required-length query.
int requested_block_length(int genid);
// Smallest accepted LSTATE (block length + 3, the short block for MT19937).
int minimum_lstate(int genid);
// Whether n is a length that an initialised STATE of GENID has (block length + 3; for
// MT19937 the short or the long block).
bool generator_length(int genid, int n);

// Seed words that GENID takes from SEED before the basic generator fills the rest.
int seed_words_needed(int genid);

// Validates the seed words that GENID uses; false means "invalid SEED".
bool seeds_valid(int genid, const int* seed, int lseed);

// Fills state[0 .. block-1] (header, block, closing check) and appends the trailer.
// Preconditions: lstate >= block_length(genid, lstate) + 3 and seeds_valid(...).
// May throw std::bad_alloc (working storage for the seed words).
void initialise(int genid, int subid, const int* seed, int lseed, int* state, int lstate);

// n uniforms on (0,1) from a valid state, advancing it.
void fill_uniform(int* state, double* x, int n);

// Skip-ahead by n values (n >= 0) and by 2^p values (p >= 0). Valid state assumed;
// for MT19937 the long block is required (the caller checks).
void skip_ahead(int* state, std::uint64_t n);
void skip_ahead_pow2(int* state, int p);

// Leap-frog (1 <= k <= n); not for ACORN (GENID 5). Returns false if the generator cannot
// take it (an MT19937 stride that would leave the integer range).
bool leap_frog(int* state, int n, int k);

// The per-generator engines.
namespace basic {
void init(int s, int* state);
void fill(int* state, double* x, int n);
// n integers lo + floor(x w / 2^60) from the next n raw values x (1 <= w <= 2^32); false,
// drawing nothing, for a block changed by hand (even multiplier or zero value).
bool fill_integers(int* state, int lo, std::uint64_t w, int* out, int n);
void skip(int* state, std::uint64_t n);
void skip_pow2(int* state, int p);
void leap(int* state, int n, int k);
}  // namespace basic
namespace wh {
void init(int subid, const std::vector<std::int64_t>& words, int* state);
void fill(int* state, double* x, int n);
void skip(int* state, std::uint64_t n);
void skip_pow2(int* state, int p);
void leap(int* state, int n, int k);
}  // namespace wh
namespace mt {
void init(const std::vector<std::uint32_t>& words, int* state, int block);
void fill(int* state, double* x, int n);
void skip(int* state, std::uint64_t n);
void skip_pow2(int* state, int p);
bool leap(int* state, int n, int k);
}  // namespace mt
namespace wh2 {
void init(const std::vector<std::int64_t>& words, int* state);
void fill(int* state, double* x, int n);
void skip(int* state, std::uint64_t n);
void skip_pow2(int* state, int p);
void leap(int* state, int n, int k);
}  // namespace wh2
namespace acorn {
void init(const std::vector<std::int64_t>& words, int* state);
void fill(int* state, double* x, int n);
void skip(int* state, std::uint64_t n);
void skip_pow2(int* state, int p);
}  // namespace acorn
namespace mrg {
void init(const std::vector<std::int64_t>& words, int* state);
void fill(int* state, double* x, int n);
void skip(int* state, std::uint64_t n);
void skip_pow2(int* state, int p);
void leap(int* state, int n, int k);
}  // namespace mrg

}  // namespace lbx::random
