#!/usr/bin/env python3
"""Makes the library's private copy of reference LAPACK (a build step).

The own path of the linear-algebra chapters runs the reference algorithms of
Debian's static LAPACK archive, linked into the library under private names so
that they never meet the external library's routines of the same names:

* every global symbol the archive defines, ``dgetri_``, becomes ``lbx_own_dgetri_``
  (definitions and calls alike);
* calls of ``xerbla_`` become ``lbx_xerbla_`` and calls of ``ilaenv_`` become
  ``lbx_ilaenv_``: the library's shims, which report through its reporter and
  take block sizes from its tuning table; the archive's own ``xerbla`` member
  is dropped and its ``ilaenv`` is kept as ``lbx_ref_ilaenv_``, the fallback
  for names the tuning table does not hold;
* calls of the BLAS index routines ``idamax_``, ``izamax_``, ``isamax_`` and
  ``icamax_`` become ``lbx_idamax_``, ...: the library's own, which keep the
  reference routines' answer when a NaN is present (the first largest
  element that is not a NaN, element 1 when that is one), the answer the
  reference algorithms' pivot searches are written for;
* the routines named with --reference (those whose own path is written by
  hand, such as DTFSM) become ``lbx_ref_<name>_``, so the hand-written
  ``lbx_own_<name>_`` is the only one of that name.

    private_lapack.py --nm NM --objcopy OBJCOPY --ar AR [--underscore]
                      --in liblapack.a --out liblbx_lapack.a [--reference dtfsm_ ...]

--underscore: the platform prefixes C symbols with "_" (32-bit Windows).
"""
import argparse
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path


def defined_symbols(nm: str, archive: Path) -> dict[str, str]:
    """Global symbols defined in the archive, each with the member defining it."""
    out = subprocess.run([nm, "-g", "--defined-only", str(archive)], check=True,
                         capture_output=True, text=True).stdout
    symbols: dict[str, str] = {}
    member = ""
    for line in out.splitlines():
        if line.endswith(":") and " " not in line:
            member = line[:-1]
            continue
        parts = line.split()
        if len(parts) == 3:
            symbols.setdefault(parts[2], member)
    return symbols


def main() -> int:
    ap = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    ap.add_argument("--nm", required=True)
    ap.add_argument("--objcopy", required=True)
    ap.add_argument("--ar", required=True)
    ap.add_argument("--underscore", action="store_true")
    ap.add_argument("--in", dest="source", required=True, type=Path)
    ap.add_argument("--out", required=True, type=Path)
    ap.add_argument("--reference", nargs="*", default=[])
    a = ap.parse_args()

    p = "_" if a.underscore else ""
    symbols = defined_symbols(a.nm, a.source)
    special = {"xerbla_": "lbx_xerbla_", "ilaenv_": "lbx_ilaenv_"}
    special.update({name: f"lbx_ref_{name}" for name in a.reference})
    for name in ("xerbla_", "ilaenv_", *a.reference):
        if p + name not in symbols:
            print(f"private_lapack: {a.source} defines no {name}", file=sys.stderr)
            return 1
    renames = [f"{p}{name} {p}lbx_{name}\n" for name in ("idamax_", "izamax_", "isamax_", "icamax_")]
    for sym in symbols:
        bare = sym[len(p):] if p and sym.startswith(p) else sym
        renames.append(f"{sym} {p}{special.get(bare, 'lbx_own_' + bare)}\n")

    with tempfile.TemporaryDirectory() as tmp:
        t = Path(tmp)
        (t / "renames").write_text("".join(renames))
        work = t / "private.a"
        subprocess.run([a.objcopy, f"--redefine-syms={t / 'renames'}", str(a.source), str(work)],
                       check=True)
        # The reporter replaces xerbla; the tuning table fronts ilaenv.
        subprocess.run([a.ar, "d", str(work), symbols[p + "xerbla_"]], check=True)
        member = symbols[p + "ilaenv_"]
        subprocess.run([a.ar, "x", str(work), member], check=True, cwd=t)
        subprocess.run([a.objcopy, f"--redefine-sym={p}lbx_ilaenv_={p}lbx_ref_ilaenv_",
                        str(t / member)], check=True)
        subprocess.run([a.ar, "r", str(work), member], check=True, cwd=t)
        subprocess.run([a.ar, "s", str(work)], check=True)
        a.out.parent.mkdir(parents=True, exist_ok=True)
        shutil.move(str(work), a.out)
    return 0


if __name__ == "__main__":
    sys.exit(main())
