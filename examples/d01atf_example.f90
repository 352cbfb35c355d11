! D01ATF: the integral of log(x) / sqrt(x) over [0, 1] (-4) with a
! vectorised integrand: F receives all the points of a rule application at
! once; it counts its calls and points.
module d01atf_integrand
  implicit none
  integer :: calls = 0, points = 0
contains
  subroutine f(x, fv, n)
    integer, intent(in) :: n
    double precision, intent(in) :: x(*)
    double precision, intent(out) :: fv(*)
    calls = calls + 1
    points = points + n
    fv(1:n) = log(x(1:n)) / sqrt(x(1:n))
  end subroutine f
end module d01atf_integrand

program d01atf_example
  use lbx3207qk
  use d01atf_integrand
  implicit none
  integer, parameter :: limit = 100
  double precision :: result, abserr, w(4 * limit)
  integer :: iw(limit), ifail
  ifail = 0
  call d01atf(f, 0.0d0, 1.0d0, 0.0d0, 1.0d-10, result, abserr, w, 4 * limit, iw, limit, ifail)
  ! Twelve decimals and a bound on ABSERR: the last digits follow the compiler's
  ! choice of vectorised or scalar log for the integrand.
  write (*, '(a, f16.12, a, l1, a, i3)') ' log(x)/sqrt(x):', result, ', ABSERR < 1e-12: ', &
    abserr < 1d-12, ', subintervals:', iw(1)
  write (*, '(a, i4, a, i5, a)') ' F was called', calls, ' times for', points, ' points'
end program d01atf_example
