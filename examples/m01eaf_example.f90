! M01DAF then M01EAF, M01ECF: rank a table by one column and rearrange every
! column by the same ranks (a stable sort of the rows on the key).
program m01eaf_example
  use lbx3207qk
  implicit none
  double precision :: height(5) = [1.72d0, 1.65d0, 1.80d0, 1.65d0, 1.72d0]
  character(len=5) :: who(5) = ['Ada  ', 'Bo   ', 'Cy   ', 'Dee  ', 'Eve  ']
  integer :: irank(5), k, ifail
  ifail = 0
  call m01daf(height, 1, 5, 'A', irank, ifail)
  call m01eaf(height, 1, 5, irank, ifail)
  call m01ecf(who, 1, 5, irank, ifail)
  do k = 1, 5
    print '(A,F6.2)', who(k), height(k)
  end do
end program m01eaf_example
