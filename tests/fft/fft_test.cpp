// The fast Fourier transforms against a direct DFT in long double, analytic
// transforms of large sizes, round trips, the CCS layout, the edge cases, the
// plan cache and concurrent calls, and every catalogue message.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <cstdint>
#include <cstring>
#include <functional>
#include <numbers>
#include <thread>
#include <vector>

#include <fftw3.h>

#include "fft/plans.hpp"
#include "gen/fft.hpp"
#include "lbx3207qk.h"
#include "tests/support/messages.hpp"

namespace {

using cd = std::complex<double>;
using cl = std::complex<long double>;
using namespace lbx::fft;

// Direct DFT of a column-major array of dimensions nd, over the dimensions
// with mask bit set, exponent sign `sign`, scaled by 1/sqrt(points).
std::vector<cl> direct_dft(const std::vector<cl>& x, const std::vector<int>& nd, int sign,
                           unsigned mask = ~0u)
{
    std::vector<cl> cur = x;
    int stride = 1;
    for (std::size_t d = 0; d < nd.size(); ++d) {
        const int n = nd[d];
        if (mask >> d & 1u) {
            std::vector<cl> next(cur.size());
            const long double s = 1.0L / std::sqrt(static_cast<long double>(n));
            for (std::size_t base = 0; base < cur.size(); ++base) {
                if ((base / stride) % n != 0)
                    continue;
                for (int k = 0; k < n; ++k) {
                    cl sum = 0;
                    for (int j = 0; j < n; ++j) {
                        const long double a = sign * 2.0L * std::numbers::pi_v<long double> *
                                              ((static_cast<long long>(j) * k) % n) / n;
                        sum += cur[base + j * stride] * cl(std::cos(a), std::sin(a));
                    }
                    next[base + k * stride] = sum * s;
                }
            }
            cur = next;
        }
        stride *= n;
    }
    return cur;
}

// Data that differs at every point, reproducible.
std::vector<cd> data(std::size_t n, int seed)
{
    std::vector<cd> x(n);
    for (std::size_t i = 0; i < n; ++i)
        x[i] = {std::sin(1.0 + 0.7 * i + seed), std::cos(0.3 * i * i + 2.0 * seed)};
    return x;
}

std::vector<cl> widen(const std::vector<cd>& x)
{
    return {x.begin(), x.end()};
}

// max |a - b| / max |b| over the arrays.
template <class A>
double rel_error(const A& a, const std::vector<cl>& b)
{
    long double err = 0, big = 1e-300L;
    for (std::size_t i = 0; i < b.size(); ++i) {
        err = std::max(err, std::abs(cl(a[i]) - b[i]));
        big = std::max(big, std::abs(b[i]));
    }
    return static_cast<double>(err / big);
}

constexpr double tol = 1e-14;

struct Call {
    char errbuf[200];
    int ifail = 0;
};

TEST(Fft, C06PafAgainstDirectDftForEveryNUpTo64)
{
    for (int n = 1; n <= 64; ++n) {
        const std::vector<cd> z = data(n, n);
        std::vector<double> x(n + 2, -7.0), work(1, 0.0);
        std::vector<cl> ref(n);
        for (int i = 0; i < n; ++i)
            ref[i] = x[i] = z[i].real();
        Call c;
        c06paft_("F", x.data(), &n, work.data(), c.errbuf, &c.ifail, 1, 200);
        ASSERT_EQ(c.ifail, 0);
        EXPECT_EQ(work[0], 1.0);
        const std::vector<cl> want = direct_dft(ref, {n}, -1);
        std::vector<cd> got(n / 2 + 1);
        std::vector<cl> half(n / 2 + 1);
        for (int k = 0; k <= n / 2; ++k) {
            got[k] = {x[2 * k], x[2 * k + 1]};
            half[k] = want[k];
        }
        EXPECT_LT(rel_error(got, half), tol) << "N = " << n;
        EXPECT_EQ(x[1], 0.0) << "N = " << n;
        if (n % 2 == 0) {
            EXPECT_EQ(x[n + 1], 0.0) << "N = " << n;
        }
        // Backward: the CCS of a Hermitian sequence back to the reals.
        c06paft_("B", x.data(), &n, work.data(), c.errbuf, &c.ifail, 1, 200);
        ASSERT_EQ(c.ifail, 0);
        std::vector<cd> back(x.begin(), x.begin() + n);
        EXPECT_LT(rel_error(back, ref), tol) << "N = " << n;
        if (n > 1) {
            EXPECT_EQ(x[n], 0.0) << "N = " << n;
        }
    }
}

TEST(Fft, C06PafBackwardAgainstDirectDft)
{
    for (int n = 2; n <= 64; ++n) {
        // A Hermitian sequence from its half: z(0) and z(n/2) (n even) real.
        const std::vector<cd> h = data(n / 2 + 1, 3 * n);
        std::vector<cl> full(n);
        std::vector<double> x(n + 2);
        for (int k = 0; k <= n / 2; ++k) {
            cd v = h[k];
            if (k == 0 || 2 * k == n)
                v = {v.real(), 0.0};
            x[2 * k] = v.real();
            x[2 * k + 1] = v.imag();
            full[k] = v;
            full[(n - k) % n] = std::conj(cl(v));
        }
        std::vector<double> work(1);
        Call c;
        c06paft_("b", x.data(), &n, work.data(), c.errbuf, &c.ifail, 1, 200);
        ASSERT_EQ(c.ifail, 0);
        const std::vector<cl> want = direct_dft(full, {n}, +1);
        std::vector<cd> got(x.begin(), x.begin() + n);
        EXPECT_LT(rel_error(got, want), tol) << "N = " << n;
    }
}

TEST(Fft, C06PcfAgainstDirectDftForEveryNUpTo64)
{
    for (int n = 1; n <= 64; ++n) {
        for (const char* direct : {"F", "f", "B", "b"}) {
            std::vector<cd> x = data(n, n + 1);
            const std::vector<cl> want =
                direct_dft(widen(x), {n}, *direct == 'F' || *direct == 'f' ? -1 : 1);
            std::vector<cd> work(1);
            Call c;
            c06pcft_(direct, x.data(), &n, work.data(), c.errbuf, &c.ifail, 1, 200);
            ASSERT_EQ(c.ifail, 0);
            EXPECT_LT(rel_error(x, want), tol) << "N = " << n << " " << direct;
            EXPECT_EQ(work[0], cd(1.0, 0.0));
        }
    }
}

// Data only 8-byte aligned (as a Fortran array may be) gets a plan of its own
// alignment: the same transform as aligned data, to rounding.
TEST(Fft, EightByteAlignedData)
{
    for (int n : {16, 30, 1024}) {
        std::vector<double> buffer(2 * n + 8);
        double* odd =
            buffer.data() + (reinterpret_cast<std::uintptr_t>(buffer.data()) % 16 == 0 ? 1 : 0);
        const std::vector<cd> z = data(n, 4);
        const std::vector<cl> want = direct_dft(widen(z), {n}, -1);
        for (int rep = 0; rep < 3; ++rep) {  // estimated, then measured plans
            auto* x = reinterpret_cast<cd*>(odd);
            std::copy(z.begin(), z.end(), x);
            cd work[1];
            Call c;
            c06pcft_("F", x, &n, work, c.errbuf, &c.ifail, 1, 200);
            ASSERT_EQ(c.ifail, 0);
            EXPECT_LT(rel_error(std::vector<cd>(x, x + n), want), tol) << n;
            std::vector<cl> reals(n);
            for (int i = 0; i < n; ++i)
                reals[i] = odd[i] = z[i].real();
            const std::vector<cl> rwant = direct_dft(reals, {n}, -1);
            double rwork[1];
            c06paft_("F", odd, &n, rwork, c.errbuf, &c.ifail, 1, 200);
            ASSERT_EQ(c.ifail, 0);
            std::vector<cd> got(n / 2 + 1);
            for (int k = 0; k <= n / 2; ++k)
                got[k] = {odd[2 * k], odd[2 * k + 1]};
            EXPECT_LT(rel_error(got, std::vector<cl>(rwant.begin(), rwant.begin() + n / 2 + 1)),
                      tol)
                << n;
        }
    }
}

// Analytic transforms: a pure frequency m is sqrt(N) at k = m and 0 elsewhere.
TEST(Fft, AnalyticLargeN)
{
    for (int n : {1 << 20, 3 * 5 * 7 * 1024, 999983}) {
        const int m = 12345 % n;
        std::vector<cd> x(n), work(1);
        for (int j = 0; j < n; ++j) {
            const long double a =
                2.0L * std::numbers::pi_v<long double> * ((static_cast<long long>(m) * j) % n) / n;
            x[j] = {static_cast<double>(std::cos(a)), static_cast<double>(std::sin(a))};
        }
        Call c;
        c06pcft_("F", x.data(), &n, work.data(), c.errbuf, &c.ifail, 1, 200);
        ASSERT_EQ(c.ifail, 0);
        double off = 0;
        for (int k = 0; k < n; ++k)
            if (k != m)
                off = std::max(off, std::abs(x[k]));
        EXPECT_NEAR(x[m].real(), std::sqrt(static_cast<double>(n)), 1e-9) << n;
        EXPECT_NEAR(x[m].imag(), 0.0, 1e-9) << n;
        EXPECT_LT(off, 1e-9) << n;
        // Real: cos(2 pi m j / N) is sqrt(N)/2 at k = m in CCS.
        std::vector<double> r(n + 2);
        for (int j = 0; j < n; ++j)
            r[j] = std::cos(2.0 * std::numbers::pi * ((static_cast<long long>(m) * j) % n) / n);
        std::vector<double> rw(1);
        c06paft_("F", r.data(), &n, rw.data(), c.errbuf, &c.ifail, 1, 200);
        ASSERT_EQ(c.ifail, 0);
        EXPECT_NEAR(r[2 * m], std::sqrt(static_cast<double>(n)) / 2, 1e-9) << n;
        double roff = 0;
        for (int i = 0; i < 2 * (n / 2 + 1); ++i)
            if (i != 2 * m)
                roff = std::max(roff, std::abs(r[i]));
        EXPECT_LT(roff, 1e-9) << n;
    }
}

TEST(Fft, RoundTripsLarge)
{
    for (int n : {1 << 16, 1000, 999979}) {  // shapes seen once: estimated plans
        const std::vector<cd> z = data(n, 5);
        std::vector<cd> x = z, work(1);
        Call c;
        c06pcft_("F", x.data(), &n, work.data(), c.errbuf, &c.ifail, 1, 200);
        c06pcft_("B", x.data(), &n, work.data(), c.errbuf, &c.ifail, 1, 200);
        EXPECT_LT(rel_error(x, widen(z)), 1e-13) << n;
        std::vector<double> r(n + 2), rw(1);
        for (int i = 0; i < n; ++i)
            r[i] = z[i].real();
        c06paft_("F", r.data(), &n, rw.data(), c.errbuf, &c.ifail, 1, 200);
        c06paft_("B", r.data(), &n, rw.data(), c.errbuf, &c.ifail, 1, 200);
        double err = 0;
        for (int i = 0; i < n; ++i)
            err = std::max(err, std::abs(r[i] - z[i].real()));
        EXPECT_LT(err, 1e-13) << n;
        EXPECT_EQ(r[n], 0.0);
    }
}

TEST(Fft, C06PafNEqualsOne)
{
    for (const char* direct : {"F", "B"}) {
        double x[4] = {2.5, 9.0, 9.0, 9.0}, work[1] = {0};
        int n = 1;
        Call c;
        c06paft_(direct, x, &n, work, c.errbuf, &c.ifail, 1, 200);
        EXPECT_EQ(c.ifail, 0);
        EXPECT_EQ(x[0], 2.5);
        EXPECT_EQ(x[1], 0.0);
        EXPECT_EQ(x[2], 0.0);
        EXPECT_EQ(x[3], 9.0);
        EXPECT_EQ(work[0], 1.0);
    }
}

// Several sequences and several dimensions, against the direct DFT.
TEST(Fft, RelativesAgainstDirectDft)
{
    for (int m : {1, 2, 3, 5}) {
        for (int n : {1, 2, 3, 4, 7, 8, 12, 15}) {
            const int sgn[2] = {-1, 1};
            for (int d = 0; d < 2; ++d) {
                const char* direct = d == 0 ? "F" : "B";
                Call c;
                // C06PRF: rows of X(M,N) are the sequences; C06PSF: columns of X(N,M).
                std::vector<cd> x = data(m * n, m + n), w(1);
                std::vector<cl> want = direct_dft(widen(x), {m, n}, sgn[d], 2u);
                c06prft_(direct, &m, &n, x.data(), w.data(), c.errbuf, &c.ifail, 1, 200);
                ASSERT_EQ(c.ifail, 0);
                EXPECT_LT(rel_error(x, want), tol) << "C06PRF " << m << " " << n;
                x = data(m * n, m + n);
                want = direct_dft(widen(x), {n, m}, sgn[d], 1u);
                c06psft_(direct, &n, &m, x.data(), w.data(), c.errbuf, &c.ifail, 1, 200);
                ASSERT_EQ(c.ifail, 0);
                EXPECT_LT(rel_error(x, want), tol) << "C06PSF " << m << " " << n;
                x = data(m * n, m + n);
                want = direct_dft(widen(x), {m, n}, sgn[d]);
                c06puft_(direct, &m, &n, x.data(), w.data(), c.errbuf, &c.ifail, 1, 200);
                ASSERT_EQ(c.ifail, 0);
                EXPECT_LT(rel_error(x, want), tol) << "C06PUF " << m << " " << n;
                int n3 = 3;
                x = data(m * n * n3, m + n);
                want = direct_dft(widen(x), {m, n, n3}, sgn[d]);
                c06pxft_(direct, &m, &n, &n3, x.data(), w.data(), c.errbuf, &c.ifail, 1, 200);
                ASSERT_EQ(c.ifail, 0);
                EXPECT_LT(rel_error(x, want), tol) << "C06PXF " << m << " " << n;
                // C06PJF and C06PFF over (M, N, 2).
                int ndim = 3, nd[3] = {m, n, 2}, total = 2 * m * n, lwork = 1;
                for (int iemode : {0, 1, 2}) {
                    x = data(total, iemode);
                    want = direct_dft(widen(x), {m, n, 2}, sgn[d]);
                    c06pjft_(&iemode, direct, &ndim, nd, &total, x.data(), w.data(), &lwork,
                             c.errbuf, &c.ifail, 1, 200);
                    ASSERT_EQ(c.ifail, 0);
                    EXPECT_LT(rel_error(x, want), tol) << "C06PJF " << m << " " << n;
                    for (int l = 1; l <= 3; ++l) {
                        x = data(total, l);
                        want = direct_dft(widen(x), {m, n, 2}, sgn[d], 1u << (l - 1));
                        c06pfft_(&iemode, direct, &ndim, &l, nd, &total, x.data(), w.data(), &lwork,
                                 c.errbuf, &c.ifail, 1, 200);
                        ASSERT_EQ(c.ifail, 0);
                        EXPECT_LT(rel_error(x, want), tol)
                            << "C06PFF " << m << " " << n << " " << l;
                    }
                }
            }
        }
    }
}

// Every relative for every N from 1 to 64 in one dimension of its data.
TEST(Fft, RelativesForEveryNUpTo64)
{
    for (int n = 1; n <= 64; ++n) {
        Call c;
        int two = 2, one = 1, ndim = 2, lwork = 1, iemode = 0, total = 2 * n;
        std::vector<cd> w(n);
        const auto check = [&](const char* what, const std::vector<cd>& got,
                               const std::vector<cl>& want) {
            ASSERT_EQ(c.ifail, 0) << what << " " << n;
            EXPECT_LT(rel_error(got, want), tol) << what << " N = " << n;
        };
        std::vector<cd> x = data(total, n);
        std::vector<cl> want = direct_dft(widen(x), {2, n}, -1, 2u);
        c06prft_("F", &two, &n, x.data(), w.data(), c.errbuf, &c.ifail, 1, 200);
        check("C06PRF", x, want);
        x = data(total, n);
        want = direct_dft(widen(x), {n, 2}, 1, 1u);
        c06psft_("B", &n, &two, x.data(), w.data(), c.errbuf, &c.ifail, 1, 200);
        check("C06PSF", x, want);
        x = data(total, n);
        want = direct_dft(widen(x), {n, 2}, -1);
        c06puft_("F", &n, &two, x.data(), w.data(), c.errbuf, &c.ifail, 1, 200);
        check("C06PUF", x, want);
        x = data(total, n);
        want = direct_dft(widen(x), {2, one, n}, 1);
        c06pxft_("B", &two, &one, &n, x.data(), w.data(), c.errbuf, &c.ifail, 1, 200);
        check("C06PXF", x, want);
        int nd[2] = {2, n};
        x = data(total, n);
        want = direct_dft(widen(x), {2, n}, -1);
        c06pjft_(&iemode, "F", &ndim, nd, &total, x.data(), w.data(), &lwork, c.errbuf, &c.ifail, 1,
                 200);
        check("C06PJF", x, want);
        x = data(total, n);
        want = direct_dft(widen(x), {2, n}, 1, 2u);
        c06pfft_(&iemode, "B", &ndim, &two, nd, &total, x.data(), w.data(), &lwork, c.errbuf,
                 &c.ifail, 1, 200);
        check("C06PFF", x, want);
        // C06PVF and C06PWF: real (N, 2) to its half (N/2+1, 2) and back.
        std::vector<double> r(total), back(total);
        std::vector<cl> wide(total);
        for (int i = 0; i < total; ++i)
            wide[i] = r[i] = x[i].real();
        const std::vector<double> r_in = r;
        want = direct_dft(wide, {n, 2}, -1);
        std::vector<cd> y((n / 2 + 1) * 2);
        std::vector<cl> half;
        for (int i = 0; i < total; ++i)
            if (i % n <= n / 2)
                half.push_back(want[i]);
        c06pvft_(&n, &two, r.data(), y.data(), c.errbuf, &c.ifail, 200);
        check("C06PVF", y, half);
        EXPECT_EQ(r, r_in) << "X is input only";
        c06pwft_(&n, &two, y.data(), back.data(), c.errbuf, &c.ifail, 200);
        check("C06PWF", std::vector<cd>(back.begin(), back.end()), wide);
        c06pyft_(&n, &one, &two, r.data(), y.data(), c.errbuf, &c.ifail, 200);
        check("C06PYF", y, half);
        c06pzft_(&n, &one, &two, y.data(), back.data(), c.errbuf, &c.ifail, 200);
        check("C06PZF", std::vector<cd>(back.begin(), back.end()), wide);
    }
}

// Hermitian result of real sequence p, element k, as stored by a layout.
TEST(Fft, RealSequencesInCcs)
{
    for (int m : {1, 2, 3}) {
        for (int n = 1; n <= 64; ++n) {
            const int len = m * (n + 2);
            const std::vector<cd> z = data(len, n);
            for (int rows = 0; rows < 2; ++rows) {
                // rows: C06PPF, X(M,N+2), sequence p in row p; else C06PQF, X(N+2,M).
                const auto at = [&](int p, int i) { return rows ? p + i * m : i + p * (n + 2); };
                std::vector<double> x(len, -3.0), work(len);
                for (int p = 0; p < m; ++p)
                    for (int i = 0; i < n; ++i)
                        x[at(p, i)] = z[p * n + i].real();
                const std::vector<double> in = x;
                Call c;
                if (rows)
                    c06ppft_("F", &m, &n, x.data(), work.data(), c.errbuf, &c.ifail, 1, 200);
                else
                    c06pqft_("F", &n, &m, x.data(), work.data(), c.errbuf, &c.ifail, 1, 200);
                ASSERT_EQ(c.ifail, 0);
                for (int p = 0; p < m; ++p) {
                    std::vector<cl> seq(n);
                    for (int i = 0; i < n; ++i)
                        seq[i] = in[at(p, i)];
                    const std::vector<cl> want = direct_dft(seq, {n}, -1);
                    std::vector<cd> got(n / 2 + 1);
                    std::vector<cl> half(want.begin(), want.begin() + n / 2 + 1);
                    for (int k = 0; k <= n / 2; ++k)
                        got[k] = {x[at(p, 2 * k)], x[at(p, 2 * k + 1)]};
                    EXPECT_LT(rel_error(got, half), tol) << rows << " " << m << " " << n;
                    EXPECT_EQ(x[at(p, 1)], 0.0);
                }
                if (rows)
                    c06ppft_("B", &m, &n, x.data(), work.data(), c.errbuf, &c.ifail, 1, 200);
                else
                    c06pqft_("B", &n, &m, x.data(), work.data(), c.errbuf, &c.ifail, 1, 200);
                ASSERT_EQ(c.ifail, 0);
                for (int p = 0; p < m; ++p) {
                    for (int i = 0; i < n; ++i)
                        EXPECT_NEAR(x[at(p, i)], in[at(p, i)], 1e-14)
                            << rows << " " << m << " " << n;
                    EXPECT_EQ(x[at(p, n)], 0.0);
                }
            }
        }
    }
}

// Real two- and three-dimensional data to the Hermitian half and back.
TEST(Fft, RealMultiDimensional)
{
    for (const std::vector<int>& nd : std::vector<std::vector<int>>{
             {1, 1}, {4, 3}, {5, 2}, {7, 6}, {4, 3, 2}, {3, 5, 4}, {1, 2, 3}}) {
        std::size_t total = 1, half = nd[0] / 2 + 1;
        for (std::size_t i = 0; i < nd.size(); ++i) {
            total *= nd[i];
            half *= i ? nd[i] : 1;
        }
        const std::vector<cd> z = data(total, 9);
        std::vector<double> x(total);
        std::vector<cl> wide(total);
        for (std::size_t i = 0; i < total; ++i)
            wide[i] = x[i] = z[i].real();
        const std::vector<cl> want = direct_dft(wide, nd, -1);
        std::vector<cd> y(half);
        Call c;
        if (nd.size() == 2)
            c06pvft_(&nd[0], &nd[1], x.data(), y.data(), c.errbuf, &c.ifail, 200);
        else
            c06pyft_(&nd[0], &nd[1], &nd[2], x.data(), y.data(), c.errbuf, &c.ifail, 200);
        ASSERT_EQ(c.ifail, 0);
        std::vector<cl> want_half;
        for (std::size_t i = 0; i < total; ++i)
            if (static_cast<int>(i % nd[0]) <= nd[0] / 2)
                want_half.push_back(want[i]);
        EXPECT_LT(rel_error(y, want_half), tol) << nd[0] << " " << nd[1];
        const std::vector<cd> y_in = y;
        std::vector<double> back(total);
        if (nd.size() == 2)
            c06pwft_(&nd[0], &nd[1], y.data(), back.data(), c.errbuf, &c.ifail, 200);
        else
            c06pzft_(&nd[0], &nd[1], &nd[2], y.data(), back.data(), c.errbuf, &c.ifail, 200);
        ASSERT_EQ(c.ifail, 0);
        EXPECT_EQ(y, y_in) << "Y is input only";
        EXPECT_LT(rel_error(back, wide), tol) << nd[0] << " " << nd[1];
    }
}

TEST(Fft, ConvolutionAndCorrelation)
{
    for (int n = 1; n <= 64; ++n) {
        const std::vector<cd> a = data(n, 1), b = data(n, 2);
        for (int job : {1, 2}) {
            std::vector<cl> want(n);
            for (int j = 0; j < n; ++j)
                for (int k = 0; k < n; ++k)
                    want[j] += job == 1 ? cl(a[k]) * cl(b[(j - k + n) % n])
                                        : std::conj(cl(a[k])) * cl(b[(j + k) % n]);
            std::vector<cd> x = a, y = b, w(n);
            Call c;
            c06pkft_(&job, x.data(), y.data(), &n, w.data(), c.errbuf, &c.ifail, 200);
            ASSERT_EQ(c.ifail, 0);
            EXPECT_LT(rel_error(x, want), tol) << n << " " << job;
            EXPECT_EQ(y, b);
        }
    }
}

// A cached call is bit for bit a fresh FFTW plan plus the scaling pass: with
// IEMODE = 1 (estimated plans only) against a plan made here; under the default
// policy, repeated calls with the cached measured plan.
TEST(Fft, CachedPlanBitIdenticalToFreshPlan)
{
    for (int n : {1024, 1000, 4097, 3 * 5 * 7 * 64}) {
        const std::vector<cd> z = data(n, 11);
        std::vector<cd> a = z, b = z, work(1);
        int iemode = 1, ndim = 1, lwork = 1;
        Call c;
        for (int i = 0; i < 2; ++i) {  // the second call finds the plan in the cache
            a = z;
            c06pjft_(&iemode, "F", &ndim, &n, &n, a.data(), work.data(), &lwork, c.errbuf, &c.ifail,
                     1, 200);
        }
        ASSERT_GT(cached_plans(), 0u);
        fftw_plan p = fftw_plan_dft_1d(n, reinterpret_cast<fftw_complex*>(b.data()),
                                       reinterpret_cast<fftw_complex*>(b.data()), FFTW_FORWARD,
                                       FFTW_ESTIMATE);
        fftw_execute(p);
        fftw_destroy_plan(p);
        const double s = 1.0 / std::sqrt(static_cast<double>(n));
        for (cd& v : b)
            v = {v.real() * s, v.imag() * s};
        EXPECT_EQ(std::memcmp(a.data(), b.data(), n * sizeof(cd)), 0) << n;
        // C06PCF under the default policy: the third and the fourth call both
        // run the cached measured plan.
        for (int i = 0; i < 3; ++i) {
            a = z;
            c06pcft_("F", a.data(), &n, work.data(), c.errbuf, &c.ifail, 1, 200);
        }
        b = z;
        c06pcft_("F", b.data(), &n, work.data(), c.errbuf, &c.ifail, 1, 200);
        EXPECT_EQ(std::memcmp(a.data(), b.data(), n * sizeof(cd)), 0) << n;
    }
}

// Calls of different shapes from several threads give the serial results.
TEST(Fft, ConcurrentCallsOfDifferentShapes)
{
    clear_plan_cache();
    const std::vector<int> sizes = {64, 100, 128, 243, 256, 1000, 1024, 4096};
    std::vector<std::vector<cd>> serial(sizes.size());
    for (std::size_t s = 0; s < sizes.size(); ++s) {
        int n = sizes[s];
        serial[s] = data(n, n);
        std::vector<cd> w(1);
        Call c;
        c06pcft_("F", serial[s].data(), &n, w.data(), c.errbuf, &c.ifail, 1, 200);
    }
    clear_plan_cache();  // the threads plan afresh, concurrently
    std::vector<int> bad(8, 0);
    std::vector<std::thread> threads;
    for (int t = 0; t < 8; ++t)
        threads.emplace_back([&, t] {
            for (int rep = 0; rep < 20; ++rep) {
                const std::size_t s = (t + rep) % sizes.size();
                int n = sizes[s];
                std::vector<cd> x = data(n, n), w(1);
                Call c;
                c06pcft_("F", x.data(), &n, w.data(), c.errbuf, &c.ifail, 1, 200);
                // Estimated and measured plans may round differently: compare to tolerance.
                for (int k = 0; k < n; ++k)
                    if (std::abs(x[k] - serial[s][k]) > 1e-12 * std::sqrt(n) || c.ifail != 0)
                        ++bad[t];
            }
        });
    for (std::thread& th : threads)
        th.join();
    for (int t = 0; t < 8; ++t)
        EXPECT_EQ(bad[t], 0) << "thread " << t;
}

// Every catalogue message, raised through the traced entries.
TEST(Fft, CatalogueMessages)
{
    using T = lbx::test::Trigger;
    using lbx::test::traced;
    static double x[64], w[64];
    static cd z[64], zw[64];
    const auto paf = [](const char* d, int n) {
        return traced([=](char* e, int* i) { c06paft_(d, x, &n, w, e, i, 1, 200); });
    };
    const auto pcf = [](const char* d, int n) {
        return traced([=](char* e, int* i) { c06pcft_(d, z, &n, zw, e, i, 1, 200); });
    };
    const auto pff = [](int iemode, const char* d, int ndim, int l, std::vector<int> nd, int n,
                        int lwork) {
        return traced([=](char* e, int* i) {
            c06pfft_(&iemode, d, &ndim, &l, nd.data(), &n, z, zw, &lwork, e, i, 1, 200);
        });
    };
    const auto pjf = [](int iemode, const char* d, int ndim, std::vector<int> nd, int n,
                        int lwork) {
        return traced([=](char* e, int* i) {
            c06pjft_(&iemode, d, &ndim, nd.data(), &n, z, zw, &lwork, e, i, 1, 200);
        });
    };
    const auto two = [](auto f, const char* d, int a, int b) {
        return traced([=](char* e, int* i) { f(d, &a, &b, e, i); });
    };
    const auto ppf = [](const char* d, const int* m, const int* n, char* e, int* i) {
        c06ppft_(d, m, n, x, w, e, i, 1, 200);
    };
    const auto pqf = [](const char* d, const int* n, const int* m, char* e, int* i) {
        c06pqft_(d, n, m, x, w, e, i, 1, 200);
    };
    const auto prf = [](const char* d, const int* m, const int* n, char* e, int* i) {
        c06prft_(d, m, n, z, zw, e, i, 1, 200);
    };
    const auto psf = [](const char* d, const int* n, const int* m, char* e, int* i) {
        c06psft_(d, n, m, z, zw, e, i, 1, 200);
    };
    const auto puf = [](const char* d, const int* m, const int* n, char* e, int* i) {
        c06puft_(d, m, n, z, zw, e, i, 1, 200);
    };
    const auto pxf = [](const char* d, int a, int b, int c) {
        return traced([=](char* e, int* i) { c06pxft_(d, &a, &b, &c, z, zw, e, i, 1, 200); });
    };
    const auto pkf = [](int job, int n) {
        return traced([=](char* e, int* i) { c06pkft_(&job, z, zw, &n, zw + 32, e, i, 200); });
    };
    const auto pvf = [](int m, int n) {
        return traced([=](char* e, int* i) { c06pvft_(&m, &n, x, z, e, i, 200); });
    };
    const auto pwf = [](int m, int n) {
        return traced([=](char* e, int* i) { c06pwft_(&m, &n, z, x, e, i, 200); });
    };
    const auto pyf = [](int a, int b, int c) {
        return traced([=](char* e, int* i) { c06pyft_(&a, &b, &c, x, z, e, i, 200); });
    };
    const auto pzf = [](int a, int b, int c) {
        return traced([=](char* e, int* i) { c06pzft_(&a, &b, &c, z, x, e, i, 200); });
    };
    // The transform stage's failure, simulated around one call.
    const auto failing = [](std::function<lbx::test::Raised()> f) {
        return [f] {
            simulate_planner_failure(true);
            const lbx::test::Raised r = f();
            simulate_planner_failure(false);
            return r;
        };
    };
    lbx::test::check_catalogue(
        lbx::fft::catalogue_messages,
        {
            T{"C06PAF", "N_LT_1", [&] { return paf("x", 0); }, {"0"}, "N before DIRECT"},
            T{"C06PAF", "DIRECT_BAD", [&] { return paf("x", 4); }, {"x"}},
            T{"C06PAF", "", [&] { return paf("b", 4); }},
            T{"C06PCF", "N_LT_1", [&] { return pcf("F", -3); }, {"-3"}},
            T{"C06PCF", "DIRECT_BAD", [&] { return pcf("R", 4); }, {"R"}},
            T{"C06PFF", "IEMODE_BAD", [&] { return pff(3, "x", 0, 1, {2}, 2, 0); }, {"3"}},
            T{"C06PFF", "NDIM_LT_1", [&] { return pff(0, "x", 0, 1, {2}, 2, 0); }, {"0"}},
            T{"C06PFF",
              "L_RANGE",
              [&] {
                  return pff(0, "x", 2, 3, {2, 2}, 4, 0);
              },
              {"3", "2"}},
            T{"C06PFF",
              "ND_LT_1",
              [&] {
                  return pff(0, "x", 2, 1, {2, 0}, 4, 0);
              },
              {"2", "0"}},
            T{"C06PFF",
              "N_NOT_PRODUCT",
              [&] {
                  return pff(0, "x", 2, 1, {2, 3}, 5, 0);
              },
              {"5", "6"}},
            T{"C06PFF",
              "LWORK_SMALL",
              [&] {
                  return pff(0, "x", 2, 1, {2, 3}, 6, 0);
              },
              {"0"}},
            T{"C06PFF",
              "DIRECT_BAD",
              [&] {
                  return pff(0, "x", 2, 1, {2, 3}, 6, 1);
              },
              {"x"}},
            T{"C06PJF", "IEMODE_BAD", [&] { return pjf(-1, "x", 0, {2}, 2, 0); }, {"-1"}},
            T{"C06PJF", "NDIM_LT_1", [&] { return pjf(1, "x", 0, {2}, 2, 0); }, {"0"}},
            T{"C06PJF",
              "ND_LT_1",
              [&] {
                  return pjf(1, "x", 2, {-1, 2}, 2, 0);
              },
              {"1", "-1"}},
            T{"C06PJF",
              "N_NOT_PRODUCT",
              [&] {
                  return pjf(1, "x", 2, {2, 2}, 2, 0);
              },
              {"2", "4"}},
            T{"C06PJF",
              "LWORK_SMALL",
              [&] {
                  return pjf(1, "x", 2, {2, 2}, 4, 0);
              },
              {"0"}},
            T{"C06PJF",
              "DIRECT_BAD",
              [&] {
                  return pjf(1, "x", 2, {2, 2}, 4, 1);
              },
              {"x"}},
            T{"C06PKF", "N_LT_1", [&] { return pkf(3, 0); }, {"0"}},
            T{"C06PKF", "JOB_BAD", [&] { return pkf(3, 4); }, {"3"}},
            T{"C06PPF", "M_LT_1", [&] { return two(ppf, "x", 0, 0); }, {"0"}},
            T{"C06PPF", "N_LT_1", [&] { return two(ppf, "x", 1, 0); }, {"0"}},
            T{"C06PPF", "DIRECT_BAD", [&] { return two(ppf, "x", 1, 2); }, {"x"}},
            T{"C06PQF", "N_LT_1", [&] { return two(pqf, "x", 0, 0); }, {"0"}},
            T{"C06PQF", "M_LT_1", [&] { return two(pqf, "x", 2, 0); }, {"0"}},
            T{"C06PQF", "DIRECT_BAD", [&] { return two(pqf, "x", 2, 2); }, {"x"}},
            T{"C06PRF", "M_LT_1", [&] { return two(prf, "x", 0, 0); }, {"0"}},
            T{"C06PRF", "N_LT_1", [&] { return two(prf, "x", 1, 0); }, {"0"}},
            T{"C06PRF", "DIRECT_BAD", [&] { return two(prf, "x", 1, 2); }, {"x"}},
            T{"C06PSF", "N_LT_1", [&] { return two(psf, "x", 0, 0); }, {"0"}},
            T{"C06PSF", "M_LT_1", [&] { return two(psf, "x", 2, 0); }, {"0"}},
            T{"C06PSF", "DIRECT_BAD", [&] { return two(psf, "x", 2, 2); }, {"x"}},
            T{"C06PUF", "M_LT_1", [&] { return two(puf, "x", 0, 0); }, {"0"}},
            T{"C06PUF", "N_LT_1", [&] { return two(puf, "x", 1, 0); }, {"0"}},
            T{"C06PUF", "DIRECT_BAD", [&] { return two(puf, "x", 1, 2); }, {"x"}},
            T{"C06PXF", "N1_LT_1", [&] { return pxf("x", 0, 0, 0); }, {"0"}},
            T{"C06PXF", "N2_LT_1", [&] { return pxf("x", 1, 0, 0); }, {"0"}},
            T{"C06PXF", "N3_LT_1", [&] { return pxf("x", 1, 1, 0); }, {"0"}},
            T{"C06PXF", "DIRECT_BAD", [&] { return pxf("x", 1, 1, 1); }, {"x"}},
            T{"C06PVF", "M_LT_1", [&] { return pvf(0, 0); }, {"0"}},
            T{"C06PVF", "N_LT_1", [&] { return pvf(1, 0); }, {"0"}},
            T{"C06PWF", "M_LT_1", [&] { return pwf(0, 0); }, {"0"}},
            T{"C06PWF", "N_LT_1", [&] { return pwf(1, 0); }, {"0"}},
            T{"C06PYF", "N1_LT_1", [&] { return pyf(0, 0, 0); }, {"0"}},
            T{"C06PYF", "N2_LT_1", [&] { return pyf(1, 0, 0); }, {"0"}},
            T{"C06PYF", "N3_LT_1", [&] { return pyf(1, 1, 0); }, {"0"}},
            T{"C06PZF", "N1_LT_1", [&] { return pzf(0, 0, 0); }, {"0"}},
            T{"C06PZF", "N2_LT_1", [&] { return pzf(1, 0, 0); }, {"0"}},
            T{"C06PZF", "N3_LT_1", [&] { return pzf(1, 1, 0); }, {"0"}},
            T{"C06PAF", "INTERNAL", failing([&] { return paf("F", 4); })},
            T{"C06PCF", "INTERNAL", failing([&] { return pcf("B", 4); })},
            T{"C06PFF", "INTERNAL", failing([&] {
                  return pff(0, "F", 2, 1, {2, 3}, 6, 1);
              })},
            T{"C06PJF", "INTERNAL", failing([&] {
                  return pjf(0, "F", 2, {2, 3}, 6, 1);
              })},
            T{"C06PKF", "INTERNAL", failing([&] { return pkf(1, 4); })},
            T{"C06PPF", "INTERNAL", failing([&] { return two(ppf, "F", 2, 3); })},
            T{"C06PQF", "INTERNAL", failing([&] { return two(pqf, "F", 3, 2); })},
            T{"C06PRF", "INTERNAL", failing([&] { return two(prf, "F", 2, 3); })},
            T{"C06PSF", "INTERNAL", failing([&] { return two(psf, "F", 3, 2); })},
            T{"C06PUF", "INTERNAL", failing([&] { return two(puf, "F", 2, 3); })},
            T{"C06PXF", "INTERNAL", failing([&] { return pxf("F", 2, 2, 2); })},
            T{"C06PVF", "INTERNAL", failing([&] { return pvf(2, 3); })},
            T{"C06PWF", "INTERNAL", failing([&] { return pwf(2, 3); })},
            T{"C06PYF", "INTERNAL", failing([&] { return pyf(2, 2, 2); })},
            T{"C06PZF", "INTERNAL", failing([&] { return pzf(2, 2, 2); })},
        });
}

}  // namespace
