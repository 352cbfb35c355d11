/* Calling the library from C: every argument by address, CHARACTER lengths last. */
#include <stdio.h>
#include "lbx3207qk.h"

int main(void)
{
    double rv[5] = {4.0, -2.0, 8.5, 0.5, 3.0};
    int m1 = 1, m2 = 5, ifail = 1;
    m01caf_(rv, &m1, &m2, "D", &ifail, 1);
    printf("ifail = %d:", ifail);
    for (int i = 0; i < 5; ++i)
        printf(" %.2f", rv[i]);
    printf("\n");
    return 0;
}
