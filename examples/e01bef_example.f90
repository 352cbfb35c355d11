! E01BEF, E01BFF, E01BGF, E01BHF: a monotone interpolant of monotone data, its
! values and slopes between the data, and its integral.
program e01bef_example
  use lbx3207qk
  implicit none
  integer, parameter :: n = 6, m = 6
  double precision :: x(n) = [0.0d0, 1.0d0, 2.0d0, 4.0d0, 5.0d0, 8.0d0]
  double precision :: f(n) = [0.0d0, 0.1d0, 2.0d0, 2.0d0, 2.5d0, 6.0d0]
  double precision :: d(n), px(m) = [0.5d0, 1.5d0, 3.0d0, 4.5d0, 6.5d0, 9.0d0], pf(m), pd(m), pint
  integer :: ifail, k
  ifail = 0
  call e01bef(n, x, f, d, ifail)
  print '(a, 6f9.5)', 'D: ', d
  ifail = 1
  call e01bgf(n, x, f, d, m, px, pf, pd, ifail)
  print '(a, i2, a)', 'E01BGF IFAIL =', ifail, ' (9.0 lies beyond X(N))'
  do k = 1, m
    print '(f6.2, 2f10.5)', px(k), pf(k), pd(k)
  end do
  ifail = 0
  call e01bff(n, x, f, d, 2, [3.0d0, 0.5d0], pf, ifail)
  print '(a, 2f10.5)', 'E01BFF at 3.0, 0.5:', pf(1:2)
  ifail = 0
  call e01bhf(n, x, f, d, 0.0d0, 8.0d0, pint, ifail)
  print '(a, f10.5)', 'integral over [0, 8]:', pint
end program e01bef_example
