! Two streams from one seed: the second skips ahead 10000 values, so its first value is
! the 10001st of the first stream.
program g05kjf_example
  use lbx3207qk
  implicit none
  integer :: a(1260), b(1260), lstate, ifail
  double precision :: x(10001), y(1)
  lstate = 1260
  ifail = 0
  call g05kff(3, 1, [2024], 1, a, lstate, ifail)
  call g05kff(3, 1, [2024], 1, b, lstate, ifail)
  call g05kjf(10000, b, ifail)
  call g05saf(10001, a, x, ifail)
  call g05saf(1, b, y, ifail)
  write (*, '(A,L2)') 'skip-ahead lands on value 10001:', y(1) == x(10001)
end program g05kjf_example
