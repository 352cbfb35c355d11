! F16AAZN in normal mode: an internal error is written and control returns;
! an illegal argument gives two records (the name without its trailing
! blanks, the value right-justified in 12) and the program stops.
program linalg_f16_stop
  use lbx3207qk
  implicit none
  call f06aatn('TSLTESTING', ' ')
  call f16aazn('F16ELF/BLAS_DSUM', 999, 0)
  call f16aazn('F16XYZ       ', 12, 0)
  print '(A)', 'returned'
  call f16aazn('F16XYZ       ', -10, -2147483647)
  print '(A)', 'FAIL: control came back after the report'
end program linalg_f16_stop
