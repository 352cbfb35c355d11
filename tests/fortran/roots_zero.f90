! The zero finders called from a gfortran program, as a user calls them.
! The user function counts its calls in IUSER(1) and takes its parameter from
! RUSER(1): both must reach it unchanged. Reference zeros are mpmath values
! (tests/data/roots_battery.txt, EXPX and COSX; sqrt(2) and the cube root of 3).
! A failed check prints a line starting with FAIL.  Last, the records of a
! failure of each family with IFAIL = -1, compared with roots_zero.out (every
! message and the values it quotes: tests/roots/roots_test.cpp).
program roots_zero
  use lbx3207qk
  implicit none
  double precision, parameter :: zexp = 0.5671432904097838730d0   ! exp(-x) = x
  double precision, parameter :: zcos = 0.7390851332151606416d0   ! cos(x) = x
  double precision, parameter :: zsq2 = 1.414213562373095049d0    ! sqrt(2)
  double precision, parameter :: zcub3 = 1.442249570307408382d0   ! 3**(1/3)
  double precision :: x, y, a, b, fx, ruser(2), c(10), cx(26), xs(2), ys(2), fs(2), cs(10, 2)
  double precision :: seq(200, 2), mix(200, 2)
  integer :: iuser(3), ifail, ind, k, n(2), m(2), inds(2)

  ! --- C05AYF: IUSER counts the calls, RUSER(1) holds the parameter 2.
  iuser = 0
  ruser(1) = 2.0d0
  ifail = 0
  call c05ayf(1.0d0, 2.0d0, 1.0d-12, 0.0d0, fsq, x, iuser, ruser, ifail)
  call expect(ifail == 0 .and. abs(x - zsq2) <= 2.0d-12, 'C05AYF sqrt(2)')
  call expect(iuser(1) >= 3 .and. iuser(1) <= 12, 'C05AYF calls counted through IUSER')
  call expect(iuser(2) == 77, 'C05AYF IUSER(2) untouched')
  call c05adf(0.0d0, 1.0d0, 1.0d-12, 0.0d0, fexp, x, ifail)
  call expect(ifail == 0 .and. abs(x - zexp) <= 2.0d-12, 'C05ADF exp(-x) = x')

  ! --- C05AZF from Fortran loops: cos(x) = x and x**3 = 3, each alone, then
  ! interleaved, each with its own C: the same points requested.
  do k = 1, 2
    call start(k)
    n(k) = 0
    do while (inds(k) /= 0)
      call step(k, n(k), seq(:, k))
    end do
  end do
  call expect(abs(xs(1) - zcos) <= 2.0d-12 .and. abs(xs(1) - ys(1)) <= 2.0d-12, 'C05AZF cos(x) = x')
  call expect(cs(4, 1) == xs(1) .and. cs(10, 1) == 1.0d0, 'C05AZF C(4) = X and C(10) = 1 at the end')
  call start(1)
  call start(2)
  m = 0
  do while (inds(1) /= 0 .or. inds(2) /= 0)
    do k = 1, 2
      if (inds(k) /= 0) call step(k, m(k), mix(:, k))
    end do
  end do
  call expect(all(m == n) .and. all(mix(1:n(1), 1) == seq(1:n(1), 1)) .and. &
              all(mix(1:n(2), 2) == seq(1:n(2), 2)), 'C05AZF interleaved: same points')
  call expect(abs(xs(2) - zcub3) <= 2.0d-12, 'C05AZF interleaved: zeros')

  ! --- Records of failures, control returned.
  x = 1.0d0; y = 2.0d0; c(1) = 3.0d0; ind = -1; ifail = -1
  call c05azf(x, y, 1.0d0, 1.0d-8, 1, c, ind, ifail)
  x = 0.0d0; ind = 1; ifail = -1
  call c05avf(x, 1.0d0, 5.0d0, -1.0d0, 2.0d0, y, cx, ind, ifail)
  x = 1.0d0; ifail = -1
  call c05agf(x, 0.5d0, 1.0d-6, 0.0d0, fplus, a, b, ifail)
  x = 1.0d0; ind = -1; ifail = -1
  call c05axf(x, 1.0d0, 1.0d-8, 1, 1.0d-17, cx, ind, ifail)
  x = 3.0d0; ifail = -1; ruser(1) = 2.0d0
  call c05awf(x, 1.0d-12, 0.0d0, fsq, 3, iuser, ruser, ifail)
  x = 1.0d0; ifail = -1
  call c05ajf(x, 1.0d-8, 0.0d0, fexp, 0, ifail)

contains

  subroutine start(k)
    integer, intent(in) :: k
    xs(k) = k - 1.0d0
    ys(k) = k
    inds(k) = 1
  end subroutine start

  ! One entry of search k, and the value it asks for.
  subroutine step(k, count, points)
    integer, intent(in) :: k
    integer, intent(inout) :: count
    double precision, intent(inout) :: points(*)
    integer :: fail
    fail = 0
    call c05azf(xs(k), ys(k), fs(k), 1.0d-12, k - 1, cs(:, k), inds(k), fail)
    if (inds(k) == 0) return
    count = count + 1
    points(count) = xs(k)
    fs(k) = merge(cos(xs(k)) - xs(k), xs(k)**3 - 3.0d0, k == 1)
  end subroutine step

  subroutine expect(ok, what)
    logical, intent(in) :: ok
    character(len=*), intent(in) :: what
    if (.not. ok) write (*, '(a, a)') 'FAIL ', what
  end subroutine expect

  double precision function fsq(xx, iuser, ruser)
    double precision, intent(in) :: xx
    integer, intent(inout) :: iuser(*)
    double precision, intent(inout) :: ruser(*)
    ! The library calls it back with the stdcall convention of 32-bit Windows.
    !GCC$ ATTRIBUTES STDCALL :: fsq
    iuser(1) = iuser(1) + 1
    if (iuser(1) == 1) iuser(2) = 77
    fsq = xx * xx - ruser(1)
  end function fsq

  double precision function fplus(xx)
    double precision, intent(in) :: xx
    ! The library calls it back with the stdcall convention of 32-bit Windows.
    !GCC$ ATTRIBUTES STDCALL :: fplus
    fplus = xx * xx + 1.0d0
  end function fplus

  double precision function fexp(xx)
    double precision, intent(in) :: xx
    ! The library calls it back with the stdcall convention of 32-bit Windows.
    !GCC$ ATTRIBUTES STDCALL :: fexp
    fexp = exp(-xx) - xx
  end function fexp

end program roots_zero
