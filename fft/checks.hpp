// Argument checks shared by the chapter's routines.
#pragma once

#include <cmath>

namespace lbx::fft {

// DIRECT: the first character decides, 'F' or 'f' forward, 'B' or 'b' backward.
inline bool direct_valid(char direct)
{
    return direct == 'F' || direct == 'f' || direct == 'B' || direct == 'b';
}

inline bool is_forward(char direct)
{
    return direct == 'F' || direct == 'f';
}

// The 1/sqrt(n) of both directions.
inline double unit_scale(double n)
{
    return 1.0 / std::sqrt(n);
}

}  // namespace lbx::fft
