// Sorting a segment of a real vector in place (M01CAF): sorts rv(m1..m2),
// ascending or descending.
//
// Checks, in order: M2 >= 1, M1 >= 1, M1 <= M2, ORDER one of A, a, D, d; the
// vector is untouched on failure.  The result is bit for bit that of the
// reference quicksort followed, for descending order, by a reversal of the
// segment; elements outside the segment are never touched.
#include <algorithm>

#include "gen/sorting.hpp"
#include "sorting/checks.hpp"
#include "sorting/quicksort.hpp"

namespace lbx::sorting {

void M01CAFN(double* rv, int m1, int m2, char order, lbx::Fail& fail)
{
    bool ascending = true;
    if (!segment_ok<M01CAF_msg>(m1, m2, fail) || !order_ok<M01CAF_msg>(order, ascending, fail))
        return;
    if (m1 == m2)
        return;
    sort_ascending(rv, m1, m2);
    if (!ascending)
        std::reverse(rv + (m1 - 1), rv + m2);
}

}  // namespace lbx::sorting
