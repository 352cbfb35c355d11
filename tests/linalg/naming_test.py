#!/usr/bin/env python3
"""The linear-algebra chapter's committed pairing tables obey the naming rule.

Usage: naming_test.py LINALG_DIR

Reads linalg/routines-f06.toml, -f07.toml, -f08.toml (and -f16.toml when it
exists) and -standard.toml and checks every row against the rule of
docs/linalg-layer.md, the rows that must be exactly so, the 46 rows whose own
path is the external routine, the counts, and the exported standard names.
"""

from __future__ import annotations

import sys
import tomllib
from pathlib import Path

REAL_OPS = "ABCDEFGHJK"
COMPLEX_OPS = "NPQRSTUVWX"
CLASSES = {
    "F06": "PSWYZ",
    "F07": "ABCFGHJKMNPQTUVW",
    "F08": "ABCFGHJKLMNPQSTUVWXYZ",
}
# F06 classes whose routines are all real or all complex
F06_KIND = {"P": "D", "Y": "D", "S": "Z", "Z": "Z"}
COUNTS = {"F06": 52, "F07": 137, "F08": 208, "F16": 10}

FIXED = [
    ("F07AAF", "DGESV"), ("F07ANF", "ZGESV"), ("F07ADF", "DGETRF"), ("F07ARF", "ZGETRF"),
    ("F07AEF", "DGETRS"), ("F07ASF", "ZGETRS"), ("F07AGF", "DGECON"), ("F07AUF", "ZGECON"),
    ("F07AJF", "DGETRI"), ("F07AWF", "ZGETRI"), ("F07ADE", "SGETRF"), ("F07ARE", "CGETRF"),
    ("F08AEF", "DGEQRF"), ("F08ASF", "ZGEQRF"), ("F08AEZ", "DGEQR2"), ("F08AFZ", "DORG2R"),
    ("F06YAF", "DGEMM"), ("F06ZAF", "ZGEMM"), ("F06PAF", "DGEMV"), ("F06SAF", "ZGEMV"),
    ("F06WBF", "DTFSM"), ("F06WQF", "ZHFRK"), ("F07FQY", "CPOTRF"), ("F08MDN", "DLASD0"),
    ("F08JEW", "DLASRT"), ("F08NFF", "DORGHR"),
    # the mixed-precision drivers and the named classes
    ("F07ACF", "DSGESV"), ("F07AQF", "ZCGESV"), ("F07FCF", "DSPOSV"), ("F07FQF", "ZCPOSV"),
    ("F07MRF", "ZHETRF"), ("F07NRF", "ZSYTRF"),
    # F08 stems: one per family, real and complex counterparts
    ("F08AHF", "DGELQF"), ("F08AVF", "ZGELQF"), ("F08CHF", "DGERQF"), ("F08FEF", "DSYTRD"),
    ("F08FSF", "ZHETRD"), ("F08FAF", "DSYEV"), ("F08FNF", "ZHEEV"), ("F08KBF", "DGESVD"),
    ("F08KPF", "ZGESVD"), ("F08PEF", "DHSEQR"), ("F08PSF", "ZHSEQR"), ("F08YHF", "DTGSYL"),
]

EXTERNAL = {
    "F07ADF": "DGETRF", "F07AEF": "DGETRS", "F07ARF": "ZGETRF", "F07BDF": "DGBTRF",
    "F07BEF": "DGBTRS", "F07BHF": "DGBRFS", "F07BSF": "ZGBTRS", "F07CHF": "DGTRFS",
    "F07FDF": "DPOTRF", "F07FEF": "DPOTRS", "F07FHF": "DPORFS", "F07FJF": "DPOTRI",
    "F07FRF": "ZPOTRF", "F07GEF": "DPPTRS", "F07GHF": "DPPRFS", "F07GSF": "ZPPTRS",
    "F07HEF": "DPBTRS", "F07HHF": "DPBRFS", "F07JHF": "DPTRFS", "F07MHF": "DSYRFS",
    "F07PHF": "DSPRFS", "F07THF": "DTRRFS", "F07UEF": "DTPTRS", "F07UHF": "DTPRFS",
    "F07VEF": "DTBTRS", "F07VHF": "DTBRFS", "F08AEF": "DGEQRF", "F08AFF": "DORGQR",
    "F08AGF": "DORMQR", "F08ASF": "ZGEQRF", "F08FEF": "DSYTRD", "F08FFF": "DORGTR",
    "F08GFF": "DOPGTR", "F08JEF": "DSTEQR", "F08JJF": "DSTEBZ", "F08JKF": "DSTEIN",
    "F08JSF": "ZSTEQR", "F08KEF": "DGEBRD", "F08MEF": "DBDSQR", "F08NEF": "DGEHRD",
    "F08NGF": "DORMHR", "F08PEF": "DHSEQR", "F08PKF": "DHSEIN", "F08TAF": "DSPGV",
    "F08TBF": "DSPGVX", "F08TCF": "DSPGVD",
}


def is_complex(std: str) -> bool:
    return std[0] in "ZC"


def stem_key(std: str) -> str:
    """The name without its precision letter, the unitary/Hermitian spelling made
    orthogonal/symmetric: DORGQR and ZUNGQR, DSYTRD and ZHETRD share a key."""
    body = std[1:]
    if body in ("CGESV", "CPOSV"):  # ZCGESV, ZCPOSV: mixed-precision drivers
        return "S" + body[1:]
    for z, d in (("UN", "OR"), ("UP", "OP"), ("HE", "SY"), ("HP", "SP"), ("HB", "SB"),
                 ("HF", "SF")):
        if body.startswith(z):
            return d + body[2:]
    return body


def check_row(chapter: str, row: dict) -> list[str]:
    name, std = row["name"], row["standard"]
    errs = []
    where = f"{name}/{std}"
    if len(name) != 6 or name[:3] != chapter:
        return [f"{where}: not a name of chapter {chapter}"]
    cls, op, final = name[3], name[4], name[5]
    if cls not in CLASSES[chapter]:
        errs.append(f"{where}: class letter {cls} is not one of {chapter}'s")
    if final == "F" and std[0] not in "DZ":
        errs.append(f"{where}: final F, but {std} is not double precision")
    if std[0] in "SC" and final == "F":
        errs.append(f"{where}: a single-precision routine is internal")
    if final == "F" and std.startswith(("DLA", "ZLA")):
        errs.append(f"{where}: an auxiliary routine is not public")
    if chapter == "F06" and cls in F06_KIND:
        if std[0] != F06_KIND[cls]:
            errs.append(f"{where}: class {cls} holds {F06_KIND[cls]} routines")
        if op in "IO":
            errs.append(f"{where}: the letters skip I and O")
    else:
        ops = COMPLEX_OPS if is_complex(std) else REAL_OPS
        if op not in ops:
            errs.append(f"{where}: operation {op} is not in {ops}")
    if row.get("own") not in ("private", "external"):
        errs.append(f"{where}: own is {row.get('own')!r}")
    if chapter == "F06" and (row.get("option_length") != 1 or row.get("append_name") is not True):
        errs.append(f"{where}: an F06 row passes options with length 1 and appends its name")
    if chapter != "F06" and ("option_length" in row or "append_name" in row):
        errs.append(f"{where}: only F06 rows pass options with length 1 and append the name")
    return errs


def check(folder: Path) -> list[str]:
    errs: list[str] = []
    tables = {}
    for ch in ("F06", "F07", "F08", "F16"):
        path = folder / f"routines-{ch.lower()}.toml"
        if ch == "F16" and not path.exists():
            continue
        data = tomllib.loads(path.read_text())
        # F16 routines are the library's own code: routine tables, not pairings
        tables[ch] = (data.get("paired", []) if ch != "F16" else
                      [r for r in data.get("routine", []) if r["name"].startswith("F16")])
    for ch, rows in tables.items():
        if len(rows) != COUNTS[ch]:
            errs.append(f"{ch}: {len(rows)} rows, not {COUNTS[ch]}")
    rows = {r["name"]: r for ch in ("F06", "F07", "F08") for r in tables[ch]}
    all_names = [r["name"] for rs in tables.values() for r in rs]
    twice = sorted({n for n in all_names if all_names.count(n) > 1})
    if twice:
        errs.append(f"rows named twice: {twice}")
    for ch in ("F06", "F07", "F08"):
        for r in tables[ch]:
            errs += check_row(ch, r)

    # Internal rows belong to a public stem.
    for name, r in rows.items():
        if name[5] != "F" and name[:5] + "F" not in rows:
            errs.append(f"{name}/{r['standard']}: internal, but {name[:5]}F does not exist")

    # Real and complex counterparts of one stem map by the correspondence.
    for ch in ("F06", "F07", "F08"):
        public = [r for r in tables[ch] if r["name"][5] == "F"
                  and (ch != "F06" or r["name"][3] == "W")]
        by_key: dict[tuple[str, str], dict[str, str]] = {}
        for r in public:
            kind = "Z" if is_complex(r["standard"]) else "D"
            by_key.setdefault((r["name"][3], stem_key(r["standard"])), {})[kind] = r["name"]
        for (cls, key), pair in by_key.items():
            if "D" in pair and "Z" in pair:
                want = COMPLEX_OPS[REAL_OPS.index(pair["D"][4])]
                if pair["Z"][4] != want:
                    errs.append(f"{pair['D']} and {pair['Z']}: the complex counterpart of "
                                f"operation {pair['D'][4]} is {want}")

    for name, std in FIXED:
        if rows.get(name, {}).get("standard") != std:
            errs.append(f"{name}/{std}: missing (found {rows.get(name, {}).get('standard')})")

    external = {n: r["standard"] for n, r in rows.items() if r.get("own") == "external"}
    if external != EXTERNAL:
        extra = sorted(set(external.items()) - set(EXTERNAL.items()))
        missing = sorted(set(EXTERNAL.items()) - set(external.items()))
        errs.append(f"external rows: unexpected {extra}, missing {missing}")

    std = tomllib.loads((folder / "routines-standard.toml").read_text())
    forward = std.get("forward", [])
    d = [f for f in forward if f.startswith("D")]
    z = [f for f in forward if f.startswith("Z")]
    rest = sorted(set(forward) - set(d) - set(z))
    if (len(forward), len(d), len(z), rest) != (474, 231, 241, ["IDAMAX", "IZAMAX"]):
        errs.append(f"forwards: {len(forward)} = {len(d)} D + {len(z)} Z + {rest}")
    if len(set(forward)) != len(forward):
        errs.append("forwards: a name twice")
    for must in ("DGETRF", "ZHEEV", "DSGESV", "ZCGESV"):
        if must not in forward:
            errs.append(f"forwards: {must} missing")
    for bad in ("ZDOTC", "ZDOTU", "DGEES", "DGGES"):
        if bad in forward:
            errs.append(f"forwards: {bad} cannot be forwarded")
    protos = std.get("standard", {})
    for name in forward + [r["standard"] for r in rows.values()]:
        if name not in protos:
            errs.append(f"{name}: no [standard] prototype")
        elif any(a.split()[0] == "procedure" for a in protos[name].get("args", [])):
            errs.append(f"{name}: a procedure argument")
    return errs


def main(argv: list[str]) -> int:
    folder = Path(argv[1]) if len(argv) > 1 else Path(__file__).resolve().parents[2] / "linalg"
    errs = check(folder)
    for e in errs:
        print(f"naming_test: {e}", file=sys.stderr)
    if not errs:
        print("naming_test: all rows follow the naming rule")
    return 1 if errs else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
