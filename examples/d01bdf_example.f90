! D01BDF: the integral of 4 / (1 + x**2) over [0, 1] (pi) by the rule
! sequence of 21, 43 and 87 points, with the error estimate.
program d01bdf_example
  use lbx3207qk
  implicit none
  double precision :: result, abserr
  integer :: ifail
  ifail = 0
  call d01bdf(f, 0.0d0, 1.0d0, 0.0d0, 1.0d-12, result, abserr, ifail)
  write (*, '(a, f18.14, a, es9.2)') ' 4/(1+x**2):', result, ', ABSERR =', abserr
contains
  double precision function f(x)
    double precision, intent(in) :: x
    f = 4.0d0 / (1.0d0 + x * x)
  end function f
end program d01bdf_example
