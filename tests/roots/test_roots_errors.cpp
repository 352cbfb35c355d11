// Every message of the zero finders, triggered once through the traced
// entries: error number, message code and the values quoted, read back from
// the coded message in ERRBUF with the frame's splitter. (The record texts
// themselves are checked from Fortran: tests/fortran/roots_messages.f90.)
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <string>
#include <vector>

#include "frame/errors.hpp"
#include "lbx3207qk.h"

namespace {

const double kNaN = std::nan("");

struct Coded {
    int ifail = 0;
    int code = 0;
    std::vector<std::string> values;
};

Coded split(const char* errbuf, int ifail)
{
    int code = 0, status = 0;
    char fields[lbx::frame::max_fields][lbx::frame::field_length];
    lbx::frame::P01ABTN(errbuf, code, fields, status);
    EXPECT_EQ(status, 0);
    Coded c;
    c.ifail = ifail;
    c.code = code;
    const int k = std::atoi(std::string(fields[2], lbx::frame::field_length).c_str());
    for (int i = 0; i < k; ++i) {
        std::string v(fields[3 + i], lbx::frame::field_length);
        v.erase(v.find_last_not_of(' ') + 1);
        c.values.push_back(v);
    }
    return c;
}

// A case: the expected error number, code and values (reals compared to 15
// significant digits, integers exactly).
struct Expect {
    int ifail, code;
    std::vector<double> values;
};

void check(const Coded& got, const Expect& want, const std::string& what)
{
    EXPECT_EQ(got.ifail, want.ifail) << what;
    EXPECT_EQ(got.code, want.code) << what;
    ASSERT_EQ(got.values.size(), want.values.size()) << what;
    for (size_t i = 0; i < want.values.size(); ++i) {
        const double v = std::strtod(got.values[i].c_str(), nullptr);
        if (std::isnan(want.values[i])) {
            EXPECT_TRUE(std::isnan(v))
                << what << " value " << i + 1 << " '" << got.values[i] << "'";
        } else {
            EXPECT_NEAR(v, want.values[i], 1e-15 * std::fabs(want.values[i]))
                << what << " value " << i + 1;
        }
    }
}

double pole_f(const double* x, int* iuser, double*)
{
    ++iuser[0];
    return 1.0 / (*x - 0.3);
}
double sq2_f(const double* x, int* iuser, double*)
{
    ++iuser[0];
    return *x * *x - 2.0;
}
double plus_f(const double* x, int* iuser, double*)
{
    ++iuser[0];
    return *x * *x + 1.0;
}
double pole_old(const double* x)
{
    return 1.0 / (*x - 0.3);
}
double sq2_old(const double* x)
{
    return *x * *x - 2.0;
}
double plus_old(const double* x)
{
    return *x * *x + 1.0;
}
double exp_f(const double* x, int* iuser, double*)
{
    ++iuser[0];
    return std::exp(-*x) - *x;
}
double exp_old(const double* x)
{
    return std::exp(-*x) - *x;
}
double nanleft_f(const double* x, int* iuser, double*)
{
    ++iuser[0];
    return *x < 0.5 ? kNaN : 0.75 - *x;
}
double nanleft_old(const double* x)
{
    return *x < 0.5 ? kNaN : 0.75 - *x;
}

// Drives C05AZFT from IND = 1 to the end.
Coded run_c05azf(double (*f)(double), double x, double y, double tolx, int ir)
{
    char errbuf[200];
    double c[10], fx = 0.0;
    int ind = 1, ifail = -1;
    do {
        c05azft_(&x, &y, &fx, &tolx, &ir, c, &ind, errbuf, &ifail, 200);
        if (ind != 0) {
            EXPECT_EQ(ifail, 0) << "intermediate return";
            fx = f(x);
        }
    } while (ind != 0);
    if (ifail == 0) {
        return Coded{};
    }
    return split(errbuf, ifail);
}

TEST(RootsErrors, C05AZF)
{
    char errbuf[200];
    struct Case {
        const char* what;
        double fx, c1, tolx;
        int ir, ind;
        Expect want;
    };
    const Case cases[] = {
        {"same sign", 1.0, 3.0, 1e-8, 1, -1, {1, 1001, {1.0, 3.0}}},
        {"same sign, zero in C(1)", -1.5, 0.0, 1e-8, 1, -1, {1, 1001, {-1.5, 0.0}}},
        {"IND = 0", 1.0, -1.0, 1e-8, 1, 0, {2, 1002, {0}}},
        {"IND = 7 before TOLX", 1.0, -1.0, -1.0, 9, 7, {2, 1002, {7}}},
        {"TOLX before IR", 1.0, -1.0, -2.5, 9, 4, {3, 1003, {-2.5}}},
        {"same sign, both negative", -1.0, -2.0, 1e-8, 1, -1, {1, 1001, {-1.0, -2.0}}},
        {"NaN FX counts as non-positive", kNaN, -1.0, 1e-8, 1, -1, {1, 1001, {kNaN, -1.0}}},
        {"FX > 0, zero in C(1): a sign change", 2.0, 0.0, 1e-8, 1, -1, {0, 0, {}}},
        {"NaN FX, C(1) > 0: a sign change", kNaN, 1.0, 1e-8, 1, -1, {0, 0, {}}},
        {"FX < 0, C(1) > 0: a sign change", -1.0, 2.0, 1e-8, 1, -1, {0, 0, {}}},
        {"IND = 5", 1.0, -1.0, 1e-8, 1, 5, {2, 1002, {5}}},
        {"IND = -2 before TOLX and IR", 1.0, -1.0, 0.0, 7, -2, {2, 1002, {-2}}},
        {"TOLX = 0 on a later entry", 1.0, -1.0, 0.0, 1, 4, {3, 1003, {0.0}}},
        {"TOLX NaN", 1.0, -1.0, kNaN, 1, 4, {3, 1003, {kNaN}}},
        {"IR = -1 on a later entry", 1.0, -1.0, 1e-8, -1, 4, {3, 1004, {-1}}},
        {"IND = 3, IR = 0 accepted", 1.0, -1.0, 1e-8, 0, 3, {0, 0, {}}},
    };
    for (const Case& k : cases) {
        double x = 1.0, y = 2.0, c[10] = {};
        c[0] = k.c1;
        int ind = k.ind, ifail = -1;
        c05azft_(&x, &y, &k.fx, &k.tolx, &k.ir, c, &ind, errbuf, &ifail, 200);
        if (k.want.ifail == 0) {
            EXPECT_EQ(ifail, 0) << k.what;
            EXPECT_NE(ind, 0) << k.what;
            continue;
        }
        EXPECT_EQ(ind, 0) << k.what;
        check(split(errbuf, ifail), k.want, k.what);
    }
    check(run_c05azf([](double x) { return 1.0 / (x - 0.3); }, 0.0, 1.0, 1e-10, 1), {4, 1005, {}},
          "pole");
    check(run_c05azf([](double x) { return x * x - 2.0; }, 1.0, 2.0, 1e-300, 1),
          {5, 1006, {1e-300}}, "TOLX too small");
    // Success clears the indicator.
    const Coded ok = run_c05azf([](double x) { return x * x - 2.0; }, 1.0, 2.0, 1e-10, 0);
    EXPECT_EQ(ok.ifail, 0);
}

TEST(RootsErrors, C05AZFPlainEntryIsQuietOnIntermediateReturns)
{
    double x = 1.0, y = 2.0, fx = 0.0, tolx = 1e-10, c[10];
    int ir = 1, ind = 1, ifail = 0;  // hard failure mode: must never be needed
    int steps = 0;
    do {
        c05azf_(&x, &y, &fx, &tolx, &ir, c, &ind, &ifail);
        EXPECT_EQ(ifail, 0);
        fx = x * x - 2.0;
        ++steps;
    } while (ind != 0);
    EXPECT_LE(std::fabs(x - std::sqrt(2.0)), 2e-10);
    int bad = 7;
    ifail = 1;
    c05azf_(&x, &y, &fx, &tolx, &ir, c, &bad, &ifail);
    EXPECT_EQ(ifail, 2);
    EXPECT_EQ(bad, 0);
}

TEST(RootsErrors, C05AYFAndC05ADF)
{
    struct Case {
        const char* what;
        double a, b, eps;
        lbx_c05ayf_f f;
        lbx_c05adf_f g;
        Expect want;
        int evals;
    };
    const Case cases[] = {
        {"EPS before A = B", 1.0, 1.0, 0.0, sq2_f, sq2_old, {1, 1001, {0.0}}, 0},
        {"EPS NaN", 1.0, 1.0, kNaN, sq2_f, sq2_old, {1, 1001, {kNaN}}, 0},
        {"NaN at A counts as non-positive",
         0.0,
         2.0,
         1e-10,
         nanleft_f,
         nanleft_old,
         {1, 1003, {kNaN, -1.25}},
         2},
        {"A = B", 1.5, 1.5, 1e-6, sq2_f, sq2_old, {1, 1002, {1.5, 1.5}}, 0},
        {"same sign", 2.0, 3.0, 1e-6, sq2_f, sq2_old, {1, 1003, {2.0, 7.0}}, 2},
        {"EPS too small", 1.0, 2.0, 1e-300, sq2_f, sq2_old, {2, 1004, {1e-300}}, -1},
        {"pole", 0.0, 1.0, 1e-10, pole_f, pole_old, {3, 1005, {}}, -1},
    };
    for (const Case& k : cases) {
        char errbuf[200];
        int iuser[1] = {0};
        double ruser[1], x = -5.0, eta = 0.0;
        int ifail = -1;
        c05ayft_(&k.a, &k.b, &k.eps, &eta, k.f, c05ayf_fh_, &x, iuser, ruser, errbuf, &ifail, 200);
        check(split(errbuf, ifail), k.want, std::string("C05AYF ") + k.what);
        if (k.evals >= 0) {
            EXPECT_EQ(iuser[0], k.evals) << k.what;
        }
        ifail = -1;
        double x2 = -5.0;
        c05adft_(&k.a, &k.b, &k.eps, &eta, k.g, c05adf_fh_, &x2, errbuf, &ifail, 200);
        check(split(errbuf, ifail), k.want, std::string("C05ADF ") + k.what);
        // Plain entries, quiet soft failure.
        ifail = 1;
        iuser[0] = 0;
        c05ayf_(&k.a, &k.b, &k.eps, &eta, k.f, &x, iuser, ruser, &ifail);
        EXPECT_EQ(ifail, k.want.ifail) << k.what;
    }
}

TEST(RootsErrors, C05AVF)
{
    struct Case {
        const char* what;
        double x, h, lo, hi;
        int ind;
        Expect want;
    };
    const Case cases[] = {
        {"bounds equal, before X and H", 3.0, 0.0, 2.0, 2.0, 1, {1, 1001, {2.0, 2.0}}},
        {"bounds reversed", 0.0, 1.0, 2.0, 1.0, 1, {1, 1001, {2.0, 1.0}}},
        {"X outside, before H", 3.0, 0.0, -1.0, 2.0, 1, {1, 1002, {3.0, -1.0, 2.0}}},
        {"H = 0", 0.0, 0.0, -1.0, 1.0, 1, {1, 1003, {0.0, 0.0}}},
        {"X+H = X", 1e20, 1.0, 0.0, 1e21, -1, {1, 1003, {1e20, 1.0}}},
        {"both outside", 0.0, 5.0, -1.0, 2.0, 1, {1, 1004, {0.0, 5.0, -1.0, 2.0}}},
        {"both outside, H = 2", 0.0, 2.0, -1.0, 1.0, 1, {1, 1004, {0.0, 2.0, -1.0, 1.0}}},
        {"IND", 0.0, 1.0, -1.0, 2.0, 3, {2, 1005, {3}}},
        {"IND = 0", 0.0, 1.0, -1.0, 2.0, 0, {2, 1005, {0}}},
        {"X+H on a bound", 0.0, 1.0, -1.0, 1.0, 1, {0, 0, {}}},
        {"X-H inside", 0.5, 1.0, -1.0, 1.0, 1, {0, 0, {}}},
        {"X on the lower bound", -1.0, 1.0, -1.0, 1.0, 1, {0, 0, {}}},
        {"X-H on the upper bound, X+H outside", 0.0, -2.0, -1.0, 2.0, 1, {0, 0, {}}},
    };
    for (const Case& k : cases) {
        char errbuf[200];
        double x = k.x, y = 0.0, fx = 1.0, c[11];
        int ind = k.ind, ifail = -1;
        c05avft_(&x, &fx, &k.h, &k.lo, &k.hi, &y, c, &ind, errbuf, &ifail, 200);
        if (k.want.ifail == 0) {
            EXPECT_EQ(ifail, 0) << k.what;
            EXPECT_NE(ind, 0) << k.what;
            continue;
        }
        EXPECT_EQ(ind, 0) << k.what;
        check(split(errbuf, ifail), k.want, k.what);
    }
    // No sign change up to both bounds.
    char errbuf[200];
    double x = 0.0, y = 0.0, fx = 0.0, h = 1.0, lo = -3.0, hi = 5.0, c[11];
    int ind = 1, ifail = -1;
    do {
        c05avft_(&x, &fx, &h, &lo, &hi, &y, c, &ind, errbuf, &ifail, 200);
        fx = x * x + 1.0;
    } while (ind != 0);
    check(split(errbuf, ifail), {3, 1006, {-3.0, 5.0}}, "no sign change");
}

TEST(RootsErrors, C05AUFAndC05AGF)
{
    struct Case {
        const char* what;
        double x, h, eps;
        lbx_c05auf_f f;
        lbx_c05agf_f g;
        Expect want;
    };
    const Case cases[] = {
        {"EPS before H", 1.0, 0.0, -1.0, sq2_f, sq2_old, {1, 1001, {-1.0}}},
        {"EPS = 0", 1.0, 0.1, 0.0, sq2_f, sq2_old, {1, 1001, {0.0}}},
        {"X+H = X", 1.0, 1e-17, 1e-6, sq2_f, sq2_old, {1, 1002, {1.0, 1e-17}}},
        {"no sign change", 1.0, 0.5, 1e-6, plus_f, plus_old, {2, 1003, {-511.0, 513.0}}},
        {"EPS too small", 1.0, 0.1, 1e-300, sq2_f, sq2_old, {3, 1004, {1e-300}}},
        {"pole", 0.25, 0.5, 1e-10, pole_f, pole_old, {4, 1005, {}}},
    };
    for (const Case& k : cases) {
        char errbuf[200];
        int iuser[1] = {0};
        double ruser[1], x = k.x, a = 0, b = 0, eta = 0.0;
        int ifail = -1;
        c05auft_(&x, &k.h, &k.eps, &eta, k.f, c05auf_fh_, &a, &b, iuser, ruser, errbuf, &ifail,
                 200);
        check(split(errbuf, ifail), k.want, std::string("C05AUF ") + k.what);
        x = k.x;
        ifail = -1;
        c05agft_(&x, &k.h, &k.eps, &eta, k.g, c05agf_fh_, &a, &b, errbuf, &ifail, 200);
        check(split(errbuf, ifail), k.want, std::string("C05AGF ") + k.what);
    }
}

TEST(RootsErrors, C05AXF)
{
    struct Case {
        const char* what;
        double tol, scal;
        int ir, ind;
        Expect want;
    };
    const Case cases[] = {
        {"IND", 1e-8, 1e-3, 1, 6, {1, 1001, {6}}},
        {"IND before TOL", 0.0, 0.0, 9, -3, {1, 1001, {-3}}},
        {"TOL before IR", -1.0, 0.0, 9, 1, {1, 1002, {-1.0}}},
        {"IR before SCAL", 1e-8, 0.0, 3, 1, {1, 1003, {3}}},
        {"SCAL", 1e-8, 1e-17, 1, -1, {1, 1004, {1.0, 1e-17}}},
        {"IND = 5 before TOL, IR and SCAL", 0.0, 0.0, 7, 5, {1, 1001, {5}}},
        {"IND = 0", 1e-8, 1e-3, 1, 0, {1, 1001, {0}}},
        {"TOL = 0", 0.0, 1e-3, 1, 1, {1, 1002, {0.0}}},
        {"SCAL = 0", 1e-8, 0.0, 1, 1, {1, 1004, {1.0, 0.0}}},
        {"IR = 2 accepted", 1e-8, 1e-3, 2, 1, {0, 0, {}}},
    };
    for (const Case& k : cases) {
        char errbuf[200];
        double x = 1.0, fx = 1.0, c[26] = {};
        int ind = k.ind, ifail = -1;
        c05axft_(&x, &fx, &k.tol, &k.ir, &k.scal, c, &ind, errbuf, &ifail, 200);
        if (k.want.ifail == 0) {
            EXPECT_EQ(ifail, 0) << k.what;
            EXPECT_NE(ind, 0) << k.what;
            continue;
        }
        EXPECT_EQ(ind, 0) << k.what;
        check(split(errbuf, ifail), k.want, k.what);
    }
    // Stalled continuation (no zero) and a vanishing difference quotient.
    auto drive = [](double (*f)(double), double& x) {
        char errbuf[200];
        double fx = 0.0, tol = 1e-10, scal = 1e-3, c[26];
        int ir = 0, ind = 1, ifail = -1;
        do {
            c05axft_(&x, &fx, &tol, &ir, &scal, c, &ind, errbuf, &ifail, 200);
            fx = f(x);
        } while (ind != 0);
        return split(errbuf, ifail);
    };
    double x = 1.0;
    const Coded stalled = drive([](double t) { return t * t + 1.0; }, x);
    EXPECT_EQ(stalled.ifail, 2);
    EXPECT_EQ(stalled.code, 1005);
    ASSERT_EQ(stalled.values.size(), 2u);
    EXPECT_NEAR(std::strtod(stalled.values[1].c_str(), nullptr), x, 1e-15 * std::fabs(x));
    x = 1.0;
    check(drive([](double) { return 4.0; }, x), {3, 1006, {1.0}}, "zero difference quotient");
}

TEST(RootsErrors, C05AWFAndC05AJF)
{
    struct Case {
        const char* what;
        double eps;
        int nfmax;
        lbx_c05awf_f f;
        lbx_c05ajf_f g;
        Expect want;
    };
    const Case cases[] = {
        {"EPS before NFMAX", 0.0, 0, exp_f, exp_old, {1, 1001, {0.0}}},
        {"NFMAX", 1e-8, -4, exp_f, exp_old, {1, 1002, {-4}}},
        {"NFMAX = 0", 1e-8, 0, exp_f, exp_old, {1, 1002, {0}}},
        {"too many calls", 1e-12, 3, exp_f, exp_old, {2, 1003, {3}}},
    };
    for (const Case& k : cases) {
        char errbuf[200];
        int iuser[1] = {0};
        double ruser[1], x = 1.0, eta = 0.0;
        int ifail = -1;
        c05awft_(&x, &k.eps, &eta, k.f, c05awf_fh_, &k.nfmax, iuser, ruser, errbuf, &ifail, 200);
        check(split(errbuf, ifail), k.want, std::string("C05AWF ") + k.what);
        if (k.want.ifail == 2) {
            EXPECT_EQ(iuser[0], k.nfmax);
        }
        x = 1.0;
        ifail = -1;
        c05ajft_(&x, &k.eps, &eta, k.g, c05ajf_fh_, &k.nfmax, errbuf, &ifail, 200);
        check(split(errbuf, ifail), k.want, std::string("C05AJF ") + k.what);
    }
    char errbuf[200];
    int iuser[1] = {0}, nfmax = 200, ifail = -1;
    double ruser[1], x = 1.0, eps = 1e-10, eta = 0.0;
    c05awft_(&x, &eps, &eta, plus_f, c05awf_fh_, &nfmax, iuser, ruser, errbuf, &ifail, 200);
    const Coded got = split(errbuf, ifail);
    EXPECT_EQ(got.ifail, 3);
    EXPECT_EQ(got.code, 1004);
    ASSERT_EQ(got.values.size(), 1u);
    EXPECT_NEAR(std::strtod(got.values[0].c_str(), nullptr), x, 1e-15 * std::fabs(x));
    EXPECT_LT(std::fabs(x), 1e-3);  // stalled at the minimum of abs(f)
}

}  // namespace
