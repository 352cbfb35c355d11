"""NumPy's peers of bench_fft: numpy.fft.fft and numpy.fft.rfft with norm="ortho"
(the 1/sqrt(N) scaling of C06PCF and C06PAF), the same sizes, the best of
seven runs of repeated transforms, in microseconds per transform.
Run: /usr/bin/python3 bench/fft_numpy.py (the interpreter python3-numpy serves)
"""

import time

import numpy as np

SIZES = (1 << 10, 1 << 16, 1 << 20, 3 * 5 * 7 * 1024, 999983)


def best(f, calls, repeat=7):
    times = []
    for _ in range(repeat):
        t = time.perf_counter()
        for _ in range(calls):
            f()
        times.append((time.perf_counter() - t) / calls)
    return min(times)


def main():
    print(f"numpy {np.__version__}")
    print(f"{'benchmark':<28}{'us':>12}")
    for n in SIZES:
        i = np.arange(n)
        z = np.sin(0.37 * 2 * i) + 1j * np.sin(0.37 * (2 * i + 1))
        r = np.sin(0.37 * i)
        calls = max(1, (1 << 20) // n)
        t = best(lambda: np.fft.fft(z, norm="ortho"), calls)
        print(f"{f'complex_numpy/{n}':<28}{t * 1e6:>12.1f}")
        t = best(lambda: np.fft.rfft(r, norm="ortho"), calls)
        print(f"{f'real_numpy/{n}':<28}{t * 1e6:>12.1f}")


if __name__ == "__main__":
    main()
