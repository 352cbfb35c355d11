! Base generators, uniform, normal and Poisson variates from a gfortran caller:
! published values, the STATE layout, and the records of some messages (soft
! failures with IFAIL = -1 print their records on the error unit).
program random_generators
  use lbx3207qk
  implicit none
  integer :: state(1260), seed(624), lstate, ifail, i, ix(10)
  integer, allocatable :: counts(:)
  integer(8) :: s8, mask32
  double precision :: x(10000), r(200), y(5)
  integer :: basic_expected(17) = [17, 1234, 1, 0, 6, 0, 0, 0, 17917, 13895, 19930, 8, &
                                   0, 1234, 1, 1, 1234]

  ! The basic generator seeded with 1: layout, and 13**13 * 6 * 2**-60 first.
  lstate = 17
  ifail = 0
  call g05kff(1, 1, [1], 1, state, lstate, ifail)
  if (any(state(1:17) /= basic_expected)) write (*, '(A)') 'FAIL basic generator layout'
  call g05saf(2, state, x, ifail)
  if (x(1) /= real(302875106592253_8 * 6_8, 8) * 2d0**(-60)) write (*, '(A)') 'FAIL first uniform'
  if (ifail /= 0) write (*, '(A)') 'FAIL G05SAF IFAIL'

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

  ! MRG32k3a from the all-12345 seed.
  lstate = 61
  call g05kff(6, 1, [12345, 12345, 12345, 12345, 12345, 12345], 6, state, lstate, ifail)
  call g05saf(2, state, x, ifail)
  if (x(1) /= 0.12701112204657714d0 .or. x(2) /= 0.3185275653967945d0) &
    write (*, '(A)') 'FAIL MRG32k3a reference values'

  ! Skip-ahead by 1000 equals drawing 1000 values.
  call g05kff(6, 1, [7], 1, state, lstate, ifail)
  call g05saf(1001, state(1:61), x, ifail)
  call g05kff(6, 1, [7], 1, state, lstate, ifail)
  call g05kjf(1000, state, ifail)
  call g05saf(1, state, y, ifail)
  if (y(1) /= x(1001)) write (*, '(A)') 'FAIL skip-ahead'

  ! Poisson counts: the sample mean of 100000 variates of mean 4 lies within 6 sigma.
  allocate (counts(100000))
  call g05tjf(2, 100000, 4d0, r, 200, state, counts, ifail)
  if (ifail /= 0 .or. any(counts < 0)) write (*, '(A)') 'FAIL G05TJF'
  if (abs(sum(real(counts, 8)) / 1d5 - 4d0) > 6d0 * sqrt(4d0 / 1d5)) &
    write (*, '(A)') 'FAIL G05TJF sample mean'

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
