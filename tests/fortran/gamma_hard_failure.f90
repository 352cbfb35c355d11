! Gamma at a pole with IFAIL = 0: the records, the closing lines and the
! end of the process; the line after the call is never reached.
program gamma_hard_failure
  use lbx3207qk
  implicit none
  integer :: ifail
  double precision :: r
  ifail = 0
  r = s14aaf(-2d0, ifail)
  write (*, '(A)') 'FAIL control came back after a hard failure'
end program gamma_hard_failure
