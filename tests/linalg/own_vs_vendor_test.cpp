// The own path against the external library: one routine of every F08
// family (the F07 classes are covered by LAPACK's own testing programs run
// against the own path, linalg.lapack_lin), the same random inputs through the traced entry with
// CALL_VENDOR true (the external routine) and false (the own path).  INFO must
// agree and every output to 100*n*eps of its size.  Where the two may
// legitimately differ (signs of eigenvectors and singular vectors, the
// arrangement of a Schur form) a row compares what is unique: moduli of
// vector entries, eigenvalues in sorted order, residuals of reconstructions.
// Each row also checks that its entry is paired with the standard routine it
// names.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <cstddef>
#include <limits>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "gen/linalg.hpp"
#include "lbx3207qk.h"

namespace {

using Vec = std::vector<double>;
using Cplx = std::complex<double>;
using CVec = std::vector<Cplx>;
using IVec = std::vector<int>;

const int kSorder = 1;
constexpr int N = 12;             // order of every square problem
constexpr int M = 16;             // rows of the rectangular ones
constexpr int NR = 3;             // right-hand sides
constexpr int LW = 64 * (M + N);  // workspace: above every routine's need
const std::size_t L1 = 1;         // hidden length of a one-character option

// What a run produced: INFO and named outputs (or invariants of them).
struct Outcome {
    int info = 0;
    std::vector<std::pair<std::string, Vec>> parts;
    void add(std::string name, Vec v) { parts.emplace_back(std::move(name), std::move(v)); }
};

using Run = void (*)(const int* vendor, Outcome& o);

struct Row {
    const char* pairing;         // what this test calls
    std::string_view generated;  // what the catalogue pairs the entry with
    Run run;
};

// ---------------------------------------------------------------- inputs

Vec random(std::size_t count, unsigned seed)
{
    std::mt19937 gen(seed);
    std::uniform_real_distribution<double> u(-1.0, 1.0);
    Vec v(count);
    for (double& x : v)
        x = u(gen);
    return v;
}

CVec crandom(std::size_t count, unsigned seed)
{
    Vec re = random(count, seed), im = random(count, seed + 1000);
    CVec v(count);
    for (std::size_t i = 0; i < count; ++i)
        v[i] = {re[i], im[i]};
    return v;
}

double conj(double x)
{
    return x;
}
Cplx conj(Cplx z)
{
    return std::conj(z);
}

// N by N, symmetric (Hermitian) positive definite: R R^H + N I.
template <class T>
std::vector<T> positive_definite(const std::vector<T>& r)
{
    std::vector<T> a(N * N);
    for (int j = 0; j < N; ++j) {
        for (int i = 0; i < N; ++i) {
            T s = i == j ? T(N) : T(0);
            for (int k = 0; k < N; ++k)
                s += r[i + k * N] * conj(r[j + k * N]);
            a[i + j * N] = s;
        }
    }
    return a;
}

// The upper (uplo 'U') or lower triangle of an N by N matrix, packed by columns.
template <class T>
std::vector<T> packed(const std::vector<T>& a, char uplo)
{
    std::vector<T> ap;
    for (int j = 0; j < N; ++j) {
        for (int i = uplo == 'U' ? 0 : j; i < (uplo == 'U' ? j + 1 : N); ++i)
            ap.push_back(a[i + j * N]);
    }
    return ap;
}

// The lower band (KD subdiagonals) of an N by N matrix in band storage.
Vec lower_band(const Vec& a, int kd)
{
    Vec ab((kd + 1) * N, 0.0);
    for (int j = 0; j < N; ++j) {
        for (int i = j; i <= std::min(N - 1, j + kd); ++i)
            ab[(i - j) + j * (kd + 1)] = a[i + j * N];
    }
    return ab;
}

// An upper triangular N by N matrix with diagonal 2, 3, ..., N+1 (well
// separated eigenvalues) and a random strict upper triangle.
Vec upper_triangular(unsigned seed)
{
    Vec t = random(N * N, seed);
    for (int j = 0; j < N; ++j) {
        for (int i = j; i < N; ++i)
            t[i + j * N] = i == j ? 2.0 + j : 0.0;
    }
    return t;
}

Vec identity(int n)
{
    Vec q(n * n, 0.0);
    for (int i = 0; i < n; ++i)
        q[i + i * n] = 1.0;
    return q;
}

// ---------------------------------------------------------------- invariants

template <class V>
Vec abs(const V& v)
{
    Vec out;
    for (const auto& x : v)
        out.push_back(std::abs(x));
    return out;
}

// Eigenvalues (re, im) sorted by real, then imaginary part.
Vec sorted(const Vec& re, const Vec& im)
{
    std::vector<std::pair<double, double>> z;
    for (std::size_t i = 0; i < re.size(); ++i)
        z.emplace_back(re[i], im[i]);
    std::sort(z.begin(), z.end());
    Vec out;
    for (auto [a, b] : z)
        out.insert(out.end(), {a, b});
    return out;
}

Vec sorted(const CVec& w)
{
    Vec re, im;
    for (const Cplx& z : w)
        re.push_back(z.real()), im.push_back(z.imag());
    return sorted(re, im);
}

// The moduli of the entries of DGEEV's right eigenvectors: a complex pair's
// columns j and j+1 are the real and imaginary parts of one vector.
Vec eigenvector_moduli(const Vec& vr, const Vec& wi)
{
    Vec out(N * N);
    for (int j = 0; j < N; ++j) {
        bool pair = wi[j] != 0.0;
        for (int i = 0; i < N; ++i) {
            double re = vr[i + j * N], im = pair ? vr[i + (j + 1) * N] : 0.0;
            out[i + j * N] = std::hypot(re, im);
            if (pair)
                out[i + (j + 1) * N] = out[i + j * N];
        }
        if (pair)
            ++j;
    }
    return out;
}

// max |Q T Q^H - A| / max |A| for N by N matrices.
template <class T>
Vec similarity_residual(const std::vector<T>& q, const std::vector<T>& t, const std::vector<T>& a)
{
    double worst = 0.0, size = 0.0;
    for (int i = 0; i < N; ++i) {
        for (int j = 0; j < N; ++j) {
            T s = 0.0;
            for (int k = 0; k < N; ++k) {
                for (int l = 0; l < N; ++l)
                    s += q[i + k * N] * t[k + l * N] * conj(q[j + l * N]);
            }
            worst = std::max(worst, std::abs(s - a[i + j * N]));
            size = std::max(size, std::abs(a[i + j * N]));
        }
    }
    return {worst / size};
}

// ---------------------------------------------------------------- F08: eigenproblems and least
// squares

void gelqf(const int* v, Outcome& o)
{
    Vec a = random(N * M, 33), tau(N), work(LW);
    f08ahft_(v, &kSorder, &N, &M, a.data(), &N, tau.data(), work.data(), &LW, &o.info);
    o.add("A", a);
    o.add("TAU", tau);
}

void geqp3(const int* v, Outcome& o)
{
    Vec a = random(M * N, 34), tau(N), work(LW);
    IVec jpvt(N, 0);
    f08bfft_(v, &kSorder, &M, &N, a.data(), &M, jpvt.data(), tau.data(), work.data(), &LW, &o.info);
    o.add("A", a);
    o.add("JPVT", Vec(jpvt.begin(), jpvt.end()));
}

void gerqf(const int* v, Outcome& o)
{
    Vec a = random(N * M, 35), tau(N), work(LW);
    f08chft_(v, &kSorder, &N, &M, a.data(), &N, tau.data(), work.data(), &LW, &o.info);
    o.add("A", a);
    o.add("TAU", tau);
}

void syev(const int* v, Outcome& o)
{
    Vec a = random(N * N, 36), w(N), work(LW);
    f08faft_(v, &kSorder, "V", "U", &N, a.data(), &N, w.data(), work.data(), &LW, &o.info, L1, L1);
    o.add("W", w);
    o.add("|Z|", abs(a));
}

void heev(const int* v, Outcome& o)
{
    CVec a = positive_definite(crandom(N * N, 37)), work(LW);
    Vec w(N), rwork(3 * N);
    f08fnft_(v, &kSorder, "V", "L", &N, a.data(), &N, w.data(), work.data(), &LW, rwork.data(),
             &o.info, L1, L1);
    o.add("W", w);
    o.add("|Z|", abs(a));
}

void spev(const int* v, Outcome& o)
{
    Vec ap = random(N * (N + 1) / 2, 38), w(N), z(N * N), work(3 * N);
    f08gaft_(v, &kSorder, "V", "U", &N, ap.data(), w.data(), z.data(), &N, work.data(), &o.info, L1,
             L1);
    o.add("W", w);
    o.add("|Z|", abs(z));
}

void sbev(const int* v, Outcome& o)
{
    const int kd = 3, ldab = kd + 1;
    Vec ab = random(ldab * N, 39), w(N), z(N * N), work(3 * N);
    f08haft_(v, &kSorder, "V", "L", &N, &kd, ab.data(), &ldab, w.data(), z.data(), &N, work.data(),
             &o.info, L1, L1);
    o.add("W", w);
    o.add("|Z|", abs(z));
}

void stev(const int* v, Outcome& o)
{
    Vec d = random(N, 40), e = random(N - 1, 41), z(N * N), work(2 * N);
    f08jaft_(v, &kSorder, "V", &N, d.data(), e.data(), z.data(), &N, work.data(), &o.info, L1);
    o.add("W", d);
    o.add("|Z|", abs(z));
}

void gesvd(const int* v, Outcome& o)
{
    Vec a = random(M * N, 42), s(N), u(M * N), vt(N * N), work(LW);
    f08kbft_(v, &kSorder, "S", "S", &M, &N, a.data(), &M, s.data(), u.data(), &M, vt.data(), &N,
             work.data(), &LW, &o.info, L1, L1);
    o.add("S", s);
    o.add("|U|", abs(u));
    o.add("|VT|", abs(vt));
}

void zgesvd(const int* v, Outcome& o)
{
    CVec a = crandom(M * N, 43), u(M * N), vt(N * N), work(LW);
    Vec s(N), rwork(5 * N);
    f08kpft_(v, &kSorder, "S", "S", &M, &N, a.data(), &M, s.data(), u.data(), &M, vt.data(), &N,
             work.data(), &LW, rwork.data(), &o.info, L1, L1);
    o.add("S", s);
    o.add("|U|", abs(u));
}

void gbbrd(const int* v, Outcome& o)
{
    const int kl = 2, ku = 1, ldab = kl + ku + 1, ncc = 0, ldc = 1;
    Vec ab = random(ldab * N, 44), d(N), e(N - 1), q(N * N), pt(N * N), c(1), work(2 * N);
    f08left_(v, &kSorder, "B", &N, &N, &ncc, &kl, &ku, ab.data(), &ldab, d.data(), e.data(),
             q.data(), &N, pt.data(), &N, c.data(), &ldc, work.data(), &o.info, L1);
    o.add("|D|", abs(d));
    o.add("|E|", abs(e));
    o.add("|Q|", abs(q));
}

void bdsdc(const int* v, Outcome& o)
{
    Vec d = random(N, 45), e = random(N - 1, 46), u(N * N), vt(N * N), q(1),
        work(3 * N * N + 4 * N);
    IVec iq(1), iwork(8 * N);
    f08mdft_(v, &kSorder, "U", "I", &N, d.data(), e.data(), u.data(), &N, vt.data(), &N, q.data(),
             iq.data(), work.data(), iwork.data(), &o.info, L1, L1);
    o.add("S", d);
    o.add("|U|", abs(u));
    o.add("|VT|", abs(vt));
}

void geev(const int* v, Outcome& o)
{
    Vec a = random(N * N, 47), wr(N), wi(N), vl(1), vr(N * N), work(LW);
    const int one = 1;
    f08naft_(v, &kSorder, "N", "V", &N, a.data(), &N, wr.data(), wi.data(), vl.data(), &one,
             vr.data(), &N, work.data(), &LW, &o.info, L1, L1);
    o.add("sorted W", sorted(wr, wi));
    o.add("|VR|", eigenvector_moduli(vr, wi));
}

void zgeev(const int* v, Outcome& o)
{
    CVec a = crandom(N * N, 48), w(N), vl(1), vr(N * N), work(LW);
    Vec rwork(2 * N);
    const int one = 1;
    f08nnft_(v, &kSorder, "N", "V", &N, a.data(), &N, w.data(), vl.data(), &one, vr.data(), &N,
             work.data(), &LW, rwork.data(), &o.info, L1, L1);
    o.add("sorted W", sorted(w));
}

void zhseqr(const int* v, Outcome& o)
{
    CVec h = crandom(N * N, 49), w(N), z(N * N), work(LW);
    for (int j = 0; j < N; ++j) {
        for (int i = j + 2; i < N; ++i)
            h[i + j * N] = 0.0;
    }
    const CVec h0 = h;
    const int ilo = 1;
    f08psft_(v, &kSorder, "S", "I", &N, &ilo, &N, h.data(), &N, w.data(), z.data(), &N, work.data(),
             &LW, &o.info, L1, L1);
    o.add("sorted W", sorted(w));
    o.add("|Z T Z' - H|", similarity_residual(z, h, h0));
}

void trsen(const int* v, Outcome& o)
{
    Vec t = upper_triangular(50), q = identity(N), wr(N), wi(N), work(LW);
    const Vec t0 = t;
    IVec select(N, 0), iwork(LW);
    select[3] = select[7] = select[10] = 1;
    int m = 0;
    double s = 0.0, sep = 0.0;
    f08qgft_(v, &kSorder, "B", "V", select.data(), &N, t.data(), &N, q.data(), &N, wr.data(),
             wi.data(), &m, &s, &sep, work.data(), &LW, iwork.data(), &LW, &o.info, L1, L1);
    o.add("W", wr);
    o.add("M S SEP", {double(m), s, sep});
    o.add("|Q T Q' - T0|", similarity_residual(q, t, t0));
}

void sygv(const int* v, Outcome& o)
{
    Vec a = random(N * N, 51), b = positive_definite(random(N * N, 52)), w(N), work(LW);
    const int itype = 1;
    f08saft_(v, &kSorder, &itype, "V", "U", &N, a.data(), &N, b.data(), &N, w.data(), work.data(),
             &LW, &o.info, L1, L1);
    o.add("W", w);
    o.add("|Z|", abs(a));
}

void hpgv(const int* v, Outcome& o)
{
    CVec ap = packed(positive_definite(crandom(N * N, 53)), 'U'),
         bp = packed(positive_definite(crandom(N * N, 54)), 'U'), z(N * N), work(2 * N);
    Vec w(N), rwork(3 * N);
    const int itype = 2;
    f08tnft_(v, &kSorder, &itype, "V", "U", &N, ap.data(), bp.data(), w.data(), z.data(), &N,
             work.data(), rwork.data(), &o.info, L1, L1);
    o.add("W", w);
    o.add("|Z|", abs(z));
}

void sbgv(const int* v, Outcome& o)
{
    const int ka = 3, kb = 2;
    Vec ab = random((ka + 1) * N, 55), bb = lower_band(positive_definite(random(N * N, 56)), kb),
        w(N), z(N * N), work(3 * N);
    const int ldab = ka + 1, ldbb = kb + 1;
    f08uaft_(v, &kSorder, "V", "L", &N, &ka, &kb, ab.data(), &ldab, bb.data(), &ldbb, w.data(),
             z.data(), &N, work.data(), &o.info, L1, L1);
    o.add("W", w);
    o.add("|Z|", abs(z));
}

void ggsvd3(const int* v, Outcome& o)
{
    const int p = 8;
    Vec a = random(M * N, 57), b = random(p * N, 58), alpha(N), beta(N), u(M * M), vv(p * p),
        q(N * N), work(LW);
    IVec iwork(N);
    int k = 0, l = 0;
    f08vaft_(v, &kSorder, "N", "N", "N", &M, &N, &p, &k, &l, a.data(), &M, b.data(), &p,
             alpha.data(), beta.data(), u.data(), &M, vv.data(), &p, q.data(), &N, work.data(), &LW,
             iwork.data(), &o.info, L1, L1, L1);
    o.add("K L", {double(k), double(l)});
    o.add("ALPHA", alpha);
    o.add("BETA", beta);
}

void ggev(const int* v, Outcome& o)
{
    Vec a = random(N * N, 59), b = random(N * N, 60), ar(N), ai(N), beta(N), vl(1), vr(1), work(LW);
    const int one = 1;
    f08waft_(v, &kSorder, "N", "N", &N, a.data(), &N, b.data(), &N, ar.data(), ai.data(),
             beta.data(), vl.data(), &one, vr.data(), &one, work.data(), &LW, &o.info, L1, L1);
    for (int i = 0; i < N; ++i)
        ar[i] /= beta[i], ai[i] /= beta[i];
    o.add("sorted ALPHA/BETA", sorted(ar, ai));
}

void gghd3(const int* v, Outcome& o)
{
    Vec a = random(N * N, 61), b = upper_triangular(62), q(N * N), z(N * N), work(LW);
    const int ilo = 1;
    f08wkft_(v, &kSorder, "I", "I", &N, &ilo, &N, a.data(), &N, b.data(), &N, q.data(), &N,
             z.data(), &N, work.data(), &LW, &o.info, L1, L1);
    o.add("|H|", abs(a));
    o.add("|T|", abs(b));
}

void hgeqz(const int* v, Outcome& o)
{
    Vec h = random(N * N, 69), t = upper_triangular(70), ar(N), ai(N), beta(N), q(1), z(1),
        work(LW);
    for (int j = 0; j < N; ++j) {
        for (int i = j + 2; i < N; ++i)
            h[i + j * N] = 0.0;
    }
    const int ilo = 1, one = 1;
    f08xaft_(v, &kSorder, "E", "N", "N", &N, &ilo, &N, h.data(), &N, t.data(), &N, ar.data(),
             ai.data(), beta.data(), q.data(), &one, z.data(), &one, work.data(), &LW, &o.info, L1,
             L1, L1);
    for (int i = 0; i < N; ++i)
        ar[i] /= beta[i], ai[i] /= beta[i];
    o.add("sorted ALPHA/BETA", sorted(ar, ai));
}

void tgsen(const int* v, Outcome& o)
{
    Vec a = upper_triangular(63), b = upper_triangular(64), q = identity(N), z = identity(N), ar(N),
        ai(N), beta(N), dif(2), work(LW);
    IVec select(N, 0), iwork(LW);
    select[2] = select[9] = 1;
    const int ijob = 1, wantq = 1, wantz = 1;
    int m = 0;
    double pl = 0.0, pr = 0.0;
    f08ygft_(v, &kSorder, &ijob, &wantq, &wantz, select.data(), &N, a.data(), &N, b.data(), &N,
             ar.data(), ai.data(), beta.data(), q.data(), &N, z.data(), &N, &m, &pl, &pr,
             dif.data(), work.data(), &LW, iwork.data(), &LW, &o.info);
    for (int i = 0; i < N; ++i)
        ar[i] /= beta[i];
    o.add("ALPHA/BETA", ar);
    o.add("M PL PR", {double(m), pl, pr});
}

void gglse(const int* v, Outcome& o)
{
    const int p = 4;
    Vec a = random(M * N, 65), b = random(p * N, 66), c = random(M, 67), d = random(p, 68), x(N),
        work(LW);
    f08zaft_(v, &kSorder, &M, &N, &p, a.data(), &M, b.data(), &p, c.data(), d.data(), x.data(),
             work.data(), &LW, &o.info);
    o.add("X", x);
}

#define LBX_ROW(NAME, STD, FN)                          \
    {                                                   \
#NAME "/" #STD, lbx::linalg::NAME##_pairing, FN \
    }

const Row kRows[] = {
    LBX_ROW(F08AHF, DGELQF, gelqf),  LBX_ROW(F08BFF, DGEQP3, geqp3),
    LBX_ROW(F08CHF, DGERQF, gerqf),  LBX_ROW(F08FAF, DSYEV, syev),
    LBX_ROW(F08FNF, ZHEEV, heev),    LBX_ROW(F08GAF, DSPEV, spev),
    LBX_ROW(F08HAF, DSBEV, sbev),    LBX_ROW(F08JAF, DSTEV, stev),
    LBX_ROW(F08KBF, DGESVD, gesvd),  LBX_ROW(F08KPF, ZGESVD, zgesvd),
    LBX_ROW(F08LEF, DGBBRD, gbbrd),  LBX_ROW(F08MDF, DBDSDC, bdsdc),
    LBX_ROW(F08NAF, DGEEV, geev),    LBX_ROW(F08NNF, ZGEEV, zgeev),
    LBX_ROW(F08PSF, ZHSEQR, zhseqr), LBX_ROW(F08QGF, DTRSEN, trsen),
    LBX_ROW(F08SAF, DSYGV, sygv),    LBX_ROW(F08TNF, ZHPGV, hpgv),
    LBX_ROW(F08UAF, DSBGV, sbgv),    LBX_ROW(F08VAF, DGGSVD3, ggsvd3),
    LBX_ROW(F08WAF, DGGEV, ggev),    LBX_ROW(F08WKF, DGGHD3, gghd3),
    LBX_ROW(F08XAF, DHGEQZ, hgeqz),  LBX_ROW(F08YGF, DTGSEN, tgsen),
    LBX_ROW(F08ZAF, DGGLSE, gglse),
};

class OwnVsVendor : public testing::TestWithParam<Row> {};

TEST_P(OwnVsVendor, SameResults)
{
    const Row& row = GetParam();
    EXPECT_EQ(row.generated, row.pairing);
    const int vendor = 1, own = 0;
    Outcome want, got;
    row.run(&vendor, want);
    row.run(&own, got);
    ASSERT_EQ(want.info, 0)
        << "the external routine failed; the inputs are not what this row meant";
    ASSERT_EQ(got.info, want.info);
    ASSERT_EQ(got.parts.size(), want.parts.size());
    const double eps = std::numeric_limits<double>::epsilon();
    for (std::size_t p = 0; p < want.parts.size(); ++p) {
        const auto& [name, w] = want.parts[p];
        const Vec& g = got.parts[p].second;
        ASSERT_EQ(g.size(), w.size()) << name;
        double size = 1.0;
        for (double x : w)
            size = std::max(size, std::fabs(x));
        const double tol = 100.0 * std::max(M, N) * eps * size;
        for (std::size_t i = 0; i < w.size(); ++i) {
            ASSERT_NEAR(g[i], w[i], tol) << name << "[" << i << "]";
        }
    }
}

std::string row_name(const testing::TestParamInfo<Row>& info)
{
    std::string s(info.param.pairing);
    return s.substr(s.find('/') + 1);
}

INSTANTIATE_TEST_SUITE_P(Linalg, OwnVsVendor, testing::ValuesIn(kRows), row_name);

}  // namespace
