#!/usr/bin/env python3
"""Reference values of I_x(a, a) next to the mean for large a, where the
incomplete beta function's continued fraction runs for hundreds of steps
(and its convergents are rescaled).  By symmetry I_x(a, a) = 1/2 - the
integral of the density over [x, 1/2], a short smooth range that mpmath's
quadrature takes to 40 digits.  x = 1/2 - 2^-13, so that 1 - x is exact.
Prints (a, x, I_x, 1 - I_x) for tests/stats/incomplete_beta_test.cpp.

Usage: python3 tools/beta_long_fraction_reference.py
"""
import mpmath as mp

mp.mp.dps = 40
for a, x in [(2e4, 0.4998779296875), (1e5, 0.4998779296875), (1e6, 0.4998779296875)]:
    A = mp.mpf(a)
    X = mp.mpf(x)
    log_norm = -(2 * mp.loggamma(A) - mp.loggamma(2 * A))
    dens = lambda t: mp.exp((A - 1) * (mp.log(t) + mp.log1p(-t)) + log_norm)
    tail = mp.quad(dens, mp.linspace(X, mp.mpf(0.5), 9))
    p = mp.mpf(0.5) - tail
    print(f"{{{a!r}, {x!r}, {mp.nstr(p, 25)}L, {mp.nstr(1 - p, 25)}L}},")
