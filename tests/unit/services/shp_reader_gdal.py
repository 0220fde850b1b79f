#!/usr/bin/env python3
"""The hosts' shape file reader (vx_shp_reader_*) on files that GDAL wrote: every vertex of every part
and every value of the table agree with what GDAL reads back from the same files. The reader runs in a C
host of the public header (shp_reader_tool), so that the sanitizer build checks it. Lines with z,
polygons with holes and several outer rings, multipoints, points, null geometries; tables in UTF-8 and
in Windows-1251 and Windows-1252, each with the .cpg that GDAL writes."""
import os
import shutil
import subprocess
import sys

from osgeo import ogr

ogr.UseExceptions()

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


def ours(tool, path):
    """What the reader gives: the columns, and (parts, values) per record."""
    p = subprocess.run([tool, path], capture_output=True, text=True)
    expect(p.returncode == 0, f"{path}: {p.stderr}")
    columns, records, head = [], [], None
    for line in p.stdout.splitlines():
        word, _, rest = line.partition(" ")
        if word == "file":
            head = [int(n) for n in rest.split()]
        elif word == "column":
            columns.append(rest)
        elif word == "record":
            records.append(([], []))
        elif word == "part":
            n = [float(v) for v in rest.split()]
            records[-1][0].append(list(zip(n[0::2], n[1::2])))
        elif word == "value":
            records[-1][1].append(rest)
    return head, columns, records


def check(tool, path):
    ds = ogr.Open(path)  # the layer lives as long as its data source
    layer = ds.GetLayer()
    head, columns, records = ours(tool, path)
    n = layer.GetFeatureCount()
    expect(head is not None and head[1:3] == [n, n], f"{path}: counts {head}, GDAL has {n}")
    defn = layer.GetLayerDefn()
    names = [defn.GetFieldDefn(i).GetName() for i in range(defn.GetFieldCount())]
    expect(columns == names, f"{path}: columns {columns}")
    for (parts, values), feature in zip(records, layer):
        theirs = gdal_parts(feature.GetGeometryRef())
        expect(parts == theirs, f"{path} record {feature.GetFID()}: {parts} != {theirs}")
        for column, (name, value) in enumerate(zip(names, values)):
            expected = feature.GetFieldAsString(name).strip()
            if defn.GetFieldDefn(column).GetType() == ogr.OFTReal:
                expect(float(value) == float(expected), f"{path} {name}: {value!r} != {expected!r}")
            else:
                expect(value == expected, f"{path} {name}: {value!r} != {expected!r}")


def main():
    shutil.rmtree(ROOT, ignore_errors=True)
    os.makedirs(ROOT)
    for encoding in TEXTS:
        for name, (geometry_type, wkts) in FEATURES.items():
            check(sys.argv[1], write(name, geometry_type, wkts, encoding))
    for f in failures:
        print("FAIL:", f)
    print(f"{len(failures)} failures")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
