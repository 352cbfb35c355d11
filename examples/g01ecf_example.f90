! G01ECF: chi-squared tail probabilities.
program g01ecf_example
  use lbx3207qk
  implicit none
  double precision :: df(4) = [1d0, 4d0, 10d0, 100d0]
  integer :: i, ifail
  write (*, '(A)') '     DF     X     P(X2 <= X)           P(X2 >= X)'
  do i = 1, size(df)
    ifail = 0
    write (*, '(F7.1, F7.1, 2ES21.13E3)') df(i), df(i), g01ecf('L', df(i), df(i), ifail), &
        g01ecf('U', df(i), df(i), ifail)
  end do
end program g01ecf_example
