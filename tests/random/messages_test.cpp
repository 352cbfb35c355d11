// The argument and state checks of the chapter and their order: every (error number,
// message code) pair, raised through the traced entries (the plain entries pass
// LSTATE = STATE(1)), which return the coded message in ERRBUF, and the boundary cases
// that must succeed.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <string>
#include <vector>

#include "random_test_util.hpp"

namespace {

struct Raised {
    int ifail;
    int code;
};

using Call = std::function<Raised()>;

struct Case {
    std::string name;
    Call call;
    int ifail;
    int code;
};

// Runs f(errbuf, ifail) with IFAIL = 0 on entry; the error number and the code of the
// coded message.
template <class F>
Raised traced(F f)
{
    char errbuf[200];
    int ifail = 0;
    f(errbuf, &ifail);
    return {ifail, rt::message_code(errbuf)};
}

Raised kff(int genid, std::vector<int> seed, int lstate)
{
    std::vector<int> state(lstate > 0 ? lstate : 1);
    int subid = 1, lseed = static_cast<int>(seed.size());
    if (seed.empty())
        seed.push_back(1);
    return traced([&](char* e, int* i) {
        g05kfft_(&genid, &subid, seed.data(), &lseed, state.data(), &lstate, e, i, 200);
    });
}

Raised kgf(int genid, int lstate)
{
    std::vector<int> state(lstate > 0 ? lstate : 1);
    int subid = 1;
    return traced(
        [&](char* e, int* i) { g05kgft_(&genid, &subid, state.data(), &lstate, e, i, 200); });
}

std::vector<int> good(int genid, int lstate = 1260)
{
    return rt::make(genid, {3}, 1, lstate);
}

std::vector<int> damaged(int genid)
{
    std::vector<int> s = good(genid);
    s[1] += 1;
    return s;
}

// STATE with element index + 1 set to value.
std::vector<int> with(std::vector<int> s, int index, int value)
{
    s[index] = value;
    return s;
}

// A whole MT19937 state of zeros but for the first word.
std::vector<int> mt_words(unsigned first)
{
    std::vector<int> w(624, 0);
    w[0] = static_cast<int>(first);
    return w;
}

// The routines on STATE s; LSTATE = 0 stands for STATE(1), what the plain entry passes.
Raised khf(int n, int k, std::vector<int> s, int lstate = 0)
{
    if (lstate == 0)
        lstate = s[0];
    return traced([&](char* e, int* i) { g05khft_(&n, &k, s.data(), &lstate, e, i, 200); });
}

Raised kjf(int n, std::vector<int> s, int lstate = 0)
{
    if (lstate == 0)
        lstate = s[0];
    return traced([&](char* e, int* i) { g05kjft_(&n, s.data(), &lstate, e, i, 200); });
}

Raised kkf(int n, std::vector<int> s, int lstate = 0)
{
    if (lstate == 0)
        lstate = s[0];
    return traced([&](char* e, int* i) { g05kkft_(&n, s.data(), &lstate, e, i, 200); });
}

Raised saf(int n, std::vector<int> s, int lstate = 0)
{
    if (lstate == 0)
        lstate = s[0];
    std::vector<double> x(n > 0 ? n : 1);
    return traced([&](char* e, int* i) { g05saft_(&n, s.data(), x.data(), &lstate, e, i, 200); });
}

Raised skf(int n, double var, std::vector<int> s, int lstate = 0)
{
    if (lstate == 0)
        lstate = s[0];
    std::vector<double> x(n > 0 ? n : 1);
    double xmu = 0.0;
    return traced(
        [&](char* e, int* i) { g05skft_(&n, &xmu, &var, s.data(), x.data(), &lstate, e, i, 200); });
}

Raised tjf(int mode, int n, double lambda, std::vector<double> r, std::vector<int> s,
           int lstate = 0)
{
    if (lstate == 0)
        lstate = s[0];
    std::vector<int> x(n > 0 ? n : 1);
    int lr = static_cast<int>(r.size());
    return traced([&](char* e, int* i) {
        g05tjft_(&mode, &n, &lambda, r.data(), &lr, s.data(), x.data(), &lstate, e, i, 200);
    });
}

std::vector<double> reference(double lambda)
{
    std::vector<double> r(100);
    std::vector<int> s = good(1), x(1);
    int mode = 0, n = 0, lr = 100, ifail = 1;
    g05tjf_(&mode, &n, &lambda, r.data(), &lr, s.data(), x.data(), &ifail);
    return r;
}

TEST(RandomMessages, ChecksAndTheirOrder)
{
    const std::vector<Case> cases = {
        {"G05KFF GENID", [] { return kff(0, {1}, 17); }, 1, 99999},
        {"G05KFF SEED",
         [] {
             return kff(2, {1, 0}, 21);
         },
         3, 99998},
        {"G05KFF LSEED", [] { return kff(1, {}, 17); }, 4, 99997},
        {"G05KFF LSTATE", [] { return kff(6, {1}, 60); }, 6, 99996},
        {"G05KFF query", [] { return kff(4, {1}, 0); }, -1, 99995},
        {"G05KGF GENID", [] { return kgf(7, 17); }, 1, 99999},
        {"G05KGF LSTATE", [] { return kgf(3, 632); }, 6, 99996},
        {"G05KGF query", [] { return kgf(5, -1); }, -1, 99995},
        {"G05KHF N", [] { return khf(0, 1, good(2)); }, 1, 99999},
        {"G05KHF K", [] { return khf(2, 3, good(2)); }, 2, 99998},
        {"G05KHF STATE", [] { return khf(2, 1, damaged(2)); }, 3, 99997},
        {"G05KHF LSTATE", [] { return khf(2, 1, good(2), 22); }, 4, 99996},
        {"G05KHF ACORN", [] { return khf(2, 1, good(5)); }, 23, 99995},
        {"G05KJF N", [] { return kjf(-1, good(4)); }, 1, 99999},
        {"G05KJF STATE", [] { return kjf(1, damaged(4)); }, 2, 99998},
        {"G05KJF LSTATE", [] { return kjf(1, good(4), 30); }, 3, 99997},
        {"G05KJF MT", [] { return kjf(1, good(3, 633)); }, 5, 99996},
        {"G05KKF N", [] { return kkf(-1, good(6)); }, 1, 99999},
        {"G05KKF STATE", [] { return kkf(1, damaged(6)); }, 2, 99998},
        {"G05KKF LSTATE", [] { return kkf(1, good(6), 62); }, 3, 99997},
        {"G05KKF MT", [] { return kkf(1, good(3, 700)); }, 5, 99996},
        {"G05SAF N", [] { return saf(-1, good(1)); }, 1, 99999},
        {"G05SAF STATE", [] { return saf(1, damaged(1)); }, 2, 99998},
        {"G05SAF LSTATE", [] { return saf(1, good(1), 20); }, 4, 99997},
        {"G05SKF N", [] { return skf(-1, 1.0, good(1)); }, 1, 99999},
        {"G05SKF VAR", [] { return skf(1, -1.0, good(1)); }, 3, 99998},
        {"G05SKF STATE", [] { return skf(1, 1.0, damaged(3)); }, 4, 99997},
        {"G05SKF LSTATE", [] { return skf(1, 1.0, good(1), 2); }, 6, 99996},
        {"G05TJF MODE", [] { return tjf(5, 1, 1.0, {0.0}, good(1)); }, 1, 99999},
        {"G05TJF N", [] { return tjf(3, -1, 1.0, {0.0}, good(1)); }, 2, 99998},
        {"G05TJF LAMBDA", [] { return tjf(3, 1, -2.0, {0.0}, good(1)); }, 3, 99997},
        {"G05TJF LR overflow", [] { return tjf(0, 1, 1e20, {0.0}, good(1)); }, 3, 99996},
        {"G05TJF LAMBDA changed", [] { return tjf(1, 1, 2.0, reference(1.0), good(1)); }, 4, 99995},
        {"G05TJF R", [] { return tjf(1, 1, 1.0, std::vector<double>(100, 0.0), good(1)); }, 4,
         99994},
        {"G05TJF LR", [] { return tjf(2, 1, 100.0, std::vector<double>(100), good(1)); }, 5, 99993},
        {"G05TJF STATE", [] { return tjf(3, 1, 1.0, {0.0}, damaged(1)); }, 6, 99992},
        {"G05TJF LSTATE", [] { return tjf(3, 1, 1.0, {0.0}, good(1), 18); }, 8, 99991},
        {"G05TJF LAMBDA limit", [] { return tjf(1, 1, 2.5e9, {0.0}, good(1)); }, 3, 99990},
        // G05KFF and G05KGF: GENID, then LSEED, then the length query, then the minimum
        // length, then the seed words (only those the generator takes).
        {"G05KFF GENID 7", [] { return kff(7, {1}, 17); }, 1, 99999},
        {"G05KFF GENID before LSEED and LSTATE", [] { return kff(-1, {}, 0); }, 1, 99999},
        {"G05KFF LSEED before the query", [] { return kff(1, {}, 0); }, 4, 99997},
        {"G05KFF query before the seed", [] { return kff(1, {0}, 0); }, -1, 99995},
        {"G05KFF LSTATE before the seed", [] { return kff(1, {0}, 16); }, 6, 99996},
        {"G05KFF SEED 0, basic", [] { return kff(1, {0}, 17); }, 3, 99998},
        {"G05KFF SEED -4, basic", [] { return kff(1, {-4}, 17); }, 3, 99998},
        {"G05KFF SEED 0, MRG", [] { return kff(6, {0}, 61); }, 3, 99998},
        {"G05KFF SEED(3) of WH",
         [] {
             return kff(2, {1, 2, 0, 4}, 21);
         },
         3, 99998},
        {"G05KFF SEED(2) of WH2006",
         [] {
             return kff(4, {1, -2}, 29);
         },
         3, 99998},
        {"G05KFF SEED(6) of MRG",
         [] {
             return kff(6, {1, 2, 3, 4, 5, 0}, 61);
         },
         3, 99998},
        {"G05KFF SEED of ACORN", [] { return kff(5, {0}, 20); }, 3, 99998},
        {"G05KFF SEED(2) of MT",
         [] {
             return kff(3, {4, 0}, 633);
         },
         3, 99998},
        {"G05KFF MT state of ignored bits only", [] { return kff(3, mt_words(0x7fffffffu), 633); },
         3, 99998},
        {"G05KFF MT state, top bit set", [] { return kff(3, mt_words(0x80000000u), 633); }, 0, 0},
        {"G05KFF SEED(5) of WH not read",
         [] {
             return kff(2, {1, 2, 3, 4, 0}, 21);
         },
         0, 0},
        {"G05KFF SEED(2) of basic not read",
         [] {
             return kff(1, {3, -1}, 17);
         },
         0, 0},
        {"G05KGF GENID before the query", [] { return kgf(9, 0); }, 1, 99999},
        {"G05KGF LSTATE of WH", [] { return kgf(2, 20); }, 6, 99996},
        // Splitting: ACORN refused first; K in 1..N; a damaged state before N.
        {"G05KHF ACORN before N", [] { return khf(0, 1, good(5)); }, 23, 99995},
        {"G05KHF K = 0", [] { return khf(3, 0, good(1)); }, 2, 99998},
        {"G05KHF K = N + 1", [] { return khf(3, 4, good(1)); }, 2, 99998},
        {"G05KHF MRG trailer", [] { return khf(2, 1, with(good(6), 60, 1)); }, 3, 99997},
        {"G05KHF LSTATE of basic", [] { return khf(2, 1, good(1), 18); }, 4, 99996},
        {"G05KHF MT short block leap-frogs", [] { return khf(4, 2, good(3, 633)); }, 0, 0},
        {"G05KHF MT stride leaving the integer range",
         [] {
             std::vector<int> s = good(3);
             rt::khf(65536, 1, s);
             return khf(65536, 1, s);
         },
         23, 99995},
        {"G05KJF MRG trailer", [] { return kjf(2, with(good(6), 60, 1)); }, 2, 99998},
        {"G05KJF STATE before N", [] { return kjf(-2, with(with(good(6), 60, 1), 2, 0)); }, 2,
         99998},
        {"G05KJF LSTATE of basic", [] { return kjf(2, good(1), 18); }, 3, 99997},
        {"G05KKF MRG trailer", [] { return kkf(2, with(good(6), 60, 1)); }, 2, 99998},
        {"G05KKF LSTATE of basic", [] { return kkf(2, good(1), 18); }, 3, 99997},
        {"G05KKF LSTATE below the header", [] { return kkf(2, good(1), 2); }, 2, 99998},
        // G05SAF: N = 0 returns once the header is usable; the generator number before N;
        // a STATE(1) no generator has is refused before anything beyond the array is read.
        {"G05SAF N = 0, damaged trailer", [] { return saf(0, with(good(1), 16, 99)); }, 0, 0},
        {"G05SAF N before the trailer", [] { return saf(-1, with(good(1), 16, 99)); }, 1, 99999},
        {"G05SAF generator number before N",
         [] { return saf(-1, with(with(good(1), 16, 99), 2, 0)); }, 2, 99998},
        {"G05SAF LSTATE 2", [] { return saf(2, good(1), 2); }, 2, 99998},
        {"G05SAF LSTATE -3", [] { return saf(2, good(1), -3); }, 2, 99998},
        {"G05SAF LSTATE 16", [] { return saf(2, good(1), 16); }, 4, 99997},
        {"G05SAF LSTATE 18", [] { return saf(2, good(1), 18); }, 4, 99997},
        {"G05SAF LSTATE 100000", [] { return saf(2, good(1), 100000); }, 4, 99997},
        {"G05SAF STATE(1) huge", [] { return saf(2, with(good(1), 0, 2000000000)); }, 2, 99998},
        {"G05SAF STATE(1) 18", [] { return saf(2, with(good(1), 0, 18)); }, 2, 99998},
        {"G05SAF STATE(1) of MT", [] { return saf(2, with(good(1), 0, 633)); }, 2, 99998},
        {"G05SAF STATE(1) of MT, long", [] { return saf(2, with(good(1), 0, 1260)); }, 2, 99998},
        {"G05SAF STATE(1) of MRG", [] { return saf(2, with(good(1), 0, 61)); }, 2, 99998},
        {"G05SAF WH2006 relabelled MRG (shared check value)",
         [] { return saf(2, with(good(4), 2, 6)); }, 2, 99998},
        {"G05SAF MRG relabelled WH2006", [] { return saf(2, with(good(6), 2, 4)); }, 2, 99998},
        // G05SKF: N = 0 returns before the VAR check; N, then VAR, then STATE.
        {"G05SKF N = 0 before VAR", [] { return skf(0, -1.0, good(6)); }, 0, 0},
        {"G05SKF N before VAR", [] { return skf(-1, -1.0, good(6)); }, 1, 99999},
        {"G05SKF VAR NaN", [] { return skf(1, std::nan(""), good(6)); }, 3, 99998},
        {"G05SKF VAR before STATE", [] { return skf(1, -1.0, damaged(6)); }, 3, 99998},
        {"G05SKF LSTATE of MRG", [] { return skf(5, 1.0, good(6), 60); }, 6, 99996},
        // G05TJF.
        {"G05TJF MODE 4", [] { return tjf(4, 1, 1.0, std::vector<double>(200), good(1)); }, 1,
         99999},
        {"G05TJF MODE -1", [] { return tjf(-1, 1, 1.0, std::vector<double>(200), good(1)); }, 1,
         99999},
        {"G05TJF table length overflow",
         [] { return tjf(2, 1, 1e17, std::vector<double>(200), good(1)); }, 3, 99996},
        {"G05TJF variates beyond the integers", [] { return tjf(3, 1, 3e9, {0.0}, good(1)); }, 3,
         99990},
        {"G05TJF LR short, MODE 2", [] { return tjf(2, 1, 5.0, std::vector<double>(3), good(1)); },
         5, 99993},
        {"G05TJF LR short, MODE 0", [] { return tjf(0, 1, 5.0, std::vector<double>(3), good(1)); },
         5, 99993},
        {"G05TJF R not set up", [] { return tjf(1, 1, 5.0, std::vector<double>(3), good(1)); }, 4,
         99994},
        {"G05TJF R damaged",
         [] {
             std::vector<double> r = reference(5.0);
             r[3] = 1e9;
             return tjf(1, 1, 5.0, r, good(1));
         },
         4, 99994},
        {"G05TJF STATE, MODE 1", [] { return tjf(1, 1, 5.0, reference(5.0), damaged(1)); }, 6,
         99992},
        {"G05TJF MODE 0 does not need STATE",
         [] { return tjf(0, 1, 5.0, std::vector<double>(200), damaged(1)); }, 0, 0},
    };
    for (const Case& c : cases) {
        const Raised r = c.call();
        EXPECT_EQ(r.ifail, c.ifail) << c.name;
        if (c.ifail != 0) {
            EXPECT_EQ(r.code, c.code) << c.name;
        }
    }
}

}  // namespace
