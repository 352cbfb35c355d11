// Ziggurat tables (random/source.hpp), computed once from the exact recursion.
#include <cmath>

#include "frame/math_constants.hpp"
#include "random/source.hpp"

namespace lbx::random {
namespace {

// f, its inverse, and the area v of each layer for right edge r.
template <class F, class Finv>
Ziggurat build(double r, double v, F f, Finv finv)
{
    Ziggurat z{};
    z.x[0] = v / f(r);
    z.x[1] = r;
    for (int i = 1; i < 255; ++i)
        z.x[i + 1] = finv(f(z.x[i]) + v / z.x[i]);
    z.x[256] = 0.0;
    for (int i = 0; i <= 256; ++i)
        z.f[i] = i == 0 ? 0.0 : f(z.x[i]);
    for (int i = 0; i < 256; ++i)
        z.ratio[i] = z.x[i + 1] / z.x[i];
    return z;
}

}  // namespace

const Ziggurat& normal_ziggurat()
{
    static const Ziggurat z = [] {
        const double r = 3.6541528853610088;
        const auto f = [](double x) { return std::exp(-0.5 * x * x); };
        const double v = r * f(r) + std::sqrt(0.5 * lbx::math::pi) * std::erfc(r / std::sqrt(2.0));
        return build(r, v, f, [](double y) { return std::sqrt(-2.0 * std::log(y)); });
    }();
    return z;
}

const Ziggurat& exponential_ziggurat()
{
    static const Ziggurat z = [] {
        const double r = 7.69711747013104972;
        const auto f = [](double x) { return std::exp(-x); };
        return build(r, (r + 1.0) * std::exp(-r), f, [](double y) { return -std::log(y); });
    }();
    return z;
}

}  // namespace lbx::random
