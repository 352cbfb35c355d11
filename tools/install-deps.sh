#!/usr/bin/env bash
# Installs the Debian packages the build, the tests and the benchmarks need.
# Idempotent: packages already present are left alone, and nothing runs when
# everything is there.
#
#   tools/install-deps.sh            the Linux build, tests and benchmarks
#   tools/install-deps.sh --windows  the 32-bit Windows DLL as well: the mingw-w64
#                                    i686 cross compilers, Wine (with the i386
#                                    architecture), Xvfb and ImageMagick for the
#                                    output-window test, and a deb-src line so
#                                    that the DLL's dependencies can be built
#                                    from Debian's source packages
set -euo pipefail

windows=0
case "${1:-}" in
  "") ;;
  --windows) windows=1 ;;
  *) echo "usage: $0 [--windows]" >&2; exit 2 ;;
esac

packages=(
  g++ gfortran cmake ninja-build python3 binutils
  libopenblas-dev liblapack-dev libfftw3-dev
  libgtest-dev libgmock-dev libbenchmark-dev
  libgsl-dev libboost-dev clang-format
)
windows_packages=(
  g++-mingw-w64-i686-posix gfortran-mingw-w64-i686-posix binutils-mingw-w64-i686
  dpkg-dev make xvfb imagemagick wine wine32:i386
)

sudo=""
if [ "$(id -u)" -ne 0 ]; then
  sudo="sudo"
fi
export DEBIAN_FRONTEND=noninteractive

installed() {
  dpkg-query -W -f='${Status}' "$1" 2>/dev/null | grep -q "install ok installed"
}

missing=()
for p in "${packages[@]}"; do
  installed "$p" || missing+=("$p")
done
wmissing=()
if [ $windows -eq 1 ]; then
  for p in "${windows_packages[@]}"; do
    installed "$p" || wmissing+=("$p")
  done
fi

# Source packages of the archive this machine already installs from.
deb_src_missing() {
  ! grep -rqsE '^(deb-src|Types:.*deb-src)' /etc/apt/sources.list /etc/apt/sources.list.d/
}
need_src=0
if [ $windows -eq 1 ] && deb_src_missing; then
  need_src=1
fi

[ ${#missing[@]} -eq 0 ] && [ ${#wmissing[@]} -eq 0 ] && [ $need_src -eq 0 ] && exit 0

if [ $need_src -eq 1 ]; then
  echo "install-deps: adding deb-src lines for the configured Debian archive"
  line=$(grep -hsE '^deb ' /etc/apt/sources.list | grep -m1 -E 'debian( |/)' || true)
  if [ -n "$line" ]; then
    echo "deb-src ${line#deb }" | $sudo tee /etc/apt/sources.list.d/lbx-deb-src.list >/dev/null
  else
    # deb822 form: the stanza that names the Debian archive, as deb-src
    f=$(grep -lsE '^URIs:.*/debian/?$' /etc/apt/sources.list.d/*.sources | head -n1)
    [ -n "$f" ] || { echo "install-deps: no Debian archive configured" >&2; exit 1; }
    awk -v RS= '/URIs:[^\n]*\/debian\/?(\n|$)/ {print; exit}' "$f" |
      sed 's/^Types:.*/Types: deb-src/' | $sudo tee /etc/apt/sources.list.d/lbx-deb-src.sources >/dev/null
  fi
fi

if [ ${#wmissing[@]} -gt 0 ]; then
  if ! dpkg --print-foreign-architectures | grep -qx i386; then
    $sudo dpkg --add-architecture i386
  fi
fi

echo "install-deps: installing ${missing[*]} ${wmissing[*]}"
# A lagging index of one architecture (the i386 security index, say) is not
# fatal: the packages below are taken from the release.
$sudo apt-get update -qq || echo "install-deps: apt-get update reported errors; going on"
if [ ${#missing[@]} -gt 0 ]; then
  $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
if [ ${#wmissing[@]} -gt 0 ]; then
  # The i386 security index can lag behind amd64's: take Wine from the release.
  release=$(. /etc/os-release && echo "$VERSION_CODENAME")
  $sudo apt-get install -y -qq --no-install-recommends -t "$release" --allow-downgrades "${wmissing[@]}"
fi
