// Generator state: required lengths, the documented layout (check values and trailer), the
// state check and SUBID selection. The argument checks and their order: messages_test.cpp.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "gen/random.hpp"
#include "random_test_util.hpp"
#include "tests/support/messages.hpp"

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

// The state check refuses what its rules refuse (STATE(2) /= STATE(n), a trailer word below
// 1, a generator number outside 1..6) and nothing more: a STATE(3) naming a generator of
// another length is a failure of its own, and a state that passes draws the stream of the
// undamaged one when only words that are not drawn from were changed.
TEST(RandomState, TheCheckRefusesWhatItsRulesRefuse)
{
    using Msg = lbx::random::G05SAF_msg;
    const int corrupt = Msg::STATE_CORRUPT.code, length = Msg::STATE_LENGTH.code;
    const int another_length[7] = {0, 2, 1, 1, 1, 1, 1};
    for (int genid = 1; genid <= 6; ++genid) {
        const std::vector<int> good = rt::make(genid, {77}, 1, genid == 3 ? 633 : 1260);
        const int len = good[0];
        std::vector<int> undamaged = good;
        const std::vector<double> stream = rt::uniforms(undamaged, 5);
        struct Damage {
            int index, value, index2, value2, code;  // code 0: the stream of the undamaged
        };
        const Damage damages[] = {
            {1, good[1] + 1, 1, good[1] + 1, corrupt},  // STATE(2) alone
            {len - 1, 0, len - 1, 0, corrupt},          // STATE(n) alone
            {len - 2, 0, len - 2, 0, corrupt},          // trailer
            {len - 3, -5, len - 3, -5, corrupt},        // trailer
            {2, 7, 2, 7, corrupt},                      // generator number
            {2, 0, 2, 0, corrupt},                      // generator number
            {2, another_length[genid], 2, another_length[genid], length},
            {0, len + 1, 0, len + 1, length},  // STATE(n) not read
            {1, 5050, len - 1, 5050, 0},       // another generator's check value
            {1, 4826, len - 1, 4826, 0},       // the value GENID 4 and 6 share
            {1, -3, len - 1, -3, 0},           // any value, twice
            {len - 4, 0, len - 4, 0, 0},       // the check value closing the block
            {len - 2, 99, len - 2, 99, 0},     // the second trailer word
        };
        for (const Damage& d : damages) {
            std::vector<int> state = good;
            state[d.index] = d.value;
            state[d.index2] = d.value2;
            std::vector<double> x(5);
            char errbuf[200];
            int n = 5, lstate = state[0], ifail = 1;
            g05saft_(&n, state.data(), x.data(), &lstate, errbuf, &ifail, 200);
            const lbx::test::Raised got = lbx::test::split(errbuf, ifail);
            EXPECT_EQ(got.code, d.code)
                << "GENID " << genid << " element " << d.index + 1 << " = " << d.value;
            if (d.code == 0)
                EXPECT_EQ(x, stream) << "GENID " << genid << " element " << d.index + 1;
        }
    }
}

// Blocks that no initialisation makes but that pass the check: every routine ends on them,
// with uniforms inside (0,1), and the documented values where the block is degenerate.
TEST(RandomState, EveryRoutineEndsOnAnyBlock)
{
    const double mrg_top = 4294967087.0 * 2.328306549295728e-10;  // (x - y + m1) at x = y = 0
    struct Block {
        int genid, first, last, value;  // elements first + 1 .. last + 1 set to value
        double every;                   // > 0: the value of every uniform
    };
    const Block blocks[] = {
        {1, 4, 7, 0, 0x1p-60},          // x = 0
        {1, 8, 11, 0, 0x1p-60},         // multiplier 0: x = 0 from the first draw
        {1, 4, 4, -1, 0},               // a digit outside 0..32767: its low 15 bits
        {2, 12, 12, 0, 0},              // modulus word 0
        {2, 13, 13, 1, 0},              // modulus 1
        {2, 14, 14, -1, 0},             // modulus 2^32 - 1
        {2, 4, 7, 0, 0x1p-53},          // every x = 0
        {4, 8, 8, 0, 0},                // multiplier 0
        {4, 12, 15, 0, 0x1p-53},        // every modulus word 0
        {3, 627, 627, -5, 0},           // word index below 0
        {3, 627, 627, 700, 0},          // word index above 624
        {3, 3, 626, 0, 0x1p-33},        // every word 0
        {3, 1257, 1257, 715827882, 0},  // a stride set by hand: each draw moves 715827882 words
        {5, 5, 15, 0, 0x1p-31},         // every Y 0
        {5, 3, 4, 0, 0},                // order and modulus words are not read
        {6, 15, 15, 1, mrg_top},        // leap-frog flag without step matrices
        {6, 3, 8, 0, mrg_top},          // x = y = 0
        {6, 3, 8, -1, 0},               // words above the moduli
        {6, 15, 15, 7, 0},              // flag 7 with step matrices 0xffffffff
        {6, 16, 33, -1, 0},             // step matrices 0xffffffff, flag 0: not read
    };
    for (const Block& b : blocks) {
        std::vector<int> base = rt::make(b.genid, {31}, 1, 1260);
        for (int i = b.first; i <= b.last; ++i)
            base[i] = b.value;
        if (b.genid == 6 && b.value == 7) {
            for (int i = 16; i <= 33; ++i)
                base[i] = -1;
        }
        const std::string what = "GENID " + std::to_string(b.genid) + " elements " +
                                 std::to_string(b.first + 1) + ".." + std::to_string(b.last + 1);
        std::vector<int> s = base;
        std::vector<double> u64(64);
        ASSERT_EQ(rt::saf(s, u64), 0) << what;
        for (double u : u64) {
            EXPECT_TRUE(u > 0.0 && u < 1.0) << what << " " << u;
            if (b.every > 0.0)
                EXPECT_EQ(u, b.every) << what;
        }
        std::vector<double> x(64);
        double xmu = 0.0, var = 1.0;
        int n = 64, ifail = 1;
        g05skf_(&n, &xmu, &var, s.data(), x.data(), &ifail);
        EXPECT_EQ(ifail, 0) << what;
        for (double v : x)
            EXPECT_TRUE(std::isfinite(v)) << what;
        EXPECT_EQ(rt::kjf(100000, s), 0) << what;
        EXPECT_EQ(rt::kkf(40, s), 0) << what;
        EXPECT_EQ(rt::khf(3, 2, s), b.genid == 5 ? 23 : 0) << what;
        EXPECT_EQ(rt::saf(s, u64), 0) << what;
        for (double u : u64)
            EXPECT_TRUE(u > 0.0 && u < 1.0) << what << " after splitting " << u;
        for (const auto& [mode, lambda] : {std::pair{3, 5.0}, {3, 50.0}, {2, 50.0}, {2, 1e6}}) {
            std::vector<double> r(20100);
            std::vector<int> k(64, -1);
            int lr = 20100, m = mode;
            double l = lambda;
            std::vector<int> t = base;
            int lt = t[0];
            const lbx::test::Raised got = lbx::test::traced([&](char* e, int* i) {
                g05tjft_(&m, &n, &l, r.data(), &lr, t.data(), k.data(), &lt, e, i, 200);
            });
            if (got.code == lbx::random::G05TJF_msg::GENERATOR_STUCK.code)
                continue;  // uniforms that PTRS rejects for ever: the documented end
            EXPECT_EQ(got.ifail, 0) << what << " MODE " << mode << " LAMBDA " << lambda;
            for (int v : k)
                EXPECT_GE(v, 0) << what << " MODE " << mode << " LAMBDA " << lambda;
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
