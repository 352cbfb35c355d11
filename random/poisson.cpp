// G05TJF: Poisson variates with mean LAMBDA.
//
// MODE 0 and 2 set up R, MODE 1 and 2 draw from it, MODE 3 draws without it.
// R (reference vector):
//   R(1) = 7305 (marks an R set up by this routine), R(2) = LAMBDA, R(3) = lo, the first
//   tabulated count, R(4) = m, the number of tabulated counts, R(5) = P(X < lo),
//   R(6..5+m) = P(X <= lo + j), j = 0..m-1.
// The table spans lo = max(0, floor(LAMBDA - 10 sqrt(LAMBDA)) - 1) to
// ceil(LAMBDA + 10 sqrt(LAMBDA)) + 20; each probability is computed directly by Loader's
// saddle-point form (Loader, "Fast and accurate computation of binomial probabilities",
// 2000), so the table has no accumulated recurrence error. Drawing from R is inversion: one
// uniform per variate, found by binary search, with a sequential search beyond the table
// for the (below 1e-20) tails.
// MODE 3 uses inversion by sequential search for LAMBDA < 10 (one uniform per variate) and
// Hormann's transformed rejection with squeeze, PTRS (Insurance Math. Econom. 12 (1993)
// 39-45), for LAMBDA >= 10 (two uniforms per trial, 1.12 to 1.33 trials per variate). A
// variate that needs more than kMaxTrials trials means the generator does not progress (a
// STATE whose block repeats one value, say): the routine stops with a failure instead of
// looping. A sound generator rejects at most a quarter of the trials, so the chance that it
// needs more than 1000 is below 1e-600.
// LAMBDA = 0 gives zeros without drawing. LAMBDA is limited to 2e9 so that every variate
// is a valid 32-bit integer.
#include <algorithm>
#include <cmath>

#include "frame/math_constants.hpp"
#include "gen/random.hpp"
#include "random/engines.hpp"
#include "random/state.hpp"
#include "special/gamma.hpp"

namespace lbx::random {
namespace {

constexpr double kMarker = 7305.0;
constexpr int kHeader = 5;
constexpr double kLambdaMax = 2.0e9;
constexpr int kMaxTrials = 1000;

// log(n!) by the library's own log-gamma (S14ABF's kernel, no global state).
double log_factorial(double n)
{
    return lbx::special::log_gamma_kernel(n + 1.0);
}

// x log(x / np) + np - x without cancellation (Loader's bd0).
double deviance(double x, double np)
{
    if (std::fabs(x - np) < 0.1 * (x + np)) {
        double v = (x - np) / (x + np);
        double s = (x - np) * v;
        double ej = 2.0 * x * v;
        const double v2 = v * v;
        for (int j = 1; j < 1000; ++j) {
            ej *= v2;
            const double s1 = s + ej / (2 * j + 1);
            if (s1 == s)
                return s1;
            s = s1;
        }
        return s;
    }
    return x * std::log(x / np) + np - x;
}

double poisson_pmf(double k, double lambda)
{
    if (k == 0.0)
        return std::exp(-lambda);
    // log(k!) - ((k + 1/2) log k - k + log sqrt(2 pi)) is Loader's stirlerr(k).
    return std::exp(-lbx::special::stirling_remainder(k) - deviance(k, lambda)) /
           std::sqrt(lbx::math::two_pi * k);
}

struct Table {
    double lo;
    double count;
};

Table table_extent(double lambda)
{
    const double root = std::sqrt(lambda);
    const double lo = std::max(0.0, std::floor(lambda - 10.0 * root) - 1.0);
    const double hi = std::ceil(lambda + 10.0 * root) + 20.0;
    return {lo, hi - lo + 1.0};
}

// P(X < lo): zero when lo = 0, else the geometric bound p(lo) lo / (lambda - lo) of a tail
// that lies 10 standard deviations out (below 1e-20).
double mass_below(const Table& t, double lambda)
{
    return t.lo > 0.0 ? poisson_pmf(t.lo, lambda) * t.lo / (lambda - t.lo) : 0.0;
}

void set_up(double lambda, double* r)
{
    const Table t = table_extent(lambda);
    const int m = static_cast<int>(t.count);
    r[0] = kMarker;
    r[1] = lambda;
    r[2] = t.lo;
    r[3] = t.count;
    const double below = mass_below(t, lambda);
    r[4] = below;
    double sum = below, comp = 0.0;  // compensated summation
    for (int j = 0; j < m; ++j) {
        const double y = poisson_pmf(t.lo + j, lambda) - comp;
        const double s = sum + y;
        comp = (s - sum) - y;
        sum = s;
        r[kHeader + j] = std::min(sum, 1.0);
    }
    r[kHeader + m - 1] = 1.0;  // the mass beyond the table is below the resolution of u
}

bool reference_usable(const double* r, int lr)
{
    if (lr < kHeader + 1 || r[0] != kMarker)
        return false;
    const double lambda = r[1], lo = r[2], m = r[3];
    if (!(lambda >= 0.0) || !(lambda <= kLambdaMax) || !(lo >= 0.0) || lo != std::floor(lo) ||
        !(m >= 1.0) || m != std::floor(m) || m > lr - kHeader) {
        return false;
    }
    // R(5) is a function of LAMBDA: a damaged one would send the search below the table on a
    // walk down from lo for nearly every uniform.
    const Table t = table_extent(lambda);
    return t.lo == lo && t.count == m && r[4] == mass_below(t, lambda) &&
           r[kHeader + static_cast<int>(m) - 1] == 1.0;
}

int draw_from_table(const double* r, double u)
{
    const double lambda = r[1];
    const int lo = static_cast<int>(r[2]);
    const int m = static_cast<int>(r[3]);
    const double* f = r + kHeader;
    if (u <= r[4]) {  // below the table: walk down from lo - 1
        int k = lo - 1;
        double c = r[4];
        double p = poisson_pmf(k, lambda);
        while (k > 0 && p > 0.0 && u <= c - p) {  // p = 0: nothing lies further down
            c -= p;
            p *= k / lambda;
            --k;
        }
        return k;
    }
    const int j = static_cast<int>(std::lower_bound(f, f + m, u) - f);
    return lo + std::min(j, m - 1);
}

// Sequential-search inversion for small LAMBDA; one uniform per variate.
int draw_small(double lambda, double u, double p0)
{
    int k = 0;
    double p = p0, c = p0;
    while (u > c && k < 1000) {
        ++k;
        p *= lambda / k;
        c += p;
        if (p == 0.0)
            break;  // c has stopped growing: u lies in the rounding of the last term
    }
    return k;
}

class Ptrs {
public:
    explicit Ptrs(double lambda)
        : lambda_(lambda),
          log_lambda_(std::log(lambda)),
          b_(0.931 + 2.53 * std::sqrt(lambda)),
          a_(-0.059 + 0.02483 * b_),
          log_inv_alpha_(std::log(1.1239 + 1.1328 / (b_ - 3.4))),
          vr_(0.9277 - 3.6224 / (b_ - 2.0))
    {
    }

    // One variate in x; false if none was accepted in kMaxTrials trials.
    bool draw(int* state, int& x) const
    {
        double uv[2];
        for (int trial = 0; trial < kMaxTrials; ++trial) {
            fill_uniform(state, uv, 2);
            const double u = uv[0] - 0.5, v = uv[1];
            const double us = 0.5 - std::fabs(u);
            const double k = std::floor((2.0 * a_ / us + b_) * u + lambda_ + 0.43);
            if (us >= 0.07 && v <= vr_) {
                x = static_cast<int>(k);
                return true;
            }
            if (k < 0.0 || (us < 0.013 && v > us))
                continue;
            if (std::log(v) + log_inv_alpha_ - std::log(a_ / (us * us) + b_) <=
                -lambda_ + k * log_lambda_ - log_factorial(k)) {
                x = static_cast<int>(k);
                return true;
            }
        }
        return false;
    }

private:
    double lambda_, log_lambda_, b_, a_, log_inv_alpha_, vr_;
};

}  // namespace

void G05TJFN(int mode, int n, double lambda, double* r, int lr, int* state, int* x, int lstate,
             lbx::Fail& fail)
{
    if (mode < 0 || mode > 3)
        return fail(G05TJF_msg::MODE_RANGE, mode);
    if (n < 0)
        return fail(G05TJF_msg::N_RANGE, n);
    if (!(lambda >= 0.0))
        return fail(G05TJF_msg::LAMBDA_RANGE, lambda);
    if (mode == 0 || mode == 2) {
        const double need = table_extent(std::min(lambda, 1e300)).count + kHeader;
        if (need > 2147483647.0)
            return fail(G05TJF_msg::LAMBDA_TOO_LARGE, lambda);
    }
    if (lambda > kLambdaMax)
        return fail(G05TJF_msg::LAMBDA_LIMIT, lambda, kLambdaMax);
    if (mode == 1) {
        if (!reference_usable(r, lr))
            return fail(G05TJF_msg::R_CORRUPT);
        if (r[1] != lambda)
            return fail(G05TJF_msg::LAMBDA_CHANGED, r[1], lambda);
    }
    if (mode == 0 || mode == 2) {
        const int need = static_cast<int>(table_extent(lambda).count) + kHeader;
        if (lr < need)
            return fail(G05TJF_msg::LR_SMALL, lr, need);
    }
    if (mode != 0 && n > 0) {
        if (!state_usable<G05TJF_msg>(state, lstate, fail))
            return;
    }
    if (mode == 0 || mode == 2)
        set_up(lambda, r);
    if (mode == 0 || n == 0)
        return;
    if (lambda == 0.0) {
        std::fill(x, x + n, 0);
        return;
    }
    if (mode == 1 || mode == 2) {
        // Uniforms in blocks, transformed in place: one uniform per variate.
        double u[256];
        for (int i = 0; i < n; i += 256) {
            const int len = std::min(256, n - i);
            fill_uniform(state, u, len);
            for (int j = 0; j < len; ++j)
                x[i + j] = draw_from_table(r, u[j]);
        }
        return;
    }
    if (lambda < 10.0) {
        const double p0 = std::exp(-lambda);
        double u[256];
        for (int i = 0; i < n; i += 256) {
            const int len = std::min(256, n - i);
            fill_uniform(state, u, len);
            for (int j = 0; j < len; ++j)
                x[i + j] = draw_small(lambda, u[j], p0);
        }
        return;
    }
    const Ptrs ptrs(lambda);
    for (int i = 0; i < n; ++i) {
        if (!ptrs.draw(state, x[i]))
            return fail(G05TJF_msg::GENERATOR_STUCK, kMaxTrials);
    }
}

}  // namespace lbx::random
