// The F16 routines under both their names on short vectors with answers
// worked by hand (negative increments, elements between the strided ones
// untouched, ties, NaNs), BLAS_DSUM's order of additions, empty vectors, and
// the report of a zero increment (argument number and routine name).
#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <functional>
#include <vector>

#include "lbx3207qk.h"
#include "recording.hpp"

namespace {

using lbx_test::Recording;
using Z = std::complex<double>;
using V = std::vector<double>;

// x = 3, -7, 7, 1, -7 at stride 2 (zeros between); z has |re| + |im| = 2, 3, 3, 0.5.
const V x = {3, 0, -7, 0, 7, 0, 1, 0, -7};
const Z z[] = {{1, -1}, {0, 3}, {-2, -1}, {0.5, 0}};
const Z za(1, 2), zb(0.5, -1);
const int n5 = 5, n4 = 4, n3 = 3, n2 = 2, n1 = 1, inc1 = 1, incm1 = -1, inc2 = 2, incm2 = -2;

// Each call returns its outputs as reals (K and R of an extreme value search).
struct Case {
    const char* name;
    std::function<V()> call;
    V expected;
};

V extreme(void (*f)(const int*, const double*, const int*, int*, double*), const int* inc)
{
    int k = -1;
    double r = -1;
    f(&n5, x.data(), inc, &k, &r);
    return {double(k), r};
}

V zextreme(void (*f)(const int*, const lbx_complex*, const int*, int*, double*))
{
    int k = -1;
    double r = -1;
    f(&n4, z, &inc1, &k, &r);
    return {double(k), r};
}

V dwaxpby(void (*f)(const int*, const double*, const double*, const int*, const double*,
                    const double*, const int*, double*, const int*))
{
    const double a = 2, b = -1, xs[] = {1, 2, 3}, ys[] = {10, 20, 30};
    V w(5, -99);
    f(&n3, &a, xs, &inc1, &b, ys, &incm1, w.data(), &inc2);
    return w;
}

V zwaxpby(void (*f)(const int*, const lbx_complex*, const lbx_complex*, const int*,
                    const lbx_complex*, const lbx_complex*, const int*, lbx_complex*, const int*))
{
    const Z xs[] = {{3, 1}, {-1, 2}}, ys[] = {{2, 0}, {1, 1}};
    Z w[2];
    f(&n2, &za, xs, &inc1, &zb, ys, &incm1, w, &inc1);
    return {w[0].real(), w[0].imag(), w[1].real(), w[1].imag()};
}

TEST(F16, HandWorkedResults)
{
    const Case cases[] = {
        {"F16ELF", [] { return V{f16elf_(&n5, x.data(), &inc2)}; }, {-3}},
        {"BLAS_DSUM", [] { return V{blas_dsum_(&n3, x.data(), &incm2)}; }, {3}},
        {"F16GLF",
         [] {
             Z s;
             f16glf_(&n3, z, &incm1, &s);
             return V{s.real(), s.imag()};
         },
         {-1, 1}},
        {"BLAS_ZSUM",
         [] {
             Z s;
             blas_zsum_(&n2, z, &inc2, &s);
             return V{s.real(), s.imag()};
         },
         {-1, -2}},
        // W(i) = 2 X(i) - Y(N+1-i), W at stride 2
        {"F16EHF", [] { return dwaxpby(f16ehf_); }, {-28, -99, -16, -99, -4}},
        {"BLAS_DWAXPBY", [] { return dwaxpby(blas_dwaxpby_); }, {-28, -99, -16, -99, -4}},
        // (1+2i)(3+i) + (0.5-i)(1+i), (1+2i)(-1+2i) + (0.5-i)2
        {"F16GHF", [] { return zwaxpby(f16ghf_); }, {2.5, 6.5, -4, -2}},
        {"BLAS_ZWAXPBY", [] { return zwaxpby(blas_zwaxpby_); }, {2.5, 6.5, -4, -2}},
        {"BLAS_DAXPBY",
         [] {
             const double a = 2, b = 3, xs[] = {1, 2};
             V y = {1, 1};
             blas_daxpby_(&n2, &a, xs, &inc1, &b, y.data(), &incm1);
             return y;
         },
         {7, 5}},
        {"BLAS_ZAXPBY",
         [] {
             const Z xs[] = {{3, 1}};
             Z y[] = {{2, 0}};
             blas_zaxpby_(&n1, &za, xs, &inc1, &zb, y, &inc1);
             return V{y[0].real(), y[0].imag()};
         },
         {2, 5}},
        // The first of equal keys; a negative increment walks as a positive one.
        {"F16JNF", [] { return extreme(f16jnf_, &inc2); }, {3, 7}},
        {"BLAS_DMAX_VAL", [] { return extreme(blas_dmax_val_, &incm2); }, {3, 7}},
        {"F16JPF", [] { return extreme(f16jpf_, &inc2); }, {2, -7}},
        {"BLAS_DMIN_VAL", [] { return extreme(blas_dmin_val_, &incm2); }, {2, -7}},
        {"F16JQF", [] { return extreme(f16jqf_, &inc2); }, {2, 7}},
        {"BLAS_DAMAX_VAL", [] { return extreme(blas_damax_val_, &incm2); }, {2, 7}},
        {"F16JRF", [] { return extreme(f16jrf_, &inc2); }, {4, 1}},
        {"BLAS_DAMIN_VAL", [] { return extreme(blas_damin_val_, &incm2); }, {4, 1}},
        {"F16JSF", [] { return zextreme(f16jsf_); }, {2, 3}},
        {"BLAS_ZAMAX_VAL", [] { return zextreme(blas_zamax_val_); }, {2, 3}},
        {"F16JTF", [] { return zextreme(f16jtf_); }, {4, 0.5}},
        {"BLAS_ZAMIN_VAL", [] { return zextreme(blas_zamin_val_); }, {4, 0.5}},
    };
    Recording rec(0, "NONE");
    for (const Case& c : cases)
        EXPECT_EQ(c.call(), c.expected) << c.name;
    EXPECT_FALSE(rec.called());
}

// Pairs first: 0 + 2**53, then 1 + 1 = 2 added to 2**53 exactly (one at a
// time the ones would be lost); an odd fifth 1 rounds to even, 2**53 + 4.
TEST(F16, DsumAddsPairs)
{
    const double big = 9007199254740992.0;
    const double x[] = {0, big, 1, 1, 1};
    int n = 4, one = 1, minus_one = -1;
    EXPECT_EQ(blas_dsum_(&n, x, &one), big + 2);
    EXPECT_EQ(blas_dsum_(&n, x, &minus_one), big + 2);
    n = 5;
    EXPECT_EQ(f16elf_(&n, x, &one), big + 4);
    EXPECT_EQ(f16elf_(&n, x, &minus_one), big + 4);
    const Z z[] = {{0, big}, {big, 0}, {1, 1}, {1, 1}};
    n = 4;
    Z sum;
    blas_zsum_(&n, z, &minus_one, &sum);
    EXPECT_EQ(sum, Z(big + 2, big + 2));
}

// Empty vectors: sums 0, no extreme element (K = 0, R = 0), no report.
TEST(F16, EmptyVectors)
{
    Recording rec(0, "NONE");
    const double x[] = {5};
    for (int n : {0, -3}) {
        int inc = 1, k = 5;
        double r = 5;
        EXPECT_EQ(blas_dsum_(&n, x, &inc), 0.0);
        Z s = 7;
        blas_zsum_(&n, reinterpret_cast<const Z*>(x), &inc, &s);
        EXPECT_EQ(s, Z(0));
        blas_dmax_val_(&n, x, &inc, &k, &r);
        EXPECT_EQ(k, 0);
        EXPECT_EQ(r, 0.0);
    }
    EXPECT_FALSE(rec.called());
}

// A NaN is never chosen over a number; a NaN first element is the result.
TEST(F16, ExtremeValuesSkipNaN)
{
    const double nan = std::nan("");
    std::vector<double> x(40);
    for (int i = 0; i < 40; ++i)
        x[i] = i % 7 - 3.5;
    x[17] = nan;
    x[33] = nan;
    int n = 40, one = 1, k = 0;
    double r = 0;
    blas_dmax_val_(&n, x.data(), &one, &k, &r);
    EXPECT_EQ(k, 7);  // the first 2.5
    EXPECT_EQ(r, 2.5);
    blas_damin_val_(&n, x.data(), &one, &k, &r);
    EXPECT_EQ(k, 4);  // the first |-0.5|
    EXPECT_EQ(r, 0.5);
    x[0] = nan;
    blas_dmin_val_(&n, x.data(), &one, &k, &r);
    EXPECT_EQ(k, 1);
    EXPECT_TRUE(std::isnan(r));
}

// A zero increment: argument number, the name a recording test expects.
TEST(F16, ZeroIncrementsAreReported)
{
    double x[4] = {1, 2, 3, 4}, y[4] = {1, 2, 3, 4}, w[4] = {}, r = 1, d = 1;
    Z zx[4] = {1, 2, 3, 4}, zy[4] = {1, 2, 3, 4}, zw[4] = {}, zs = 1, za = 1;
    int n = 4, one = 1, zero = 0, k = 1;
    struct Call {
        const char* name;
        int argument;
        std::function<void()> call;
    };
    const Call calls[] = {
        {"F16ELF", 3, [&] { r = blas_dsum_(&n, x, &zero); }},
        {"F16GLF", 3, [&] { f16glf_(&n, zx, &zero, &zs); }},
        {"F16EHF", 4, [&] { f16ehf_(&n, &d, x, &zero, &d, y, &zero, w, &zero); }},
        {"F16EHF", 7, [&] { blas_dwaxpby_(&n, &d, x, &one, &d, y, &zero, w, &zero); }},
        {"F16EHF", 9, [&] { f16ehf_(&n, &d, x, &one, &d, y, &one, w, &zero); }},
        {"F16GHF", 4, [&] { f16ghf_(&n, &za, zx, &zero, &za, zy, &one, zw, &one); }},
        {"F16GHF", 7, [&] { blas_zwaxpby_(&n, &za, zx, &one, &za, zy, &zero, zw, &one); }},
        {"F16GHF", 9, [&] { f16ghf_(&n, &za, zx, &one, &za, zy, &one, zw, &zero); }},
        {"F16JNF", 3, [&] { f16jnf_(&n, x, &zero, &k, &r); }},
        {"F16JPF", 3, [&] { blas_dmin_val_(&n, x, &zero, &k, &r); }},
        {"F16JQF", 3, [&] { f16jqf_(&n, x, &zero, &k, &r); }},
        {"F16JRF", 3, [&] { blas_damin_val_(&n, x, &zero, &k, &r); }},
        {"F16JSF", 3, [&] { f16jsf_(&n, zx, &zero, &k, &r); }},
        {"F16JTF", 3, [&] { blas_zamin_val_(&n, zx, &zero, &k, &r); }},
    };
    for (const Call& c : calls) {
        Recording rec(c.argument, c.name);
        c.call();
        EXPECT_TRUE(rec.called()) << c.name << " " << c.argument;
        EXPECT_TRUE(rec.passed()) << c.name << " " << c.argument << ": " << Recording::env();
    }
    // BLAS_DAXPBY and BLAS_ZAXPBY report under their own names, longer than
    // the six characters a recording test can expect: reported, not passed
    // (their records: tests/fortran/linalg_recording.f90).
    const Call unpaired[] = {
        {"BLAS_D", 4, [&] { blas_daxpby_(&n, &d, x, &zero, &d, y, &one); }},
        {"BLAS_Z", 7, [&] { blas_zaxpby_(&n, &za, zx, &one, &za, zy, &zero); }},
    };
    for (const Call& c : unpaired) {
        Recording rec(c.argument, c.name);
        c.call();
        EXPECT_TRUE(rec.called()) << c.name;
        EXPECT_FALSE(rec.passed()) << c.name;
    }
    EXPECT_EQ(r, 0.0);
    EXPECT_EQ(k, 0);
    EXPECT_EQ(zs, Z(0));
    EXPECT_EQ(w[0], 0.0);
    EXPECT_EQ(y[0], 1.0);
}

}  // namespace
