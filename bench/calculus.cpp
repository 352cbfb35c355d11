// Adaptive quadrature: D01AJF against GSL's gsl_integration_qags on the test
// battery of tests/calculus/quadrature_battery.inc (the tables of
// tests/calculus/batteries.hpp), each integral with its own
// tolerances and LIMIT (GSL: a workspace of LIMIT intervals). Three rows per
// integrand: lbx (the plain entry D01AJF, the user function called through
// the adapter), core (the QAGS core with the function called directly: the
// difference to lbx is what the entry layers and the adapter cost) and gsl.
// For the infinite-range battery (tests/calculus/quadrature_infinite.inc):
// lbxinf (D01AMF) and gslinf (gsl_integration_qagiu, qagil or qagi).
// For the battery with break points (tests/calculus/quadrature_breaks.inc):
// lbxpts (D01ALF) and gslpts (gsl_integration_qagp, the points sorted with
// the ends).
// And lbxrel (D01AHF, NLIMIT = 42 LIMIT - 21, the rows with EPSABS = 0)
// against gsl; lbxvec (D01ATF, the integrand looping over the 21 points) against gsl;
// and lbxng (D01BDF) against gslng (gsl_integration_qng) on the first battery.
// For the principal values (tests/calculus/quadrature_cauchy.inc): lbxpv
// (D01AQF) against gslpv (gsl_integration_qawc).
// Two more rows per integrand: lbx61 (D01AKF) and gsl61 (gsl_integration_qag
// with the 61-point rule, GSL_INTEG_GAUSS61); and lbxkey (D01AUF with KEY = 6,
// the integrand looping over the 61 points) against gsl61.
// For the weighted batteries: lbxosc (D01ANF) against gslosc
// (gsl_integration_qawo, a table of 21 levels built before the timing: GSL
// computes the Chebyshev moments once per OMEGA and length, D01ANF on each
// call) on tests/calculus/quadrature_oscillatory.inc, limits as given; lbxalg (D01APF)
// against gslalg (gsl_integration_qaws, its table of moments set on each call
// as D01APF computes them) on quadrature_algebraic.inc; lbxfou
// (D01ASF) against gslfou (gsl_integration_qawf, LIMLST cycles) on
// quadrature_fourier.inc, the rows with OMEGA /= 0.
// The counter "evals" is the number of integrand evaluations per integral.
// tools/quadrature_bench_table.py turns the JSON output into the table.
#include <benchmark/benchmark.h>
#include <gsl/gsl_errno.h>
#include <gsl/gsl_integration.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "calculus/qags.hpp"
#include "lbx3207qk.h"
#include "tests/calculus/batteries.hpp"

namespace {

using namespace lbx::test::quadrature;

long g_calls = 0;
const Integrand* g_current = nullptr;

// The weighted batteries' integrand of the running row, counted.
double (*g_weighted)(const double*) = nullptr;
double counted_weighted(const double* x)
{
    ++g_calls;
    return g_weighted(x);
}
double gsl_weighted(double x, void*)
{
    ++g_calls;
    return g_weighted(&x);
}

const InfiniteRange* g_infinite = nullptr;

double counted(const double* x)
{
    ++g_calls;
    return g_current->f(x);
}

double counted_infinite(const double* x)
{
    ++g_calls;
    return g_infinite->f(x);
}

double gsl_infinite(double x, void*)
{
    ++g_calls;
    return g_infinite->f(&x);
}

const WithBreaks* g_breaks = nullptr;

double counted_breaks(const double* x)
{
    ++g_calls;
    return g_breaks->f(x);
}

double gsl_breaks(double x, void*)
{
    ++g_calls;
    return g_breaks->f(&x);
}

void report(benchmark::State& state, long calls, long runs, int ier)
{
    state.counters["evals"] = double(calls) / double(runs);
    state.counters["ier"] = ier;
}

// Times call(), which makes one integration and returns its indicator, and
// reports the evaluations per integration and the last indicator.
template <class Call>
void timed(benchmark::State& state, Call call)
{
    int ier = 0;
    long runs = 0;
    g_calls = 0;
    for (auto _ : state) {
        ier = call();
        ++runs;
    }
    report(state, g_calls, runs, ier);
}

void bench_lbxpts(benchmark::State& state, const WithBreaks* t)
{
    g_breaks = t;
    const int lw = 4 * t->limit + t->npts + 2, liw = 2 * t->limit + t->npts + 2;
    std::vector<double> w(lw);
    std::vector<int> iw(liw);
    double result = 0, abserr = 0;
    timed(state, [&] {
        int ifail = 1;
        d01alf_(counted_breaks, &t->a, &t->b, &t->npts, t->points, &t->epsabs, &t->epsrel, &result,
                &abserr, w.data(), &lw, iw.data(), &liw, &ifail);
        benchmark::DoNotOptimize(result);
        return ifail;
    });
}

void bench_gslpts(benchmark::State& state, const WithBreaks* t)
{
    g_breaks = t;
    gsl_set_error_handler_off();
    gsl_integration_workspace* ws = gsl_integration_workspace_alloc(t->limit);
    gsl_function f{gsl_breaks, nullptr};
    std::vector<double> pts{t->a, t->b};
    pts.insert(pts.end(), t->points, t->points + t->npts);
    std::sort(pts.begin(), pts.end());
    double result = 0, abserr = 0;
    timed(state, [&] {
        const int status = gsl_integration_qagp(&f, pts.data(), pts.size(), t->epsabs, t->epsrel,
                                                t->limit, ws, &result, &abserr);
        benchmark::DoNotOptimize(result);
        return status;
    });
    gsl_integration_workspace_free(ws);
}

const PrincipalValue* g_cauchy = nullptr;

double counted_cauchy(const double* x)
{
    ++g_calls;
    return g_cauchy->f(x);
}

double gsl_cauchy(double x, void*)
{
    ++g_calls;
    return g_cauchy->f(&x);
}

void bench_lbxpv(benchmark::State& state, const PrincipalValue* t)
{
    g_cauchy = t;
    const int lw = 4 * t->limit, liw = t->limit;
    std::vector<double> w(lw);
    std::vector<int> iw(liw);
    double result = 0, abserr = 0;
    timed(state, [&] {
        int ifail = 1;
        d01aqf_(counted_cauchy, &t->a, &t->b, &t->c, &t->epsabs, &t->epsrel, &result, &abserr,
                w.data(), &lw, iw.data(), &liw, &ifail);
        benchmark::DoNotOptimize(result);
        return ifail;
    });
}

void bench_gslpv(benchmark::State& state, const PrincipalValue* t)
{
    g_cauchy = t;
    gsl_set_error_handler_off();
    gsl_integration_workspace* ws = gsl_integration_workspace_alloc(t->limit);
    gsl_function f{gsl_cauchy, nullptr};
    double result = 0, abserr = 0;
    timed(state, [&] {
        const int status = gsl_integration_qawc(&f, t->a, t->b, t->c, t->epsabs, t->epsrel,
                                                t->limit, ws, &result, &abserr);
        benchmark::DoNotOptimize(result);
        return status;
    });
    gsl_integration_workspace_free(ws);
}

void bench_lbxinf(benchmark::State& state, const InfiniteRange* t)
{
    g_infinite = t;
    const int lw = 4 * t->limit, liw = t->limit;
    std::vector<double> w(lw);
    std::vector<int> iw(liw);
    double result = 0, abserr = 0;
    timed(state, [&] {
        int ifail = 1;
        d01amf_(counted_infinite, &t->bound, &t->inf, &t->epsabs, &t->epsrel, &result, &abserr,
                w.data(), &lw, iw.data(), &liw, &ifail);
        benchmark::DoNotOptimize(result);
        return ifail;
    });
}

void bench_gslinf(benchmark::State& state, const InfiniteRange* t)
{
    g_infinite = t;
    gsl_set_error_handler_off();
    gsl_integration_workspace* ws = gsl_integration_workspace_alloc(t->limit);
    gsl_function f{gsl_infinite, nullptr};
    double result = 0, abserr = 0;
    timed(state, [&] {
        int status = 0;
        if (t->inf == 1)
            status = gsl_integration_qagiu(&f, t->bound, t->epsabs, t->epsrel, t->limit, ws,
                                           &result, &abserr);
        else if (t->inf == -1)
            status = gsl_integration_qagil(&f, t->bound, t->epsabs, t->epsrel, t->limit, ws,
                                           &result, &abserr);
        else
            status = gsl_integration_qagi(&f, t->epsabs, t->epsrel, t->limit, ws, &result, &abserr);
        benchmark::DoNotOptimize(result);
        return status;
    });
    gsl_integration_workspace_free(ws);
}

double gsl_f(double x, void*)
{
    ++g_calls;
    return g_current->f(&x);
}

void bench_lbx(benchmark::State& state, const Integrand* t)
{
    g_current = t;
    const int lw = 4 * t->limit, liw = t->limit;
    std::vector<double> w(lw);
    std::vector<int> iw(liw);
    double result = 0, abserr = 0;
    timed(state, [&] {
        int ifail = 1;
        d01ajf_(counted, &t->a, &t->b, &t->epsabs, &t->epsrel, &result, &abserr, w.data(), &lw,
                iw.data(), &liw, &ifail);
        benchmark::DoNotOptimize(result);
        return ifail;
    });
}

void bench_lbx61(benchmark::State& state, const Integrand* t)
{
    g_current = t;
    const int lw = 4 * t->limit, liw = t->limit;
    std::vector<double> w(lw);
    std::vector<int> iw(liw);
    double result = 0, abserr = 0;
    timed(state, [&] {
        int ifail = 1;
        d01akf_(counted, &t->a, &t->b, &t->epsabs, &t->epsrel, &result, &abserr, w.data(), &lw,
                iw.data(), &liw, &ifail);
        benchmark::DoNotOptimize(result);
        return ifail;
    });
}

void bench_gsl61(benchmark::State& state, const Integrand* t)
{
    g_current = t;
    gsl_set_error_handler_off();
    gsl_integration_workspace* ws = gsl_integration_workspace_alloc(t->limit);
    gsl_function f{gsl_f, nullptr};
    double result = 0, abserr = 0;
    timed(state, [&] {
        const int status = gsl_integration_qag(&f, t->a, t->b, t->epsabs, t->epsrel, t->limit,
                                               GSL_INTEG_GAUSS61, ws, &result, &abserr);
        benchmark::DoNotOptimize(result);
        return status;
    });
    gsl_integration_workspace_free(ws);
}

void vector_counted(const double* x, double* fv, const int* n)
{
    g_calls += *n;
    for (int i = 0; i < *n; ++i)
        fv[i] = g_current->f(&x[i]);
}

void bench_lbxvec(benchmark::State& state, const Integrand* t)
{
    g_current = t;
    const int lw = 4 * t->limit, liw = t->limit;
    std::vector<double> w(lw);
    std::vector<int> iw(liw);
    double result = 0, abserr = 0;
    timed(state, [&] {
        int ifail = 1;
        d01atf_(vector_counted, &t->a, &t->b, &t->epsabs, &t->epsrel, &result, &abserr, w.data(),
                &lw, iw.data(), &liw, &ifail);
        benchmark::DoNotOptimize(result);
        return ifail;
    });
}

void bench_lbxkey(benchmark::State& state, const Integrand* t)
{
    g_current = t;
    const int lw = 4 * t->limit, liw = t->limit, key = 6;
    std::vector<double> w(lw);
    std::vector<int> iw(liw);
    double result = 0, abserr = 0;
    timed(state, [&] {
        int ifail = 1;
        d01auf_(vector_counted, &t->a, &t->b, &key, &t->epsabs, &t->epsrel, &result, &abserr,
                w.data(), &lw, iw.data(), &liw, &ifail);
        benchmark::DoNotOptimize(result);
        return ifail;
    });
}

void bench_lbxrel(benchmark::State& state, const Integrand* t)
{
    g_current = t;
    const int nlimit = 42 * t->limit - 21;
    double value = 0, relerr = 0;
    int npts = 0, ifail = 0;
    long runs = 0;
    g_calls = 0;
    for (auto _ : state) {
        ifail = 1;
        value = d01ahf_(counted, &t->a, &t->b, &t->epsrel, &npts, &relerr, &nlimit, &ifail);
        benchmark::DoNotOptimize(value);
        ++runs;
    }
    report(state, g_calls, runs, ifail);
}

void bench_lbxng(benchmark::State& state, const Integrand* t)
{
    g_current = t;
    double result = 0, abserr = 0;
    timed(state, [&] {
        int ifail = 1;
        d01bdf_(counted, &t->a, &t->b, &t->epsabs, &t->epsrel, &result, &abserr, &ifail);
        benchmark::DoNotOptimize(result);
        return ifail;
    });
}

void bench_gslng(benchmark::State& state, const Integrand* t)
{
    g_current = t;
    gsl_set_error_handler_off();
    gsl_function f{gsl_f, nullptr};
    double result = 0, abserr = 0;
    std::size_t neval = 0;
    timed(state, [&] {
        int status = 0;
        status =
            gsl_integration_qng(&f, t->a, t->b, t->epsabs, t->epsrel, &result, &abserr, &neval);
        benchmark::DoNotOptimize(result);
        return status;
    });
}

void bench_core(benchmark::State& state, const Integrand* t)
{
    g_current = t;
    const int limit = t->limit;
    std::vector<double> w(4 * limit);
    std::vector<int> iw(limit);
    const lbx::calculus::Subintervals s{
        w.data(), w.data() + limit, w.data() + 2 * limit, w.data() + 3 * limit, iw.data(), limit};
    double result = 0, abserr = 0;
    int ier = 0;
    long runs = 0;
    g_calls = 0;
    auto f = [](double x) { return counted(&x); };
    auto rule = [](auto& g, double lo, double hi, double& r, double& e, double& ra, double& rs) {
        lbx::calculus::D01AJZN(g, lo, hi, r, e, ra, rs);
    };
    for (auto _ : state) {
        ier = lbx::calculus::qags_core(rule, f, t->a, t->b, std::fabs(t->epsabs),
                                       std::fabs(t->epsrel), s, result, abserr)
                  .ier;
        benchmark::DoNotOptimize(result);
        ++runs;
    }
    report(state, g_calls, runs, ier);
}

void bench_gsl(benchmark::State& state, const Integrand* t)
{
    g_current = t;
    gsl_set_error_handler_off();
    gsl_integration_workspace* ws = gsl_integration_workspace_alloc(t->limit);
    gsl_function f{gsl_f, nullptr};
    double result = 0, abserr = 0;
    timed(state, [&] {
        const int status = gsl_integration_qags(&f, t->a, t->b, t->epsabs, t->epsrel, t->limit, ws,
                                                &result, &abserr);
        benchmark::DoNotOptimize(result);
        return status;
    });
    gsl_integration_workspace_free(ws);
}

void bench_lbxosc(benchmark::State& state, const OscillatoryWeight* t)
{
    g_weighted = t->f;
    const int lw = 4 * t->limit, liw = 2 * t->limit;
    std::vector<double> w(lw);
    std::vector<int> iw(liw);
    double result = 0, abserr = 0;
    timed(state, [&] {
        int ifail = 1;
        d01anf_(counted_weighted, &t->a, &t->b, &t->omega, &t->key, &t->epsabs, &t->epsrel, &result,
                &abserr, w.data(), &lw, iw.data(), &liw, &ifail);
        benchmark::DoNotOptimize(result);
        return ifail;
    });
}

void bench_gslosc(benchmark::State& state, const OscillatoryWeight* t)
{
    g_weighted = t->f;
    gsl_set_error_handler_off();
    gsl_integration_workspace* ws = gsl_integration_workspace_alloc(t->limit);
    gsl_integration_qawo_table* table = gsl_integration_qawo_table_alloc(
        t->omega, t->b - t->a, t->key == 1 ? GSL_INTEG_COSINE : GSL_INTEG_SINE, 21);
    gsl_function f{gsl_weighted, nullptr};
    double result = 0, abserr = 0;
    timed(state, [&] {
        const int status = gsl_integration_qawo(&f, t->a, t->epsabs, t->epsrel, t->limit, ws, table,
                                                &result, &abserr);
        benchmark::DoNotOptimize(result);
        return status;
    });
    gsl_integration_qawo_table_free(table);
    gsl_integration_workspace_free(ws);
}

void bench_lbxalg(benchmark::State& state, const AlgebraicWeight* t)
{
    g_weighted = t->f;
    const int lw = 4 * t->limit, liw = t->limit;
    std::vector<double> w(lw);
    std::vector<int> iw(liw);
    double result = 0, abserr = 0;
    timed(state, [&] {
        int ifail = 1;
        d01apf_(counted_weighted, &t->a, &t->b, &t->alfa, &t->beta, &t->key, &t->epsabs, &t->epsrel,
                &result, &abserr, w.data(), &lw, iw.data(), &liw, &ifail);
        benchmark::DoNotOptimize(result);
        return ifail;
    });
}

void bench_gslalg(benchmark::State& state, const AlgebraicWeight* t)
{
    g_weighted = t->f;
    gsl_set_error_handler_off();
    gsl_integration_workspace* ws = gsl_integration_workspace_alloc(t->limit);
    gsl_integration_qaws_table* table = gsl_integration_qaws_table_alloc(
        t->alfa, t->beta, t->key == 2 || t->key == 4, t->key == 3 || t->key == 4);
    gsl_function f{gsl_weighted, nullptr};
    double result = 0, abserr = 0;
    timed(state, [&] {
        int status = 0;
        // The moments, as D01APF computes them on each call.
        gsl_integration_qaws_table_set(table, t->alfa, t->beta, t->key == 2 || t->key == 4,
                                       t->key == 3 || t->key == 4);
        status = gsl_integration_qaws(&f, t->a, t->b, table, t->epsabs, t->epsrel, t->limit, ws,
                                      &result, &abserr);
        benchmark::DoNotOptimize(result);
        return status;
    });
    gsl_integration_qaws_table_free(table);
    gsl_integration_workspace_free(ws);
}

void bench_lbxfou(benchmark::State& state, const FourierIntegral* t)
{
    g_weighted = t->f;
    const int lw = 4 * t->limit, liw = 2 * t->limit;
    std::vector<double> w(lw), erlst(t->limlst), rslst(t->limlst);
    std::vector<int> iw(liw), ierlst(t->limlst);
    double result = 0, abserr = 0;
    int ifail = 0, lst = 0;
    long runs = 0;
    g_calls = 0;
    for (auto _ : state) {
        ifail = 1;
        d01asf_(counted_weighted, &t->a, &t->omega, &t->key, &t->epsabs, &result, &abserr,
                &t->limlst, &lst, erlst.data(), rslst.data(), ierlst.data(), w.data(), &lw,
                iw.data(), &liw, &ifail);
        benchmark::DoNotOptimize(result);
        ++runs;
    }
    report(state, g_calls, runs, ifail);
}

void bench_gslfou(benchmark::State& state, const FourierIntegral* t)
{
    g_weighted = t->f;
    gsl_set_error_handler_off();
    gsl_integration_workspace* ws = gsl_integration_workspace_alloc(t->limit);
    // GSL's qawf takes LIMIT for the number of cycles as well, and returns 0
    // at once with a cycle workspace smaller than LIMIT.
    gsl_integration_workspace* cycles =
        gsl_integration_workspace_alloc(std::max(t->limit, t->limlst));
    gsl_integration_qawo_table* table = gsl_integration_qawo_table_alloc(
        t->omega, 1.0, t->key == 1 ? GSL_INTEG_COSINE : GSL_INTEG_SINE, 21);
    gsl_function f{gsl_weighted, nullptr};
    double result = 0, abserr = 0;
    timed(state, [&] {
        const int status = gsl_integration_qawf(&f, t->a, t->epsabs, t->limit, ws, cycles, table,
                                                &result, &abserr);
        benchmark::DoNotOptimize(result);
        return status;
    });
    gsl_integration_qawo_table_free(table);
    gsl_integration_workspace_free(cycles);
    gsl_integration_workspace_free(ws);
}

int register_all()
{
    for (const Integrand& t : battery) {
        benchmark::RegisterBenchmark((std::string("lbx/") + t.name).c_str(), bench_lbx, &t);
        benchmark::RegisterBenchmark((std::string("core/") + t.name).c_str(), bench_core, &t);
        benchmark::RegisterBenchmark((std::string("gsl/") + t.name).c_str(), bench_gsl, &t);
        benchmark::RegisterBenchmark((std::string("lbx61/") + t.name).c_str(), bench_lbx61, &t);
        benchmark::RegisterBenchmark((std::string("lbxng/") + t.name).c_str(), bench_lbxng, &t);
        benchmark::RegisterBenchmark((std::string("lbxvec/") + t.name).c_str(), bench_lbxvec, &t);
        benchmark::RegisterBenchmark((std::string("lbxkey/") + t.name).c_str(), bench_lbxkey, &t);
        if (t.epsabs == 0.0)
            benchmark::RegisterBenchmark((std::string("lbxrel/") + t.name).c_str(), bench_lbxrel,
                                         &t);
        benchmark::RegisterBenchmark((std::string("gslng/") + t.name).c_str(), bench_gslng, &t);
        benchmark::RegisterBenchmark((std::string("gsl61/") + t.name).c_str(), bench_gsl61, &t);
    }
    for (const WithBreaks& t : breaks) {
        benchmark::RegisterBenchmark((std::string("lbxpts/") + t.name).c_str(), bench_lbxpts, &t);
        benchmark::RegisterBenchmark((std::string("gslpts/") + t.name).c_str(), bench_gslpts, &t);
    }
    for (const PrincipalValue& t : cauchy) {
        benchmark::RegisterBenchmark((std::string("lbxpv/") + t.name).c_str(), bench_lbxpv, &t);
        benchmark::RegisterBenchmark((std::string("gslpv/") + t.name).c_str(), bench_gslpv, &t);
    }
    for (const OscillatoryWeight& t : oscillatory) {
        benchmark::RegisterBenchmark((std::string("lbxosc/") + t.name).c_str(), bench_lbxosc, &t);
        benchmark::RegisterBenchmark((std::string("gslosc/") + t.name).c_str(), bench_gslosc, &t);
    }
    for (const AlgebraicWeight& t : algebraic) {
        benchmark::RegisterBenchmark((std::string("lbxalg/") + t.name).c_str(), bench_lbxalg, &t);
        benchmark::RegisterBenchmark((std::string("gslalg/") + t.name).c_str(), bench_gslalg, &t);
    }
    for (const FourierIntegral& t : fourier) {
        if (t.omega == 0.0)
            continue;
        benchmark::RegisterBenchmark((std::string("lbxfou/") + t.name).c_str(), bench_lbxfou, &t);
        benchmark::RegisterBenchmark((std::string("gslfou/") + t.name).c_str(), bench_gslfou, &t);
    }
    for (const InfiniteRange& t : infinite) {
        benchmark::RegisterBenchmark((std::string("lbxinf/") + t.name).c_str(), bench_lbxinf, &t);
        benchmark::RegisterBenchmark((std::string("gslinf/") + t.name).c_str(), bench_gslinf, &t);
    }
    return 0;
}

const int registered = register_all();

}  // namespace
