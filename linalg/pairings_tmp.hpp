// TEMPORARY: a few standard names and their pairing names, in the shape the
// generator is to emit into gen/linalg.hpp (all of them, sorted by standard
// name).  When it does, delete this file and its include in shims.cpp.
#pragma once

#include <string_view>

namespace lbx::linalg {

struct StandardPairing {
    std::string_view standard;
    std::string_view pairing;
};

inline constexpr StandardPairing standard_pairings[] = {
    {"DBDSQR", "F08MEF/DBDSQR"}, {"DGEQRF", "F08AEF/DGEQRF"}, {"DGETRF", "F07ADF/DGETRF"},
    {"DGETRI", "F07AJF/DGETRI"}, {"DGETRS", "F07AEF/DGETRS"}, {"DHSEQR", "F08PEF/DHSEQR"},
    {"DORGHR", "F08NFF/DORGHR"}, {"DORMQR", "F08AGF/DORMQR"}, {"DPOTRF", "F07FDF/DPOTRF"},
    {"DSYTRF", "F07MDF/DSYTRF"}, {"ZGETRF", "F07ARF/ZGETRF"}, {"ZHETRF", "F07MRF/ZHETRF"},
};

}  // namespace lbx::linalg
