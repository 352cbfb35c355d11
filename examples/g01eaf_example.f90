! G01EAF: the four tail probabilities of the standard normal distribution.
program g01eaf_example
  use lbx3207qk
  implicit none
  character(1) :: tails(4) = ['L', 'U', 'S', 'C']
  integer :: i, ifail
  write (*, '(A)') 'TAIL     X        probability'
  do i = 1, 4
    ifail = 0
    write (*, '(2X, A, F9.3, F20.16)') tails(i), 1.96d0, g01eaf(tails(i), 1.96d0, ifail)
  end do
end program g01eaf_example
