// Operations on permutations of M1..M2 (M01ZAF invert, M01ZBF check, M01ZCF
// cycles), and the check that every routine taking ranks or a permutation
// makes first.
//
// One pass over IPERM(M1..M2) with an array of n integers that records, for
// each value, the index holding it: a value outside M1..M2 or one already
// recorded fails (the first such index decides), and the finished array is
// the inverse.  Checks, in order: M2 >= 1, M1 >= 1, M1 <= M2, then the
// permutation; IPERM is untouched on failure.
#include <algorithm>
#include <cstddef>
#include <vector>

#include "gen/sorting.hpp"
#include "sorting/checks.hpp"
#include "sorting/permutation.hpp"

namespace lbx::sorting {

bool invert(const int* p, int m1, int m2, std::vector<int>& inverse, const lbx::Message<2>& range,
            const lbx::Message<3>& repeated, lbx::Fail& fail)
{
    inverse.assign(static_cast<std::size_t>(m2 - m1) + 1, 0);
    for (int i = m1; i <= m2; ++i) {
        const int v = p[i - 1];
        if (v < m1 || v > m2) {
            fail(range, i, v);
            return false;
        }
        int& at = inverse[static_cast<std::size_t>(v - m1)];
        if (at != 0) {
            fail(repeated, at, i, v);
            return false;
        }
        at = i;
    }
    return true;
}

void M01ZAFN(int* iperm, int m1, int m2, lbx::Fail& fail)
{
    using Msg = M01ZAF_msg;
    std::vector<int> inverse;
    if (!segment_ok<Msg>(m1, m2, fail) ||
        !invert(iperm, m1, m2, inverse, Msg::PERM_RANGE, Msg::PERM_REPEATED, fail))
        return;
    std::copy(inverse.begin(), inverse.end(), iperm + (m1 - 1));
}

void M01ZBFN(const int* iperm, int m1, int m2, lbx::Fail& fail)
{
    using Msg = M01ZBF_msg;
    std::vector<int> inverse;
    if (segment_ok<Msg>(m1, m2, fail))
        invert(iperm, m1, m2, inverse, Msg::PERM_RANGE, Msg::PERM_REPEATED, fail);
}

// Cycles in the order of their smallest index, each from that index on:
// I, IPERM(I), IPERM(IPERM(I)), ..., its first entry negated.
void M01ZCFN(const int* iperm, int m1, int m2, int* icycl, lbx::Fail& fail)
{
    using Msg = M01ZCF_msg;
    std::vector<int> seen;  // the inverse, then 0 once an index is written
    if (!segment_ok<Msg>(m1, m2, fail) ||
        !invert(iperm, m1, m2, seen, Msg::PERM_RANGE, Msg::PERM_REPEATED, fail))
        return;
    int* out = icycl + (m1 - 1);
    for (int i = m1; i <= m2; ++i) {
        if (seen[static_cast<std::size_t>(i - m1)] == 0)
            continue;
        *out++ = -i;
        seen[static_cast<std::size_t>(i - m1)] = 0;
        for (int j = iperm[i - 1]; j != i; j = iperm[j - 1]) {
            *out++ = j;
            seen[static_cast<std::size_t>(j - m1)] = 0;
        }
    }
}

}  // namespace lbx::sorting
