// The own path of the F06 level-2 and level-3 BLAS routines and of the
// rectangular-full-packed DTFSM, DSFRK, ZTFSM and ZHFRK: the reference
// routines' argument checks, in their order and with their argument numbers,
// then the external library's routine of the same name (options passed with
// length 1).  A bad argument is reported as F06AAZN(SRNAME, number) and the
// routine returns with its outputs untouched.
#include "linalg/blas_own.hpp"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "linalg/kernels.hpp"

namespace {
using Opt = const char*;
using CI = const int*;
using CD = const double*;
using D = double*;
using CZ = const lbx::Complex*;
using Z = lbx::Complex*;
using L = std::size_t;
}  // namespace

LBX_EXTERNAL_ROUTINE(dgemv_, void(Opt, CI, CI, CD, CD, CI, CD, CI, CD, D, CI, L));
LBX_EXTERNAL_ROUTINE(dgbmv_, void(Opt, CI, CI, CI, CI, CD, CD, CI, CD, CI, CD, D, CI, L));
LBX_EXTERNAL_ROUTINE(dsymv_, void(Opt, CI, CD, CD, CI, CD, CI, CD, D, CI, L));
LBX_EXTERNAL_ROUTINE(dsbmv_, void(Opt, CI, CI, CD, CD, CI, CD, CI, CD, D, CI, L));
LBX_EXTERNAL_ROUTINE(dspmv_, void(Opt, CI, CD, CD, CD, CI, CD, D, CI, L));
LBX_EXTERNAL_ROUTINE(dtrmv_, void(Opt, Opt, Opt, CI, CD, CI, D, CI, L, L, L));
LBX_EXTERNAL_ROUTINE(dtbmv_, void(Opt, Opt, Opt, CI, CI, CD, CI, D, CI, L, L, L));
LBX_EXTERNAL_ROUTINE(dtpmv_, void(Opt, Opt, Opt, CI, CD, D, CI, L, L, L));
LBX_EXTERNAL_ROUTINE(dtrsv_, void(Opt, Opt, Opt, CI, CD, CI, D, CI, L, L, L));
LBX_EXTERNAL_ROUTINE(dtbsv_, void(Opt, Opt, Opt, CI, CI, CD, CI, D, CI, L, L, L));
LBX_EXTERNAL_ROUTINE(dtpsv_, void(Opt, Opt, Opt, CI, CD, D, CI, L, L, L));
LBX_EXTERNAL_ROUTINE(dger_, void(CI, CI, CD, CD, CI, CD, CI, D, CI));
LBX_EXTERNAL_ROUTINE(dsyr_, void(Opt, CI, CD, CD, CI, D, CI, L));
LBX_EXTERNAL_ROUTINE(dspr_, void(Opt, CI, CD, CD, CI, D, L));
LBX_EXTERNAL_ROUTINE(dsyr2_, void(Opt, CI, CD, CD, CI, CD, CI, D, CI, L));
LBX_EXTERNAL_ROUTINE(dspr2_, void(Opt, CI, CD, CD, CI, CD, CI, D, L));

LBX_EXTERNAL_ROUTINE(zgemv_, void(Opt, CI, CI, CZ, CZ, CI, CZ, CI, CZ, Z, CI, L));
LBX_EXTERNAL_ROUTINE(zgbmv_, void(Opt, CI, CI, CI, CI, CZ, CZ, CI, CZ, CI, CZ, Z, CI, L));
LBX_EXTERNAL_ROUTINE(zhemv_, void(Opt, CI, CZ, CZ, CI, CZ, CI, CZ, Z, CI, L));
LBX_EXTERNAL_ROUTINE(zhbmv_, void(Opt, CI, CI, CZ, CZ, CI, CZ, CI, CZ, Z, CI, L));
LBX_EXTERNAL_ROUTINE(zhpmv_, void(Opt, CI, CZ, CZ, CZ, CI, CZ, Z, CI, L));
LBX_EXTERNAL_ROUTINE(ztrmv_, void(Opt, Opt, Opt, CI, CZ, CI, Z, CI, L, L, L));
LBX_EXTERNAL_ROUTINE(ztbmv_, void(Opt, Opt, Opt, CI, CI, CZ, CI, Z, CI, L, L, L));
LBX_EXTERNAL_ROUTINE(ztpmv_, void(Opt, Opt, Opt, CI, CZ, Z, CI, L, L, L));
LBX_EXTERNAL_ROUTINE(ztrsv_, void(Opt, Opt, Opt, CI, CZ, CI, Z, CI, L, L, L));
LBX_EXTERNAL_ROUTINE(ztbsv_, void(Opt, Opt, Opt, CI, CI, CZ, CI, Z, CI, L, L, L));
LBX_EXTERNAL_ROUTINE(ztpsv_, void(Opt, Opt, Opt, CI, CZ, Z, CI, L, L, L));
LBX_EXTERNAL_ROUTINE(zgeru_, void(CI, CI, CZ, CZ, CI, CZ, CI, Z, CI));
LBX_EXTERNAL_ROUTINE(zgerc_, void(CI, CI, CZ, CZ, CI, CZ, CI, Z, CI));
LBX_EXTERNAL_ROUTINE(zher_, void(Opt, CI, CD, CZ, CI, Z, CI, L));
LBX_EXTERNAL_ROUTINE(zhpr_, void(Opt, CI, CD, CZ, CI, Z, L));
LBX_EXTERNAL_ROUTINE(zher2_, void(Opt, CI, CZ, CZ, CI, CZ, CI, Z, CI, L));
LBX_EXTERNAL_ROUTINE(zhpr2_, void(Opt, CI, CZ, CZ, CI, CZ, CI, Z, L));

LBX_EXTERNAL_ROUTINE(dgemm_, void(Opt, Opt, CI, CI, CI, CD, CD, CI, CD, CI, CD, D, CI, L, L));
LBX_EXTERNAL_ROUTINE(dsymm_, void(Opt, Opt, CI, CI, CD, CD, CI, CD, CI, CD, D, CI, L, L));
LBX_EXTERNAL_ROUTINE(dtrmm_, void(Opt, Opt, Opt, Opt, CI, CI, CD, CD, CI, D, CI, L, L, L, L));
LBX_EXTERNAL_ROUTINE(dtrsm_, void(Opt, Opt, Opt, Opt, CI, CI, CD, CD, CI, D, CI, L, L, L, L));
LBX_EXTERNAL_ROUTINE(dsyrk_, void(Opt, Opt, CI, CI, CD, CD, CI, CD, D, CI, L, L));
LBX_EXTERNAL_ROUTINE(dsyr2k_, void(Opt, Opt, CI, CI, CD, CD, CI, CD, CI, CD, D, CI, L, L));

LBX_EXTERNAL_ROUTINE(zgemm_, void(Opt, Opt, CI, CI, CI, CZ, CZ, CI, CZ, CI, CZ, Z, CI, L, L));
LBX_EXTERNAL_ROUTINE(zhemm_, void(Opt, Opt, CI, CI, CZ, CZ, CI, CZ, CI, CZ, Z, CI, L, L));
LBX_EXTERNAL_ROUTINE(zsymm_, void(Opt, Opt, CI, CI, CZ, CZ, CI, CZ, CI, CZ, Z, CI, L, L));
LBX_EXTERNAL_ROUTINE(ztrmm_, void(Opt, Opt, Opt, Opt, CI, CI, CZ, CZ, CI, Z, CI, L, L, L, L));
LBX_EXTERNAL_ROUTINE(ztrsm_, void(Opt, Opt, Opt, Opt, CI, CI, CZ, CZ, CI, Z, CI, L, L, L, L));
LBX_EXTERNAL_ROUTINE(zherk_, void(Opt, Opt, CI, CI, CD, CZ, CI, CD, Z, CI, L, L));
LBX_EXTERNAL_ROUTINE(zsyrk_, void(Opt, Opt, CI, CI, CZ, CZ, CI, CZ, Z, CI, L, L));
LBX_EXTERNAL_ROUTINE(zher2k_, void(Opt, Opt, CI, CI, CZ, CZ, CI, CZ, CI, CD, Z, CI, L, L));
LBX_EXTERNAL_ROUTINE(zsyr2k_, void(Opt, Opt, CI, CI, CZ, CZ, CI, CZ, CI, CZ, Z, CI, L, L));

LBX_EXTERNAL_ROUTINE(dtfsm_, void(Opt, Opt, Opt, Opt, Opt, CI, CI, CD, CD, D, CI, L, L, L, L, L));
LBX_EXTERNAL_ROUTINE(dsfrk_, void(Opt, Opt, Opt, CI, CI, CD, CD, CI, CD, D, L, L, L));
LBX_EXTERNAL_ROUTINE(ztfsm_, void(Opt, Opt, Opt, Opt, Opt, CI, CI, CZ, CZ, Z, CI, L, L, L, L, L));
LBX_EXTERNAL_ROUTINE(zhfrk_, void(Opt, Opt, Opt, CI, CI, CD, CZ, CI, CD, Z, L, L, L));

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

extern "C" {

// ---------------------------------------------------------------- level 2, real

void lbx_own_dgemv_(Opt trans, CI m, CI n, CD alpha, CD a, CI lda, CD x, CI incx, CD beta, D y,
                    CI incy, Opt srname, L, L srname_len)
{
    if (Checks{}
            .option(trans, "NTC", 1)
            .dimension(*m, 2)
            .dimension(*n, 3)
            .leading(*lda, *m, 6)
            .increment(*incx, 8)
            .increment(*incy, 11)
            .refused(srname, srname_len))
        return;
    dgemv_kernel()(trans, m, n, alpha, a, lda, x, incx, beta, y, incy, 1);
}

void lbx_own_dgbmv_(Opt trans, CI m, CI n, CI kl, CI ku, CD alpha, CD a, CI lda, CD x, CI incx,
                    CD beta, D y, CI incy, Opt srname, L, L srname_len)
{
    if (Checks{}
            .option(trans, "NTC", 1)
            .dimension(*m, 2)
            .dimension(*n, 3)
            .dimension(*kl, 4)
            .dimension(*ku, 5)
            .at_least(*lda, band(*kl, *ku), 8)
            .increment(*incx, 10)
            .increment(*incy, 13)
            .refused(srname, srname_len))
        return;
    dgbmv_kernel()(trans, m, n, kl, ku, alpha, a, lda, x, incx, beta, y, incy, 1);
}

void lbx_own_dsymv_(Opt uplo, CI n, CD alpha, CD a, CI lda, CD x, CI incx, CD beta, D y, CI incy,
                    Opt srname, L, L srname_len)
{
    if (Checks{}
            .option(uplo, "UL", 1)
            .dimension(*n, 2)
            .leading(*lda, *n, 5)
            .increment(*incx, 7)
            .increment(*incy, 10)
            .refused(srname, srname_len))
        return;
    dsymv_kernel()(uplo, n, alpha, a, lda, x, incx, beta, y, incy, 1);
}

void lbx_own_dsbmv_(Opt uplo, CI n, CI k, CD alpha, CD a, CI lda, CD x, CI incx, CD beta, D y,
                    CI incy, Opt srname, L, L srname_len)
{
    if (Checks{}
            .option(uplo, "UL", 1)
            .dimension(*n, 2)
            .dimension(*k, 3)
            .at_least(*lda, band(*k), 6)
            .increment(*incx, 8)
            .increment(*incy, 11)
            .refused(srname, srname_len))
        return;
    dsbmv_kernel()(uplo, n, k, alpha, a, lda, x, incx, beta, y, incy, 1);
}

void lbx_own_dspmv_(Opt uplo, CI n, CD alpha, CD ap, CD x, CI incx, CD beta, D y, CI incy,
                    Opt srname, L, L srname_len)
{
    if (Checks{}
            .option(uplo, "UL", 1)
            .dimension(*n, 2)
            .increment(*incx, 6)
            .increment(*incy, 9)
            .refused(srname, srname_len))
        return;
    dspmv_kernel()(uplo, n, alpha, ap, x, incx, beta, y, incy, 1);
}

void lbx_own_dtrmv_(Opt uplo, Opt trans, Opt diag, CI n, CD a, CI lda, D x, CI incx, Opt srname, L,
                    L, L, L srname_len)
{
    if (Checks{}
            .option(uplo, "UL", 1)
            .option(trans, "NTC", 2)
            .option(diag, "UN", 3)
            .dimension(*n, 4)
            .leading(*lda, *n, 6)
            .increment(*incx, 8)
            .refused(srname, srname_len))
        return;
    dtrmv_kernel()(uplo, trans, diag, n, a, lda, x, incx, 1, 1, 1);
}

void lbx_own_dtbmv_(Opt uplo, Opt trans, Opt diag, CI n, CI k, CD a, CI lda, D x, CI incx,
                    Opt srname, L, L, L, L srname_len)
{
    if (Checks{}
            .option(uplo, "UL", 1)
            .option(trans, "NTC", 2)
            .option(diag, "UN", 3)
            .dimension(*n, 4)
            .dimension(*k, 5)
            .at_least(*lda, band(*k), 7)
            .increment(*incx, 9)
            .refused(srname, srname_len))
        return;
    dtbmv_kernel()(uplo, trans, diag, n, k, a, lda, x, incx, 1, 1, 1);
}

void lbx_own_dtpmv_(Opt uplo, Opt trans, Opt diag, CI n, CD ap, D x, CI incx, Opt srname, L, L, L,
                    L srname_len)
{
    if (Checks{}
            .option(uplo, "UL", 1)
            .option(trans, "NTC", 2)
            .option(diag, "UN", 3)
            .dimension(*n, 4)
            .increment(*incx, 7)
            .refused(srname, srname_len))
        return;
    dtpmv_kernel()(uplo, trans, diag, n, ap, x, incx, 1, 1, 1);
}

void lbx_own_dtrsv_(Opt uplo, Opt trans, Opt diag, CI n, CD a, CI lda, D x, CI incx, Opt srname, L,
                    L, L, L srname_len)
{
    if (Checks{}
            .option(uplo, "UL", 1)
            .option(trans, "NTC", 2)
            .option(diag, "UN", 3)
            .dimension(*n, 4)
            .leading(*lda, *n, 6)
            .increment(*incx, 8)
            .refused(srname, srname_len))
        return;
    dtrsv_kernel()(uplo, trans, diag, n, a, lda, x, incx, 1, 1, 1);
}

void lbx_own_dtbsv_(Opt uplo, Opt trans, Opt diag, CI n, CI k, CD a, CI lda, D x, CI incx,
                    Opt srname, L, L, L, L srname_len)
{
    if (Checks{}
            .option(uplo, "UL", 1)
            .option(trans, "NTC", 2)
            .option(diag, "UN", 3)
            .dimension(*n, 4)
            .dimension(*k, 5)
            .at_least(*lda, band(*k), 7)
            .increment(*incx, 9)
            .refused(srname, srname_len))
        return;
    dtbsv_kernel()(uplo, trans, diag, n, k, a, lda, x, incx, 1, 1, 1);
}

void lbx_own_dtpsv_(Opt uplo, Opt trans, Opt diag, CI n, CD ap, D x, CI incx, Opt srname, L, L, L,
                    L srname_len)
{
    if (Checks{}
            .option(uplo, "UL", 1)
            .option(trans, "NTC", 2)
            .option(diag, "UN", 3)
            .dimension(*n, 4)
            .increment(*incx, 7)
            .refused(srname, srname_len))
        return;
    dtpsv_kernel()(uplo, trans, diag, n, ap, x, incx, 1, 1, 1);
}

void lbx_own_dger_(CI m, CI n, CD alpha, CD x, CI incx, CD y, CI incy, D a, CI lda, Opt srname,
                   L srname_len)
{
    if (Checks{}
            .dimension(*m, 1)
            .dimension(*n, 2)
            .increment(*incx, 5)
            .increment(*incy, 7)
            .leading(*lda, *m, 9)
            .refused(srname, srname_len))
        return;
    dger_kernel()(m, n, alpha, x, incx, y, incy, a, lda);
}

void lbx_own_dsyr_(Opt uplo, CI n, CD alpha, CD x, CI incx, D a, CI lda, Opt srname, L,
                   L srname_len)
{
    if (Checks{}
            .option(uplo, "UL", 1)
            .dimension(*n, 2)
            .increment(*incx, 5)
            .leading(*lda, *n, 7)
            .refused(srname, srname_len))
        return;
    dsyr_kernel()(uplo, n, alpha, x, incx, a, lda, 1);
}

void lbx_own_dspr_(Opt uplo, CI n, CD alpha, CD x, CI incx, D ap, Opt srname, L, L srname_len)
{
    if (Checks{}
            .option(uplo, "UL", 1)
            .dimension(*n, 2)
            .increment(*incx, 5)
            .refused(srname, srname_len))
        return;
    dspr_kernel()(uplo, n, alpha, x, incx, ap, 1);
}

void lbx_own_dsyr2_(Opt uplo, CI n, CD alpha, CD x, CI incx, CD y, CI incy, D a, CI lda, Opt srname,
                    L, L srname_len)
{
    if (Checks{}
            .option(uplo, "UL", 1)
            .dimension(*n, 2)
            .increment(*incx, 5)
            .increment(*incy, 7)
            .leading(*lda, *n, 9)
            .refused(srname, srname_len))
        return;
    dsyr2_kernel()(uplo, n, alpha, x, incx, y, incy, a, lda, 1);
}

void lbx_own_dspr2_(Opt uplo, CI n, CD alpha, CD x, CI incx, CD y, CI incy, D ap, Opt srname, L,
                    L srname_len)
{
    if (Checks{}
            .option(uplo, "UL", 1)
            .dimension(*n, 2)
            .increment(*incx, 5)
            .increment(*incy, 7)
            .refused(srname, srname_len))
        return;
    dspr2_kernel()(uplo, n, alpha, x, incx, y, incy, ap, 1);
}

// ---------------------------------------------------------------- level 2, complex

void lbx_own_zgemv_(Opt trans, CI m, CI n, CZ alpha, CZ a, CI lda, CZ x, CI incx, CZ beta, Z y,
                    CI incy, Opt srname, L, L srname_len)
{
    if (Checks{}
            .option(trans, "NTC", 1)
            .dimension(*m, 2)
            .dimension(*n, 3)
            .leading(*lda, *m, 6)
            .increment(*incx, 8)
            .increment(*incy, 11)
            .refused(srname, srname_len))
        return;
    zgemv_kernel()(trans, m, n, alpha, a, lda, x, incx, beta, y, incy, 1);
}

void lbx_own_zgbmv_(Opt trans, CI m, CI n, CI kl, CI ku, CZ alpha, CZ a, CI lda, CZ x, CI incx,
                    CZ beta, Z y, CI incy, Opt srname, L, L srname_len)
{
    if (Checks{}
            .option(trans, "NTC", 1)
            .dimension(*m, 2)
            .dimension(*n, 3)
            .dimension(*kl, 4)
            .dimension(*ku, 5)
            .at_least(*lda, band(*kl, *ku), 8)
            .increment(*incx, 10)
            .increment(*incy, 13)
            .refused(srname, srname_len))
        return;
    zgbmv_kernel()(trans, m, n, kl, ku, alpha, a, lda, x, incx, beta, y, incy, 1);
}

void lbx_own_zhemv_(Opt uplo, CI n, CZ alpha, CZ a, CI lda, CZ x, CI incx, CZ beta, Z y, CI incy,
                    Opt srname, L, L srname_len)
{
    if (Checks{}
            .option(uplo, "UL", 1)
            .dimension(*n, 2)
            .leading(*lda, *n, 5)
            .increment(*incx, 7)
            .increment(*incy, 10)
            .refused(srname, srname_len))
        return;
    zhemv_kernel()(uplo, n, alpha, a, lda, x, incx, beta, y, incy, 1);
}

void lbx_own_zhbmv_(Opt uplo, CI n, CI k, CZ alpha, CZ a, CI lda, CZ x, CI incx, CZ beta, Z y,
                    CI incy, Opt srname, L, L srname_len)
{
    if (Checks{}
            .option(uplo, "UL", 1)
            .dimension(*n, 2)
            .dimension(*k, 3)
            .at_least(*lda, band(*k), 6)
            .increment(*incx, 8)
            .increment(*incy, 11)
            .refused(srname, srname_len))
        return;
    zhbmv_kernel()(uplo, n, k, alpha, a, lda, x, incx, beta, y, incy, 1);
}

void lbx_own_zhpmv_(Opt uplo, CI n, CZ alpha, CZ ap, CZ x, CI incx, CZ beta, Z y, CI incy,
                    Opt srname, L, L srname_len)
{
    if (Checks{}
            .option(uplo, "UL", 1)
            .dimension(*n, 2)
            .increment(*incx, 6)
            .increment(*incy, 9)
            .refused(srname, srname_len))
        return;
    zhpmv_kernel()(uplo, n, alpha, ap, x, incx, beta, y, incy, 1);
}

void lbx_own_ztrmv_(Opt uplo, Opt trans, Opt diag, CI n, CZ a, CI lda, Z x, CI incx, Opt srname, L,
                    L, L, L srname_len)
{
    if (Checks{}
            .option(uplo, "UL", 1)
            .option(trans, "NTC", 2)
            .option(diag, "UN", 3)
            .dimension(*n, 4)
            .leading(*lda, *n, 6)
            .increment(*incx, 8)
            .refused(srname, srname_len))
        return;
    ztrmv_kernel()(uplo, trans, diag, n, a, lda, x, incx, 1, 1, 1);
}

void lbx_own_ztbmv_(Opt uplo, Opt trans, Opt diag, CI n, CI k, CZ a, CI lda, Z x, CI incx,
                    Opt srname, L, L, L, L srname_len)
{
    if (Checks{}
            .option(uplo, "UL", 1)
            .option(trans, "NTC", 2)
            .option(diag, "UN", 3)
            .dimension(*n, 4)
            .dimension(*k, 5)
            .at_least(*lda, band(*k), 7)
            .increment(*incx, 9)
            .refused(srname, srname_len))
        return;
    ztbmv_kernel()(uplo, trans, diag, n, k, a, lda, x, incx, 1, 1, 1);
}

void lbx_own_ztpmv_(Opt uplo, Opt trans, Opt diag, CI n, CZ ap, Z x, CI incx, Opt srname, L, L, L,
                    L srname_len)
{
    if (Checks{}
            .option(uplo, "UL", 1)
            .option(trans, "NTC", 2)
            .option(diag, "UN", 3)
            .dimension(*n, 4)
            .increment(*incx, 7)
            .refused(srname, srname_len))
        return;
    ztpmv_kernel()(uplo, trans, diag, n, ap, x, incx, 1, 1, 1);
}

void lbx_own_ztrsv_(Opt uplo, Opt trans, Opt diag, CI n, CZ a, CI lda, Z x, CI incx, Opt srname, L,
                    L, L, L srname_len)
{
    if (Checks{}
            .option(uplo, "UL", 1)
            .option(trans, "NTC", 2)
            .option(diag, "UN", 3)
            .dimension(*n, 4)
            .leading(*lda, *n, 6)
            .increment(*incx, 8)
            .refused(srname, srname_len))
        return;
    ztrsv_kernel()(uplo, trans, diag, n, a, lda, x, incx, 1, 1, 1);
}

void lbx_own_ztbsv_(Opt uplo, Opt trans, Opt diag, CI n, CI k, CZ a, CI lda, Z x, CI incx,
                    Opt srname, L, L, L, L srname_len)
{
    if (Checks{}
            .option(uplo, "UL", 1)
            .option(trans, "NTC", 2)
            .option(diag, "UN", 3)
            .dimension(*n, 4)
            .dimension(*k, 5)
            .at_least(*lda, band(*k), 7)
            .increment(*incx, 9)
            .refused(srname, srname_len))
        return;
    ztbsv_kernel()(uplo, trans, diag, n, k, a, lda, x, incx, 1, 1, 1);
}

void lbx_own_ztpsv_(Opt uplo, Opt trans, Opt diag, CI n, CZ ap, Z x, CI incx, Opt srname, L, L, L,
                    L srname_len)
{
    if (Checks{}
            .option(uplo, "UL", 1)
            .option(trans, "NTC", 2)
            .option(diag, "UN", 3)
            .dimension(*n, 4)
            .increment(*incx, 7)
            .refused(srname, srname_len))
        return;
    ztpsv_kernel()(uplo, trans, diag, n, ap, x, incx, 1, 1, 1);
}

void lbx_own_zgeru_(CI m, CI n, CZ alpha, CZ x, CI incx, CZ y, CI incy, Z a, CI lda, Opt srname,
                    L srname_len)
{
    if (Checks{}
            .dimension(*m, 1)
            .dimension(*n, 2)
            .increment(*incx, 5)
            .increment(*incy, 7)
            .leading(*lda, *m, 9)
            .refused(srname, srname_len))
        return;
    zgeru_kernel()(m, n, alpha, x, incx, y, incy, a, lda);
}

void lbx_own_zgerc_(CI m, CI n, CZ alpha, CZ x, CI incx, CZ y, CI incy, Z a, CI lda, Opt srname,
                    L srname_len)
{
    if (Checks{}
            .dimension(*m, 1)
            .dimension(*n, 2)
            .increment(*incx, 5)
            .increment(*incy, 7)
            .leading(*lda, *m, 9)
            .refused(srname, srname_len))
        return;
    zgerc_kernel()(m, n, alpha, x, incx, y, incy, a, lda);
}

void lbx_own_zher_(Opt uplo, CI n, CD alpha, CZ x, CI incx, Z a, CI lda, Opt srname, L,
                   L srname_len)
{
    if (Checks{}
            .option(uplo, "UL", 1)
            .dimension(*n, 2)
            .increment(*incx, 5)
            .leading(*lda, *n, 7)
            .refused(srname, srname_len))
        return;
    zher_kernel()(uplo, n, alpha, x, incx, a, lda, 1);
}

void lbx_own_zhpr_(Opt uplo, CI n, CD alpha, CZ x, CI incx, Z ap, Opt srname, L, L srname_len)
{
    if (Checks{}
            .option(uplo, "UL", 1)
            .dimension(*n, 2)
            .increment(*incx, 5)
            .refused(srname, srname_len))
        return;
    zhpr_kernel()(uplo, n, alpha, x, incx, ap, 1);
}

void lbx_own_zher2_(Opt uplo, CI n, CZ alpha, CZ x, CI incx, CZ y, CI incy, Z a, CI lda, Opt srname,
                    L, L srname_len)
{
    if (Checks{}
            .option(uplo, "UL", 1)
            .dimension(*n, 2)
            .increment(*incx, 5)
            .increment(*incy, 7)
            .leading(*lda, *n, 9)
            .refused(srname, srname_len))
        return;
    zher2_kernel()(uplo, n, alpha, x, incx, y, incy, a, lda, 1);
}

void lbx_own_zhpr2_(Opt uplo, CI n, CZ alpha, CZ x, CI incx, CZ y, CI incy, Z ap, Opt srname, L,
                    L srname_len)
{
    if (Checks{}
            .option(uplo, "UL", 1)
            .dimension(*n, 2)
            .increment(*incx, 5)
            .increment(*incy, 7)
            .refused(srname, srname_len))
        return;
    zhpr2_kernel()(uplo, n, alpha, x, incx, y, incy, ap, 1);
}

// ---------------------------------------------------------------- level 3, real

void lbx_own_dgemm_(Opt transa, Opt transb, CI m, CI n, CI k, CD alpha, CD a, CI lda, CD b, CI ldb,
                    CD beta, D c, CI ldc, Opt srname, L, L, L srname_len)
{
    if (Checks{}
            .option(transa, "NCT", 1)
            .option(transb, "NCT", 2)
            .dimension(*m, 3)
            .dimension(*n, 4)
            .dimension(*k, 5)
            .leading(*lda, rows(transa, *m, *k), 8)
            .leading(*ldb, rows(transb, *k, *n), 10)
            .leading(*ldc, *m, 13)
            .refused(srname, srname_len))
        return;
    dgemm_kernel()(transa, transb, m, n, k, alpha, a, lda, b, ldb, beta, c, ldc, 1, 1);
}

void lbx_own_dsymm_(Opt side, Opt uplo, CI m, CI n, CD alpha, CD a, CI lda, CD b, CI ldb, CD beta,
                    D c, CI ldc, Opt srname, L, L, L srname_len)
{
    if (Checks{}
            .option(side, "LR", 1)
            .option(uplo, "UL", 2)
            .dimension(*m, 3)
            .dimension(*n, 4)
            .leading(*lda, lsame(side, 'L') ? *m : *n, 7)
            .leading(*ldb, *m, 9)
            .leading(*ldc, *m, 12)
            .refused(srname, srname_len))
        return;
    dsymm_kernel()(side, uplo, m, n, alpha, a, lda, b, ldb, beta, c, ldc, 1, 1);
}

void lbx_own_dtrmm_(Opt side, Opt uplo, Opt transa, Opt diag, CI m, CI n, CD alpha, CD a, CI lda,
                    D b, CI ldb, Opt srname, L, L, L, L, L srname_len)
{
    if (Checks{}
            .option(side, "LR", 1)
            .option(uplo, "UL", 2)
            .option(transa, "NTC", 3)
            .option(diag, "UN", 4)
            .dimension(*m, 5)
            .dimension(*n, 6)
            .leading(*lda, lsame(side, 'L') ? *m : *n, 9)
            .leading(*ldb, *m, 11)
            .refused(srname, srname_len))
        return;
    dtrmm_kernel()(side, uplo, transa, diag, m, n, alpha, a, lda, b, ldb, 1, 1, 1, 1);
}

void lbx_own_dtrsm_(Opt side, Opt uplo, Opt transa, Opt diag, CI m, CI n, CD alpha, CD a, CI lda,
                    D b, CI ldb, Opt srname, L, L, L, L, L srname_len)
{
    if (Checks{}
            .option(side, "LR", 1)
            .option(uplo, "UL", 2)
            .option(transa, "NTC", 3)
            .option(diag, "UN", 4)
            .dimension(*m, 5)
            .dimension(*n, 6)
            .leading(*lda, lsame(side, 'L') ? *m : *n, 9)
            .leading(*ldb, *m, 11)
            .refused(srname, srname_len))
        return;
    dtrsm_kernel()(side, uplo, transa, diag, m, n, alpha, a, lda, b, ldb, 1, 1, 1, 1);
}

void lbx_own_dsyrk_(Opt uplo, Opt trans, CI n, CI k, CD alpha, CD a, CI lda, CD beta, D c, CI ldc,
                    Opt srname, L, L, L srname_len)
{
    if (Checks{}
            .option(uplo, "UL", 1)
            .option(trans, "NTC", 2)
            .dimension(*n, 3)
            .dimension(*k, 4)
            .leading(*lda, rows(trans, *n, *k), 7)
            .leading(*ldc, *n, 10)
            .refused(srname, srname_len))
        return;
    dsyrk_kernel()(uplo, trans, n, k, alpha, a, lda, beta, c, ldc, 1, 1);
}

void lbx_own_dsyr2k_(Opt uplo, Opt trans, CI n, CI k, CD alpha, CD a, CI lda, CD b, CI ldb, CD beta,
                     D c, CI ldc, Opt srname, L, L, L srname_len)
{
    const int nrowa = rows(trans, *n, *k);
    if (Checks{}
            .option(uplo, "UL", 1)
            .option(trans, "NTC", 2)
            .dimension(*n, 3)
            .dimension(*k, 4)
            .leading(*lda, nrowa, 7)
            .leading(*ldb, nrowa, 9)
            .leading(*ldc, *n, 12)
            .refused(srname, srname_len))
        return;
    dsyr2k_kernel()(uplo, trans, n, k, alpha, a, lda, b, ldb, beta, c, ldc, 1, 1);
}

// ---------------------------------------------------------------- level 3, complex

void lbx_own_zgemm_(Opt transa, Opt transb, CI m, CI n, CI k, CZ alpha, CZ a, CI lda, CZ b, CI ldb,
                    CZ beta, Z c, CI ldc, Opt srname, L, L, L srname_len)
{
    if (Checks{}
            .option(transa, "NCT", 1)
            .option(transb, "NCT", 2)
            .dimension(*m, 3)
            .dimension(*n, 4)
            .dimension(*k, 5)
            .leading(*lda, rows(transa, *m, *k), 8)
            .leading(*ldb, rows(transb, *k, *n), 10)
            .leading(*ldc, *m, 13)
            .refused(srname, srname_len))
        return;
    zgemm_kernel()(transa, transb, m, n, k, alpha, a, lda, b, ldb, beta, c, ldc, 1, 1);
}

void lbx_own_zhemm_(Opt side, Opt uplo, CI m, CI n, CZ alpha, CZ a, CI lda, CZ b, CI ldb, CZ beta,
                    Z c, CI ldc, Opt srname, L, L, L srname_len)
{
    if (Checks{}
            .option(side, "LR", 1)
            .option(uplo, "UL", 2)
            .dimension(*m, 3)
            .dimension(*n, 4)
            .leading(*lda, lsame(side, 'L') ? *m : *n, 7)
            .leading(*ldb, *m, 9)
            .leading(*ldc, *m, 12)
            .refused(srname, srname_len))
        return;
    zhemm_kernel()(side, uplo, m, n, alpha, a, lda, b, ldb, beta, c, ldc, 1, 1);
}

void lbx_own_zsymm_(Opt side, Opt uplo, CI m, CI n, CZ alpha, CZ a, CI lda, CZ b, CI ldb, CZ beta,
                    Z c, CI ldc, Opt srname, L, L, L srname_len)
{
    if (Checks{}
            .option(side, "LR", 1)
            .option(uplo, "UL", 2)
            .dimension(*m, 3)
            .dimension(*n, 4)
            .leading(*lda, lsame(side, 'L') ? *m : *n, 7)
            .leading(*ldb, *m, 9)
            .leading(*ldc, *m, 12)
            .refused(srname, srname_len))
        return;
    zsymm_kernel()(side, uplo, m, n, alpha, a, lda, b, ldb, beta, c, ldc, 1, 1);
}

void lbx_own_ztrmm_(Opt side, Opt uplo, Opt transa, Opt diag, CI m, CI n, CZ alpha, CZ a, CI lda,
                    Z b, CI ldb, Opt srname, L, L, L, L, L srname_len)
{
    if (Checks{}
            .option(side, "LR", 1)
            .option(uplo, "UL", 2)
            .option(transa, "NTC", 3)
            .option(diag, "UN", 4)
            .dimension(*m, 5)
            .dimension(*n, 6)
            .leading(*lda, lsame(side, 'L') ? *m : *n, 9)
            .leading(*ldb, *m, 11)
            .refused(srname, srname_len))
        return;
    ztrmm_kernel()(side, uplo, transa, diag, m, n, alpha, a, lda, b, ldb, 1, 1, 1, 1);
}

void lbx_own_ztrsm_(Opt side, Opt uplo, Opt transa, Opt diag, CI m, CI n, CZ alpha, CZ a, CI lda,
                    Z b, CI ldb, Opt srname, L, L, L, L, L srname_len)
{
    if (Checks{}
            .option(side, "LR", 1)
            .option(uplo, "UL", 2)
            .option(transa, "NTC", 3)
            .option(diag, "UN", 4)
            .dimension(*m, 5)
            .dimension(*n, 6)
            .leading(*lda, lsame(side, 'L') ? *m : *n, 9)
            .leading(*ldb, *m, 11)
            .refused(srname, srname_len))
        return;
    ztrsm_kernel()(side, uplo, transa, diag, m, n, alpha, a, lda, b, ldb, 1, 1, 1, 1);
}

void lbx_own_zherk_(Opt uplo, Opt trans, CI n, CI k, CD alpha, CZ a, CI lda, CD beta, Z c, CI ldc,
                    Opt srname, L, L, L srname_len)
{
    if (Checks{}
            .option(uplo, "UL", 1)
            .option(trans, "NC", 2)
            .dimension(*n, 3)
            .dimension(*k, 4)
            .leading(*lda, rows(trans, *n, *k), 7)
            .leading(*ldc, *n, 10)
            .refused(srname, srname_len))
        return;
    zherk_kernel()(uplo, trans, n, k, alpha, a, lda, beta, c, ldc, 1, 1);
}

void lbx_own_zsyrk_(Opt uplo, Opt trans, CI n, CI k, CZ alpha, CZ a, CI lda, CZ beta, Z c, CI ldc,
                    Opt srname, L, L, L srname_len)
{
    if (Checks{}
            .option(uplo, "UL", 1)
            .option(trans, "NT", 2)
            .dimension(*n, 3)
            .dimension(*k, 4)
            .leading(*lda, rows(trans, *n, *k), 7)
            .leading(*ldc, *n, 10)
            .refused(srname, srname_len))
        return;
    zsyrk_kernel()(uplo, trans, n, k, alpha, a, lda, beta, c, ldc, 1, 1);
}

void lbx_own_zher2k_(Opt uplo, Opt trans, CI n, CI k, CZ alpha, CZ a, CI lda, CZ b, CI ldb, CD beta,
                     Z c, CI ldc, Opt srname, L, L, L srname_len)
{
    const int nrowa = rows(trans, *n, *k);
    if (Checks{}
            .option(uplo, "UL", 1)
            .option(trans, "NC", 2)
            .dimension(*n, 3)
            .dimension(*k, 4)
            .leading(*lda, nrowa, 7)
            .leading(*ldb, nrowa, 9)
            .leading(*ldc, *n, 12)
            .refused(srname, srname_len))
        return;
    zher2k_kernel()(uplo, trans, n, k, alpha, a, lda, b, ldb, beta, c, ldc, 1, 1);
}

void lbx_own_zsyr2k_(Opt uplo, Opt trans, CI n, CI k, CZ alpha, CZ a, CI lda, CZ b, CI ldb, CZ beta,
                     Z c, CI ldc, Opt srname, L, L, L srname_len)
{
    const int nrowa = rows(trans, *n, *k);
    if (Checks{}
            .option(uplo, "UL", 1)
            .option(trans, "NT", 2)
            .dimension(*n, 3)
            .dimension(*k, 4)
            .leading(*lda, nrowa, 7)
            .leading(*ldb, nrowa, 9)
            .leading(*ldc, *n, 12)
            .refused(srname, srname_len))
        return;
    zsyr2k_kernel()(uplo, trans, n, k, alpha, a, lda, b, ldb, beta, c, ldc, 1, 1);
}

// ---------------------------------------------------------------- rectangular full packed

void lbx_own_dtfsm_(Opt transr, Opt side, Opt uplo, Opt trans, Opt diag, CI m, CI n, CD alpha, CD a,
                    D b, CI ldb, Opt srname, L, L, L, L, L, L srname_len)
{
    if (Checks{}
            .option(transr, "NT", 1)
            .option(side, "LR", 2)
            .option(uplo, "LU", 3)
            .option(trans, "NT", 4)
            .option(diag, "NU", 5)
            .dimension(*m, 6)
            .dimension(*n, 7)
            .leading(*ldb, *m, 11)
            .refused(srname, srname_len))
        return;
    dtfsm_kernel()(transr, side, uplo, trans, diag, m, n, alpha, a, b, ldb, 1, 1, 1, 1, 1);
}

void lbx_own_dsfrk_(Opt transr, Opt uplo, Opt trans, CI n, CI k, CD alpha, CD a, CI lda, CD beta,
                    D c, Opt srname, L, L, L, L srname_len)
{
    if (Checks{}
            .option(transr, "NT", 1)
            .option(uplo, "LU", 2)
            .option(trans, "NT", 3)
            .dimension(*n, 4)
            .dimension(*k, 5)
            .leading(*lda, rows(trans, *n, *k), 8)
            .refused(srname, srname_len))
        return;
    dsfrk_kernel()(transr, uplo, trans, n, k, alpha, a, lda, beta, c, 1, 1, 1);
}

void lbx_own_ztfsm_(Opt transr, Opt side, Opt uplo, Opt trans, Opt diag, CI m, CI n, CZ alpha, CZ a,
                    Z b, CI ldb, Opt srname, L, L, L, L, L, L srname_len)
{
    if (Checks{}
            .option(transr, "NC", 1)
            .option(side, "LR", 2)
            .option(uplo, "LU", 3)
            .option(trans, "NC", 4)
            .option(diag, "NU", 5)
            .dimension(*m, 6)
            .dimension(*n, 7)
            .leading(*ldb, *m, 11)
            .refused(srname, srname_len))
        return;
    ztfsm_kernel()(transr, side, uplo, trans, diag, m, n, alpha, a, b, ldb, 1, 1, 1, 1, 1);
}

void lbx_own_zhfrk_(Opt transr, Opt uplo, Opt trans, CI n, CI k, CD alpha, CZ a, CI lda, CD beta,
                    Z c, Opt srname, L, L, L, L srname_len)
{
    if (Checks{}
            .option(transr, "NC", 1)
            .option(uplo, "LU", 2)
            .option(trans, "NC", 3)
            .dimension(*n, 4)
            .dimension(*k, 5)
            .leading(*lda, rows(trans, *n, *k), 8)
            .refused(srname, srname_len))
        return;
    zhfrk_kernel()(transr, uplo, trans, n, k, alpha, a, lda, beta, c, 1, 1, 1);
}

}  // extern "C"
