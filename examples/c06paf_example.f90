! C06PAF and C06PCF: the transform of 1 + 2 cos(2 pi j / 8), j = 0 .. 7, is
! sqrt(8) at frequencies 0 and 1 (and 7, the conjugate of 1): the CCS shows
! z(0) .. z(4); the backward transform returns the data.  C06PCF on the same
! values as a complex sequence gives all eight coefficients.
program c06paf_example
  use lbx3207qk
  implicit none
  integer, parameter :: n = 8
  double precision, parameter :: pi = 3.14159265358979323846d0
  double precision :: x(n + 2), work(1)
  complex(kind=kind(1.0d0)) :: z(n), cwork(1)
  integer :: j, ifail
  do j = 1, n
    x(j) = 1.0d0 + 2.0d0 * cos(2.0d0 * pi * (j - 1) / n)
  end do
  z = x(1:n)
  ifail = 0
  call c06paf('F', x, n, work, ifail)
  write (*, '(a)') ' k     Re z(k)     Im z(k)'
  do j = 0, n / 2
    write (*, '(i2, 2f12.6)') j, tidy(x(2 * j + 1)), tidy(x(2 * j + 2))
  end do
  call c06paf('B', x, n, work, ifail)
  write (*, '(a, 8f7.3)') ' back:', (tidy(x(j)), j = 1, n)
  call c06pcf('F', z, n, cwork, ifail)
  write (*, '(a, 8f7.3)') ' C06PCF Re:', (tidy(dble(z(j))), j = 1, n)
contains
  ! Rounding-level values print as 0.
  double precision function tidy(v)
    double precision, intent(in) :: v
    tidy = merge(0.0d0, v, abs(v) < 1.0d-12)
  end function tidy
end program c06paf_example
