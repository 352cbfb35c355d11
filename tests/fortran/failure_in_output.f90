! A hard failure of a function called inside the caller's own output statement
! on the error unit: the unit is the caller's until the statement ends, so the
! records go to standard error and the process stops (status 0) instead of
! waiting for itself.
program failure_in_output
  use lbx3207qk
  implicit none
  integer :: ifail
  print '(A)', 'before'
  ifail = 0
  print *, g01ebf('L', 1d0, -1d0, ifail)
  print '(A)', 'FAIL: control came back after a hard failure'
end program failure_in_output
