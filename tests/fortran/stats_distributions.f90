! Normal, Student's t and chi-squared tail probabilities and the normal
! deviate called from Fortran: published values, TAIL given as a word, and the
! records of each failure noisily.  Edge cases and every message in its check
! order: tests/stats/distributions_test.cpp.
program stats_distributions
  use lbx3207qk
  implicit none
  integer :: ifail
  double precision :: r

  ! Published percentage points; TAIL is its first character in either case.
  ifail = 1; r = g01eaf('Significance', 1.5d0, ifail)
  call expect('G01EAF(Significance,1.5)', r, 0.13361440253771613d0, 1d-15, ifail, 0)
  ifail = 1; r = g01eaf('l', -1.959963984540054d0, ifail)
  call expect('G01EAF(l,-1.96)', r, 0.025d0, 1d-15, ifail, 0)
  ifail = 1; r = g01faf('u', 0.025d0, ifail)
  call expect('G01FAF(u,0.025)', r, 1.9599639845400539d0, 1d-15, ifail, 0)
  ifail = 1; r = g01ebf('S', 2.2281388519649385d0, 10d0, ifail)
  call expect('G01EBF(S,2.228,10)', r, 0.050000000001808669d0, 1d-14, ifail, 0)
  ifail = 1; r = g01ecf('L', 18.307038053275146d0, 10d0, ifail)
  call expect('G01ECF(L,18.3,10)', r, 0.95d0, 1d-14, ifail, 0)
  ifail = 1; r = g01ecf('S', 1d0, 3d0, ifail); call expect('G01ECF(S,1,3)', r, 0d0, 0d0, ifail, 1)

  ! The records of some failures, control returned.
  ifail = -1
  r = g01eaf('X', 1d0, ifail)
  ifail = -1
  r = g01faf('L', 1d0, ifail)
  ifail = -1
  r = g01ecf('L', 2d0, -5d0, ifail)
  write (*, '(A)') 'done'

contains

  ! Judges one result (relative error; tol = 0 asks for the exact value) and
  ! the IFAIL that came with it.
  subroutine expect(what, got, want, tol, ifail_out, want_ifail)
    character(*), intent(in) :: what
    double precision, intent(in) :: got, want, tol
    integer, intent(in) :: ifail_out, want_ifail
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
end program stats_distributions
