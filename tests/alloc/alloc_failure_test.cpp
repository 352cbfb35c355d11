// Allocation failure at every allocation of every allocating routine: the
// k-th allocation of a call fails, k = 1, 2, ... until a call completes
// without reaching k. The outcome is IFAIL = -999 with its message (M01CAF
// falls back to its reference path), nothing allocated is left and the same
// call then works; with tracing off and on (the runtimes' own malloc is not
// failed).
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <functional>
#include <new>
#include <sstream>
#include <string>
#include <vector>

#include "lbx3207qk.h"

namespace {

std::atomic<bool> g_watching{false};
std::atomic<long> g_count{0}, g_fail_at{0}, g_live{0};

constexpr std::size_t header = 16;  // keeps the alignment of the block
constexpr unsigned tag_watched = 0x5A5A1234u, tag_plain = 0x0u;

void* allocate(std::size_t n)
{
    bool watched = g_watching.load();
    auto* p = static_cast<unsigned char*>(std::malloc(n + header));
    if (p == nullptr || (watched && ++g_count == g_fail_at.load())) {
        std::free(p);
        throw std::bad_alloc();
    }
    const unsigned tag = watched ? tag_watched : tag_plain;
    std::memcpy(p, &tag, sizeof tag);
    if (watched)
        ++g_live;
    return p + header;
}

void release(void* q)
{
    if (q == nullptr)
        return;
    auto* p = static_cast<unsigned char*>(q) - header;
    unsigned tag;
    std::memcpy(&tag, p, sizeof tag);
    if (tag == tag_watched)
        --g_live;
    std::free(p);
}

}  // namespace

void* operator new(std::size_t n)
{
    return allocate(n);
}
void operator delete(void* p) noexcept
{
    release(p);
}
void operator delete(void* p, std::size_t) noexcept
{
    release(p);
}
// The sanitizer runtimes bring their own array and nothrow forms, which do not
// go through the plain ones: those are replaced too.
void* operator new[](std::size_t n)
{
    return allocate(n);
}
void* operator new(std::size_t n, const std::nothrow_t&) noexcept
{
    try {
        return allocate(n);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}
void* operator new[](std::size_t n, const std::nothrow_t& t) noexcept
{
    return operator new(n, t);
}
void operator delete[](void* p) noexcept
{
    release(p);
}
void operator delete[](void* p, std::size_t) noexcept
{
    release(p);
}
void operator delete(void* p, const std::nothrow_t&) noexcept
{
    release(p);
}
void operator delete[](void* p, const std::nothrow_t&) noexcept
{
    release(p);
}

namespace {

struct Outcome {
    int ifail = 0;
    std::vector<double> values;
};

// Watches the library's own call only, not the test's allocations around it.
bool g_watch_calls = false;
template <class F>
void watch(F f)
{
    g_watching = g_watch_calls;
    f();
    g_watching = false;
}

// One call through the plain entry with IFAIL = -1; what it returns.
struct Case {
    const char* routine;
    std::function<Outcome()> call;
    bool falls_back = false;  // succeeds by another path instead of IFAIL = -999
};

const int k1 = 1, k2 = 2, k3 = 3, k40 = 40, k100 = 100, k1000 = 1000, k123457 = 123457,
          k5000 = 5000;

std::vector<int> state_of(int genid, int lstate = 1260)
{
    std::vector<int> state(lstate);
    int subid = 1, seed[2] = {5, 7}, lseed = 2, ifail = 1;
    g05kff_(&genid, &subid, seed, &lseed, state.data(), &lstate, &ifail);
    return state;
}

// A generator's call f(STATE, X, IX, IFAIL) on a STATE set up for genid; the
// outcome is IFAIL and the reals, integers and STATE it leaves.
Case rng(const char* name, int genid, std::function<void(int*, double*, int*, int*)> f)
{
    return {name, [=] {
                std::vector<int> state = state_of(genid), ix(5000);
                std::vector<double> x(5000);
                int ifail = -1;
                watch([&] { f(state.data(), x.data(), ix.data(), &ifail); });
                x.insert(x.end(), ix.begin(), ix.end());
                x.insert(x.end(), state.begin(), state.end());
                return Outcome{ifail, x};
            }};
}

std::vector<Case> cases()
{
    using P = int*;
    using D = double*;
    std::vector<Case> list;
    // Only the allocating calls: the set-ups of generators 2 to 6, the
    // Mersenne twister's skip-ahead and leap-frog.
    for (const int g : {2, 3, 4, 5, 6})
        list.push_back(rng("G05KFF", g, [g](P s, D, P, P i) {
            int subid = 1, seed[3] = {5, 7, 9}, lseed = 3, lstate = 1260;
            g05kff_(&g, &subid, seed, &lseed, s, &lstate, i);
        }));
    list.push_back(rng("G05KJF", 3, [](P s, D, P, P i) { g05kjf_(&k123457, s, i); }));
    list.push_back(rng("G05KKF", 3, [](P s, D, P, P i) { g05kkf_(&k40, s, i); }));
    list.push_back(rng("G05KGF", 3, [](P s, D, P, P i) {
        int genid = 3, subid = 1, lstate = 1260;
        g05kgf_(&genid, &subid, s, &lstate, i);
        std::fill(s, s + lstate, 0);  // seeded from the clock
    }));
    // The block copy of STATE of the rejection methods, the Dirichlet's shapes,
    // the mixture's weights, the tables and their guides, the multinomial's counts.
    list.push_back(rng("G05SJF", 3, [](P s, D x, P, P i) {
        const double a = 0.7, b = 2.0;
        g05sjf_(&k1000, &a, &b, s, x, i);
    }));
    list.push_back(rng("G05SEF", 1, [](P s, D x, P, P i) {
        const double a[3] = {0.5, 1.0, 4.0};
        g05sef_(&k100, &k3, a, s, x, &k100, &k1, i);
    }));
    list.push_back(rng("G05SGF", 2, [](P s, D x, P, P i) {
        const double a[2] = {1.0, 3.0}, w[2] = {0.25, 0.75};
        g05sgf_(&k100, &k2, a, w, s, x, i);
    }));
    for (const int mode : {2, 3}) {
        list.push_back(rng("G05TAF", 6, [mode](P s, D r, P x, P i) {
            const double p = 0.4;
            g05taf_(&mode, &k5000, &k1000, &p, r, &k5000, s, x, i);
        }));
        list.push_back(rng("G05TGF", 4, [mode](P s, D r, P x, P i) {
            const double p[3] = {0.2, 0.3, 0.5};
            g05tgf_(&mode, &k40, &k40, &k3, p, r, &k1000, s, x, &k40, &k1, i);
        }));
    }
    for (int n : {5000, (1 << 20) + 3}) {
        list.push_back({"M01CAF",
                        [n] {
                            std::vector<double> rv(n);
                            for (int i = 0; i < n; ++i)
                                rv[i] = std::sin(i * 0.37) * 1e3;
                            int ifail = -1;
                            watch([&] { m01caf_(rv.data(), &k1, &n, "A", &ifail, 1); });
                            return Outcome{ifail, rv};
                        },
                        true});
    }
    // The solvers' work space: the estimator's (F04BAF), and before it the
    // norm's and the driver's (F04BHF).
    for (const bool sym : {false, true})
        list.push_back({sym ? "F04BHF" : "F04BAF", [sym] {
                            int ipiv[3], ifail = -1;
                            double a[9] = {4, 1, 0, 1, -4, 1, 0, 1, 4}, b[3] = {2, -4, 10}, rc, eb;
                            watch([&] {
                                if (sym)
                                    f04bhf_("L", &k3, &k1, a, &k3, ipiv, b, &k3, &rc, &eb, &ifail,
                                            1);
                                else
                                    f04baf_(&k3, &k1, a, &k3, ipiv, b, &k3, &rc, &eb, &ifail);
                            });
                            return Outcome{ifail, {b[0], b[1], b[2], rc}};
                        }});
    return list;
}

constexpr int unit = 64;
const std::string unit_file = "fort.64";

std::string read_all()
{
    std::ifstream in(unit_file);
    std::stringstream s;
    s << in.rdbuf();
    return s.str();
}

TEST(AllocationFailure, EveryAllocationOfEveryAllocatingRoutine)
{
    std::remove(unit_file.c_str());
    int one = 1, u = unit, adv = -1;
    x04aaf_(&one, &u);
    x04abf_(&one, &adv);
    for (int itrace : {0, 1}) {
        y90gcft_(&itrace);
        for (const Case& c : cases()) {
            const Outcome want = c.call();  // caches built once are built now
            ASSERT_EQ(want.ifail, 0) << c.routine;
            for (long k = 1;; ++k) {
                const std::size_t before = read_all().size();
                g_count = 0;
                g_fail_at = k;
                g_live = 0;
                g_watch_calls = true;
                const Outcome got = c.call();
                g_watch_calls = false;
                const bool reached = g_count.load() >= k;
                const std::string written = read_all().substr(before);
                EXPECT_EQ(g_live.load(), 0) << c.routine << ": allocations left after point " << k;
                if (!reached) {
                    EXPECT_EQ(got.ifail, 0) << c.routine;
                    EXPECT_EQ(got.values, want.values) << c.routine;
                    EXPECT_GT(k, 1) << c.routine << ": never allocates, a case of no use";
                    break;
                }
                if (c.falls_back) {
                    EXPECT_EQ(got.ifail, 0) << c.routine << " at allocation " << k;
                    EXPECT_EQ(got.values, want.values) << c.routine << " at allocation " << k;
                } else {
                    EXPECT_EQ(got.ifail, -999) << c.routine << " at allocation " << k;
                    EXPECT_NE(written.find(" ** Dynamic memory allocation failed.\n"
                                           " ** ABNORMAL EXIT from TSL Library routine " +
                                           std::string(c.routine) + ": IFAIL =  -999\n"),
                              std::string::npos)
                        << c.routine << " at allocation " << k << ":\n"
                        << written;
                }
                // The next call works.
                EXPECT_EQ(c.call().values, want.values) << c.routine << " after allocation " << k;
                ASSERT_LT(k, 10000) << c.routine;
            }
        }
    }
    int zero = 0, six = 6;
    y90gcft_(&zero);
    x04aaf_(&one, &six);
    x04abf_(&one, &six);
    std::remove(unit_file.c_str());
}

}  // namespace
