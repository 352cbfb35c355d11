#!/usr/bin/env python3
"""Writes tests/data/e01be.txt: exact references for E01BEF, E01BFF, E01BGF, E01BHF.

For each data set (abscissae and values are doubles, written so that strtod
reads them back exactly) the derivatives of the monotonicity-preserving
piecewise cubic Hermite interpolant are computed from their defining formulas
in exact rational arithmetic (fractions.Fraction): the end-point formulas with
their limits, the weighted harmonic mean at interior points, zero at extrema
and flat intervals, and the count of switches of monotonicity.  Then, with the
derivatives rounded to doubles (the D a caller passes to the evaluators), the
exact value and first derivative of the piecewise cubic at chosen points and
its exact integral between chosen limits, extrapolating with the end cubics.

Lines:
    set NAME N SWITCHES                  a data set of N points
    pt X F D_EXACT D_DOUBLE              one point: X, F, the exact derivative
                                         (25 significant digits) and the double
                                         nearest to it (repr)
    val P VALUE SLOPE                    interpolant and derivative at P
    int A B INTEGRAL                     integral from A to B

Usage: python3 tools/pchip_reference.py > tests/data/e01be.txt
(The test tables.e01be checks that the committed file is this output.)
"""
import random
from decimal import Decimal, getcontext
from fractions import Fraction as Q

getcontext().prec = 40


def sig(q):
    """A rational to 25 significant digits."""
    if q == 0:
        return "0"
    d = Decimal(q.numerator) / Decimal(q.denominator)
    return f"{d:.24e}"


def sign(a):
    return (a > 0) - (a < 0)


def derivatives(x, f):
    """The derivatives and the switch count, exactly as defined."""
    n = len(x)
    h = [x[k + 1] - x[k] for k in range(n - 1)]
    s = [(f[k + 1] - f[k]) / h[k] for k in range(n - 1)]
    if n == 2:
        return [s[0], s[0]], 0
    d = [Q(0)] * n

    def end(h1, h2, d1, d2):
        hs = h1 + h2
        v = ((h1 + hs) / hs) * d1 - (h1 / hs) * d2
        if sign(v) * sign(d1) <= 0:
            return Q(0)
        if sign(d1) * sign(d2) < 0 and abs(v) > abs(3 * d1):
            return 3 * d1
        return v

    d[0] = end(h[0], h[1], s[0], s[1])
    switches, last = 0, s[0]
    for i in range(1, n - 1):
        h1, h2, d1, d2 = h[i - 1], h[i], s[i - 1], s[i]
        sp = sign(d1) * sign(d2)
        if sp > 0:
            hs = h1 + h2
            w1, w2 = (hs + h1) / (3 * hs), (hs + h2) / (3 * hs)
            dmax, dmin = max(abs(d1), abs(d2)), min(abs(d1), abs(d2))
            d[i] = dmin / (w1 * d1 / dmax + w2 * d2 / dmax)
        elif sp < 0:
            switches += 1
            last = d2
        elif d2 != 0:
            switches += sign(last) * sign(d2) < 0
            last = d2
    d[n - 1] = end(h[n - 2], h[n - 3], s[n - 2], s[n - 3])
    return d, switches


def interval(x, p):
    j = 0
    for k in range(1, len(x) - 1):
        if x[k] <= p:
            j = k
    return j


def cubic(x, f, d, j):
    """Coefficients c0..c3 of the cubic of interval j in t = p - x[j]."""
    h = x[j + 1] - x[j]
    delta = (f[j + 1] - f[j]) / h
    c2 = (3 * delta - 2 * d[j] - d[j + 1]) / h
    c3 = (d[j] + d[j + 1] - 2 * delta) / (h * h)
    return f[j], d[j], c2, c3


def value(x, f, d, p):
    c0, c1, c2, c3 = cubic(x, f, d, interval(x, p))
    t = p - x[interval(x, p)]
    return c0 + t * (c1 + t * (c2 + t * c3)), c1 + t * (2 * c2 + 3 * t * c3)


def antiderivative(c, t):
    c0, c1, c2, c3 = c
    return t * (c0 + t * (c1 / 2 + t * (c2 / 3 + t * c3 / 4)))


def integral(x, f, d, a, b):
    if a > b:
        return -integral(x, f, d, b, a)
    ja, jb = interval(x, a), interval(x, b)
    total = Q(0)
    for j in range(ja, jb + 1):
        lo = a if j == ja else x[j]
        hi = b if j == jb else x[j + 1]
        c = cubic(x, f, d, j)
        total += antiderivative(c, hi - x[j]) - antiderivative(c, lo - x[j])
    return total


def data_sets():
    rng = random.Random(20261124)
    # Fritsch and Carlson's monotone test data (SIAM J. Numer. Anal. 17, 1980).
    yield "fritsch_carlson", [7.99, 8.09, 8.19, 8.7, 9.2, 10.0, 12.0, 15.0, 20.0], [
        0.0, 2.76429e-5, 4.37498e-2, 0.169183, 0.469428, 0.943740, 0.998636, 0.999919, 0.999994]
    yield "two_points", [-1.5, 2.25], [3.0, -0.5]
    yield "three_points", [0.0, 1.0, 4.0], [1.0, 3.0, 3.5]
    yield "extremum_ends", [0.0, 0.5, 3.0, 3.25], [0.0, 2.0, -1.0, 5.0]
    yield "limited_ends", [0.0, 1.0, 1.1, 2.1], [0.0, 1.0, 0.0, 1.0]
    x = sorted(rng.sample(range(1, 10**6), 40))
    yield "increasing", [v / 1024 for v in x], sorted(rng.uniform(-5, 5) for _ in x)
    x = sorted(rng.sample(range(1, 10**6), 40))
    yield "decreasing", [v / 4096 - 100 for v in x], sorted((rng.uniform(0, 9) for _ in x), reverse=True)
    x = sorted(rng.sample(range(1, 10**6), 50))
    yield "oscillating", [v / 1000 for v in x], [rng.uniform(-1, 1) for _ in x]
    yield "flat", [float(k) for k in range(12)], [0.0, 1.0, 1.0, 1.0, 2.0, 2.0, 0.5, 0.5, 0.5, 3.0, 3.0, 1.0]
    yield "switch_across_flat", [0.0, 1.0, 2.0, 2.5, 3.0, 3.5, 5.0], [0.0, 1.0, 0.0, 0.0, 1.0, 1.0, 0.5]
    yield "steps", [k * 0.75 for k in range(10)], [0.0, 0.0, 1.0, 1.0, 0.0, 0.0, -2.0, -2.0, -1.0, 4.0]
    x = [0.0]
    for k in range(29):
        x.append(x[-1] + rng.uniform(0.5, 1) * 10.0 ** (3 * (k % 3) - 3))
    yield "spacing", x, [rng.uniform(0, 1) * (k + 1) for k in range(30)]
    yield "huge", [float(k) for k in range(8)], [1e300, 2e300, 5e300, 6e300, 9e300, 1e301, 3e301, 8e301]
    yield "tiny", [0.0, 1.0, 2.5, 3.0, 6.0, 7.0], [1e-300, 2e-300, 5e-300, 6e-300, 9e-300, 1e-299]


def main():
    print("# Exact references for E01BEF to E01BHF: tools/pchip_reference.py")
    for name, xs, fs in data_sets():
        x, f = [Q(v) for v in xs], [Q(v) for v in fs]
        d, switches = derivatives(x, f)
        dd = [float(v) for v in d]
        print(f"set {name} {len(x)} {switches}")
        for k in range(len(x)):
            print(f"pt {xs[k]!r} {fs[k]!r} {sig(d[k])} {dd[k]!r}")
        dq = [Q(v) for v in dd]
        lo, hi = xs[0], xs[-1]
        w = hi - lo
        points = [lo, hi, lo - 0.3 * w, hi + 0.2 * w] + [xs[k] for k in range(1, len(xs) - 1, 3)] + [
            lo + w * k / 7 for k in range(1, 7)]
        for p in points:
            v, s = value(x, f, dq, Q(p))
            print(f"val {p!r} {sig(v)} {sig(s)}")
        pairs = [(lo, hi), (hi, lo), (lo - 0.25 * w, hi + 0.5 * w), (lo - 0.5 * w, lo - 0.1 * w),
                 (hi + 0.1 * w, hi + 0.3 * w), (lo + 0.3 * w, lo + 0.31 * w), (lo + 0.9 * w, lo + 0.2 * w),
                 (xs[len(xs) // 2], xs[len(xs) // 2]), (lo + 0.5 * w, hi + 0.5 * w)]
        for a, b in pairs:
            print(f"int {a!r} {b!r} {sig(integral(x, f, dq, Q(a), Q(b)))}")


main()
