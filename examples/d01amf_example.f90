! D01AMF: the integral of 1 / ((x + 1) sqrt(x)) over [0, infinity) (exactly
! pi, a singularity at 0 and a slow tail), with the error estimate and the
! number of subintervals used (IW(1)).
program d01amf_example
  use lbx3207qk
  implicit none
  integer, parameter :: limit = 100
  double precision :: result, abserr, w(4 * limit)
  integer :: iw(limit), ifail
  ifail = 0
  call d01amf(f, 0.0d0, 1, 0.0d0, 1.0d-10, result, abserr, w, 4 * limit, iw, limit, ifail)
  write (*, '(a, f18.14, a, es9.2, a, i3)') ' 1/((x+1) sqrt(x)):', result, ', ABSERR =', abserr, &
    ', subintervals:', iw(1)
contains
  double precision function f(x)
    double precision, intent(in) :: x
    f = 1.0d0 / ((x + 1.0d0) * sqrt(x))
  end function f
end program d01amf_example
