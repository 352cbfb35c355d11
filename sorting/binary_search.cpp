// Searching an ascending segment (M01NAF, M01NBF, M01NCF): the index of the last
// element not greater than ITEM, M1 - 1 when every element exceeds it.
//
// A branch-free binary search: the window halves each step by a conditional
// move, so a search in n elements reads ceil(log2 n) + 1 of them and takes no
// mispredicted branches; the two elements the next step may read are
// prefetched during each step, so the cache misses of long vectors overlap.
// With several equal elements the last one is found.  A NaN ITEM comes after
// every number, as in the ranking routines: the result is M2.  With VALID the
// segment is first checked to be ascending (one pass, refusing NaNs); without
// it an unordered segment gives some index in M1 - 1 .. M2.  The function's
// value on failure is 0.  Characters compare as Fortran's <= does: by unsigned
// byte codes, the shorter of CH(I) and ITEM padded with blanks.
//
// Checks, in order: M2 >= 1, M1 >= 1, M1 <= M2, with VALID the order.
#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string_view>

#include "gen/sorting.hpp"
#include "sorting/checks.hpp"

namespace lbx::sorting {

namespace {

// The number of the first n >= 1 elements of an ascending sequence that are
// not greater than the item: not_greater(i) tells for element i + 1, whose
// address is at(i).
template <class At, class NotGreater>
std::size_t count_not_greater(std::size_t n, At at, NotGreater not_greater)
{
    std::size_t base = 0;
    while (n > 1) {
        const std::size_t half = n / 2;
        // Both candidates of the next step, fetched while this one compares.
        __builtin_prefetch(at(base + half / 2));
        __builtin_prefetch(at(base + half + half / 2));
        base = not_greater(base + half) ? base + half : base;
        n -= half;
    }
    return base + (not_greater(base) ? 1 : 0);
}

// Fortran's comparison of two strings: the shorter padded with blanks.
int compare(const char* a, std::size_t la, const char* b, std::size_t lb)
{
    const int c = std::memcmp(a, b, std::min(la, lb));
    if (c != 0 || la == lb)
        return c;
    const bool a_longer = la > lb;
    const unsigned char* tail = reinterpret_cast<const unsigned char*>(a_longer ? a + lb : b + la);
    for (std::size_t k = 0; k < (a_longer ? la - lb : lb - la); ++k)
        if (tail[k] != ' ')
            return (tail[k] > ' ') == a_longer ? 1 : -1;
    return 0;
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
    const T* first = x + (m1 - 1);
    const std::size_t count = count_not_greater(
        static_cast<std::size_t>(m2 - m1) + 1, [&](std::size_t i) { return first + i; },
        [&](std::size_t i) { return first[i] <= item; });
    return m1 - 1 + static_cast<int>(count);
}

}  // namespace

int M01NCFN(bool valid, lbx::CharArray<const char> ch, int m1, int m2, std::string_view item,
            lbx::Fail& fail)
{
    if (!segment_ok<M01NCF_msg>(m1, m2, fail))
        return 0;
    if (valid) {
        for (int i = m1; i < m2; ++i) {
            if (std::memcmp(ch[i - 1], ch[i], ch.len) > 0) {
                fail(M01NCF_msg::NOT_ASCENDING, i);
                return 0;
            }
        }
    }
    const std::size_t count = count_not_greater(
        static_cast<std::size_t>(m2 - m1) + 1, [&](std::size_t i) { return ch[m1 - 1 + i]; },
        [&](std::size_t i) {
            return compare(ch[m1 - 1 + i], ch.len, item.data(), item.size()) <= 0;
        });
    return m1 - 1 + static_cast<int>(count);
}

int M01NAFN(bool valid, const double* rv, int m1, int m2, double item, lbx::Fail& fail)
{
    return search<M01NAF_msg>(valid, rv, m1, m2, item, fail);
}

int M01NBFN(bool valid, const int* iv, int m1, int m2, int item, lbx::Fail& fail)
{
    return search<M01NBF_msg>(valid, iv, m1, m2, item, fail);
}

}  // namespace lbx::sorting
