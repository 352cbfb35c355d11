#!/usr/bin/env python3
"""Fit the two polynomials of Dawson's integral F(x) = exp(-x^2) int_0^x exp(t^2) dt.

    |x| <= 4:        F(x) = x * p(t),  t = x^2/8 - 1        (t in [-1, 1])
    4 < |x| < 3.2e8: F(x) = q(t) / x,  t = 32/x^2 - 1       (t in (-1, 1))

Each polynomial is the Chebyshev interpolant of the target on [-1, 1]
(p: F(x)/x, q: x F(x)), computed with mpmath at 40 digits, truncated where
the Chebyshev coefficients fall below 1e-18 of the largest, and converted to
powers of t so that the library evaluates it in Horner form.  The script
prints the C++ tables and the largest relative error of the double-rounded
polynomials, evaluated in exact arithmetic, over 4001 points per interval
(the error the coefficients themselves contribute; rounding in the Horner
evaluation comes on top and is measured by the tests).

Usage: python3 tools/fit_dawson.py
"""
import mpmath as mp

mp.mp.dps = 40


def dawson(x):
    x = mp.mpf(x)
    return mp.sqrt(mp.pi) / 2 * mp.exp(-x * x) * mp.erfi(x)


def target_p(t):          # t = x^2/8 - 1  ->  x^2 = 8 (t + 1)
    x2 = 8 * (t + 1)
    if x2 == 0:
        return mp.mpf(1)
    x = mp.sqrt(x2)
    return dawson(x) / x


def target_q(t):          # t = 32/x^2 - 1  ->  x^2 = 32 / (t + 1)
    if t + 1 == 0:
        return mp.mpf(1) / 2
    x = mp.sqrt(32 / (t + 1))
    return x * dawson(x)


def cheb_coeffs(f, n):
    nodes = [mp.cos(mp.pi * (k + mp.mpf(1) / 2) / n) for k in range(n)]
    vals = [f(t) for t in nodes]
    c = []
    for j in range(n):
        s = mp.fsum(vals[k] * mp.cos(mp.pi * j * (k + mp.mpf(1) / 2) / n) for k in range(n))
        c.append(2 * s / n)
    c[0] /= 2
    return c


def cheb_to_power(c):
    """Coefficients of sum c_j T_j(t) in powers of t, constant term first."""
    n = len(c)
    tk_prev = [mp.mpf(1)] + [mp.mpf(0)] * (n - 1)          # T_0
    tk = [mp.mpf(0), mp.mpf(1)] + [mp.mpf(0)] * (n - 2)     # T_1
    out = [c[0] * v for v in tk_prev]
    if n > 1:
        out = [o + c[1] * v for o, v in zip(out, tk)]
    for j in range(2, n):
        nxt = [-v for v in tk_prev]
        for i in range(n - 1):
            nxt[i + 1] += 2 * tk[i]
        out = [o + c[j] * v for o, v in zip(out, nxt)]
        tk_prev, tk = tk, nxt
    return out


def fit(name, f, n=60, drop=mp.mpf("1e-18")):
    c = cheb_coeffs(f, n)
    big = max(abs(v) for v in c)
    keep = max(j for j in range(n) if abs(c[j]) > drop * big) + 1
    power = cheb_to_power(c[:keep])
    dbl = [float(v) for v in power]
    worst = mp.mpf(0)
    for k in range(4001):
        t = mp.mpf(-1) + mp.mpf(2) * k / 4000
        exact = f(t)
        approx = mp.mpf(0)
        for v in reversed(dbl):
            approx = approx * t + mp.mpf(v)
        worst = max(worst, abs(approx / exact - 1))
    print(f"// {name}: degree {keep - 1}, max relative error of the rounded "
          f"coefficients {mp.nstr(worst, 3)} on [-1, 1]")
    print(f"constexpr double {name}[{keep}] = {{")
    for v in dbl:
        print(f"    {v!r:>25},".replace("'", ""))
    print("};")
    return dbl, worst


if __name__ == "__main__":
    fit("kDawsonP", target_p)
    fit("kDawsonQ", target_q)
