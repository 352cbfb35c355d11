! D01ALF: the integral over [0, 1] of abs(x - 1/7)**(-1/4) abs(x - 2/3)**(-0.55),
! singular at the two break points 1/7 and 2/3, with the error estimate and the
! number of subintervals used (IW(1)).
program d01alf_example
  use lbx3207qk
  implicit none
  integer, parameter :: limit = 100, npts = 2
  double precision :: result, abserr, points(npts), w(4 * limit + npts + 2)
  integer :: iw(2 * limit + npts + 2), ifail
  points = [1.0d0 / 7.0d0, 2.0d0 / 3.0d0]
  ifail = 0
  call d01alf(f, 0.0d0, 1.0d0, npts, points, 0.0d0, 1.0d-8, result, abserr, w, size(w), iw, &
              size(iw), ifail)
  write (*, '(a, f18.14, a, es9.2, a, i3)') ' two singularities:', result, ', ABSERR =', abserr, &
    ', subintervals:', iw(1)
contains
  double precision function f(x)
    double precision, intent(in) :: x
    f = abs(x - 1.0d0 / 7.0d0)**(-0.25d0) * abs(x - 2.0d0 / 3.0d0)**(-0.55d0)
  end function f
end program d01alf_example
