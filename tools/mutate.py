#!/usr/bin/env python3
"""Mutation check: each listed fault, put into the library alone, must make a test fail.

    tools/mutate.py [--build DIR] tests/mutants/CHAPTER.toml [NAME ...]
    tools/mutate.py --check tests/mutants      (every 'find' still occurs once)

A mutant file is TOML, one table per fault:

    [[mutant]]
    name = "ldb-check-dropped"           # short, unique in the file
    file = "linalg/blas_own.cpp"         # source of the library
    find = "ldb < std::max(1, *k)"       # occurs exactly once in the file
    replace = "ldb < 1"
    tests = "^linalg\\."                 # ctest -R pattern expected to catch it
    why = "DGEMM's LDB rule loses its dependence on K"

For each mutant the source is changed, the build tree rebuilt, the tests run,
and the source put back whatever happens.  A mutant that builds and passes
every selected test has survived: the run ends with status 1 and names it.
A mutant that does not compile counts as neither (status 2), since it proves
nothing about the tests.
"""

import argparse
import pathlib
import subprocess
import sys
import tomllib

ROOT = pathlib.Path(__file__).resolve().parent.parent


def run(cmd, **kw):
    return subprocess.run(cmd, cwd=ROOT, stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, text=True, **kw)


def check_one(m, build):
    path = ROOT / m["file"]
    original = path.read_text()
    if original.count(m["find"]) != 1:
        return "bad-find", f"'find' occurs {original.count(m['find'])} times"
    try:
        path.write_text(original.replace(m["find"], m["replace"]))
        b = run(["nice", "cmake", "--build", build, "-j2"])
        if b.returncode != 0:
            return "no-build", b.stdout[-2000:]
        t = run(["ctest", "--test-dir", build, "-R", m["tests"],
                 "--timeout", "300", "-j2"])
        if "No tests were found" in t.stdout:
            return "no-tests", t.stdout[-500:]
        failed = [ln.strip() for ln in t.stdout.splitlines()
                  if "***Failed" in ln or "***Exception" in ln
                  or "***Timeout" in ln]
        return ("killed" if t.returncode != 0 else "survived"), \
            "\n".join(failed[:5])
    finally:
        path.write_text(original)


def main():
    ap = argparse.ArgumentParser()
    ap.add_argument("--build", default="build")
    ap.add_argument("--check", action="store_true")
    ap.add_argument("mutants")
    ap.add_argument("names", nargs="*")
    args = ap.parse_args()
    if args.check:
        stale = [f"{f.name}: {m['name']}" for f in sorted(pathlib.Path(args.mutants).glob("*.toml"))
                 for m in tomllib.loads(f.read_text())["mutant"]
                 if (ROOT / m["file"]).read_text().count(m["find"]) != 1]
        print("\n".join(stale) or "every mutant names code that exists once")
        sys.exit(1 if stale else 0)
    mutants = tomllib.loads(pathlib.Path(args.mutants).read_text())["mutant"]
    if args.names:
        mutants = [m for m in mutants if m["name"] in args.names]
    worst = 0
    for m in mutants:
        verdict, detail = check_one(m, args.build)
        print(f"{verdict:9} {m['name']}: {m['why']}")
        if verdict != "killed":
            print("          " + detail.replace("\n", "\n          "))
            worst = max(worst, 1 if verdict == "survived" else 2)
        else:
            print("          caught by " + (detail.splitlines() or ["?"])[0])
    # Leave the tree built from the unchanged sources.
    run(["nice", "cmake", "--build", args.build, "-j2"])
    sys.exit(worst)


if __name__ == "__main__":
    main()
