// DQCHEB, the Chebyshev series of the modified Clenshaw-Curtis rules, in the
// published order of operations.
#include "calculus/weighted.hpp"

namespace lbx::calculus {

// DQCHEB: the Chebyshev series of degrees 12 and 24 of the function whose
// values at cos(k pi / 24), k = 0..24, are fval(1..25), here fval[0..24];
// the published 1-based index k stands at [k - 1] (v keeps it: v[0] unused).
// fval is overwritten.
void chebyshev_series(double* fval, double* cheb12, double* cheb24)
{
    const double* x = xcos;
    double v[13];
    for (int i = 1; i <= 12; ++i) {
        const int j = 26 - i;
        v[i] = fval[i - 1] - fval[j - 1];
        fval[i - 1] = fval[i - 1] + fval[j - 1];
    }
    double alam1 = v[1] - v[9];
    double alam2 = x[5] * (v[3] - v[7] - v[11]);
    cheb12[3] = alam1 + alam2;
    cheb12[9] = alam1 - alam2;
    alam1 = v[2] - v[8] - v[10];
    alam2 = v[4] - v[6] - v[12];
    double alam = x[2] * alam1 + x[8] * alam2;
    cheb24[3] = cheb12[3] + alam;
    cheb24[21] = cheb12[3] - alam;
    alam = x[8] * alam1 - x[2] * alam2;
    cheb24[9] = cheb12[9] + alam;
    cheb24[15] = cheb12[9] - alam;
    const double part1 = x[3] * v[5];
    const double part2 = x[7] * v[9];
    const double part3 = x[5] * v[7];
    alam1 = v[1] + part1 + part2;
    alam2 = x[1] * v[3] + part3 + x[9] * v[11];
    cheb12[1] = alam1 + alam2;
    cheb12[11] = alam1 - alam2;
    alam = x[0] * v[2] + x[2] * v[4] + x[4] * v[6] + x[6] * v[8] + x[8] * v[10] + x[10] * v[12];
    cheb24[1] = cheb12[1] + alam;
    cheb24[23] = cheb12[1] - alam;
    alam = x[10] * v[2] - x[8] * v[4] + x[6] * v[6] - x[4] * v[8] + x[2] * v[10] - x[0] * v[12];
    cheb24[11] = cheb12[11] + alam;
    cheb24[13] = cheb12[11] - alam;
    alam1 = v[1] - part1 + part2;
    alam2 = x[9] * v[3] - part3 + x[1] * v[11];
    cheb12[5] = alam1 + alam2;
    cheb12[7] = alam1 - alam2;
    alam = x[4] * v[2] - x[8] * v[4] - x[0] * v[6] - x[10] * v[8] + x[2] * v[10] + x[6] * v[12];
    cheb24[5] = cheb12[5] + alam;
    cheb24[19] = cheb12[5] - alam;
    alam = x[6] * v[2] - x[2] * v[4] - x[10] * v[6] + x[0] * v[8] - x[8] * v[10] - x[4] * v[12];
    cheb24[7] = cheb12[7] + alam;
    cheb24[17] = cheb12[7] - alam;
    for (int i = 1; i <= 6; ++i) {
        const int j = 14 - i;
        v[i] = fval[i - 1] - fval[j - 1];
        fval[i - 1] = fval[i - 1] + fval[j - 1];
    }
    alam1 = v[1] + x[7] * v[5];
    alam2 = x[3] * v[3];
    cheb12[2] = alam1 + alam2;
    cheb12[10] = alam1 - alam2;
    cheb12[6] = v[1] - v[5];
    alam = x[1] * v[2] + x[5] * v[4] + x[9] * v[6];
    cheb24[2] = cheb12[2] + alam;
    cheb24[22] = cheb12[2] - alam;
    alam = x[5] * (v[2] - v[4] - v[6]);
    cheb24[6] = cheb12[6] + alam;
    cheb24[18] = cheb12[6] - alam;
    alam = x[9] * v[2] - x[5] * v[4] + x[1] * v[6];
    cheb24[10] = cheb12[10] + alam;
    cheb24[14] = cheb12[10] - alam;
    for (int i = 1; i <= 3; ++i) {
        const int j = 8 - i;
        v[i] = fval[i - 1] - fval[j - 1];
        fval[i - 1] = fval[i - 1] + fval[j - 1];
    }
    cheb12[4] = v[1] + x[7] * v[3];
    cheb12[8] = fval[0] - x[7] * fval[2];
    alam = x[3] * v[2];
    cheb24[4] = cheb12[4] + alam;
    cheb24[20] = cheb12[4] - alam;
    alam = x[7] * fval[1] - fval[3];
    cheb24[8] = cheb12[8] + alam;
    cheb24[16] = cheb12[8] - alam;
    cheb12[0] = fval[0] + fval[2];
    alam = fval[1] + fval[3];
    cheb24[0] = cheb12[0] + alam;
    cheb24[24] = cheb12[0] - alam;
    cheb12[12] = v[1] - v[3];
    cheb24[12] = cheb12[12];
    alam = 1.0 / 6.0;
    for (int i = 2; i <= 12; ++i) {
        cheb12[i - 1] = cheb12[i - 1] * alam;
    }
    alam = 0.5 * alam;
    cheb12[0] = cheb12[0] * alam;
    cheb12[12] = cheb12[12] * alam;
    for (int i = 2; i <= 24; ++i) {
        cheb24[i - 1] = cheb24[i - 1] * alam;
    }
    cheb24[0] = 0.5 * alam * cheb24[0];
    cheb24[24] = 0.5 * alam * cheb24[24];
}

}  // namespace lbx::calculus
