// The own path of the symmetric and Hermitian indefinite factorizations
// (DSYTRF, ZHETRF, ZSYTRF, DSPTRF, ZHPTRF, ZSPTRF) and of their drivers (DSYSV,
// ZHESV, ZSYSV, DSPSV, ZHPSV, ZSPSV) for a matrix holding a NaN.
//
// The reference packed factorizations and the blocked panels of the full ones
// (DLASYF, ZLAHEF, ZLASYF) pick a pivot row by comparisons that a NaN never
// wins: with NaN in the column the row index stays 0 or is left from an
// earlier column, and they read and write outside the matrix and IPIV.  The
// unblocked full-storage factorizations (DSYTF2, ZHETF2, ZSYTF2) test each
// pivot for a NaN and report it as a zero pivot (INFO = k).
//
// So each routine here scans the UPLO triangle first (O(N^2), against the
// O(N^3) factorization).  A matrix at risk (an entry that is a NaN, or of
// magnitude above 2^500/N: an infinity, or sums that can overflow to one) goes
// to the unblocked factorization: the full routines get LWORK at most N, which
// makes the reference routine factorize column by column with the same
// pivoting rule and the same WORK(1) answer; the packed ones are unpacked,
// factorized by the unblocked full routine and packed back (the same pivoting
// rule and layout of factors and pivots).  Any other matrix, and any call with
// a bad argument or a workspace query, goes to the reference routine unchanged
// (kept under the name lbx_ref_<name>_, tools/private_lapack.py).
#include <algorithm>
#include <cmath>
#include <complex>
#include <cstddef>
#include <vector>

#include "frame/fail.hpp"

namespace {
using lbx::Complex;
using L = std::size_t;
using CC = const char*;
using CI = const int*;
}  // namespace

extern "C" {
// The reference routines and the unblocked ones they fall back on.
void lbx_ref_dsytrf_(CC, CI, double*, CI, int*, double*, CI, int*, L);
void lbx_ref_zhetrf_(CC, CI, Complex*, CI, int*, Complex*, CI, int*, L);
void lbx_ref_zsytrf_(CC, CI, Complex*, CI, int*, Complex*, CI, int*, L);
void lbx_ref_dsysv_(CC, CI, CI, double*, CI, int*, double*, CI, double*, CI, int*, L);
void lbx_ref_zhesv_(CC, CI, CI, Complex*, CI, int*, Complex*, CI, Complex*, CI, int*, L);
void lbx_ref_zsysv_(CC, CI, CI, Complex*, CI, int*, Complex*, CI, Complex*, CI, int*, L);
void lbx_ref_dsptrf_(CC, CI, double*, int*, int*, L);
void lbx_ref_zhptrf_(CC, CI, Complex*, int*, int*, L);
void lbx_ref_zsptrf_(CC, CI, Complex*, int*, int*, L);
void lbx_ref_dspsv_(CC, CI, CI, double*, int*, double*, CI, int*, L);
void lbx_ref_zhpsv_(CC, CI, CI, Complex*, int*, Complex*, CI, int*, L);
void lbx_ref_zspsv_(CC, CI, CI, Complex*, int*, Complex*, CI, int*, L);
void lbx_own_dsytf2_(CC, CI, double*, CI, int*, int*, L);
void lbx_own_zhetf2_(CC, CI, Complex*, CI, int*, int*, L);
void lbx_own_zsytf2_(CC, CI, Complex*, CI, int*, int*, L);
void lbx_own_dsptrs_(CC, CI, CI, const double*, const int*, double*, CI, int*, L);
void lbx_own_zhptrs_(CC, CI, CI, const Complex*, const int*, Complex*, CI, int*, L);
void lbx_own_zsptrs_(CC, CI, CI, const Complex*, const int*, Complex*, CI, int*, L);

// The routines of this file.
void lbx_own_dsytrf_(CC, CI, double*, CI, int*, double*, CI, int*, L);
void lbx_own_zhetrf_(CC, CI, Complex*, CI, int*, Complex*, CI, int*, L);
void lbx_own_zsytrf_(CC, CI, Complex*, CI, int*, Complex*, CI, int*, L);
void lbx_own_dsysv_(CC, CI, CI, double*, CI, int*, double*, CI, double*, CI, int*, L);
void lbx_own_zhesv_(CC, CI, CI, Complex*, CI, int*, Complex*, CI, Complex*, CI, int*, L);
void lbx_own_zsysv_(CC, CI, CI, Complex*, CI, int*, Complex*, CI, Complex*, CI, int*, L);
void lbx_own_dsptrf_(CC, CI, double*, int*, int*, L);
void lbx_own_zhptrf_(CC, CI, Complex*, int*, int*, L);
void lbx_own_zsptrf_(CC, CI, Complex*, int*, int*, L);
void lbx_own_dspsv_(CC, CI, CI, double*, int*, double*, CI, int*, L);
void lbx_own_zhpsv_(CC, CI, CI, Complex*, int*, Complex*, CI, int*, L);
void lbx_own_zspsv_(CC, CI, CI, Complex*, int*, Complex*, CI, int*, L);
}

namespace {

bool upper(CC uplo)
{
    return *uplo == 'U' || *uplo == 'u';
}

bool good_uplo(CC uplo)
{
    return upper(uplo) || *uplo == 'L' || *uplo == 'l';
}

double magnitude(double v)
{
    return std::fabs(v);
}

double magnitude(const Complex& v)
{
    return std::fabs(v.real()) + std::fabs(v.imag());
}

// Calls f(i, j, k) for the UPLO triangle of an N by N matrix, column by
// column, k counting the elements in packed order.
template <class F>
void for_triangle(bool up, int n, F f)
{
    std::size_t k = 0;
    for (int j = 0; j < n; ++j)
        for (int i = up ? 0 : j; i < (up ? j + 1 : n); ++i, ++k)
            f(i, j, k);
}

// A NaN, or an entry above 2^500/N, in the triangle (LDA 0: packed).
template <class T>
bool at_risk(CC uplo, int n, const T* a, int lda)
{
    const double limit = 0x1p500 / std::max(1, n);
    bool risk = false;
    for_triangle(upper(uplo), n, [&](int i, int j, std::size_t k) {
        const T& v = lda > 0 ? a[i + static_cast<std::size_t>(j) * lda] : a[k];
        risk = risk || !(magnitude(v) <= limit);
    });
    return risk;
}

template <class T, class Ref>
void full_trf(Ref ref, CC uplo, CI n, T* a, CI lda, int* ipiv, T* work, CI lwork, int* info)
{
    const bool valid = good_uplo(uplo) && *n >= 0 && *lda >= std::max(1, *n) && *lwork >= 1;
    const int lw = valid && at_risk(uplo, *n, a, *lda) ? std::min(*lwork, std::max(1, *n)) : *lwork;
    ref(uplo, n, a, lda, ipiv, work, &lw, info, 1);
}

template <class T, class Ref>
void full_sv(Ref ref, CC uplo, CI n, CI nrhs, T* a, CI lda, int* ipiv, T* b, CI ldb, T* work,
             CI lwork, int* info)
{
    const bool valid = good_uplo(uplo) && *n >= 0 && *nrhs >= 0 && *lda >= std::max(1, *n) &&
                       *ldb >= std::max(1, *n) && *lwork >= 1;
    const int lw = valid && at_risk(uplo, *n, a, *lda) ? std::min(*lwork, std::max(1, *n)) : *lwork;
    ref(uplo, n, nrhs, a, lda, ipiv, b, ldb, work, &lw, info, 1);
}

// Packed storage at risk: the unblocked full factorization, then packed back.
template <class T, class Unblocked>
void packed_in_full(Unblocked unblocked, CC uplo, int n, T* ap, int* ipiv, int* info)
{
    const int lda = std::max(1, n);
    std::vector<T> a(static_cast<std::size_t>(lda) * std::max(1, n));
    for_triangle(upper(uplo), n, [&](int i, int j, std::size_t k) {
        a[i + static_cast<std::size_t>(j) * lda] = ap[k];
    });
    unblocked(uplo, &n, a.data(), &lda, ipiv, info, 1);
    for_triangle(upper(uplo), n, [&](int i, int j, std::size_t k) {
        ap[k] = a[i + static_cast<std::size_t>(j) * lda];
    });
}

template <class T, class Ref, class Unblocked>
void packed_trf(Ref ref, Unblocked unblocked, CC uplo, CI n, T* ap, int* ipiv, int* info)
{
    if (good_uplo(uplo) && *n >= 0 && at_risk(uplo, *n, ap, 0))
        packed_in_full(unblocked, uplo, *n, ap, ipiv, info);
    else
        ref(uplo, n, ap, ipiv, info, 1);
}

template <class T, class Ref, class Unblocked, class Solve>
void packed_sv(Ref ref, Unblocked unblocked, Solve solve, CC uplo, CI n, CI nrhs, T* ap, int* ipiv,
               T* b, CI ldb, int* info)
{
    if (good_uplo(uplo) && *n >= 0 && *nrhs >= 0 && *ldb >= std::max(1, *n) &&
        at_risk(uplo, *n, ap, 0)) {
        packed_in_full(unblocked, uplo, *n, ap, ipiv, info);
        if (*info == 0)
            solve(uplo, n, nrhs, ap, ipiv, b, ldb, info, 1);
    } else {
        ref(uplo, n, nrhs, ap, ipiv, b, ldb, info, 1);
    }
}

}  // namespace

void lbx_own_dsytrf_(CC uplo, CI n, double* a, CI lda, int* ipiv, double* work, CI lwork, int* info,
                     L)
{
    full_trf(lbx_ref_dsytrf_, uplo, n, a, lda, ipiv, work, lwork, info);
}

void lbx_own_zhetrf_(CC uplo, CI n, Complex* a, CI lda, int* ipiv, Complex* work, CI lwork,
                     int* info, L)
{
    full_trf(lbx_ref_zhetrf_, uplo, n, a, lda, ipiv, work, lwork, info);
}

void lbx_own_zsytrf_(CC uplo, CI n, Complex* a, CI lda, int* ipiv, Complex* work, CI lwork,
                     int* info, L)
{
    full_trf(lbx_ref_zsytrf_, uplo, n, a, lda, ipiv, work, lwork, info);
}

void lbx_own_dsysv_(CC uplo, CI n, CI nrhs, double* a, CI lda, int* ipiv, double* b, CI ldb,
                    double* work, CI lwork, int* info, L)
{
    full_sv(lbx_ref_dsysv_, uplo, n, nrhs, a, lda, ipiv, b, ldb, work, lwork, info);
}

void lbx_own_zhesv_(CC uplo, CI n, CI nrhs, Complex* a, CI lda, int* ipiv, Complex* b, CI ldb,
                    Complex* work, CI lwork, int* info, L)
{
    full_sv(lbx_ref_zhesv_, uplo, n, nrhs, a, lda, ipiv, b, ldb, work, lwork, info);
}

void lbx_own_zsysv_(CC uplo, CI n, CI nrhs, Complex* a, CI lda, int* ipiv, Complex* b, CI ldb,
                    Complex* work, CI lwork, int* info, L)
{
    full_sv(lbx_ref_zsysv_, uplo, n, nrhs, a, lda, ipiv, b, ldb, work, lwork, info);
}

void lbx_own_dsptrf_(CC uplo, CI n, double* ap, int* ipiv, int* info, L)
{
    packed_trf(lbx_ref_dsptrf_, lbx_own_dsytf2_, uplo, n, ap, ipiv, info);
}

void lbx_own_zhptrf_(CC uplo, CI n, Complex* ap, int* ipiv, int* info, L)
{
    packed_trf(lbx_ref_zhptrf_, lbx_own_zhetf2_, uplo, n, ap, ipiv, info);
}

void lbx_own_zsptrf_(CC uplo, CI n, Complex* ap, int* ipiv, int* info, L)
{
    packed_trf(lbx_ref_zsptrf_, lbx_own_zsytf2_, uplo, n, ap, ipiv, info);
}

void lbx_own_dspsv_(CC uplo, CI n, CI nrhs, double* ap, int* ipiv, double* b, CI ldb, int* info, L)
{
    packed_sv(lbx_ref_dspsv_, lbx_own_dsytf2_, lbx_own_dsptrs_, uplo, n, nrhs, ap, ipiv, b, ldb,
              info);
}

void lbx_own_zhpsv_(CC uplo, CI n, CI nrhs, Complex* ap, int* ipiv, Complex* b, CI ldb, int* info,
                    L)
{
    packed_sv(lbx_ref_zhpsv_, lbx_own_zhetf2_, lbx_own_zhptrs_, uplo, n, nrhs, ap, ipiv, b, ldb,
              info);
}

void lbx_own_zspsv_(CC uplo, CI n, CI nrhs, Complex* ap, int* ipiv, Complex* b, CI ldb, int* info,
                    L)
{
    packed_sv(lbx_ref_zspsv_, lbx_own_zsytf2_, lbx_own_zsptrs_, uplo, n, nrhs, ap, ipiv, b, ldb,
              info);
}
