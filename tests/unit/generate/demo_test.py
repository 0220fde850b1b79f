#!/usr/bin/env python3
"""The README's run command, scripts/demo.sh, as a newcomer runs it: it ends well, its picture of N-37-VI
opens in GDAL and is not one colour, and the reprojected sample agrees with ogr2ogr's reprojection of
the same file to 1e-3 m. Usage: demo_test.py BUILD_DIR"""
import os
import shutil
import subprocess
import sys

import numpy
from osgeo import gdal, ogr

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from checks import expect, failures, verdict  # noqa: E402

gdal.UseExceptions()
ogr.UseExceptions()

ROOT = os.path.join(os.environ.get("VXK_TEST_TMP", "/tmp"), "demo")
SOURCE = os.path.dirname(os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__)))))
ROBINSON = "+proj=robin +lon_0=0 +datum=WGS84 +units=m +no_defs"


def collect(g):
    if g.GetGeometryCount() == 0:
        return g.GetPoints() or []
    return [p for k in range(g.GetGeometryCount()) for p in collect(g.GetGeometryRef(k))]


def countries(path):
    ds = ogr.Open(path)
    return [numpy.array(collect(f.GetGeometryRef())) for f in ds.GetLayer()]


def main():
    shutil.rmtree(ROOT, ignore_errors=True)
    p = subprocess.run(["bash", os.path.join(SOURCE, "scripts", "demo.sh"), sys.argv[1], ROOT],
                       capture_output=True, cwd=SOURCE)
    out = p.stdout.decode("utf-8")
    expect(p.returncode == 0, f"demo.sh: exit {p.returncode}: {p.stderr.decode('utf-8')}")
    for words in ("$ vxk sheet --neighbours N-37-VI", "$ vxk render", "177 records written"):
        expect(words in out, f"demo.sh does not show {words!r}")
    png = os.path.join(ROOT, "N-37-VI.png")
    if os.path.exists(png):
        ds = gdal.Open(png)
        bands = numpy.dstack([ds.GetRasterBand(b + 1).ReadAsArray() for b in range(3)])
        expect(ds.RasterXSize == 1600, f"the picture is {ds.RasterXSize} wide")
        expect(len(numpy.unique(bands.reshape(-1, 3), axis=0)) > 1, "the picture has one colour")
    else:
        failures.append(f"no {png}")
    ours = os.path.join(ROOT, "robinson", "world.shp")
    theirs = os.path.join(ROOT, "ogr2ogr.gpkg")
    gdal.VectorTranslate(theirs, os.path.join(SOURCE, "data", "samples", "world.shp"), dstSRS=ROBINSON,
                         reproject=True)
    a, b = [countries(x) for x in (ours, theirs)]
    expect(len(a) == len(b) == 177, f"{len(a)} and {len(b)} countries")
    worst = max(float(numpy.abs(x - y).max()) for x, y in zip(a, b) if x.shape == y.shape)
    expect(all(x.shape == y.shape for x, y in zip(a, b)), "the countries differ in their vertices")
    expect(worst < 1e-3, f"the reprojected sample is {worst} m from ogr2ogr's")
    return verdict()


if __name__ == "__main__":
    sys.exit(main())
