# `cmake --install`: the library, the C header, the Fortran module (.mod and its
# interface source), a pkg-config file, a CMake package with the imported
# target LBX3207QK::LBX3207QK, and the generated documentation pages.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

install(TARGETS LBX3207QK EXPORT LBX3207QKTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(FILES ${LBX_GEN}/gen/lbx3207qk.h ${LBX_GEN}/gen/lbx3207qk.f90
              ${LBX_MODULE_DIR}/lbx3207qk.mod
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})

set(LBX_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/LBX3207QK)
install(EXPORT LBX3207QKTargets NAMESPACE LBX3207QK:: DESTINATION ${LBX_CMAKE_DIR})
configure_package_config_file(${CMAKE_SOURCE_DIR}/cmake/LBX3207QKConfig.cmake.in
                              ${CMAKE_BINARY_DIR}/LBX3207QKConfig.cmake
                              INSTALL_DESTINATION ${LBX_CMAKE_DIR}
                              PATH_VARS CMAKE_INSTALL_INCLUDEDIR)
write_basic_package_version_file(${CMAKE_BINARY_DIR}/LBX3207QKConfigVersion.cmake
                                 COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_BINARY_DIR}/LBX3207QKConfig.cmake
              ${CMAKE_BINARY_DIR}/LBX3207QKConfigVersion.cmake
        DESTINATION ${LBX_CMAKE_DIR})

# The pkg-config file finds the prefix from its own place (lib/pkgconfig/..).
file(RELATIVE_PATH LBX_PC_TO_PREFIX /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
string(REGEX REPLACE "/$" "" LBX_PC_TO_PREFIX "${LBX_PC_TO_PREFIX}")
configure_file(${CMAKE_SOURCE_DIR}/cmake/lbx3207qk.pc.in ${CMAKE_BINARY_DIR}/lbx3207qk.pc @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/lbx3207qk.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

install(DIRECTORY ${LBX_GEN}/docs/ DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(FILES ${LBX_GEN}/routines.md DESTINATION ${CMAKE_INSTALL_DOCDIR})

# The installed copy, used by three consumers outside the tree
# (examples/consumer): compiler flags from pkg-config, find_package, and a
# gfortran program with `use lbx3207qk`.  Not in a sanitizer tree: the
# consumers are built as users build them, without the sanitizer runtime.
if(BUILD_TESTING AND NOT LBX_SANITIZE)
  find_program(PKG_CONFIG_EXECUTABLE NAMES pkg-config pkgconf)
  add_test(NAME install.consumers
           COMMAND ${CMAKE_COMMAND} -DBUILD_DIR=${CMAKE_BINARY_DIR}
                   -DSOURCE_DIR=${CMAKE_SOURCE_DIR}/examples/consumer
                   -DPKG_CONFIG=${PKG_CONFIG_EXECUTABLE}
                   -DCC=${CMAKE_C_COMPILER} -DFC=${CMAKE_Fortran_COMPILER}
                   -DGENERATOR=${CMAKE_GENERATOR}
                   -P ${CMAKE_SOURCE_DIR}/cmake/check_install.cmake)
  set_tests_properties(install.consumers PROPERTIES RESOURCE_LOCK install_prefix)
endif()
