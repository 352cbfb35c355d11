// Helpers shared by the random-number tests: thin wrappers over the public entries.
#pragma once

#include <cstdlib>
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

}  // namespace rt
