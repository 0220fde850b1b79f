#!/usr/bin/env bash
# Shows the library at work on bundled defaults: scripts/demo.sh BUILD_DIR
# Every line below goes through the vxk program, which uses only the library's public header.
set -euo pipefail
cd "$(dirname "$0")/.."
vxk="${1:-build}/bin/vxk"

show() {
  echo "\$ vxk sheet $*"
  "$vxk" sheet "$@"
  echo
}

echo "== Sheets at 1:1,000,000: designation, scale, type, validity and middle meridian"
echo
show N-37
show --type 2 N-37
show --type 4 N-59
show --south --type 2 S-60
show A-1

echo "== Lists of legal values of every level"
echo
echo "\$ vxk sheet --lists"
"$vxk" sheet --lists
