! S14ABF: ln Gamma(x), also far beyond the range of Gamma itself.
program s14abf_example
  use lbx3207qk
  implicit none
  double precision :: x(5) = [1d-10, 0.5d0, 3d0, 171.5d0, 1d100]
  integer :: i, ifail
  write (*, '(A)') '        X              ln Gamma(X)'
  do i = 1, size(x)
    ifail = 0
    write (*, '(ES12.4E3, ES25.16E3)') x(i), s14abf(x(i), ifail)
  end do
end program s14abf_example
