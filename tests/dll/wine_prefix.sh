#!/bin/sh
# Makes the tests' Wine prefix ($WINEPREFIX) and starts its Wine server and
# system processes for the whole test run: wine_prefix.sh WINE WINESERVER.
#
# Whatever Wine process starts the server also starts services.exe, explorer.exe
# and the rest, which inherit its standard output: a test program's pipe would
# then stay open after the program ends, and its test would wait for it.  So
# they start here, on /dev/null, and stay (the server persists 300 s after the
# last program; tests/dll/run.sh stops it at the end).  A program that crashes
# reports on standard error and ends, instead of waiting in a crash dialog.
set -e
wine=$1
wineserver=$2
mkdir -p "$WINEPREFIX"
# A server already running for the prefix (one the build started) is kept.
"$wineserver" -p300 </dev/null >/dev/null 2>&1 || true
"$wine" wineboot --init </dev/null >/dev/null 2>&1
"$wine" reg add 'HKCU\Software\Wine\WineDbg' /v ShowCrashDialog /t REG_DWORD /d 0 /f \
  </dev/null >/dev/null 2>&1
