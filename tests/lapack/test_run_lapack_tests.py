"""The LAPACK runner's verdicts: summary lines of each form, and the error-exit
switch on every input file the runner uses."""
import re
import sys
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent))
import run_lapack_tests as runner  # noqa: E402

# (output lines, forced error exits, tests run, failed, problem lines, unjudged lines)
CASES = [
    ([" All tests for DGE routines passed the threshold (   3653 tests run)",
      " All tests for DSY drivers  passed the threshold (    924 tests run)"], False, 4577, 0, 0, 0),
    ([" DGE:    2 out of   3653 tests failed to pass the threshold",
      " DGV drivers:     18 out of   1092 tests failed to pass the threshold"], False, 4745, 20, 0, 0),
    ([" *** DGETRF returned with INFO =   -4 instead of    0",
      " DCHKHS: DHSEQR(E) returned INFO=     1."], False, 0, 0, 2, 0),
    ([" ** On entry to F07AJF/DGETRI parameter number  3 had an illegal value"], False, 0, 0, 1, 0),
    ([" Error in DTRSYL: RMAX =   0.100D+03"], False, 0, 0, 1, 0),
    ([" number of examples where info is not 0 =    0",
      " example number where ILO or IHI wrong  =    0",
      " value of largest test error            =    0.796D+04",
      " total number of examples tested        =   13"], False, 13, 0, 0, 0),
    ([" example number where info is not zero  =    4"], False, 0, 0, 1, 0),
    ([" *** Illegal value of parameter number  2 not detected by DTRSYL ***",
      " *** DEC routines failed the tests of the error exits ***"], True, 0, 0, 0, 2),
    ([" *** XERBLA was called with SRNAME = DGETRF instead of DGETRS ***"], False, 0, 0, 1, 0),
]


class Parse(unittest.TestCase):
    def test_cases(self):
        for lines, forced, run, failed, problems, exits in CASES:
            with self.subTest(first=lines[0]):
                got = runner.parse("\n".join(lines) + "\n End of tests\n", forced)
                self.assertEqual((got["run"], got["failed"], len(got["problems"]), len(got["exits"])),
                                 (run, failed, problems, exits))


class ErrorExitSwitch(unittest.TestCase):
    def test_flag_styles(self):
        text = ("30.0   Threshold value\nT      Put T to test the LAPACK routines\n"
                "T      Put T to test the error exits\n.TRUE.   Put T to test the error exits\n"
                "20.0   Threshold for test ratios\nT\n")
        want = ("30.0   Threshold value\nT      Put T to test the LAPACK routines\n"
                "F      Put T to test the error exits\nF   Put T to test the error exits\n"
                "20.0   Threshold for test ratios\nF\n")
        self.assertEqual(runner.switch_off_error_exits(text), want)

    @unittest.skipUnless(runner.PROGRAMS.is_dir(), "no liblapack-test")
    def test_every_input_switched_off(self):
        # After the switch no input of the runner asks for the error exits,
        # except those whose paths force them.
        flag = re.compile(r"^\s*(T|\.TRUE\.)\s+Put T to test the error exits", re.I)
        for _, infile in runner.LIN + runner.EIG:
            lines = runner.switch_off_error_exits((runner.PROGRAMS / infile).read_text()).splitlines()
            with self.subTest(infile=infile):
                self.assertFalse([l for l in lines if flag.match(l)])
                after_threshold = [b for a, b in zip(lines, lines[1:]) if "threshold" in a.lower()]
                self.assertNotIn("T", [b.strip().upper() for b in after_threshold])


if __name__ == "__main__":
    unittest.main()
