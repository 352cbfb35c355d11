// Rearranging by ranks against its definition (the element of rank r lands at r) and as the
// second half of a sort by ranks, and the permutation operations against their
// defining properties (inverse, cycles that rebuild the permutation).
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

// RV(IRANK(I)) after = RV(I) before, for each type; elements outside M1..M2
// stay.
TEST(Rearranging, EachElementMovesToItsRank)
{
    for (int n : {1, 2, 9, 1000}) {
        const int m1 = 3, m2 = n + 2;
        const std::vector<int> irank = shuffled(m1, m2, n);
        std::vector<double> rv(m2 + 2);
        std::iota(rv.begin(), rv.end(), 0.5);
        std::vector<int> iv(rv.begin(), rv.end());
        std::vector<std::complex<double>> cv(rv.begin(), rv.end());
        std::string ch;
        for (std::size_t i = 0; i < rv.size(); ++i)
            ch += std::string{static_cast<char>('A' + i % 26), static_cast<char>('a' + i % 23)};
        auto rv_want = rv;
        auto ch_want = ch;
        auto iv_want = iv;
        auto cv_want = cv;
        for (int i = m1; i <= m2; ++i) {
            rv_want[irank[i - 1] - 1] = rv[i - 1];
            iv_want[irank[i - 1] - 1] = iv[i - 1];
            cv_want[irank[i - 1] - 1] = cv[i - 1];
            ch_want.replace(2 * (irank[i - 1] - 1), 2, ch, 2 * (i - 1), 2);
        }
        int f[4] = {1, 1, 1, 1};
        m01eaf_(rv.data(), &m1, &m2, irank.data(), &f[0]);
        m01ebf_(iv.data(), &m1, &m2, irank.data(), &f[1]);
        m01ecf_(ch.data(), &m1, &m2, irank.data(), &f[2], 2);
        m01edf_(cv.data(), &m1, &m2, irank.data(), &f[3]);
        EXPECT_TRUE(f[0] == 0 && rv == rv_want) << "M01EAF " << n;
        EXPECT_TRUE(f[1] == 0 && iv == iv_want) << "M01EBF " << n;
        EXPECT_TRUE(f[2] == 0 && ch == ch_want) << "M01ECF " << n;
        EXPECT_TRUE(f[3] == 0 && cv == cv_want) << "M01EDF " << n;
    }
}

// Ranking then rearranging sorts, and carries a second vector along stably.
TEST(Rearranging, RanksThenRearrangeIsAStableSort)
{
    std::mt19937_64 gen(11);
    const int n = 20000, m1 = 1, m2 = n;
    std::vector<double> key(n), tag(n);
    for (int i = 0; i < n; ++i) {
        key[i] = static_cast<double>(gen() % 100);
        tag[i] = i;
    }
    std::vector<int> irank(n), order(n);
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) { return key[a] > key[b]; });
    int ifail = 1;
    m01daf_(key.data(), &m1, &m2, "D", irank.data(), &ifail, 1);
    m01eaf_(tag.data(), &m1, &m2, irank.data(), &ifail);
    EXPECT_TRUE(std::equal(order.begin(), order.end(), tag.begin()));
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
