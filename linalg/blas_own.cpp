// The own path of the F06 level-2 and level-3 BLAS routines and of the
// rectangular-full-packed DTFSM, DSFRK, ZTFSM and ZHFRK: the reference
// routines' argument checks, in their order and with their argument numbers,
// then the external library's routine of the same name (options passed with
// length 1).  A bad argument is reported as F06AAZN(SRNAME, number) and the
// routine returns with its outputs untouched.
//
// The routines of one shape (DTRMV, DTRSV, ZTRMV, ZTRSV, ...) share their
// checks: each LBX_OWN_DEFINE_<shape>(name, T, ...) below defines one routine
// of that shape, its external routine's type in ET (the element type T) and its
// parameter list from blas_own.hpp.
#include "linalg/blas_own.hpp"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "linalg/kernels.hpp"

namespace {
using Opt = const char*;
using CI = const int*;
using CD = const double*;
using L = std::size_t;
using lbx::Complex;
}  // namespace

namespace {

// LSAME: an option's first character against an upper-case letter, ASCII
// lower-case letters folded to upper case.
bool lsame(const char* option, char upper)
{
    char c = option[0];
    if (c >= 'a' && c <= 'z')
        c = static_cast<char>(c - 'a' + 'A');
    return c == upper;
}

// The checks of one call in the reference order: the first that fails sets the
// argument number; later ones are still evaluated but change nothing.
class Checks {
public:
    // The option is one of the upper-case letters of `allowed`.
    Checks& option(const char* s, std::string_view allowed, int arg)
    {
        return check(std::any_of(allowed.begin(), allowed.end(),
                                 [s](char upper) { return lsame(s, upper); }),
                     arg);
    }
    Checks& dimension(int v, int arg) { return check(v >= 0, arg); }
    // v >= least, without overflow of sums such as KL + KU + 1.
    Checks& at_least(int v, long long least, int arg) { return check(v >= least, arg); }
    // A leading dimension: ld >= max(1, rows).
    Checks& leading(int ld, int rows, int arg) { return at_least(ld, std::max(1, rows), arg); }
    Checks& increment(int inc, int arg) { return check(inc != 0, arg); }

    // Reports the first bad argument; true when there is one.
    bool refused(const char* srname, std::size_t srname_len) const
    {
        if (info_ == 0)
            return false;
        lbx::linalg::F06AAZN(std::string_view(srname, srname_len), info_);
        return true;
    }

private:
    Checks& check(bool ok, int arg)
    {
        if (info_ == 0 && !ok)
            info_ = arg;
        return *this;
    }
    int info_ = 0;
};

// The rows of a matrix stored as op(X): n1 without transposition, else n2.
int rows(const char* trans, int n1, int n2)
{
    return lsame(trans, 'N') ? n1 : n2;
}

long long band(int k1, int k2 = 0)
{
    return static_cast<long long>(k1) + k2 + 1;
}

}  // namespace

// ---------------------------------------------------------------- level 2

#define LBX_OWN_DEFINE_GEMV(name, T)                                                           \
    LBX_EXTERNAL_ROUTINE(                                                                      \
        name##_, void(Opt, CI, CI, const T*, const T*, CI, const T*, CI, const T*, T*, CI, L)) \
    void lbx_own_##name##_(LBX_OWN_GEMV(T))                                                    \
    {                                                                                          \
        if (!Checks{}                                                                          \
                 .option(trans, "NTC", 1)                                                      \
                 .dimension(*m, 2)                                                             \
                 .dimension(*n, 3)                                                             \
                 .leading(*lda, *m, 6)                                                         \
                 .increment(*incx, 8)                                                          \
                 .increment(*incy, 11)                                                         \
                 .refused(srname, srname_len))                                                 \
            name##_kernel()(trans, m, n, alpha, a, lda, x, incx, beta, y, incy, 1);            \
    }
LBX_OWN_DEFINE_GEMV(dgemv, double)
LBX_OWN_DEFINE_GEMV(zgemv, Complex)

#define LBX_OWN_DEFINE_GBMV(name, T)                                                              \
    LBX_EXTERNAL_ROUTINE(name##_, void(Opt, CI, CI, CI, CI, const T*, const T*, CI, const T*, CI, \
                                       const T*, T*, CI, L))                                      \
    void lbx_own_##name##_(LBX_OWN_GBMV(T))                                                       \
    {                                                                                             \
        if (!Checks{}                                                                             \
                 .option(trans, "NTC", 1)                                                         \
                 .dimension(*m, 2)                                                                \
                 .dimension(*n, 3)                                                                \
                 .dimension(*kl, 4)                                                               \
                 .dimension(*ku, 5)                                                               \
                 .at_least(*lda, band(*kl, *ku), 8)                                               \
                 .increment(*incx, 10)                                                            \
                 .increment(*incy, 13)                                                            \
                 .refused(srname, srname_len))                                                    \
            name##_kernel()(trans, m, n, kl, ku, alpha, a, lda, x, incx, beta, y, incy, 1);       \
    }
LBX_OWN_DEFINE_GBMV(dgbmv, double)
LBX_OWN_DEFINE_GBMV(zgbmv, Complex)

// DSYMV, ZHEMV.
#define LBX_OWN_DEFINE_SYMV(name, T)                                                               \
    LBX_EXTERNAL_ROUTINE(name##_,                                                                  \
                         void(Opt, CI, const T*, const T*, CI, const T*, CI, const T*, T*, CI, L)) \
    void lbx_own_##name##_(LBX_OWN_SYMV(T))                                                        \
    {                                                                                              \
        if (!Checks{}                                                                              \
                 .option(uplo, "UL", 1)                                                            \
                 .dimension(*n, 2)                                                                 \
                 .leading(*lda, *n, 5)                                                             \
                 .increment(*incx, 7)                                                              \
                 .increment(*incy, 10)                                                             \
                 .refused(srname, srname_len))                                                     \
            name##_kernel()(uplo, n, alpha, a, lda, x, incx, beta, y, incy, 1);                    \
    }
LBX_OWN_DEFINE_SYMV(dsymv, double)
LBX_OWN_DEFINE_SYMV(zhemv, Complex)

// DSBMV, ZHBMV.
#define LBX_OWN_DEFINE_SBMV(name, T)                                                           \
    LBX_EXTERNAL_ROUTINE(                                                                      \
        name##_, void(Opt, CI, CI, const T*, const T*, CI, const T*, CI, const T*, T*, CI, L)) \
    void lbx_own_##name##_(LBX_OWN_SBMV(T))                                                    \
    {                                                                                          \
        if (!Checks{}                                                                          \
                 .option(uplo, "UL", 1)                                                        \
                 .dimension(*n, 2)                                                             \
                 .dimension(*k, 3)                                                             \
                 .at_least(*lda, band(*k), 6)                                                  \
                 .increment(*incx, 8)                                                          \
                 .increment(*incy, 11)                                                         \
                 .refused(srname, srname_len))                                                 \
            name##_kernel()(uplo, n, k, alpha, a, lda, x, incx, beta, y, incy, 1);             \
    }
LBX_OWN_DEFINE_SBMV(dsbmv, double)
LBX_OWN_DEFINE_SBMV(zhbmv, Complex)

// DSPMV, ZHPMV.
#define LBX_OWN_DEFINE_SPMV(name, T)                                                           \
    LBX_EXTERNAL_ROUTINE(name##_,                                                              \
                         void(Opt, CI, const T*, const T*, const T*, CI, const T*, T*, CI, L)) \
    void lbx_own_##name##_(LBX_OWN_SPMV(T))                                                    \
    {                                                                                          \
        if (!Checks{}                                                                          \
                 .option(uplo, "UL", 1)                                                        \
                 .dimension(*n, 2)                                                             \
                 .increment(*incx, 6)                                                          \
                 .increment(*incy, 9)                                                          \
                 .refused(srname, srname_len))                                                 \
            name##_kernel()(uplo, n, alpha, ap, x, incx, beta, y, incy, 1);                    \
    }
LBX_OWN_DEFINE_SPMV(dspmv, double)
LBX_OWN_DEFINE_SPMV(zhpmv, Complex)

// xTRMV, xTRSV.
#define LBX_OWN_DEFINE_TRXV(name, T)                                                      \
    LBX_EXTERNAL_ROUTINE(name##_, void(Opt, Opt, Opt, CI, const T*, CI, T*, CI, L, L, L)) \
    void lbx_own_##name##_(LBX_OWN_TRXV(T))                                               \
    {                                                                                     \
        if (!Checks{}                                                                     \
                 .option(uplo, "UL", 1)                                                   \
                 .option(trans, "NTC", 2)                                                 \
                 .option(diag, "UN", 3)                                                   \
                 .dimension(*n, 4)                                                        \
                 .leading(*lda, *n, 6)                                                    \
                 .increment(*incx, 8)                                                     \
                 .refused(srname, srname_len))                                            \
            name##_kernel()(uplo, trans, diag, n, a, lda, x, incx, 1, 1, 1);              \
    }
LBX_OWN_DEFINE_TRXV(dtrmv, double)
LBX_OWN_DEFINE_TRXV(dtrsv, double)
LBX_OWN_DEFINE_TRXV(ztrmv, Complex)
LBX_OWN_DEFINE_TRXV(ztrsv, Complex)

// xTBMV, xTBSV.
#define LBX_OWN_DEFINE_TBXV(name, T)                                                          \
    LBX_EXTERNAL_ROUTINE(name##_, void(Opt, Opt, Opt, CI, CI, const T*, CI, T*, CI, L, L, L)) \
    void lbx_own_##name##_(LBX_OWN_TBXV(T))                                                   \
    {                                                                                         \
        if (!Checks{}                                                                         \
                 .option(uplo, "UL", 1)                                                       \
                 .option(trans, "NTC", 2)                                                     \
                 .option(diag, "UN", 3)                                                       \
                 .dimension(*n, 4)                                                            \
                 .dimension(*k, 5)                                                            \
                 .at_least(*lda, band(*k), 7)                                                 \
                 .increment(*incx, 9)                                                         \
                 .refused(srname, srname_len))                                                \
            name##_kernel()(uplo, trans, diag, n, k, a, lda, x, incx, 1, 1, 1);               \
    }
LBX_OWN_DEFINE_TBXV(dtbmv, double)
LBX_OWN_DEFINE_TBXV(dtbsv, double)
LBX_OWN_DEFINE_TBXV(ztbmv, Complex)
LBX_OWN_DEFINE_TBXV(ztbsv, Complex)

// xTPMV, xTPSV.
#define LBX_OWN_DEFINE_TPXV(name, T)                                                  \
    LBX_EXTERNAL_ROUTINE(name##_, void(Opt, Opt, Opt, CI, const T*, T*, CI, L, L, L)) \
    void lbx_own_##name##_(LBX_OWN_TPXV(T))                                           \
    {                                                                                 \
        if (!Checks{}                                                                 \
                 .option(uplo, "UL", 1)                                               \
                 .option(trans, "NTC", 2)                                             \
                 .option(diag, "UN", 3)                                               \
                 .dimension(*n, 4)                                                    \
                 .increment(*incx, 7)                                                 \
                 .refused(srname, srname_len))                                        \
            name##_kernel()(uplo, trans, diag, n, ap, x, incx, 1, 1, 1);              \
    }
LBX_OWN_DEFINE_TPXV(dtpmv, double)
LBX_OWN_DEFINE_TPXV(dtpsv, double)
LBX_OWN_DEFINE_TPXV(ztpmv, Complex)
LBX_OWN_DEFINE_TPXV(ztpsv, Complex)

// DGER, ZGERU, ZGERC.
#define LBX_OWN_DEFINE_GER(name, T)                                                           \
    LBX_EXTERNAL_ROUTINE(name##_, void(CI, CI, const T*, const T*, CI, const T*, CI, T*, CI)) \
    void lbx_own_##name##_(LBX_OWN_GER(T))                                                    \
    {                                                                                         \
        if (!Checks{}                                                                         \
                 .dimension(*m, 1)                                                            \
                 .dimension(*n, 2)                                                            \
                 .increment(*incx, 5)                                                         \
                 .increment(*incy, 7)                                                         \
                 .leading(*lda, *m, 9)                                                        \
                 .refused(srname, srname_len))                                                \
            name##_kernel()(m, n, alpha, x, incx, y, incy, a, lda);                           \
    }
LBX_OWN_DEFINE_GER(dger, double)
LBX_OWN_DEFINE_GER(zgeru, Complex)
LBX_OWN_DEFINE_GER(zgerc, Complex)

// DSYR, ZHER (real ALPHA).
#define LBX_OWN_DEFINE_SYR(name, T)                                           \
    LBX_EXTERNAL_ROUTINE(name##_, void(Opt, CI, CD, const T*, CI, T*, CI, L)) \
    void lbx_own_##name##_(LBX_OWN_SYR(T, double))                            \
    {                                                                         \
        if (!Checks{}                                                         \
                 .option(uplo, "UL", 1)                                       \
                 .dimension(*n, 2)                                            \
                 .increment(*incx, 5)                                         \
                 .leading(*lda, *n, 7)                                        \
                 .refused(srname, srname_len))                                \
            name##_kernel()(uplo, n, alpha, x, incx, a, lda, 1);              \
    }
LBX_OWN_DEFINE_SYR(dsyr, double)
LBX_OWN_DEFINE_SYR(zher, Complex)

// DSPR, ZHPR (real ALPHA).
#define LBX_OWN_DEFINE_SPR(name, T)                                       \
    LBX_EXTERNAL_ROUTINE(name##_, void(Opt, CI, CD, const T*, CI, T*, L)) \
    void lbx_own_##name##_(LBX_OWN_SPR(T, double))                        \
    {                                                                     \
        if (!Checks{}                                                     \
                 .option(uplo, "UL", 1)                                   \
                 .dimension(*n, 2)                                        \
                 .increment(*incx, 5)                                     \
                 .refused(srname, srname_len))                            \
            name##_kernel()(uplo, n, alpha, x, incx, ap, 1);              \
    }
LBX_OWN_DEFINE_SPR(dspr, double)
LBX_OWN_DEFINE_SPR(zhpr, Complex)

// DSYR2, ZHER2.
#define LBX_OWN_DEFINE_SYR2(name, T)                                                              \
    LBX_EXTERNAL_ROUTINE(name##_, void(Opt, CI, const T*, const T*, CI, const T*, CI, T*, CI, L)) \
    void lbx_own_##name##_(LBX_OWN_SYR2(T))                                                       \
    {                                                                                             \
        if (!Checks{}                                                                             \
                 .option(uplo, "UL", 1)                                                           \
                 .dimension(*n, 2)                                                                \
                 .increment(*incx, 5)                                                             \
                 .increment(*incy, 7)                                                             \
                 .leading(*lda, *n, 9)                                                            \
                 .refused(srname, srname_len))                                                    \
            name##_kernel()(uplo, n, alpha, x, incx, y, incy, a, lda, 1);                         \
    }
LBX_OWN_DEFINE_SYR2(dsyr2, double)
LBX_OWN_DEFINE_SYR2(zher2, Complex)

// DSPR2, ZHPR2.
#define LBX_OWN_DEFINE_SPR2(name, T)                                                          \
    LBX_EXTERNAL_ROUTINE(name##_, void(Opt, CI, const T*, const T*, CI, const T*, CI, T*, L)) \
    void lbx_own_##name##_(LBX_OWN_SPR2(T))                                                   \
    {                                                                                         \
        if (!Checks{}                                                                         \
                 .option(uplo, "UL", 1)                                                       \
                 .dimension(*n, 2)                                                            \
                 .increment(*incx, 5)                                                         \
                 .increment(*incy, 7)                                                         \
                 .refused(srname, srname_len))                                                \
            name##_kernel()(uplo, n, alpha, x, incx, y, incy, ap, 1);                         \
    }
LBX_OWN_DEFINE_SPR2(dspr2, double)
LBX_OWN_DEFINE_SPR2(zhpr2, Complex)

// ---------------------------------------------------------------- level 3

#define LBX_OWN_DEFINE_GEMM(name, T)                                                               \
    LBX_EXTERNAL_ROUTINE(name##_, void(Opt, Opt, CI, CI, CI, const T*, const T*, CI, const T*, CI, \
                                       const T*, T*, CI, L, L))                                    \
    void lbx_own_##name##_(LBX_OWN_GEMM(T))                                                        \
    {                                                                                              \
        if (!Checks{}                                                                              \
                 .option(transa, "NCT", 1)                                                         \
                 .option(transb, "NCT", 2)                                                         \
                 .dimension(*m, 3)                                                                 \
                 .dimension(*n, 4)                                                                 \
                 .dimension(*k, 5)                                                                 \
                 .leading(*lda, rows(transa, *m, *k), 8)                                           \
                 .leading(*ldb, rows(transb, *k, *n), 10)                                          \
                 .leading(*ldc, *m, 13)                                                            \
                 .refused(srname, srname_len))                                                     \
            name##_kernel()(transa, transb, m, n, k, alpha, a, lda, b, ldb, beta, c, ldc, 1, 1);   \
    }
LBX_OWN_DEFINE_GEMM(dgemm, double)
LBX_OWN_DEFINE_GEMM(zgemm, Complex)

// DSYMM, ZHEMM, ZSYMM.
#define LBX_OWN_DEFINE_SYMM(name, T)                                                           \
    LBX_EXTERNAL_ROUTINE(name##_, void(Opt, Opt, CI, CI, const T*, const T*, CI, const T*, CI, \
                                       const T*, T*, CI, L, L))                                \
    void lbx_own_##name##_(LBX_OWN_SYMM(T))                                                    \
    {                                                                                          \
        if (!Checks{}                                                                          \
                 .option(side, "LR", 1)                                                        \
                 .option(uplo, "UL", 2)                                                        \
                 .dimension(*m, 3)                                                             \
                 .dimension(*n, 4)                                                             \
                 .leading(*lda, lsame(side, 'L') ? *m : *n, 7)                                 \
                 .leading(*ldb, *m, 9)                                                         \
                 .leading(*ldc, *m, 12)                                                        \
                 .refused(srname, srname_len))                                                 \
            name##_kernel()(side, uplo, m, n, alpha, a, lda, b, ldb, beta, c, ldc, 1, 1);      \
    }
LBX_OWN_DEFINE_SYMM(dsymm, double)
LBX_OWN_DEFINE_SYMM(zhemm, Complex)
LBX_OWN_DEFINE_SYMM(zsymm, Complex)

// xTRMM, xTRSM.
#define LBX_OWN_DEFINE_TRXM(name, T)                                                            \
    LBX_EXTERNAL_ROUTINE(                                                                       \
        name##_, void(Opt, Opt, Opt, Opt, CI, CI, const T*, const T*, CI, T*, CI, L, L, L, L))  \
    void lbx_own_##name##_(LBX_OWN_TRXM(T))                                                     \
    {                                                                                           \
        if (!Checks{}                                                                           \
                 .option(side, "LR", 1)                                                         \
                 .option(uplo, "UL", 2)                                                         \
                 .option(transa, "NTC", 3)                                                      \
                 .option(diag, "UN", 4)                                                         \
                 .dimension(*m, 5)                                                              \
                 .dimension(*n, 6)                                                              \
                 .leading(*lda, lsame(side, 'L') ? *m : *n, 9)                                  \
                 .leading(*ldb, *m, 11)                                                         \
                 .refused(srname, srname_len))                                                  \
            name##_kernel()(side, uplo, transa, diag, m, n, alpha, a, lda, b, ldb, 1, 1, 1, 1); \
    }
LBX_OWN_DEFINE_TRXM(dtrmm, double)
LBX_OWN_DEFINE_TRXM(dtrsm, double)
LBX_OWN_DEFINE_TRXM(ztrmm, Complex)
LBX_OWN_DEFINE_TRXM(ztrsm, Complex)

// DSYRK, ZHERK (real ALPHA and BETA, TRANS N or C), ZSYRK (TRANS N or T).
#define LBX_OWN_DEFINE_SYRK(name, T, S, transposes)                                              \
    LBX_EXTERNAL_ROUTINE(name##_,                                                                \
                         void(Opt, Opt, CI, CI, const S*, const T*, CI, const S*, T*, CI, L, L)) \
    void lbx_own_##name##_(LBX_OWN_SYRK(T, S))                                                   \
    {                                                                                            \
        if (!Checks{}                                                                            \
                 .option(uplo, "UL", 1)                                                          \
                 .option(trans, transposes, 2)                                                   \
                 .dimension(*n, 3)                                                               \
                 .dimension(*k, 4)                                                               \
                 .leading(*lda, rows(trans, *n, *k), 7)                                          \
                 .leading(*ldc, *n, 10)                                                          \
                 .refused(srname, srname_len))                                                   \
            name##_kernel()(uplo, trans, n, k, alpha, a, lda, beta, c, ldc, 1, 1);               \
    }
LBX_OWN_DEFINE_SYRK(dsyrk, double, double, "NTC")
LBX_OWN_DEFINE_SYRK(zherk, Complex, double, "NC")
LBX_OWN_DEFINE_SYRK(zsyrk, Complex, Complex, "NT")

// DSYR2K, ZHER2K (real BETA, TRANS N or C), ZSYR2K (TRANS N or T).
#define LBX_OWN_DEFINE_SYR2K(name, T, B, transposes)                                           \
    LBX_EXTERNAL_ROUTINE(name##_, void(Opt, Opt, CI, CI, const T*, const T*, CI, const T*, CI, \
                                       const B*, T*, CI, L, L))                                \
    void lbx_own_##name##_(LBX_OWN_SYR2K(T, B))                                                \
    {                                                                                          \
        const int nrowa = rows(trans, *n, *k);                                                 \
        if (!Checks{}                                                                          \
                 .option(uplo, "UL", 1)                                                        \
                 .option(trans, transposes, 2)                                                 \
                 .dimension(*n, 3)                                                             \
                 .dimension(*k, 4)                                                             \
                 .leading(*lda, nrowa, 7)                                                      \
                 .leading(*ldb, nrowa, 9)                                                      \
                 .leading(*ldc, *n, 12)                                                        \
                 .refused(srname, srname_len))                                                 \
            name##_kernel()(uplo, trans, n, k, alpha, a, lda, b, ldb, beta, c, ldc, 1, 1);     \
    }
LBX_OWN_DEFINE_SYR2K(dsyr2k, double, double, "NTC")
LBX_OWN_DEFINE_SYR2K(zher2k, Complex, double, "NC")
LBX_OWN_DEFINE_SYR2K(zsyr2k, Complex, Complex, "NT")

// ---------------------------------------------------------------- rectangular full packed

// DTFSM (TRANSR and TRANS N or T), ZTFSM (N or C).
#define LBX_OWN_DEFINE_TFSM(name, T, transposes)                                                   \
    LBX_EXTERNAL_ROUTINE(                                                                          \
        name##_, void(Opt, Opt, Opt, Opt, Opt, CI, CI, const T*, const T*, T*, CI, L, L, L, L, L)) \
    void lbx_own_##name##_(LBX_OWN_TFSM(T))                                                        \
    {                                                                                              \
        if (!Checks{}                                                                              \
                 .option(transr, transposes, 1)                                                    \
                 .option(side, "LR", 2)                                                            \
                 .option(uplo, "LU", 3)                                                            \
                 .option(trans, transposes, 4)                                                     \
                 .option(diag, "NU", 5)                                                            \
                 .dimension(*m, 6)                                                                 \
                 .dimension(*n, 7)                                                                 \
                 .leading(*ldb, *m, 11)                                                            \
                 .refused(srname, srname_len))                                                     \
            name##_kernel()(transr, side, uplo, trans, diag, m, n, alpha, a, b, ldb, 1, 1, 1, 1,   \
                            1);                                                                    \
    }
LBX_OWN_DEFINE_TFSM(dtfsm, double, "NT")
LBX_OWN_DEFINE_TFSM(ztfsm, Complex, "NC")

// DSFRK (TRANSR and TRANS N or T), ZHFRK (N or C); ALPHA and BETA real.
#define LBX_OWN_DEFINE_SFRK(name, T, transposes)                                                  \
    LBX_EXTERNAL_ROUTINE(name##_, void(Opt, Opt, Opt, CI, CI, CD, const T*, CI, CD, T*, L, L, L)) \
    void lbx_own_##name##_(LBX_OWN_SFRK(T))                                                       \
    {                                                                                             \
        if (!Checks{}                                                                             \
                 .option(transr, transposes, 1)                                                   \
                 .option(uplo, "LU", 2)                                                           \
                 .option(trans, transposes, 3)                                                    \
                 .dimension(*n, 4)                                                                \
                 .dimension(*k, 5)                                                                \
                 .leading(*lda, rows(trans, *n, *k), 8)                                           \
                 .refused(srname, srname_len))                                                    \
            name##_kernel()(transr, uplo, trans, n, k, alpha, a, lda, beta, c, 1, 1, 1);          \
    }
LBX_OWN_DEFINE_SFRK(dsfrk, double, "NT")
LBX_OWN_DEFINE_SFRK(zhfrk, Complex, "NC")
