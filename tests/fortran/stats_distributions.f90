! Normal, Student's t and chi-squared tail probabilities and the normal
! deviate called from Fortran: the TAIL convention in both cases, the edge
! cases, every failure quietly, and the records of each failure noisily.
program stats_distributions
  use lbx3207qk
  implicit none
  integer :: ifail
  double precision :: r

  ! G01EAF: every tail, either case, and the far tails.
  ifail = 1; r = g01eaf('L', 0d0, ifail); call expect('G01EAF(L,0)', r, 0.5d0, 0d0, ifail, 0)
  ifail = 1; r = g01eaf('U', 0d0, ifail); call expect('G01EAF(U,0)', r, 0.5d0, 0d0, ifail, 0)
  ifail = 1; r = g01eaf('S', 0d0, ifail); call expect('G01EAF(S,0)', r, 1d0, 0d0, ifail, 0)
  ifail = 1; r = g01eaf('C', 0d0, ifail); call expect('G01EAF(C,0)', r, 0d0, 0d0, ifail, 0)
  ifail = 1; r = g01eaf('s', 1.5d0, ifail)
  call expect('G01EAF(s,1.5)', r, 0.13361440253771613d0, 1d-15, ifail, 0)
  ifail = 1; r = g01eaf('Significance', 1.5d0, ifail)
  call expect('G01EAF(Significance,1.5)', r, 0.13361440253771613d0, 1d-15, ifail, 0)
  ifail = 1; r = g01eaf('l', -1.959963984540054d0, ifail)
  call expect('G01EAF(l,-1.96)', r, 0.025d0, 1d-15, ifail, 0)
  ifail = 1; r = g01eaf('c', -1d0, ifail)
  call expect('G01EAF(c,-1)', r, 0.68268949213708590d0, 1d-15, ifail, 0)
  ifail = 1; r = g01eaf('U', 40d0, ifail); call expect('G01EAF(U,40)', r, 0d0, 0d0, ifail, 0)
  ifail = 1; r = g01eaf('L', -40d0, ifail); call expect('G01EAF(L,-40)', r, 0d0, 0d0, ifail, 0)
  ifail = 1; r = g01eaf('X', 1d0, ifail); call expect('G01EAF(X,1)', r, 0d0, 0d0, ifail, 1)

  ! G01FAF: the deviates and both bounds of P.
  ifail = 1; r = g01faf('L', 0.5d0, ifail); call expect('G01FAF(L,0.5)', r, 0d0, 0d0, ifail, 0)
  ifail = 1; r = g01faf('C', 0.95d0, ifail)
  call expect('G01FAF(C,0.95)', r, 1.9599639845400539d0, 1d-15, ifail, 0)
  ifail = 1; r = g01faf('u', 0.025d0, ifail)
  call expect('G01FAF(u,0.025)', r, 1.9599639845400539d0, 1d-15, ifail, 0)
  ifail = 1; r = g01faf('S', 0.05d0, ifail)
  call expect('G01FAF(S,0.05)', r, 1.9599639845400539d0, 1d-15, ifail, 0)
  ifail = 1; r = g01faf('L', 1d-300, ifail)
  call expect('G01FAF(L,1e-300)', r, -37.047096299361199d0, 1d-15, ifail, 0)
  ifail = 1; r = g01faf('L', 0d0, ifail); call expect('G01FAF(L,0)', r, 0d0, 0d0, ifail, 2)
  ifail = 1; r = g01faf('L', 1d0, ifail); call expect('G01FAF(L,1)', r, 0d0, 0d0, ifail, 2)
  ifail = 1; r = g01faf('Q', 0.5d0, ifail); call expect('G01FAF(Q,0.5)', r, 0d0, 0d0, ifail, 1)

  ! G01EBF: Student's t.
  ifail = 1; r = g01ebf('U', 2d0, 1d0, ifail)
  call expect('G01EBF(U,2,1)', r, 0.14758361765043327d0, 1d-14, ifail, 0)
  ifail = 1; r = g01ebf('l', 2d0, 1d0, ifail)
  call expect('G01EBF(l,2,1)', r, 0.85241638234956673d0, 1d-14, ifail, 0)
  ifail = 1; r = g01ebf('S', 2.2281388519649385d0, 10d0, ifail)
  call expect('G01EBF(S,2.228,10)', r, 0.050000000001808669d0, 1d-14, ifail, 0)
  ifail = 1; r = g01ebf('C', -2.2281388519649385d0, 10d0, ifail)
  call expect('G01EBF(C,-2.228,10)', r, 0.94999999999819133d0, 1d-14, ifail, 0)
  ifail = 1; r = g01ebf('Z', 1d0, 10d0, ifail); call expect('G01EBF(Z,1,10)', r, 0d0, 0d0, ifail, 1)
  ifail = 1; r = g01ebf('U', 1d0, 0.5d0, ifail); call expect('G01EBF(U,1,0.5)', r, 0d0, 0d0, ifail, 2)

  ! G01ECF: chi-squared.
  ifail = 1; r = g01ecf('U', 3.8414588206941236d0, 1d0, ifail)
  call expect('G01ECF(U,3.84,1)', r, 0.05d0, 1d-14, ifail, 0)
  ifail = 1; r = g01ecf('L', 18.307038053275146d0, 10d0, ifail)
  call expect('G01ECF(L,18.3,10)', r, 0.95d0, 1d-14, ifail, 0)
  ifail = 1; r = g01ecf('L', 0d0, 3d0, ifail); call expect('G01ECF(L,0,3)', r, 0d0, 0d0, ifail, 0)
  ifail = 1; r = g01ecf('S', 1d0, 3d0, ifail); call expect('G01ECF(S,1,3)', r, 0d0, 0d0, ifail, 1)
  ifail = 1; r = g01ecf('U', -1d0, 3d0, ifail); call expect('G01ECF(U,-1,3)', r, 0d0, 0d0, ifail, 2)
  ifail = 1; r = g01ecf('U', 1d0, 0d0, ifail); call expect('G01ECF(U,1,0)', r, 0d0, 0d0, ifail, 3)

  ! The records of every failure, control returned.
  ifail = -1
  r = g01eaf('X', 1d0, ifail)
  ifail = -1
  r = g01faf('*', 0.5d0, ifail)
  ifail = -1
  r = g01faf('L', 0d0, ifail)
  ifail = -1
  r = g01faf('L', 1d0, ifail)
  ifail = -1
  r = g01ebf('q', 1d0, 5d0, ifail)
  ifail = -1
  r = g01ebf('L', 1d0, 0.25d0, ifail)
  ifail = -1
  r = g01ecf('C', 1d0, 5d0, ifail)
  ifail = -1
  r = g01ecf('L', -2d0, 5d0, ifail)
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
