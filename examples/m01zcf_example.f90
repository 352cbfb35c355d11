! M01ZBF, M01ZAF, M01ZCF: check a permutation, invert it, and list its cycles
! (each from its smallest element, which is negated).
program m01zcf_example
  use lbx3207qk
  implicit none
  integer :: iperm(7) = [3, 7, 1, 4, 2, 6, 5], icycl(7), ifail
  ifail = 0
  call m01zbf(iperm, 1, 7, ifail)
  print '(A,I2)', 'is a permutation: IFAIL =', ifail
  call m01zcf(iperm, 1, 7, icycl, ifail)
  print '(A,7I4)', 'cycles: ', icycl
  call m01zaf(iperm, 1, 7, ifail)
  print '(A,7I4)', 'inverse:', iperm
  ifail = 1
  iperm(2) = 3
  call m01zbf(iperm, 1, 7, ifail)
  print '(A,I2)', 'with a repeated 3: IFAIL =', ifail
end program m01zcf_example
