// Published reference streams and each recurrence computed from its published definition.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <random>
#include <utility>
#include <vector>

#include "random_test_util.hpp"

namespace {

// The authors' init_genrand, written out independently: the 624 state words for a seed.
std::vector<int> init_genrand(std::uint32_t s)
{
    std::vector<int> w(624);
    std::uint32_t x = s;
    for (int i = 0; i < 624; ++i) {
        w[i] = static_cast<int>(x);
        x = 1812433253u * (x ^ (x >> 30)) + static_cast<std::uint32_t>(i + 1);
    }
    return w;
}

// u = (y + 1/2) 2^-32 recovers y exactly.
std::uint32_t word_of(double u)
{
    return static_cast<std::uint32_t>(std::floor(u * 0x1p32));
}

TEST(RandomKnownAnswers, MersenneTwisterFromAuthorsState)
{
    for (int lstate : {633, 1260}) {
        std::vector<int> state = rt::make(3, init_genrand(5489), 1, lstate);
        const std::vector<double> u = rt::uniforms(state, 10000);
        EXPECT_EQ(word_of(u[0]), 3499211612u);
        EXPECT_EQ(word_of(u[1]), 581869302u);
        EXPECT_EQ(word_of(u[2]), 3890346734u);
        EXPECT_EQ(word_of(u[9999]), 4123659995u);
        std::mt19937 peer(5489u);  // the standard library's engine, an independent implementation
        for (int i = 0; i < 10000; ++i) {
            ASSERT_EQ(word_of(u[i]), peer()) << i;
            ASSERT_EQ(u[i], (static_cast<double>(word_of(u[i])) + 0.5) * 0x1p-32);
        }
        // Leap-frog strides and first moves of more than 2^22 words (taken by jumps): the K-th,
        // (K + N)-th and (K + 2N)-th words of the peer, drawn as one value and then two.
        for (const auto& [n, k] : {std::pair{4194324, 4194314}, {4194305, 3}}) {
            std::vector<int> split = rt::make(3, init_genrand(5489), 1, lstate);
            ASSERT_EQ(rt::khf(n, k, split), 0);
            std::vector<double> got = rt::uniforms(split, 1);
            for (double v : rt::uniforms(split, 2))
                got.push_back(v);
            std::mt19937 far(5489u);
            far.discard(k - 1);
            for (int j = 0; j < 3; ++j) {
                EXPECT_EQ(word_of(got[j]), far()) << lstate << " N " << n << " K " << k << " " << j;
                far.discard(n - 1);
            }
        }
    }
}

TEST(RandomKnownAnswers, DrawingInPiecesContinuesTheStream)
{
    // Uneven pieces (across the MT19937 block of 624 words) give the same stream as one call.
    for (int genid = 1; genid <= 6; ++genid) {
        std::vector<int> a = rt::make(genid,
                                      genid == 3 ? init_genrand(19650218u) : std::vector<int>{77}),
                         b = a;
        const std::vector<double> whole = rt::uniforms(a, 3000);
        std::vector<double> pieces;
        for (int n : {1, 623, 624, 625, 7, 1120}) {
            const std::vector<double> p = rt::uniforms(b, n);
            pieces.insert(pieces.end(), p.begin(), p.end());
        }
        EXPECT_EQ(pieces, whole) << genid;
    }
}

TEST(RandomKnownAnswers, Mrg32k3aFromAll12345)
{
    std::vector<int> state = rt::make(6, {12345, 12345, 12345, 12345, 12345, 12345});
    const std::vector<double> u = rt::uniforms(state, 1000);
    // L'Ecuyer's reference implementation gives these first two values for the default seed.
    EXPECT_EQ(u[0], 0.12701112204657714);
    EXPECT_EQ(u[1], 0.3185275653967945);
    // The authors' floating-point recurrence, written out independently.
    double s1[3] = {12345, 12345, 12345}, s2[3] = {12345, 12345, 12345};
    const double m1 = 4294967087.0, m2 = 4294944443.0, norm = 2.328306549295728e-10;
    for (int i = 0; i < 1000; ++i) {
        double p1 = 1403580.0 * s1[1] - 810728.0 * s1[0];
        p1 -= std::floor(p1 / m1) * m1;
        s1[0] = s1[1];
        s1[1] = s1[2];
        s1[2] = p1;
        double p2 = 527612.0 * s2[2] - 1370589.0 * s2[0];
        p2 -= std::floor(p2 / m2) * m2;
        s2[0] = s2[1];
        s2[1] = s2[2];
        s2[2] = p2;
        const double expected = p1 > p2 ? (p1 - p2) * norm : (p1 - p2 + m1) * norm;
        ASSERT_EQ(u[i], expected) << i;
    }
}

TEST(RandomKnownAnswers, WichmannHill2006)
{
    std::vector<int> state = rt::make(4, {1, 2, 3, 4});
    const std::vector<double> u = rt::uniforms(state, 1000);
    // Wichmann and Hill (2006): four components, u = frac(sum x_i / m_i).
    const std::int64_t a[4] = {11600, 47003, 23000, 33000};
    const std::int64_t m[4] = {2147483579, 2147483543, 2147483423, 2147483123};
    std::int64_t x[4] = {1, 2, 3, 4};
    for (int i = 0; i < 1000; ++i) {
        double w = 0.0;
        for (int j = 0; j < 4; ++j) {
            x[j] = a[j] * x[j] % m[j];
            w += static_cast<double>(x[j]) / static_cast<double>(m[j]);
        }
        ASSERT_EQ(u[i], w - std::floor(w)) << i;
    }
}

TEST(RandomKnownAnswers, AcornOrderTen)
{
    std::vector<int> seed = {5, 10, 20, 30, 40, 50, 60, 70, 80, 90, 100};
    std::vector<int> state = rt::make(5, seed);
    const std::vector<double> u = rt::uniforms(state, 500);
    std::uint64_t y[11];
    for (int i = 0; i < 11; ++i)
        y[i] = static_cast<std::uint64_t>(seed[i]);
    for (int i = 0; i < 500; ++i) {
        for (int k = 1; k <= 10; ++k)
            y[k] = (y[k] + y[k - 1]) % (1u << 30);
        ASSERT_EQ(u[i], (static_cast<double>(y[10]) + 0.5) / 1073741824.0) << i;
    }
    // The seed word of ACORN is made odd.
    std::vector<int> even = rt::make(5, {4, 10, 20, 30, 40, 50, 60, 70, 80, 90, 100});
    EXPECT_EQ(even[5], 5);
}

// The basic generator written out independently: x0 = 4 SEED(1) + 2, x <- 13^13 x mod 2^60
// in 128-bit arithmetic, u = x 2^-60 (the high and low 30 bits added separately).
std::vector<double> basic_stream(int seed, int n)
{
    unsigned __int128 x = 4 * static_cast<unsigned __int128>(seed) + 2, a = 1;
    for (int i = 0; i < 13; ++i)
        a *= 13;
    const unsigned __int128 mod = static_cast<unsigned __int128>(1) << 60;
    std::vector<double> u(n);
    for (int i = 0; i < n; ++i) {
        x = a * x % mod;
        const std::uint64_t v = static_cast<std::uint64_t>(x);
        u[i] = static_cast<double>(v >> 30) * 0x1p-30 +
               static_cast<double>(v & ((1u << 30) - 1)) * 0x1p-60;
    }
    return u;
}

TEST(RandomKnownAnswers, BasicGenerator)
{
    // Seeds across the boundaries of the 15-bit digits of x0, and one long run.
    for (int seed : {1, 8191, 8192, 2147483647, 123456789}) {
        std::vector<int> state = rt::make(1, {seed}, 1, 17);
        const int n = seed == 123456789 ? 100000 : 1000;
        EXPECT_EQ(rt::uniforms(state, n), basic_stream(seed, n)) << seed;
    }
}

}  // namespace
