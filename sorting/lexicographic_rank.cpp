// Stable ranks of the rows or the columns of a real or an integer matrix
// (M01DEF, M01DFF, M01DJF, M01DKF), and of a character vector on character
// positions L1..L2 (M01DCF).
//
// Rows M1..M2 are compared on columns N1..N2 (columns N1..N2 on rows M1..M2)
// lexicographically: the first differing key decides, each element's key as
// in rank_keys.hpp (reals: -0.0 ties with +0.0, NaNs after every number in
// both orders).  The indices are ordered by std::stable_sort, a merge sort, so
// rows (columns) with equal keys keep their order; the rank of row i is M1
// plus its position (of column j, N1 plus its position).  Characters compare
// by their codes as unsigned bytes (ASCII order, as Fortran's < on gfortran).
//
// Checks, in order: M2 >= 1, M1 >= 1, M1 <= M2, then for matrices N2 >= 1,
// N1 >= 1, N1 <= N2, LDM >= M2, for characters L1 >= 1, L1 <= L2,
// L2 <= LEN(CH(1)); last ORDER one of A, a, D, d.
#include <algorithm>
#include <cstddef>
#include <cstring>
#include <numeric>
#include <vector>

#include "gen/sorting.hpp"
#include "sorting/checks.hpp"
#include "sorting/rank_keys.hpp"

namespace lbx::sorting {

namespace {

// rank[i] = first + the position of item i among the n items in the stable
// order of `before`.
template <class Before>
void stable_ranks(std::size_t n, Before before, int* rank, int first)
{
    std::vector<int> order(n);
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), before);
    for (std::size_t p = 0; p < n; ++p)
        rank[order[p]] = first + static_cast<int>(p);
}

// Ranks the `count` lines (rows or columns) that start at x + line * across
// and hold `length` keys `along` apart; rank[line] = first + position.
template <class T>
void rank_lines(const T* x, std::size_t count, std::ptrdiff_t across, std::size_t length,
                std::ptrdiff_t along, bool ascending, int* rank, int first)
{
    stable_ranks(
        count,
        [&](int p, int q) {
            const T* a = x + p * across;
            const T* b = x + q * across;
            for (std::size_t k = 0; k < length; ++k, a += along, b += along) {
                const auto ka = rank_key(*a, ascending), kb = rank_key(*b, ascending);
                if (ka != kb)
                    return ka < kb;
            }
            return false;
        },
        rank, first);
}

template <class Msg, class T>
void rank_matrix(const T* m, int ldm, int m1, int m2, int n1, int n2, char order, bool rows,
                 int* irank, lbx::Fail& fail)
{
    bool ascending = true;
    if (!matrix_ok<Msg>(ldm, m1, m2, n1, n2, fail) || !order_ok<Msg>(order, ascending, fail))
        return;
    const std::ptrdiff_t ld = ldm;
    const T* corner = m + (m1 - 1) + (n1 - 1) * ld;
    const auto nrows = static_cast<std::size_t>(m2 - m1) + 1;
    const auto ncols = static_cast<std::size_t>(n2 - n1) + 1;
    if (rows)
        rank_lines(corner, nrows, 1, ncols, ld, ascending, irank + (m1 - 1), m1);
    else
        rank_lines(corner, ncols, ld, nrows, 1, ascending, irank + (n1 - 1), n1);
}

}  // namespace

void M01DCFN(lbx::CharArray<const char> ch, int m1, int m2, int l1, int l2, char order, int* irank,
             lbx::Fail& fail)
{
    bool ascending = true;
    if (!segment_ok<M01DCF_msg>(m1, m2, fail) || !positions_ok<M01DCF_msg>(l1, l2, ch.len, fail) ||
        !order_ok<M01DCF_msg>(order, ascending, fail))
        return;
    const auto width = static_cast<std::size_t>(l2 - l1) + 1;
    const char* first = ch[m1 - 1] + (l1 - 1);
    stable_ranks(
        static_cast<std::size_t>(m2 - m1) + 1,
        [&](int p, int q) {
            const int c = std::memcmp(first + p * ch.len, first + q * ch.len, width);
            return ascending ? c < 0 : c > 0;
        },
        irank + (m1 - 1), m1);
}

void M01DEFN(const double* rm, int ldm, int m1, int m2, int n1, int n2, char order, int* irank,
             lbx::Fail& fail)
{
    rank_matrix<M01DEF_msg>(rm, ldm, m1, m2, n1, n2, order, true, irank, fail);
}

void M01DFFN(const int* im, int ldm, int m1, int m2, int n1, int n2, char order, int* irank,
             lbx::Fail& fail)
{
    rank_matrix<M01DFF_msg>(im, ldm, m1, m2, n1, n2, order, true, irank, fail);
}

void M01DJFN(const double* rm, int ldm, int m1, int m2, int n1, int n2, char order, int* irank,
             lbx::Fail& fail)
{
    rank_matrix<M01DJF_msg>(rm, ldm, m1, m2, n1, n2, order, false, irank, fail);
}

void M01DKFN(const int* im, int ldm, int m1, int m2, int n1, int n2, char order, int* irank,
             lbx::Fail& fail)
{
    rank_matrix<M01DKF_msg>(im, ldm, m1, m2, n1, n2, order, false, irank, fail);
}

}  // namespace lbx::sorting
