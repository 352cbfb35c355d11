"""NumPy's peers of bench_variates: Generator(PCG64) and Generator(MT19937), 10^6 draws
per call, the best of five runs, in ns per variate, with the same distributions and
parameters (binomial p = 0.3 with n = 10 and 100000, geometric p = 0.1 counted as failures,
hypergeometric 300 marked of 1000, sample 100, integers 0..999).
Run: /usr/bin/python3 bench/variates_numpy.py (the interpreter python3-numpy serves)
"""

import time

import numpy as np

N = 1_000_000


def best(f, repeat=5):
    times = []
    for _ in range(repeat):
        t = time.perf_counter()
        f()
        times.append(time.perf_counter() - t)
    return min(times)


def cases(g):
    return [
        ("exponential", lambda: g.standard_exponential(N)),
        ("gamma 0.5", lambda: g.standard_gamma(0.5, N)),
        ("gamma 2", lambda: g.standard_gamma(2.0, N)),
        ("gamma 50", lambda: g.standard_gamma(50.0, N)),
        ("beta 0.5 0.5", lambda: g.beta(0.5, 0.5, N)),
        ("beta 0.5 3", lambda: g.beta(0.5, 3.0, N)),
        ("beta 2 0.5", lambda: g.beta(2.0, 0.5, N)),
        ("beta 2 3", lambda: g.beta(2.0, 3.0, N)),
        ("binomial 10 0.3", lambda: g.binomial(10, 0.3, N)),
        ("binomial 100000 0.3", lambda: g.binomial(100000, 0.3, N)),
        ("geometric 0.1", lambda: g.geometric(0.1, N) - 1),
        ("hypergeometric", lambda: g.hypergeometric(300, 700, 100, N)),
        ("integers 0..999", lambda: g.integers(0, 1000, N, dtype=np.int32)),
    ]


def main():
    print(f"numpy {np.__version__}")
    print(f"{'variate':<24}{'PCG64 ns':>10}{'MT19937 ns':>12}")
    pcg = cases(np.random.Generator(np.random.PCG64(1762)))
    mt = cases(np.random.Generator(np.random.MT19937(1762)))
    for (name, f), (_, h) in zip(pcg, mt):
        print(f"{name:<24}{best(f) / N * 1e9:>10.2f}{best(h) / N * 1e9:>12.2f}")


if __name__ == "__main__":
    main()
