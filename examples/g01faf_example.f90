! G01FAF: deviates of the standard normal distribution.
program g01faf_example
  use lbx3207qk
  implicit none
  character(1) :: tails(4) = ['L', 'U', 'S', 'C']
  double precision :: p(4) = [0.975d0, 0.025d0, 0.05d0, 0.95d0]
  integer :: i, ifail
  write (*, '(A)') 'TAIL     P            deviate'
  do i = 1, 4
    ifail = 0
    write (*, '(2X, A, F9.3, F20.16)') tails(i), p(i), g01faf(tails(i), p(i), ifail)
  end do
  ifail = 1
  write (*, '(A, F4.1, A, I2)') 'P = 1 gives', g01faf('L', 1d0, ifail), ' with IFAIL =', ifail
end program g01faf_example
