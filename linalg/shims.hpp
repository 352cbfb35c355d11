// The two routines the library's private copy of reference LAPACK calls in
// place of xerbla_ and ilaenv_ (its symbols are renamed when it is linked in).
#pragma once

#include <complex>
#include <cstddef>

#include "frame/fail.hpp"

extern "C" {

// Reports argument *info of the standard routine srname as an illegal
// argument of its pairing (F06AAZN).
void lbx_xerbla_(const char* srname, const int* info, std::size_t len);

// The tuning value ISPEC for the standard routine name: the tuning table's
// (F07ZAZN) for ISPEC 1..3 of a routine it knows, the reference ilaenv's
// otherwise.
int lbx_ilaenv_(const int* ispec, const char* name, const char* opts, const int* n1, const int* n2,
                const int* n3, const int* n4, std::size_t name_len, std::size_t opts_len);

// The BLAS index routines of the private LAPACK (first largest magnitude,
// as the reference routines: a NaN never wins unless it is element 1).
int lbx_idamax_(const int* n, const double* x, const int* incx);
int lbx_isamax_(const int* n, const float* x, const int* incx);
int lbx_izamax_(const int* n, const lbx::Complex* x, const int* incx);
int lbx_icamax_(const int* n, const std::complex<float>* x, const int* incx);

// The reference LAPACK ilaenv, renamed.
int lbx_ref_ilaenv_(const int* ispec, const char* name, const char* opts, const int* n1,
                    const int* n2, const int* n3, const int* n4, std::size_t name_len,
                    std::size_t opts_len);
}
