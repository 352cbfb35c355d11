! The fast Fourier transforms called from a gfortran program, as a user calls
! them.  Hand-derived transforms: x = (1, 2, 3, 4) has the unscaled transform
! (10, -2+2i, -2, -2-2i), so the CCS of C06PAF is (5, 0, -1, 1, -1, 0); a unit
! impulse transforms to the constant 1/sqrt(n).  A failed check prints a line
! starting with FAIL.  Then the records of every kind of message with
! IFAIL = -1, compared with fft_transforms.out.
program fft_transforms
  use lbx3207qk
  implicit none
  double precision :: x(6), work(1), q(6, 3), q2(3, 6), qw(18)
  complex(kind=kind(1.0d0)) :: z(8), cw(8), y(8)
  integer :: ifail, k, nd(3)
  double precision, parameter :: ccs(6) = [5.0d0, 0.0d0, -1.0d0, 1.0d0, -1.0d0, 0.0d0]
  double precision, parameter :: tol = 8 * epsilon(1.0d0)

  ! --- C06PAF: forward, the CCS; backward, the data and X(N+1) = 0.
  x = [1.0d0, 2.0d0, 3.0d0, 4.0d0, 9.0d0, 9.0d0]
  ifail = 0
  call c06paf('F', x, 4, work, ifail)
  call expect(ifail == 0 .and. work(1) == 1.0d0, 'C06PAF forward IFAIL, WORK(1)')
  call expect(all(abs(x - ccs) <= tol * 5), 'C06PAF forward CCS')
  call c06paf('b', x, 4, work, ifail)
  call expect(all(abs(x(1:4) - [1.0d0, 2.0d0, 3.0d0, 4.0d0]) <= tol * 4), 'C06PAF backward')
  call expect(x(5) == 0.0d0, 'C06PAF X(N+1)')
  ! N = 1: X(1) unchanged, X(2) and X(3) cleared.
  x = [7.0d0, 9.0d0, 9.0d0, 9.0d0, 9.0d0, 9.0d0]
  call c06paf('B', x, 1, work, ifail)
  call expect(x(1) == 7.0d0 .and. x(2) == 0.0d0 .and. x(3) == 0.0d0, 'C06PAF N = 1')

  ! --- C06PCF: an impulse transforms to 1/sqrt(8) everywhere.
  z = (0.0d0, 0.0d0)
  z(1) = (1.0d0, 0.0d0)
  call c06pcf('F', z, 8, cw, ifail)
  call expect(ifail == 0 .and. cw(1) == (1.0d0, 0.0d0), 'C06PCF IFAIL, WORK(1)')
  call expect(all(abs(z - 1 / sqrt(8.0d0)) <= tol), 'C06PCF impulse')

  ! --- C06PQF: three sequences (1, 2, 3, 4) in the columns of X(6, 3).
  do k = 1, 3
    q(:, k) = [1.0d0, 2.0d0, 3.0d0, 4.0d0, 0.0d0, 0.0d0]
  end do
  call c06pqf('F', 4, 3, q, qw, ifail)
  call expect(ifail == 0, 'C06PQF IFAIL')
  do k = 1, 3
    call expect(all(abs(q(:, k) - ccs) <= tol * 5), 'C06PQF CCS')
  end do
  ! --- C06PPF: the same three sequences in the rows of X(3, 6).
  q2 = transpose(q)
  call c06ppf('B', 3, 4, q2, qw, ifail)
  do k = 1, 3
    call expect(all(abs(q2(k, 1:5) - [1.0d0, 2.0d0, 3.0d0, 4.0d0, 0.0d0]) <= tol * 4), 'C06PPF back')
  end do

  ! --- C06PJF: an impulse in 2 x 2 x 2 transforms to 1/sqrt(8).
  nd = [2, 2, 2]
  z = (0.0d0, 0.0d0)
  z(1) = (1.0d0, 0.0d0)
  call c06pjf(1, 'F', 3, nd, 8, z, cw, 1, ifail)
  call expect(ifail == 0 .and. all(abs(z - 1 / sqrt(8.0d0)) <= tol), 'C06PJF impulse')

  ! --- C06PKF: convolution with an impulse at 1 shifts by one place.
  z = [(dble(k), k = 1, 8)]
  y = (0.0d0, 0.0d0)
  y(2) = (1.0d0, 0.0d0)
  call c06pkf(1, z, y, 8, cw, ifail)
  call expect(ifail == 0 .and. all(abs(z - [8, 1, 2, 3, 4, 5, 6, 7]) <= 8 * tol), 'C06PKF shift')
  write (*, '(a, 6f8.4)') 'CCS of (1,2,3,4): ', ccs

  ! --- Records of the messages, control returned.
  ifail = -1
  call c06paf('x', x, 0, work, ifail)
  ifail = -1
  call c06paf('x', x, 4, work, ifail)
  ifail = -1
  call c06pcf('F', z, -2, cw, ifail)
  ifail = -1
  call c06pjf(1, 'F', 3, [2, 2, 2], 7, z, cw, 1, ifail)
  ifail = -1
  call c06pff(0, 'F', 3, 4, [2, 2, 2], 8, z, cw, 1, ifail)
  ifail = -1
  call c06pkf(3, z, y, 8, cw, ifail)
  write (*, '(a, i0)') 'last IFAIL: ', ifail
contains
  subroutine expect(ok, what)
    logical, intent(in) :: ok
    character(len=*), intent(in) :: what
    if (.not. ok) write (*, '(a, a)') 'FAIL ', what
  end subroutine expect
end program fft_transforms
