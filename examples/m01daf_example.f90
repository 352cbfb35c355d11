! M01DAF, M01DEF, M01DZF: stable ranks of a vector, of the rows of a matrix, and
! of items ordered by a comparison procedure of the caller.
module m01daf_example_names
  implicit none
contains
  ! Item I comes after item J when its name is greater (names in IUSER as codes).
  logical function after(i, j, iuser, ruser)
    integer, intent(in) :: i, j
    integer, intent(inout) :: iuser(*)
    double precision, intent(inout) :: ruser(*)
    after = iuser(i) > iuser(j)
  end function after
end module m01daf_example_names

program m01daf_example
  use lbx3207qk
  use m01daf_example_names
  implicit none
  double precision :: rv(8) = [2.5d0, 1.0d0, 2.5d0, -3.0d0, 1.0d0, 7.0d0, 2.5d0, 0.0d0]
  double precision :: rm(4, 2), ruser(1)
  integer :: irank(8), iuser(5), ifail
  ifail = 0
  call m01daf(rv, 1, 8, 'A', irank, ifail)
  print '(A,8I3)', 'ascending ranks: ', irank
  call m01daf(rv, 1, 8, 'D', irank, ifail)
  print '(A,8I3)', 'descending ranks:', irank
  ! Rows ranked on column 1, ties broken by column 2.
  rm(:, 1) = [2d0, 1d0, 2d0, 1d0]
  rm(:, 2) = [9d0, 8d0, 3d0, 8d0]
  call m01def(rm, 4, 1, 4, 1, 2, 'A', irank, ifail)
  print '(A,4I3)', 'row ranks:       ', irank(1:4)
  iuser = [30, 10, 20, 10, 50]
  call m01dzf(after, 1, 5, irank, iuser, ruser, ifail)
  print '(A,5I3)', 'by COMPAR:       ', irank(1:5)
end program m01daf_example
