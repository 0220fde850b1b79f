#!/usr/bin/env bash
# Configures and builds one build tree: scripts/build.sh DIR [CMAKE OPTIONS...]
set -euo pipefail
cd "$(dirname "$0")/.."
dir=$1
shift
cmake -S . -B "$dir" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo "$@" >/dev/null
cmake --build "$dir" -j2
