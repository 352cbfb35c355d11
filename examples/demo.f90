! A first look at the library: sort a vector, see a failure reported softly,
! and ask the library what it is.
program demo
  use lbx3207qk
  implicit none
  double precision :: rv(8) = [3.5d0, -1.0d0, 2.25d0, 0.0d0, 9.0d0, -7.5d0, 2.25d0, 1.0d0]
  integer :: ifail

  write (*, '(A)') 'M01CAF: sort RV(1..8) into ascending order'
  ifail = 0
  call m01caf(rv, 1, 8, 'A', ifail)
  write (*, '(8F7.2)') rv
  write (*, '(A)') 'M01CAF: elements 3 to 6 only, descending'
  call m01caf(rv, 3, 6, 'D', ifail)
  write (*, '(8F7.2)') rv

  write (*, '(/A)') 'A bad ORDER with IFAIL = -1: the records appear and control returns'
  ifail = -1
  call m01caf(rv, 1, 8, 'X', ifail)
  write (*, '(A,I3)') 'IFAIL on exit =', ifail

  write (*, '(/A)') 'Implementation details (A00AAF):'
  call a00aaf()

  write (*, '(/A)') 'Machine constants:'
  write (*, '(A,ES25.16E3)') ' X02AJF machine precision  =', x02ajf()
  write (*, '(A,ES25.16E3)') ' X02AMF safe range         =', x02amf()
  write (*, '(A,ES25.16E3)') ' X02ALF largest number     =', x02alf()
  write (*, '(A,I12)')     ' X02BBF largest integer    =', x02bbf(0d0)
  write (*, '(A,F19.15)')  ' X01AAF pi                 =', x01aaf(0d0)
end program demo
