! D01AQF: the Cauchy principal value of the integral of
! 1 / ((5 x**3 + 6) (x - 0)) over [-1, 5], with the error estimate and the
! number of subintervals used (IW(1)).
program d01aqf_example
  use lbx3207qk
  implicit none
  integer, parameter :: limit = 100
  double precision :: result, abserr, w(4 * limit)
  integer :: iw(limit), ifail
  ifail = 0
  call d01aqf(g, -1.0d0, 5.0d0, 0.0d0, 0.0d0, 1.0d-8, result, abserr, w, 4 * limit, iw, limit, &
              ifail)
  write (*, '(a, f18.14, a, es9.2, a, i3)') ' p.v. 1/((5x**3+6) x):', result, ', ABSERR =', &
    abserr, ', subintervals:', iw(1)
contains
  double precision function g(x)
    double precision, intent(in) :: x
    g = 1.0d0 / (5.0d0 * x**3 + 6.0d0)
  end function g
end program d01aqf_example
