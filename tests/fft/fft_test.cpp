// The transforms against a direct DFT in long double: the CCS layout, every
// relative for every N up to 64, analytic large sizes, 8-byte aligned data,
// the plan cache, concurrent calls and every catalogue message.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <cstdint>
#include <cstring>
#include <functional>
#include <numbers>
#include <thread>
#include <type_traits>
#include <vector>

#include <fftw3.h>

#include "fft/plans.hpp"
#include "gen/fft.hpp"
#include "lbx3207qk.h"
#include "tests/support/messages.hpp"

namespace {

using cd = std::complex<double>;
using cl = std::complex<long double>;
using lbx::test::traced;
using namespace lbx::fft;

// Direct DFT of a column-major array of dimensions nd, over the dimensions
// with mask bit set, exponent sign `sign`, scaled by 1/sqrt(points).
std::vector<cl> direct_dft(const std::vector<cl>& x, const std::vector<int>& nd, int sign,
                           unsigned mask = ~0u)
{
    std::vector<cl> cur = x;
    int stride = 1;
    for (std::size_t d = 0; d < nd.size(); stride *= nd[d++]) {
        const int n = nd[d];
        if (!(mask >> d & 1u))
            continue;
        std::vector<cl> next(cur.size());
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
                next[base + k * stride] = sum / std::sqrt(static_cast<long double>(n));
            }
        }
        cur = next;
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

template <class T>
std::vector<cl> widen(const std::vector<T>& x)
{
    return {x.begin(), x.end()};
}

// The elements of a full transform of dimensions (n, ...) whose first index is
// <= n/2.
std::vector<cl> first_half(const std::vector<cl>& full, int n)
{
    std::vector<cl> half;
    for (std::size_t i = 0; i < full.size(); ++i)
        if (static_cast<int>(i % n) <= n / 2)
            half.push_back(full[i]);
    return half;
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

// C06PAF forward into CCS: element 2 is 0, element N+2 is 0 for even N and
// not written for odd N (N = 1: elements 2 and 3 set); backward from CCS whose
// ignored imaginary parts hold garbage, X(N+1) = 0.
TEST(Fft, C06PafCcsLayoutForEveryNUpTo64)
{
    for (int n = 1; n <= 64; ++n) {
        std::vector<double> x(n + 3, -7.0), work(2, 0.0);
        std::vector<cl> ref(n);
        for (int i = 0; i < n; ++i)
            ref[i] = x[i] = data(n, n)[i].real();
        Call c;
        c06paft_("F", x.data(), &n, work.data(), c.errbuf, &c.ifail, 1, 200);
        ASSERT_EQ(c.ifail, 0);
        EXPECT_EQ(work[1], 0.0) << "WORK(2) referenced";
        std::vector<cd> got(n / 2 + 1);
        for (int k = 0; k <= n / 2; ++k)
            got[k] = {x[2 * k], x[2 * k + 1]};
        EXPECT_LT(rel_error(got, first_half(direct_dft(ref, {n}, -1), n)), tol) << n;
        EXPECT_EQ(x[1], 0.0) << n;
        EXPECT_EQ(x[n + 1], n % 2 == 0 || n == 1 ? 0.0 : -7.0) << n;
        EXPECT_EQ(x[n + 2], -7.0) << n;
        // A Hermitian sequence from its half, z(0) and z(n/2) made real.
        const std::vector<cd> h = data(n / 2 + 1, 3 * n);
        std::vector<cl> full(n);
        for (int k = 0; k <= n / 2; ++k) {
            x[2 * k] = h[k].real();
            x[2 * k + 1] = h[k].imag();  // ignored for k = 0 and k = n/2 (n even)
            const cd v = k == 0 || 2 * k == n ? cd(h[k].real(), 0) : h[k];
            full[k] = v;
            full[(n - k) % n] = std::conj(cl(v));
        }
        c06paft_("b", x.data(), &n, work.data(), c.errbuf, &c.ifail, 1, 200);
        EXPECT_LT(rel_error(std::vector<cd>(x.begin(), x.begin() + n), direct_dft(full, {n}, 1)),
                  tol)
            << n;
        EXPECT_EQ(x[n], 0.0) << n;
        EXPECT_EQ(x[2], n == 1 ? 0.0 : x[2]) << n;
    }
}

// Every relative, for every N from 1 to 64 in one dimension of its data, M of
// 1, 2, 3 or 5 in another, every IEMODE; C06PCF both ways on one shape (the
// plan cache tells the directions apart).
TEST(Fft, RelativesAgainstDirectDft)
{
    for (int n = 1; n <= 64; ++n) {
        int m = std::vector<int>{1, 2, 3, 5}[n % 4], iemode = n % 3, lwork = 1, three = 3, one = 1;
        const int sign = n % 2 ? 1 : -1, total = m * n;
        const char* direct = sign < 0 ? "F" : "b";
        std::vector<cd> x, w(n * m * 3);
        std::vector<cl> want;
        Call c;
        const auto check = [&](const char* what, const auto& got) {
            ASSERT_EQ(c.ifail, 0) << what << " " << n;
            EXPECT_LT(rel_error(got, want), tol) << what << " N = " << n << " M = " << m;
        };
        const auto fresh = [&](std::vector<int> nd, unsigned mask, int seed = 0, int s = 0) {
            int size = 1;
            for (int d : nd)
                size *= d;
            x = data(size, n + seed);
            want = direct_dft(widen(x), nd, s == 0 ? sign : s, mask);
        };
        for (const char* d : {"F", "b"}) {
            fresh({n}, 1u, 0, *d == 'F' ? -1 : 1);
            c06pcft_(d, x.data(), &n, w.data(), c.errbuf, &c.ifail, 1, 200);
            check("C06PCF", x);
        }
        fresh({m, n}, 2u);  // C06PRF: rows of X(M,N); C06PSF: columns of X(N,M)
        c06prft_(direct, &m, &n, x.data(), w.data(), c.errbuf, &c.ifail, 1, 200);
        check("C06PRF", x);
        fresh({n, m}, 1u);
        c06psft_(direct, &n, &m, x.data(), w.data(), c.errbuf, &c.ifail, 1, 200);
        check("C06PSF", x);
        fresh({m, n}, ~0u);
        c06puft_(direct, &m, &n, x.data(), w.data(), c.errbuf, &c.ifail, 1, 200);
        check("C06PUF", x);
        fresh({m, n, 3}, ~0u);
        c06pxft_(direct, &m, &n, &three, x.data(), w.data(), c.errbuf, &c.ifail, 1, 200);
        check("C06PXF", x);
        int ndim = 3, nd[3] = {m, n, 2}, all = 2 * total;
        fresh({m, n, 2}, ~0u, 1);
        c06pjft_(&iemode, direct, &ndim, nd, &all, x.data(), w.data(), &lwork, c.errbuf, &c.ifail,
                 1, 200);
        check("C06PJF", x);
        for (int l = 1; l <= 3; ++l) {
            fresh({m, n, 2}, 1u << (l - 1), l);
            c06pfft_(&iemode, direct, &ndim, &l, nd, &all, x.data(), w.data(), &lwork, c.errbuf,
                     &c.ifail, 1, 200);
            check("C06PFF", x);
        }
        // C06PKF: x := x (*) y or conj(x) (*) y, Y input only.
        for (int job : {1, 2}) {
            const std::vector<cd> a = data(n, 1), b = data(n, 2);
            want.assign(n, 0);
            for (int j = 0; j < n; ++j)
                for (int k = 0; k < n; ++k)
                    want[j] += job == 1 ? cl(a[k]) * cl(b[(j - k + n) % n])
                                        : std::conj(cl(a[k])) * cl(b[(j + k) % n]);
            std::vector<cd> y = b;
            x = a;
            c06pkft_(&job, x.data(), y.data(), &n, w.data(), c.errbuf, &c.ifail, 200);
            check("C06PKF", x);
            EXPECT_EQ(y, b);
        }
        // C06PVF, C06PYF: real (N, M) and (N, 1, M) to their halves; C06PWF,
        // C06PZF back; the inputs unchanged.
        std::vector<double> r(total), back(total);
        const std::vector<cd> z = data(total, n);
        for (int i = 0; i < total; ++i)
            r[i] = z[i].real();
        const std::vector<double> r_in = r;
        want = first_half(direct_dft(widen(r), {n, m}, -1), n);
        std::vector<cd> y((n / 2 + 1) * m), y3(y.size());
        c06pvft_(&n, &m, r.data(), y.data(), c.errbuf, &c.ifail, 200);
        check("C06PVF", y);
        c06pyft_(&n, &one, &m, r.data(), y3.data(), c.errbuf, &c.ifail, 200);
        check("C06PYF", y3);
        EXPECT_EQ(r, r_in);
        const std::vector<cd> y_in = y;
        want = widen(r_in);
        c06pwft_(&n, &m, y.data(), back.data(), c.errbuf, &c.ifail, 200);
        check("C06PWF", back);
        c06pzft_(&n, &one, &m, y3.data(), back.data(), c.errbuf, &c.ifail, 200);
        check("C06PZF", back);
        EXPECT_EQ(y, y_in);
        // C06PPF: sequence p in row p of X(M,N+2); C06PQF: column p of X(N+2,M).
        for (const bool rows : {true, false}) {
            const auto at = [&](int p, int i) { return rows ? p + i * m : i + p * (n + 2); };
            std::vector<double> s(m * (n + 2), -3.0), work(s.size());
            for (int p = 0; p < m; ++p)
                for (int i = 0; i < n; ++i)
                    s[at(p, i)] = z[p * n + i].real();
            const std::vector<double> in = s;
            for (const char* d : {"F", "B"}) {
                if (rows)
                    c06ppft_(d, &m, &n, s.data(), work.data(), c.errbuf, &c.ifail, 1, 200);
                else
                    c06pqft_(d, &n, &m, s.data(), work.data(), c.errbuf, &c.ifail, 1, 200);
                ASSERT_EQ(c.ifail, 0);
                for (int p = 0; p < m; ++p) {
                    std::vector<cl> seq(n);
                    std::vector<double> row(n);
                    std::vector<cd> got(n / 2 + 1);
                    for (int i = 0; i < n; ++i) {
                        seq[i] = in[at(p, i)];
                        row[i] = s[at(p, i)];
                    }
                    for (int k = 0; k <= n / 2; ++k)
                        got[k] = {s[at(p, 2 * k)], s[at(p, 2 * k + 1)]};
                    if (*d == 'F') {
                        EXPECT_LT(rel_error(got, first_half(direct_dft(seq, {n}, -1), n)), tol);
                    } else {
                        EXPECT_LT(rel_error(row, seq), tol) << rows << " " << n;
                        EXPECT_EQ(s[at(p, n)], 0.0) << rows << " " << n;
                    }
                }
            }
        }
    }
}

// Data only 8-byte aligned (as a Fortran array may be) gets a plan of its own
// alignment, also after aligned data of the same shape.
TEST(Fft, EightByteAlignedData)
{
    for (int n : {30, 1024}) {
        std::vector<double> buffer(2 * n + 8);
        double* aligned =
            buffer.data() + (reinterpret_cast<std::uintptr_t>(buffer.data()) % 16 != 0);
        const std::vector<cd> z = data(n, 4);
        const std::vector<cl> want = direct_dft(widen(z), {n}, -1);
        for (int rep = 0; rep < 4; ++rep) {  // aligned, then estimated and measured plans
            auto* x = reinterpret_cast<cd*>(aligned + (rep > 0));
            std::copy(z.begin(), z.end(), x);
            cd work[1];
            Call c;
            c06pcft_("F", x, &n, work, c.errbuf, &c.ifail, 1, 200);
            EXPECT_LT(rel_error(std::vector<cd>(x, x + n), want), tol) << n << " " << rep;
        }
    }
}

// IEMODE = 1 (estimated plans only), found in the cache on the second call, is
// bit for bit an estimated FFTW plan made here plus the scaling pass.
TEST(Fft, CachedEstimatedPlanBitIdenticalToFreshPlan)
{
    for (int n : {1000, 4097}) {
        const std::vector<cd> z = data(n, 11);
        std::vector<cd> a, b = z, work(1);
        int iemode = 1, ndim = 1, lwork = 1;
        Call c;
        for (int i = 0; i < 2; ++i) {
            a = z;
            c06pjft_(&iemode, "F", &ndim, &n, &n, a.data(), work.data(), &lwork, c.errbuf, &c.ifail,
                     1, 200);
        }
        auto* fb = reinterpret_cast<fftw_complex*>(b.data());
        fftw_plan p = fftw_plan_dft_1d(n, fb, fb, FFTW_FORWARD, FFTW_ESTIMATE);
        fftw_execute(p);
        fftw_destroy_plan(p);
        for (cd& v : b)
            v *= 1.0 / std::sqrt(static_cast<double>(n));
        EXPECT_EQ(std::memcmp(a.data(), b.data(), n * sizeof(cd)), 0) << n;
    }
}

// Calls of different shapes from several threads, planning afresh, give the
// serial results (estimated and measured plans may round differently).
TEST(Fft, ConcurrentCallsOfDifferentShapes)
{
    const std::vector<int> sizes = {64, 100, 128, 243, 256, 1000, 1024, 4096};
    std::vector<std::vector<cd>> serial;
    for (int n : sizes) {
        serial.push_back(data(n, n));
        std::vector<cd> w(1);
        Call c;
        c06pcft_("F", serial.back().data(), &n, w.data(), c.errbuf, &c.ifail, 1, 200);
    }
    clear_plan_cache();
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
                for (int k = 0; k < n; ++k)
                    bad[t] += std::abs(x[k] - serial[s][k]) > 1e-12 * std::sqrt(n) || c.ifail != 0;
            }
        });
    for (std::thread& th : threads)
        th.join();
    EXPECT_EQ(bad, std::vector<int>(8, 0));
}

// Every catalogue message, raised through the traced entries; the transform
// stage's failure simulated around one call.
double x[64], w[64];
cd z[64], zw[64];
using R = lbx::test::Raised;
R paf(const char* d, int n)
{
    return traced([=](char* e, int* i) { c06paft_(d, x, &n, w, e, i, 1, 200); });
}
R pcf(const char* d, int n)
{
    return traced([=](char* e, int* i) { c06pcft_(d, z, &n, zw, e, i, 1, 200); });
}
// C06PFF (l > 0) or C06PJF (l = 0) on dimensions nd1, nd2 (ndim of them).
R pjf(int iemode, const char* d, int ndim, int l, int nd1, int nd2, int n, int lwork)
{
    int nd[2] = {nd1, nd2};
    return traced([&](char* e, int* i) {
        if (l == 0)
            c06pjft_(&iemode, d, &ndim, nd, &n, z, zw, &lwork, e, i, 1, 200);
        else
            c06pfft_(&iemode, d, &ndim, &l, nd, &n, z, zw, &lwork, e, i, 1, 200);
    });
}
// The routines of (DIRECT, two dimensions): C06PPF, C06PQF (real), C06PRF,
// C06PSF, C06PUF.
template <class T>
R two(void (*f)(const char*, const int*, const int*, T*, T*, char*, int*, std::size_t, std::size_t),
      const char* d, int a, int b)
{
    T* data = nullptr;
    if constexpr (std::is_same_v<T, double>)
        data = x;
    else
        data = z;
    return traced([&](char* e, int* i) { f(d, &a, &b, data, data + 32, e, i, 1, 200); });
}
R pxf(const char* d, int a, int b, int c)
{
    return traced([&](char* e, int* i) { c06pxft_(d, &a, &b, &c, z, zw, e, i, 1, 200); });
}
R pkf(int job, int n)
{
    return traced([&](char* e, int* i) { c06pkft_(&job, z, zw, &n, zw + 32, e, i, 200); });
}
// C06PVF, C06PWF (c = 0) and C06PYF, C06PZF.
R half(bool back, int a, int b, int c = -1)
{
    return traced([&](char* e, int* i) {
        if (c < 0)
            back ? c06pwft_(&a, &b, z, x, e, i, 200) : c06pvft_(&a, &b, x, z, e, i, 200);
        else
            back ? c06pzft_(&a, &b, &c, z, x, e, i, 200) : c06pyft_(&a, &b, &c, x, z, e, i, 200);
    });
}
std::function<R()> failing(std::function<R()> f)
{
    return [f] {
        simulate_planner_failure(true);
        const R r = f();
        simulate_planner_failure(false);
        return r;
    };
}

TEST(Fft, CatalogueMessages)
{
    using T = lbx::test::Trigger;
    const auto ppf = c06ppft_, pqf = c06pqft_;
    const auto prf = c06prft_, psf = c06psft_, puf = c06puft_;
    lbx::test::check_catalogue(
        lbx::fft::catalogue_messages,
        {
            T{"C06PAF", "N_LT_1", [] { return paf("x", 0); }, {"0"}, "N before DIRECT"},
            T{"C06PAF", "DIRECT_BAD", [] { return paf("x", 4); }, {"x"}},
            T{"C06PAF", "", [] { return paf("b", 4); }},
            T{"C06PCF", "N_LT_1", [] { return pcf("F", -3); }, {"-3"}},
            T{"C06PCF", "DIRECT_BAD", [] { return pcf("R", 4); }, {"R"}},
            T{"C06PFF", "IEMODE_BAD", [] { return pjf(3, "x", 0, 1, 2, 0, 2, 0); }, {"3"}},
            T{"C06PFF", "NDIM_LT_1", [] { return pjf(0, "x", 0, 1, 2, 0, 2, 0); }, {"0"}},
            T{"C06PFF", "L_RANGE", [] { return pjf(0, "x", 2, 3, 2, 2, 4, 0); }, {"3", "2"}},
            T{"C06PFF", "ND_LT_1", [] { return pjf(0, "x", 2, 1, 2, 0, 4, 0); }, {"2", "0"}},
            T{"C06PFF", "N_NOT_PRODUCT", [] { return pjf(0, "x", 2, 1, 2, 3, 5, 0); }, {"5", "6"}},
            T{"C06PFF", "LWORK_SMALL", [] { return pjf(0, "x", 2, 1, 2, 3, 6, 0); }, {"0"}},
            T{"C06PFF", "DIRECT_BAD", [] { return pjf(0, "x", 2, 1, 2, 3, 6, 1); }, {"x"}},
            T{"C06PJF", "IEMODE_BAD", [] { return pjf(-1, "x", 0, 0, 2, 0, 2, 0); }, {"-1"}},
            T{"C06PJF", "NDIM_LT_1", [] { return pjf(1, "x", 0, 0, 2, 0, 2, 0); }, {"0"}},
            T{"C06PJF", "ND_LT_1", [] { return pjf(1, "x", 2, 0, -1, 2, 2, 0); }, {"1", "-1"}},
            T{"C06PJF", "N_NOT_PRODUCT", [] { return pjf(1, "x", 2, 0, 2, 2, 2, 0); }, {"2", "4"}},
            T{"C06PJF", "LWORK_SMALL", [] { return pjf(1, "x", 2, 0, 2, 2, 4, 0); }, {"0"}},
            T{"C06PJF", "DIRECT_BAD", [] { return pjf(1, "x", 2, 0, 2, 2, 4, 1); }, {"x"}},
            T{"C06PKF", "N_LT_1", [] { return pkf(3, 0); }, {"0"}},
            T{"C06PKF", "JOB_BAD", [] { return pkf(3, 4); }, {"3"}},
            T{"C06PPF", "M_LT_1", [=] { return two(ppf, "x", 0, 0); }, {"0"}},
            T{"C06PPF", "N_LT_1", [=] { return two(ppf, "x", 1, 0); }, {"0"}},
            T{"C06PPF", "DIRECT_BAD", [=] { return two(ppf, "x", 1, 2); }, {"x"}},
            T{"C06PQF", "N_LT_1", [=] { return two(pqf, "x", 0, 0); }, {"0"}},
            T{"C06PQF", "M_LT_1", [=] { return two(pqf, "x", 2, 0); }, {"0"}},
            T{"C06PQF", "DIRECT_BAD", [=] { return two(pqf, "x", 2, 2); }, {"x"}},
            T{"C06PRF", "M_LT_1", [=] { return two(prf, "x", 0, 0); }, {"0"}},
            T{"C06PRF", "N_LT_1", [=] { return two(prf, "x", 1, 0); }, {"0"}},
            T{"C06PRF", "DIRECT_BAD", [=] { return two(prf, "x", 1, 2); }, {"x"}},
            T{"C06PSF", "N_LT_1", [=] { return two(psf, "x", 0, 0); }, {"0"}},
            T{"C06PSF", "M_LT_1", [=] { return two(psf, "x", 2, 0); }, {"0"}},
            T{"C06PSF", "DIRECT_BAD", [=] { return two(psf, "x", 2, 2); }, {"x"}},
            T{"C06PUF", "M_LT_1", [=] { return two(puf, "x", 0, 0); }, {"0"}},
            T{"C06PUF", "N_LT_1", [=] { return two(puf, "x", 1, 0); }, {"0"}},
            T{"C06PUF", "DIRECT_BAD", [=] { return two(puf, "x", 1, 2); }, {"x"}},
            T{"C06PXF", "N1_LT_1", [] { return pxf("x", 0, 0, 0); }, {"0"}},
            T{"C06PXF", "N2_LT_1", [] { return pxf("x", 1, 0, 0); }, {"0"}},
            T{"C06PXF", "N3_LT_1", [] { return pxf("x", 1, 1, 0); }, {"0"}},
            T{"C06PXF", "DIRECT_BAD", [] { return pxf("x", 1, 1, 1); }, {"x"}},
            T{"C06PVF", "M_LT_1", [] { return half(false, 0, 0); }, {"0"}},
            T{"C06PVF", "N_LT_1", [] { return half(false, 1, 0); }, {"0"}},
            T{"C06PWF", "M_LT_1", [] { return half(true, 0, 0); }, {"0"}},
            T{"C06PWF", "N_LT_1", [] { return half(true, 1, 0); }, {"0"}},
            T{"C06PYF", "N1_LT_1", [] { return half(false, 0, 0, 0); }, {"0"}},
            T{"C06PYF", "N2_LT_1", [] { return half(false, 1, 0, 0); }, {"0"}},
            T{"C06PYF", "N3_LT_1", [] { return half(false, 1, 1, 0); }, {"0"}},
            T{"C06PZF", "N1_LT_1", [] { return half(true, 0, 0, 0); }, {"0"}},
            T{"C06PZF", "N2_LT_1", [] { return half(true, 1, 0, 0); }, {"0"}},
            T{"C06PZF", "N3_LT_1", [] { return half(true, 1, 1, 0); }, {"0"}},
            T{"C06PAF", "INTERNAL", failing([] { return paf("F", 4); })},
            T{"C06PCF", "INTERNAL", failing([] { return pcf("B", 4); })},
            T{"C06PFF", "INTERNAL", failing([] { return pjf(0, "F", 2, 1, 2, 3, 6, 1); })},
            T{"C06PJF", "INTERNAL", failing([] { return pjf(0, "F", 2, 0, 2, 3, 6, 1); })},
            T{"C06PKF", "INTERNAL", failing([] { return pkf(1, 4); })},
            T{"C06PPF", "INTERNAL", failing([=] { return two(ppf, "F", 2, 3); })},
            T{"C06PQF", "INTERNAL", failing([=] { return two(pqf, "F", 3, 2); })},
            T{"C06PRF", "INTERNAL", failing([=] { return two(prf, "F", 2, 3); })},
            T{"C06PSF", "INTERNAL", failing([=] { return two(psf, "F", 3, 2); })},
            T{"C06PUF", "INTERNAL", failing([=] { return two(puf, "F", 2, 3); })},
            T{"C06PXF", "INTERNAL", failing([] { return pxf("F", 2, 2, 2); })},
            T{"C06PVF", "INTERNAL", failing([] { return half(false, 2, 3); })},
            T{"C06PWF", "INTERNAL", failing([] { return half(true, 2, 3); })},
            T{"C06PYF", "INTERNAL", failing([] { return half(false, 2, 2, 2); })},
            T{"C06PZF", "INTERNAL", failing([] { return half(true, 2, 2, 2); })},
        });
}

}  // namespace
