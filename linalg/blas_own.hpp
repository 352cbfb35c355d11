// The own path of the F06 chapter's level-2 and level-3 BLAS routines and of
// the four rectangular-full-packed routines that go with them.
//
// Each lbx_own_<name>_ takes the standard routine's arguments by address in
// their standard order, then SRNAME (the pairing name its traced entry
// received, for example "F06YAF/DGEMM"), then one hidden length per CHARACTER
// option in order and SRNAME's length.  It checks the arguments as the
// reference routine does, in the same order and with the same argument
// numbers, reports the first bad one as F06AAZN(SRNAME, number) and returns
// without touching its outputs; otherwise it calls the external library's
// routine of the same name.  Only the first character of an option counts,
// compared as LSAME does (ASCII letters in either case).
//
// Routines of one shape share a parameter list, LBX_OWN_<shape>(T) with T the
// element type (S, B: the type of ALPHA, BETA where the Hermitian routines
// take a real one).
#pragma once

#include <cstddef>
#include <string_view>

#include "frame/fail.hpp"
#include "gen/linalg.hpp"

#define LBX_OWN_OPT1 const char *srname, std::size_t, std::size_t srname_len
#define LBX_OWN_OPT2 const char *srname, std::size_t, std::size_t, std::size_t srname_len
#define LBX_OWN_OPT3 \
    const char *srname, std::size_t, std::size_t, std::size_t, std::size_t srname_len
#define LBX_OWN_OPT4 \
    const char *srname, std::size_t, std::size_t, std::size_t, std::size_t, std::size_t srname_len
#define LBX_OWN_OPT5                                                                     \
    const char *srname, std::size_t, std::size_t, std::size_t, std::size_t, std::size_t, \
        std::size_t srname_len

// Level 2.
#define LBX_OWN_GEMV(T)                                                                        \
    const char *trans, const int *m, const int *n, const T *alpha, const T *a, const int *lda, \
        const T *x, const int *incx, const T *beta, T *y, const int *incy, LBX_OWN_OPT1
#define LBX_OWN_GBMV(T)                                                                          \
    const char *trans, const int *m, const int *n, const int *kl, const int *ku, const T *alpha, \
        const T *a, const int *lda, const T *x, const int *incx, const T *beta, T *y,            \
        const int *incy, LBX_OWN_OPT1
#define LBX_OWN_SYMV(T)                                                                     \
    const char *uplo, const int *n, const T *alpha, const T *a, const int *lda, const T *x, \
        const int *incx, const T *beta, T *y, const int *incy, LBX_OWN_OPT1
#define LBX_OWN_SBMV(T)                                                                       \
    const char *uplo, const int *n, const int *k, const T *alpha, const T *a, const int *lda, \
        const T *x, const int *incx, const T *beta, T *y, const int *incy, LBX_OWN_OPT1
#define LBX_OWN_SPMV(T)                                                                       \
    const char *uplo, const int *n, const T *alpha, const T *ap, const T *x, const int *incx, \
        const T *beta, T *y, const int *incy, LBX_OWN_OPT1
#define LBX_OWN_TRXV(T)                                                              \
    const char *uplo, const char *trans, const char *diag, const int *n, const T *a, \
        const int *lda, T *x, const int *incx, LBX_OWN_OPT3
#define LBX_OWN_TBXV(T)                                                                            \
    const char *uplo, const char *trans, const char *diag, const int *n, const int *k, const T *a, \
        const int *lda, T *x, const int *incx, LBX_OWN_OPT3
#define LBX_OWN_TPXV(T)                                                                     \
    const char *uplo, const char *trans, const char *diag, const int *n, const T *ap, T *x, \
        const int *incx, LBX_OWN_OPT3
#define LBX_OWN_GER(T)                                                                   \
    const int *m, const int *n, const T *alpha, const T *x, const int *incx, const T *y, \
        const int *incy, T *a, const int *lda, const char *srname, std::size_t srname_len
#define LBX_OWN_SYR(T, S)                                                              \
    const char *uplo, const int *n, const S *alpha, const T *x, const int *incx, T *a, \
        const int *lda, LBX_OWN_OPT1
#define LBX_OWN_SPR(T, S) \
    const char *uplo, const int *n, const S *alpha, const T *x, const int *incx, T *ap, LBX_OWN_OPT1
#define LBX_OWN_SYR2(T)                                                                      \
    const char *uplo, const int *n, const T *alpha, const T *x, const int *incx, const T *y, \
        const int *incy, T *a, const int *lda, LBX_OWN_OPT1
#define LBX_OWN_SPR2(T)                                                                      \
    const char *uplo, const int *n, const T *alpha, const T *x, const int *incx, const T *y, \
        const int *incy, T *ap, LBX_OWN_OPT1

// Level 3.
#define LBX_OWN_GEMM(T)                                                                        \
    const char *transa, const char *transb, const int *m, const int *n, const int *k,          \
        const T *alpha, const T *a, const int *lda, const T *b, const int *ldb, const T *beta, \
        T *c, const int *ldc, LBX_OWN_OPT2
#define LBX_OWN_SYMM(T)                                                                         \
    const char *side, const char *uplo, const int *m, const int *n, const T *alpha, const T *a, \
        const int *lda, const T *b, const int *ldb, const T *beta, T *c, const int *ldc,        \
        LBX_OWN_OPT2
#define LBX_OWN_TRXM(T)                                                                     \
    const char *side, const char *uplo, const char *transa, const char *diag, const int *m, \
        const int *n, const T *alpha, const T *a, const int *lda, T *b, const int *ldb,     \
        LBX_OWN_OPT4
#define LBX_OWN_SYRK(T, S)                                                                       \
    const char *uplo, const char *trans, const int *n, const int *k, const S *alpha, const T *a, \
        const int *lda, const S *beta, T *c, const int *ldc, LBX_OWN_OPT2
#define LBX_OWN_SYR2K(T, B)                                                                      \
    const char *uplo, const char *trans, const int *n, const int *k, const T *alpha, const T *a, \
        const int *lda, const T *b, const int *ldb, const B *beta, T *c, const int *ldc,         \
        LBX_OWN_OPT2

// Rectangular full packed storage.
#define LBX_OWN_TFSM(T)                                                                          \
    const char *transr, const char *side, const char *uplo, const char *trans, const char *diag, \
        const int *m, const int *n, const T *alpha, const T *a, T *b, const int *ldb, LBX_OWN_OPT5
#define LBX_OWN_SFRK(T)                                                                  \
    const char *transr, const char *uplo, const char *trans, const int *n, const int *k, \
        const double *alpha, const T *a, const int *lda, const double *beta, T *c, LBX_OWN_OPT3

extern "C" {

void lbx_own_dgemv_(LBX_OWN_GEMV(double));
void lbx_own_zgemv_(LBX_OWN_GEMV(lbx::Complex));
void lbx_own_dgbmv_(LBX_OWN_GBMV(double));
void lbx_own_zgbmv_(LBX_OWN_GBMV(lbx::Complex));
void lbx_own_dsymv_(LBX_OWN_SYMV(double));
void lbx_own_zhemv_(LBX_OWN_SYMV(lbx::Complex));
void lbx_own_dsbmv_(LBX_OWN_SBMV(double));
void lbx_own_zhbmv_(LBX_OWN_SBMV(lbx::Complex));
void lbx_own_dspmv_(LBX_OWN_SPMV(double));
void lbx_own_zhpmv_(LBX_OWN_SPMV(lbx::Complex));
void lbx_own_dtrmv_(LBX_OWN_TRXV(double));
void lbx_own_dtrsv_(LBX_OWN_TRXV(double));
void lbx_own_ztrmv_(LBX_OWN_TRXV(lbx::Complex));
void lbx_own_ztrsv_(LBX_OWN_TRXV(lbx::Complex));
void lbx_own_dtbmv_(LBX_OWN_TBXV(double));
void lbx_own_dtbsv_(LBX_OWN_TBXV(double));
void lbx_own_ztbmv_(LBX_OWN_TBXV(lbx::Complex));
void lbx_own_ztbsv_(LBX_OWN_TBXV(lbx::Complex));
void lbx_own_dtpmv_(LBX_OWN_TPXV(double));
void lbx_own_dtpsv_(LBX_OWN_TPXV(double));
void lbx_own_ztpmv_(LBX_OWN_TPXV(lbx::Complex));
void lbx_own_ztpsv_(LBX_OWN_TPXV(lbx::Complex));
void lbx_own_dger_(LBX_OWN_GER(double));
void lbx_own_zgeru_(LBX_OWN_GER(lbx::Complex));
void lbx_own_zgerc_(LBX_OWN_GER(lbx::Complex));
void lbx_own_dsyr_(LBX_OWN_SYR(double, double));
void lbx_own_zher_(LBX_OWN_SYR(lbx::Complex, double));
void lbx_own_dspr_(LBX_OWN_SPR(double, double));
void lbx_own_zhpr_(LBX_OWN_SPR(lbx::Complex, double));
void lbx_own_dsyr2_(LBX_OWN_SYR2(double));
void lbx_own_zher2_(LBX_OWN_SYR2(lbx::Complex));
void lbx_own_dspr2_(LBX_OWN_SPR2(double));
void lbx_own_zhpr2_(LBX_OWN_SPR2(lbx::Complex));

void lbx_own_dgemm_(LBX_OWN_GEMM(double));
void lbx_own_zgemm_(LBX_OWN_GEMM(lbx::Complex));
void lbx_own_dsymm_(LBX_OWN_SYMM(double));
void lbx_own_zhemm_(LBX_OWN_SYMM(lbx::Complex));
void lbx_own_zsymm_(LBX_OWN_SYMM(lbx::Complex));
void lbx_own_dtrmm_(LBX_OWN_TRXM(double));
void lbx_own_dtrsm_(LBX_OWN_TRXM(double));
void lbx_own_ztrmm_(LBX_OWN_TRXM(lbx::Complex));
void lbx_own_ztrsm_(LBX_OWN_TRXM(lbx::Complex));
void lbx_own_dsyrk_(LBX_OWN_SYRK(double, double));
void lbx_own_zherk_(LBX_OWN_SYRK(lbx::Complex, double));
void lbx_own_zsyrk_(LBX_OWN_SYRK(lbx::Complex, lbx::Complex));
void lbx_own_dsyr2k_(LBX_OWN_SYR2K(double, double));
void lbx_own_zher2k_(LBX_OWN_SYR2K(lbx::Complex, double));
void lbx_own_zsyr2k_(LBX_OWN_SYR2K(lbx::Complex, lbx::Complex));

void lbx_own_dtfsm_(LBX_OWN_TFSM(double));
void lbx_own_ztfsm_(LBX_OWN_TFSM(lbx::Complex));
void lbx_own_dsfrk_(LBX_OWN_SFRK(double));
void lbx_own_zhfrk_(LBX_OWN_SFRK(lbx::Complex));

}  // extern "C"
