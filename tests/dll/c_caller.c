/* A C caller of the DLL through lbx3207qk.h (stdcall), linked with one of the
 * import libraries: results come back as the convention says (REAL on the x87
 * stack, INTEGER in eax), CHARACTER lengths follow their address, user
 * procedures are called back stdcall, and every routine removes exactly its
 * own arguments from the stack.  Prints "ok" lines; any failure is a line
 * starting FAIL. */
#include <ctype.h>
#include <math.h>
#include <stdio.h>
#include <string.h>
#include <windows.h>

#include "lbx3207qk.h"

static int failures = 0;

static void expect(int ok, const char* what)
{
    printf("%s %s\n", ok ? "ok  " : "FAIL", what);
    if (!ok)
        ++failures;
}

/* Calls fn with nargs argument words (pushed right to left, as stdcall does)
 * and returns the number of bytes the callee removed from the stack. */
static int popped_bytes(const void* fn, void* const* args, int nargs, int x87_result)
{
    int moved, n = nargs;
    __asm__ volatile(
        "movl %%esp, %%ebx\n\t"
        "1:\n\t"
        "testl %%ecx, %%ecx\n\t"
        "jz 2f\n\t"
        "pushl -4(%%edi,%%ecx,4)\n\t"
        "decl %%ecx\n\t"
        "jmp 1b\n\t"
        "2:\n\t"
        "call *%%esi\n\t"
        "movl %%esp, %%eax\n\t"
        "subl %%ebx, %%eax\n\t"
        "movl %%ebx, %%esp\n\t"
        : "=a"(moved), "+c"(n)
        : "D"(args), "S"(fn)
        : "ebx", "edx", "memory", "cc");
    if (x87_result) {
        double discard;
        __asm__ volatile("fstpl %0" : "=m"(discard));
    }
    return moved + 4 * nargs;
}

static double LBX_CALL square_minus_two(const double* x, int* iuser, double* ruser)
{
    ++iuser[0];
    return *x * *x - ruser[0];
}

int main(void)
{
    int ifail = 0;
    double x = 0.5;
    double g = S14AAF(&x, &ifail);
    expect(ifail == 0 && fabs(g - sqrt(M_PI)) < 4e-16 * sqrt(M_PI),
           "S14AAF(0.5) = sqrt(pi), REAL result");
    x = -2.0;
    ifail = 1;
    g = S14AAF(&x, &ifail);
    expect(ifail == 4, "S14AAF(-2) soft failure: IFAIL = 4");

    x = 0.0;
    expect(X02BBF(&x) == 2147483647, "X02BBF = 2147483647, INTEGER result");
    expect(X02AJF() == ldexp(1.0, -53), "X02AJF = 2**-53");

    double rv[5] = {3, 1, 4, 1, 5};
    int m1 = 2, m2 = 5;
    ifail = 0;
    M01CAF(rv, &m1, &m2, "Descending", 1, &ifail);
    expect(ifail == 0 && rv[0] == 3 && rv[1] == 5 && rv[2] == 4 && rv[3] == 1 && rv[4] == 1,
           "M01CAF 'D' with its length after the address");
    ifail = 1;
    M01CAF(rv, &m1, &m2, "X", 1, &ifail);
    expect(ifail == 2, "M01CAF bad ORDER: IFAIL = 2");

    /* The traced entry uses 200 characters of ERRBUF whatever length it is told. */
    char errbuf[201];
    memset(errbuf, '#', sizeof errbuf);
    x = -2.0;
    S14AAFT(&x, errbuf, 7, &ifail);
    expect(ifail == 4 && errbuf[200] == '#', "S14AAFT with ERRBUF length 7 still fills 200");

    double a = 1.0, b = 2.0, eps = 1e-12, eta = 0.0, root = 0.0, ruser[1] = {2.0};
    int iuser[1] = {0};
    ifail = 0;
    C05AYF(&a, &b, &eps, &eta, square_minus_two, &root, iuser, ruser, &ifail);
    expect(ifail == 0 && fabs(root - sqrt(2.0)) < 1e-11 && iuser[0] > 2,
           "C05AYF calls a stdcall user function back through its adapter");

    /* Bytes each routine pops, through each of its four names. */
    HMODULE dll = GetModuleHandleA("LBX3207QK.dll");
    struct {
        const char* name;
        int words;
        int x87;
        void* args[12];
    } calls[] = {
        {"S14AAF", 2, 1, {&x, &ifail}},
        {"S14AAFT", 4, 1, {&x, errbuf, (void*)200, &ifail}},
        {"X02BBF", 1, 0, {&x}},
        {"X02AJF", 0, 1, {0}},
        {"M01CAF", 6, 0, {rv, &m1, &m2, "A", (void*)1, &ifail}},
        {"C05AYF",
         9,
         0,
         {&a, &b, &eps, &eta, (void*)square_minus_two, &root, iuser, ruser, &ifail}},
    };
    x = 3.0;
    for (size_t i = 0; i < sizeof calls / sizeof calls[0]; ++i) {
        char lower[40], names[4][48];
        size_t k;
        for (k = 0; calls[i].name[k] != 0; ++k)
            lower[k] = (char)tolower((unsigned char)calls[i].name[k]);
        lower[k] = 0;
        snprintf(names[0], sizeof names[0], "%s", calls[i].name);
        snprintf(names[1], sizeof names[1], "_%s", calls[i].name);
        snprintf(names[2], sizeof names[2], "_%s@%d", calls[i].name, 4 * calls[i].words);
        snprintf(names[3], sizeof names[3], "_%s_", lower);
        for (int d = 0; d < 4; ++d) {
            FARPROC f = GetProcAddress(dll, names[d]);
            char what[160];
            ifail = 1;
            int popped =
                f ? popped_bytes((const void*)f, calls[i].args, calls[i].words, calls[i].x87) : -1;
            snprintf(what, sizeof what, "%s pops %d bytes (want %d)", names[d], popped,
                     4 * calls[i].words);
            expect(popped == 4 * calls[i].words, what);
        }
    }
    return failures == 0 ? 0 : 1;
}
