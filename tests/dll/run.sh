#!/usr/bin/env bash
# Runs the DLL's tests under Wine on a virtual display of their own:
#   tests/dll/run.sh BUILD_DIR [ctest options]
# Xvfb gives Wine a display (the output window, the console of console_run);
# the Wine server of the build's own prefix is stopped afterwards.
set -uo pipefail
build=$(cd "${1:?usage: $0 BUILD_DIR [ctest options]}" && pwd)
shift
export WINEPREFIX=$build/wineprefix WINEDEBUG=-all
xvfb-run -a -s "-screen 0 1280x1024x24 -nolisten tcp" ctest --test-dir "$build" --output-on-failure "$@"
rc=$?
wineserver -k 2>/dev/null || true
exit $rc
