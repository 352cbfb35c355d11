// Stable ranks of items M1..M2 ordered by the user's procedure (M01DZF).
//
// COMPAR(I, J, IUSER, RUSER) is .TRUE. when item I must come after item J.
// A bottom-up merge sort of the indices: merging two runs, the head of the
// right run goes first only when COMPAR says the head of the left run comes
// after it, so items that COMPAR does not separate keep their order.  Each
// merge moves every index exactly once whatever COMPAR answers, so an
// inconsistent COMPAR still leaves a permutation of M1..M2 in IRANK (in an
// unspecified order) and never reads outside the runs.  At most about
// n log2 n calls of COMPAR for n items, always with M1 <= I, J <= M2 and I
// before J in the input.
//
// Checks, in order: M2 >= 1, M1 >= 1, M1 <= M2.
#include <algorithm>
#include <cstddef>
#include <numeric>
#include <vector>

#include "gen/sorting.hpp"
#include "sorting/checks.hpp"

namespace lbx::sorting {

void M01DZFN(const M01DZF_COMPARProc& compar, int m1, int m2, int* irank, int* iuser, double* ruser,
             lbx::Fail& fail)
{
    if (!segment_ok<M01DZF_msg>(m1, m2, fail))
        return;
    const auto n = static_cast<std::size_t>(m2 - m1) + 1;
    std::vector<int> a(n), b(n);
    std::iota(a.begin(), a.end(), m1);
    for (std::size_t width = 1; width < n; width *= 2) {
        for (std::size_t lo = 0; lo < n; lo += 2 * width) {
            const std::size_t mid = std::min(lo + width, n), hi = std::min(lo + 2 * width, n);
            std::size_t i = lo, j = mid, k = lo;
            while (i < mid && j < hi)
                b[k++] = compar(a[i], a[j], iuser, ruser) ? a[j++] : a[i++];
            k = std::copy(a.begin() + i, a.begin() + mid, b.begin() + k) - b.begin();
            std::copy(a.begin() + j, a.begin() + hi, b.begin() + k);
        }
        a.swap(b);
    }
    for (std::size_t p = 0; p < n; ++p)
        irank[a[p] - 1] = m1 + static_cast<int>(p);
}

}  // namespace lbx::sorting
