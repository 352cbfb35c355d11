#!/usr/bin/env python3
"""Checks the export and import tables of the 32-bit Windows DLL.

Usage: check_pe_exports.py LBX3207QK.dll CATALOGUE.toml...

Reads the PE file itself (no tools): every entry that the catalogues define
(plain and traced entries, adapters, direct entries, exported
implementations, forwards) is exported as NAME, _NAME, _NAME@n and _name_,
all four at one address, with n = 4 x its argument words counted here from the
catalogue (an address per argument, a 32-bit length after each CHARACTER
argument; the traced entry adds ERRBUF and its length, and an adapter after
each procedure).  Nothing else is exported, and the DLL imports only system
DLLs.
"""
import struct
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "exports"))
from catalogue import group_by_chapter, load_chapter  # noqa: E402

SYSTEM_DLLS = {"kernel32.dll", "msvcrt.dll", "user32.dll"}


class PE:
    def __init__(self, data: bytes):
        self.data = data
        if data[:2] != b"MZ":
            raise ValueError("not an MZ file")
        pe = struct.unpack_from("<I", data, 0x3C)[0]
        if data[pe:pe + 4] != b"PE\0\0":
            raise ValueError("no PE signature")
        machine, nsections, _, _, _, opt_size, _ = struct.unpack_from("<HHIIIHH", data, pe + 4)
        if machine != 0x14C:
            raise ValueError(f"machine {machine:#x} is not i386")
        opt = pe + 24
        if struct.unpack_from("<H", data, opt)[0] != 0x10B:
            raise ValueError("not a PE32 optional header")
        ndirs = struct.unpack_from("<I", data, opt + 92)[0]
        self.dirs = [struct.unpack_from("<II", data, opt + 96 + 8 * i) for i in range(ndirs)]
        self.sections = []
        sec = opt + opt_size
        for i in range(nsections):
            vsize, va, rawsize, rawptr = struct.unpack_from("<IIII", data, sec + 40 * i + 8)
            self.sections.append((va, max(vsize, rawsize), rawptr))

    def offset(self, rva: int) -> int:
        for va, size, raw in self.sections:
            if va <= rva < va + size:
                return raw + rva - va
        raise ValueError(f"RVA {rva:#x} in no section")

    def cstr(self, rva: int) -> str:
        o = self.offset(rva)
        return self.data[o:self.data.index(b"\0", o)].decode("ascii")

    def exports(self) -> dict[str, int]:
        rva, _ = self.dirs[0]
        o = self.offset(rva)
        nfuncs, nnames, funcs, names, ords = struct.unpack_from("<IIIII", self.data, o + 20)
        out = {}
        for i in range(nnames):
            name = self.cstr(struct.unpack_from("<I", self.data, self.offset(names) + 4 * i)[0])
            ordinal = struct.unpack_from("<H", self.data, self.offset(ords) + 2 * i)[0]
            out[name] = struct.unpack_from("<I", self.data, self.offset(funcs) + 4 * ordinal)[0]
        return out

    def imports(self) -> list[str]:
        rva, _ = self.dirs[1]
        o, out = self.offset(rva), []
        while True:
            desc = struct.unpack_from("<IIIII", self.data, o)
            if desc == (0, 0, 0, 0, 0):
                return out
            out.append(self.cstr(desc[3]))
            o += 20


def words(args) -> int:
    return sum(2 if a.is_char else 1 for a in args)


def entry_words(catalogues) -> dict[str, int]:
    """Argument words of every exported entry, from the catalogue grammar."""
    out = {}
    for group in group_by_chapter(catalogues):
        for r in load_chapter(group).routines:
            if r.layers in ("direct", "forward"):
                out[r.name] = words(r.visible)
                continue
            ifail = 1 if r.has_ifail else 0
            traced = r.traced_args()
            out[r.name] = words(r.visible) + ifail
            out[r.name + "T"] = (words(traced) + sum(1 for a in traced if a.type == "procedure")
                                 + (3 if r.has_ifail else 0))
            for p in r.procedures():
                out[p.adapter] = 1 + words(p.args) + words(getattr(p, "through", []))
            if r.export_impl:
                out[r.impl] = words(r.visible)
    return out


def main() -> int:
    dll, catalogues = Path(sys.argv[1]), [Path(p) for p in sys.argv[2:]]
    pe = PE(dll.read_bytes())
    exports = pe.exports()
    want = entry_words(catalogues)
    problems, seen = [], set()
    for name, w in sorted(want.items()):
        names = [name, "_" + name, f"_{name}@{4 * w}", "_" + name.lower() + "_"]
        missing = [n for n in names if n not in exports]
        if missing:
            others = [e for e in exports if e.startswith(f"_{name}@")]
            problems.append(f"{name}: {w} argument words, but {missing} not exported"
                            + (f" (exported: {others})" if others else ""))
            continue
        addresses = {exports[n] for n in names}
        if len(addresses) != 1:
            problems.append(f"{name}: the four names have {len(addresses)} addresses")
        seen.update(names)
    extra = sorted(set(exports) - seen)
    if extra:
        problems.append(f"exported but not in the catalogue: {extra[:20]}")
    imports = pe.imports()
    foreign = [d for d in imports if d.lower() not in SYSTEM_DLLS]
    if foreign:
        problems.append(f"imports DLLs that are not system DLLs: {foreign}")
    for p in problems:
        print("FAIL", p)
    print(f"{len(want)} entries, {len(exports)} exported names, imports {', '.join(imports)}")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
