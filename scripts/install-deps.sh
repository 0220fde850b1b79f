#!/usr/bin/env bash
# Installs everything the project needs to build, test and benchmark on Debian 12 (run as root).
# Test and benchmark only: GDAL with its Python bindings and numpy (independent readers and checks),
# r-cran-spdata (real-world polygon shape files for the inside point check), libgeos-dev (GEOS beside
# our geometry in the benchmarks).
set -euo pipefail

packages=(
  build-essential cmake ninja-build pkg-config python3 binutils
  libproj-dev proj-data proj-bin
  libcairo2-dev fonts-liberation  # vxk render: cairo draws, Liberation Serif stands in for Times New Roman
  libgtest-dev libgmock-dev libbenchmark-dev
  libgeos-dev  # benchmarks only: the planar algorithms are timed beside GEOS
  gdal-bin python3-gdal python3-numpy
  python3-venv python3-pytest python3-setuptools python3-wheel
  r-cran-spdata  # real-world polygon shape files for the geometry checks
  clang-14 libclang-rt-14-dev
)

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  export DEBIAN_FRONTEND=noninteractive
  apt-get update -qq
  apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
