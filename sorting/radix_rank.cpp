// Stable ranks of a real or an integer vector (M01DAF, M01DBF) by an LSD radix
// sort of (key, index) pairs.
//
// Each element becomes its ranking key (rank_keys.hpp) paired with its index;
// the pairs are sorted on the key by least-significant-digit passes of 11 bits,
// each pass a stable counting scatter, so equal keys keep the order of their
// indices; a pass whose digit is the same for every key is skipped (all digit
// histograms come from one read of the keys).  Short segments go to
// std::stable_sort of the same pairs.  The rank of element i is M1 plus its
// position in the sorted pairs.
//
// Checks, in order: M2 >= 1, M1 >= 1, M1 <= M2, ORDER one of A, a, D, d.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>

#include "gen/sorting.hpp"
#include "sorting/checks.hpp"
#include "sorting/rank_keys.hpp"

namespace lbx::sorting {

namespace {

constexpr int digit_bits = 11;
constexpr std::size_t buckets = std::size_t{1} << digit_bits;
// Below this length the 6 x 2048 histogram counts would outnumber the keys.
constexpr std::size_t radix_threshold = 512;

template <class K>
struct Pair {
    K key;
    std::uint32_t index;
};

// Sorts a[0..n-1] on the key, b[0..n-1] the second buffer; returns the buffer
// that holds the result.
template <class K>
const Pair<K>* radix_sort(Pair<K>* a, Pair<K>* b, std::size_t n)
{
    constexpr int digits = (8 * static_cast<int>(sizeof(K)) + digit_bits - 1) / digit_bits;
    const auto count = std::make_unique<std::size_t[]>(digits * buckets);
    for (std::size_t i = 0; i < n; ++i) {
        const K k = a[i].key;
        for (int d = 0; d < digits; ++d)
            ++count[d * buckets + ((k >> (d * digit_bits)) & (buckets - 1))];
    }
    for (int d = 0; d < digits; ++d) {
        std::size_t* c = &count[d * buckets];
        const int shift = d * digit_bits;
        if (c[(a[0].key >> shift) & (buckets - 1)] == n)
            continue;  // every key has this digit
        std::size_t sum = 0;
        for (std::size_t j = 0; j < buckets; ++j)
            sum += std::exchange(c[j], sum);
        for (std::size_t i = 0; i < n; ++i)
            b[c[(a[i].key >> shift) & (buckets - 1)]++] = a[i];
        std::swap(a, b);
    }
    return a;
}

// rank[i] = first + the position of x[i] in the stable order of the keys.
template <class T>
void rank_vector(const T* x, std::size_t n, bool ascending, int* rank, int first)
{
    using K = decltype(rank_key(x[0], true));
    const auto pairs = std::unique_ptr<Pair<K>[]>(new Pair<K>[2 * n]);
    Pair<K>* a = pairs.get();
    for (std::size_t i = 0; i < n; ++i)
        a[i] = {rank_key(x[i], ascending), static_cast<std::uint32_t>(i)};
    const Pair<K>* sorted = a;
    if (n < radix_threshold) {
        std::stable_sort(a, a + n,
                         [](const Pair<K>& p, const Pair<K>& q) { return p.key < q.key; });
    } else {
        sorted = radix_sort(a, a + n, n);
    }
    for (std::size_t p = 0; p < n; ++p)
        rank[sorted[p].index] = first + static_cast<int>(p);
}

template <class Msg, class T>
void rank_segment(const T* x, int m1, int m2, char order, int* irank, lbx::Fail& fail)
{
    bool ascending = true;
    if (!segment_ok<Msg>(m1, m2, fail) || !order_ok<Msg>(order, ascending, fail))
        return;
    rank_vector(x + (m1 - 1), static_cast<std::size_t>(m2 - m1) + 1, ascending, irank + (m1 - 1),
                m1);
}

}  // namespace

void M01DAFN(const double* rv, int m1, int m2, char order, int* irank, lbx::Fail& fail)
{
    rank_segment<M01DAF_msg>(rv, m1, m2, order, irank, fail);
}

void M01DBFN(const int* iv, int m1, int m2, char order, int* irank, lbx::Fail& fail)
{
    rank_segment<M01DBF_msg>(iv, m1, m2, order, irank, fail);
}

}  // namespace lbx::sorting
