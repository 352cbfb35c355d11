! The message records of the zero finders as a caller sees them, with
! IFAIL = -1 (soft failure with messages): each failure once, in the order of
! the routines' tables. The output is compared with roots_messages.out.
program roots_messages
  use lbx3207qk
  implicit none
  double precision :: x, y, fx, a, b, c(10), cv(11), cx(26), ruser(1)
  integer :: iuser(1), ifail, ind

  iuser = 0
  ruser = 0.0d0

  write (*, '(a)') 'C05AZF'
  x = 1.0d0; y = 2.0d0; c(1) = 3.0d0; ind = -1; ifail = -1
  call c05azf(x, y, 1.0d0, 1.0d-8, 1, c, ind, ifail)
  call show(ifail)
  ind = 7; ifail = -1
  call c05azf(x, y, 1.0d0, 1.0d-8, 1, c, ind, ifail)
  call show(ifail)
  ind = 1; ifail = -1
  call c05azf(x, y, 1.0d0, -0.5d0, 1, c, ind, ifail)
  call show(ifail)
  ind = 1; ifail = -1
  call c05azf(x, y, 1.0d0, 1.0d-8, 3, c, ind, ifail)
  call show(ifail)
  x = 0.0d0; y = 1.0d0; ind = 1; ifail = -1
  do
    ifail = -1
    call c05azf(x, y, fx, 1.0d-10, 1, c, ind, ifail)
    if (ind == 0) exit
    fx = 1.0d0 / (x - 0.3d0)
  end do
  call show(ifail)
  x = 1.0d0; y = 2.0d0; ind = 1; ifail = -1
  do
    ifail = -1
    call c05azf(x, y, fx, 1.0d-300, 1, c, ind, ifail)
    if (ind == 0) exit
    fx = x * x - 2.0d0
  end do
  call show(ifail)

  write (*, '(a)') 'C05AYF'
  ifail = -1
  call c05ayf(1.0d0, 1.0d0, 0.0d0, 0.0d0, fsq, x, iuser, ruser, ifail)
  call show(ifail)
  ifail = -1
  call c05ayf(1.5d0, 1.5d0, 1.0d-6, 0.0d0, fsq, x, iuser, ruser, ifail)
  call show(ifail)
  ifail = -1
  call c05ayf(2.0d0, 3.0d0, 1.0d-6, 0.0d0, fsq, x, iuser, ruser, ifail)
  call show(ifail)
  ifail = -1
  call c05ayf(1.0d0, 2.0d0, 1.0d-300, 0.0d0, fsq, x, iuser, ruser, ifail)
  call show(ifail)
  ifail = -1
  call c05ayf(0.0d0, 1.0d0, 1.0d-10, 0.0d0, fpole, x, iuser, ruser, ifail)
  call show(ifail)

  write (*, '(a)') 'C05ADF'
  ifail = -1
  call c05adf(2.0d0, 3.0d0, 1.0d-6, 0.0d0, fsq_old, x, ifail)
  call show(ifail)

  write (*, '(a)') 'C05AVF'
  x = 0.0d0; ind = 1; ifail = -1
  call c05avf(x, 1.0d0, 1.0d0, 2.0d0, 2.0d0, y, cv, ind, ifail)
  call show(ifail)
  x = 3.0d0; ind = 1; ifail = -1
  call c05avf(x, 1.0d0, 1.0d0, -1.0d0, 2.0d0, y, cv, ind, ifail)
  call show(ifail)
  x = 1.0d20; ind = 1; ifail = -1
  call c05avf(x, 1.0d0, 1.0d0, 0.0d0, 1.0d21, y, cv, ind, ifail)
  call show(ifail)
  x = 0.0d0; ind = 1; ifail = -1
  call c05avf(x, 1.0d0, 5.0d0, -1.0d0, 2.0d0, y, cv, ind, ifail)
  call show(ifail)
  x = 0.0d0; ind = 5; ifail = -1
  call c05avf(x, 1.0d0, 1.0d0, -1.0d0, 2.0d0, y, cv, ind, ifail)
  call show(ifail)
  x = 0.0d0; ind = 1; ifail = -1
  do
    ifail = -1
    call c05avf(x, fx, 1.0d0, -3.0d0, 5.0d0, y, cv, ind, ifail)
    if (ind == 0) exit
    fx = x * x + 1.0d0
  end do
  call show(ifail)

  write (*, '(a)') 'C05AUF'
  x = 1.0d0; ifail = -1
  call c05auf(x, 0.0d0, -1.0d0, 0.0d0, fsq, a, b, iuser, ruser, ifail)
  call show(ifail)
  x = 1.0d0; ifail = -1
  call c05auf(x, 1.0d-17, 1.0d-6, 0.0d0, fsq, a, b, iuser, ruser, ifail)
  call show(ifail)
  x = 1.0d0; ifail = -1
  call c05auf(x, 0.5d0, 1.0d-6, 0.0d0, fplus, a, b, iuser, ruser, ifail)
  call show(ifail)
  x = 1.0d0; ifail = -1
  call c05auf(x, 0.1d0, 1.0d-300, 0.0d0, fsq, a, b, iuser, ruser, ifail)
  call show(ifail)
  x = 0.25d0; ifail = -1
  call c05auf(x, 0.5d0, 1.0d-10, 0.0d0, fpole, a, b, iuser, ruser, ifail)
  call show(ifail)

  write (*, '(a)') 'C05AGF'
  x = 1.0d0; ifail = -1
  call c05agf(x, 1.0d-17, 1.0d-6, 0.0d0, fsq_old, a, b, ifail)
  call show(ifail)

  write (*, '(a)') 'C05AXF'
  x = 1.0d0; ind = 6; ifail = -1
  call c05axf(x, 1.0d0, 1.0d-8, 1, 1.0d-3, cx, ind, ifail)
  call show(ifail)
  x = 1.0d0; ind = 1; ifail = -1
  call c05axf(x, 1.0d0, -1.0d0, 1, 1.0d-3, cx, ind, ifail)
  call show(ifail)
  x = 1.0d0; ind = 1; ifail = -1
  call c05axf(x, 1.0d0, 1.0d-8, 3, 1.0d-3, cx, ind, ifail)
  call show(ifail)
  x = 1.0d0; ind = -1; ifail = -1
  call c05axf(x, 1.0d0, 1.0d-8, 1, 1.0d-17, cx, ind, ifail)
  call show(ifail)
  x = 1.0d0; ind = 1; ifail = -1
  do
    ifail = -1
    call c05axf(x, fx, 1.0d-10, 0, 1.0d-3, cx, ind, ifail)
    if (ind == 0) exit
    fx = x * x + 1.0d0
  end do
  call show(ifail)
  x = 1.0d0; ind = 1; ifail = -1
  do
    ifail = -1
    call c05axf(x, fx, 1.0d-10, 0, 1.0d-3, cx, ind, ifail)
    if (ind == 0) exit
    fx = 4.0d0
  end do
  call show(ifail)

  write (*, '(a)') 'C05AWF'
  x = 1.0d0; ifail = -1
  call c05awf(x, 0.0d0, 0.0d0, fsq, 0, iuser, ruser, ifail)
  call show(ifail)
  x = 1.0d0; ifail = -1
  call c05awf(x, 1.0d-8, 0.0d0, fsq, -4, iuser, ruser, ifail)
  call show(ifail)
  x = 3.0d0; ifail = -1; ruser(1) = 2.0d0
  call c05awf(x, 1.0d-12, 0.0d0, fsq, 3, iuser, ruser, ifail)
  call show(ifail)
  x = 1.0d0; ifail = -1
  call c05awf(x, 1.0d-10, 0.0d0, fplus, 200, iuser, ruser, ifail)
  call show(ifail)

  write (*, '(a)') 'C05AJF'
  x = 1.0d0; ifail = -1
  call c05ajf(x, 1.0d-8, 0.0d0, fsq_old, 0, ifail)
  call show(ifail)

contains

  subroutine show(ifail)
    integer, intent(in) :: ifail
    write (*, '(a, i5)') ' -> IFAIL =', ifail
  end subroutine show

  double precision function fsq(xx, iuser, ruser)
    double precision, intent(in) :: xx
    integer, intent(inout) :: iuser(*)
    double precision, intent(inout) :: ruser(*)
    ! The library calls it back with the stdcall convention of 32-bit Windows.
    !GCC$ ATTRIBUTES STDCALL :: fsq
    iuser(1) = iuser(1) + 1
    fsq = xx * xx - 2.0d0 + 0.0d0 * ruser(1)
  end function fsq

  double precision function fplus(xx, iuser, ruser)
    double precision, intent(in) :: xx
    integer, intent(inout) :: iuser(*)
    double precision, intent(inout) :: ruser(*)
    ! The library calls it back with the stdcall convention of 32-bit Windows.
    !GCC$ ATTRIBUTES STDCALL :: fplus
    iuser(1) = iuser(1) + 1
    fplus = xx * xx + 1.0d0 + 0.0d0 * ruser(1)
  end function fplus

  double precision function fpole(xx, iuser, ruser)
    double precision, intent(in) :: xx
    integer, intent(inout) :: iuser(*)
    double precision, intent(inout) :: ruser(*)
    ! The library calls it back with the stdcall convention of 32-bit Windows.
    !GCC$ ATTRIBUTES STDCALL :: fpole
    iuser(1) = iuser(1) + 1
    fpole = 1.0d0 / (xx - 0.3d0) + 0.0d0 * ruser(1)
  end function fpole

  double precision function fsq_old(xx)
    double precision, intent(in) :: xx
    ! The library calls it back with the stdcall convention of 32-bit Windows.
    !GCC$ ATTRIBUTES STDCALL :: fsq_old
    fsq_old = xx * xx - 2.0d0
  end function fsq_old

end program roots_messages
