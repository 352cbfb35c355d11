// A CHARACTER array argument as an implementation sees it: elements of len
// characters each, one after another (Fortran's storage), element 1 at data.
#pragma once

#include <cstddef>

namespace lbx {

template <class C>  // const char for an input array, char otherwise
struct CharArray {
    C* data;
    std::size_t len;
    // The first character of element i + 1.
    C* operator[](std::size_t i) const { return data + i * len; }
};

}  // namespace lbx
