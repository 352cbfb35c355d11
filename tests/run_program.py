#!/usr/bin/env python3
"""Runs a caller program the way a user does and judges its output.

Usage: run_program.py PROGRAM STEM [--platform NAME] [--via COMMAND...]

The program runs in a fresh empty working folder.  It passes when its exit
status equals the number in STEM.status (0 if absent), no line of its
standard output starts with "FAIL", and, when STEM.out exists, its standard
output equals that file byte for byte.

For the Windows DLL (--platform windows32) the program runs through the
--via command (Wine and a console runner), its records end in CR LF, which
are compared as LF, and STEM.windows32.out, where present, replaces STEM.out
(the implementation details name the platform).
"""
import subprocess
import sys
import tempfile
from pathlib import Path


def main() -> int:
    args = sys.argv[1:]
    program, stem = Path(args[0]).resolve(), Path(args[1])
    platform, via = "", []
    rest = args[2:]
    while rest:
        if rest[0] == "--platform":
            platform, rest = rest[1], rest[2:]
        elif rest[0] == "--via":
            via, rest = rest[1:], []
        else:
            raise SystemExit(f"run_program.py: unknown argument {rest[0]}")
    status_file, out_file = stem.with_suffix(".status"), stem.with_suffix(".out")
    err_file = stem.with_suffix(".err")
    if platform and stem.with_suffix(f".{platform}.out").exists():
        out_file = stem.with_suffix(f".{platform}.out")
    want_status = int(status_file.read_text()) if status_file.exists() else 0
    command = [str(program)]
    if platform == "windows32":
        command = ["Z:" + str(program).replace("/", "\\")]
    with tempfile.TemporaryDirectory() as work:
        run = subprocess.run(via + command, cwd=work, capture_output=True, timeout=300)
    out = run.stdout.decode("latin-1")
    if platform == "windows32":
        out = out.replace("\r\n", "\n")
    problems = []
    if run.returncode != want_status:
        problems.append(f"exit status {run.returncode}, expected {want_status}")
    fails = [l for l in out.splitlines() if l.startswith("FAIL")]
    problems += fails
    if not out_file.exists() and "TSL hard failure" in out:
        # Without an expected output a hard stop would pass unnoticed.
        problems.append("the program ended in a hard failure")
    if out_file.exists():
        want = out_file.read_text(encoding="latin-1")
        if out != want:
            import difflib
            diff = difflib.unified_diff(want.splitlines(), out.splitlines(),
                                        "expected", "actual", lineterm="")
            problems.append("output differs:\n" + "\n".join(diff))
    err = run.stderr.decode("latin-1")
    want_err = err_file.read_text(encoding="latin-1") if err_file.exists() else ""
    if err != want_err:
        problems.append("standard error differs from " + (str(err_file) if err_file.exists() else "nothing"))
    if problems:
        print("\n".join(problems))
        print("---- stdout ----\n" + out + "---- stderr ----\n" + run.stderr.decode("latin-1"))
        return 1
    print(f"{program.name}: ok")
    return 0


if __name__ == "__main__":
    sys.exit(main())
