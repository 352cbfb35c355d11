#!/usr/bin/env bash
# Cross-builds the DLL's numerical dependencies for 32-bit Windows from
# Debian's source packages: reference BLAS and LAPACK (with LAPACK's own CMake
# build) and FFTW (autotools, --host).  Static libraries go to DIR/prefix;
# each package is built once and cached in DIR (a stamp per package), so a
# second run costs nothing.  Nothing of these sources is kept in the tree.
#
#   tools/build-win-deps.sh DIR [lapack] [fftw]     (default: both)
set -euo pipefail

dir=${1:?usage: $0 DIR [lapack] [fftw]}
shift
what=("$@")
[ ${#what[@]} -eq 0 ] && what=(lapack fftw)
src=$(cd "$(dirname "$0")/.." && pwd)
mkdir -p "$dir"
dir=$(cd "$dir" && pwd)
prefix=$dir/prefix
host=i686-w64-mingw32
jobs=${JOBS:-2}

# The unpacked source tree of Debian source package $1, in DIR/src.
source_tree() {
  local pkg=$1
  mkdir -p "$dir/src"
  local tree
  tree=$(find "$dir/src" -maxdepth 1 -type d -name "$pkg-[0-9]*" | head -n1)
  if [ -z "$tree" ]; then
    # apt's download user cannot write here when we are root: download as root.
    (cd "$dir/src" && apt-get source -qq -o APT::Sandbox::User=root "$pkg" >/dev/null)
    tree=$(find "$dir/src" -maxdepth 1 -type d -name "$pkg-[0-9]*" | head -n1)
  fi
  [ -n "$tree" ] || { echo "build-win-deps: no source tree for $pkg" >&2; exit 1; }
  echo "$tree"
}

build_lapack() {
  # (all four precisions: the linear algebra chapters pair single-precision
  # routines too, and the mixed-precision drivers call them)
  local stamp=$dir/lapack-4.done
  [ -f "$stamp" ] && return 0
  local tree
  tree=$(source_tree lapack)
  echo "build-win-deps: reference BLAS and LAPACK from $(basename "$tree")"
  cmake -S "$tree" -B "$dir/lapack-build" -G Ninja \
    -DCMAKE_TOOLCHAIN_FILE="$src/cmake/mingw-i686.cmake" \
    -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX="$prefix" \
    -DBUILD_SHARED_LIBS=OFF -DBUILD_TESTING=OFF -DTEST_FORTRAN_COMPILER=OFF \
    -DCBLAS=OFF -DLAPACKE=OFF -DBUILD_SINGLE=ON -DBUILD_COMPLEX=ON \
    -DBUILD_DOUBLE=ON -DBUILD_COMPLEX16=ON >"$dir/lapack-configure.log"
  cmake --build "$dir/lapack-build" -j "$jobs" >"$dir/lapack-build.log"
  cmake --install "$dir/lapack-build" >/dev/null
  basename "$tree" >"$stamp"
}

build_fftw() {
  local stamp=$dir/fftw.done
  [ -f "$stamp" ] && return 0
  local tree
  tree=$(source_tree fftw3)
  echo "build-win-deps: FFTW from $(basename "$tree")"
  mkdir -p "$dir/fftw-build"
  (cd "$dir/fftw-build" &&
    "$tree/configure" --host=$host --prefix="$prefix" --enable-static --disable-shared \
      --disable-fortran --disable-doc --enable-sse2 --with-our-malloc \
      CC=$host-gcc-posix >"$dir/fftw-configure.log" &&
    make -j "$jobs" >"$dir/fftw-build.log" && make install >/dev/null)
  basename "$tree" >"$stamp"
}

for w in "${what[@]}"; do
  case $w in
    lapack) build_lapack ;;
    fftw) build_fftw ;;
    *) echo "build-win-deps: unknown package $w" >&2; exit 2 ;;
  esac
done
