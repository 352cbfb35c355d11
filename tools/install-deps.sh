#!/usr/bin/env bash
# Installs the Debian packages a make target needs:
#   tools/install-deps.sh build   the library and the demo
#   tools/install-deps.sh test    the above and the test suite (make check)
#   tools/install-deps.sh bench   the library and the benchmarks with their peers
# (no argument: test).  Idempotent: packages already present are left alone,
# and nothing runs when everything is there.  Installing needs root or sudo;
# without either it prints the command to run and fails.
set -euo pipefail

build=(g++ gfortran cmake ninja-build make python3 binutils libopenblas-dev liblapack-dev)
test=(python3-mpmath libgtest-dev libgmock-dev clang-format pkg-config)
bench=(libbenchmark-dev libgsl-dev libboost-dev python3-numpy)

case "${1:-test}" in
  build) packages=("${build[@]}") ;;
  test) packages=("${build[@]}" "${test[@]}") ;;
  bench) packages=("${build[@]}" "${bench[@]}") ;;
  *)
    echo "usage: $0 [build|test|bench]" >&2
    exit 2
    ;;
esac

# A package counts as present when Debian has it installed; python3-mpmath also
# when python3 can import mpmath from elsewhere (pip).
present() {
  if [ "$1" = python3-mpmath ] && python3 -c 'import mpmath' >/dev/null 2>&1; then
    return 0
  fi
  dpkg-query -W -f='${Status}' "$1" 2>/dev/null | grep -q "install ok installed"
}

missing=()
for p in "${packages[@]}"; do
  if ! present "$p"; then
    missing+=("$p")
  fi
done
[ ${#missing[@]} -eq 0 ] && exit 0

sudo=()
if [ "$(id -u)" -ne 0 ]; then
  if ! command -v sudo >/dev/null 2>&1; then
    echo "install-deps: these Debian packages are missing: ${missing[*]}" >&2
    echo "install-deps: installing them needs root, and sudo is not available; as root (su -) run" >&2
    echo "  apt-get update && apt-get install -y --no-install-recommends ${missing[*]}" >&2
    echo "then run make again." >&2
    exit 1
  fi
  sudo=(sudo)
fi
echo "install-deps: installing ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
"${sudo[@]}" apt-get update -qq
"${sudo[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"
