// Discrete variates: binomial (G05TAF), logical (G05TBF), geometric (G05TCF), hypergeometric
// (G05TEF), logarithmic (G05TFF), negative binomial (G05THF), uniform integers (G05TLF).
//
// MODE and R follow G05TJF: MODE 0 and 2 set up R, MODE 1 and 2 draw from it, MODE 3 draws
// without it; a MODE 1 call compares the parameters stored in R with its own.
// R (reference vector), with np the number of parameters of the distribution:
//   R(1) marks the routine that set it up, R(2..1+np) the parameters, R(2+np) = lo, the
//   first tabulated value, R(3+np) = m, the number of tabulated values, R(4+np..3+np+m) the
//   distribution function at lo, ..., lo + m - 1, normalised so that the last is 1.
// The table runs from the mode outwards on each side up to the first value whose probability
// is below 1e-24 (found by doubling and bisection: these distributions are unimodal); the
// mass left out is below 1e-16 in every case, below the spacing of the uniforms near 1.
// Every probability is computed directly, with Loader's saddle-point forms (C. Loader, "Fast
// and accurate computation of binomial probabilities", 2000) for the binomial,
// hypergeometric and negative binomial, so the table carries no recurrence error.
// Drawing from a table is inversion: one uniform per variate (exactly those G05SAF would
// give), found by binary search, in parallel over the elements (the result does not depend
// on the number of threads). MODE 3 builds the same table in working storage for the
// binomial, hypergeometric and negative binomial (so MODE 2 and MODE 3 give the same
// variates), draws the geometric as floor(E / -log(1 - P)) from a ziggurat exponential E
// (random/source.hpp; serial, STATE left just past the last uniform used), and draws the
// logarithmic by Kemp's algorithm LK (A. W. Kemp, "Efficient generation of logarithmically
// distributed pseudo-random variables", Appl. Statist. 30 (1981) 249-253; one or two uniforms
// per variate, serial).
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <vector>

#include "frame/math_constants.hpp"
#include "gen/random.hpp"
#include "random/engines.hpp"
#include "random/source.hpp"
#include "random/state.hpp"
#include "special/gamma.hpp"

namespace lbx::random {
namespace {

constexpr double kTiny = 1e-24;
constexpr double kMaxTable = 1e7;  // longest table (elements of R beyond the header)
constexpr int kChunk = 4096;
constexpr double kIntMax = 2147483647.0;

// x log(x / np) + np - x without cancellation (Loader's bd0).
double bd0(double x, double np)
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

double stirlerr(double n)
{
    return lbx::special::stirling_remainder(n);
}

// Binomial probability of x successes in n trials, p + q = 1 (Loader's dbinom_raw).
double binomial_pmf(double x, double n, double p, double q)
{
    if (x < 0.0 || x > n)
        return 0.0;
    if (p == 0.0)
        return x == 0.0 ? 1.0 : 0.0;
    if (q == 0.0)
        return x == n ? 1.0 : 0.0;
    if (x == 0.0) {
        if (n == 0.0)
            return 1.0;
        return std::exp(p < 0.1 ? -bd0(n, n * q) - n * p : n * std::log(q));
    }
    if (x == n)
        return std::exp(q < 0.1 ? -bd0(n, n * p) - n * q : n * std::log(p));
    const double lc =
        stirlerr(n) - stirlerr(x) - stirlerr(n - x) - bd0(x, n * p) - bd0(n - x, n * q);
    const double lf = std::log(lbx::math::two_pi) + std::log(x) + std::log1p(-x / n);
    return std::exp(lc - 0.5 * lf);
}

struct Extent {
    double lo, count;
};

// A distribution on the integers lo_s..hi_s with its mean and probability function.
struct Dist {
    double lo_s, hi_s, mean;
    virtual double pmf(double k) const = 0;
    // The tabulated range; null: found from the mean outwards (extent below).
    virtual const Extent* given_range() const { return nullptr; }
    virtual ~Dist() = default;
};

struct Binomial final : Dist {
    double n, p, q;
    Binomial(double n_, double p_) : n(n_), p(p_), q(1.0 - p_)
    {
        lo_s = 0.0;
        hi_s = n;
        mean = n * p;
    }
    double pmf(double k) const override { return binomial_pmf(k, n, p, q); }
};

struct Hypergeometric final : Dist {
    double ns, np, m;
    Hypergeometric(double ns_, double np_, double m_) : ns(ns_), np(np_), m(m_)
    {
        lo_s = std::max(0.0, np + m - ns);
        hi_s = std::min(np, m);
        mean = ns > 0.0 ? np * m / ns : 0.0;
    }
    // Loader's dhyper: b(k; M, p) b(NP - k; NS - M, p) / b(NP; NS, p), p = NP / NS.
    double pmf(double k) const override
    {
        if (k < lo_s || k > hi_s)
            return 0.0;
        if (np == 0.0 || np == ns)
            return 1.0;
        const double p = np / ns, q = (ns - np) / ns;
        const double p1 = binomial_pmf(k, m, p, q), p2 = binomial_pmf(np - k, ns - m, p, q),
                     p3 = binomial_pmf(np, ns, p, q);
        return p1 * p2 / p3;
    }
};

struct NegativeBinomial final : Dist {
    double m, p, q;
    NegativeBinomial(double m_, double p_) : m(m_), p(p_), q(1.0 - p_)
    {
        lo_s = 0.0;
        hi_s = kIntMax;
        mean = m * q / p;
    }
    // M / (M + k) b(M; M + k, P).
    double pmf(double k) const override
    {
        if (k < 0.0)
            return 0.0;
        return m / (m + k) * binomial_pmf(m, m + k, p, q);
    }
};

struct Geometric final : Dist {
    double p, lq;
    explicit Geometric(double p_) : p(p_), lq(std::log1p(-p_))
    {
        lo_s = 0.0;
        hi_s = kIntMax;
        mean = (1.0 - p) / p;
    }
    double pmf(double k) const override
    {
        return k < 0.0 ? 0.0 : k == 0.0 ? p : p * std::exp(k * lq);
    }
};

struct Logarithmic final : Dist {
    double a, la, norm;
    explicit Logarithmic(double a_) : a(a_), la(std::log(a_)), norm(-1.0 / std::log1p(-a_))
    {
        lo_s = 1.0;
        hi_s = kIntMax;
        mean = norm * a / (1.0 - a);
    }
    double pmf(double k) const override { return k < 1.0 ? 0.0 : norm * std::exp(k * la) / k; }
};

// First k beyond start (step +1 or -1) inside the support whose probability is below kTiny,
// or the support's end; the probabilities fall monotonically away from the mode.
double tail_end(const Dist& d, double start, int dir)
{
    const double end = dir > 0 ? d.hi_s : d.lo_s;
    double good = start;  // probability >= kTiny (or the start)
    double step = 1.0;
    double bad;
    for (;;) {
        const double k = dir > 0 ? std::min(end, good + step) : std::max(end, good - step);
        if (d.pmf(k) < kTiny) {
            bad = k;
            break;
        }
        if (k == end)
            return end;
        good = k;
        step *= 2.0;
    }
    while (std::fabs(bad - good) > 1.0) {
        const double mid = std::floor(0.5 * (good + bad));
        (d.pmf(mid) < kTiny ? bad : good) = mid;
    }
    return bad;
}

// The tabulated range: from the mean outwards (the mode lies within 1 of the mean).
Extent extent(const Dist& d)
{
    if (const Extent* e = d.given_range())
        return *e;
    double c = std::clamp(std::floor(d.mean), d.lo_s, d.hi_s);
    // Start from the more probable neighbour so that the walk starts at or next to the mode.
    if (c + 1.0 <= d.hi_s && d.pmf(c + 1.0) > d.pmf(c))
        c += 1.0;
    const double lo = c > d.lo_s ? tail_end(d, c, -1) : c;
    const double hi = c < d.hi_s ? tail_end(d, c, +1) : c;
    return {lo, hi - lo + 1.0};
}

// Fills cum[0..m-1] with the normalised distribution function of lo, ..., lo + m - 1.
void tabulate(const Dist& d, const Extent& e, double* cum)
{
    const int m = static_cast<int>(e.count);
    double sum = 0.0, comp = 0.0;
    for (int j = 0; j < m; ++j) {
        const double y = d.pmf(e.lo + j) - comp;
        const double s = sum + y;
        comp = (s - sum) - y;
        sum = s;
        cum[j] = sum;
    }
    for (int j = 0; j < m; ++j)
        cum[j] = std::min(cum[j] / sum, 1.0);
    cum[m - 1] = 1.0;
}

// Inversion from a table: X(i) = lo + the first j with cum[j] >= u. A guide table (Chen and
// Asau, 1974) of g cells, cell c holding the first j with cum[j] >= c / g, starts each search
// near its end, so a variate costs a few comparisons whatever m; the search moves down as
// well as up, so the index found is the one a binary search finds whatever the rounding of
// u g and c / g. Small calls on long tables search without it.
void draw_table(int* state, int* x, int n, double lo, const double* cum, int m)
{
    const int g = n >= m / 4 ? m : 0;
    std::vector<int> guide(g + 1);
    for (int c = 0, j = 0; c < g; ++c) {
        const double edge = static_cast<double>(c) / g;
        while (j < m - 1 && cum[j] < edge)
            ++j;
        guide[c] = j;
    }
    std::vector<double> u(std::min(n, kChunk * 16));
    const int len_max = static_cast<int>(u.size());
    const int* gd = guide.data();
    for (int i = 0; i < n; i += len_max) {
        const int len = std::min(len_max, n - i);
        fill_uniform(state, u.data(), len);
#pragma omp parallel for schedule(static) if (len >= kChunk)
        for (int t = 0; t < len; ++t) {
            int k;
            if (g > 0) {
                k = gd[std::min(static_cast<int>(u[t] * g), g - 1)];
                while (k > 0 && cum[k - 1] >= u[t])  // a cell index rounded up
                    --k;
                while (k < m - 1 && cum[k] < u[t])
                    ++k;
            } else {
                k = std::min(static_cast<int>(std::lower_bound(cum, cum + m, u[t]) - cum), m - 1);
            }
            x[i + t] = static_cast<int>(lo) + k;
        }
    }
}

// The MODE and R logic shared by the table routines. Params holds the distribution's
// parameters as stored in R. Returns false after a failure.
template <class Msg>
struct Reference {
    double marker;
    std::vector<double> params;

    int header() const { return 3 + static_cast<int>(params.size()); }

    bool usable(const double* r, int lr) const
    {
        const int h = header();
        if (lr < h + 1 || r[0] != marker)
            return false;
        for (std::size_t k = 0; k < params.size(); ++k) {
            if (!std::isfinite(r[1 + k]))
                return false;
        }
        const double lo = r[h - 2], m = r[h - 1];
        return lo == std::floor(lo) && lo >= -kIntMax - 1.0 && lo <= kIntMax &&
               m == std::floor(m) && m >= 1.0 && m <= lr - h && lo + m - 1.0 <= kIntMax &&
               r[h + static_cast<int>(m) - 1] == 1.0;
    }

    bool same(const double* r) const
    {
        for (std::size_t k = 0; k < params.size(); ++k) {
            if (r[1 + k] != params[k])
                return false;
        }
        return true;
    }

    void set_up(const Dist& d, const Extent& e, double* r) const
    {
        r[0] = marker;
        for (std::size_t k = 0; k < params.size(); ++k)
            r[1 + k] = params[k];
        const int h = header();
        r[h - 2] = e.lo;
        r[h - 1] = e.count;
        tabulate(d, e, r + h);
    }

    void draw(const double* r, int* state, int* x, int n) const
    {
        const int h = header();
        draw_table(state, x, n, r[h - 2], r + h, static_cast<int>(r[h - 1]));
    }
};

// The common course of a table routine after its parameter checks: table length, R, LR,
// STATE, set-up and drawing. changed() reports a MODE 1 call whose parameters differ;
// mode3(x) draws without R. too_long may be null when the table is always short.
template <class Msg, class Changed, class Mode3>
void run_table(int mode, int n, const Dist& d, const Reference<Msg>& ref, double* r, int lr,
               int* state, int* x, int lstate, lbx::Fail& fail, Changed changed, Mode3 mode3,
               bool table_in_mode3)
{
    const bool need_table = mode == 0 || mode == 2 || (mode == 3 && table_in_mode3 && n > 0);
    Extent e{0.0, 0.0};
    if (need_table) {
        e = extent(d);
        if (e.count > kMaxTable) {
            if constexpr (requires { Msg::TABLE_TOO_LONG; })
                return fail(Msg::TABLE_TOO_LONG, static_cast<int>(kMaxTable));
        }
    }
    if (mode == 1) {
        if (!ref.usable(r, lr))
            return fail(Msg::R_CORRUPT);
        if (!ref.same(r))
            return changed(r);
    }
    if (mode == 0 || mode == 2) {
        const double need = e.count + ref.header();
        if (lr < need)
            return fail(Msg::LR_SMALL, lr, static_cast<int>(need));
    }
    if (mode != 0 && n > 0) {
        if (!state_usable<Msg>(state, lstate, fail))
            return;
    }
    if (mode == 0 || mode == 2)
        ref.set_up(d, e, r);
    if (mode == 0 || n == 0)
        return;
    if (mode == 1 || mode == 2)
        return ref.draw(r, state, x, n);
    if (table_in_mode3) {
        std::vector<double> cum(static_cast<std::size_t>(e.count));
        tabulate(d, e, cum.data());
        return draw_table(state, x, n, e.lo, cum.data(), static_cast<int>(e.count));
    }
    mode3(x);
}

constexpr auto no_mode3 = [](int*) {};

}  // namespace

void G05TAFN(int mode, int n, int m, double p, double* r, int lr, int* state, int* x, int lstate,
             lbx::Fail& fail)
{
    using Msg = G05TAF_msg;
    if (mode < 0 || mode > 3)
        return fail(Msg::MODE_RANGE, mode);
    if (n < 0)
        return fail(Msg::N_RANGE, n);
    if (m < 0)
        return fail(Msg::M_RANGE, m);
    if (!(p >= 0.0 && p <= 1.0))
        return fail(Msg::P_RANGE, p);
    const Binomial d(m, p);
    const Reference<Msg> ref{4101.0, {static_cast<double>(m), p}};
    run_table(
        mode, n, d, ref, r, lr, state, x, lstate, fail,
        [&](const double* rr) { fail(Msg::PARAMS_CHANGED, static_cast<int>(rr[1]), m, rr[2], p); },
        no_mode3, true);
}

void G05TCFN(int mode, int n, double p, double* r, int lr, int* state, int* x, int lstate,
             lbx::Fail& fail)
{
    using Msg = G05TCF_msg;
    if (mode < 0 || mode > 3)
        return fail(Msg::MODE_RANGE, mode);
    if (n < 0)
        return fail(Msg::N_RANGE, n);
    if (!(p > 0.0 && p <= 1.0))
        return fail(Msg::P_RANGE, p);
    const Geometric d(p);
    const Reference<Msg> ref{4103.0, {p}};
    // MODE 3: floor(E / -log(1 - P)) with E a ziggurat exponential (serial, a variable number
    // of uniforms), a value beyond the integers given as 2147483647 (probability
    // (1 - P)^2147483647).
    const double inv_lq = -1.0 / std::log1p(-p);
    run_table(
        mode, n, d, ref, r, lr, state, x, lstate, fail,
        [&](const double* rr) { fail(Msg::PARAMS_CHANGED, rr[1], p); },
        [&](int* xx) {
            if (p == 1.0)
                return std::fill(xx, xx + n, 0);
            Source s(state);
            const auto put = [&](int i, double e) {
                xx[i] = static_cast<int>(std::min(std::floor(e * inv_lq), kIntMax));
            };
            for (int i = 0; i < n;) {
                i += s.fast_exponentials(n - i, [&](int k, double e) { put(i + k, e); });
                if (i < n)
                    put(i++, s.exponential());
            }
            s.finish();
        },
        false);
}

void G05TEFN(int mode, int n, int ns, int np, int m, double* r, int lr, int* state, int* x,
             int lstate, lbx::Fail& fail)
{
    using Msg = G05TEF_msg;
    if (mode < 0 || mode > 3)
        return fail(Msg::MODE_RANGE, mode);
    if (n < 0)
        return fail(Msg::N_RANGE, n);
    if (ns < 0)
        return fail(Msg::NS_RANGE, ns);
    if (np < 0 || np > ns)
        return fail(Msg::NP_RANGE, np, ns);
    if (m < 0 || m > ns)
        return fail(Msg::M_RANGE, m, ns);
    const Hypergeometric d(ns, np, m);
    const Reference<Msg> ref{
        4105.0, {static_cast<double>(ns), static_cast<double>(np), static_cast<double>(m)}};
    run_table(
        mode, n, d, ref, r, lr, state, x, lstate, fail,
        [&](const double* rr) {
            fail(Msg::PARAMS_CHANGED, static_cast<int>(rr[1]), static_cast<int>(rr[2]),
                 static_cast<int>(rr[3]), ns, np, m);
        },
        no_mode3, true);
}

void G05TFFN(int mode, int n, double a, double* r, int lr, int* state, int* x, int lstate,
             lbx::Fail& fail)
{
    using Msg = G05TFF_msg;
    if (mode < 0 || mode > 3)
        return fail(Msg::MODE_RANGE, mode);
    if (n < 0)
        return fail(Msg::N_RANGE, n);
    if (!(a > 0.0 && a < 1.0))
        return fail(Msg::A_RANGE, a);
    const Logarithmic d(a);
    const Reference<Msg> ref{4106.0, {a}};
    // MODE 3: Kemp's LK; a value beyond the integers is given as 2147483647.
    const double lr1 = std::log1p(-a);
    run_table(
        mode, n, d, ref, r, lr, state, x, lstate, fail,
        [&](const double* rr) { fail(Msg::PARAMS_CHANGED, rr[1], a); },
        [&](int* xx) {
            for (int i = 0; i < n; ++i) {
                double v;
                fill_uniform(state, &v, 1);
                if (v >= a) {
                    xx[i] = 1;
                    continue;
                }
                double u;
                fill_uniform(state, &u, 1);
                const double q = -std::expm1(lr1 * u);
                if (v <= q * q) {
                    const double k = std::floor(1.0 + std::log(v) / std::log(q));
                    xx[i] = static_cast<int>(std::clamp(k, 1.0, kIntMax));
                } else {
                    xx[i] = v <= q ? 2 : 1;
                }
            }
        },
        false);
}

void G05THFN(int mode, int n, int m, double p, double* r, int lr, int* state, int* x, int lstate,
             lbx::Fail& fail)
{
    using Msg = G05THF_msg;
    if (mode < 0 || mode > 3)
        return fail(Msg::MODE_RANGE, mode);
    if (n < 0)
        return fail(Msg::N_RANGE, n);
    if (m < 1)
        return fail(Msg::M_RANGE, m);
    if (!(p > 0.0 && p <= 1.0))
        return fail(Msg::P_RANGE, p);
    const NegativeBinomial d(m, p);
    const Reference<Msg> ref{4108.0, {static_cast<double>(m), p}};
    run_table(
        mode, n, d, ref, r, lr, state, x, lstate, fail,
        [&](const double* rr) { fail(Msg::PARAMS_CHANGED, static_cast<int>(rr[1]), m, rr[2], p); },
        no_mode3, true);
}

// A distribution given by its probabilities (ITYPE 1) or distribution function (ITYPE 2) on
// IP1, ..., IP1 + NP - 1.
struct Given final : Dist {
    const double* p;
    int itype;
    Extent range;
    Given(const double* p_, int np, int ip1, int itype_)
        : p(p_), itype(itype_), range{double(ip1), double(np)}
    {
        lo_s = ip1;
        hi_s = ip1 + (np - 1.0);
        mean = lo_s;
    }
    double pmf(double k) const override
    {
        const int j = static_cast<int>(k - lo_s);
        if (itype == 1)
            return p[j];
        return j == 0 ? p[0] : std::max(0.0, p[j] - p[j - 1]);
    }
    const Extent* given_range() const override { return &range; }
};

void G05TDFN(int mode, int n, const double* p, int np, int ip1, int itype, double* r, int lr,
             int* state, int* x, int lstate, lbx::Fail& fail)
{
    using Msg = G05TDF_msg;
    if (mode < 0 || mode > 3)
        return fail(Msg::MODE_RANGE, mode);
    if (n < 0)
        return fail(Msg::N_RANGE, n);
    if (np < 1)
        return fail(Msg::NP_RANGE, np);
    if (static_cast<double>(ip1) + np - 1.0 > kIntMax)
        return fail(Msg::IP1_RANGE, ip1, np);
    if (itype != 1 && itype != 2)
        return fail(Msg::ITYPE_RANGE, itype);
    const double tol = 10.0 * np * std::numeric_limits<double>::epsilon();
    if (itype == 1) {
        double sum = 0.0;
        for (int j = 0; j < np; ++j) {
            if (!(p[j] >= 0.0) || std::isinf(p[j]))
                return fail(Msg::P_NEGATIVE, j + 1, p[j]);
            sum += p[j];
        }
        if (!(std::fabs(sum - 1.0) <= tol))
            return fail(Msg::P_SUM, sum, tol);
    } else {
        if (!(p[0] >= 0.0))
            return fail(Msg::P_NEGATIVE, 1, p[0]);
        for (int j = 1; j < np; ++j) {
            if (!(p[j] >= p[j - 1]))
                return fail(Msg::CDF_DECREASING, j + 1, p[j], j, p[j - 1]);
        }
        if (!(std::fabs(p[np - 1] - 1.0) <= tol))
            return fail(Msg::CDF_END, np, p[np - 1], tol);
    }
    const Given d(p, np, ip1, itype);
    const Reference<Msg> ref{
        4104.0, {static_cast<double>(np), static_cast<double>(ip1), static_cast<double>(itype)}};
    run_table(
        mode, n, d, ref, r, lr, state, x, lstate, fail,
        [&](const double* rr) {
            fail(Msg::PARAMS_CHANGED, static_cast<int>(rr[1]), static_cast<int>(rr[2]),
                 static_cast<int>(rr[3]), np, ip1, itype);
        },
        no_mode3, true);
}

// Poisson with means VLAMDA(i): each variate as G05TJF draws it with MODE 3 (inversion by
// sequential search below 10, Hormann's PTRS from 10), serially.
void G05TKFN(int n, const double* vlamda, int* state, int* x, int lstate, lbx::Fail& fail)
{
    if (n < 0)
        return fail(G05TKF_msg::N_RANGE, n);
    if (n == 0)
        return;
    for (int i = 0; i < n; ++i) {
        if (!(vlamda[i] >= 0.0 && vlamda[i] <= 2.0e9))
            return fail(G05TKF_msg::VLAMDA_RANGE, i + 1, vlamda[i], 2.0e9);
    }
    if (!state_usable<G05TKF_msg>(state, lstate, fail))
        return;
    char errbuf[lbx::errbuf_length];
    int ifail = 0;
    double r = 0.0;
    for (int i = 0; i < n; ++i) {
        lbx::Fail inner(errbuf, ifail);
        G05TJFN(3, 1, vlamda[i], &r, 1, state, x + i, lstate, inner);
        if (inner.failed())
            return fail(G05TKF_msg::GENERATOR_STUCK, 1000);
    }
}

// Multinomial: each vector counts in which of the K categories M uniforms fall (binary search
// in the cumulative probabilities): M uniforms per vector. R: R(1) = 4107, R(2) = M,
// R(3) = K, R(4..3+K) the cumulative probabilities, the last 1.
void G05TGFN(int mode, int n, int m, int k, const double* p, double* r, int lr, int* state, int* x,
             int ldx, int sorder, int lstate, lbx::Fail& fail)
{
    using Msg = G05TGF_msg;
    constexpr double kMarker = 4107.0;
    if (mode < 0 || mode > 3)
        return fail(Msg::MODE_RANGE, mode);
    if (n < 0)
        return fail(Msg::N_RANGE, n);
    if (m < 0)
        return fail(Msg::M_RANGE, m);
    if (k < 2)
        return fail(Msg::K_RANGE, k);
    const double tol = 10.0 * k * std::numeric_limits<double>::epsilon();
    if (mode != 1) {
        double sum = 0.0;
        for (int j = 0; j < k; ++j) {
            if (!(p[j] >= 0.0) || std::isinf(p[j]))
                return fail(Msg::P_NEGATIVE, j + 1, p[j]);
            sum += p[j];
        }
        if (!(std::fabs(sum - 1.0) <= tol))
            return fail(Msg::P_SUM, sum, tol);
    }
    if (mode != 0) {
        if (sorder != 1 && sorder != 2)
            return fail(Msg::SORDER_RANGE, sorder);
        if (sorder == 1 && ldx < n)
            return fail(Msg::LDX_N, ldx, n);
        if (sorder == 2 && ldx < k)
            return fail(Msg::LDX_K, ldx, k);
    }
    if (mode == 1) {
        if (lr < 4 || r[0] != kMarker || !(r[2] >= 2.0) || r[2] > lr - 3.0 ||
            r[2] != std::floor(r[2]) || r[3 + static_cast<int>(r[2]) - 1] != 1.0)
            return fail(Msg::R_CORRUPT);
        if (r[1] != m || r[2] != k)
            return fail(Msg::PARAMS_CHANGED, static_cast<int>(r[1]), static_cast<int>(r[2]), m, k);
    }
    if ((mode == 0 || mode == 2) && lr < k + 3)
        return fail(Msg::LR_SMALL, lr, k + 3);
    if (mode != 0 && n > 0) {
        if (!state_usable<Msg>(state, lstate, fail))
            return;
    }
    std::vector<double> local;
    const double* cum;
    if (mode == 3) {
        local.resize(k);
        cum = local.data();
    } else {
        cum = r + 3;
    }
    if (mode != 1) {
        double* c = mode == 3 ? local.data() : r + 3;
        double sum = 0.0;
        for (int j = 0; j < k; ++j)
            c[j] = (sum += p[j]);
        for (int j = 0; j < k; ++j)
            c[j] = std::min(c[j] / sum, 1.0);
        c[k - 1] = 1.0;
        if (mode != 3) {
            r[0] = kMarker;
            r[1] = m;
            r[2] = k;
        }
    }
    if (mode == 0 || n == 0)
        return;
    const std::ptrdiff_t row = sorder == 1 ? 1 : ldx, col = sorder == 1 ? ldx : 1;
    std::vector<double> u(std::min(m, kChunk * 16));
    std::vector<int> counts(k);
    for (int i = 0; i < n; ++i) {
        std::fill(counts.begin(), counts.end(), 0);
        for (int done = 0; done < m;) {
            const int len = std::min(static_cast<int>(u.size()), m - done);
            fill_uniform(state, u.data(), len);
            for (int t = 0; t < len; ++t)
                ++counts[std::min(static_cast<int>(std::lower_bound(cum, cum + k, u[t]) - cum),
                                  k - 1)];
            done += len;
        }
        for (int j = 0; j < k; ++j)
            x[i * row + j * col] = counts[j];
    }
}

void G05TBFN(int n, double p, int* state, lbx::Logical* x, int lstate, lbx::Fail& fail)
{
    if (n < 0)
        return fail(G05TBF_msg::N_RANGE, n);
    if (n == 0)
        return;
    if (!(p >= 0.0 && p <= 1.0))
        return fail(G05TBF_msg::P_RANGE, p);
    if (!state_usable<G05TBF_msg>(state, lstate, fail))
        return;
    // X(i) is true when u < P: one uniform per variate.
    double u[kChunk];
    for (int i = 0; i < n; i += kChunk) {
        const int len = std::min(kChunk, n - i);
        fill_uniform(state, u, len);
        for (int j = 0; j < len; ++j)
            x[i + j] = u[j] < p ? 1 : 0;
    }
}

void G05TLFN(int n, int a, int b, int* state, int* x, int lstate, lbx::Fail& fail)
{
    if (n < 0)
        return fail(G05TLF_msg::N_RANGE, n);
    if (n == 0)
        return;
    if (b < a)
        return fail(G05TLF_msg::B_RANGE, a, b);
    if (!state_usable<G05TLF_msg>(state, lstate, fail))
        return;
    // A + floor(u (B - A + 1)): one uniform per variate; the width is at most 2^32, so the
    // product is exact to well within one integer and stays below B + 1. The basic generator
    // gives A + floor(x (B - A + 1) / 2^60) from its 60-bit values x directly, the same
    // stream without the rounding of x to a double.
    const double w = static_cast<double>(b) - a + 1.0;
    if (state[2] == 1 && basic::fill_integers(state, a, static_cast<std::uint64_t>(w), x, n))
        return;
    double u[kChunk];
    for (int i = 0; i < n; i += kChunk) {
        const int len = std::min(kChunk, n - i);
        fill_uniform(state, u, len);
        for (int j = 0; j < len; ++j) {
            const double k = std::min(std::floor(u[j] * w), w - 1.0);
            x[i + j] = static_cast<int>(a + static_cast<long long>(k));
        }
    }
}

}  // namespace lbx::random
