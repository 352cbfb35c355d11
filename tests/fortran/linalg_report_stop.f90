! F06AAZN in normal mode (TSLTESTING blank): one record on unit 6, then the
! program stops with exit status 0 and nothing more.
program linalg_report_stop
  use lbx3207qk
  implicit none
  call f06aatn('TSLTESTING', ' ')
  print '(A)', 'before the report'
  call f06aazn('F07AJF/DGETRI', 6)
  print '(A)', 'FAIL: control came back after the report'
end program linalg_report_stop
