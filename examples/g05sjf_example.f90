! Five gamma variates with shape 2 and scale 1.5 from the basic generator.
program g05sjf_example
  use lbx3207qk
  implicit none
  integer :: state(17), lstate, seed(1), ifail
  double precision :: x(5)
  lstate = 17
  seed(1) = 1762543
  ifail = 0
  call g05kff(1, 1, seed, 1, state, lstate, ifail)
  call g05sjf(5, 2.0d0, 1.5d0, state, x, ifail)
  write (*, '(5F10.4)') x
end program g05sjf_example
