#!/usr/bin/env python3
"""Independent check of a reprojected shape file against GDAL.

Given a source shape file, the two PROJ strings and our result, this script reprojects the source with
`ogr2ogr -s_srs ... -t_srs ...` and compares the two record by record:

  - the same number of records, in the same order (record i of ours against feature i of the source);
  - every x and y within 1 mm (projected target) or 1e-8 degrees (geographic target);
  - z values as in the source (our reprojection leaves heights alone);
  - a record that ogr2ogr cannot transform is a null record in ours, a null record of the source stays
    null, and we lose no record that ogr2ogr could transform;
  - the header's shape type is the source's with the measured types folded (21->1, 23->3, 25->5, 28->8);
  - `ogrinfo` reads our result to the end without an error or a warning.

Sub-commands:
  make-sources DIR     writes the sample source files (GDAL's own writer) into DIR
  compare ...          checks one result (see --help)
  self-test DIR        exercises the checker on GDAL-made results, including spoilt ones that must fail
  check-vxk VXK DIR    runs `vxk reproject` on every sample, and again on its own results, and checks each

Needs the Python bindings of GDAL (Debian: python3-gdal) and gdal-bin on the PATH.
"""
import argparse
import json
import os
import shutil
import struct
import subprocess
import sys
import tempfile

from osgeo import gdal, ogr, osr

gdal.UseExceptions()

PULKOVO = "+proj=longlat +ellps=krass +towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 +no_defs"
GK7 = ("+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500000 +y_0=0 +ellps=krass "
       "+towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 +units=m +no_defs")
WGS84 = "+proj=longlat +datum=WGS84 +no_defs"
ORTHO = "+proj=ortho +lat_0=55 +lon_0=37 +ellps=krass +towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 +units=m +no_defs"

METRE_TOLERANCE = 1e-3
DEGREE_TOLERANCE = 1e-8

FOLDED = {21: 1, 23: 3, 25: 5, 28: 8}


class Mismatch(Exception):
    pass


# ------------------------------------------------------------------------------------------------------
# Reading

def shp_header_type(path):
    with open(path, "rb") as f:
        head = f.read(100)
    if len(head) < 100:
        raise Mismatch(f"{path}: header shorter than 100 bytes")
    return struct.unpack("<i", head[32:36])[0]


def geometry_parts(geom):
    """The vertex sequences of a geometry as lists of (x, y, z): every point, line and ring, in the order
    OGR gives them. A multipoint is one sequence."""
    if geom is None or geom.IsEmpty():
        return []
    name = geom.GetGeometryName()
    if name in ("POINT",):
        return [[(geom.GetX(), geom.GetY(), geom.GetZ())]]
    if name in ("MULTIPOINT",):
        pts = []
        for i in range(geom.GetGeometryCount()):
            p = geom.GetGeometryRef(i)
            pts.append((p.GetX(), p.GetY(), p.GetZ()))
        return [pts]
    if name in ("LINESTRING", "LINEARRING"):
        return [[geom.GetPoint(i) for i in range(geom.GetPointCount())]]
    parts = []
    for i in range(geom.GetGeometryCount()):
        parts.extend(geometry_parts(geom.GetGeometryRef(i)))
    return parts


def read_layer(path, key_field=None):
    """All features of a single-layer data source, as {key: parts or None for no geometry}, plus the
    order of the keys. The key is the FID, or the value of `key_field` when one is named."""
    ds = ogr.Open(path)
    if ds is None:
        raise Mismatch(f"cannot open {path}")
    lyr = ds.GetLayer(0)
    records, order = {}, []
    for feat in lyr:
        geom = feat.GetGeometryRef()
        key = feat.GetFID() if key_field is None else feat.GetField(key_field)
        records[key] = None if geom is None else geometry_parts(geom)
        order.append(key)
    return records, order


def is_geographic(proj_text):
    srs = osr.SpatialReference()
    srs.ImportFromProj4(proj_text)
    return bool(srs.IsGeographic())


# ------------------------------------------------------------------------------------------------------
# Independent tools

def ogr2ogr_reference(src, from_proj, to_proj, workdir):
    """The source reprojected by ogr2ogr into a GeoPackage (binary doubles, surfaces of triangles
    allowed), each feature carrying the source's record number in the column vxk_src_fid. A feature that
    GDAL cannot transform comes out without geometry or not at all."""
    out = os.path.join(workdir, "ogr2ogr_reference.gpkg")
    if os.path.exists(out):
        os.remove(out)
    layer = os.path.splitext(os.path.basename(src))[0].replace('"', '""')
    sql = f'SELECT FID AS vxk_src_fid, * FROM "{layer}"'
    cmd = ["ogr2ogr", "-q", "-skipfailures", "-f", "GPKG", "-sql", sql,
           "-s_srs", from_proj, "-t_srs", to_proj, out, src]
    run = subprocess.run(cmd, capture_output=True, text=True)
    if run.returncode != 0 or not os.path.exists(out):
        raise Mismatch(f"ogr2ogr failed: {run.stderr.strip()}")
    return out


def check_ogrinfo(path):
    """ogrinfo must read every feature of the file with neither an error nor a warning."""
    run = subprocess.run(["ogrinfo", "-ro", "-al", path], capture_output=True, text=True,
                         env=dict(os.environ, CPL_DEBUG="OFF"))
    if run.returncode != 0:
        raise Mismatch(f"ogrinfo failed on {path}: {run.stderr.strip()}")
    if run.stderr.strip():
        raise Mismatch(f"ogrinfo complained about {path}: {run.stderr.strip()}")
    if "Geometry:" not in run.stdout:
        raise Mismatch(f"ogrinfo did not describe the layer of {path}")


# ------------------------------------------------------------------------------------------------------
# Comparison

def close_enough(a, b, tol):
    return abs(a[0] - b[0]) <= tol and abs(a[1] - b[1]) <= tol


def match_parts(ours, ref, tol):
    """Pairs each part of ours with a part of the reference that has the same vertices within the
    tolerance. GDAL may list the rings of a polygon in another order than the file does (it sorts outer
    rings from holes), so the pairing does not rely on the order. Gives, for each part of ours, the index
    of its reference part."""
    if len(ours) != len(ref):
        raise Mismatch(f"{len(ours)} parts against {len(ref)} of ogr2ogr")
    used, pairing = set(), []
    for k, part in enumerate(ours):
        found = None
        for j, cand in enumerate(ref):
            if j in used or len(cand) != len(part):
                continue
            if all(close_enough(p, q, tol) for p, q in zip(part, cand)):
                found = j
                break
        if found is None:
            worst = worst_difference(part, ref)
            raise Mismatch(f"part {k} ({len(part)} vertices) matches no part of ogr2ogr{worst}")
        used.add(found)
        pairing.append(found)
    return pairing


def worst_difference(part, ref):
    same = [c for c in ref if len(c) == len(part)]
    if not same:
        return ""
    best = min(max(max(abs(p[0] - q[0]), abs(p[1] - q[1])) for p, q in zip(part, c)) for c in same)
    return f" (nearest differs by {best:.3g})"


def compare_z(ours_part, src_part, what):
    for i, (p, q) in enumerate(zip(ours_part, src_part)):
        if p[2] != q[2]:
            raise Mismatch(f"{what}: vertex {i} has z {p[2]!r}, the source {q[2]!r}")


def compare_record(i, src, ours, ref, tol, check_z):
    if src is None:
        if ours is not None:
            raise Mismatch(f"record {i}: null in the source but not in ours")
        return "null"
    if ref is None:
        if ours is not None and ours != []:
            raise Mismatch(f"record {i}: ogr2ogr could not transform it, but ours is not a null record")
        return "failed"
    if ours is None:
        raise Mismatch(f"record {i}: ours is a null record, but ogr2ogr transformed it")
    try:
        pairing = match_parts(ours, ref, tol)
    except Mismatch as e:
        raise Mismatch(f"record {i}: {e}") from None
    if check_z:
        for k, j in enumerate(pairing):
            compare_z(ours[k], src[j], f"record {i} part {k}")
    return "ok"


def compare(src, ours, from_proj, to_proj, workdir):
    """Checks `ours` against ogr2ogr's reprojection of `src`. Returns a dict of counts; raises Mismatch."""
    check_ogrinfo(ours)
    src_type = shp_header_type(src)
    our_type = shp_header_type(ours)
    if our_type != FOLDED.get(src_type, src_type):
        raise Mismatch(f"header type {our_type}, expected {FOLDED.get(src_type, src_type)} for source {src_type}")
    tol = DEGREE_TOLERANCE if is_geographic(to_proj) else METRE_TOLERANCE
    ref_path = ogr2ogr_reference(src, from_proj, to_proj, workdir)
    src_recs, src_order = read_layer(src)
    our_recs, our_order = read_layer(ours)
    ref_recs, _ = read_layer(ref_path, "vxk_src_fid")
    if len(our_order) != len(src_order):
        raise Mismatch(f"{len(our_order)} records, the source has {len(src_order)}")
    check_z = src_type in (11, 13, 15, 18, 31)
    counts = {"ok": 0, "null": 0, "failed": 0}
    for i, (sf, of) in enumerate(zip(src_order, our_order)):
        result = compare_record(i, src_recs[sf], our_recs[of], ref_recs.get(sf), tol, check_z)
        counts[result] += 1
    counts["records"] = len(our_order)
    return counts


# ------------------------------------------------------------------------------------------------------
# Sample sources, written by GDAL

def ring(x0, y0, w, h, n=4, clockwise=True):
    """A closed rectangular ring with n vertices on each side; clockwise (an outer ring) or not."""
    pts = []
    for k in range(n):
        pts.append((x0, y0 + h * k / n))
    for k in range(n):
        pts.append((x0 + w * k / n, y0 + h))
    for k in range(n):
        pts.append((x0 + w, y0 + h - h * k / n))
    for k in range(n):
        pts.append((x0 + w - w * k / n, y0))
    pts.append(pts[0])
    return pts if clockwise else list(reversed(pts))


def wkt_ring(pts, z=None):
    if z is None:
        return "(" + ",".join(f"{x!r} {y!r}" for x, y in pts) + ")"
    # Heights vary along the ring, and the closing vertex repeats the first one's.
    last = len(pts) - 1
    return "(" + ",".join(f"{x!r} {y!r} {z + k % last!r}" for k, (x, y) in enumerate(pts)) + ")"


def write_shape(path, geom_type, wkts, options=None):
    """A shape file with an ID column, one record per WKT text (None gives a null record)."""
    drv = ogr.GetDriverByName("ESRI Shapefile")
    if os.path.exists(path):
        drv.DeleteDataSource(path)
    ds = drv.CreateDataSource(path)
    lyr = ds.CreateLayer(os.path.splitext(os.path.basename(path))[0], geom_type=geom_type,
                         options=options or [])
    lyr.CreateField(ogr.FieldDefn("ID", ogr.OFTInteger))
    for i, wkt in enumerate(wkts):
        feat = ogr.Feature(lyr.GetLayerDefn())
        feat.SetField("ID", i)
        if wkt is not None:
            feat.SetGeometry(ogr.CreateGeometryFromWkt(wkt))
        lyr.CreateFeature(feat)
    ds = None


def sample_sources():
    """(file name, OGR type, layer options, WKT texts, source PROJ, target PROJ) of each sample."""
    outer = ring(37.0, 55.0, 1.0, 0.5)
    hole = ring(37.25, 55.1, 0.5, 0.25, clockwise=False)
    poly = f"POLYGON({wkt_ring(outer)},{wkt_ring(hole)})"
    polyz = f"POLYGON Z ({wkt_ring(outer, 100.0)},{wkt_ring(hole, 200.0)})"
    line = "LINESTRING(36 54,36.5 54.25,37 54.1,38.2 55.9)"
    # A polygon wholly on the far side of the globe for an orthographic view centred on Moscow, and one
    # that straddles the horizon: both cannot be transformed as a whole.
    far = f"POLYGON({wkt_ring(ring(-140.0, -50.0, 2.0, 1.0))})"
    straddle = f"POLYGON({wkt_ring(ring(100.0, 10.0, 60.0, 5.0))})"
    near = f"POLYGON({wkt_ring(ring(36.0, 54.0, 2.0, 1.0))})"
    return [
        ("point.shp", ogr.wkbPoint, [], ["POINT(37.5 55.7)", None, "POINT(30 60)"], PULKOVO, GK7),
        ("pointm.shp", ogr.wkbPointM, [], ["POINT M (37.5 55.7 4)", "POINT M (38 56 5)"], PULKOVO, GK7),
        ("pointz.shp", ogr.wkbPoint25D, [], ["POINT Z (37.5 55.7 150.5)", "POINT Z (38 56 -3)"],
         PULKOVO, GK7),
        ("multipoint.shp", ogr.wkbMultiPoint, [], ["MULTIPOINT((37 55),(38 56),(39 57))"], PULKOVO, GK7),
        ("multipointz.shp", ogr.wkbMultiPoint25D, [], ["MULTIPOINT Z ((37 55 1),(38 56 2))"], PULKOVO, GK7),
        ("polyline.shp", ogr.wkbLineString, [], [line, None, "MULTILINESTRING((37 55,38 56),(39 57,40 58))"],
         PULKOVO, GK7),
        ("polylinem.shp", ogr.wkbLineStringM, [], ["LINESTRING M (36 54 1,37 55 2,38 56 3)"], PULKOVO, GK7),
        ("polygon.shp", ogr.wkbPolygon, [], [poly, None, near], PULKOVO, GK7),
        ("polygonm.shp", ogr.wkbPolygonM, [], [f"POLYGON M ({wkt_ring(outer, 1.0)})"], PULKOVO, GK7),
        ("polygonz.shp", ogr.wkbPolygon25D, [], [polyz, f"POLYGON Z ({wkt_ring(outer, -5.0)})"], PULKOVO, GK7),
        ("polygon_wgs84.shp", ogr.wkbPolygon, [], [poly, near], PULKOVO, WGS84),
        ("multipatch.shp", ogr.wkbTINZ, ["SHPT=MULTIPATCH"],
         ["TIN Z (((37 55 10,37 56 11,38 55 12,37 55 10)),((38 55 12,37 56 11,38 56 13,38 55 12)))"],
         PULKOVO, GK7),
        ("polygon_outside.shp", ogr.wkbPolygon, [], [near, far, straddle, near], PULKOVO, ORTHO),
    ]


def make_sources(outdir):
    os.makedirs(outdir, exist_ok=True)
    made = []
    for name, gtype, options, wkts, from_proj, to_proj in sample_sources():
        path = os.path.join(outdir, name)
        write_shape(path, gtype, wkts, options)
        made.append((path, from_proj, to_proj))
    return made


# ------------------------------------------------------------------------------------------------------
# Self-test: the checker against GDAL's own results

def gdal_reprojection(src, from_proj, to_proj, dst, tamper=None):
    """What our library should make of `src`, made here with GDAL alone: every record reprojected as a
    whole, a null record where that fails, measures dropped, heights kept. `tamper` spoils the first
    transformed record, which the check must catch: "xy" moves one vertex by 2 mm (or 2e-8 degrees), "z"
    raises one height by 1e-9, "null" writes it as a null record."""
    ct = coordinate_transformation(from_proj, to_proj)
    src_ds = ogr.Open(src)
    src_lyr = src_ds.GetLayer(0)
    drv = ogr.GetDriverByName("ESRI Shapefile")
    if os.path.exists(dst):
        drv.DeleteDataSource(dst)
    ds = drv.CreateDataSource(dst)
    lyr = ds.CreateLayer("out", geom_type=unmeasured(src_lyr.GetGeomType()), options=layer_options(src))
    step = 2 * (DEGREE_TOLERANCE if is_geographic(to_proj) else METRE_TOLERANCE)
    for feat in src_lyr:
        out = ogr.Feature(lyr.GetLayerDefn())
        geom = transformed(feat.GetGeometryRef(), ct)
        if geom is not None and tamper:
            geom = tamper_geometry(geom, tamper, step)
            tamper = None
        if geom is not None:
            out.SetGeometry(geom)
        lyr.CreateFeature(out)
    ds = None


def coordinate_transformation(from_proj, to_proj):
    s_srs, t_srs = osr.SpatialReference(), osr.SpatialReference()
    s_srs.ImportFromProj4(from_proj)
    t_srs.ImportFromProj4(to_proj)
    for srs in (s_srs, t_srs):
        srs.SetAxisMappingStrategy(osr.OAMS_TRADITIONAL_GIS_ORDER)
    return osr.CoordinateTransformation(s_srs, t_srs)


def unmeasured(gtype):
    flat = ogr.GT_Flatten(gtype)
    return ogr.GT_SetZ(flat) if ogr.GT_HasZ(gtype) else flat


def layer_options(src):
    return ["SHPT=MULTIPATCH"] if shp_header_type(src) == 31 else []


def transformed(geom, ct):
    """A copy of the geometry without measures, transformed as a whole; None when there is none or when
    any vertex fails."""
    if geom is None:
        return None
    geom = geom.Clone()
    geom.SetMeasured(False)
    try:
        return geom if geom.Transform(ct) == 0 else None
    except RuntimeError:
        return None


def tamper_geometry(geom, how, step):
    if how == "null":
        return None
    line = geom
    while line.GetGeometryCount() > 0:
        line = line.GetGeometryRef(0)
    i = 1 if line.GetPointCount() > 1 else 0
    x, y, z = line.GetX(i), line.GetY(i), line.GetZ(i)
    if how == "xy":
        line.SetPoint(i, x + step, y, z)
    else:
        line.SetPoint(i, x, y, z + 1e-9)
    return geom


def self_test(outdir):
    workdir = os.path.join(outdir, "work")
    os.makedirs(workdir, exist_ok=True)
    failures = 0
    for src, from_proj, to_proj in make_sources(os.path.join(outdir, "src")):
        name = os.path.basename(src)
        good = os.path.join(outdir, "good_" + name)
        gdal_reprojection(src, from_proj, to_proj, good)
        try:
            counts = compare(src, good, from_proj, to_proj, workdir)
            print(f"{name}: agrees {counts}")
        except Mismatch as e:
            print(f"{name}: FAILED on GDAL's own result: {e}")
            failures += 1
        spoils = ["xy", "null"] + (["z"] if shp_header_type(src) in (11, 13, 15, 18, 31) else [])
        for how in spoils:
            bad = os.path.join(outdir, f"tampered_{how}_" + name)
            gdal_reprojection(src, from_proj, to_proj, bad, tamper=how)
            try:
                compare(src, bad, from_proj, to_proj, workdir)
                print(f"{name}: FAILED to notice a spoilt record ({how})")
                failures += 1
            except Mismatch as e:
                print(f"{name}: spoilt record ({how}) caught: {e}")
    print(f"{failures} failures")
    return failures


# ------------------------------------------------------------------------------------------------------
# Our program against GDAL

def run_vxk(vxk, src, dst, from_proj, to_proj):
    """`vxk reproject`; gives its report line. Raises Mismatch when it fails."""
    run = subprocess.run([vxk, "reproject", src, dst, "--from", from_proj, "--to", to_proj],
                         capture_output=True, text=True)
    if run.returncode != 0:
        raise Mismatch(f"vxk reproject failed ({run.returncode}): {run.stderr.strip()}")
    return run.stdout.strip()


def check_vxk(vxk, outdir):
    """Every sample made by GDAL goes through `vxk reproject` and is compared with ogr2ogr; then each of
    our results, a file of our own writer, goes back to the source system and is compared again."""
    workdir = os.path.join(outdir, "work")
    os.makedirs(workdir, exist_ok=True)
    failures = 0
    for src, from_proj, to_proj in make_sources(os.path.join(outdir, "src")):
        name = os.path.basename(src)
        there = os.path.join(outdir, "there", name)
        back = os.path.join(outdir, "back", name)
        for label, a, b, f, t in (("GDAL's file", src, there, from_proj, to_proj),
                                  ("our file", there, back, to_proj, from_proj)):
            try:
                report = run_vxk(vxk, a, b, f, t)
                counts = compare(a, b, f, t, workdir)
                expect_report(report, counts)
                print(f"{name} ({label}): agrees {counts}")
            except Mismatch as e:
                print(f"{name} ({label}): MISMATCH {e}")
                failures += 1
                break
    print(f"{failures} failures")
    return failures


def expect_report(report, counts):
    """vxk's closing line must state the records written and those that could not be transformed."""
    n, failed = counts["records"], counts["failed"]
    want = f"{n} record{'' if n == 1 else 's'} written"
    if failed == 1:
        want += ", 1 became a null record (it could not be transformed)"
    elif failed:
        want += f", {failed} became null records (they could not be transformed)"
    else:
        want += "\n"
    if want not in report + "\n":
        raise Mismatch(f"vxk reported '{report}', expected '{want}'")


def main():
    ap = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    sub = ap.add_subparsers(dest="cmd", required=True)
    m = sub.add_parser("make-sources")
    m.add_argument("dir")
    m.add_argument("--list", action="store_true", help="print path, source and target PROJ as JSON")
    c = sub.add_parser("compare")
    c.add_argument("--src", required=True)
    c.add_argument("--ours", required=True)
    c.add_argument("--from", dest="from_proj", required=True)
    c.add_argument("--to", dest="to_proj", required=True)
    c.add_argument("--work", help="folder for ogr2ogr's result (default: a temporary one)")
    c.add_argument("--expect-failed", type=int, help="number of records that cannot be transformed")
    s = sub.add_parser("self-test")
    s.add_argument("dir")
    v = sub.add_parser("check-vxk")
    v.add_argument("vxk", help="path of the vxk program")
    v.add_argument("dir")
    args = ap.parse_args()

    if args.cmd == "make-sources":
        made = make_sources(args.dir)
        if args.list:
            print(json.dumps(made))
        return 0
    if args.cmd == "self-test":
        return 1 if self_test(args.dir) else 0
    if args.cmd == "check-vxk":
        return 1 if check_vxk(args.vxk, args.dir) else 0
    workdir = args.work or tempfile.mkdtemp(prefix="ogr_check_")
    try:
        counts = compare(args.src, args.ours, args.from_proj, args.to_proj, workdir)
    except Mismatch as e:
        print(f"MISMATCH {args.ours}: {e}")
        return 1
    finally:
        if not args.work:
            shutil.rmtree(workdir, ignore_errors=True)
    if args.expect_failed is not None and counts["failed"] != args.expect_failed:
        print(f"MISMATCH {args.ours}: {counts['failed']} records failed, expected {args.expect_failed}")
        return 1
    print(f"agrees with ogr2ogr: {counts}")
    return 0


if __name__ == "__main__":
    sys.exit(main())
