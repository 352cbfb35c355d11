// Message units and record input/output through the Fortran runtime.
#pragma once

#include <atomic>
#include <string_view>

#include "gen/frame.hpp"

namespace lbx::frame {

// Process-wide unit numbers; a negative unit drops output.  Relaxed atomics:
// as cheap as plain variables, and defined when threads get and set them at
// once (each read sees some value that was set).
extern std::atomic<int> error_unit;
extern std::atomic<int> advisory_unit;

// The records of one message, trailing blanks dropped as X04BAF drops them,
// to be written as one block.
class RecordBlock {
public:
    static constexpr int max_records = 16;
    static constexpr int max_length = 100;

    // Adds one record (cut to 100 characters); records beyond 16 are dropped.
    void add(std::string_view rec) noexcept;
    int count() const noexcept { return count_; }

    // One WRITE statement on unit, on this thread (see write_block).
    void write_here(int unit) const noexcept;
    // The records on standard error, bypassing the Fortran runtime.
    void write_to_stderr() const noexcept;

private:
    char text_[max_records * max_length];
    int lens_[max_records];
    int count_ = 0;
    int total_ = 0;
};

// Writes the block on unit (nothing for a negative unit) with one Fortran
// WRITE statement, so that the records of two threads' blocks never
// interleave.  The statement runs on a helper thread that this one waits for,
// at most two seconds: a unit held by this thread itself (the block comes
// from a function called inside the caller's own output statement on that
// unit) cannot be written until that statement ends.  Returns false when the
// wait ran out; the helper then writes the block when the unit is released.
bool write_block(int unit, const RecordBlock& block) noexcept;

// Ends the process with a normal stop (exit status 0, nothing more written).
[[noreturn]] void stop_process();

}  // namespace lbx::frame
