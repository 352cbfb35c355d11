// Continuous variates beyond the normal (G05SBF to G05SSF).
//
// Every routine checks N first (N = 0 returns at once), then its parameters in argument order,
// then STATE. A degenerate distribution (a zero scale, an empty interval) gives its one value
// without drawing, so STATE does not advance.
//
// Inversion methods draw exactly one uniform per variate (two for the exponential mixture),
// the uniforms exactly those G05SAF would give, and transform them in parallel: each element
// depends only on its own uniforms, so the result is the same for any number of threads.
// Methods with a variable number of uniforms per variate (exponential, beta, gamma,
// chi-squared, F, t, Dirichlet, von Mises) run serially; STATE ends just past the last uniform
// used (random/source.hpp: the uniforms come in blocks, the unused rest of the last block is
// given back).
//
// Methods:
//   normal deviates inside these methods and the exponential: the ziggurat (Marsaglia and
//     Tsang, J. Statist. Software 5 (2000); random/source.hpp);
//   gamma: Marsaglia and Tsang, ACM TOMS 26 (2000) 363-372, a ziggurat normal and one uniform
//     per trial; shape a < 1 by G(a + 1) U^(1/a) (ibid., s. 5);
//   beta: Johnk, Metrika 8 (1964) 5-15, when both shapes are at most 1 (accepts with
//     probability Gamma(a+1) Gamma(b+1) / Gamma(a+b+1) >= 1/2), else G(a) / (G(a) + G(b));
//   chi-squared, F, t: from gamma variates (2 G(DF/2); ratios of chi-squared variates;
//     Z / sqrt(chi-squared / DF));
//   Dirichlet: M gamma variates normalised by their sum (kept as logarithms for shapes below
//     1, so tiny shapes do not underflow to 0/0);
//   von Mises: Best and Fisher, Appl. Statist. 28 (1979) 152-157, with the wrapped normal of
//     variance 1/VK for VK > 1e6, where the acceptance constants lose their accuracy;
//   Cauchy, exponential mixture, logistic, log-normal, triangular, uniform, Weibull: inversion.
// A rejection loop that accepts nothing in kMaxTrials trials means the generator does not
// progress (a degenerate block): the routine fails rather than loops. Each method accepts a
// trial with probability above 1/2, so a sound generator fails with probability below
// 2^-1000.
#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include <omp.h>

#include "frame/math_constants.hpp"
#include "gen/random.hpp"
#include "random/engines.hpp"
#include "random/source.hpp"
#include "random/state.hpp"
#include "stats/inverse_normal.hpp"

namespace lbx::random {
namespace {

constexpr int kChunk = 256;

// Marsaglia-Tsang for shape a >= 1, scale 1.
class GammaMt {
public:
    explicit GammaMt(double a) : d_(a - 1.0 / 3.0), c_(1.0 / std::sqrt(9.0 * (a - 1.0 / 3.0))) {}
    double operator()(Source& s) const
    {
        for (int t = 0; t < kMaxTrials; ++t) {
            const double z = s.normal();
            double v = 1.0 + c_ * z;
            if (v <= 0.0)
                continue;
            v = v * v * v;
            const double u = s.u();
            const double z2 = z * z;
            if (u < 1.0 - 0.0331 * z2 * z2)
                return d_ * v;
            if (std::log(u) < 0.5 * z2 + d_ * (1.0 - v + std::log(v)))
                return d_ * v;
        }
        throw Stuck{};
    }

private:
    double d_, c_;
};

// Gamma(a) with scale 1, any a > 0; for a < 1 the logarithm is available without underflow.
class Gamma {
public:
    explicit Gamma(double a) : a_(a), core_(a < 1.0 ? a + 1.0 : a) {}
    double operator()(Source& s) const
    {
        if (a_ >= 1.0)
            return core_(s);
        const double g = core_(s);
        return g * std::exp(std::log(s.u()) / a_);
    }
    double log_value(Source& s) const
    {
        if (a_ >= 1.0)
            return std::log(core_(s));
        const double g = core_(s);
        return std::log(g) + std::log(s.u()) / a_;
    }

private:
    double a_;
    GammaMt core_;
};

// Beta(a, b): Johnk's method when both shapes are at most 1, else G(a) / (G(a) + G(b)).
class Beta {
public:
    Beta(double a, double b) : a_(a), b_(b), ga_(a), gb_(b) {}

    double operator()(Source& s) const
    {
        if (a_ > 1.0 || b_ > 1.0) {
            const double x = ga_(s);
            return x / (x + gb_(s));
        }
        for (int t = 0; t < kMaxTrials; ++t) {
            double u, v;
            s.pair(u, v);
            const double x = std::pow(u, 1.0 / a_), y = std::pow(v, 1.0 / b_);
            const double sum = x + y;
            if (!(sum <= 1.0))
                continue;
            if (sum > 0.0)
                return x / sum;
            // Both powers underflow: the ratio from their logarithms.
            double lx = std::log(u) / a_, ly = std::log(v) / b_;
            const double top = std::max(lx, ly);
            lx -= top;
            ly -= top;
            return std::exp(lx - std::log(std::exp(lx) + std::exp(ly)));
        }
        throw Stuck{};
    }

private:
    double a_, b_;
    Gamma ga_, gb_;
};

// Best-Fisher von Mises on (-pi, pi] with mean 0.
class VonMises {
public:
    explicit VonMises(double k) : k_(k)
    {
        if (k < 1e-5) {
            s_ = 1.0 / k + k;
        } else if (k <= 1e6) {
            const double r = 1.0 + std::sqrt(1.0 + 4.0 * k * k);
            const double rho = (r - std::sqrt(2.0 * r)) / (2.0 * k);
            s_ = (1.0 + rho * rho) / (2.0 * rho);
        }
    }
    double operator()(Source& s) const
    {
        if (k_ > 1e6) {  // wrapped normal
            double x = s.normal() / std::sqrt(k_);
            x = std::remainder(x, 2.0 * lbx::math::pi);
            return x == -lbx::math::pi ? lbx::math::pi : x;
        }
        for (int t = 0; t < kMaxTrials; ++t) {
            const double z = std::cos(lbx::math::pi * s.u());
            const double w = (1.0 + s_ * z) / (s_ + z);
            const double y = k_ * (s_ - w);
            const double v = s.u();
            if (y * (2.0 - y) - v >= 0.0 || std::log(y / v) + 1.0 - y >= 0.0) {
                const double x = std::acos(std::clamp(w, -1.0, 1.0));
                return s.u() < 0.5 ? -x : x;
            }
        }
        throw Stuck{};
    }

private:
    double k_, s_ = 0.0;
};

// Fills x with n uniforms and applies f to each in parallel.
// One thread transforms each block of uniforms while it is in cache; several fill all of x
// first and share the transform. The values are the same either way.
template <class F>
void transform_uniforms(int* state, double* x, int n, F f)
{
    if (n >= 4096 && omp_get_max_threads() > 1) {
        fill_uniform(state, x, n);
#pragma omp parallel for schedule(static)
        for (int i = 0; i < n; ++i)
            x[i] = f(x[i]);
        return;
    }
    for (int i = 0; i < n; i += kChunk) {
        const int len = std::min(kChunk, n - i);
        fill_uniform(state, x + i, len);
        for (int j = i; j < i + len; ++j)
            x[j] = f(x[j]);
    }
}

// Serial draws x[i] = draw(source); false if a rejection loop stalled.
template <class D>
bool draw_serial(int* state, double* x, int n, D draw)
{
    Source s(state);
    try {
        for (int i = 0; i < n; ++i)
            x[i] = draw(s);
    } catch (const Stuck&) {
        s.finish();
        return false;
    }
    s.finish();
    return true;
}

template <class Msg>
void stuck(lbx::Fail& fail)
{
    fail(Msg::GENERATOR_STUCK, kMaxTrials);
}

}  // namespace

void G05SBFN(int n, double a, double b, int* state, double* x, int lstate, lbx::Fail& fail)
{
    if (n < 0)
        return fail(G05SBF_msg::N_RANGE, n);
    if (n == 0)
        return;
    if (!(a > 0.0))
        return fail(G05SBF_msg::A_RANGE, a);
    if (!(b > 0.0))
        return fail(G05SBF_msg::B_RANGE, b);
    if (!state_usable<G05SBF_msg>(state, lstate, fail))
        return;
    const Beta beta(a, b);
    if (!draw_serial(state, x, n, beta))
        stuck<G05SBF_msg>(fail);
}

void G05SCFN(int n, double xmed, double semiqr, int* state, double* x, int lstate, lbx::Fail& fail)
{
    if (n < 0)
        return fail(G05SCF_msg::N_RANGE, n);
    if (n == 0)
        return;
    if (!(semiqr >= 0.0))
        return fail(G05SCF_msg::SEMIQR_RANGE, semiqr);
    if (!state_usable<G05SCF_msg>(state, lstate, fail))
        return;
    if (semiqr == 0.0)
        return std::fill(x, x + n, xmed);
    // tan(pi (u - 1/2)) is the standard Cauchy quantile; its quartiles are -1 and 1.
    transform_uniforms(
        state, x, n, [=](double u) { return xmed + semiqr * std::tan(lbx::math::pi * (u - 0.5)); });
}

void G05SDFN(int n, int df, int* state, double* x, int lstate, lbx::Fail& fail)
{
    if (n < 0)
        return fail(G05SDF_msg::N_RANGE, n);
    if (n == 0)
        return;
    if (df < 1)
        return fail(G05SDF_msg::DF_RANGE, df);
    if (!state_usable<G05SDF_msg>(state, lstate, fail))
        return;
    const Gamma g(0.5 * df);
    if (!draw_serial(state, x, n, [&](Source& s) { return 2.0 * g(s); }))
        stuck<G05SDF_msg>(fail);
}

void G05SEFN(int n, int m, const double* a, int* state, double* x, int ldx, int sorder, int lstate,
             lbx::Fail& fail)
{
    if (n < 0)
        return fail(G05SEF_msg::N_RANGE, n);
    if (n == 0)
        return;
    if (m < 2)
        return fail(G05SEF_msg::M_RANGE, m);
    for (int j = 0; j < m; ++j) {
        if (!(a[j] > 0.0) || std::isinf(a[j]))
            return fail(G05SEF_msg::A_RANGE, j + 1, a[j]);
    }
    if (sorder != 1 && sorder != 2)
        return fail(G05SEF_msg::SORDER_RANGE, sorder);
    if (sorder == 1 && ldx < n)
        return fail(G05SEF_msg::LDX_N, ldx, n);
    if (sorder == 2 && ldx < m)
        return fail(G05SEF_msg::LDX_M, ldx, m);
    if (!state_usable<G05SEF_msg>(state, lstate, fail))
        return;
    std::vector<Gamma> g;
    g.reserve(m);
    for (int j = 0; j < m; ++j)
        g.emplace_back(a[j]);
    std::vector<double> lg(m);
    Source s(state);
    // Element j of variate i: X(i, j) for SORDER = 1, X(j, i) for SORDER = 2.
    const std::ptrdiff_t row = sorder == 1 ? 1 : ldx, col = sorder == 1 ? ldx : 1;
    try {
        for (int i = 0; i < n; ++i) {
            double top = -std::numeric_limits<double>::infinity();
            for (int j = 0; j < m; ++j) {
                lg[j] = g[j].log_value(s);
                top = std::max(top, lg[j]);
            }
            double sum = 0.0;
            for (int j = 0; j < m; ++j) {
                lg[j] = std::exp(lg[j] - top);
                sum += lg[j];
            }
            for (int j = 0; j < m; ++j)
                x[i * row + j * col] = lg[j] / sum;
        }
    } catch (const Stuck&) {
        s.finish();
        return stuck<G05SEF_msg>(fail);
    }
    s.finish();
}

void G05SFFN(int n, double a, int* state, double* x, int lstate, lbx::Fail& fail)
{
    if (n < 0)
        return fail(G05SFF_msg::N_RANGE, n);
    if (n == 0)
        return;
    if (!(a >= 0.0))
        return fail(G05SFF_msg::A_RANGE, a);
    if (!state_usable<G05SFF_msg>(state, lstate, fail))
        return;
    if (a == 0.0)
        return std::fill(x, x + n, 0.0);
    Source s(state);
    for (int i = 0; i < n;) {
        i += s.fast_exponentials(n - i, [&](int k, double e) { x[i + k] = a * e; });
        if (i < n)
            x[i++] = a * s.exponential();
    }
    s.finish();
}

void G05SGFN(int n, int nmix, const double* a, const double* wgt, int* state, double* x, int lstate,
             lbx::Fail& fail)
{
    if (n < 0)
        return fail(G05SGF_msg::N_RANGE, n);
    if (n == 0)
        return;
    if (nmix < 1)
        return fail(G05SGF_msg::NMIX_RANGE, nmix);
    for (int j = 0; j < nmix; ++j) {
        if (!(a[j] > 0.0))
            return fail(G05SGF_msg::A_RANGE, j + 1, a[j]);
    }
    double sum = 0.0;
    for (int j = 0; j < nmix; ++j) {
        if (!(wgt[j] >= 0.0))
            return fail(G05SGF_msg::WGT_RANGE, j + 1, wgt[j]);
        sum += wgt[j];
    }
    const double tol = 10.0 * nmix * std::numeric_limits<double>::epsilon();
    if (!(std::fabs(sum - 1.0) <= tol))
        return fail(G05SGF_msg::WGT_SUM, sum, tol);
    if (!state_usable<G05SGF_msg>(state, lstate, fail))
        return;
    // Cumulative weights; the last is 1 so that every u selects a component.
    std::vector<double> cum(nmix);
    double c = 0.0;
    for (int j = 0; j < nmix; ++j)
        cum[j] = (c += wgt[j]);
    cum[nmix - 1] = 1.0;
    // Two uniforms per variate: the first picks the component, the second its deviate.
    double u[2 * kChunk];
    for (int i = 0; i < n; i += kChunk) {
        const int len = std::min(kChunk, n - i);
        fill_uniform(state, u, 2 * len);
        for (int k = 0; k < len; ++k) {
            const int j =
                static_cast<int>(std::lower_bound(cum.begin(), cum.end(), u[2 * k]) - cum.begin());
            x[i + k] = -a[std::min(j, nmix - 1)] * std::log(u[2 * k + 1]);
        }
    }
}

void G05SHFN(int n, int df1, int df2, int* state, double* x, int lstate, lbx::Fail& fail)
{
    if (n < 0)
        return fail(G05SHF_msg::N_RANGE, n);
    if (n == 0)
        return;
    if (df1 < 1)
        return fail(G05SHF_msg::DF1_RANGE, df1);
    if (df2 < 1)
        return fail(G05SHF_msg::DF2_RANGE, df2);
    if (!state_usable<G05SHF_msg>(state, lstate, fail))
        return;
    const Gamma g1(0.5 * df1), g2(0.5 * df2);
    const double ratio = static_cast<double>(df2) / df1;
    if (!draw_serial(state, x, n, [&](Source& s) {
            const double num = g1(s);
            return ratio * num / g2(s);
        })) {
        stuck<G05SHF_msg>(fail);
    }
}

void G05SJFN(int n, double a, double b, int* state, double* x, int lstate, lbx::Fail& fail)
{
    if (n < 0)
        return fail(G05SJF_msg::N_RANGE, n);
    if (n == 0)
        return;
    if (!(a > 0.0) || std::isinf(a))
        return fail(G05SJF_msg::A_RANGE, a);
    if (!(b > 0.0))
        return fail(G05SJF_msg::B_RANGE, b);
    if (!state_usable<G05SJF_msg>(state, lstate, fail))
        return;
    const Gamma g(a);
    if (!draw_serial(state, x, n, [&](Source& s) { return b * g(s); }))
        stuck<G05SJF_msg>(fail);
}

void G05SLFN(int n, double a, double b, int* state, double* x, int lstate, lbx::Fail& fail)
{
    if (n < 0)
        return fail(G05SLF_msg::N_RANGE, n);
    if (n == 0)
        return;
    if (!(b >= 0.0))
        return fail(G05SLF_msg::B_RANGE, b);
    if (!state_usable<G05SLF_msg>(state, lstate, fail))
        return;
    if (b == 0.0)
        return std::fill(x, x + n, a);
    transform_uniforms(state, x, n, [=](double u) { return a + b * std::log(u / (1.0 - u)); });
}

void G05SMFN(int n, double xmu, double var, int* state, double* x, int lstate, lbx::Fail& fail)
{
    if (n < 0)
        return fail(G05SMF_msg::N_RANGE, n);
    if (n == 0)
        return;
    if (!(var >= 0.0))
        return fail(G05SMF_msg::VAR_RANGE, var);
    if (!state_usable<G05SMF_msg>(state, lstate, fail))
        return;
    if (var == 0.0)
        return std::fill(x, x + n, std::exp(xmu));
    const double sigma = std::sqrt(var);
    transform_uniforms(state, x, n, [=](double u) {
        return std::exp(xmu + sigma * lbx::stats::inverse_normal(u));
    });
}

void G05SNFN(int n, double vk, int* state, double* x, int lstate, lbx::Fail& fail)
{
    if (n < 0)
        return fail(G05SNF_msg::N_RANGE, n);
    if (n == 0)
        return;
    if (!(vk >= 0.0) || std::isinf(vk))
        return fail(G05SNF_msg::VK_RANGE, vk);
    if (!state_usable<G05SNF_msg>(state, lstate, fail))
        return;
    if (vk < 1e-8) {  // uniform on (-pi, pi): the density's variation is below 2e-8
        transform_uniforms(state, x, n, [](double u) { return lbx::math::pi * (2.0 * u - 1.0); });
        return;
    }
    const VonMises vm(vk);
    if (!draw_serial(state, x, n, vm))
        stuck<G05SNF_msg>(fail);
}

void G05SPFN(int n, double xmin, double xmed, double xmax, int* state, double* x, int lstate,
             lbx::Fail& fail)
{
    if (n < 0)
        return fail(G05SPF_msg::N_RANGE, n);
    if (n == 0)
        return;
    if (!(xmed >= xmin))
        return fail(G05SPF_msg::XMED_RANGE, xmin, xmed);
    if (!(xmax >= xmed))
        return fail(G05SPF_msg::XMAX_RANGE, xmed, xmax);
    if (!std::isfinite(xmax - xmin))
        return fail(G05SPF_msg::RANGE_INFINITE, xmin, xmax);
    if (!state_usable<G05SPF_msg>(state, lstate, fail))
        return;
    if (xmax == xmin)
        return std::fill(x, x + n, xmin);
    // F(x) = (x - XMIN)^2 / ((XMAX - XMIN)(XMED - XMIN)) up to XMED; inverted on each side.
    const double w = xmax - xmin, left = xmed - xmin, right = xmax - xmed, p = left / w;
    transform_uniforms(state, x, n, [=](double u) {
        return u <= p ? xmin + std::sqrt(u * w * left) : xmax - std::sqrt((1.0 - u) * w * right);
    });
}

void G05SQFN(int n, double a, double b, int* state, double* x, int lstate, lbx::Fail& fail)
{
    if (n < 0)
        return fail(G05SQF_msg::N_RANGE, n);
    if (n == 0)
        return;
    if (!(b >= a))
        return fail(G05SQF_msg::B_RANGE, a, b);
    if (!std::isfinite(b - a))
        return fail(G05SQF_msg::RANGE_INFINITE, a, b);
    if (!state_usable<G05SQF_msg>(state, lstate, fail))
        return;
    if (a == b)
        return std::fill(x, x + n, a);
    const double w = b - a;
    transform_uniforms(state, x, n, [=](double u) { return a + w * u; });
}

void G05SRFN(int n, int df, int* state, double* x, int lstate, lbx::Fail& fail)
{
    if (n < 0)
        return fail(G05SRF_msg::N_RANGE, n);
    if (n == 0)
        return;
    if (df < 1)
        return fail(G05SRF_msg::DF_RANGE, df);
    if (!state_usable<G05SRF_msg>(state, lstate, fail))
        return;
    // Z / sqrt(2 G(DF/2) / DF): the normal first, then the gamma trials.
    const Gamma g(0.5 * df);
    const double half_df = 0.5 * df;
    if (!draw_serial(state, x, n, [&](Source& s) {
            const double z = s.normal();
            return z / std::sqrt(g(s) / half_df);
        })) {
        stuck<G05SRF_msg>(fail);
    }
}

void G05SSFN(int n, double a, double b, int* state, double* x, int lstate, lbx::Fail& fail)
{
    if (n < 0)
        return fail(G05SSF_msg::N_RANGE, n);
    if (n == 0)
        return;
    if (!(a > 0.0))
        return fail(G05SSF_msg::A_RANGE, a);
    if (!(b > 0.0))
        return fail(G05SSF_msg::B_RANGE, b);
    if (!state_usable<G05SSF_msg>(state, lstate, fail))
        return;
    // F(x) = 1 - exp(-(x / B)^A); -log(u) is a standard exponential as -log(1 - u) is.
    const double inv = 1.0 / a;
    transform_uniforms(state, x, n, [=](double u) { return b * std::pow(-std::log(u), inv); });
}

}  // namespace lbx::random
