#!/usr/bin/env python3
"""Writes tests/data/linalg_error_exits.txt, the error-exit cases of the F07/F08 own path.

    python3 tools/linalg_error_exits.py LAPACK_SOURCE_DIR [--linalg DIR] [--out FILE]

LAPACK_SOURCE_DIR is an unpacked reference LAPACK 3.11 source tree (its SRC/
folder holds dgetri.f, ...).  Run by a developer, not by the build; the table
is committed.

For every paired row of linalg/routines-f07.toml and routines-f08.toml whose
own path is the reference routine (own = "private"), the tool reads the
standard routine's prototype from the chapter's catalogue files and the
routine's reference source, and writes:

* one valid call: options set to the first value the source tests with
  LSAME, dimensions 0, leading dimensions 1, workspace lengths 1000, every
  other integer 0 unless the source's checks need more (SMLSIZ >= 3, ...);
* for every argument the source's checks report (each ``INFO = -k`` of the
  check block between the first ``INFO = 0`` and the first ``CALL XERBLA``, or
a later one where more checks follow closely),
  the same call with argument k made bad and expected argument number k.

The check block is read, not guessed: its IF/ELSE IF/END IF nesting, its
logical IFs and its scalar assignments (``UPPER = LSAME( UPLO, 'U' )``,
``LQUERY = ( LWORK.EQ.-1 )``, ``LWMIN = MAX( 1, 26*N )``) are kept; each
condition is evaluated in Python with the call's values (ILAENV and other
unknown quantities taken as 1).  A bad value is the first candidate (option
'/'; leading dimensions and workspace lengths 0, then -1; other integers -1,
0, 2, ...; reals -1, 2) that makes its own check and every enclosing IF
true while every other check of the block stays false on the call without
it; where the valid call must change for the check to be reached (RANGE =
'V' before VU is tested, N = 1 where the test is guarded by N > 0) the case
carries those changes before the bad argument.  Checks of array contents
and checks no candidate reaches are listed as comments.

Table lines (fields separated by " | "):

    CHAPTER STANDARD | ARG:TYPE[=VALUE] ... | CHANGES | EXPECTED

TYPE is i (integer), d (double), z (double complex), s (single), c (single
complex), l (logical), a (character option); a trailing [] marks an array
(allocated by the test and filled with canaries); a scalar without a value
is an output.  CHANGES is "-" for the valid call or NAME=VALUE words, the last
one the bad argument (the last two in a case of check order: the argument the
source checks first is reported), the earlier ones adjustments of the valid
call.
EXPECTED is the argument number the reference source reports (0: none).
"""

from __future__ import annotations

import argparse
import itertools
import re
import sys
import tomllib
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "exports"))
import catalogue  # noqa: E402

TYPE_CODES = {"integer": "i", "real": "d", "complex": "z", "single": "s", "csingle": "c",
              "logical": "l", "character": "a"}
WORK_LENGTH = 1000
BAD_OPTION = "/"


# ---------------------------------------------------------------- prototypes

def read_arg(text: str, routine: str):
    """(name, type, is_array, intent) of one prototype argument."""
    typ = text.split()[0]
    # The single-precision types are read as real/complex by older catalogue modules.
    probe = text
    if typ in ("single", "csingle") and typ not in catalogue._ARG_RE.pattern:
        probe = ("real" if typ == "single" else "complex") + text[len(typ):]
    a = catalogue.parse_arg(probe, routine)
    return a.name, typ if typ in ("single", "csingle") else a.type, a.is_array, a.intent


def load_rows(linalg: Path):
    standards: dict[str, list] = {}
    rows = []
    for p in sorted(linalg.glob("routines*.toml")):
        data = tomllib.loads(p.read_text())
        for name, table in data.get("standard", {}).items():
            standards[name] = [read_arg(t, name) for t in table.get("args", [])]
        if p.name in ("routines-f07.toml", "routines-f08.toml"):
            rows += [r for r in data.get("paired", []) if r.get("own") == "private"]
    out = []
    for r in rows:
        if r["standard"] not in standards:
            raise SystemExit(f"{r['name']}: no prototype for {r['standard']}")
        out.append((r["name"], r["standard"], standards[r["standard"]]))
    return out


# ------------------------------------------------------------ Fortran reading

def statements(source: str) -> list[str]:
    """Executable lines, upper case, continuations joined, comments dropped."""
    out: list[str] = []
    for line in source.splitlines():
        if not line or line[0] in "*Cc!":
            continue
        line = line.rstrip()
        if "!" in line:
            line = line[: line.index("!")]
        if len(line) > 5 and line[5] not in " 0" and out:
            out[-1] += " " + line[6:].strip()
        else:
            out.append(line[6:].strip() if len(line) > 6 else "")
    return [s.upper() for s in out if s]


def split_paren(text: str) -> tuple[str, str]:
    """Text starting with '(' -> (inside, rest after the matching ')')."""
    depth = 0
    for i, ch in enumerate(text):
        depth += ch == "("
        depth -= ch == ")"
        if depth == 0:
            return text[1:i], text[i + 1:].strip()
    raise ValueError(text)


def split_top(text: str) -> list[str]:
    """Comma-separated items outside parentheses."""
    out, depth, cur = [], 0, ""
    for ch in text:
        if ch == "," and depth == 0:
            out.append(cur)
            cur = ""
            continue
        depth += ch == "("
        depth -= ch == ")"
        cur += ch
    return out + [cur]


class Block:
    """The check block: checks (k, guards), assignments (var, guards, expr)."""

    def __init__(self, stmts: list[str]):
        self.checks: dict[int, list[str]] = {}
        self.assign: dict[str, list[tuple[list[str], str]]] = {}
        self.letters: dict[str, list[str]] = {}
        for s in stmts:
            found = re.findall(r"LSAME\(\s*([A-Z0-9_]+)\s*,\s*'(.)'\s*\)", s)
            found += re.findall(r"\b([A-Z][A-Z0-9_]*)\s*\.EQ\.\s*'(.)'", s)  # UPLO.EQ.'U'
            for opt, letter in found:
                letter = letter.upper()
                self.letters.setdefault(opt, [])
                if letter not in self.letters[opt]:
                    self.letters[opt].append(letter)
        self.called: set[str] = set()  # names passed to a CALL in the block
        self.started = False  # checks count from the first INFO = 0
        self.returns: list[list[str]] = []  # guards of each RETURN before the report
        self.before: dict[int, int] = {}  # check -> how many RETURNs precede it
        # Each open IF: the conditions of its branches so far; the last is active.
        stack: list[list[str]] = []
        for s in stmts[: self.end(stmts)]:
            if s.startswith("CALL XERBLA"):
                continue
            m = re.match(r"^(ELSE\s*IF|IF)\s*(\(.*)$", s)
            if m:
                cond, rest = split_paren(m.group(2))
                if rest == "THEN":
                    if m.group(1) == "IF":
                        stack.append([cond])
                    else:
                        stack[-1].append(cond)
                    continue
                self.simple(rest, self.guards(stack) + [cond])
                continue
            if s == "ELSE":
                stack[-1].append(".TRUE.")
            elif re.fullmatch(r"END\s*IF", s):
                stack.pop()
            else:
                self.simple(s, self.guards(stack))

    @staticmethod
    def end(stmts: list[str]) -> int:
        """The check block ends at the first report, or at a later one when
        more checks follow it closely (workspace checked once options are)."""
        reports = [i for i, s in enumerate(stmts) if s.startswith("CALL XERBLA")]
        if not reports:
            return len(stmts)
        end = reports[0]
        for nxt in reports[1:]:
            between = stmts[end + 1:nxt]
            if nxt - end > 60 or not any(re.fullmatch(r"INFO\s*=\s*-\s*\d+", s) for s in between):
                break
            end = nxt
        return end

    @staticmethod
    def guards(stack: list[list[str]]) -> list[str]:
        """The active branch of every open IF: its condition, earlier ones false."""
        out = []
        for branches in stack:
            out += [f".NOT.({c})" for c in branches[:-1]] + [branches[-1]]
        return out

    def simple(self, s: str, guards: list[str]):
        m = re.fullmatch(r"CALL\s+[A-Z0-9_]+\s*\((.*)\)", s)
        if m:
            # What a called routine sets is not known here.
            self.called |= {w.strip() for w in split_top(m.group(1))}
            return
        m = re.fullmatch(r"PARAMETER\s*\((.*)\)", s)
        if m:
            for item in split_top(m.group(1)):
                name, _, expr = item.partition("=")
                self.assign.setdefault(name.strip(), []).append(([], expr.strip()))
            return
        if re.fullmatch(r"INFO\s*=\s*0", s):
            self.started = True
            return
        m = re.fullmatch(r"INFO\s*=\s*-\s*(\d+)", s)
        if m and self.started:
            k = int(m.group(1))
            if k not in self.checks:
                self.checks[k] = guards
                self.before[k] = len(self.returns)
            return
        if s == "RETURN":
            self.returns.append(guards)
            return
        m = re.fullmatch(r"([A-Z][A-Z0-9_]*)\s*=\s*(.+)", s)
        if m and m.group(1) != "INFO":
            self.assign.setdefault(m.group(1), []).append((guards, m.group(2)))


def to_python(expr: str) -> str:
    e = expr
    for f, p in ((".LT.", " < "), (".LE.", " <= "), (".GT.", " > "), (".GE.", " >= "),
                 (".EQ.", " == "), (".NE.", " != "), (".AND.", " and "), (".OR.", " or "),
                 (".NOT.", " not "), (".TRUE.", " True "), (".FALSE.", " False ")):
        e = e.replace(f, p)
    e = re.sub(r"(\d)[DE]([+-]?\d)", r"\1e\2", e)
    return e


class Unknown(Exception):
    pass


class Env(dict):
    """Names of one call: arguments, then the block's assignments, else 1."""

    def __init__(self, block: Block, values: dict):
        super().__init__(values)
        self.block = block
        self.busy: set[str] = set()
        self["INFO"] = 0

    def __missing__(self, name):
        if name in FUNCTIONS:
            return FUNCTIONS[name]
        if name in self.block.called:
            raise KeyError(name)
        if name in self.busy or name not in self.block.assign:
            return 1
        self.busy.add(name)
        try:
            value = 1
            for guards, expr in self.block.assign[name]:
                try:
                    if all(self.ev(g) for g in guards):
                        value = self.ev(expr)
                except Unknown:
                    pass
            return value
        finally:
            self.busy.discard(name)

    def ev(self, expr: str):
        try:
            return eval(to_python(expr), {"__builtins__": {}}, self)  # noqa: S307
        except Exception as e:  # an expression the evaluator cannot read
            raise Unknown(f"{expr}: {e}") from e


def lsame(a, b):
    return isinstance(a, str) and a.upper() == b.upper()


FUNCTIONS = {"LSAME": lsame, "MAX": max, "MIN": min, "ABS": abs, "INT": int,
             "DBLE": float, "REAL": float, "MOD": lambda a, b: a % b,
             "ILAENV": lambda *a: 1, "ILAENV2STAGE": lambda *a: 1,
             "DLAMCH": lambda *a: 1.0, "SLAMCH": lambda *a: 1.0,
             "SQRT": lambda x: x ** 0.5, "NINT": round, "LOG": lambda x: 1.0}


# ------------------------------------------------------------------- cases

def base_value(name: str, typ: str):
    if typ == "character":
        return None  # from the source's letters
    if typ == "integer":
        if name.startswith("LD"):
            return 1
        if name.startswith("L") and name.endswith("WORK"):
            return WORK_LENGTH
        return {"ILO": 1, "IL": 1}.get(name, 0)
    if typ == "logical":
        return False
    return {"VU": 1.0}.get(name, 0.0)


def candidates(name: str, typ: str):
    if typ == "character":
        return [BAD_OPTION]
    if typ == "integer":
        if name.startswith("LD") or (name.startswith("L") and name.endswith("WORK")):
            return [0, -1]
        return [-1, 0, 2, 3, 1000000]
    if typ in ("real", "single"):
        return [-1.0, 2.0, 0.0]
    return []


def fmt(value) -> str:
    if isinstance(value, bool):
        return "T" if value else "F"
    if isinstance(value, float):
        return repr(value)
    return str(value)


class Routine:
    def __init__(self, chapter: str, standard: str, args, source: str):
        self.chapter, self.standard, self.args = chapter, standard, args
        self.block = Block(statements(source))
        self.base: dict[str, object] = {}
        for name, typ, is_array, intent in args:
            if is_array or intent == "out":
                continue
            if typ == "character":
                self.base[name] = (self.block.letters.get(name) or ["N"])[0]
            else:
                self.base[name] = base_value(name, typ)
        self.notes: list[str] = []

    def true(self, k: int, values: dict) -> bool:
        env = Env(self.block, values)
        for guards in self.block.returns[: self.block.before[k]]:
            if all(env.ev(g) for g in guards):
                return False  # a quick return comes first
        return all(env.ev(g) for g in self.block.checks[k])

    def reported(self, values: dict) -> list[int]:
        out = []
        for k in self.block.checks:
            try:
                if self.true(k, values):
                    out.append(k)
            except Unknown:
                # Checks of array contents (IBLOCK ordered, ...) are not
                # evaluated; the canaries keep loops over them empty or short.
                if k > len(self.args) or not self.args[k - 1][2]:
                    out.append(-k)
        return out

    def repair(self, values: dict, frozen) -> tuple[dict, list] | None:
        """Change arguments outside `frozen` until no check refuses the call
        (SMLSIZ >= 3, JOBZ = 'N' where only that is supported, ...)."""
        values, changed = dict(values), []
        for _ in range(len(self.args)):
            bad = [k for k in self.reported(values) if k > 0]
            if not bad:
                return values, changed
            name, typ, is_array, intent = self.args[bad[0] - 1]
            if name in frozen or is_array or intent == "out":
                return None
            if typ == "character":
                tries = self.block.letters.get(name, [])
            elif typ == "integer":
                tries = [1, 2, 3, 25, WORK_LENGTH]
            elif typ in ("real", "single"):
                tries = [0.0, 1.0, 2.0]
            else:
                tries = []
            # The refused argument alone, or with a dimension of its check
            # raised to 1 (IFST within 1..N needs N >= 1).
            check = " ".join(self.block.checks[bad[0]])
            helpers = [()] + [((n, 1),) for n, t, arr, it in self.args
                              if t == "integer" and not arr and it != "out" and n not in frozen
                              and n != name and values.get(n) == 0 and re.search(rf"\b{n}\b", check)]
            for helper, v in itertools.product(helpers, tries):
                trial = {**values, **dict(helper), name: v}
                try:
                    if v != values[name] and not self.true(bad[0], trial):
                        values = trial
                        changed += list(helper) + [(name, v)]
                        break
                except Unknown:
                    continue
            else:
                return None
        return None

    def fix_base(self):
        fixed = self.repair(self.base, ())
        if fixed is None:
            return False
        self.base = fixed[0]
        return True

    def adjustments(self):
        """Changes of the valid call, fewest first."""
        single = []
        for name, typ, is_array, intent in self.args:
            if is_array or intent == "out":
                continue
            if typ == "character":
                single += [(name, c) for c in self.block.letters.get(name, []) if c != self.base[name]]
            elif typ == "integer" and self.base[name] == 0:
                single += [(name, 1)]
        yield ()
        for s in single:
            yield (s,)
        for s, t in itertools.combinations(single, 2):
            if s[0] != t[0]:
                yield (s, t)

    def case(self, k: int, letters: bool = False):
        """Changes making argument k bad; with `letters`, bad by a value the
        source accepts on its own but refuses with the other options
        (JOBU = 'O' with JOBVT = 'O')."""
        name, typ, is_array, intent = self.args[k - 1]
        if is_array or intent == "out":
            # A number that is not the position of the argument its check
            # tests (LWORK reported as 24 of 24): the one scalar input named.
            check = self.block.checks[k][-1] if self.block.checks[k] else ""
            named = [a for a in self.args if not a[2] and a[3] != "out" and a[0] != "INFO"
                     and re.search(rf"\b{a[0]}\b", check)]
            if len(named) != 1:
                return None, f"argument {k} ({name}) is an array or an output"
            name, typ, is_array, intent = named[0]
        for adj in self.adjustments():
            if any(n == name for n, _ in adj):
                continue
            try:
                # The bad argument itself may need a valid value first (IFST
                # within 1..N once N > 0): the bad value replaces it.
                fixed = self.repair({**self.base, **dict(adj)}, {n for n, _ in adj})
                if fixed is None or self.reported(fixed[0]):
                    continue
                values = fixed[0]
                extra = [(n, v) for n, v in fixed[1] if n != name]
                tries = self.block.letters.get(name, []) if letters else candidates(name, typ)
                for bad in tries:
                    if bad != values[name] and self.reported({**values, name: bad}) == [k]:
                        return list(adj) + extra + [(name, bad)], None
            except Unknown:
                continue
        return None, f"argument {k} ({name}): no candidate reaches its check"

    def lines(self) -> list[str]:
        head = f"{self.chapter} {self.standard}"
        if not self.fix_base():
            return [f"# {head}: no valid call found ({self.reported(self.base)})"]
        words = []
        for name, typ, is_array, intent in self.args:
            code = TYPE_CODES[typ] + ("[]" if is_array else "")
            if name in self.base:
                code += "=" + fmt(self.base[name])
            words.append(f"{name}:{code}")
        call = " ".join(words)
        out = [f"{head} | {call} | - | 0"]
        single: dict[int, list] = {}
        for k in sorted(self.block.checks):
            if k > len(self.args):
                out.append(f"# {head}: check {k} beyond the argument list")
                continue
            changes, why = self.case(k)
            if changes is None:
                out.append(f"# {head}: {why}")
                continue
            single[k] = changes
            text = " ".join(f"{n}={fmt(v)}" for n, v in changes)
            out.append(f"{head} | {call} | {text} | {k}")
            if self.args[k - 1][1] == "character" and not self.args[k - 1][2]:
                combined, _ = self.case(k, letters=True)
                if combined is not None:
                    text = " ".join(f"{n}={fmt(v)}" for n, v in combined)
                    out.append(f"{head} | {call} | {text} | {k}")
        for changes, k in self.order_cases(single):
            text = " ".join(f"{n}={fmt(v)}" for n, v in changes)
            out.append(f"{head} | {call} | {text} | {k}")
        return out

    def order_cases(self, single: dict[int, list]):
        """Two bad arguments at once: the one the source checks first is
        reported.  One pair where that is the later argument, if any, and the
        pair of the last two checks that resolve."""
        found = []
        for k1, k2 in itertools.combinations(sorted(single), 2):
            merged = dict(single[k1][:-1])
            if any(merged.get(n, v) != v for n, v in single[k2][:-1]):
                continue
            merged.update(dict(single[k2][:-1]))
            bad = [single[k1][-1], single[k2][-1]]
            if bad[0][0] == bad[1][0] or any(n in merged for n, _ in bad):
                continue
            try:
                got = self.reported({**self.base, **merged, **dict(bad)})
            except Unknown:
                continue
            if len(got) == 1 and got[0] in (k1, k2):
                found.append((list(merged.items()) + bad, got[0], k2))
        later = [f for f in found if f[1] == f[2]]
        out = later[:1] + [f for f in found if f[1] != f[2]][-1:]
        return [(changes, k) for changes, k, _ in out]


def main() -> int:
    ap = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    ap.add_argument("lapack", type=Path)
    ap.add_argument("--linalg", type=Path, default=ROOT / "linalg")
    ap.add_argument("--out", type=Path, default=ROOT / "tests" / "data" / "linalg_error_exits.txt")
    a = ap.parse_args()
    lines = ["# Error exits of the F07/F08 own path: written by tools/linalg_error_exits.py",
             "# from the catalogue's prototypes and the reference LAPACK 3.11 sources.",
             "# CHAPTER STANDARD | ARG:TYPE[=VALUE] ... | CHANGES (last: the bad argument, two in a check-order case) | EXPECTED"]
    for chapter, standard, args in sorted(load_rows(a.linalg)):
        src = a.lapack / "SRC" / f"{standard.lower()}.f"
        if not src.exists():
            lines.append(f"# {chapter} {standard}: no reference source")
            continue
        lines += Routine(chapter, standard, args, src.read_text(errors="replace")).lines()
    a.out.write_text("\n".join(lines) + "\n")
    return 0


if __name__ == "__main__":
    sys.exit(main())
