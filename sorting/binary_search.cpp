// Searching an ascending segment (M01NAF, M01NBF): the index of the last
// element not greater than ITEM, M1 - 1 when every element exceeds it.
//
// A branch-free binary search: the window halves each step by a conditional
// move, so a search in n elements reads ceil(log2 n) + 1 of them and takes
// no mispredicted branches; the two elements the next step may read are
// prefetched during each step, so the cache misses of long vectors overlap; with several equal
// elements the last one is found.  A NaN ITEM comes after every number, as in the ranking routines:
// the result is M2.  With VALID the segment is first checked to be ascending
// (one pass, refusing NaNs); without it an unordered segment gives some index
// in M1 - 1 .. M2.  The function's value on failure is 0.
//
// Checks, in order: M2 >= 1, M1 >= 1, M1 <= M2, with VALID the order.
#include <cstddef>

#include "gen/sorting.hpp"
#include "sorting/checks.hpp"

namespace lbx::sorting {

namespace {

// The number of elements of the ascending x[0..n-1], n >= 1, not greater than item.
template <class T>
std::size_t count_not_greater(const T* x, std::size_t n, T item)
{
    const T* base = x;
    while (n > 1) {
        const std::size_t half = n / 2;
        // Both candidates of the next step, fetched while this one compares.
        __builtin_prefetch(base + half / 2);
        __builtin_prefetch(base + half + half / 2);
        base = base[half] <= item ? base + half : base;
        n -= half;
    }
    return static_cast<std::size_t>(base - x) + (*base <= item ? 1 : 0);
}

template <class Msg, class T>
int search(bool valid, const T* x, int m1, int m2, T item, lbx::Fail& fail)
{
    if (!segment_ok<Msg>(m1, m2, fail))
        return 0;
    if (valid) {
        for (int i = m1; i < m2; ++i) {
            if (!(x[i - 1] <= x[i])) {
                fail(Msg::NOT_ASCENDING, i);
                return 0;
            }
        }
    }
    if (item != item)  // NaN
        return m2;
    return m1 - 1 +
           static_cast<int>(
               count_not_greater(x + (m1 - 1), static_cast<std::size_t>(m2 - m1) + 1, item));
}

}  // namespace

int M01NAFN(bool valid, const double* rv, int m1, int m2, double item, lbx::Fail& fail)
{
    return search<M01NAF_msg>(valid, rv, m1, m2, item, fail);
}

int M01NBFN(bool valid, const int* iv, int m1, int m2, int item, lbx::Fail& fail)
{
    return search<M01NBF_msg>(valid, iv, m1, m2, item, fail);
}

}  // namespace lbx::sorting
