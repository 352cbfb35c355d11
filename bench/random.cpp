// Uniform and normal variates per second: G05SAF for each base generator and G05SKF,
// against a plain loop of the same recurrence, the C++ standard library's mt19937_64 with
// its distributions, and GSL's MT19937 with its ziggurat normals. Ratios are printed as the
// counter "ns_per_value" (wall-clock time, so that the two-thread rows are honest); compare
// rows.
#include <benchmark/benchmark.h>
#include <gsl/gsl_randist.h>
#include <gsl/gsl_rng.h>
#include <omp.h>

#include <cmath>
#include <cstdint>
#include <random>
#include <vector>

#include "lbx3207qk.h"

namespace {

constexpr int kN = 10000;

std::vector<int> make_state(int genid)
{
    std::vector<int> state(1260);
    int subid = 1, lseed = 1, lstate = 1260, ifail = 0, seed = 1762;
    g05kff_(&genid, &subid, &seed, &lseed, state.data(), &lstate, &ifail);
    state.resize(state[0]);
    return state;
}

void finish(benchmark::State& st, int n = kN)
{
    st.SetItemsProcessed(st.iterations() * n);
    st.counters["ns_per_value"] =
        benchmark::Counter(static_cast<double>(st.iterations()) * n,
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

// Normal variates are timed on vectors of 100000, where the parallel region's start-up is
// small against the work.
constexpr int kNormals = 100000;

void BM_G05SAF(benchmark::State& st)
{
    std::vector<int> state = make_state(static_cast<int>(st.range(0)));
    std::vector<double> x(kN);
    int n = kN, ifail = 0;
    for (auto _ : st) {
        g05saf_(&n, state.data(), x.data(), &ifail);
        benchmark::DoNotOptimize(x.data());
    }
    finish(st);
}
BENCHMARK(BM_G05SAF)->DenseRange(1, 6)->ArgName("GENID")->UseRealTime();

void BM_G05SKF(benchmark::State& st)
{
    std::vector<int> state = make_state(static_cast<int>(st.range(0)));
    std::vector<double> x(kNormals);
    const int saved = omp_get_max_threads();
    omp_set_num_threads(static_cast<int>(st.range(1)));
    int n = kNormals, ifail = 0;
    double xmu = 0.0, var = 1.0;
    for (auto _ : st) {
        g05skf_(&n, &xmu, &var, state.data(), x.data(), &ifail);
        benchmark::DoNotOptimize(x.data());
    }
    omp_set_num_threads(saved);
    finish(st, kNormals);
}
BENCHMARK(BM_G05SKF)
    ->ArgsProduct({{1, 3, 6}, {1, 2}})
    ->ArgNames({"GENID", "threads"})
    ->UseRealTime();

// Control: a plain OpenMP loop of the same length and a similar cost per element, to show
// what a second thread gives on the machine at the time of the run (a busy second core
// makes every two-thread row slow, whatever the code).
void BM_OpenMpControl(benchmark::State& st)
{
    std::vector<double> x(kNormals, 0.5);
    const int saved = omp_get_max_threads();
    omp_set_num_threads(static_cast<int>(st.range(0)));
    for (auto _ : st) {
#pragma omp parallel for schedule(static)
        for (int i = 0; i < kNormals; ++i)
            x[i] = std::log(x[i] + 1.0) + std::sqrt(x[i]);
        benchmark::DoNotOptimize(x.data());
    }
    omp_set_num_threads(saved);
    finish(st, kNormals);
}
BENCHMARK(BM_OpenMpControl)->Arg(1)->Arg(2)->ArgName("threads")->UseRealTime();

// ---- plain loops of the same recurrences (the floor) ----

void BM_PlainBasic(benchmark::State& st)
{
    const std::uint64_t a = 302875106592253, mask = (std::uint64_t{1} << 60) - 1;
    std::uint64_t x = 4 * 1762 + 2;
    std::vector<double> out(kN);
    for (auto _ : st) {
        for (int i = 0; i < kN; ++i) {
            x = (a * x) & mask;
            out[i] = static_cast<double>(static_cast<std::int64_t>(x)) * 0x1p-60;
        }
        benchmark::DoNotOptimize(out.data());
    }
    finish(st);
}
BENCHMARK(BM_PlainBasic)->UseRealTime();

void BM_PlainWichmannHill(benchmark::State& st)
{
    // Four prime-modulus components with moduli known only at run time, as a set chosen by
    // SUBID is.
    std::vector<int> s = make_state(2);
    std::uint64_t x[4], a[4], m[4];
    for (int j = 0; j < 4; ++j) {
        x[j] = static_cast<std::uint64_t>(s[4 + j]);
        a[j] = static_cast<std::uint64_t>(s[8 + j]);
        m[j] = static_cast<std::uint64_t>(s[12 + j]);
    }
    benchmark::DoNotOptimize(m);
    std::vector<double> out(kN);
    for (auto _ : st) {
        for (int i = 0; i < kN; ++i) {
            double w = 0.0;
            for (int j = 0; j < 4; ++j) {
                x[j] = a[j] * x[j] % m[j];
                w += static_cast<double>(x[j]) / static_cast<double>(m[j]);
            }
            out[i] = w - std::floor(w);
        }
        benchmark::DoNotOptimize(out.data());
    }
    finish(st);
}
BENCHMARK(BM_PlainWichmannHill)->UseRealTime();

void BM_PlainMt19937(benchmark::State& st)
{
    std::uint32_t mt[624];
    mt[0] = 1762;
    for (int i = 1; i < 624; ++i)
        mt[i] = 1812433253u * (mt[i - 1] ^ (mt[i - 1] >> 30)) + i;
    int mti = 624;
    std::vector<double> out(kN);
    for (auto _ : st) {
        for (int i = 0; i < kN; ++i) {
            if (mti >= 624) {
                // the authors' regeneration, in their two-loop form plus the last word
                int k = 0;
                for (; k < 624 - 397; ++k) {
                    const std::uint32_t y = (mt[k] & 0x80000000u) | (mt[k + 1] & 0x7fffffffu);
                    mt[k] = mt[k + 397] ^ (y >> 1) ^ ((y & 1u) ? 0x9908b0dfu : 0u);
                }
                for (; k < 623; ++k) {
                    const std::uint32_t y = (mt[k] & 0x80000000u) | (mt[k + 1] & 0x7fffffffu);
                    mt[k] = mt[k + 397 - 624] ^ (y >> 1) ^ ((y & 1u) ? 0x9908b0dfu : 0u);
                }
                const std::uint32_t y = (mt[623] & 0x80000000u) | (mt[0] & 0x7fffffffu);
                mt[623] = mt[396] ^ (y >> 1) ^ ((y & 1u) ? 0x9908b0dfu : 0u);
                mti = 0;
            }
            std::uint32_t y = mt[mti++];
            y ^= y >> 11;
            y ^= (y << 7) & 0x9d2c5680u;
            y ^= (y << 15) & 0xefc60000u;
            y ^= y >> 18;
            out[i] = (static_cast<double>(y) + 0.5) * 0x1p-32;
        }
        benchmark::DoNotOptimize(out.data());
    }
    finish(st);
}
BENCHMARK(BM_PlainMt19937)->UseRealTime();

void BM_PlainWichmannHill2006(benchmark::State& st)
{
    std::int64_t x = 1, y = 2, z = 3, t = 4;
    std::vector<double> out(kN);
    for (auto _ : st) {
        for (int i = 0; i < kN; ++i) {
            x = 11600 * x % 2147483579;
            y = 47003 * y % 2147483543;
            z = 23000 * z % 2147483423;
            t = 33000 * t % 2147483123;
            const double w =
                x / 2147483579.0 + y / 2147483543.0 + z / 2147483423.0 + t / 2147483123.0;
            out[i] = w - std::floor(w);
        }
        benchmark::DoNotOptimize(out.data());
    }
    finish(st);
}
BENCHMARK(BM_PlainWichmannHill2006)->UseRealTime();

void BM_PlainAcorn(benchmark::State& st)
{
    std::uint32_t y[11] = {1763, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14};
    std::vector<double> out(kN);
    for (auto _ : st) {
        for (int i = 0; i < kN; ++i) {
            for (int m = 1; m <= 10; ++m)
                y[m] = (y[m] + y[m - 1]) & 0x3fffffffu;
            out[i] = (static_cast<double>(y[10]) + 0.5) * 0x1p-30;
        }
        benchmark::DoNotOptimize(out.data());
    }
    finish(st);
}
BENCHMARK(BM_PlainAcorn)->UseRealTime();

void BM_PlainMrg32k3a(benchmark::State& st)
{
    // L'Ecuyer's floating-point formulation.
    double s10 = 12345, s11 = 12345, s12 = 12345, s20 = 12345, s21 = 12345, s22 = 12345;
    const double m1 = 4294967087.0, m2 = 4294944443.0, norm = 2.328306549295728e-10;
    std::vector<double> out(kN);
    for (auto _ : st) {
        for (int i = 0; i < kN; ++i) {
            double p1 = 1403580.0 * s11 - 810728.0 * s10;
            long k = static_cast<long>(p1 / m1);
            p1 -= k * m1;
            if (p1 < 0.0)
                p1 += m1;
            s10 = s11;
            s11 = s12;
            s12 = p1;
            double p2 = 527612.0 * s22 - 1370589.0 * s20;
            k = static_cast<long>(p2 / m2);
            p2 -= k * m2;
            if (p2 < 0.0)
                p2 += m2;
            s20 = s21;
            s21 = s22;
            s22 = p2;
            out[i] = p1 > p2 ? (p1 - p2) * norm : (p1 - p2 + m1) * norm;
        }
        benchmark::DoNotOptimize(out.data());
    }
    finish(st);
}
BENCHMARK(BM_PlainMrg32k3a)->UseRealTime();

// ---- peers ----

void BM_StdMt19937_64Uniform(benchmark::State& st)
{
    std::mt19937_64 eng(1762);
    std::uniform_real_distribution<double> dist(0.0, 1.0);
    std::vector<double> out(kN);
    for (auto _ : st) {
        for (int i = 0; i < kN; ++i)
            out[i] = dist(eng);
        benchmark::DoNotOptimize(out.data());
    }
    finish(st);
}
BENCHMARK(BM_StdMt19937_64Uniform)->UseRealTime();

void BM_StdMt19937_64Normal(benchmark::State& st)
{
    std::mt19937_64 eng(1762);
    std::normal_distribution<double> dist(0.0, 1.0);
    std::vector<double> out(kNormals);
    for (auto _ : st) {
        for (int i = 0; i < kNormals; ++i)
            out[i] = dist(eng);
        benchmark::DoNotOptimize(out.data());
    }
    finish(st, kNormals);
}
BENCHMARK(BM_StdMt19937_64Normal)->UseRealTime();

void BM_GslMt19937Uniform(benchmark::State& st)
{
    gsl_rng* r = gsl_rng_alloc(gsl_rng_mt19937);
    gsl_rng_set(r, 1762);
    std::vector<double> out(kN);
    for (auto _ : st) {
        for (int i = 0; i < kN; ++i)
            out[i] = gsl_rng_uniform_pos(r);
        benchmark::DoNotOptimize(out.data());
    }
    gsl_rng_free(r);
    finish(st);
}
BENCHMARK(BM_GslMt19937Uniform)->UseRealTime();

void BM_GslMt19937ZigguratNormal(benchmark::State& st)
{
    gsl_rng* r = gsl_rng_alloc(gsl_rng_mt19937);
    gsl_rng_set(r, 1762);
    std::vector<double> out(kNormals);
    for (auto _ : st) {
        for (int i = 0; i < kNormals; ++i)
            out[i] = gsl_ran_gaussian_ziggurat(r, 1.0);
        benchmark::DoNotOptimize(out.data());
    }
    gsl_rng_free(r);
    finish(st, kNormals);
}
BENCHMARK(BM_GslMt19937ZigguratNormal)->UseRealTime();

}  // namespace
