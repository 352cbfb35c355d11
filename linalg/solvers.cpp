// Black-box solvers of A X = B (F04BAF, ...): argument checks, the 1-norm of
// A, the standard driver, then the condition estimate in the 1-norm and the
// forward error bound.  Every standard routine is reached through
// linalg/solver_kernels.hpp.
#include <algorithm>
#include <string_view>
#include <vector>

#include "frame/machine.hpp"
#include "gen/linalg.hpp"
#include "linalg/solver_kernels.hpp"

namespace lbx::linalg {

namespace {

namespace k = kernels;

// Only the first character of an option counts.
constexpr std::string_view one_norm = "1-norm";
constexpr std::string_view no_transpose = "No transpose";

bool bad_uplo(char uplo)
{
    return uplo != 'U' && uplo != 'u' && uplo != 'L' && uplo != 'l';
}

std::string_view option(const char& c)
{
    return {&c, 1};
}

// Work space of n elements (at least one) in a std::vector: allocation
// failure throws, and the traced entry reports IFAIL = -999.
template <class T>
std::vector<T> work(int n, int per_row = 1)
{
    return std::vector<T>(static_cast<std::size_t>(std::max(1, n)) * per_row);
}

// Steps common to every solver once the driver has returned INFO: a zero
// pivot (or a minor that is not positive definite) in column INFO gives
// RCOND = 0, ERRBND = 1 and the routine's message with the value INFO;
// otherwise estimate() returns RCOND (it allocates its own work space, so
// on allocation failure RCOND and ERRBND are left as they were) and
// ERRBND = eps/RCOND when RCOND >= eps, else ERRBND = 1 and IFAIL = N+1
// (RCOND a NaN included), the solution kept.
template <class Estimate>
void conclude(int info, int n, double& rcond, double& errbnd, Fail& fail,
              const Message<1>& singular, const Message<0>& ill_conditioned, Estimate estimate)
{
    if (info > 0) {
        rcond = 0.0;
        errbnd = 1.0;
        fail(Message<1>{info, singular.code}, info);
        return;
    }
    const double r = estimate();
    rcond = r;
    if (r >= machine::eps) {
        errbnd = machine::eps / r;
        return;
    }
    errbnd = 1.0;
    fail(Message<0>{n + 1, ill_conditioned.code});
}

// The packed Bunch-Kaufman factorizations of the standard library (DSPTRF,
// ZHPTRF as of LAPACK 3.11) take a NaN on the last diagonal element they
// reach for a 2 x 2 pivot with a row index left from an earlier column, and
// then write before AP and IPIV.  A matrix that can bring a NaN there (a NaN
// or infinite entry, or entries within reach of overflow) is factorized in
// full storage by the driver that tests for NaN (DSYSV, ZHESV) and packed
// back: the same pivoting rule and the same layout of factors and pivots.
bool packed_at_risk(double anorm)
{
    return !(anorm <= 0x1p500);
}

// Symmetric and Hermitian indefinite drivers: the work space the driver asks
// for, then the driver.  A matrix at risk (above) gets work space for one
// column only, which makes the driver factorize column by column: the blocked
// Bunch-Kaufman panels (DLASYF, ZLAHEF as of LAPACK 3.11) can take a row
// index outside the matrix when a NaN reaches a pivot, the unblocked
// factorizations test every pivot for one.
template <class T, class Driver>
int with_queried_work(Driver driver, bool at_risk = false, int n = 0)
{
    int lwork = std::max(1, n);
    if (!at_risk) {
        T query[1] = {T(0)};
        driver(query, -1);
        lwork = std::max(1, static_cast<int>(std::real(query[0])));
    }
    std::vector<T> w = work<T>(lwork);
    return driver(w.data(), lwork);
}

template <class T, class Driver>
int packed_in_full(char uplo, int n, T* ap, Driver driver)
{
    const int lda = std::max(1, n);
    std::vector<T> a = work<T>(lda, n);
    const bool upper = uplo == 'U' || uplo == 'u';
    auto copy = [&](bool unpack) {
        std::size_t k = 0;
        for (int j = 0; j < n; ++j)
            for (int i = upper ? 0 : j; i < (upper ? j + 1 : n); ++i, ++k) {
                T& full = a[i + static_cast<std::size_t>(j) * lda];
                if (unpack)
                    full = ap[k];
                else
                    ap[k] = full;
            }
    };
    copy(true);
    const int info = with_queried_work<T>(
        [&](T* w, int lwork) { return driver(a.data(), lda, w, lwork); }, true, n);
    copy(false);
    return info;
}

}  // namespace

// ---------------------------------------------------------------- real

void F04BAFN(int n, int nrhs, double* a, int lda, int* ipiv, double* b, int ldb, double& rcond,
             double& errbnd, Fail& fail)
{
    using M = F04BAF_msg;
    if (n < 0)
        return fail(M::N_NEGATIVE, n);
    if (nrhs < 0)
        return fail(M::NRHS_NEGATIVE, nrhs);
    if (lda < std::max(1, n))
        return fail(M::LDA_TOO_SMALL, lda, n);
    if (ldb < std::max(1, n))
        return fail(M::LDB_TOO_SMALL, ldb, n);
    const double anorm = k::dlange(one_norm, n, n, a, lda, nullptr);
    const int info = k::dgesv(n, nrhs, a, lda, ipiv, b, ldb);
    conclude(info, n, rcond, errbnd, fail, M::ZERO_PIVOT, M::ILL_CONDITIONED, [&] {
        auto w = work<double>(n, 4);
        auto iw = work<int>(n);
        double r = 0.0;
        k::dgecon(one_norm, n, a, lda, anorm, r, w.data(), iw.data());
        return r;
    });
}

void F04BBFN(int n, int kl, int ku, int nrhs, double* ab, int ldab, int* ipiv, double* b, int ldb,
             double& rcond, double& errbnd, Fail& fail)
{
    using M = F04BBF_msg;
    if (n < 0)
        return fail(M::N_NEGATIVE, n);
    if (kl < 0)
        return fail(M::KL_NEGATIVE, kl);
    if (ku < 0)
        return fail(M::KU_NEGATIVE, ku);
    if (nrhs < 0)
        return fail(M::NRHS_NEGATIVE, nrhs);
    if (ldab < 2LL * kl + ku + 1)  // no overflow for any KL, KU
        return fail(M::LDAB_BAND, ldab, kl, ku);
    if (ldb < std::max(1, n))
        return fail(M::LDB_TOO_SMALL, ldb, n);
    // A occupies rows KL+1 to 2*KL+KU+1 of AB.
    const double anorm = k::dlangb(one_norm, n, kl, ku, ab + kl, ldab, nullptr);
    const int info = k::dgbsv(n, kl, ku, nrhs, ab, ldab, ipiv, b, ldb);
    conclude(info, n, rcond, errbnd, fail, M::ZERO_PIVOT, M::ILL_CONDITIONED, [&] {
        auto w = work<double>(n, 3);
        auto iw = work<int>(n);
        double r = 0.0;
        k::dgbcon(one_norm, n, kl, ku, ab, ldab, ipiv, anorm, r, w.data(), iw.data());
        return r;
    });
}

void F04BCFN(int n, int nrhs, double* dl, double* d, double* du, double* du2, int* ipiv, double* b,
             int ldb, double& rcond, double& errbnd, Fail& fail)
{
    using M = F04BCF_msg;
    if (n < 0)
        return fail(M::N_NEGATIVE, n);
    if (nrhs < 0)
        return fail(M::NRHS_NEGATIVE, nrhs);
    if (ldb < std::max(1, n))
        return fail(M::LDB_TOO_SMALL, ldb, n);
    const double anorm = k::dlangt(one_norm, n, dl, d, du);
    int info = k::dgttrf(n, dl, d, du, du2, ipiv);
    if (info == 0)
        info = k::dgttrs(no_transpose, n, nrhs, dl, d, du, du2, ipiv, b, ldb);
    conclude(info, n, rcond, errbnd, fail, M::ZERO_PIVOT, M::ILL_CONDITIONED, [&] {
        auto w = work<double>(n, 2);
        auto iw = work<int>(n);
        double r = 0.0;
        k::dgtcon(one_norm, n, dl, d, du, du2, ipiv, anorm, r, w.data(), iw.data());
        return r;
    });
}

void F04BDFN(char uplo, int n, int nrhs, double* a, int lda, double* b, int ldb, double& rcond,
             double& errbnd, Fail& fail)
{
    using M = F04BDF_msg;
    if (bad_uplo(uplo))
        return fail(M::UPLO_INVALID, uplo);
    if (n < 0)
        return fail(M::N_NEGATIVE, n);
    if (nrhs < 0)
        return fail(M::NRHS_NEGATIVE, nrhs);
    if (lda < std::max(1, n))
        return fail(M::LDA_TOO_SMALL, lda, n);
    if (ldb < std::max(1, n))
        return fail(M::LDB_TOO_SMALL, ldb, n);
    auto nw = work<double>(n);
    const double anorm = k::dlansy(one_norm, option(uplo), n, a, lda, nw.data());
    const int info = k::dposv(option(uplo), n, nrhs, a, lda, b, ldb);
    conclude(info, n, rcond, errbnd, fail, M::NOT_POSITIVE_DEFINITE, M::ILL_CONDITIONED, [&] {
        auto w = work<double>(n, 3);
        auto iw = work<int>(n);
        double r = 0.0;
        k::dpocon(option(uplo), n, a, lda, anorm, r, w.data(), iw.data());
        return r;
    });
}

void F04BEFN(char uplo, int n, int nrhs, double* ap, double* b, int ldb, double& rcond,
             double& errbnd, Fail& fail)
{
    using M = F04BEF_msg;
    if (bad_uplo(uplo))
        return fail(M::UPLO_INVALID, uplo);
    if (n < 0)
        return fail(M::N_NEGATIVE, n);
    if (nrhs < 0)
        return fail(M::NRHS_NEGATIVE, nrhs);
    if (ldb < std::max(1, n))
        return fail(M::LDB_TOO_SMALL, ldb, n);
    auto nw = work<double>(n);
    const double anorm = k::dlansp(one_norm, option(uplo), n, ap, nw.data());
    const int info = k::dppsv(option(uplo), n, nrhs, ap, b, ldb);
    conclude(info, n, rcond, errbnd, fail, M::NOT_POSITIVE_DEFINITE, M::ILL_CONDITIONED, [&] {
        auto w = work<double>(n, 3);
        auto iw = work<int>(n);
        double r = 0.0;
        k::dppcon(option(uplo), n, ap, anorm, r, w.data(), iw.data());
        return r;
    });
}

void F04BFFN(char uplo, int n, int kd, int nrhs, double* ab, int ldab, double* b, int ldb,
             double& rcond, double& errbnd, Fail& fail)
{
    using M = F04BFF_msg;
    if (bad_uplo(uplo))
        return fail(M::UPLO_INVALID, uplo);
    if (n < 0)
        return fail(M::N_NEGATIVE, n);
    if (kd < 0)
        return fail(M::KD_NEGATIVE, kd);
    if (nrhs < 0)
        return fail(M::NRHS_NEGATIVE, nrhs);
    if (ldab < kd + 1LL)
        return fail(M::LDAB_SYMMETRIC_BAND, ldab, kd);
    if (ldb < std::max(1, n))
        return fail(M::LDB_TOO_SMALL, ldb, n);
    auto nw = work<double>(n);
    const double anorm = k::dlansb(one_norm, option(uplo), n, kd, ab, ldab, nw.data());
    const int info = k::dpbsv(option(uplo), n, kd, nrhs, ab, ldab, b, ldb);
    conclude(info, n, rcond, errbnd, fail, M::NOT_POSITIVE_DEFINITE, M::ILL_CONDITIONED, [&] {
        auto w = work<double>(n, 3);
        auto iw = work<int>(n);
        double r = 0.0;
        k::dpbcon(option(uplo), n, kd, ab, ldab, anorm, r, w.data(), iw.data());
        return r;
    });
}

void F04BGFN(int n, int nrhs, double* d, double* e, double* b, int ldb, double& rcond,
             double& errbnd, Fail& fail)
{
    using M = F04BGF_msg;
    if (n < 0)
        return fail(M::N_NEGATIVE, n);
    if (nrhs < 0)
        return fail(M::NRHS_NEGATIVE, nrhs);
    if (ldb < std::max(1, n))
        return fail(M::LDB_TOO_SMALL, ldb, n);
    const double anorm = k::dlanst(one_norm, n, d, e);
    const int info = k::dptsv(n, nrhs, d, e, b, ldb);
    conclude(info, n, rcond, errbnd, fail, M::NOT_POSITIVE_DEFINITE, M::ILL_CONDITIONED, [&] {
        auto w = work<double>(n);
        double r = 0.0;
        k::dptcon(n, d, e, anorm, r, w.data());
        return r;
    });
}

void F04BHFN(char uplo, int n, int nrhs, double* a, int lda, int* ipiv, double* b, int ldb,
             double& rcond, double& errbnd, Fail& fail)
{
    using M = F04BHF_msg;
    if (bad_uplo(uplo))
        return fail(M::UPLO_INVALID, uplo);
    if (n < 0)
        return fail(M::N_NEGATIVE, n);
    if (nrhs < 0)
        return fail(M::NRHS_NEGATIVE, nrhs);
    if (lda < std::max(1, n))
        return fail(M::LDA_TOO_SMALL, lda, n);
    if (ldb < std::max(1, n))
        return fail(M::LDB_TOO_SMALL, ldb, n);
    auto nw = work<double>(n);
    const double anorm = k::dlansy(one_norm, option(uplo), n, a, lda, nw.data());
    const int info = with_queried_work<double>(
        [&](double* w, int lwork) {
            return k::dsysv(option(uplo), n, nrhs, a, lda, ipiv, b, ldb, w, lwork);
        },
        packed_at_risk(anorm), n);
    conclude(info, n, rcond, errbnd, fail, M::ZERO_BLOCK, M::ILL_CONDITIONED, [&] {
        auto w = work<double>(n, 2);
        auto iw = work<int>(n);
        double r = 0.0;
        k::dsycon(option(uplo), n, a, lda, ipiv, anorm, r, w.data(), iw.data());
        return r;
    });
}

void F04BJFN(char uplo, int n, int nrhs, double* ap, int* ipiv, double* b, int ldb, double& rcond,
             double& errbnd, Fail& fail)
{
    using M = F04BJF_msg;
    if (bad_uplo(uplo))
        return fail(M::UPLO_INVALID, uplo);
    if (n < 0)
        return fail(M::N_NEGATIVE, n);
    if (nrhs < 0)
        return fail(M::NRHS_NEGATIVE, nrhs);
    if (ldb < std::max(1, n))
        return fail(M::LDB_TOO_SMALL, ldb, n);
    auto nw = work<double>(n);
    const double anorm = k::dlansp(one_norm, option(uplo), n, ap, nw.data());
    const int info = packed_at_risk(anorm)
                         ? packed_in_full<double>(uplo, n, ap,
                                                  [&](double* a, int lda, double* w, int lwork) {
                                                      return k::dsysv(option(uplo), n, nrhs, a, lda,
                                                                      ipiv, b, ldb, w, lwork);
                                                  })
                         : k::dspsv(option(uplo), n, nrhs, ap, ipiv, b, ldb);
    conclude(info, n, rcond, errbnd, fail, M::ZERO_BLOCK, M::ILL_CONDITIONED, [&] {
        auto w = work<double>(n, 2);
        auto iw = work<int>(n);
        double r = 0.0;
        k::dspcon(option(uplo), n, ap, ipiv, anorm, r, w.data(), iw.data());
        return r;
    });
}

// ---------------------------------------------------------------- complex

void F04CAFN(int n, int nrhs, Complex* a, int lda, int* ipiv, Complex* b, int ldb, double& rcond,
             double& errbnd, Fail& fail)
{
    using M = F04CAF_msg;
    if (n < 0)
        return fail(M::N_NEGATIVE, n);
    if (nrhs < 0)
        return fail(M::NRHS_NEGATIVE, nrhs);
    if (lda < std::max(1, n))
        return fail(M::LDA_TOO_SMALL, lda, n);
    if (ldb < std::max(1, n))
        return fail(M::LDB_TOO_SMALL, ldb, n);
    const double anorm = k::zlange(one_norm, n, n, a, lda, nullptr);
    const int info = k::zgesv(n, nrhs, a, lda, ipiv, b, ldb);
    conclude(info, n, rcond, errbnd, fail, M::ZERO_PIVOT, M::ILL_CONDITIONED, [&] {
        auto w = work<Complex>(n, 2);
        auto rw = work<double>(n, 2);
        double r = 0.0;
        k::zgecon(one_norm, n, a, lda, anorm, r, w.data(), rw.data());
        return r;
    });
}

void F04CBFN(int n, int kl, int ku, int nrhs, Complex* ab, int ldab, int* ipiv, Complex* b, int ldb,
             double& rcond, double& errbnd, Fail& fail)
{
    using M = F04CBF_msg;
    if (n < 0)
        return fail(M::N_NEGATIVE, n);
    if (kl < 0)
        return fail(M::KL_NEGATIVE, kl);
    if (ku < 0)
        return fail(M::KU_NEGATIVE, ku);
    if (nrhs < 0)
        return fail(M::NRHS_NEGATIVE, nrhs);
    if (ldab < 2LL * kl + ku + 1)
        return fail(M::LDAB_BAND, ldab, kl, ku);
    if (ldb < std::max(1, n))
        return fail(M::LDB_TOO_SMALL, ldb, n);
    const double anorm = k::zlangb(one_norm, n, kl, ku, ab + kl, ldab, nullptr);
    const int info = k::zgbsv(n, kl, ku, nrhs, ab, ldab, ipiv, b, ldb);
    conclude(info, n, rcond, errbnd, fail, M::ZERO_PIVOT, M::ILL_CONDITIONED, [&] {
        auto w = work<Complex>(n, 2);
        auto rw = work<double>(n);
        double r = 0.0;
        k::zgbcon(one_norm, n, kl, ku, ab, ldab, ipiv, anorm, r, w.data(), rw.data());
        return r;
    });
}

void F04CCFN(int n, int nrhs, Complex* dl, Complex* d, Complex* du, Complex* du2, int* ipiv,
             Complex* b, int ldb, double& rcond, double& errbnd, Fail& fail)
{
    using M = F04CCF_msg;
    if (n < 0)
        return fail(M::N_NEGATIVE, n);
    if (nrhs < 0)
        return fail(M::NRHS_NEGATIVE, nrhs);
    if (ldb < std::max(1, n))
        return fail(M::LDB_TOO_SMALL, ldb, n);
    const double anorm = k::zlangt(one_norm, n, dl, d, du);
    int info = k::zgttrf(n, dl, d, du, du2, ipiv);
    if (info == 0)
        info = k::zgttrs(no_transpose, n, nrhs, dl, d, du, du2, ipiv, b, ldb);
    conclude(info, n, rcond, errbnd, fail, M::ZERO_PIVOT, M::ILL_CONDITIONED, [&] {
        auto w = work<Complex>(n, 2);
        double r = 0.0;
        k::zgtcon(one_norm, n, dl, d, du, du2, ipiv, anorm, r, w.data());
        return r;
    });
}

void F04CDFN(char uplo, int n, int nrhs, Complex* a, int lda, Complex* b, int ldb, double& rcond,
             double& errbnd, Fail& fail)
{
    using M = F04CDF_msg;
    if (bad_uplo(uplo))
        return fail(M::UPLO_INVALID, uplo);
    if (n < 0)
        return fail(M::N_NEGATIVE, n);
    if (nrhs < 0)
        return fail(M::NRHS_NEGATIVE, nrhs);
    if (lda < std::max(1, n))
        return fail(M::LDA_TOO_SMALL, lda, n);
    if (ldb < std::max(1, n))
        return fail(M::LDB_TOO_SMALL, ldb, n);
    auto nw = work<double>(n);
    const double anorm = k::zlanhe(one_norm, option(uplo), n, a, lda, nw.data());
    const int info = k::zposv(option(uplo), n, nrhs, a, lda, b, ldb);
    conclude(info, n, rcond, errbnd, fail, M::NOT_POSITIVE_DEFINITE, M::ILL_CONDITIONED, [&] {
        auto w = work<Complex>(n, 2);
        auto rw = work<double>(n);
        double r = 0.0;
        k::zpocon(option(uplo), n, a, lda, anorm, r, w.data(), rw.data());
        return r;
    });
}

void F04CEFN(char uplo, int n, int nrhs, Complex* ap, Complex* b, int ldb, double& rcond,
             double& errbnd, Fail& fail)
{
    using M = F04CEF_msg;
    if (bad_uplo(uplo))
        return fail(M::UPLO_INVALID, uplo);
    if (n < 0)
        return fail(M::N_NEGATIVE, n);
    if (nrhs < 0)
        return fail(M::NRHS_NEGATIVE, nrhs);
    if (ldb < std::max(1, n))
        return fail(M::LDB_TOO_SMALL, ldb, n);
    auto nw = work<double>(n);
    const double anorm = k::zlanhp(one_norm, option(uplo), n, ap, nw.data());
    const int info = k::zppsv(option(uplo), n, nrhs, ap, b, ldb);
    conclude(info, n, rcond, errbnd, fail, M::NOT_POSITIVE_DEFINITE, M::ILL_CONDITIONED, [&] {
        auto w = work<Complex>(n, 2);
        auto rw = work<double>(n);
        double r = 0.0;
        k::zppcon(option(uplo), n, ap, anorm, r, w.data(), rw.data());
        return r;
    });
}

void F04CFFN(char uplo, int n, int kd, int nrhs, Complex* ab, int ldab, Complex* b, int ldb,
             double& rcond, double& errbnd, Fail& fail)
{
    using M = F04CFF_msg;
    if (bad_uplo(uplo))
        return fail(M::UPLO_INVALID, uplo);
    if (n < 0)
        return fail(M::N_NEGATIVE, n);
    if (kd < 0)
        return fail(M::KD_NEGATIVE, kd);
    if (nrhs < 0)
        return fail(M::NRHS_NEGATIVE, nrhs);
    if (ldab < kd + 1LL)
        return fail(M::LDAB_SYMMETRIC_BAND, ldab, kd);
    if (ldb < std::max(1, n))
        return fail(M::LDB_TOO_SMALL, ldb, n);
    auto nw = work<double>(n);
    const double anorm = k::zlanhb(one_norm, option(uplo), n, kd, ab, ldab, nw.data());
    const int info = k::zpbsv(option(uplo), n, kd, nrhs, ab, ldab, b, ldb);
    conclude(info, n, rcond, errbnd, fail, M::NOT_POSITIVE_DEFINITE, M::ILL_CONDITIONED, [&] {
        auto w = work<Complex>(n, 2);
        auto rw = work<double>(n);
        double r = 0.0;
        k::zpbcon(option(uplo), n, kd, ab, ldab, anorm, r, w.data(), rw.data());
        return r;
    });
}

void F04CGFN(int n, int nrhs, double* d, Complex* e, Complex* b, int ldb, double& rcond,
             double& errbnd, Fail& fail)
{
    using M = F04CGF_msg;
    if (n < 0)
        return fail(M::N_NEGATIVE, n);
    if (nrhs < 0)
        return fail(M::NRHS_NEGATIVE, nrhs);
    if (ldb < std::max(1, n))
        return fail(M::LDB_TOO_SMALL, ldb, n);
    const double anorm = k::zlanht(one_norm, n, d, e);
    const int info = k::zptsv(n, nrhs, d, e, b, ldb);
    conclude(info, n, rcond, errbnd, fail, M::NOT_POSITIVE_DEFINITE, M::ILL_CONDITIONED, [&] {
        auto rw = work<double>(n);
        double r = 0.0;
        k::zptcon(n, d, e, anorm, r, rw.data());
        return r;
    });
}

namespace {

// F04CHF and F04DHF: the Hermitian and the complex symmetric indefinite
// solvers differ only in their standard routines.
template <class M, class Norm, class Driver, class Estimator>
void complex_indefinite(char uplo, int n, int nrhs, Complex* a, int lda, int* ipiv, Complex* b,
                        int ldb, double& rcond, double& errbnd, Fail& fail, Norm norm,
                        Driver driver, Estimator estimator)
{
    if (bad_uplo(uplo))
        return fail(M::UPLO_INVALID, uplo);
    if (n < 0)
        return fail(M::N_NEGATIVE, n);
    if (nrhs < 0)
        return fail(M::NRHS_NEGATIVE, nrhs);
    if (lda < std::max(1, n))
        return fail(M::LDA_TOO_SMALL, lda, n);
    if (ldb < std::max(1, n))
        return fail(M::LDB_TOO_SMALL, ldb, n);
    auto nw = work<double>(n);
    const double anorm = norm(one_norm, option(uplo), n, a, lda, nw.data());
    const int info = with_queried_work<Complex>(
        [&](Complex* w, int lwork) {
            return driver(option(uplo), n, nrhs, a, lda, ipiv, b, ldb, w, lwork);
        },
        packed_at_risk(anorm), n);
    conclude(info, n, rcond, errbnd, fail, M::ZERO_BLOCK, M::ILL_CONDITIONED, [&] {
        auto w = work<Complex>(n, 2);
        double r = 0.0;
        estimator(option(uplo), n, a, lda, ipiv, anorm, r, w.data());
        return r;
    });
}

}  // namespace

void F04CHFN(char uplo, int n, int nrhs, Complex* a, int lda, int* ipiv, Complex* b, int ldb,
             double& rcond, double& errbnd, Fail& fail)
{
    complex_indefinite<F04CHF_msg>(uplo, n, nrhs, a, lda, ipiv, b, ldb, rcond, errbnd, fail,
                                   k::zlanhe, k::zhesv, k::zhecon);
}

void F04DHFN(char uplo, int n, int nrhs, Complex* a, int lda, int* ipiv, Complex* b, int ldb,
             double& rcond, double& errbnd, Fail& fail)
{
    complex_indefinite<F04DHF_msg>(uplo, n, nrhs, a, lda, ipiv, b, ldb, rcond, errbnd, fail,
                                   k::zlansy, k::zsysv, k::zsycon);
}

void F04CJFN(char uplo, int n, int nrhs, Complex* ap, int* ipiv, Complex* b, int ldb, double& rcond,
             double& errbnd, Fail& fail)
{
    using M = F04CJF_msg;
    if (bad_uplo(uplo))
        return fail(M::UPLO_INVALID, uplo);
    if (n < 0)
        return fail(M::N_NEGATIVE, n);
    if (nrhs < 0)
        return fail(M::NRHS_NEGATIVE, nrhs);
    if (ldb < std::max(1, n))
        return fail(M::LDB_TOO_SMALL, ldb, n);
    auto nw = work<double>(n);
    const double anorm = k::zlanhp(one_norm, option(uplo), n, ap, nw.data());
    const int info = packed_at_risk(anorm)
                         ? packed_in_full<Complex>(uplo, n, ap,
                                                   [&](Complex* a, int lda, Complex* w, int lwork) {
                                                       return k::zhesv(option(uplo), n, nrhs, a,
                                                                       lda, ipiv, b, ldb, w, lwork);
                                                   })
                         : k::zhpsv(option(uplo), n, nrhs, ap, ipiv, b, ldb);
    conclude(info, n, rcond, errbnd, fail, M::ZERO_BLOCK, M::ILL_CONDITIONED, [&] {
        auto w = work<Complex>(n, 2);
        double r = 0.0;
        k::zhpcon(option(uplo), n, ap, ipiv, anorm, r, w.data());
        return r;
    });
}

}  // namespace lbx::linalg
