! D01AJF called from a gfortran program, as a user calls it.  Through the
! traced entry D01AJFT with an adapter of the caller's own, the integrand
! takes IUSER and RUSER and counts its calls in IUSER(1): the count must be
! the rule's 21 evaluations on each of the 2 LAST - 1 intervals, and the
! result that of the plain entry, bit for bit.  Then the records of every
! failure with IFAIL = -1, compared with quadrature.out (the values quoted are
! checked in tests/calculus/quadrature_test.cpp).  A failed check prints a
! line starting with FAIL.
program quadrature
  use lbx3207qk, only: d01ajf
  implicit none
  external :: d01ajft
  double precision :: result, abserr, r2, e2, w(800), ruser(1)
  integer :: iw(200), iuser(2), ifail
  character(len=200) :: errbuf

  iuser = 0
  ruser(1) = 0.5d0
  ifail = 1
  call d01ajft(fcount, pass_user_arrays, 0.0d0, 1.0d0, 0.0d0, 1.0d-10, result, abserr, w, 400, &
               iw, 100, iuser, ruser, errbuf, ifail)
  call expect(ifail == 0, 'D01AJFT succeeds')
  call expect(iuser(1) == 42 * iw(1) - 21, 'D01AJFT calls counted through IUSER')
  call expect(iuser(2) == 77, 'D01AJFT IUSER(2) reaches the integrand')
  ifail = 0
  call d01ajf(fplain, 0.0d0, 1.0d0, 0.0d0, 1.0d-10, r2, e2, w, 400, iw, 100, ifail)
  call expect(ifail == 0 .and. r2 == result .and. e2 == abserr, 'D01AJF equals D01AJFT')
  write (*, '(a, i4, a, i6)') ' LAST =', iw(1), ', evaluations:', iuser(1)

  ! Every failure, noisy soft: the records, then the exit lines.
  call fail_with(finvx, 0.0d0, 1.0d-10, 200, 50)       ! IFAIL 1: LIMIT reached
  call fail_with(fpeak, 1.0d-17, 0.0d0, 200, 50)       ! IFAIL 2: round-off
  call fail_with(fbad, 0.0d0, 1.0d-10, 800, 200)       ! IFAIL 3: bad integrand
  call fail_with(fround, 1.0d-17, 0.0d0, 200, 50)      ! IFAIL 4: extrapolation table
  call fail_with(finvsq, 0.0d0, 1.0d-10, 200, 50)      ! IFAIL 5: divergent
  call fail_with(fplain, 0.0d0, 1.0d-10, 3, 0)         ! IFAIL 6: LW (before LIW)
  call fail_with(fplain, 0.0d0, 1.0d-10, 4, 0)         ! IFAIL 6: LIW
contains
  subroutine expect(ok, what)
    logical, intent(in) :: ok
    character(len=*), intent(in) :: what
    if (.not. ok) write (*, '(a, a)') 'FAIL ', what
  end subroutine expect

  subroutine fail_with(f, epsabs, epsrel, lw, liw)
    interface
      double precision function f(x)
        double precision, intent(in) :: x
      end function f
    end interface
    double precision, intent(in) :: epsabs, epsrel
    integer, intent(in) :: lw, liw
    ifail = -1
    call d01ajf(f, 0.0d0, 1.0d0, epsabs, epsrel, result, abserr, w, lw, iw, liw, ifail)
  end subroutine fail_with

  ! The caller's own adapter: hands the user arrays on to the integrand.
  double precision function pass_user_arrays(fn, x, iuser, ruser)
    interface
      double precision function fn(x, iuser, ruser)
        double precision, intent(in) :: x
        integer, intent(inout) :: iuser(*)
        double precision, intent(inout) :: ruser(*)
      end function fn
    end interface
    double precision, intent(in) :: x
    integer, intent(inout) :: iuser(*)
    double precision, intent(inout) :: ruser(*)
    pass_user_arrays = fn(x, iuser, ruser)
  end function pass_user_arrays

  double precision function fcount(x, iuser, ruser)
    double precision, intent(in) :: x
    integer, intent(inout) :: iuser(*)
    double precision, intent(inout) :: ruser(*)
    iuser(1) = iuser(1) + 1
    iuser(2) = 77
    fcount = x**ruser(1) * log(x)
  end function fcount

  double precision function fplain(x)
    double precision, intent(in) :: x
    fplain = x**0.5d0 * log(x)
  end function fplain

  double precision function finvx(x)
    double precision, intent(in) :: x
    finvx = 1.0d0 / x
  end function finvx

  double precision function fpeak(x)
    double precision, intent(in) :: x
    fpeak = 1.0d0 / ((x - 0.3d0) * (x - 0.3d0) + 0.01d0)
  end function fpeak

  double precision function fbad(x)
    double precision, intent(in) :: x
    fbad = 1.0d0 / abs(x - 0.3d0)
  end function fbad

  double precision function fround(x)
    double precision, intent(in) :: x
    fround = log(x) / sqrt(x)
  end function fround

  double precision function finvsq(x)
    double precision, intent(in) :: x
    finvsq = 1.0d0 / (x * x)
  end function finvsq
end program quadrature
