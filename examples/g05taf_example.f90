! The reference vector of binomial variates with M = 4, P = 1/2: R(4) is the first tabulated
! count, R(5) the number of counts, R(6:10) the distribution function 1/16, 5/16, 11/16,
! 15/16, 1. Then five variates drawn with it (MODE 1).
program g05taf_example
  use lbx3207qk
  implicit none
  integer :: state(17), lstate, seed(1), x(5), ifail
  double precision :: r(20)
  lstate = 17
  seed(1) = 42
  ifail = 0
  call g05kff(1, 1, seed, 1, state, lstate, ifail)
  call g05taf(0, 0, 4, 0.5d0, r, 20, state, x, ifail)
  write (*, '(A,2I3)') 'first count, counts:', int(r(4)), int(r(5))
  write (*, '(A,5F8.4)') 'P(X<=k):', r(6:10)
  call g05taf(1, 5, 4, 0.5d0, r, 20, state, x, ifail)
  write (*, '(A,5I3)') 'variates:', x
end program g05taf_example
