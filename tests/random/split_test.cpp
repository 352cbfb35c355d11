// Skip-ahead and leap-frog against drawing the undivided stream, for every generator.
#include <gtest/gtest.h>

#include <vector>

#include "random_test_util.hpp"

namespace {

struct Gen {
    int genid;
    std::vector<int> seed;
};

std::vector<Gen> all_generators()
{
    return {{1, {1234567}}, {2, {4, 3, 2, 1}}, {3, {42}},
            {4, {17, 18}},  {5, {333}},        {6, {12345, 12345, 12345, 12345, 12345, 12345}}};
}

std::vector<int> fresh(const Gen& g)
{
    return rt::make(g.genid, g.seed, 7, 1260);
}

// A sequence of draws, skips and leap-frogs, and where its next values lie in the undivided
// stream: stream[offset + i * stride], i < count.
struct Op {
    char what;  // 'D' draw a values, 'J' skip a, 'K' skip 2^a, 'H' leap-frog a-th of b
    int a, b;
};
struct Case {
    std::vector<Op> ops;
    int offset, stride, count;
};

std::vector<Case> cases()
{
    std::vector<Case> list;
    for (int n : {0, 1, 5, 623, 624, 625, 40000, 123457})
        list.push_back({{{'J', n, 0}}, n, 1, 50});
    list.push_back({{{'D', 1001, 0}, {'J', 99000, 0}}, 100001, 1, 10});  // MT19937 word index not 0
    for (int p : {0, 1, 9, 16, 17})
        list.push_back({{{'D', 3, 0}, {'K', p, 0}}, 3 + (1 << p), 1, 10});
    for (int n : {1, 2, 3, 7, 1000}) {
        for (int k : {1, 2, n}) {
            if (k <= n)
                list.push_back({{{'H', k, n}}, k - 1, n, 19000 / n});
        }
    }
    // A skip of N values of a leap-frogged stream skips N strides; strides multiply.
    list.push_back({{{'H', 3, 5}, {'J', 20000, 0}}, 2 + 20000 * 5, 5, 10});
    list.push_back(
        {{{'H', 3, 5}, {'J', 20000, 0}, {'D', 10, 0}, {'K', 4, 0}}, 2 + 20026 * 5, 5, 1});
    list.push_back({{{'H', 3, 4}, {'H', 2, 3}}, 2 + 4, 12, 300});
    return list;
}

TEST(RandomSplit, SplitStreamsAreThePiecesOfTheUndividedOne)
{
    for (const Gen& g : all_generators()) {
        std::vector<int> ref = fresh(g);
        const std::vector<double> stream = rt::uniforms(ref, 200000);
        for (const Case& c : cases()) {
            std::vector<int> s = fresh(g);
            bool leapfrog = false;
            for (const Op& op : c.ops) {
                int ifail = 0;
                switch (op.what) {
                    case 'D':
                        rt::uniforms(s, op.a);
                        break;
                    case 'J':
                        ifail = rt::kjf(op.a, s);
                        break;
                    case 'K':
                        ifail = rt::kkf(op.a, s);
                        break;
                    default:
                        leapfrog = true;
                        ifail = g.genid == 5 ? 0 : rt::khf(op.b, op.a, s);
                }
                ASSERT_EQ(ifail, 0) << g.genid << " " << op.what << op.a;
            }
            if (leapfrog && g.genid == 5)
                continue;  // ACORN cannot leap-frog
            const std::vector<double> got = rt::uniforms(s, c.count);
            for (int i = 0; i < c.count; ++i) {
                ASSERT_EQ(got[i], stream[c.offset + i * c.stride])
                    << "GENID " << g.genid << " offset " << c.offset << " stride " << c.stride
                    << " value " << i;
            }
        }
    }
}

TEST(RandomSplit, SkipByPowersOfTwoAdds)
{
    // 2^40 at once equals 2^21 + 2^21 + 2^22 + ... + 2^39.
    for (const Gen& g : all_generators()) {
        std::vector<int> a = fresh(g);
        ASSERT_EQ(rt::kkf(40, a), 0);
        std::vector<int> c = fresh(g);
        for (int p = 21; p < 40; ++p)
            ASSERT_EQ(rt::kkf(p, c), 0);
        ASSERT_EQ(rt::kkf(21, c), 0);  // 2^21 + ... + 2^39 + 2^21 = 2^40
        EXPECT_EQ(rt::uniforms(a, 5), rt::uniforms(c, 5)) << g.genid;
    }
}

TEST(RandomSplit, MersenneTwisterPeriodReducesTheExponent)
{
    // t has order 2^19937 - 1 modulo the characteristic polynomial, so 2^(19937 + 3) steps and
    // 2^3 steps land on the same position.
    std::vector<int> a = rt::make(3, {5}), b = rt::make(3, {5});
    ASSERT_EQ(rt::kkf(19937 + 3, a), 0);
    ASSERT_EQ(rt::kkf(3, b), 0);
    EXPECT_EQ(rt::uniforms(a, 700), rt::uniforms(b, 700));
}

}  // namespace
