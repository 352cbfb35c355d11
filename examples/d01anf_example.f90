! D01ANF: the integral of log(x) sin(10 pi x) over [0, 1] (the integrand
! taken as 0 at x = 0, where the Clenshaw-Curtis rule asks for it), with the
! error estimate and the number of subintervals used (IW(1)); the exact value
! is -(gamma + log(20 pi) - Ci(20 pi)) / (10 pi) = -0.1281368...
program d01anf_example
  use lbx3207qk
  implicit none
  integer, parameter :: limit = 100
  double precision, parameter :: pi = 3.14159265358979323846d0
  double precision :: result, abserr, w(4 * limit)
  integer :: iw(2 * limit), ifail
  ifail = 0
  call d01anf(g, 0.0d0, 1.0d0, 10.0d0 * pi, 2, 0.0d0, 1.0d-7, result, abserr, w, 4 * limit, iw, &
              2 * limit, ifail)
  write (*, '(a, f18.14, a, es9.2, a, i3)') ' log(x) sin(10 pi x):', result, ', ABSERR =', &
    abserr, ', subintervals:', iw(1)
contains
  double precision function g(x)
    double precision, intent(in) :: x
    g = 0.0d0
    if (x > 0.0d0) g = log(x)
  end function g
end program d01anf_example
