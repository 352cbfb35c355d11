#!/usr/bin/env python3
"""Prints the erf rational on |x| <= 0.46875 rewritten as c + z N(z)/Q(z).

x P(z)/Q(z) (z = x^2, the published degree-4/degree-4 set) equals
x (c + z N(z)/Q(z)) exactly, with c = P(0)/Q(0) and N(z) = (P(z) - c Q(z))/z
(the constant term of P - c Q vanishes).  c is printed as c_hi, a double of
27 significant bits (so x_hi c_hi is exact for a 26-bit x_hi), plus c_lo,
and N's coefficients are rounded to double once (they enter only the
correction, at most 7% of the result).

Usage: python3 tools/erf_split_coefficients.py
"""
import mpmath as mp

mp.mp.dps = 60
P = [1.85777706184603153e-1, 3.16112374387056560e00, 1.13864154151050156e02,
     3.77485237685302021e02, 3.20937758913846947e03]
Q = [1.0, 2.36012909523441209e01, 2.44024637934444173e02,
     1.28261652607737228e03, 2.84423683343917062e03]
c = mp.mpf(P[-1]) / mp.mpf(Q[-1])
m, e = mp.frexp(c)
c_hi = float(mp.ldexp(mp.nint(mp.ldexp(m, 27)), e - 27))
c_lo = float(c - c_hi)
print(f"c_hi = {c_hi!r}  # 27 bits")
print(f"c_lo = {c_lo!r}")
n = [float(mp.mpf(p) - c * mp.mpf(q)) for p, q in zip(P[:-1], Q[:-1])]
print("N (highest power first) =", ", ".join(repr(v) for v in n))
print("check P0 - c Q0 =", mp.mpf(P[-1]) - (mp.mpf(c_hi) + c_lo) * Q[-1])
