! F04BAF as a Fortran caller sees it: a 3 x 3 system whose solution is
! (1, -2, 3) (B = A X worked by hand), its RCOND against the exact value
! 1/(||A||_1 ||A^-1||_1) = 1/(6 * 24/56) (A^-1 by hand), then the records of an
! argument error, a zero pivot and the ill-conditioning warning with
! IFAIL = -1 (control returned), and an argument error with IFAIL = 1 (quiet).
program linalg_solve
  use lbx3207qk
  implicit none
  double precision :: a(3, 3), b(3, 1), rcond, errbnd, exact
  integer :: ipiv(3), ifail

  ! A = [4 1 0; 1 4 1; 0 1 4], ||A||_1 = 6; by hand A^-1 = [15 -4 1; -4 16 -4; 1 -4 15]/56,
  ! whose column sums are 20/56, 24/56 and 20/56.
  a = reshape([4d0, 1d0, 0d0, 1d0, 4d0, 1d0, 0d0, 1d0, 4d0], [3, 3])
  b(:, 1) = [2d0, -4d0, 10d0]
  exact = 1d0 / (6d0 * 24d0 / 56d0)
  ifail = 0
  call f04baf(3, 1, a, 3, ipiv, b, 3, rcond, errbnd, ifail)
  print '(a, i0)', 'IFAIL ', ifail
  print '(a, 3f8.3)', 'X', b(:, 1)
  print '(a, f8.5)', 'RCOND', rcond
  call expect(maxval(abs(b(:, 1) - [1d0, -2d0, 3d0])) <= 1d-14, 'X = (1, -2, 3)')
  call expect(rcond >= exact * (1 - 1d-14) .and. rcond <= 3 * exact, 'RCOND within the estimate''s factor')
  call expect(abs(errbnd - epsilon(1d0) / 2 / rcond) <= 1d-30, 'ERRBND = eps/RCOND')

  print '(a)', '--- argument error, IFAIL = -1'
  ifail = -1
  call f04baf(3, 1, a, 2, ipiv, b, 3, rcond, errbnd, ifail)
  print '(a, i0)', 'returned, IFAIL = ', ifail
  print '(a)', '--- argument error, IFAIL = 1: nothing written'
  ifail = 1
  call f04baf(3, -1, a, 3, ipiv, b, 3, rcond, errbnd, ifail)
  print '(a, i0)', 'returned, IFAIL = ', ifail
  print '(a)', '--- zero pivot in column 2, IFAIL = -1'
  a = reshape([1d0, 0d0, 0d0, 1d0, 0d0, 0d0, 1d0, 1d0, 1d0], [3, 3])
  b(:, 1) = [1d0, 2d0, 3d0]
  ifail = -1
  call f04baf(3, 1, a, 3, ipiv, b, 3, rcond, errbnd, ifail)
  print '(a, i0, a, f4.1, a, f4.1)', 'returned, IFAIL = ', ifail, ' RCOND =', rcond, ' ERRBND =', errbnd
  print '(a)', '--- RCOND below machine precision, IFAIL = -1'
  a = reshape([1d0, 0d0, 0d0, 0d0, 2d0**(-60), 0d0, 0d0, 0d0, 1d0], [3, 3])
  b(:, 1) = [1d0, 2d0**(-59), 3d0]
  ifail = -1
  call f04baf(3, 1, a, 3, ipiv, b, 3, rcond, errbnd, ifail)
  print '(a, i0, a, f4.1)', 'returned, IFAIL = ', ifail, ' ERRBND =', errbnd
  print '(a, 3f8.3)', 'X', b(:, 1)

contains

  subroutine expect(ok, what)
    logical, intent(in) :: ok
    character(len=*), intent(in) :: what
    if (.not. ok) write (*, '(a, a)') 'FAIL ', what
  end subroutine expect

end program linalg_solve
