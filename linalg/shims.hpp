// The two routines the library's private copy of reference LAPACK calls in
// place of xerbla_ and ilaenv_ (its symbols are renamed when it is linked in).
#pragma once

#include <cstddef>

extern "C" {

// Reports argument *info of the standard routine srname as an illegal
// argument of its pairing (F06AAZN).
void lbx_xerbla_(const char* srname, const int* info, std::size_t len);

// The tuning value ISPEC for the standard routine name: the tuning table's
// (F07ZAZN) for ISPEC 1..3 of a routine it knows, the reference ilaenv's
// otherwise.
int lbx_ilaenv_(const int* ispec, const char* name, const char* opts, const int* n1, const int* n2,
                const int* n3, const int* n4, std::size_t name_len, std::size_t opts_len);

// The reference LAPACK ilaenv, renamed.
int lbx_ref_ilaenv_(const int* ispec, const char* name, const char* opts, const int* n1,
                    const int* n2, const int* n3, const int* n4, std::size_t name_len,
                    std::size_t opts_len);
}
