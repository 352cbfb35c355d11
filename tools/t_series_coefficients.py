#!/usr/bin/env python3
"""Taylor coefficients of g(v) = sqrt(v / (1 - exp(-v))) about v = 0.

Student's t upper tail for large degrees of freedom uses
    I_x(a, 1/2) = Gamma(a + 1/2) / (sqrt(pi) Gamma(a)) * sum_k c_k Gamma(k + 1/2, aL) / a^(k + 1/2)
with L = -ln x and g(v) = sum_k c_k v^k (substitute w = exp(-v) in the beta
integral).  Prints the first 24 coefficients, correctly rounded, for
stats/student_t.cpp.

Usage: python3 tools/t_series_coefficients.py
"""
import mpmath as mp

mp.mp.dps = 40
c = mp.taylor(lambda v: mp.sqrt(v / (1 - mp.exp(-v))) if v != 0 else mp.mpf(1), mp.mpf(0), 23)
print("constexpr double kTailSeries[24] = {")
for v in c:
    print(f"    {float(v)!r},")
print("};")
