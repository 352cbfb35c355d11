"""NumPy's peers of bench_ranking: argsort(kind="stable") and searchsorted.

Same data kinds as bench/ranking.cpp (kind 0 uniform in (-1, 1), kind 1 1000
distinct values), the best of five runs, in ns per element (argsort) or per
search (searchsorted of 2^16 random items, side="right", the count of elements
not greater than each item).  Run: /usr/bin/python3 bench/ranking_numpy.py (the interpreter python3-numpy serves)
"""

import time

import numpy as np


def best(f, repeat=5):
    times = []
    for _ in range(repeat):
        t = time.perf_counter()
        f()
        times.append(time.perf_counter() - t)
    return min(times)


def data(n, kind, rng):
    return rng.uniform(-1.0, 1.0, n) if kind == 0 else rng.integers(0, 1000, n).astype(np.float64)


def main():
    rng = np.random.default_rng(42)
    print(f"numpy {np.__version__}")
    print(f"{'benchmark':<36}{'ms':>10}{'ns/elem':>10}")
    for kind in (0, 1):
        for n in (10**6, 10**7):
            x = data(n, kind, rng)
            t = best(lambda: np.argsort(x, kind="stable"))
            print(f"{f'argsort_stable/n:{n}/kind:{kind}':<36}{t * 1e3:>10.2f}{t * 1e9 / n:>10.2f}")
    items = rng.uniform(-1.0, 1.0, 1 << 16)
    for n in (10**6, 10**7):
        x = np.sort(rng.uniform(-1.0, 1.0, n))
        t = best(lambda: np.searchsorted(x, items, side="right"))
        print(f"{f'searchsorted/n:{n}':<36}{t * 1e3:>10.2f}{t * 1e9 / items.size:>10.2f}")


if __name__ == "__main__":
    main()
