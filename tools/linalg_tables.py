#!/usr/bin/env python3
"""Writes the pairing tables of the linear-algebra chapter from the standard's sources.

Usage: linalg_tables.py LAPACK_SOURCE_DIR [--out LINALG_DIR]

LAPACK_SOURCE_DIR is an unpacked reference LAPACK 3.11 source tree (Debian:
``apt-get source lapack``) with ``SRC/`` and ``BLAS/SRC/``.  The tool is run by
hand, never by the build; its output is committed:

  linalg/routines-standard.toml  a [standard.NAME] prototype of every standard
                                 routine used below, and ``forward``, the
                                 standard names exported as they are
  linalg/routines-f06.toml       paired rows of F06 (BLAS)
  linalg/routines-f07.toml       paired rows of F07 (linear equations)
  linalg/routines-f08.toml       paired rows of F08 (eigenproblems, least squares)

Prototypes.  ``purpose`` is the first line of the routine's Purpose section.
The arguments come in the order of the SUBROUTINE/FUNCTION statement; each
one's type and extents from its declaration (for the few free-form sources,
from its ``X is TYPE array, dimension (...)`` line), its intent from the
``\\param[in]``, ``[out]`` or ``[in,out]`` line.  Types: CHARACTER ->
character*1, INTEGER -> integer, DOUBLE PRECISION -> real, COMPLEX*16 ->
complex, REAL -> single, COMPLEX -> csingle, LOGICAL -> logical.  An extent
that is neither an integer nor an INTEGER scalar argument becomes ``*`` (a
leading extent that is not simple turns the whole array into ``(*)``).  A
routine with an EXTERNAL (procedure) argument, a CHARACTER*(*) argument or
a complex function result cannot be written in the catalogue grammar: it is
neither paired nor forwarded (DGEES and DGGES, with their SELECT/SELCTG, are
therefore absent; ZDOTC/ZDOTU too).

Rows.  Every row has ``own = "private"`` (its own path is the reference
routine linked in under a private name, or for F06 a hand-written check in
front of the external kernel) except the 46 rows of EXTERNAL_ROWS, which have
``own = "external"``.  F06 rows also pass options with hidden length 1 and
append the pairing name.  The naming rule is in tests/linalg/naming_test.py.

* F06 (52): the level-2 and level-3 BLAS and the four RFP routines, letters
  A, B, C, ... (no I, O) in the order of the lists below; the RFP group
  keeps the real/complex correspondence (F06WBF DTFSM, F06WCF DSFRK, F06WPF
  ZTFSM, F06WQF ZHFRK).
* F07 (137): for the classes A B C F G H J M N P Q T U V the driver (A), the
  factorization (D), the solve (E), the refinement (H) and the inverse (J)
  where the standard has that routine; the condition estimator (G) for the
  classes A to N (not for the packed indefinite and triangular classes P Q T
  U V); the four mixed-precision drivers (AC, AQ, FC, FQ) -- 129 public rows,
  real then complex.  Classes K and W, expert drivers (B), equilibration (F)
  and second variants (K) are left out.  Eight single-precision twins, the
  internal routines of the mixed-precision drivers: those of the LU
  routines take the stem of their double-precision counterpart and final E
  (F07ADE SGETRF, F07AEE SGETRS, F07ARE CGETRF, F07ASE CGETRS); the Cholesky
  ones belong to their driver, final Y for the factorization and X for the
  solve (F07FCY SPOTRF, F07FCX SPOTRS, F07FQY CPOTRF, F07FQX CPOTRS).
* F08 (208): the 197 public rows of F08_ROWS (each family's drivers and
  computational routines, real op letter and its complex counterpart), and
  11 internal kernels, final letter other than F: the unblocked kernels of
  the real QR/LQ routines (F08AEZ DGEQR2, AFZ DORG2R, AGZ DORM2R, AHZ DGELQ2,
  AJZ DORGL2, AKZ DORML2) and of the real tridiagonal, bidiagonal and
  Hessenberg reductions (F08FEZ DSYTD2, KEZ DGEBD2, NEZ DGEHD2), F08MDN
  DLASD0 and F08JEW DLASRT.

Forwards (474): IDAMAX and IZAMAX, then 231 names beginning with D and 241
beginning with Z, taken in this order until each count is met: the D/Z
standard names of the pairings (in row order), the level-1 BLAS of
LEVEL1 (DZASUM and DZNRM2 count as D names), then every further LAPACK
routine of SRC/ in alphabetical order that is a driver or computational
routine (its \\ingroup is not an auxiliary group and its name does not begin
DLA/ZLA), is exported by the external library, and can be written in the
grammar.

Checks (the tool fails loudly, naming the routine): every standard routine of
every row and every forward is defined in the external library (OpenBLAS);
every LAPACK routine (source in SRC/) of a private row is defined in the
reference liblapack.a (its own path); every required routine parses.
"""

from __future__ import annotations

import argparse
import re
import subprocess
import sys
from pathlib import Path

OPENBLAS = "/usr/lib/x86_64-linux-gnu/openblas-pthread/libopenblasp-r0.3.21.so"
LIBLAPACK = "/usr/lib/x86_64-linux-gnu/lapack/liblapack.a"

REAL_OPS = "ABCDEFGHJK"
COMPLEX_OPS = "NPQRSTUVWX"


def complex_op(op: str) -> str:
    return COMPLEX_OPS[REAL_OPS.index(op)]


LETTERS = "ABCDEFGHJKLMNPQRSTUVWXYZ"  # no I, O

# ---------------------------------------------------------------- F06
F06_GROUPS = [
    ("P", ["DGEMV", "DGBMV", "DSYMV", "DSBMV", "DSPMV", "DTRMV", "DTBMV", "DTPMV", "DTRSV",
           "DTBSV", "DTPSV", "DGER", "DSYR", "DSPR", "DSYR2", "DSPR2"]),
    ("S", ["ZGEMV", "ZGBMV", "ZHEMV", "ZHBMV", "ZHPMV", "ZTRMV", "ZTBMV", "ZTPMV", "ZTRSV",
           "ZTBSV", "ZTPSV", "ZGERU", "ZGERC", "ZHER", "ZHPR", "ZHER2", "ZHPR2"]),
    ("Y", ["DGEMM", "DSYMM", "DTRMM", "DTRSM", "DSYRK", "DSYR2K"]),
    ("Z", ["ZGEMM", "ZHEMM", "ZSYMM", "ZTRMM", "ZTRSM", "ZHERK", "ZSYRK", "ZHER2K", "ZSYR2K"]),
]
F06_RFP = [("F06WBF", "DTFSM"), ("F06WCF", "DSFRK"), ("F06WPF", "ZTFSM"), ("F06WQF", "ZHFRK")]

# ---------------------------------------------------------------- F07
# class, real prefix, complex prefix, operations (real letters)
F07_CLASSES = [
    ("A", "DGE", "ZGE", "ADEGHJ"),
    ("B", "DGB", "ZGB", "ADEGH"),
    ("C", "DGT", "ZGT", "ADEGH"),
    ("F", "DPO", "ZPO", "ADEGHJ"),
    ("G", "DPP", "ZPP", "ADEGHJ"),
    ("H", "DPB", "ZPB", "ADEGH"),
    ("J", "DPT", "ZPT", "ADEGH"),
    ("M", "DSY", "ZHE", "ADEGHJ"),
    ("N", None, "ZSY", "ADEGHJ"),
    ("P", "DSP", "ZHP", "ADEHJ"),
    ("Q", None, "ZSP", "ADEHJ"),
    ("T", "DTR", "ZTR", "EHJ"),
    ("U", "DTP", "ZTP", "EHJ"),
    ("V", "DTB", "ZTB", "EH"),
]
F07_SUFFIX = {"A": "SV", "D": "TRF", "E": "TRS", "G": "CON", "H": "RFS", "J": "TRI"}
F07_MIXED = [("A", "DSGESV", "ZCGESV"), ("F", "DSPOSV", "ZCPOSV")]
F07_TWINS = [("F07ADE", "SGETRF"), ("F07AEE", "SGETRS"), ("F07ARE", "CGETRF"),
             ("F07ASE", "CGETRS"), ("F07FCY", "SPOTRF"), ("F07FCX", "SPOTRS"),
             ("F07FQY", "CPOTRF"), ("F07FQX", "CPOTRS")]

# ---------------------------------------------------------------- F08
# family, real operation letter, real name, complex name (None: none)
F08_ROWS = [
    ("A", "A", "DGELS", "ZGELS"), ("A", "B", "DGEQRT", "ZGEQRT"), ("A", "C", "DGEMQRT", "ZGEMQRT"),
    ("A", "E", "DGEQRF", "ZGEQRF"), ("A", "F", "DORGQR", "ZUNGQR"), ("A", "G", "DORMQR", "ZUNMQR"),
    ("A", "H", "DGELQF", "ZGELQF"), ("A", "J", "DORGLQ", "ZUNGLQ"), ("A", "K", "DORMLQ", "ZUNMLQ"),
    ("B", "A", "DGELSY", "ZGELSY"), ("B", "F", "DGEQP3", "ZGEQP3"), ("B", "H", "DTZRZF", "ZTZRZF"),
    ("B", "K", "DORMRZ", "ZUNMRZ"),
    ("C", "E", "DGEQLF", "ZGEQLF"), ("C", "F", "DORGQL", "ZUNGQL"), ("C", "G", "DORMQL", "ZUNMQL"),
    ("C", "H", "DGERQF", "ZGERQF"), ("C", "J", "DORGRQ", "ZUNGRQ"), ("C", "K", "DORMRQ", "ZUNMRQ"),
    ("F", "A", "DSYEV", "ZHEEV"), ("F", "B", "DSYEVX", "ZHEEVX"), ("F", "C", "DSYEVD", "ZHEEVD"),
    ("F", "D", "DSYEVR", "ZHEEVR"), ("F", "E", "DSYTRD", "ZHETRD"), ("F", "F", "DORGTR", "ZUNGTR"),
    ("F", "G", "DORMTR", "ZUNMTR"),
    ("G", "A", "DSPEV", "ZHPEV"), ("G", "B", "DSPEVX", "ZHPEVX"), ("G", "C", "DSPEVD", "ZHPEVD"),
    ("G", "E", "DSPTRD", "ZHPTRD"), ("G", "F", "DOPGTR", "ZUPGTR"), ("G", "G", "DOPMTR", "ZUPMTR"),
    ("H", "A", "DSBEV", "ZHBEV"), ("H", "B", "DSBEVX", "ZHBEVX"), ("H", "C", "DSBEVD", "ZHBEVD"),
    ("H", "E", "DSBTRD", "ZHBTRD"),
    ("J", "A", "DSTEV", None), ("J", "B", "DSTEVX", None), ("J", "C", "DSTEVD", None),
    ("J", "D", "DSTEVR", None), ("J", "E", "DSTEQR", "ZSTEQR"), ("J", "F", "DSTERF", None),
    ("J", "G", "DPTEQR", "ZPTEQR"), ("J", "H", "DSTEDC", "ZSTEDC"), ("J", "J", "DSTEBZ", None),
    ("J", "K", "DSTEIN", "ZSTEIN"),
    ("K", "A", "DGELSS", "ZGELSS"), ("K", "B", "DGESVD", "ZGESVD"), ("K", "C", "DGELSD", "ZGELSD"),
    ("K", "D", "DGESDD", "ZGESDD"), ("K", "E", "DGEBRD", "ZGEBRD"), ("K", "F", "DORGBR", "ZUNGBR"),
    ("K", "G", "DORMBR", "ZUNMBR"),
    ("L", "E", "DGBBRD", "ZGBBRD"),
    ("M", "D", "DBDSDC", None), ("M", "E", "DBDSQR", "ZBDSQR"),
    ("N", "A", "DGEEV", "ZGEEV"), ("N", "B", "DGEEVX", "ZGEEVX"), ("N", "E", "DGEHRD", "ZGEHRD"),
    ("N", "F", "DORGHR", "ZUNGHR"), ("N", "G", "DORMHR", "ZUNMHR"), ("N", "H", "DGEBAL", "ZGEBAL"),
    ("N", "J", "DGEBAK", "ZGEBAK"),
    ("P", "E", "DHSEQR", "ZHSEQR"), ("P", "K", "DHSEIN", "ZHSEIN"),
    ("Q", "F", "DTREXC", "ZTREXC"), ("Q", "G", "DTRSEN", "ZTRSEN"), ("Q", "H", "DTRSYL", "ZTRSYL"),
    ("Q", "K", "DTREVC", "ZTREVC"),
    ("S", "A", "DSYGV", "ZHEGV"), ("S", "B", "DSYGVX", "ZHEGVX"), ("S", "C", "DSYGVD", "ZHEGVD"),
    ("S", "E", "DSYGST", "ZHEGST"),
    ("T", "A", "DSPGV", "ZHPGV"), ("T", "B", "DSPGVX", "ZHPGVX"), ("T", "C", "DSPGVD", "ZHPGVD"),
    ("T", "E", "DSPGST", "ZHPGST"),
    ("U", "A", "DSBGV", "ZHBGV"), ("U", "B", "DSBGVX", "ZHBGVX"), ("U", "C", "DSBGVD", "ZHBGVD"),
    ("U", "E", "DSBGST", "ZHBGST"), ("U", "F", "DPBSTF", "ZPBSTF"),
    ("V", "A", "DGGSVD3", "ZGGSVD3"), ("V", "E", "DGGSVP3", "ZGGSVP3"), ("V", "J", "DTGSJA", "ZTGSJA"),
    ("W", "A", "DGGEV", "ZGGEV"), ("W", "B", "DGGEVX", "ZGGEVX"), ("W", "C", "DGGEV3", "ZGGEV3"),
    ("W", "E", "DGGHRD", "ZGGHRD"), ("W", "H", "DGGBAL", "ZGGBAL"), ("W", "J", "DGGBAK", "ZGGBAK"),
    ("W", "K", "DGGHD3", "ZGGHD3"),
    ("X", "A", "DHGEQZ", "ZHGEQZ"),
    ("Y", "C", "DTGEVC", "ZTGEVC"), ("Y", "F", "DTGEXC", "ZTGEXC"), ("Y", "G", "DTGSEN", "ZTGSEN"),
    ("Y", "H", "DTGSYL", "ZTGSYL"), ("Y", "J", "DTGSNA", "ZTGSNA"),
    ("Z", "A", "DGGLSE", "ZGGLSE"), ("Z", "B", "DGGGLM", "ZGGGLM"), ("Z", "E", "DGGQRF", "ZGGQRF"),
    ("Z", "F", "DGGRQF", "ZGGRQF"),
]
F08_INTERNAL = [("F08AEZ", "DGEQR2"), ("F08AFZ", "DORG2R"), ("F08AGZ", "DORM2R"),
                ("F08AHZ", "DGELQ2"), ("F08AJZ", "DORGL2"), ("F08AKZ", "DORML2"),
                ("F08FEZ", "DSYTD2"), ("F08KEZ", "DGEBD2"), ("F08NEZ", "DGEHD2"),
                ("F08MDN", "DLASD0"), ("F08JEW", "DLASRT")]

EXTERNAL_ROWS = {
    "F07ADF", "F07AEF", "F07ARF", "F07BDF", "F07BEF", "F07BHF", "F07BSF", "F07CHF", "F07FDF",
    "F07FEF", "F07FHF", "F07FJF", "F07FRF", "F07GEF", "F07GHF", "F07GSF", "F07HEF", "F07HHF",
    "F07JHF", "F07MHF", "F07PHF", "F07THF", "F07UEF", "F07UHF", "F07VEF", "F07VHF", "F08AEF",
    "F08AFF", "F08AGF", "F08ASF", "F08FEF", "F08FFF", "F08GFF", "F08JEF", "F08JJF", "F08JKF",
    "F08JSF", "F08KEF", "F08MEF", "F08NEF", "F08NGF", "F08PEF", "F08PKF", "F08TAF", "F08TBF",
    "F08TCF",
}

LEVEL1 = ["DASUM", "DAXPY", "DCOPY", "DDOT", "DNRM2", "DROT", "DROTG", "DROTM", "DROTMG", "DSCAL",
          "DSWAP", "DZASUM", "DZNRM2", "ZAXPY", "ZCOPY", "ZDROT", "ZDSCAL", "ZROTG", "ZSCAL",
          "ZSWAP"]
FORWARD_D, FORWARD_Z = 231, 241
FORWARD_FIRST = ["IDAMAX", "IZAMAX"]

# Words that cannot name a C++ parameter.
CPP_WORDS = {"and", "or", "not", "xor", "bitand", "bitor", "compl", "auto", "break", "case", "char",
             "class", "const", "continue", "default", "delete", "do", "double", "else", "enum",
             "extern", "float", "for", "goto", "if", "inline", "int", "long", "new", "register",
             "return", "short", "signed", "sizeof", "static", "struct", "switch", "this", "try",
             "typedef", "union", "unsigned", "void", "volatile", "while", "small"}


class ToolError(Exception):
    pass


# ---------------------------------------------------------------- reading sources

TYPES = [("DOUBLE PRECISION", "real"), ("DOUBLE COMPLEX", "complex"), ("COMPLEX*16", "complex"),
         ("COMPLEX", "csingle"), ("REAL", "single"), ("INTEGER", "integer"),
         ("LOGICAL", "logical"), ("CHARACTER*1", "character*1"), ("CHARACTER*(*)", None),
         ("CHARACTER", "character*1"), ("EXTERNAL", "procedure")]


def split_top(text: str) -> list[str]:
    """Splits at commas outside parentheses."""
    out, depth, cur = [], 0, ""
    for ch in text:
        if ch == "(":
            depth += 1
        elif ch == ")":
            depth -= 1
        if ch == "," and depth == 0:
            out.append(cur)
            cur = ""
        else:
            cur += ch
    out.append(cur)
    return [s.strip() for s in out if s.strip()]


class Source:
    """One routine's source file: documentation and declarations."""

    def __init__(self, name: str, path: Path):
        self.name = name
        self.path = path
        self.text = text = path.read_text(errors="replace")
        self.free = path.suffix == ".f90"
        doc_mark = "!>" if self.free else "*>"
        lines = text.splitlines()
        self.doc = [ln[2:] for ln in lines if ln.startswith(doc_mark)]
        m = re.search(r"\\ingroup\s+(\S+)", "\n".join(self.doc))
        self.group = m.group(1) if m else ""
        self.statements = self._statements(lines)

    def _statements(self, lines: list[str]) -> list[str]:
        out: list[str] = []
        for ln in lines:
            if self.free:
                s = ln.split("!", 1)[0].rstrip()
                if not s.strip():
                    continue
                if out and out[-1].endswith("&"):
                    out[-1] = out[-1][:-1] + " " + s.strip().lstrip("&")
                else:
                    out.append(s.strip())
            else:
                if not ln or ln[0] in "*cC!" or not ln.strip():
                    continue
                if len(ln) > 5 and ln[5] not in " 0" and out:
                    out[-1] += " " + ln[6:72].strip()
                else:
                    out.append(ln[6:72].strip())
        return [re.sub(r"\s+", " ", s).upper() for s in out]

    def purpose(self) -> str:
        for i, ln in enumerate(self.doc):
            if "\\par Purpose" in ln:
                for t in self.doc[i + 1:]:
                    s = t.strip()
                    if s and not s.startswith("\\"):
                        if self.name not in s:  # formulas: the \brief or Definition line
                            m = (re.search(r"\\brief\s+\\b\s+" + self.name + r"[ \t]+(\S.*)",
                                           "\n".join(self.doc))
                                 or re.search(r"^[!*]\s+" + self.name + r"\s+(\S.*)$",
                                              self.text, re.M))
                            s = f"{self.name} {m.group(1)}" if m else s
                        return re.sub(r"\s+", " ", s).rstrip(".:,;")
        raise ToolError(f"{self.name}: no Purpose section")

    def intents(self) -> dict[str, str]:
        out = {}
        for ln in self.doc:
            m = re.match(r"\s*\\param\[(in|out|in,out|inout)\]\s+([A-Za-z0-9_]+)", ln)
            if m:
                out[m.group(2).upper()] = {"in,out": "inout", "inout": "inout"}.get(m.group(1),
                                                                                    m.group(1))
        return out

    def doc_types(self) -> dict[str, tuple[str, str | None]]:
        """'X is TYPE [array, dimension (...)]' lines (free-form sources)."""
        out = {}
        for ln in self.doc:
            m = re.match(r"\s*([A-Z][A-Z0-9_]*) is (DOUBLE PRECISION|DOUBLE COMPLEX|COMPLEX\*16|"
                         r"INTEGER|LOGICAL|CHARACTER\*1|CHARACTER|REAL|COMPLEX)"
                         r"(?: array, dimension \((.*)\))?", ln)
            if m and m.group(1) not in out:
                out[m.group(1)] = (dict(TYPES)[m.group(2)], m.group(3))
        return out

    def header(self) -> tuple[str | None, list[str]]:
        """(result type or None, argument names)."""
        for s in self.statements:
            m = re.match(r"^(?:(.*?)\s)?(?:RECURSIVE\s+)?(SUBROUTINE|FUNCTION)\s+"
                         + self.name + r"\s*\((.*)\)\s*$", s)
            if m:
                args = [a.strip() for a in m.group(3).split(",") if a.strip()]
                if m.group(2) == "SUBROUTINE":
                    return None, args
                prefix = (m.group(1) or "").strip()
                if not prefix:  # free form: 'real(wp) :: NAME'
                    for t in self.statements:
                        mm = re.match(r"^(REAL|COMPLEX)\(WP\)\s*::\s*" + self.name + r"$", t)
                        if mm:
                            prefix = "DOUBLE PRECISION" if mm.group(1) == "REAL" else "COMPLEX*16"
                return prefix or "?", args
        raise ToolError(f"{self.name}: no SUBROUTINE or FUNCTION statement in {self.path}")

    def declarations(self) -> dict[str, tuple[str | None, str | None]]:
        """Argument name -> (catalogue type, extents text or None)."""
        out: dict[str, tuple[str | None, str | None]] = {}
        for s in self.statements:
            for key, typ in TYPES:
                if s.startswith(key + " ") or (key.endswith(")") and s.startswith(key)):
                    rest = s[len(key):].strip()
                    if rest.startswith("FUNCTION"):
                        break
                    for ent in split_top(rest.lstrip(":").strip()):
                        m = re.match(r"^([A-Z][A-Z0-9_]*)\s*(?:\((.*)\))?(\*\S+)?$", ent)
                        if not m:
                            continue
                        name, dims, star = m.group(1), m.group(2), m.group(3)
                        t = typ
                        if star and typ == "character*1" and star != "*1":
                            t = None
                        if typ == "procedure":
                            out[name] = ("procedure", None)
                        elif out.get(name, ("", None))[0] != "procedure":
                            out[name] = (t, dims)
                    break
        return out


def find_source(root: Path, name: str) -> Path | None:
    for sub in ("SRC", "BLAS/SRC"):
        for ext in (".f", ".f90"):
            p = root / sub / (name.lower() + ext)
            if p.exists():
                return p
    return None


def simplify_dims(dims: str, integer_scalars: set[str]) -> str:
    parts = split_top(dims)

    def simple(d: str) -> bool:
        return d == "*" or d.isdigit() or d in integer_scalars

    if not simple(parts[0]) or parts[0] == "*":
        if len(parts) > 1 or not simple(parts[0]):
            return "*"
    out = [p if simple(p) else "*" for p in parts]
    if len(out) > 1 and not all(simple(p) for p in parts[:-1]):
        return "*"
    return ",".join(out)


class Prototype:
    def __init__(self, name: str, purpose: str, args: list[str], result: str | None):
        self.name, self.purpose, self.args, self.result = name, purpose, args, result


def prototype(root: Path, name: str) -> Prototype:
    path = find_source(root, name)
    if path is None:
        raise ToolError(f"{name}: no source in {root}/SRC or {root}/BLAS/SRC")
    src = Source(name, path)
    result_text, argnames = src.header()
    result = None
    if result_text is not None:
        result = {"DOUBLE PRECISION": "real", "INTEGER": "integer", "LOGICAL": "logical"}.get(
            result_text)
        if result is None:
            raise ToolError(f"{name}: function result {result_text} cannot be written")
    decl = src.declarations() if not src.free else {}
    if src.free:
        decl = {k: v for k, v in src.doc_types().items()}
    intents = src.intents()
    types = {}
    for a in argnames:
        if a not in decl:
            raise ToolError(f"{name}: argument {a} has no declaration")
        typ, dims = decl[a]
        if typ is None:
            raise ToolError(f"{name}: argument {a} has a type the grammar cannot write")
        if typ == "procedure":
            raise ToolError(f"{name}: argument {a} is a procedure")
        if a.lower() in CPP_WORDS:
            raise ToolError(f"{name}: argument {a} cannot name a C++ parameter")
        if a not in intents:
            raise ToolError(f"{name}: argument {a} has no \\param line")
        types[a] = (typ, dims)
    integer_scalars = {a for a in argnames if types[a][0] == "integer" and types[a][1] is None}
    args = []
    for a in argnames:
        typ, dims = types[a]
        text = f"{typ} {a}"
        if dims is not None:
            text += f"({simplify_dims(dims, integer_scalars)})"
        args.append(f"{text} {intents[a]}")
    return Prototype(name, src.purpose(), args, result)


def defined_symbols(command: list[str]) -> set[str]:
    try:
        out = subprocess.run(command, check=True, capture_output=True, text=True).stdout
    except (OSError, subprocess.CalledProcessError) as e:
        raise ToolError(f"cannot list the symbols of {command[-1]}: {e}") from e
    syms = set()
    for ln in out.splitlines():
        parts = ln.split()
        if len(parts) == 3 and parts[1] in "TtWiI":
            syms.add(parts[2])
    return syms


# ---------------------------------------------------------------- rows

def f06_rows() -> list[tuple[str, str]]:
    rows = []
    for cls, names in F06_GROUPS:
        rows += [(f"F06{cls}{LETTERS[i]}F", n) for i, n in enumerate(names)]
    return rows + F06_RFP


def f07_rows() -> list[tuple[str, str]]:
    public = []
    for cls, dpre, zpre, ops in F07_CLASSES:
        for pre, letter in ((dpre, lambda o: o), (zpre, complex_op)):
            if pre is None:
                continue
            mixed = "C" if any(c == cls for c, _, _ in F07_MIXED) else ""
            for op in sorted(ops + mixed, key=REAL_OPS.index):
                if op == "C":
                    name = next(d if pre[0] == "D" else z for c, d, z in F07_MIXED if c == cls)
                else:
                    name = pre + F07_SUFFIX[op]
                public.append((f"F07{cls}{letter(op)}F", name))
    return public + F07_TWINS


def f08_rows() -> list[tuple[str, str]]:
    real = [(f"F08{fam}{op}F", d) for fam, op, d, _ in F08_ROWS]
    cplx = [(f"F08{fam}{complex_op(op)}F", z) for fam, op, _, z in F08_ROWS if z]
    # family by family, real rows then complex rows
    out = []
    for fam in dict.fromkeys(f for f, _, _, _ in F08_ROWS):
        out += [r for r in real if r[0][3] == fam] + [r for r in cplx if r[0][3] == fam]
    return out + F08_INTERNAL


# ---------------------------------------------------------------- writing

def q(s: str) -> str:
    return '"' + s.replace("\\", "\\\\").replace('"', '\\"') + '"'


BANNER = ("# Written by tools/linalg_tables.py from the reference LAPACK 3.11 sources; rerun the\n"
          "# tool rather than editing by hand.\n")


def paired_file(chapter: str, rows: list[tuple[str, str]], f06: bool) -> str:
    L = [BANNER, f"# {chapter}: {len(rows)} routines paired with a standard routine.\n",
         'chapter = "linalg"\n\npaired = [\n']
    for name, std in rows:
        own = "external" if name in EXTERNAL_ROWS else "private"
        extra = ", option_length = 1, append_name = true" if f06 else ""
        L.append(f'  {{name = "{name}", standard = "{std}", own = "{own}"{extra}}},\n')
    L.append("]\n")
    return "".join(L)


def standard_file(protos: dict[str, Prototype], forward: list[str]) -> str:
    L = [BANNER, "# Prototypes of the standard routines the chapter pairs or forwards, and the\n"
         "# standard names exported as they are.\n", 'chapter = "linalg"\n\nforward = [\n']
    for i in range(0, len(forward), 8):
        L.append("  " + ", ".join(q(n) for n in forward[i:i + 8]) + ",\n")
    L.append("]\n")
    for name in sorted(protos):
        p = protos[name]
        L.append(f"\n[standard.{name}]\npurpose = {q(p.purpose)}\n")
        if p.result:
            L.append(f"result = {q(p.result)}\n")
        line = "args = [" + ", ".join(q(a) for a in p.args) + "]\n"
        if len(line) > 100:
            line = "args = [\n" + "".join(f"  {q(a)},\n" for a in p.args) + "]\n"
        L.append(line)
    return "".join(L)


def build(root: Path) -> dict[str, str]:
    rows = {"f06": f06_rows(), "f07": f07_rows(), "f08": f08_rows()}
    for ch, n in (("f06", 52), ("f07", 137), ("f08", 208)):
        if len(rows[ch]) != n:
            raise ToolError(f"{ch.upper()} has {len(rows[ch])} rows, not {n}")
    all_rows = [r for ch in rows.values() for r in ch]
    names = [r[0] for r in all_rows]
    dup = {n for n in names if names.count(n) > 1}
    if dup:
        raise ToolError(f"rows named twice: {sorted(dup)}")
    vendor = defined_symbols(["nm", "-D", "--defined-only", OPENBLAS])
    own = defined_symbols(["nm", "--defined-only", LIBLAPACK])
    protos: dict[str, Prototype] = {}
    for name, std in all_rows:
        if std.lower() + "_" not in vendor:
            raise ToolError(f"{name}/{std}: {std} is not defined in {OPENBLAS}")
        path = find_source(root, std)
        if (name not in EXTERNAL_ROWS and path is not None and path.parent.name == "SRC"
                and path.parent.parent == root and std.lower() + "_" not in own):
            raise ToolError(f"{name}/{std}: {std} is not defined in {LIBLAPACK}")
        if std not in protos:
            protos[std] = prototype(root, std)

    forward = list(FORWARD_FIRST)
    counts = {"D": 0, "Z": 0}
    limits = {"D": FORWARD_D, "Z": FORWARD_Z}

    def take(std: str, required: bool) -> None:
        if std in forward or std[0] not in limits or counts[std[0]] >= limits[std[0]]:
            return
        if std.lower() + "_" not in vendor:
            if required:
                raise ToolError(f"{std}: forwarded but not defined in {OPENBLAS}")
            return
        if std not in protos:
            try:
                protos[std] = prototype(root, std)
            except ToolError:
                if required:
                    raise
                return
        forward.append(std)
        counts[std[0]] += 1

    for std in FORWARD_FIRST:
        if std.lower() + "_" not in vendor:
            raise ToolError(f"{std}: forwarded but not defined in {OPENBLAS}")
        protos[std] = prototype(root, std)
    for _, std in all_rows:
        take(std, True)
    for std in LEVEL1:
        take(std, True)
    for path in sorted((root / "SRC").glob("*.f")):
        std = path.stem.upper()
        if std[0] not in "DZ" or std.startswith(("DLA", "ZLA")):
            continue
        if "auxiliary" in Source(std, path).group.lower():
            continue
        take(std, False)
    if counts != {"D": FORWARD_D, "Z": FORWARD_Z}:
        raise ToolError(f"forwards: {counts}, not {FORWARD_D} D and {FORWARD_Z} Z")
    rest = forward[:2] + sorted(forward[2:])
    return {
        "routines-standard.toml": standard_file(protos, rest),
        "routines-f06.toml": paired_file("F06", rows["f06"], True),
        "routines-f07.toml": paired_file("F07", rows["f07"], False),
        "routines-f08.toml": paired_file("F08", rows["f08"], False),
    }


def main(argv: list[str]) -> int:
    ap = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    ap.add_argument("source", type=Path, help="reference LAPACK source tree")
    ap.add_argument("--out", type=Path, default=Path(__file__).resolve().parent.parent / "linalg")
    a = ap.parse_args(argv)
    try:
        files = build(a.source)
    except ToolError as e:
        print(f"linalg_tables.py: error: {e}", file=sys.stderr)
        return 1
    for name, text in files.items():
        (a.out / name).write_text(text)
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
