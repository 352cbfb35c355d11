// Sorting integers and characters against std::stable_sort, rearranging by
// ranks against its definition (the element of rank r lands at r) and as the
// second half of a sort by ranks, and the permutation operations against their
// defining properties (inverse, cycles that rebuild the permutation).
#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <complex>
#include <cstdint>
#include <functional>
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

TEST(Sorting, IntegersAndCharacterKeysMatchAStableSort)
{
    std::mt19937_64 gen(3);
    for (int n : {1, 2, 17, 5000}) {
        std::vector<int> iv(n + 2);
        for (int& v : iv)
            v = static_cast<int>(gen() % 3 == 0 ? gen() : gen() % 7) |
                (gen() % 50 == 0 ? INT_MIN : 0);
        for (bool ascending : {true, false}) {
            std::vector<int> got = iv, want = iv;
            int m1 = 2, m2 = n + 1, ifail = 1;
            m01cbf_(got.data(), &m1, &m2, ascending ? "a" : "d", &ifail, 1);
            if (ascending)
                std::stable_sort(want.begin() + 1, want.end() - 1);
            else
                std::stable_sort(want.begin() + 1, want.end() - 1, std::greater<>());
            EXPECT_TRUE(ifail == 0 && got == want) << "M01CBF n=" << n;
        }
        // Elements of length 4 keyed on positions 2..3: equal keys, different elements.
        std::vector<std::string> w(n + 2);
        for (auto& s : w)
            for (int k = 0; k < 4; ++k)
                s += "ab\x80 "[gen() % 4];
        std::string ch;
        for (const auto& s : w)
            ch += s;
        for (bool ascending : {true, false}) {
            std::string got = ch;
            int m1 = 2, m2 = n + 1, l1 = 2, l2 = 3, ifail = 1;
            m01ccf_(got.data(), &m1, &m2, &l1, &l2, ascending ? "A" : "D", &ifail, 4, 1);
            std::vector<std::string> want = w;
            std::stable_sort(want.begin() + 1, want.end() - 1, [&](const auto& a, const auto& b) {
                return ascending ? a.substr(1, 2) < b.substr(1, 2)
                                 : b.substr(1, 2) < a.substr(1, 2);
            });
            std::string joined;
            for (const auto& s : want)
                joined += s;
            EXPECT_TRUE(ifail == 0 && got == joined) << "M01CCF n=" << n << ascending;
        }
    }
}

// RV(IRANK(I)) after = RV(I) before, for each type; elements outside M1..M2 stay.
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
        auto want = [&](auto v) {
            auto out = v;
            for (int i = m1; i <= m2; ++i)
                out[irank[i - 1] - 1] = v[i - 1];
            return out;
        };
        std::vector<std::string> pieces(rv.size());
        for (std::size_t i = 0; i < rv.size(); ++i)
            pieces[i] = ch.substr(2 * i, 2);
        std::string ch_want;
        for (const auto& s : want(pieces))
            ch_want += s;
        const auto rv_want = want(rv);
        const auto iv_want = want(iv);
        const auto cv_want = want(cv);
        int ifail = 1;
        m01eaf_(rv.data(), &m1, &m2, irank.data(), &ifail);
        EXPECT_TRUE(ifail == 0 && rv == rv_want) << "M01EAF " << n;
        m01ebf_(iv.data(), &m1, &m2, irank.data(), &ifail);
        EXPECT_TRUE(ifail == 0 && iv == iv_want) << "M01EBF " << n;
        m01ecf_(ch.data(), &m1, &m2, irank.data(), &ifail, 2);
        EXPECT_TRUE(ifail == 0 && ch == ch_want) << "M01ECF " << n;
        m01edf_(cv.data(), &m1, &m2, irank.data(), &ifail);
        EXPECT_TRUE(ifail == 0 && cv == cv_want) << "M01EDF " << n;
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
    std::vector<int> irank(n);
    int ifail = 1;
    m01daf_(key.data(), &m1, &m2, "D", irank.data(), &ifail, 1);
    std::vector<int> order(n);
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) { return key[a] > key[b]; });
    m01eaf_(key.data(), &m1, &m2, irank.data(), &ifail);
    m01eaf_(tag.data(), &m1, &m2, irank.data(), &ifail);
    for (int k = 0; k < n; ++k)
        ASSERT_EQ(tag[k], order[k]) << k;
    EXPECT_TRUE(std::is_sorted(key.begin(), key.end(), std::greater<>()));
}

TEST(Permutations, InverseAndCyclesRebuildThePermutation)
{
    for (int n : {1, 2, 3, 50, 4096}) {
        const int m1 = 2, m2 = n + 1;
        const std::vector<int> p = shuffled(m1, m2, n * 5);
        std::vector<int> inv = p;
        int ifail = 1;
        m01zbf_(p.data(), &m1, &m2, &ifail);
        EXPECT_EQ(ifail, 0);
        m01zaf_(inv.data(), &m1, &m2, &ifail);
        bool inverse = ifail == 0 && inv[0] == -7 && inv[m2] == -7;
        for (int i = m1; i <= m2; ++i)
            inverse = inverse && inv[p[i - 1] - 1] == i;
        EXPECT_TRUE(inverse) << "M01ZAF n=" << n;
        m01zaf_(inv.data(), &m1, &m2, &ifail);
        EXPECT_EQ(inv, p) << "inverse of the inverse";
        std::vector<int> icycl(m2 + 2, -7), rebuilt(m2, 0);
        m01zcf_(p.data(), &m1, &m2, icycl.data(), &ifail);
        ASSERT_EQ(ifail, 0);
        // Each cycle starts (negated) at its smallest index, the starts ascend, and each
        // entry maps to the next (the last to the start).
        int start = 0, last_start = 0;
        bool shape = icycl[0] == -7 && icycl[m2] == -7 && icycl[m1 - 1] < 0;
        for (int k = m1; k <= m2; ++k) {
            const int v = icycl[k - 1];
            if (v < 0) {
                shape = shape && -v > last_start;
                start = last_start = -v;
            }
            shape = shape && std::abs(v) >= start;
            const int next = k < m2 && icycl[k] > 0 ? icycl[k] : start;
            rebuilt[std::abs(v) - 1] = next;
        }
        EXPECT_TRUE(shape) << "M01ZCF n=" << n;
        EXPECT_TRUE(std::equal(rebuilt.begin() + (m1 - 1), rebuilt.end(), p.begin() + (m1 - 1)))
            << "M01ZCF n=" << n;
    }
    const int iperm[6] = {3, 1, 2, 4, 6, 5}, one = 1, six = 6;
    int icycl[6], ifail = 1;
    m01zcf_(iperm, &one, &six, icycl, &ifail);
    EXPECT_EQ(std::vector<int>(icycl, icycl + 6), (std::vector<int>{-1, 3, 2, -4, -5, 6}));
}

}  // namespace
