// The solvers' standard routines: the linear algebra layer's own path (the
// routines the chapter routines F07AAF, F07AGF, ... run), called directly.
#include "linalg/solver_kernels.hpp"

#include <cstddef>

#include "linalg/kernels.hpp"

using lbx::Complex;

LBX_OWN_ROUTINE(dlange_, double(const char*, const int*, const int*, const double*, const int*,
                                double*, std::size_t));
LBX_OWN_ROUTINE(dlangb_, double(const char*, const int*, const int*, const int*, const double*,
                                const int*, double*, std::size_t));
LBX_OWN_ROUTINE(dlangt_, double(const char*, const int*, const double*, const double*,
                                const double*, std::size_t));
LBX_OWN_ROUTINE(dlansy_, double(const char*, const char*, const int*, const double*, const int*,
                                double*, std::size_t, std::size_t));
LBX_OWN_ROUTINE(dlansp_, double(const char*, const char*, const int*, const double*, double*,
                                std::size_t, std::size_t));
LBX_OWN_ROUTINE(dlansb_, double(const char*, const char*, const int*, const int*, const double*,
                                const int*, double*, std::size_t, std::size_t));
LBX_OWN_ROUTINE(dlanst_,
                double(const char*, const int*, const double*, const double*, std::size_t));
LBX_OWN_ROUTINE(zlange_, double(const char*, const int*, const int*, const Complex*, const int*,
                                double*, std::size_t));
LBX_OWN_ROUTINE(zlangb_, double(const char*, const int*, const int*, const int*, const Complex*,
                                const int*, double*, std::size_t));
LBX_OWN_ROUTINE(zlangt_, double(const char*, const int*, const Complex*, const Complex*,
                                const Complex*, std::size_t));
LBX_OWN_ROUTINE(zlanhe_, double(const char*, const char*, const int*, const Complex*, const int*,
                                double*, std::size_t, std::size_t));
LBX_OWN_ROUTINE(zlansy_, double(const char*, const char*, const int*, const Complex*, const int*,
                                double*, std::size_t, std::size_t));
LBX_OWN_ROUTINE(zlanhp_, double(const char*, const char*, const int*, const Complex*, double*,
                                std::size_t, std::size_t));
LBX_OWN_ROUTINE(zlanhb_, double(const char*, const char*, const int*, const int*, const Complex*,
                                const int*, double*, std::size_t, std::size_t));
LBX_OWN_ROUTINE(zlanht_,
                double(const char*, const int*, const double*, const Complex*, std::size_t));
// DGESV is DGETRF then DGETRS; the layer's own path of DGETRF (F07ADF) and
// DGETRS (F07AEF), and of ZGETRF (F07ARF), is the external library's routine.
LBX_EXTERNAL_ROUTINE(dgetrf_, void(const int*, const int*, double*, const int*, int*, int*));
LBX_EXTERNAL_ROUTINE(dgetrs_, void(const char*, const int*, const int*, const double*, const int*,
                                   const int*, double*, const int*, int*, std::size_t));
LBX_OWN_ROUTINE(dgecon_, void(const char*, const int*, const double*, const int*, const double*,
                              double*, double*, int*, int*, std::size_t));
LBX_OWN_ROUTINE(dgbsv_, void(const int*, const int*, const int*, const int*, double*, const int*,
                             int*, double*, const int*, int*));
LBX_OWN_ROUTINE(dgbcon_,
                void(const char*, const int*, const int*, const int*, const double*, const int*,
                     const int*, const double*, double*, double*, int*, int*, std::size_t));
LBX_OWN_ROUTINE(dgttrf_, void(const int*, double*, double*, double*, double*, int*, int*));
LBX_OWN_ROUTINE(dgttrs_, void(const char*, const int*, const int*, const double*, const double*,
                              const double*, const double*, const int*, double*, const int*, int*,
                              std::size_t));
LBX_OWN_ROUTINE(dgtcon_, void(const char*, const int*, const double*, const double*, const double*,
                              const double*, const int*, const double*, double*, double*, int*,
                              int*, std::size_t));
LBX_OWN_ROUTINE(dposv_, void(const char*, const int*, const int*, double*, const int*, double*,
                             const int*, int*, std::size_t));
LBX_OWN_ROUTINE(dpocon_, void(const char*, const int*, const double*, const int*, const double*,
                              double*, double*, int*, int*, std::size_t));
LBX_OWN_ROUTINE(dppsv_, void(const char*, const int*, const int*, double*, double*, const int*,
                             int*, std::size_t));
LBX_OWN_ROUTINE(dppcon_, void(const char*, const int*, const double*, const double*, double*,
                              double*, int*, int*, std::size_t));
LBX_OWN_ROUTINE(dpbsv_, void(const char*, const int*, const int*, const int*, double*, const int*,
                             double*, const int*, int*, std::size_t));
LBX_OWN_ROUTINE(dpbcon_, void(const char*, const int*, const int*, const double*, const int*,
                              const double*, double*, double*, int*, int*, std::size_t));
LBX_OWN_ROUTINE(dptsv_, void(const int*, const int*, double*, double*, double*, const int*, int*));
LBX_OWN_ROUTINE(dptcon_, void(const int*, const double*, const double*, const double*, double*,
                              double*, int*));
LBX_OWN_ROUTINE(dsysv_, void(const char*, const int*, const int*, double*, const int*, int*,
                             double*, const int*, double*, const int*, int*, std::size_t));
LBX_OWN_ROUTINE(dsycon_, void(const char*, const int*, const double*, const int*, const int*,
                              const double*, double*, double*, int*, int*, std::size_t));
LBX_OWN_ROUTINE(dspsv_, void(const char*, const int*, const int*, double*, int*, double*,
                             const int*, int*, std::size_t));
LBX_OWN_ROUTINE(dspcon_, void(const char*, const int*, const double*, const int*, const double*,
                              double*, double*, int*, int*, std::size_t));
LBX_EXTERNAL_ROUTINE(zgetrf_, void(const int*, const int*, Complex*, const int*, int*, int*));
LBX_OWN_ROUTINE(zgetrs_, void(const char*, const int*, const int*, const Complex*, const int*,
                              const int*, Complex*, const int*, int*, std::size_t));
LBX_OWN_ROUTINE(zgecon_, void(const char*, const int*, const Complex*, const int*, const double*,
                              double*, Complex*, double*, int*, std::size_t));
LBX_OWN_ROUTINE(zgbsv_, void(const int*, const int*, const int*, const int*, Complex*, const int*,
                             int*, Complex*, const int*, int*));
LBX_OWN_ROUTINE(zgbcon_,
                void(const char*, const int*, const int*, const int*, const Complex*, const int*,
                     const int*, const double*, double*, Complex*, double*, int*, std::size_t));
LBX_OWN_ROUTINE(zgttrf_, void(const int*, Complex*, Complex*, Complex*, Complex*, int*, int*));
LBX_OWN_ROUTINE(zgttrs_, void(const char*, const int*, const int*, const Complex*, const Complex*,
                              const Complex*, const Complex*, const int*, Complex*, const int*,
                              int*, std::size_t));
LBX_OWN_ROUTINE(zgtcon_, void(const char*, const int*, const Complex*, const Complex*,
                              const Complex*, const Complex*, const int*, const double*, double*,
                              Complex*, int*, std::size_t));
LBX_OWN_ROUTINE(zposv_, void(const char*, const int*, const int*, Complex*, const int*, Complex*,
                             const int*, int*, std::size_t));
LBX_OWN_ROUTINE(zpocon_, void(const char*, const int*, const Complex*, const int*, const double*,
                              double*, Complex*, double*, int*, std::size_t));
LBX_OWN_ROUTINE(zppsv_, void(const char*, const int*, const int*, Complex*, Complex*, const int*,
                             int*, std::size_t));
LBX_OWN_ROUTINE(zppcon_, void(const char*, const int*, const Complex*, const double*, double*,
                              Complex*, double*, int*, std::size_t));
LBX_OWN_ROUTINE(zpbsv_, void(const char*, const int*, const int*, const int*, Complex*, const int*,
                             Complex*, const int*, int*, std::size_t));
LBX_OWN_ROUTINE(zpbcon_, void(const char*, const int*, const int*, const Complex*, const int*,
                              const double*, double*, Complex*, double*, int*, std::size_t));
LBX_OWN_ROUTINE(zptsv_,
                void(const int*, const int*, double*, Complex*, Complex*, const int*, int*));
LBX_OWN_ROUTINE(zptcon_, void(const int*, const double*, const Complex*, const double*, double*,
                              double*, int*));
LBX_OWN_ROUTINE(zhesv_, void(const char*, const int*, const int*, Complex*, const int*, int*,
                             Complex*, const int*, Complex*, const int*, int*, std::size_t));
LBX_OWN_ROUTINE(zhecon_, void(const char*, const int*, const Complex*, const int*, const int*,
                              const double*, double*, Complex*, int*, std::size_t));
LBX_OWN_ROUTINE(zhpsv_, void(const char*, const int*, const int*, Complex*, int*, Complex*,
                             const int*, int*, std::size_t));
LBX_OWN_ROUTINE(zhpcon_, void(const char*, const int*, const Complex*, const int*, const double*,
                              double*, Complex*, int*, std::size_t));
LBX_OWN_ROUTINE(zsysv_, void(const char*, const int*, const int*, Complex*, const int*, int*,
                             Complex*, const int*, Complex*, const int*, int*, std::size_t));
LBX_OWN_ROUTINE(zsycon_, void(const char*, const int*, const Complex*, const int*, const int*,
                              const double*, double*, Complex*, int*, std::size_t));

namespace lbx::linalg::kernels {

double dlange(std::string_view norm, int m, int n, const double* a, int lda, double* work)
{
    return dlange_kernel()(norm.data(), &m, &n, a, &lda, work, norm.size());
}

double dlangb(std::string_view norm, int n, int kl, int ku, const double* ab, int ldab,
              double* work)
{
    return dlangb_kernel()(norm.data(), &n, &kl, &ku, ab, &ldab, work, norm.size());
}

double dlangt(std::string_view norm, int n, const double* dl, const double* d, const double* du)
{
    return dlangt_kernel()(norm.data(), &n, dl, d, du, norm.size());
}

double dlansy(std::string_view norm, std::string_view uplo, int n, const double* a, int lda,
              double* work)
{
    return dlansy_kernel()(norm.data(), uplo.data(), &n, a, &lda, work, norm.size(), uplo.size());
}

double dlansp(std::string_view norm, std::string_view uplo, int n, const double* ap, double* work)
{
    return dlansp_kernel()(norm.data(), uplo.data(), &n, ap, work, norm.size(), uplo.size());
}

double dlansb(std::string_view norm, std::string_view uplo, int n, int k, const double* ab,
              int ldab, double* work)
{
    return dlansb_kernel()(norm.data(), uplo.data(), &n, &k, ab, &ldab, work, norm.size(),
                           uplo.size());
}

double dlanst(std::string_view norm, int n, const double* d, const double* e)
{
    return dlanst_kernel()(norm.data(), &n, d, e, norm.size());
}

double zlange(std::string_view norm, int m, int n, const Complex* a, int lda, double* work)
{
    return zlange_kernel()(norm.data(), &m, &n, a, &lda, work, norm.size());
}

double zlangb(std::string_view norm, int n, int kl, int ku, const Complex* ab, int ldab,
              double* work)
{
    return zlangb_kernel()(norm.data(), &n, &kl, &ku, ab, &ldab, work, norm.size());
}

double zlangt(std::string_view norm, int n, const Complex* dl, const Complex* d, const Complex* du)
{
    return zlangt_kernel()(norm.data(), &n, dl, d, du, norm.size());
}

double zlanhe(std::string_view norm, std::string_view uplo, int n, const Complex* a, int lda,
              double* work)
{
    return zlanhe_kernel()(norm.data(), uplo.data(), &n, a, &lda, work, norm.size(), uplo.size());
}

double zlansy(std::string_view norm, std::string_view uplo, int n, const Complex* a, int lda,
              double* work)
{
    return zlansy_kernel()(norm.data(), uplo.data(), &n, a, &lda, work, norm.size(), uplo.size());
}

double zlanhp(std::string_view norm, std::string_view uplo, int n, const Complex* ap, double* work)
{
    return zlanhp_kernel()(norm.data(), uplo.data(), &n, ap, work, norm.size(), uplo.size());
}

double zlanhb(std::string_view norm, std::string_view uplo, int n, int k, const Complex* ab,
              int ldab, double* work)
{
    return zlanhb_kernel()(norm.data(), uplo.data(), &n, &k, ab, &ldab, work, norm.size(),
                           uplo.size());
}

double zlanht(std::string_view norm, int n, const double* d, const Complex* e)
{
    return zlanht_kernel()(norm.data(), &n, d, e, norm.size());
}

int dgesv(int n, int nrhs, double* a, int lda, int* ipiv, double* b, int ldb)
{
    int info = 0;
    dgetrf_kernel()(&n, &n, a, &lda, ipiv, &info);
    if (info == 0)
        dgetrs_kernel()("N", &n, &nrhs, a, &lda, ipiv, b, &ldb, &info, 1);
    return info;
}

int dgecon(std::string_view norm, int n, const double* a, int lda, double anorm, double& rcond,
           double* work, int* iwork)
{
    int info = 0;
    dgecon_kernel()(norm.data(), &n, a, &lda, &anorm, &rcond, work, iwork, &info, norm.size());
    return info;
}

int dgbsv(int n, int kl, int ku, int nrhs, double* ab, int ldab, int* ipiv, double* b, int ldb)
{
    int info = 0;
    dgbsv_kernel()(&n, &kl, &ku, &nrhs, ab, &ldab, ipiv, b, &ldb, &info);
    return info;
}

int dgbcon(std::string_view norm, int n, int kl, int ku, const double* ab, int ldab,
           const int* ipiv, double anorm, double& rcond, double* work, int* iwork)
{
    int info = 0;
    dgbcon_kernel()(norm.data(), &n, &kl, &ku, ab, &ldab, ipiv, &anorm, &rcond, work, iwork, &info,
                    norm.size());
    return info;
}

int dgttrf(int n, double* dl, double* d, double* du, double* du2, int* ipiv)
{
    int info = 0;
    dgttrf_kernel()(&n, dl, d, du, du2, ipiv, &info);
    return info;
}

int dgttrs(std::string_view trans, int n, int nrhs, const double* dl, const double* d,
           const double* du, const double* du2, const int* ipiv, double* b, int ldb)
{
    int info = 0;
    dgttrs_kernel()(trans.data(), &n, &nrhs, dl, d, du, du2, ipiv, b, &ldb, &info, trans.size());
    return info;
}

int dgtcon(std::string_view norm, int n, const double* dl, const double* d, const double* du,
           const double* du2, const int* ipiv, double anorm, double& rcond, double* work,
           int* iwork)
{
    int info = 0;
    dgtcon_kernel()(norm.data(), &n, dl, d, du, du2, ipiv, &anorm, &rcond, work, iwork, &info,
                    norm.size());
    return info;
}

int dposv(std::string_view uplo, int n, int nrhs, double* a, int lda, double* b, int ldb)
{
    int info = 0;
    dposv_kernel()(uplo.data(), &n, &nrhs, a, &lda, b, &ldb, &info, uplo.size());
    return info;
}

int dpocon(std::string_view uplo, int n, const double* a, int lda, double anorm, double& rcond,
           double* work, int* iwork)
{
    int info = 0;
    dpocon_kernel()(uplo.data(), &n, a, &lda, &anorm, &rcond, work, iwork, &info, uplo.size());
    return info;
}

int dppsv(std::string_view uplo, int n, int nrhs, double* ap, double* b, int ldb)
{
    int info = 0;
    dppsv_kernel()(uplo.data(), &n, &nrhs, ap, b, &ldb, &info, uplo.size());
    return info;
}

int dppcon(std::string_view uplo, int n, const double* ap, double anorm, double& rcond,
           double* work, int* iwork)
{
    int info = 0;
    dppcon_kernel()(uplo.data(), &n, ap, &anorm, &rcond, work, iwork, &info, uplo.size());
    return info;
}

int dpbsv(std::string_view uplo, int n, int kd, int nrhs, double* ab, int ldab, double* b, int ldb)
{
    int info = 0;
    dpbsv_kernel()(uplo.data(), &n, &kd, &nrhs, ab, &ldab, b, &ldb, &info, uplo.size());
    return info;
}

int dpbcon(std::string_view uplo, int n, int kd, const double* ab, int ldab, double anorm,
           double& rcond, double* work, int* iwork)
{
    int info = 0;
    dpbcon_kernel()(uplo.data(), &n, &kd, ab, &ldab, &anorm, &rcond, work, iwork, &info,
                    uplo.size());
    return info;
}

int dptsv(int n, int nrhs, double* d, double* e, double* b, int ldb)
{
    int info = 0;
    dptsv_kernel()(&n, &nrhs, d, e, b, &ldb, &info);
    return info;
}

int dptcon(int n, const double* d, const double* e, double anorm, double& rcond, double* work)
{
    int info = 0;
    dptcon_kernel()(&n, d, e, &anorm, &rcond, work, &info);
    return info;
}

int dsysv(std::string_view uplo, int n, int nrhs, double* a, int lda, int* ipiv, double* b, int ldb,
          double* work, int lwork)
{
    int info = 0;
    dsysv_kernel()(uplo.data(), &n, &nrhs, a, &lda, ipiv, b, &ldb, work, &lwork, &info,
                   uplo.size());
    return info;
}

int dsycon(std::string_view uplo, int n, const double* a, int lda, const int* ipiv, double anorm,
           double& rcond, double* work, int* iwork)
{
    int info = 0;
    dsycon_kernel()(uplo.data(), &n, a, &lda, ipiv, &anorm, &rcond, work, iwork, &info,
                    uplo.size());
    return info;
}

int dspsv(std::string_view uplo, int n, int nrhs, double* ap, int* ipiv, double* b, int ldb)
{
    int info = 0;
    dspsv_kernel()(uplo.data(), &n, &nrhs, ap, ipiv, b, &ldb, &info, uplo.size());
    return info;
}

int dspcon(std::string_view uplo, int n, const double* ap, const int* ipiv, double anorm,
           double& rcond, double* work, int* iwork)
{
    int info = 0;
    dspcon_kernel()(uplo.data(), &n, ap, ipiv, &anorm, &rcond, work, iwork, &info, uplo.size());
    return info;
}

int zgesv(int n, int nrhs, Complex* a, int lda, int* ipiv, Complex* b, int ldb)
{
    int info = 0;
    zgetrf_kernel()(&n, &n, a, &lda, ipiv, &info);
    if (info == 0)
        zgetrs_kernel()("N", &n, &nrhs, a, &lda, ipiv, b, &ldb, &info, 1);
    return info;
}

int zgecon(std::string_view norm, int n, const Complex* a, int lda, double anorm, double& rcond,
           Complex* work, double* rwork)
{
    int info = 0;
    zgecon_kernel()(norm.data(), &n, a, &lda, &anorm, &rcond, work, rwork, &info, norm.size());
    return info;
}

int zgbsv(int n, int kl, int ku, int nrhs, Complex* ab, int ldab, int* ipiv, Complex* b, int ldb)
{
    int info = 0;
    zgbsv_kernel()(&n, &kl, &ku, &nrhs, ab, &ldab, ipiv, b, &ldb, &info);
    return info;
}

int zgbcon(std::string_view norm, int n, int kl, int ku, const Complex* ab, int ldab,
           const int* ipiv, double anorm, double& rcond, Complex* work, double* rwork)
{
    int info = 0;
    zgbcon_kernel()(norm.data(), &n, &kl, &ku, ab, &ldab, ipiv, &anorm, &rcond, work, rwork, &info,
                    norm.size());
    return info;
}

int zgttrf(int n, Complex* dl, Complex* d, Complex* du, Complex* du2, int* ipiv)
{
    int info = 0;
    zgttrf_kernel()(&n, dl, d, du, du2, ipiv, &info);
    return info;
}

int zgttrs(std::string_view trans, int n, int nrhs, const Complex* dl, const Complex* d,
           const Complex* du, const Complex* du2, const int* ipiv, Complex* b, int ldb)
{
    int info = 0;
    zgttrs_kernel()(trans.data(), &n, &nrhs, dl, d, du, du2, ipiv, b, &ldb, &info, trans.size());
    return info;
}

int zgtcon(std::string_view norm, int n, const Complex* dl, const Complex* d, const Complex* du,
           const Complex* du2, const int* ipiv, double anorm, double& rcond, Complex* work)
{
    int info = 0;
    zgtcon_kernel()(norm.data(), &n, dl, d, du, du2, ipiv, &anorm, &rcond, work, &info,
                    norm.size());
    return info;
}

int zposv(std::string_view uplo, int n, int nrhs, Complex* a, int lda, Complex* b, int ldb)
{
    int info = 0;
    zposv_kernel()(uplo.data(), &n, &nrhs, a, &lda, b, &ldb, &info, uplo.size());
    return info;
}

int zpocon(std::string_view uplo, int n, const Complex* a, int lda, double anorm, double& rcond,
           Complex* work, double* rwork)
{
    int info = 0;
    zpocon_kernel()(uplo.data(), &n, a, &lda, &anorm, &rcond, work, rwork, &info, uplo.size());
    return info;
}

int zppsv(std::string_view uplo, int n, int nrhs, Complex* ap, Complex* b, int ldb)
{
    int info = 0;
    zppsv_kernel()(uplo.data(), &n, &nrhs, ap, b, &ldb, &info, uplo.size());
    return info;
}

int zppcon(std::string_view uplo, int n, const Complex* ap, double anorm, double& rcond,
           Complex* work, double* rwork)
{
    int info = 0;
    zppcon_kernel()(uplo.data(), &n, ap, &anorm, &rcond, work, rwork, &info, uplo.size());
    return info;
}

int zpbsv(std::string_view uplo, int n, int kd, int nrhs, Complex* ab, int ldab, Complex* b,
          int ldb)
{
    int info = 0;
    zpbsv_kernel()(uplo.data(), &n, &kd, &nrhs, ab, &ldab, b, &ldb, &info, uplo.size());
    return info;
}

int zpbcon(std::string_view uplo, int n, int kd, const Complex* ab, int ldab, double anorm,
           double& rcond, Complex* work, double* rwork)
{
    int info = 0;
    zpbcon_kernel()(uplo.data(), &n, &kd, ab, &ldab, &anorm, &rcond, work, rwork, &info,
                    uplo.size());
    return info;
}

int zptsv(int n, int nrhs, double* d, Complex* e, Complex* b, int ldb)
{
    int info = 0;
    zptsv_kernel()(&n, &nrhs, d, e, b, &ldb, &info);
    return info;
}

int zptcon(int n, const double* d, const Complex* e, double anorm, double& rcond, double* rwork)
{
    int info = 0;
    zptcon_kernel()(&n, d, e, &anorm, &rcond, rwork, &info);
    return info;
}

int zhesv(std::string_view uplo, int n, int nrhs, Complex* a, int lda, int* ipiv, Complex* b,
          int ldb, Complex* work, int lwork)
{
    int info = 0;
    zhesv_kernel()(uplo.data(), &n, &nrhs, a, &lda, ipiv, b, &ldb, work, &lwork, &info,
                   uplo.size());
    return info;
}

int zhecon(std::string_view uplo, int n, const Complex* a, int lda, const int* ipiv, double anorm,
           double& rcond, Complex* work)
{
    int info = 0;
    zhecon_kernel()(uplo.data(), &n, a, &lda, ipiv, &anorm, &rcond, work, &info, uplo.size());
    return info;
}

int zhpsv(std::string_view uplo, int n, int nrhs, Complex* ap, int* ipiv, Complex* b, int ldb)
{
    int info = 0;
    zhpsv_kernel()(uplo.data(), &n, &nrhs, ap, ipiv, b, &ldb, &info, uplo.size());
    return info;
}

int zhpcon(std::string_view uplo, int n, const Complex* ap, const int* ipiv, double anorm,
           double& rcond, Complex* work)
{
    int info = 0;
    zhpcon_kernel()(uplo.data(), &n, ap, ipiv, &anorm, &rcond, work, &info, uplo.size());
    return info;
}

int zsysv(std::string_view uplo, int n, int nrhs, Complex* a, int lda, int* ipiv, Complex* b,
          int ldb, Complex* work, int lwork)
{
    int info = 0;
    zsysv_kernel()(uplo.data(), &n, &nrhs, a, &lda, ipiv, b, &ldb, work, &lwork, &info,
                   uplo.size());
    return info;
}

int zsycon(std::string_view uplo, int n, const Complex* a, int lda, const int* ipiv, double anorm,
           double& rcond, Complex* work)
{
    int info = 0;
    zsycon_kernel()(uplo.data(), &n, a, &lda, ipiv, &anorm, &rcond, work, &info, uplo.size());
    return info;
}

}  // namespace lbx::linalg::kernels
