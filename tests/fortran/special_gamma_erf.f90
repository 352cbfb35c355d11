! Gamma, log gamma, erfc, erf and Dawson's integral called from Fortran:
! values at the documented edge cases, every failure with IFAIL = 1 (quiet),
! and the message records of each failure with IFAIL = -1 (noisy, soft).
program special_gamma_erf
  use lbx3207qk
  implicit none
  integer :: ifail
  double precision :: r

  ! Gamma at the edges of its range.
  ifail = 1; r = s14aaf(170d0, ifail); call expect('S14AAF(170)', r, 4.2690680090047052749d304, 1d-14, ifail, 0)
  ifail = 1; r = s14aaf(170.5d0, ifail); call expect('S14AAF(170.5)', r, 4.3d304, 0d0, ifail, 1)
  ifail = 1; r = s14aaf(-170.5d0, ifail); call expect('S14AAF(-170.5)', r, 0d0, 0d0, ifail, 2)
  ifail = 1; r = s14aaf(-3d0, ifail); call expect('S14AAF(-3)', r, 4.3d304, 0d0, ifail, 4)
  ifail = 1; r = s14aaf(0d0, ifail); call expect('S14AAF(0)', r, 4.4843049327354256d307, 0d0, ifail, 3)
  ifail = 1; r = s14aaf(-1d-309, ifail); call expect('S14AAF(-1e-309)', r, -4.4843049327354256d307, 0d0, ifail, 3)
  ifail = 1; r = s14aaf(1d-18, ifail); call expect('S14AAF(1e-18)', r, 1d18, 2.3d-16, ifail, 0)
  ifail = 1; r = s14aaf(1d0, ifail); call expect('S14AAF(1)', r, 1d0, 2.3d-16, ifail, 0)
  ifail = 1; r = s14aaf(2d0, ifail); call expect('S14AAF(2)', r, 1d0, 2.3d-16, ifail, 0)
  ifail = 1; r = s14aaf(0.5d0, ifail); call expect('S14AAF(0.5)', r, 1.7724538509055160273d0, 5d-16, ifail, 0)
  ifail = 1; r = s14aaf(-0.5d0, ifail); call expect('S14AAF(-0.5)', r, -3.5449077018110320546d0, 5d-16, ifail, 0)

  ! Log gamma.
  ifail = 1; r = s14abf(0d0, ifail); call expect('S14ABF(0)', r, huge(1d0), 0d0, ifail, 1)
  ifail = 1; r = s14abf(-1d0, ifail); call expect('S14ABF(-1)', r, 0d0, 0d0, ifail, 1)
  ifail = 1; r = s14abf(3d305, ifail); call expect('S14ABF(3e305)', r, huge(1d0), 0d0, ifail, 2)
  ifail = 1; r = s14abf(10d0, ifail); call expect('S14ABF(10)', r, 12.801827480081469611d0, 5d-16, ifail, 0)
  ifail = 1; r = s14abf(1d-20, ifail); call expect('S14ABF(1e-20)', r, 46.051701859880913680d0, 5d-16, ifail, 0)

  ! Error functions and their limits.
  ifail = 1; r = s15adf(26.6d0, ifail); call expect('S15ADF(26.6)', r, 0d0, 0d0, ifail, 0)
  ifail = 1; r = s15adf(-6.5d0, ifail); call expect('S15ADF(-6.5)', r, 2d0, 0d0, ifail, 0)
  ifail = 1; r = s15adf(1d0, ifail); call expect('S15ADF(1)', r, 0.15729920705028513066d0, 5d-16, ifail, 0)
  ifail = 1; r = s15aef(10.5d0, ifail); call expect('S15AEF(10.5)', r, 1d0, 0d0, ifail, 0)
  ifail = 1; r = s15aef(-10.5d0, ifail); call expect('S15AEF(-10.5)', r, -1d0, 0d0, ifail, 0)
  ifail = 1; r = s15aef(0.25d0, ifail); call expect('S15AEF(0.25)', r, 0.27632639016823693296d0, 5d-16, ifail, 0)
  ifail = 1; r = s15aff(0d0, ifail); call expect('S15AFF(0)', r, 0d0, 0d0, ifail, 0)
  ifail = 1; r = s15aff(1d0, ifail); call expect('S15AFF(1)', r, 0.53807950691276841914d0, 5d-16, ifail, 0)
  ifail = 1; r = s15aff(-10d0, ifail); call expect('S15AFF(-10)', r, -0.050253847187598528033d0, 5d-16, ifail, 0)
  ifail = 1; r = s15aff(1d308, ifail); call expect('S15AFF(1e308)', r, 0d0, 0d0, ifail, 0)

  ! The records of every failure, written to the error unit, control returned.
  ifail = -1
  r = s14aaf(-200d0, ifail)
  ifail = -1
  r = s14aaf(170.5d0, ifail)
  ifail = -1
  r = s14aaf(0d0, ifail)
  ifail = -1
  r = s14aaf(-3d0, ifail)
  ifail = -1
  r = s14abf(-1d0, ifail)
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
