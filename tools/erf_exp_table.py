#!/usr/bin/env python3
"""Prints the table exp(-(k/16)^2), k = 0..425, correctly rounded to double.

The error functions form exp(-a^2) as exp(-y^2) exp(-(a - y)(a + y)) with
y = trunc(16 a)/16 and a < 26.6; this table supplies the first factor
exactly rounded instead of through a second call of exp.  Output goes to
special/erf_exp_table.hpp.

Usage: python3 tools/erf_exp_table.py > special/erf_exp_table.hpp
(The test tables.erf_exp checks that the committed file is this output.)
"""
import mpmath as mp

mp.mp.dps = 40
N = 426
print("// exp(-(k/16)^2) for k = 0..425, correctly rounded; printed by")
print("// tools/erf_exp_table.py (mpmath, 40 digits).")
print("#pragma once")
print()
print("namespace lbx::special {")
print()
print(f"inline constexpr double kExpMinusSquare16[{N}] = {{")
for k in range(N):
    v = float(mp.exp(-(mp.mpf(k) / 16) ** 2))
    print(f"    {v!r},")
print("};")
print()
print("}  // namespace lbx::special")
