! S15AEF: the error function.
program s15aef_example
  use lbx3207qk
  implicit none
  double precision :: x(5) = [-2d0, -0.1d0, 0d0, 0.4d0, 11d0]
  integer :: i, ifail
  write (*, '(A)') '        X              erf(X)'
  do i = 1, size(x)
    ifail = 0
    write (*, '(F10.3, ES25.16E3)') x(i), s15aef(x(i), ifail)
  end do
end program s15aef_example
