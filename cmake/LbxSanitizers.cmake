# LBX_SANITIZE: build everything (library, tests, caller programs) with
# sanitizers, in a build tree of its own (make check-asan, make check-tsan).
#
#   address  AddressSanitizer with leak detection, and UndefinedBehaviorSanitizer
#            with float-cast-overflow; every report ends the process.
#            float-divide-by-zero is left out: the library divides by zero on
#            purpose where IEEE arithmetic gives the documented result (an
#            infinite limit, a NaN that the checks after it catch).
#   thread   ThreadSanitizer.  The Fortran runtime and libgomp are not
#            instrumented; tools/sanitizers/tsan.supp names what is reported
#            inside them.
set(LBX_SANITIZE "" CACHE STRING "Sanitizers to build with: address, thread or empty")
if(LBX_SANITIZE STREQUAL "address")
  set(lbx_sanitize_flags -fsanitize=address,undefined,float-cast-overflow
      -fno-sanitize-recover=all -fno-omit-frame-pointer)
elseif(LBX_SANITIZE STREQUAL "thread")
  set(lbx_sanitize_flags -fsanitize=thread -fno-omit-frame-pointer)
elseif(NOT LBX_SANITIZE STREQUAL "")
  message(FATAL_ERROR "LBX_SANITIZE must be address, thread or empty, not ${LBX_SANITIZE}")
endif()
add_compile_options(${lbx_sanitize_flags})
add_link_options(${lbx_sanitize_flags})
