// Message units and record input/output through the Fortran runtime.
#pragma once

#include "gen/frame.hpp"

namespace lbx::frame {

// Process-wide unit numbers; a negative unit drops output.
extern int error_unit;
extern int advisory_unit;

// Ends the process with a normal stop (exit status 0, nothing more written).
[[noreturn]] void stop_process();

}  // namespace lbx::frame
