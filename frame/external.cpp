// The external BLAS/LAPACK library, reached by symbol.
//
// The library exports the standard names itself, so a call of "dgetrf_" from
// inside it would find its own export again.  The external routine is
// therefore looked up in the external library's own handle (the library it
// was linked against, LBX_EXTERNAL_LIBRARY, already loaded as a dependency).
#include <dlfcn.h>

#include <cstdio>
#include <string>

#include "frame/entry.hpp"
#include "frame/errors.hpp"
#include "frame/units.hpp"
#include "gen/frame.hpp"

#ifndef LBX_EXTERNAL_LIBRARY
#error "LBX_EXTERNAL_LIBRARY names the BLAS/LAPACK library's soname"
#endif

namespace lbx::frame {

void* external_routine(const char* symbol) noexcept
{
    static void* const handle = [] {
        void* h = dlopen(LBX_EXTERNAL_LIBRARY, RTLD_NOW | RTLD_NOLOAD);
        return h != nullptr ? h : dlopen(LBX_EXTERNAL_LIBRARY, RTLD_NOW | RTLD_LOCAL);
    }();
    void* f = handle != nullptr ? dlsym(handle, symbol) : nullptr;
    if (f == nullptr) [[unlikely]] {
        char record[record_length + 1];
        std::snprintf(record, sizeof record, " ** Routine %s not found in %s.", symbol,
                      LBX_EXTERNAL_LIBRARY);
        X04BAFN(error_unit.load(std::memory_order_relaxed), record);
        stop_process();
    }
    return f;
}

}  // namespace lbx::frame
