// Wynn's epsilon algorithm as QUADPACK's DQELG applies it (D01AJYN): the
// extrapolated limit of the sequence epstab(1..n) of partial sums, with an
// error estimate from the last three results. Indices below are the published
// 1-based ones, stored at [index - 1].
#include <cmath>

#include "calculus/quadpack.hpp"

namespace lbx::calculus {

namespace {

constexpr int limexp = quadpack::epstab_length - 2;

}  // namespace

void D01AJYN(int& n, double* epstab, double& result, double& abserr, double* res3la, int& nres)
{
    using quadpack::epmach;
    using quadpack::oflow;
    double* e = epstab - 1;  // e[k] is EPSTAB(k)
    nres = nres + 1;
    abserr = oflow;
    result = e[n];
    if (n >= 3) {
        e[n + 2] = e[n];
        const int newelm = (n - 1) / 2;
        e[n] = oflow;
        const int num = n;
        int k1 = n;
        for (int i = 1; i <= newelm; ++i) {
            const int k2 = k1 - 1;
            const int k3 = k1 - 2;
            double res = e[k1 + 2];
            const double e0 = e[k3];
            const double e1 = e[k2];
            const double e2 = res;
            const double e1abs = std::fabs(e1);
            const double delta2 = e2 - e1;
            const double err2 = std::fabs(delta2);
            const double tol2 = quadpack::dmax(std::fabs(e2), e1abs) * epmach;
            const double delta3 = e1 - e0;
            const double err3 = std::fabs(delta3);
            const double tol3 = quadpack::dmax(e1abs, std::fabs(e0)) * epmach;
            if (err2 <= tol2 && err3 <= tol3) {
                // e0, e1 and e2 equal to machine accuracy: convergence.
                result = res;
                abserr = err2 + err3;
                abserr = quadpack::dmax(abserr, 5.0 * epmach * std::fabs(result));
                return;
            }
            const double e3 = e[k1];
            e[k1] = e1;
            const double delta1 = e1 - e3;
            const double err1 = std::fabs(delta1);
            const double tol1 = quadpack::dmax(e1abs, std::fabs(e3)) * epmach;
            // Two elements very close, or irregular behaviour: omit a part
            // of the table by adjusting n.
            if (err1 <= tol1 || err2 <= tol2 || err3 <= tol3) {
                n = i + i - 1;
                break;
            }
            const double ss = 1.0 / delta1 + 1.0 / delta2 - 1.0 / delta3;
            const double epsinf = std::fabs(ss * e1);
            if (!(epsinf > 1.0e-4)) {
                n = i + i - 1;
                break;
            }
            res = e1 + 1.0 / ss;
            e[k1] = res;
            k1 = k1 - 2;
            const double error = err2 + std::fabs(res - e2) + err3;
            if (!(error > abserr)) {
                abserr = error;
                result = res;
            }
        }
        // Shift the table.
        if (n == limexp) {
            n = 2 * (limexp / 2) - 1;
        }
        int ib = (num % 2 == 0) ? 2 : 1;
        const int ie = newelm + 1;
        for (int i = 1; i <= ie; ++i) {
            const int ib2 = ib + 2;
            e[ib] = e[ib2];
            ib = ib2;
        }
        if (num != n) {
            int indx = num - n + 1;
            for (int i = 1; i <= n; ++i) {
                e[i] = e[indx];
                indx = indx + 1;
            }
        }
        if (nres < 4) {
            res3la[nres - 1] = result;
            abserr = oflow;
        } else {
            abserr = std::fabs(result - res3la[2]) + std::fabs(result - res3la[1]) +
                     std::fabs(result - res3la[0]);
            res3la[0] = res3la[1];
            res3la[1] = res3la[2];
            res3la[2] = result;
        }
    }
    abserr = quadpack::dmax(abserr, 5.0 * epmach * std::fabs(result));
}

}  // namespace lbx::calculus
