#!/usr/bin/env python3
"""Chord simplification and fast inclusion against GEOS, through GDAL's Python binding.

usage: geos_check.py ALGO_PROBE SCRATCH_DIR [--small]

1. Simplification: random lines whose vertices all project inside every chord between them (x rising,
   slopes below 1), where measuring to the chord's line and to the chord itself agree, with tolerances
   that fall on no tie. Our kept vertices must be exactly the vertices of GEOS's Douglas-Peucker
   simplification (ogr Geometry.Simplify) of the same line and tolerance.
2. Inclusion: wavy rings of 10 to 1,000,000 vertices with a million random points (some on vertices),
   and x-monotone rings of integer vertices with points on a half-integer grid (many on edges and
   vertices, some on horizontal edges). Where GEOS puts a point in the interior or the exterior we must
   agree. A point on GEOS's boundary is inside for us when it lies on an edge that is not horizontal,
   from that edge's lower end up to but not including its upper end, or, for rings below 1,001
   vertices (the plain test), on a horizontal edge; any other boundary point (a top vertex, for the
   banded test a point on a horizontal edge) is decided by the count of the band above it, so it must
   be where GEOS puts a point just above it.

--small: fewer and smaller cases, for the sanitizer build.
"""
import os
import struct
import subprocess
import sys

import numpy as np
from osgeo import ogr

ogr.UseExceptions()
RNG = np.random.default_rng(11)
FAILURES = []


def fail(text):
    FAILURES.append(text)
    print("FAIL:", text)


def line_wkt(xy):
    return "LINESTRING (" + ",".join(f"{x!r} {y!r}" for x, y in xy) + ")"


def monotone_line(n):
    dx = RNG.uniform(0.5, 1.5, n - 1)
    dy = dx * RNG.uniform(-0.95, 0.95, n - 1)
    x = np.concatenate([[0.0], np.cumsum(dx)])
    y = np.concatenate([[0.0], np.cumsum(dy)])
    return np.column_stack([x, y])


def check_simplify(probe, scratch, small):
    lines = []
    for k in range(60 if small else 300):
        n = int(RNG.integers(3, 3000 if k % 10 == 0 else 200))
        lines.append((float(RNG.uniform(0.05, 3.0)), monotone_line(n)))
    if not small:
        lines.append((0.7, monotone_line(200000)))
    src, dst = os.path.join(scratch, "lines.txt"), os.path.join(scratch, "kept.txt")
    with open(src, "w") as f:
        for tol, xy in lines:
            f.write(f"{tol!r} {len(xy)} " + " ".join(repr(float(v)) for v in xy.ravel()) + "\n")
    subprocess.run([probe, "simplify", src, dst], check=True)
    with open(dst) as f:
        ours = f.read().splitlines()
    if len(ours) != len(lines):
        fail(f"simplify: {len(ours)} results for {len(lines)} lines")
        return
    dropped = 0
    for k, ((tol, xy), got) in enumerate(zip(lines, ours)):
        numbers = got.split()
        kept = np.array([float(v) for v in numbers[1:]]).reshape(-1, 2)
        theirs = ogr.CreateGeometryFromWkt(line_wkt(xy)).Simplify(tol)
        want = np.array(theirs.GetPoints())[:, :2]
        if kept.shape != want.shape or not np.array_equal(kept, want):
            fail(f"simplify line {k} ({len(xy)} vertices, tolerance {tol}): we keep {len(kept)}, "
                 f"GEOS {len(want)}")
        dropped += len(xy) - len(kept)
    print(f"simplify: {len(lines)} lines, {dropped} vertices dropped, as GEOS drops them")


def wkb_polygon(ring):
    head = struct.pack("<BIII", 1, 3, 1, len(ring))
    return head + ring.astype("<f8").tobytes()


def wkb_multipoint(pts):
    head = struct.pack("<BII", 1, 4, len(pts))
    each = np.zeros(len(pts), dtype=[("o", "u1"), ("t", "<u4"), ("x", "<f8"), ("y", "<f8")])
    each["o"], each["t"], each["x"], each["y"] = 1, 1, pts[:, 0], pts[:, 1]
    return head + each.tobytes()


def point_keys(geom):
    """The points of a GEOS result, as complex numbers x + iy."""
    if geom is None or geom.IsEmpty():
        return np.zeros(0, dtype=complex)
    wkb = bytes(geom.ExportToIsoWkb())
    kind = struct.unpack_from("<I", wkb, 1)[0]
    if kind == 1:
        x, y = struct.unpack_from("<dd", wkb, 5)
        return np.array([complex(x, y)])
    count = struct.unpack_from("<I", wkb, 5)[0]
    each = np.frombuffer(wkb, dtype=[("o", "u1"), ("t", "<u4"), ("x", "<f8"), ("y", "<f8")], count=count,
                         offset=9)
    return each["x"] + 1j * each["y"]


def covered_by(polygon, pts):
    """GEOS: which points lie in the polygon or on its boundary."""
    inside = point_keys(polygon.Intersection(ogr.CreateGeometryFromWkb(wkb_multipoint(pts))))
    return np.isin(pts[:, 0] + 1j * pts[:, 1], inside)


def on_boundary_edge(ring, p, banded):
    """Our rule of the boundary: p lies on an edge that is not horizontal, from its lower end up to, and
    not including, its upper end, or, for the plain test (not banded), anywhere on a horizontal edge.
    Exact arithmetic on the ring's own numbers."""
    a, b = ring[:-1], ring[1:]
    lo, up = np.minimum(a[:, 1], b[:, 1]), np.maximum(a[:, 1], b[:, 1])
    cross = (b[:, 0] - a[:, 0]) * (p[1] - a[:, 1]) - (b[:, 1] - a[:, 1]) * (p[0] - a[:, 0])
    rising = (lo < up) & (lo <= p[1]) & (p[1] < up) & (cross == 0)
    level = ((lo == up) & (lo == p[1]) & (np.minimum(a[:, 0], b[:, 0]) <= p[0]) &
             (p[0] <= np.maximum(a[:, 0], b[:, 0])))
    return bool(np.any(rising) or (not banded and np.any(level)))


def wavy_ring(n):
    m = n - 1
    a = -2 * np.pi * (np.arange(m) + RNG.uniform(-0.3, 0.3, m)) / m
    r = 1000 * (1 + 0.3 * np.sin(7 * a)) + RNG.uniform(-0.3, 0.3, m) * 6000 / m
    ring = np.column_stack([r * np.cos(a), r * np.sin(a)])
    return np.vstack([ring, ring[:1]])


def monotone_ring(n):
    """(0,0) up to the top line over x = 0..n-4 with integer y in 1..20, down, and back along y = 0."""
    top = np.column_stack([np.arange(n - 3), RNG.integers(1, 21, n - 3)]).astype(float)
    return np.vstack([[[0.0, 0.0]], top, [[float(n - 4), 0.0], [0.0, 0.0]]])


def check_include(probe, scratch, name, ring, pts, candidates):
    """candidates: the indices of the points that may lie on the ring's boundary; GEOS decides which do.
    The other points GEOS puts in the interior or the exterior."""
    ring_path, pts_path = os.path.join(scratch, "ring.bin"), os.path.join(scratch, "points.bin")
    out_path = os.path.join(scratch, "inside.bin")
    ring.astype("<f8").tofile(ring_path)
    pts.astype("<f8").tofile(pts_path)
    subprocess.run([probe, "include", ring_path, pts_path, out_path], check=True)
    ours = np.fromfile(out_path, dtype=np.uint8).astype(bool)
    polygon = ogr.CreateGeometryFromWkb(wkb_polygon(ring))
    want = covered_by(polygon, pts)
    near = pts[candidates]
    on_line = point_keys(polygon.GetBoundary().Intersection(ogr.CreateGeometryFromWkb(wkb_multipoint(near))))
    boundary = candidates[np.isin(near[:, 0] + 1j * near[:, 1], on_line)]
    # On the boundary: inside on an edge that counts it (a horizontal one only for the plain test, used
    # below 1,001 vertices), otherwise as the point just above it, the side that the band above the
    # point stands for.
    banded = len(ring) >= 1001
    above = covered_by(polygon, pts[boundary] + [0.0, 1e-7])
    for k, i in enumerate(boundary):
        want[i] = on_boundary_edge(ring, pts[i], banded) or above[k]
    wrong = np.flatnonzero(ours != want)
    is_boundary = np.zeros(len(pts), dtype=bool)
    is_boundary[boundary] = True
    for i in wrong[:5]:
        fail(f"include {name}: point {tuple(pts[i])} is {'in' if ours[i] else 'out'} for us, GEOS says "
             f"{'boundary' if is_boundary[i] else ('interior' if want[i] else 'exterior')}")
    if len(wrong):
        fail(f"include {name}: {len(wrong)} of {len(pts)} points differ")
    outside_on_boundary = int(np.sum(is_boundary & ~ours))
    print(f"include {name}: {len(pts)} points, {int(ours.sum())} inside, {len(boundary)} on the boundary "
          f"({outside_on_boundary} of them outside for us: upper ends, and for bands level edges)")


def grid_candidates(ring, pts):
    """The points within the bounding box of some edge."""
    hit = np.zeros(len(pts), dtype=bool)
    for a, b in zip(ring[:-1], ring[1:]):
        hit |= ((pts[:, 0] >= min(a[0], b[0])) & (pts[:, 0] <= max(a[0], b[0])) &
                (pts[:, 1] >= min(a[1], b[1])) & (pts[:, 1] <= max(a[1], b[1])))
    return np.flatnonzero(hit)


def main():
    probe, scratch = sys.argv[1], sys.argv[2]
    small = "--small" in sys.argv[3:]
    os.makedirs(scratch, exist_ok=True)
    check_simplify(probe, scratch, small)
    sizes = [10, 1000, 1001, 20000] + ([] if small else [100000, 1000000])
    for n in sizes:
        pts = RNG.uniform(-1400, 1400, (50000 if small else 1000000, 2))
        ring = wavy_ring(n)
        pts[:300] = ring[RNG.integers(0, n, 300)]  # on vertices; random points lie on no edge
        check_include(probe, scratch, f"wavy ring of {n}", ring, pts, np.arange(300))
    for n in (500, 2004):
        ring = monotone_ring(n)
        gx, gy = np.meshgrid(np.arange(-2, 2 * (n - 2)) * 0.5, np.arange(-2, 44) * 0.5)
        pts = np.column_stack([gx.ravel(), gy.ravel()])
        check_include(probe, scratch, f"integer ring of {n}", ring, pts, grid_candidates(ring, pts))
    return 1 if FAILURES else 0


if __name__ == "__main__":
    sys.exit(main())
