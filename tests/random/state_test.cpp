// Generator state: required lengths, check order, layout of the basic generator, the state
// check and SUBID selection.
#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "random_test_util.hpp"

namespace {

TEST(RandomState, RequiredLengthQuery) {
  struct Case { int genid; int length; };
  for (Case c : {Case{1, 17}, Case{2, 21}, Case{3, 1260}, Case{4, 29}, Case{5, 20},
                 Case{6, 61}}) {
    for (int lstate : {0, -5}) {
      std::vector<int> state(4, -7);
      int genid = c.genid, subid = 1, seed = 1, lseed = 1, ifail = 1;
      g05kff_(&genid, &subid, &seed, &lseed, state.data(), &lstate, &ifail);
      EXPECT_EQ(ifail, -1) << c.genid;
      EXPECT_EQ(lstate, c.length) << c.genid;
      EXPECT_EQ(state, std::vector<int>(4, -7)) << "STATE touched, GENID " << c.genid;
      lstate = 0;
      ifail = 1;
      g05kgf_(&genid, &subid, state.data(), &lstate, &ifail);
      EXPECT_EQ(ifail, -1);
      EXPECT_EQ(lstate, c.length);
    }
  }
}

TEST(RandomState, MinimumLengthAndBlockChoice) {
  struct Case { int genid; int lstate; int ifail; int used; };
  const Case cases[] = {
      {1, 16, 6, 0},    {1, 17, 0, 17},    {1, 40, 0, 17},    {2, 20, 6, 0},
      {2, 21, 0, 21},   {3, 632, 6, 0},    {3, 633, 0, 633},  {3, 1259, 0, 633},
      {3, 1260, 0, 1260}, {3, 5000, 0, 1260}, {4, 28, 6, 0},  {4, 29, 0, 29},
      {5, 19, 6, 0},    {5, 20, 0, 20},    {6, 60, 6, 0},     {6, 61, 0, 61},
  };
  for (const Case& c : cases) {
    std::vector<int> state;
    EXPECT_EQ(rt::init(c.genid, 1, {5}, state, c.lstate), c.ifail) << c.genid << " " << c.lstate;
    if (c.ifail == 0) {
      EXPECT_EQ(state[0], c.used) << c.genid << " " << c.lstate;
    }
  }
}

TEST(RandomState, CheckOrderOfInitialisation) {
  struct Case { int genid; int lseed; int seed; int lstate; int ifail; };
  const Case cases[] = {
      {0, 0, 0, 0, 1},    {7, 1, 1, 17, 1},  {-1, 1, 1, 17, 1},  // GENID first
      {1, 0, 0, 0, 4},                                       // then LSEED
      {1, 1, 0, 0, -1},                                      // then the length query
      {1, 1, 0, 16, 6},                                      // then the minimum length
      {1, 1, 0, 17, 3},   {1, 1, -4, 17, 3}, {6, 1, 0, 61, 3},  // then the seed words
  };
  for (const Case& c : cases) {
    std::vector<int> state(64, 0);
    int genid = c.genid, subid = 1, seed = c.seed, lseed = c.lseed, lstate = c.lstate, ifail = 1;
    g05kff_(&genid, &subid, &seed, &lseed, state.data(), &lstate, &ifail);
    EXPECT_EQ(ifail, c.ifail) << "GENID " << c.genid << " LSEED " << c.lseed << " LSTATE "
                              << c.lstate;
  }
  std::vector<int> state(64, 0);
  int genid = 9, subid = 0, lstate = 0, ifail = 1;
  g05kgf_(&genid, &subid, state.data(), &lstate, &ifail);
  EXPECT_EQ(ifail, 1);
  genid = 2;
  lstate = 20;
  ifail = 1;  // soft and silent: a hard failure would end the test process
  g05kgf_(&genid, &subid, state.data(), &lstate, &ifail);
  EXPECT_EQ(ifail, 6);
}

TEST(RandomState, SeedWordsOfEveryGeneratorMustBePositive) {
  // Every word that the generator takes is checked; words beyond those are not read.
  EXPECT_EQ(rt::make(1, {3, -1}).size(), 17u);
  std::vector<int> state;
  EXPECT_EQ(rt::init(2, 1, {1, 2, 0, 4}, state, 21), 3);
  EXPECT_EQ(rt::init(2, 1, {1, 2, 3, 4, 0}, state, 21), 0);
  EXPECT_EQ(rt::init(4, 1, {1, -2}, state, 29), 3);
  EXPECT_EQ(rt::init(6, 1, {1, 2, 3, 4, 5, 0}, state, 61), 3);
  EXPECT_EQ(rt::init(5, 1, {0}, state, 20), 3);
  EXPECT_EQ(rt::init(3, 1, {4, 0}, state, 633), 3);
  // A whole MT19937 state takes 32-bit patterns; only the all-zero state is refused.
  std::vector<int> words(624, 0);
  words[0] = 0x7fffffff;  // only the 31 bits that never matter
  EXPECT_EQ(rt::init(3, 1, words, state, 633), 3);
  words[0] = static_cast<int>(0x80000000u);
  EXPECT_EQ(rt::init(3, 1, words, state, 633), 0);
}

TEST(RandomState, BasicGeneratorLayoutAndFirstValue) {
  std::vector<int> state = rt::make(1, {1}, 1, 40);
  const std::vector<int> expected = {17, 1234, 1, 0, 6, 0, 0, 0, 17917, 13895, 19930, 8,
                                     0,  1234, 1, 1, 1234};
  EXPECT_EQ(state, expected);
  unsigned __int128 a = 1;
  for (int i = 0; i < 13; ++i) a *= 13;
  EXPECT_EQ(static_cast<std::uint64_t>(a), 17917u + 13895u * 32768u + 19930ull * 32768 * 32768 +
                                               8ull * 32768 * 32768 * 32768);
  const unsigned __int128 mod = static_cast<unsigned __int128>(1) << 60;
  const std::uint64_t x1 = static_cast<std::uint64_t>(a * 6 % mod);
  const double expected_u =
      static_cast<double>(x1 >> 30) * 0x1p-30 + static_cast<double>(x1 & ((1u << 30) - 1)) * 0x1p-60;
  const std::vector<double> u = rt::uniforms(state, 2);
  EXPECT_EQ(u[0], expected_u);
  const std::uint64_t x2 = static_cast<std::uint64_t>(a * x1 % mod);
  EXPECT_EQ(u[1], static_cast<double>(x2 >> 30) * 0x1p-30 +
                      static_cast<double>(x2 & ((1u << 30) - 1)) * 0x1p-60);
  // The digits of x are written back: x2 in four 15-bit digits.
  for (int i = 0; i < 4; ++i) EXPECT_EQ(state[4 + i], static_cast<int>((x2 >> (15 * i)) & 0x7fff));
}

TEST(RandomState, BasicGeneratorSeedDigits) {
  // x0 = 4 s + 2 in 15-bit digits: STATE(5) = 4 (s mod 8192) + 2, then floor(s / 8192).
  for (int s : {1, 8191, 8192, 123456789, 2147483647}) {
    std::vector<int> state = rt::make(1, {s}, 1, 17);
    const std::uint64_t x0 = 4ull * static_cast<std::uint64_t>(s) + 2;
    for (int i = 0; i < 4; ++i) {
      EXPECT_EQ(state[4 + i], static_cast<int>((x0 >> (15 * i)) & 0x7fff)) << s;
    }
  }
}

TEST(RandomState, CheckValuesHeaderAndTrailer) {
  const int check[7] = {0, 1234, 2468, 3692, 4826, 5050, 4826};
  for (int genid = 1; genid <= 6; ++genid) {
    std::vector<int> state = rt::make(genid, {11}, 1, genid == 3 ? 633 : 1260);
    const int len = state[0];
    EXPECT_EQ(state[1], check[genid]);
    EXPECT_EQ(state[2], genid);
    EXPECT_EQ(state[len - 4], check[genid]);  // closing the block
    EXPECT_EQ(state[len - 3], 1);
    EXPECT_EQ(state[len - 2], 1);
    EXPECT_EQ(state[len - 1], check[genid]);
  }
  // GENID 6 keeps its constants and moduli in the block.
  std::vector<int> mrg = rt::make(6, {12345, 12345, 12345, 12345, 12345, 12345});
  EXPECT_EQ(mrg[9], 1403580);
  EXPECT_EQ(mrg[10], 810728);
  EXPECT_EQ(mrg[11], 527612);
  EXPECT_EQ(mrg[12], 1370589);
  EXPECT_EQ(static_cast<std::uint32_t>(mrg[13]), 4294967087u);
  EXPECT_EQ(static_cast<std::uint32_t>(mrg[14]), 4294944443u);
}

TEST(RandomState, CorruptionIsDetected) {
  for (int genid = 1; genid <= 6; ++genid) {
    const std::vector<int> good = rt::make(genid, {77}, 1, genid == 3 ? 633 : 1260);
    const int len = good[0];
    struct Damage { int index; int value; };
    const Damage damages[] = {{1, good[1] + 1}, {len - 1, 0}, {len - 2, 0}, {len - 3, 0},
                              {2, 7}, {2, genid == 1 ? 2 : 1}, {len - 4, 0},
                              // a word no generator can hold: a digit, a state value, the
                              // ACORN modulus, the MT19937 word index
                              {genid == 3 ? 627 : 4, genid == 3 ? 700 : -1}};
    for (const Damage& d : damages) {
      std::vector<int> state = good;
      state[d.index] = d.value;
      std::vector<double> x(3);
      EXPECT_EQ(rt::saf(state, x), 2) << "GENID " << genid << " element " << d.index + 1;
    }
  }
}

TEST(RandomState, SharedCheckValueDoesNotConfuseGenerators) {
  // GENID 4 and 6 share the check value 4826; STATE(3) decides, and a relabelled block fails.
  std::vector<int> wh2 = rt::make(4, {3});
  wh2[2] = 6;
  std::vector<double> x(2);
  EXPECT_EQ(rt::saf(wh2, x), 2);
  std::vector<int> mrg = rt::make(6, {3});
  mrg[2] = 4;
  EXPECT_EQ(rt::saf(mrg, x), 2);
}

TEST(RandomState, UniformCheckOrder) {
  std::vector<int> state = rt::make(1, {5});
  std::vector<double> x(4);
  // N = 0 succeeds without the rest of the check when the header is usable.
  std::vector<int> damaged = state;
  damaged[16] = 99;
  int n = 0, ifail = 1;
  g05saf_(&n, damaged.data(), x.data(), &ifail);
  EXPECT_EQ(ifail, 0);
  n = -1;
  ifail = 1;  // soft and silent: a hard failure would end the test process
  g05saf_(&n, damaged.data(), x.data(), &ifail);
  EXPECT_EQ(ifail, 1);
  damaged[2] = 0;  // generator number outside 1..6 comes before N
  ifail = 1;  // soft and silent: a hard failure would end the test process
  g05saf_(&n, damaged.data(), x.data(), &ifail);
  EXPECT_EQ(ifail, 2);
  // Traced entry: the declared length.
  char errbuf[200];
  n = 2;
  for (int lstate : {2, 0, -3}) {
    g05saft_(&n, state.data(), x.data(), &lstate, errbuf, &ifail, 200);
    EXPECT_EQ(ifail, 2) << lstate;
  }
  for (int lstate : {16, 18, 100000}) {
    g05saft_(&n, state.data(), x.data(), &lstate, errbuf, &ifail, 200);
    EXPECT_EQ(ifail, 4) << lstate;
    EXPECT_EQ(rt::message_code(errbuf), 99997);
  }
  int lstate = 17;
  g05saft_(&n, state.data(), x.data(), &lstate, errbuf, &ifail, 200);
  EXPECT_EQ(ifail, 0);
  // A STATE(1) that the generator never has is refused through the plain entry before
  // anything beyond the array is read.
  for (int len : {2000000000, 18, 633, 1260, 61}) {
    damaged = state;
    damaged[0] = len;
    ifail = 1;  // soft and silent: a hard failure would end the test process
    g05saf_(&n, damaged.data(), x.data(), &ifail);
    EXPECT_EQ(ifail, 2) << len;
  }
}

TEST(RandomState, SubidSelectsWichmannHillSet) {
  auto first = [](int subid) {
    std::vector<int> state = rt::make(2, {1, 2, 3, 4}, subid, 21);
    return std::make_pair(state[3], rt::uniforms(state, 5));
  };
  EXPECT_EQ(first(0), first(273));
  EXPECT_EQ(first(0).first, 273);
  EXPECT_EQ(first(1), first(274));
  EXPECT_EQ(first(1), first(-1));
  EXPECT_EQ(first(1).first, 1);
  EXPECT_EQ(first(-274), first(1));
  EXPECT_EQ(first(2147483647).first, static_cast<int>((2147483647LL + 272) % 273 + 1));
  EXPECT_NE(first(1).second, first(2).second);
  // Other generators do not depend on SUBID.
  for (int genid : {1, 3, 4, 5, 6}) {
    std::vector<int> a = rt::make(genid, {9}, 1), b = rt::make(genid, {9}, 200);
    EXPECT_EQ(a, b) << genid;
  }
}

TEST(RandomState, CopyingStateCopiesGenerator) {
  for (int genid = 1; genid <= 6; ++genid) {
    std::vector<int> a = rt::make(genid, {31337});
    rt::uniforms(a, 1000);
    std::vector<int> b = a;
    EXPECT_EQ(rt::uniforms(a, 777), rt::uniforms(b, 777)) << genid;
  }
}

TEST(RandomState, NonRepeatableSeedingDiffers) {
  for (int genid = 1; genid <= 6; ++genid) {
    std::vector<int> a(1260), b(1260);
    int g = genid, subid = 1, lstate = 1260, ifail = 1;
    g05kgf_(&g, &subid, a.data(), &lstate, &ifail);
    ASSERT_EQ(ifail, 0);
    ifail = 1;  // soft and silent: a hard failure would end the test process
    g05kgf_(&g, &subid, b.data(), &lstate, &ifail);
    ASSERT_EQ(ifail, 0);
    a.resize(a[0]);
    b.resize(b[0]);
    EXPECT_NE(rt::uniforms(a, 4), rt::uniforms(b, 4)) << genid;
  }
}

}  // namespace
