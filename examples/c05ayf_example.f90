! C05AYF: the zero of exp(-x) - x in [0, 1]; the function counts its calls
! in IUSER(1).
program c05ayf_example
  use lbx3207qk
  implicit none
  double precision :: x, ruser(1)
  integer :: iuser(1), ifail
  iuser(1) = 0
  ruser(1) = 0.0d0
  ifail = 0
  call c05ayf(0.0d0, 1.0d0, 1.0d-5, 0.0d0, f, x, iuser, ruser, ifail)
  write (*, '(a, f12.5, a, i3)') ' Zero at X =', x, ', evaluations:', iuser(1)
contains
  double precision function f(xx, iuser, ruser)
    double precision, intent(in) :: xx
    integer, intent(inout) :: iuser(*)
    double precision, intent(inout) :: ruser(*)
    iuser(1) = iuser(1) + 1
    f = exp(-xx) - xx + 0.0d0 * ruser(1)
  end function f
end program c05ayf_example
