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

std::vector<T> plus_variates(std::vector<T> triggers)
{
    for (T& t : continuous_triggers())
        triggers.push_back(std::move(t));
    return triggers;
}

}  // namespace rt
