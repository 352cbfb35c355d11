// Permutations of M1..M2 held in 1-based integer arrays.
#pragma once

#include <vector>

#include "frame/fail.hpp"

namespace lbx::sorting {

// Checks that p(m1..m2) (p[0] is p(1)) holds each of m1..m2 once, scanning
// I = m1, m1 + 1, ...: the first I with p(I) outside m1..m2 raises range(I,
// p(I)), the first repeating a value seen at an earlier J raises repeated(J, I,
// p(I)).  On success inverse[v - m1] is the I with p(I) = v.
bool invert(const int* p, int m1, int m2, std::vector<int>& inverse, const lbx::Message<2>& range,
            const lbx::Message<3>& repeated, lbx::Fail& fail);

}  // namespace lbx::sorting
