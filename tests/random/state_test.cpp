// Generator state: required lengths, the documented layout (check values and trailer), the
// state check and SUBID selection. The argument checks and their order: messages_test.cpp.
#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "gen/random.hpp"
#include "random_test_util.hpp"

namespace {

TEST(RandomState, RequiredLengthQuery)
{
    const int length[7] = {0, 17, 21, 1260, 29, 20, 61};
    for (int genid = 1; genid <= 6; ++genid) {
        std::vector<int> state(4, -7);
        int subid = 1, seed = 1, lseed = 1, lstate = -5, lstate2 = 0, ifail = 1;
        g05kff_(&genid, &subid, &seed, &lseed, state.data(), &lstate, &ifail);
        g05kgf_(&genid, &subid, state.data(), &lstate2, &ifail);
        EXPECT_EQ(lstate, length[genid]);
        EXPECT_EQ(lstate2, length[genid]);
        EXPECT_EQ(state, std::vector<int>(4, -7)) << "STATE touched, GENID " << genid;
    }
}

// LSTATE against the minimum length and the choice of the MT19937 block: the length
// used, or 0 for a refusal.
TEST(RandomState, MinimumLengthAndBlockChoice)
{
    const int cases[][3] = {{1, 16, 0},      {1, 17, 17},     {1, 40, 17},   {2, 20, 0},
                            {2, 21, 21},     {3, 632, 0},     {3, 633, 633}, {3, 1259, 633},
                            {3, 1260, 1260}, {3, 5000, 1260}, {4, 28, 0},    {4, 29, 29},
                            {5, 19, 0},      {5, 20, 20},     {6, 60, 0},    {6, 61, 61}};
    for (const auto& [genid, lstate, used] : cases) {
        std::vector<int> state;
        const int ifail = rt::init(genid, 1, {5}, state, lstate);
        EXPECT_EQ(ifail, used ? 0 : lbx::random::G05KFF_msg::LSTATE_SMALL.ifail)
            << genid << " " << lstate;
        EXPECT_EQ(ifail == 0 ? state[0] : 0, used) << genid << " " << lstate;
    }
}

TEST(RandomState, DocumentedLayout)
{
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
    // GENID 1 element by element: x0 = 4 SEED(1) + 2 = 6 and 13^13 in 15-bit digits.
    EXPECT_EQ(rt::make(1, {1}, 1, 40), (std::vector<int>{17, 1234, 1, 0, 6, 0, 0, 0, 17917, 13895,
                                                         19930, 8, 0, 1234, 1, 1, 1234}));
    // GENID 6: the multipliers and the moduli (as 32-bit words) of MRG32k3a.
    const std::vector<int> mrg = rt::make(6, {12345, 12345, 12345, 12345, 12345, 12345});
    EXPECT_EQ(std::vector<int>(mrg.begin() + 9, mrg.begin() + 13),
              (std::vector<int>{1403580, 810728, 527612, 1370589}));
    EXPECT_EQ(static_cast<std::uint32_t>(mrg[13]), 4294967087u);
    EXPECT_EQ(static_cast<std::uint32_t>(mrg[14]), 4294944443u);
}

TEST(RandomState, CorruptionIsDetected)
{
    for (int genid = 1; genid <= 6; ++genid) {
        const std::vector<int> good = rt::make(genid, {77}, 1, genid == 3 ? 633 : 1260);
        const int len = good[0];
        // The check values, the trailer, the generator number, and a word no generator can
        // hold: a digit, a state value, the ACORN modulus, the MT19937 word index.
        const int damages[][2] = {{1, good[1] + 1}, {len - 1, 0},
                                  {len - 2, 0},     {len - 3, 0},
                                  {2, 7},           {2, genid == 1 ? 2 : 1},
                                  {len - 4, 0},     {genid == 3 ? 627 : 4, genid == 3 ? 700 : -1}};
        for (const auto& [index, value] : damages) {
            std::vector<int> state = good;
            state[index] = value;
            std::vector<double> x(3);
            EXPECT_EQ(rt::saf(state, x), lbx::random::G05SAF_msg::STATE_CORRUPT.ifail)
                << "GENID " << genid << " element " << index + 1;
        }
    }
}

TEST(RandomState, SubidSelectsWichmannHillSet)
{
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

TEST(RandomState, NonRepeatableSeedingDiffers)
{
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
