#!/usr/bin/env python3
"""Writes the repetitive layers of every routine from the chapter catalogues.

Usage: generate.py --out DIR [--def] CATALOGUE.toml...

For each chapter C it writes DIR/gen/C.hpp (implementation prototypes,
message constants, procedure callables) and DIR/gen/C_entries.cpp (plain and
traced entries, adapters, direct exports); for the whole library
DIR/gen/lbx3207qk.h (public C header), DIR/gen/lbx3207qk.f90 (Fortran
interface module), DIR/lbx3207qk.map (ELF version script: only catalogue
symbols are visible), DIR/exports.txt (the exported symbols, one a line) and
DIR/routines.md (routine index).  With --def it also writes DIR/lbx3207qk.def
with the four 32-bit Windows decorations of every entry.

The catalogue grammar is documented in catalogue.py; the calling convention
in convention.py.  Generated files are never committed or edited.
"""

from __future__ import annotations

import argparse
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent))

from catalogue import CatalogueError, Chapter, load_chapter  # noqa: E402
from convention import LINUX, WINDOWS32  # noqa: E402
import emit_cpp  # noqa: E402
import emit_public  # noqa: E402


def write(path: Path, text: str) -> None:
    path.parent.mkdir(parents=True, exist_ok=True)
    if not path.exists() or path.read_text() != text:
        path.write_text(text)


def generate(catalogues: list[Path], out: Path, windows_def: bool = False) -> list[Chapter]:
    chapters = [load_chapter(p) for p in catalogues]
    names = {}
    for ch in chapters:
        for r in ch.routines:
            if r.name in names:
                raise CatalogueError(f"{r.name}: defined in both {names[r.name]} and {ch.path}")
            names[r.name] = ch.path
    for ch in chapters:
        write(out / "gen" / f"{ch.name}.hpp", emit_cpp.chapter_header(ch))
        write(out / "gen" / f"{ch.name}_entries.cpp", emit_cpp.chapter_entries(ch))
    write(out / "gen" / "lbx3207qk.h", emit_public.c_header(chapters))
    write(out / "gen" / "lbx3207qk.f90", emit_public.fortran_module(chapters))
    symbols = [s for ch in chapters for r in ch.routines for s in LINUX.symbols(r)]
    write(out / "lbx3207qk.map", emit_public.version_script(symbols))
    write(out / "exports.txt", "".join(s + "\n" for s in sorted(symbols)))
    write(out / "routines.md", emit_public.routine_index(chapters))
    if windows_def:
        write(out / "lbx3207qk.def", emit_public.windows_def(chapters, WINDOWS32))
    return chapters


def main(argv: list[str]) -> int:
    ap = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    ap.add_argument("--out", required=True, type=Path)
    ap.add_argument("--def", dest="windows_def", action="store_true")
    ap.add_argument("catalogues", nargs="+", type=Path)
    a = ap.parse_args(argv)
    try:
        generate(a.catalogues, a.out, a.windows_def)
    except CatalogueError as e:
        print(f"generate.py: error: {e}", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
