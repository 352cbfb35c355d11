! G01EBF: Student's t tail probabilities for a few degrees of freedom.
program g01ebf_example
  use lbx3207qk
  implicit none
  double precision :: df(4) = [1d0, 5d0, 30d0, 1d6]
  integer :: i, ifail
  write (*, '(A)') '     DF    P(T >= 2)            P(|T| >= 2)'
  do i = 1, size(df)
    ifail = 0
    write (*, '(F9.1, 2F22.17)') df(i), g01ebf('U', 2d0, df(i), ifail), &
        g01ebf('S', 2d0, df(i), ifail)
  end do
end program g01ebf_example
