! Linear-algebra routines called from a gfortran program, as a user calls them:
! LU factorization and inverse (F07ADF, F07AJF), a singular matrix's INFO,
! the symmetric eigenproblem (F08FAF) and the matrix product (F06YAF) with
! options spelt out in full ('Transpose', 'No transpose': only the first
! character counts).  Reference values are derived by hand: the inverse is
! the adjugate over det = 4; the eigenvalues of tridiag(-1, 2, -1) of order 3
! are 2 - sqrt(2), 2, 2 + sqrt(2) with eigenvectors (1, -+sqrt(2), 1)/2 and
! (1, 0, -1)/sqrt(2).  Printed values are rounded so that the last bits do
! not show; a failed check prints a line starting with FAIL.
program linalg_calls
  use lbx3207qk
  implicit none
  double precision :: a(3, 3), b(3, 2), c(3, 2), ct(3, 2), s(2, 2), w(3), work(192)
  double precision, parameter :: ainv(3, 3) = reshape([1.5d0, -3d0, 1d0, -0.5d0, 2.5d0, -1.5d0, &
                                                        0d0, -0.5d0, 0.5d0], [3, 3])
  integer :: ipiv(3), info, i

  ! --- F07ADF and F07AJF: A = [2 1 1; 4 3 3; 8 7 9], pivots 3 3 3.
  a = matrix()
  call f07adf(3, 3, a, 3, ipiv, info)
  write (*, '(a, i3, a, 3i3)') 'F07ADF INFO =', info, '  IPIV =', ipiv
  call expect(info == 0 .and. all(ipiv == [3, 3, 3]), 'F07ADF pivots')
  call f07ajf(3, a, 3, ipiv, work, size(work), info)
  write (*, '(a, i3)') 'F07AJF INFO =', info
  do i = 1, 3
    write (*, '(3f9.4)') r4(a(i, :))
  end do
  call expect(maxval(abs(a - ainv)) <= 1d-13, 'F07AJF inverse')

  ! --- F07ADF on [1 2; 2 4]: U(2,2) is exactly zero.
  s = reshape([1d0, 2d0, 2d0, 4d0], [2, 2])
  call f07adf(2, 2, s, 2, ipiv, info)
  write (*, '(a, i3)') 'F07ADF singular INFO =', info

  ! --- F08FAF: eigenvalues and moduli of the eigenvectors' entries.
  a = reshape([2d0, -1d0, 0d0, -1d0, 2d0, -1d0, 0d0, -1d0, 2d0], [3, 3])
  call f08faf('Vectors', 'Upper', 3, a, 3, w, work, size(work), info)
  write (*, '(a, i3)') 'F08FAF INFO =', info
  write (*, '(a, 3f13.8)') 'W =', w
  call expect(abs(w(1) - (2 - sqrt(2d0))) <= 1d-14 .and. abs(w(2) - 2) <= 1d-14 .and. &
              abs(w(3) - (2 + sqrt(2d0))) <= 1d-14, 'F08FAF eigenvalues')
  do i = 1, 3
    write (*, '(a, i1, a, 3f10.6)') '|Z(:,', i, ')| =', abs(a(:, i))
  end do

  ! --- F06YAF: C = A'B with 'Transpose', then the same with 'T'; C = AB with
  ! 'No transpose'.
  a = matrix()
  b = reshape([1d0, 3d0, 5d0, 2d0, 4d0, 6d0], [3, 2])
  call f06yaf('Transpose', 'No transpose', 3, 2, 3, 1d0, a, 3, b, 3, 0d0, ct, 3)
  write (*, '(a)') "F06YAF A'B:"
  do i = 1, 3
    write (*, '(2f8.1)') ct(i, :)
  end do
  call expect(all(ct == reshape([54d0, 45d0, 55d0, 68d0, 56d0, 68d0], [3, 2])), "F06YAF A'B")
  c = -1
  call f06yaf('T', 'N', 3, 2, 3, 1d0, a, 3, b, 3, 0d0, c, 3)
  call expect(all(c == ct), "F06YAF 'T' and 'Transpose' agree")
  call f06yaf('No transpose', 'No transpose', 3, 2, 3, 2d0, a, 3, b, 3, 0d0, c, 3)
  write (*, '(a)') 'F06YAF 2AB:'
  do i = 1, 3
    write (*, '(2f8.1)') c(i, :)
  end do
  call expect(all(c == reshape([20d0, 56d0, 148d0, 28d0, 76d0, 196d0], [3, 2])), 'F06YAF 2AB')

contains

  function matrix() result(m)
    double precision :: m(3, 3)
    m = reshape([2d0, 4d0, 8d0, 1d0, 3d0, 7d0, 1d0, 3d0, 9d0], [3, 3])
  end function matrix

  ! Rounded to 4 decimals, -0 printed as 0.
  elemental double precision function r4(x)
    double precision, intent(in) :: x
    r4 = anint(x * 1d4) / 1d4 + 0d0
  end function r4

  subroutine expect(ok, what)
    logical, intent(in) :: ok
    character(len=*), intent(in) :: what
    if (.not. ok) write (*, '(a, a)') 'FAIL ', what
  end subroutine expect

end program linalg_calls
