#!/usr/bin/python3
"""Reference results of QUADPACK's QAGS (the published Fortran DQAGSE as
compiled into Debian's python3-scipy) for the D01AJF test battery.

Reads tests/calculus/quadrature_battery.inc (the one definition of the
integrands, shared with the C++ tests) and writes, for each integrand, limits
as given and reversed, one line:

    name direction result abserr neval last ier

with reals as exact hexadecimal floats.  Run from the repository root:

    /usr/bin/python3 tools/quadrature_reference.py > tests/data/quadrature_battery.txt

Needs python3-scipy (not needed by the test suite, which reads the table).
"""

import math
import re
import sys
from pathlib import Path

from scipy.integrate import _quadpack

NAMES = {n: getattr(math, n) for n in ("sqrt", "exp", "log", "sin", "cos", "atan", "fabs", "floor")}
NAMES["pow"] = math.pow


def battery(path):
    rows = []
    for line in Path(path).read_text().splitlines():
        m = re.match(r"^BATTERY\((\w+), (.*)\)$", line)
        if not m:
            continue
        expr, *tail = m.group(2).rsplit(", ", 5)
        a, b, epsabs, epsrel = (float(t) for t in tail[:4])
        rows.append((m.group(1), expr, a, b, epsabs, epsrel, int(tail[4])))
    return rows


def main():
    root = Path(__file__).resolve().parent.parent
    print("# QUADPACK QAGS (DQAGSE) reference: name direction result abserr neval last ier")
    print("# written by tools/quadrature_reference.py from tests/calculus/quadrature_battery.inc")
    for name, expr, a, b, epsabs, epsrel, limit in battery(root / "tests/calculus/quadrature_battery.inc"):
        code = compile(expr, name, "eval")

        def f(x, code=code):
            return float(eval(code, {"__builtins__": {}}, dict(NAMES, x=x)))

        for direction, (lo, hi) in (("forward", (a, b)), ("reversed", (b, a))):
            result, abserr, info, ier = _quadpack._qagse(f, lo, hi, (), 1, epsabs, epsrel, limit)
            print(f"{name} {direction} {float(result).hex()} {float(abserr).hex()} "
                  f"{info['neval']} {info['last']} {ier}")


if __name__ == "__main__":
    sys.exit(main())
