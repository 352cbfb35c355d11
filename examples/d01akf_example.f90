! D01AKF: the integral of x sin(30 x) cos(x) over [0, 2 pi], an oscillating
! integrand (exactly -2 pi 30 / (30**2 - 1) = -0.20967...), with the error
! estimate and the number of subintervals used (IW(1)).
program d01akf_example
  use lbx3207qk
  implicit none
  integer, parameter :: limit = 100
  double precision, parameter :: pi = 3.14159265358979323846d0
  double precision :: result, abserr, w(4 * limit)
  integer :: iw(limit), ifail
  ifail = 0
  call d01akf(f, 0.0d0, 2.0d0 * pi, 0.0d0, 1.0d-10, result, abserr, w, 4 * limit, iw, limit, ifail)
  write (*, '(a, f18.14, a, es9.2, a, i3)') ' x sin(30x) cos(x):', result, ', ABSERR =', abserr, &
    ', subintervals:', iw(1)
  write (*, '(a, f18.14)') ' exact:            ', -2.0d0 * pi * 30.0d0 / (30.0d0**2 - 1.0d0)
contains
  double precision function f(x)
    double precision, intent(in) :: x
    f = x * sin(30.0d0 * x) * cos(x)
  end function f
end program d01akf_example
