! D01AJF: the integrals of 4 / (1 + x**2) over [0, 1] (pi) and of
! log(x) / sqrt(x) over [0, 1] (-4, a singularity at 0), with their error
! estimates and the number of subintervals used (IW(1)).
program d01ajf_example
  use lbx3207qk
  implicit none
  integer, parameter :: limit = 100
  double precision :: result, abserr, w(4 * limit)
  integer :: iw(limit), ifail
  ifail = 0
  call d01ajf(fpi, 0.0d0, 1.0d0, 0.0d0, 1.0d-10, result, abserr, w, 4 * limit, iw, limit, ifail)
  write (*, '(a, f18.14, a, es9.2, a, i3)') ' 4/(1+x**2):   ', result, ', ABSERR =', abserr, &
    ', subintervals:', iw(1)
  ifail = 0
  call d01ajf(flog, 0.0d0, 1.0d0, 0.0d0, 1.0d-10, result, abserr, w, 4 * limit, iw, limit, ifail)
  write (*, '(a, f18.14, a, es9.2, a, i3)') ' log(x)/sqrt(x):', result, ', ABSERR =', abserr, &
    ', subintervals:', iw(1)
contains
  double precision function fpi(x)
    double precision, intent(in) :: x
    fpi = 4.0d0 / (1.0d0 + x * x)
  end function fpi

  double precision function flog(x)
    double precision, intent(in) :: x
    flog = log(x) / sqrt(x)
  end function flog
end program d01ajf_example
