#!/usr/bin/env python3
"""Writes the repetitive layers of every routine from the chapter catalogues.

Usage: generate.py --out DIR [--convention linux|windows32] [--docs DOCS] CATALOGUE.toml...

Two stages.  First every catalogue entry becomes, for the chosen calling
convention, an entry model (model.py: symbols and decorations, typed
parameters in call order with the hidden lengths placed, the calls, trace
lines and message rows).  Then the emitters print the models:

  DIR/gen/C.hpp               chapter C: implementation prototypes, procedure
                              types, message constants, the message index
  DIR/gen/C_entries.hpp       declarations of every entry of chapter C
  DIR/gen/C_STEM.cpp          the entries of catalogue file C/STEM.toml
  DIR/gen/lbx3207qk.h         public C header
  DIR/gen/lbx3207qk.f90       Fortran interface module
  DIR/gen/fuzz_entries.hpp    the fuzz driver's table: a thunk per exported entry
  DIR/lbx3207qk.map           ELF version script (linux), or
  DIR/lbx3207qk.def           the four decorations of every entry (windows32)
  DIR/exports.txt             the exported symbols, one a line
  DIR/routines.md             routine index
  DIR/docs/PAGE.md            with --docs: each page of DOCS with its
                              `<!-- errors: NAME ... -->` lines replaced by the
                              routines' error tables

The catalogue grammar is documented in catalogue.py, the calling conventions
in convention.py.  Generated files are never committed or edited.
"""

from __future__ import annotations

import argparse
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent))

from catalogue import CatalogueError, Chapter, group_by_chapter, load_chapter  # noqa: E402
from convention import CONVENTIONS  # noqa: E402
from model import chapter_model  # noqa: E402
import emit_cpp  # noqa: E402
import emit_public  # noqa: E402
import emit_fuzz  # noqa: E402


def write(path: Path, text: str) -> None:
    """Writes only what changed, so a no-change run rebuilds nothing."""
    path.parent.mkdir(parents=True, exist_ok=True)
    if not path.exists() or path.read_text() != text:
        path.write_text(text)


def entries_file(chapter: str, stem: str) -> str:
    return f"gen/{chapter}_{stem}.cpp"


def generate(catalogues: list[Path], out: Path, convention: str = "linux",
             docs: Path | None = None) -> list[Chapter]:
    conv = CONVENTIONS[convention]
    chapters = [load_chapter(group) for group in group_by_chapter(catalogues)]
    seen: dict[str, Path] = {}
    for ch in chapters:
        for r in ch.routines:
            if r.name in seen:
                raise CatalogueError(f"{r.name}: defined in both {seen[r.name]} and {ch.paths[0].parent}")
            seen[r.name] = ch.paths[0].parent
    models = [chapter_model(ch, conv) for ch in chapters]
    for cm in models:
        name = cm.chapter.name
        write(out / "gen" / f"{name}.hpp", emit_cpp.chapter_header(cm, conv))
        write(out / "gen" / f"{name}_entries.hpp", emit_cpp.entries_header(cm, conv))
        for stem in cm.chapter.sources:
            write(out / entries_file(name, stem), emit_cpp.source_entries(cm, stem, conv))
    write(out / "gen" / "lbx3207qk.h", emit_public.c_header(models, conv))
    write(out / "gen" / "lbx3207qk.f90", emit_public.fortran_module(models, conv))
    write(out / "gen" / "fuzz_entries.hpp", emit_fuzz.fuzz_table(models, conv))
    if conv.defines_aliases:
        write(out / "lbx3207qk.map", emit_public.version_script(models))
    else:
        write(out / "lbx3207qk.def", emit_public.windows_def(models, conv))
    write(out / "exports.txt", emit_public.export_list(models))
    write(out / "routines.md", emit_public.routine_index(models))
    if docs is not None:
        by_name = {m.routine.name: m for cm in models for m in cm.routines}
        for page in sorted(Path(docs).glob("*.md")):
            try:
                text = emit_public.expand_doc(page.read_text(), by_name, page.name)
            except KeyError as e:
                raise CatalogueError(str(e.args[0])) from e
            write(out / "docs" / page.name, text)
    return chapters


def main(argv: list[str]) -> int:
    ap = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    ap.add_argument("--out", required=True, type=Path)
    ap.add_argument("--convention", choices=sorted(CONVENTIONS), default="linux")
    ap.add_argument("--docs", type=Path)
    ap.add_argument("catalogues", nargs="+", type=Path)
    a = ap.parse_args(argv)
    try:
        generate(a.catalogues, a.out, a.convention, a.docs)
    except CatalogueError as e:
        print(f"generate.py: error: {e}", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
