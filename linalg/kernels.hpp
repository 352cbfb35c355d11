// The external BLAS/LAPACK library's routines, called from hand-written code.
//
//   LBX_EXTERNAL_ROUTINE(dgemm_, void(const char*, const char*, const int*, ...,
//                                     std::size_t, std::size_t));
//   ...
//   dgemm_kernel()(transa, transb, m, ...);
//
// Use the macro at file scope, outside any namespace.  On Linux the library
// exports the standard names itself, so the routine is looked up once in the
// external library's own handle (frame/external.cpp); the 32-bit Windows DLL
// links the external library statically and calls the symbol directly.
#pragma once

#include <cstddef>

#include "frame/entry.hpp"

#if defined(_WIN32)
#define LBX_EXTERNAL_ROUTINE(symbol, ...)                           \
    using symbol##type = __VA_ARGS__;                               \
    extern "C" symbol##type symbol;                                 \
    namespace {                                                     \
    [[maybe_unused]] inline symbol##type* symbol##kernel() noexcept \
    {                                                               \
        return &::symbol;                                           \
    }                                                               \
    }
#else
#define LBX_EXTERNAL_ROUTINE(symbol, ...)                                             \
    namespace {                                                                       \
    using symbol##type = __VA_ARGS__;                                                 \
    [[maybe_unused]] inline symbol##type* symbol##kernel() noexcept                   \
    {                                                                                 \
        static symbol##type* const f =                                                \
            reinterpret_cast<symbol##type*>(::lbx::frame::external_routine(#symbol)); \
        return f;                                                                     \
    }                                                                                 \
    }
#endif

// The library's own path of a standard routine, the same on both platforms:
//
//   LBX_OWN_ROUTINE(dgesv_, void(const int*, ...));
//   ...
//   dgesv_kernel()(n, nrhs, ...);
//
// calls lbx_own_dgesv_, the routine the chapter routine paired with DGESV
// runs when its caller does not ask for the external library.
#define LBX_OWN_ROUTINE(symbol, ...)                                \
    using symbol##type = __VA_ARGS__;                               \
    extern "C" symbol##type lbx_own_##symbol;                       \
    namespace {                                                     \
    [[maybe_unused]] inline symbol##type* symbol##kernel() noexcept \
    {                                                               \
        return &::lbx_own_##symbol;                                 \
    }                                                               \
    }
