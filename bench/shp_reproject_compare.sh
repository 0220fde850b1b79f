#!/usr/bin/env bash
# Reprojection of one polygon shape file of 1,000,000 vertices (10,000 records of 100 vertices) from
# geographic Pulkovo 1942 to Gauss-Kruger zone 7, timed four ways in one run:
#   library  vx_proj4_shp of libvxk_proj4_shp
#   ogr2ogr  GDAL's ogr2ogr with the same two systems
#   floor    a bare loop of proj_trans_generic, one call per record, the file read and written by plain
#            buffered I/O: the least work the job can take, over the pipeline PROJ builds of the two
#            texts as they stand, its cheapest for the pair (the two systems share one datum, and PROJ
#            leaves the shift out)
#   plain    the same loop over the pipeline of each text as the library normalises it alone, with
#            "+lon_wrap=45 +no_defs" appended and the shift kept: how the library joined the two systems
#            before it recognised a shared datum, for information
# Each way runs RUNS times and its best time counts, by the wall clock and by the processor time (on a
# machine that others share, the processor time tells the work apart from the waiting). Targets:
# library within 1.2 times the floor and 0.4 times ogr2ogr.
#
# Then the peak memory (maximum resident set, by /usr/bin/time) of `vxk reproject` on 1,000,000 and
# 4,000,000 vertices, beside the program's baseline (`vxk reproject --help`, the library loaded and
# nothing read). Target: flat, the same for both sizes.
#
# usage: bench/shp_reproject_compare.sh [BUILD_DIR [RUNS]]      (default: build-bench 3)
set -euo pipefail
cd "$(dirname "$0")/.."
source bench/reproject_common.sh
bench_setup shp "$@"

"$bench" generate "$work/src.shp" 10000 100

time_library() { "$bench" library "$work/src.shp" "$work/library.shp" "$from" "$to"; }
time_floor() { "$bench" floor "$work/src.shp" "$work/floor.shp" "$from" "$to"; }
time_plain() { "$bench" plain "$work/src.shp" "$work/plain.shp" "$from" "$to"; }
# ogr2ogr is another process: its processor time is that of the process (user and system), by
# /usr/bin/time, so that it includes its start, as its wall time does.
time_ogr2ogr() {
  rm -f "$work"/ogr2ogr.*
  local start end cpu
  start=$(now)
  cpu=$(/usr/bin/time -f '%U %S' ogr2ogr -f "ESRI Shapefile" -s_srs "$from" -t_srs "$to" "$work/ogr2ogr.shp" \
    "$work/src.shp" 2>&1 | tail -n 1)
  end=$(now)
  echo "$(calc "$end - $start") $(echo "$cpu" | awk '{ print $1 + $2 }')"
}

# Each way: the best wall time and the best processor time of RUNS.
declare -A seconds cpu
ways=(floor library ogr2ogr plain)
for way in "${ways[@]}"; do
  times=$(for _ in $(seq "$runs"); do "time_$way"; done)
  seconds[$way]=$(echo "$times" | awk '{ print $1 }' | best)
  cpu[$way]=$(echo "$times" | awk '{ print $2 }' | best)
done

printf '%-9s %14s %10s %14s %10s\n' way "wall (s)" "/ floor" "processor (s)" "/ floor"
for way in "${ways[@]}"; do
  printf '%-9s %14.3f %10.2f %14.3f %10.2f\n' "$way" "${seconds[$way]}" \
    "$(calc "${seconds[$way]} / ${seconds[floor]}")" "${cpu[$way]}" "$(calc "${cpu[$way]} / ${cpu[floor]}")"
done
printf '(best of %s; load average at the end: %s)\n' "$runs" "$(cut -d' ' -f1-3 /proc/loadavg)"
for clock in wall processor; do
  if [ "$clock" = wall ]; then lib=${seconds[library]} fl=${seconds[floor]} ogr=${seconds[ogr2ogr]}
  else lib=${cpu[library]} fl=${cpu[floor]} ogr=${cpu[ogr2ogr]}; fi
  lib_vs_floor=$(calc "$lib / $fl")
  lib_vs_ogr=$(calc "$lib / $ogr")
  printf '%-9s library / ogr2ogr = %.2f (target <= 0.4): %s\n' "$clock" "$lib_vs_ogr" "$(verdict "$lib_vs_ogr <= 0.4")"
  printf '%-9s library / floor   = %.2f (target <= 1.2): %s\n' "$clock" "$lib_vs_floor" \
    "$(verdict "$lib_vs_floor <= 1.2")"
done

# Peak memory of the program: a file of 4,000,000 vertices beside the one of 1,000,000.
"$bench" generate "$work/src4.shp" 40000 100
peak_kb() { /usr/bin/time -f %M "$@" 2>&1 >/dev/null | tail -n 1; }
base_kb=$(peak_kb "$vxk" reproject --help)
kb_1m=$(peak_kb "$vxk" reproject "$work/src.shp" "$work/vxk1.shp" --from "$from" --to "$to")
kb_4m=$(peak_kb "$vxk" reproject "$work/src4.shp" "$work/vxk4.shp" --from "$from" --to "$to")
printf 'vxk reproject peak memory: baseline %.1f MB, 1,000,000 vertices %.1f MB, 4,000,000 vertices %.1f MB\n' \
  "$(calc "$base_kb / 1024")" "$(calc "$kb_1m / 1024")" "$(calc "$kb_4m / 1024")"
printf 'growth from 1,000,000 to 4,000,000 vertices = %.1f MB (target: flat, under 1 MB): %s\n' \
  "$(calc "($kb_4m - $kb_1m) / 1024")" "$(verdict "$kb_4m - $kb_1m < 1024")"

# The library's result must agree with ogr2ogr's (GDAL's Python bindings needed for this check).
for py in python3 /usr/bin/python3; do
  if "$py" -c "import osgeo.ogr" 2>/dev/null; then
    "$py" tests/unit/reproj/ogr_check.py compare --src "$work/src.shp" --ours "$work/library.shp" \
      --from "$from" --to "$to"
    break
  fi
done
