// C06PAF and C06PCF: one real or complex sequence, in place.
//
// Checks, in order: N >= 1, then DIRECT.  Both directions are scaled by
// 1/sqrt(N) in one pass after the transform.  C06PAF's Hermitian result is in
// CCS packing, which is FFTW's in-place real-to-complex layout in the N+2
// elements of X: X(2k+1), X(2k+2) = real and imaginary part of z(k).
#include <cmath>

#include "fft/checks.hpp"
#include "fft/plans.hpp"
#include "gen/fft.hpp"

namespace lbx::fft {

void C06PAFN(char direct, double* x, int n, double* work, lbx::Fail& fail)
{
    using Msg = C06PAF_msg;
    if (n < 1) {
        fail(Msg::N_LT_1, n);
        return;
    }
    if (!direct_valid(direct)) {
        fail(Msg::DIRECT_BAD, direct);
        return;
    }
    if (n == 1) {
        x[1] = 0.0;
        x[2] = 0.0;
        work[0] = 1.0;
        return;
    }
    const bool forward = direct == 'F' || direct == 'f';
    const double s = 1.0 / std::sqrt(static_cast<double>(n));
    Problem p;
    p.dims = {{n, 1, 1}};
    p.kind = forward ? Kind::r2c : Kind::c2r;
    if (!execute(p, x, x)) {
        fail(Msg::INTERNAL);
        return;
    }
    if (forward) {
        scale(x, 2 * (n / 2 + 1), s);
    } else {
        scale(x, n, s);
        x[n] = 0.0;
    }
    work[0] = 1.0;
}

void C06PCFN(char direct, lbx::Complex* x, int n, lbx::Complex* work, lbx::Fail& fail)
{
    using Msg = C06PCF_msg;
    if (n < 1) {
        fail(Msg::N_LT_1, n);
        return;
    }
    if (!direct_valid(direct)) {
        fail(Msg::DIRECT_BAD, direct);
        return;
    }
    const bool forward = direct == 'F' || direct == 'f';
    Problem p;
    p.sign = forward ? -1 : 1;
    p.dims = {{n, 1, 1}};
    if (!execute(p, x, x)) {
        fail(Msg::INTERNAL);
        return;
    }
    scale(reinterpret_cast<double*>(x), 2 * static_cast<std::size_t>(n),
          1.0 / std::sqrt(static_cast<double>(n)));
    work[0] = 1.0;
}

}  // namespace lbx::fft
