// Uniforms in stream order for the methods that take a variable number of them per variate,
// and the ziggurat normal and exponential drawn from them.
//
// Ziggurat: Marsaglia and Tsang, "The ziggurat method for generating random variables",
// J. Statist. Software 5 (2000), with 256 layers of equal area v under f(x) = exp(-x^2/2)
// (right edge r = 3.6541528853610088) and f(x) = exp(-x) (r = 7.69711747013104972). The
// edges are computed once from the exact recursion x(i+1) = f^-1(f(x(i)) + v / x(i)), x(1) = r,
// with v = r f(r) + the tail integral; the top edge is 0. One uniform u gives the layer (and
// the sign of the normal) from its leading 9 (8) bits and the abscissa from the rest, so the
// independence of layer and abscissa does not depend on the generator's low bits; 53-bit
// generators leave 44 (45) bits for the abscissa, the 30- and 32-bit ones 21 to 24. A point
// outside the layer's inner rectangle is tested against f with one more uniform, the base
// layer's tail beyond r by Marsaglia's method (normal) or r + a new exponential.
#pragma once

#include <algorithm>
#include <cmath>
#include <vector>

#include "random/engines.hpp"

namespace lbx::random {

// A rejection loop that accepts nothing in kMaxTrials trials means the generator does not
// progress (a block changed by hand so that it repeats one value): the drawing routine fails
// with Stuck rather than loops.
inline constexpr int kMaxTrials = 1000;
struct Stuck {};

// Uniforms from a checked STATE, drawn in blocks: before each block the source keeps a copy
// of STATE, and finish() puts STATE back to that copy and draws again only the uniforms of the
// block that were used. STATE so ends exactly past the last uniform used, as if they had been
// drawn one at a time, at the price of one copy of STATE per block.
class Source {
public:
    explicit Source(int* state) : state_(state), saved_(state, state + state[0]) {}
    double u()
    {
        if (next_ == filled_)
            refill();
        return buf_[next_++];
    }
    void pair(double& a, double& b)
    {
        a = u();
        b = u();
    }
    // Standard normal by the ziggurat; throws Stuck.
    double normal();
    // Standard exponential by the ziggurat; after kMaxTrials rejections (a generator that does
    // not progress) the inversion -log u of one more uniform, so it always returns.
    double exponential();
    // Exponentials by the ziggurat's inner rectangles alone, into put(k, e) for k = 0, 1, ...
    // while the buffered uniforms are accepted there (at most len); returns their number. The
    // first uniform not accepted is left for exponential(), so the stream is the same as
    // exponential() on each, without the per-call bookkeeping.
    template <class Put>
    int fast_exponentials(int len, Put put);
    void finish()
    {
        if (next_ == filled_)
            return;
        std::copy(saved_.begin(), saved_.end(), state_);
        if (next_ > 0)
            fill_uniform(state_, buf_, next_);
        next_ = filled_ = 0;
    }

private:
    void refill()
    {
        std::copy(state_, state_ + saved_.size(), saved_.begin());
        fill_uniform(state_, buf_, kBlock);
        next_ = 0;
        filled_ = kBlock;
    }

    static constexpr int kBlock = 1024;
    int* state_;
    std::vector<int> saved_;
    double buf_[kBlock];
    int next_ = 0, filled_ = 0;
};

// Layer edges x[0..256] (x[0] the base layer's width v / f(r), x[1] = r, x[256] = 0), the
// density at each edge, and ratio[i] = x[i+1] / x[i], the inner rectangle's share.
struct Ziggurat {
    double x[257], f[257], ratio[256];
};
const Ziggurat& normal_ziggurat();
const Ziggurat& exponential_ziggurat();

inline double Source::normal()
{
    static const Ziggurat& z = normal_ziggurat();
    for (int trial = 0; trial < kMaxTrials; ++trial) {
        const double t = u() * 512.0;
        const int k = static_cast<int>(t);
        const double a = t - k;  // abscissa share in [0, 1)
        const int i = k >> 1;
        const double s = (k & 1) ? -1.0 : 1.0;
        const double x = a * z.x[i];
        if (a < z.ratio[i])
            return s * x;
        if (i == 0) {  // tail beyond r
            const double r = z.x[1];
            for (int tail = 0; tail < kMaxTrials; ++tail) {
                const double e = -std::log(u()) / r;
                const double y = -std::log(u());
                if (y + y >= e * e)
                    return s * (r + e);
            }
            throw Stuck{};
        }
        if (z.f[i] + u() * (z.f[i + 1] - z.f[i]) < std::exp(-0.5 * x * x))
            return s * x;
    }
    throw Stuck{};
}

inline double Source::exponential()
{
    static const Ziggurat& z = exponential_ziggurat();
    double shift = 0.0;
    for (int trial = 0; trial < kMaxTrials; ++trial) {
        const double t = u() * 256.0;
        const int i = static_cast<int>(t);
        const double a = t - i;
        const double x = a * z.x[i];
        if (a < z.ratio[i])
            return shift + x;
        if (i == 0) {  // beyond r: r + a new exponential
            shift += z.x[1];
            continue;
        }
        if (z.f[i] + u() * (z.f[i + 1] - z.f[i]) < std::exp(-x))
            return shift + x;
    }
    return shift - std::log(u());
}

template <class Put>
int Source::fast_exponentials(int len, Put put)
{
    static const Ziggurat& z = exponential_ziggurat();
    if (next_ == filled_)
        refill();
    int k = next_, m = 0;
    for (const int end = filled_; m < len && k < end; ++m, ++k) {
        const double t = buf_[k] * 256.0;
        const int i = static_cast<int>(t);
        const double a = t - i;
        if (!(a < z.ratio[i]))
            break;
        put(m, a * z.x[i]);
    }
    next_ = k;
    return m;
}

}  // namespace lbx::random
