// CALL_VENDOR's dispatch: one F08 routine of each matrix family, the same
// random inputs through the traced entry with CALL_VENDOR true (the external
// routine) and false (the own path).  INFO must agree and every output to
// 100*n*eps of its size; eigenvectors and singular vectors are compared by
// the moduli of their entries (their signs are free), complex eigenvalues in
// sorted order.  The numerics of the own path are LAPACK's testing programs'
// business (linalg.lapack_lin).  Each row also checks that its entry is
// paired with the standard routine it names.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>
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
using CVec = std::vector<std::complex<double>>;

const int kSorder = 1, kOne = 1;
constexpr int N = 12, M = 16;     // order of the square problems, rows of the others
constexpr int LW = 64 * (M + N);  // workspace: above every routine's need
const std::size_t L1 = 1;         // hidden length of a one-character option

// What a run produced: INFO and named outputs (or invariants of them).
struct Outcome {
    int info = 0;
    std::vector<std::pair<std::string, Vec>> parts;
    void add(std::string name, Vec v) { parts.emplace_back(std::move(name), std::move(v)); }
};

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
    const Vec re = random(count, seed), im = random(count, seed + 1000);
    CVec v(count);
    for (std::size_t i = 0; i < count; ++i)
        v[i] = {re[i], im[i]};
    return v;
}

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

struct Row {
    const char* pairing;         // what this test calls
    std::string_view generated;  // what the catalogue pairs the entry with
    void (*run)(const int* vendor, Outcome& o);
};

// clang-format off
const Row kRows[] = {
    {"F08AHF/DGELQF", lbx::linalg::F08AHF_pairing, [](const int* v, Outcome& o) {  // orthogonal factorization
        Vec a = random(N * M, 33), tau(N), work(LW);
        f08ahft_(v, &kSorder, &N, &M, a.data(), &N, tau.data(), work.data(), &LW, &o.info);
        o.add("A", a);
        o.add("TAU", tau); }},
    {"F08FAF/DSYEV", lbx::linalg::F08FAF_pairing, [](const int* v, Outcome& o) {  // symmetric eigenproblem
        Vec a = random(N * N, 36), w(N), work(LW);
        f08faft_(v, &kSorder, "V", "U", &N, a.data(), &N, w.data(), work.data(), &LW, &o.info, L1, L1);
        o.add("W", w);
        o.add("|Z|", abs(a)); }},
    {"F08FNF/ZHEEV", lbx::linalg::F08FNF_pairing, [](const int* v, Outcome& o) {  // complex Hermitian
        CVec a = crandom(N * N, 37), work(LW);
        Vec w(N), rwork(3 * N);
        f08fnft_(v, &kSorder, "N", "L", &N, a.data(), &N, w.data(), work.data(), &LW, rwork.data(), &o.info, L1, L1);
        o.add("W", w); }},
    {"F08HAF/DSBEV", lbx::linalg::F08HAF_pairing, [](const int* v, Outcome& o) {  // band
        const int kd = 3, ldab = kd + 1;
        Vec ab = random(ldab * N, 39), w(N), z(N * N), work(3 * N);
        f08haft_(v, &kSorder, "V", "L", &N, &kd, ab.data(), &ldab, w.data(), z.data(), &N, work.data(), &o.info, L1, L1);
        o.add("W", w);
        o.add("|Z|", abs(z)); }},
    {"F08KBF/DGESVD", lbx::linalg::F08KBF_pairing, [](const int* v, Outcome& o) {  // singular values
        Vec a = random(M * N, 42), s(N), u(M * N), vt(N * N), work(LW);
        f08kbft_(v, &kSorder, "S", "S", &M, &N, a.data(), &M, s.data(), u.data(), &M, vt.data(), &N, work.data(), &LW, &o.info, L1, L1);
        o.add("S", s);
        o.add("|U|", abs(u)); }},
    {"F08NAF/DGEEV", lbx::linalg::F08NAF_pairing, [](const int* v, Outcome& o) {  // nonsymmetric eigenproblem
        Vec a = random(N * N, 47), wr(N), wi(N), vl(1), vr(1), work(LW);
        f08naft_(v, &kSorder, "N", "N", &N, a.data(), &N, wr.data(), wi.data(), vl.data(), &kOne, vr.data(), &kOne, work.data(), &LW, &o.info, L1, L1);
        o.add("sorted W", sorted(wr, wi)); }},
    {"F08WAF/DGGEV", lbx::linalg::F08WAF_pairing, [](const int* v, Outcome& o) {  // generalized eigenproblem
        Vec a = random(N * N, 59), b = random(N * N, 60), ar(N), ai(N), beta(N), vl(1), vr(1), work(LW);
        f08waft_(v, &kSorder, "N", "N", &N, a.data(), &N, b.data(), &N, ar.data(), ai.data(), beta.data(), vl.data(), &kOne, vr.data(), &kOne, work.data(), &LW, &o.info, L1, L1);
        for (int i = 0; i < N; ++i)
            ar[i] /= beta[i], ai[i] /= beta[i];
        o.add("sorted ALPHA/BETA", sorted(ar, ai)); }},
    {"F08ZAF/DGGLSE", lbx::linalg::F08ZAF_pairing, [](const int* v, Outcome& o) {  // constrained least squares
        const int p = 4;
        Vec a = random(M * N, 65), b = random(p * N, 66), c = random(M, 67), d = random(p, 68), x(N), work(LW);
        f08zaft_(v, &kSorder, &M, &N, &p, a.data(), &M, b.data(), &p, c.data(), d.data(), x.data(), work.data(), &LW, &o.info);
        o.add("X", x); }},
};
// clang-format on

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
    for (std::size_t p = 0; p < want.parts.size(); ++p) {
        const auto& [name, w] = want.parts[p];
        const Vec& g = got.parts[p].second;
        ASSERT_EQ(g.size(), w.size()) << name;
        double size = 1.0;
        for (double x : w)
            size = std::max(size, std::fabs(x));
        const double tol = 100.0 * M * std::numeric_limits<double>::epsilon() * size;
        for (std::size_t i = 0; i < w.size(); ++i)
            ASSERT_NEAR(g[i], w[i], tol) << name << "[" << i << "]";
    }
}

INSTANTIATE_TEST_SUITE_P(Linalg, OwnVsVendor, testing::ValuesIn(kRows),
                         [](const testing::TestParamInfo<Row>& info) {
                             const std::string s(info.param.pairing);
                             return s.substr(s.find('/') + 1);
                         });

}  // namespace
