! IFAIL = 0: the records, the hard-failure line, then a normal stop with exit
! status 0 and nothing more, even with floating-point flags raised before.
program hard_stop
  use lbx3207qk
  implicit none
  double precision :: rv(3) = [3d0, 2d0, 1d0], zero, x
  integer :: ifail
  zero = 0
  x = 1 / zero          ! raises the division-by-zero flag
  print '(A,L2)', 'infinite before the call:', x > huge(x)
  ifail = 0
  call m01caf(rv, 1, 3, 'B', ifail)
  print '(A)', 'FAIL: control came back after a hard failure'
end program hard_stop
