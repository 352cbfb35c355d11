! M01CAF: sort part of a vector, ascending then descending.
program m01caf_example
  use lbx3207qk
  implicit none
  double precision :: rv(10) = [1.3d0, 5.9d0, 4.1d0, 2.3d0, 0.5d0, 5.8d0, 1.3d0, 6.5d0, 2.3d0, 0.5d0]
  integer :: ifail
  ifail = 0
  call m01caf(rv, 1, 10, 'A', ifail)
  print '(A,10F5.1)', 'ascending: ', rv
  call m01caf(rv, 3, 8, 'D', ifail)
  print '(A,10F5.1)', 'RV(3:8) descending:', rv
end program m01caf_example
