// The tuning table of the blocked linear-algebra routines (F07ZAZN).
#pragma once

#include <string_view>

namespace lbx::linalg {

// The row of the tuning table for a routine name (the stem is its first five
// characters, letters a-z taken as upper case; "F08ME" needs a sixth character
// "V"), or -1 for a name the table does not know.
int tuning_row(std::string_view name) noexcept;

}  // namespace lbx::linalg
