! F06AAZN in normal mode for a routine named "checked": the program stops at
! once and writes nothing.
program linalg_report_checked
  use lbx3207qk
  implicit none
  call f06aatn('TSLTESTING', ' ')
  print '(A)', 'before the report'
  call f06aazn('checked', 3)
  print '(A)', 'FAIL: control came back after the report'
end program linalg_report_checked
