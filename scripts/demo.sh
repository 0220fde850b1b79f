#!/usr/bin/env bash
# Shows the library at work on bundled defaults and samples: scripts/demo.sh BUILD_DIR [OUT_DIR]
# Every vxk line below goes through the vxk program, which uses only the library's public header; what it
# writes (a reprojected sample read back with GDAL's ogrinfo, a generated sheet and its picture, the
# countries of the world in another projection) goes to OUT_DIR, by default BUILD_DIR/demo.
set -euo pipefail
cd "$(dirname "$0")/.."
vxk="$(realpath "${1:-build}")/bin/vxk"
demo="${2:-${1:-build}/demo}"
mkdir -p "$demo"
demo="$(realpath "$demo")"

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

echo "== The sheet of every scale that holds a point (Moscow), and the corners of a sheet"
echo
show --at 55.7558 37.6173
show --at 56 42 --scale 1:200000
show N-37-VI --bounds
show --children N-37-VI --scale 1:100000

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

# Shows a command and runs it in the demo folder, where `data` is the source tree's data folder.
run() {
  local line="\$"
  for a in "$@"; do
    if [[ $a == *" "* ]]; then line+=" \"$a\""; else line+=" $a"; fi
  done
  echo "$line"
  (cd "$demo" && PATH="$(dirname "$vxk"):$PATH" "$@")
  echo
}
ln -sfn "$PWD/data" "$demo/data"

echo "== Reprojection of a bundled sample: roads in Pulkovo 1942 degrees to Gauss-Kruger zone 7, read back by GDAL"
echo
run vxk reproject data/samples/roads.shp gk7/roads.shp --prj \
  --from "+proj=longlat +ellps=krass +towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 +no_defs" \
  --to "+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500000 +y_0=0 +ellps=krass +towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 +units=m +no_defs"
run ogrinfo -q -nomd -al -fid 0 gk7/roads.shp

echo "== A generated sheet: N-37-VI, its area read back by GDAL in degrees, and its picture"
echo
run vxk generate N-37-VI --out n37vi
run ogrinfo -q -nomd -geom=SUMMARY -al n37vi/latlong/HYPS/Hypsa.shp
run ogrinfo -so -nomd n37vi/latlong/HYPS/Hypsa.shp Hypsa
run vxk render n37vi --out N-37-VI.png

echo "== A bundled sample reprojected: the countries of the world from WGS 84 degrees to Robinson"
echo
run vxk reproject data/samples/world.shp robinson/world.shp --prj \
  --from "+proj=longlat +datum=WGS84 +no_defs" --to "+proj=robin +lon_0=0 +datum=WGS84 +units=m +no_defs"

echo "Open $demo/N-37-VI.png to see the sheet."
