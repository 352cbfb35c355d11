! S15ADF: the complementary error function, including its limits.
program s15adf_example
  use lbx3207qk
  implicit none
  double precision :: x(6) = [-7d0, -1d0, 0d0, 0.5d0, 5d0, 27d0]
  integer :: i, ifail
  write (*, '(A)') '        X              erfc(X)'
  do i = 1, size(x)
    ifail = 0
    write (*, '(F10.3, ES25.16E3)') x(i), s15adf(x(i), ifail)
  end do
end program s15adf_example
