! The IFAIL convention as a Fortran caller sees it: every entry mode, the
! records of a message, records on a unit the caller opened, silenced output,
! and the record routines X04BAF and X04BBF.  (Every message and the check
! order: tests/sorting/messages_test.cpp.)
program ifail_modes
  use lbx3207qk
  implicit none
  external :: my_writer
  double precision :: rv(5), saved(5)
  integer :: ifail, k, nerr, unit, modes(4) = [1, 2, -2, 100]
  character(len=100) :: line
  character(len=8) :: short

  rv = [5d0, 4d0, 3d0, 2d0, 1d0]
  saved = rv

  print '(A)', '--- quiet modes: nothing written, IFAIL set, RV untouched'
  do k = 1, size(modes)
    ifail = modes(k)
    call m01caf(rv, 2, 1, 'A', ifail)
    print '(A,I4,A,I3)', 'IFAIL on entry', modes(k), ' -> on exit', ifail
  end do
  if (any(rv /= saved)) print '(A)', 'FAIL: RV changed by a failing call'

  print '(A)', '--- noisy mode: the records, control returned'
  ifail = -1
  call m01caf(rv, 4, 3, 'A', ifail)
  print '(A,I3)', 'returned, IFAIL =', ifail

  print '(A)', '--- success with IFAIL = -1: nothing written, IFAIL = 0'
  ifail = -1
  call m01caf(rv, 1, 5, 'a', ifail)
  print '(A,I3,5F5.1)', 'IFAIL', ifail, rv

  print '(A)', '--- X04AAF with IFLAG = 2 changes nothing'
  nerr = 77
  call x04aaf(2, nerr)
  call x04aaf(0, unit)
  print '(A,2I4)', 'NERR, error unit:', nerr, unit

  print '(A)', '--- records land on a unit the caller opened'
  open (10, file='messages.txt', status='replace')
  write (10, '(A)') 'caller line before'
  nerr = 10
  call x04aaf(1, nerr)
  ifail = -1
  call m01caf(rv, 1, 5, 'x', ifail)
  write (10, '(A)') 'caller line after'
  nerr = 6
  call x04aaf(1, nerr)
  close (10)
  open (10, file='messages.txt', status='old')
  do
    read (10, '(A)', end=1) line
    print '(A,A)', 'file: ', trim(line)
  end do
1 close (10)

  print '(A)', '--- X04AAF(1, -1) silences messages; IFAIL is still set'
  nerr = -1
  call x04aaf(1, nerr)
  ifail = -1
  call m01caf(rv, 1, 0, 'A', ifail)
  print '(A,I3)', 'IFAIL', ifail
  nerr = 6
  call x04aaf(1, nerr)

  print '(A)', '--- X04BAF: a blank record is one blank, an empty one empty; a negative unit drops it'
  call x04baf(6, '   ')
  call x04baf(6, '')
  call x04baf(6, 'text with trailing blanks     ')
  call x04baf(-3, 'never seen')

  print '(A)', '--- X04BBF reads records, pads, cuts, then reports end of file'
  open (11, file='input.txt', status='replace')
  write (11, '(A)') 'ab'
  write (11, '(A)') 'a record longer than eight'
  close (11)
  open (11, file='input.txt', status='old')
  do k = 1, 3
    short = '########'
    ifail = -1
    call x04bbf(11, short, ifail)
    print '(A,I3,A,A,A)', 'IFAIL', ifail, ' RECIN [', short, ']'
  end do
  close (11)
  short = 'kept'
  ifail = 0
  call x04bbf(-1, short, ifail)
  print '(A,I3,A,A,A)', 'negative unit: IFAIL', ifail, ' RECIN [', short, ']'

  print '(A)', '--- X04BAFT with the caller''s own writer, and with the library''s'
  call x04baft(my_writer, x04bafnh, 6, 'through my writer   ')
  call x04baft(x04bafn, x04bafnh, 6, 'through the library writer')

end program ifail_modes

! A record writer of the caller's, handed to X04BAFT.
subroutine my_writer(nout, rec)
  implicit none
  integer, intent(in) :: nout
  character(len=*), intent(in) :: rec
  ! The library calls it back with the stdcall convention of 32-bit Windows.
  !GCC$ ATTRIBUTES STDCALL :: my_writer
  print '(A,I2,A,A,A)', 'my writer: unit', nout, ' [', rec, ']'
end subroutine my_writer
