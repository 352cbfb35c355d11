#!/usr/bin/env python3
"""Comparison table of bench/calculus.cpp: D01AJF against GSL's qags.

Usage:
  build-bench/bench/bench_calculus --benchmark_min_time=0.05 --benchmark_repetitions=3 \\
      --benchmark_format=json > calculus.json
  python3 tools/quadrature_bench_table.py calculus.json

One row per integrand of tests/calculus/quadrature_battery.inc: evaluations
per integral here and with GSL, the time ratio (time per integral here / with
GSL, the least CPU time over the repetitions) and what the entry layers and the
adapter add per integrand call (time here less the core's, over the
evaluations), and the geometric mean of the ratios; then the same for D01AKF
against GSL's qag with the 61-point rule.
"""
import json
import math
import sys


def main():
    data = json.load(open(sys.argv[1]))
    by = {}
    for b in data["benchmarks"]:
        if b.get("run_type", "iteration") != "iteration":
            continue
        side, name = b["name"].split("/", 1)
        cur = by.setdefault(name, {}).get(side)
        if cur is None or b["cpu_time"] < cur["cpu_time"]:
            by[name][side] = b
    print("| Integrand | IFAIL | Evaluations | GSL evaluations | Time / GSL | Layers per call (ns) |")
    print("|---|---|---|---|---|---|")
    logs = []
    for name, e in by.items():
        lbx, core, gsl = e["lbx"], e["core"], e["gsl"]
        ratio = lbx["cpu_time"] / gsl["cpu_time"]
        logs.append(math.log(ratio))
        layers = (lbx["cpu_time"] - core["cpu_time"]) / lbx["evals"]
        print(f"| {name} | {int(lbx['ier'])} | {lbx['evals']:.0f} | {gsl['evals']:.0f} | "
              f"{ratio:.2f} | {layers:.2f} |")
    print(f"\nGeometric mean of the time ratios: {math.exp(sum(logs) / len(logs)):.2f}")
    if not all("lbx61" in e for e in by.values()):
        return
    print("\nD01AKF against gsl_integration_qag with the 61-point rule:\n")
    print("| Integrand | IFAIL | Evaluations | GSL evaluations | Time / GSL |")
    print("|---|---|---|---|---|")
    logs = []
    for name, e in by.items():
        lbx, gsl = e["lbx61"], e["gsl61"]
        ratio = lbx["cpu_time"] / gsl["cpu_time"]
        logs.append(math.log(ratio))
        print(f"| {name} | {int(lbx['ier'])} | {lbx['evals']:.0f} | {gsl['evals']:.0f} | {ratio:.2f} |")
    print(f"\nGeometric mean of the time ratios: {math.exp(sum(logs) / len(logs)):.2f}")


if __name__ == "__main__":
    sys.exit(main())
