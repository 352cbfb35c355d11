// Ranking against std::stable_sort of the indices with the documented order
// (NaNs after every number in both orders, -0.0 tied with +0.0): vectors of
// lengths around the switch to the radix sort, matrix rows and columns inside a
// larger array, character keys (with the sorts of integers and characters), the
// user's comparison; and searching at every
// boundary against std::upper_bound.
#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <climits>
#include <cmath>
#include <cstdint>
#include <numeric>
#include <random>
#include <string>
#include <vector>

#include "lbx3207qk.h"

namespace {

const double nan = std::nan("");

// a before b in the ranking order (integers pass through exactly).
bool before(double a, double b, bool ascending)
{
    if (std::isnan(a) || std::isnan(b))
        return !std::isnan(a) && std::isnan(b);
    return ascending ? a < b : a > b;
}

// Expected ranks first.. of the n items that `less` orders, between two -7
// guards of width `guard`.
template <class Less>
std::vector<int> stable_ranks(int n, int first, Less less, int guard = 0)
{
    std::vector<int> idx(n), rank(n + 2 * guard, -7);
    std::iota(idx.begin(), idx.end(), 0);
    std::stable_sort(idx.begin(), idx.end(), less);
    for (int p = 0; p < n; ++p)
        rank[guard + idx[p]] = first + p;
    return rank;
}

TEST(Ranking, VectorsMatchAStableSort)
{
    for (int n : {1, 2, 3, 511, 512, 513, 4097, 100000}) {
        for (int kind = 0; kind < 6; ++kind) {
            std::mt19937_64 gen(n + kind);
            std::vector<double> rv(n + 4, 0.0);
            std::vector<int> iv(n + 4, 0);
            for (int i = 2; i < n + 2; ++i) {
                const std::uint64_t b = gen();
                const auto u = static_cast<std::uint32_t>(b);
                const double zeros[4] = {-0.0, 0.0, -nan, nan};
                rv[i] = kind == 0   ? std::bit_cast<double>(b)        // every class, both NaNs
                        : kind == 1 ? static_cast<double>(b % 7) - 3  // many ties
                        : kind == 2 ? zeros[b % 4]
                        : kind == 3 ? i * 0.25
                        : kind == 4 ? -i * 0.25
                                    : 1.5;
                iv[i] = kind == 0   ? static_cast<int>(u)
                        : kind == 1 ? static_cast<int>(u % 5) - 2
                        : kind == 2 ? (u % 2 ? INT_MIN : INT_MAX)
                        : kind == 3 ? i
                                    : -i;
            }
            for (bool ascending : {true, false}) {
                const char* order = ascending ? "a" : "D";
                const int m1 = 3, m2 = n + 2;
                std::vector<int> irank(n + 4, -7), irank2(n + 4, -7);
                int ifail = 1, ifail2 = 1;
                m01daf_(rv.data(), &m1, &m2, order, irank.data(), &ifail, 1);
                m01dbf_(iv.data(), &m1, &m2, order, irank2.data(), &ifail2, 1);
                auto want = [&](const auto& v) {
                    return stable_ranks(
                        n, m1, [&](int a, int b) { return before(v[a + 2], v[b + 2], ascending); },
                        2);
                };
                EXPECT_TRUE(ifail == 0 && irank == want(rv)) << "M01DAF " << n << " " << kind;
                EXPECT_TRUE(ifail2 == 0 && irank2 == want(iv)) << "M01DBF " << n << " " << kind;
                std::vector<int> sorted = iv, want_sorted = iv;  // M01CBF, the same segment
                m01cbf_(sorted.data(), &m1, &m2, order, &ifail, 1);
                std::stable_sort(want_sorted.begin() + 2, want_sorted.end() - 2,
                                 [&](int a, int b) { return before(a, b, ascending); });
                EXPECT_TRUE(ifail == 0 && sorted == want_sorted) << "M01CBF " << n << " " << kind;
            }
        }
    }
}

// Rows 2..M2 of a matrix with LDM = M2 + 3, compared on columns 2..N2, and
// columns 2..N2 compared on rows 2..M2; entries of few values so that the
// later keys and the ties matter (the integer matrix has 5 for NaN).
TEST(Ranking, MatrixRowsAndColumnsMatchAStableSort)
{
    std::mt19937 gen(7);
    for (const auto& [m2, n2] : {std::pair{2, 2}, {40, 4}, {700, 3}, {3, 600}}) {
        const int ldm = m2 + 3, m1 = 2, n1 = 2;
        std::vector<double> rm(static_cast<std::size_t>(ldm) * n2);
        for (double& v : rm)
            v = gen() % 9 == 0 ? nan : static_cast<double>(gen() % 3) - 1;
        std::vector<int> im(rm.size());
        for (std::size_t k = 0; k < rm.size(); ++k)
            im[k] = std::isnan(rm[k]) ? 5 : static_cast<int>(rm[k]);
        for (int w = 0; w < 8; ++w) {
            const bool rows = w % 4 < 2, real = w % 2 == 0, ascending = w < 4;
            const char* order = ascending ? "A" : "d";
            auto at = [&](int line, int k) {
                const std::size_t i = rows ? (m1 - 1 + line) + std::size_t(n1 - 1 + k) * ldm
                                           : (m1 - 1 + k) + std::size_t(n1 - 1 + line) * ldm;
                return real ? rm[i] : im[i];
            };
            const int keys = rows ? n2 - n1 + 1 : m2 - m1 + 1;
            auto want = stable_ranks(
                rows ? m2 - m1 + 1 : n2 - n1 + 1, 2,
                [&](int a, int b) {
                    for (int k = 0; k < keys; ++k) {
                        if (before(at(a, k), at(b, k), ascending))
                            return true;
                        if (before(at(b, k), at(a, k), ascending))
                            return false;
                    }
                    return false;
                },
                1);
            std::vector<int> irank(want.size(), -7);
            int* ir = irank.data();
            int ifail = 1;
            w % 4 == 0   ? m01def_(rm.data(), &ldm, &m1, &m2, &n1, &n2, order, ir, &ifail, 1)
            : w % 4 == 1 ? m01dff_(im.data(), &ldm, &m1, &m2, &n1, &n2, order, ir, &ifail, 1)
            : w % 4 == 2 ? m01djf_(rm.data(), &ldm, &m1, &m2, &n1, &n2, order, ir, &ifail, 1)
                         : m01dkf_(im.data(), &ldm, &m1, &m2, &n1, &n2, order, ir, &ifail, 1);
            EXPECT_TRUE(ifail == 0 && irank == want) << w << " " << m2 << " by " << n2;
        }
    }
}

// COMPAR(I, J): item I after item J, on RUSER(I) > RUSER(J); IUSER(1) counts
// the calls, IUSER(2) the calls outside M1..M2 or with I not before J.
int after(const int* i, const int* j, int* iuser, double* ruser)
{
    ++iuser[0];
    iuser[1] += *i < iuser[2] || *j > iuser[3] || *i >= *j;
    return ruser[*i - 1] > ruser[*j - 1];
}
int coin(const int* i, const int* j, int* iuser, double*)
{
    iuser[1] += *i < iuser[2] || *j > iuser[3] || *i >= *j;
    return ((*i * 7919 + *j * 104729 + iuser[0]++) >> 3) & 1;
}

TEST(Ranking, UserComparisonIsStableAndSafe)
{
    for (int n : {1, 2, 17, 1000, 4321}) {
        std::vector<double> ruser(n + 5);
        for (int i = 0; i < n + 5; ++i)
            ruser[i] = (i * 37) % 11;
        const int m1 = 4, m2 = n + 3;
        int iuser[4] = {0, 0, m1, m2}, ifail = 1;
        std::vector<int> irank(m2, -7);
        m01dzf_(&after, &m1, &m2, irank.data(), iuser, ruser.data(), &ifail);
        const auto want = stable_ranks(
            n, m1, [&](int a, int b) { return ruser[m1 - 1 + a] < ruser[m1 - 1 + b]; });
        EXPECT_TRUE(ifail == 0 && std::equal(want.begin(), want.end(), irank.begin() + 3)) << n;
        EXPECT_EQ(iuser[1], 0) << "indices passed to COMPAR";
        EXPECT_LE(iuser[0], n * std::ceil(std::log2(n + 1))) << "calls";
        int coins[4] = {0, 0, m1, m2};
        m01dzf_(&coin, &m1, &m2, irank.data(), coins, ruser.data(), &ifail);
        std::sort(irank.begin() + 3, irank.end());
        EXPECT_TRUE(ifail == 0 && coins[1] == 0 && irank[3] == m1 && irank[m2 - 1] == m2 &&
                    std::adjacent_find(irank.begin() + 3, irank.end(),
                                       [](int a, int b) { return b != a + 1; }) == irank.end())
            << "inconsistent COMPAR, n=" << n;
    }
}

// Ascending data with ties, searched in every segment for every element, the
// points between them, beyond both ends, the infinities and NaN.
TEST(Searching, EveryBoundaryMatchesUpperBound)
{
    for (int n = 1; n <= 34; ++n) {
        std::vector<double> x(n);
        for (int i = 0; i < n; ++i)
            x[i] = std::floor(i * 0.7) - 5;
        const std::vector<int> ix(x.begin(), x.end());
        for (int m1 = 1; m1 <= n; m1 += (n > 8 ? 3 : 1)) {
            for (int m2 = m1; m2 <= n; ++m2) {
                std::vector<double> items = {-INFINITY, INFINITY, nan, x[m1 - 1] - 1,
                                             x[m2 - 1] + 1};
                for (int i = m1 - 1; i < m2; ++i)
                    items.insert(items.end(), {x[i], x[i] + 0.5});
                for (const int valid : {0, 1}) {
                    for (double item : items) {
                        int ifail = 1;
                        const int got = m01naf_(&valid, x.data(), &m1, &m2, &item, &ifail);
                        const int want = std::isnan(item) ? m2
                                                          : std::upper_bound(x.begin() + m1 - 1,
                                                                             x.begin() + m2, item) -
                                                                x.begin();
                        EXPECT_TRUE(ifail == 0 && got == want) << n << " " << m1 << ":" << m2;
                        if (std::isfinite(item) && item == std::floor(item)) {
                            const int it = static_cast<int>(item);
                            EXPECT_EQ(m01nbf_(&valid, ix.data(), &m1, &m2, &it, &ifail), want);
                        }
                    }
                }
            }
        }
    }
    const int extremes[] = {INT_MIN, INT_MIN, 0, INT_MAX}, one = 1, four = 4, yes = 1;
    int ifail = 1;
    for (const auto& [item, want] :
         {std::pair{INT_MIN, 2}, {INT_MAX, 4}, {-1, 2}, {INT_MAX - 1, 3}})
        EXPECT_EQ(m01nbf_(&yes, extremes, &one, &four, &item, &ifail), want) << item;
}

// Fortran's comparison: both padded with blanks to the longer length, then
// compared as unsigned bytes (as std::string compares).
bool fortran_less(std::string a, std::string b)
{
    const std::size_t n = std::max(a.size(), b.size());
    a.resize(n, ' ');
    b.resize(n, ' ');
    return a < b;
}

std::vector<std::string> words(int n, int len, std::uint64_t seed)
{
    std::mt19937_64 gen(seed);
    std::vector<std::string> w(n);
    for (auto& s : w)
        for (int k = 0; k < len; ++k)
            s += "ab \x7f\x80\xff"[gen() % 6];
    return w;
}

// Ranks (M01DCF) and sorts (M01CCF) on positions L1..L2 of every element, both
// orders, against a stable sort of the substrings; bytes above 127 come after ASCII.
TEST(Ranking, CharacterKeysMatchAStableSort)
{
    for (int n : {1, 7, 3000}) {
        const int len = 5, m1 = 2, m2 = n + 1;
        const std::vector<std::string> w = words(n + 1, len, n);
        const std::string ch = std::accumulate(w.begin(), w.end(), std::string());
        for (const auto& [l1, l2] : {std::pair{1, 5}, {2, 3}, {5, 5}}) {
            for (bool ascending : {true, false}) {
                const char* order = ascending ? "A" : "D";
                auto less = [&](const std::string& a, const std::string& b) {
                    const auto ka = a.substr(l1 - 1, l2 - l1 + 1),
                               kb = b.substr(l1 - 1, l2 - l1 + 1);
                    return ascending ? ka < kb : kb < ka;
                };
                std::vector<int> irank(m2 + 1, -7);
                std::string sorted = ch;
                std::vector<std::string> ws = w;
                std::stable_sort(ws.begin() + 1, ws.end(), less);
                int ifail = 1, ifail2 = 1;
                m01dcf_(ch.data(), &m1, &m2, &l1, &l2, order, irank.data(), &ifail, len, 1);
                m01ccf_(sorted.data(), &m1, &m2, &l1, &l2, order, &ifail2, len, 1);
                const auto want = stable_ranks(
                    n, m1, [&](int a, int b) { return less(w[m1 - 1 + a], w[m1 - 1 + b]); }, 1);
                EXPECT_TRUE(ifail == 0 && irank == want) << n << " " << l1 << ":" << l2 << order;
                EXPECT_TRUE(ifail2 == 0 &&
                            sorted == std::accumulate(ws.begin(), ws.end(), std::string()))
                    << "M01CCF " << n << " " << l1 << ":" << l2 << order;
            }
        }
    }
}

// An ascending vector of strings of length 3 searched for items shorter,
// equal and longer than 3 (blank padding decides), at every boundary.
TEST(Searching, CharacterItemsAreComparedPaddedWithBlanks)
{
    std::vector<std::string> w = words(40, 3, 5);
    std::sort(w.begin(), w.end());
    const std::string ch = std::accumulate(w.begin(), w.end(), std::string());
    std::vector<std::string> items = {"", " ", "a", "a ", "a  a", "a \t", "\xff\xff\xff\xff", "ab"};
    for (const auto& s : w)
        items.insert(items.end(), {s, s + " ", s + "a", s + "\t", s.substr(0, 2)});
    for (const int valid : {0, 1}) {
        for (const auto& [m1, m2] : {std::pair{1, 40}, {1, 1}, {7, 8}, {13, 29}}) {
            for (const auto& item : items) {
                int ifail = 1;
                const int got =
                    m01ncf_(&valid, ch.data(), &m1, &m2, item.data(), &ifail, 3, item.size());
                const int want =
                    std::upper_bound(w.begin() + m1 - 1, w.begin() + m2, item, fortran_less) -
                    w.begin();
                EXPECT_TRUE(ifail == 0 && got == want) << m1 << ":" << m2 << " '" << item << "'";
            }
        }
    }
}

}  // namespace
