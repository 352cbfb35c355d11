! D01AUF: the integral of x sin(30 x) cos(x) over [0, 2 pi] with the 41-point
! rule (KEY = 4), the integrand evaluated for all the rule's points in one
! call; with the error estimate and the number of subintervals used (IW(1)).
program d01auf_example
  use lbx3207qk
  implicit none
  integer, parameter :: limit = 100
  double precision, parameter :: pi = 3.14159265358979323846d0
  double precision :: result, abserr, w(4 * limit)
  integer :: iw(limit), ifail
  ifail = 0
  call d01auf(f, 0.0d0, 2.0d0 * pi, 4, 0.0d0, 1.0d-10, result, abserr, w, 4 * limit, iw, limit, &
              ifail)
  ! ABSERR is a round-off-sized estimate here: its last digits vary with the
  ! compiler's arithmetic, so the example shows only its order.
  write (*, '(a, f18.14, a, l1, a, i3)') ' x sin(30x) cos(x):', result, ', ABSERR < 1E-12: ', &
    abserr < 1.0d-12, ', subintervals:', iw(1)
contains
  subroutine f(x, fv, n)
    double precision, intent(in) :: x(*)
    double precision, intent(out) :: fv(*)
    integer, intent(in) :: n
    integer :: i
    do i = 1, n
      fv(i) = x(i) * sin(30.0d0 * x(i)) * cos(x(i))
    end do
  end subroutine f
end program d01auf_example
