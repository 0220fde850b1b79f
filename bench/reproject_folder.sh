#!/usr/bin/env bash
# vxk reproject in folder mode: 16 polygon shape files of 250,000 vertices each (2,500 records of 100
# vertices), geographic Pulkovo 1942 to Gauss-Kruger zone 7, with -j 1 and with -j 2, each the best of
# RUNS. Target on a machine of 2 cores: -j 2 at least 1.8 times as fast as -j 1.
#
# usage: bench/reproject_folder.sh [BUILD_DIR [RUNS]]      (default: build-bench 3)
set -euo pipefail
cd "$(dirname "$0")/.."
source bench/reproject_common.sh
bench_setup folder "$@"
mkdir -p "$work/src"

for i in $(seq -w 1 16); do "$bench" generate "$work/src/sheet$i.shp" 2500 100; done

# One run: its wall time and the processor time of the program with its child processes.
time_jobs() {
  local start end cpu
  rm -rf "$work/out"
  start=$(now)
  cpu=$(/usr/bin/time -f '%U %S' "$vxk" reproject "$work/src" "$work/out" -j "$1" --from "$from" --to "$to" \
    2>&1 >/dev/null | tail -n 1)
  end=$(now)
  echo "$(calc "$end - $start") $(echo "$cpu" | awk '{ print $1 + $2 }')"
}

declare -A seconds cpu
for jobs in 1 2; do
  times=$(for _ in $(seq "$runs"); do time_jobs "$jobs"; done)
  seconds[$jobs]=$(echo "$times" | awk '{ print $1 }' | best)
  cpu[$jobs]=$(echo "$times" | awk '{ print $2 }' | best)
done
speedup=$(calc "${seconds[1]} / ${seconds[2]}")
printf -- '-j 1: %.3f s   -j 2: %.3f s   (best of %s, 16 files of 250,000 vertices, %s processors)\n' \
  "${seconds[1]}" "${seconds[2]}" "$runs" "$(nproc)"
printf -- 'processor time of the whole job: -j 1 %.3f s, -j 2 %.3f s; load average at the end: %s\n' \
  "${cpu[1]}" "${cpu[2]}" "$(cut -d' ' -f1-3 /proc/loadavg)"
printf -- '-j 2 is %.2f times as fast as -j 1 (target >= 1.8): %s\n' "$speedup" \
  "$(verdict "$speedup >= 1.8")"
