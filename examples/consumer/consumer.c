/* A consumer of the installed library: C header lbx3207qk.h, every argument
   by address, CHARACTER lengths last. */
#include <stdio.h>

#include "lbx3207qk.h"

int main(void)
{
    double x = 4.5, p = 0.975;
    int ifail = 1;
    double g = s14aaf_(&x, &ifail);
    printf("Gamma(4.5) = %.12f  IFAIL = %d\n", g, ifail);
    ifail = 1;
    double z = g01faf_("L", &p, &ifail, 1);
    printf("deviate(0.975) = %.12f  IFAIL = %d\n", z, ifail);
    return 0;
}
