#!/usr/bin/env python3
"""The .prj text of vx_pj4_export_esri, written beside a shape file, read back by ogrinfo (GDAL) as the
same coordinate system as the PROJ string it came from: the same ellipsoid, and sample points of it
mapped to the same coordinates. ESRI WKT 1 has no place for a datum shift, so +towgs84 is the one
parameter that does not come back, and it is not compared."""
import os
import re
import subprocess
import sys

from osgeo import ogr, osr

TOOL = sys.argv[1]
TMP = os.path.join(os.environ.get("VXK_TEST_TMP", "/tmp"), "pj4_prj_ogrinfo")

SYSTEMS = [
    "+proj=tmerc +lon_0=39 +lat_0=0 +x_0=7500000 +y_0=0 +k_0=1 +ellps=krass +units=m",
    "+proj=longlat +ellps=krass +towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 +no_defs",
    "+proj=utm +zone=37 +datum=WGS84 +units=m +no_defs",
    "+proj=longlat +datum=WGS84 +no_defs",
    "+proj=lcc +lat_1=44 +lat_2=68 +lat_0=0 +lon_0=100 +x_0=0 +y_0=0 +ellps=WGS84 +units=m",
    "+proj=merc +lon_0=0 +k=1 +x_0=0 +y_0=0 +ellps=WGS84 +units=m",
]

POINTS = [(lon, lat) for lon in (30.5, 37.25, 44.0) for lat in (41.0, 52.5, 63.75)]


def traditional(srs):
    srs.SetAxisMappingStrategy(osr.OAMS_TRADITIONAL_GIS_ORDER)
    return srs


def images(srs):
    """Where the sample points of the system's own geographic base land in the system."""
    base = traditional(srs.CloneGeogCS())
    t = osr.CoordinateTransformation(base, traditional(srs.Clone()))
    return [t.TransformPoint(lon, lat)[:2] for lon, lat in POINTS]


def same(got, want):
    """The same ellipsoid and the same mapping from it to the plane: 0.1 mm in metres, 1e-9 in degrees."""
    if abs(got.GetSemiMajor() - want.GetSemiMajor()) > 1e-6 or abs(got.GetInvFlattening() - want.GetInvFlattening()) > 1e-9:
        return False
    if bool(got.IsGeographic()) != bool(want.IsGeographic()):
        return False
    tolerance = 1e-9 if want.IsGeographic() else 1e-4
    return all(abs(a - c) <= tolerance and abs(b - d) <= tolerance
               for (a, b), (c, d) in zip(images(got), images(want)))


def make_shape(path):
    driver = ogr.GetDriverByName("ESRI Shapefile")
    if os.path.exists(path):
        driver.DeleteDataSource(path)
    ds = driver.CreateDataSource(path)
    layer = ds.CreateLayer("labels", geom_type=ogr.wkbPoint)
    feature = ogr.Feature(layer.GetLayerDefn())
    feature.SetGeometry(ogr.CreateGeometryFromWkt("POINT (1 2)"))
    layer.CreateFeature(feature)
    ds = None


def srs_from_ogrinfo(path):
    out = subprocess.run(["ogrinfo", "-so", "-al", path], check=True, capture_output=True, text=True).stdout
    m = re.search(r"Layer SRS WKT:\n(.*?)\n(Data axis|[A-Za-z_]+: )", out, re.S)
    if not m:
        raise SystemExit("ogrinfo shows no coordinate system:\n" + out)
    srs = osr.SpatialReference()
    if srs.ImportFromWkt(m.group(1)) != 0:
        raise SystemExit("GDAL cannot read back:\n" + m.group(1))
    return srs


def main():
    os.makedirs(TMP, exist_ok=True)
    failures = 0
    for i, text in enumerate(SYSTEMS):
        shp = os.path.join(TMP, f"s{i}.shp")
        make_shape(shp)
        if os.path.exists(shp[:-4] + ".prj"):
            os.remove(shp[:-4] + ".prj")
        subprocess.run([TOOL, shp, text], check=True)
        expected = osr.SpatialReference()
        expected.ImportFromProj4(text)
        got = srs_from_ogrinfo(shp)
        ok = same(got, expected)
        print(("ok  " if ok else "FAIL") + f" {text}\n     ogrinfo: {got.ExportToProj4()}")
        failures += not ok
        with open(shp[:-4] + ".pj4", encoding="utf-8") as f:
            if f.read() != text + "\n":
                print(f"FAIL .pj4 beside {shp} does not hold the text")
                failures += 1
    sys.exit(1 if failures else 0)


main()
