// The standard routines the solvers of linalg/solvers.cpp call, one small
// wrapper each: arguments by value, the option strings with their lengths,
// INFO as the result (norms return the norm).  Every standard call of the
// solvers goes through here, so the routine each wrapper reaches can change in
// one place.
#pragma once

#include <string_view>

#include "frame/fail.hpp"

namespace lbx::linalg::kernels {

double dlange(std::string_view norm, int m, int n, const double* a, int lda, double* work);
double dlangb(std::string_view norm, int n, int kl, int ku, const double* ab, int ldab,
              double* work);
double dlangt(std::string_view norm, int n, const double* dl, const double* d, const double* du);
double dlansy(std::string_view norm, std::string_view uplo, int n, const double* a, int lda,
              double* work);
double dlansp(std::string_view norm, std::string_view uplo, int n, const double* ap, double* work);
double dlansb(std::string_view norm, std::string_view uplo, int n, int k, const double* ab,
              int ldab, double* work);
double dlanst(std::string_view norm, int n, const double* d, const double* e);
double zlange(std::string_view norm, int m, int n, const Complex* a, int lda, double* work);
double zlangb(std::string_view norm, int n, int kl, int ku, const Complex* ab, int ldab,
              double* work);
double zlangt(std::string_view norm, int n, const Complex* dl, const Complex* d, const Complex* du);
double zlanhe(std::string_view norm, std::string_view uplo, int n, const Complex* a, int lda,
              double* work);
double zlansy(std::string_view norm, std::string_view uplo, int n, const Complex* a, int lda,
              double* work);
double zlanhp(std::string_view norm, std::string_view uplo, int n, const Complex* ap, double* work);
double zlanhb(std::string_view norm, std::string_view uplo, int n, int k, const Complex* ab,
              int ldab, double* work);
double zlanht(std::string_view norm, int n, const double* d, const Complex* e);
int dgesv(int n, int nrhs, double* a, int lda, int* ipiv, double* b, int ldb);
int dgecon(std::string_view norm, int n, const double* a, int lda, double anorm, double& rcond,
           double* work, int* iwork);
int dgbsv(int n, int kl, int ku, int nrhs, double* ab, int ldab, int* ipiv, double* b, int ldb);
int dgbcon(std::string_view norm, int n, int kl, int ku, const double* ab, int ldab,
           const int* ipiv, double anorm, double& rcond, double* work, int* iwork);
int dgttrf(int n, double* dl, double* d, double* du, double* du2, int* ipiv);
int dgttrs(std::string_view trans, int n, int nrhs, const double* dl, const double* d,
           const double* du, const double* du2, const int* ipiv, double* b, int ldb);
int dgtcon(std::string_view norm, int n, const double* dl, const double* d, const double* du,
           const double* du2, const int* ipiv, double anorm, double& rcond, double* work,
           int* iwork);
int dposv(std::string_view uplo, int n, int nrhs, double* a, int lda, double* b, int ldb);
int dpocon(std::string_view uplo, int n, const double* a, int lda, double anorm, double& rcond,
           double* work, int* iwork);
int dppsv(std::string_view uplo, int n, int nrhs, double* ap, double* b, int ldb);
int dppcon(std::string_view uplo, int n, const double* ap, double anorm, double& rcond,
           double* work, int* iwork);
int dpbsv(std::string_view uplo, int n, int kd, int nrhs, double* ab, int ldab, double* b, int ldb);
int dpbcon(std::string_view uplo, int n, int kd, const double* ab, int ldab, double anorm,
           double& rcond, double* work, int* iwork);
int dptsv(int n, int nrhs, double* d, double* e, double* b, int ldb);
int dptcon(int n, const double* d, const double* e, double anorm, double& rcond, double* work);
int dsysv(std::string_view uplo, int n, int nrhs, double* a, int lda, int* ipiv, double* b, int ldb,
          double* work, int lwork);
int dsycon(std::string_view uplo, int n, const double* a, int lda, const int* ipiv, double anorm,
           double& rcond, double* work, int* iwork);
int dspsv(std::string_view uplo, int n, int nrhs, double* ap, int* ipiv, double* b, int ldb);
int dspcon(std::string_view uplo, int n, const double* ap, const int* ipiv, double anorm,
           double& rcond, double* work, int* iwork);
int zgesv(int n, int nrhs, Complex* a, int lda, int* ipiv, Complex* b, int ldb);
int zgecon(std::string_view norm, int n, const Complex* a, int lda, double anorm, double& rcond,
           Complex* work, double* rwork);
int zgbsv(int n, int kl, int ku, int nrhs, Complex* ab, int ldab, int* ipiv, Complex* b, int ldb);
int zgbcon(std::string_view norm, int n, int kl, int ku, const Complex* ab, int ldab,
           const int* ipiv, double anorm, double& rcond, Complex* work, double* rwork);
int zgttrf(int n, Complex* dl, Complex* d, Complex* du, Complex* du2, int* ipiv);
int zgttrs(std::string_view trans, int n, int nrhs, const Complex* dl, const Complex* d,
           const Complex* du, const Complex* du2, const int* ipiv, Complex* b, int ldb);
int zgtcon(std::string_view norm, int n, const Complex* dl, const Complex* d, const Complex* du,
           const Complex* du2, const int* ipiv, double anorm, double& rcond, Complex* work);
int zposv(std::string_view uplo, int n, int nrhs, Complex* a, int lda, Complex* b, int ldb);
int zpocon(std::string_view uplo, int n, const Complex* a, int lda, double anorm, double& rcond,
           Complex* work, double* rwork);
int zppsv(std::string_view uplo, int n, int nrhs, Complex* ap, Complex* b, int ldb);
int zppcon(std::string_view uplo, int n, const Complex* ap, double anorm, double& rcond,
           Complex* work, double* rwork);
int zpbsv(std::string_view uplo, int n, int kd, int nrhs, Complex* ab, int ldab, Complex* b,
          int ldb);
int zpbcon(std::string_view uplo, int n, int kd, const Complex* ab, int ldab, double anorm,
           double& rcond, Complex* work, double* rwork);
int zptsv(int n, int nrhs, double* d, Complex* e, Complex* b, int ldb);
int zptcon(int n, const double* d, const Complex* e, double anorm, double& rcond, double* rwork);
int zhesv(std::string_view uplo, int n, int nrhs, Complex* a, int lda, int* ipiv, Complex* b,
          int ldb, Complex* work, int lwork);
int zhecon(std::string_view uplo, int n, const Complex* a, int lda, const int* ipiv, double anorm,
           double& rcond, Complex* work);
int zhpsv(std::string_view uplo, int n, int nrhs, Complex* ap, int* ipiv, Complex* b, int ldb);
int zhpcon(std::string_view uplo, int n, const Complex* ap, const int* ipiv, double anorm,
           double& rcond, Complex* work);
int zsysv(std::string_view uplo, int n, int nrhs, Complex* a, int lda, int* ipiv, Complex* b,
          int ldb, Complex* work, int lwork);
int zsycon(std::string_view uplo, int n, const Complex* a, int lda, const int* ipiv, double anorm,
           double& rcond, Complex* work);

}  // namespace lbx::linalg::kernels
