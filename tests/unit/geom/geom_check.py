#!/usr/bin/env python3
"""Cross-checks of the polygon division, the inside points and the affine mappings.

usage: geom_check.py CHECK GEOM_PROBE SCRATCH_DIR

divide       Polygon records with nested, touching and many rings, written by our shape file writer as
             flat lists of rings (shuffled, turned either way), are read by GDAL with its geometric
             method of sorting rings into polygons (OGR_ORGANIZE_POLYGONS=DEFAULT: a ring inside an
             even number of rings is an outer ring, as ours). Its polygons must be ours, ring for ring,
             on every record. The same records after our orient() are read by GDAL's ordinary method,
             which goes by orientation alone, and must give the same polygons again; our outer rings
             must run clockwise and our holes counter-clockwise by the shoelace sum worked out here.
refpnt       Thousands of generated polygons (horseshoes, combs, rings with holes, slivers, several
             parts, donuts, crosses and stairs): our reference point must lie inside by GEOS (GDAL's
             Contains). GEOS's PointOnSurface is checked the same way, and the distances of both points
             to the boundary are compared.
real_refpnt  The same for every polygon of the real-world shape files of Debian's r-cran-spdata.
affine       Random affine mappings: products, inverses and mapped points against numpy.
"""
import glob
import json
import math
import os
import shutil
import statistics
import subprocess
import sys

from osgeo import gdal, ogr

gdal.UseExceptions()
FAILURES = []
REAL_WORLD = "/usr/lib/R/site-library/spData/shapes"
KINDS = ["horseshoe", "comb", "ring with holes", "sliver", "several parts", "donut", "cross or stair"]


def fail(text):
    FAILURES.append(text)
    print("FAIL:", text)


def fresh_dir(path):
    shutil.rmtree(path, ignore_errors=True)
    os.makedirs(path)
    return path


def run_probe(probe, *args):
    return subprocess.run([probe, *args], check=True, capture_output=True, text=True).stdout


# ---- rings -------------------------------------------------------------------------------------------


def shoelace(ring):
    """The orientation sum of the ring: positive for clockwise with y upwards."""
    return sum((q[0] - p[0]) * (q[1] + p[1]) for p, q in zip(ring, ring[1:]))


def canonical_ring(ring):
    """The ring as a tuple that does not depend on its start or direction."""
    pts = [tuple(p[:2]) for p in ring]
    if len(pts) > 1 and pts[0] == pts[-1]:
        pts = pts[:-1]
    best = None
    for seq in (pts, pts[::-1]):
        k = seq.index(min(seq))
        cand = tuple(seq[k:] + seq[:k])
        best = cand if best is None or cand < best else best
    return best


def canonical_polygon(rings):
    return (canonical_ring(rings[0]), tuple(sorted(canonical_ring(r) for r in rings[1:])))


def gdal_polygons(geom):
    """The polygons of a GDAL geometry as lists of rings, outer ring first."""
    if geom is None or geom.IsEmpty():
        return []
    polys = [geom] if geom.GetGeometryType() == ogr.wkbPolygon else [
        geom.GetGeometryRef(i) for i in range(geom.GetGeometryCount())]
    return [[p.GetGeometryRef(k).GetPoints() for k in range(p.GetGeometryCount())] for p in polys]


def read_layer(path, method=None):
    gdal.SetConfigOption("OGR_ORGANIZE_POLYGONS", method)
    try:
        ds = ogr.Open(path)
        return [f.GetGeometryRef().Clone() if f.GetGeometryRef() else None for f in ds.GetLayer(0)]
    finally:
        gdal.SetConfigOption("OGR_ORGANIZE_POLYGONS", None)


# ---- divide ------------------------------------------------------------------------------------------


def compare_division(ours, theirs, what):
    agree = 0
    for i, (mine, geom) in enumerate(zip(ours, theirs)):
        want = sorted(canonical_polygon(p) for p in mine)
        got = sorted(canonical_polygon(p) for p in gdal_polygons(geom))
        if want == got:
            agree += 1
        else:
            fail(f"{what}, record {i}: GDAL has {len(got)} polygons with "
                 f"{sum(len(h) + 1 for _, h in got)} rings, we have {len(want)} with "
                 f"{sum(len(h) + 1 for _, h in want)}")
    print(f"{what}: {agree} of {len(ours)} records agree polygon for polygon, ring for ring")


def check_orientation(ours):
    wrong = 0
    for obj in (o for rec in ours for o in rec):
        wrong += shoelace(obj[0]) <= 0
        wrong += sum(shoelace(h) >= 0 for h in obj[1:])
    if wrong:
        fail(f"{wrong} of our rings run the wrong way")


def check_divide(probe, tmp):
    run_probe(probe, "divide", tmp)
    with open(os.path.join(tmp, "division.json")) as f:
        ours = json.load(f)
    flat = read_layer(os.path.join(tmp, "nested.shp"), "DEFAULT")
    oriented = read_layer(os.path.join(tmp, "oriented.shp"))
    if len(flat) != len(ours) or len(oriented) != len(ours):
        fail(f"record counts differ: ours {len(ours)}, GDAL {len(flat)} and {len(oriented)}")
        return
    rings = sum(len(o) for rec in ours for o in rec)
    print(f"{len(ours)} records, {sum(len(rec) for rec in ours)} polygons, {rings} rings kept")
    compare_division(ours, flat, "flat rings sorted by GDAL's geometric method")
    compare_division(ours, oriented, "our orient() read by GDAL's shape file reader")
    check_orientation(ours)


# ---- inside points -----------------------------------------------------------------------------------


class Tally:
    """Counts of points inside and their distances to the boundary."""

    def __init__(self):
        self.count = self.ours_in = self.geos_in = self.both_in = self.none = 0
        self.ours_d, self.geos_d, self.ratios = [], [], []
        self.outside = []

    def add(self, geom, point, where):
        self.count += 1
        if point is None:
            self.none += 1
            self.outside.append(f"{where}: no point")
            return
        pt = ogr.Geometry(ogr.wkbPoint)
        pt.AddPoint_2D(*point)
        pos = geom.PointOnSurface()
        ours_in, geos_in = geom.Contains(pt), pos is not None and geom.Contains(pos)
        self.ours_in += ours_in
        self.geos_in += geos_in
        self.both_in += ours_in and geos_in
        if not ours_in:
            self.outside.append(f"{where}: {point}")
        scale = math.sqrt(geom.GetArea()) or 1.0
        boundary = geom.Boundary()
        d_ours = boundary.Distance(pt) / scale if ours_in else 0.0
        d_geos = boundary.Distance(pos) / scale if geos_in else 0.0
        self.ours_d.append(d_ours)
        self.geos_d.append(d_geos)
        if d_geos > 0:
            self.ratios.append(d_ours / d_geos)

    def report(self, what):
        def med(v):
            return statistics.median(v) if v else float("nan")
        farther = sum(r > 1.01 for r in self.ratios)
        nearer = sum(r < 0.99 for r in self.ratios)
        print(f"{what}: {self.count} polygons; ours inside {self.ours_in}, GEOS PointOnSurface inside "
              f"{self.geos_in}, both inside {self.both_in}, ours none {self.none}")
        print(f"  distance to the boundary / sqrt(area): ours median {med(self.ours_d):.4f} "
              f"(mean {statistics.fmean(self.ours_d) if self.ours_d else float('nan'):.4f}), "
              f"GEOS median {med(self.geos_d):.4f} "
              f"(mean {statistics.fmean(self.geos_d) if self.geos_d else float('nan'):.4f}); "
              f"ours/GEOS median {med(self.ratios):.3f}; of {len(self.ratios)}, ours more than 1 % farther "
              f"in {farther}, nearer in {nearer}")


def check_refpnt(probe, tmp):
    run_probe(probe, "shapes", tmp)
    with open(os.path.join(tmp, "refpnt.json")) as f:
        ours = json.load(f)
    geoms = read_layer(os.path.join(tmp, "shapes.shp"))
    if len(geoms) != len(ours):
        fail(f"record counts differ: ours {len(ours)}, GDAL {len(geoms)}")
        return
    total, kinds = Tally(), [Tally() for _ in KINDS]
    for i, (geom, point) in enumerate(zip(geoms, ours)):
        total.add(geom, point, f"record {i} ({KINDS[i % len(KINDS)]})")
        kinds[i % len(KINDS)].add(geom, point, f"record {i}")
    total.report("generated polygons")
    for name, tally in zip(KINDS, kinds):
        tally.report(f"  {name}")
    for text in total.outside:
        fail(f"our point is not inside: {text}")


def real_world_files():
    paths = []
    for path in sorted(glob.glob(os.path.join(REAL_WORLD, "*.shp"))):
        ds = ogr.Open(path)
        if ds and ogr.GT_Flatten(ds.GetLayer(0).GetGeomType()) == ogr.wkbPolygon:
            paths.append(path)
    return paths


def check_real_refpnt(probe, tmp):
    paths = real_world_files()
    if len(paths) < 3:
        fail(f"the shape files of r-cran-spdata are missing from {REAL_WORLD}: "
             "run scripts/install-deps.sh")
        return
    total = Tally()
    invalid = 0
    for path in paths:
        ours = json.loads(run_probe(probe, "refpnt", path))
        geoms = read_layer(path)
        if len(geoms) != len(ours):
            fail(f"{path}: record counts differ: ours {len(ours)}, GDAL {len(geoms)}")
            continue
        tally = Tally()
        for i, (geom, point) in enumerate(zip(geoms, ours)):
            if geom is None or geom.IsEmpty():
                continue
            gdal.PushErrorHandler("CPLQuietErrorHandler")
            invalid += not geom.IsValid()
            gdal.PopErrorHandler()
            tally.add(geom, point, f"{os.path.basename(path)} record {i}")
            total.add(geom, point, f"{os.path.basename(path)} record {i}")
        tally.report(f"  {os.path.basename(path)}")
    total.report(f"real-world polygons ({len(paths)} files, {invalid} polygons invalid by GEOS)")
    for text in total.outside:
        fail(f"our point is not inside: {text}")


# ---- affine ------------------------------------------------------------------------------------------


def check_affine(probe, tmp):
    import numpy as np

    path = os.path.join(tmp, "affine.json")
    run_probe(probe, "affine", path)
    with open(path) as f:
        data = json.load(f)

    def m2(v):
        return np.array([v[0:3], v[3:6], [0, 0, 1]], dtype=float)

    def m3(v):
        return np.array([v[0:4], v[4:8], v[8:12], [0, 0, 0, 1]], dtype=float)

    def near(a, b, rtol, what):
        a, b = np.asarray(a, dtype=float), np.asarray(b, dtype=float)
        if not np.allclose(a, b, rtol=rtol, atol=rtol * max(1.0, float(np.abs(b).max()))):
            fail(f"{what}: {a.tolist()} expected {b.tolist()}")

    for i, c in enumerate(data["plane"]):
        first, second = m2(c["first"]), m2(c["second"])
        near(m2(c["combined"]), second @ first, 1e-12, f"plane {i} combined")
        near(c["mapped"], (first @ [*c["point"], 1])[:2], 1e-12, f"plane {i} mapped")
        if c["inverse"] is None:
            fail(f"plane {i}: no inverse, numpy's condition number {np.linalg.cond(first):.3g}")
        else:
            near(m2(c["inverse"]), np.linalg.inv(first), 1e-9, f"plane {i} inverse")
    for i, c in enumerate(data["spatial"]):
        m = m3(c["matrix"])
        near(c["mapped"], (m @ [*c["point"], 1])[:3], 1e-12, f"spatial {i} mapped")
        if c["inverse"] is None:
            fail(f"spatial {i}: no inverse, numpy's condition number {np.linalg.cond(m):.3g}")
        else:
            near(m3(c["inverse"]), np.linalg.inv(m), 1e-9, f"spatial {i} inverse")
    print(f"{len(data['plane'])} plane and {len(data['spatial'])} spatial mappings checked against numpy")


def main():
    if len(sys.argv) != 4:
        print(__doc__)
        return 2
    check, probe, tmp = sys.argv[1], sys.argv[2], fresh_dir(sys.argv[3])
    {"divide": check_divide, "refpnt": check_refpnt, "real_refpnt": check_real_refpnt,
     "affine": check_affine}[check](probe, tmp)
    print(f"{len(FAILURES)} failures")
    return 1 if FAILURES else 0


if __name__ == "__main__":
    sys.exit(main())
