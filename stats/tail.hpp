// The TAIL argument of the distribution routines: first character only,
// upper or lower case alike.
#pragma once

namespace lbx::stats {

enum class Tail { lower, upper, significance, confidence, invalid };

inline Tail tail_code(char c)
{
    switch (c) {
        case 'L':
        case 'l':
            return Tail::lower;
        case 'U':
        case 'u':
            return Tail::upper;
        case 'S':
        case 's':
            return Tail::significance;
        case 'C':
        case 'c':
            return Tail::confidence;
        default:
            return Tail::invalid;
    }
}

}  // namespace lbx::stats
