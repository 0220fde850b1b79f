#!/usr/bin/env bash
# Remakes the picture of the sheet N-37-VI that the README shows, docs/img/N-37-VI.png, with the vxk of
# this tree: the sheet is generated with the defaults of vxk generate and drawn by vxk render.
#
# usage: bash scripts/readme-picture.sh [BUILD_DIR]      (default: build; configured if it is not)
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build}
if [ ! -f "$build/build.ninja" ]; then
  cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DVXK_BUILD_TESTS=OFF >/dev/null
fi
cmake --build "$build" -j2 --target vxk >/dev/null
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
"$build/bin/vxk" generate N-37-VI --out "$work/N-37-VI" >/dev/null
"$build/bin/vxk" render "$work/N-37-VI" --out docs/img/N-37-VI.png --size 1200
