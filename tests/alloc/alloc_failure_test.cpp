// Allocation failure at every allocation of every allocating routine: the k-th
// allocation of a call fails, for k = 1, 2, ... until a call completes without
// reaching k.  Each time the outcome is the documented one (IFAIL = -999 and
// its message on the error unit, or for M01CAF a sorted vector: it falls back
// to its reference path), nothing the call allocated is left, and the same
// call done again works; with tracing off and on.
//
// This binary replaces operator new and delete: an allocation made while a
// call is watched carries a tag, so the test can count what is left of it.
// Allocations of the runtimes we depend on (libgomp's first parallel region,
// the Fortran runtime's units) use malloc and are not failed here: both end
// the process by themselves when malloc fails.
#include <gtest/gtest.h>

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

void* allocate(std::size_t n, bool nothrow)
{
    bool watched = g_watching.load();
    if (watched && ++g_count == g_fail_at.load()) {
        if (nothrow)
            return nullptr;
        throw std::bad_alloc();
    }
    auto* p = static_cast<unsigned char*>(std::malloc(n + header));
    if (p == nullptr) {
        if (nothrow)
            return nullptr;
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
    return allocate(n, false);
}
void* operator new[](std::size_t n)
{
    return allocate(n, false);
}
void* operator new(std::size_t n, const std::nothrow_t&) noexcept
{
    return allocate(n, true);
}
void* operator new[](std::size_t n, const std::nothrow_t&) noexcept
{
    return allocate(n, true);
}
void operator delete(void* p) noexcept
{
    release(p);
}
void operator delete[](void* p) noexcept
{
    release(p);
}
void operator delete(void* p, std::size_t) noexcept
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
    bool falls_back = false;  // the documented outcome is success by another path
};

std::vector<int> state_of(int genid, int lstate = 1260)
{
    std::vector<int> state(lstate);
    int subid = 1, seed[2] = {5, 7}, lseed = 2, ifail = 1;
    g05kff_(&genid, &subid, seed, &lseed, state.data(), &lstate, &ifail);
    return state;
}

Outcome ints(int ifail, const std::vector<int>& v)
{
    return {ifail, std::vector<double>(v.begin(), v.end())};
}

std::vector<Case> cases()
{
    std::vector<Case> list;
    for (int genid = 1; genid <= 6; ++genid) {
        list.push_back(
            {"G05KFF", [genid] {
                 std::vector<int> state(1260);
                 int subid = 1, seed[3] = {5, 7, 9}, lseed = 3, lstate = 1260, ifail = -1;
                 watch(
                     [&] { g05kff_(&genid, &subid, seed, &lseed, state.data(), &lstate, &ifail); });
                 return ints(ifail, state);
             }});
        list.push_back({"G05KJF", [genid] {
                            std::vector<int> state = state_of(genid);
                            int n = 123457, ifail = -1;
                            watch([&] { g05kjf_(&n, state.data(), &ifail); });
                            return ints(ifail, state);
                        }});
        list.push_back({"G05KKF", [genid] {
                            std::vector<int> state = state_of(genid);
                            int n = 40, ifail = -1;
                            watch([&] { g05kkf_(&n, state.data(), &ifail); });
                            return ints(ifail, state);
                        }});
        if (genid != 5)  // ACORN has no leap-frog
            list.push_back({"G05KHF", [genid] {
                                std::vector<int> state = state_of(genid);
                                int n = 3, k = 2, ifail = -1;
                                watch([&] { g05khf_(&n, &k, state.data(), &ifail); });
                                return ints(ifail, state);
                            }});
        list.push_back({"G05SKF", [genid] {
                            std::vector<int> state = state_of(genid);
                            int n = 50, ifail = -1;
                            double xmu = 1, var = 2;
                            std::vector<double> x(n);
                            watch([&] { g05skf_(&n, &xmu, &var, state.data(), x.data(), &ifail); });
                            return Outcome{ifail, x};
                        }});
    }
    list.push_back({"G05KGF", [] {
                        std::vector<int> state(1260);
                        int genid = 3, subid = 1, lstate = 1260, ifail = -1;
                        watch([&] { g05kgf_(&genid, &subid, state.data(), &lstate, &ifail); });
                        return Outcome{ifail, {}};
                    }});
    list.push_back({"G05SAF", [] {
                        std::vector<int> state = state_of(3);
                        int n = 1000, ifail = -1;
                        std::vector<double> x(n);
                        watch([&] { g05saf_(&n, state.data(), x.data(), &ifail); });
                        return Outcome{ifail, x};
                    }});
    for (int mode : {0, 2, 3}) {
        list.push_back({"G05TJF", [mode] {
                            std::vector<int> state = state_of(3);
                            int n = 100, lr = 5000, ifail = -1;
                            double lambda = 37.5;
                            std::vector<double> r(lr);
                            std::vector<int> x(n);
                            watch([&] {
                                g05tjf_(&mode, &n, &lambda, r.data(), &lr, state.data(), x.data(),
                                        &ifail);
                            });
                            return ints(ifail, x);
                        }});
    }
    // Variates: the block copy of STATE of the rejection methods, the Dirichlet's shapes, the
    // mixture's weights, the tables and their guides, the multinomial's counts.
    list.push_back({"G05SJF", [] {
                        std::vector<int> state = state_of(3);
                        int n = 700, ifail = -1;
                        double a = 0.7, b = 2.0;
                        std::vector<double> x(n);
                        watch([&] { g05sjf_(&n, &a, &b, state.data(), x.data(), &ifail); });
                        return Outcome{ifail, x};
                    }});
    list.push_back(
        {"G05SEF", [] {
             std::vector<int> state = state_of(1);
             int n = 300, m = 3, ldx = 300, sorder = 1, ifail = -1;
             double a[3] = {0.5, 1.0, 4.0};
             std::vector<double> x(n * m);
             watch([&] { g05sef_(&n, &m, a, state.data(), x.data(), &ldx, &sorder, &ifail); });
             return Outcome{ifail, x};
         }});
    list.push_back({"G05SGF", [] {
                        std::vector<int> state = state_of(2);
                        int n = 300, nmix = 2, ifail = -1;
                        double a[2] = {1.0, 3.0}, w[2] = {0.25, 0.75};
                        std::vector<double> x(n);
                        watch([&] { g05sgf_(&n, &nmix, a, w, state.data(), x.data(), &ifail); });
                        return Outcome{ifail, x};
                    }});
    for (int mode : {2, 3}) {
        list.push_back({"G05TAF", [mode] {
                            std::vector<int> state = state_of(6);
                            int n = 5000, m = 1000, lr = 5000, ifail = -1;
                            double p = 0.4;
                            std::vector<double> r(lr);
                            std::vector<int> x(n);
                            watch([&] {
                                g05taf_(&mode, &n, &m, &p, r.data(), &lr, state.data(), x.data(),
                                        &ifail);
                            });
                            return ints(ifail, x);
                        }});
        list.push_back({"G05TGF", [mode] {
                            std::vector<int> state = state_of(4);
                            int n = 50, m = 20, k = 3, lr = 10, ldx = 50, sorder = 1, ifail = -1;
                            double p[3] = {0.2, 0.3, 0.5};
                            std::vector<double> r(lr);
                            std::vector<int> x(n * k);
                            watch([&] {
                                g05tgf_(&mode, &n, &m, &k, p, r.data(), &lr, state.data(), x.data(),
                                        &ldx, &sorder, &ifail);
                            });
                            return ints(ifail, x);
                        }});
    }
    for (int n : {100, 5000, (1 << 20) + 3}) {
        list.push_back({"M01CAF",
                        [n] {
                            std::vector<double> rv(n);
                            for (int i = 0; i < n; ++i)
                                rv[i] = std::sin(i * 0.37) * 1e3;
                            int m1 = 1, ifail = -1;
                            watch([&] { m01caf_(rv.data(), &m1, &n, "A", &ifail, 1); });
                            // A digest of the result: ordered or not, and a sum.
                            double sum = 0, ordered = 1;
                            for (int i = 0; i < n; ++i) {
                                sum += rv[i] * (i % 7);
                                ordered = (i > 0 && rv[i - 1] > rv[i]) ? 0 : ordered;
                            }
                            return Outcome{ifail, {ordered, sum}};
                        },
                        true});
    }
    // The solvers' work space: the estimator's (F04BAF), and before it the
    // norm's and the driver's (F04BHF).
    list.push_back(
        {"F04BAF", [] {
             int n = 3, nrhs = 1, lda = 3, ldb = 3, ipiv[3], ifail = -1;
             double a[9] = {4, 1, 0, 1, 4, 1, 0, 1, 4}, b[3] = {2, -4, 10}, rcond = 0, errbnd = 0;
             watch([&] { f04baf_(&n, &nrhs, a, &lda, ipiv, b, &ldb, &rcond, &errbnd, &ifail); });
             return Outcome{ifail, {b[0], b[1], b[2], rcond}};
         }});
    list.push_back(
        {"F04BHF", [] {
             int n = 3, nrhs = 1, lda = 3, ldb = 3, ipiv[3], ifail = -1;
             double a[9] = {1, 2, 0, 2, -3, 1, 0, 1, 2}, b[3] = {-3, 5, 8}, rcond = 0, errbnd = 0;
             watch([&] {
                 f04bhf_("L", &n, &nrhs, a, &lda, ipiv, b, &ldb, &rcond, &errbnd, &ifail, 1);
             });
             return Outcome{ifail, {b[0], b[1], b[2], rcond}};
         }});
    list.push_back({"A00AAF", [] {
                        watch([&] { a00aaf_(); });
                        return Outcome{};
                    }});
    list.push_back({"A00ADF", [] {
                        char t[80], p[80], c[80], h[80], o[80], f[80], v[80];
                        int mkmaj = 0, mkmin = 0;
                        watch([&] {
                            a00adf_(t, p, c, &mkmaj, &mkmin, h, o, f, v, 80, 80, 80, 80, 80, 80,
                                    80);
                        });
                        return Outcome{0, {double(mkmaj), double(mkmin)}};
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
                    break;
                }
                if (c.falls_back) {
                    EXPECT_EQ(got.ifail, 0) << c.routine << " at allocation " << k;
                    EXPECT_EQ(got.values, want.values) << c.routine << " at allocation " << k;
                } else if (std::string(c.routine) != "A00AAF" &&
                           std::string(c.routine) != "A00ADF") {
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
