// Black-box solvers of A X = B (F04BAF, ...): argument checks, the 1-norm of
// A, the standard driver, then the condition estimate in the 1-norm and the
// forward error bound.  Every standard routine is reached through
// linalg/solver_kernels.hpp.  The real and complex solvers of a matrix class
// are one template over the element type T (double or Complex); pick<T>
// chooses the standard routine of T's precision.
#include <algorithm>
#include <string_view>
#include <type_traits>
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

// The real routine for T = double, the complex one for T = Complex.
template <class T, class Real, class Cplx>
constexpr auto pick(Real real, Cplx cplx)
{
    if constexpr (std::is_same_v<T, double>)
        return real;
    else
        return cplx;
}

// Work space of n elements (at least one) in a std::vector: allocation
// failure throws, and the traced entry reports IFAIL = -999.
template <class T>
std::vector<T> work(int n, int per_row = 1)
{
    return std::vector<T>(static_cast<std::size_t>(std::max(1, n)) * per_row);
}

// RCOND from a standard estimator called with ARGS, RCOND and the work arrays
// it takes: WORK and IWORK (real), WORK and RWORK (complex), WORK alone or
// RWORK alone.  Each array is as long as the most any estimator asks for.
template <class T, class Estimator, class... Args>
double estimate(Estimator estimator, int n, Args... args)
{
    auto w = work<T>(n, 4);
    double r = 0.0;
    if constexpr (std::is_invocable_v<Estimator, Args..., double&, T*, int*>) {
        auto iw = work<int>(n);
        estimator(args..., r, w.data(), iw.data());
    } else if constexpr (std::is_invocable_v<Estimator, Args..., double&, T*, double*>) {
        auto rw = work<double>(n, 2);
        estimator(args..., r, w.data(), rw.data());
    } else if constexpr (std::is_invocable_v<Estimator, Args..., double&, T*>) {
        estimator(args..., r, w.data());
    } else {
        auto rw = work<double>(n);
        estimator(args..., r, rw.data());
    }
    return r;
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

// N, then NRHS: the checks every solver makes after UPLO (the band solvers
// check KL, KU, KD between the two); each returns true when it has failed.
template <class M>
bool bad_n_nrhs(int n, int nrhs, Fail& fail)
{
    if (n < 0)
        fail(M::N_NEGATIVE, n);
    else if (nrhs < 0)
        fail(M::NRHS_NEGATIVE, nrhs);
    else
        return false;
    return true;
}

// A leading dimension below max(1, N).
bool bad_ld(int ld, int n, const Message<2>& message, Fail& fail)
{
    if (ld >= std::max(1, n))
        return false;
    fail(message, ld, n);
    return true;
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

// ---------------------------------------------------------------- one template a class

template <class M, class T>
void general(int n, int nrhs, T* a, int lda, int* ipiv, T* b, int ldb, double& rcond,
             double& errbnd, Fail& fail)
{
    if (bad_n_nrhs<M>(n, nrhs, fail) || bad_ld(lda, n, M::LDA_TOO_SMALL, fail) ||
        bad_ld(ldb, n, M::LDB_TOO_SMALL, fail))
        return;
    const double anorm = pick<T>(k::dlange, k::zlange)(one_norm, n, n, a, lda, nullptr);
    const int info = pick<T>(k::dgesv, k::zgesv)(n, nrhs, a, lda, ipiv, b, ldb);
    conclude(info, n, rcond, errbnd, fail, M::ZERO_PIVOT, M::ILL_CONDITIONED, [&] {
        return estimate<T>(pick<T>(k::dgecon, k::zgecon), n, one_norm, n, a, lda, anorm);
    });
}

template <class M, class T>
void band(int n, int kl, int ku, int nrhs, T* ab, int ldab, int* ipiv, T* b, int ldb, double& rcond,
          double& errbnd, Fail& fail)
{
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
    if (bad_ld(ldb, n, M::LDB_TOO_SMALL, fail))
        return;
    // A occupies rows KL+1 to 2*KL+KU+1 of AB.
    const double anorm = pick<T>(k::dlangb, k::zlangb)(one_norm, n, kl, ku, ab + kl, ldab, nullptr);
    const int info = pick<T>(k::dgbsv, k::zgbsv)(n, kl, ku, nrhs, ab, ldab, ipiv, b, ldb);
    conclude(info, n, rcond, errbnd, fail, M::ZERO_PIVOT, M::ILL_CONDITIONED, [&] {
        return estimate<T>(pick<T>(k::dgbcon, k::zgbcon), n, one_norm, n, kl, ku, ab, ldab, ipiv,
                           anorm);
    });
}

template <class M, class T>
void tridiagonal(int n, int nrhs, T* dl, T* d, T* du, T* du2, int* ipiv, T* b, int ldb,
                 double& rcond, double& errbnd, Fail& fail)
{
    if (bad_n_nrhs<M>(n, nrhs, fail) || bad_ld(ldb, n, M::LDB_TOO_SMALL, fail))
        return;
    const double anorm = pick<T>(k::dlangt, k::zlangt)(one_norm, n, dl, d, du);
    int info = pick<T>(k::dgttrf, k::zgttrf)(n, dl, d, du, du2, ipiv);
    if (info == 0)
        info = pick<T>(k::dgttrs, k::zgttrs)(no_transpose, n, nrhs, dl, d, du, du2, ipiv, b, ldb);
    conclude(info, n, rcond, errbnd, fail, M::ZERO_PIVOT, M::ILL_CONDITIONED, [&] {
        return estimate<T>(pick<T>(k::dgtcon, k::zgtcon), n, one_norm, n, dl, d, du, du2, ipiv,
                           anorm);
    });
}

template <class M, class T>
void definite(char uplo, int n, int nrhs, T* a, int lda, T* b, int ldb, double& rcond,
              double& errbnd, Fail& fail)
{
    if (bad_uplo(uplo))
        return fail(M::UPLO_INVALID, uplo);
    if (bad_n_nrhs<M>(n, nrhs, fail) || bad_ld(lda, n, M::LDA_TOO_SMALL, fail) ||
        bad_ld(ldb, n, M::LDB_TOO_SMALL, fail))
        return;
    auto nw = work<double>(n);
    const double anorm =
        pick<T>(k::dlansy, k::zlanhe)(one_norm, option(uplo), n, a, lda, nw.data());
    const int info = pick<T>(k::dposv, k::zposv)(option(uplo), n, nrhs, a, lda, b, ldb);
    conclude(info, n, rcond, errbnd, fail, M::NOT_POSITIVE_DEFINITE, M::ILL_CONDITIONED, [&] {
        return estimate<T>(pick<T>(k::dpocon, k::zpocon), n, option(uplo), n, a, lda, anorm);
    });
}

template <class M, class T>
void definite_packed(char uplo, int n, int nrhs, T* ap, T* b, int ldb, double& rcond,
                     double& errbnd, Fail& fail)
{
    if (bad_uplo(uplo))
        return fail(M::UPLO_INVALID, uplo);
    if (bad_n_nrhs<M>(n, nrhs, fail) || bad_ld(ldb, n, M::LDB_TOO_SMALL, fail))
        return;
    auto nw = work<double>(n);
    const double anorm = pick<T>(k::dlansp, k::zlanhp)(one_norm, option(uplo), n, ap, nw.data());
    const int info = pick<T>(k::dppsv, k::zppsv)(option(uplo), n, nrhs, ap, b, ldb);
    conclude(info, n, rcond, errbnd, fail, M::NOT_POSITIVE_DEFINITE, M::ILL_CONDITIONED, [&] {
        return estimate<T>(pick<T>(k::dppcon, k::zppcon), n, option(uplo), n, ap, anorm);
    });
}

template <class M, class T>
void definite_band(char uplo, int n, int kd, int nrhs, T* ab, int ldab, T* b, int ldb,
                   double& rcond, double& errbnd, Fail& fail)
{
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
    if (bad_ld(ldb, n, M::LDB_TOO_SMALL, fail))
        return;
    auto nw = work<double>(n);
    const double anorm =
        pick<T>(k::dlansb, k::zlanhb)(one_norm, option(uplo), n, kd, ab, ldab, nw.data());
    const int info = pick<T>(k::dpbsv, k::zpbsv)(option(uplo), n, kd, nrhs, ab, ldab, b, ldb);
    conclude(info, n, rcond, errbnd, fail, M::NOT_POSITIVE_DEFINITE, M::ILL_CONDITIONED, [&] {
        return estimate<T>(pick<T>(k::dpbcon, k::zpbcon), n, option(uplo), n, kd, ab, ldab, anorm);
    });
}

// D is real for both element types.
template <class M, class T>
void definite_tridiagonal(int n, int nrhs, double* d, T* e, T* b, int ldb, double& rcond,
                          double& errbnd, Fail& fail)
{
    if (bad_n_nrhs<M>(n, nrhs, fail) || bad_ld(ldb, n, M::LDB_TOO_SMALL, fail))
        return;
    const double anorm = pick<T>(k::dlanst, k::zlanht)(one_norm, n, d, e);
    const int info = pick<T>(k::dptsv, k::zptsv)(n, nrhs, d, e, b, ldb);
    conclude(info, n, rcond, errbnd, fail, M::NOT_POSITIVE_DEFINITE, M::ILL_CONDITIONED,
             [&] { return estimate<T>(pick<T>(k::dptcon, k::zptcon), n, n, d, e, anorm); });
}

// F04BHF, F04CHF and F04DHF: the symmetric, Hermitian and complex symmetric
// indefinite solvers differ only in their standard routines.
template <class M, class T, class Norm, class Driver, class Estimator>
void indefinite(char uplo, int n, int nrhs, T* a, int lda, int* ipiv, T* b, int ldb, double& rcond,
                double& errbnd, Fail& fail, Norm norm, Driver driver, Estimator estimator)
{
    if (bad_uplo(uplo))
        return fail(M::UPLO_INVALID, uplo);
    if (bad_n_nrhs<M>(n, nrhs, fail) || bad_ld(lda, n, M::LDA_TOO_SMALL, fail) ||
        bad_ld(ldb, n, M::LDB_TOO_SMALL, fail))
        return;
    auto nw = work<double>(n);
    const double anorm = norm(one_norm, option(uplo), n, a, lda, nw.data());
    const int info = with_queried_work<T>(
        [&](T* w, int lwork) {
            return driver(option(uplo), n, nrhs, a, lda, ipiv, b, ldb, w, lwork);
        },
        packed_at_risk(anorm), n);
    conclude(info, n, rcond, errbnd, fail, M::ZERO_BLOCK, M::ILL_CONDITIONED,
             [&] { return estimate<T>(estimator, n, option(uplo), n, a, lda, ipiv, anorm); });
}

template <class M, class T>
void indefinite_packed(char uplo, int n, int nrhs, T* ap, int* ipiv, T* b, int ldb, double& rcond,
                       double& errbnd, Fail& fail)
{
    if (bad_uplo(uplo))
        return fail(M::UPLO_INVALID, uplo);
    if (bad_n_nrhs<M>(n, nrhs, fail) || bad_ld(ldb, n, M::LDB_TOO_SMALL, fail))
        return;
    auto nw = work<double>(n);
    const double anorm = pick<T>(k::dlansp, k::zlanhp)(one_norm, option(uplo), n, ap, nw.data());
    const auto full_driver = pick<T>(k::dsysv, k::zhesv);
    const int info = packed_at_risk(anorm)
                         ? packed_in_full<T>(uplo, n, ap,
                                             [&](T* a, int lda, T* w, int lwork) {
                                                 return full_driver(option(uplo), n, nrhs, a, lda,
                                                                    ipiv, b, ldb, w, lwork);
                                             })
                         : pick<T>(k::dspsv, k::zhpsv)(option(uplo), n, nrhs, ap, ipiv, b, ldb);
    conclude(info, n, rcond, errbnd, fail, M::ZERO_BLOCK, M::ILL_CONDITIONED, [&] {
        return estimate<T>(pick<T>(k::dspcon, k::zhpcon), n, option(uplo), n, ap, ipiv, anorm);
    });
}

}  // namespace

// ---------------------------------------------------------------- the solvers

void F04BAFN(int n, int nrhs, double* a, int lda, int* ipiv, double* b, int ldb, double& rcond,
             double& errbnd, Fail& fail)
{
    general<F04BAF_msg>(n, nrhs, a, lda, ipiv, b, ldb, rcond, errbnd, fail);
}

void F04CAFN(int n, int nrhs, Complex* a, int lda, int* ipiv, Complex* b, int ldb, double& rcond,
             double& errbnd, Fail& fail)
{
    general<F04CAF_msg>(n, nrhs, a, lda, ipiv, b, ldb, rcond, errbnd, fail);
}

void F04BBFN(int n, int kl, int ku, int nrhs, double* ab, int ldab, int* ipiv, double* b, int ldb,
             double& rcond, double& errbnd, Fail& fail)
{
    band<F04BBF_msg>(n, kl, ku, nrhs, ab, ldab, ipiv, b, ldb, rcond, errbnd, fail);
}

void F04CBFN(int n, int kl, int ku, int nrhs, Complex* ab, int ldab, int* ipiv, Complex* b, int ldb,
             double& rcond, double& errbnd, Fail& fail)
{
    band<F04CBF_msg>(n, kl, ku, nrhs, ab, ldab, ipiv, b, ldb, rcond, errbnd, fail);
}

void F04BCFN(int n, int nrhs, double* dl, double* d, double* du, double* du2, int* ipiv, double* b,
             int ldb, double& rcond, double& errbnd, Fail& fail)
{
    tridiagonal<F04BCF_msg>(n, nrhs, dl, d, du, du2, ipiv, b, ldb, rcond, errbnd, fail);
}

void F04CCFN(int n, int nrhs, Complex* dl, Complex* d, Complex* du, Complex* du2, int* ipiv,
             Complex* b, int ldb, double& rcond, double& errbnd, Fail& fail)
{
    tridiagonal<F04CCF_msg>(n, nrhs, dl, d, du, du2, ipiv, b, ldb, rcond, errbnd, fail);
}

void F04BDFN(char uplo, int n, int nrhs, double* a, int lda, double* b, int ldb, double& rcond,
             double& errbnd, Fail& fail)
{
    definite<F04BDF_msg>(uplo, n, nrhs, a, lda, b, ldb, rcond, errbnd, fail);
}

void F04CDFN(char uplo, int n, int nrhs, Complex* a, int lda, Complex* b, int ldb, double& rcond,
             double& errbnd, Fail& fail)
{
    definite<F04CDF_msg>(uplo, n, nrhs, a, lda, b, ldb, rcond, errbnd, fail);
}

void F04BEFN(char uplo, int n, int nrhs, double* ap, double* b, int ldb, double& rcond,
             double& errbnd, Fail& fail)
{
    definite_packed<F04BEF_msg>(uplo, n, nrhs, ap, b, ldb, rcond, errbnd, fail);
}

void F04CEFN(char uplo, int n, int nrhs, Complex* ap, Complex* b, int ldb, double& rcond,
             double& errbnd, Fail& fail)
{
    definite_packed<F04CEF_msg>(uplo, n, nrhs, ap, b, ldb, rcond, errbnd, fail);
}

void F04BFFN(char uplo, int n, int kd, int nrhs, double* ab, int ldab, double* b, int ldb,
             double& rcond, double& errbnd, Fail& fail)
{
    definite_band<F04BFF_msg>(uplo, n, kd, nrhs, ab, ldab, b, ldb, rcond, errbnd, fail);
}

void F04CFFN(char uplo, int n, int kd, int nrhs, Complex* ab, int ldab, Complex* b, int ldb,
             double& rcond, double& errbnd, Fail& fail)
{
    definite_band<F04CFF_msg>(uplo, n, kd, nrhs, ab, ldab, b, ldb, rcond, errbnd, fail);
}

void F04BGFN(int n, int nrhs, double* d, double* e, double* b, int ldb, double& rcond,
             double& errbnd, Fail& fail)
{
    definite_tridiagonal<F04BGF_msg>(n, nrhs, d, e, b, ldb, rcond, errbnd, fail);
}

void F04CGFN(int n, int nrhs, double* d, Complex* e, Complex* b, int ldb, double& rcond,
             double& errbnd, Fail& fail)
{
    definite_tridiagonal<F04CGF_msg>(n, nrhs, d, e, b, ldb, rcond, errbnd, fail);
}

void F04BHFN(char uplo, int n, int nrhs, double* a, int lda, int* ipiv, double* b, int ldb,
             double& rcond, double& errbnd, Fail& fail)
{
    indefinite<F04BHF_msg>(uplo, n, nrhs, a, lda, ipiv, b, ldb, rcond, errbnd, fail, k::dlansy,
                           k::dsysv, k::dsycon);
}

void F04CHFN(char uplo, int n, int nrhs, Complex* a, int lda, int* ipiv, Complex* b, int ldb,
             double& rcond, double& errbnd, Fail& fail)
{
    indefinite<F04CHF_msg>(uplo, n, nrhs, a, lda, ipiv, b, ldb, rcond, errbnd, fail, k::zlanhe,
                           k::zhesv, k::zhecon);
}

void F04DHFN(char uplo, int n, int nrhs, Complex* a, int lda, int* ipiv, Complex* b, int ldb,
             double& rcond, double& errbnd, Fail& fail)
{
    indefinite<F04DHF_msg>(uplo, n, nrhs, a, lda, ipiv, b, ldb, rcond, errbnd, fail, k::zlansy,
                           k::zsysv, k::zsycon);
}

void F04BJFN(char uplo, int n, int nrhs, double* ap, int* ipiv, double* b, int ldb, double& rcond,
             double& errbnd, Fail& fail)
{
    indefinite_packed<F04BJF_msg>(uplo, n, nrhs, ap, ipiv, b, ldb, rcond, errbnd, fail);
}

void F04CJFN(char uplo, int n, int nrhs, Complex* ap, int* ipiv, Complex* b, int ldb, double& rcond,
             double& errbnd, Fail& fail)
{
    indefinite_packed<F04CJF_msg>(uplo, n, nrhs, ap, ipiv, b, ldb, rcond, errbnd, fail);
}

}  // namespace lbx::linalg
