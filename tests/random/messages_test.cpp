// The argument and state checks of the chapter and their order: every catalogue message,
// raised through the traced entries (the plain entries pass LSTATE = STATE(1)), and the
// boundary cases that must succeed.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "gen/random.hpp"
#include "random_test_util.hpp"
#include "tests/support/messages.hpp"
#include "variate_triggers.hpp"

namespace {

using Raised = lbx::test::Raised;
using lbx::test::traced;

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

std::vector<double> reference(double lambda, int lr = 100)
{
    std::vector<double> r(lr);
    std::vector<int> s = good(1), x(1);
    int mode = 0, n = 0, ifail = 1;
    g05tjf_(&mode, &n, &lambda, r.data(), &lr, s.data(), x.data(), &ifail);
    return r;
}

// G05TJF MODE 2 with LR the length the LR_SMALL message quotes.
Raised tjf_exact_length(double lambda)
{
    const Raised r = tjf(2, 1, lambda, std::vector<double>(3), good(1));
    EXPECT_EQ(r.values.size(), 2u);
    const int need = r.values.size() == 2 ? std::atoi(r.values[1].c_str()) : 1;
    return tjf(2, 1, lambda, std::vector<double>(need), good(1));
}

TEST(RandomMessages, EveryMessageInItsCheckOrder)
{
    using T = lbx::test::Trigger;
    lbx::test::check_catalogue(lbx::random::catalogue_messages, rt::plus_variates({
        T{"G05KFF", "GENID_RANGE", [] { return kff(0, {1}, 17); }, {"0"}},
        T{"G05KFF", "SEED_INVALID", [] { return kff(2, {1, 0}, 21); }},
        T{"G05KFF", "LSEED_RANGE", [] { return kff(1, {}, 17); }, {"0"}},
        T{"G05KFF", "LSTATE_SMALL", [] { return kff(6, {1}, 60); }, {"60", "61"}},
        T{"G05KFF", "LSTATE_RETURNED", [] { return kff(4, {1}, 0); }},
        T{"G05KGF", "GENID_RANGE", [] { return kgf(7, 17); }},
        T{"G05KGF", "LSTATE_SMALL", [] { return kgf(3, 632); }, {"632", "633"}},
        T{"G05KGF", "LSTATE_RETURNED", [] { return kgf(5, -1); }},
        T{"G05KHF", "N_RANGE", [] { return khf(0, 1, good(2)); }, {"0"}},
        T{"G05KHF", "K_RANGE", [] { return khf(2, 3, good(2)); }, {"3", "2"}},
        T{"G05KHF", "STATE_CORRUPT", [] { return khf(2, 1, damaged(2)); }},
        T{"G05KHF", "LSTATE_MISMATCH", [] { return khf(2, 1, good(2), 22); }, {"22"}},
        T{"G05KHF", "NO_LEAPFROG", [] { return khf(2, 1, good(5)); }},
        T{"G05KHF", "STATE_LENGTH", [] { return khf(2, 1, with(good(3, 633), 2, 1)); }, {"633", "1"}},
        T{"G05KJF", "N_RANGE", [] { return kjf(-1, good(4)); }, {"-1"}},
        T{"G05KJF", "STATE_CORRUPT", [] { return kjf(1, damaged(4)); }},
        T{"G05KJF", "LSTATE_MISMATCH", [] { return kjf(1, good(4), 30); }},
        T{"G05KJF", "MT_SHORT_BLOCK", [] { return kjf(1, good(3, 633)); }},
        T{"G05KJF", "STATE_LENGTH", [] { return kjf(1, with(good(6), 2, 3)); }, {"61", "3"}},
        T{"G05KKF", "N_RANGE", [] { return kkf(-1, good(6)); }},
        T{"G05KKF", "STATE_CORRUPT", [] { return kkf(1, damaged(6)); }},
        T{"G05KKF", "LSTATE_MISMATCH", [] { return kkf(1, good(6), 62); }},
        T{"G05KKF", "MT_SHORT_BLOCK", [] { return kkf(1, good(3, 700)); }},
        T{"G05KKF", "STATE_LENGTH", [] { return kkf(1, with(good(2), 0, 25)); }, {"25", "2"}},
        T{"G05SAF", "N_RANGE", [] { return saf(-1, good(1)); }},
        T{"G05SAF", "STATE_CORRUPT", [] { return saf(1, damaged(1)); }},
        T{"G05SAF", "LSTATE_MISMATCH", [] { return saf(1, good(1), 20); }},
        T{"G05SKF", "N_RANGE", [] { return skf(-1, 1.0, good(1)); }},
        T{"G05SKF", "VAR_RANGE", [] { return skf(1, -1.0, good(1)); }, {"-1.000000000000000E+00"}},
        T{"G05SKF", "STATE_CORRUPT", [] { return skf(1, 1.0, damaged(3)); }},
        T{"G05SKF", "LSTATE_MISMATCH", [] { return skf(1, 1.0, good(1), 2); }},
        T{"G05SKF", "STATE_LENGTH", [] { return skf(1, 1.0, with(good(5), 2, 4)); }, {"20", "4"}},
        T{"G05TJF", "MODE_RANGE", [] { return tjf(5, 1, 1.0, {0.0}, good(1)); }, {"5"}},
        T{"G05TJF", "N_RANGE", [] { return tjf(3, -1, 1.0, {0.0}, good(1)); }},
        T{"G05TJF", "LAMBDA_RANGE", [] { return tjf(3, 1, -2.0, {0.0}, good(1)); }, {"-2.000000000000000E+00"}},
        T{"G05TJF", "LAMBDA_TOO_LARGE", [] { return tjf(0, 1, 1e20, {0.0}, good(1)); }, {"1.000000000000000E+20"}},
        T{"G05TJF", "LAMBDA_CHANGED", [] { return tjf(1, 1, 2.0, reference(1.0), good(1)); }, {"1.000000000000000E+00", "2.000000000000000E+00"}},
        T{"G05TJF", "R_CORRUPT", [] { return tjf(1, 1, 1.0, std::vector<double>(100, 0.0), good(1)); }},
        T{"G05TJF", "LR_SMALL", [] { return tjf(2, 1, 100.0, std::vector<double>(100), good(1)); }},
        T{"G05TJF", "STATE_CORRUPT", [] { return tjf(3, 1, 1.0, {0.0}, damaged(1)); }},
        T{"G05TJF", "LSTATE_MISMATCH", [] { return tjf(3, 1, 1.0, {0.0}, good(1), 18); }, {"18"}},
        T{"G05TJF", "STATE_LENGTH", [] { return tjf(3, 1, 1.0, {0.0}, with(good(1), 2, 6)); }, {"17", "6"}},
        T{"G05TJF", "LAMBDA_LIMIT", [] { return tjf(1, 1, 2.5e9, {0.0}, good(1)); }, {"2.500000000000000E+09", "2.000000000000000E+09"}},
        // G05KFF and G05KGF: GENID, then LSEED, then the length query, then the minimum
        // length, then the seed words (only those the generator takes).
        T{"G05KFF", "GENID_RANGE", [] { return kff(7, {1}, 17); }, {}, "GENID 7"},
        T{"G05KFF", "GENID_RANGE", [] { return kff(-1, {}, 0); }, {}, "GENID before LSEED and LSTATE"},
        T{"G05KFF", "LSEED_RANGE", [] { return kff(1, {}, 0); }, {}, "LSEED before the query"},
        T{"G05KFF", "LSTATE_RETURNED", [] { return kff(1, {0}, 0); }, {}, "query before the seed"},
        T{"G05KFF", "LSTATE_SMALL", [] { return kff(1, {0}, 16); }, {}, "LSTATE before the seed"},
        T{"G05KFF", "SEED_INVALID", [] { return kff(1, {0}, 17); }, {}, "SEED 0, basic"},
        T{"G05KFF", "SEED_INVALID", [] { return kff(1, {-4}, 17); }, {}, "SEED -4, basic"},
        T{"G05KFF", "SEED_INVALID", [] { return kff(6, {0}, 61); }, {}, "SEED 0, MRG"},
        T{"G05KFF", "SEED_INVALID", [] { return kff(2, {1, 2, 0, 4}, 21); }, {}, "SEED(3) of WH"},
        T{"G05KFF", "SEED_INVALID", [] { return kff(4, {1, -2}, 29); }, {}, "SEED(2) of WH2006"},
        T{"G05KFF", "SEED_INVALID", [] { return kff(6, {1, 2, 3, 4, 5, 0}, 61); }, {}, "SEED(6) of MRG"},
        T{"G05KFF", "SEED_INVALID", [] { return kff(5, {0}, 20); }, {}, "SEED of ACORN"},
        T{"G05KFF", "SEED_INVALID", [] { return kff(3, {4, 0}, 633); }, {}, "SEED(2) of MT"},
        T{"G05KFF", "SEED_INVALID", [] { return kff(3, mt_words(0x7fffffffu), 633); }, {}, "MT state of ignored bits only"},
        T{"G05KFF", "", [] { return kff(3, mt_words(0x80000000u), 633); }, {}, "MT state, top bit set"},
        T{"G05KFF", "", [] { std::vector<int> w = mt_words(0); w[400] = -7; return kff(3, w, 633); }, {}, "MT state: words below 1 are 32-bit patterns"},
        T{"G05KFF", "", [] { return kff(2, {1, 2, 3, 4, 0}, 21); }, {}, "SEED(5) of WH not read"},
        T{"G05KFF", "", [] { return kff(1, {3, -1}, 17); }, {}, "SEED(2) of basic not read"},
        T{"G05KGF", "GENID_RANGE", [] { return kgf(9, 0); }, {}, "GENID before the query"},
        T{"G05KGF", "LSTATE_SMALL", [] { return kgf(2, 20); }, {}, "LSTATE of WH"},
        // Splitting: ACORN refused first; K in 1..N; a damaged state before N.
        T{"G05KHF", "NO_LEAPFROG", [] { return khf(0, 1, good(5)); }, {}, "ACORN before N"},
        T{"G05KHF", "K_RANGE", [] { return khf(3, 0, good(1)); }, {}, "K = 0"},
        T{"G05KHF", "K_RANGE", [] { return khf(3, 4, good(1)); }, {}, "K = N + 1"},
        T{"G05KHF", "STATE_CORRUPT", [] { return khf(2, 1, with(good(6), 60, 1)); }, {}, "MRG trailer"},
        T{"G05KHF", "LSTATE_MISMATCH", [] { return khf(2, 1, good(1), 18); }, {}, "LSTATE of basic"},
        T{"G05KHF", "", [] { return khf(4, 2, good(3, 633)); }, {}, "MT short block leap-frogs"},
        T{"G05KHF", "NO_LEAPFROG", [] { std::vector<int> s = good(3); rt::khf(65536, 1, s); return khf(65536, 1, s); }, {}, "MT stride leaving the integer range"},
        T{"G05KJF", "STATE_CORRUPT", [] { return kjf(2, with(good(6), 60, 1)); }, {}, "MRG trailer"},
        T{"G05KJF", "STATE_CORRUPT", [] { return kjf(-2, with(with(good(6), 60, 1), 2, 0)); }, {}, "STATE before N"},
        T{"G05KJF", "LSTATE_MISMATCH", [] { return kjf(2, good(1), 18); }, {}, "LSTATE of basic"},
        T{"G05KKF", "STATE_CORRUPT", [] { return kkf(2, with(good(6), 60, 1)); }, {}, "MRG trailer"},
        T{"G05KKF", "LSTATE_MISMATCH", [] { return kkf(2, good(1), 18); }, {}, "LSTATE of basic"},
        T{"G05KKF", "STATE_CORRUPT", [] { return kkf(2, good(1), 2); }, {}, "LSTATE below the header"},
        // G05SAF: N = 0 returns once the header is usable; the generator number before N;
        // a STATE(1) no generator has is refused before anything beyond the array is read.
        T{"G05SAF", "", [] { return saf(0, with(good(1), 16, 99)); }, {}, "N = 0, damaged trailer"},
        T{"G05SAF", "N_RANGE", [] { return saf(-1, with(good(1), 16, 99)); }, {}, "N before the trailer"},
        T{"G05SAF", "STATE_CORRUPT", [] { return saf(-1, with(with(good(1), 16, 99), 2, 0)); }, {}, "generator number before N"},
        T{"G05SAF", "STATE_CORRUPT", [] { return saf(2, good(1), 2); }, {}, "LSTATE 2"},
        T{"G05SAF", "STATE_CORRUPT", [] { return saf(2, good(1), -3); }, {}, "LSTATE -3"},
        T{"G05SAF", "LSTATE_MISMATCH", [] { return saf(2, good(1), 16); }, {}, "LSTATE 16"},
        T{"G05SAF", "LSTATE_MISMATCH", [] { return saf(2, good(1), 18); }, {}, "LSTATE 18"},
        T{"G05SAF", "LSTATE_MISMATCH", [] { return saf(2, good(1), 100000); }, {}, "LSTATE 100000"},
        T{"G05SAF", "STATE_LENGTH", [] { return saf(2, with(good(1), 0, 2000000000)); }, {"2000000000", "1"}, "STATE(1) huge"},
        T{"G05SAF", "STATE_LENGTH", [] { return saf(2, with(good(1), 0, 18)); }, {}, "STATE(1) 18"},
        T{"G05SAF", "STATE_LENGTH", [] { return saf(2, with(good(1), 0, 633)); }, {}, "STATE(1) of MT"},
        T{"G05SAF", "STATE_LENGTH", [] { return saf(2, with(good(1), 0, 1260)); }, {}, "STATE(1) of MT, long"},
        T{"G05SAF", "STATE_LENGTH", [] { return saf(2, with(good(1), 0, 61)); }, {}, "STATE(1) of MRG"},
        T{"G05SAF", "STATE_LENGTH", [] { return saf(2, with(good(4), 2, 6)); }, {"29", "6"}, "WH2006 relabelled MRG (shared check value)"},
        T{"G05SAF", "STATE_LENGTH", [] { return saf(2, with(good(6), 2, 4)); }, {}, "MRG relabelled WH2006"},
        T{"G05SAF", "STATE_LENGTH", [] { return saf(2, with(with(good(1), 16, 5), 2, 2)); }, {}, "before the check values"},
        T{"G05SAF", "", [] { return saf(2, with(with(good(1), 1, 5050), 16, 5050)); }, {}, "ACORN's check value in a basic STATE"},
        T{"G05SAF", "", [] { return saf(2, with(good(6), 9, 0)); }, {}, "MRG32k3a multiplier word, not read"},
        T{"G05SAF", "", [] { return saf(2, with(good(6), 15, 1)); }, {}, "MRG32k3a flag without step matrices"},
        T{"G05SAF", "", [] { return saf(2, with(good(3, 633), 629, 0)); }, {}, "MT19937 closing check value"},
        T{"G05SAF", "", [] { return saf(2, with(good(2), 3, 999)); }, {}, "WH set number, not read"},
        T{"G05SAF", "", [] { return saf(2, with(good(1), 4, 3)); }, {}, "basic x odd"},
        // G05SKF: N = 0 returns before the VAR check; N, then VAR, then STATE.
        T{"G05SKF", "", [] { return skf(0, -1.0, good(6)); }, {}, "N = 0 before VAR"},
        T{"G05SKF", "N_RANGE", [] { return skf(-1, -1.0, good(6)); }, {}, "N before VAR"},
        T{"G05SKF", "VAR_RANGE", [] { return skf(1, std::nan(""), good(6)); }, {}, "VAR NaN"},
        T{"G05SKF", "VAR_RANGE", [] { return skf(1, -1.0, damaged(6)); }, {}, "VAR before STATE"},
        T{"G05SKF", "LSTATE_MISMATCH", [] { return skf(5, 1.0, good(6), 60); }, {}, "LSTATE of MRG"},
        // G05TJF.
        T{"G05TJF", "MODE_RANGE", [] { return tjf(4, 1, 1.0, std::vector<double>(200), good(1)); }, {}, "MODE 4"},
        T{"G05TJF", "MODE_RANGE", [] { return tjf(-1, 1, 1.0, std::vector<double>(200), good(1)); }, {}, "MODE -1"},
        T{"G05TJF", "LAMBDA_TOO_LARGE", [] { return tjf(2, 1, 1e17, std::vector<double>(200), good(1)); }, {}, "table length overflow"},
        T{"G05TJF", "LAMBDA_LIMIT", [] { return tjf(3, 1, 3e9, {0.0}, good(1)); }, {}, "variates beyond the integers"},
        T{"G05TJF", "LR_SMALL", [] { return tjf(2, 1, 5.0, std::vector<double>(3), good(1)); }, {}, "LR short, MODE 2"},
        T{"G05TJF", "LR_SMALL", [] { return tjf(0, 1, 5.0, std::vector<double>(3), good(1)); }, {}, "LR short, MODE 0"},
        T{"G05TJF", "R_CORRUPT", [] { return tjf(1, 1, 5.0, std::vector<double>(3), good(1)); }, {}, "R not set up"},
        T{"G05TJF", "R_CORRUPT", [] { std::vector<double> r = reference(5.0); r[3] = 1e9; return tjf(1, 1, 5.0, r, good(1)); }, {}, "R damaged"},
        T{"G05TJF", "R_CORRUPT", [] { std::vector<double> r = reference(1e6, 20100); r[4] = 0.5; return tjf(1, 1, 1e6, r, good(1)); }, {}, "R(5) damaged: no walk below the table"},
        T{"G05TJF", "STATE_CORRUPT", [] { return tjf(1, 1, 5.0, reference(5.0), damaged(1)); }, {}, "STATE, MODE 1"},
        T{"G05TJF", "GENERATOR_STUCK", [] { return tjf(3, 5, 10.0, {0.0}, with(good(6), 15, 1)); }, {"1000"}, "MRG32k3a flagged as leap-frogged, no step matrices"},
        T{"G05TJF", "", [] { return tjf(3, 5, 9.5, {0.0}, with(good(6), 15, 1)); }, {}, "the same, sequential search"},
        T{"G05TJF", "", [] { return tjf(2, 5, 1e6, std::vector<double>(20100), with(good(6), 15, 1)); }, {}, "the same, table"},
        T{"G05TJF", "", [] { return tjf(0, 1, 5.0, std::vector<double>(200), damaged(1)); }, {}, "MODE 0 does not need STATE"},
        T{"G05TJF", "", [] { return tjf_exact_length(5.0); }, {}, "LR as long as required"},
        T{"G05TJF", "", [] { return tjf_exact_length(1e4); }, {}, "LR as long as required"},
    }));
}

}  // namespace
