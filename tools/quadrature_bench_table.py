#!/usr/bin/env python3
"""Comparison table of bench/calculus.cpp: D01AJF against GSL's qags.

Usage:
  build-bench/bench/bench_calculus --benchmark_min_time=0.05 --benchmark_repetitions=3 \\
      --benchmark_format=json > calculus.json
  python3 tools/quadrature_bench_table.py calculus.json [more.json ...]

One row per integrand of tests/calculus/quadrature_battery.inc: evaluations
per integral here and with GSL, the time ratio (time per integral here / with
GSL, the least CPU time over the repetitions) and what the entry layers and the
adapter add per integrand call (time here less the core's, over the
evaluations), and the geometric mean of the ratios, over every row and over
the rows where both sides evaluate the integrand equally often (the published
scheme and GSL's differ in the others); then the same for D01AKF
against GSL's qag with the 61-point rule, D01AHF and D01ATF against GSL's qags, D01BDF against GSL's qng, D01ALF against GSL's qagp, D01AQF against GSL's qawc, and
D01AMF against GSL's qagiu, qagil and qagi, D01AUF (KEY = 6) against GSL's
qag with the 61-point rule, D01ANF against GSL's qawo, D01APF against GSL's
qaws and D01ASF against GSL's qawf.
"""
import json
import math
import sys


def main():
    benchmarks = [b for path in sys.argv[1:] for b in json.load(open(path))["benchmarks"]]
    by = {}
    for b in benchmarks:
        if b.get("run_type", "iteration") != "iteration":
            continue
        side, name = b["name"].split("/", 1)
        cur = by.setdefault(name, {}).get(side)
        if cur is None or b["cpu_time"] < cur["cpu_time"]:
            by[name][side] = b
    if not any("lbx" in e for e in by.values()):
        return pair_tables(by)
    print("| Integrand | IFAIL | Evaluations | GSL evaluations | Time / GSL | Layers per call (ns) |")
    print("|---|---|---|---|---|---|")
    ratios = []
    for name, e in by.items():
        if "lbx" not in e:
            continue
        lbx, core, gsl = e["lbx"], e["core"], e["gsl"]
        ratio = lbx["cpu_time"] / gsl["cpu_time"]
        ratios.append((ratio, lbx["evals"] == gsl["evals"]))
        layers = (lbx["cpu_time"] - core["cpu_time"]) / lbx["evals"]
        print(f"| {name} | {int(lbx['ier'])} | {lbx['evals']:.0f} | {gsl['evals']:.0f} | "
              f"{ratio:.2f} | {layers:.2f} |")
    print_means(ratios)
    pair_tables(by)


def print_means(ratios):
    def geomean(rs):
        return math.exp(sum(math.log(r) for r in rs) / len(rs))
    same = [r for r, equal in ratios if equal]
    print(f"\nGeometric mean of the time ratios: {geomean([r for r, _ in ratios]):.2f}"
          f"; over the {len(same)} rows of {len(ratios)} with equal evaluations: "
          f"{geomean(same) if same else float('nan'):.2f}")


def pair_tables(by):
    pair_table(by, "lbx61", "gsl61", "D01AKF against gsl_integration_qag with the 61-point rule")
    pair_table(by, "lbxrel", "gsl", "D01AHF (EPSABS = 0 rows) against gsl_integration_qags")
    pair_table(by, "lbxvec", "gsl", "D01ATF (vectorised integrand) against gsl_integration_qags")
    pair_table(by, "lbxng", "gslng", "D01BDF against gsl_integration_qng")
    pair_table(by, "lbxpts", "gslpts", "D01ALF against gsl_integration_qagp (battery with break points)")
    pair_table(by, "lbxpv", "gslpv", "D01AQF against gsl_integration_qawc")
    pair_table(by, "lbxinf", "gslinf",
               "D01AMF against gsl_integration_qagiu, qagil or qagi (INF = 1, -1, 2)")
    pair_table(by, "lbxkey", "gsl61",
               "D01AUF (KEY = 6, vectorised integrand) against gsl_integration_qag, 61 points")
    pair_table(by, "lbxosc", "gslosc", "D01ANF against gsl_integration_qawo (21 levels)")
    pair_table(by, "lbxalg", "gslalg", "D01APF against gsl_integration_qaws")
    pair_table(by, "lbxfou", "gslfou", "D01ASF against gsl_integration_qawf")


def pair_table(by, ours, theirs, title):
    rows = {n: e for n, e in by.items() if ours in e}
    if not rows:
        return
    print(f"\n{title}:\n")
    print("| Integrand | IFAIL | Evaluations | GSL evaluations | Time / GSL |")
    print("|---|---|---|---|---|")
    ratios = []
    for name, e in rows.items():
        lbx, gsl = e[ours], e[theirs]
        ratio = lbx["cpu_time"] / gsl["cpu_time"]
        ratios.append((ratio, lbx["evals"] == gsl["evals"]))
        print(f"| {name} | {int(lbx['ier'])} | {lbx['evals']:.0f} | {gsl['evals']:.0f} | {ratio:.2f} |")
    print_means(ratios)


if __name__ == "__main__":
    sys.exit(main())
