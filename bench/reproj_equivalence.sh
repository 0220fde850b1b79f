#!/usr/bin/env bash
# The engine against the plain way of joining two systems (each full text handed to PROJ with its datum
# shift), over a million points per pair: the equivalence test of the unit suite, which runs fewer
# points so that it stays quick in the sanitizer build.
#
# usage: bench/reproj_equivalence.sh [BUILD_DIR [POINTS]]      (default: build 1000000)
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build}
points=${2:-1000000}

[ -f "$build/CMakeCache.txt" ] || bash scripts/build.sh "$build" -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build "$build" -j2 --target unit_reproj >/dev/null
start=$(date +%s.%N)
VXK_EQUIVALENCE_POINTS=$points "$build/bin/unit_reproj" --gtest_filter='ReprojXyExecEquivalence.*'
end=$(date +%s.%N)
awk "BEGIN { printf \"%d points per pair in %.1f s\\n\", $points, $end - $start }"
