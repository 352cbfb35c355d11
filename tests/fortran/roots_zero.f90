! The zero finders called from a gfortran program, as a user calls them.
! The user function counts its calls in IUSER(1) and takes its parameter from
! RUSER(1): both must reach it unchanged. Reference zeros are mpmath values
! (tests/data/roots_battery.txt, EXPX and COSX; sqrt(2) and the cube root of 3).
! Every check prints a line; a line starting with FAIL fails the test.
program roots_zero
  use lbx3207qk
  implicit none
  double precision, parameter :: zexp = 0.5671432904097838730d0   ! exp(-x) = x
  double precision, parameter :: zcos = 0.7390851332151606416d0   ! cos(x) = x
  double precision, parameter :: zsq2 = 1.414213562373095049d0    ! sqrt(2)
  double precision, parameter :: zcub3 = 1.442249570307408382d0   ! 3**(1/3)
  double precision :: x, y, a, b, fx, tolx, ruser(2), c(10), cv(11), cx(26)
  double precision :: x1, y1, x2, y2, c1(10), c2(10), fx1, fx2, s1(200), s2(200), p1(200), p2(200)
  integer :: iuser(3), ifail, ind, ir, nfmax, n1, n2, i1, i2, ind1, ind2

  ! --- C05AYF: IUSER counts the calls, RUSER(1) holds the parameter 2.
  iuser = 0
  ruser(1) = 2.0d0
  ifail = 0
  call c05ayf(1.0d0, 2.0d0, 1.0d-12, 0.0d0, fsq, x, iuser, ruser, ifail)
  call expect(ifail == 0 .and. abs(x - zsq2) <= 2.0d-12, 'C05AYF sqrt(2)')
  call expect(iuser(1) >= 3 .and. iuser(1) <= 12, 'C05AYF calls counted through IUSER')
  call expect(iuser(2) == 77, 'C05AYF IUSER(2) untouched')
  write (*, '(a, i3)') ' C05AYF evaluations for sqrt(2):', iuser(1)

  ! Zero exactly at A: one call, A returned.
  iuser(1) = 0
  call c05ayf(zsq2 * 0 + 2.0d0, 5.0d0, 1.0d-8, 0.0d0, fsq2at2, x, iuser, ruser, ifail)
  call expect(ifail == 0 .and. x == 2.0d0 .and. iuser(1) == 1, 'C05AYF zero at A')

  ! --- C05ADF, the older entry: the same zero.
  ifail = 0
  call c05adf(0.0d0, 1.0d0, 1.0d-12, 0.0d0, fexp, x, ifail)
  call expect(ifail == 0 .and. abs(x - zexp) <= 2.0d-12, 'C05ADF exp(-x) = x')

  ! --- Soft failure, quiet: same signs.
  ifail = 1
  iuser(1) = 0
  call c05ayf(2.0d0, 3.0d0, 1.0d-8, 0.0d0, fsq, x, iuser, ruser, ifail)
  call expect(ifail == 1 .and. iuser(1) == 2, 'C05AYF same sign, IFAIL = 1')
  ifail = 1
  call c05ayf(1.0d0, 1.0d0, 0.0d0, 0.0d0, fsq, x, iuser, ruser, ifail)
  call expect(ifail == 1, 'C05AYF EPS = 0')

  ! --- C05AZF driven from a Fortran loop, IND = 1.
  x = 0.0d0
  y = 1.0d0
  tolx = 1.0d-12
  ir = 0
  ind = 1
  ifail = 0
  n1 = 0
  do
    call c05azf(x, y, fx, tolx, ir, c, ind, ifail)
    if (ind == 0) exit
    fx = cos(x) - x
    n1 = n1 + 1
  end do
  call expect(ifail == 0 .and. abs(x - zcos) <= 2.0d-12 .and. abs(x - y) <= 2.0d-12, 'C05AZF cos(x) = x')
  call expect(c(4) == x .and. c(10) == 1.0d0, 'C05AZF C(4) = X and C(10) = 1 at the end')
  write (*, '(a, i3)') ' C05AZF evaluations for cos(x) = x:', n1

  ! --- Two C05AZF searches interleaved, each with its own C, against the
  ! same searches run one after the other.
  n1 = 0
  x1 = 0.0d0; y1 = 1.0d0; ind = 1
  do
    call c05azf(x1, y1, fx1, tolx, ir, c1, ind, ifail)
    if (ind == 0) exit
    n1 = n1 + 1; s1(n1) = x1
    fx1 = cos(x1) - x1
  end do
  n2 = 0
  x2 = 1.0d0; y2 = 2.0d0; ind = 1
  do
    call c05azf(x2, y2, fx2, tolx, 1, c2, ind, ifail)
    if (ind == 0) exit
    n2 = n2 + 1; s2(n2) = x2
    fx2 = x2**3 - 3.0d0
  end do
  x1 = 0.0d0; y1 = 1.0d0; x2 = 1.0d0; y2 = 2.0d0
  ind1 = 1; ind2 = 1; i1 = 0; i2 = 0
  c1 = 0.0d0; c2 = 0.0d0
  do while (ind1 /= 0 .or. ind2 /= 0)
    if (ind1 /= 0) then
      call c05azf(x1, y1, fx1, tolx, ir, c1, ind1, ifail)
      if (ind1 /= 0) then
        i1 = i1 + 1; p1(i1) = x1
        fx1 = cos(x1) - x1
      end if
    end if
    if (ind2 /= 0) then
      call c05azf(x2, y2, fx2, tolx, 1, c2, ind2, ifail)
      if (ind2 /= 0) then
        i2 = i2 + 1; p2(i2) = x2
        fx2 = x2**3 - 3.0d0
      end if
    end if
  end do
  call expect(i1 == n1 .and. i2 == n2, 'C05AZF interleaved: same number of requests')
  call expect(all(p1(1:n1) == s1(1:n1)) .and. all(p2(1:n2) == s2(1:n2)), 'C05AZF interleaved: same points')
  call expect(abs(x1 - zcos) <= 2.0d-12 .and. abs(x2 - zcub3) <= 2.0d-12, 'C05AZF interleaved: zeros')

  ! --- C05AVF finds a bracket, C05AZF continues with IND = -1 and the same array.
  x = 0.0d0
  ind = 1
  do
    call c05avf(x, fx, 0.25d0, -10.0d0, 10.0d0, y, cv, ind, ifail)
    if (ind == 0) exit
    fx = x * x - 3.0d0
  end do
  call expect(ifail == 0 .and. (x - sqrt(3.0d0)) * (y - sqrt(3.0d0)) < 0.0d0, 'C05AVF bracket')
  call expect(cv(1) == y * y - 3.0d0 .and. fx == x * x - 3.0d0, 'C05AVF leaves f(Y) in C(1), f(X) in FX')
  ind = -1
  do
    call c05azf(x, y, fx, tolx, 1, cv, ind, ifail)
    if (ind == 0) exit
    fx = x * x - 3.0d0
  end do
  call expect(ifail == 0 .and. abs(x - 1.7320508075688772935d0) <= 2.0d-12, 'C05AVF then C05AZF')

  ! --- C05AUF: search from X = 1 in steps of 0.1.
  iuser(1) = 0
  ruser(1) = 2.0d0
  x = 0.3d0
  ifail = 0
  call c05auf(x, 0.1d0, 1.0d-12, 0.0d0, fsq, a, b, iuser, ruser, ifail)
  call expect(ifail == 0 .and. abs(x - zsq2) <= 2.0d-12 .and. a < zsq2 .and. b > zsq2, 'C05AUF sqrt(2)')
  call expect(iuser(2) == 77, 'C05AUF IUSER(2) untouched')
  x = 0.3d0
  call c05agf(x, 0.1d0, 1.0d-12, 0.0d0, fexp, a, b, ifail)
  call expect(ifail == 0 .and. abs(x - zexp) <= 2.0d-12, 'C05AGF exp(-x) = x')

  ! --- C05AWF: continuation from X = 3; NFMAX is respected.
  iuser(1) = 0
  x = 3.0d0
  nfmax = 100
  ifail = 0
  call c05awf(x, 1.0d-12, 0.0d0, fsq, nfmax, iuser, ruser, ifail)
  call expect(ifail == 0 .and. abs(x - zsq2) <= 4.0d-12, 'C05AWF sqrt(2)')
  call expect(iuser(1) <= nfmax, 'C05AWF within NFMAX')
  iuser(1) = 0
  x = 3.0d0
  ifail = 1
  call c05awf(x, 1.0d-12, 0.0d0, fsq, 2, iuser, ruser, ifail)
  call expect(ifail == 2 .and. iuser(1) == 2, 'C05AWF NFMAX = 2 reached')
  x = 3.0d0
  ifail = 0
  call c05ajf(x, 1.0d-12, 0.0d0, fexp, 100, ifail)
  call expect(ifail == 0 .and. abs(x - zexp) <= 4.0d-12, 'C05AJF exp(-x) = x')

  ! --- C05AXF from a Fortran loop.
  x = 1.0d0
  ind = 1
  ifail = 0
  do
    call c05axf(x, fx, 1.0d-12, 0, 1.0d-3, cx, ind, ifail)
    if (ind == 0) exit
    fx = x**3 - 3.0d0
  end do
  call expect(ifail == 0 .and. abs(x - zcub3) <= 4.0d-12, 'C05AXF cube root of 3')

contains

  subroutine expect(ok, what)
    logical, intent(in) :: ok
    character(len=*), intent(in) :: what
    if (ok) then
      write (*, '(a, a)') ' ok   ', what
    else
      write (*, '(a, a)') 'FAIL ', what
    end if
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

  double precision function fsq2at2(xx, iuser, ruser)
    double precision, intent(in) :: xx
    integer, intent(inout) :: iuser(*)
    double precision, intent(inout) :: ruser(*)
    ! The library calls it back with the stdcall convention of 32-bit Windows.
    !GCC$ ATTRIBUTES STDCALL :: fsq2at2
    iuser(1) = iuser(1) + 1
    fsq2at2 = xx - 2.0d0 + 0.0d0 * ruser(1)
  end function fsq2at2

  double precision function fexp(xx)
    double precision, intent(in) :: xx
    ! The library calls it back with the stdcall convention of 32-bit Windows.
    !GCC$ ATTRIBUTES STDCALL :: fexp
    fexp = exp(-xx) - xx
  end function fexp

end program roots_zero
