#!/usr/bin/env python3
"""The hosts' shape file reader (vx_shp_reader_*) on files that GDAL wrote: every vertex of every part
and every value of the table agree with what GDAL reads back from the same files. Lines with z,
polygons with holes and several outer rings, multipoints, points, null geometries; tables in UTF-8 and
in Windows-1251 and Windows-1252, each with the .cpg that GDAL writes."""
import ctypes
import os
import shutil
import sys

from osgeo import ogr

ogr.UseExceptions()

sys.path.insert(0, os.path.join(os.environ["VXK_SOURCE_DIR"], "python", "src"))
os.environ.setdefault("VXK_LIBRARY", os.environ["VXK_LIB"])
from vxk import _native as N  # noqa: E402

ROOT = os.path.join(os.environ.get("VXK_TEST_TMP", "/tmp"), "shp_reader_gdal")
failures = []


def expect(cond, what):
    if not cond:
        failures.append(what)


FEATURES = {
    "lines": (ogr.wkbLineString25D, ["LINESTRING Z (7500000 6200000 10,7500100.5 6200050.25 11)",
                                     "MULTILINESTRING Z ((1 2 3,4 5 6),(7 8 9,10 11 12,13 14 15))", None]),
    "areas": (ogr.wkbPolygon, ["POLYGON ((0 0,0 10,10 10,10 0,0 0),(2 2,4 2,4 4,2 4,2 2))",
                               "MULTIPOLYGON (((0 0,0 1,1 1,0 0)),((5 5,5 6,6 6,5 5)))"]),
    "points": (ogr.wkbPoint, ["POINT (41.5 55.75)", "POINT (-179.999 -89.5)"]),
    "clouds": (ogr.wkbMultiPoint, ["MULTIPOINT ((1 1),(2 2),(3 3))"]),
}
TEXTS = {"UTF-8": ["Меридиан", "  N-37-VI  ", "66° 33.64'", ""],
         "CP1251": ["Меридиан", "  N-37-VI  ", "66° 33.64'", ""],
         "CP1252": ["Café", "N-37-VI", "66° 33.64'"]}


def write(name, geometry_type, wkts, encoding):
    path = os.path.join(ROOT, f"{name}_{encoding}.shp")
    ds = ogr.GetDriverByName("ESRI Shapefile").CreateDataSource(path)
    layer = ds.CreateLayer(name, geom_type=geometry_type, options=[f"ENCODING={encoding}"])
    for field, kind in (("ID", ogr.OFTInteger), ("TEXT", ogr.OFTString), ("SIZE", ogr.OFTReal)):
        layer.CreateField(ogr.FieldDefn(field, kind))
    for i, wkt in enumerate(wkts):
        f = ogr.Feature(layer.GetLayerDefn())
        f.SetField("ID", i + 1)
        f.SetField("TEXT", TEXTS[encoding][i % len(TEXTS[encoding])])
        f.SetField("SIZE", 6.5 + i)
        if wkt:
            f.SetGeometry(ogr.CreateGeometryFromWkt(wkt))
        layer.CreateFeature(f)
    ds = None
    return path


def gdal_parts(geometry):
    """The parts as a shape file stores them: the lines of a multiline, the rings of all polygons in
    order, the points of a multipoint as one part."""
    if geometry is None:
        return []
    name = geometry.GetGeometryName()
    if name in ("POINT", "LINESTRING", "LINEARRING"):
        return [[(p[0], p[1]) for p in geometry.GetPoints()]]
    if name == "MULTIPOINT":
        return [[(geometry.GetGeometryRef(i).GetX(), geometry.GetGeometryRef(i).GetY())
                 for i in range(geometry.GetGeometryCount())]]
    parts = []
    for i in range(geometry.GetGeometryCount()):
        parts += gdal_parts(geometry.GetGeometryRef(i))
    return parts


def our_parts(reader, record):
    pv = N.lib.vx_pv_d2_create()
    parts = []
    for k in range(N.lib.vx_shp_reader_read(reader, record)):
        expect(N.lib.vx_shp_reader_get_part(reader, k, pv), f"record {record}: part {k} refused")
        parts.append([(v.x, v.y) for v in (N.lib.vx_pv_d2_get_vtx(pv, i) for i in range(N.lib.vx_pv_d2_get_size(pv)))])
    N.lib.vx_pv_d2_destroy(pv)
    return parts


def check(path):
    ds = ogr.Open(path)
    layer = ds.GetLayer()
    reader = N.lib.vx_shp_reader_open_w(path)
    expect(bool(reader), f"{path}: not opened")
    if not reader:
        return
    expect(N.lib.vx_shp_reader_get_count(reader) == layer.GetFeatureCount(), f"{path}: record count")
    expect(N.lib.vx_shp_reader_get_row_count(reader) == layer.GetFeatureCount(), f"{path}: row count")
    defn = layer.GetLayerDefn()
    names = [defn.GetFieldDefn(i).GetName() for i in range(defn.GetFieldCount())]
    expect([N.lib.vx_shp_reader_get_column_name(reader, i) for i in range(N.lib.vx_shp_reader_get_column_count(reader))]
           == names, f"{path}: columns")
    for record, feature in enumerate(layer):
        expect(our_parts(reader, record) == gdal_parts(feature.GetGeometryRef()),
               f"{path} record {record}: {our_parts(reader, record)} != {gdal_parts(feature.GetGeometryRef())}")
        for column, name in enumerate(names):
            ours = N.lib.vx_shp_reader_get_value(reader, record, column)
            theirs = feature.GetFieldAsString(name).strip()
            if defn.GetFieldDefn(column).GetType() == ogr.OFTReal:
                expect(float(ours) == float(theirs), f"{path} {record} {name}: {ours!r} != {theirs!r}")
            else:
                expect(ours == theirs, f"{path} {record} {name}: {ours!r} != {theirs!r}")
    N.lib.vx_shp_reader_close(reader)


def main():
    shutil.rmtree(ROOT, ignore_errors=True)
    os.makedirs(ROOT)
    for encoding in TEXTS:
        for name, (geometry_type, wkts) in FEATURES.items():
            check(write(name, geometry_type, wkts, encoding))
    for f in failures:
        print("FAIL:", f)
    print(f"{len(failures)} failures")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
