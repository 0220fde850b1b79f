#!/usr/bin/env bash
# Shows the library at work on bundled defaults: scripts/demo.sh BUILD_DIR [OUT_DIR]
# Every line below goes through the vxk program, which uses only the library's public header. The files
# it writes (a generated sheet, its picture, a reprojected sample) go to OUT_DIR, by default BUILD_DIR/demo.
set -euo pipefail
cd "$(dirname "$0")/.."
vxk="${1:-build}/bin/vxk"
demo="${2:-${1:-build}/demo}"

show() {
  echo "\$ vxk sheet $*"
  "$vxk" sheet "$@"
  echo
}

echo "== Map sheets at every scale: designation, scale, type, validity and middle meridian"
echo
show N-37
show --type 4 N-59
show --type 2 N-37-Б
show --type 3 N-37-VI
show --type 2 N-37-12
show --type 4 N-37-11-Б
show --type 4 N-37-12-Б-а
show N-37-12-Б-в-4
show --south --type 2 S-60

echo "== Neighbours of 1:200,000 sheets"
echo
show --neighbours N-37-VI
show --neighbours --type 2 N-60-V
show --neighbours --south A-37-III

echo "== Lists of legal values of every level"
echo
echo "\$ vxk sheet --lists"
"$vxk" sheet --lists

echo
echo "== A sheet generated and drawn"
echo
echo "\$ vxk generate N-37-VI --out $demo/N-37-VI"
"$vxk" generate N-37-VI --out "$demo/N-37-VI"
echo
echo "\$ vxk render $demo/N-37-VI --out $demo/N-37-VI.png"
"$vxk" render "$demo/N-37-VI" --out "$demo/N-37-VI.png"
echo
echo "Open $demo/N-37-VI.png to see the sheet."

echo
echo "== A bundled sample reprojected: the countries of the world from WGS 84 degrees to Robinson"
echo
wgs84="+proj=longlat +datum=WGS84 +no_defs"
robinson="+proj=robin +lon_0=0 +datum=WGS84 +units=m +no_defs"
echo "\$ vxk reproject data/samples/world.shp $demo/robinson/world.shp --prj --from \"$wgs84\" --to \"$robinson\""
"$vxk" reproject data/samples/world.shp "$demo/robinson/world.shp" --prj --from "$wgs84" --to "$robinson"
