#!/usr/bin/env python3
"""Asymptotic series of Gamma(a + 1/2) / (Gamma(a) sqrt(a)) in h = 1/a.

Student's t tail for a = DF/2 >= 25 needs this ratio.  Its logarithm is
a ln(1 + h/2) - 1/2 + r(a + 1/2) - r(a), with Stirling's remainder
r(z) = sum_k B_2k / (2k (2k - 1) z^(2k - 1)); the series of the logarithm is
formed and exponentiated in exact rational arithmetic, then the coefficients
are rounded to double.  The truncation error at a = 25 is checked against
mpmath's gamma function.

Usage: python3 tools/gamma_ratio_series.py
"""
from fractions import Fraction as F

import mpmath as mp

N = 12  # terms h^0 .. h^(N-1)


def mul(p, q):
    r = [F(0)] * N
    for i, a in enumerate(p):
        if a:
            for j, b in enumerate(q[: N - i]):
                r[i + j] += a * b
    return r


def binom_series(e):  # (1 + h/2)^e
    r = [F(0)] * N
    c = F(1)
    for n in range(N):
        r[n] = c * F(1, 2) ** n
        c = c * (e - n) / (n + 1)
    return r


log = [F(0)] * N
for n in range(2, N + 1):  # a ln(1 + h/2) - 1/2
    log[n - 1] += F((-1) ** (n + 1), n * 2**n)
for k in range(1, N):
    beta = F(mp.bernfrac(2 * k)[0], mp.bernfrac(2 * k)[1]) / (2 * k * (2 * k - 1))
    m = 2 * k - 1
    if m >= N:
        break
    shifted = [F(0)] * m + binom_series(-m)[: N - m]
    for i in range(N):
        log[i] += beta * (shifted[i] - (1 if i == m else 0))
# exp of a series with zero constant term
res = [F(0)] * N
res[0] = F(1)
term = [F(1)] + [F(0)] * (N - 1)
for n in range(1, N):
    term = [t / n for t in mul(term, log)]
    res = [a + b for a, b in zip(res, term)]
coef = [float(v) for v in res]
print("constexpr double kGammaHalfRatio[%d] = {" % N)
for v in coef:
    print(f"    {v!r},")
print("};")
mp.mp.dps = 40
for a in (25, 30, 50, 1000):
    exact = mp.gamma(mp.mpf(a) + 0.5) / (mp.gamma(a) * mp.sqrt(a))
    approx = sum(mp.mpf(c) / mp.mpf(a) ** i for i, c in enumerate(coef))
    print(f"# a = {a}: relative error {float(approx / exact - 1):.2e}")
