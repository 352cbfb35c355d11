#!/usr/bin/python3
"""Reference results for the quadrature test battery.

Reads tests/calculus/quadrature_battery.inc (the one definition of the
integrands, shared with the C++ tests) and writes, for each integrand, limits
as given and reversed, one line:

    name direction result abserr neval last ier

with reals as exact hexadecimal floats.  Run from the repository root:

    /usr/bin/python3 tools/quadrature_reference.py > tests/data/quadrature_battery.txt
    /usr/bin/python3 tools/quadrature_reference.py --qag61 > tests/data/quadrature_qag61.txt
    /usr/bin/python3 tools/quadrature_reference.py --qagi > tests/data/quadrature_qagi.txt
    /usr/bin/python3 tools/quadrature_reference.py --qagp > tests/data/quadrature_qagp.txt
    /usr/bin/python3 tools/quadrature_reference.py --qng > tests/data/quadrature_qng.txt
    /usr/bin/python3 tools/quadrature_reference.py --qawc > tests/data/quadrature_qawc.txt
    /usr/bin/python3 tools/quadrature_reference.py --qaws > tests/data/quadrature_qaws.txt
    /usr/bin/python3 tools/quadrature_reference.py --qag-keys > tests/data/quadrature_qag_keys.txt
    /usr/bin/python3 tools/quadrature_reference.py --qawo > tests/data/quadrature_qawo.txt
    /usr/bin/python3 tools/quadrature_reference.py --qawf > tests/data/quadrature_qawf.txt

The third, QUADPACK's QAGI (DQAGIE, SciPy's compiled Fortran, D01AMF), is for
the integrands of tests/calculus/quadrature_infinite.inc, one line each
(direction "given"); the fourth, QUADPACK's QAGP (DQAGPE, D01ALF), for the
integrands with break points of tests/calculus/quadrature_breaks.inc, limits
as given and reversed; the fifth, GSL's gsl_integration_qng (QNG; SciPy
does not expose it) through ctypes, for D01BDF on the first battery (LIMIT
not used); the sixth, QUADPACK's QAWC (DQAWCE, SciPy, D01AQF), for the
principal values of tests/calculus/quadrature_cauchy.inc, both directions;
the seventh, QUADPACK's QAWS (DQAWSE, SciPy, D01APF), for the weighted
integrands of tests/calculus/quadrature_algebraic.inc (direction "forward":
QAWS needs A < B); the eighth, GSL's gsl_integration_qag with each of the
six rules (D01AUF's KEY 1 to 6), for the first battery, the direction
column carrying the key ("forward3"); the ninth, QUADPACK's QAWO (DQAWOE,
SciPy, D01ANF, with the 21 levels of moments of the published driver
DQAWO), for tests/calculus/quadrature_oscillatory.inc, both directions; the
tenth, QUADPACK's QAWF (DQAWFE, SciPy, D01ASF, 21 levels of moments), for
tests/calculus/quadrature_fourier.inc (direction "given", the column last
holding LST).
The first is QUADPACK's QAGS, the published Fortran DQAGSE as compiled into
Debian's python3-scipy (D01AJF).  SciPy does not expose QAG, so the second is
GSL's gsl_integration_qag with the 61-point rule (GSL_INTEG_GAUSS61), called
through ctypes from libgsl (D01AKF): GSL's QAG is checked by GSL against the
Fortran's output.  Rows with LIMIT = 1 are left out of the second table (there
the published QAG always ends with IER = 1 and GSL does not), and so are the
rows where the integrand is asked for at its pole (Python raises where C
gives an infinity).  The evaluations
are counted by the Python integrand.  Needs python3-scipy and libgsl (not
needed by the test suite, which reads the tables).
"""

import ctypes
import ctypes.util
import math
import re
import sys
from pathlib import Path

from scipy.integrate import _quadpack

NAMES = {n: getattr(math, n) for n in ("sqrt", "exp", "log", "sin", "cos", "atan", "fabs", "floor")}
NAMES["pow"] = math.pow


def battery(path, macro="BATTERY"):
    rows = []
    for line in Path(path).read_text().splitlines():
        m = re.match(r"^" + macro + r"\((\w+), (.*)\)$", line)
        if not m:
            continue
        expr, *tail = m.group(2).rsplit(", ", 5)
        a, b, epsabs, epsrel = (float(t) for t in tail[:4])
        rows.append((m.group(1), expr, a, b, epsabs, epsrel, int(tail[4])))
    return rows


def qagi(f, bound, inf, epsabs, epsrel, limit):
    result, abserr, info, ier = _quadpack._qagie(f, bound, int(inf), (), 1, epsabs, epsrel, limit)
    return result, abserr, info["neval"], info["last"], ier


def qng(gsl, f, lo, hi, epsabs, epsrel):
    """gsl_integration_qng through ctypes: result, abserr, neval, 1, ier."""
    calls, raised = [0], []

    def g(x, _):
        calls[0] += 1
        try:
            return f(x)
        except (ArithmeticError, ValueError) as e:
            raised.append(e)
            return 0.0

    fn = gsl.Function(gsl.FUNC(g), None)
    result, abserr, neval = ctypes.c_double(), ctypes.c_double(), ctypes.c_size_t()
    status = gsl.lib.gsl_integration_qng(ctypes.byref(fn), ctypes.c_double(lo), ctypes.c_double(hi),
                                         ctypes.c_double(epsabs), ctypes.c_double(epsrel),
                                         ctypes.byref(result), ctypes.byref(abserr),
                                         ctypes.byref(neval))
    if raised or status not in (0, 14):  # success, GSL_ETOL
        return None
    return result.value, abserr.value, neval.value, 1, 0 if status == 0 else 1


def qags(f, lo, hi, epsabs, epsrel, limit):
    result, abserr, info, ier = _quadpack._qagse(f, lo, hi, (), 1, epsabs, epsrel, limit)
    return result, abserr, info["neval"], info["last"], ier


class Gsl:
    """gsl_integration_qag with the 61-point rule, through ctypes."""
    FUNC = ctypes.CFUNCTYPE(ctypes.c_double, ctypes.c_double, ctypes.c_void_p)

    class Function(ctypes.Structure):
        pass

    class Workspace(ctypes.Structure):
        _fields_ = [("limit", ctypes.c_size_t), ("size", ctypes.c_size_t)]

    STATUS = {0: 0, 11: 1, 18: 2, 21: 3}  # success, EMAXITER, EROUND, ESING

    def __init__(self):
        self.Function._fields_ = [("function", self.FUNC), ("params", ctypes.c_void_p)]
        self.lib = ctypes.CDLL(ctypes.util.find_library("gsl"))
        self.lib.gsl_set_error_handler_off()
        self.lib.gsl_integration_workspace_alloc.restype = ctypes.POINTER(self.Workspace)

    def qag61(self, f, lo, hi, epsabs, epsrel, limit, key=6):
        calls, raised = [0], []

        def g(x, _):
            calls[0] += 1
            try:
                return f(x)
            except (ArithmeticError, ValueError) as e:  # Python's, where C gives inf or NaN
                raised.append(e)
                return 0.0

        fn = self.Function(self.FUNC(g), None)
        ws = self.lib.gsl_integration_workspace_alloc(ctypes.c_size_t(limit))
        result, abserr = ctypes.c_double(), ctypes.c_double()
        status = self.lib.gsl_integration_qag(
            ctypes.byref(fn), ctypes.c_double(lo), ctypes.c_double(hi), ctypes.c_double(epsabs),
            ctypes.c_double(epsrel), ctypes.c_size_t(limit), ctypes.c_int(key), ws,
            ctypes.byref(result), ctypes.byref(abserr))
        last = ws.contents.size
        self.lib.gsl_integration_workspace_free(ws)
        if raised:
            return None
        return result.value, abserr.value, calls[0], last, self.STATUS[status]


def main_breaks(root):
    print("# QUADPACK QAGP (DQAGPE) reference: name direction result abserr neval last ier")
    print("# written by tools/quadrature_reference.py from tests/calculus/quadrature_breaks.inc")
    for line in (root / "tests/calculus/quadrature_breaks.inc").read_text().splitlines():
        m = re.match(r"^BREAKS\((\w+), (.*)\)$", line)
        if not m:
            continue
        name = m.group(1)
        expr, *tail = m.group(2).rsplit(", ", 9)
        a, b = (eval(t, {"__builtins__": {}}) for t in tail[:2])
        npts = int(tail[2])
        points = [float(eval(t, {"__builtins__": {}})) for t in tail[3:3 + npts]]
        epsabs, epsrel, limit = float(tail[6]), float(tail[7]), int(tail[8])
        code = compile(expr, name, "eval")

        def f(x, code=code):
            return float(eval(code, {"__builtins__": {}}, dict(NAMES, x=x)))

        for direction, (lo, hi) in (("forward", (a, b)), ("reversed", (b, a))):
            result, abserr, info, ier = _quadpack._qagpe(f, float(lo), float(hi), points + [0.0, 0.0], (), 1,
                                                         epsabs, epsrel, limit)
            print(f"{name} {direction} {float(result).hex()} {float(abserr).hex()} "
                  f"{info['neval']} {info['last']} {ier}")


def main_cauchy(root):
    print("# QUADPACK QAWC (DQAWCE) reference: name direction result abserr neval last ier")
    print("# written by tools/quadrature_reference.py from tests/calculus/quadrature_cauchy.inc")
    for line in (root / "tests/calculus/quadrature_cauchy.inc").read_text().splitlines():
        m = re.match(r"^CAUCHY\((\w+), (.*)\)$", line)
        if not m:
            continue
        name = m.group(1)
        expr, *tail = m.group(2).rsplit(", ", 6)
        a, b, c, epsabs, epsrel = (float(t) for t in tail[:5])
        limit = int(tail[5])
        code = compile(expr, name, "eval")

        def f(x, code=code):
            return float(eval(code, {"__builtins__": {}}, dict(NAMES, x=x)))

        for direction, (lo, hi) in (("forward", (a, b)), ("reversed", (b, a))):
            result, abserr, info, ier = _quadpack._qawce(f, lo, hi, c, (), 1, epsabs, epsrel, limit)
            print(f"{name} {direction} {float(result).hex()} {float(abserr).hex()} "
                  f"{info['neval']} {info['last']} {ier}")


def c_log(x):
    return -math.inf if x == 0.0 else math.log(x)


def main_algebraic(root):
    print("# QUADPACK QAWS (DQAWSE) reference: name direction result abserr neval last ier")
    print("# written by tools/quadrature_reference.py from tests/calculus/quadrature_algebraic.inc")
    for line in (root / "tests/calculus/quadrature_algebraic.inc").read_text().splitlines():
        m = re.match(r"^ALGLOG\((\w+), (.*)\)$", line)
        if not m:
            continue
        name = m.group(1)
        expr, *tail = m.group(2).rsplit(", ", 8)
        a, b, alfa, beta = (float(t) for t in tail[:4])
        key = int(tail[4])
        epsabs, epsrel, limit = float(tail[5]), float(tail[6]), int(tail[7])
        code = compile(expr, name, "eval")

        def f(x, code=code):  # DQC25S asks for the ends, where C's log(0) is -inf
            return float(eval(code, {"__builtins__": {}}, dict(NAMES, log=c_log, x=x)))

        result, abserr, info, ier = _quadpack._qawse(f, a, b, (alfa, beta), key, (), 1, epsabs,
                                                     epsrel, limit)
        print(f"{name} forward {float(result).hex()} {float(abserr).hex()} "
              f"{info['neval']} {info['last']} {ier}")


def main_oscillatory(root):
    print("# QUADPACK QAWO (DQAWOE) reference: name direction result abserr neval last ier")
    print("# written by tools/quadrature_reference.py from tests/calculus/quadrature_oscillatory.inc")
    for line in (root / "tests/calculus/quadrature_oscillatory.inc").read_text().splitlines():
        m = re.match(r"^OSCILLATORY\((\w+), (.*)\)$", line)
        if not m:
            continue
        name = m.group(1)
        expr, *tail = m.group(2).rsplit(", ", 7)
        a, b = float(tail[0]), float(tail[1])
        omega = float(eval(tail[2], {"__builtins__": {}}))
        key = int(tail[3])
        epsabs, epsrel, limit = float(tail[4]), float(tail[5]), int(tail[6])
        code = compile(expr, name, "eval")

        def f(x, code=code):  # DQC25F asks for the ends, where C's log(0) is -inf
            try:
                return float(eval(code, {"__builtins__": {}}, dict(NAMES, log=c_log, x=x)))
            except ZeroDivisionError:
                return math.inf

        for direction, (lo, hi) in (("forward", (a, b)), ("reversed", (b, a))):
            result, abserr, info, ier = _quadpack._qawoe(f, lo, hi, omega, key, (), 1, epsabs,
                                                         epsrel, limit, 21, 1)
            print(f"{name} {direction} {float(result).hex()} {float(abserr).hex()} "
                  f"{info['neval']} {info['last']} {ier}")


def main_fourier(root):
    print("# QUADPACK QAWF (DQAWFE) reference: name direction result abserr neval lst ier")
    print("# written by tools/quadrature_reference.py from tests/calculus/quadrature_fourier.inc")
    for line in (root / "tests/calculus/quadrature_fourier.inc").read_text().splitlines():
        m = re.match(r"^FOURIER\((\w+), (.*)\)$", line)
        if not m:
            continue
        name = m.group(1)
        expr, *tail = m.group(2).rsplit(", ", 6)
        a, omega = float(tail[0]), float(tail[1])
        key = int(tail[2])
        epsabs, limlst, limit = float(tail[3]), int(tail[4]), int(tail[5])
        code = compile(expr, name, "eval")

        def f(x, code=code):
            return float(eval(code, {"__builtins__": {}}, dict(NAMES, x=x)))

        result, abserr, info, ier = _quadpack._qawfe(f, a, omega, key, (), 1, epsabs, limlst,
                                                     limit, 21)
        print(f"{name} given {float(result).hex()} {float(abserr).hex()} "
              f"{info['neval']} {info['lst']} {ier}")


def main_keys(root):
    gsl = Gsl()
    print("# GSL qag reference, keys 1 to 6: name direction+key result abserr neval last ier")
    print("# written by tools/quadrature_reference.py from tests/calculus/quadrature_battery.inc")
    for name, expr, a, b, epsabs, epsrel, limit in battery(root / "tests/calculus/quadrature_battery.inc"):
        if limit == 1:
            continue
        code = compile(expr, name, "eval")

        def f(x, code=code):
            return float(eval(code, {"__builtins__": {}}, dict(NAMES, x=x)))

        for key in range(1, 7):
            for direction, (lo, hi) in (("forward", (a, b)), ("reversed", (b, a))):
                row = gsl.qag61(f, lo, hi, epsabs, epsrel, limit, key)
                if row is None:
                    continue
                result, abserr, neval, last, ier = row
                print(f"{name} {direction}{key} {float(result).hex()} {float(abserr).hex()} "
                      f"{neval} {last} {ier}")


def main_infinite(root):
    print("# QUADPACK QAGI (DQAGIE) reference: name direction result abserr neval last ier")
    print("# written by tools/quadrature_reference.py from tests/calculus/quadrature_infinite.inc")
    for name, expr, bound, inf, epsabs, epsrel, limit in battery(
            root / "tests/calculus/quadrature_infinite.inc", "INFINITE"):
        code = compile(expr, name, "eval")

        def f(x, code=code):
            return float(eval(code, {"__builtins__": {}}, dict(NAMES, x=x)))

        result, abserr, neval, last, ier = qagi(f, bound, inf, epsabs, epsrel, limit)
        print(f"{name} given {float(result).hex()} {float(abserr).hex()} {neval} {last} {ier}")


def main():
    root = Path(__file__).resolve().parent.parent
    if "--qagi" in sys.argv:
        return main_infinite(root)
    if "--qagp" in sys.argv:
        return main_breaks(root)
    if "--qawc" in sys.argv:
        return main_cauchy(root)
    if "--qaws" in sys.argv:
        return main_algebraic(root)
    if "--qawo" in sys.argv:
        return main_oscillatory(root)
    if "--qawf" in sys.argv:
        return main_fourier(root)
    if "--qag-keys" in sys.argv:
        return main_keys(root)
    qag = "--qag61" in sys.argv
    method = Gsl().qag61 if qag else qags
    what = "GSL qag, 61-point rule" if qag else "QUADPACK QAGS (DQAGSE)"
    if "--qng" in sys.argv:
        gsl = Gsl()
        method = lambda f, lo, hi, ea, er, limit: qng(gsl, f, lo, hi, ea, er)  # noqa: E731
        what = "GSL qng (last is 1)"
    print(f"# {what} reference: name direction result abserr neval last ier")
    print("# written by tools/quadrature_reference.py from tests/calculus/quadrature_battery.inc")
    for name, expr, a, b, epsabs, epsrel, limit in battery(root / "tests/calculus/quadrature_battery.inc"):
        if qag and limit == 1:
            continue
        code = compile(expr, name, "eval")

        def f(x, code=code):
            return float(eval(code, {"__builtins__": {}}, dict(NAMES, x=x)))

        for direction, (lo, hi) in (("forward", (a, b)), ("reversed", (b, a))):
            row = method(f, lo, hi, epsabs, epsrel, limit)
            if row is None:
                print(f"{name} {direction}: left out (the integrand raised, or GSL refused)",
                      file=sys.stderr)
                continue
            result, abserr, neval, last, ier = row
            print(f"{name} {direction} {float(result).hex()} {float(abserr).hex()} "
                  f"{neval} {last} {ier}")


if __name__ == "__main__":
    sys.exit(main())
