// The solvers of A X = B (F04BAF and its relatives) through their traced
// entries, one table over all of them: solutions of systems with a known
// integer X read from each storage and triangle, RCOND against the exact
// 1-norm condition number (a textbook Gauss-Jordan inverse in long double),
// every catalogue message with the values it quotes (the argument numbers
// from each routine's argument list), the check order with outputs left
// alone, the breakdown column and the ill-conditioning warning; then the
// band limits and F04BAF's edges (RCOND exactly eps, NaN entries, the plain
// entry).  The factorizations themselves are LAPACK's testing programs'.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <cstring>
#include <initializer_list>
#include <limits>
#include <sstream>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "gen/linalg.hpp"
#include "lbx3207qk.h"
#include "tests/support/messages.hpp"

namespace {

using lbx::test::Raised;
using Z = std::complex<double>;

constexpr double eps = 0x1p-53;  // machine precision (X02AJF)
const int one = 1;

enum class Kind { GE, GB, GT, PO, PP, PB, PT, SY, SP };
// How a real test matrix becomes a complex one.
enum class Shape { real, general, hermitian, symmetric };

// A dense n x m matrix, column by column.
template <class T>
struct Dense {
    int n = 0, m = 0;
    std::vector<T> v;
    Dense(int n_, int m_) : n(n_), m(m_), v(static_cast<std::size_t>(n_) * m_) {}
    Dense(std::initializer_list<std::initializer_list<double>> rows)
        : Dense(static_cast<int>(rows.size()), static_cast<int>(rows.begin()->size()))
    {
        int i = 0;
        for (const auto& row : rows) {
            int j = 0;
            for (double x : row)
                (*this)(i, j++) = x;
            ++i;
        }
    }
    T& operator()(int i, int j) { return v[i + static_cast<std::size_t>(j) * n]; }
    T operator()(int i, int j) const { return v[i + static_cast<std::size_t>(j) * n]; }
};

// Arguments and arrays of one call, as the traced entry receives them.
template <class T>
struct Problem {
    char uplo = 'U';
    int n = 0, kl = 0, ku = 0, kd = 0, nrhs = 1, lda = 1, ldab = 1, ldb = 1;
    std::vector<T> a, ab, ap, dl, d, du, du2, e, b;
    std::vector<double> dr;
    std::vector<int> ipiv;
    double rcond = -7.0, errbnd = -7.0;
    char errbuf[200] = {};
    int ifail = 0;

    bool same_data(const Problem& o) const
    {
        auto eq = [](const auto& x, const auto& y) {
            return x.size() == y.size() &&
                   (x.empty() || std::memcmp(x.data(), y.data(), x.size() * sizeof x[0]) == 0);
        };
        return eq(a, o.a) && eq(ab, o.ab) && eq(ap, o.ap) && eq(dl, o.dl) && eq(d, o.d) &&
               eq(du, o.du) && eq(du2, o.du2) && eq(e, o.e) && eq(b, o.b) && eq(dr, o.dr) &&
               eq(ipiv, o.ipiv) && rcond == o.rcond && errbnd == o.errbnd;
    }
};

template <class T>
struct Routine {
    const char* name;
    Kind kind;
    Shape shape;
    const char* args;  // the argument list, for the expected error numbers
    void (*call)(Problem<T>&);
};

using P = Problem<double>;
using PZ = Problem<Z>;

// clang-format off
const Routine<double> real_routines[] = {
    {"F04BAF", Kind::GE, Shape::real, "N NRHS A LDA IPIV B LDB", [](P& p) {
        f04baft_(&one, &p.n, &p.nrhs, p.a.data(), &p.lda, p.ipiv.data(), p.b.data(), &p.ldb, &p.rcond, &p.errbnd, p.errbuf, &p.ifail, 200); }},
    {"F04BBF", Kind::GB, Shape::real, "N KL KU NRHS AB LDAB IPIV B LDB", [](P& p) {
        f04bbft_(&one, &p.n, &p.kl, &p.ku, &p.nrhs, p.ab.data(), &p.ldab, p.ipiv.data(), p.b.data(), &p.ldb, &p.rcond, &p.errbnd, p.errbuf, &p.ifail, 200); }},
    {"F04BCF", Kind::GT, Shape::real, "N NRHS DL D DU DU2 IPIV B LDB", [](P& p) {
        f04bcft_(&one, &p.n, &p.nrhs, p.dl.data(), p.d.data(), p.du.data(), p.du2.data(), p.ipiv.data(), p.b.data(), &p.ldb, &p.rcond, &p.errbnd, p.errbuf, &p.ifail, 200); }},
    {"F04BDF", Kind::PO, Shape::real, "UPLO N NRHS A LDA B LDB", [](P& p) {
        f04bdft_(&one, &p.uplo, &p.n, &p.nrhs, p.a.data(), &p.lda, p.b.data(), &p.ldb, &p.rcond, &p.errbnd, p.errbuf, &p.ifail, 1, 200); }},
    {"F04BEF", Kind::PP, Shape::real, "UPLO N NRHS AP B LDB", [](P& p) {
        f04beft_(&one, &p.uplo, &p.n, &p.nrhs, p.ap.data(), p.b.data(), &p.ldb, &p.rcond, &p.errbnd, p.errbuf, &p.ifail, 1, 200); }},
    {"F04BFF", Kind::PB, Shape::real, "UPLO N KD NRHS AB LDAB B LDB", [](P& p) {
        f04bfft_(&one, &p.uplo, &p.n, &p.kd, &p.nrhs, p.ab.data(), &p.ldab, p.b.data(), &p.ldb, &p.rcond, &p.errbnd, p.errbuf, &p.ifail, 1, 200); }},
    {"F04BGF", Kind::PT, Shape::real, "N NRHS D E B LDB", [](P& p) {
        f04bgft_(&one, &p.n, &p.nrhs, p.dr.data(), p.e.data(), p.b.data(), &p.ldb, &p.rcond, &p.errbnd, p.errbuf, &p.ifail, 200); }},
    {"F04BHF", Kind::SY, Shape::real, "UPLO N NRHS A LDA IPIV B LDB", [](P& p) {
        f04bhft_(&one, &p.uplo, &p.n, &p.nrhs, p.a.data(), &p.lda, p.ipiv.data(), p.b.data(), &p.ldb, &p.rcond, &p.errbnd, p.errbuf, &p.ifail, 1, 200); }},
    {"F04BJF", Kind::SP, Shape::real, "UPLO N NRHS AP IPIV B LDB", [](P& p) {
        f04bjft_(&one, &p.uplo, &p.n, &p.nrhs, p.ap.data(), p.ipiv.data(), p.b.data(), &p.ldb, &p.rcond, &p.errbnd, p.errbuf, &p.ifail, 1, 200); }},
};

const Routine<Z> complex_routines[] = {
    {"F04CAF", Kind::GE, Shape::general, "N NRHS A LDA IPIV B LDB", [](PZ& p) {
        f04caft_(&one, &p.n, &p.nrhs, p.a.data(), &p.lda, p.ipiv.data(), p.b.data(), &p.ldb, &p.rcond, &p.errbnd, p.errbuf, &p.ifail, 200); }},
    {"F04CBF", Kind::GB, Shape::general, "N KL KU NRHS AB LDAB IPIV B LDB", [](PZ& p) {
        f04cbft_(&one, &p.n, &p.kl, &p.ku, &p.nrhs, p.ab.data(), &p.ldab, p.ipiv.data(), p.b.data(), &p.ldb, &p.rcond, &p.errbnd, p.errbuf, &p.ifail, 200); }},
    {"F04CCF", Kind::GT, Shape::general, "N NRHS DL D DU DU2 IPIV B LDB", [](PZ& p) {
        f04ccft_(&one, &p.n, &p.nrhs, p.dl.data(), p.d.data(), p.du.data(), p.du2.data(), p.ipiv.data(), p.b.data(), &p.ldb, &p.rcond, &p.errbnd, p.errbuf, &p.ifail, 200); }},
    {"F04CDF", Kind::PO, Shape::hermitian, "UPLO N NRHS A LDA B LDB", [](PZ& p) {
        f04cdft_(&one, &p.uplo, &p.n, &p.nrhs, p.a.data(), &p.lda, p.b.data(), &p.ldb, &p.rcond, &p.errbnd, p.errbuf, &p.ifail, 1, 200); }},
    {"F04CEF", Kind::PP, Shape::hermitian, "UPLO N NRHS AP B LDB", [](PZ& p) {
        f04ceft_(&one, &p.uplo, &p.n, &p.nrhs, p.ap.data(), p.b.data(), &p.ldb, &p.rcond, &p.errbnd, p.errbuf, &p.ifail, 1, 200); }},
    {"F04CFF", Kind::PB, Shape::hermitian, "UPLO N KD NRHS AB LDAB B LDB", [](PZ& p) {
        f04cfft_(&one, &p.uplo, &p.n, &p.kd, &p.nrhs, p.ab.data(), &p.ldab, p.b.data(), &p.ldb, &p.rcond, &p.errbnd, p.errbuf, &p.ifail, 1, 200); }},
    {"F04CGF", Kind::PT, Shape::hermitian, "N NRHS D E B LDB", [](PZ& p) {
        f04cgft_(&one, &p.n, &p.nrhs, p.dr.data(), p.e.data(), p.b.data(), &p.ldb, &p.rcond, &p.errbnd, p.errbuf, &p.ifail, 200); }},
    {"F04CHF", Kind::SY, Shape::hermitian, "UPLO N NRHS A LDA IPIV B LDB", [](PZ& p) {
        f04chft_(&one, &p.uplo, &p.n, &p.nrhs, p.a.data(), &p.lda, p.ipiv.data(), p.b.data(), &p.ldb, &p.rcond, &p.errbnd, p.errbuf, &p.ifail, 1, 200); }},
    {"F04CJF", Kind::SP, Shape::hermitian, "UPLO N NRHS AP IPIV B LDB", [](PZ& p) {
        f04cjft_(&one, &p.uplo, &p.n, &p.nrhs, p.ap.data(), p.ipiv.data(), p.b.data(), &p.ldb, &p.rcond, &p.errbnd, p.errbuf, &p.ifail, 1, 200); }},
    {"F04DHF", Kind::SY, Shape::symmetric, "UPLO N NRHS A LDA IPIV B LDB", [](PZ& p) {
        f04dhft_(&one, &p.uplo, &p.n, &p.nrhs, p.a.data(), &p.lda, p.ipiv.data(), p.b.data(), &p.ldb, &p.rcond, &p.errbnd, p.errbuf, &p.ifail, 1, 200); }},
};
// clang-format on

constexpr int test_kl = 1, test_ku = 2, test_kd = 1;

template <class F>
void for_all(F f)
{
    for (const auto& r : real_routines)
        f(r);
    for (const auto& r : complex_routines)
        f(r);
}

// Well-conditioned 4 x 4 matrices with each storage's structure.
Dense<double> good_matrix(Kind k)
{
    switch (k) {
        case Kind::GE:
            return {{4, -1, 2, 0.5}, {1, 5, -2, 1}, {0, 3, 6, 1}, {2, 0, -1, 7}};
        case Kind::GB:  // KL = 1, KU = 2
            return {{4, -1, 2, 0}, {1, 5, -2, 1}, {0, 3, 6, 1}, {0, 0, -1, 7}};
        case Kind::GT:
            return {{4, -1, 0, 0}, {1, 5, -2, 0}, {0, 3, 6, 1}, {0, 0, -1, 7}};
        case Kind::PO:
        case Kind::PP:
            return {{4, 1, 0.5, 0}, {1, 5, 1, 0.5}, {0.5, 1, 6, 1}, {0, 0.5, 1, 7}};
        case Kind::PB:  // KD = 1
        case Kind::PT:
            return {{4, 1, 0, 0}, {1, 5, 1, 0}, {0, 1, 6, 1}, {0, 0, 1, 7}};
        case Kind::SY:
        case Kind::SP:
            return {{1, 2, 0, 1}, {2, -3, 1, 0}, {0, 1, 2, 4}, {1, 0, 4, -1}};
    }
    return {{1}};
}

// A real pattern as the routine's element type, keeping its structure.
template <class T>
Dense<T> typed(const Dense<double>& r, Shape s)
{
    Dense<T> a(r.n, r.m);
    for (int j = 0; j < r.m; ++j)
        for (int i = 0; i < r.n; ++i) {
            const double x = r(i, j);
            if constexpr (std::is_same_v<T, double>) {
                a(i, j) = x;
            } else if (s == Shape::real) {
                a(i, j) = x;
            } else if (s == Shape::general) {
                a(i, j) = i < j ? x * Z(1, 0.5) : i > j ? x * Z(1, -0.25) : Z(x, 1);
            } else if (s == Shape::hermitian) {
                a(i, j) = i < j ? x * Z(1, 0.5) : i > j ? x * Z(1, -0.5) : Z(x, 0);
            } else {
                a(i, j) = i != j ? x * Z(1, 0.5) : Z(x, 0.5);
            }
        }
    return a;
}

// The routine's storage of A, B = A X and the arguments; the triangle or
// band part that must not be read is filled with a value that would spoil
// the result.
template <class T>
Problem<T> make(const Routine<T>& r, const Dense<T>& A, const Dense<T>& X, char uplo)
{
    Problem<T> p;
    const int n = A.n;
    const bool upper = uplo == 'U';
    p.uplo = uplo;
    p.n = n;
    p.nrhs = X.m;
    p.kl = test_kl;
    p.ku = test_ku;
    p.kd = test_kd;
    p.lda = n + 1;
    p.ldb = n + 2;
    const T junk = T(1e3);
    switch (r.kind) {
        case Kind::GE:
        case Kind::PO:
        case Kind::SY:
            p.a.assign(static_cast<std::size_t>(p.lda) * n, junk);
            for (int j = 0; j < n; ++j)
                for (int i = 0; i < n; ++i)
                    if (r.kind == Kind::GE || (upper ? i <= j : i >= j))
                        p.a[i + j * p.lda] = A(i, j);
            break;
        case Kind::GB:
            p.ldab = 2 * p.kl + p.ku + 2;
            p.ab.assign(static_cast<std::size_t>(p.ldab) * n, junk);
            for (int j = 0; j < n; ++j)
                for (int i = std::max(0, j - p.ku); i <= std::min(n - 1, j + p.kl); ++i)
                    p.ab[p.kl + p.ku + i - j + j * p.ldab] = A(i, j);
            break;
        case Kind::PB:
            p.ldab = p.kd + 2;
            p.ab.assign(static_cast<std::size_t>(p.ldab) * n, junk);
            for (int j = 0; j < n; ++j)
                for (int i = std::max(0, j - p.kd); i <= std::min(n - 1, j + p.kd); ++i) {
                    if (upper && i <= j)
                        p.ab[p.kd + i - j + j * p.ldab] = A(i, j);
                    if (!upper && i >= j)
                        p.ab[i - j + j * p.ldab] = A(i, j);
                }
            break;
        case Kind::PP:
        case Kind::SP:
            for (int j = 0; j < n; ++j)
                for (int i = upper ? 0 : j; i < (upper ? j + 1 : n); ++i)
                    p.ap.push_back(A(i, j));
            break;
        case Kind::GT:
            for (int i = 0; i < n; ++i) {
                p.d.push_back(A(i, i));
                if (i + 1 < n) {
                    p.dl.push_back(A(i + 1, i));
                    p.du.push_back(A(i, i + 1));
                }
            }
            p.du2.assign(std::max(1, n), junk);
            break;
        case Kind::PT:
            for (int i = 0; i < n; ++i) {
                p.dr.push_back(std::real(A(i, i)));
                if (i + 1 < n)
                    p.e.push_back(A(i + 1, i));
            }
            break;
    }
    p.ipiv.assign(std::max(1, n), -5);
    p.b.assign(static_cast<std::size_t>(p.ldb) * std::max(1, X.m), junk);
    for (int c = 0; c < X.m; ++c)
        for (int i = 0; i < n; ++i) {
            T s = T(0);
            for (int k = 0; k < n; ++k)
                s += A(i, k) * X(k, c);
            p.b[i + c * p.ldb] = s;
        }
    // Arrays of at least one element, as a caller passes them.
    for (auto* v : {&p.a, &p.ab, &p.ap, &p.dl, &p.du, &p.d, &p.e})
        if (v->empty())
            v->assign(1, junk);
    if (p.dr.empty())
        p.dr.assign(1, 1e3);
    return p;
}

template <class T>
Dense<T> integer_solution(int n, int nrhs)
{
    Dense<T> x(n, nrhs);
    for (int c = 0; c < nrhs; ++c)
        for (int i = 0; i < n; ++i) {
            const double re = (i + 1) * (c == 0 ? 1 : -2) + c;
            if constexpr (std::is_same_v<T, double>)
                x(i, c) = re;
            else
                x(i, c) = Z(re, i - 2 * c);
        }
    return x;
}

// The exact 1-norm condition number: ||A||_1 ||A^-1||_1, the inverse by
// Gauss-Jordan elimination with partial pivoting in long double.
template <class T>
long double condition_1(const Dense<T>& A)
{
    using L = std::complex<long double>;
    const int n = A.n;
    std::vector<L> m(static_cast<std::size_t>(n) * 2 * n);
    auto at = [&](int i, int j) -> L& { return m[i * 2 * n + j]; };
    for (int i = 0; i < n; ++i)
        for (int j = 0; j < n; ++j) {
            at(i, j) = L(std::real(A(i, j)), std::imag(A(i, j)));
            at(i, n + j) = i == j ? 1.0L : 0.0L;
        }
    for (int c = 0; c < n; ++c) {
        int piv = c;
        for (int i = c + 1; i < n; ++i)
            if (std::abs(at(i, c)) > std::abs(at(piv, c)))
                piv = i;
        for (int j = 0; j < 2 * n; ++j)
            std::swap(at(c, j), at(piv, j));
        const L d = at(c, c);
        for (int j = 0; j < 2 * n; ++j)
            at(c, j) /= d;
        for (int i = 0; i < n; ++i)
            if (i != c) {
                const L f = at(i, c);
                for (int j = 0; j < 2 * n; ++j)
                    at(i, j) -= f * at(c, j);
            }
    }
    long double na = 0, ni = 0;
    for (int j = 0; j < n; ++j) {
        long double sa = 0, si = 0;
        for (int i = 0; i < n; ++i) {
            sa += std::abs(L(std::real(A(i, j)), std::imag(A(i, j))));
            si += std::abs(at(i, n + j));
        }
        na = std::max(na, sa);
        ni = std::max(ni, si);
    }
    return na * ni;
}

// 3 x 3 matrices whose factorization breaks down at column 2 (a zero pivot,
// a leading minor of order 2 that is not positive definite, a zero diagonal
// block).
Dense<double> broken_matrix(Kind k)
{
    switch (k) {
        case Kind::GE:
        case Kind::GB:
        case Kind::GT:
            return {{1, 1, 0}, {0, 0, 1}, {0, 0, 1}};
        case Kind::PO:
        case Kind::PP:
        case Kind::PB:
        case Kind::PT:
            return {{1, 1, 0}, {1, 1, 0}, {0, 0, 1}};
        default:
            return {{1, 0, 0}, {0, 0, 0}, {0, 0, 1}};
    }
}

template <class T>
Raised run(const Routine<T>& r, Problem<T>& p)
{
    r.call(p);
    return lbx::test::split(p.errbuf, p.ifail);
}

// Both triangles where the routine takes UPLO: the well-conditioned system
// solved to 1e-13, B past row N untouched, RCOND within a factor 3 of the
// exact value and ERRBND = eps/RCOND; N = 0 gives RCOND = 1.
template <class T>
void check_solutions(const Routine<T>& r)
{
    const bool has_uplo = std::strncmp(r.args, "UPLO", 4) == 0;
    for (char uplo : has_uplo ? std::vector<char>{'U', 'L'} : std::vector<char>{'U'}) {
        SCOPED_TRACE(std::string(r.name) + " UPLO = " + uplo);
        const Dense<T> A = typed<T>(good_matrix(r.kind), r.shape);
        const Dense<T> X = integer_solution<T>(A.n, 3);
        Problem<T> p = make(r, A, X, uplo);
        r.call(p);
        ASSERT_EQ(p.ifail, 0);
        for (int c = 0; c < X.m; ++c)
            for (int i = 0; i < A.n; ++i)
                EXPECT_LE(std::abs(p.b[i + c * p.ldb] - X(i, c)), 1e-13 * std::abs(X(i, c)) + 1e-14)
                    << "X(" << i + 1 << "," << c + 1 << ")";
        EXPECT_EQ(p.b[A.n + p.ldb], T(1e3)) << "B past row N";
        const double exact = static_cast<double>(1.0L / condition_1(A));
        EXPECT_GE(p.rcond, exact * (1 - 1e-12));
        EXPECT_LE(p.rcond, 3 * exact);
        EXPECT_EQ(p.errbnd, eps / p.rcond);
    }
    Problem<T> p = make(r, Dense<T>(0, 0), Dense<T>(0, 1), 'U');
    r.call(p);
    EXPECT_EQ(p.ifail, 0);
    EXPECT_EQ(p.rcond, 1.0);
}

TEST(Solvers, SolutionsAndConditionEstimates)
{
    for_all([](const auto& r) { check_solutions(r); });
}

// The arguments a solver checks, with a bad and a good value each.
template <class T>
void set_argument(Problem<T>& p, const std::string& name, bool bad)
{
    if (name == "UPLO")
        p.uplo = bad ? 'X' : 'U';
    if (name == "N")
        p.n = bad ? -1 : 3;
    if (name == "KL")
        p.kl = bad ? -1 : test_kl;
    if (name == "KU")
        p.ku = bad ? -1 : test_ku;
    if (name == "KD")
        p.kd = bad ? -1 : test_kd;
    if (name == "NRHS")
        p.nrhs = bad ? -1 : 2;
    if (name == "LDA")
        p.lda = bad ? 2 : 4;
    if (name == "LDAB")
        p.ldab = bad ? 0 : 2 * test_kl + test_ku + 2;
    if (name == "LDB")
        p.ldb = bad ? 2 : 5;
}

// Each checked argument with its message and the values it quotes (N = 3,
// KL = 1, KU = 2, KD = 1).
struct BadArgument {
    const char* arg;
    const char* id;
    std::vector<std::string> values;
};
const BadArgument bad_arguments[] = {
    {"UPLO", "UPLO_INVALID", {"X"}},
    {"N", "N_NEGATIVE", {"-1"}},
    {"KL", "KL_NEGATIVE", {"-1"}},
    {"KU", "KU_NEGATIVE", {"-1"}},
    {"KD", "KD_NEGATIVE", {"-1"}},
    {"NRHS", "NRHS_NEGATIVE", {"-1"}},
    {"LDA", "LDA_TOO_SMALL", {"2", "3"}},
    {"LDAB", "LDAB_BAND", {"0", "1", "2"}},
    {"LDAB", "LDAB_SYMMETRIC_BAND", {"0", "1"}},
    {"LDB", "LDB_TOO_SMALL", {"2", "3"}},
};

// Every argument check violated at once, then mended one by one in the
// routine's argument order: each call reports the first bad one with its
// argument number and changes nothing.  Then the catalogue triggers: each
// argument spoiled alone, the breakdown in column 2 (RCOND = 0, ERRBND = 1)
// and RCOND = eps/4 (the warning, the solution kept).
template <class T>
void check_arguments(const Routine<T>& r, std::vector<lbx::test::Trigger>& triggers)
{
    const Dense<T> X = integer_solution<T>(3, 2);
    Problem<T> p = make(r, typed<T>(broken_matrix(Kind::GE), Shape::real), X, 'U');
    std::vector<std::pair<std::string, int>> args;  // checked names and their numbers
    std::istringstream in(r.args);
    std::string word;
    for (int position = 1; in >> word; ++position)
        for (const BadArgument& c : bad_arguments)
            if (word == c.arg && (args.empty() || args.back().first != word)) {
                args.emplace_back(word, position);
                set_argument(p, word, true);
            }
    for (const auto& a : args) {
        SCOPED_TRACE(std::string(r.name) + " " + a.first);
        const Problem<T> before = p;
        r.call(p);
        EXPECT_EQ(p.ifail, -a.second);
        EXPECT_TRUE(p.same_data(before)) << "outputs changed";
        set_argument(p, a.first, false);
    }

    const bool general_band = std::strstr(r.args, "KL") != nullptr;
    for (const BadArgument& c : bad_arguments) {
        const bool band_id = std::strcmp(c.id, "LDAB_BAND") == 0;
        if (!std::any_of(args.begin(), args.end(),
                         [&](const auto& a) { return a.first == c.arg; }) ||
            (std::strcmp(c.arg, "LDAB") == 0 && band_id != general_band))
            continue;
        triggers.push_back({r.name, c.id,
                            [&r, c] {
                                Problem<T> q = make(r, typed<T>(good_matrix(Kind::PB), Shape::real),
                                                    integer_solution<T>(4, 2), 'U');
                                q.n = 3;
                                set_argument(q, c.arg, true);
                                return run(r, q);
                            },
                            c.values});
    }
    const char* breakdown = r.kind == Kind::GE || r.kind == Kind::GB || r.kind == Kind::GT
                                ? "ZERO_PIVOT"
                            : r.kind == Kind::SY || r.kind == Kind::SP ? "ZERO_BLOCK"
                                                                       : "NOT_POSITIVE_DEFINITE";
    triggers.push_back({r.name,
                        breakdown,
                        [&r, X] {
                            Problem<T> q =
                                make(r, typed<T>(broken_matrix(r.kind), Shape::real), X, 'U');
                            const Raised got = run(r, q);
                            EXPECT_EQ(q.rcond, 0.0) << r.name;
                            EXPECT_EQ(q.errbnd, 1.0) << r.name;
                            return got;
                        },
                        {"2"}});
    triggers.push_back({r.name, "ILL_CONDITIONED", [&r, X] {
                            const Dense<double> ill = {{1, 0, 0}, {0, eps / 4, 0}, {0, 0, 1}};
                            Problem<T> q = make(r, typed<T>(ill, Shape::real), X, 'L');
                            const Raised got = run(r, q);
                            EXPECT_EQ(q.ifail, 4) << r.name;
                            EXPECT_GE(q.rcond, eps / 4) << r.name;
                            EXPECT_LT(q.rcond, eps) << r.name;
                            EXPECT_EQ(q.errbnd, 1.0) << r.name;
                            EXPECT_LE(std::abs(q.b[1] - X(1, 0)), 4 * eps * std::abs(X(1, 0)))
                                << r.name << ": solution kept";
                            return got;
                        }});
}

TEST(Solvers, ArgumentsBreakdownsAndWarnings)
{
    std::vector<lbx::test::Trigger> triggers;
    for_all([&](const auto& r) { check_arguments(r, triggers); });
    lbx::test::check_catalogue(lbx::linalg::catalogue_messages, triggers);
}

TEST(Solvers, BandWidthsNearTheIntegerLimit)
{
    // 2*KL+KU+1 and KD+1 past the largest integer: LDAB is too small, not wrapped.
    const int big = 1 << 30, max = std::numeric_limits<int>::max();
    Problem<double> p = make(real_routines[1], typed<double>(good_matrix(Kind::GB), Shape::real),
                             integer_solution<double>(4, 1), 'U');
    p.kl = big;
    p.ku = big;
    real_routines[1].call(p);
    EXPECT_EQ(p.ifail, -6);
    Problem<Z> q = make(complex_routines[5], typed<Z>(good_matrix(Kind::PB), Shape::hermitian),
                        integer_solution<Z>(4, 1), 'U');
    q.kd = max;
    q.ldab = max;
    complex_routines[5].call(q);
    EXPECT_EQ(q.ifail, -6);
}

// ---------------------------------------------------------------- F04BAF's edges

struct Outcome {
    int ifail;
    double rcond, errbnd;
    Raised raised;
    std::vector<double> b;
};

Outcome f04baf(std::vector<double> a, std::vector<double> b)
{
    Outcome o{};
    int n = 2, nrhs = 1, ipiv[2];
    char errbuf[200];
    f04baft_(&one, &n, &nrhs, a.data(), &n, ipiv, b.data(), &n, &o.rcond, &o.errbnd, errbuf,
             &o.ifail, 200);
    o.raised = lbx::test::split(errbuf, o.ifail);
    o.b = b;
    return o;
}

TEST(F04BAF, RcondEqualToMachinePrecisionIsAccepted)
{
    // diag(1, eps): ||A||_1 = 1, ||A^-1||_1 = 1/eps, the estimate exact.
    Outcome o = f04baf({1, 0, 0, eps}, {3, 2 * eps});
    EXPECT_EQ(o.ifail, 0);
    EXPECT_EQ(o.rcond, eps);
    EXPECT_EQ(o.errbnd, 1.0);
    EXPECT_EQ(o.b, (std::vector<double>{3, 2}));
    o = f04baf({1, 0, 0, eps / 2}, {3, eps});
    EXPECT_EQ(o.ifail, 3);
    EXPECT_EQ(o.raised.code, 6);
    EXPECT_EQ(o.rcond, eps / 2);
}

TEST(F04BAF, NaNEntriesGiveTheWarning)
{
    const double nan = std::nan("");
    for (const auto& a : {std::vector<double>{nan, 1, 1, 2}, {2, 1, 1, nan}}) {
        const Outcome o = f04baf(a, {1, 1});
        EXPECT_EQ(o.ifail, 3);
        EXPECT_EQ(o.raised.code, 6);
        EXPECT_FALSE(o.rcond >= eps) << o.rcond;
        EXPECT_EQ(o.errbnd, 1.0);
    }
}

TEST(F04BAF, PlainEntryKeepsErrorNumbersThatDependOnN)
{
    // A quiet exit returns the error number the message table accepts: a
    // number outside it would come back as -99.
    int n = 3, nrhs = 1, ipiv[3], ifail = 1;
    double rcond = 0, errbnd = 0;
    std::vector<double> a = {1, 0, 0, 1, 0, 0, 1, 1, 1}, b = {1, 2, 3};
    f04baf_(&n, &nrhs, a.data(), &n, ipiv, b.data(), &n, &rcond, &errbnd, &ifail);
    EXPECT_EQ(ifail, 2);
    a = {1, 0, 0, 0, eps / 4, 0, 0, 0, 1};
    ifail = 1;
    f04baf_(&n, &nrhs, a.data(), &n, ipiv, b.data(), &n, &rcond, &errbnd, &ifail);
    EXPECT_EQ(ifail, 4);
}

}  // namespace
