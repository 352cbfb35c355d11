// M01CAF's fast paths against std::sort (an independent sort: data free of NaNs
// and of mixed signed zeros has one ascending order), segment boundaries,
// lengths around the switch between the reference sort and the radix sort, and
// its messages in their check order.
#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <vector>

#include <omp.h>

#include "gen/sorting.hpp"
#include "lbx3207qk.h"
#include "tests/support/messages.hpp"

namespace {

std::vector<double> data(std::size_t n, int kind, std::uint64_t seed)
{
    std::mt19937_64 gen(seed);
    std::vector<double> v(n);
    for (double& x : v) {
        const std::uint64_t bits = gen();
        switch (kind) {
            case 0:  // any finite or infinite double, no NaN
                x = std::bit_cast<double>(bits);
                if (std::isnan(x))
                    x = std::numeric_limits<double>::infinity();
                break;
            case 1:  // subnormals and tiny numbers of both signs, zeros of one sign
                x = std::ldexp(static_cast<double>(bits % 2001) - 1000, -1070);
                if (x == 0)
                    x = 0.0;
                break;
            case 2:  // negative zeros only, with duplicates
                x = static_cast<double>(bits % 5) - 4;
                if (x == 0)
                    x = -0.0;
                break;
            default:  // a narrow range: many passes of the radix sort are skipped
                x = 1.0 + static_cast<double>(bits % 1000) * 0x1p-52;
        }
    }
    return v;
}

bool same_bits(const std::vector<double>& a, const std::vector<double>& b)
{
    for (std::size_t i = 0; i < a.size(); ++i)
        if (std::bit_cast<std::uint64_t>(a[i]) != std::bit_cast<std::uint64_t>(b[i]))
            return false;
    return true;
}

TEST(M01CAF, MatchesAnIndependentSortOnSegments)
{
    const double guard = -12345.0;
    for (std::size_t n : {2u, 15u, 16u, 767u, 768u, 769u, 5000u, 100000u}) {
        for (int kind = 0; kind < 4; ++kind) {
            for (char order : {'A', 'D'}) {
                std::vector<double> v = data(n, kind, n * 7 + kind);
                std::vector<double> rv(n + 4, guard);
                std::copy(v.begin(), v.end(), rv.begin() + 2);
                int m1 = 3, m2 = static_cast<int>(n) + 2, ifail = 1;
                m01caf_(rv.data(), &m1, &m2, &order, &ifail, 1);
                ASSERT_EQ(ifail, 0);
                std::sort(v.begin(), v.end());
                if (order == 'D')
                    std::reverse(v.begin(), v.end());
                std::vector<double> got(rv.begin() + 2, rv.end() - 2);
                EXPECT_TRUE(same_bits(got, v))
                    << "n=" << n << " kind=" << kind << " order=" << order;
                EXPECT_EQ(rv[0], guard);
                EXPECT_EQ(rv[1], guard);
                EXPECT_EQ(rv[n + 2], guard);
                EXPECT_EQ(rv[n + 3], guard);
            }
        }
    }
}

TEST(M01CAF, OrderedAndReversedInputs)
{
    for (std::size_t n : {1000u, 100000u}) {
        std::vector<double> up(n), down(n), flat(n, 2.5);
        for (std::size_t i = 0; i < n; ++i) {
            up[i] = static_cast<double>(i / 3);  // non-strict, with ties
            down[n - 1 - i] = up[i];
        }
        for (auto* v : {&up, &down, &flat}) {
            std::vector<double> rv = *v;
            int m1 = 1, m2 = static_cast<int>(n), ifail = 0;
            m01caf_(rv.data(), &m1, &m2, "a", &ifail, 1);
            EXPECT_TRUE(same_bits(rv, v == &flat ? flat : up));
        }
    }
}

lbx::test::Raised sort(int m1, int m2, const char* order, std::size_t len = 1)
{
    double rv[4] = {4, 3, 2, 1};
    const lbx::test::Raised r =
        lbx::test::traced([&](char* e, int* i) { m01caft_(rv, &m1, &m2, order, e, i, len, 200); });
    const bool moved = rv[0] != 4 || rv[1] != 3 || rv[2] != 2 || rv[3] != 1;
    EXPECT_EQ(moved, r.ifail == 0 && m1 < m2) << m1 << " " << m2 << " " << order;
    return r;
}

TEST(M01CAF, EveryMessageInItsCheckOrder)
{
    using T = lbx::test::Trigger;
    lbx::test::check_catalogue(
        lbx::sorting::catalogue_messages,
        {
            T{"M01CAF", "M2_LT_1", [] { return sort(1, 0, "A"); }, {"0"}},
            T{"M01CAF", "M2_LT_1", [] { return sort(-5, -7, "Q"); }, {"-7"}, "before M1 and ORDER"},
            T{"M01CAF", "M1_LT_1", [] { return sort(0, 3, "A"); }, {"0"}},
            T{"M01CAF", "M1_LT_1", [] { return sort(0, 3, "Q"); }, {"0"}, "before ORDER"},
            T{"M01CAF", "M1_GT_M2", [] { return sort(4, 3, "A"); }, {"4", "3"}},
            T{"M01CAF", "M1_GT_M2", [] { return sort(3, 2, "Q"); }, {"3", "2"}, "before ORDER"},
            T{"M01CAF", "BAD_ORDER", [] { return sort(1, 3, "Z"); }, {"Z"}},
            T{"M01CAF", "BAD_ORDER", [] { return sort(2, 2, " "); }, {""}, "one element"},
            T{"M01CAF", "", [] { return sort(2, 2, "d"); }, {}, "one element is left alone"},
            T{"M01CAF", "", [] { return sort(1, 4, "ascending", 9); }, {}, "first character"},
            T{"M01CAF", "", [] { return sort(3, 4, "a"); }},
        });
}

TEST(M01CAF, ResultDoesNotDependOnTheNumberOfThreads)
{
    const std::vector<double> v = data((1u << 20) + 12345, 0, 99);  // long enough to share
    std::vector<double> one;
    for (int threads : {1, 2, 3, 4}) {
        omp_set_num_threads(threads);
        std::vector<double> rv = v;
        int m1 = 1, m2 = static_cast<int>(rv.size()), ifail = 0;
        m01caf_(rv.data(), &m1, &m2, "A", &ifail, 1);
        if (threads == 1)
            one = rv;
        else
            EXPECT_TRUE(same_bits(rv, one)) << threads << " threads";
    }
    std::vector<double> sorted = v;
    std::sort(sorted.begin(), sorted.end());
    EXPECT_TRUE(same_bits(one, sorted));
    omp_set_num_threads(omp_get_num_procs());
}

}  // namespace
