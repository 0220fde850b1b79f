#!/usr/bin/env bash
# Installs the dependencies, builds the library and the vxk program, and runs the library's main job on
# the bundled defaults.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh
bash scripts/build.sh build -DVXK_BUILD_TESTS=OFF
bash scripts/demo.sh build
