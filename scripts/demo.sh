#!/usr/bin/env bash
# Shows the library at work on bundled defaults: scripts/demo.sh BUILD_DIR
set -euo pipefail
cd "$(dirname "$0")/.."
vxk="${1:-build}/bin/vxk"
"$vxk" --help
