! S15AFF: Dawson's integral, with its maximum near x = 0.924.
program s15aff_example
  use lbx3207qk
  implicit none
  double precision :: x(5) = [-1d0, 0.5d0, 0.9241388730d0, 4d0, 1d9]
  integer :: i, ifail
  write (*, '(A)') '        X                F(X)'
  do i = 1, size(x)
    ifail = 0
    write (*, '(ES14.6E3, ES25.16E3)') x(i), s15aff(x(i), ifail)
  end do
end program s15aff_example
