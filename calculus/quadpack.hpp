// The pieces of QUADPACK (Piessens, de Doncker-Kapenga, Ueberhuber, Kahaner,
// 1983) that the quadrature routines share: its machine constants, the
// subinterval lists, the ordering of the error list (DQPSRT) and the epsilon
// algorithm (DQELG, D01AJYN).
#pragma once

#include "frame/machine.hpp"

namespace lbx::calculus {

namespace quadpack {

// QUADPACK's D1MACH(4) is the spacing of the doubles at 1, twice the
// library's machine precision (X02AJF, half an ulp of 1); its D1MACH(1) is
// the smallest normal number, D1MACH(2) the largest. The published
// thresholds are written in these, so they are kept to give its results.
inline constexpr double epmach = 2.0 * lbx::machine::eps;
inline constexpr double uflow = lbx::machine::tiny;
inline constexpr double oflow = lbx::machine::huge;

// Length of the extrapolation table (LIMEXP + 2) and of the last results kept.
inline constexpr int epstab_length = 52;

// MAX and MIN of two reals as the published code uses them (DMAX1, DMIN1),
// inline: std::fmax and std::fmin are library calls in ISO mode. Equal to
// them when neither argument is a NaN.
inline double dmax(double a, double b)
{
    return b > a ? b : a;
}
inline double dmin(double a, double b)
{
    return b < a ? b : a;
}

}  // namespace quadpack

// The caller's subinterval lists, each of limit elements (0-based here):
// left ends, right ends, integrals, error estimates, and the ordering list.
struct Subintervals {
    double* alist;
    double* blist;
    double* rlist;
    double* elist;
    int* iord;  // 1-based interval numbers, as the published code keeps them
    int limit;
};

// After the bisection of interval maxerr (1-based) into [a1, b1] and [a2, b2]
// with rlist(maxerr) = area1 and rlist(last) = area2 stored: the published
// update of the lists, the half with the larger error keeping number maxerr
// (the smaller error wins a tie for the left half), the other becoming last.
inline void store_halves(const Subintervals& s, int maxerr, int last, double a1, double b1,
                         double a2, double b2, double area1, double area2, double error1,
                         double error2)
{
    const int m = maxerr - 1, l = last - 1;
    if (!(error2 > error1)) {
        s.alist[l] = a2;
        s.blist[m] = b1;
        s.blist[l] = b2;
        s.elist[m] = error1;
        s.elist[l] = error2;
    } else {
        s.alist[m] = a2;
        s.alist[l] = a1;
        s.blist[l] = b1;
        s.rlist[m] = area2;
        s.rlist[l] = area1;
        s.elist[m] = error2;
        s.elist[l] = error1;
    }
}

// DQPSRT: keeps iord in descending order of elist after a bisection made
// interval `last` (1-based), and selects the nrmax-th largest (maxerr, ermax).
void order_by_error(const Subintervals& s, int last, int& maxerr, double& ermax, int& nrmax);

// D01AJYN, DQELG: Wynn's epsilon algorithm on epstab(1..n) (here epstab[0..n-1],
// of quadpack::epstab_length elements); n and nres are updated, res3la holds
// the last three results.
void D01AJYN(int& n, double* epstab, double& result, double& abserr, double* res3la, int& nres);

// Move the lists of a run that used last < limit subintervals down to stride
// last: w(1..last), w(last+1..2 last), ... as the result layout describes.
void compact_lists(double* w, int limit, int last);

}  // namespace lbx::calculus
