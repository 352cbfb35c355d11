// The zero finders through their traced entries: every catalogue message in
// its check order with the values it quotes, the outcomes at the edges of the
// engines (ends that are zeros, NaN and infinite ends, ETA, the pole test),
// the outward search's probes and re-entry with a damaged array.  Zeros of the
// test battery: test_roots_battery.cpp.
#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <functional>
#include <vector>

#include "gen/roots.hpp"
#include "lbx3207qk.h"
#include "tests/support/messages.hpp"

namespace {

using R = lbx::test::Raised;
using Fn = std::function<double(double)>;
using lbx::test::e;
using lbx::test::traced;

const double kNaN = std::nan(""), kInf = INFINITY;

// The user function of the direct routines, counting its calls; never
// called off the finite numbers.
Fn g_fn;
int g_calls = 0;
double g_x = 0;  // X at the end of the last awf or axf_run
double user(const double* x, int*, double*)
{
    ++g_calls;
    EXPECT_TRUE(std::isfinite(*x)) << *x;
    return g_fn(*x);
}
double older(const double* x)
{
    ++g_calls;
    EXPECT_TRUE(std::isfinite(*x)) << *x;
    return g_fn(*x);
}

const Fn sq2 = [](double x) { return x * x - 2.0; };
const Fn plus1 = [](double x) { return x * x + 1.0; };
const Fn pole = [](double x) { return 1.0 / (x - 0.3); };
const Fn expx = [](double x) { return std::exp(-x) - x; };
const Fn expm1 = [](double x) { return std::exp(x) - 1; };
Fn line(double z)
{
    return [z](double x) { return x - z; };
}
Fn atan_at(double z)
{
    return [z](double x) { return std::atan(x - z) + (x - z) * 1e-3; };
}
Fn nan_left(double s)
{
    return [s](double x) { return x < 0.5 ? kNaN : s * (x - 0.75); };
}

// After the call: F called evals times (-1: any) and X within err of want.
R expect_end(R r, double x, int evals, double want, double err)
{
    if (evals >= 0) {
        EXPECT_EQ(g_calls, evals);
    }
    if (!std::isnan(want)) {
        EXPECT_LE(std::fabs(x - want), err) << "X = " << x;
    }
    return r;
}

// One entry of C05AZF at X, Y (1 and 2 unless given) with f(Y) in C(1).
R azf(double fx, double c1, double tolx, int ir, int ind, double x = 1, double y = 2)
{
    double c[10] = {c1};
    const R r =
        traced([&](char* e, int* i) { c05azft_(&x, &y, &fx, &tolx, &ir, c, &ind, e, i, 200); });
    EXPECT_EQ(ind == 0, r.ifail != 0) << "IND " << ind;
    return r;
}

// C05AZF from IND = ind at X, Y (C(1) = c1) to the end, FX = f(X) on every
// entry (f may hand out a list of values); intermediate returns leave IFAIL
// = 0; after entry k the caller changes C, TOLX or Y (k = 0: after the entry
// that asks for the final value). A failing last entry of several leaves X
// and Y as they stood; X ends within 2 TOLX of want.
R azf_run(Fn f, double x, double y, double tolx, double want = kNaN, int ind = 1, double c1 = 0,
          int k = -1, std::function<void(double*, double&, double&)> change = nullptr)
{
    double fx = f(x), c[10] = {c1}, x_in = x, y_in = y;
    int ir = 1, ifail = 0, n = 0;
    char errbuf[200];
    do {
        x_in = x;
        y_in = y;
        c05azft_(&x, &y, &fx, &tolx, &ir, c, &ind, errbuf, &ifail, 200);
        EXPECT_TRUE(ind == 0 || ifail == 0);
        if (ind != 0)
            fx = f(x);
        if (++n == k || (k == 0 && c[9] == 1 && ind == 4)) {
            change(c, tolx, y);
            k = -1;
        }
    } while (ind != 0 && n < 10000);
    EXPECT_EQ(ind, 0);
    if (n > 1 && ifail != 0 && ifail != 4) {
        EXPECT_EQ(x, x_in);
        EXPECT_EQ(y, y_in);
    }
    return expect_end(lbx::test::split(errbuf, ifail), x, -1, want, 2 * tolx);
}

// The values v handed out one after another.
Fn values(std::vector<double> v)
{
    return [v, i = std::size_t(0)](double) mutable { return v.at(i++); };
}

// x^2 - 2 from X = 1, Y = 2, changed by the caller after entry k.
R azf_changed(double tolx, int k, std::function<void(double*, double&, double&)> change,
              double want = kNaN)
{
    return azf_run(sq2, 1, 2, tolx, want, 1, 0, k, change);
}

R ayf(Fn f, double a, double b, double eps, int evals = -1, double want = kNaN, double err = 0,
      double eta = 0)
{
    g_fn = f;
    g_calls = 0;
    double x = -99, ruser[1];
    int iuser[1];
    const R r = traced([&](char* e, int* i) {
        c05ayft_(&a, &b, &eps, &eta, user, c05ayf_fh_, &x, iuser, ruser, e, i, 200);
    });
    return expect_end(r, x, evals, want, err);
}

R adf(Fn f, double a, double b, double eps)
{
    g_fn = f;
    double x, eta = 0;
    return traced(
        [&](char* e, int* i) { c05adft_(&a, &b, &eps, &eta, older, c05adf_fh_, &x, e, i, 200); });
}

// C05AVF from IND = 1 to the end on f, at most 5000 entries, every point
// requested finite; after entry k the caller changes X or C (change(x, c)).
R avf_run(Fn f, double x, double h, double lo, double hi, int k = -1,
          std::function<void(double&, double*)> change = nullptr)
{
    double y = 0, fx = 0, c[11];
    int ind = 1, n = 0;
    return traced([&](char* e, int* i) {
        do {
            c05avft_(&x, &fx, &h, &lo, &hi, &y, c, &ind, e, i, 200);
            EXPECT_TRUE(std::isfinite(x)) << x;
            fx = f(x);
            if (++n == k)
                change(x, c);
        } while (ind != 0 && n < 5000);
        EXPECT_EQ(ind, 0);
    });
}

// One entry of C05AVF with f(X) = 1.
R avf(double x, double h, double lo, double hi, int ind = 1)
{
    double y = 0, fx = 1, c[11];
    const R r =
        traced([&](char* e, int* i) { c05avft_(&x, &fx, &h, &lo, &hi, &y, c, &ind, e, i, 200); });
    EXPECT_EQ(ind == 0, r.ifail != 0) << "IND " << ind;
    return r;
}

R auf(Fn f, double x, double h, double eps, int evals = -1, double want = kNaN, double err = 0)
{
    g_fn = f;
    g_calls = 0;
    double a, b, eta = 0, ruser[1];
    int iuser[1];
    const R r = traced([&](char* e, int* i) {
        c05auft_(&x, &h, &eps, &eta, user, c05auf_fh_, &a, &b, iuser, ruser, e, i, 200);
    });
    return expect_end(r, x, evals, want, err);
}

R agf(Fn f, double x, double h, double eps)
{
    g_fn = f;
    double a, b, eta = 0;
    return traced([&](char* e, int* i) {
        c05agft_(&x, &h, &eps, &eta, older, c05agf_fh_, &a, &b, e, i, 200);
    });
}

// One entry of C05AXF at X (1 unless given) with f(X) = 1.
R axf(double tol, double scal, int ir, int ind, double x = 1)
{
    double fx = 1, c[26] = {};
    const R r =
        traced([&](char* e, int* i) { c05axft_(&x, &fx, &tol, &ir, &scal, c, &ind, e, i, 200); });
    EXPECT_EQ(ind == 0, r.ifail != 0) << "IND " << ind;
    return r;
}

// C05AXF from IND = 1 at X = x0 to the end, at most 5000 entries; X never
// infinite. After entry k the caller changes X or C (change(x, c)).
R axf_run(Fn f, double x0 = 1, int k = -1, std::function<void(double&, double*)> change = nullptr)
{
    double x = x0, fx = 0, tol = 1e-10, scal = 1e-3, c[26];
    int ir = 0, ind = 1, ifail = 0, calls = 0;
    char errbuf[200];
    do {
        c05axft_(&x, &fx, &tol, &ir, &scal, c, &ind, errbuf, &ifail, 200);
        EXPECT_TRUE(std::isfinite(x));
        fx = f(x);
        if (calls + 1 == k)
            change(x, c);
    } while (ind != 0 && ++calls < 5000);
    EXPECT_EQ(ind, 0);
    g_x = x;
    return lbx::test::split(errbuf, ifail);
}

R awf(Fn f, double x, double eps, int nfmax, double want = kNaN, double err = 0, double eta = 0,
      int evals = -1)
{
    g_fn = f;
    g_calls = 0;
    double ruser[1];
    int iuser[1];
    const R r = traced([&](char* e, int* i) {
        c05awft_(&x, &eps, &eta, user, c05awf_fh_, &nfmax, iuser, ruser, e, i, 200);
    });
    g_x = x;
    return expect_end(r, x, evals, want, err);
}

R ajf(Fn f, double eps, int nfmax, double x = 1)
{
    g_fn = f;
    double eta = 0;
    return traced(
        [&](char* e, int* i) { c05ajft_(&x, &eps, &eta, older, c05ajf_fh_, &nfmax, e, i, 200); });
}

// The quoted X of a stalled continuation is the X returned, near the minimum of abs(f).
R stalled_at_returned_x(R r)
{
    const double x = g_x;
    if (r.values.empty())
        return r;
    EXPECT_NEAR(std::strtod(r.values.back().c_str(), nullptr), x, 1e-15 * std::fabs(x));
    EXPECT_LT(std::fabs(x), 1e-3);
    return r;
}

TEST(Roots, EveryMessageAndTheOutcomesAtTheEdges)
{
    using T = lbx::test::Trigger;
    const double up = std::nextafter(1.0, 2.0);
    lbx::test::check_catalogue(
        lbx::roots::catalogue_messages,
        {
            T{"C05AZF", "SAME_SIGN", [] { return azf(1, 3, 1e-8, 1, -1); }, {e(1), e(3)}},
            T{"C05AZF", "SAME_SIGN", [] { return azf(-1.5, 0, 1e-8, 1, -1); },
              {e(-1.5), e(0)}, "zero in C(1)"},
            T{"C05AZF", "SAME_SIGN", [] { return azf(kNaN, -1, 1e-8, 1, -1); },
              {e(kNaN), e(-1)}, "NaN is not positive"},
            // The set-up's exchange of X and Y stands on the same-sign failure.
            T{"C05AZF", "SAME_SIGN", [] { return azf_run(values({1}), 1, 2, 1e-8, 2, -1, 3); },
              {e(1), e(3)}, "IND = -1: X, Y exchanged"},
            T{"C05AZF", "SAME_SIGN", [] { return azf_run(values({0, 1, 3}), 1, 2, 1e-8, 2); },
              {e(1), e(3)}, "IND = 3: X, Y as they stood"},
            T{"C05AZF", "", [] { return azf(2, 0, 1e-8, 1, -1); }, {}, "f(X) > 0, f(Y) = 0"},
            T{"C05AZF", "", [] { return azf(kNaN, 1, 1e-8, 1, -1); }, {}, "NaN, f(Y) > 0"},
            T{"C05AZF", "IND_INVALID", [] { return azf(1, -1, 1e-8, 1, 0); }, {"0"}},
            T{"C05AZF", "IND_INVALID", [] { return azf(1, -1, -1, 9, 7); }, {"7"}, "before TOLX"},
            T{"C05AZF", "IND_INVALID", [] { return azf(1, -1, 0, 7, -2); }, {"-2"}},
            T{"C05AZF", "IND_INVALID", [] { return azf(1, -1, 1e-8, 1, 5); }, {"5"}},
            T{"C05AZF", "TOLX_NOT_POSITIVE", [] { return azf(1, -1, -2.5, 9, 4); },
              {e(-2.5)}, "before IR"},
            T{"C05AZF", "TOLX_NOT_POSITIVE", [] { return azf(1, -1, kNaN, 1, 4); }, {e(kNaN)}},
            T{"C05AZF", "IR_INVALID", [] { return azf(1, -1, 1e-8, -1, 4); }, {"-1"}},
            T{"C05AZF", "POINT_NOT_FINITE", [] { return azf(1, -1, 1e-8, 1, 1, kInf, 2); },
              {"Infinity", e(2)}, "never f(Inf)"},
            T{"C05AZF", "POINT_NOT_FINITE", [] { return azf(1, -1, 1e-8, 1, -1, 1, kNaN); },
              {e(1), e(kNaN)}},
            T{"C05AZF", "IR_INVALID", [] { return azf(1, -1, 1e-8, 3, 1, kNaN, 2); }, {"3"},
              "before X, Y"},
            T{"C05AZF", "POINT_NOT_FINITE",
              [] { return azf_changed(1e-8, 1, [](double*, double&, double& y) { y = -kInf; }); },
              {e(1), "-Infinity"}, "Y changed before IND = 2"},
            // a and c of one sign: no bracket left to converge in.
            T{"C05AZF", "STATE_CHANGED",
              [] { return azf_changed(1e-8, 3, [](double* c, double&, double&) {
                       c[6] = 1.1, c[7] = -0.79, c[2] = 1.2, c[1] = -0.56;
                   }); },
              {"4"}},
            T{"C05AZF", "STATE_CHANGED",
              [] { return azf_changed(1e-8, 3, [](double* c, double&, double&) { c[9] = 0.5; }); },
              {"4"}},
            // The final entry checks the convergence again.
            T{"C05AZF", "",
              [] { return azf_changed(1e-8, 3, [](double* c, double&, double&) { c[9] = 1; }, std::sqrt(2)); },
              {}, "C(10) set before convergence"},
            T{"C05AZF", "",
              [] { return azf_changed(1e-3, 0, [](double*, double& tolx, double&) { tolx = 1e-13; }, std::sqrt(2)); },
              {}, "TOLX made smaller before the final entry"},
            T{"C05AZF", "", [] { return azf(1, -1, 1e-8, 0, 3); }, {}, "IR = 0"},
            T{"C05AZF", "POLE", [] { return azf_run(pole, 0, 1, 1e-10); }},
            T{"C05AZF", "TOLX_TOO_SMALL", [] { return azf_run(sq2, 1, 2, 1e-300); }, {e(1e-300)}},
            T{"C05AZF", "",
              [] { return azf_run([](double x) { return x > 0.3 && x < 0.35 ? kNaN : x - 0.5; },
                                  0, 1, 1e-10, 0.5); },
              {}, "NaN inside the bracket"},
            // The pole test: the last abs(f) against the larger of the first two.
            T{"C05AZF", "", [] { return azf_run(values({0, -1, 1, 0.5, 1.0}), 0, 1, 0.25); }, {}, "equal: no pole"},
            T{"C05AZF", "POLE", [=] { return azf_run(values({0, -1, 1, 0.5, up}), 0, 1, 0.25); }, {}, "above"},
            T{"C05AYF", "EPS_NOT_POSITIVE", [] { return ayf(sq2, 1, 1, 0, 0); },
              {e(0)}, "before A = B"},
            T{"C05AYF", "EPS_NOT_POSITIVE", [] { return ayf(sq2, 1, 1, kNaN, 0); }, {e(kNaN)}},
            T{"C05AYF", "A_EQUALS_B", [] { return ayf(sq2, 1.5, 1.5, 1e-6, 0); }, {e(1.5), e(1.5)}},
            T{"C05AYF", "SAME_SIGN", [] { return ayf(sq2, 2, 3, 1e-6, 2); }, {e(2), e(7)}},
            T{"C05AYF", "SAME_SIGN", [] { return ayf(nan_left(-1), 0, 2, 1e-10, 2); },
              {e(kNaN), e(-1.25)}, "NaN at A, - at B"},
            T{"C05AYF", "", [] { return ayf(nan_left(1), 0, 2, 1e-10, -1, 0.75, 2e-10); }},
            T{"C05AYF", "EPS_TOO_SMALL", [] { return ayf(sq2, 1, 2, 1e-300); }, {e(1e-300)}},
            // Never F at a point off the finite numbers.
            T{"C05AYF", "END_NOT_FINITE", [] { return ayf(atan_at(0.5), kNaN, 1, 1e-10, 0); },
              {e(kNaN), e(1)}},
            T{"C05AYF", "END_NOT_FINITE", [] { return ayf(atan_at(0.5), -kInf, 1, 1e-10, 0); }},
            T{"C05AYF", "END_NOT_FINITE", [] { return ayf(atan_at(0.5), 0, kInf, 1e-10, 0); },
              {e(0), "Infinity"}},
            T{"C05AYF", "A_EQUALS_B", [] { return ayf(atan_at(0.5), kInf, kInf, 1e-10, 0); }},
            T{"C05AYF", "POLE", [] { return ayf(pole, 0, 1, 1e-10); }},
            T{"C05AYF", "", [] { return ayf(line(1), 1, 3, 1e-8, 1, 1); }, {}, "zero at A"},
            T{"C05AYF", "", [] { return ayf(line(3), 1, 3, 1e-8, 2, 3); }, {}, "zero at B"},
            T{"C05AYF", "", [] { return ayf(line(1), 3, 1, 1e-8, 2, 1); }, {}, "B < A"},
            T{"C05AYF", "", [] { return ayf(line(1), 1, 1 + 0x1p-52, 1e-8, 1, 1); }, {}, "A first"},
            T{"C05AYF", "", [] { return ayf(line(1.1), 1, 3, 1e-8, 1, 1, 0, 0.2); }, {}, "ETA at A"},
            T{"C05AYF", "", [] { return ayf(line(2.9), 1, 3, 1e-8, 2, 3, 0, 0.2); }, {}, "at B"},
            T{"C05AYF", "", [] { return ayf(line(1.25), 1, 3, 1e-8, -1, 1.25, 0, 0.25); }, {},
              "abs(f) = ETA is not accepted"},
            T{"C05ADF", "EPS_NOT_POSITIVE", [] { return adf(sq2, 1, 1, 0); }},
            T{"C05ADF", "A_EQUALS_B", [] { return adf(sq2, 1.5, 1.5, 1e-6); }},
            T{"C05ADF", "SAME_SIGN", [] { return adf(sq2, 2, 3, 1e-6); }, {e(2), e(7)}},
            T{"C05ADF", "EPS_TOO_SMALL", [] { return adf(sq2, 1, 2, 1e-300); }},
            T{"C05ADF", "POLE", [] { return adf(pole, 0, 1, 1e-10); }},
            T{"C05ADF", "END_NOT_FINITE", [] { return adf(sq2, 1, kNaN, 1e-6); }},
            T{"C05AVF", "BOUNDS_ORDER", [] { return avf(3, 0, 2, 2); }, {e(2), e(2)}, "before X, H"},
            T{"C05AVF", "BOUNDS_ORDER", [] { return avf(0, 1, 2, 1); }, {e(2), e(1)}},
            T{"C05AVF", "X_OUTSIDE", [] { return avf(3, 0, -1, 2); },
              {e(3), e(-1), e(2)}, "before H"},
            T{"C05AVF", "H_TOO_SMALL", [] { return avf(0, 0, -1, 1); }, {e(0), e(0)}},
            T{"C05AVF", "H_TOO_SMALL", [] { return avf(1e20, 1, 0, 1e21, -1); }, {e(1e+20), e(1)}},
            T{"C05AVF", "BOTH_OUTSIDE", [] { return avf(0, 5, -1, 2); }, {e(0), e(5), e(-1), e(2)}},
            T{"C05AVF", "BOTH_OUTSIDE", [] { return avf(0, 2, -1, 1); }},
            T{"C05AVF", "", [] { return avf(0, 1, -1, 1); }, {}, "X+H on a bound"},
            T{"C05AVF", "", [] { return avf(0, 1, -0.5, 1); }, {}, "X+H on BOUNDU, X-H outside"},
            T{"C05AVF", "", [] { return avf(-1, 1, -1, 1); }, {}, "X on BOUNDL"},
            T{"C05AVF", "", [] { return avf(0, -2, -1, 2); }, {}, "X-H on BOUNDU"},
            T{"C05AVF", "IND_INVALID", [] { return avf(0, 1, -1, 2, 3); }, {"3"}},
            T{"C05AVF", "IND_INVALID", [] { return avf(0, 1, -1, 2, 0); }, {"0"}},
            T{"C05AVF", "NO_SIGN_CHANGE", [] { return avf_run(plus1, 0, 1, -3, 5); }, {e(-3), e(5)}},
            // Bounds beyond the finite numbers: the probes stop at +-huge.
            T{"C05AVF", "NO_SIGN_CHANGE", [] { return avf_run(plus1, 0, 1, -kInf, kInf); },
              {e(-DBL_MAX), e(DBL_MAX)}},
            T{"C05AVF", "",
              [] { return avf_run([](double x) { return x - 1e300; }, 1e-300, 1e-300, 0, kInf); },
              {}, "from 1e-300 to beyond 1e300"},
            // X is not read on re-entry: the search goes on at the point requested.
            T{"C05AVF", "",
              [] { return avf_run(line(5.5), 0, 1, -10, 10, 2, [](double& x, double*) { x = kNaN; }); },
              {}, "X changed"},
            T{"C05AVF", "STATE_CHANGED",
              [] { return avf_run(line(5.5), 0, 1, -10, 10, 2, [](double&, double* c) { c[10] = 0.5; }); },
              {"2"}},
            T{"C05AVF", "STATE_CHANGED",
              [] { return avf_run(line(5.5), 0, 1, -10, 10, 3, [](double&, double* c) { c[6] = kNaN; }); },
              {"2"}, "a NaN probe"},
            T{"C05AVF", "STATE_CHANGED",
              [] { return avf_run(line(5.5), 0, 1, -10, 10, 3, [](double&, double* c) { c[0] = 20; }); },
              {"2"}, "the point requested beyond BOUNDU"},
            T{"C05AUF", "EPS_NOT_POSITIVE", [] { return auf(sq2, 1, 0, -1); }, {e(-1)}, "before H"},
            T{"C05AUF", "EPS_NOT_POSITIVE", [] { return auf(sq2, 1, 0.1, 0); }},
            T{"C05AUF", "H_TOO_SMALL", [] { return auf(sq2, 1, 1e-17, 1e-6); }, {e(1), e(1e-17)}},
            // Nothing within 11 doublings each side: 23 calls, X left as given.
            T{"C05AUF", "NO_SIGN_CHANGE", [] { return auf(plus1, 1, 0.5, 1e-6, 23, 1); },
              {e(-511), e(513)}},
            T{"C05AUF", "EPS_TOO_SMALL", [] { return auf(sq2, 1, 0.1, 1e-300); }},
            // X + 1024 H beyond the largest finite value: F is never called at Inf.
            T{"C05AUF", "NO_SIGN_CHANGE", [] { return auf(plus1, 1e308, 1e306, 1e-6, -1, 1e308); },
              {e(-DBL_MAX), e(DBL_MAX)}},
            T{"C05AUF", "POLE", [] { return auf(pole, 0.25, 0.5, 1e-10); }},
            T{"C05AUF", "",
              [] { return auf([](double x) { return x * x * x - 2 * x - 5; }, 1, 0.1, 1e-12, -1,
                              2.094551481542326591, 2e-12); }},
            T{"C05AGF", "EPS_NOT_POSITIVE", [] { return agf(sq2, 1, 0, -1); }},
            T{"C05AGF", "H_TOO_SMALL", [] { return agf(sq2, 1, 1e-17, 1e-6); }},
            T{"C05AGF", "NO_SIGN_CHANGE", [] { return agf(plus1, 1, 0.5, 1e-6); },
              {e(-511), e(513)}},
            T{"C05AGF", "EPS_TOO_SMALL", [] { return agf(sq2, 1, 0.1, 1e-300); }},
            T{"C05AGF", "POLE", [] { return agf(pole, 0.25, 0.5, 1e-10); }},
            T{"C05AXF", "IND_INVALID", [] { return axf(1e-8, 1e-3, 1, 6); }, {"6"}},
            T{"C05AXF", "IND_INVALID", [] { return axf(0, 0, 9, -3); }, {"-3"}, "before TOL"},
            T{"C05AXF", "IND_INVALID", [] { return axf(1e-8, 1e-3, 1, 0); }, {"0"}},
            T{"C05AXF", "TOL_NOT_POSITIVE", [] { return axf(-1, 0, 9, 1); }, {e(-1)}, "before IR"},
            T{"C05AXF", "TOL_NOT_POSITIVE", [] { return axf(0, 1e-3, 1, 1); }},
            T{"C05AXF", "IR_INVALID", [] { return axf(1e-8, 0, 3, 1); }, {"3"}, "before SCAL"},
            T{"C05AXF", "SCAL_TOO_SMALL", [] { return axf(1e-8, 1e-17, 1, -1); }, {e(1), e(1e-17)}},
            T{"C05AXF", "SCAL_TOO_SMALL", [] { return axf(1e-8, 0, 1, 1); }},
            T{"C05AXF", "SCAL_TOO_SMALL", [] { return axf(1e-8, 1e-3, 1, 1, kNaN); },
              {"NaN", e(1e-3)}, "X not finite"},
            T{"C05AXF", "SCAL_TOO_SMALL", [] { return axf(1e-8, DBL_MAX, 1, -1, DBL_MAX); },
              {e(DBL_MAX), e(DBL_MAX)}, "X+SCAL overflows"},
            // No zero, abs(f) falling to a floor: f(x)/f(x0) underflows, the walk ends.
            T{"C05AXF", "NO_PROGRESS",
              [] { return axf_run([](double x) { return std::exp(x) + 4.9e-324; }); }},
            T{"C05AXF", "NO_PROGRESS",
              [] { return axf_run([](double x) { return std::exp(x) + 1e-20; }, 700); }},
            // The cap on values in the continuation phase (C(21) counts them).
            T{"C05AXF", "NO_PROGRESS",
              [] { return axf_run(expm1, 10, 4, [](double&, double* c) { c[20] = 4095; }); }},
            // X is not read on re-entry.
            T{"C05AXF", "",
              [] { return axf_run(expm1, 10, 4, [](double& x, double*) { x = kNaN; }); }},
            T{"C05AXF", "STATE_CHANGED",
              [] { return axf_run(expm1, 10, 4, [](double&, double* c) { c[16] = kNaN; }); },
              {"4"}, "NaN difference quotient"},
            T{"C05AXF", "STATE_CHANGED",
              [] { return axf_run(expm1, 10, 4, [](double&, double* c) { c[17] = kInf; }); },
              {"4"}, "infinite rho"},
            T{"C05AXF", "STATE_CHANGED",
              [] { return axf_run(sq2, 1, 4, [](double&, double* c) { c[9] = 1; }); },
              {"4"}, "C(10) set while bracketing"},
            T{"C05AXF", "", [] { return axf(1e-8, 1e-3, 2, 1); }, {}, "IR = 2"},
            T{"C05AXF", "NO_PROGRESS", [] { return stalled_at_returned_x(axf_run(plus1)); }},
            // 1/x: every step doubles X; never a request at an infinite point.
            T{"C05AXF", "NO_PROGRESS", [] { return axf_run([](double x) { return 1 / x; }); }},
            T{"C05AXF", "ZERO_DERIVATIVE", [] { return axf_run([](double) { return 4.0; }); },
              {e(1)}},
            // IND must be the value returned last.
            T{"C05AXF", "IND_INVALID",
              [] {
                  double x = 1, fx = 0, tol = 1e-8, scal = 1e-3, c[26] = {};
                  int ir = 1, ind = 1;
                  return traced([&](char* e, int* i) {
                      c05axft_(&x, &fx, &tol, &ir, &scal, c, &ind, e, i, 200);
                      fx = 2;
                      c05axft_(&x, &fx, &tol, &ir, &scal, c, &ind, e, i, 200);
                      EXPECT_EQ(ind, 3);
                      ind = 2;
                      c05axft_(&x, &fx, &tol, &ir, &scal, c, &ind, e, i, 200);
                  });
              },
              {"2"}},
            T{"C05AWF", "EPS_NOT_POSITIVE", [] { return awf(expx, 1, 0, 0); },
              {e(0)}, "before NFMAX"},
            T{"C05AWF", "NFMAX_NOT_POSITIVE", [] { return awf(expx, 1, 1e-8, -4); }, {"-4"}},
            T{"C05AWF", "NFMAX_NOT_POSITIVE", [] { return awf(expx, 1, 1e-8, 0); }, {"0"}},
            T{"C05AWF", "X_NOT_FINITE", [] { return awf(expx, kNaN, 1e-8, 10, kNaN, 0, 0, 0); },
              {"NaN"}},
            T{"C05AWF", "TOO_MANY_CALLS", [] { return awf(expx, 1, 1e-12, 3, kNaN, 0, 0, 3); },
              {"3"}},
            T{"C05AWF", "NO_PROGRESS",
              [] { return stalled_at_returned_x(awf(plus1, 1, 1e-10, 200)); }},
            T{"C05AWF", "NO_PROGRESS", [] { return awf([](double) { return 1.0; }, 1, 1e-12, 500,
                                                       kNaN, 0, 0, 2); }, {}, "constant F"},
            T{"C05AWF", "", [] { return awf(expx, 1, 1e-12, 500, 0.5671432904097838730, 4e-12); }},
            T{"C05AWF", "", [] { return awf([](double x) { return std::atan(x); }, 3, 1e-12, 500,
                                            0, 4e-12); }, {}, "atan, where Newton diverges"},
            T{"C05AWF", "", [] { return awf([](double x) { return (x - 1) * (x - 1); }, 3, 1e-6,
                                            500, 1, 4e-6); }, {}, "double zero"},
            T{"C05AWF", "", [] { return awf(line(0.5), 0.6, 1e-12, 500, 0.6, 0, 0.2, 1); }, {},
              "ETA accepts the first value below it"},
            T{"C05AJF", "EPS_NOT_POSITIVE", [] { return ajf(expx, 0, 0); }},
            T{"C05AJF", "NFMAX_NOT_POSITIVE", [] { return ajf(expx, 1e-8, 0); }, {"0"}},
            T{"C05AJF", "TOO_MANY_CALLS", [] { return ajf(expx, 1e-12, 3); }, {"3"}},
            T{"C05AJF", "NO_PROGRESS", [] { return ajf(plus1, 1e-10, 200); }},
            T{"C05AJF", "X_NOT_FINITE", [] { return ajf(expx, 1e-8, 10, -kInf); }, {"-Infinity"}},
            // From the largest double: the first difference step points inward.
            T{"C05AJF", "", [] { return ajf(line(1), 1e-10, 50, DBL_MAX); }},
        });
}

// C05AVF's probes double in length, alternate sides (H's side first) and are
// clamped to the bounds; C05AZF continues with IND = -1 and the same array.
TEST(Roots, OutwardSearchProbes)
{
    struct Case {
        double zero, x0, h, lo, hi;
        std::vector<double> probes;
        double x, y;
    } cases[] = {
        {5.5, 0, 1, -10, 10, {0, 1, -1, 2, -2, 4, -4, 8}, 8, 4},
        {9.5, 0, 1, -10, 10, {0, 1, -1, 2, -2, 4, -4, 8, -8, 10}, 10, 8},
        {-3, 0, 1, -10, 10, {0, 1, -1, 2, -2, 4, -4}, -4, -2},
        {-3, 0, -1, -10, 10, {0, -1, 1, -2, 2, -4}, -4, -2},
        {1.5, 5, 1, -3, 5, {5, 4, 3, 1}, 1, 3},  // X on the upper bound: one side only
        {2, 2, 1, -3, 5, {2}, 2, 2},             // a zero at the start
    };
    for (const Case& k : cases) {
        double x = k.x0, y = 0, fx = 0, c[11], tolx = 1e-12;
        int ind = 1, ifail = 1, ir = 1;
        std::vector<double> asked;
        c05avf_(&x, &fx, &k.h, &k.lo, &k.hi, &y, c, &ind, &ifail);
        while (ind != 0) {
            asked.push_back(x);
            fx = x - k.zero;
            c05avf_(&x, &fx, &k.h, &k.lo, &k.hi, &y, c, &ind, &ifail);
        }
        EXPECT_EQ(ifail, 0);
        EXPECT_EQ(asked, k.probes) << k.zero;
        EXPECT_EQ(x, k.x);
        EXPECT_EQ(y, k.y);
        EXPECT_EQ(c[0], y - k.zero);  // C(1) = f(Y)
        for (ind = x != y ? -1 : 0; ind != 0; fx = x - k.zero)
            c05azf_(&x, &y, &fx, &tolx, &ir, c, &ind, &ifail);
        EXPECT_EQ(fx, 0.0) << k.zero;
    }
}

// Re-entry with an array the routine never filled must not crash.
TEST(Roots, ReentryWithAnUnfilledArray)
{
    double c[26], x = 1, y = 0, fx = 1, tol = 1e-8, scal = 1e-3, h = 1, lo = -1, hi = 1;
    std::fill(c, c + 26, kNaN);
    int ind = 4, ir = 0, ifail = 1;
    c05axf_(&x, &fx, &tol, &ir, &scal, c, &ind, &ifail);
    EXPECT_EQ(ifail, lbx::roots::C05AXF_msg::IND_INVALID.ifail);
    ind = 2;
    c05avf_(&x, &fx, &h, &lo, &hi, &y, c, &ind, &ifail);
    std::fill(c, c + 26, kNaN);
    ind = 4;
    c05azf_(&x, &y, &fx, &tol, &ir, c, &ind, &ifail);
    EXPECT_TRUE(ind == 0 || ind == 4);
}

}  // namespace
