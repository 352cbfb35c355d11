// Nanoseconds per call of the gamma, error and Dawson functions and of the
// distribution routines, one throughput row each: through the plain entry
// (what a caller pays), the implementation alone (the difference is the cost
// of the entry layers), and the peers in the same binary (glibc where it has
// the function, and GSL).  Each benchmark sweeps 4096 fixed arguments spread
// over the stated range; the counter per_call is the time of one call.
// Run with --benchmark_repetitions=7 --benchmark_min_time=0.2
// --benchmark_enable_random_interleaving=true
// --benchmark_report_aggregates_only=true and read the "_min" rows (the least
// disturbed run on a shared machine).
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

#include <gsl/gsl_cdf.h>
#include <gsl/gsl_errno.h>
#include <gsl/gsl_sf_dawson.h>
#include <gsl/gsl_sf_erf.h>
#include <gsl/gsl_sf_gamma.h>

#include "gen/special.hpp"
#include "gen/stats.hpp"
#include "lbx3207qk.h"

namespace {

constexpr int kPoints = 4096;

std::vector<double> spread(double lo, double hi, unsigned seed = 7)
{
    std::mt19937_64 gen(seed);
    std::uniform_real_distribution<double> u(lo, hi);
    std::vector<double> v(kPoints);
    for (double& x : v)
        x = u(gen);
    return v;
}

template <class F>
void sweep(benchmark::State& state, const std::vector<double>& xs, F f)
{
    for (auto _ : state) {
        double sum = 0;
        for (double x : xs)
            sum += f(x);
        benchmark::DoNotOptimize(sum);
    }
    state.counters["per_call"] = benchmark::Counter(
        kPoints, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

// The implementation alone, with the failure writer the traced entry makes.
template <class F>
double impl(F f, double x)
{
    char errbuf[lbx::errbuf_length];
    int ifail = 0;
    lbx::Fail fail(errbuf, ifail);
    return f(x, fail);
}

const auto kGammaSmall = spread(0.01, 10.0);
const auto kGammaLarge = spread(10.0, 170.0);
const auto kGammaNeg = spread(-20.0, -0.01);
const auto kLogGammaSmall = spread(0.01, 12.0);
const auto kLogGamma = spread(12.0, 100.0);
const auto kLogGammaLarge = spread(100.0, 1e6);
const auto kErfc = spread(-6.0, 27.0);
const auto kErf = spread(-5.0, 5.0);
const auto kErfSmall = spread(-0.46875, 0.46875);
const auto kDawson = spread(-10.0, 10.0);
const auto kNormal = spread(-8.0, 8.0);
const auto kProb = spread(1e-12, 1.0 - 1e-12);
const auto kT = spread(-6.0, 6.0);
const auto kChi = spread(0.0, 30.0);

// The least of the repetitions (--benchmark_repetitions=N): on a shared
// machine the fastest run is the one least disturbed.
double least(const std::vector<double>& v)
{
    return *std::min_element(v.begin(), v.end());
}
#define LBX_BENCH(fn) BENCHMARK(fn)->ComputeStatistics("min", least)

double plain(double (*f)(const double*, int*), double x)
{
    int ifail = 1;
    return f(&x, &ifail);
}

// One row per routine and range: plain entry, implementation, glibc, GSL.
#define SPECIAL_BENCH(NAME, DATA, ENTRY, IMPL, PEER, GSL)         \
    void NAME##_entry(benchmark::State& s)                        \
    {                                                             \
        sweep(s, DATA, [](double x) { return plain(ENTRY, x); }); \
    }                                                             \
    void NAME##_impl(benchmark::State& s)                         \
    {                                                             \
        sweep(s, DATA, [](double x) { return impl(IMPL, x); });   \
    }                                                             \
    void NAME##_peer(benchmark::State& s)                         \
    {                                                             \
        sweep(s, DATA, PEER);                                     \
    }                                                             \
    void NAME##_peer_gsl(benchmark::State& s)                     \
    {                                                             \
        sweep(s, DATA, GSL);                                      \
    }                                                             \
    LBX_BENCH(NAME##_entry);                                      \
    LBX_BENCH(NAME##_impl);                                       \
    LBX_BENCH(NAME##_peer);                                       \
    LBX_BENCH(NAME##_peer_gsl);

// GSL's functions; its error handler is off (see GslQuiet), so arguments
// outside its range return a NaN or an infinity quietly.
double gsl_gamma(double x)
{
    return gsl_sf_gamma(x);
}
double gsl_lngamma(double x)
{
    return gsl_sf_lngamma(x);
}
double gsl_erfc(double x)
{
    return gsl_sf_erfc(x);
}
double gsl_erf(double x)
{
    return gsl_sf_erf(x);
}

SPECIAL_BENCH(
    S14AAF_gamma_0_10, kGammaSmall, s14aaf_, lbx::special::S14AAFN,
    [](double x) { return std::tgamma(x); }, gsl_gamma)
SPECIAL_BENCH(
    S14AAF_gamma_10_170, kGammaLarge, s14aaf_, lbx::special::S14AAFN,
    [](double x) { return std::tgamma(x); }, gsl_gamma)
SPECIAL_BENCH(
    S14AAF_gamma_neg20_0, kGammaNeg, s14aaf_, lbx::special::S14AAFN,
    [](double x) { return std::tgamma(x); }, gsl_gamma)
SPECIAL_BENCH(
    S14ABF_lgamma_0_12, kLogGammaSmall, s14abf_, lbx::special::S14ABFN,
    [](double x) {
        int s;
        return lgamma_r(x, &s);
    },
    gsl_lngamma)
SPECIAL_BENCH(
    S14ABF_lgamma_12_100, kLogGamma, s14abf_, lbx::special::S14ABFN,
    [](double x) {
        int s;
        return lgamma_r(x, &s);
    },
    gsl_lngamma)
SPECIAL_BENCH(
    S14ABF_lgamma_100_1e6, kLogGammaLarge, s14abf_, lbx::special::S14ABFN,
    [](double x) {
        int s;
        return lgamma_r(x, &s);
    },
    gsl_lngamma)
SPECIAL_BENCH(
    S15ADF_erfc, kErfc, s15adf_, lbx::special::S15ADFN, [](double x) { return std::erfc(x); },
    gsl_erfc)
SPECIAL_BENCH(
    S15AEF_erf, kErf, s15aef_, lbx::special::S15AEFN, [](double x) { return std::erf(x); }, gsl_erf)
SPECIAL_BENCH(
    S15AEF_erf_small, kErfSmall, s15aef_, lbx::special::S15AEFN,
    [](double x) { return std::erf(x); }, gsl_erf)
SPECIAL_BENCH(
    S15ADF_erfc_small, kErfSmall, s15adf_, lbx::special::S15ADFN,
    [](double x) { return std::erfc(x); }, gsl_erfc)
// Dawson's integral: glibc has none, GSL is the peer.
void S15AFF_dawson_entry(benchmark::State& s)
{
    sweep(s, kDawson, [](double x) { return plain(s15aff_, x); });
}
void S15AFF_dawson_impl(benchmark::State& s)
{
    sweep(s, kDawson, [](double x) { return impl(lbx::special::S15AFFN, x); });
}
void S15AFF_dawson_peer_gsl(benchmark::State& s)
{
    sweep(s, kDawson, [](double x) { return gsl_sf_dawson(x); });
}
LBX_BENCH(S15AFF_dawson_entry);
LBX_BENCH(S15AFF_dawson_impl);
LBX_BENCH(S15AFF_dawson_peer_gsl);

// Distribution routines with a TAIL argument.
double g01eaf_l(double x)
{
    int f = 1;
    char t = 'L';
    return g01eaf_(&t, &x, &f, 1);
}
double g01faf_l(double p)
{
    int f = 1;
    char t = 'L';
    return g01faf_(&t, &p, &f, 1);
}
template <int DF>
double g01ebf_u(double t)
{
    int f = 1;
    char c = 'U';
    double df = DF;
    return g01ebf_(&c, &t, &df, &f, 1);
}
template <int DF>
double g01ecf_u(double x)
{
    int f = 1;
    char c = 'U';
    double df = DF;
    return g01ecf_(&c, &x, &df, &f, 1);
}

double g01eaf_impl(double x)
{
    return impl([](double v, lbx::Fail& f) { return lbx::stats::G01EAFN('L', v, f); }, x);
}
double g01faf_impl(double p)
{
    return impl([](double v, lbx::Fail& f) { return lbx::stats::G01FAFN('L', v, f); }, p);
}
template <int DF>
double g01ebf_impl(double t)
{
    return impl([](double v, lbx::Fail& f) { return lbx::stats::G01EBFN('U', v, DF, f); }, t);
}
template <int DF>
double g01ecf_impl(double x)
{
    return impl([](double v, lbx::Fail& f) { return lbx::stats::G01ECFN('U', v, DF, f); }, x);
}

void G01EAF_normal_lower_entry(benchmark::State& s)
{
    sweep(s, kNormal, g01eaf_l);
}
void G01EAF_normal_lower_impl(benchmark::State& s)
{
    sweep(s, kNormal, g01eaf_impl);
}
void G01EAF_normal_lower_peer_glibc(benchmark::State& s)
{
    sweep(s, kNormal, [](double x) { return 0.5 * std::erfc(-x * 0.7071067811865475); });
}
void G01FAF_normal_deviate_entry(benchmark::State& s)
{
    sweep(s, kProb, g01faf_l);
}
void G01FAF_normal_deviate_impl(benchmark::State& s)
{
    sweep(s, kProb, g01faf_impl);
}
void G01FAF_normal_deviate_peer_gsl(benchmark::State& s)
{
    sweep(s, kProb, [](double p) { return gsl_cdf_ugaussian_Pinv(p); });
}
void G01EBF_t_df5_entry(benchmark::State& s)
{
    sweep(s, kT, g01ebf_u<5>);
}
void G01EBF_t_df5_impl(benchmark::State& s)
{
    sweep(s, kT, g01ebf_impl<5>);
}
void G01EBF_t_df5_peer_gsl(benchmark::State& s)
{
    sweep(s, kT, [](double t) { return gsl_cdf_tdist_Q(t, 5.0); });
}
void G01EBF_t_df50_entry(benchmark::State& s)
{
    sweep(s, kT, g01ebf_u<50>);
}
void G01EBF_t_df50_impl(benchmark::State& s)
{
    sweep(s, kT, g01ebf_impl<50>);
}
void G01EBF_t_df50_peer_gsl(benchmark::State& s)
{
    sweep(s, kT, [](double t) { return gsl_cdf_tdist_Q(t, 50.0); });
}
void G01ECF_chi2_df5_entry(benchmark::State& s)
{
    sweep(s, kChi, g01ecf_u<5>);
}
void G01ECF_chi2_df5_impl(benchmark::State& s)
{
    sweep(s, kChi, g01ecf_impl<5>);
}
void G01ECF_chi2_df5_peer_gsl(benchmark::State& s)
{
    sweep(s, kChi, [](double x) { return gsl_cdf_chisq_Q(x, 5.0); });
}
void G01ECF_chi2_df20_entry(benchmark::State& s)
{
    sweep(s, kChi, g01ecf_u<20>);
}
void G01ECF_chi2_df20_impl(benchmark::State& s)
{
    sweep(s, kChi, g01ecf_impl<20>);
}
void G01ECF_chi2_df20_peer_gsl(benchmark::State& s)
{
    sweep(s, kChi, [](double x) { return gsl_cdf_chisq_Q(x, 20.0); });
}

LBX_BENCH(G01EAF_normal_lower_entry);
LBX_BENCH(G01EAF_normal_lower_impl);
LBX_BENCH(G01EAF_normal_lower_peer_glibc);
LBX_BENCH(G01FAF_normal_deviate_entry);
LBX_BENCH(G01FAF_normal_deviate_impl);
LBX_BENCH(G01FAF_normal_deviate_peer_gsl);
LBX_BENCH(G01EBF_t_df5_entry);
LBX_BENCH(G01EBF_t_df5_impl);
LBX_BENCH(G01EBF_t_df5_peer_gsl);
LBX_BENCH(G01EBF_t_df50_entry);
LBX_BENCH(G01EBF_t_df50_impl);
LBX_BENCH(G01EBF_t_df50_peer_gsl);
LBX_BENCH(G01ECF_chi2_df5_entry);
LBX_BENCH(G01ECF_chi2_df5_impl);
LBX_BENCH(G01ECF_chi2_df5_peer_gsl);
LBX_BENCH(G01ECF_chi2_df20_entry);
LBX_BENCH(G01ECF_chi2_df20_impl);
LBX_BENCH(G01ECF_chi2_df20_peer_gsl);

// The cost of the entry layers alone: erf at one argument through the plain
// entry, the traced entry and the implementation.
void Layers_S15AEF_plain(benchmark::State& s)
{
    double x = 0.75;
    for (auto _ : s) {
        benchmark::DoNotOptimize(x);
        int ifail = 1;
        benchmark::DoNotOptimize(s15aef_(&x, &ifail));
    }
}
void Layers_S15AEF_traced(benchmark::State& s)
{
    double x = 0.75;
    char errbuf[lbx::errbuf_length];
    for (auto _ : s) {
        benchmark::DoNotOptimize(x);
        int ifail = 1;
        benchmark::DoNotOptimize(s15aeft_(&x, errbuf, &ifail, lbx::errbuf_length));
    }
}
void Layers_S15AEF_impl(benchmark::State& s)
{
    double x = 0.75;
    for (auto _ : s) {
        benchmark::DoNotOptimize(x);
        benchmark::DoNotOptimize(impl(lbx::special::S15AEFN, x));
    }
}
LBX_BENCH(Layers_S15AEF_plain);
LBX_BENCH(Layers_S15AEF_traced);
LBX_BENCH(Layers_S15AEF_impl);

struct GslQuiet {
    GslQuiet() { gsl_set_error_handler_off(); }
} gsl_quiet;

}  // namespace
