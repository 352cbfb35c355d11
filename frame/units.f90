! Record input/output and the process stop, done by the Fortran runtime itself,
! so that a unit the caller opened and the library's records on that unit are
! one and the same file, and a hard failure stops like a Fortran STOP.
module lbx_units
  use, intrinsic :: iso_c_binding, only: c_int, c_char
  implicit none
  private
contains

  ! Writes rec(1:n) as one record on unit with the plain character edit.
  subroutine unit_write(unit, rec, n) bind(C, name="lbx_unit_write")
    integer(c_int), value :: unit, n
    character(kind=c_char), intent(in) :: rec(n)
    character(len=n) :: line
    integer :: i, ios
    do i = 1, n
      line(i:i) = rec(i)
    end do
    write (unit, '(A)', iostat=ios) line
    flush (unit, iostat=ios)
  end subroutine unit_write

  ! Writes nrec records, record i being the next lens(i) characters of
  ! text(1:total), with one WRITE statement: the runtime holds the unit for
  ! the whole statement, so no other thread's record comes in between.
  subroutine unit_write_block(unit, text, total, lens, nrec) bind(C, name="lbx_unit_write_block")
    integer(c_int), value :: unit, total, nrec
    character(kind=c_char), intent(in) :: text(total)
    integer(c_int), intent(in) :: lens(nrec)
    call write_block(unit, text, total, lens, nrec)
  end subroutine unit_write_block

  subroutine write_block(unit, text, total, lens, nrec)
    integer(c_int), intent(in) :: unit, total, nrec, lens(nrec)
    character(len=total), intent(in) :: text(1)
    integer :: first(nrec), i, ios
    first(1) = 1
    do i = 2, nrec
      first(i) = first(i - 1) + lens(i - 1)
    end do
    write (unit, '(A)', iostat=ios) (text(1)(first(i):first(i) + lens(i) - 1), i = 1, nrec)
    flush (unit, iostat=ios)
  end subroutine write_block

  ! Reads one record into buf(1:n): shorter records are blank-padded, longer
  ! ones cut.  ios: 0, negative at end of file, positive on an error.
  subroutine unit_read(unit, buf, n, ios) bind(C, name="lbx_unit_read")
    integer(c_int), value :: unit, n
    character(kind=c_char), intent(inout) :: buf(n)
    integer(c_int), intent(out) :: ios
    character(len=n) :: line
    integer :: i, st
    read (unit, '(A)', iostat=st) line
    ios = st
    if (st == 0) then
      do i = 1, n
        buf(i) = line(i:i)
      end do
    end if
  end subroutine unit_read

  ! The name of the file connected to unit (blank-padded to n characters) and
  ! whether the unit is connected at all (opened 1 or 0).
  subroutine unit_inquire(unit, name, n, opened) bind(C, name="lbx_unit_inquire")
    integer(c_int), value :: unit, n
    character(kind=c_char), intent(out) :: name(n)
    integer(c_int), intent(out) :: opened
    character(len=n) :: text
    logical :: od
    integer :: i, ios
    text = ' '
    od = .false.
    inquire (unit=unit, opened=od, name=text, iostat=ios)
    if (ios /= 0) od = .false.
    opened = merge(1, 0, od)
    do i = 1, n
      name(i) = text(i:i)
    end do
  end subroutine unit_inquire

  subroutine process_stop() bind(C, name="lbx_process_stop")
    stop
  end subroutine process_stop

end module lbx_units
