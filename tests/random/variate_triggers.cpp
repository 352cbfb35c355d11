// Argument and state checks of the continuous variate generators and their order: N first
// (N = 0 returns before anything else is looked at), the parameters in argument order, then
// STATE; a rejection method on a generator that does not progress stops with a failure.
#include "variate_triggers.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "random_test_util.hpp"

namespace rt {
namespace {

using lbx::test::Raised;
using lbx::test::traced;
using T = lbx::test::Trigger;
using lbx::test::e;

std::vector<int> ok(int genid = 1)
{
    return make(genid, {3});
}

std::vector<int> bad(int genid = 1)
{
    std::vector<int> s = ok(genid);
    s[1] += 1;
    return s;
}

// A basic generator whose value x is a fixed point of its recurrence: every uniform is u.
// Digit 8 of 2^13 k is x = k 2^58, u = k / 4; no digit at all leaves u = 2^-60.
std::vector<int> constant(int k)
{
    std::vector<int> s = ok(1);
    s[4] = s[5] = s[6] = 0;
    s[7] = 8192 * k;
    return s;
}

// Traced entry of a routine with arguments (N, P..., STATE, X, LSTATE): the parameters are
// passed by address in order; lstate 0 stands for STATE(1).
template <class F, class... P>
Raised call(F f, int n, std::vector<int> s, int lstate, P... p)
{
    if (lstate == 0)
        lstate = s[0];
    std::vector<double> x(n > 0 ? n : 1);
    return traced([&](char* eb, int* i) { f(&n, &p..., s.data(), x.data(), &lstate, eb, i, 200); });
}

Raised sgf(int n, std::vector<double> a, std::vector<double> w, std::vector<int> s, int lstate = 0)
{
    if (lstate == 0)
        lstate = s[0];
    int nmix = static_cast<int>(a.size());
    if (a.empty())
        a.push_back(1.0), w.push_back(1.0);
    std::vector<double> x(n > 0 ? n : 1);
    return traced([&](char* eb, int* i) {
        g05sgft_(&n, &nmix, a.data(), w.data(), s.data(), x.data(), &lstate, eb, i, 200);
    });
}

Raised sef(int n, std::vector<double> a, int ldx, int sorder, std::vector<int> s, int lstate = 0)
{
    if (lstate == 0)
        lstate = s[0];
    int m = static_cast<int>(a.size());
    if (a.empty())
        a.push_back(1.0);
    std::vector<double> x(std::max(1, ldx * std::max(n, m)));
    return traced([&](char* eb, int* i) {
        g05seft_(&n, &m, a.data(), s.data(), x.data(), &ldx, &sorder, &lstate, eb, i, 200);
    });
}

// Traced entry of a routine with arguments (MODE, N, P..., R, LR, STATE, X, LSTATE).
template <class F, class... P>
Raised moded(F f, int mode, int n, std::vector<double> r, std::vector<int> s, int lstate, P... p)
{
    if (lstate == 0)
        lstate = s[0];
    int lr = static_cast<int>(r.size());
    if (r.empty())
        r.push_back(0.0);
    std::vector<int> x(n > 0 ? n : 1);
    return traced([&](char* eb, int* i) {
        f(&mode, &n, &p..., r.data(), &lr, s.data(), x.data(), &lstate, eb, i, 200);
    });
}

// R set up by MODE 0 for parameters p.
template <class F, class... P>
std::vector<double> setup(F f, P... p)
{
    std::vector<double> r(20000);
    std::vector<int> s = ok(), x(1);
    int mode = 0, n = 0, lr = 20000, lstate = s[0];
    char eb[200];
    int ifail = 0;
    f(&mode, &n, &p..., r.data(), &lr, s.data(), x.data(), &lstate, eb, &ifail, 200);
    return r;
}

std::vector<double> damaged_r(std::vector<double> r)
{
    r[0] += 1.0;
    return r;
}

Raised tbf(int n, double p, std::vector<int> s, int lstate = 0)
{
    if (lstate == 0)
        lstate = s[0];
    std::vector<int> x(n > 0 ? n : 1);
    return traced(
        [&](char* eb, int* i) { g05tbft_(&n, &p, s.data(), x.data(), &lstate, eb, i, 200); });
}

Raised tlf(int n, int a, int b, std::vector<int> s, int lstate = 0)
{
    if (lstate == 0)
        lstate = s[0];
    std::vector<int> x(n > 0 ? n : 1);
    return traced(
        [&](char* eb, int* i) { g05tlft_(&n, &a, &b, s.data(), x.data(), &lstate, eb, i, 200); });
}

const std::vector<double> big(20000);

Raised tgf(int mode, int n, int m, std::vector<double> p, std::vector<double> r, int ldx,
           int sorder, std::vector<int> s, int lstate = 0)
{
    if (lstate == 0)
        lstate = s[0];
    int k = static_cast<int>(p.size()), lr = static_cast<int>(r.size());
    if (p.empty())
        p.push_back(1.0);
    if (r.empty())
        r.push_back(0.0);
    std::vector<int> x(std::max(1, ldx) * std::max({n, k, 1}));
    return traced([&](char* eb, int* i) {
        g05tgft_(&mode, &n, &m, &k, p.data(), r.data(), &lr, s.data(), x.data(), &ldx, &sorder,
                 &lstate, eb, i, 200);
    });
}

std::vector<double> tgf_setup(int m, std::vector<double> p)
{
    std::vector<double> r(50);
    std::vector<int> s = ok(), x(1);
    int mode = 0, n = 0, k = static_cast<int>(p.size()), lr = 50, ldx = 1, sorder = 1, ifail = 1;
    g05tgf_(&mode, &n, &m, &k, p.data(), r.data(), &lr, s.data(), x.data(), &ldx, &sorder, &ifail);
    return r;
}

Raised tdf(int mode, int n, std::vector<double> p, int ip1, int itype, std::vector<double> r,
           std::vector<int> s, int lstate = 0)
{
    if (lstate == 0)
        lstate = s[0];
    int np = static_cast<int>(p.size()), lr = static_cast<int>(r.size());
    if (p.empty())
        p.push_back(1.0);
    if (r.empty())
        r.push_back(0.0);
    std::vector<int> x(n > 0 ? n : 1);
    return traced([&](char* eb, int* i) {
        g05tdft_(&mode, &n, p.data(), &np, &ip1, &itype, r.data(), &lr, s.data(), x.data(), &lstate,
                 eb, i, 200);
    });
}

std::vector<double> tdf_setup(std::vector<double> p, int ip1, int itype)
{
    std::vector<double> r(100);
    std::vector<int> s = ok(), x(1);
    int mode = 0, n = 0, np = static_cast<int>(p.size()), lr = 100, ifail = 1;
    g05tdf_(&mode, &n, p.data(), &np, &ip1, &itype, r.data(), &lr, s.data(), x.data(), &ifail);
    return r;
}

Raised tkf(int n, std::vector<double> v, std::vector<int> s, int lstate = 0)
{
    if (lstate == 0)
        lstate = s[0];
    if (v.empty())
        v.push_back(0.0);
    std::vector<int> x(n > 0 ? n : 1);
    return traced(
        [&](char* eb, int* i) { g05tkft_(&n, v.data(), s.data(), x.data(), &lstate, eb, i, 200); });
}

const double nan = std::numeric_limits<double>::quiet_NaN();
const double inf = std::numeric_limits<double>::infinity();

}  // namespace

std::vector<T> continuous_triggers()
{
    // The same three state faults for each routine: damaged check value, declared length
    // other than STATE(1), STATE(1) that is no length of the generator in STATE(3).
    std::vector<T> t = {
        T{"G05SBF", "N_RANGE", [] { return call(g05sbft_, -1, ok(), 0, 1.0, 1.0); }, {"-1"}},
        T{"G05SBF", "A_RANGE", [] { return call(g05sbft_, 1, ok(), 0, 0.0, -1.0); }, {e(0.0)}},
        T{"G05SBF", "B_RANGE", [] { return call(g05sbft_, 1, bad(), 0, 1.0, -1.0); }, {e(-1.0)}},
        T{"G05SBF", "STATE_CORRUPT", [] { return call(g05sbft_, 1, bad(), 0, 1.0, 1.0); }},
        T{"G05SBF",
          "LSTATE_MISMATCH",
          [] { return call(g05sbft_, 1, ok(), 16, 1.0, 1.0); },
          {"16"}},
        T{"G05SBF",
          "STATE_LENGTH",
          [] {
              std::vector<int> s = ok();
              s[2] = 6;
              return call(g05sbft_, 1, s, 0, 1.0, 1.0);
          },
          {"17", "6"}},
        T{"G05SBF",
          "GENERATOR_STUCK",
          [] { return call(g05sbft_, 1, constant(0), 0, 20.0, 30.0); },
          {"1000"}},
        T{"G05SBF",
          "GENERATOR_STUCK",
          [] { return call(g05sbft_, 1, constant(1), 0, 0.2, 3.0); },
          {},
          "BC"},
        T{"G05SBF", "", [] { return call(g05sbft_, 0, bad(), 0, -1.0, -1.0); }, {}, "N = 0 first"},
        T{"G05SBF", "A_RANGE", [] { return call(g05sbft_, 1, ok(), 0, nan, 1.0); }, {}, "A NaN"},
        T{"G05SCF", "N_RANGE", [] { return call(g05scft_, -2, bad(), 0, 0.0, -1.0); }, {"-2"}},
        T{"G05SCF",
          "SEMIQR_RANGE",
          [] { return call(g05scft_, 1, bad(), 0, 0.0, -1.0); },
          {e(-1.0)}},
        T{"G05SCF",
          "STATE_CORRUPT",
          [] { return call(g05scft_, 1, bad(2), 0, 0.0, 0.0); },
          {},
          "before SEMIQR = 0"},
        T{"G05SCF",
          "LSTATE_MISMATCH",
          [] { return call(g05scft_, 1, ok(2), 20, 0.0, 1.0); },
          {"20"}},
        T{"G05SCF", "STATE_LENGTH",
          [] {
              std::vector<int> s = ok(2);
              s[2] = 1;
              return call(g05scft_, 1, s, 0, 0.0, 1.0);
          }},
        T{"G05SDF", "N_RANGE", [] { return call(g05sdft_, -1, ok(), 0, 0); }},
        T{"G05SDF", "DF_RANGE", [] { return call(g05sdft_, 1, bad(), 0, 0); }, {"0"}},
        T{"G05SDF", "STATE_CORRUPT", [] { return call(g05sdft_, 1, bad(3), 0, 1); }},
        T{"G05SDF", "LSTATE_MISMATCH", [] { return call(g05sdft_, 1, ok(3), 633, 1); }},
        T{"G05SDF", "STATE_LENGTH",
          [] {
              std::vector<int> s = ok(4);
              s[2] = 6;
              return call(g05sdft_, 1, s, 0, 1);
          }},
        T{"G05SDF", "GENERATOR_STUCK", [] { return call(g05sdft_, 1, constant(0), 0, 2); }},
        T{"G05SFF", "N_RANGE", [] { return call(g05sfft_, -1, ok(), 0, 1.0); }},
        T{"G05SFF", "A_RANGE", [] { return call(g05sfft_, 1, bad(), 0, -0.5); }, {e(-0.5)}},
        T{"G05SFF", "STATE_CORRUPT", [] { return call(g05sfft_, 1, bad(4), 0, 0.0); }},
        T{"G05SFF", "LSTATE_MISMATCH", [] { return call(g05sfft_, 1, ok(4), 28, 1.0); }},
        T{"G05SFF", "STATE_LENGTH",
          [] {
              std::vector<int> s = ok(6);
              s[2] = 4;
              return call(g05sfft_, 1, s, 0, 1.0);
          }},
        T{"G05SGF", "N_RANGE", [] { return sgf(-1, {}, {}, bad()); }},
        T{"G05SGF", "NMIX_RANGE", [] { return sgf(1, {}, {}, bad()); }, {"0"}},
        T{"G05SGF",
          "A_RANGE",
          [] {
              return sgf(1, {1.0, 0.0}, {-1.0, 2.0}, bad());
          },
          {"2", e(0.0)}},
        T{"G05SGF",
          "WGT_RANGE",
          [] {
              return sgf(1, {1.0, 2.0}, {1.5, -0.5}, bad());
          },
          {"2", e(-0.5)}},
        T{"G05SGF", "WGT_SUM",
          [] {
              return sgf(1, {1.0, 2.0}, {0.5, 0.25}, bad());
          }},
        T{"G05SGF", "STATE_CORRUPT",
          [] {
              return sgf(1, {1.0, 2.0}, {0.5, 0.5}, bad(5));
          }},
        T{"G05SGF", "LSTATE_MISMATCH", [] { return sgf(1, {1.0}, {1.0}, ok(5), 21); }},
        T{"G05SGF", "STATE_LENGTH",
          [] {
              std::vector<int> s = ok();
              s[2] = 2;
              return sgf(1, {1.0}, {1.0}, s);
          }},
        T{"G05SGF",
          "",
          [] {
              return sgf(1, {1.0, 2.0, 3.0}, {0.1, 0.2, 0.7}, ok());
          },
          {},
          "sum rounded"},
        T{"G05SHF", "N_RANGE", [] { return call(g05shft_, -1, ok(), 0, 0, 0); }},
        T{"G05SHF", "DF1_RANGE", [] { return call(g05shft_, 1, ok(), 0, 0, 0); }, {"0"}},
        T{"G05SHF", "DF2_RANGE", [] { return call(g05shft_, 1, bad(), 0, 1, -3); }, {"-3"}},
        T{"G05SHF", "STATE_CORRUPT", [] { return call(g05shft_, 1, bad(6), 0, 1, 1); }},
        T{"G05SHF", "LSTATE_MISMATCH", [] { return call(g05shft_, 1, ok(6), 62, 1, 1); }},
        T{"G05SHF", "STATE_LENGTH",
          [] {
              std::vector<int> s = ok();
              s[2] = 3;
              return call(g05shft_, 1, s, 0, 1, 1);
          }},
        T{"G05SHF", "GENERATOR_STUCK", [] { return call(g05shft_, 1, constant(0), 0, 2, 2); }},
        T{"G05SJF", "N_RANGE", [] { return call(g05sjft_, -1, ok(), 0, 1.0, 1.0); }},
        T{"G05SJF", "A_RANGE", [] { return call(g05sjft_, 1, ok(), 0, -1.0, 0.0); }, {e(-1.0)}},
        T{"G05SJF",
          "A_RANGE",
          [] { return call(g05sjft_, 1, ok(), 0, inf, 1.0); },
          {},
          "A infinite"},
        T{"G05SJF", "B_RANGE", [] { return call(g05sjft_, 1, bad(), 0, 1.0, 0.0); }, {e(0.0)}},
        T{"G05SJF", "STATE_CORRUPT", [] { return call(g05sjft_, 1, bad(), 0, 1.0, 1.0); }},
        T{"G05SJF", "LSTATE_MISMATCH", [] { return call(g05sjft_, 1, ok(), 18, 1.0, 1.0); }},
        T{"G05SJF", "STATE_LENGTH",
          [] {
              std::vector<int> s = ok();
              s[2] = 5;
              return call(g05sjft_, 1, s, 0, 1.0, 1.0);
          }},
        T{"G05SJF", "GENERATOR_STUCK", [] { return call(g05sjft_, 1, constant(0), 0, 0.3, 1.0); }},
        T{"G05SLF", "N_RANGE", [] { return call(g05slft_, -1, ok(), 0, 0.0, 1.0); }},
        T{"G05SLF", "B_RANGE", [] { return call(g05slft_, 1, bad(), 0, 0.0, -2.0); }, {e(-2.0)}},
        T{"G05SLF", "STATE_CORRUPT", [] { return call(g05slft_, 1, bad(), 0, 0.0, 1.0); }},
        T{"G05SLF", "LSTATE_MISMATCH", [] { return call(g05slft_, 1, ok(), 3, 0.0, 1.0); }},
        T{"G05SLF", "STATE_LENGTH",
          [] {
              std::vector<int> s = ok();
              s[2] = 4;
              return call(g05slft_, 1, s, 0, 0.0, 1.0);
          }},
        T{"G05SMF", "N_RANGE", [] { return call(g05smft_, -1, ok(), 0, 0.0, 1.0); }},
        T{"G05SMF", "VAR_RANGE", [] { return call(g05smft_, 1, bad(), 0, 0.0, -1.0); }, {e(-1.0)}},
        T{"G05SMF", "STATE_CORRUPT", [] { return call(g05smft_, 1, bad(), 0, 0.0, 1.0); }},
        T{"G05SMF", "LSTATE_MISMATCH", [] { return call(g05smft_, 1, ok(), 1, 0.0, 1.0); }},
        T{"G05SMF", "STATE_LENGTH",
          [] {
              std::vector<int> s = ok();
              s[2] = 2;
              return call(g05smft_, 1, s, 0, 0.0, 1.0);
          }},
        T{"G05SNF", "N_RANGE", [] { return call(g05snft_, -1, ok(), 0, 1.0); }},
        T{"G05SNF", "VK_RANGE", [] { return call(g05snft_, 1, bad(), 0, -1.0); }, {e(-1.0)}},
        T{"G05SNF", "VK_RANGE", [] { return call(g05snft_, 1, ok(), 0, inf); }, {}, "VK infinite"},
        T{"G05SNF", "STATE_CORRUPT", [] { return call(g05snft_, 1, bad(), 0, 1.0); }},
        T{"G05SNF", "LSTATE_MISMATCH", [] { return call(g05snft_, 1, ok(), 99, 1.0); }},
        T{"G05SNF", "STATE_LENGTH",
          [] {
              std::vector<int> s = ok();
              s[2] = 6;
              return call(g05snft_, 1, s, 0, 1.0);
          }},
        T{"G05SNF", "GENERATOR_STUCK", [] { return call(g05snft_, 1, constant(3), 0, 5.0); }},
        T{"G05SPF", "N_RANGE", [] { return call(g05spft_, -1, ok(), 0, 0.0, 0.5, 1.0); }},
        T{"G05SPF",
          "XMED_RANGE",
          [] { return call(g05spft_, 1, bad(), 0, 0.0, -0.5, -1.0); },
          {e(0.0), e(-0.5)}},
        T{"G05SPF",
          "XMAX_RANGE",
          [] { return call(g05spft_, 1, bad(), 0, 0.0, 0.5, 0.25); },
          {e(0.5), e(0.25)}},
        T{"G05SPF", "RANGE_INFINITE",
          [] { return call(g05spft_, 1, bad(), 0, -1e308, 0.0, 1e308); }},
        T{"G05SPF", "STATE_CORRUPT", [] { return call(g05spft_, 1, bad(), 0, 1.0, 1.0, 1.0); }},
        T{"G05SPF",
          "LSTATE_MISMATCH",
          [] { return call(g05spft_, 1, ok(), 2, 0.0, 0.5, 1.0); },
          {"2"}},
        T{"G05SPF", "STATE_LENGTH",
          [] {
              std::vector<int> s = ok();
              s[2] = 3;
              return call(g05spft_, 1, s, 0, 0.0, 0.5, 1.0);
          }},
        T{"G05SQF", "N_RANGE", [] { return call(g05sqft_, -1, ok(), 0, 0.0, 1.0); }},
        T{"G05SQF",
          "B_RANGE",
          [] { return call(g05sqft_, 1, bad(), 0, 1.0, 0.0); },
          {e(1.0), e(0.0)}},
        T{"G05SQF", "RANGE_INFINITE", [] { return call(g05sqft_, 1, bad(), 0, 0.0, inf); }},
        T{"G05SQF", "STATE_CORRUPT", [] { return call(g05sqft_, 1, bad(), 0, 1.0, 1.0); }},
        T{"G05SQF", "LSTATE_MISMATCH", [] { return call(g05sqft_, 1, ok(), 4, 0.0, 1.0); }},
        T{"G05SQF", "STATE_LENGTH",
          [] {
              std::vector<int> s = ok();
              s[2] = 5;
              return call(g05sqft_, 1, s, 0, 0.0, 1.0);
          }},
        T{"G05SRF", "N_RANGE", [] { return call(g05srft_, -1, ok(), 0, 1); }},
        T{"G05SRF", "DF_RANGE", [] { return call(g05srft_, 1, bad(), 0, 0); }, {"0"}},
        T{"G05SRF", "STATE_CORRUPT", [] { return call(g05srft_, 1, bad(), 0, 1); }},
        T{"G05SRF", "LSTATE_MISMATCH", [] { return call(g05srft_, 1, ok(), 5, 1); }},
        T{"G05SRF", "STATE_LENGTH",
          [] {
              std::vector<int> s = ok();
              s[2] = 6;
              return call(g05srft_, 1, s, 0, 1);
          }},
        T{"G05SRF", "GENERATOR_STUCK", [] { return call(g05srft_, 1, constant(0), 0, 2); }},
        T{"G05SSF", "N_RANGE", [] { return call(g05ssft_, -1, ok(), 0, 1.0, 1.0); }},
        T{"G05SSF", "A_RANGE", [] { return call(g05ssft_, 1, bad(), 0, 0.0, 0.0); }, {e(0.0)}},
        T{"G05SSF", "B_RANGE", [] { return call(g05ssft_, 1, bad(), 0, 1.0, 0.0); }, {e(0.0)}},
        T{"G05SSF", "STATE_CORRUPT", [] { return call(g05ssft_, 1, bad(), 0, 1.0, 1.0); }},
        T{"G05SSF", "LSTATE_MISMATCH", [] { return call(g05ssft_, 1, ok(), 7, 1.0, 1.0); }},
        T{"G05SSF", "STATE_LENGTH",
          [] {
              std::vector<int> s = ok();
              s[2] = 2;
              return call(g05ssft_, 1, s, 0, 1.0, 1.0);
          }},
        // G05SEF: N, M, A, SORDER, then LDX against N or M, then STATE.
        T{"G05SEF", "N_RANGE", [] { return sef(-1, {}, 0, 0, bad()); }},
        T{"G05SEF", "M_RANGE", [] { return sef(1, {1.0}, 0, 0, bad()); }, {"1"}},
        T{"G05SEF",
          "A_RANGE",
          [] {
              return sef(1, {1.0, 2.0, -1.0}, 0, 0, bad());
          },
          {"3", e(-1.0)}},
        T{"G05SEF",
          "SORDER_RANGE",
          [] {
              return sef(1, {1.0, 2.0}, 0, 3, bad());
          },
          {"3"}},
        T{"G05SEF",
          "LDX_N",
          [] {
              return sef(5, {1.0, 2.0}, 4, 1, bad());
          },
          {"4", "5"}},
        T{"G05SEF",
          "LDX_M",
          [] {
              return sef(5, {1.0, 2.0, 3.0}, 2, 2, bad());
          },
          {"2", "3"}},
        T{"G05SEF", "STATE_CORRUPT",
          [] {
              return sef(5, {1.0, 2.0, 3.0}, 3, 2, bad());
          }},
        T{"G05SEF", "LSTATE_MISMATCH",
          [] {
              return sef(5, {1.0, 2.0}, 5, 1, ok(), 16);
          }},
        T{"G05SEF", "STATE_LENGTH",
          [] {
              std::vector<int> s = ok();
              s[2] = 4;
              return sef(5, {1.0, 2.0}, 5, 1, s);
          }},
        T{"G05SEF", "GENERATOR_STUCK",
          [] {
              return sef(5, {1.0, 1.0}, 5, 1, constant(0));
          }},
        T{"G05SEF", "", [] { return sef(0, {}, 0, 0, bad()); }, {}, "N = 0 first"},
        T{"G05SEF",
          "",
          [] {
              return sef(2, {1.0, 2.0}, 2, 1, ok());
          },
          {},
          "LDX = N"},
        T{"G05SEF",
          "",
          [] {
              return sef(5, {1.0, 2.0}, 2, 2, ok());
          },
          {},
          "LDX = M"},
    };
    return t;
}

// Argument and state checks of the discrete generators: MODE, N, the parameters, the table's
// length, R (MODE 1), LR (MODE 0 and 2), then STATE (only when variates are drawn).
std::vector<T> discrete_triggers()
{
    using V = std::vector<double>;
    return {
        T{"G05TAF",
          "MODE_RANGE",
          [] { return moded(g05taft_, 4, -1, V{}, bad(), 0, -1, 2.0); },
          {"4"}},
        T{"G05TAF",
          "MODE_RANGE",
          [] { return moded(g05taft_, -1, 1, big, ok(), 0, 5, 0.5); },
          {"-1"},
          "MODE -1"},
        T{"G05TAF",
          "N_RANGE",
          [] { return moded(g05taft_, 3, -1, V{}, bad(), 0, -1, 2.0); },
          {"-1"}},
        T{"G05TAF",
          "M_RANGE",
          [] { return moded(g05taft_, 3, 1, V{}, bad(), 0, -1, 2.0); },
          {"-1"}},
        T{"G05TAF",
          "P_RANGE",
          [] { return moded(g05taft_, 3, 1, V{}, bad(), 0, 1, 1.5); },
          {e(1.5)}},
        T{"G05TAF",
          "P_RANGE",
          [] { return moded(g05taft_, 3, 1, V{}, bad(), 0, 1, nan); },
          {},
          "P NaN"},
        T{"G05TAF", "R_CORRUPT", [] { return moded(g05taft_, 1, 1, V(20000), bad(), 0, 5, 0.5); }},
        T{"G05TAF",
          "R_CORRUPT",
          [] { return moded(g05taft_, 1, 1, damaged_r(setup(g05taft_, 5, 0.5)), ok(), 0, 5, 0.5); },
          {},
          "R damaged"},
        T{"G05TAF",
          "PARAMS_CHANGED",
          [] { return moded(g05taft_, 1, 1, setup(g05taft_, 5, 0.5), bad(), 0, 6, 0.5); },
          {"5", "6", e(0.5), e(0.5)}},
        T{"G05TAF",
          "LR_SMALL",
          [] { return moded(g05taft_, 2, 1, V(8), bad(), 0, 5, 0.5); },
          {"8", "11"}},
        T{"G05TAF", "STATE_CORRUPT",
          [] { return moded(g05taft_, 1, 1, setup(g05taft_, 5, 0.5), bad(), 0, 5, 0.5); }},
        T{"G05TAF",
          "LSTATE_MISMATCH",
          [] { return moded(g05taft_, 3, 1, V{}, ok(), 5, 5, 0.5); },
          {"5"}},
        T{"G05TAF", "STATE_LENGTH",
          [] {
              std::vector<int> s = ok();
              s[2] = 6;
              return moded(g05taft_, 2, 1, big, s, 0, 5, 0.5);
          }},
        T{"G05TAF",
          "",
          [] { return moded(g05taft_, 0, 1, big, bad(), 0, 5, 0.5); },
          {},
          "MODE 0 needs no STATE"},
        T{"G05TAF",
          "",
          [] { return moded(g05taft_, 2, 0, big, bad(), 0, 5, 0.5); },
          {},
          "N = 0 needs no STATE"},
        T{"G05TAF",
          "",
          [] { return moded(g05taft_, 2, 3, V(11), ok(), 0, 5, 0.5); },
          {},
          "LR as long as required"},
        T{"G05TCF", "MODE_RANGE", [] { return moded(g05tcft_, 5, 1, V{}, ok(), 0, 0.5); }},
        T{"G05TCF", "N_RANGE", [] { return moded(g05tcft_, 3, -2, V{}, ok(), 0, 0.0); }, {"-2"}},
        T{"G05TCF", "P_RANGE", [] { return moded(g05tcft_, 3, 1, V{}, bad(), 0, 0.0); }, {e(0.0)}},
        T{"G05TCF",
          "TABLE_TOO_LONG",
          [] { return moded(g05tcft_, 2, 1, big, bad(), 0, 1e-7); },
          {"10000000"}},
        T{"G05TCF",
          "",
          [] { return moded(g05tcft_, 3, 1, V{}, ok(), 0, 1e-7); },
          {},
          "MODE 3 needs no table"},
        T{"G05TCF",
          "R_CORRUPT",
          [] { return moded(g05tcft_, 1, 1, setup(g05taft_, 5, 0.5), bad(), 0, 0.5); },
          {},
          "R of another routine"},
        T{"G05TCF",
          "PARAMS_CHANGED",
          [] { return moded(g05tcft_, 1, 1, setup(g05tcft_, 0.5), bad(), 0, 0.25); },
          {e(0.5), e(0.25)}},
        T{"G05TCF", "LR_SMALL", [] { return moded(g05tcft_, 0, 1, V(4), bad(), 0, 0.5); }},
        T{"G05TCF", "STATE_CORRUPT", [] { return moded(g05tcft_, 3, 1, V{}, bad(), 0, 0.5); }},
        T{"G05TCF", "LSTATE_MISMATCH", [] { return moded(g05tcft_, 3, 1, V{}, ok(), 18, 0.5); }},
        T{"G05TCF", "STATE_LENGTH",
          [] {
              std::vector<int> s = ok();
              s[2] = 2;
              return moded(g05tcft_, 3, 1, V{}, s, 0, 0.5);
          }},
        T{"G05TEF", "MODE_RANGE", [] { return moded(g05teft_, 9, 1, V{}, ok(), 0, 10, 5, 5); }},
        T{"G05TEF", "N_RANGE", [] { return moded(g05teft_, 3, -1, V{}, ok(), 0, 10, 5, 5); }},
        T{"G05TEF",
          "NS_RANGE",
          [] { return moded(g05teft_, 3, 1, V{}, ok(), 0, -1, 5, 5); },
          {"-1"}},
        T{"G05TEF",
          "NP_RANGE",
          [] { return moded(g05teft_, 3, 1, V{}, ok(), 0, 10, 11, 5); },
          {"11", "10"}},
        T{"G05TEF",
          "M_RANGE",
          [] { return moded(g05teft_, 3, 1, V{}, ok(), 0, 10, 10, -1); },
          {"-1", "10"}},
        T{"G05TEF", "R_CORRUPT", [] { return moded(g05teft_, 1, 1, V{1.0}, ok(), 0, 10, 5, 5); }},
        T{"G05TEF",
          "PARAMS_CHANGED",
          [] { return moded(g05teft_, 1, 1, setup(g05teft_, 10, 5, 5), ok(), 0, 10, 5, 4); },
          {"10", "5", "5", "10", "5", "4"}},
        T{"G05TEF", "LR_SMALL", [] { return moded(g05teft_, 2, 1, V(7), ok(), 0, 10, 5, 5); }},
        T{"G05TEF", "STATE_CORRUPT", [] { return moded(g05teft_, 3, 1, V{}, bad(), 0, 10, 5, 5); }},
        T{"G05TEF", "LSTATE_MISMATCH",
          [] { return moded(g05teft_, 3, 1, V{}, ok(), 2, 10, 5, 5); }},
        T{"G05TEF", "STATE_LENGTH",
          [] {
              std::vector<int> s = ok();
              s[2] = 3;
              return moded(g05teft_, 3, 1, V{}, s, 0, 10, 5, 5);
          }},
        T{"G05TEF", "", [] { return moded(g05teft_, 2, 5, big, ok(), 0, 0, 0, 0); }, {}, "NS = 0"},
        T{"G05TFF", "MODE_RANGE", [] { return moded(g05tfft_, 4, 1, V{}, ok(), 0, 0.5); }},
        T{"G05TFF", "N_RANGE", [] { return moded(g05tfft_, 3, -1, V{}, ok(), 0, 0.5); }},
        T{"G05TFF", "A_RANGE", [] { return moded(g05tfft_, 3, 1, V{}, ok(), 0, 1.0); }, {e(1.0)}},
        T{"G05TFF", "TABLE_TOO_LONG",
          [] { return moded(g05tfft_, 0, 1, big, ok(), 0, 1.0 - 1e-9); }},
        T{"G05TFF",
          "",
          [] { return moded(g05tfft_, 3, 100, V{}, ok(), 0, 1.0 - 1e-9); },
          {},
          "MODE 3 needs no table"},
        T{"G05TFF", "R_CORRUPT", [] { return moded(g05tfft_, 1, 1, V(3), ok(), 0, 0.5); }},
        T{"G05TFF",
          "PARAMS_CHANGED",
          [] { return moded(g05tfft_, 1, 1, setup(g05tfft_, 0.5), ok(), 0, 0.75); },
          {e(0.5), e(0.75)}},
        T{"G05TFF", "LR_SMALL", [] { return moded(g05tfft_, 2, 1, V(9), ok(), 0, 0.5); }},
        T{"G05TFF", "STATE_CORRUPT", [] { return moded(g05tfft_, 2, 1, big, bad(), 0, 0.5); }},
        T{"G05TFF", "LSTATE_MISMATCH", [] { return moded(g05tfft_, 3, 1, V{}, ok(), 3, 0.5); }},
        T{"G05TFF", "STATE_LENGTH",
          [] {
              std::vector<int> s = ok();
              s[2] = 4;
              return moded(g05tfft_, 3, 1, V{}, s, 0, 0.5);
          }},
        T{"G05THF", "MODE_RANGE", [] { return moded(g05thft_, 4, 1, V{}, ok(), 0, 1, 0.5); }},
        T{"G05THF", "N_RANGE", [] { return moded(g05thft_, 3, -1, V{}, ok(), 0, 1, 0.5); }},
        T{"G05THF", "M_RANGE", [] { return moded(g05thft_, 3, 1, V{}, ok(), 0, 0, 0.5); }, {"0"}},
        T{"G05THF",
          "P_RANGE",
          [] { return moded(g05thft_, 3, 1, V{}, ok(), 0, 1, 0.0); },
          {e(0.0)}},
        T{"G05THF",
          "TABLE_TOO_LONG",
          [] { return moded(g05thft_, 3, 1, V{}, ok(), 0, 1, 1e-7); },
          {},
          "MODE 3 builds the table too"},
        T{"G05THF", "R_CORRUPT",
          [] { return moded(g05thft_, 1, 1, setup(g05taft_, 1, 0.5), ok(), 0, 1, 0.5); }},
        T{"G05THF", "PARAMS_CHANGED",
          [] { return moded(g05thft_, 1, 1, setup(g05thft_, 1, 0.5), ok(), 0, 1, 0.5 + 1e-16); }},
        T{"G05THF", "LR_SMALL", [] { return moded(g05thft_, 0, 1, V(6), ok(), 0, 1, 0.5); }},
        T{"G05THF", "STATE_CORRUPT", [] { return moded(g05thft_, 3, 1, V{}, bad(), 0, 1, 0.5); }},
        T{"G05THF", "LSTATE_MISMATCH", [] { return moded(g05thft_, 3, 1, V{}, ok(), 99, 1, 0.5); }},
        T{"G05THF", "STATE_LENGTH",
          [] {
              std::vector<int> s = ok();
              s[2] = 5;
              return moded(g05thft_, 3, 1, V{}, s, 0, 1, 0.5);
          }},
        T{"G05TDF", "MODE_RANGE", [] { return tdf(7, 1, {}, 0, 0, V{}, bad()); }, {"7"}},
        T{"G05TDF", "N_RANGE", [] { return tdf(3, -1, {}, 0, 0, V{}, bad()); }},
        T{"G05TDF", "NP_RANGE", [] { return tdf(3, 1, {}, 0, 0, V{}, bad()); }, {"0"}},
        T{"G05TDF",
          "IP1_RANGE",
          [] {
              return tdf(3, 1, {0.5, 0.5}, 2147483647, 0, V{}, bad());
          },
          {"2147483647", "2"}},
        T{"G05TDF",
          "ITYPE_RANGE",
          [] {
              return tdf(3, 1, {-0.5, 0.5}, 0, 3, V{}, bad());
          },
          {"3"}},
        T{"G05TDF",
          "P_NEGATIVE",
          [] {
              return tdf(3, 1, {1.5, -0.5}, 0, 1, V{}, bad());
          },
          {"2", e(-0.5)}},
        T{"G05TDF",
          "P_NEGATIVE",
          [] {
              return tdf(3, 1, {-0.5, 1.0}, 0, 2, V{}, bad());
          },
          {},
          "ITYPE 2"},
        T{"G05TDF", "P_SUM",
          [] {
              return tdf(3, 1, {0.5, 0.25}, 0, 1, V{}, bad());
          }},
        T{"G05TDF",
          "CDF_DECREASING",
          [] {
              return tdf(3, 1, {0.5, 0.25, 1.0}, 0, 2, V{}, bad());
          },
          {"2", e(0.25), "1", e(0.5)}},
        T{"G05TDF", "CDF_END",
          [] {
              return tdf(3, 1, {0.5, 0.75}, 0, 2, V{}, bad());
          }},
        T{"G05TDF", "R_CORRUPT",
          [] {
              return tdf(1, 1, {0.5, 0.5}, 0, 1, V(50), bad());
          }},
        T{"G05TDF",
          "PARAMS_CHANGED",
          [] {
              return tdf(1, 1, {0.5, 0.5}, 1, 1, tdf_setup({0.5, 0.5}, 0, 1), bad());
          },
          {"2", "0", "1", "2", "1", "1"}},
        T{"G05TDF",
          "LR_SMALL",
          [] {
              return tdf(2, 1, {0.5, 0.5}, -7, 1, V(7), bad());
          },
          {"7", "8"}},
        T{"G05TDF", "STATE_CORRUPT",
          [] {
              return tdf(2, 1, {0.5, 0.5}, -7, 1, V(8), bad());
          }},
        T{"G05TDF", "LSTATE_MISMATCH",
          [] {
              return tdf(3, 1, {0.5, 0.5}, 0, 1, V{}, ok(), 4);
          }},
        T{"G05TDF", "STATE_LENGTH",
          [] {
              std::vector<int> s = ok();
              s[2] = 3;
              return tdf(3, 1, {1.0}, 0, 1, V{}, s);
          }},
        T{"G05TDF",
          "",
          [] {
              return tdf(1, 1, {0.5, 0.5}, -7, 1, tdf_setup({0.5, 0.5}, -7, 1), ok());
          },
          {},
          "negative IP1 in R"},
        T{"G05TKF", "N_RANGE", [] { return tkf(-1, {}, bad()); }},
        T{"G05TKF",
          "VLAMDA_RANGE",
          [] {
              return tkf(3, {1.0, 2.0, -1.0}, bad());
          },
          {"3", e(-1.0), e(2e9)}},
        T{"G05TKF", "VLAMDA_RANGE", [] { return tkf(1, {3e9}, bad()); }, {}, "above 2e9"},
        T{"G05TKF", "STATE_CORRUPT", [] { return tkf(1, {1.0}, bad()); }},
        T{"G05TKF", "LSTATE_MISMATCH", [] { return tkf(1, {1.0}, ok(), 6); }},
        T{"G05TKF", "STATE_LENGTH",
          [] {
              std::vector<int> s = ok();
              s[2] = 2;
              return tkf(1, {1.0}, s);
          }},
        T{"G05TKF",
          "GENERATOR_STUCK",
          [] {
              std::vector<int> s = ok(6);
              s[15] = 1;
              return tkf(2, {1.0, 30.0}, s);
          },
          {"1000"}},
        T{"G05TGF", "MODE_RANGE", [] { return tgf(4, 1, 5, {}, V{}, 0, 0, bad()); }},
        T{"G05TGF", "N_RANGE", [] { return tgf(3, -1, 5, {}, V{}, 0, 0, bad()); }},
        T{"G05TGF", "M_RANGE", [] { return tgf(3, 1, -5, {}, V{}, 0, 0, bad()); }, {"-5"}},
        T{"G05TGF", "K_RANGE", [] { return tgf(3, 1, 5, {1.0}, V{}, 0, 0, bad()); }, {"1"}},
        T{"G05TGF",
          "P_NEGATIVE",
          [] {
              return tgf(3, 1, 5, {0.5, 0.6, -0.1}, V{}, 0, 0, bad());
          },
          {"3", e(-0.1)}},
        T{"G05TGF", "P_SUM",
          [] {
              return tgf(3, 1, 5, {0.5, 0.6}, V{}, 0, 0, bad());
          }},
        T{"G05TGF",
          "SORDER_RANGE",
          [] {
              return tgf(3, 1, 5, {0.5, 0.5}, V{}, 0, 0, bad());
          },
          {"0"}},
        T{"G05TGF",
          "LDX_N",
          [] {
              return tgf(3, 3, 5, {0.5, 0.5}, V{}, 2, 1, bad());
          },
          {"2", "3"}},
        T{"G05TGF",
          "LDX_K",
          [] {
              return tgf(3, 3, 5, {0.5, 0.5}, V{}, 1, 2, bad());
          },
          {"1", "2"}},
        T{"G05TGF", "R_CORRUPT",
          [] {
              return tgf(1, 3, 5, {0.5, 0.5}, V(10), 2, 2, bad());
          }},
        T{"G05TGF",
          "PARAMS_CHANGED",
          [] {
              return tgf(1, 3, 6, {0.5, 0.5}, tgf_setup(5, {0.5, 0.5}), 2, 2, bad());
          },
          {"5", "2", "6", "2"}},
        T{"G05TGF",
          "LR_SMALL",
          [] {
              return tgf(2, 3, 5, {0.5, 0.5}, V(4), 2, 2, bad());
          },
          {"4", "5"}},
        T{"G05TGF", "STATE_CORRUPT",
          [] {
              return tgf(2, 3, 5, {0.5, 0.5}, V(5), 2, 2, bad());
          }},
        T{"G05TGF", "LSTATE_MISMATCH",
          [] {
              return tgf(3, 3, 5, {0.5, 0.5}, V{}, 2, 2, ok(), 2);
          }},
        T{"G05TGF", "STATE_LENGTH",
          [] {
              std::vector<int> s = ok();
              s[2] = 6;
              return tgf(3, 3, 5, {0.5, 0.5}, V{}, 2, 2, s);
          }},
        T{"G05TGF",
          "",
          [] {
              return tgf(0, 3, 5, {0.5, 0.5}, V(5), 0, 0, bad());
          },
          {},
          "MODE 0: no X, no STATE"},
        T{"G05TGF",
          "",
          [] {
              return tgf(1, 3, 5, {-1.0, 5.0}, tgf_setup(5, {0.5, 0.5}), 2, 2, ok());
          },
          {},
          "MODE 1 does not read P"},
        T{"G05TBF", "N_RANGE", [] { return tbf(-1, 2.0, bad()); }, {"-1"}},
        T{"G05TBF", "P_RANGE", [] { return tbf(1, -0.1, bad()); }, {e(-0.1)}},
        T{"G05TBF", "STATE_CORRUPT", [] { return tbf(1, 0.5, bad()); }},
        T{"G05TBF", "LSTATE_MISMATCH", [] { return tbf(1, 0.5, ok(), 20); }},
        T{"G05TBF", "STATE_LENGTH",
          [] {
              std::vector<int> s = ok();
              s[2] = 6;
              return tbf(1, 0.5, s);
          }},
        T{"G05TBF", "", [] { return tbf(0, 2.0, bad()); }, {}, "N = 0 first"},
        T{"G05TLF", "N_RANGE", [] { return tlf(-1, 2, 1, bad()); }},
        T{"G05TLF", "B_RANGE", [] { return tlf(1, 2, 1, bad()); }, {"2", "1"}},
        T{"G05TLF", "STATE_CORRUPT", [] { return tlf(1, 1, 1, bad()); }},
        T{"G05TLF", "LSTATE_MISMATCH", [] { return tlf(1, 1, 2, ok(), 16); }},
        T{"G05TLF", "STATE_LENGTH",
          [] {
              std::vector<int> s = ok();
              s[2] = 3;
              return tlf(1, 1, 2, s);
          }},
    };
}

std::vector<T> plus_variates(std::vector<T> triggers)
{
    for (T& t : continuous_triggers())
        triggers.push_back(std::move(t));
    for (T& t : discrete_triggers())
        triggers.push_back(std::move(t));
    return triggers;
}

}  // namespace rt
