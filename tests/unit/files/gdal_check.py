#!/usr/bin/env python3
"""Cross-checks of our shape and table files against GDAL.

usage: gdal_check.py GDAL_PROBE SCRATCH_DIR

1. Our files read by GDAL: gdal_probe writes a shape file of every type we write, each with its table,
   and prints what it wrote; GDAL must read the same geometry types, record counts, coordinates and
   attribute values, and report no error or warning.
2. GDAL's files read by us: ogr2ogr writes PointM, PolyLineM, PolygonZ with measures, MultiPointZ and
   MultiPatch files with known coordinates; our reader must give the coordinates and z, measures dropped.
3. A table written by GDAL (numeric, character, logical and date fields) read by our table class.
"""
import json
import math
import os
import shutil
import subprocess
import sys

from osgeo import gdal, ogr

FAILURES = []
MESSAGES = []


def fail(text):
    FAILURES.append(text)
    print("FAIL:", text)


def gdal_handler(level, number, text):
    if level >= gdal.CE_Warning:
        MESSAGES.append(f"GDAL level {level} #{number}: {text}")


def run_probe(probe, *args):
    out = subprocess.run([probe, *args], check=True, capture_output=True, text=True)
    return json.loads(out.stdout)


def close(a, b):
    return math.isclose(a, b, rel_tol=0, abs_tol=1e-9)


def same_parts(ours, theirs, with_z, where):
    if len(ours) != len(theirs):
        fail(f"{where}: {len(theirs)} parts, expected {len(ours)}")
        return
    for k, (po, pt) in enumerate(zip(ours, theirs)):
        if len(po) != len(pt):
            fail(f"{where} part {k}: {len(pt)} vertices, expected {len(po)}")
            continue
        for i, (vo, vt) in enumerate(zip(po, pt)):
            n = 3 if with_z else 2
            if not all(close(vo[j], vt[j]) for j in range(n)):
                fail(f"{where} part {k} vertex {i}: {vt[:n]} expected {vo[:n]}")


def same_rings(expected, ours, where):
    """The parts as written, each in either direction: GDAL's writer may turn a ring round."""
    if len(expected) != len(ours):
        fail(f"{where}: {len(ours)} parts, expected {len(expected)}")
        return
    for k, (pe, po) in enumerate(zip(expected, ours)):
        forward = [[float(c) for c in v] for v in pe]
        got = [[float(c) for c in v] for v in po]
        if got != forward and got != forward[::-1]:
            fail(f"{where} part {k}: {got} expected {forward} in either direction")


def gdal_parts(geom):
    """A GDAL geometry as parts of vertices [x, y, z], in the part order of a shape record."""
    flat = ogr.GT_Flatten(geom.GetGeometryType())
    if flat == ogr.wkbPoint:
        return [[[geom.GetX(), geom.GetY(), geom.GetZ()]]]
    if flat == ogr.wkbMultiPoint:
        return [[gdal_parts(geom.GetGeometryRef(i))[0][0] for i in range(geom.GetGeometryCount())]]
    if geom.GetGeometryCount() == 0:
        return [[[geom.GetX(i), geom.GetY(i), geom.GetZ(i)] for i in range(geom.GetPointCount())]]
    parts = []
    for i in range(geom.GetGeometryCount()):
        parts += gdal_parts(geom.GetGeometryRef(i))
    return parts


# Geometry families GDAL may report for each shape type, and whether it carries z.
FAMILIES = {
    1: ({ogr.wkbPoint}, False),
    3: ({ogr.wkbLineString, ogr.wkbMultiLineString}, False),
    5: ({ogr.wkbPolygon, ogr.wkbMultiPolygon}, False),
    8: ({ogr.wkbMultiPoint}, False),
    11: ({ogr.wkbPoint}, True),
    13: ({ogr.wkbLineString, ogr.wkbMultiLineString}, True),
    15: ({ogr.wkbPolygon, ogr.wkbMultiPolygon}, True),
    18: ({ogr.wkbMultiPoint}, True),
    31: ({ogr.wkbPolygon, ogr.wkbMultiPolygon, ogr.wkbTIN, ogr.wkbPolyhedralSurface,
          ogr.wkbGeometryCollection}, True),
}


def check_attributes(feature, record, where):
    if feature.GetFieldAsInteger("ID") != record["ID"]:
        fail(f"{where}: ID {feature.GetFieldAsInteger('ID')} expected {record['ID']}")
    if feature.GetFieldAsString("NAME") != record["NAME"]:
        fail(f"{where}: NAME {feature.GetFieldAsString('NAME')!r} expected {record['NAME']!r}")
    if not close(feature.GetFieldAsDouble("VAL"), record["VAL"]):
        fail(f"{where}: VAL {feature.GetFieldAsDouble('VAL')} expected {record['VAL']}")
    flag = feature.GetFieldAsString("FLAG")
    if flag not in (("T", "1") if record["FLAG"] else ("F", "0")):
        fail(f"{where}: FLAG {flag!r} expected {record['FLAG']}")


def check_our_layer(layer_json):
    path = layer_json["file"]
    where = os.path.basename(path)
    MESSAGES.clear()
    ds = ogr.Open(path)
    if ds is None:
        fail(f"{where}: GDAL cannot open it")
        return
    layer = ds.GetLayer(0)
    records = layer_json["records"]
    families, with_z = FAMILIES[layer_json["type"]]
    # GDAL gives a multipatch layer no single geometry type; its features carry one.
    if layer_json["type"] != 31 or layer.GetGeomType() != ogr.wkbUnknown:
        if ogr.GT_Flatten(layer.GetGeomType()) not in families:
            fail(f"{where}: layer type {ogr.GeometryTypeToName(layer.GetGeomType())}")
        if bool(ogr.GT_HasZ(layer.GetGeomType())) != with_z:
            fail(f"{where}: layer z flag {ogr.GT_HasZ(layer.GetGeomType())}, expected {with_z}")
    if layer.GetFeatureCount() != len(records):
        fail(f"{where}: {layer.GetFeatureCount()} features, expected {len(records)}")
    for index, (feature, record) in enumerate(zip(layer, records)):
        at = f"{where} feature {index}"
        geom = feature.GetGeometryRef()
        if record["null"]:
            if geom is not None and not geom.IsEmpty():
                fail(f"{at}: a null record came back as {geom.ExportToIsoWkt()}")
        elif geom is None:
            fail(f"{at}: no geometry")
        else:
            if ogr.GT_Flatten(geom.GetGeometryType()) not in families:
                fail(f"{at}: geometry {geom.GetGeometryName()}")
            if with_z and not geom.Is3D():
                fail(f"{at}: geometry without z")
            same_parts(record["parts"], gdal_parts(geom), with_z, at)
            if geom.IsMeasured():
                for part in gdal_measures(geom):
                    if any(m > -1e38 for m in part):
                        fail(f"{at}: measures {part}, expected no data")
        check_attributes(feature, record, at)
    ds = None
    for text in MESSAGES:
        fail(f"{where}: {text}")


def gdal_measures(geom):
    if geom.GetGeometryCount() == 0:
        return [[geom.GetM(i) for i in range(max(geom.GetPointCount(), 1))]]
    out = []
    for i in range(geom.GetGeometryCount()):
        out += gdal_measures(geom.GetGeometryRef(i))
    return out


def ours_read_by_gdal(probe, scratch):
    folder = os.path.join(scratch, "ours")
    os.makedirs(folder)
    layers = run_probe(probe, "write", folder)
    types = sorted(l["type"] for l in layers)
    if types != [1, 3, 5, 8, 11, 13, 15, 18, 31]:
        fail(f"probe wrote the types {types}")
    for layer_json in layers:
        check_our_layer(layer_json)
    # The same files through the command-line reader: no error or warning either.
    for layer_json in layers:
        run = subprocess.run(["ogrinfo", "-al", "-q", layer_json["file"]], capture_output=True, text=True)
        if run.returncode != 0 or "ERROR" in run.stderr or "Warning" in run.stderr:
            fail(f"ogrinfo on {layer_json['file']}: {run.returncode} {run.stderr.strip()}")


# Files that GDAL writes, with the coordinates (x, y, z) that our reader must give, measures dropped.
GDAL_FILES = [
    ("pointm", "POINTM", ["POINT M (1 2 3)", "POINT M (-4.5 6.25 7)"], 1,
     [[[[1, 2, 0]]], [[[-4.5, 6.25, 0]]]]),
    ("polylinem", "ARCM", ["LINESTRING M (0 0 1,1 1 2,2 0 3)",
                           "MULTILINESTRING M ((10 10 0,11 12 1),(20 20 5,21 22 6,23 24 7))"], 3,
     [[[[0, 0, 0], [1, 1, 0], [2, 0, 0]]],
      [[[10, 10, 0], [11, 12, 0]], [[20, 20, 0], [21, 22, 0], [23, 24, 0]]]]),
    ("polygonzm", "POLYGONZM",
     ["POLYGON ZM ((0 0 1 9,0 10 2 9,10 10 3 9,10 0 4 9,0 0 1 9),(2 2 5 8,8 2 5 8,8 8 5 8,2 8 5 8,2 2 5 8))"], 15,
     [[[[0, 0, 1], [0, 10, 2], [10, 10, 3], [10, 0, 4], [0, 0, 1]],
       [[2, 2, 5], [8, 2, 5], [8, 8, 5], [2, 8, 5], [2, 2, 5]]]]),
    ("multipointz", "MULTIPOINTZ", ["MULTIPOINT Z ((1 2 3),(4 5 6),(-7 -8 -9))"], 18,
     [[[[1, 2, 3], [4, 5, 6], [-7, -8, -9]]]]),
    ("multipatch", "MULTIPATCH",
     ["MULTIPOLYGON Z (((0 0 1,0 10 1,10 10 1,10 0 1,0 0 1),(2 2 1,8 2 1,8 8 1,2 8 1,2 2 1)))"], 31,
     [[[[0, 0, 1], [0, 10, 1], [10, 10, 1], [10, 0, 1], [0, 0, 1]],
       [[2, 2, 1], [8, 2, 1], [8, 8, 1], [2, 8, 1], [2, 2, 1]]]]),
]


def gdal_read_by_ours(probe, scratch):
    folder = os.path.join(scratch, "gdal")
    os.makedirs(folder)
    for name, shpt, wkts, our_type, expected in GDAL_FILES:
        csv = os.path.join(folder, name + ".csv")
        with open(csv, "w") as f:
            f.write("id,WKT\n")
            for i, wkt in enumerate(wkts):
                f.write(f'{i + 1},"{wkt}"\n')
        shp = os.path.join(folder, name + ".shp")
        subprocess.run(["ogr2ogr", "-f", "ESRI Shapefile", shp, csv, "-lco", f"SHPT={shpt}"],
                       check=True, capture_output=True)
        ours = run_probe(probe, "read", shp)
        ds = ogr.Open(shp)
        for i, (record, feature) in enumerate(zip(ours["records"], ds.GetLayer(0))):
            same_parts(gdal_parts(feature.GetGeometryRef()), record["parts"], True, f"{name} record {i} (GDAL)")
        ds = None
        if ours["type"] != our_type:
            fail(f"{name}: our file type {ours['type']}, expected {our_type}")
        if len(ours["records"]) != len(expected):
            fail(f"{name}: {len(ours['records'])} records, expected {len(expected)}")
        for i, (record, parts) in enumerate(zip(ours["records"], expected)):
            if record["type"] != our_type:
                fail(f"{name} record {i}: type {record['type']}, expected {our_type}")
            same_rings(parts, record["parts"], f"{name} record {i}")


def gdal_table_read_by_ours(probe, scratch):
    folder = os.path.join(scratch, "table")
    os.makedirs(folder)
    path = os.path.join(folder, "gdal.dbf")
    ds = ogr.GetDriverByName("ESRI Shapefile").CreateDataSource(path)
    layer = ds.CreateLayer("gdal", geom_type=ogr.wkbNone)
    count = ogr.FieldDefn("COUNT", ogr.OFTInteger)
    count.SetWidth(6)
    layer.CreateField(count)
    label = ogr.FieldDefn("LABEL", ogr.OFTString)
    label.SetWidth(12)
    layer.CreateField(label)
    area = ogr.FieldDefn("AREA", ogr.OFTReal)
    area.SetWidth(14)
    area.SetPrecision(3)
    layer.CreateField(area)
    # GDAL 3.6 writes a boolean field as N of length 1, not as the logical letter L.
    flag = ogr.FieldDefn("OK", ogr.OFTInteger)
    flag.SetSubType(ogr.OFSTBoolean)
    layer.CreateField(flag)
    layer.CreateField(ogr.FieldDefn("DAY", ogr.OFTDate))
    rows = [(42, "north", 1234.5, 1, (2024, 2, 29)), (-7, "south west", -0.125, 0, (1999, 12, 31))]
    for c, l, a, ok, day in rows:
        feature = ogr.Feature(layer.GetLayerDefn())
        feature.SetField("COUNT", c)
        feature.SetField("LABEL", l)
        feature.SetField("AREA", a)
        feature.SetField("OK", ok)
        feature.SetField("DAY", *day, 0, 0, 0, 0)
        layer.CreateFeature(feature)
    ds = None
    ours = run_probe(probe, "dbf", path)
    names = [f["name"] for f in ours["fields"]]
    if names != ["COUNT", "LABEL", "AREA", "OK", "DAY"]:
        fail(f"table fields {names}")
        return
    types = "".join(f["type"] for f in ours["fields"])
    if types not in ("NCNLD", "NCNND"):
        fail(f"table field types {types}")
    if len(ours["records"]) != len(rows):
        fail(f"table: {len(ours['records'])} records, expected {len(rows)}")
    for i, (record, (c, l, a, ok, day)) in enumerate(zip(ours["records"], rows)):
        at = f"table record {i}"
        if record[0]["int"] != c:
            fail(f"{at}: COUNT {record[0]['int']} expected {c}")
        if record[1]["str"].rstrip() != l:
            fail(f"{at}: LABEL {record[1]['str']!r} expected {l!r}")
        if not close(record[2]["dbl"], a):
            fail(f"{at}: AREA {record[2]['dbl']} expected {a}")
        if record[3]["bool"] != bool(ok):
            fail(f"{at}: OK {record[3]['str']!r} expected {bool(ok)}")
        if record[4]["str"] != "%04d%02d%02d" % day:
            fail(f"{at}: DAY {record[4]['str']!r} expected {day}")


def main():
    probe, scratch = sys.argv[1], sys.argv[2]
    shutil.rmtree(scratch, ignore_errors=True)
    os.makedirs(scratch)
    gdal.PushErrorHandler(gdal_handler)
    ours_read_by_gdal(probe, scratch)
    gdal_read_by_ours(probe, scratch)
    gdal_table_read_by_ours(probe, scratch)
    if FAILURES:
        print(f"{len(FAILURES)} failures")
        return 1
    print("GDAL reads our files and we read GDAL's")
    return 0


if __name__ == "__main__":
    sys.exit(main())
