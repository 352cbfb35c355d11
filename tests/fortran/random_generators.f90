! The random generators from a gfortran caller: MT19937 seeded with the authors'
! state words from Fortran integers, and the records of some messages (soft
! failures with IFAIL = -1).  Known answers, layout and every message: the C++
! tests in tests/random/.
program random_generators
  use lbx3207qk
  implicit none
  integer :: state(1260), seed(624), lstate, ifail, i, ix(10)
  integer(8) :: s8, mask32
  double precision :: x(10000), r(200), y(5)

  ! MT19937 from the authors' init_genrand(5489): the 10000th word is 4123659995.
  mask32 = 4294967295_8
  s8 = 5489
  do i = 1, 624
    seed(i) = int(merge(s8 - 4294967296_8, s8, s8 > 2147483647_8))
    s8 = iand(1812433253_8 * ieor(s8, ishft(s8, -30)) + i, mask32)
  end do
  lstate = 1260
  ifail = 0
  call g05kff(3, 1, seed, 624, state, lstate, ifail)
  call g05saf(10000, state, x, ifail)
  if (int(x(1) * 2d0**32, 8) /= 3499211612_8) write (*, '(A)') 'FAIL MT19937 first word'
  if (int(x(10000) * 2d0**32, 8) /= 4123659995_8) write (*, '(A)') 'FAIL MT19937 10000th word'

  ! Records of some messages, with IFAIL = -1 (every message and its check order:
  ! tests/random/messages_test.cpp).
  ifail = -1
  lstate = 632
  call g05kff(3, 1, [1], 1, state, lstate, ifail)
  lstate = 17
  call g05kff(1, 1, [1], 1, state, lstate, ifail)
  ifail = -1
  call g05khf(3, 4, state, ifail)
  ifail = -1
  call g05skf(3, 0d0, -1d0, state, y, ifail)
  ifail = -1
  call g05tjf(2, 3, 4d0, r, 5, state, ix, ifail)
  ifail = 0
  call g05tjf(0, 3, 4d0, r, 200, state, ix, ifail)
  ifail = -1
  call g05tjf(1, 3, 4.5d0, r, 200, state, ix, ifail)
  write (*, '(A)') 'done'
end program random_generators
