! Ranking and searching as a Fortran caller sees them: M01DZF with a Fortran
! comparison procedure that reads IUSER and RUSER and counts its calls, the
! integer, character and column forms, and the records of a failure of each
! argument shape (character positions, ORDER, LDM, the user form, ranks and
! permutations, the order check of a search).
module sorting_rank_keys
  implicit none
contains
  ! Item I after item J when |RUSER(I)| > |RUSER(J)|; IUSER(1) counts the calls.
  logical function by_magnitude(i, j, iuser, ruser)
    integer, intent(in) :: i, j
    integer, intent(inout) :: iuser(*)
    double precision, intent(inout) :: ruser(*)
    ! The library calls it back with the stdcall convention of 32-bit Windows.
    !GCC$ ATTRIBUTES STDCALL :: by_magnitude
    iuser(1) = iuser(1) + 1
    by_magnitude = abs(ruser(i)) > abs(ruser(j))
  end function by_magnitude
end module sorting_rank_keys

program sorting_rank
  use lbx3207qk
  use sorting_rank_keys
  implicit none
  double precision :: ruser(7) = [-2d0, 1d0, 2d0, -1d0, 0d0, 2d0, 5d0], rm(3, 4), rv(4)
  integer :: irank(7), iuser(1), ifail, im(3, 4), iv(6) = [5, -1, 5, 3, -1, 0], k
  character(len=5) :: names(5) = ['kiwi ', 'apple', 'fig  ', 'plum ', 'pear ']

  print '(A)', '--- M01DZF by magnitude, ties in their order'
  iuser = 0
  irank = 0
  ifail = 0
  call m01dzf(by_magnitude, 1, 7, irank, iuser, ruser, ifail)
  print '(A,7I3)', 'IRANK:', irank
  if (any(irank /= [4, 2, 5, 3, 1, 6, 7])) print '(A)', 'FAIL: M01DZF ranks'
  if (iuser(1) < 6 .or. iuser(1) > 21) print '(A,I4)', 'FAIL: COMPAR calls', iuser(1)

  print '(A)', '--- M01DZF on items 3..6 leaves IRANK(1:2) and IRANK(7)'
  irank = 0
  call m01dzf(by_magnitude, 3, 6, irank, iuser, ruser, ifail)
  print '(A,7I3)', 'IRANK:', irank

  print '(A)', '--- M01DBF descending, M01DKF columns on rows 2..3'
  call m01dbf(iv, 1, 6, 'D', irank, ifail)
  print '(A,6I3)', 'IRANK:', irank(1:6)
  im = reshape([9, 1, 2, 9, 1, 1, 9, 0, 7, 9, 1, 1], [3, 4])
  call m01dkf(im, 3, 2, 3, 1, 4, 'A', irank, ifail)
  print '(A,4I3)', 'IRANK:', irank(1:4)

  print '(A)', '--- M01NBF: last element not greater than 3, 4, -2'
  iv = [-1, 0, 3, 3, 5, 5]
  print '(3I3)', (m01nbf(.true., iv, 1, 6, k, ifail), k = 3, 4), m01nbf(.true., iv, 1, 6, -2, ifail)

  print '(A)', '--- M01DCF on characters 2..3; M01NCF with items of other lengths'
  call m01dcf(names, 1, 5, 2, 3, 'A', irank, ifail)
  print '(A,5I3)', 'IRANK:', irank(1:5)
  names = ['apple', 'fig  ', 'kiwi ', 'pear ', 'plum ']
  print '(3I3)', m01ncf(.true., names, 1, 5, 'kiwi', ifail), m01ncf(.true., names, 1, 5, 'kiwis', ifail), &
    m01ncf(.true., names, 1, 5, 'ki', ifail)

  print '(A)', '--- the records of each shape, control returned'
  ifail = -1
  call m01dcf(names, 1, 5, 2, 6, 'A', irank, ifail)
  rv = [4d0, 3d0, 2d0, 1d0]
  ifail = -1
  call m01daf(rv, 1, 4, 'x', irank, ifail)
  ifail = -1
  call m01def(rm, 2, 1, 3, 1, 4, 'A', irank, ifail)
  ifail = -1
  call m01djf(rm, 3, 1, 3, 5, 4, 'A', irank, ifail)
  ifail = -1
  call m01dzf(by_magnitude, 0, 7, irank, iuser, ruser, ifail)
  ifail = -1
  call m01eaf(rv, 1, 4, [2, 1, 2, 4], ifail)
  ifail = -1
  call m01zcf([1, 5, 2], 1, 3, irank, ifail)
  ifail = -1
  k = m01naf(.true., rv, 2, 4, 2.5d0, ifail)
  print '(A,I3,A,I3)', 'M01NAF returned', k, ' with IFAIL =', ifail
end program sorting_rank
