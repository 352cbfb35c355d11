! Gamma, log gamma, erfc, erf and Dawson's integral called from Fortran: known
! values, and the message records of two failures with IFAIL = -1 (noisy,
! soft).  Edge cases and every message: tests/special/edge_test.cpp.
program special_gamma_erf
  use lbx3207qk
  implicit none
  integer :: ifail
  double precision :: r

  ! Known values (mpmath) through the Fortran function-result convention.
  ifail = 1; r = s14aaf(0.5d0, ifail); call expect('S14AAF(0.5)', r, 1.7724538509055160273d0, 5d-16, ifail, 0)
  ifail = 1; r = s14aaf(-0.5d0, ifail); call expect('S14AAF(-0.5)', r, -3.5449077018110320546d0, 5d-16, ifail, 0)
  ifail = 1; r = s14aaf(-3d0, ifail); call expect('S14AAF(-3)', r, 4.3d304, 0d0, ifail, 4)
  ifail = 1; r = s14abf(10d0, ifail); call expect('S14ABF(10)', r, 12.801827480081469611d0, 5d-16, ifail, 0)
  ifail = 1; r = s15adf(1d0, ifail); call expect('S15ADF(1)', r, 0.15729920705028513066d0, 5d-16, ifail, 0)
  ifail = 1; r = s15aef(0.25d0, ifail); call expect('S15AEF(0.25)', r, 0.27632639016823693296d0, 5d-16, ifail, 0)
  ifail = 1; r = s15aff(-10d0, ifail); call expect('S15AFF(-10)', r, -0.050253847187598528033d0, 5d-16, ifail, 0)

  ! The records of two failures, written to the error unit, control returned.
  ifail = -1
  r = s14aaf(-200d0, ifail)
  ifail = -1
  r = s14abf(3d305, ifail)
  write (*, '(A)') 'done'

contains

  ! Judges one result (relative error; tol = 0 asks for the exact value) and
  ! the IFAIL that came with it.
  subroutine expect(what, got, want, tol, ifail_out, want_ifail)
    character(*), intent(in) :: what
    double precision, intent(in) :: got, want, tol
    integer, intent(in) :: ifail_out
    integer, intent(in) :: want_ifail
    logical :: bad
    if (tol == 0d0) then
      bad = got /= want
    else
      bad = abs(got - want) > tol * abs(want)
    end if
    if (bad .or. ifail_out /= want_ifail) then
      write (*, '(A,A,ES25.17,A,ES25.17,A,I3)') 'FAIL ', what, got, ' want', want, ' ifail', ifail_out
    end if
  end subroutine expect
end program special_gamma_erf
