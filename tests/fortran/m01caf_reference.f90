! M01CAF against an independent transcription of its defining quicksort (median
! of three, Wichmann-Hill shuffle of lopsided parts, final insertion pass),
! compared bit for bit where the quicksort alone defines the result: data with
! NaNs or with both signed zeros, on inner segments and in both orders.  (Data
! with one ascending order: std::sort in tests/sorting/m01caf_test.cpp.)
program m01caf_reference
  use lbx3207qk
  implicit none
  integer, parameter :: n = 30000, i8 = selected_int_kind(18)
  double precision :: base(n), got(n), want(n), nan, negzero
  integer :: kind, k, ncase, nfail
  integer :: seg(2, 6)
  character(len=1) :: orders(4) = ['A', 'a', 'D', 'd']
  character(len=12) :: names(4) = [character(len=12) :: 'zeros', 'nans', 'sorted-nans', &
      'pipe-nans']
  integer(i8) :: state

  nan = transfer(int(z'7FF8000000000000', i8), 1d0)
  negzero = -0d0
  seg = reshape([1, n, 1, 15, 1, 16, 37, 12345, 5000, 5000, 2, 800], [2, 6])
  ncase = 0
  nfail = 0
  state = 12345
  do kind = 1, size(names)
    call fill(kind)
    do k = 1, size(seg, 2)
      call check(seg(1, k), seg(2, k), orders(mod(k + kind, 4) + 1))
    end do
  end do
  print '(A,I4,A,I4)', 'cases', ncase, ' failures', nfail

contains

  double precision function uniform()
    state = mod(state * 48271_i8, 2147483647_i8)
    uniform = dble(state) / 2147483647d0
  end function uniform

  subroutine fill(kind)
    integer, intent(in) :: kind
    integer :: i
    do i = 1, n
      select case (kind)
      case (1)
        base(i) = aint(uniform() * 4) - 2
        if (base(i) == 0 .and. uniform() < 0.5) base(i) = negzero
      case (2); base(i) = uniform()
      case (3); base(i) = i * 0.5d0
      case (4); base(i) = min(i, n - i)
      end select
      if (kind > 1 .and. uniform() < 0.05) base(i) = nan
      if (kind > 1 .and. uniform() < 0.05) base(i) = -nan
    end do
  end subroutine fill

  subroutine check(m1, m2, order)
    integer, intent(in) :: m1, m2
    character(len=1), intent(in) :: order
    integer :: ifail, i
    got = base
    want = base
    ifail = 0
    call m01caf(got, m1, m2, order, ifail)
    call ref_sort(want, m1, m2)
    if (order == 'D' .or. order == 'd') want(m1:m2) = want(m2:m1:-1)
    ncase = ncase + 1
    do i = 1, n
      if (transfer(got(i), 0_i8) /= transfer(want(i), 0_i8)) then
        print '(A,A,A,I6,A,I6,A,A,A,I6)', 'FAIL: ', trim(names(kind)), ' M1 =', m1, ' M2 =', m2, &
            ' ORDER = ', order, ', first difference at', i
        nfail = nfail + 1
        exit
      end if
    end do
  end subroutine check

  subroutine swap(a, b)
    double precision, intent(inout) :: a, b
    double precision :: t
    t = a
    a = b
    b = t
  end subroutine swap

  logical function lopsided(a, b)
    integer, intent(in) :: a, b
    lopsided = a > 5 * b + 25
  end function lopsided

  ! The defining algorithm, written out independently of the library.
  subroutine ref_sort(rv, m1, m2)
    double precision, intent(inout) :: rv(*)
    integer, intent(in) :: m1, m2
    integer :: stlo(40), sthi(40), top, lo, hi, i, j, k, mid, left, right, p, q, ix, iy, iz
    logical :: flag, more
    double precision :: t, u, v, s
    if (m2 - m1 > 14) then
      ix = 15223
      iy = 17795
      iz = 28707
      top = 0
      lo = m1
      hi = m2
      flag = .false.
      do
        if (flag) then
          ix = 171 * mod(ix, 177) - 2 * (ix / 177)
          if (ix < 0) ix = ix + 30269
          iy = 172 * mod(iy, 176) - 35 * (iy / 176)
          if (iy < 0) iy = iy + 30307
          iz = 170 * mod(iz, 178) - 63 * (iz / 178)
          if (iz < 0) iz = iz + 30323
          s = dble(ix) / 30269d0 + dble(iy) / 30307d0 + dble(iz) / 30323d0
          u = s - aint(s)
          k = int(dble(lo) + u * dble(hi - lo))
          call swap(rv(lo), rv(k))
          call swap(rv(hi), rv(lo + hi - k))
        end if
        if (rv(lo) > rv(hi)) call swap(rv(lo), rv(hi))
        mid = (lo + hi) / 2
        t = rv(mid)
        if (rv(lo) > t) then
          call swap(rv(lo), rv(mid))
        else if (t > rv(hi)) then
          call swap(rv(mid), rv(hi))
        end if
        t = rv(mid)
        i = lo
        j = hi
        do
          do
            i = i + 1
            if (.not. rv(i) < t) exit
          end do
          do
            j = j - 1
            if (.not. rv(j) > t) exit
          end do
          if (i >= j) exit
          call swap(rv(i), rv(j))
        end do
        left = i - lo
        right = hi - j
        more = .true.
        if (right <= left) then
          if (left > 15 .and. right > 15) then
            top = top + 1
            stlo(top) = merge(-lo, lo, lopsided(left, right))
            sthi(top) = i - 1
            lo = j + 1
            flag = lopsided(right, left)
          else if (left > 15) then
            hi = i - 1
            flag = lopsided(left, right)
          else
            more = .false.
          end if
        else
          if (right > 15 .and. left > 15) then
            top = top + 1
            stlo(top) = merge(-(j + 1), j + 1, lopsided(right, left))
            sthi(top) = hi
            hi = i - 1
            flag = lopsided(left, right)
          else if (right > 15) then
            lo = j + 1
            flag = lopsided(right, left)
          else
            more = .false.
          end if
        end if
        if (.not. more) then
          if (top == 0) exit
          flag = stlo(top) < 0
          lo = abs(stlo(top))
          hi = sthi(top)
          top = top - 1
        end if
      end do
    end if
    do p = m1 + 1, m2
      v = rv(p)
      q = p - 1
      do while (q >= m1)
        if (.not. rv(q) > v) exit
        rv(q + 1) = rv(q)
        q = q - 1
      end do
      rv(q + 1) = v
    end do
  end subroutine ref_sort

end program m01caf_reference
