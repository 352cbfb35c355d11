! D01ASF: the integral of cos(pi x / 2) / sqrt(x) over [0, infinity), which
! is 1, with the error estimate and the number of intervals used (LST).
program d01asf_example
  use lbx3207qk
  implicit none
  integer, parameter :: limit = 100, limlst = 50
  double precision, parameter :: pi = 3.14159265358979323846d0
  double precision :: result, abserr, w(4 * limit), erlst(limlst), rslst(limlst)
  integer :: iw(2 * limit), ierlst(limlst), lst, ifail
  ifail = 0
  call d01asf(g, 0.0d0, 0.5d0 * pi, 1, 1.0d-8, result, abserr, limlst, lst, erlst, rslst, ierlst, &
              w, 4 * limit, iw, 2 * limit, ifail)
  write (*, '(a, f18.14, a, es9.2, a, i3)') ' cos(pi x/2)/sqrt(x):', result, ', ABSERR =', &
    abserr, ', intervals:', lst
contains
  double precision function g(x)
    double precision, intent(in) :: x
    g = 0.0d0
    if (x > 0.0d0) g = 1.0d0 / sqrt(x)
  end function g
end program d01asf_example
