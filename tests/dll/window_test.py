#!/usr/bin/env python3
"""Runs window_records.exe under Wine and judges it.

Usage: window_test.py WINE PROGRAM MODE [SCREENSHOT.png]

The program reads the output window's text back itself and prints a FAIL line
for each fault; it passes on exit status 0 and no FAIL line.  With a
screenshot, the program runs on a Wine desktop of its own and holds its window
open while ImageMagick's `import` photographs the screen; the picture must
exist and show more than a blank screen.
"""
import os
import subprocess
import sys
import tempfile
import time
from pathlib import Path


def winpath(p: Path) -> str:
    return "Z:" + str(p).replace("/", "\\")


def main() -> int:
    wine, program, mode = sys.argv[1], Path(sys.argv[2]).resolve(), sys.argv[3]
    shot = Path(sys.argv[4]) if len(sys.argv) > 4 else None
    if "DISPLAY" not in os.environ:
        print("FAIL: no DISPLAY (run the tests through tests/dll/run.sh)")
        return 1
    problems = []
    with tempfile.TemporaryDirectory() as work:
        work = Path(work)
        command = [wine, str(program), mode]
        if shot is not None:
            command = [wine, "explorer", "/desktop=lbx3207qk,1280x1024", winpath(program), mode,
                       "--hold", winpath(work)]
        out = open(work / "stdout.txt", "w+b")
        proc = subprocess.Popen(command, cwd=work, stdout=out, stderr=subprocess.STDOUT)
        if shot is not None:
            deadline = time.monotonic() + 120
            while not (work / "ready").exists() and proc.poll() is None and time.monotonic() < deadline:
                time.sleep(0.1)
            if (work / "ready").exists():
                time.sleep(1.0)  # the window paints
                subprocess.run(["import", "-window", "root", str(shot)], check=False)
            else:
                problems.append("the program never signalled its window ready")
            (work / "done").touch()
        try:
            rc = proc.wait(timeout=240)
        except subprocess.TimeoutExpired:
            proc.kill()
            rc = -1
        out.seek(0)
        text = out.read().decode("latin-1").replace("\r\n", "\n")
    print(text, end="")
    problems += [l for l in text.splitlines() if l.startswith("FAIL")]
    if rc != 0:
        problems.append(f"exit status {rc}")
    if shot is not None:
        if not shot.exists():
            problems.append("no screenshot")
        else:
            colours = subprocess.run(["identify", "-format", "%k", str(shot)], capture_output=True,
                                     text=True).stdout.strip()
            if not colours.isdigit() or int(colours) < 8:
                problems.append(f"the screenshot looks blank ({colours} colours)")
            else:
                print(f"screenshot {shot}: {colours} colours")
    for p in problems:
        print("FAIL:", p)
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
