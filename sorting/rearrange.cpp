// Rearranging a segment by ranks (M01EAF real, M01EBF integer, M01ECF
// character, M01EDF complex): the element of rank r moves to position r, so
// that ranks from the ranking routines sort the segment (and, applied to
// other vectors, carry them along).
//
// IRANK(M1..M2) is first checked to be a permutation of M1..M2
// (permutation.hpp), which also gives its inverse: position r receives the
// element I with IRANK(I) = r, read from a copy of the segment.  Checks, in
// order: M2 >= 1, M1 >= 1, M1 <= M2, then IRANK; the vector is untouched on
// failure.
#include <cstddef>
#include <cstring>
#include <vector>

#include "gen/sorting.hpp"
#include "sorting/checks.hpp"
#include "sorting/permutation.hpp"

namespace lbx::sorting {

namespace {

// The positions' sources (inverse[k]: the index whose rank is m1 + k), or false.
template <class Msg>
bool sources(int m1, int m2, const int* irank, std::vector<int>& inverse, lbx::Fail& fail)
{
    return segment_ok<Msg>(m1, m2, fail) &&
           invert(irank, m1, m2, inverse, Msg::RANK_RANGE, Msg::RANK_REPEATED, fail);
}

template <class Msg, class T>
void rearrange(T* x, int m1, int m2, const int* irank, lbx::Fail& fail)
{
    std::vector<int> inverse;
    if (!sources<Msg>(m1, m2, irank, inverse, fail))
        return;
    const std::vector<T> copy(x + (m1 - 1), x + m2);
    for (std::size_t k = 0; k < copy.size(); ++k)
        x[m1 - 1 + static_cast<int>(k)] = copy[static_cast<std::size_t>(inverse[k] - m1)];
}

}  // namespace

void M01EAFN(double* rv, int m1, int m2, const int* irank, lbx::Fail& fail)
{
    rearrange<M01EAF_msg>(rv, m1, m2, irank, fail);
}

void M01EBFN(int* iv, int m1, int m2, const int* irank, lbx::Fail& fail)
{
    rearrange<M01EBF_msg>(iv, m1, m2, irank, fail);
}

void M01EDFN(lbx::Complex* cv, int m1, int m2, const int* irank, lbx::Fail& fail)
{
    rearrange<M01EDF_msg>(cv, m1, m2, irank, fail);
}

void M01ECFN(lbx::CharArray<char> ch, int m1, int m2, const int* irank, lbx::Fail& fail)
{
    std::vector<int> inverse;
    if (!sources<M01ECF_msg>(m1, m2, irank, inverse, fail) || ch.len == 0)
        return;
    const std::vector<char> copy(ch[m1 - 1], ch[m2]);
    for (std::size_t k = 0; k < inverse.size(); ++k)
        std::memcpy(ch[m1 - 1 + k], copy.data() + (inverse[k] - m1) * ch.len, ch.len);
}

}  // namespace lbx::sorting
