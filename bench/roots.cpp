// Zero of a continuous function: C05AYF against GSL's Brent solver
// (gsl_root_fsolver_brent) on the test battery of tests/roots/, at the same
// absolute tolerance EPS (GSL: gsl_root_test_interval with epsabs = EPS,
// epsrel = 0). Each benchmark is one complete solve on the problem's bracket;
// the counter "evals" is the number of function evaluations per solve.
// EPS defaults to 1e-10; set LBX_ROOTS_EPS to change it.
// tools/roots_bench_table.py turns the JSON output into the comparison table.
#include <benchmark/benchmark.h>
#include <gsl/gsl_errno.h>
#include <gsl/gsl_roots.h>

#include <cstdlib>
#include <string>

#include "../tests/roots/roots_battery.hpp"
#include "lbx3207qk.h"

namespace {

double tolerance()
{
    const char* s = std::getenv("LBX_ROOTS_EPS");
    return s != nullptr ? std::atof(s) : 1e-10;
}

// The problem being solved by C05AYF (GSL gets it through its params pointer).
const roots_battery::Problem* current = nullptr;

// The user function of C05AYF: IUSER(1) counts the calls.
double lbx_f(const double* x, int* iuser, double*)
{
    ++iuser[0];
    return current->f(*x, current->p, current->q);
}

struct GslContext {
    const roots_battery::Problem* p;
    long calls;
};

double gsl_f(double x, void* params)
{
    auto* c = static_cast<GslContext*>(params);
    ++c->calls;
    return c->p->f(x, c->p->p, c->p->q);
}

void bench_lbx(benchmark::State& state, int index)
{
    const auto& p = roots_battery::problems()[index];
    const double eps = tolerance(), eta = 0.0;
    long calls = 0, solves = 0;
    double x = 0.0;
    int ifail = 0;
    current = &p;
    for (auto _ : state) {
        int iuser[1] = {0};
        double ruser[1];
        ifail = 1;
        c05ayf_(&p.a, &p.b, &eps, &eta, lbx_f, &x, iuser, ruser, &ifail);
        benchmark::DoNotOptimize(x);
        calls += iuser[0];
        ++solves;
    }
    state.counters["evals"] = double(calls) / double(solves);
    state.counters["ifail"] = ifail;
}

void bench_gsl(benchmark::State& state, int index)
{
    const auto& p = roots_battery::problems()[index];
    const double eps = tolerance();
    GslContext ctx{&p, 0};
    gsl_function f{gsl_f, &ctx};
    gsl_root_fsolver* s = gsl_root_fsolver_alloc(gsl_root_fsolver_brent);
    long solves = 0;
    int status = 0;
    for (auto _ : state) {
        gsl_root_fsolver_set(s, &f, p.a, p.b);
        int iter = 0;
        do {
            ++iter;
            gsl_root_fsolver_iterate(s);
            status = gsl_root_test_interval(gsl_root_fsolver_x_lower(s),
                                            gsl_root_fsolver_x_upper(s), eps, 0.0);
        } while (status == GSL_CONTINUE && iter < 1000);
        benchmark::DoNotOptimize(gsl_root_fsolver_root(s));
        ++solves;
    }
    gsl_root_fsolver_free(s);
    state.counters["evals"] = double(ctx.calls) / double(solves);
    state.counters["ifail"] = status;
}

const bool registered = [] {
    gsl_set_error_handler_off();
    const auto& list = roots_battery::problems();
    for (int i = 0; i < static_cast<int>(list.size()); ++i) {
        benchmark::RegisterBenchmark((std::string("lbx/") + list[i].id).c_str(), bench_lbx, i);
        benchmark::RegisterBenchmark((std::string("gsl/") + list[i].id).c_str(), bench_gsl, i);
    }
    return true;
}();

}  // namespace
