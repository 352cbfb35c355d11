#!/usr/bin/env python3
"""Acceptance thresholds of the fixed-seed statistical tests in tests/random/.

Chi-squared: the tests use the Wilson-Hilferty form
    c(df) = df * (1 - 2/(9 df) + z sqrt(2/(9 df)))^3,  z = 5.6,
and this script checks with mpmath that the exact upper-tail probability P(chi2_df > c(df))
is below 1e-6 for every df the tests use (and for a range around them).
Kolmogorov-Smirnov: sqrt(n) D_n is compared with t = 2.9; the asymptotic tail
2 sum (-1)^(k-1) exp(-2 k^2 t^2) is printed (below 1e-6 as well).
"""
import mpmath as mp

mp.mp.dps = 30
Z = mp.mpf("5.6")


def wh(df):
    df = mp.mpf(df)
    return df * (1 - 2 / (9 * df) + Z * mp.sqrt(2 / (9 * df))) ** 3


def main():
    worst = 0
    for df in list(range(5, 200)) + [299, 499, 999, 1999]:
        c = wh(df)
        tail = mp.gammainc(mp.mpf(df) / 2, c / 2, mp.inf, regularized=True)
        worst = max(worst, tail)
        if df in (5, 10, 20, 50, 100, 199, 999):
            print(f"df={df:5d} threshold={mp.nstr(c, 12):>16s} P(exceed)={mp.nstr(tail, 3)}")
    print("largest false-alarm probability over the dfs checked:", mp.nstr(worst, 3))
    t = mp.mpf("2.9")
    ks = 2 * mp.nsum(lambda k: (-1) ** (k - 1) * mp.exp(-2 * k * k * t * t), [1, mp.inf])
    print("KS: P(sqrt(n) D > 2.9) =", mp.nstr(ks, 3))


if __name__ == "__main__":
    main()
