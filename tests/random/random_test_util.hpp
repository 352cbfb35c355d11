// Helpers shared by the random-number tests: thin wrappers over the public entries.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <vector>

#include "lbx3207qk.h"

namespace rt {

// Initialises a STATE of declared length lstate; returns IFAIL (soft, silent).
inline int init(int genid, int subid, std::vector<int> seed, std::vector<int>& state, int lstate)
{
    int lseed = static_cast<int>(seed.size());
    if (seed.empty())
        seed.push_back(0);
    state.assign(lstate > 0 ? lstate : 1, -7);
    int ifail = 1;
    g05kff_(&genid, &subid, seed.data(), &lseed, state.data(), &lstate, &ifail);
    if (ifail == 0)
        state.resize(state[0]);
    return ifail;
}

inline std::vector<int> make(int genid, std::vector<int> seed, int subid = 1, int lstate = 1260)
{
    std::vector<int> state;
    if (init(genid, subid, std::move(seed), state, lstate) != 0)
        std::abort();
    return state;
}

inline int saf(std::vector<int>& state, std::vector<double>& x)
{
    int n = static_cast<int>(x.size()), ifail = 1;
    g05saf_(&n, state.data(), x.data(), &ifail);
    return ifail;
}

inline std::vector<double> uniforms(std::vector<int>& state, int n)
{
    std::vector<double> x(n);
    if (saf(state, x) != 0)
        std::abort();
    return x;
}

inline int khf(int n, int k, std::vector<int>& state)
{
    int ifail = 1;
    g05khf_(&n, &k, state.data(), &ifail);
    return ifail;
}
inline int kjf(int n, std::vector<int>& state)
{
    int ifail = 1;
    g05kjf_(&n, state.data(), &ifail);
    return ifail;
}
inline int kkf(int n, std::vector<int>& state)
{
    int ifail = 1;
    g05kkf_(&n, state.data(), &ifail);
    return ifail;
}

// Fixed-seed goodness-of-fit thresholds that a correct generator exceeds with probability
// below 1e-7: Pearson's statistic above the Wilson-Hilferty quantile at z = 5.6 (tail 1.1e-8
// for df >= 5), sqrt(n) D_n of Kolmogorov-Smirnov above 2.9 (asymptotic tail 9.9e-8).
inline double chi2_threshold(int df)
{
    const double d = df, c = 2.0 / (9.0 * d);
    return d * std::pow(1.0 - c + 5.6 * std::sqrt(c), 3);
}
constexpr double kKs = 2.9;

// sqrt(n) D_n of the sample v against the distribution function cdf.
inline double ks(std::vector<double> v, const std::function<double(double)>& cdf)
{
    std::sort(v.begin(), v.end());
    const double n = static_cast<double>(v.size());
    double d = 0.0;
    for (std::size_t i = 0; i < v.size(); ++i) {
        const double f = cdf(v[i]);
        d = std::max({d, f - i / n, (i + 1) / n - f});
    }
    return d * std::sqrt(n);
}

}  // namespace rt
