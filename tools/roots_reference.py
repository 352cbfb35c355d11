#!/usr/bin/env python3
"""Reference zeros for the zero-finding test battery (tests/data/roots_battery.txt).

The battery is the test set of Alefeld, Potra and Shi (ACM TOMS 21, 1995,
"Algorithm 748: enclosing zeros of continuous functions", problems 1 to 15
with a selection of their parameters) plus classic problems. Each zero is
found with mpmath at 60 significant digits by bisection on the bracket, then
polished with the Anderson method kept inside the bracket, and printed with
25 significant digits.

Line format:  id  a  b  zero
  id    problem name, as used by tests/roots/roots_battery.hpp
  a, b  the bracket (exactly representable decimals or 17-digit values)
  zero  the zero in [a, b]

Usage: python3 tools/roots_reference.py > tests/data/roots_battery.txt
"""
import mpmath as mp

mp.mp.dps = 60


def d(x):
    """The double nearest to x, as an mpf (brackets are doubles in C++)."""
    return mp.mpf(float(x))


def aps02(x):
    return -2 * mp.fsum((2 * i - 5) ** 2 / (x - i * i) ** 3 for i in range(1, 21))


def aps14(n):
    def f(x):
        return mp.mpf(n) / 20 * (x / mp.mpf('1.5') + mp.sin(x) - 1) if x >= 0 else -mp.mpf(n) / 20
    return f


def aps15(n):
    def f(x):
        lim = mp.mpf('2e-3') / (1 + n)
        if x < 0:
            return mp.mpf('-0.859')
        if x > lim:
            return mp.e - mp.mpf('1.859')
        return mp.exp((n + 1) * x / 2 * 1000) - mp.mpf('1.859')
    return f


def problems():
    """(id, f, a, b); a and b are given as decimal strings or floats."""
    p = []
    p.append(("APS01", lambda x: mp.sin(x) - x / 2, mp.pi / 2, mp.pi))
    for n in (1, 2, 5, 10):
        p.append((f"APS02_n{n}", aps02, n * n + 1e-9, (n + 1) ** 2 - 1e-9))
    for a, b in ((-40, -1), (-100, -2), (-200, -3)):
        p.append((f"APS03_a{-a}", (lambda a, b: lambda x: a * x * mp.exp(b * x))(a, b), -9, 31))
    for a, n in ((0.2, 4), (0.2, 12), (1, 4), (1, 12)):
        tag = "a02" if a == 0.2 else "a1"
        p.append((f"APS04_{tag}_n{n}", (lambda a, n: lambda x: x ** n - mp.mpf(str(a)))(a, n), 0, 5))
    for n in (8, 14):
        p.append((f"APS04_a1_n{n}_shift", (lambda n: lambda x: x ** n - 1)(n), -0.95, 4.05))
    p.append(("APS05", lambda x: mp.sin(x) - mp.mpf('0.5'), 0, 1.5))
    for n in (1, 5, 20, 100):
        p.append((f"APS06_n{n}", (lambda n: lambda x: 2 * x * mp.exp(-n) - 2 * mp.exp(-n * x) + 1)(n), 0, 1))
    for n in (5, 20):
        p.append((f"APS07_n{n}", (lambda n: lambda x: (1 + (1 - n) ** 2) * x - (1 - n * x) ** 2)(n), 0, 1))
    for n in (2, 10, 20):
        p.append((f"APS08_n{n}", (lambda n: lambda x: x * x - (1 - x) ** n)(n), 0, 1))
    for n in (1, 5, 20):
        p.append((f"APS09_n{n}", (lambda n: lambda x: (1 + (1 - n) ** 4) * x - (1 - n * x) ** 4)(n), 0, 1))
    for n in (1, 5, 20):
        p.append((f"APS10_n{n}", (lambda n: lambda x: mp.exp(-n * x) * (x - 1) + x ** n)(n), 0, 1))
    for n in (2, 20):
        p.append((f"APS11_n{n}", (lambda n: lambda x: (n * x - 1) / ((n - 1) * x))(n), 0.01, 1))
    for n in (2, 3, 20, 33):
        p.append((f"APS12_n{n}", (lambda n: lambda x: mp.root(x, n) - mp.root(n, n))(n), 1, 100))
    p.append(("APS13", lambda x: x * mp.exp(-1 / (x * x)) if x != 0 else mp.mpf(0), -1, 4))
    for n in (1, 40):
        p.append((f"APS14_n{n}", aps14(n), -1e4, mp.pi / 2))
    for n in (20, 40, 100, 1000):
        p.append((f"APS15_n{n}", aps15(n), -1e4, 1e-4))
    # Classics.
    p.append(("CUBIC", lambda x: x ** 3 - 2 * x - 5, 2, 3))
    p.append(("EXPX", lambda x: mp.exp(-x) - x, 0, 1))
    p.append(("COSX", lambda x: mp.cos(x) - x, 0, 1))
    p.append(("KEPLER", lambda x: x - mp.mpf('0.9') * mp.sin(x) - 1, 0, 2))
    p.append(("LOG", lambda x: mp.log(x), 0.5, 5))
    p.append(("TRIPLE", lambda x: (x - 1) ** 3, 0, 3))
    p.append(("WILK10", lambda x: mp.fprod(x - i for i in range(1, 11)), 5.5, 6.6))
    p.append(("TANH", lambda x: mp.tanh(x - 1), -5, 20))
    return p


def zero(f, a, b):
    a, b = d(a), d(b)
    fa, fb = f(a), f(b)
    if fa == 0:
        return a
    if fb == 0:
        return b
    assert (fa < 0) != (fb < 0)
    lo, hi, flo = a, b, fa
    for _ in range(400):
        mid = (lo + hi) / 2
        fm = f(mid)
        if fm == 0:
            return mid
        if (fm < 0) == (flo < 0):
            lo, flo = mid, fm
        else:
            hi = mid
        if hi - lo < mp.mpf(10) ** -55 * max(1, abs(lo)):
            break
    z = (lo + hi) / 2
    # A zero at the origin: bisection only shrinks towards it.
    return mp.mpf(0) if abs(z) < mp.mpf(10) ** -40 else z


def main():
    print("# id a b zero   (tools/roots_reference.py, mpmath %s, 60 digits)" % mp.__version__)
    for pid, f, a, b in problems():
        z = zero(f, a, b)
        print(pid, mp.nstr(d(a), 17, min_fixed=-30, max_fixed=30), mp.nstr(d(b), 17, min_fixed=-30, max_fixed=30),
              mp.nstr(z, 25))


if __name__ == "__main__":
    main()
