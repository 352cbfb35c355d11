#!/usr/bin/env bash
# Installs the Debian packages a make target needs:
#   tools/install-deps.sh build     the library and the demo
#   tools/install-deps.sh test      the above and the test suite (make check; liblapack-test:
#                                   LAPACK's testing programs, make check-lapack)
#   tools/install-deps.sh bench     the library and the benchmarks with their peers
#                                   (python3-scipy: bench/pchip_scipy.py, run by /usr/bin/python3)
#   tools/install-deps.sh windows   the 32-bit Windows DLL (make dll, make check-dll):
#                                   the mingw-w64 i686 cross compilers, Wine (with the
#                                   i386 architecture), Xvfb and ImageMagick for the
#                                   output-window test, and a deb-src line so that the
#                                   DLL's dependencies build from Debian's source packages
# (no argument: test).  Idempotent: packages already present are left alone,
# and nothing runs when everything is there.  Installing needs root or sudo;
# without either it prints the command to run and fails.  The sanitizer
# runtimes (libasan, libubsan, libtsan) come with g++.
set -euo pipefail

build=(g++ gfortran cmake ninja-build make python3 binutils libopenblas-dev liblapack-dev
       libfftw3-dev)
test=(python3-mpmath libgtest-dev libgmock-dev clang-format pkg-config liblapack-test)
bench=(libbenchmark-dev libgsl-dev libboost-dev python3-scipy python3-numpy)
windows=(g++-mingw-w64-i686-posix gfortran-mingw-w64-i686-posix binutils-mingw-w64-i686
         dpkg-dev xvfb imagemagick wine wine32:i386)

release_packages=()
case "${1:-test}" in
  build) packages=("${build[@]}") ;;
  test) packages=("${build[@]}" "${test[@]}") ;;
  bench) packages=("${build[@]}" "${bench[@]}") ;;
  windows | --windows)
    packages=("${build[@]}" "${test[@]}")
    release_packages=("${windows[@]}")
    ;;
  *)
    echo "usage: $0 [build|test|bench|windows]" >&2
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
  present "$p" || missing+=("$p")
done
rmissing=()
for p in "${release_packages[@]}"; do
  present "$p" || rmissing+=("$p")
done
# Source packages of the archive this machine already installs from.
need_src=0
if [ ${#release_packages[@]} -gt 0 ] &&
  ! grep -rqsE '^(deb-src|Types:.*deb-src)' /etc/apt/sources.list /etc/apt/sources.list.d/; then
  need_src=1
fi
[ ${#missing[@]} -eq 0 ] && [ ${#rmissing[@]} -eq 0 ] && [ $need_src -eq 0 ] && exit 0

sudo=()
if [ "$(id -u)" -ne 0 ]; then
  if ! command -v sudo >/dev/null 2>&1; then
    echo "install-deps: these Debian packages are missing: ${missing[*]} ${rmissing[*]}" >&2
    echo "install-deps: installing them needs root, and sudo is not available; as root (su -) run" >&2
    echo "  tools/install-deps.sh ${1:-test}" >&2
    echo "then run make again." >&2
    exit 1
  fi
  sudo=(sudo)
fi
export DEBIAN_FRONTEND=noninteractive

if [ $need_src -eq 1 ]; then
  echo "install-deps: adding deb-src lines for the configured Debian archive"
  line=$(grep -hsE '^deb ' /etc/apt/sources.list | grep -m1 -E 'debian( |/)' || true)
  if [ -n "$line" ]; then
    echo "deb-src ${line#deb }" | "${sudo[@]}" tee /etc/apt/sources.list.d/lbx-deb-src.list >/dev/null
  else
    # deb822 form: the stanza that names the Debian archive, as deb-src
    f=$(grep -lsE '^URIs:.*/debian/?$' /etc/apt/sources.list.d/*.sources | head -n1)
    [ -n "$f" ] || { echo "install-deps: no Debian archive configured" >&2; exit 1; }
    awk -v RS= '/URIs:[^\n]*\/debian\/?(\n|$)/ {print; exit}' "$f" |
      sed 's/^Types:.*/Types: deb-src/' | "${sudo[@]}" tee /etc/apt/sources.list.d/lbx-deb-src.sources >/dev/null
  fi
fi
if [ ${#rmissing[@]} -gt 0 ] && ! dpkg --print-foreign-architectures | grep -qx i386; then
  "${sudo[@]}" dpkg --add-architecture i386
fi

echo "install-deps: installing ${missing[*]} ${rmissing[*]}"
# A mirror in mid-sync, or a lagging index of one architecture (the i386
# security index, say), makes update fail for one index; the install can still work.
"${sudo[@]}" apt-get update -qq || echo "install-deps: apt-get update reported errors; going on"
if [ ${#missing[@]} -gt 0 ]; then
  "${sudo[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
if [ ${#rmissing[@]} -gt 0 ]; then
  # The i386 security index can lag behind amd64's: take Wine from the release.
  release=$(. /etc/os-release && echo "$VERSION_CODENAME")
  "${sudo[@]}" apt-get install -y -qq --no-install-recommends -t "$release" --allow-downgrades \
    "${rmissing[@]}"
fi
