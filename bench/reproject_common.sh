# Shared by the reprojection benchmarks (sourced from bench/): builds the benchmark tree and sets the
# tools, a fresh work folder bench-NAME in it, and the two systems of every run (geographic Pulkovo 1942
# and Gauss-Kruger zone 7 on the same datum).
#   bench_setup NAME [BUILD_DIR [RUNS]]
bench_setup() {
  local name=$1
  build=${2:-build-bench}
  runs=${3:-3}
  bash scripts/build.sh "$build" -DVXK_BUILD_BENCH=ON -DVXK_BUILD_TESTS=OFF -DCMAKE_BUILD_TYPE=Release \
    >/dev/null
  bench="$build/bin/bench_shp_reproject"
  vxk="$build/bin/vxk"
  work="$build/bench-$name"
  rm -rf "$work"
  mkdir -p "$work"
  from="+proj=longlat +ellps=krass +towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 +no_defs"
  to="+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500000 +y_0=0 +ellps=krass +towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 +units=m +no_defs"
}

now() { date +%s.%N; }
best() { sort -g | head -n 1; }
calc() { awk "BEGIN { print $1 }"; }
verdict() { calc "($1) ? \"met\" : \"MISSED\""; }
