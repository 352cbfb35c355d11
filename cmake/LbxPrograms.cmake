# lbx_fortran_program(target source): a gfortran caller program that uses the
# interface module and links the shared library, as a user's program does.
function(lbx_fortran_program target source)
  add_executable(${target} ${source})
  add_dependencies(${target} lbx_fortran_module)
  target_include_directories(${target} PRIVATE ${LBX_MODULE_DIR})
  target_link_libraries(${target} PRIVATE LBX3207QK)
  set_target_properties(${target} PROPERTIES LINKER_LANGUAGE Fortran)
endfunction()

# lbx_program_test(name target dir stem): runs the program in an empty folder
# and compares its output with stem.out (and its exit status with stem.status).
function(lbx_program_test name target stem)
  add_test(NAME ${name}
           COMMAND Python3::Interpreter ${CMAKE_SOURCE_DIR}/tests/run_program.py
                   $<TARGET_FILE:${target}> ${stem})
endfunction()
