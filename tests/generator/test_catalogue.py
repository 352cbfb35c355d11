"""The catalogue reader refuses malformed entries, naming the routine, and the
conventions name and order the entries as callers expect."""
import os
import sys
import tempfile
import unittest
from pathlib import Path

SOURCE = Path(os.environ.get("LBX_SOURCE", Path(__file__).resolve().parents[2]))
sys.path.insert(0, str(SOURCE / "exports"))

from catalogue import CatalogueError, load_chapter, parse_routine  # noqa: E402
from convention import LINUX, WINDOWS32  # noqa: E402
import generate  # noqa: E402

GOOD = {"name": "Q01AAF", "purpose": "p", "args": ["real X in", "ifail IFAIL"]}


def entry(**changes):
    e = dict(GOOD)
    e.update(changes)
    return {k: v for k, v in e.items() if v is not None}


class Refusals(unittest.TestCase):
    CASES = [
        ("no purpose", entry(purpose=None), "missing 'purpose'"),
        ("no args", entry(args=None), "missing 'args'"),
        ("bad type", entry(args=["double X in", "ifail IFAIL"]), "cannot read argument"),
        ("no intent", entry(args=["real X", "ifail IFAIL"]), "exactly one intent"),
        ("two intents", entry(args=["real X in out", "ifail IFAIL"]), "exactly one intent"),
        ("IFAIL not last", entry(args=["ifail IFAIL", "real X in"]), "IFAIL must be the last"),
        ("unknown extent", entry(args=["real X(N) in", "ifail IFAIL"]), "unknown argument N"),
        ("duplicate", entry(args=["real X in", "real X in", "ifail IFAIL"]), "named twice"),
        ("procedure table missing", entry(args=["procedure F", "ifail IFAIL"]), "has no [routine.procedure.F]"),
        ("unknown key", entry(colour="red"), "unknown keys"),
        ("bad result", entry(result="complex"), "result must be"),
        ("record without stars", entry(message=[{"id": "A", "ifail": 1, "code": 1, "records": ["x"]}]),
         "must begin ' ** '"),
        ("thirteen records", entry(message=[{"id": "A", "ifail": 1, "code": 1, "records": [" ** a"] * 13}]),
         "1 to 12 records"),
        ("pair twice", entry(message=[{"id": "A", "ifail": 1, "code": 1, "records": [" ** a"]},
                                      {"id": "B", "ifail": 1, "code": 1, "records": [" ** b"]}]),
         "defined twice"),
        ("message without IFAIL", entry(args=["real X in"],
                                        message=[{"id": "A", "ifail": 1, "code": 1, "records": [" ** a"]}]),
         "no IFAIL"),
        ("extra without value", entry(extra=["integer N in"]), "needs '= VALUE'"),
        ("export_impl with IFAIL", entry(export_impl=True), "export_impl"),
        ("direct with IFAIL", entry(layers="direct"), "direct routine"),
    ]

    def test_each_refusal_names_the_routine(self):
        for label, e, text in self.CASES:
            with self.subTest(label):
                with self.assertRaises(CatalogueError) as cm:
                    parse_routine(e, "q")
                self.assertIn("Q01AAF", str(cm.exception))
                self.assertIn(text, str(cm.exception))

    def test_chapter_must_match_folder(self):
        with tempfile.TemporaryDirectory() as d:
            p = Path(d) / "sorting" / "routines.toml"
            p.parent.mkdir()
            p.write_text('chapter = "special"\n')
            with self.assertRaises(CatalogueError):
                load_chapter(p)


class Conventions(unittest.TestCase):
    def routine(self, **kw):
        return parse_routine(entry(**kw), "q")

    def test_windows_decorations_count_argument_words(self):
        s14 = parse_routine({"name": "S14AAF", "purpose": "p", "result": "real",
                             "args": ["real X in", "ifail IFAIL"]}, "special")
        m01 = parse_routine({"name": "M01CAF", "purpose": "p",
                             "args": ["real RV(M2) inout", "integer M1 in", "integer M2 in",
                                      "character*1 ORDER in", "ifail IFAIL"]}, "sorting")
        syms = WINDOWS32.symbols(s14) + WINDOWS32.symbols(m01)
        for s in ["S14AAF", "_S14AAF", "_S14AAF@8", "_s14aaf_", "_S14AAFT@16", "_s14aaft_",
                  "_M01CAF@24", "_M01CAFT@32"]:
            self.assertIn(s, syms)

    def test_hidden_lengths_linux_at_end_windows_after_address(self):
        r = self.routine(args=["character*1 ORDER in", "real X in", "ifail IFAIL"])
        from convention import routine_slots
        slots = routine_slots(r, "traced")
        linux = [(k, s.name) for k, s in LINUX.order(slots)]
        win = [(k, s.name) for k, s in WINDOWS32.order(slots)]
        self.assertEqual(linux, [("arg", "order"), ("arg", "x"), ("arg", "errbuf"), ("arg", "ifail"),
                                 ("len", "order"), ("len", "errbuf")])
        self.assertEqual(win, [("arg", "order"), ("len", "order"), ("arg", "x"), ("arg", "errbuf"),
                               ("len", "errbuf"), ("arg", "ifail")])

    def test_linux_names_and_adapters(self):
        r = self.routine(args=["procedure F", "ifail IFAIL"], procedure={"F": {"args": ["real X in"]}})
        self.assertEqual(LINUX.symbols(r), ["q01aaf_", "Q01AAF", "q01aaft_", "Q01AAFT", "q01aaf_fh_", "Q01AAF_FH"])

    def test_every_routine_gets_the_allocation_message(self):
        r = self.routine()
        self.assertEqual([(m.ifail, m.code) for m in r.messages], [(-999, 99991)])


class WholeLibrary(unittest.TestCase):
    def test_library_catalogues_generate(self):
        cats = sorted(SOURCE.glob("*/routines.toml"))
        with tempfile.TemporaryDirectory() as d:
            generate.generate(cats, Path(d), windows_def=True)
            exports = (Path(d) / "exports.txt").read_text().split()
            self.assertIn("m01caf_", exports)
            self.assertIn("X02AJFN", exports)
            module = (Path(d) / "gen" / "lbx3207qk.f90").read_text()
            self.assertIn("subroutine m01caf(rv, m1, m2, order, ifail)", module)
            self.assertIn("_M01CAF@24", (Path(d) / "lbx3207qk.def").read_text())


if __name__ == "__main__":
    unittest.main()
