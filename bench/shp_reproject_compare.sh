#!/usr/bin/env bash
# Reprojection of one polygon shape file of 1,000,000 vertices (10,000 records of 100 vertices) from
# geographic Pulkovo 1942 to Gauss-Kruger zone 7, timed three ways in one run:
#   library  vx_proj4_shp of libvxk_proj4_shp
#   ogr2ogr  GDAL's ogr2ogr with the same two systems
#   floor    a bare loop of proj_trans_generic, one call per record, the file read and written by plain
#            buffered I/O: the least work the job can take. PROJ gets the texts that the library hands
#            it: the library normalises every projection text and appends "+lon_wrap=45 +no_defs",
#            which makes PROJ build a heavier pipeline than the texts as given (see floor-raw)
#   floor-raw the same loop with the two texts handed to PROJ as they stand, for information
# Each way runs RUNS times and its best time counts. Targets: library faster than ogr2ogr, and within
# 1.3 times the floor.
#
# usage: bench/shp_reproject_compare.sh [BUILD_DIR [RUNS]]      (default: build-bench 3)
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build-bench}
runs=${2:-3}

bash scripts/build.sh "$build" -DVXK_BUILD_BENCH=ON -DVXK_BUILD_TESTS=OFF -DCMAKE_BUILD_TYPE=Release \
  >/dev/null
bench="$build/bin/bench_shp_reproject"
work="$build/bench-shp"
rm -rf "$work"
mkdir -p "$work"

from="+proj=longlat +ellps=krass +towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 +no_defs"
to="+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500000 +y_0=0 +ellps=krass +towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 +units=m +no_defs"

"$bench" generate "$work/src.shp" 10000 100

now() { date +%s.%N; }
best() { sort -g | head -n 1; }
calc() { awk "BEGIN { print $1 }"; }

time_library() { "$bench" library "$work/src.shp" "$work/library.shp" "$from" "$to"; }
time_floor() { "$bench" floor "$work/src.shp" "$work/floor.shp" "$from" "$to"; }
time_floor-raw() { "$bench" floor-raw "$work/src.shp" "$work/floor_raw.shp" "$from" "$to"; }
time_ogr2ogr() {
  rm -f "$work"/ogr2ogr.*
  local start end
  start=$(now)
  ogr2ogr -f "ESRI Shapefile" -s_srs "$from" -t_srs "$to" "$work/ogr2ogr.shp" "$work/src.shp"
  end=$(now)
  calc "$end - $start"
}

declare -A seconds
ways=(floor library ogr2ogr floor-raw)
for way in "${ways[@]}"; do
  seconds[$way]=$(for _ in $(seq "$runs"); do "time_$way"; done | best)
done

printf '%-9s %12s %16s\n' way "best of $runs (s)" "ratio to floor"
for way in "${ways[@]}"; do
  printf '%-9s %12.3f %16.2f\n' "$way" "${seconds[$way]}" "$(calc "${seconds[$way]} / ${seconds[floor]}")"
done
lib_vs_floor=$(calc "${seconds[library]} / ${seconds[floor]}")
lib_vs_ogr=$(calc "${seconds[library]} / ${seconds[ogr2ogr]}")
printf 'library / ogr2ogr = %.2f (target < 1): %s\n' "$lib_vs_ogr" "$(calc "$lib_vs_ogr < 1 ? \"met\" : \"MISSED\"")"
printf 'library / floor   = %.2f (target <= 1.3): %s\n' "$lib_vs_floor" \
  "$(calc "$lib_vs_floor <= 1.3 ? \"met\" : \"MISSED\"")"

# The library's result must agree with ogr2ogr's (GDAL's Python bindings needed for this check).
for py in python3 /usr/bin/python3; do
  if "$py" -c "import osgeo.ogr" 2>/dev/null; then
    "$py" tests/unit/reproj/ogr_check.py compare --src "$work/src.shp" --ours "$work/library.shp" \
      --from "$from" --to "$to"
    break
  fi
done
