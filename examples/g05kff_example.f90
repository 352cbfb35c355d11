! The example of docs/random-generators.md: MRG32k3a from its authors' default seed.
program g05kff_example
  use lbx3207qk
  implicit none
  integer :: state(61), lstate, ifail
  double precision :: x(2)
  lstate = 61
  ifail = 0
  call g05kff(6, 1, [12345, 12345, 12345, 12345, 12345, 12345], 6, state, lstate, ifail)
  call g05saf(2, state, x, ifail)
  write (*, '(2F20.17)') x
end program g05kff_example
