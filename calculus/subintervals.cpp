// The subinterval lists of the adaptive routines: their ordering by error
// estimate, QUADPACK's DQPSRT (iord lists interval numbers in descending
// order of their error estimates, fully for the first jupbn of them; after
// each bisection the two new intervals are inserted; indices are the
// published 1-based ones), and the result layout at stride LAST.
#include "calculus/quadpack.hpp"

namespace lbx::calculus {

void order_by_error(const Subintervals& s, int last, int& maxerr, double& ermax, int& nrmax)
{
    int* iord = s.iord - 1;             // iord[k] is IORD(k)
    const double* elist = s.elist - 1;  // elist[k] is ELIST(k)
    if (last <= 2) {
        iord[1] = 1;
        iord[2] = 2;
    } else {
        // Only after a bisection that increased the error estimate does the
        // insertion start above the nrmax-th largest.
        const double errmax = elist[maxerr];
        if (nrmax != 1) {
            const int ido = nrmax - 1;
            for (int i = 1; i <= ido; ++i) {
                const int isucc = iord[nrmax - 1];
                if (errmax <= elist[isucc]) {
                    break;
                }
                iord[nrmax] = isucc;
                nrmax = nrmax - 1;
            }
        }
        // The number of elements kept in order depends on the bisections left.
        const int jupbn = (last > s.limit / 2 + 2) ? s.limit + 3 - last : last;
        const double errmin = elist[last];
        // Insert errmax top-down.
        const int jbnd = jupbn - 1;
        const int ibeg = nrmax + 1;
        int i = ibeg;
        bool placed = false;
        for (; i <= jbnd; ++i) {
            const int isucc = iord[i];
            if (errmax >= elist[isucc]) {
                placed = true;
                break;
            }
            iord[i - 1] = isucc;
        }
        if (!placed) {
            iord[jbnd] = maxerr;
            iord[jupbn] = last;
        } else {
            // Insert errmin bottom-up.
            iord[i - 1] = maxerr;
            int k = jbnd;
            bool inserted = false;
            for (int j = i; j <= jbnd; ++j) {
                const int isucc = iord[k];
                if (errmin < elist[isucc]) {
                    iord[k + 1] = last;
                    inserted = true;
                    break;
                }
                iord[k + 1] = isucc;
                k = k - 1;
            }
            if (!inserted) {
                iord[i] = last;
            }
        }
    }
    maxerr = iord[nrmax];
    ermax = elist[maxerr];
}

void compact_lists(double* w, int limit, int last)
{
    for (int list = 1; list < 4; ++list) {
        for (int i = 0; i < last; ++i) {
            w[list * last + i] = w[list * limit + i];
        }
    }
}

}  // namespace lbx::calculus
