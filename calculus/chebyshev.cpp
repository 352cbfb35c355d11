// DQCHEB, the Chebyshev series of the modified Clenshaw-Curtis rules, in the
// published order of operations.
#include "calculus/weighted.hpp"

namespace lbx::calculus {

// DQCHEB: the Chebyshev series of degrees 12 and 24 of the function whose
// values at cos(k pi / 24), k = 0..24, are fval(1..25). 1-based as published;
// fval is overwritten.
void chebyshev_series(double* fval1, double* cheb12_1, double* cheb24_1)
{
    const double* x = xcos - 1;
    double* fval = fval1 - 1;
    double* cheb12 = cheb12_1 - 1;
    double* cheb24 = cheb24_1 - 1;
    double v[13];
    for (int i = 1; i <= 12; ++i) {
        const int j = 26 - i;
        v[i] = fval[i] - fval[j];
        fval[i] = fval[i] + fval[j];
    }
    double alam1 = v[1] - v[9];
    double alam2 = x[6] * (v[3] - v[7] - v[11]);
    cheb12[4] = alam1 + alam2;
    cheb12[10] = alam1 - alam2;
    alam1 = v[2] - v[8] - v[10];
    alam2 = v[4] - v[6] - v[12];
    double alam = x[3] * alam1 + x[9] * alam2;
    cheb24[4] = cheb12[4] + alam;
    cheb24[22] = cheb12[4] - alam;
    alam = x[9] * alam1 - x[3] * alam2;
    cheb24[10] = cheb12[10] + alam;
    cheb24[16] = cheb12[10] - alam;
    const double part1 = x[4] * v[5];
    const double part2 = x[8] * v[9];
    const double part3 = x[6] * v[7];
    alam1 = v[1] + part1 + part2;
    alam2 = x[2] * v[3] + part3 + x[10] * v[11];
    cheb12[2] = alam1 + alam2;
    cheb12[12] = alam1 - alam2;
    alam = x[1] * v[2] + x[3] * v[4] + x[5] * v[6] + x[7] * v[8] + x[9] * v[10] + x[11] * v[12];
    cheb24[2] = cheb12[2] + alam;
    cheb24[24] = cheb12[2] - alam;
    alam = x[11] * v[2] - x[9] * v[4] + x[7] * v[6] - x[5] * v[8] + x[3] * v[10] - x[1] * v[12];
    cheb24[12] = cheb12[12] + alam;
    cheb24[14] = cheb12[12] - alam;
    alam1 = v[1] - part1 + part2;
    alam2 = x[10] * v[3] - part3 + x[2] * v[11];
    cheb12[6] = alam1 + alam2;
    cheb12[8] = alam1 - alam2;
    alam = x[5] * v[2] - x[9] * v[4] - x[1] * v[6] - x[11] * v[8] + x[3] * v[10] + x[7] * v[12];
    cheb24[6] = cheb12[6] + alam;
    cheb24[20] = cheb12[6] - alam;
    alam = x[7] * v[2] - x[3] * v[4] - x[11] * v[6] + x[1] * v[8] - x[9] * v[10] - x[5] * v[12];
    cheb24[8] = cheb12[8] + alam;
    cheb24[18] = cheb12[8] - alam;
    for (int i = 1; i <= 6; ++i) {
        const int j = 14 - i;
        v[i] = fval[i] - fval[j];
        fval[i] = fval[i] + fval[j];
    }
    alam1 = v[1] + x[8] * v[5];
    alam2 = x[4] * v[3];
    cheb12[3] = alam1 + alam2;
    cheb12[11] = alam1 - alam2;
    cheb12[7] = v[1] - v[5];
    alam = x[2] * v[2] + x[6] * v[4] + x[10] * v[6];
    cheb24[3] = cheb12[3] + alam;
    cheb24[23] = cheb12[3] - alam;
    alam = x[6] * (v[2] - v[4] - v[6]);
    cheb24[7] = cheb12[7] + alam;
    cheb24[19] = cheb12[7] - alam;
    alam = x[10] * v[2] - x[6] * v[4] + x[2] * v[6];
    cheb24[11] = cheb12[11] + alam;
    cheb24[15] = cheb12[11] - alam;
    for (int i = 1; i <= 3; ++i) {
        const int j = 8 - i;
        v[i] = fval[i] - fval[j];
        fval[i] = fval[i] + fval[j];
    }
    cheb12[5] = v[1] + x[8] * v[3];
    cheb12[9] = fval[1] - x[8] * fval[3];
    alam = x[4] * v[2];
    cheb24[5] = cheb12[5] + alam;
    cheb24[21] = cheb12[5] - alam;
    alam = x[8] * fval[2] - fval[4];
    cheb24[9] = cheb12[9] + alam;
    cheb24[17] = cheb12[9] - alam;
    cheb12[1] = fval[1] + fval[3];
    alam = fval[2] + fval[4];
    cheb24[1] = cheb12[1] + alam;
    cheb24[25] = cheb12[1] - alam;
    cheb12[13] = v[1] - v[3];
    cheb24[13] = cheb12[13];
    alam = 1.0 / 6.0;
    for (int i = 2; i <= 12; ++i) {
        cheb12[i] = cheb12[i] * alam;
    }
    alam = 0.5 * alam;
    cheb12[1] = cheb12[1] * alam;
    cheb12[13] = cheb12[13] * alam;
    for (int i = 2; i <= 24; ++i) {
        cheb24[i] = cheb24[i] * alam;
    }
    cheb24[1] = 0.5 * alam * cheb24[1];
    cheb24[25] = 0.5 * alam * cheb24[25];
}

}  // namespace lbx::calculus
