// Rearranging by ranks as the second half of a sort by ranks, and the permutation operations
// against their defining properties (inverse, cycles that rebuild the permutation).
#include <gtest/gtest.h>

#include <algorithm>
#include <complex>
#include <cstdint>
#include <numeric>
#include <random>
#include <string>
#include <vector>

#include "lbx3207qk.h"

namespace {

// A random permutation of m1..m2 in p(m1..m2), p of length m2 + 2 (guards -7).
std::vector<int> shuffled(int m1, int m2, std::uint64_t seed)
{
    std::vector<int> p(m2 + 2, -7);
    std::iota(p.begin() + (m1 - 1), p.begin() + m2, m1);
    std::shuffle(p.begin() + (m1 - 1), p.begin() + m2, std::mt19937_64(seed));
    return p;
}

// Ranks from M01DAF (descending keys with ties) and a rearrangement by them
// carry tags of each type into the order of a stable sort of the keys (the
// element of rank r lands at r); elements outside M1..M2 stay.
TEST(Rearranging, RanksThenRearrangeIsAStableSort)
{
    std::mt19937_64 gen(11);
    for (int n : {1, 2, 9, 20000}) {
        const int m1 = 3, m2 = n + 2;
        std::vector<double> key(m2 + 2), rv(m2 + 2);
        std::vector<int> iv(m2 + 2), irank(m2 + 2, -7), order(m2 + 2);
        std::vector<std::complex<double>> cv(m2 + 2);
        std::string ch;
        for (int i = 0; i < m2 + 2; ++i) {
            key[i] = static_cast<double>(gen() % 100);
            iv[i] = order[i] = i;
            cv[i] = rv[i] = i + 0.5;
            ch += std::string{static_cast<char>('A' + i % 26), static_cast<char>('a' + i % 23)};
        }
        const std::string ch0 = ch;
        std::stable_sort(order.begin() + 2, order.begin() + m2,
                         [&](int a, int b) { return key[a] > key[b]; });
        int f[5] = {1, 1, 1, 1, 1};
        m01daf_(key.data(), &m1, &m2, "D", irank.data(), &f[4], 1);
        m01eaf_(rv.data(), &m1, &m2, irank.data(), &f[0]);
        m01ebf_(iv.data(), &m1, &m2, irank.data(), &f[1]);
        m01ecf_(ch.data(), &m1, &m2, irank.data(), &f[2], 2);
        m01edf_(cv.data(), &m1, &m2, irank.data(), &f[3]);
        bool same[4] = {true, true, true, true};
        for (int k = 0; k < m2 + 2; ++k) {
            same[0] = same[0] && rv[k] == order[k] + 0.5;
            same[1] = same[1] && iv[k] == order[k];
            same[2] = same[2] && ch.compare(2 * k, 2, ch0, 2 * order[k], 2) == 0;
            same[3] = same[3] && cv[k] == order[k] + 0.5;
        }
        for (int w = 0; w < 4; ++w)
            EXPECT_TRUE(f[4] == 0 && f[w] == 0 && same[w]) << "M01E"
                                                           << "ABCD"[w] << "F " << n;
    }
}

TEST(Permutations, InverseAndCyclesRebuildThePermutation)
{
    for (int n : {1, 2, 3, 50, 4096}) {
        const int m1 = 2, m2 = n + 1;
        const std::vector<int> p = shuffled(m1, m2, n * 5);
        std::vector<int> inv = p, icycl(m2 + 2, -7), rebuilt(m2 + 2, -7);
        int ifail = 1, ifail2 = 1;
        m01zbf_(p.data(), &m1, &m2, &ifail);
        m01zaf_(inv.data(), &m1, &m2, &ifail2);
        bool inverse = ifail == 0 && ifail2 == 0 && inv[0] == -7 && inv[m2] == -7;
        for (int i = m1; i <= m2; ++i)
            inverse = inverse && inv[p[i - 1] - 1] == i;
        EXPECT_TRUE(inverse) << "M01ZAF n=" << n;
        m01zcf_(p.data(), &m1, &m2, icycl.data(), &ifail);
        // Each cycle starts (negated) at its smallest index, the starts ascend, and
        // each entry maps to the next (the last to the start).
        int start = 0;
        bool shape = ifail == 0 && icycl[0] == -7 && icycl[m2] == -7 && icycl[m1 - 1] < 0;
        for (int k = m1; k <= m2; ++k) {
            const int v = icycl[k - 1];
            shape = shape && (v > 0 ? v > start : -v > start);
            start = v < 0 ? -v : start;
            rebuilt[std::abs(v) - 1] = k < m2 && icycl[k] > 0 ? icycl[k] : start;
        }
        EXPECT_TRUE(shape && rebuilt == p) << "M01ZCF n=" << n;
    }
}

}  // namespace
