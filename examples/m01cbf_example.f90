! M01CBF, M01CCF: sort integers, and names on their first three characters
! (stable: names with the same first three keep their order).
program m01cbf_example
  use lbx3207qk
  implicit none
  integer :: iv(8) = [5, -2, 9, 0, 5, -7, 3, 1], ifail
  character(len=6) :: names(6) = ['pearly', 'apple ', 'pears ', 'fig   ', 'applet', 'pear  ']
  ifail = 0
  call m01cbf(iv, 1, 8, 'A', ifail)
  print '(A,8I4)', 'ascending:  ', iv
  call m01cbf(iv, 2, 7, 'D', ifail)
  print '(A,8I4)', 'IV(2:7) desc:', iv
  call m01ccf(names, 1, 6, 1, 3, 'A', ifail)
  print '(A,6(1X,A))', 'names:', names
end program m01cbf_example
