! A consumer of the installed library through its Fortran module.
program consumer
  use lbx3207qk
  implicit none
  integer :: ifail
  double precision :: g, z
  ifail = 1
  g = s14aaf(4.5d0, ifail)
  write (*, '(A,F0.12,A,I0)') 'Gamma(4.5) = ', g, '  IFAIL = ', ifail
  ifail = 1
  z = g01faf('L', 0.975d0, ifail)
  write (*, '(A,F0.12,A,I0)') 'deviate(0.975) = ', z, '  IFAIL = ', ifail
end program consumer
