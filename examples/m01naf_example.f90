! M01NAF: where items fall in an ascending vector (the last element not
! greater than each item, 0 below the first).
program m01naf_example
  use lbx3207qk
  implicit none
  double precision :: rv(6) = [1.0d0, 2.0d0, 2.0d0, 3.5d0, 5.0d0, 8.0d0]
  double precision :: items(5) = [0.5d0, 2.0d0, 3.0d0, 8.0d0, 9.0d0]
  integer :: k, ifail
  do k = 1, 5
    ifail = 0
    print '(A,F4.1,A,I2)', 'item ', items(k), ' after element', m01naf(.true., rv, 1, 6, items(k), ifail)
  end do
  ! In a segment: RV(2..4) only.
  ifail = 0
  print '(A,I2)', 'item 9.0 in RV(2:4): after element', m01naf(.false., rv, 2, 4, 9.0d0, ifail)
end program m01naf_example
