// Ranking against std::stable_sort of the indices with the documented order
// (NaNs after every number in both orders, -0.0 tied with +0.0): vectors of
// lengths around the switch to the radix sort, matrix rows and columns inside a
// larger array, the user's comparison; and searching at every boundary against
// std::upper_bound.
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

// a before b in the ranking order.
bool before(double a, double b, bool ascending)
{
    if (std::isnan(a) || std::isnan(b))
        return !std::isnan(a) && std::isnan(b);
    return ascending ? a < b : a > b;
}
bool before(int a, int b, bool ascending)
{
    return ascending ? a < b : a > b;
}

// Expected ranks first.. of the n items that `less` orders.
template <class Less>
std::vector<int> stable_ranks(int n, int first, Less less)
{
    std::vector<int> idx(n), rank(n);
    std::iota(idx.begin(), idx.end(), 0);
    std::stable_sort(idx.begin(), idx.end(), less);
    for (int p = 0; p < n; ++p)
        rank[idx[p]] = first + p;
    return rank;
}

std::vector<double> reals(int n, int kind, std::uint64_t seed)
{
    std::mt19937_64 gen(seed);
    std::vector<double> v(n);
    for (int i = 0; i < n; ++i) {
        const std::uint64_t b = gen();
        v[i] = kind == 0   ? std::bit_cast<double>(b)        // every class, NaNs of both signs
               : kind == 1 ? static_cast<double>(b % 7) - 3  // many ties
               : kind == 2 ? (b % 4 == 0   ? -0.0
                              : b % 4 == 1 ? 0.0
                              : b % 4 == 2 ? -nan
                                           : nan)
               : kind == 3 ? i * 0.25   // ascending
               : kind == 4 ? -i * 0.25  // descending
                           : 1.5;       // constant
    }
    return v;
}

std::vector<int> integers(int n, int kind, std::uint64_t seed)
{
    std::mt19937_64 gen(seed);
    std::vector<int> v(n);
    for (int i = 0; i < n; ++i) {
        const auto b = static_cast<std::uint32_t>(gen());
        v[i] = kind == 0   ? static_cast<int>(b)
               : kind == 1 ? static_cast<int>(b % 5) - 2
               : kind == 2 ? (b % 2 ? INT_MIN : INT_MAX)
               : kind == 3 ? i
                           : -i;
    }
    return v;
}

TEST(Ranking, VectorsMatchAStableSort)
{
    for (int n : {1, 2, 3, 511, 512, 513, 4097, 100000}) {
        for (int kind = 0; kind < 6; ++kind) {
            for (bool ascending : {true, false}) {
                const char* order = ascending ? "a" : "D";
                const int m1 = 3, m2 = n + 2;
                const std::vector<double> x = reals(n, kind, n + kind);
                std::vector<double> rv(n + 4, 0.0);
                std::copy(x.begin(), x.end(), rv.begin() + 2);
                std::vector<int> irank(n + 4, -7);
                int ifail = 1;
                m01daf_(rv.data(), &m1, &m2, order, irank.data(), &ifail, 1);
                ASSERT_EQ(ifail, 0);
                const auto want = stable_ranks(
                    n, m1, [&](int a, int b) { return before(x[a], x[b], ascending); });
                EXPECT_TRUE(std::equal(want.begin(), want.end(), irank.begin() + 2))
                    << "M01DAF n=" << n << " kind=" << kind << order;
                EXPECT_EQ(irank[0] + irank[1] + irank[n + 2] + irank[n + 3], -28)
                    << "outside the segment";
                if (kind > 4)
                    continue;
                const std::vector<int> y = integers(n, kind, n + kind);
                std::vector<int> iv(n + 4, 0);
                std::copy(y.begin(), y.end(), iv.begin() + 2);
                m01dbf_(iv.data(), &m1, &m2, order, irank.data(), &ifail, 1);
                ASSERT_EQ(ifail, 0);
                const auto wanti = stable_ranks(
                    n, m1, [&](int a, int b) { return before(y[a], y[b], ascending); });
                EXPECT_TRUE(std::equal(wanti.begin(), wanti.end(), irank.begin() + 2))
                    << "M01DBF n=" << n << " kind=" << kind << order;
            }
        }
    }
}

// Rows 2..M2 of a matrix with LDM = M2 + 3, compared on columns 2..N2, and
// columns 2..N2 compared on rows 2..M2; entries of few values so that the
// later keys and the ties matter.
TEST(Ranking, MatrixRowsAndColumnsMatchAStableSort)
{
    std::mt19937 gen(7);
    for (const auto& [m2, n2] : {std::pair{2, 2}, {40, 4}, {700, 3}, {3, 600}}) {
        const int ldm = m2 + 3, m1 = 2, n1 = 2;
        std::vector<double> rm(static_cast<std::size_t>(ldm) * n2);
        for (double& v : rm)
            v = gen() % 9 == 0 ? nan : static_cast<double>(gen() % 3) - 1;
        for (bool ascending : {true, false}) {
            const char* order = ascending ? "A" : "d";
            auto lex = [&](auto at, int count, int a, int b) {
                for (int k = 0; k < count; ++k) {
                    if (before(at(a, k), at(b, k), ascending))
                        return true;
                    if (before(at(b, k), at(a, k), ascending))
                        return false;
                }
                return false;
            };
            auto r = [&](int i, int j) {
                return rm[(m1 - 1 + i) + static_cast<std::size_t>(n1 - 1 + j) * ldm];
            };
            auto c = [&](int j, int i) { return r(i, j); };
            auto ri = [&](int i, int j) {
                return std::isnan(r(i, j)) ? 5 : static_cast<int>(r(i, j));
            };
            auto ci = [&](int j, int i) { return ri(i, j); };
            const int nr = m2 - m1 + 1, nc = n2 - n1 + 1;
            std::vector<int> imnan(rm.size());  // the integer matrix: NaN becomes 5
            for (std::size_t k = 0; k < rm.size(); ++k)
                imnan[k] = std::isnan(rm[k]) ? 5 : static_cast<int>(rm[k]);
            std::vector<int> irank(std::max(m2, n2), -7);
            int ifail = 1;
            m01def_(rm.data(), &ldm, &m1, &m2, &n1, &n2, order, irank.data(), &ifail, 1);
            auto want = stable_ranks(nr, m1, [&](int a, int b) { return lex(r, nc, a, b); });
            EXPECT_TRUE(ifail == 0 && std::equal(want.begin(), want.end(), irank.begin() + 1))
                << "M01DEF " << m2 << order;
            m01dff_(imnan.data(), &ldm, &m1, &m2, &n1, &n2, order, irank.data(), &ifail, 1);
            want = stable_ranks(nr, m1, [&](int a, int b) { return lex(ri, nc, a, b); });
            EXPECT_TRUE(ifail == 0 && std::equal(want.begin(), want.end(), irank.begin() + 1))
                << "M01DFF " << m2 << order;
            m01djf_(rm.data(), &ldm, &m1, &m2, &n1, &n2, order, irank.data(), &ifail, 1);
            want = stable_ranks(nc, n1, [&](int a, int b) { return lex(c, nr, a, b); });
            EXPECT_TRUE(ifail == 0 && std::equal(want.begin(), want.end(), irank.begin() + 1))
                << "M01DJF " << n2 << order;
            m01dkf_(imnan.data(), &ldm, &m1, &m2, &n1, &n2, order, irank.data(), &ifail, 1);
            want = stable_ranks(nc, n1, [&](int a, int b) { return lex(ci, nr, a, b); });
            EXPECT_TRUE(ifail == 0 && std::equal(want.begin(), want.end(), irank.begin() + 1))
                << "M01DKF " << n2 << order;
            EXPECT_EQ(irank[0], -7);
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
        std::vector<int> got(irank.begin() + 3, irank.end());
        std::sort(got.begin(), got.end());
        std::vector<int> perm(n);
        std::iota(perm.begin(), perm.end(), m1);
        EXPECT_TRUE(ifail == 0 && got == perm && coins[1] == 0) << "inconsistent COMPAR, n=" << n;
    }
}

// Ascending data with ties, searched in every segment for every element, the
// points between them, beyond both ends, the infinities and NaN.
TEST(Searching, EveryBoundaryMatchesUpperBound)
{
    const double inf = INFINITY;
    for (int n = 1; n <= 34; ++n) {
        std::vector<double> x(n);
        for (int i = 0; i < n; ++i)
            x[i] = std::floor(i * 0.7) - 5;
        const std::vector<int> ix(x.begin(), x.end());
        for (int m1 = 1; m1 <= n; m1 += (n > 8 ? 3 : 1)) {
            for (int m2 = m1; m2 <= n; ++m2) {
                std::vector<double> items = {-inf, inf, nan, x[m1 - 1] - 1, x[m2 - 1] + 1};
                for (int i = m1 - 1; i < m2; ++i)
                    items.insert(items.end(), {x[i], x[i] + 0.5});
                for (const int valid : {0, 1}) {
                    for (double item : items) {
                        int ifail = 1;
                        const int got = m01naf_(&valid, x.data(), &m1, &m2, &item, &ifail);
                        const int want =
                            std::isnan(item)
                                ? m2
                                : static_cast<int>(
                                      std::upper_bound(x.begin() + m1 - 1, x.begin() + m2, item) -
                                      x.begin());
                        EXPECT_TRUE(ifail == 0 && got == want)
                            << "M01NAF n=" << n << " " << m1 << ":" << m2 << " item " << item;
                        if (std::isnan(item) || std::isinf(item) || item != std::floor(item))
                            continue;
                        const int it = static_cast<int>(item);
                        const int goti = m01nbf_(&valid, ix.data(), &m1, &m2, &it, &ifail);
                        EXPECT_TRUE(ifail == 0 && goti == want)
                            << "M01NBF n=" << n << " " << m1 << ":" << m2 << " item " << it;
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

}  // namespace

namespace {

// Fortran's comparison: both padded with blanks to the longer length, then
// compared as unsigned bytes (std::string compares char_traits<char>, which
// is unsigned for comparison).
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
    const char alphabet[] = {'a', 'b', ' ', '\x7f', '\x80', '\xff'};
    std::vector<std::string> w(n);
    for (auto& s : w)
        for (int k = 0; k < len; ++k)
            s += alphabet[gen() % 6];
    return w;
}

// Ranks on positions L1..L2 of every element, both orders, against a stable
// sort of the substrings; bytes above 127 must rank above ASCII.
TEST(Ranking, CharacterKeysMatchAStableSort)
{
    for (int n : {1, 7, 3000}) {
        const int len = 5, m1 = 2, m2 = n + 1;
        const std::vector<std::string> w = words(n + 1, len, n);
        std::string ch;
        for (const auto& s : w)
            ch += s;
        for (const auto& [l1, l2] : {std::pair{1, 5}, {2, 3}, {5, 5}}) {
            for (bool ascending : {true, false}) {
                std::vector<int> irank(m2, -7);
                int ifail = 1;
                m01dcf_(ch.data(), &m1, &m2, &l1, &l2, ascending ? "A" : "D", irank.data(), &ifail,
                        len, 1);
                auto key = [&](int i) { return w[m1 - 1 + i].substr(l1 - 1, l2 - l1 + 1); };
                const auto want = stable_ranks(n, m1, [&](int a, int b) {
                    return ascending ? key(a) < key(b) : key(b) < key(a);
                });
                EXPECT_TRUE(ifail == 0 && std::equal(want.begin(), want.end(), irank.begin() + 1))
                    << "n=" << n << " " << l1 << ":" << l2 << (ascending ? " A" : " D");
                EXPECT_EQ(irank[0], -7);
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
    std::string ch;
    for (const auto& s : w)
        ch += s;
    std::vector<std::string> items = {"", " ", "a", "a ", "a  a", "\xff\xff\xff\xff", "ab"};
    for (const auto& s : w)
        items.insert(items.end(), {s, s + " ", s + "a", s.substr(0, 2)});
    for (const int valid : {0, 1}) {
        for (const auto& [m1, m2] : {std::pair{1, 40}, {1, 1}, {7, 8}, {13, 29}}) {
            for (const auto& item : items) {
                int ifail = 1;
                const int got =
                    m01ncf_(&valid, ch.data(), &m1, &m2, item.data(), &ifail, 3, item.size());
                const int want = static_cast<int>(
                    std::upper_bound(w.begin() + m1 - 1, w.begin() + m2, item, fortran_less) -
                    w.begin());
                EXPECT_TRUE(ifail == 0 && got == want)
                    << m1 << ":" << m2 << " item '" << item << "' got " << got << " want " << want;
            }
        }
    }
}

}  // namespace
