// F16: sums, scaled sums and extreme values of vectors, each routine under its
// F16 name and its BLAS_* name (one implementation).
//
// An increment of 0 is an illegal argument: it is reported through F16AAZN
// under the pairing name ("F16ELF/BLAS_DSUM", or "BLAS_DAXPBY" for the two
// routines without an F16 name) with minus its argument number and its value,
// before anything else is looked at; the results are then those of N = 0.
// Increments are checked in argument order, the first bad one is reported.
//
// Vector results (W, Y): a negative increment walks its vector from the far
// end, as the BLAS do: element i (1-based) of X is X(1 + (N - i) |INCX|).
// Reductions (sums, extreme values): the stride is |INCX|, a negative
// increment walks the same elements in the same order as a positive one.
//
// Sums (F16ELF, F16GLF): the elements are added two at a time, the pair's sum
// into one running sum (S = S + (X(I) + X(I+1))) starting from 0, an odd last
// element added at the end; N <= 0 gives 0.  The complex sum does so for
// both parts.  F16GLF and BLAS_ZSUM return the sum in their last argument SUM
// (there are no complex function results).
//
// Extreme values: K is the 1-based index of the first element with the largest
// (smallest) value, R that element's value, its absolute value for the A..
// routines, and |Re| + |Im| for the complex ones (the measure of the BLAS
// IZAMAX); N <= 0 gives K = 0, R = 0.  The choice is that of a scan with a
// strict comparison: a NaN is never chosen over a number, a NaN first element
// is the result.
//
// Scaled sums: W(i) = ALPHA X(i) + BETA Y(i) (two products and a sum, no
// fused multiply-add; complex products as (ar xr - ai xi, ar xi + ai xr)),
// every element computed whatever ALPHA and BETA are.
//
// Unit strides take loops the compiler vectorizes; the extreme values are
// found in two passes, a vectorized reduction, then a search, block by
// block, for the first element equal to its result.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string_view>

#include "gen/linalg.hpp"

namespace lbx::linalg {

namespace {

using Index = std::ptrdiff_t;

// Reports increment inc, argument number arg, when it is 0.
bool zero_increment(std::string_view pairing, int arg, int inc)
{
    if (inc != 0)
        return false;
    F16AAZN(pairing, -arg, inc);
    return true;
}

// Offset of the first element a vector walk reads (BLAS convention).
Index first_offset(int n, int inc)
{
    return inc < 0 ? static_cast<Index>(n - 1) * -static_cast<Index>(inc) : 0;
}

template <class T>
T pair_sum(int n, const T* x, int incx)
{
    T s{};
    if (n <= 0)
        return s;
    const Index inc = incx < 0 ? -static_cast<Index>(incx) : incx;
    const Index pairs = n / 2;
    for (Index p = 0; p < pairs; ++p)
        s += x[2 * p * inc] + x[(2 * p + 1) * inc];
    if (n % 2 != 0)
        s += x[(n - 1) * inc];
    return s;
}

// Index (1-based) and key of the first element whose key is the largest
// (smallest), over n >= 1 elements, as a scan with a strict comparison finds
// it: a NaN key never replaces a number, a NaN first key is the result.
template <bool largest, class Key>
void first_extreme(Index n, Key key, int& k, double& r)
{
    const double first = key(0);
    if (std::isnan(first)) {
        k = 1;
        r = first;
        return;
    }
    // The best key: a NaN compares false and is never taken, so every
    // partial result stays a number.
    double m = first;
    if constexpr (largest) {
#pragma omp simd reduction(max : m)
        for (Index i = 1; i < n; ++i) {
            const double v = key(i);
            m = v > m ? v : m;
        }
    } else {
#pragma omp simd reduction(min : m)
        for (Index i = 1; i < n; ++i) {
            const double v = key(i);
            m = v < m ? v : m;
        }
    }
    // The first element with that key (there is one: m is a key, not a NaN):
    // the block that holds it, then the element within the block.
    constexpr int block = 16;
    Index b = 0;
    for (; b + block <= n; b += block) {
        bool hit = false;
#pragma omp simd reduction(| : hit)
        for (int j = 0; j < block; ++j)
            hit |= key(b + j) == m;
        if (hit)
            break;
    }
    Index i = b;
    while (i + 1 < n && !(key(i) == m))
        ++i;
    k = static_cast<int>(i + 1);
    r = key(i);
}

template <bool largest, class Key>
void extreme(std::string_view pairing, int n, int incx, Key key, int& k, double& r)
{
    k = 0;
    r = 0;
    if (zero_increment(pairing, 3, incx) || n <= 0)
        return;
    const Index inc = incx < 0 ? -static_cast<Index>(incx) : incx;
    if (inc == 1)
        first_extreme<largest>(n, key, k, r);
    else
        first_extreme<largest>(
            n, [&](Index i) { return key(i * inc); }, k, r);
}

double abs1(const Complex& z)
{
    return std::fabs(z.real()) + std::fabs(z.imag());
}

// W = alpha X + beta Y elementwise (W may be Y itself).
template <class T, class Op>
void scaled_sum(int n, const T* x, int incx, const T* y, int incy, T* w, int incw, Op op)
{
    if (incx == 1 && incy == 1 && incw == 1) {
#pragma omp simd
        for (Index i = 0; i < n; ++i)
            w[i] = op(x[i], y[i]);
        return;
    }
    Index ix = first_offset(n, incx), iy = first_offset(n, incy), iw = first_offset(n, incw);
    for (Index i = 0; i < n; ++i) {
        w[iw] = op(x[ix], y[iy]);
        ix += incx;
        iy += incy;
        iw += incw;
    }
}

// alpha x + beta y with the products written out.
struct RealAxpby {
    double a, b;
    double operator()(double x, double y) const { return a * x + b * y; }
};

struct ComplexAxpby {
    double ar, ai, br, bi;
    Complex operator()(const Complex& x, const Complex& y) const
    {
        const double xr = x.real(), xi = x.imag(), yr = y.real(), yi = y.imag();
        return {(ar * xr - ai * xi) + (br * yr - bi * yi),
                (ar * xi + ai * xr) + (br * yi + bi * yr)};
    }
};

}  // namespace

double F16ELFN(int n, const double* x, int incx)
{
    if (zero_increment("F16ELF/BLAS_DSUM", 3, incx))
        return 0;
    return pair_sum(n, x, incx);
}

void F16GLFN(int n, const Complex* x, int incx, Complex& sum)
{
    sum = 0;
    if (zero_increment("F16GLF/BLAS_ZSUM", 3, incx))
        return;
    sum = pair_sum(n, x, incx);
}

void F16EHFN(int n, double alpha, const double* x, int incx, double beta, const double* y, int incy,
             double* w, int incw)
{
    constexpr std::string_view name = "F16EHF/BLAS_DWAXPBY";
    if (zero_increment(name, 4, incx) || zero_increment(name, 7, incy) ||
        zero_increment(name, 9, incw) || n <= 0)
        return;
    scaled_sum(n, x, incx, y, incy, w, incw, RealAxpby{alpha, beta});
}

void F16GHFN(int n, Complex alpha, const Complex* x, int incx, Complex beta, const Complex* y,
             int incy, Complex* w, int incw)
{
    constexpr std::string_view name = "F16GHF/BLAS_ZWAXPBY";
    if (zero_increment(name, 4, incx) || zero_increment(name, 7, incy) ||
        zero_increment(name, 9, incw) || n <= 0)
        return;
    scaled_sum(n, x, incx, y, incy, w, incw,
               ComplexAxpby{alpha.real(), alpha.imag(), beta.real(), beta.imag()});
}

void BLAS_DAXPBY(int n, double alpha, const double* x, int incx, double beta, double* y, int incy)
{
    constexpr std::string_view name = "BLAS_DAXPBY";
    if (zero_increment(name, 4, incx) || zero_increment(name, 7, incy) || n <= 0)
        return;
    scaled_sum(n, x, incx, y, incy, y, incy, RealAxpby{alpha, beta});
}

void BLAS_ZAXPBY(int n, Complex alpha, const Complex* x, int incx, Complex beta, Complex* y,
                 int incy)
{
    constexpr std::string_view name = "BLAS_ZAXPBY";
    if (zero_increment(name, 4, incx) || zero_increment(name, 7, incy) || n <= 0)
        return;
    scaled_sum(n, x, incx, y, incy, y, incy,
               ComplexAxpby{alpha.real(), alpha.imag(), beta.real(), beta.imag()});
}

void F16JNFN(int n, const double* x, int incx, int& k, double& r)
{
    extreme<true>(
        "F16JNF/BLAS_DMAX_VAL", n, incx, [x](Index i) { return x[i]; }, k, r);
}

void F16JPFN(int n, const double* x, int incx, int& k, double& r)
{
    extreme<false>(
        "F16JPF/BLAS_DMIN_VAL", n, incx, [x](Index i) { return x[i]; }, k, r);
}

void F16JQFN(int n, const double* x, int incx, int& k, double& r)
{
    extreme<true>(
        "F16JQF/BLAS_DAMAX_VAL", n, incx, [x](Index i) { return std::fabs(x[i]); }, k, r);
}

void F16JRFN(int n, const double* x, int incx, int& k, double& r)
{
    extreme<false>(
        "F16JRF/BLAS_DAMIN_VAL", n, incx, [x](Index i) { return std::fabs(x[i]); }, k, r);
}

void F16JSFN(int n, const Complex* x, int incx, int& k, double& r)
{
    extreme<true>(
        "F16JSF/BLAS_ZAMAX_VAL", n, incx, [x](Index i) { return abs1(x[i]); }, k, r);
}

void F16JTFN(int n, const Complex* x, int incx, int& k, double& r)
{
    extreme<false>(
        "F16JTF/BLAS_ZAMIN_VAL", n, incx, [x](Index i) { return abs1(x[i]); }, k, r);
}

}  // namespace lbx::linalg
