#!/usr/bin/env bash
# vxk reproject in folder mode: 16 polygon shape files of 250,000 vertices each (2,500 records of 100
# vertices), geographic Pulkovo 1942 to Gauss-Kruger zone 7, with -j 1 and with -j 2, each the best of
# RUNS. Target on a machine of 2 cores: -j 2 at least 1.8 times as fast as -j 1.
#
# usage: bench/reproject_folder.sh [BUILD_DIR [RUNS]]      (default: build-bench 3)
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build-bench}
runs=${2:-3}

bash scripts/build.sh "$build" -DVXK_BUILD_BENCH=ON -DVXK_BUILD_TESTS=OFF -DCMAKE_BUILD_TYPE=Release \
  >/dev/null
bench="$build/bin/bench_shp_reproject"
vxk="$build/bin/vxk"
work="$build/bench-folder"
rm -rf "$work"
mkdir -p "$work/src"

from="+proj=longlat +ellps=krass +towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 +no_defs"
to="+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500000 +y_0=0 +ellps=krass +towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 +units=m +no_defs"

for i in $(seq -w 1 16); do "$bench" generate "$work/src/sheet$i.shp" 2500 100; done

calc() { awk "BEGIN { print $1 }"; }
# One run: its wall time and the processor time of the program with its child processes.
time_jobs() {
  local start end cpu
  rm -rf "$work/out"
  start=$(date +%s.%N)
  cpu=$(/usr/bin/time -f '%U %S' "$vxk" reproject "$work/src" "$work/out" -j "$1" --from "$from" --to "$to" \
    2>&1 >/dev/null | tail -n 1)
  end=$(date +%s.%N)
  echo "$(calc "$end - $start") $(echo "$cpu" | awk '{ print $1 + $2 }')"
}

declare -A seconds cpu
for jobs in 1 2; do
  times=$(for _ in $(seq "$runs"); do time_jobs "$jobs"; done)
  seconds[$jobs]=$(echo "$times" | awk '{ print $1 }' | sort -g | head -n 1)
  cpu[$jobs]=$(echo "$times" | awk '{ print $2 }' | sort -g | head -n 1)
done
speedup=$(calc "${seconds[1]} / ${seconds[2]}")
printf -- '-j 1: %.3f s   -j 2: %.3f s   (best of %s, 16 files of 250,000 vertices, %s processors)\n' \
  "${seconds[1]}" "${seconds[2]}" "$runs" "$(nproc)"
printf -- 'processor time of the whole job: -j 1 %.3f s, -j 2 %.3f s; load average at the end: %s\n' \
  "${cpu[1]}" "${cpu[2]}" "$(cut -d' ' -f1-3 /proc/loadavg)"
printf -- '-j 2 is %.2f times as fast as -j 1 (target >= 1.8): %s\n' "$speedup" \
  "$(calc "($speedup >= 1.8) ? \"met\" : \"MISSED\"")"
