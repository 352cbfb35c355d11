#!/usr/bin/env python3
"""A committed generated table is byte for byte what its script prints.

Usage: check_table.py SCRIPT COMMITTED_FILE
"""
import difflib
import subprocess
import sys

script, committed = sys.argv[1], sys.argv[2]
out = subprocess.run([sys.executable, script], capture_output=True, check=True).stdout
have = open(committed, "rb").read()
if out == have:
    print(f"{committed}: as {script} prints it")
    sys.exit(0)
diff = difflib.unified_diff(have.decode().splitlines(), out.decode().splitlines(), committed,
                            script, lineterm="", n=1)
print("\n".join(list(diff)[:40]))
sys.exit(1)
