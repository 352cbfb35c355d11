! A zero increment of BLAS_DSUM called inside the caller's own output
! statement on unit 6: the unit is the caller's until the statement ends, so
! the records go to standard error and the program stops (status 0) instead of
! waiting for itself.
program linalg_report_in_output
  use lbx3207qk
  implicit none
  double precision :: x(2) = [1d0, 2d0]
  call f06aatn('TSLTESTING', ' ')
  print '(A)', 'before'
  print *, blas_dsum(2, x, 0)
  print '(A)', 'FAIL: control came back after the report'
end program linalg_report_in_output
