#!/usr/bin/env python3
"""The shared library's dynamic symbols are exactly the catalogue's exports."""
import subprocess
import sys

lib, listing = sys.argv[1], sys.argv[2]
out = subprocess.run(["nm", "-D", "--defined-only", lib], capture_output=True, text=True, check=True)
have = {line.split()[-1] for line in out.stdout.splitlines() if line.split()[1] in "TtWwiD"}
have = {s.split("@")[0] for s in have}
want = set(open(listing).read().split())
missing, extra = sorted(want - have), sorted(have - want)
if missing:
    print("not exported:", " ".join(missing[:40]))
if extra:
    print("exported but not in the catalogue:", " ".join(extra[:40]))
print(f"{len(have)} symbols checked")
sys.exit(1 if missing or extra else 0)
