# lbx_private_lapack(ARCHIVE OUT [UNDERSCORE]): the own path's private copy of
# reference LAPACK, made from ARCHIVE at build time (tools/private_lapack.py)
# into OUT, with the target lbx_private_lapack that builds it.  The rectangular
# full packed routines of the basic chapter have a hand-written own path; the
# archive's routines of those names are kept as lbx_ref_<name>_.
function(lbx_private_lapack archive out)
  set(flags)
  if(ARGN STREQUAL "UNDERSCORE")
    set(flags --underscore)
  endif()
  add_custom_command(
    OUTPUT ${out}
    COMMAND Python3::Interpreter ${LBX_ROOT_DIR}/tools/private_lapack.py --nm ${CMAKE_NM}
            --objcopy ${CMAKE_OBJCOPY} --ar ${CMAKE_AR} ${flags} --in ${archive} --out ${out}
            --reference dtfsm_ dsfrk_ ztfsm_ zhfrk_ dsytrf_ zhetrf_ zsytrf_ dsysv_ zhesv_ zsysv_
            dsptrf_ zhptrf_ zsptrf_ dspsv_ zhpsv_ zspsv_
    DEPENDS ${archive} ${LBX_ROOT_DIR}/tools/private_lapack.py
    COMMENT "Making the private copy of reference LAPACK")
  add_custom_target(lbx_private_lapack DEPENDS ${out})
endfunction()
