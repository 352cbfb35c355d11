! Machine constants by their exact bit patterns, the implementation details,
! and their exported implementations, from a Fortran caller.
program constants
  use lbx3207qk
  implicit none
  integer, parameter :: i8 = selected_int_kind(18)
  character(len=80) :: impl, prec, pcode, hdware, opsys, fcomp, vend, line
  character(len=4) :: tiny_code
  integer :: mkmaj, mkmin, unit, nrec

  call bits('X01AAF', x01aaf(0d0), int(z'400921FB54442D18', i8))
  call bits('X01ABF', x01abf(0d0), int(z'3FE2788CFC6FB619', i8))
  call bits('X02AHF', x02ahf(0d0), int(z'4950000000000000', i8))
  call bits('X02AJF', x02ajf(), int(z'3CA0000000000000', i8))
  call bits('X02AJFN', x02ajfn(), int(z'3CA0000000000000', i8))
  call bits('X02AKF', x02akf(), int(z'0010000000000000', i8))
  call bits('X02ALF', x02alf(), int(z'7FEFFFFFFFFFFFFF', i8))
  call bits('X02AMF', x02amf(), int(z'0010000000000001', i8))
  call bits('X02AMFN', x02amfn(), int(z'0010000000000001', i8))
  call bits('X02ANF', x02anf(), int(z'0010000000000001', i8))
  call ints('X02BBF', x02bbf(0d0), 2147483647)
  call ints('X02BEF', x02bef(0d0), 15)
  call ints('X02BHF', x02bhf(), 2)
  call ints('X02BJF', x02bjf(), 53)
  call ints('X02BKF', x02bkf(), -1021)
  call ints('X02BLF', x02blf(), 1024)
  if (1d0 + x02ajf() /= 1d0) print '(A)', 'FAIL: 1 + X02AJF does not round to 1'
  if (1d0 + 2 * x02ajf() == 1d0) print '(A)', 'FAIL: 1 + 2*X02AJF rounds to 1'

  ! A00ADF fills the caller's lengths: blank filling and truncation.
  call a00adf(impl, prec, pcode, mkmaj, mkmin, hdware, opsys, fcomp, tiny_code)
  print '(A,A,A)', 'precision [', trim(prec), ']'
  print '(A,A,A)', 'product [', trim(pcode), ']'
  print '(A,I3,I3)', 'release', mkmaj, mkmin
  print '(A,A,A)', 'vendor, 4 characters [', tiny_code, ']'
  call a00adf(impl, prec, pcode, mkmaj, mkmin, hdware, opsys, fcomp, vend)
  ! Each platform's build names its own BLAS/LAPACK.
  if (index(impl, 'Linux') == 1) then
    if (vend(1:9) /= 'OpenBLAS ') print '(A,A)', 'FAIL: vendor library ', trim(vend)
  else if (index(impl, 'Windows') == 1) then
    if (vend(1:7) /= 'LAPACK ') print '(A,A)', 'FAIL: vendor library ', trim(vend)
  else
    print '(A,A)', 'FAIL: title ', trim(impl)
  end if

  ! A00AAF writes exactly 8 records to the advisory unit.
  unit = 12
  open (unit, file='details.txt', status='replace')
  call x04abf(1, unit)
  call a00aaf()
  close (unit)
  open (unit, file='details.txt', status='old')
  nrec = 0
  do
    read (unit, '(A)', end=2) line
    nrec = nrec + 1
    if (nrec /= 3) print '(A,A)', 'A00AAF: ', trim(line)
  end do
2 close (unit)
  print '(A,I3)', 'A00AAF records:', nrec

contains

  subroutine bits(name, value, expected)
    character(len=*), intent(in) :: name
    double precision, intent(in) :: value
    integer(i8), intent(in) :: expected
    if (transfer(value, 0_i8) /= expected) then
      print '(A,A,Z17,A,Z17)', 'FAIL: ', name, transfer(value, 0_i8), ' expected', expected
    else
      print '(A,A,Z17.16)', name, ' ', transfer(value, 0_i8)
    end if
  end subroutine bits

  subroutine ints(name, value, expected)
    character(len=*), intent(in) :: name
    integer, intent(in) :: value, expected
    if (value /= expected) print '(A,A,2I12)', 'FAIL: ', name, value, expected
  end subroutine ints

end program constants
