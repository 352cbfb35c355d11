// The integrand batteries of the quadrature chapter as tables, one row an
// integrand (an expression in x of the .inc files, which
// tools/quadrature_reference.py reads too) with its range, parameters,
// tolerances and LIMIT. Included by tests/calculus/quadrature_test.cpp and
// bench/calculus.cpp, so both run the same integrals.
#pragma once

#include <cmath>

namespace lbx::test::quadrature {

using std::atan, std::cos, std::exp, std::fabs, std::floor, std::log, std::pow, std::sin, std::sqrt;
using Fn = double (*)(const double*);

// clang-format off
// An integrand of the tables: the expression in x, a function of a pointer.
#define LBX_INTEGRAND(expr) [](const double* px) { [[maybe_unused]] const double x = *px; return expr; }

struct Integrand { const char* name; Fn f; double a, b, epsabs, epsrel; int limit; };
#define BATTERY(name, expr, a, b, epsabs, epsrel, limit) \
    {#name, LBX_INTEGRAND(expr), a, b, epsabs, epsrel, limit},
inline constexpr Integrand battery[] = {
#include "tests/calculus/quadrature_battery.inc"
};

struct InfiniteRange { const char* name; Fn f; double bound; int inf; double epsabs, epsrel; int limit; };
#define INFINITE(name, expr, bound, inf, epsabs, epsrel, limit) \
    {#name, LBX_INTEGRAND(expr), bound, inf, epsabs, epsrel, limit},
inline constexpr InfiniteRange infinite[] = {
#include "tests/calculus/quadrature_infinite.inc"
};

struct WithBreaks { const char* name; Fn f; double a, b; int npts; double points[3]; double epsabs, epsrel; int limit; };
#define BREAKS(name, expr, a, b, npts, p1, p2, p3, epsabs, epsrel, limit) \
    {#name, LBX_INTEGRAND(expr), a, b, npts, {p1, p2, p3}, epsabs, epsrel, limit},
inline constexpr WithBreaks breaks[] = {
#include "tests/calculus/quadrature_breaks.inc"
};

struct PrincipalValue { const char* name; Fn f; double a, b, c, epsabs, epsrel; int limit; };
#define CAUCHY(name, expr, a, b, c, epsabs, epsrel, limit) \
    {#name, LBX_INTEGRAND(expr), a, b, c, epsabs, epsrel, limit},
inline constexpr PrincipalValue cauchy[] = {
#include "tests/calculus/quadrature_cauchy.inc"
};

struct AlgebraicWeight { const char* name; Fn f; double a, b, alfa, beta; int key; double epsabs, epsrel; int limit; };
#define ALGLOG(name, expr, a, b, alfa, beta, key, epsabs, epsrel, limit) \
    {#name, LBX_INTEGRAND(expr), a, b, alfa, beta, key, epsabs, epsrel, limit},
inline constexpr AlgebraicWeight algebraic[] = {
#include "tests/calculus/quadrature_algebraic.inc"
};

struct OscillatoryWeight { const char* name; Fn f; double a, b, omega; int key; double epsabs, epsrel; int limit; };
#define OSCILLATORY(name, expr, a, b, omega, key, epsabs, epsrel, limit) \
    {#name, LBX_INTEGRAND(expr), a, b, omega, key, epsabs, epsrel, limit},
inline constexpr OscillatoryWeight oscillatory[] = {
#include "tests/calculus/quadrature_oscillatory.inc"
};

struct FourierIntegral { const char* name; Fn f; double a, omega; int key; double epsabs; int limlst, limit; };
#define FOURIER(name, expr, a, omega, key, epsabs, limlst, limit) \
    {#name, LBX_INTEGRAND(expr), a, omega, key, epsabs, limlst, limit},
inline constexpr FourierIntegral fourier[] = {
#include "tests/calculus/quadrature_fourier.inc"
};
// clang-format on

#undef BATTERY
#undef INFINITE
#undef BREAKS
#undef CAUCHY
#undef ALGLOG
#undef OSCILLATORY
#undef FOURIER

}  // namespace lbx::test::quadrature
