! The reference vector of Poisson variates with mean 4: R(6), R(7), R(8) are
! P(X <= 0), P(X <= 1), P(X <= 2), that is exp(-4), 5 exp(-4), 13 exp(-4).
program g05tjf_example
  use lbx3207qk
  implicit none
  integer :: state(17), x(1), ifail
  double precision :: r(50)
  ifail = 0
  call g05tjf(0, 0, 4d0, r, 50, state, x, ifail)
  write (*, '(A,I3)') 'tabulated counts:', int(r(4))
  write (*, '(A,3F14.10)') 'P(X<=0..2):', r(6:8)
end program g05tjf_example
