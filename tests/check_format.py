#!/usr/bin/env python3
"""Fails when a C++ source of the tree differs from the committed .clang-format style.

Usage: check_format.py SOURCE_DIR [CLANG_FORMAT]
"""
import subprocess
import sys
from pathlib import Path

root = Path(sys.argv[1])
tool = sys.argv[2] if len(sys.argv) > 2 else "clang-format"
skip = {"build", ".git"}
files = sorted(p for ext in ("*.cpp", "*.hpp", "*.h", "*.c") for p in root.rglob(ext)
               if not skip & set(p.relative_to(root).parts)
               and not p.relative_to(root).parts[0].startswith("build"))
run = subprocess.run([tool, "--dry-run", "-Werror", "--style=file", *map(str, files)],
                     capture_output=True, text=True)
if run.returncode != 0:
    bad = sorted({line.split(":")[0] for line in run.stderr.splitlines() if ": error:" in line})
    print("not formatted (run `make format`):", *bad, sep="\n  ")
    sys.exit(1)
print(f"{len(files)} files formatted")
