! S14AAF: the gamma function at a few arguments, and a pole reported quietly.
program s14aaf_example
  use lbx3207qk
  implicit none
  double precision :: x(5) = [0.5d0, 1d0, 4.5d0, -1.5d0, 100d0]
  integer :: i, ifail
  write (*, '(A)') '        X            Gamma(X)'
  do i = 1, size(x)
    ifail = 0
    write (*, '(F10.3, ES25.16E3)') x(i), s14aaf(x(i), ifail)
  end do
  ifail = 1
  write (*, '(A, ES12.4E3, A, I2)') 'Gamma(-3) =', s14aaf(-3d0, ifail), '   IFAIL =', ifail
end program s14aaf_example
