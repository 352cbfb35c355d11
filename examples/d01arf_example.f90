! D01ARF: the integral of 4 / (1 + x**2) over [0, 1], which is pi, with the
! rules, evaluations and error estimate it took (IPARM = 1 keeps the
! expansion of the integrand in ALPHA); then, from ALPHA and without calling
! F again, the integral over [0, 1/2], which is 4 atan(1/2).
program d01arf_example
  use lbx3207qk
  implicit none
  double precision :: acc, ans, alpha(48)
  integer :: n, ifail
  ifail = 0
  call d01arf(f, 0.0d0, 1.0d0, 1.0d-12, 0.0d0, 4, 1, acc, ans, n, alpha, ifail)
  write (*, '(a, f18.14, a, es9.2, a, i3)') ' 4/(1+x**2) over [0, 1]:', ans, ', ACC =', acc, &
    ', evaluations:', n
  ifail = 0
  call d01arf(f, 0.0d0, 0.5d0, 1.0d-12, 0.0d0, 4, 2, acc, ans, n, alpha, ifail)
  write (*, '(a, f18.14, a, es9.2, a, i3)') ' over [0, 1/2] from ALPHA:', ans, ', ACC =', acc, &
    ', evaluations:', n
contains
  double precision function f(x)
    double precision, intent(in) :: x
    f = 4.0d0 / (1.0d0 + x * x)
  end function f
end program d01arf_example
