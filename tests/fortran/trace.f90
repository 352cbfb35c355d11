! Trace frames for switch 0 (none), 1 (entry and exit), 3 (silent) and -1
! (as 1), for a successful and a failing call.
program trace
  use lbx3207qk
  implicit none
  double precision :: rv(4) = [2d0, 1d0, 4d0, 3d0]
  integer :: ifail, s, switch(4) = [0, 1, 3, -1]
  double precision :: pi
  do s = 1, 4
    print '(A,I3)', '=== switch', switch(s)
    call y90gcft(switch(s))
    ifail = 0
    call m01caf(rv, 2, 3, 'D', ifail)
    ifail = 1
    call m01caf(rv, 3, 2, 'A', ifail)
  end do
  call y90gczn(0, s)
  print '(A,I3)', 'switch read back:', s
  s = 2
  call y90gczn(1, s)
  print '(A,I3)', '=== switch 2, function with a result and a dummy argument:'
  pi = x01aaf(1d0)      ! not inside a PRINT: the trace writes to the same unit
  print '(F20.15)', pi
  call x04baf(6, 'a record')  ! traced by NOUT and REC only, not the writer
  call y90gcft(0)
end program trace
