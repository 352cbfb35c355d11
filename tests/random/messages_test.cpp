// The argument and state checks of the chapter and their order: every catalogue message,
// raised through the traced entries (the plain entries pass LSTATE = STATE(1)), and the
// boundary cases that must succeed. The variate generators as one table: each routine's
// traced call with a good parameter list, the rows that spoil one parameter (on a damaged
// STATE, so the parameters are seen to come first), and for every routine the same generated
// rows: N < 0 before the first bad parameter, N = 0 before everything, and the three state
// faults on good parameters.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "gen/random.hpp"
#include "random_test_util.hpp"
#include "tests/support/messages.hpp"

namespace {

using lbx::test::e;
using lbx::test::Raised;
using lbx::test::traced;
using T = lbx::test::Trigger;
using P = std::vector<double>;
using S = std::vector<int>;

const double nan = std::numeric_limits<double>::quiet_NaN();
const double inf = std::numeric_limits<double>::infinity();
const P big(20000);

S ok(int genid = 1)
{
    return rt::make(genid, {3});
}

S bad()
{
    S s = ok();
    s[1] += 1;
    return s;
}

// A basic generator whose multiplier is -1 mod 2^60: its uniforms alternate between
// 2.999/512 and 1 - 2.999/512, a pair the normal ziggurat rejects for ever (layer 1 beyond
// its rectangle, then a wedge point above the density).
S alternating()
{
    S s = ok();
    const auto x = (std::uint64_t{1} << 60) - static_cast<std::uint64_t>(2.999 / 512 * 0x1p60);
    for (int i = 0; i < 4; ++i) {
        s[4 + i] = static_cast<int>((x >> (15 * i)) & 0x7fff);
        s[8 + i] = 0x7fff;
    }
    return s;
}

int I(double v)
{
    return static_cast<int>(v);
}

// Traced entry with arguments (N, P..., STATE, X, LSTATE); lstate 0 stands for STATE(1).
template <class X = double, class F, class... A>
Raised plain(F f, int n, S s, int lstate, A... a)
{
    if (lstate == 0)
        lstate = s[0];
    std::vector<X> x(n > 0 ? n : 1);
    return traced([&](char* eb, int* i) { f(&n, &a..., s.data(), x.data(), &lstate, eb, i, 200); });
}

// Traced entry with arguments (MODE, N, P..., R, LR, STATE, X, LSTATE).
template <class F, class... A>
Raised moded(F f, int mode, int n, P r, S s, int lstate, A... a)
{
    if (lstate == 0)
        lstate = s[0];
    int lr = static_cast<int>(r.size());
    r.resize(r.size() + 1);
    std::vector<int> x(n > 0 ? n : 1);
    return traced([&](char* eb, int* i) {
        f(&mode, &n, &a..., r.data(), &lr, s.data(), x.data(), &lstate, eb, i, 200);
    });
}

// R set up by MODE 0.
template <class F, class... A>
P setup(F f, A... a)
{
    P r(20000);
    S s = ok(), x(1);
    int mode = 0, n = 0, lr = 20000, lstate = s[0], ifail = 0;
    char eb[200];
    f(&mode, &n, &a..., r.data(), &lr, s.data(), x.data(), &lstate, eb, &ifail, 200);
    return r;
}

P tdf_setup(P p, int ip1, int itype)
{
    P r(100);
    S s = ok(), x(1);
    int mode = 0, n = 0, np = static_cast<int>(p.size()), lr = 100, ifail = 1;
    g05tdf_(&mode, &n, p.data(), &np, &ip1, &itype, r.data(), &lr, s.data(), x.data(), &ifail);
    return r;
}

P tgf_setup(int m, P p)
{
    P r(50);
    S s = ok(), x(1);
    int mode = 0, n = 0, k = static_cast<int>(p.size()), lr = 50, ldx = 1, sorder = 1, ifail = 1;
    g05tgf_(&mode, &n, &m, &k, p.data(), r.data(), &lr, s.data(), x.data(), &ldx, &sorder, &ifail);
    return r;
}

Raised sef(int n, P p, S s, int l)  // p = (LDX, SORDER, A...)
{
    int ldx = I(p[0]), sorder = I(p[1]), m = static_cast<int>(p.size()) - 2;
    if (l == 0)
        l = s[0];
    std::vector<double> x(std::max(1, ldx * std::max(n, m)));
    return traced([&](char* eb, int* i) {
        g05seft_(&n, &m, p.data() + 2, s.data(), x.data(), &ldx, &sorder, &l, eb, i, 200);
    });
}

Raised sgf(int n, P p, S s, int l)  // p = (A(1), WGT(1), A(2), WGT(2), ...)
{
    int nmix = static_cast<int>(p.size()) / 2;
    P a(nmix + 1), w(nmix + 1);
    for (int j = 0; j < nmix; ++j)
        a[j] = p[2 * j], w[j] = p[2 * j + 1];
    if (l == 0)
        l = s[0];
    std::vector<double> x(n > 0 ? n : 1);
    return traced([&](char* eb, int* i) {
        g05sgft_(&n, &nmix, a.data(), w.data(), s.data(), x.data(), &l, eb, i, 200);
    });
}

Raised tdf(int n, P p, S s, int l, P r = big)  // p = (MODE, IP1, ITYPE, P...)
{
    int mode = I(p[0]), ip1 = I(p[1]), itype = I(p[2]), np = static_cast<int>(p.size()) - 3;
    int lr = static_cast<int>(r.size());
    p.push_back(0.0);
    if (l == 0)
        l = s[0];
    std::vector<int> x(n > 0 ? n : 1);
    return traced([&](char* eb, int* i) {
        g05tdft_(&mode, &n, p.data() + 3, &np, &ip1, &itype, r.data(), &lr, s.data(), x.data(), &l,
                 eb, i, 200);
    });
}

Raised tgf(int n, P p, S s, int l, P r = big)  // p = (MODE, M, LDX, SORDER, P...)
{
    int mode = I(p[0]), m = I(p[1]), ldx = I(p[2]), sorder = I(p[3]);
    int k = static_cast<int>(p.size()) - 4, lr = static_cast<int>(r.size());
    p.push_back(0.0);
    if (l == 0)
        l = s[0];
    std::vector<int> x(std::max(1, ldx) * std::max({n, k, 1}));
    return traced([&](char* eb, int* i) {
        g05tgft_(&mode, &n, &m, &k, p.data() + 4, r.data(), &lr, s.data(), x.data(), &ldx, &sorder,
                 &l, eb, i, 200);
    });
}

Raised tkf(int n, P p, S s, int l)  // p = VLAMDA
{
    p.push_back(0.0);
    if (l == 0)
        l = s[0];
    std::vector<int> x(n > 0 ? n : 1);
    return traced(
        [&](char* eb, int* i) { g05tkft_(&n, p.data(), s.data(), x.data(), &l, eb, i, 200); });
}

struct Routine {
    const char* name;
    std::function<Raised(int n, P p, S s, int lstate)> call;
    P good;
};

const std::vector<Routine>& routines()
{
    static const std::vector<Routine> r = {
        // clang-format off
        {"G05SBF", [](int n, P p, S s, int l) { return plain(g05sbft_, n, s, l, p[0], p[1]); }, {1, 1}},
        {"G05SCF", [](int n, P p, S s, int l) { return plain(g05scft_, n, s, l, p[0], p[1]); }, {0, 1}},
        {"G05SDF", [](int n, P p, S s, int l) { return plain(g05sdft_, n, s, l, I(p[0])); }, {1}},
        {"G05SEF", sef, {5, 1, 1.0, 2.0}},
        {"G05SFF", [](int n, P p, S s, int l) { return plain(g05sfft_, n, s, l, p[0]); }, {1}},
        {"G05SGF", sgf, {1.0, 0.5, 2.0, 0.5}},
        {"G05SHF", [](int n, P p, S s, int l) { return plain(g05shft_, n, s, l, I(p[0]), I(p[1])); }, {1, 1}},
        {"G05SJF", [](int n, P p, S s, int l) { return plain(g05sjft_, n, s, l, p[0], p[1]); }, {1, 1}},
        {"G05SLF", [](int n, P p, S s, int l) { return plain(g05slft_, n, s, l, p[0], p[1]); }, {0, 1}},
        {"G05SMF", [](int n, P p, S s, int l) { return plain(g05smft_, n, s, l, p[0], p[1]); }, {0, 1}},
        {"G05SNF", [](int n, P p, S s, int l) { return plain(g05snft_, n, s, l, p[0]); }, {1}},
        {"G05SPF", [](int n, P p, S s, int l) { return plain(g05spft_, n, s, l, p[0], p[1], p[2]); }, {0, 0.5, 1}},
        {"G05SQF", [](int n, P p, S s, int l) { return plain(g05sqft_, n, s, l, p[0], p[1]); }, {0, 1}},
        {"G05SRF", [](int n, P p, S s, int l) { return plain(g05srft_, n, s, l, I(p[0])); }, {1}},
        {"G05SSF", [](int n, P p, S s, int l) { return plain(g05ssft_, n, s, l, p[0], p[1]); }, {1, 1}},
        {"G05TAF", [](int n, P p, S s, int l) { return moded(g05taft_, I(p[0]), n, big, s, l, I(p[1]), p[2]); }, {3, 5, 0.5}},
        {"G05TBF", [](int n, P p, S s, int l) { return plain<int>(g05tbft_, n, s, l, p[0]); }, {0.5}},
        {"G05TCF", [](int n, P p, S s, int l) { return moded(g05tcft_, I(p[0]), n, big, s, l, p[1]); }, {3, 0.5}},
        {"G05TDF", [](int n, P p, S s, int l) { return tdf(n, p, s, l); }, {3, 0, 1, 0.5, 0.5}},
        {"G05TEF", [](int n, P p, S s, int l) { return moded(g05teft_, I(p[0]), n, big, s, l, I(p[1]), I(p[2]), I(p[3])); }, {3, 10, 5, 5}},
        {"G05TFF", [](int n, P p, S s, int l) { return moded(g05tfft_, I(p[0]), n, big, s, l, p[1]); }, {3, 0.5}},
        {"G05TGF", [](int n, P p, S s, int l) { return tgf(n, p, s, l); }, {3, 5, 3, 1, 0.5, 0.5}},
        {"G05THF", [](int n, P p, S s, int l) { return moded(g05thft_, I(p[0]), n, big, s, l, I(p[1]), p[2]); }, {3, 1, 0.5}},
        {"G05TKF", tkf, {1.0}},
        {"G05TLF", [](int n, P p, S s, int l) { return plain<int>(g05tlft_, n, s, l, I(p[0]), I(p[1])); }, {1, 2}},
        // clang-format on
    };
    return r;
}

const Routine& routine(const std::string& name)
{
    for (const Routine& r : routines())
        if (name == r.name)
            return r;
    std::abort();
}

// A parameter fault: the routine called with N (1 unless given) and parameters p on a
// damaged STATE must raise id, quoting values.
struct Row {
    const char* routine;
    const char* id;
    P p;
    std::vector<std::string> values = {};
    const char* note = "";
    int n = 1;
};

const std::vector<Row>& rows()
{
    static const std::vector<Row> r = {
        // clang-format off
        {"G05SBF", "A_RANGE", {0, -1}, {e(0.0)}},
        {"G05SBF", "A_RANGE", {nan, 1}, {}, "A NaN"},
        {"G05SBF", "B_RANGE", {1, -1}, {e(-1.0)}},
        {"G05SCF", "SEMIQR_RANGE", {0, -1}, {e(-1.0)}},
        {"G05SDF", "DF_RANGE", {0}, {"0"}},
        {"G05SEF", "M_RANGE", {0, 0, 1.0}, {"1"}},
        {"G05SEF", "A_RANGE", {0, 0, 1.0, 2.0, -1.0}, {"3", e(-1.0)}},
        {"G05SEF", "A_RANGE", {5, 1, inf, 1.0}, {}, "A infinite"},
        {"G05SEF", "SORDER_RANGE", {0, 3, 1.0, 2.0}, {"3"}},
        {"G05SEF", "LDX_N", {4, 1, 1.0, 2.0}, {"4", "5"}, "", 5},
        {"G05SEF", "LDX_M", {2, 2, 1.0, 2.0, 3.0}, {"2", "3"}, "", 5},
        {"G05SFF", "A_RANGE", {-0.5}, {e(-0.5)}},
        {"G05SGF", "NMIX_RANGE", {}, {"0"}},
        {"G05SGF", "A_RANGE", {1.0, -1.0, 0.0, 2.0}, {"2", e(0.0)}},
        {"G05SGF", "WGT_RANGE", {1.0, 1.5, 2.0, -0.5}, {"2", e(-0.5)}},
        {"G05SGF", "WGT_SUM", {1.0, 0.5, 2.0, 0.25}},
        {"G05SHF", "DF1_RANGE", {0, 0}, {"0"}},
        {"G05SHF", "DF2_RANGE", {1, -3}, {"-3"}},
        {"G05SJF", "A_RANGE", {-1, 0}, {e(-1.0)}},
        {"G05SJF", "A_RANGE", {inf, 1}, {}, "A infinite"},
        {"G05SJF", "B_RANGE", {1, 0}, {e(0.0)}},
        {"G05SLF", "B_RANGE", {0, -2}, {e(-2.0)}},
        {"G05SMF", "VAR_RANGE", {0, -1}, {e(-1.0)}},
        {"G05SNF", "VK_RANGE", {-1}, {e(-1.0)}},
        {"G05SNF", "VK_RANGE", {inf}, {}, "VK infinite"},
        {"G05SPF", "XMED_RANGE", {0, -0.5, -1}, {e(0.0), e(-0.5)}},
        {"G05SPF", "XMAX_RANGE", {0, 0.5, 0.25}, {e(0.5), e(0.25)}},
        {"G05SPF", "RANGE_INFINITE", {-1e308, 0, 1e308}},
        {"G05SQF", "B_RANGE", {1, 0}, {e(1.0), e(0.0)}},
        {"G05SQF", "RANGE_INFINITE", {0, inf}},
        {"G05SRF", "DF_RANGE", {0}, {"0"}},
        {"G05SSF", "A_RANGE", {0, 0}, {e(0.0)}},
        {"G05SSF", "B_RANGE", {1, 0}, {e(0.0)}},
        {"G05TAF", "MODE_RANGE", {4, -1, 2}, {"4"}, "", -1},
        {"G05TAF", "MODE_RANGE", {-1, 5, 0.5}, {"-1"}, "MODE -1"},
        {"G05TAF", "M_RANGE", {3, -1, 2}, {"-1"}},
        {"G05TAF", "P_RANGE", {3, 1, 1.5}, {e(1.5)}},
        {"G05TAF", "P_RANGE", {3, 1, nan}, {}, "P NaN"},
        {"G05TBF", "P_RANGE", {-0.1}, {e(-0.1)}},
        {"G05TCF", "MODE_RANGE", {5, 0.5}},
        {"G05TCF", "P_RANGE", {3, 0}, {e(0.0)}},
        {"G05TCF", "TABLE_TOO_LONG", {2, 1e-7}, {"10000000"}},
        {"G05TDF", "MODE_RANGE", {7, 0, 0}, {"7"}},
        {"G05TDF", "NP_RANGE", {3, 0, 0}, {"0"}},
        {"G05TDF", "IP1_RANGE", {3, 2147483647, 0, 0.5, 0.5}, {"2147483647", "2"}},
        {"G05TDF", "ITYPE_RANGE", {3, 0, 3, -0.5, 0.5}, {"3"}},
        {"G05TDF", "P_NEGATIVE", {3, 0, 1, 1.5, -0.5}, {"2", e(-0.5)}},
        {"G05TDF", "P_NEGATIVE", {3, 0, 2, -0.5, 1.0}, {}, "ITYPE 2"},
        {"G05TDF", "P_SUM", {3, 0, 1, 0.5, 0.25}},
        {"G05TDF", "CDF_DECREASING", {3, 0, 2, 0.5, 0.25, 1.0}, {"2", e(0.25), "1", e(0.5)}},
        {"G05TDF", "CDF_END", {3, 0, 2, 0.5, 0.75}},
        {"G05TEF", "MODE_RANGE", {9, 10, 5, 5}},
        {"G05TEF", "NS_RANGE", {3, -1, 5, 5}, {"-1"}},
        {"G05TEF", "NP_RANGE", {3, 10, 11, 5}, {"11", "10"}},
        {"G05TEF", "M_RANGE", {3, 10, 10, -1}, {"-1", "10"}},
        {"G05TFF", "MODE_RANGE", {4, 0.5}},
        {"G05TFF", "A_RANGE", {3, 1.0}, {e(1.0)}},
        {"G05TFF", "TABLE_TOO_LONG", {0, 1.0 - 1e-9}},
        {"G05TGF", "MODE_RANGE", {4, 5, 0, 0}},
        {"G05TGF", "M_RANGE", {3, -5, 0, 0}, {"-5"}},
        {"G05TGF", "K_RANGE", {3, 5, 0, 0, 1.0}, {"1"}},
        {"G05TGF", "P_NEGATIVE", {3, 5, 0, 0, 0.5, 0.6, -0.1}, {"3", e(-0.1)}},
        {"G05TGF", "P_SUM", {3, 5, 0, 0, 0.5, 0.6}},
        {"G05TGF", "SORDER_RANGE", {3, 5, 0, 0, 0.5, 0.5}, {"0"}},
        {"G05TGF", "LDX_N", {3, 5, 2, 1, 0.5, 0.5}, {"2", "3"}, "", 3},
        {"G05TGF", "LDX_K", {3, 5, 1, 2, 0.5, 0.5}, {"1", "2"}, "", 3},
        {"G05THF", "MODE_RANGE", {4, 1, 0.5}},
        {"G05THF", "M_RANGE", {3, 0, 0.5}, {"0"}},
        {"G05THF", "P_RANGE", {3, 1, 0}, {e(0.0)}},
        {"G05THF", "TABLE_TOO_LONG", {3, 1, 1e-7}, {}, "MODE 3 builds the table too"},
        {"G05TKF", "VLAMDA_RANGE", {1.0, 2.0, -1.0}, {"3", e(-1.0), e(2e9)}, "", 3},
        {"G05TKF", "VLAMDA_RANGE", {3e9}, {}, "above 2e9"},
        {"G05TLF", "B_RANGE", {2, 1}, {"2", "1"}},
        // clang-format on
    };
    return r;
}

// Calls that must raise something other than a parameter or state fault, or succeed.
std::vector<T> special()
{
    const auto& r = routine;
    const S stuck = alternating();
    auto taf = [](int mode, P rr, S s, int m, double p) {
        return moded(g05taft_, mode, 1, rr, s, 0, m, p);
    };
    P damaged = setup(g05taft_, 5, 0.5);
    damaged[0] += 1.0;
    return {
        // clang-format off
        T{"G05SBF", "GENERATOR_STUCK", [=] { return r("G05SBF").call(1, {20, 30}, stuck, 0); }, {"1000"}},
        T{"G05SDF", "GENERATOR_STUCK", [=] { return r("G05SDF").call(1, {2}, stuck, 0); }},
        T{"G05SEF", "GENERATOR_STUCK", [=] { return sef(5, {5, 1, 1.0, 1.0}, stuck, 0); }},
        T{"G05SHF", "GENERATOR_STUCK", [=] { return r("G05SHF").call(1, {2, 2}, stuck, 0); }},
        T{"G05SJF", "GENERATOR_STUCK", [=] { return r("G05SJF").call(1, {0.3, 1}, stuck, 0); }},
        T{"G05SNF", "GENERATOR_STUCK", [=] { return r("G05SNF").call(1, {5}, stuck, 0); }},
        T{"G05SRF", "GENERATOR_STUCK", [=] { return r("G05SRF").call(1, {2}, stuck, 0); }},
        T{"G05SFF", "", [=] { return r("G05SFF").call(5, {1}, stuck, 0); }, {}, "exponential always ends"},
        T{"G05SGF", "", [] { return sgf(1, {1.0, 0.1, 2.0, 0.2, 3.0, 0.7}, ok(), 0); }, {}, "sum rounded"},
        T{"G05SEF", "", [] { return sef(2, {2, 1, 1.0, 2.0}, ok(), 0); }, {}, "LDX = N"},
        T{"G05SEF", "", [] { return sef(5, {2, 2, 1.0, 2.0}, ok(), 0); }, {}, "LDX = M"},
        T{"G05TAF", "R_CORRUPT", [=] { return taf(1, P(20000), bad(), 5, 0.5); }},
        T{"G05TAF", "R_CORRUPT", [=] { return taf(1, damaged, ok(), 5, 0.5); }, {}, "R damaged"},
        T{"G05TAF", "PARAMS_CHANGED", [=] { return taf(1, setup(g05taft_, 5, 0.5), bad(), 6, 0.5); }, {"5", "6", e(0.5), e(0.5)}},
        T{"G05TAF", "LR_SMALL", [=] { return taf(2, P(8), bad(), 5, 0.5); }, {"8", "11"}},
        T{"G05TAF", "STATE_CORRUPT", [=] { return taf(1, setup(g05taft_, 5, 0.5), bad(), 5, 0.5); }, {}, "MODE 1"},
        T{"G05TAF", "", [=] { return taf(0, big, bad(), 5, 0.5); }, {}, "MODE 0 needs no STATE"},
        T{"G05TAF", "", [=] { return moded(g05taft_, 2, 0, big, bad(), 0, 5, 0.5); }, {}, "N = 0 needs no STATE"},
        T{"G05TAF", "", [=] { return taf(2, P(11), ok(), 5, 0.5); }, {}, "LR as long as required"},
        T{"G05TCF", "", [] { return moded(g05tcft_, 3, 1, P{}, ok(), 0, 1e-7); }, {}, "MODE 3 needs no table"},
        T{"G05TCF", "R_CORRUPT", [] { return moded(g05tcft_, 1, 1, setup(g05taft_, 5, 0.5), bad(), 0, 0.5); }, {}, "R of another routine"},
        T{"G05TCF", "PARAMS_CHANGED", [] { return moded(g05tcft_, 1, 1, setup(g05tcft_, 0.5), bad(), 0, 0.25); }, {e(0.5), e(0.25)}},
        T{"G05TCF", "LR_SMALL", [] { return moded(g05tcft_, 0, 1, P(4), bad(), 0, 0.5); }},
        T{"G05TDF", "R_CORRUPT", [] { return tdf(1, {1, 0, 1, 0.5, 0.5}, bad(), 0, P(50)); }},
        T{"G05TDF", "PARAMS_CHANGED", [] { return tdf(1, {1, 1, 1, 0.5, 0.5}, bad(), 0, tdf_setup({0.5, 0.5}, 0, 1)); }, {"2", "0", "1", "2", "1", "1"}},
        T{"G05TDF", "LR_SMALL", [] { return tdf(1, {2, -7, 1, 0.5, 0.5}, bad(), 0, P(7)); }, {"7", "8"}},
        T{"G05TDF", "", [] { return tdf(1, {1, -7, 1, 0.5, 0.5}, ok(), 0, tdf_setup({0.5, 0.5}, -7, 1)); }, {}, "negative IP1 in R"},
        T{"G05TEF", "R_CORRUPT", [] { return moded(g05teft_, 1, 1, P{1.0}, ok(), 0, 10, 5, 5); }},
        T{"G05TEF", "PARAMS_CHANGED", [] { return moded(g05teft_, 1, 1, setup(g05teft_, 10, 5, 5), ok(), 0, 10, 5, 4); }, {"10", "5", "5", "10", "5", "4"}},
        T{"G05TEF", "LR_SMALL", [] { return moded(g05teft_, 2, 1, P(7), ok(), 0, 10, 5, 5); }},
        T{"G05TEF", "", [] { return moded(g05teft_, 2, 5, big, ok(), 0, 0, 0, 0); }, {}, "NS = 0"},
        T{"G05TFF", "", [] { return moded(g05tfft_, 3, 100, P{}, ok(), 0, 1.0 - 1e-9); }, {}, "MODE 3 needs no table"},
        T{"G05TFF", "R_CORRUPT", [] { return moded(g05tfft_, 1, 1, P(3), ok(), 0, 0.5); }},
        T{"G05TFF", "PARAMS_CHANGED", [] { return moded(g05tfft_, 1, 1, setup(g05tfft_, 0.5), ok(), 0, 0.75); }, {e(0.5), e(0.75)}},
        T{"G05TFF", "LR_SMALL", [] { return moded(g05tfft_, 2, 1, P(9), ok(), 0, 0.5); }},
        T{"G05TGF", "R_CORRUPT", [] { return tgf(3, {1, 5, 2, 2, 0.5, 0.5}, bad(), 0, P(10)); }},
        T{"G05TGF", "PARAMS_CHANGED", [] { return tgf(3, {1, 6, 2, 2, 0.5, 0.5}, bad(), 0, tgf_setup(5, {0.5, 0.5})); }, {"5", "2", "6", "2"}},
        T{"G05TGF", "LR_SMALL", [] { return tgf(3, {2, 5, 2, 2, 0.5, 0.5}, bad(), 0, P(4)); }, {"4", "5"}},
        T{"G05TGF", "", [] { return tgf(3, {0, 5, 0, 0, 0.5, 0.5}, bad(), 0, P(5)); }, {}, "MODE 0: no X, no STATE"},
        T{"G05TGF", "", [] { return tgf(3, {1, 5, 2, 2, -1.0, 5.0}, ok(), 0, tgf_setup(5, {0.5, 0.5})); }, {}, "MODE 1 does not read P"},
        T{"G05THF", "R_CORRUPT", [] { return moded(g05thft_, 1, 1, setup(g05taft_, 1, 0.5), ok(), 0, 1, 0.5); }},
        T{"G05THF", "PARAMS_CHANGED", [] { return moded(g05thft_, 1, 1, setup(g05thft_, 1, 0.5), ok(), 0, 1, 0.5 + 1e-16); }},
        T{"G05THF", "LR_SMALL", [] { return moded(g05thft_, 0, 1, P(6), ok(), 0, 1, 0.5); }},
        T{"G05TKF", "GENERATOR_STUCK", [] { S s = ok(6); s[15] = 1; return tkf(2, {1.0, 30.0}, s, 0); }, {"1000"}},
        // clang-format on
    };
}

std::vector<T> plus_variates(std::vector<T> triggers)
{
    for (const Routine& r : routines()) {
        const std::string name = r.name;
        // The first parameter fault after MODE, to show that N comes before it.
        P spoilt = r.good;
        for (const Row& row : rows())
            if (name == row.routine && row.n == 1 && std::string(row.id) != "MODE_RANGE") {
                spoilt = row.p;
                break;
            }
        const auto call = r.call;
        const P good = r.good;
        triggers.push_back({r.name, "N_RANGE", [=] { return call(-1, spoilt, bad(), 0); }, {"-1"}});
        if (name.substr(0, 4) == "G05S" || name == "G05TBF" || name == "G05TLF")
            triggers.push_back(
                {r.name, "", [=] { return call(0, spoilt, bad(), 0); }, {}, "N = 0 first"});
        triggers.push_back({r.name, "STATE_CORRUPT", [=] { return call(1, good, bad(), 0); }});
        triggers.push_back(
            {r.name, "LSTATE_MISMATCH", [=] { return call(1, good, ok(), 18); }, {"18"}});
        triggers.push_back({r.name,
                            "STATE_LENGTH",
                            [=] {
                                S s = ok();
                                s[2] = 6;
                                return call(1, good, s, 0);
                            },
                            {"17", "6"}});
    }
    for (const Row& row : rows()) {
        const auto call = routine(row.routine).call;
        const Row w = row;
        triggers.push_back(
            {row.routine, row.id, [=] { return call(w.n, w.p, bad(), 0); }, row.values, row.note});
    }
    for (T& t : special())
        triggers.push_back(std::move(t));
    return triggers;
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

Raised saf(int n, S s, int lstate = 0)
{
    return plain(g05saft_, n, s, lstate);
}

Raised skf(int n, double var, S s, int lstate = 0)
{
    return plain(g05skft_, n, s, lstate, 0.0, var);
}

Raised tjf(int mode, int n, double lambda, P r, S s, int lstate = 0)
{
    return moded(g05tjft_, mode, n, r, s, lstate, lambda);
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
    lbx::test::check_catalogue(lbx::random::catalogue_messages, plus_variates({
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
