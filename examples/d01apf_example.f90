! D01APF: the integral of log(x) / (1 + log(x)**2)**2 over [0, 1], written as
! g(x) log(x - 0) with g(x) = 1 / (1 + log(x)**2)**2 (KEY = 2, ALFA = BETA =
! 0), with the error estimate and the number of subintervals used (IW(1)).
program d01apf_example
  use lbx3207qk
  implicit none
  integer, parameter :: limit = 100
  double precision :: result, abserr, w(4 * limit)
  integer :: iw(limit), ifail
  ifail = 0
  call d01apf(g, 0.0d0, 1.0d0, 0.0d0, 0.0d0, 2, 0.0d0, 1.0d-7, result, abserr, w, 4 * limit, iw, &
              limit, ifail)
  write (*, '(a, f18.14, a, es9.2, a, i3)') ' log(x)/(1+log(x)**2)**2:', result, ', ABSERR =', &
    abserr, ', subintervals:', iw(1)
contains
  double precision function g(x)
    double precision, intent(in) :: x
    g = 0.0d0
    if (x > 0.0d0) g = 1.0d0 / (1.0d0 + log(x)**2)**2
  end function g
end program d01apf_example
