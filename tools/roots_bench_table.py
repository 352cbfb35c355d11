#!/usr/bin/env python3
"""Comparison table of bench/roots.cpp: C05AYF against GSL's Brent solver.

Usage:
  build-bench/bench/bench_roots --benchmark_repetitions=15 \
      --benchmark_enable_random_interleaving=true --benchmark_format=json > roots.json
  python3 tools/roots_bench_table.py roots.json            # markdown table
  python3 tools/roots_bench_table.py --evals roots.json    # tests/data/roots_battery_evals.txt

The table has one row per problem: evaluations per solve here and with GSL,
and the time ratio (time per solve here / time per solve with GSL: the least
CPU time over the repetitions of each benchmark, which is the figure least
disturbed by other load on the machine).
"""
import json
import math
import os
import sys


def battery_order():
    """Problem ids in the order of tests/data/roots_battery.txt."""
    here = os.path.dirname(os.path.abspath(__file__))
    ids = []
    with open(os.path.join(here, "..", "tests", "data", "roots_battery.txt")) as f:
        for line in f:
            if line.strip() and not line.startswith("#"):
                ids.append(line.split()[0])
    return ids


def rows(path):
    """Per problem: evaluations and the least CPU time over the repetitions."""
    data = json.load(open(path))
    by = {}
    for b in data["benchmarks"]:
        if b.get("run_type", "iteration") != "iteration":
            continue
        side, pid = b["name"].split("/", 1)
        cur = by.setdefault(pid, {}).get(side)
        if cur is None or b["cpu_time"] < cur["cpu_time"]:
            by[pid][side] = b
    return [(pid, by[pid]["lbx"], by[pid]["gsl"]) for pid in battery_order() if pid in by]


def main(argv):
    evals_only = "--evals" in argv
    path = [a for a in argv if not a.startswith("--")][0]
    table = rows(path)
    if evals_only:
        print("# id  evaluations-here  evaluations-GSL-Brent   (C05AYF, EPS = 1e-10; bench/roots.cpp,")
        print("# tools/roots_bench_table.py --evals). Regression record of the step rules: the")
        print("# test checks that the counts here do not grow.")
        for pid, l, g in table:
            print(f"{pid} {int(round(l['evals']))} {int(round(g['evals']))}")
        return 0
    print("| problem | evals here | evals GSL Brent | difference | time here (ns) | time GSL (ns) | time ratio |")
    print("|---|---:|---:|---:|---:|---:|---:|")
    logs = []
    tot_l = tot_g = 0
    for pid, l, g in table:
        el, eg = int(round(l["evals"])), int(round(g["evals"]))
        tot_l += el
        tot_g += eg
        ratio = l["cpu_time"] / g["cpu_time"]
        logs.append(math.log(ratio))
        print(f"| {pid} | {el} | {eg} | {el - eg:+d} | {l['cpu_time']:.0f} | {g['cpu_time']:.0f} | {ratio:.2f} |")
    gm = math.exp(sum(logs) / len(logs))
    print(f"| **all {len(table)}** | {tot_l} | {tot_g} | {tot_l - tot_g:+d} | | | geo. mean {gm:.2f} |")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
