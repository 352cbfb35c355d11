// The quadrature routines through their traced entries: each against the
// published scheme's output on its battery (tests/data/quadrature_*.txt, made
// by tools/quadrature_reference.py from QUADPACK's compiled code or GSL), bit
// for bit with the evaluation counts; every catalogue message with its check
// order; the workspace edges and the layout of the lists.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "gen/calculus.hpp"
#include "lbx3207qk.h"
#include "tests/calculus/batteries.hpp"
#include "tests/support/messages.hpp"

namespace {

using namespace lbx::test::quadrature;
using lbx::calculus::D01AJF_FFn;
using lbx::test::e;
using R = lbx::test::Raised;

// A traced caller's adapter: counts the calls in IUSER(1), then calls F.
double counting_adapter(D01AJF_FFn fn, const double* x, int* iuser, double*)
{
    ++iuser[0];
    return fn(x);
}

// D01ATF's and D01AUF's vectorised integrand: the scalar g_scalar at each
// point, through an adapter that counts the points in IUSER(1) and checks
// that a call brings one rule's g_points nodes.
Fn g_scalar = nullptr;
int g_points = 21;
void vector_f(const double* x, double* fv, const int* n)
{
    for (int i = 0; i < *n; ++i)
        fv[i] = g_scalar(&x[i]);
}
template <class VectorFn>
void counting_vector_adapter(VectorFn fn, const double* x, double* fv, const int* n, int* iuser,
                             double*)
{
    EXPECT_EQ(*n, g_points);
    iuser[0] += *n;
    fn(x, fv, n);
}

// What a call gave: RESULT and ABSERR (D01AHF: its value and relative error;
// D01ARF: ANS and ACC), the evaluations, LAST (-1: not reported), W and IW
// (D01ARF: ALPHA in W), D01ASF's IERLST.
struct Outcome {
    R raised;
    double result = 0, abserr = 0;
    int evals = 0, last = -1, n = 0;
    std::vector<double> w;
    std::vector<int> iw, ierlst;
};

double ruser[1];

// Runs call(outcome, ERRBUF, IFAIL) on W(LW) and IW(LIW) filled with -1;
// LAST is IW(1) unless the call set it (-1 for the routines without IW).
template <class Call>
Outcome run(int lw, int liw, Call call)
{
    Outcome r;
    r.w.assign(std::max(lw, 1), -1.0);
    r.iw.assign(std::max(liw, 1), -1);
    r.raised = lbx::test::traced([&](char* errbuf, int* ifail) { call(r, errbuf, ifail); });
    if (r.last == -1)
        r.last = r.iw[0];
    return r;
}

// The traced entries of D01AJF and D01AKF have one type.
using Entry = decltype(&d01ajft_);

Outcome d01ajf(Fn f, double a, double b, double epsabs, double epsrel, int lw, int liw,
               Entry entry = &d01ajft_)
{
    return run(lw, liw, [&](Outcome& r, char* eb, int* ifail) {
        entry(f, &counting_adapter, &a, &b, &epsabs, &epsrel, &r.result, &r.abserr, r.w.data(), &lw,
              r.iw.data(), &liw, &r.evals, ruser, eb, ifail, 200);
    });
}
Outcome d01amf(Fn f, double bound, int inf, double epsabs, double epsrel, int lw, int liw)
{
    return run(lw, liw, [&](Outcome& r, char* eb, int* ifail) {
        d01amft_(f, &counting_adapter, &bound, &inf, &epsabs, &epsrel, &r.result, &r.abserr,
                 r.w.data(), &lw, r.iw.data(), &liw, &r.evals, ruser, eb, ifail, 200);
    });
}
Outcome d01alf(Fn f, double a, double b, int npts, std::vector<double> points, double epsabs,
               double epsrel, int lw, int liw)
{
    return run(lw, liw, [&](Outcome& r, char* eb, int* ifail) {
        d01alft_(f, &counting_adapter, &a, &b, &npts, points.data(), &epsabs, &epsrel, &r.result,
                 &r.abserr, r.w.data(), &lw, r.iw.data(), &liw, &r.evals, ruser, eb, ifail, 200);
    });
}
Outcome d01bdf(Fn f, double a, double b, double epsabs, double epsrel)
{
    return run(1, 1, [&](Outcome& r, char* eb, int* ifail) {
        d01bdft_(f, &counting_adapter, &a, &b, &epsabs, &epsrel, &r.result, &r.abserr, &r.evals,
                 ruser, eb, ifail, 200);
    });
}
Outcome d01atf(Fn f, double a, double b, double epsabs, double epsrel, int lw, int liw)
{
    g_scalar = f;
    g_points = 21;
    return run(lw, liw, [&](Outcome& r, char* eb, int* ifail) {
        d01atft_(&vector_f, &counting_vector_adapter, &a, &b, &epsabs, &epsrel, &r.result,
                 &r.abserr, r.w.data(), &lw, r.iw.data(), &liw, &r.evals, ruser, eb, ifail, 200);
    });
}
// RESULT: the value, ABSERR: RELERR, evals: NPTS, n: the evaluations counted.
Outcome d01ahf(Fn f, double a, double b, double epsr, int nlimit)
{
    return run(1, 1, [&](Outcome& r, char* eb, int* ifail) {
        r.result = d01ahft_(f, &counting_adapter, &a, &b, &epsr, &r.evals, &r.abserr, &nlimit, &r.n,
                            ruser, eb, ifail, 200);
    });
}
Outcome d01aqf(Fn f, double a, double b, double c, double epsabs, double epsrel, int lw, int liw)
{
    return run(lw, liw, [&](Outcome& r, char* eb, int* ifail) {
        d01aqft_(f, &counting_adapter, &a, &b, &c, &epsabs, &epsrel, &r.result, &r.abserr,
                 r.w.data(), &lw, r.iw.data(), &liw, &r.evals, ruser, eb, ifail, 200);
    });
}
Outcome d01auf(Fn f, double a, double b, int key, double epsabs, double epsrel, int lw, int liw)
{
    g_scalar = f;
    const int points[] = {0, 15, 21, 31, 41, 51, 61};
    g_points = key >= 1 && key <= 6 ? points[key] : 0;
    return run(lw, liw, [&](Outcome& r, char* eb, int* ifail) {
        d01auft_(&vector_f, &counting_vector_adapter, &a, &b, &key, &epsabs, &epsrel, &r.result,
                 &r.abserr, r.w.data(), &lw, r.iw.data(), &liw, &r.evals, ruser, eb, ifail, 200);
    });
}
Outcome d01apf(Fn f, double a, double b, double alfa, double beta, int key, double epsabs,
               double epsrel, int lw, int liw)
{
    return run(lw, liw, [&](Outcome& r, char* eb, int* ifail) {
        d01apft_(f, &counting_adapter, &a, &b, &alfa, &beta, &key, &epsabs, &epsrel, &r.result,
                 &r.abserr, r.w.data(), &lw, r.iw.data(), &liw, &r.evals, ruser, eb, ifail, 200);
    });
}
Outcome d01anf(Fn f, double a, double b, double omega, int key, double epsabs, double epsrel,
               int lw, int liw)
{
    return run(lw, liw, [&](Outcome& r, char* eb, int* ifail) {
        d01anft_(f, &counting_adapter, &a, &b, &omega, &key, &epsabs, &epsrel, &r.result, &r.abserr,
                 r.w.data(), &lw, r.iw.data(), &liw, &r.evals, ruser, eb, ifail, 200);
    });
}
// LAST: LST; IERLST filled with -1 first.
Outcome d01asf(Fn f, double omega, int key, double epsabs, int limlst, int lw, int liw,
               double a = 0.0)
{
    const int n = std::max(limlst, 1);
    std::vector<double> erlst(n), rslst(n);
    return run(lw, liw, [&](Outcome& r, char* eb, int* ifail) {
        r.ierlst.assign(n, -1);
        d01asft_(f, &counting_adapter, &a, &omega, &key, &epsabs, &r.result, &r.abserr, &limlst,
                 &r.last, erlst.data(), rslst.data(), r.ierlst.data(), r.w.data(), &lw, r.iw.data(),
                 &liw, &r.evals, ruser, eb, ifail, 200);
    });
}
// ANS in RESULT, ACC in ABSERR, N in n, ALPHA in W (given: alpha).
Outcome d01arf(Fn f, double a, double b, double relacc, double absacc, int maxrul, int iparm,
               const std::vector<double>* alpha = nullptr)
{
    return run(48, 1, [&](Outcome& r, char* eb, int* ifail) {
        if (alpha)
            r.w = *alpha;
        d01arft_(f, &counting_adapter, &a, &b, &relacc, &absacc, &maxrul, &iparm, &r.abserr,
                 &r.result, &r.n, r.w.data(), &r.evals, ruser, eb, ifail, 200);
    });
}

// One row of a reference table: what the published code gave.
struct Reference {
    std::string name, what;
    bool forward = true;
    int key = 0;  // a digit after the direction: the rule's KEY
    double result = 0, abserr = 0;
    int neval = 0, last = 0, ier = 0;
    double lo(double a, double b) const { return forward ? a : b; }
    double hi(double a, double b) const { return forward ? b : a; }
};

std::vector<Reference> references(const char* file)
{
    std::ifstream in(std::string(LBX_TEST_DATA "/") + file);
    EXPECT_TRUE(in) << "missing reference table " << file;
    std::vector<Reference> rows;
    for (std::string line; std::getline(in, line);) {
        if (line.empty() || line[0] == '#')
            continue;
        std::istringstream s(line);
        Reference r;
        std::string direction, result, abserr;
        s >> r.name >> direction >> result >> abserr >> r.neval >> r.last >> r.ier;
        r.forward = direction.rfind("forward", 0) == 0;
        if (std::isdigit(static_cast<unsigned char>(direction.back())))
            r.key = direction.back() - '0';
        r.what = std::string(file) + " " + r.name + " " + direction;
        r.result = std::strtod(result.c_str(), nullptr);
        r.abserr = std::strtod(abserr.c_str(), nullptr);
        rows.push_back(r);
    }
    return rows;
}

// Every row of a reference table through call(integrand, row), the integrand
// named in the row from table: IFAIL, RESULT (its sign too), ABSERR (to
// abserr_rel relative; 0: equal), LAST where reported and the evaluations as
// the published code gave them (call may adjust the row to the routine's
// conventions). Returns the number of rows.
template <class Table, class Call>
size_t check_table(const char* file, const Table& table, Call call, double abserr_rel = 0.0)
{
    const std::vector<Reference> rows = references(file);
    for (Reference ref : rows) {
        const auto* t = std::find_if(std::begin(table), std::end(table),
                                     [&](const auto& i) { return ref.name == i.name; });
        if (t == std::end(table)) {
            ADD_FAILURE() << "no integrand " << ref.what;
            continue;
        }
        const Outcome r = call(*t, ref);
        EXPECT_EQ(r.raised.ifail, ref.ier) << ref.what;
        EXPECT_EQ(r.result, ref.result) << ref.what;
        EXPECT_EQ(std::signbit(r.result), std::signbit(ref.result)) << ref.what;
        if (abserr_rel == 0.0)
            EXPECT_EQ(r.abserr, ref.abserr) << ref.what;
        else
            EXPECT_NEAR(r.abserr, ref.abserr, abserr_rel * ref.abserr) << ref.what;
        if (r.last != -1) {
            EXPECT_EQ(r.last, ref.last) << ref.what;
        }
        EXPECT_EQ(r.evals, ref.neval) << ref.what;
    }
    return rows.size();
}

// D01AJF is QAGS, D01ATF QAGS with a rule's 21 values asked for at once:
// the published output on the first battery, limits as given and reversed.
TEST(Quadrature, D01AJFAndD01ATFEqualPublishedQags)
{
    for (bool vectorised : {false, true})
        EXPECT_EQ(check_table("quadrature_battery.txt", battery,
                              [&](const Integrand& t, Reference& ref) {
                                  const double a = ref.lo(t.a, t.b), b = ref.hi(t.a, t.b);
                                  const int lw = 4 * t.limit;
                                  return vectorised
                                             ? d01atf(t.f, a, b, t.epsabs, t.epsrel, lw, t.limit)
                                             : d01ajf(t.f, a, b, t.epsabs, t.epsrel, lw, t.limit);
                              }),
                  2 * std::size(battery));
}

// GSL's QAG with the 61-point rule (D01AKF), and with each KEY's rule
// (D01AUF, its values asked for at once). GSL sums the errors as errsum +=
// (error12 - e_i) where the published DQAGE has errsum + erro12 - errmax,
// which rounds differently: ABSERR after a bisection agrees to 5 per cent
// only; RESULT, LAST, the evaluations and IFAIL are equal. KEY = 6 is
// D01AKF's rule: then ABSERR and the lists are D01AKF's bit for bit.
TEST(Quadrature, D01AKFAndD01AUFEqualQag)
{
    EXPECT_EQ(check_table(
                  "quadrature_qag61.txt", battery,
                  [](const Integrand& t, Reference& ref) {
                      return d01ajf(t.f, ref.lo(t.a, t.b), ref.hi(t.a, t.b), t.epsabs, t.epsrel,
                                    4 * t.limit, t.limit, &d01akft_);
                  },
                  0.05),
              102u);
    int keys[7] = {};
    check_table(
        "quadrature_qag_keys.txt", battery,
        [&](const Integrand& t, Reference& ref) {
            const double a = ref.lo(t.a, t.b), b = ref.hi(t.a, t.b);
            const Outcome v = d01auf(t.f, a, b, ref.key, t.epsabs, t.epsrel, 4 * t.limit, t.limit);
            if (ref.key == 6) {
                const Outcome s =
                    d01ajf(t.f, a, b, t.epsabs, t.epsrel, 4 * t.limit, t.limit, &d01akft_);
                EXPECT_EQ(v.abserr, s.abserr) << ref.what;
                EXPECT_EQ(v.w, s.w) << ref.what;
            }
            ++keys[ref.key];
            return v;
        },
        0.05);
    for (int key = 1; key <= 6; ++key)
        EXPECT_GT(keys[key], 90) << key;
}

// QUADPACK's QAGI, QAGP (W and IW sized for LIMIT exactly), QAWC, QAWS
// (every KEY) and QAWO (21 levels of moments, as the published driver DQAWO
// keeps) on their batteries; QAWO's LAST is 0 when the first rule
// application suffices, where IW(1) counts that one subinterval.
TEST(Quadrature, WeightedAndSpecialRangesEqualPublished)
{
    EXPECT_EQ(check_table("quadrature_qagi.txt", infinite,
                          [](const InfiniteRange& t, Reference&) {
                              return d01amf(t.f, t.bound, t.inf, t.epsabs, t.epsrel, 4 * t.limit,
                                            t.limit);
                          }),
              std::size(infinite));
    EXPECT_EQ(check_table("quadrature_qagp.txt", breaks,
                          [](const WithBreaks& t, Reference& ref) {
                              return d01alf(t.f, ref.lo(t.a, t.b), ref.hi(t.a, t.b), t.npts,
                                            {t.points, t.points + 3}, t.epsabs, t.epsrel,
                                            4 * t.limit + t.npts + 2, 2 * t.limit + t.npts + 2);
                          }),
              2 * std::size(breaks));
    EXPECT_EQ(check_table("quadrature_qawc.txt", cauchy,
                          [](const PrincipalValue& t, Reference& ref) {
                              return d01aqf(t.f, ref.lo(t.a, t.b), ref.hi(t.a, t.b), t.c, t.epsabs,
                                            t.epsrel, 4 * t.limit, t.limit);
                          }),
              2 * std::size(cauchy));
    EXPECT_EQ(check_table("quadrature_qaws.txt", algebraic,
                          [](const AlgebraicWeight& t, Reference&) {
                              return d01apf(t.f, t.a, t.b, t.alfa, t.beta, t.key, t.epsabs,
                                            t.epsrel, 4 * t.limit, t.limit);
                          }),
              std::size(algebraic));
    EXPECT_EQ(check_table("quadrature_qawo.txt", oscillatory,
                          [](const OscillatoryWeight& t, Reference& ref) {
                              ref.last = std::max(ref.last, 1);
                              return d01anf(t.f, ref.lo(t.a, t.b), ref.hi(t.a, t.b), t.omega, t.key,
                                            t.epsabs, t.epsrel, 4 * t.limit, 2 * t.limit);
                          }),
              2 * std::size(oscillatory));
}

// QUADPACK's QAWF (21 levels of moments) on the Fourier battery: RESULT,
// ABSERR, LST, the evaluations and the indicator (QAWF's 1, 4 and 7 are
// IFAIL's); each interval's IERLST is D01ANF's 0 to 5 and none is reported
// beyond LST.
TEST(Quadrature, D01ASFEqualsPublishedQawf)
{
    EXPECT_EQ(check_table("quadrature_qawf.txt", fourier,
                          [](const FourierIntegral& t, Reference& ref) {
                              const Outcome r = d01asf(t.f, t.omega, t.key, t.epsabs, t.limlst,
                                                       4 * t.limit, 2 * t.limit, t.a);
                              for (int k = 0; k < t.limlst; ++k)
                                  EXPECT_TRUE(k < r.last ? r.ierlst[k] >= 0 && r.ierlst[k] <= 5
                                                         : r.ierlst[k] == -1)
                                      << ref.what << " " << k;
                              return r;
                          }),
              std::size(fourier));
}

// D01AHF is QAGS with EPSABS = 0 and LIMIT = (NLIMIT + 21)/42: the rows of
// the first battery with EPSABS = 0, NLIMIT = 42 LIMIT - 21, give the
// published RESULT and evaluations, ABSERR/abs(RESULT) and the indicators
// mapped (1; 2, 3, 4; 5 to 1; 2; 3).
TEST(Quadrature, D01AHFEqualsPublishedQagsWithRelativeTolerance)
{
    int rows = 0;
    for (const Reference& ref : references("quadrature_battery.txt")) {
        const Integrand& t = *std::find_if(std::begin(battery), std::end(battery),
                                           [&](const auto& i) { return ref.name == i.name; });
        if (t.epsabs != 0.0)
            continue;
        const Outcome r =
            d01ahf(t.f, ref.lo(t.a, t.b), ref.hi(t.a, t.b), t.epsrel, 42 * t.limit - 21);
        const int ifail[] = {0, 1, 2, 2, 2, 3};
        EXPECT_EQ(r.raised.ifail, ifail[ref.ier]) << ref.what;
        EXPECT_EQ(r.result, ref.result) << ref.what;
        EXPECT_EQ(r.abserr, ref.result != 0.0 ? ref.abserr / std::fabs(ref.result) : ref.abserr)
            << ref.what;
        EXPECT_EQ(r.evals, ref.neval) << ref.what;
        EXPECT_EQ(r.n, ref.neval) << ref.what;
        ++rows;
    }
    EXPECT_GT(rows, 80);
}

// GSL's QNG (D01BDF): GSL adds the two halves of each resasc term before
// adding them to the sum, where DQNG adds them one after the other: ABSERR
// agrees to 1e-12. D01ARF's rules are QNG's: with no tolerance it applies 2,
// 3 or 4 rules as asked, and its ANS is QNG's RESULT after the same rule,
// bit for bit; it stops earlier only when two rules agree exactly.
TEST(Quadrature, D01BDFAndD01ARFEqualQng)
{
    auto check = [](const Integrand& t, Reference& ref) {
        const double a = ref.lo(t.a, t.b), b = ref.hi(t.a, t.b);
        const int maxrul = ref.neval == 21 ? 2 : ref.neval == 43 ? 3 : 4;
        const Outcome s = d01arf(t.f, a, b, 0, 0, maxrul, 0);
        EXPECT_EQ(s.result, ref.result) << ref.what;
        EXPECT_EQ(s.n, s.evals) << ref.what;
        EXPECT_TRUE(s.n < ref.neval ? s.abserr == 0.0 : s.n == ref.neval) << ref.what;
        const Outcome r = d01bdf(t.f, a, b, t.epsabs, t.epsrel);
        if (ref.name == "zero_integrand") {
            // DQNG accepts ABSERR <= max(EPSABS, EPSREL abs(RESULT)), so an
            // error of exactly 0 ends after 21 points; GSL needs <.
            ref = {ref.name, ref.what, ref.forward, 0, r.result, r.abserr, 21, ref.last, 0};
        }
        return r;
    };
    EXPECT_EQ(check_table("quadrature_qng.txt", battery, check, 1e-12), 108u);
}

// The indefinite integrals of a call with IPARM = 2 against closed forms, from
// the expansion a call with IPARM = 1 left in ALPHA; F not called.
TEST(Quadrature, D01ARFIndefiniteIntegrals)
{
    const Fn gauss = LBX_INTEGRAND(exp(-x * x)), one = LBX_INTEGRAND(1.0);
    const Outcome e = d01arf(gauss, -1.0, 2.0, 0, 1e-15, 0, 1);
    ASSERT_EQ(e.raised.ifail, 0);
    EXPECT_EQ(e.n, 43);  // the 21 and 43-point rules agree: 22 coefficients
    EXPECT_NEAR(e.result, 0.5 * std::sqrt(M_PI) * (std::erf(2.0) + std::erf(1.0)), 1e-14);
    for (const auto& [a, b] :
         {std::pair{-1.0, 2.0}, {0.0, 1.0}, {0.5, -0.25}, {2.0, 2.0}, {-1.0, -0.9}}) {
        const Outcome s = d01arf(one, a, b, 0, 0, 0, 2, &e.w);
        EXPECT_EQ(s.raised.ifail, 0);
        EXPECT_EQ(s.evals + s.n, 0);
        const double exact = 0.5 * std::sqrt(M_PI) * (std::erf(b) - std::erf(a));
        // The series is cut after 22 terms: ACC (the size of the last terms)
        // bounds the error, which is far below it.
        EXPECT_NEAR(s.result, exact, 1e-11) << a << " " << b;
        EXPECT_LE(std::fabs(s.result - exact), s.abserr) << a << " " << b;
        EXPECT_LT(s.abserr, 1e-8) << a << " " << b;
    }
    // A cubic: the 21-point rule's 11 coefficients hold it exactly.
    const Outcome c = d01arf(LBX_INTEGRAND(x * x * x - x * x + 1.0), 1.0, 3.0, 0, 1e-12, 2, 1);
    ASSERT_EQ(c.raised.ifail, 0);
    EXPECT_EQ(c.n, 21);
    EXPECT_NEAR(c.result, 20.0 - 26.0 / 3.0 + 2.0, 1e-13);
    const Outcome s = d01arf(one, 1.5, 2.0, 0, 0, 0, 2, &c.w);
    EXPECT_NEAR(s.result, (16.0 - std::pow(1.5, 4)) / 4 - (8.0 - 3.375) / 3 + 0.5, 1e-13);
}

const Fn one = LBX_INTEGRAND(1.0), sqrt_end = LBX_INTEGRAND(sqrt(x)),
         inv_x = LBX_INTEGRAND(1.0 / x);
const Fn inv_sq = LBX_INTEGRAND(1.0 / (x * x)), gauss = LBX_INTEGRAND(exp(-x * x));
const Fn bad_point = LBX_INTEGRAND(1.0 / fabs(x - 0.3)),
         pole_0_31 = LBX_INTEGRAND(1.0 / fabs(x - 0.31));
const Fn roundoff = LBX_INTEGRAND(log(x) / sqrt(x)),
         peak = LBX_INTEGRAND(1.0 / ((x - 0.3) * (x - 0.3) + 0.01));
const Fn alg_mid = LBX_INTEGRAND(1.0 / sqrt(fabs(x - 0.37))),
         sqrt_031 = LBX_INTEGRAND(sqrt(fabs(x - 0.31)));
const Fn pole_2_3 = LBX_INTEGRAND(exp(-x) / fabs(x - 2.3)),
         inv_sqrt_exp = LBX_INTEGRAND(exp(-x) / sqrt(x));
const Fn inv_1px = LBX_INTEGRAND(1.0 / (1.0 + x)), log_043 = LBX_INTEGRAND(log(fabs(x - 0.43)));
const Fn inv_sq_03 = LBX_INTEGRAND(1.0 / ((x - 0.3) * (x - 0.3))),
         sin_50 = LBX_INTEGRAND(sin(50.0 * x));
const Fn inv_sqrt_tiny = LBX_INTEGRAND(1.0 / sqrt(x + 1e-300));
const Fn log_over_sqrt = LBX_INTEGRAND(log(x + 1e-300) / sqrt(x + 1e-300));

TEST(Quadrature, EveryMessage)
{
    using T = lbx::test::Trigger;
    // clang-format off
#define RAISED(call) [] { return call.raised; }
    lbx::test::check_catalogue(lbx::calculus::catalogue_messages, {
        T{"D01AJF", "LIMIT_REACHED", RAISED(d01ajf(inv_x, 0, 1, 0, 1e-10, 200, 50)), {"50", "200", "50"}},
        T{"D01AJF", "LIMIT_REACHED", RAISED(d01ajf(sqrt_end, 0, 1, 0, 1e-10, 7, 3)), {"1", "7", "3"}, "LIMIT 1 always ends here"},
        T{"D01AJF", "ROUND_OFF", RAISED(d01ajf(peak, 0, 1, -1e-17, 0, 200, 50)), {e(-1e-17), e(0)}, "quotes EPSABS as given"},
        T{"D01AJF", "BAD_INTEGRAND", RAISED(d01ajf(bad_point, 0, 1, 0, 1e-10, 800, 200))},
        T{"D01AJF", "EXTRAPOLATION_ROUND_OFF", RAISED(d01ajf(roundoff, 0, 1, 1e-17, 0, 200, 50))},
        T{"D01AJF", "DIVERGENT", RAISED(d01ajf(inv_sq, 0, 1, 0, 1e-10, 200, 50))},
        T{"D01AJF", "LW_TOO_SMALL", RAISED(d01ajf(sqrt_end, 0, 1, 0, 1e-10, 3, 1)), {"3"}},
        T{"D01AJF", "LW_TOO_SMALL", RAISED(d01ajf(sqrt_end, 0, 1, 0, 1e-10, 0, 0)), {"0"}, "LW checked before LIW"},
        T{"D01AJF", "LIW_TOO_SMALL", RAISED(d01ajf(sqrt_end, 0, 1, 0, 1e-10, 4, 0)), {"0"}},
        T{"D01AJF", "", RAISED(d01ajf(sqrt_end, 0, 1, -0.0, -1e-10, 200, 50))},
        T{"D01AMF", "LIMIT_REACHED", RAISED(d01amf(inv_1px, 0, 1, 0, 1e-10, 40, 10)), {"10", "40", "10"}},
        T{"D01AMF", "ROUND_OFF", RAISED(d01amf(gauss, 0, 2, 1e-30, 0, 200, 50)), {e(1e-30), e(0)}},
        T{"D01AMF", "BAD_INTEGRAND", RAISED(d01amf(pole_2_3, 0, 1, 1e-300, 0, 400, 100))},
        T{"D01AMF", "EXTRAPOLATION_ROUND_OFF", RAISED(d01amf(inv_sqrt_exp, 0, 1, 1e-17, 0, 200, 50))},
        T{"D01AMF", "DIVERGENT", RAISED(d01amf(one, 0, 2, 0, 1e-10, 200, 50))},
        T{"D01AMF", "INF_INVALID", RAISED(d01amf(one, 0, 0, 0, 1e-10, 3, 0)), {"0"}, "INF checked before LW"},
        T{"D01AMF", "INF_INVALID", RAISED(d01amf(one, 0, -2, 0, 1e-10, 200, 50)), {"-2"}},
        T{"D01AMF", "LW_TOO_SMALL", RAISED(d01amf(one, 0, 1, 0, 1e-10, 3, 0)), {"3"}},
        T{"D01AMF", "LIW_TOO_SMALL", RAISED(d01amf(one, 0, -1, 0, 1e-10, 4, 0)), {"0"}},
        T{"D01ALF", "LIMIT_REACHED", RAISED(d01alf(inv_x, 0, 1, 1, {0.5}, 0, 1e-10, 46, 27)), {"10", "46", "27"}},
        T{"D01ALF", "ROUND_OFF", RAISED(d01alf(peak, 0, 1, 1, {0.3}, 1e-17, 0, 400, 200))},
        T{"D01ALF", "BAD_INTEGRAND", RAISED(d01alf(pole_0_31, 0, 1, 1, {0.7}, 0, 1e-10, 803, 403))},
        T{"D01ALF", "EXTRAPOLATION_ROUND_OFF", RAISED(d01alf(log_043, 0, 1, 1, {0.43}, 1e-17, 0, 203, 103))},
        T{"D01ALF", "DIVERGENT", RAISED(d01alf(inv_sq_03, 0, 1, 1, {0.3}, 0, 1e-10, 203, 103))},
        T{"D01ALF", "NPTS_NEGATIVE", RAISED(d01alf(one, 0, 1, -1, {0.5}, 0, 1e-10, 203, 103)), {"-1"}, "NPTS checked first"},
        T{"D01ALF", "POINT_OUTSIDE", RAISED(d01alf(one, 0, 1, 1, {1.5}, 0, 1e-10, 2, 0)), {"1", e(1.5), e(0), e(1)}, "points checked before LW"},
        T{"D01ALF", "LW_TOO_SMALL", RAISED(d01alf(one, 0, 1, 1, {0.5}, 0, 1e-10, 10, 100)), {"10", "1"}},
        T{"D01ALF", "LIW_TOO_SMALL", RAISED(d01alf(one, 0, 1, 1, {0.5}, 0, 1e-10, 11, 6)), {"6", "1"}},
        T{"D01BDF", "ACCURACY_NOT_REACHED", RAISED(d01bdf(inv_x, 0, 1, -1e-10, 1e-3)), {e(-1e-10), e(1e-3)}},
        T{"D01BDF", "", RAISED(d01bdf(sqrt_end, 1, 0, 0, -1e-3))},
        T{"D01ATF", "LIMIT_REACHED", RAISED(d01atf(inv_x, 0, 1, 0, 1e-10, 200, 50)), {"50", "200", "50"}},
        T{"D01ATF", "ROUND_OFF", RAISED(d01atf(peak, 0, 1, 1e-17, 0, 200, 50))},
        T{"D01ATF", "BAD_INTEGRAND", RAISED(d01atf(bad_point, 0, 1, 0, 1e-10, 800, 200))},
        T{"D01ATF", "EXTRAPOLATION_ROUND_OFF", RAISED(d01atf(roundoff, 0, 1, 1e-17, 0, 200, 50))},
        T{"D01ATF", "DIVERGENT", RAISED(d01atf(inv_sq, 0, 1, 0, 1e-10, 200, 50))},
        T{"D01ATF", "LW_TOO_SMALL", RAISED(d01atf(one, 0, 1, 0, 1e-10, 2, 0)), {"2"}},
        T{"D01ATF", "LIW_TOO_SMALL", RAISED(d01atf(one, 0, 1, 0, 1e-10, 7, 0)), {"0"}},
        T{"D01AHF", "NLIMIT_REACHED", RAISED(d01ahf(inv_x, 0, 1, 1e-10, 0)), {"10000"}, "NLIMIT <= 0 means 10000"},
        T{"D01AHF", "NOT_CONVERGED", RAISED(d01ahf(bad_point, 0, 1, 1e-10, 8379)), {e(1e-10)}},
        T{"D01AHF", "NOT_CONVERGED", RAISED(d01ahf(inv_sqrt_exp, 0, 1, 1e-16, 0)), {e(1e-16)}, "round-off"},
        T{"D01AHF", "DIVERGENT", RAISED(d01ahf(inv_sq, 0, 1, 1e-10, 2079))},
        T{"D01AHF", "EPSR_NOT_POSITIVE", RAISED(d01ahf(one, 0, 1, -1e-6, 0)), {e(-1e-6)}},
        T{"D01AHF", "NLIMIT_TOO_SMALL", RAISED(d01ahf(one, 0, 1, 1e-6, 20)), {"20"}},
        T{"D01AHF", "", RAISED(d01ahf(one, 0, 1, 1e-6, 63))},
        T{"D01AHF", "NLIMIT_REACHED", RAISED(d01ahf(one, 0, 1, 1e-6, 62)), {"62"}, "one rule application: QAGS with LIMIT = 1 always ends here"},
        T{"D01AQF", "LIMIT_REACHED", RAISED(d01aqf(sin_50, 0, 3, 1, 0, 1e-12, 16, 4)), {"4", "16", "4"}},
        T{"D01AQF", "ROUND_OFF", RAISED(d01aqf(sqrt_031, 0, 1, 0.7, 1e-300, 0, 1600, 400))},
        T{"D01AQF", "BAD_INTEGRAND", RAISED(d01aqf(pole_0_31, 0, 1, 0.7, 0, 1e-12, 400, 100))},
        T{"D01AQF", "C_AT_END", RAISED(d01aqf(one, 0, 1, 0, 0, 1e-10, 3, 0)), {e(0), e(1), e(0)}, "C checked before LW"},
        T{"D01AQF", "C_AT_END", RAISED(d01aqf(one, 0, 1, 1, 0, 1e-10, 200, 50)), {e(0), e(1), e(1)}},
        T{"D01AQF", "LW_TOO_SMALL", RAISED(d01aqf(one, 0, 1, 0.5, 0, 1e-10, 3, 0)), {"3"}},
        T{"D01AQF", "LIW_TOO_SMALL", RAISED(d01aqf(one, 0, 1, 0.5, 0, 1e-10, 4, 0)), {"0"}},
        T{"D01AUF", "LIMIT_REACHED", RAISED(d01auf(inv_x, 0, 1, 1, 0, 1e-10, 200, 50)), {"50", "200", "50"}},
        T{"D01AUF", "ROUND_OFF", RAISED(d01auf(peak, 0, 1, 3, 1e-17, 0, 200, 50))},
        T{"D01AUF", "BAD_INTEGRAND", RAISED(d01auf(alg_mid, 0, 1, 6, 0, 1e-10, 200, 50))},
        T{"D01AUF", "KEY_INVALID", RAISED(d01auf(one, 0, 1, 0, 0, 1e-10, 3, 0)), {"0"}, "KEY checked before LW"},
        T{"D01AUF", "KEY_INVALID", RAISED(d01auf(one, 0, 1, 7, 0, 1e-10, 200, 50)), {"7"}},
        T{"D01AUF", "LW_TOO_SMALL", RAISED(d01auf(one, 0, 1, 2, 0, 1e-10, 3, 0)), {"3"}},
        T{"D01AUF", "LIW_TOO_SMALL", RAISED(d01auf(one, 0, 1, 2, 0, 1e-10, 4, 0)), {"0"}},
        T{"D01AUF", "", RAISED(d01auf(sqrt_end, 1, 0, 4, -0.0, -1e-8, 200, 50))},
        T{"D01ANF", "LIMIT_REACHED", RAISED(d01anf(gauss, 0, 1, 30, 1, 0, 1e-10, 7, 3)), {"1", "7", "3"}, "LIMIT = min(LW/4, LIW/2)"},
        T{"D01ANF", "ROUND_OFF", RAISED(d01anf(sqrt_031, 0, 1, 20, 1, 1e-300, 0, 1600, 800))},
        T{"D01ANF", "BAD_INTEGRAND", RAISED(d01anf(pole_0_31, 0, 1, 20, 1, 0, 1e-10, 1600, 800))},
        T{"D01ANF", "EXTRAPOLATION_ROUND_OFF", RAISED(d01anf(log_over_sqrt, 0, 1, 20, 1, 1e-17, 0, 400, 200))},
        T{"D01ANF", "DIVERGENT", RAISED(d01anf(inv_sq, 0, 1, 1, 1, 0, 1e-10, 400, 200))},
        T{"D01ANF", "KEY_INVALID", RAISED(d01anf(one, 0, 1, 5, 3, 0, 1e-10, 3, 0)), {"3"}, "KEY checked before LW"},
        T{"D01ANF", "LW_TOO_SMALL", RAISED(d01anf(one, 0, 1, 5, 2, 0, 1e-10, 3, 0)), {"3"}, "LW checked before LIW"},
        T{"D01ANF", "LIW_TOO_SMALL", RAISED(d01anf(one, 0, 1, 5, 1, 0, 1e-10, 4, 1)), {"1"}},
        T{"D01ANF", "", RAISED(d01anf(gauss, 0, 1, -30, 2, -0.0, -1e-10, 200, 100))},
        T{"D01ASF", "LIMLST_REACHED", RAISED(d01asf(inv_1px, 0.5, 2, 1e-12, 3, 400, 200)), {"3"}},
        T{"D01ASF", "EXTRAPOLATION_ROUND_OFF", RAISED(d01asf(inv_1px, 0.5, 2, 1e-17, 100, 400, 200))},
        T{"D01ASF", "INTERVAL_FAILURES", RAISED(d01asf(inv_sqrt_tiny, 1.5707963267948966, 1, 1e-8, 50, 12, 6))},
        T{"D01ASF", "INTERVAL_FAILURES", RAISED(d01asf(inv_x, 0, 1, 1e-8, 50, 400, 200)), {}, "OMEGA = 0: the one interval of QAGI"},
        T{"D01ASF", "KEY_INVALID", RAISED(d01asf(one, 1, 0, 0, 0, 0, 0)), {"0"}, "KEY checked first"},
        T{"D01ASF", "EPSABS_ZERO", RAISED(d01asf(one, 1, 1, 0, 0, 0, 0)), {e(0)}, "EPSABS checked before LIMLST"},
        T{"D01ASF", "LIMLST_TOO_SMALL", RAISED(d01asf(one, 1, 1, 1e-8, 2, 0, 0)), {"2"}, "LIMLST checked before LW"},
        T{"D01ASF", "LW_TOO_SMALL", RAISED(d01asf(one, 1, 2, 1e-8, 3, 3, 0)), {"3"}, "LW checked before LIW"},
        T{"D01ASF", "LIW_TOO_SMALL", RAISED(d01asf(one, 1, 1, 1e-8, 3, 4, 1)), {"1"}},
        T{"D01ASF", "", RAISED(d01asf(gauss, -1, 1, -1e-10, 50, 400, 200))},
        T{"D01ARF", "ALL_RULES_USED", RAISED(d01arf(sqrt_end, 0, 1, 1e-10, 0, 0, 0)), {"4"}, "MAXRUL = 0 means all four rules"},
        T{"D01ARF", "ALL_RULES_USED", RAISED(d01arf(sqrt_end, 0, 1, 1e-10, 0, 2, 1)), {"2"}},
        T{"D01ARF", "IPARM_INVALID", RAISED(d01arf(one, 0, 1, 0, 0, 9, 3)), {"3"}},
        T{"D01ARF", "NO_EXPANSION", RAISED(d01arf(one, 0, 1, 0, 0, 0, 2))},
        T{"D01ARF", "OUTSIDE_EXPANSION", [] {
              const Outcome x = d01arf(gauss, 0, 1, 0, 1e-10, 0, 1);
              return d01arf(one, 0.5, 1.5, 0, 0, 0, 2, &x.w).raised; }, {e(0.5), e(1.5), e(0), e(1)}},
        T{"D01ARF", "", RAISED(d01arf(gauss, 0, 1, -1e-10, 0, -1, 1))},
        T{"D01APF", "LIMIT_REACHED", RAISED(d01apf(sin_50, 0, 3, 0.5, 0.5, 1, 0, 1e-12, 8, 2)), {"2", "8", "2"}, "LIMIT 2 always ends here"},
        T{"D01APF", "ROUND_OFF", RAISED(d01apf(sqrt_031, 0, 1, 0.2, 0.3, 4, 1e-300, 0, 1600, 400))},
        T{"D01APF", "BAD_INTEGRAND", RAISED(d01apf(pole_0_31, 0, 1, 0.2, 0.3, 1, 0, 1e-10, 1600, 400))},
        T{"D01APF", "B_NOT_GREATER", RAISED(d01apf(one, 1, 1, -2, -2, 0, 0, 1e-10, 0, 0)), {e(1), e(1)}, "A and B checked first"},
        T{"D01APF", "ALFA_TOO_SMALL", RAISED(d01apf(one, 0, 1, -1, -2, 0, 0, 1e-10, 0, 0)), {e(-1)}, "ALFA checked before BETA"},
        T{"D01APF", "BETA_TOO_SMALL", RAISED(d01apf(one, 0, 1, 0, -1, 0, 0, 1e-10, 0, 0)), {e(-1)}, "BETA checked before KEY"},
        T{"D01APF", "KEY_INVALID", RAISED(d01apf(one, 0, 1, 0, 0, 5, 0, 1e-10, 0, 0)), {"5"}, "KEY checked before LW"},
        T{"D01APF", "LW_TOO_SMALL", RAISED(d01apf(one, 0, 1, 0, 0, 1, 0, 1e-10, 7, 0)), {"7"}, "LW checked before LIW"},
        T{"D01APF", "LIW_TOO_SMALL", RAISED(d01apf(one, 0, 1, 0, 0, 1, 0, 1e-10, 8, 1)), {"1"}},
        T{"D01APF", "", RAISED(d01apf(one, 0, 1, 0.5, -0.5, 2, -0.0, -1e-10, 200, 50))},
        T{"D01AKF", "LIMIT_REACHED", RAISED(d01ajf(inv_x, 0, 1, 0, 1e-10, 40, 12, &d01akft_)), {"10", "40", "12"}},
        T{"D01AKF", "ROUND_OFF", RAISED(d01ajf(peak, 0, 1, 1e-17, -0.0, 200, 50, &d01akft_)), {e(1e-17), e(-0.0)}},
        T{"D01AKF", "BAD_INTEGRAND", RAISED(d01ajf(alg_mid, 0, 1, 0, 1e-10, 200, 50, &d01akft_))},
        T{"D01AKF", "LW_TOO_SMALL", RAISED(d01ajf(peak, 0, 1, 0, 1e-10, -1, 0, &d01akft_)), {"-1"}},
        T{"D01AKF", "LIW_TOO_SMALL", RAISED(d01ajf(peak, 0, 1, 0, 1e-10, 4, -5, &d01akft_)), {"-5"}},
    });
#undef RAISED
    // clang-format on
}

// The bad subinterval quoted is the last bisected, about the pole; QAGI's
// is one of t in (0, 1], quoted in x.
TEST(Quadrature, BadIntegrandQuotesTheLastBisectedInterval)
{
    for (const auto& [r, pole, width] :
         {std::tuple{d01ajf(bad_point, 0, 1, 0, 1e-10, 800, 200), 0.3, 1e-13},
          {d01amf(pole_2_3, 0, 1, 1e-300, 0, 400, 100), 2.3, 1e-12}}) {
        ASSERT_EQ(r.raised.ifail, 3);
        const double l = std::strtod(r.raised.values[0].c_str(), nullptr);
        const double h = std::strtod(r.raised.values[1].c_str(), nullptr);
        EXPECT_LE(l, pole);
        EXPECT_GE(h, pole);
        EXPECT_LT(h - l, width);
    }
}

// LIMIT = min(LW/4, LIW): one application of the rule for LW 4 to 7 or LIW 1.
TEST(Quadrature, WorkspaceEdgesGiveLimitOne)
{
    for (const auto& [lw, liw] : {std::pair{4, 1}, {7, 5}, {8, 1}}) {
        const Outcome r = d01ajf(sqrt_end, 0, 1, 0, 1e-10, lw, liw);
        EXPECT_EQ(r.raised.ifail, 1) << lw;
        EXPECT_EQ(r.last, 1) << lw;
        EXPECT_EQ(r.evals, 21) << lw;
        EXPECT_EQ(r.w[0], 0.0);
        EXPECT_EQ(r.w[1], 1.0);
        EXPECT_EQ(r.w[2], r.result);
        EXPECT_EQ(r.w[3], r.abserr);
    }
}

// After LAST < LIMIT intervals the four lists lie at stride LAST and tile
// [A, B]; the integrals add up to RESULT.
TEST(Quadrature, ListsCompactedToStrideLast)
{
    const int limit = 50;
    const Outcome r = d01ajf(peak, 0, 1, 0, 1e-10, 4 * limit + 3, limit + 7);
    ASSERT_EQ(r.raised.ifail, 0);
    const int last = r.last;
    ASSERT_GT(last, 1);
    ASSERT_LT(last, limit);
    std::vector<std::pair<double, double>> ends;
    double sum = 0;
    for (int i = 0; i < last; ++i) {
        ends.emplace_back(r.w[i], r.w[last + i]);
        sum += r.w[2 * last + i];
        EXPECT_GE(r.w[3 * last + i], 0.0);
    }
    std::sort(ends.begin(), ends.end());
    EXPECT_EQ(ends.front().first, 0.0);
    EXPECT_EQ(ends.back().second, 1.0);
    for (int i = 0; i + 1 < last; ++i)
        EXPECT_EQ(ends[i].second, ends[i + 1].first);
    EXPECT_NEAR(sum, r.result, 1e-9 * std::fabs(r.result));
    EXPECT_EQ(r.evals, 42 * last - 21);
}

}  // namespace
