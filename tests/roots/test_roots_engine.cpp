// The reverse-communication engines of the zero finders, driven step by step:
// the IND states of the bracketing engine and the contents of its array C,
// its edge cases, interleaved searches, the outward search and the
// continuation method.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "roots/bracket_driver.hpp"
#include "roots/continuation_driver.hpp"
#include "roots/continuation_engine.hpp"
#include "roots/search_driver.hpp"
#include "roots/search_engine.hpp"
#include "roots/zero_engine.hpp"

namespace {

using namespace lbx::roots;

const double kNaN = std::numeric_limits<double>::quiet_NaN();
double sq2(double x) { return x * x - 2.0; }

// Runs the bracketing engine to the end from IND = 1; returns the points at
// which f was requested (the last being the extra value at convergence).
struct EngineRun {
    std::vector<double> asked;
    double x = 0, y = 0;
    ZeroReport last;
    double c[10] = {};
};

template <class F>
EngineRun run_engine(F f, double x0, double y0, double tolx, int ir)
{
    EngineRun r;
    r.x = x0;
    r.y = y0;
    int ind = 1;
    double fx = 0.0;
    r.last = zero_engine_step(r.x, r.y, fx, tolx, ir, r.c, ind);
    while (ind != 0) {
        r.asked.push_back(r.x);
        fx = f(r.x);
        r.last = zero_engine_step(r.x, r.y, fx, tolx, ir, r.c, ind);
    }
    return r;
}

// ---------------------------------------------------------------------------
// The IND table and C(1..10), checked against a hand-worked secant step.
// ---------------------------------------------------------------------------
TEST(ZeroEngine, FirstStepsFollowTheIndTable)
{
    double x = 1.0, y = 2.0, c[10];
    for (double& v : c) {
        v = -7.0;
    }
    int ind = 1;
    ZeroReport r = zero_engine_step(x, y, 0.0, 1e-6, 1, c, ind);
    EXPECT_EQ(r.status, ZeroStatus::ok);
    EXPECT_EQ(ind, 2);
    EXPECT_EQ(x, 1.0);
    EXPECT_EQ(c[2], 1.0); // C(3) = X

    r = zero_engine_step(x, y, sq2(1.0), 1e-6, 1, c, ind);
    EXPECT_EQ(ind, 3);
    EXPECT_EQ(x, 2.0); // the other end is wanted next
    EXPECT_EQ(y, 1.0);
    EXPECT_EQ(c[1], -1.0); // C(2) = f(first point)
    EXPECT_EQ(c[3], 2.0);  // C(4) = new X
    EXPECT_EQ(c[8], 1.0);  // C(9) = abs(f(first point))
    EXPECT_EQ(c[9], 0.0);  // C(10) = 0 while iterating

    // f(1) = -1, f(2) = 2: b = 1 after the exchange (smaller residual), the
    // secant through (1,-1), (2,2) gives 4/3 with d = 1/3, e = 1.
    r = zero_engine_step(x, y, sq2(2.0), 1e-6, 1, c, ind);
    EXPECT_EQ(ind, 4);
    EXPECT_DOUBLE_EQ(x, 4.0 / 3.0);
    EXPECT_EQ(c[1], -1.0);               // C(2) = f(a), a the old b
    EXPECT_EQ(c[2], 1.0);                // C(3) = a
    EXPECT_DOUBLE_EQ(c[3], 4.0 / 3.0);   // C(4) = b = X
    EXPECT_DOUBLE_EQ(c[4], 1.0 / 3.0);   // C(5) = d
    EXPECT_EQ(c[5], 1.0);                // C(6) = e
    EXPECT_EQ(c[6], 2.0);                // C(7) = c
    EXPECT_EQ(c[7], 2.0);                // C(8) = f(c)
    EXPECT_EQ(c[8], 2.0);                // C(9) = max(abs(f)) at the two ends
    EXPECT_EQ(c[9], 0.0);
}

TEST(ZeroEngine, ConvergesAndAsksForOneMoreValue)
{
    const double tolx = 1e-9;
    const EngineRun r = run_engine(sq2, 1.0, 2.0, tolx, 1);
    EXPECT_EQ(r.last.status, ZeroStatus::ok);
    ASSERT_GE(r.asked.size(), 3u);
    // The last request was the value at the returned X, made with C(10) = 1.
    EXPECT_EQ(r.asked.back(), r.x);
    EXPECT_EQ(r.c[9], 1.0);
    EXPECT_EQ(r.c[3], r.x);
    EXPECT_LE(std::fabs(r.x - r.y), 2.0 * tolx);
    EXPECT_LE(std::fabs(r.x - std::sqrt(2.0)), 2.0 * tolx);
    EXPECT_TRUE(same_sign(sq2(r.y), 1.0) != same_sign(sq2(r.x), 1.0) || sq2(r.x) == 0.0);
}

TEST(ZeroEngine, ErrorCriteria)
{
    struct Case {
        int ir;
        double tolx, zero;
    };
    // tol = TOLX max(abs(b), 1), TOLX, TOLX abs(b) for IR = 0, 1, 2.
    const Case cases[] = {
        {0, 1e-8, 1e6 + 0.25}, {0, 1e-8, 0.25}, {1, 1e-5, 1e6 + 0.25}, {2, 1e-10, 1e6 + 0.25}, {2, 1e-10, 3e-7},
    };
    for (const Case& k : cases) {
        const double z = k.zero;
        const EngineRun r = run_engine([z](double x) { return std::atan(x - z) + (x - z) * 1e-3; }, z / 2 - 1,
                                 2 * z + 1, k.tolx, k.ir);
        const double tol = k.tolx * (k.ir == 0 ? std::fmax(1.0, std::fabs(r.x)) : k.ir == 1 ? 1.0 : std::fabs(r.x));
        EXPECT_EQ(r.last.status, ZeroStatus::ok) << k.ir;
        EXPECT_LE(std::fabs(r.x - z), 2.0 * tol * (1 + 1e-12)) << "IR = " << k.ir << " zero " << z;
        EXPECT_LE(std::fabs(r.x - r.y), 2.0 * tol * (1 + 1e-12)) << k.ir;
    }
}

// ---------------------------------------------------------------------------
// Exact zeros, the sign test, NaN values.
// ---------------------------------------------------------------------------
TEST(ZeroEngine, ExactZeroAtEitherStartingPoint)
{
    double c[10];
    // At the first point: finished at IND = 2, Y = X.
    double x = 3.0, y = 5.0;
    int ind = 1;
    zero_engine_step(x, y, 0.0, 1e-8, 1, c, ind);
    ZeroReport r = zero_engine_step(x, y, 0.0, 1e-8, 1, c, ind);
    EXPECT_EQ(ind, 0);
    EXPECT_EQ(r.status, ZeroStatus::ok);
    EXPECT_EQ(x, 3.0);
    EXPECT_EQ(y, 3.0);
    // At the second point: finished at IND = 3 with X = Y = that point.
    x = 3.0;
    y = 5.0;
    ind = 1;
    zero_engine_step(x, y, 0.0, 1e-8, 1, c, ind);
    zero_engine_step(x, y, 1.0, 1e-8, 1, c, ind);
    r = zero_engine_step(x, y, 0.0, 1e-8, 1, c, ind);
    EXPECT_EQ(ind, 0);
    EXPECT_EQ(r.status, ZeroStatus::ok);
    EXPECT_EQ(x, 5.0);
    EXPECT_EQ(y, 5.0);
}

TEST(ZeroEngine, ExactZeroDuringTheIterationEndsWithYEqualX)
{
    // x - 1.5 on [1, 2]: the first secant step lands on 1.5 exactly.
    const EngineRun r = run_engine([](double x) { return x - 1.5; }, 1.0, 2.0, 1e-12, 1);
    EXPECT_EQ(r.last.status, ZeroStatus::ok);
    EXPECT_EQ(r.x, 1.5);
    EXPECT_EQ(r.y, 1.5);
    EXPECT_EQ(r.asked.size(), 3u); // f(1), f(2), f(1.5)
}

TEST(ZeroEngine, IndMinusOneSignTestWithZeroInC1)
{
    struct Case {
        double fx, c1;
        bool same;
    };
    // C(1) = 0 counts as non-positive: same sign as a negative FX.
    const Case cases[] = {{-1.0, 0.0, true}, {2.0, 0.0, false}, {kNaN, -1.0, true}, {kNaN, 1.0, false},
                          {1.0, 1.0, true},  {-1.0, -2.0, true}, {-1.0, 2.0, false}};
    for (const Case& k : cases) {
        double x = 1.0, y = 4.0, c[10];
        c[0] = k.c1;
        int ind = -1;
        const ZeroReport r = zero_engine_step(x, y, k.fx, 1e-8, 1, c, ind);
        if (k.same) {
            EXPECT_EQ(r.status, ZeroStatus::same_sign) << k.fx << " " << k.c1;
            EXPECT_EQ(ind, 0);
            EXPECT_EQ(x, 1.0); // handed back as given
            EXPECT_EQ(y, 4.0);
            if (!std::isnan(k.fx)) {
                EXPECT_EQ(r.v1, k.fx); // f(X)
            }
            EXPECT_EQ(r.v2, k.c1); // f(Y)
        } else {
            EXPECT_EQ(r.status, ZeroStatus::ok) << k.fx << " " << k.c1;
            EXPECT_EQ(ind, 4);
        }
    }
}

TEST(ZeroEngine, IndMinusOneWithZeroAtYConvergesAtOnce)
{
    double x = 1.0, y = 4.0, c[10];
    c[0] = 0.0;
    int ind = -1;
    ZeroReport r = zero_engine_step(x, y, 2.0, 1e-8, 1, c, ind);
    EXPECT_EQ(r.status, ZeroStatus::ok);
    EXPECT_EQ(ind, 4);
    EXPECT_EQ(c[9], 1.0); // final value wanted
    EXPECT_EQ(x, 4.0);
    EXPECT_EQ(y, 1.0);
    r = zero_engine_step(x, y, 0.0, 1e-8, 1, c, ind);
    EXPECT_EQ(ind, 0);
    EXPECT_EQ(r.status, ZeroStatus::ok);
    EXPECT_EQ(x, 4.0);
    EXPECT_EQ(y, 4.0);
}

TEST(ZeroEngine, NaNValuesInsideTheBracketLeadToBisection)
{
    // NaN on (0.3, 0.35): counted as non-positive, the search still ends
    // with a bracket of the sign change of the non-NaN values at 0.5.
    auto f = [](double x) { return (x > 0.3 && x < 0.35) ? kNaN : x - 0.5; };
    const EngineRun r = run_engine(f, 0.0, 1.0, 1e-10, 1);
    EXPECT_EQ(r.last.status, ZeroStatus::ok);
    EXPECT_LE(std::fabs(r.x - 0.5), 2e-10);
}

// ---------------------------------------------------------------------------
// Pole test and accuracy limit.
// ---------------------------------------------------------------------------
TEST(ZeroEngine, PoleExitKeepsTheFinalBracket)
{
    const EngineRun r = run_engine([](double x) { return 1.0 / (x - 0.3); }, 0.0, 1.0, 1e-10, 1);
    EXPECT_EQ(r.last.status, ZeroStatus::pole);
    EXPECT_LE(std::fabs(r.x - 0.3), 2e-10);
    EXPECT_LE(std::fabs(r.x - r.y), 2e-10);
    EXPECT_EQ(r.asked.back(), r.x); // the pole test used the extra value
}

TEST(ZeroEngine, LargeButNotPoleFinalValueIsAccepted)
{
    // The final value equals a starting value in magnitude: no pole.
    double x = 0.0, y = 1.0, c[10];
    int ind = 1;
    zero_engine_step(x, y, 0.0, 0.25, 1, c, ind);
    zero_engine_step(x, y, -1.0, 0.25, 1, c, ind);
    zero_engine_step(x, y, 1.0, 0.25, 1, c, ind); // secant to 0.5
    ASSERT_EQ(ind, 4);
    ZeroReport r = zero_engine_step(x, y, 0.5, 0.25, 1, c, ind);
    ASSERT_EQ(ind, 4);
    ASSERT_EQ(c[9], 1.0) << "bracket of width 0.5 converged with tol 0.25";
    r = zero_engine_step(x, y, 1.0, 0.25, 1, c, ind); // abs(f) = C(9): not larger
    EXPECT_EQ(ind, 0);
    EXPECT_EQ(r.status, ZeroStatus::ok);
    x = 0.0;
    y = 1.0;
    ind = 1;
    zero_engine_step(x, y, 0.0, 0.25, 1, c, ind);
    zero_engine_step(x, y, -1.0, 0.25, 1, c, ind);
    zero_engine_step(x, y, 1.0, 0.25, 1, c, ind);
    zero_engine_step(x, y, 0.5, 0.25, 1, c, ind);
    r = zero_engine_step(x, y, std::nextafter(1.0, 2.0), 0.25, 1, c, ind);
    EXPECT_EQ(ind, 0);
    EXPECT_EQ(r.status, ZeroStatus::pole);
}

TEST(ZeroEngine, TolxTooSmallLeavesTheLastBracket)
{
    const EngineRun r = run_engine(sq2, 1.0, 2.0, 1e-300, 1);
    EXPECT_EQ(r.last.status, ZeroStatus::tolx_small);
    EXPECT_EQ(r.last.v1, 1e-300);
    const double s = std::sqrt(2.0);
    EXPECT_LE(std::fabs(r.x - s), 4 * lbx::machine::eps * s);
    EXPECT_LE(std::fabs(r.y - s), 4 * lbx::machine::eps * s);
    EXPECT_NE(same_sign(sq2(r.x), sq2(r.y)), true);
}

// ---------------------------------------------------------------------------
// Re-checks on every entry.
// ---------------------------------------------------------------------------
TEST(ZeroEngine, EveryEntryRechecksIndTolxIrInOrder)
{
    struct Case {
        int ind;
        double tolx;
        int ir;
        ZeroStatus want;
        int iv;
    };
    const Case cases[] = {
        {0, 1e-8, 1, ZeroStatus::ind_invalid, 0},     {5, 1e-8, 1, ZeroStatus::ind_invalid, 5},
        {-2, 0.0, 7, ZeroStatus::ind_invalid, -2},    {4, 0.0, 1, ZeroStatus::tolx_invalid, 0},
        {4, -1.0, 9, ZeroStatus::tolx_invalid, 0},    {4, kNaN, 1, ZeroStatus::tolx_invalid, 0},
        {4, 1e-8, 3, ZeroStatus::ir_invalid, 3},      {4, 1e-8, -1, ZeroStatus::ir_invalid, -1},
        {1, 1e-8, 3, ZeroStatus::ir_invalid, 3},      {3, 1e-8, 0, ZeroStatus::ok, 0},
    };
    for (const Case& k : cases) {
        // A search in progress (IND = 4 returned), then one entry with the case's values.
        double x = 1.0, y = 2.0, c[10];
        int ind = 1;
        zero_engine_step(x, y, 0.0, 1e-8, 1, c, ind);
        zero_engine_step(x, y, sq2(x), 1e-8, 1, c, ind);
        if (k.ind == 4) {
            zero_engine_step(x, y, sq2(x), 1e-8, 1, c, ind);
            ASSERT_EQ(ind, 4);
        }
        ind = k.ind;
        const ZeroReport r = zero_engine_step(x, y, sq2(x), k.tolx, k.ir, c, ind);
        EXPECT_EQ(r.status, k.want) << k.ind << " " << k.tolx << " " << k.ir;
        if (k.want != ZeroStatus::ok) {
            EXPECT_EQ(ind, 0);
            if (k.want == ZeroStatus::tolx_invalid && !std::isnan(k.tolx)) {
                EXPECT_EQ(r.v1, k.tolx);
            } else if (k.want != ZeroStatus::tolx_invalid) {
                EXPECT_EQ(r.iv, k.iv);
            }
        }
    }
}

// ---------------------------------------------------------------------------
// Two searches interleaved with separate arrays C.
// ---------------------------------------------------------------------------
TEST(ZeroEngine, InterleavedSearchesMatchSequentialRuns)
{
    auto f = [](double x) { return std::cos(x) - x; };
    auto g = [](double x) { return x * x * x - 2 * x - 5; };
    const EngineRun rf = run_engine(f, 0.0, 1.0, 1e-12, 1);
    const EngineRun rg = run_engine(g, 2.0, 3.0, 1e-12, 0);

    double xf = 0.0, yf = 1.0, cf[10], xg = 2.0, yg = 3.0, cg[10];
    int indf = 1, indg = 1;
    std::vector<double> af, ag;
    zero_engine_step(xf, yf, 0.0, 1e-12, 1, cf, indf);
    zero_engine_step(xg, yg, 0.0, 1e-12, 0, cg, indg);
    while (indf != 0 || indg != 0) {
        if (indf != 0) {
            af.push_back(xf);
            zero_engine_step(xf, yf, f(xf), 1e-12, 1, cf, indf);
        }
        if (indg != 0) {
            ag.push_back(xg);
            zero_engine_step(xg, yg, g(xg), 1e-12, 0, cg, indg);
        }
    }
    EXPECT_EQ(af, rf.asked);
    EXPECT_EQ(ag, rg.asked);
    EXPECT_EQ(xf, rf.x);
    EXPECT_EQ(yf, rf.y);
    EXPECT_EQ(xg, rg.x);
    EXPECT_EQ(yg, rg.y);
}

// ---------------------------------------------------------------------------
// The direct driver (C05AYF's computation).
// ---------------------------------------------------------------------------
struct Counted {
    double (*f)(double);
    int n = 0;
    double operator()(double x)
    {
        ++n;
        return f(x);
    }
};

TEST(ZeroDriver, ZeroAtAnEndNeedsNoFurtherEvaluation)
{
    struct Case {
        double (*f)(double);
        double a, b, eta, want;
        int evals;
    };
    const Case cases[] = {
        {[](double x) { return x - 1.0; }, 1.0, 3.0, 0.0, 1.0, 1},   // zero at A
        {[](double x) { return x - 3.0; }, 1.0, 3.0, 0.0, 3.0, 2},   // zero at B
        {[](double x) { return x - 1.0; }, 3.0, 1.0, 0.0, 1.0, 2},   // B < A
        {[](double x) { return x - 1.1; }, 1.0, 3.0, 0.2, 1.0, 1},   // abs(f(A)) < ETA
        {[](double x) { return x - 2.9; }, 1.0, 3.0, 0.2, 3.0, 2},   // abs(f(B)) < ETA
        {[](double x) { return x - 1.0; }, 1.0, 1.0 + 0x1p-52, 0.0, 1.0, 1}, // A tried before B
    };
    for (const Case& k : cases) {
        Counted f{k.f};
        double x = -99.0;
        const DriverReport r = solve_interval(k.a, k.b, 1e-8, k.eta, f, x);
        EXPECT_EQ(r.status, DriverStatus::ok);
        EXPECT_EQ(x, k.want);
        EXPECT_EQ(f.n, k.evals);
    }
}

TEST(ZeroDriver, ArgumentChecksInOrder)
{
    Counted f{[](double x) { return x; }};
    double x = 0.0;
    DriverReport r = solve_interval(1.0, 1.0, 0.0, 0.0, f, x); // EPS before A = B
    EXPECT_EQ(r.status, DriverStatus::eps_invalid);
    EXPECT_EQ(r.v1, 0.0);
    r = solve_interval(1.0, 1.0, kNaN, 0.0, f, x);
    EXPECT_EQ(r.status, DriverStatus::eps_invalid);
    r = solve_interval(2.0, 2.0, 1e-3, 0.0, f, x);
    EXPECT_EQ(r.status, DriverStatus::a_equals_b);
    EXPECT_EQ(r.v1, 2.0);
    EXPECT_EQ(r.v2, 2.0);
    EXPECT_EQ(f.n, 0);
    r = solve_interval(1.0, 2.0, 1e-3, 0.0, f, x);
    EXPECT_EQ(r.status, DriverStatus::same_sign);
    EXPECT_EQ(r.v1, 1.0);
    EXPECT_EQ(r.v2, 2.0);
    EXPECT_EQ(f.n, 2);
}

TEST(ZeroDriver, NaNAtAnEndCountsAsNonPositive)
{
    Counted up{[](double x) { return x < 0.5 ? kNaN : x - 0.75; }};
    double x = 0.0;
    DriverReport r = solve_interval(0.0, 2.0, 1e-10, 0.0, up, x); // NaN, + : a sign change
    EXPECT_EQ(r.status, DriverStatus::ok);
    EXPECT_LE(std::fabs(x - 0.75), 2e-10);
    Counted down{[](double x) { return x < 0.5 ? kNaN : 0.75 - x; }};
    r = solve_interval(0.0, 2.0, 1e-10, 0.0, down, x); // NaN, - : the same sign
    EXPECT_EQ(r.status, DriverStatus::same_sign);
    EXPECT_TRUE(std::isnan(r.v1));
    EXPECT_EQ(r.v2, -1.25);
}

TEST(ZeroDriver, NonFiniteEndsTerminate)
{
    // A NaN or infinite end gives a half-width that is not finite: the
    // search ends at the accuracy limit at once instead of running for ever.
    const double inf = std::numeric_limits<double>::infinity();
    struct Case {
        double a, b;
    };
    const Case cases[] = {{kNaN, 1.0}, {-inf, 1.0}, {0.0, inf}, {-inf, inf}};
    for (const Case& k : cases) {
        Counted f{[](double x) { return std::atan(x - 0.5); }};
        double x = 0.0;
        const DriverReport r = solve_interval(k.a, k.b, 1e-10, 0.0, f, x);
        EXPECT_EQ(r.status, DriverStatus::eps_small) << k.a << " " << k.b;
        EXPECT_EQ(f.n, 2) << k.a << " " << k.b;
    }
}

TEST(ZeroDriver, EtaStopsBeforeThePoleTest)
{
    Counted f{[](double x) { return std::exp(x) - 2.0; }};
    double x = 0.0;
    DriverReport r = solve_interval(0.0, 2.0, 1e-12, 0.0, f, x);
    ASSERT_EQ(r.status, DriverStatus::ok);
    const int full = f.n;
    Counted g{[](double x) { return std::exp(x) - 2.0; }};
    r = solve_interval(0.0, 2.0, 1e-12, 1e-6, g, x);
    EXPECT_EQ(r.status, DriverStatus::ok);
    EXPECT_LT(std::fabs(std::exp(x) - 2.0), 1e-6);
    EXPECT_LT(g.n, full);
}

TEST(ZeroDriver, PoleAndTooSmallEps)
{
    Counted p{[](double x) { return 1.0 / (x - 0.3); }};
    double x = 0.0;
    DriverReport r = solve_interval(0.0, 1.0, 1e-10, 0.0, p, x);
    EXPECT_EQ(r.status, DriverStatus::pole);
    EXPECT_LE(std::fabs(x - 0.3), 2e-10);
    Counted s{sq2};
    r = solve_interval(1.0, 2.0, 1e-300, 0.0, s, x);
    EXPECT_EQ(r.status, DriverStatus::eps_small);
    EXPECT_EQ(r.v1, 1e-300);
    EXPECT_LE(std::fabs(x - std::sqrt(2.0)), 4 * lbx::machine::eps * std::sqrt(2.0));
}

// ---------------------------------------------------------------------------
// Outward search (C05AVF's engine) and its hand-over to the bracketing engine.
// ---------------------------------------------------------------------------
template <class F>
std::vector<double> run_search(F f, double& x, double h, double lo, double hi, double& y, double* c,
                               SearchReport& last, double& fx)
{
    std::vector<double> asked;
    int ind = 1;
    fx = 0.0;
    last = search_engine_step(x, fx, h, lo, hi, y, c, ind);
    while (ind != 0) {
        asked.push_back(x);
        fx = f(x);
        last = search_engine_step(x, fx, h, lo, hi, y, c, ind);
    }
    return asked;
}

TEST(OutwardSearch, ProbeSequenceDoublesAndClamps)
{
    struct Case {
        double zero, h;
        std::vector<double> probes;
        double x, y;
    };
    const Case cases[] = {
        {5.5, 1.0, {0, 1, -1, 2, -2, 4, -4, 8}, 8, 4},
        {9.5, 1.0, {0, 1, -1, 2, -2, 4, -4, 8, -8, 10}, 10, 8},
        {-3.0, 1.0, {0, 1, -1, 2, -2, 4, -4}, -4, -2},
        {-3.0, -1.0, {0, -1, 1, -2, 2, -4}, -4, -2}, // H < 0: the left side first
    };
    for (const Case& k : cases) {
        const double z = k.zero;
        double x = 0.0, y = 0.0, c[11], fx;
        SearchReport last;
        const auto asked = run_search([z](double t) { return t - z; }, x, k.h, -10.0, 10.0, y, c, last, fx);
        EXPECT_EQ(last.status, SearchStatus::ok);
        EXPECT_EQ(asked, k.probes) << z;
        EXPECT_EQ(x, k.x);
        EXPECT_EQ(y, k.y);
        EXPECT_EQ(fx, k.x - z); // the caller's last value is f(X)
        EXPECT_EQ(c[0], k.y - z); // C(1) = f(Y)
        // The bracketing engine continues with IND = -1 and the same array.
        int ind = -1;
        while (ind != 0) {
            zero_engine_step(x, y, fx, 1e-12, 1, c, ind);
            if (ind != 0) {
                fx = x - z;
            }
        }
        EXPECT_EQ(x, z);
    }
}

TEST(OutwardSearch, ExhaustedBoundsAndZeroAtStart)
{
    double x = 0.0, y = 0.0, c[11], fx;
    SearchReport last;
    auto asked = run_search([](double t) { return t * t + 1.0; }, x, 1.0, -3.0, 5.0, y, c, last, fx);
    EXPECT_EQ(last.status, SearchStatus::no_sign_change);
    EXPECT_EQ(asked, (std::vector<double>{0, 1, -1, 2, -2, 4, -3, 5}));
    EXPECT_EQ(last.v1, -3.0);
    EXPECT_EQ(last.v2, 5.0);
    x = 2.0;
    asked = run_search([](double t) { return t - 2.0; }, x, 1.0, -3.0, 5.0, y, c, last, fx);
    EXPECT_EQ(last.status, SearchStatus::ok);
    EXPECT_EQ(asked.size(), 1u);
    EXPECT_EQ(x, 2.0);
    EXPECT_EQ(y, 2.0);
    EXPECT_EQ(c[0], 0.0);
    // X on the upper bound: only the left side is searched.
    x = 5.0;
    asked = run_search([](double t) { return t - 1.5; }, x, 1.0, -3.0, 5.0, y, c, last, fx);
    EXPECT_EQ(asked, (std::vector<double>{5, 4, 3, 1}));
    EXPECT_EQ(x, 1.0);
    EXPECT_EQ(y, 3.0);
}

TEST(OutwardSearch, ArgumentChecksInOrder)
{
    struct Case {
        double x, h, lo, hi;
        int ind;
        SearchStatus want;
    };
    const Case cases[] = {
        {0, 1, 1, 1, 1, SearchStatus::bounds_order},   {0, 0, 2, 1, 1, SearchStatus::bounds_order},
        {3, 0, -1, 1, 1, SearchStatus::x_outside},     {0, 0, -1, 1, -1, SearchStatus::h_too_small},
        {1e20, 1, 0, 1e21, 1, SearchStatus::h_too_small}, {0, 5, -1, 1, 1, SearchStatus::both_outside},
        {0, 1, -1, 1, 3, SearchStatus::ind_invalid},   {0, 1, -1, 1, 0, SearchStatus::ind_invalid},
        {0, 2, -1, 1, 1, SearchStatus::both_outside},  {0, 1, -1, 1, 1, SearchStatus::ok},
        {0.5, 1, -1, 1, 1, SearchStatus::ok},          // X-H inside
    };
    for (const Case& k : cases) {
        double x = k.x, y = 0, c[11];
        int ind = k.ind;
        const SearchReport r = search_engine_step(x, 0.0, k.h, k.lo, k.hi, y, c, ind);
        EXPECT_EQ(r.status, k.want) << k.x << " " << k.h << " " << k.lo << " " << k.hi << " " << k.ind;
        if (k.want == SearchStatus::ind_invalid) {
            EXPECT_EQ(r.iv, k.ind);
        }
        if (k.want != SearchStatus::ok) {
            EXPECT_EQ(ind, 0);
        }
    }
}

TEST(OutwardSearch, DriverSolvesOnTheIntervalFound)
{
    Counted f{[](double x) { return x * x * x - 2 * x - 5; }};
    double x = 1.0, a = 0, b = 0;
    SearchDriverReport r = search_and_solve(x, 0.1, 1e-12, 0.0, f, a, b);
    EXPECT_EQ(r.status, SearchDriverStatus::ok);
    EXPECT_NEAR(a, 1.8, 1e-12);
    EXPECT_NEAR(b, 2.6, 1e-12);
    EXPECT_LE(std::fabs(x - 2.094551481542326591), 2e-12);
    // Nothing within 1024 steps: X is left as given.
    Counted g{[](double x) { return x * x + 1.0; }};
    x = 1.0;
    r = search_and_solve(x, 0.5, 1e-12, 0.0, g, a, b);
    EXPECT_EQ(r.status, SearchDriverStatus::no_sign_change);
    EXPECT_EQ(x, 1.0);
    EXPECT_EQ(a, 1.0 - 512.0);
    EXPECT_EQ(b, 1.0 + 512.0);
    EXPECT_EQ(g.n, 23);
    // Checks: EPS first, then X+H = X.
    x = 1.0;
    r = search_and_solve(x, 0.0, 0.0, 0.0, g, a, b);
    EXPECT_EQ(r.status, SearchDriverStatus::eps_invalid);
    r = search_and_solve(x, 1e-17, 1e-8, 0.0, g, a, b);
    EXPECT_EQ(r.status, SearchDriverStatus::h_too_small);
    EXPECT_EQ(r.v1, 1.0);
    EXPECT_EQ(r.v2, 1e-17);
}

// ---------------------------------------------------------------------------
// Continuation (C05AXF's engine) and its driver.
// ---------------------------------------------------------------------------
TEST(Continuation, FindsZerosNearTheEstimate)
{
    struct Case {
        double (*f)(double);
        double x0, zero, tol;
    };
    const Case cases[] = {
        {[](double x) { return std::exp(-x) - x; }, 1.0, 0.5671432904097838730, 1e-12},
        {[](double x) { return x * x * x - 2 * x - 5; }, 1.0, 2.094551481542326591, 1e-12},
        {[](double x) { return std::atan(x); }, 3.0, 0.0, 1e-12},          // Newton would diverge
        {[](double x) { return std::cos(x) - x; }, -3.0, 0.7390851332151606416, 1e-12},
        {[](double x) { return std::sin(x); }, 2.0, 3.141592653589793238, 1e-12},
        {[](double x) { return std::pow(x, 20.0) - 1.0; }, 0.5, 1.0, 1e-12},
        {[](double x) { return (x - 1.0) * (x - 1.0); }, 3.0, 1.0, 1e-6},   // double zero, no sign change
    };
    for (const Case& k : cases) {
        Counted f{k.f};
        double x = k.x0;
        const ContinuationDriverReport r = continuation_solve(x, k.tol, 0.0, f, 500);
        EXPECT_EQ(r.status, ContinuationDriverStatus::ok) << k.x0;
        EXPECT_LE(std::fabs(x - k.zero), 4 * k.tol * std::fmax(1.0, std::fabs(k.zero))) << k.x0;
    }
}

TEST(Continuation, FailuresAndLimits)
{
    // No zero: the continuation stalls at the minimum of abs(f).
    Counted f{[](double x) { return x * x + 1.0; }};
    double x = 1.0;
    ContinuationDriverReport r = continuation_solve(x, 1e-10, 0.0, f, 500);
    EXPECT_EQ(r.status, ContinuationDriverStatus::no_progress);
    EXPECT_LT(std::fabs(x), 1e-3);
    // NFMAX calls at most.
    Counted g{[](double x) { return std::exp(-x) - x; }};
    x = 1.0;
    r = continuation_solve(x, 1e-12, 0.0, g, 3);
    EXPECT_EQ(r.status, ContinuationDriverStatus::too_many_calls);
    EXPECT_EQ(r.iv, 3);
    EXPECT_EQ(g.n, 3);
    // Constant function: the difference quotient vanishes.
    Counted k{[](double) { return 1.0; }};
    x = 1.0;
    r = continuation_solve(x, 1e-12, 0.0, k, 50);
    EXPECT_EQ(r.status, ContinuationDriverStatus::no_progress);
    EXPECT_EQ(k.n, 2);
    // Checks: EPS first, then NFMAX.
    r = continuation_solve(x, 0.0, 0.0, k, 0);
    EXPECT_EQ(r.status, ContinuationDriverStatus::eps_invalid);
    r = continuation_solve(x, 1e-3, 0.0, k, 0);
    EXPECT_EQ(r.status, ContinuationDriverStatus::nfmax_invalid);
    EXPECT_EQ(r.iv, 0);
    // ETA accepts the first value below it.
    Counted e{[](double x) { return x - 0.5; }};
    x = 0.6;
    r = continuation_solve(x, 1e-12, 0.2, e, 50);
    EXPECT_EQ(r.status, ContinuationDriverStatus::ok);
    EXPECT_EQ(x, 0.6);
    EXPECT_EQ(e.n, 1);
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
    EXPECT_TRUE(std::isfinite(x));
}

TEST(Continuation, ReverseCommunicationChecks)
{
    struct Case {
        int ind;
        double tol;
        int ir;
        double scal;
        ContinuationStatus want;
    };
    const Case cases[] = {
        {0, 1e-8, 1, 1e-3, ContinuationStatus::ind_invalid},
        {5, 0.0, 7, 0.0, ContinuationStatus::ind_invalid},
        {2, 1e-8, 1, 1e-3, ContinuationStatus::ind_invalid}, // not the value returned last
        {1, 0.0, 7, 0.0, ContinuationStatus::tol_invalid},
        {1, 1e-8, 7, 0.0, ContinuationStatus::ir_invalid},
        {1, 1e-8, 1, 0.0, ContinuationStatus::scal_too_small},
        {-1, 1e-8, 1, 1e-17, ContinuationStatus::scal_too_small},
        {1, 1e-8, 2, 1e-3, ContinuationStatus::ok},
    };
    for (const Case& k : cases) {
        double x = 1.0, c[26] = {};
        int ind = 3; // a search waiting at IND = 3: f(X+SCAL) wanted
        if (k.ind == 2) {
            ind = 1;
            continuation_step(x, 0.0, 1e-8, 1, 1e-3, c, ind);
            continuation_step(x, 2.0, 1e-8, 1, 1e-3, c, ind);
            ASSERT_EQ(ind, 3);
        }
        ind = k.ind;
        const ContinuationReport r = continuation_step(x, 1.0, k.tol, k.ir, k.scal, c, ind);
        EXPECT_EQ(r.status, k.want) << k.ind << " " << k.tol << " " << k.ir << " " << k.scal;
        if (k.want != ContinuationStatus::ok) {
            EXPECT_EQ(ind, 0);
        }
    }
}

TEST(Continuation, InterleavedSearchesMatchSequentialRuns)
{
    auto f = [](double x) { return std::atan(x - 1.0); };
    auto g = [](double x) { return x * x - 3.0; };
    auto run = [](auto fn, double x0) {
        std::vector<double> asked;
        double x = x0, c[26];
        int ind = 1;
        continuation_step(x, 0.0, 1e-12, 0, 1e-3, c, ind);
        while (ind != 0) {
            asked.push_back(x);
            continuation_step(x, fn(x), 1e-12, 0, 1e-3, c, ind);
        }
        asked.push_back(x);
        return asked;
    };
    const auto sf = run(f, 4.0), sg = run(g, 5.0);
    double xf = 4.0, xg = 5.0, cf[26], cg[26];
    int indf = 1, indg = 1;
    std::vector<double> af, ag;
    continuation_step(xf, 0.0, 1e-12, 0, 1e-3, cf, indf);
    continuation_step(xg, 0.0, 1e-12, 0, 1e-3, cg, indg);
    while (indf != 0 || indg != 0) {
        if (indf != 0) {
            af.push_back(xf);
            continuation_step(xf, f(xf), 1e-12, 0, 1e-3, cf, indf);
        }
        if (indg != 0) {
            ag.push_back(xg);
            continuation_step(xg, g(xg), 1e-12, 0, 1e-3, cg, indg);
        }
    }
    af.push_back(xf);
    ag.push_back(xg);
    EXPECT_EQ(af, sf);
    EXPECT_EQ(ag, sg);
    EXPECT_LE(std::fabs(xf - 1.0), 2e-12);
    EXPECT_LE(std::fabs(xg - std::sqrt(3.0)), 4e-12);
}

} // namespace

namespace {

// A re-entry with an array the routine never filled must not crash: the
// continuation reports the IND error, the search and the bracketing engine
// return some request or finish.
TEST(DamagedState, ReentryWithAnUnfilledArray)
{
    using namespace lbx::roots;
    double cx[26];
    for (double& v : cx) {
        v = kNaN;
    }
    double x = 1.0;
    int ind = 4;
    ContinuationReport r = continuation_step(x, 1.0, 1e-8, 0, 1e-3, cx, ind);
    EXPECT_EQ(r.status, ContinuationStatus::ind_invalid);
    EXPECT_EQ(ind, 0);

    double cv[11];
    for (double& v : cv) {
        v = kNaN;
    }
    double y = 0.0;
    ind = 2;
    const SearchReport s = search_engine_step(x, 1.0, 1.0, -1.0, 1.0, y, cv, ind);
    EXPECT_TRUE(s.status == SearchStatus::ok || s.status == SearchStatus::no_sign_change);

    double cz[10];
    for (double& v : cz) {
        v = kNaN;
    }
    ind = 4;
    const ZeroReport z = zero_engine_step(x, y, 1.0, 1e-8, 1, cz, ind);
    EXPECT_TRUE(ind == 0 || ind == 4);
    (void)z;
}

} // namespace
