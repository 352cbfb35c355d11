! Normal variates from the basic generator seeded with 1: the first is the inverse normal
! of 13**13 * 6 * 2**-60.
program g05skf_example
  use lbx3207qk
  implicit none
  integer :: state(17), lstate, ifail
  double precision :: z(1)
  lstate = 17
  ifail = 0
  call g05kff(1, 1, [1], 1, state, lstate, ifail)
  call g05skf(1, 0d0, 1d0, state, z, ifail)
  write (*, '(A,F12.8)') 'first standard normal:', z(1)
end program g05skf_example
