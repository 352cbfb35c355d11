// Sorting a segment of an integer vector (M01CBF) and, stably, of a character
// vector on positions L1..L2 (M01CCF).
//
// Integers have one ascending order, so std::sort gives it (descending: the
// same with >).  Characters compare by their codes as unsigned bytes on
// positions L1..L2 only, so elements with equal keys can differ elsewhere: the
// indices are ordered by std::stable_sort, elements with equal keys keep their
// order in both orders, and the segment is rewritten from a copy.
//
// Checks, in order: M2 >= 1, M1 >= 1, M1 <= M2, then for characters L1 >= 1,
// L1 <= L2, L2 <= LEN(CH(1)); last ORDER one of A, a, D, d.
#include <algorithm>
#include <cstddef>
#include <cstring>
#include <functional>
#include <numeric>
#include <vector>

#include "gen/sorting.hpp"
#include "sorting/checks.hpp"

namespace lbx::sorting {

void M01CBFN(int* iv, int m1, int m2, char order, lbx::Fail& fail)
{
    using Msg = M01CBF_msg;
    bool ascending = true;
    if (!segment_ok<Msg>(m1, m2, fail) || !order_ok<Msg>(order, ascending, fail))
        return;
    if (ascending)
        std::sort(iv + (m1 - 1), iv + m2);
    else
        std::sort(iv + (m1 - 1), iv + m2, std::greater<>());
}

void M01CCFN(lbx::CharArray<char> ch, int m1, int m2, int l1, int l2, char order, lbx::Fail& fail)
{
    using Msg = M01CCF_msg;
    bool ascending = true;
    if (!segment_ok<Msg>(m1, m2, fail) || !positions_ok<Msg>(l1, l2, ch.len, fail) ||
        !order_ok<Msg>(order, ascending, fail) || m1 == m2)
        return;
    const std::size_t n = static_cast<std::size_t>(m2 - m1) + 1, len = ch.len;
    const std::size_t width = static_cast<std::size_t>(l2 - l1) + 1;
    const std::vector<char> copy(ch[m1 - 1], ch[m2]);
    auto key = [&](std::size_t i) { return copy.data() + i * len + (l1 - 1); };
    std::vector<std::size_t> idx(n);
    std::iota(idx.begin(), idx.end(), std::size_t{0});
    std::stable_sort(idx.begin(), idx.end(), [&](std::size_t p, std::size_t q) {
        const int c = std::memcmp(key(p), key(q), width);
        return ascending ? c < 0 : c > 0;
    });
    for (std::size_t k = 0; k < n; ++k)
        std::memcpy(ch[m1 - 1 + k], copy.data() + idx[k] * len, len);
}

}  // namespace lbx::sorting
