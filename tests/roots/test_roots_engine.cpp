// The engines and drivers of the zero finders: the IND dialogue of the
// bracketing engine, its outcomes, the outward search, the continuation
// method and their drivers. The argument checks and their order are tested
// through the public entries in test_roots_errors.cpp.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <vector>

#include "frame/errors.hpp"
#include "gen/roots.hpp"
#include "roots/brent.hpp"
#include "roots/continuation.hpp"
#include "roots/outward_search.hpp"

namespace {

using namespace lbx::roots;
using Fn = std::function<double(double)>;

const double kNaN = std::numeric_limits<double>::quiet_NaN();
double sq2(double x)
{
    return x * x - 2.0;
}
Fn atan_at(double z)
{
    return [z](double x) { return std::atan(x - z) + (x - z) * 1e-3; };
}

// Runs a driver and returns the code of the message it raises (0: none).
template <class Run>
int code_of(Run&& run)
{
    char errbuf[lbx::errbuf_length];
    int ifail = 0;
    lbx::Fail fail(errbuf, ifail);
    run(fail);
    if (ifail == 0) {
        return 0;
    }
    int code = 0, status = 0;
    char fields[lbx::frame::max_fields][lbx::frame::field_length];
    lbx::frame::P01ABTN(errbuf, code, fields, status);
    return code;
}

struct Counted {
    Fn f;
    int n = 0;
    double operator()(double x)
    {
        ++n;
        return f(x);
    }
};

// A scripted dialogue with the bracketing engine: the values FX handed in
// one entry after another, the points X it asks for, the end state.
TEST(ZeroEngine, ScriptedDialogues)
{
    struct Case {
        const char* what;
        double x, y;
        int ind;
        double c1, tolx;
        std::vector<double> fx, asked;  // asked: the first points requested
        int ind_end;
        ZeroStatus status;
        double x_end, y_end;  // NaN: not checked
    };
    const double up = std::nextafter(1.0, 2.0);
    const Case cases[] = {
        {"IND 2, 3, 4: the secant through (1,-1), (2,2) gives 4/3",
         1,
         2,
         1,
         -7,
         1e-6,
         {0, -1, 2},
         {1, 2, 4.0 / 3},
         4,
         ZeroStatus::ok,
         4.0 / 3,
         NAN},
        {"zero at the first point", 3, 5, 1, -7, 1e-8, {0, 0}, {3}, 0, ZeroStatus::ok, 3, 3},
        {"zero at the second point", 3, 5, 1, -7, 1e-8, {0, 1, 0}, {3, 5}, 0, ZeroStatus::ok, 5, 5},
        {"IND = -1, f(Y) = 0 in C(1): converged, the value at X wanted",
         1,
         4,
         -1,
         0,
         1e-8,
         {2, 0},
         {4},
         0,
         ZeroStatus::ok,
         4,
         4},
        {"IND = -1, same sign: X and Y handed back",
         1,
         4,
         -1,
         3,
         1e-8,
         {1},
         {},
         0,
         ZeroStatus::same_sign,
         1,
         4},
        {"final abs(f) equal to the largest end value: no pole",
         0,
         1,
         1,
         -7,
         0.25,
         {0, -1, 1, 0.5, 1.0},
         {0, 1, 0.5},
         0,
         ZeroStatus::ok,
         NAN,
         NAN},
        {"final abs(f) just above it: pole",
         0,
         1,
         1,
         -7,
         0.25,
         {0, -1, 1, 0.5, up},
         {0, 1, 0.5},
         0,
         ZeroStatus::pole,
         NAN,
         NAN},
    };
    for (const Case& k : cases) {
        double x = k.x, y = k.y, c[10];
        for (double& v : c) {
            v = -7.0;
        }
        c[0] = k.c1;
        int ind = k.ind;
        ZeroReport r;
        std::vector<double> asked;
        for (const double fx : k.fx) {
            ASSERT_NE(ind, 0) << k.what;
            r = zero_engine_step(x, y, fx, k.tolx, 1, c, ind);
            if (ind != 0) {
                asked.push_back(x);
            }
        }
        EXPECT_EQ(ind, k.ind_end) << k.what;
        EXPECT_EQ(r.status, k.status) << k.what;
        ASSERT_GE(asked.size(), k.asked.size()) << k.what;
        for (size_t i = 0; i < k.asked.size(); ++i) {
            EXPECT_NEAR(asked[i], k.asked[i], 4e-16 * std::fabs(k.asked[i]))
                << k.what << " request " << i + 1;
        }
        if (!std::isnan(k.x_end)) {
            EXPECT_EQ(x, k.x_end) << k.what;
        }
        if (!std::isnan(k.y_end)) {
            EXPECT_EQ(y, k.y_end) << k.what;
        }
    }
}

// Runs of the bracketing engine from IND = 1 to the end: the zero within
// 2 tol of the criterion IR (TOLX max(1, abs(X)), TOLX, TOLX abs(X)), X and Y
// bracketing it, and the last request at the X returned.
TEST(ZeroEngine, RunsToTheEnd)
{
    struct Case {
        const char* what;
        Fn f;
        double x0, y0, tolx;
        int ir;
        ZeroStatus status;
        double zero, err;
        size_t asks;  // 0: not checked
    };
    const double big = 1e6 + 0.25, eps = lbx::machine::eps, s2 = std::sqrt(2.0);
    const Case cases[] = {
        {"x^2 - 2", sq2, 1, 2, 1e-9, 1, ZeroStatus::ok, s2, 2e-9, 0},
        {"IR = 0, large zero", atan_at(big), big / 2 - 1, 2 * big + 1, 1e-8, 0, ZeroStatus::ok, big,
         2e-8 * big, 0},
        {"IR = 0, small zero", atan_at(0.25), -0.875, 1.5, 1e-8, 0, ZeroStatus::ok, 0.25, 2e-8, 0},
        {"IR = 1", atan_at(big), big / 2 - 1, 2 * big + 1, 1e-5, 1, ZeroStatus::ok, big, 2e-5, 0},
        {"IR = 2, large zero", atan_at(big), big / 2 - 1, 2 * big + 1, 1e-10, 2, ZeroStatus::ok,
         big, 2e-10 * big, 0},
        {"IR = 2, small zero", atan_at(3e-7), 3e-7 / 2 - 1, 2 * 3e-7 + 1, 1e-10, 2, ZeroStatus::ok,
         3e-7, 2e-10 * 3e-7, 0},
        {"exact zero at the first secant step", [](double x) { return x - 1.5; }, 1, 2, 1e-12, 1,
         ZeroStatus::ok, 1.5, 0, 3},
        {"NaN inside the bracket counts as non-positive",
         [](double x) { return (x > 0.3 && x < 0.35) ? kNaN : x - 0.5; }, 0, 1, 1e-10, 1,
         ZeroStatus::ok, 0.5, 2e-10, 0},
        {"pole", [](double x) { return 1.0 / (x - 0.3); }, 0, 1, 1e-10, 1, ZeroStatus::pole, 0.3,
         2e-10, 0},
        {"TOLX too small: the last bracket", sq2, 1, 2, 1e-300, 1, ZeroStatus::tolx_small, s2,
         4 * eps * s2, 0},
    };
    for (const Case& k : cases) {
        double x = k.x0, y = k.y0, fx = 0.0, c[10];
        int ind = 1;
        std::vector<double> asked;
        ZeroReport r = zero_engine_step(x, y, fx, k.tolx, k.ir, c, ind);
        while (ind != 0) {
            asked.push_back(x);
            r = zero_engine_step(x, y, k.f(x), k.tolx, k.ir, c, ind);
        }
        EXPECT_EQ(r.status, k.status) << k.what;
        EXPECT_LE(std::fabs(x - k.zero), k.err * (1 + 1e-9)) << k.what;
        EXPECT_LE(std::fabs(y - k.zero), 2 * k.err * (1 + 1e-9)) << k.what;
        EXPECT_TRUE(k.f(x) == 0.0 || same_sign(k.f(x), k.f(y)) == false) << k.what;
        if (k.status != ZeroStatus::tolx_small) {
            EXPECT_EQ(asked.back(), x) << k.what;
        }
        if (k.asks != 0) {
            EXPECT_EQ(asked.size(), k.asks) << k.what;
            EXPECT_EQ(y, x) << k.what;
        }
    }
}

// C05AYF's computation: ends, NaN and non-finite ends, pole, accuracy limit.
TEST(ZeroDriver, Outcomes)
{
    const double inf = std::numeric_limits<double>::infinity();
    auto line = [](double z) { return Fn([z](double x) { return x - z; }); };
    auto nan_left = [](double s) {
        return Fn([s](double x) { return x < 0.5 ? kNaN : s * (x - 0.75); });
    };
    // C05AYF's messages the cases expect (0: success).
    constexpr int ok = 0, same_sign = C05AYF_msg::SAME_SIGN.code,
                  eps_small = C05AYF_msg::EPS_TOO_SMALL.code, pole = C05AYF_msg::POLE.code;
    struct Case {
        const char* what;
        Fn f;
        double a, b, eps, eta;
        int code;
        double x, err;
        int evals;  // -1: not checked
    };
    const Case cases[] = {
        {"zero at A", line(1), 1, 3, 1e-8, 0, ok, 1, 0, 1},
        {"zero at B", line(3), 1, 3, 1e-8, 0, ok, 3, 0, 2},
        {"B < A", line(1), 3, 1, 1e-8, 0, ok, 1, 0, 2},
        {"abs(f(A)) < ETA", line(1.1), 1, 3, 1e-8, 0.2, ok, 1, 0, 1},
        {"abs(f(B)) < ETA", line(2.9), 1, 3, 1e-8, 0.2, ok, 3, 0, 2},
        {"abs(f(A)) = ETA is not accepted", line(1.25), 1, 3, 1e-8, 0.25, ok, 1.25, 0, -1},
        {"A tried before B", line(1), 1, 1 + 0x1p-52, 1e-8, 0, ok, 1, 0, 1},
        {"NaN at A, + at B: a sign change", nan_left(1), 0, 2, 1e-10, 0, ok, 0.75, 2e-10, -1},
        {"NaN at A, - at B: the same sign", nan_left(-1), 0, 2, 1e-10, 0, same_sign, NAN, 0, 2},
        {"A NaN", atan_at(0.5), kNaN, 1, 1e-10, 0, eps_small, NAN, 0, 2},
        {"A -inf", atan_at(0.5), -inf, 1, 1e-10, 0, eps_small, NAN, 0, 2},
        {"B inf", atan_at(0.5), 0, inf, 1e-10, 0, eps_small, NAN, 0, 2},
        {"both infinite", atan_at(0.5), -inf, inf, 1e-10, 0, eps_small, NAN, 0, 2},
        {"pole", [](double x) { return 1.0 / (x - 0.3); }, 0, 1, 1e-10, 0, pole, 0.3, 2e-10, -1},
        {"EPS too small", sq2, 1, 2, 1e-300, 0, eps_small, std::sqrt(2.0),
         4 * lbx::machine::eps * std::sqrt(2.0), -1},
    };
    for (const Case& k : cases) {
        Counted f{k.f};
        double x = -99.0;
        const int code = code_of([&](lbx::Fail& fail) {
            solve_interval<C05AYF_msg>(k.a, k.b, k.eps, k.eta, f, x, fail);
        });
        EXPECT_EQ(code, k.code) << k.what;
        if (!std::isnan(k.x)) {
            EXPECT_LE(std::fabs(x - k.x), k.err) << k.what;
        }
        if (k.evals >= 0) {
            EXPECT_EQ(f.n, k.evals) << k.what;
        }
    }
}

TEST(ZeroDriver, EtaStopsEarly)
{
    Counted f{[](double x) { return std::exp(x) - 2.0; }}, g = f;
    double x = 0.0;
    ASSERT_EQ(code_of([&](lbx::Fail& fail) {
                  solve_interval<C05AYF_msg>(0.0, 2.0, 1e-12, 0.0, f, x, fail);
              }),
              0);
    EXPECT_EQ(code_of([&](lbx::Fail& fail) {
                  solve_interval<C05AYF_msg>(0.0, 2.0, 1e-12, 1e-6, g, x, fail);
              }),
              0);
    EXPECT_LT(std::fabs(std::exp(x) - 2.0), 1e-6);
    EXPECT_LT(g.n, f.n);
}

// C05AVF's engine: the probes double in length, alternate sides (H's side
// first) and are clamped to the bounds; the bracketing engine continues with
// IND = -1 and the same array.
TEST(OutwardSearch, Probes)
{
    struct Case {
        Fn f;
        double x0, h, lo, hi;
        SearchStatus status;
        std::vector<double> probes;
        double x, y;
    };
    auto line = [](double z) { return Fn([z](double t) { return t - z; }); };
    const Case cases[] = {
        {line(5.5), 0, 1, -10, 10, SearchStatus::ok, {0, 1, -1, 2, -2, 4, -4, 8}, 8, 4},
        {line(9.5), 0, 1, -10, 10, SearchStatus::ok, {0, 1, -1, 2, -2, 4, -4, 8, -8, 10}, 10, 8},
        {line(-3), 0, 1, -10, 10, SearchStatus::ok, {0, 1, -1, 2, -2, 4, -4}, -4, -2},
        {line(-3), 0, -1, -10, 10, SearchStatus::ok, {0, -1, 1, -2, 2, -4}, -4, -2},
        {line(1.5), 5, 1, -3, 5, SearchStatus::ok, {5, 4, 3, 1}, 1, 3},  // X on the upper bound:
                                                                         // left side only
        {line(2), 2, 1, -3, 5, SearchStatus::ok, {2}, 2, 2},             // zero at the start
        {[](double t) { return t * t + 1.0; },
         0,
         1,
         -3,
         5,
         SearchStatus::no_sign_change,
         {0, 1, -1, 2, -2, 4, -3, 5},
         NAN,
         NAN},
    };
    for (const Case& k : cases) {
        double x = k.x0, y = 0.0, fx = 0.0, c[11];
        int ind = 1;
        std::vector<double> asked;
        SearchReport last = search_engine_step(x, fx, k.h, k.lo, k.hi, y, c, ind);
        while (ind != 0) {
            asked.push_back(x);
            fx = k.f(x);
            last = search_engine_step(x, fx, k.h, k.lo, k.hi, y, c, ind);
        }
        EXPECT_EQ(last.status, k.status) << k.probes.back();
        EXPECT_EQ(asked, k.probes);
        if (k.status != SearchStatus::ok) {
            continue;
        }
        EXPECT_EQ(x, k.x);
        EXPECT_EQ(y, k.y);
        EXPECT_EQ(fx, k.f(x));    // the caller's last value is f(X)
        EXPECT_EQ(c[0], k.f(y));  // C(1) = f(Y)
        if (x != y) {
            ind = -1;
            while (ind != 0) {
                zero_engine_step(x, y, fx, 1e-12, 1, c, ind);
                fx = k.f(x);
            }
            EXPECT_EQ(fx, 0.0) << x;
        }
    }
}

TEST(OutwardSearch, DriverSolvesOnTheIntervalFound)
{
    Counted f{[](double x) { return x * x * x - 2 * x - 5; }};
    double x = 1.0, a = 0, b = 0;
    EXPECT_EQ(code_of([&](lbx::Fail& fail) {
                  search_and_solve<C05AUF_msg>(x, 0.1, 1e-12, 0.0, f, a, b, fail);
              }),
              0);
    EXPECT_NEAR(a, 1.8, 1e-12);
    EXPECT_NEAR(b, 2.6, 1e-12);
    EXPECT_LE(std::fabs(x - 2.094551481542326591), 2e-12);
    // Nothing within 1024 steps (11 doublings each side): X is left as given.
    Counted g{[](double x) { return x * x + 1.0; }};
    x = 1.0;
    EXPECT_EQ(code_of([&](lbx::Fail& fail) {
                  search_and_solve<C05AUF_msg>(x, 0.5, 1e-12, 0.0, g, a, b, fail);
              }),
              C05AUF_msg::NO_SIGN_CHANGE.code);
    EXPECT_EQ(x, 1.0);
    EXPECT_EQ(g.n, 23);
}

// C05AWF's computation (continuation from the estimate).
TEST(Continuation, Outcomes)
{
    struct Case {
        const char* what;
        Fn f;
        double x0, eps, eta;
        int code;
        double zero, err;
        int evals;  // -1: not checked
    };
    // C05AWF's messages the cases expect (0: success).
    constexpr int ok = 0, no_progress = C05AWF_msg::NO_PROGRESS.code;
    const Case cases[] = {
        {"exp(-x) = x", [](double x) { return std::exp(-x) - x; }, 1, 1e-12, 0, ok,
         0.5671432904097838730, 4e-12, -1},
        {"cubic", [](double x) { return x * x * x - 2 * x - 5; }, 1, 1e-12, 0, ok,
         2.094551481542326591, 9e-12, -1},
        {"atan, where Newton diverges", [](double x) { return std::atan(x); }, 3, 1e-12, 0, ok, 0,
         4e-12, -1},
        {"cos(x) = x", [](double x) { return std::cos(x) - x; }, -3, 1e-12, 0, ok,
         0.7390851332151606416, 4e-12, -1},
        {"sin", [](double x) { return std::sin(x); }, 2, 1e-12, 0, ok, 3.141592653589793238, 13e-12,
         -1},
        {"x^20 - 1", [](double x) { return std::pow(x, 20.0) - 1.0; }, 0.5, 1e-12, 0, ok, 1, 4e-12,
         -1},
        {"double zero", [](double x) { return (x - 1.0) * (x - 1.0); }, 3, 1e-6, 0, ok, 1, 4e-6,
         -1},
        {"no zero: stalls at the minimum of abs(f)", [](double x) { return x * x + 1.0; }, 1, 1e-10,
         0, no_progress, 0, 1e-3, -1},
        {"constant: the difference quotient vanishes", [](double) { return 1.0; }, 1, 1e-12, 0,
         no_progress, 1, INFINITY, 2},
        {"ETA accepts the first value below it", [](double x) { return x - 0.5; }, 0.6, 1e-12, 0.2,
         ok, 0.6, 0, 1},
    };
    for (const Case& k : cases) {
        Counted f{k.f};
        double x = k.x0;
        const int code = code_of([&](lbx::Fail& fail) {
            continuation_solve<C05AWF_msg>(x, k.eps, k.eta, f, 500, fail);
        });
        EXPECT_EQ(code, k.code) << k.what;
        EXPECT_LE(std::fabs(x - k.zero), k.err) << k.what;
        if (k.evals >= 0) {
            EXPECT_EQ(f.n, k.evals) << k.what;
        }
    }
}

TEST(Continuation, RunawayToInfinityFails)
{
    // 1/x from X = 1: every step doubles X. The continuation never asks for
    // a value at an infinite point and ends with the IFAIL = 2 failure.
    double x = 1.0, c[26];
    int ind = 1, calls = 0;
    ContinuationReport r = continuation_step(x, 0.0, 1e-10, 0, 1e-3, c, ind);
    while (ind != 0 && calls < 5000) {
        ASSERT_TRUE(std::isfinite(x));
        ++calls;
        r = continuation_step(x, 1.0 / x, 1e-10, 0, 1e-3, c, ind);
    }
    EXPECT_EQ(ind, 0);
    EXPECT_EQ(r.status, ContinuationStatus::no_progress);
}

TEST(Continuation, IndMustBeTheValueReturnedLast)
{
    double x = 1.0, c[26] = {};
    int ind = 1;
    continuation_step(x, 0.0, 1e-8, 1, 1e-3, c, ind);
    continuation_step(x, 2.0, 1e-8, 1, 1e-3, c, ind);
    ASSERT_EQ(ind, 3);
    ind = 2;
    EXPECT_EQ(continuation_step(x, 1.0, 1e-8, 1, 1e-3, c, ind).status,
              ContinuationStatus::ind_invalid);
    EXPECT_EQ(ind, 0);
}

TEST(Continuation, InterleavedSearchesMatchSequentialRuns)
{
    const Fn fs[2] = {[](double x) { return std::atan(x - 1.0); },
                      [](double x) { return x * x - 3.0; }};
    const double x0[2] = {4.0, 5.0};
    std::vector<double> alone[2], mixed[2];
    double x[2], c[2][26];
    int ind[2];
    for (int j = 0; j < 2; ++j) {
        x[j] = x0[j];
        ind[j] = 1;
        continuation_step(x[j], 0.0, 1e-12, 0, 1e-3, c[j], ind[j]);
        while (ind[j] != 0) {
            alone[j].push_back(x[j]);
            continuation_step(x[j], fs[j](x[j]), 1e-12, 0, 1e-3, c[j], ind[j]);
        }
        alone[j].push_back(x[j]);
        x[j] = x0[j];
        ind[j] = 1;
        continuation_step(x[j], 0.0, 1e-12, 0, 1e-3, c[j], ind[j]);
    }
    while (ind[0] != 0 || ind[1] != 0) {
        for (int j = 0; j < 2; ++j) {
            if (ind[j] != 0) {
                mixed[j].push_back(x[j]);
                continuation_step(x[j], fs[j](x[j]), 1e-12, 0, 1e-3, c[j], ind[j]);
            }
        }
    }
    for (int j = 0; j < 2; ++j) {
        mixed[j].push_back(x[j]);
        EXPECT_EQ(mixed[j], alone[j]) << j;
    }
    EXPECT_LE(std::fabs(x[0] - 1.0), 2e-12);
    EXPECT_LE(std::fabs(x[1] - std::sqrt(3.0)), 4e-12);
}

// A re-entry with an array the routine never filled must not crash: the
// continuation reports the IND error, the search and the bracketing engine
// return some request or finish.
TEST(DamagedState, ReentryWithAnUnfilledArray)
{
    double c[26], x = 1.0, y = 0.0;
    for (double& v : c) {
        v = kNaN;
    }
    int ind = 4;
    EXPECT_EQ(continuation_step(x, 1.0, 1e-8, 0, 1e-3, c, ind).status,
              ContinuationStatus::ind_invalid);
    EXPECT_EQ(ind, 0);
    ind = 2;
    const SearchStatus s = search_engine_step(x, 1.0, 1.0, -1.0, 1.0, y, c, ind).status;
    EXPECT_TRUE(s == SearchStatus::ok || s == SearchStatus::no_sign_change);
    for (double& v : c) {
        v = kNaN;
    }
    ind = 4;
    zero_engine_step(x, y, 1.0, 1e-8, 1, c, ind);
    EXPECT_TRUE(ind == 0 || ind == 4);
}

}  // namespace
