#!/usr/bin/env bash
# Runs every fuzz target for a given time each, starting from its seed corpus, for campaigns longer
# than the suite's replay of the seeds (docs/fuzzing.md).
#
#   bash fuzz/run.sh BUILD_DIR [SECONDS_PER_TARGET] [TARGET...]
#
# BUILD_DIR is a build with -DVXK_BUILD_FUZZ=ON (clang); SECONDS_PER_TARGET defaults to 60; TARGET
# names (shp, dbf, tld, ...) choose some targets, all by default. The checked-in seeds in
# fuzz/corpus/<target>/ are only read: new inputs go to $VXK_FUZZ_WORK/<target>/corpus/ and inputs that
# crash, leak, hang or run out of memory to $VXK_FUZZ_WORK/<target>/crashes/ (VXK_FUZZ_WORK defaults to
# fuzz-work/ in the current folder). The exit status is 1 when a target found something.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
build=${1:?usage: bash fuzz/run.sh BUILD_DIR [SECONDS_PER_TARGET] [TARGET...]}
seconds=${2:-60}
shift $(($# < 2 ? $# : 2))
work=${VXK_FUZZ_WORK:-fuzz-work}

targets=("$@")
if [ ${#targets[@]} -eq 0 ]; then
  for src in "$here"/fuzz_*.cpp; do
    name=$(basename "$src" .cpp)
    targets+=("${name#fuzz_}")
  done
fi

failed=()
for name in "${targets[@]}"; do
  program="$build/bin/fuzz_$name"
  seeds="$here/corpus/$name"
  if [ ! -x "$program" ]; then
    echo "fuzz/run.sh: $program is missing; build it with -DVXK_BUILD_FUZZ=ON" >&2
    failed+=("$name (not built)")
    continue
  fi
  mkdir -p "$work/$name/corpus" "$work/$name/crashes"
  echo "== fuzz_$name: ${seconds}s from $seeds"
  if ! "$program" -max_total_time="$seconds" -rss_limit_mb=1024 -timeout=20 -print_final_stats=1 \
      -artifact_prefix="$work/$name/crashes/" "$work/$name/corpus" "$seeds"; then
    failed+=("$name")
  fi
done

echo
for name in "${targets[@]}"; do
  found=$(find "$work/$name/crashes" -type f 2>/dev/null | wc -l)
  echo "fuzz_$name: $found input(s) in $work/$name/crashes"
done
if [ ${#failed[@]} -gt 0 ]; then
  echo "fuzz/run.sh: failed: ${failed[*]}" >&2
  exit 1
fi
