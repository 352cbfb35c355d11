#!/usr/bin/env bash
# Installs the Debian packages the build, the tests and the benchmarks need.
# Idempotent: packages already present are left alone, and nothing runs when
# everything is there.  The sanitizer runtimes (libasan, libubsan, libtsan)
# come with g++.
set -euo pipefail

packages=(
  g++ gfortran cmake ninja-build python3 python3-mpmath binutils
  libopenblas-dev liblapack-dev libfftw3-dev
  libgtest-dev libgmock-dev libbenchmark-dev
  libgsl-dev libboost-dev clang-format
)

missing=()
for p in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
    missing+=("$p")
  fi
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "install-deps: installing ${missing[*]}"
sudo=""
if [ "$(id -u)" -ne 0 ]; then
  sudo="sudo"
fi
export DEBIAN_FRONTEND=noninteractive
# A mirror in mid-sync makes update fail for one index; the install can still work.
$sudo apt-get update -qq || echo "install-deps: apt-get update reported errors; installing anyway"
$sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
