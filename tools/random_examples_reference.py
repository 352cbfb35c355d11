#!/usr/bin/env python3
"""Writes the expected output of examples/g05skf_example and examples/g05tjf_example with mpmath.

g05skf: the first uniform of the basic generator seeded with 1 is 13^13 * 6 * 2^-60; its
inverse normal, to 8 decimals.  g05tjf: the table of Poisson(4) runs from 0 to
ceil(4 + 10 * 2) + 20 = 44 (45 counts); P(X <= 0..2) = exp(-4) * (1, 5, 13).
"""
import mpmath as mp

mp.mp.dps = 40
u = mp.mpf(302875106592253 * 6) / mp.mpf(2) ** 60
z = -mp.sqrt(2) * mp.erfinv(1 - 2 * u)
with open("examples/g05skf_example.out", "w") as f:
    f.write("first standard normal:%12.8f\n" % float(z))
e = mp.e ** -4
with open("examples/g05tjf_example.out", "w") as f:
    f.write("tabulated counts: 45\n")
    f.write("P(X<=0..2):" + "".join("%14.10f" % float(v) for v in (e, 5 * e, 13 * e)) + "\n")
