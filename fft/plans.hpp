// The transform stage: FFTW3 plans cached per shape, direction and alignment.
//
// Every routine of the chapter describes its transform as a Problem (FFTW's
// guru form: transform dimensions and loop dimensions, strides in elements)
// and calls execute().  Plans are made under one lock (FFTW's planner is not
// thread-safe) and executed with FFTW's new-array execute functions, which
// are; concurrent calls therefore share plans without further locking.
#pragma once

#include <cstddef>
#include <vector>

namespace lbx::fft {

enum class Kind : int { c2c = 0, r2c = 1, c2r = 2 };

// How much planning a call allows.  policy: an estimated plan the first time
// a problem is seen, a measured one the next time; estimate: never measure;
// measure: a measured plan at once.
enum class Effort : int { policy = 0, estimate = 1, measure = 2 };

struct Dim {
    int n;   // length (for r2c and c2r: the real length)
    int is;  // input stride, in elements of the input type
    int os;  // output stride, in elements of the output type
};

struct Problem {
    Kind kind = Kind::c2c;
    int sign = -1;           // c2c: -1 forward, +1 backward
    std::vector<Dim> dims;   // transform dimensions, slowest first
    std::vector<Dim> loops;  // loop (howmany) dimensions
};

// Transforms in to out (in == out: in place); false when FFTW gives no plan.
// Unscaled, in FFTW's convention.  c2r may overwrite its input.
bool execute(const Problem& p, void* in, void* out, Effort effort = Effort::policy);

// The cache, for tests: the number of cached plans, and dropping them all
// (plans in use by other threads stay alive until those calls end).
std::size_t cached_plans();
void clear_plan_cache();
// For tests: while set, every execute() fails as if FFTW gave no plan.
void simulate_planner_failure(bool on) noexcept;

// x[0..count) *= s, one vectorisable pass.
void scale(double* x, std::size_t count, double s) noexcept;

}  // namespace lbx::fft
