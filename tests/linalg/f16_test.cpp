// The F16 routines under both their names against plain reference loops over
// distinct values, BLAS_DSUM's order of additions and edge cases, and the
// report of a zero increment (argument number and routine name).
#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <cstdlib>
#include <functional>
#include <vector>

#include "lbx3207qk.h"
#include "recording.hpp"

namespace {

using lbx_test::Recording;
using Z = std::complex<double>;

constexpr int lengths[] = {1, 2, 3, 7, 8, 9, 33, 1000};
constexpr int increments[] = {1, 2, -1, -3};

// Element i (0-based) of a BLAS vector walk with increment inc over n elements.
long at(int n, int inc, int i)
{
    return inc > 0 ? static_cast<long>(i) * inc : static_cast<long>(n - 1 - i) * -inc;
}

// Distinct values in a scrambled order, with signs.
std::vector<double> reals(long size, int seed)
{
    std::vector<double> v(size);
    for (long i = 0; i < size; ++i)
        v[i] = ((i * 7919 + seed * 104729) % 1009 - 504) * 0.125 + seed * 0.0009765625;
    return v;
}

std::vector<Z> complexes(long size, int seed)
{
    const std::vector<double> re = reals(size, seed), im = reals(size, seed + 17);
    std::vector<Z> v(size);
    for (long i = 0; i < size; ++i)
        v[i] = {re[i], -im[size - 1 - i]};
    return v;
}

long span_of(int n, int inc)
{
    return static_cast<long>(n) * std::abs(inc);
}

using DSum = double (*)(const int*, const double*, const int*);
using ZSum = void (*)(const int*, const lbx_complex*, const int*, lbx_complex*);
using DWaxpby = void (*)(const int*, const double*, const double*, const int*, const double*,
                         const double*, const int*, double*, const int*);
using ZWaxpby = void (*)(const int*, const lbx_complex*, const lbx_complex*, const int*,
                         const lbx_complex*, const lbx_complex*, const int*, lbx_complex*,
                         const int*);
using DExtreme = void (*)(const int*, const double*, const int*, int*, double*);
using ZExtreme = void (*)(const int*, const lbx_complex*, const int*, int*, double*);

constexpr DSum dsums[] = {f16elf_, blas_dsum_};
constexpr ZSum zsums[] = {f16glf_, blas_zsum_};

TEST(F16, SumsOfIntegersAreExact)
{
    for (int n : lengths)
        for (int inc : increments) {
            std::vector<double> x(span_of(n, inc));
            for (std::size_t i = 0; i < x.size(); ++i)
                x[i] = static_cast<double>((i * 37) % 101) - 50;
            std::vector<Z> z(x.size());
            for (std::size_t i = 0; i < x.size(); ++i)
                z[i] = {x[i], -2 * x[x.size() - 1 - i]};
            double want = 0;
            Z zwant = 0;
            const int stride = std::abs(inc);
            for (int i = 0; i < n; ++i) {
                want += x[static_cast<long>(i) * stride];
                zwant += z[static_cast<long>(i) * stride];
            }
            for (DSum f : dsums)
                EXPECT_EQ(f(&n, x.data(), &inc), want) << n << " " << inc;
            for (ZSum f : zsums) {
                Z got = -1;
                f(&n, z.data(), &inc, &got);
                EXPECT_EQ(got, zwant) << n << " " << inc;
            }
        }
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

TEST(F16, ScaledSums)
{
    const double a = 1.375, b = -0.6875;
    const Z za(0.75, -1.25), zb(-0.5, 0.3125);
    for (int n : lengths)
        for (int incx : increments)
            for (int incw : {1, -2}) {
                const int incy = -incx;
                const std::vector<double> x = reals(span_of(n, incx), 1);
                const std::vector<double> y = reals(span_of(n, incy), 2);
                const std::vector<Z> zx = complexes(span_of(n, incx), 3);
                const std::vector<Z> zy = complexes(span_of(n, incy), 4);
                for (DWaxpby f : {f16ehf_, blas_dwaxpby_}) {
                    std::vector<double> w(span_of(n, incw), -99);
                    f(&n, &a, x.data(), &incx, &b, y.data(), &incy, w.data(), &incw);
                    for (int i = 0; i < n; ++i)
                        ASSERT_EQ(w[at(n, incw, i)], a * x[at(n, incx, i)] + b * y[at(n, incy, i)])
                            << n << " " << incx << " " << i;
                    if (std::abs(incw) > 1) {
                        EXPECT_EQ(w[1], -99);  // between the elements: untouched
                    }
                }
                for (ZWaxpby f : {f16ghf_, blas_zwaxpby_}) {
                    std::vector<Z> w(span_of(n, incw), -99);
                    f(&n, &za, zx.data(), &incx, &zb, zy.data(), &incy, w.data(), &incw);
                    for (int i = 0; i < n; ++i) {
                        const Z want = za * zx[at(n, incx, i)] + zb * zy[at(n, incy, i)];
                        ASSERT_EQ(w[at(n, incw, i)], want) << n << " " << incx << " " << i;
                    }
                }
                std::vector<double> yy = y;
                blas_daxpby_(&n, &a, x.data(), &incx, &b, yy.data(), &incy);
                for (int i = 0; i < n; ++i)
                    ASSERT_EQ(yy[at(n, incy, i)], a * x[at(n, incx, i)] + b * y[at(n, incy, i)]);
                std::vector<Z> zyy = zy;
                blas_zaxpby_(&n, &za, zx.data(), &incx, &zb, zyy.data(), &incy);
                for (int i = 0; i < n; ++i)
                    ASSERT_EQ(zyy[at(n, incy, i)],
                              za * zx[at(n, incx, i)] + zb * zy[at(n, incy, i)]);
            }
}

// The first element with the best key, by a scan with a strict comparison.
template <class T, class Key>
void reference_extreme(int n, const std::vector<T>& x, int inc, Key key, bool largest, int& k,
                       double& r)
{
    const long stride = std::abs(inc);
    k = 1;
    r = key(x[0]);
    for (int i = 1; i < n; ++i) {
        const double v = key(x[i * stride]);
        if (largest ? v > r : v < r) {
            k = i + 1;
            r = v;
        }
    }
}

TEST(F16, ExtremeValues)
{
    const auto plain = [](double v) { return v; };
    const auto mag = [](double v) { return std::fabs(v); };
    const auto abs1 = [](Z z) { return std::fabs(z.real()) + std::fabs(z.imag()); };
    struct Real {
        DExtreme f[2];
        bool largest, absolute;
    };
    const Real real_routines[] = {{{f16jnf_, blas_dmax_val_}, true, false},
                                  {{f16jpf_, blas_dmin_val_}, false, false},
                                  {{f16jqf_, blas_damax_val_}, true, true},
                                  {{f16jrf_, blas_damin_val_}, false, true}};
    struct Cplx {
        ZExtreme f[2];
        bool largest;
    };
    const Cplx complex_routines[] = {{{f16jsf_, blas_zamax_val_}, true},
                                     {{f16jtf_, blas_zamin_val_}, false}};
    for (int n : lengths)
        for (int inc : increments)
            for (int seed : {1, 2, 3}) {
                std::vector<double> x = reals(span_of(n, inc), seed);
                if (seed == 3 && n > 4) {  // ties and signed values of one magnitude
                    x[(n - 1) * std::abs(inc)] = x[std::abs(inc)];
                    x[2 * std::abs(inc)] = -x[std::abs(inc)];
                }
                const std::vector<Z> z = complexes(span_of(n, inc), seed);
                for (const Real& r : real_routines) {
                    int kw;
                    double rw;
                    if (r.absolute)
                        reference_extreme(n, x, inc, mag, r.largest, kw, rw);
                    else
                        reference_extreme(n, x, inc, plain, r.largest, kw, rw);
                    for (DExtreme f : r.f) {
                        int k = -1;
                        double v = -1;
                        f(&n, x.data(), &inc, &k, &v);
                        EXPECT_EQ(k, kw) << n << " " << inc << " " << seed;
                        EXPECT_EQ(v, rw) << n << " " << inc << " " << seed;
                    }
                }
                for (const Cplx& c : complex_routines) {
                    int kw;
                    double rw;
                    reference_extreme(n, z, inc, abs1, c.largest, kw, rw);
                    for (ZExtreme f : c.f) {
                        int k = -1;
                        double v = -1;
                        f(&n, z.data(), &inc, &k, &v);
                        EXPECT_EQ(k, kw) << n << " " << inc << " " << seed;
                        EXPECT_EQ(v, rw) << n << " " << inc << " " << seed;
                    }
                }
            }
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
