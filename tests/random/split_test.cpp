// Skip-ahead and leap-frog against drawing the undivided stream, for every generator.
#include <gtest/gtest.h>

#include <vector>

#include "random_test_util.hpp"

namespace {

struct Gen {
  int genid;
  std::vector<int> seed;
};

std::vector<Gen> all_generators() {
  return {{1, {1234567}}, {2, {4, 3, 2, 1}}, {3, {42}}, {4, {17, 18}}, {5, {333}},
          {6, {12345, 12345, 12345, 12345, 12345, 12345}}};
}

std::vector<int> fresh(const Gen& g) { return rt::make(g.genid, g.seed, 7, 1260); }

TEST(RandomSplit, SkipAheadEqualsDrawing) {
  for (const Gen& g : all_generators()) {
    std::vector<int> ref = fresh(g);
    const std::vector<double> stream = rt::uniforms(ref, 200000);
    for (int n : {0, 1, 5, 623, 624, 625, 40000, 123457}) {
      std::vector<int> s = fresh(g);
      ASSERT_EQ(rt::kjf(n, s), 0) << g.genid << " " << n;
      const std::vector<double> tail = rt::uniforms(s, 50);
      for (int k = 0; k < 50; ++k) ASSERT_EQ(tail[k], stream[n + k]) << g.genid << " " << n;
    }
    // Skip from the middle of a stream (the MT19937 word index away from 0).
    std::vector<int> s = fresh(g);
    rt::uniforms(s, 1001);
    ASSERT_EQ(rt::kjf(99000, s), 0);
    EXPECT_EQ(rt::uniforms(s, 10), std::vector<double>(stream.begin() + 100001,
                                                       stream.begin() + 100011))
        << g.genid;
  }
}

TEST(RandomSplit, SkipAheadByPowerOfTwo) {
  for (const Gen& g : all_generators()) {
    std::vector<int> ref = fresh(g);
    const std::vector<double> stream = rt::uniforms(ref, (1 << 17) + 20);
    for (int p : {0, 1, 9, 16, 17}) {
      std::vector<int> s = fresh(g);
      rt::uniforms(s, 3);
      ASSERT_EQ(rt::kkf(p, s), 0);
      const std::vector<double> tail = rt::uniforms(s, 10);
      for (int k = 0; k < 10; ++k) ASSERT_EQ(tail[k], stream[3 + (1 << p) + k]) << g.genid << " " << p;
    }
    // 2^40 at once equals 2^21 + 2^21 + 2^22 + ... + 2^39.
    std::vector<int> a = fresh(g);
    ASSERT_EQ(rt::kkf(40, a), 0);
    std::vector<int> c = fresh(g);
    for (int p = 21; p < 40; ++p) ASSERT_EQ(rt::kkf(p, c), 0);
    ASSERT_EQ(rt::kkf(21, c), 0);  // 2^21 + ... + 2^39 + 2^21 = 2^40
    EXPECT_EQ(rt::uniforms(a, 5), rt::uniforms(c, 5)) << g.genid;
  }
}

TEST(RandomSplit, MersenneTwisterPeriodReducesTheExponent) {
  // t has order 2^19937 - 1 modulo the characteristic polynomial, so 2^(19937 + 3) steps and
  // 2^3 steps land on the same position.
  std::vector<int> a = rt::make(3, {5}), b = rt::make(3, {5});
  ASSERT_EQ(rt::kkf(19937 + 3, a), 0);
  ASSERT_EQ(rt::kkf(3, b), 0);
  EXPECT_EQ(rt::uniforms(a, 700), rt::uniforms(b, 700));
}

TEST(RandomSplit, LeapFrogEqualsEveryNthValue) {
  for (const Gen& g : all_generators()) {
    if (g.genid == 5) continue;
    std::vector<int> ref = fresh(g);
    const std::vector<double> stream = rt::uniforms(ref, 20000);
    for (int n : {1, 2, 3, 7, 1000}) {
      for (int k : {1, 2, n}) {
        if (k > n) continue;
        std::vector<int> s = fresh(g);
        ASSERT_EQ(rt::khf(n, k, s), 0) << g.genid;
        const int count = 19000 / n;
        const std::vector<double> got = rt::uniforms(s, count);
        for (int i = 0; i < count; ++i) {
          ASSERT_EQ(got[i], stream[(k - 1) + i * n]) << g.genid << " n=" << n << " k=" << k;
        }
      }
    }
  }
}

TEST(RandomSplit, LeapFrogThenSkipAhead) {
  // A skip of N values of a leap-frogged stream skips N strides of the undivided one.
  for (const Gen& g : all_generators()) {
    if (g.genid == 5) continue;
    std::vector<int> ref = fresh(g);
    const std::vector<double> stream = rt::uniforms(ref, 150000);
    std::vector<int> s = fresh(g);
    ASSERT_EQ(rt::khf(5, 3, s), 0);
    ASSERT_EQ(rt::kjf(20000, s), 0);
    const std::vector<double> got = rt::uniforms(s, 10);
    for (int i = 0; i < 10; ++i) ASSERT_EQ(got[i], stream[2 + (20000 + i) * 5]) << g.genid;
    ASSERT_EQ(rt::kkf(4, s), 0);  // 16 more leap-frogged values
    EXPECT_EQ(rt::uniforms(s, 1)[0], stream[2 + (20000 + 10 + 16) * 5]) << g.genid;
  }
}

TEST(RandomSplit, LeapFrogsCompose) {
  // Leap-frog (3, 2) of leap-frog (4, 3): strides multiply, offsets nest.
  for (const Gen& g : all_generators()) {
    if (g.genid == 5) continue;
    std::vector<int> ref = fresh(g);
    const std::vector<double> stream = rt::uniforms(ref, 5000);
    std::vector<int> s = fresh(g);
    ASSERT_EQ(rt::khf(4, 3, s), 0);
    ASSERT_EQ(rt::khf(3, 2, s), 0);
    const std::vector<double> got = rt::uniforms(s, 300);
    for (int i = 0; i < 300; ++i) ASSERT_EQ(got[i], stream[2 + 4 + 12 * i]) << g.genid << " " << i;
  }
}

}  // namespace
