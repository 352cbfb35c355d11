# Installs the build tree into a fresh prefix inside it and builds three
# consumers of the installed copy (examples/consumer), each run and its output
# compared with consumer.out:
#   1. a C program compiled with the flags pkg-config gives for lbx3207qk;
#   2. the same program built by CMake with find_package(LBX3207QK);
#   3. a gfortran program with `use lbx3207qk`, compiled against the installed module.
# Run by ctest: cmake -DBUILD_DIR=.. -DSOURCE_DIR=.. -DPKG_CONFIG=.. -DCC=.. -DFC=..
#   -DGENERATOR=.. -P check_install.cmake
set(work ${BUILD_DIR}/install-test)
set(prefix ${work}/prefix)
file(REMOVE_RECURSE ${work})
file(MAKE_DIRECTORY ${work})

function(run what)
  execute_process(COMMAND ${ARGN} WORKING_DIRECTORY ${work} RESULT_VARIABLE rc
                  OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "${what} failed (${rc}):\n${ARGN}\n${out}\n${err}")
  endif()
  set(run_output "${out}" PARENT_SCOPE)
endfunction()

function(expect what output)
  file(READ ${SOURCE_DIR}/consumer.out expected)
  if(NOT output STREQUAL expected)
    message(FATAL_ERROR "${what}: output differs from consumer.out:\n${output}")
  endif()
  message(STATUS "${what}: ok")
endfunction()

run("install" ${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix})
foreach(f include/lbx3207qk.h include/lbx3207qk.mod include/lbx3207qk.f90
          share/doc/LBX3207QK/routines.md share/doc/LBX3207QK/architecture.md)
  if(NOT EXISTS ${prefix}/${f})
    message(FATAL_ERROR "not installed: ${f}")
  endif()
endforeach()
file(GLOB_RECURSE pc_files ${prefix}/*/lbx3207qk.pc)
list(LENGTH pc_files n)
if(NOT n EQUAL 1)
  message(FATAL_ERROR "expected one lbx3207qk.pc under ${prefix}, found: ${pc_files}")
endif()
get_filename_component(pc_dir ${pc_files} DIRECTORY)

# 1. pkg-config: the flags as a user's Makefile would take them.
set(ENV{PKG_CONFIG_PATH} ${pc_dir})
run("pkg-config --cflags" ${PKG_CONFIG} --cflags lbx3207qk)
separate_arguments(cflags UNIX_COMMAND "${run_output}")
run("pkg-config --libs" ${PKG_CONFIG} --libs lbx3207qk)
separate_arguments(libs UNIX_COMMAND "${run_output}")
run("pkg-config --variable=libdir" ${PKG_CONFIG} --variable=libdir lbx3207qk)
string(STRIP "${run_output}" libdir)
run("compile with pkg-config flags" ${CC} ${cflags} ${SOURCE_DIR}/consumer.c -o consumer_pkgconfig
    ${libs} -Wl,-rpath,${libdir})
run("consumer_pkgconfig" ${work}/consumer_pkgconfig)
expect("pkg-config consumer" "${run_output}")

# 2. find_package(LBX3207QK) and the imported target.
run("configure the find_package consumer" ${CMAKE_COMMAND} -S ${SOURCE_DIR} -B ${work}/cmake-build
    -G ${GENERATOR} -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_C_COMPILER=${CC})
run("build the find_package consumer" ${CMAKE_COMMAND} --build ${work}/cmake-build)
run("consumer_cmake" ${work}/cmake-build/consumer_cmake)
expect("find_package consumer" "${run_output}")

# 3. gfortran with the installed module.
run("compile the Fortran consumer" ${FC} -I${prefix}/include ${SOURCE_DIR}/consumer.f90
    -o consumer_fortran -L${libdir} -lLBX3207QK -Wl,-rpath,${libdir})
run("consumer_fortran" ${work}/consumer_fortran)
expect("gfortran module consumer" "${run_output}")
