"""The catalogue reader refuses malformed entries, naming the routine; entries
are named and ordered as callers of each convention expect; the compiler holds
implementations to their generated prototypes."""
import os
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

SOURCE = Path(os.environ.get("LBX_SOURCE", Path(__file__).resolve().parents[2]))
CXX = os.environ.get("LBX_CXX", shutil.which("g++") or "c++")
sys.path.insert(0, str(SOURCE / "exports"))

from catalogue import CatalogueError, load_chapter, parse_routine  # noqa: E402
from convention import LINUX, WINDOWS32  # noqa: E402
from model import routine_model  # noqa: E402
import emit_public  # noqa: E402
import generate  # noqa: E402

GOOD = {"name": "Q01AAF", "purpose": "p", "args": ["real X in", "ifail IFAIL"]}
LIBRARY = sorted(SOURCE.glob("*/routines*.toml"))
SHAPES = sorted((SOURCE / "tests" / "generator" / "shapes").glob("routines*.toml"))


def entry(**changes):
    e = dict(GOOD)
    e.update(changes)
    return {k: v for k, v in e.items() if v is not None}


def msg(**changes):
    m = {"id": "A", "ifail": 1, "code": 1, "records": [" ** a"], **changes}
    return {k: v for k, v in m.items() if v is not None}


def chapter(tmp: str, *files: tuple[str, str]):
    folder = Path(tmp) / "q"
    folder.mkdir(exist_ok=True)
    for name, text in files:
        (folder / name).write_text('chapter = "q"\n' + text)
    return load_chapter(sorted(folder.glob("*.toml")))


class Refusals(unittest.TestCase):
    CASES = [
        ("no purpose", entry(purpose=None), "missing 'purpose'"),
        ("no args", entry(args=None), "missing 'args'"),
        ("bad type", entry(args=["double X in", "ifail IFAIL"]), "cannot read argument"),
        ("no intent", entry(args=["real X", "ifail IFAIL"]), "exactly one intent"),
        ("IFAIL not last", entry(args=["ifail IFAIL", "real X in"]), "IFAIL must be the last"),
        ("unknown extent", entry(args=["real X(N) in", "ifail IFAIL"]), "unknown argument N"),
        ("duplicate", entry(args=["real X in", "real X in", "ifail IFAIL"]), "named twice"),
        ("procedure table missing", entry(args=["procedure F", "ifail IFAIL"]),
         "has no [routine.procedure.F]"),
        ("character array in a procedure", entry(
            args=["procedure F", "ifail IFAIL"],
            procedure={"F": {"args": ["integer N in", "character*(*) CH(N) in"]}}),
         "argument CH of character array not supported"),
        ("unknown key", entry(colour="red"), "unknown keys"),
        ("complex result", entry(result="complex"), "result must be"),
        ("record without stars", entry(message=[msg(records=["x"])]), "must begin ' ** '"),
        ("thirteen records", entry(message=[msg(records=[" ** a"] * 13)]), "1 to 12 records"),
        ("pair twice", entry(message=[msg(), msg(id="B")]), "defined twice"),
        ("no records, none shared", entry(message=[msg(records=None)]), "shares none of that id"),
        ("message without IFAIL", entry(args=["real X in"], message=[msg()]), "no IFAIL"),
        ("range from zero", entry(message=[msg(ifail=-1, ifail_range="x")]), "positive least ifail"),
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

    STD = '[standard.DDOT]\npurpose = "p"\nargs = ["integer N in"]\n'
    FILE_CASES = [
        ("chapter differs", "routines.toml", "", "'chapter' must be 'q'"),
        ("unknown standard", "routines.toml", 'paired = [{name = "Q01BAF", standard = "DAXPY"}]\n',
         "Q01BAF: paired with 'DAXPY'"),
        ("unknown own path", "routines.toml",
         'paired = [{name = "Q01BAF", standard = "DDOT", own = "mine"}]\n' + STD, "Q01BAF: own must"),
        ("forward without prototype", "routines.toml", 'forward = ["DAXPY"]\n', "DAXPY: forwarded"),
        ("shared message unused", "routines.toml", '[messages]\nA = [" ** a"]\n', "no routine uses"),
        ("file name", "extra.toml", "", "routines.toml or routines-<part>.toml"),
    ]

    def test_chapter_files_refused_naming_the_place(self):
        for label, name, text, expected in self.FILE_CASES:
            with self.subTest(label), tempfile.TemporaryDirectory() as d:
                if label == "chapter differs":
                    (Path(d) / "q").mkdir()
                    (Path(d) / "q" / name).write_text('chapter = "r"\n')
                    call = lambda: load_chapter(Path(d) / "q" / name)  # noqa: E731
                else:
                    call = lambda: chapter(d, (name, text))  # noqa: E731
                with self.assertRaises(CatalogueError) as cm:
                    call()
                self.assertIn(expected, str(cm.exception))


def model(conv, **kw):
    return routine_model(parse_routine(entry(**kw), "q"), conv)


class EntryModel(unittest.TestCase):
    def test_windows_decorations_count_argument_words(self):
        s14 = parse_routine({"name": "S14AAF", "purpose": "p", "result": "real",
                             "args": ["real X in", "ifail IFAIL"]}, "special")
        m01 = parse_routine({"name": "M01CAF", "purpose": "p",
                             "args": ["real RV(M2) inout", "integer M1 in", "integer M2 in",
                                      "character*1 ORDER in", "ifail IFAIL"]}, "sorting")
        exports = {e.name: e.exports for r in (s14, m01) for e in routine_model(r, WINDOWS32).entries}
        self.assertEqual(exports["S14AAF"], ["S14AAF", "_S14AAF", "_S14AAF@8", "_s14aaf_"])
        self.assertEqual(exports["S14AAFT"], ["S14AAFT", "_S14AAFT", "_S14AAFT@16", "_s14aaft_"])
        self.assertIn("_M01CAF@24", exports["M01CAF"])
        self.assertIn("_M01CAFT@32", exports["M01CAFT"])

    def test_hidden_lengths_linux_at_end_windows_after_address(self):
        kw = dict(args=["character*1 ORDER in", "real X in", "ifail IFAIL"])
        traced = {c.name: [p.name for p in model(c, **kw).entries[1].params] for c in (LINUX, WINDOWS32)}
        self.assertEqual(traced["linux"], ["order", "x", "errbuf", "ifail", "order_len", "errbuf_len"])
        self.assertEqual(traced["windows32"], ["order", "order_len", "x", "errbuf", "errbuf_len", "ifail"])

    def test_linux_names(self):
        m = model(LINUX, args=["procedure F", "ifail IFAIL"], procedure={"F": {"args": ["real X in"]}})
        self.assertEqual([s for e in m.entries for s in e.exports],
                         ["q01aaf_", "Q01AAF", "q01aaft_", "Q01AAFT", "q01aaf_fh_", "Q01AAF_FH"])


class WholeLibrary(unittest.TestCase):
    def test_windows_convention_generates_and_compiles(self):
        with tempfile.TemporaryDirectory() as d:
            out = Path(d)  # the Linux entries are the build's own
            generate.generate(LIBRARY + SHAPES, out / "win", convention="windows32")
            deffile = (out / "win" / "lbx3207qk.def").read_text()
            for line in ["_M01CAF@24=M01CAF@24", "    M01CAF=M01CAF@24", "_C05AYF_FH@16=C05AYF_FH@16"]:
                self.assertIn(line, deffile)
            # gfortran callers: each CHARACTER length right after its address,
            # procedures as addresses, the entry by its undecorated name.
            module = (out / "win" / "gen" / "lbx3207qk.f90").read_text()
            self.assertIn('subroutine lbx_m01caf(rv, m1, m2, order, order_len, ifail) bind(C, name="M01CAF")',
                          module)
            self.assertIn("call lbx_m01caf(rv, m1, m2, order, len(order, c_int32_t), ifail)", module)
            self.assertIn("c_funloc(f)", module)
            sources = sorted(str(p) for p in (out / "win" / "gen").glob("*_routines*.cpp"))
            run = subprocess.run([CXX, "-std=c++20", "-fsyntax-only", "-Wno-attributes",
                                  f"-I{SOURCE}", f"-I{out / 'win'}", *sources],
                                 capture_output=True, text=True)
            self.assertEqual(run.returncode, 0, run.stderr[:2000])

    def test_docs_error_tables_come_from_the_catalogue(self):
        r = parse_routine(entry(args=["integer N in", "real AP(N*(N+1)/2) in", "ifail IFAIL"],
                                message=[msg(code=5, ifail_range="1..N", records=[" ** a {1}."])]),
                          "q")
        self.assertEqual(r.args[1].dims, ["N*(N+1)/2"])
        by_name = {"Q01AAF": routine_model(r, LINUX)}
        text = emit_public.expand_doc("a\n<!-- errors: Q01AAF -->\nb\n", by_name, "p.md")
        self.assertIn("| 1..N | 5 | ` ** a {1}.`", text)
        self.assertNotIn("errors:", text)
        with self.assertRaises(KeyError):
            emit_public.expand_doc("<!-- errors: S99ZZF -->\n", by_name, "p.md")


class DriftGuard(unittest.TestCase):
    def test_implementation_that_differs_from_its_prototype_stops_the_build(self):
        with tempfile.TemporaryDirectory() as d:
            generate.generate(SHAPES, Path(d))
            bad = Path(d) / "bad.cpp"
            bad.write_text('#include "gen/shapes.hpp"\nnamespace lbx::shapes {\n'
                           "double Z99AAFN(float x, lbx::Fail&) { return x; }\n}\n")
            run = subprocess.run([CXX, "-std=c++20", "-fsyntax-only", "-Werror=missing-declarations",
                                  f"-I{SOURCE}", f"-I{d}", str(bad)], capture_output=True, text=True,
                                 env=dict(os.environ, LC_ALL="C"))
        self.assertNotEqual(run.returncode, 0)
        self.assertIn("no previous declaration for 'double lbx::shapes::Z99AAFN(float, lbx::Fail&)'",
                      run.stderr)


if __name__ == "__main__":
    unittest.main()
