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
#pragma once

#include <cstddef>
#include <string_view>

#include "frame/fail.hpp"
#include "gen/linalg.hpp"

extern "C" {

// Level 2, real.
void lbx_own_dgemv_(const char* trans, const int* m, const int* n, const double* alpha,
                    const double* a, const int* lda, const double* x, const int* incx,
                    const double* beta, double* y, const int* incy, const char* srname,
                    std::size_t trans_len, std::size_t srname_len);
void lbx_own_dgbmv_(const char* trans, const int* m, const int* n, const int* kl, const int* ku,
                    const double* alpha, const double* a, const int* lda, const double* x,
                    const int* incx, const double* beta, double* y, const int* incy,
                    const char* srname, std::size_t trans_len, std::size_t srname_len);
void lbx_own_dsymv_(const char* uplo, const int* n, const double* alpha, const double* a,
                    const int* lda, const double* x, const int* incx, const double* beta, double* y,
                    const int* incy, const char* srname, std::size_t uplo_len,
                    std::size_t srname_len);
void lbx_own_dsbmv_(const char* uplo, const int* n, const int* k, const double* alpha,
                    const double* a, const int* lda, const double* x, const int* incx,
                    const double* beta, double* y, const int* incy, const char* srname,
                    std::size_t uplo_len, std::size_t srname_len);
void lbx_own_dspmv_(const char* uplo, const int* n, const double* alpha, const double* ap,
                    const double* x, const int* incx, const double* beta, double* y,
                    const int* incy, const char* srname, std::size_t uplo_len,
                    std::size_t srname_len);
void lbx_own_dtrmv_(const char* uplo, const char* trans, const char* diag, const int* n,
                    const double* a, const int* lda, double* x, const int* incx, const char* srname,
                    std::size_t uplo_len, std::size_t trans_len, std::size_t diag_len,
                    std::size_t srname_len);
void lbx_own_dtbmv_(const char* uplo, const char* trans, const char* diag, const int* n,
                    const int* k, const double* a, const int* lda, double* x, const int* incx,
                    const char* srname, std::size_t uplo_len, std::size_t trans_len,
                    std::size_t diag_len, std::size_t srname_len);
void lbx_own_dtpmv_(const char* uplo, const char* trans, const char* diag, const int* n,
                    const double* ap, double* x, const int* incx, const char* srname,
                    std::size_t uplo_len, std::size_t trans_len, std::size_t diag_len,
                    std::size_t srname_len);
void lbx_own_dtrsv_(const char* uplo, const char* trans, const char* diag, const int* n,
                    const double* a, const int* lda, double* x, const int* incx, const char* srname,
                    std::size_t uplo_len, std::size_t trans_len, std::size_t diag_len,
                    std::size_t srname_len);
void lbx_own_dtbsv_(const char* uplo, const char* trans, const char* diag, const int* n,
                    const int* k, const double* a, const int* lda, double* x, const int* incx,
                    const char* srname, std::size_t uplo_len, std::size_t trans_len,
                    std::size_t diag_len, std::size_t srname_len);
void lbx_own_dtpsv_(const char* uplo, const char* trans, const char* diag, const int* n,
                    const double* ap, double* x, const int* incx, const char* srname,
                    std::size_t uplo_len, std::size_t trans_len, std::size_t diag_len,
                    std::size_t srname_len);
void lbx_own_dger_(const int* m, const int* n, const double* alpha, const double* x,
                   const int* incx, const double* y, const int* incy, double* a, const int* lda,
                   const char* srname, std::size_t srname_len);
void lbx_own_dsyr_(const char* uplo, const int* n, const double* alpha, const double* x,
                   const int* incx, double* a, const int* lda, const char* srname,
                   std::size_t uplo_len, std::size_t srname_len);
void lbx_own_dspr_(const char* uplo, const int* n, const double* alpha, const double* x,
                   const int* incx, double* ap, const char* srname, std::size_t uplo_len,
                   std::size_t srname_len);
void lbx_own_dsyr2_(const char* uplo, const int* n, const double* alpha, const double* x,
                    const int* incx, const double* y, const int* incy, double* a, const int* lda,
                    const char* srname, std::size_t uplo_len, std::size_t srname_len);
void lbx_own_dspr2_(const char* uplo, const int* n, const double* alpha, const double* x,
                    const int* incx, const double* y, const int* incy, double* ap,
                    const char* srname, std::size_t uplo_len, std::size_t srname_len);

// Level 2, complex.
void lbx_own_zgemv_(const char* trans, const int* m, const int* n, const lbx::Complex* alpha,
                    const lbx::Complex* a, const int* lda, const lbx::Complex* x, const int* incx,
                    const lbx::Complex* beta, lbx::Complex* y, const int* incy, const char* srname,
                    std::size_t trans_len, std::size_t srname_len);
void lbx_own_zgbmv_(const char* trans, const int* m, const int* n, const int* kl, const int* ku,
                    const lbx::Complex* alpha, const lbx::Complex* a, const int* lda,
                    const lbx::Complex* x, const int* incx, const lbx::Complex* beta,
                    lbx::Complex* y, const int* incy, const char* srname, std::size_t trans_len,
                    std::size_t srname_len);
void lbx_own_zhemv_(const char* uplo, const int* n, const lbx::Complex* alpha,
                    const lbx::Complex* a, const int* lda, const lbx::Complex* x, const int* incx,
                    const lbx::Complex* beta, lbx::Complex* y, const int* incy, const char* srname,
                    std::size_t uplo_len, std::size_t srname_len);
void lbx_own_zhbmv_(const char* uplo, const int* n, const int* k, const lbx::Complex* alpha,
                    const lbx::Complex* a, const int* lda, const lbx::Complex* x, const int* incx,
                    const lbx::Complex* beta, lbx::Complex* y, const int* incy, const char* srname,
                    std::size_t uplo_len, std::size_t srname_len);
void lbx_own_zhpmv_(const char* uplo, const int* n, const lbx::Complex* alpha,
                    const lbx::Complex* ap, const lbx::Complex* x, const int* incx,
                    const lbx::Complex* beta, lbx::Complex* y, const int* incy, const char* srname,
                    std::size_t uplo_len, std::size_t srname_len);
void lbx_own_ztrmv_(const char* uplo, const char* trans, const char* diag, const int* n,
                    const lbx::Complex* a, const int* lda, lbx::Complex* x, const int* incx,
                    const char* srname, std::size_t uplo_len, std::size_t trans_len,
                    std::size_t diag_len, std::size_t srname_len);
void lbx_own_ztbmv_(const char* uplo, const char* trans, const char* diag, const int* n,
                    const int* k, const lbx::Complex* a, const int* lda, lbx::Complex* x,
                    const int* incx, const char* srname, std::size_t uplo_len,
                    std::size_t trans_len, std::size_t diag_len, std::size_t srname_len);
void lbx_own_ztpmv_(const char* uplo, const char* trans, const char* diag, const int* n,
                    const lbx::Complex* ap, lbx::Complex* x, const int* incx, const char* srname,
                    std::size_t uplo_len, std::size_t trans_len, std::size_t diag_len,
                    std::size_t srname_len);
void lbx_own_ztrsv_(const char* uplo, const char* trans, const char* diag, const int* n,
                    const lbx::Complex* a, const int* lda, lbx::Complex* x, const int* incx,
                    const char* srname, std::size_t uplo_len, std::size_t trans_len,
                    std::size_t diag_len, std::size_t srname_len);
void lbx_own_ztbsv_(const char* uplo, const char* trans, const char* diag, const int* n,
                    const int* k, const lbx::Complex* a, const int* lda, lbx::Complex* x,
                    const int* incx, const char* srname, std::size_t uplo_len,
                    std::size_t trans_len, std::size_t diag_len, std::size_t srname_len);
void lbx_own_ztpsv_(const char* uplo, const char* trans, const char* diag, const int* n,
                    const lbx::Complex* ap, lbx::Complex* x, const int* incx, const char* srname,
                    std::size_t uplo_len, std::size_t trans_len, std::size_t diag_len,
                    std::size_t srname_len);
void lbx_own_zgeru_(const int* m, const int* n, const lbx::Complex* alpha, const lbx::Complex* x,
                    const int* incx, const lbx::Complex* y, const int* incy, lbx::Complex* a,
                    const int* lda, const char* srname, std::size_t srname_len);
void lbx_own_zgerc_(const int* m, const int* n, const lbx::Complex* alpha, const lbx::Complex* x,
                    const int* incx, const lbx::Complex* y, const int* incy, lbx::Complex* a,
                    const int* lda, const char* srname, std::size_t srname_len);
void lbx_own_zher_(const char* uplo, const int* n, const double* alpha, const lbx::Complex* x,
                   const int* incx, lbx::Complex* a, const int* lda, const char* srname,
                   std::size_t uplo_len, std::size_t srname_len);
void lbx_own_zhpr_(const char* uplo, const int* n, const double* alpha, const lbx::Complex* x,
                   const int* incx, lbx::Complex* ap, const char* srname, std::size_t uplo_len,
                   std::size_t srname_len);
void lbx_own_zher2_(const char* uplo, const int* n, const lbx::Complex* alpha,
                    const lbx::Complex* x, const int* incx, const lbx::Complex* y, const int* incy,
                    lbx::Complex* a, const int* lda, const char* srname, std::size_t uplo_len,
                    std::size_t srname_len);
void lbx_own_zhpr2_(const char* uplo, const int* n, const lbx::Complex* alpha,
                    const lbx::Complex* x, const int* incx, const lbx::Complex* y, const int* incy,
                    lbx::Complex* ap, const char* srname, std::size_t uplo_len,
                    std::size_t srname_len);

// Level 3, real.
void lbx_own_dgemm_(const char* transa, const char* transb, const int* m, const int* n,
                    const int* k, const double* alpha, const double* a, const int* lda,
                    const double* b, const int* ldb, const double* beta, double* c, const int* ldc,
                    const char* srname, std::size_t transa_len, std::size_t transb_len,
                    std::size_t srname_len);
void lbx_own_dsymm_(const char* side, const char* uplo, const int* m, const int* n,
                    const double* alpha, const double* a, const int* lda, const double* b,
                    const int* ldb, const double* beta, double* c, const int* ldc,
                    const char* srname, std::size_t side_len, std::size_t uplo_len,
                    std::size_t srname_len);
void lbx_own_dtrmm_(const char* side, const char* uplo, const char* transa, const char* diag,
                    const int* m, const int* n, const double* alpha, const double* a,
                    const int* lda, double* b, const int* ldb, const char* srname,
                    std::size_t side_len, std::size_t uplo_len, std::size_t transa_len,
                    std::size_t diag_len, std::size_t srname_len);
void lbx_own_dtrsm_(const char* side, const char* uplo, const char* transa, const char* diag,
                    const int* m, const int* n, const double* alpha, const double* a,
                    const int* lda, double* b, const int* ldb, const char* srname,
                    std::size_t side_len, std::size_t uplo_len, std::size_t transa_len,
                    std::size_t diag_len, std::size_t srname_len);
void lbx_own_dsyrk_(const char* uplo, const char* trans, const int* n, const int* k,
                    const double* alpha, const double* a, const int* lda, const double* beta,
                    double* c, const int* ldc, const char* srname, std::size_t uplo_len,
                    std::size_t trans_len, std::size_t srname_len);
void lbx_own_dsyr2k_(const char* uplo, const char* trans, const int* n, const int* k,
                     const double* alpha, const double* a, const int* lda, const double* b,
                     const int* ldb, const double* beta, double* c, const int* ldc,
                     const char* srname, std::size_t uplo_len, std::size_t trans_len,
                     std::size_t srname_len);

// Level 3, complex.
void lbx_own_zgemm_(const char* transa, const char* transb, const int* m, const int* n,
                    const int* k, const lbx::Complex* alpha, const lbx::Complex* a, const int* lda,
                    const lbx::Complex* b, const int* ldb, const lbx::Complex* beta,
                    lbx::Complex* c, const int* ldc, const char* srname, std::size_t transa_len,
                    std::size_t transb_len, std::size_t srname_len);
void lbx_own_zhemm_(const char* side, const char* uplo, const int* m, const int* n,
                    const lbx::Complex* alpha, const lbx::Complex* a, const int* lda,
                    const lbx::Complex* b, const int* ldb, const lbx::Complex* beta,
                    lbx::Complex* c, const int* ldc, const char* srname, std::size_t side_len,
                    std::size_t uplo_len, std::size_t srname_len);
void lbx_own_zsymm_(const char* side, const char* uplo, const int* m, const int* n,
                    const lbx::Complex* alpha, const lbx::Complex* a, const int* lda,
                    const lbx::Complex* b, const int* ldb, const lbx::Complex* beta,
                    lbx::Complex* c, const int* ldc, const char* srname, std::size_t side_len,
                    std::size_t uplo_len, std::size_t srname_len);
void lbx_own_ztrmm_(const char* side, const char* uplo, const char* transa, const char* diag,
                    const int* m, const int* n, const lbx::Complex* alpha, const lbx::Complex* a,
                    const int* lda, lbx::Complex* b, const int* ldb, const char* srname,
                    std::size_t side_len, std::size_t uplo_len, std::size_t transa_len,
                    std::size_t diag_len, std::size_t srname_len);
void lbx_own_ztrsm_(const char* side, const char* uplo, const char* transa, const char* diag,
                    const int* m, const int* n, const lbx::Complex* alpha, const lbx::Complex* a,
                    const int* lda, lbx::Complex* b, const int* ldb, const char* srname,
                    std::size_t side_len, std::size_t uplo_len, std::size_t transa_len,
                    std::size_t diag_len, std::size_t srname_len);
void lbx_own_zherk_(const char* uplo, const char* trans, const int* n, const int* k,
                    const double* alpha, const lbx::Complex* a, const int* lda, const double* beta,
                    lbx::Complex* c, const int* ldc, const char* srname, std::size_t uplo_len,
                    std::size_t trans_len, std::size_t srname_len);
void lbx_own_zsyrk_(const char* uplo, const char* trans, const int* n, const int* k,
                    const lbx::Complex* alpha, const lbx::Complex* a, const int* lda,
                    const lbx::Complex* beta, lbx::Complex* c, const int* ldc, const char* srname,
                    std::size_t uplo_len, std::size_t trans_len, std::size_t srname_len);
void lbx_own_zher2k_(const char* uplo, const char* trans, const int* n, const int* k,
                     const lbx::Complex* alpha, const lbx::Complex* a, const int* lda,
                     const lbx::Complex* b, const int* ldb, const double* beta, lbx::Complex* c,
                     const int* ldc, const char* srname, std::size_t uplo_len,
                     std::size_t trans_len, std::size_t srname_len);
void lbx_own_zsyr2k_(const char* uplo, const char* trans, const int* n, const int* k,
                     const lbx::Complex* alpha, const lbx::Complex* a, const int* lda,
                     const lbx::Complex* b, const int* ldb, const lbx::Complex* beta,
                     lbx::Complex* c, const int* ldc, const char* srname, std::size_t uplo_len,
                     std::size_t trans_len, std::size_t srname_len);

// Rectangular full packed storage.
void lbx_own_dtfsm_(const char* transr, const char* side, const char* uplo, const char* trans,
                    const char* diag, const int* m, const int* n, const double* alpha,
                    const double* a, double* b, const int* ldb, const char* srname,
                    std::size_t transr_len, std::size_t side_len, std::size_t uplo_len,
                    std::size_t trans_len, std::size_t diag_len, std::size_t srname_len);
void lbx_own_dsfrk_(const char* transr, const char* uplo, const char* trans, const int* n,
                    const int* k, const double* alpha, const double* a, const int* lda,
                    const double* beta, double* c, const char* srname, std::size_t transr_len,
                    std::size_t uplo_len, std::size_t trans_len, std::size_t srname_len);
void lbx_own_ztfsm_(const char* transr, const char* side, const char* uplo, const char* trans,
                    const char* diag, const int* m, const int* n, const lbx::Complex* alpha,
                    const lbx::Complex* a, lbx::Complex* b, const int* ldb, const char* srname,
                    std::size_t transr_len, std::size_t side_len, std::size_t uplo_len,
                    std::size_t trans_len, std::size_t diag_len, std::size_t srname_len);
void lbx_own_zhfrk_(const char* transr, const char* uplo, const char* trans, const int* n,
                    const int* k, const double* alpha, const lbx::Complex* a, const int* lda,
                    const double* beta, lbx::Complex* c, const char* srname, std::size_t transr_len,
                    std::size_t uplo_len, std::size_t trans_len, std::size_t srname_len);

}  // extern "C"
