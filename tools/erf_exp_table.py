#!/usr/bin/env python3
"""Prints the table 2^(j/128), j = 0..127, of the error functions' exp(-a^2).

The error functions compute exp(-a^2) by a table-driven exponential of the
exact square: -a^2 = (128 m + j) ln2/128 + r and
exp(-a^2) = 2^m 2^(j/128) exp(r).  Each 2^(j/128) is given as hi, the
correctly rounded double, and lo, the correctly rounded remainder.  Output
goes to special/erf_exp_table.hpp.

Usage: python3 tools/erf_exp_table.py > special/erf_exp_table.hpp
(The test tables.erf_exp checks that the committed file is this output.)
"""
import mpmath as mp

mp.mp.dps = 40
print("// 2^(j/128) = hi + lo for j = 0..127, hi correctly rounded and lo the")
print("// correctly rounded remainder; printed by tools/erf_exp_table.py (mpmath,")
print("// 40 digits).")
print("#pragma once")
print()
print("namespace lbx::special {")
print()
print("inline constexpr double kExp2Over128[128][2] = {")
for j in range(128):
    v = mp.mpf(2) ** (mp.mpf(j) / 128)
    hi = float(v)
    lo = float(v - mp.mpf(hi))
    print(f"    {{{hi!r}, {lo!r}}},")
print("};")
print()
print("}  // namespace lbx::special")
