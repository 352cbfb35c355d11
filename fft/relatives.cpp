// The relatives of C06PAF and C06PCF: several sequences, one selected
// dimension, two, three and more dimensions, convolution and correlation.
//
// Checks run in the order of the catalogue's messages (each routine's
// dimensions in argument order, then DIRECT); the transform stage is the
// shared plan cache (fft/plans.hpp); every transform of length n is scaled by
// 1/sqrt(n), n the product of the transformed lengths.
#include <cstdint>
#include <cstring>
#include <new>
#include <vector>

#include "fft/checks.hpp"
#include "fft/plans.hpp"
#include "gen/fft.hpp"

namespace lbx::fft {

namespace {

double* reals(lbx::Complex* z)
{
    return reinterpret_cast<double*>(z);
}

// In-place complex transform of x, scaled; false when there is no plan.
bool complex_in_place(const Problem& p, lbx::Complex* x, std::size_t count, double points,
                      Effort effort = Effort::policy)
{
    if (!execute(p, x, x, effort))
        return false;
    scale(reals(x), 2 * count, unit_scale(points));
    return true;
}

// The complex-data checks of the shapes with WORK: dimensions, then DIRECT.
template <class Msg, class... Checks>
bool dims_ok(lbx::Fail& fail, char direct, Checks... checks)
{
    bool ok = true;
    const auto one = [&](int value, const auto& message) {
        if (ok && value < 1) {
            fail(message, value);
            ok = false;
        }
    };
    (one(checks.first, checks.second), ...);
    if (ok && !direct_valid(direct)) {
        fail(Msg::DIRECT_BAD, direct);
        ok = false;
    }
    return ok;
}

template <class M>
struct Check {
    int first;
    M second;
};
template <class M>
Check(int, M) -> Check<M>;

// Real sequences of length n, m of them: element k of sequence j at
// x[j*jump + k*step].  Forward: CCS of each in the same places; backward the
// reverse.  work holds m*(n/2+1) complex values.
bool real_sequences(bool forward, int n, int m, double* x, int step, int jump, double* work)
{
    const int h = n / 2 + 1;
    const double s = unit_scale(n);
    auto* w = reinterpret_cast<lbx::Complex*>(work);
    Problem p;
    if (forward) {
        p.kind = Kind::r2c;
        p.dims = {{n, step, 1}};
        p.loops = {{m, jump, h}};
        if (!execute(p, x, w))
            return false;
        for (int j = 0; j < m; ++j)
            for (int k = 0; k < h; ++k) {
                x[j * jump + 2 * k * step] = s * w[j * h + k].real();
                x[j * jump + (2 * k + 1) * step] = s * w[j * h + k].imag();
            }
        return true;
    }
    for (int j = 0; j < m; ++j)
        for (int k = 0; k < h; ++k)
            w[j * h + k] = {s * x[j * jump + 2 * k * step], s * x[j * jump + (2 * k + 1) * step]};
    p.kind = Kind::c2r;
    p.dims = {{n, 1, step}};
    p.loops = {{m, h, jump}};
    if (!execute(p, w, x))
        return false;
    for (int j = 0; j < m; ++j)
        x[j * jump + n * step] = 0.0;
    return true;
}

// Column-major dimensions (fastest first) as FFTW's (slowest first), contiguous.
std::vector<Dim> contiguous(const int* nd, int ndim)
{
    std::vector<Dim> dims(ndim);
    int stride = 1;
    for (int i = 0; i < ndim; ++i) {
        dims[ndim - 1 - i] = {nd[i], stride, stride};
        stride *= nd[i];
    }
    return dims;
}

// Real data of dimensions nd (column-major) to the Hermitian half, whose first
// dimension is nd[0]/2+1, or back.
bool real_multi(bool forward, const int* nd, int ndim, double* x, lbx::Complex* y)
{
    const int h = nd[0] / 2 + 1;
    std::vector<Dim> dims(ndim);
    int rs = 1, cs = 1;
    for (int i = 0; i < ndim; ++i) {
        const int is = forward ? rs : cs, os = forward ? cs : rs;
        dims[ndim - 1 - i] = {nd[i], is, os};
        rs *= nd[i];
        cs *= i == 0 ? h : nd[i];
    }
    Problem p;
    p.dims = dims;
    const double s = unit_scale(static_cast<double>(rs));
    if (forward) {
        p.kind = Kind::r2c;
        if (!execute(p, x, y))
            return false;
        scale(reals(y), 2 * static_cast<std::size_t>(cs), s);
        return true;
    }
    // The backward transform overwrites its input: it works on a copy of y.
    std::vector<lbx::Complex> copy(y, y + cs);
    p.kind = Kind::c2r;
    if (!execute(p, copy.data(), x))
        return false;
    scale(x, static_cast<std::size_t>(rs), s);
    return true;
}

// ND(1..NDIM) >= 1 and N their product, with the routine's messages.
template <class Msg>
bool nd_ok(int ndim, const int* nd, int n, lbx::Fail& fail)
{
    std::int64_t product = 1;
    for (int i = 0; i < ndim; ++i) {
        if (nd[i] < 1) {
            fail(Msg::ND_LT_1, i + 1, nd[i]);
            return false;
        }
        product = product > INT32_MAX ? product : product * nd[i];
    }
    if (product != n) {
        fail(Msg::N_NOT_PRODUCT, n, product > INT32_MAX ? INT32_MAX : static_cast<int>(product));
        return false;
    }
    return true;
}

}  // namespace

void C06PFFN(int iemode, char direct, int ndim, int l, const int* nd, int n, lbx::Complex* x,
             lbx::Complex* work, int lwork, lbx::Fail& fail)
{
    using Msg = C06PFF_msg;
    if (iemode < 0 || iemode > 2)
        return fail(Msg::IEMODE_BAD, iemode);
    if (ndim < 1)
        return fail(Msg::NDIM_LT_1, ndim);
    if (l < 1 || l > ndim)
        return fail(Msg::L_RANGE, l, ndim);
    if (!nd_ok<Msg>(ndim, nd, n, fail))
        return;
    if (lwork < 1)
        return fail(Msg::LWORK_SMALL, lwork);
    if (!direct_valid(direct))
        return fail(Msg::DIRECT_BAD, direct);
    int before = 1, after = 1;
    for (int i = 0; i < l - 1; ++i)
        before *= nd[i];
    for (int i = l; i < ndim; ++i)
        after *= nd[i];
    const int len = nd[l - 1];
    Problem p;
    p.sign = is_forward(direct) ? -1 : 1;
    p.dims = {{len, before, before}};
    p.loops = {{after, before * len, before * len}, {before, 1, 1}};
    if (!complex_in_place(p, x, n, len, static_cast<Effort>(iemode)))
        return fail(Msg::INTERNAL);
    work[0] = 1.0;
}

void C06PJFN(int iemode, char direct, int ndim, const int* nd, int n, lbx::Complex* x,
             lbx::Complex* work, int lwork, lbx::Fail& fail)
{
    using Msg = C06PJF_msg;
    if (iemode < 0 || iemode > 2)
        return fail(Msg::IEMODE_BAD, iemode);
    if (ndim < 1)
        return fail(Msg::NDIM_LT_1, ndim);
    if (!nd_ok<Msg>(ndim, nd, n, fail))
        return;
    if (lwork < 1)
        return fail(Msg::LWORK_SMALL, lwork);
    if (!direct_valid(direct))
        return fail(Msg::DIRECT_BAD, direct);
    Problem p;
    p.sign = is_forward(direct) ? -1 : 1;
    p.dims = contiguous(nd, ndim);
    if (!complex_in_place(p, x, n, n, static_cast<Effort>(iemode)))
        return fail(Msg::INTERNAL);
    work[0] = 1.0;
}

void C06PKFN(int job, lbx::Complex* x, const lbx::Complex* y, int n, lbx::Complex* work,
             lbx::Fail& fail)
{
    using Msg = C06PKF_msg;
    if (n < 1)
        return fail(Msg::N_LT_1, n);
    if (job != 1 && job != 2)
        return fail(Msg::JOB_BAD, job);
    std::memcpy(static_cast<void*>(work), y, sizeof(lbx::Complex) * n);
    Problem p;
    p.dims = {{n, 1, 1}};
    if (!execute(p, x, x) || !execute(p, work, work))
        return fail(Msg::INTERNAL);
    const double s = 1.0 / n;
    for (int k = 0; k < n; ++k)
        x[k] = (job == 1 ? x[k] : std::conj(x[k])) * work[k] * s;
    p.sign = 1;
    if (!execute(p, x, x))
        return fail(Msg::INTERNAL);
}

void C06PPFN(char direct, int m, int n, double* x, double* work, lbx::Fail& fail)
{
    using Msg = C06PPF_msg;
    if (!dims_ok<Msg>(fail, direct, Check{m, Msg::M_LT_1}, Check{n, Msg::N_LT_1}))
        return;
    if (!real_sequences(is_forward(direct), n, m, x, m, 1, work))
        fail(Msg::INTERNAL);
}

void C06PQFN(char direct, int n, int m, double* x, double* work, lbx::Fail& fail)
{
    using Msg = C06PQF_msg;
    if (!dims_ok<Msg>(fail, direct, Check{n, Msg::N_LT_1}, Check{m, Msg::M_LT_1}))
        return;
    if (!real_sequences(is_forward(direct), n, m, x, 1, n + 2, work))
        fail(Msg::INTERNAL);
}

void C06PRFN(char direct, int m, int n, lbx::Complex* x, lbx::Complex* work, lbx::Fail& fail)
{
    using Msg = C06PRF_msg;
    if (!dims_ok<Msg>(fail, direct, Check{m, Msg::M_LT_1}, Check{n, Msg::N_LT_1}))
        return;
    Problem p;
    p.sign = is_forward(direct) ? -1 : 1;
    p.dims = {{n, m, m}};
    p.loops = {{m, 1, 1}};
    if (!complex_in_place(p, x, static_cast<std::size_t>(m) * n, n))
        return fail(Msg::INTERNAL);
    work[0] = 1.0;
}

void C06PSFN(char direct, int n, int m, lbx::Complex* x, lbx::Complex* work, lbx::Fail& fail)
{
    using Msg = C06PSF_msg;
    if (!dims_ok<Msg>(fail, direct, Check{n, Msg::N_LT_1}, Check{m, Msg::M_LT_1}))
        return;
    Problem p;
    p.sign = is_forward(direct) ? -1 : 1;
    p.dims = {{n, 1, 1}};
    p.loops = {{m, n, n}};
    if (!complex_in_place(p, x, static_cast<std::size_t>(m) * n, n))
        return fail(Msg::INTERNAL);
    work[0] = 1.0;
}

void C06PUFN(char direct, int m, int n, lbx::Complex* x, lbx::Complex* work, lbx::Fail& fail)
{
    using Msg = C06PUF_msg;
    if (!dims_ok<Msg>(fail, direct, Check{m, Msg::M_LT_1}, Check{n, Msg::N_LT_1}))
        return;
    const int nd[2] = {m, n};
    Problem p;
    p.sign = is_forward(direct) ? -1 : 1;
    p.dims = contiguous(nd, 2);
    const std::size_t count = static_cast<std::size_t>(m) * n;
    if (!complex_in_place(p, x, count, static_cast<double>(count)))
        return fail(Msg::INTERNAL);
    work[0] = 1.0;
}

void C06PXFN(char direct, int n1, int n2, int n3, lbx::Complex* x, lbx::Complex* work,
             lbx::Fail& fail)
{
    using Msg = C06PXF_msg;
    if (!dims_ok<Msg>(fail, direct, Check{n1, Msg::N1_LT_1}, Check{n2, Msg::N2_LT_1},
                      Check{n3, Msg::N3_LT_1}))
        return;
    const int nd[3] = {n1, n2, n3};
    Problem p;
    p.sign = is_forward(direct) ? -1 : 1;
    p.dims = contiguous(nd, 3);
    const std::size_t count = static_cast<std::size_t>(n1) * n2 * n3;
    if (!complex_in_place(p, x, count, static_cast<double>(count)))
        return fail(Msg::INTERNAL);
    work[0] = 1.0;
}

void C06PVFN(int m, int n, const double* x, lbx::Complex* y, lbx::Fail& fail)
{
    using Msg = C06PVF_msg;
    if (m < 1)
        return fail(Msg::M_LT_1, m);
    if (n < 1)
        return fail(Msg::N_LT_1, n);
    const int nd[2] = {m, n};
    if (!real_multi(true, nd, 2, const_cast<double*>(x), y))
        fail(Msg::INTERNAL);
}

void C06PWFN(int m, int n, const lbx::Complex* y, double* x, lbx::Fail& fail)
{
    using Msg = C06PWF_msg;
    if (m < 1)
        return fail(Msg::M_LT_1, m);
    if (n < 1)
        return fail(Msg::N_LT_1, n);
    const int nd[2] = {m, n};
    if (!real_multi(false, nd, 2, x, const_cast<lbx::Complex*>(y)))
        fail(Msg::INTERNAL);
}

void C06PYFN(int n1, int n2, int n3, const double* x, lbx::Complex* y, lbx::Fail& fail)
{
    using Msg = C06PYF_msg;
    if (n1 < 1)
        return fail(Msg::N1_LT_1, n1);
    if (n2 < 1)
        return fail(Msg::N2_LT_1, n2);
    if (n3 < 1)
        return fail(Msg::N3_LT_1, n3);
    const int nd[3] = {n1, n2, n3};
    if (!real_multi(true, nd, 3, const_cast<double*>(x), y))
        fail(Msg::INTERNAL);
}

void C06PZFN(int n1, int n2, int n3, const lbx::Complex* y, double* x, lbx::Fail& fail)
{
    using Msg = C06PZF_msg;
    if (n1 < 1)
        return fail(Msg::N1_LT_1, n1);
    if (n2 < 1)
        return fail(Msg::N2_LT_1, n2);
    if (n3 < 1)
        return fail(Msg::N3_LT_1, n3);
    const int nd[3] = {n1, n2, n3};
    if (!real_multi(false, nd, 3, x, const_cast<lbx::Complex*>(y)))
        fail(Msg::INTERNAL);
}

}  // namespace lbx::fft
