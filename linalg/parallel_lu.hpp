// The pieces of the linear-algebra chapter that the parallel LU (F07ADGN)
// calls: the argument reporter and the tuning table.  Both are chapter
// routines of their own; their declarations here match the generated ones.
#pragma once

#include <string_view>

namespace lbx::linalg {

// Reports argument number info of routine srname (its name padded with
// blanks to 13 characters) as having an illegal value.
void F06AAZN(std::string_view srname, int info);

// Tuning table: ispec 1 is the block size of routine name; setget 0 reads
// it into ival.
void F07ZAZN(int ispec, std::string_view name, int& ival, int setget);

}  // namespace lbx::linalg
