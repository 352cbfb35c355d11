! The reporters' recording mode (TSLTESTING = "BLAS"): the records of a report
! that differs from the expected one on the unit TSLTESTBLASENV names (6
! here), the flags written back, control returned; any other TSLTESTING
! silences the reporters.  Last, a tuning-table set with an illegal ISPEC is
! recorded and the program stops.
program linalg_recording
  use lbx3207qk
  implicit none
  integer :: ival
  double precision :: x(2) = [1d0, 2d0], y(2) = [3d0, 4d0]

  call f06aatn('TSLTESTING', 'BLAS')
  print '(A)', '--- the expected report: no record'
  call expect(6, 'DGETRI')
  call f06aazn('F07AJF/DGETRI', 6)
  call show()
  print '(A)', '--- the chapter name is expected as well'
  call expect(6, 'F07AJF')
  call f06aazn('F07AJF/DGETRI', 6)
  call show()
  print '(A)', '--- wrong argument number'
  call expect(6, 'DGETRI')
  call f06aazn('F07AJF/DGETRI', 123456)
  call show()
  print '(A)', '--- no report expected'
  call expect(0, 'DGETRI')
  call f06aazn('F07AJF/DGETRI', 2)
  call show()
  print '(A)', '--- wrong routine and number; a name without "/" is compared whole'
  call expect(12, 'DGETRF')
  call f06aazn('DLASWP       ', 3)
  call show()
  print '(A)', '--- F16AAZN compares minus INFO'
  call expect(3, 'F16ELF')
  call f16aazn('F16ELF/BLAS_DSUM', -3, 0)
  call show()
  call f16aazn('F16ELF/BLAS_DSUM', -4, 0)
  call show()
  print '(A)', '--- a zero increment of BLAS_DAXPBY (argument 7)'
  call expect(7, 'BLAS_D')
  call blas_daxpby(2, 1d0, x, 1, 1d0, y, 0)
  call show()
  print '(A)', '--- F07ZAZN get with ISPEC 12'
  call expect(1, 'ILAENV')
  ival = 0
  call f07zazn(12, 'F07ADF', ival, 0)
  print '(A,I3)', 'IVAL =', ival
  call show()

  print '(A)', '--- another TSLTESTING: nothing'
  call f06aatn('TSLTESTING', 'QUIET')
  call expect(1, 'DGETRI')
  call f06aazn('F07AJF/DGETRI', 6)
  call f16aazn('F16ELF/BLAS_DSUM', -4, 0)
  call show()

  print '(A)', '--- F07ZAZN set with an unknown name: recorded, then a stop'
  call f06aatn('TSLTESTING', 'BLAS')
  call expect(2, 'ILAENV')
  ival = 5
  call f07zazn(1, 'F99ZZF', ival, 1)
  print '(A)', 'FAIL: control came back after a set with an error'

contains

  subroutine expect(info, name)
    integer, intent(in) :: info
    character(len=*), intent(in) :: name
    character(len=24) :: env
    write (env, '(4I6)') 6, info, 1, 0
    call f06aatn('TSLTESTBLASENV', env)
    call f06aatn('TSLTESTBLASENVSRNAMT', name)
  end subroutine expect

  subroutine show()
    character(len=100) :: env
    call f06aaun('TSLTESTBLASENV', env)
    print '(A,A,A)', 'TSLTESTBLASENV = "', trim(env), '"'
  end subroutine show

end program linalg_recording
