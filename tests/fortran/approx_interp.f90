! The monotone piecewise cubic Hermite family called from a gfortran program,
! as a user calls it, on Fritsch and Carlson's monotone test data.  Reference
! derivatives and integrals are exact rational values from
! tools/pchip_reference.py (tests/data/e01be.txt, set fritsch_carlson).  A
! failed check prints a line starting with FAIL.  Then a table of values and
! slopes, and the records of every message with IFAIL = -1, compared with
! approx_interp.out.
program approx_interp
  use lbx3207qk
  implicit none
  integer, parameter :: n = 9, m = 2001
  double precision, parameter :: x(n) = [7.99d0, 8.09d0, 8.19d0, 8.7d0, 9.2d0, 10.0d0, 12.0d0, 15.0d0, 20.0d0]
  double precision, parameter :: f(n) = [0.0d0, 2.76429d-5, 4.37498d-2, 0.169183d0, 0.469428d0, &
                                         0.943740d0, 0.998636d0, 0.999919d0, 0.999994d0]
  double precision, parameter :: dref(n) = [0.0d0, 5.525086818680744870967697d-4, &
      3.358768346083504498557091d-1, 3.494491676859671823097687d-1, 5.969582389267871391215270d-1, &
      6.032184552297047652701593d-2, 9.003953827692710578658216d-4, 3.142468363044495156343848d-5, 0.0d0]
  double precision, parameter :: whole = 1.076481350543437407070364d+1
  double precision :: d(n), px(m), pf(m), pd(m), rx(m), rf(m), pint, bad(3)
  integer :: ifail, k

  ! --- E01BEF: derivatives within 4 ulps of the exact ones, zeros exact.
  ifail = 0
  call e01bef(n, x, f, d, ifail)
  call expect(ifail == 0, 'E01BEF IFAIL')
  do k = 1, n
    call expect(abs(d(k) - dref(k)) <= 4 * epsilon(1.0d0) * abs(dref(k)), 'E01BEF D')
  end do

  ! --- E01BGF on 2001 ascending points, E01BFF on the same points reversed:
  ! the same values, monotone, in the range of the data.
  do k = 1, m
    px(k) = x(1) + (x(n) - x(1)) * (k - 1) / (m - 1)
    rx(m + 1 - k) = px(k)
  end do
  ifail = 0
  call e01bgf(n, x, f, d, m, px, pf, pd, ifail)
  call expect(ifail == 0, 'E01BGF IFAIL')
  call e01bff(n, x, f, d, m, rx, rf, ifail)
  call expect(ifail == 0, 'E01BFF IFAIL')
  call expect(all(rf(m:1:-1) == pf), 'E01BFF reversed points, same values')
  call expect(all(pf(2:m) >= pf(1:m - 1)) .and. all(pd >= 0), 'E01BGF monotone')
  call expect(pf(1) == f(1) .and. pf(m) == f(n), 'E01BGF ends')

  ! --- E01BHF over the whole range, both ways.
  ifail = 0
  call e01bhf(n, x, f, d, x(1), x(n), pint, ifail)
  call expect(ifail == 0 .and. abs(pint - whole) <= 8 * epsilon(1.0d0) * whole, 'E01BHF whole range')
  call e01bhf(n, x, f, d, x(n), x(1), pint, ifail)
  call expect(ifail == 0 .and. abs(pint + whole) <= 8 * epsilon(1.0d0) * whole, 'E01BHF reversed')

  write (*, '(a)') '        X      value          slope'
  do k = 1, m, 250
    write (*, '(f9.4, 2f15.10)') px(k), pf(k), pd(k)
  end do

  ! --- Records of every message, control returned.
  bad = [1.0d0, 2.0d0, 2.0d0]
  ifail = -1
  call e01bef(1, x, f, d, ifail)
  ifail = -1
  call e01bef(3, bad, f, d, ifail)
  ifail = -1
  call e01bff(n, x, f, d, 0, px, pf, ifail)
  ifail = -1
  call e01bff(n, x, f, d, 1, [21.0d0], pf, ifail)
  write (*, '(a, f12.9)') 'extrapolated: ', pf(1)
  ifail = -1
  call e01bgf(3, bad, f, d, 1, px, pf, pd, ifail)
  ifail = -1
  call e01bhf(n, x, f, d, 0.5d0, 12.0d0, pint, ifail)
  write (*, '(a, f12.9)') 'extrapolated integral: ', pint
contains
  subroutine expect(ok, what)
    logical, intent(in) :: ok
    character(len=*), intent(in) :: what
    if (.not. ok) write (*, '(a, a)') 'FAIL ', what
  end subroutine expect
end program approx_interp
