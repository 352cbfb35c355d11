#!/usr/bin/python3
"""SciPy's PchipInterpolator beside E01BEF and E01BFF on the data of bench/approx.cpp.

10^6 increasing nodes with uneven spacing, increasing values with flat and
steep stretches; 10^7 evaluation points, sorted and in random order.  SciPy
builds with PchipInterpolator(x, f) and evaluates with its __call__; the
library, loaded with ctypes from the shared library named on the command line,
builds with E01BEF and evaluates with E01BFF.  Times are the best of REPEAT runs
(wall clock), printed per node or per point with the ratio library / SciPy.

Usage: /usr/bin/python3 bench/pchip_scipy.py build/libLBX3207QK.so [POINTS] [REPEAT]
(Debian's python3-scipy, installed by tools/install-deps.sh bench, is for
Debian's own python3: run it with /usr/bin/python3.)
"""
import ctypes
import sys
import time

import numpy as np
from scipy.interpolate import PchipInterpolator

NODES = 1_000_000


def best(f, repeat):
    times = []
    for _ in range(repeat):
        t = time.perf_counter()
        f()
        times.append(time.perf_counter() - t)
    return min(times)


def main():
    lib = ctypes.CDLL(sys.argv[1])
    points = int(sys.argv[2]) if len(sys.argv) > 2 else 10_000_000
    repeat = int(sys.argv[3]) if len(sys.argv) > 3 else 3
    rng = np.random.default_rng(2026)
    x = np.cumsum(0.5 + rng.random(NODES))
    steps = rng.random(NODES) ** 3
    steps[np.arange(NODES) % 100 < 10] = 0
    f = np.cumsum(steps)
    d = np.empty(NODES)
    random_points = rng.uniform(x[0], x[-1], points)
    sorted_points = np.sort(random_points)
    pf = np.empty(points)

    ptr = lambda a: a.ctypes.data_as(ctypes.POINTER(ctypes.c_double))
    n, m, ifail = ctypes.c_int(NODES), ctypes.c_int(points), ctypes.c_int(0)

    def e01bef():
        ifail.value = 0
        lib.e01bef_(ctypes.byref(n), ptr(x), ptr(f), ptr(d), ctypes.byref(ifail))

    def e01bff(p):
        ifail.value = 1
        lib.e01bff_(ctypes.byref(n), ptr(x), ptr(f), ptr(d), ctypes.byref(m), ptr(p), ptr(pf),
                    ctypes.byref(ifail))

    holder = {}
    rows = [("build", NODES, lambda: e01bef(), lambda: holder.update(p=PchipInterpolator(x, f)))]
    rows[0][2]()
    rows[0][3]()
    for name, p in (("sorted", sorted_points), ("random", random_points)):
        rows.append((f"eval {name}", points, lambda p=p: e01bff(p), lambda p=p: holder["p"](p)))
    print(f"nodes {NODES}, points {points}, best of {repeat}")
    print(f"{'':14} {'library ns':>12} {'SciPy ns':>10} {'ratio':>7}")
    for name, count, ours, theirs in rows:
        a, b = best(ours, repeat) / count * 1e9, best(theirs, repeat) / count * 1e9
        print(f"{name:14} {a:12.2f} {b:10.2f} {a / b:7.2f}")
    # The two agree where they should: same data, same kind of cubic, not the
    # same derivatives (SciPy's end-point rule differs), so only a sanity check.
    e01bff(sorted_points)
    diff = np.max(np.abs(pf - holder["p"](sorted_points)))
    print(f"largest difference of the values: {diff:.3g} (values up to {f[-1]:.3g})")


main()
