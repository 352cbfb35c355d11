! D01AHF: the integral of 4 / (1 + x**2) over [0, 1] (pi) to a relative
! accuracy of 1e-9, with the evaluations used and the relative error estimate.
program d01ahf_example
  use lbx3207qk
  implicit none
  double precision :: value, relerr
  integer :: npts, ifail
  ifail = 0
  value = d01ahf(f, 0.0d0, 1.0d0, 1.0d-9, npts, relerr, 0, ifail)
  write (*, '(a, f18.14, a, es9.2, a, i4)') ' 4/(1+x**2):', value, ', RELERR =', relerr, &
    ', evaluations:', npts
contains
  double precision function f(x)
    double precision, intent(in) :: x
    f = 4.0d0 / (1.0d0 + x * x)
  end function f
end program d01ahf_example
