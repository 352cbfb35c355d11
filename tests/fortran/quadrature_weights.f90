! D01ANF, D01APF, D01ASF and D01AUF called from a gfortran program, as a
! user calls them.  Through the traced entries with an adapter of the
! caller's own, the integrand counts its calls in IUSER(1) (for D01AUF the
! points of each call, which must be the 15 of KEY = 1); each result must be
! that of the plain entry, bit for bit, and close to the integral known in
! closed form.  Then the records of some failures with IFAIL = -1, compared
! with quadrature_weights.out.  A failed check prints a line starting with
! FAIL.
program quadrature_weights
  use lbx3207qk, only: d01anf, d01apf, d01asf, d01auf
  implicit none
  external :: d01anft, d01apft, d01asft, d01auft
  double precision, parameter :: pi = 3.14159265358979323846d0
  double precision :: result, abserr, r2, e2, w(800), ruser(1)
  double precision :: erlst(50), rslst(50)
  integer :: iw(400), iuser(2), ifail, lst, ierlst(50)
  character(len=200) :: errbuf

  ! Integral of exp(x) cos(10 x) over [0, 1].
  iuser = 0
  ruser(1) = 1.0d0
  ifail = 1
  call d01anft(fcount, pass_user_arrays, 0.0d0, 1.0d0, 10.0d0, 1, 0.0d0, 1.0d-10, result, abserr, &
               w, 400, iw, 200, iuser, ruser, errbuf, ifail)
  call expect(ifail == 0, 'D01ANFT succeeds')
  call expect(iuser(2) == 77, 'D01ANFT IUSER(2) reaches the integrand')
  ifail = 0
  call d01anf(fexp, 0.0d0, 1.0d0, 10.0d0, 1, 0.0d0, 1.0d-10, r2, e2, w, 400, iw, 200, ifail)
  call expect(ifail == 0 .and. r2 == result .and. e2 == abserr, 'D01ANF equals D01ANFT')
  call expect(abs(result - (exp(1.0d0) * (cos(10.0d0) + 10.0d0 * sin(10.0d0)) - 1.0d0) / 101.0d0) &
              < 1.0d-12, 'D01ANF integral')
  write (*, '(a, i4, a, i6)') ' D01ANF LAST =', iw(1), ', evaluations:', iuser(1)

  ! Integral of exp(x) / sqrt(x (1 - x)) over [0, 1]: pi exp(1/2) I0(1/2).
  iuser = 0
  ifail = 1
  call d01apft(fcount, pass_user_arrays, 0.0d0, 1.0d0, -0.5d0, -0.5d0, 1, 0.0d0, 1.0d-10, result, &
               abserr, w, 400, iw, 100, iuser, ruser, errbuf, ifail)
  call expect(ifail == 0, 'D01APFT succeeds')
  ifail = 0
  call d01apf(fexp, 0.0d0, 1.0d0, -0.5d0, -0.5d0, 1, 0.0d0, 1.0d-10, r2, e2, w, 400, iw, 100, ifail)
  call expect(ifail == 0 .and. r2 == result .and. e2 == abserr, 'D01APF equals D01APFT')
  call expect(abs(result - pi * exp(0.5d0) * 1.0634833707413235d0) < 1.0d-12, 'D01APF integral')
  write (*, '(a, i4, a, i6)') ' D01APF LAST =', iw(1), ', evaluations:', iuser(1)

  ! Integral of exp(-x) cos(x) over [0, infinity): 1/2.
  iuser = 0
  ruser(1) = -1.0d0
  ifail = 1
  call d01asft(fcount, pass_user_arrays, 0.0d0, 1.0d0, 1, 1.0d-10, result, abserr, 50, lst, &
               erlst, rslst, ierlst, w, 400, iw, 200, iuser, ruser, errbuf, ifail)
  call expect(ifail == 0, 'D01ASFT succeeds')
  ifail = 0
  call d01asf(fexpm, 0.0d0, 1.0d0, 1, 1.0d-10, r2, e2, 50, lst, erlst, rslst, ierlst, w, 400, iw, &
              200, ifail)
  call expect(ifail == 0 .and. r2 == result .and. e2 == abserr, 'D01ASF equals D01ASFT')
  call expect(abs(result - 0.5d0) < 1.0d-10, 'D01ASF integral')
  write (*, '(a, i4, a, i6)') ' D01ASF LST =', lst, ', evaluations:', iuser(1)

  ! Integral of exp(x) over [0, 1] with the 15-point rule, 15 points a call.
  iuser = 0
  ruser(1) = 1.0d0
  ifail = 1
  call d01auft(vcount, pass_vector, 0.0d0, 1.0d0, 1, 0.0d0, 1.0d-10, result, abserr, w, 400, iw, &
               100, iuser, ruser, errbuf, ifail)
  call expect(ifail == 0, 'D01AUFT succeeds')
  call expect(iuser(1) == 15 * (2 * iw(1) - 1), 'D01AUFT points counted')
  call expect(iuser(2) == 15, 'D01AUFT 15 points a call')
  ifail = 0
  call d01auf(vexp, 0.0d0, 1.0d0, 1, 0.0d0, 1.0d-10, r2, e2, w, 400, iw, 100, ifail)
  call expect(ifail == 0 .and. r2 == result .and. e2 == abserr, 'D01AUF equals D01AUFT')
  call expect(abs(result - (exp(1.0d0) - 1.0d0)) < 1.0d-13, 'D01AUF integral')
  write (*, '(a, i4, a, i6)') ' D01AUF LAST =', iw(1), ', points:', iuser(1)

  ! Failures, noisy soft: the records, then the exit lines.
  ifail = -1
  call d01anf(fexp, 0.0d0, 1.0d0, 10.0d0, 3, 0.0d0, 1.0d-10, result, abserr, w, 400, iw, 200, ifail)
  ifail = -1
  call d01anf(fexp, 0.0d0, 1.0d0, 30.0d0, 1, 0.0d0, 1.0d-10, result, abserr, w, 7, iw, 3, ifail)
  ifail = -1
  call d01apf(fexp, 0.0d0, 1.0d0, -1.0d0, 0.0d0, 1, 0.0d0, 1.0d-10, result, abserr, w, 400, iw, &
              100, ifail)
  ifail = -1
  call d01apf(fexp, 1.0d0, 1.0d0, 0.0d0, 0.0d0, 1, 0.0d0, 1.0d-10, result, abserr, w, 400, iw, &
              100, ifail)
  ifail = -1
  call d01asf(fexpm, 0.0d0, 1.0d0, 1, 1.0d-10, result, abserr, 2, lst, erlst, rslst, ierlst, w, &
              400, iw, 200, ifail)
  ifail = -1
  call d01auf(vexp, 0.0d0, 1.0d0, 7, 0.0d0, 1.0d-10, result, abserr, w, 400, iw, 100, ifail)
contains
  subroutine expect(ok, what)
    logical, intent(in) :: ok
    character(len=*), intent(in) :: what
    if (.not. ok) write (*, '(a, a)') 'FAIL ', what
  end subroutine expect

  ! The caller's own adapters: hand the user arrays on.
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

  subroutine pass_vector(fn, x, fv, n, iuser, ruser)
    interface
      subroutine fn(x, fv, n, iuser, ruser)
        integer, intent(in) :: n
        double precision, intent(in) :: x(n)
        double precision, intent(out) :: fv(n)
        integer, intent(inout) :: iuser(*)
        double precision, intent(inout) :: ruser(*)
      end subroutine fn
    end interface
    integer, intent(in) :: n
    double precision, intent(in) :: x(n)
    double precision, intent(out) :: fv(n)
    integer, intent(inout) :: iuser(*)
    double precision, intent(inout) :: ruser(*)
    call fn(x, fv, n, iuser, ruser)
  end subroutine pass_vector

  double precision function fcount(x, iuser, ruser)
    double precision, intent(in) :: x
    integer, intent(inout) :: iuser(*)
    double precision, intent(inout) :: ruser(*)
    iuser(1) = iuser(1) + 1
    iuser(2) = 77
    fcount = exp(ruser(1) * x)
  end function fcount

  subroutine vcount(x, fv, n, iuser, ruser)
    integer, intent(in) :: n
    double precision, intent(in) :: x(n)
    double precision, intent(out) :: fv(n)
    integer, intent(inout) :: iuser(*)
    double precision, intent(inout) :: ruser(*)
    iuser(1) = iuser(1) + n
    iuser(2) = n
    fv = exp(ruser(1) * x)
  end subroutine vcount

  subroutine vexp(x, fv, n)
    double precision, intent(in) :: x(*)
    double precision, intent(out) :: fv(*)
    integer, intent(in) :: n
    fv(1:n) = exp(x(1:n))
  end subroutine vexp

  double precision function fexp(x)
    double precision, intent(in) :: x
    fexp = exp(x)
  end function fexp

  double precision function fexpm(x)
    double precision, intent(in) :: x
    fexpm = exp(-x)
  end function fexpm
end program quadrature_weights
