#!/usr/bin/env python3
"""The graticule lines and the frames of generated sheets, read and measured with GDAL.

"Hypsl.shp", latlong set, for sheets with the default divisions of vxk generate (1:1,000,000 lines every
degree, 1:200,000 every 20'):
  - there are n - 1 inner meridians and n - 1 inner parallels for n divisions, meridians west to east,
    then parallels south to north, then the polar circle where the sheet crosses it, then the rectangle;
  - every meridian lies at its longitude and every parallel at its latitude, constant to 1e-7 degree
    along the whole line, and runs from edge to edge of the sheet;
  - GRAD, MIN, TEXT, INDICATION and L_CODE of each line are what its position says, the texts worked out
    here from the position;
  - a Q-band sheet in the north has the polar circle at 66.56072222 degrees (66 deg 33.64'), a southern
    sheet of the same letter has none; the table of a polar sheet has one record fewer than its shape
    file, which still holds the rectangle (read from the .shp alone).
"Frame.shp", scene set:
  - its records and codes by scale, the minute marks after them; a 1:200,000 sheet's outer frame at
    9.8 mm in four pieces, each at its margin from the edge but round the corner, with gaps between;
  - every vertex of a frame's sides lies at the frame's margin from its vertex of the sheet's edge (the
    ring of "Hypsa.shp"), to 1 mm in the scene's metres (or 1e-9 in a geographic scene's degrees),
    measured with GEOS; its distance to the edge as a whole is the margin to within 1e-4 of it (the
    sides follow the lattice's rows, which meet the edge all but at right angles); the corners stand
    outside the edge's corners at about the margin times the square root of two; the frames nest.
Usage: gdal_lines_check.py GENERATE_TOOL
"""
import math
import os
import shutil
import sys

from osgeo import gdal, ogr

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from gdal_generate_check import PULKOVO, Sheet, generate, lon_apart  # noqa: E402

ogr.UseExceptions()
gdal.SetConfigOption("SHAPE_ENCODING", "CP1251")  # the tables are in Windows-1251; no .cpg stands beside them

POLAR = 66.56072222222222
TOLERANCE = 1e-7

# Margins of the frames in metres and degrees, and their codes, by scale.
FRAMES_1M = [(0.0, 0.0, 400901), (1000.0, 0.008983000569721857, 400901), (7500.0, 0.06737250427291393, 400903),
             (8500.0, 0.07635550484263579, 400902), (9500.0, 0.08533850541235764, 400903)]
FRAMES_200K = [(1400.0, 0.0125762007976106, 400903), (1639.9999999999998, 0.014732120934343843, 400902)]
OUTER_200K = (1960.0000000000002, 1960.0000000000002 * 8.983000569721857e-06)


def divisions(sheet):
    return (3 * sheet.joined, 2) if sheet.roman else (6 * sheet.joined, 4)


def inner(a, b, n):
    return [a + k * (b - a) / n for k in range(1, n)]


def texts(value):
    """GRAD and MIN of a position that is a whole number of minutes: magnitudes, degrees folded
    beyond 180."""
    minutes = round(abs(value) * 60)
    degrees, minutes = divmod(minutes, 60)
    degrees = 360 - degrees if degrees > 180 else degrees
    return f"{degrees:02d}\u00b0", f"{minutes:02d}'"


def geometries_only(path, scratch):
    """The lines of a shape file read without its table: GDAL shows as many features as the table holds."""
    base = os.path.join(scratch, "geometries_only")
    for ext in (".shp", ".shx"):
        shutil.copyfile(path[:-4] + ext, base + ext)
    ds = ogr.Open(base + ".shp")
    return [f.GetGeometryRef().GetPoints() for f in ds.GetLayer()]


def check_hypsl(sheet, out, problems):
    path = os.path.join(out, "latlong/HYPS/Hypsl.shp")
    west, east, south, north = sheet.box()
    n_lon, n_lat = divisions(sheet)
    meridians, parallels = inner(west, east, n_lon), inner(south, north, n_lat)
    polar = not sheet.south and south < POLAR < north
    lines = geometries_only(path, out)
    ds = ogr.Open(path)
    rows = [(f.GetField("ID"), f.GetField("L_CODE"), f.GetField("TEXT"), f.GetField("GRAD"), f.GetField("MIN"),
             f.GetField("INDICATION")) for f in ds.GetLayer()]
    count = len(meridians) + len(parallels) + (1 if polar else 0) + 1
    if len(lines) != count or len(rows) != count - (1 if polar else 0):
        problems.append(f"{path}: {len(lines)} lines and {len(rows)} rows, expected {count} lines")
        return
    hemisphere = "ю.ш." if sheet.south else "с.ш."
    expected = [(400012, "Меридиан", *texts(x), "в.д.") for x in meridians]
    expected += [(400011, "Параллель", *texts(y), hemisphere) for y in parallels]
    expected += [(400013, "Северный полярный круг", "66°", "33.64'", "с.ш.")] if polar else []
    expected += [(400010, "Рамка", None, None, None)]
    for r, row in enumerate(rows):
        if row != (r + 1, *expected[r]):
            problems.append(f"{path}: record {r + 1} is {row}, expected {(r + 1, *expected[r])}")
    for x, line in zip(meridians, lines):
        worst = max(lon_apart(p[0], x) for p in line)
        if worst > TOLERANCE or abs(line[0][1] - south) > TOLERANCE or abs(line[-1][1] - north) > TOLERANCE:
            problems.append(f"{path}: the meridian {x} strays by {worst} or does not run from edge to edge")
    for y, line in zip(parallels, lines[len(meridians):]):
        worst = max(abs(p[1] - y) for p in line)
        if worst > TOLERANCE or lon_apart(line[0][0], west) > TOLERANCE or lon_apart(line[-1][0], east) > TOLERANCE:
            problems.append(f"{path}: the parallel {y} strays by {worst} or does not run from edge to edge")
    if polar:
        circle = lines[len(meridians) + len(parallels)]
        worst = max(abs(p[1] - POLAR) for p in circle)
        minutes = round((sum(p[1] for p in circle) / len(circle) - 66) * 60, 2)
        if worst > TOLERANCE or minutes != 33.64:
            problems.append(f"{path}: the polar circle strays by {worst} or lies at 66 deg {minutes}'")
    rectangle = lines[-1]
    corners = [(west, south), (west, north), (east, north), (east, south)]
    if any(min(max(lon_apart(p[0], c[0]), abs(p[1] - c[1])) for p in rectangle) > TOLERANCE for c in corners):
        problems.append(f"{path}: the rectangle misses a corner of the sheet")


def point(p):
    g = ogr.Geometry(ogr.wkbPoint)
    g.AddPoint_2D(p[0], p[1])
    return g


def linestring(points):
    g = ogr.Geometry(ogr.wkbLineString)
    for p in points:
        g.AddPoint_2D(p[0], p[1])
    return g


def polygon(points):
    ring = ogr.Geometry(ogr.wkbLinearRing)
    for p in points:
        ring.AddPoint_2D(p[0], p[1])
    g = ogr.Geometry(ogr.wkbPolygon)
    g.AddGeometry(ring)
    return g


def ring_of(path):
    """The vertices of the first ring of the first polygon of a file."""
    ds = ogr.Open(path)
    feature = ds.GetLayer().GetNextFeature()  # the geometry lives as long as its feature
    return feature.GetGeometryRef().GetGeometryRef(0).GetPoints()


def edge_ring(out):
    """The sheet's edge, the ring of the scene "Hypsa.shp", and how many vertices its west side has (read
    from the latlong copy: the vertices at the west edge's longitude, less the two of the sides that meet
    it)."""
    edge, ring = (ring_of(os.path.join(out, path)) for path in ("HYPS/Hypsa.shp", "latlong/HYPS/Hypsa.shp"))
    west = min(p[0] for p in ring)
    rows = sum(1 for p in ring if abs(p[0] - west) < TOLERANCE) - 2
    return [p[:2] for p in edge], rows


def check_frame_line(frame, edge, rows, margin, unit_tolerance, what, problems):
    columns = len(edge) // 2 - rows
    if len(frame) != len(edge) + 5 or frame[0] != frame[-1]:
        problems.append(f"{what}: {len(frame)} vertices, expected {len(edge) + 5} in a closed ring")
        return
    corners = {0, rows + 1, rows + columns + 2, 2 * rows + columns + 3, len(frame) - 1}
    sides = [p for k, p in enumerate(frame) if k not in corners]
    edge_line = linestring(edge)
    worst_pair = max(abs(point(p).Distance(point(q)) - margin) for p, q in zip(sides, edge))
    worst_edge = max(abs(point(p).Distance(edge_line) - margin) for p in sides)
    if worst_pair > unit_tolerance or worst_edge > 1e-4 * margin:
        problems.append(f"{what}: margin {margin} missed by {worst_pair} at its edge vertices, by {worst_edge} "
                        "from the edge")
    area = polygon(edge)
    for k, c in zip(sorted(corners)[:4], (edge[0], edge[rows - 1], edge[rows + columns - 1],
                                           edge[2 * rows + columns - 1])):
        d = point(frame[k]).Distance(point(c))
        if abs(d - margin * math.sqrt(2)) > 0.01 * margin or area.Contains(point(frame[k])):
            problems.append(f"{what}: corner {k} stands {d} from the edge's corner, expected about "
                            f"{margin * math.sqrt(2)} outside")


def check_outer_pieces(features, edge, margin, unit_tolerance, path, problems):
    """The broken outer frame of a 1:200,000 sheet: four pieces, each bent round one corner, every vertex
    but the corner at the outer margin from the edge (the corner at about the margin times the square
    root of two)."""
    edge_line = linestring(edge)
    for f in features:
        distances = [point(p[:2]).Distance(edge_line) for p in f.GetGeometryRef().GetPoints()]
        corners = [d for d in distances if d > 1.2 * margin]
        worst = max(abs(d - margin) for d in distances if d <= 1.2 * margin)
        if len(corners) != 1 or abs(corners[0] - margin * math.sqrt(2)) > 0.01 * margin or \
                worst > max(unit_tolerance, 1e-4 * margin):
            problems.append(f"{path}: an outer frame piece strays {worst} from the margin {margin}, corners "
                            f"{corners}")


def check_frame(sheet, out, latlong_scene, problems, shift=0.0):
    path = os.path.join(out, "FRAME/Frame.shp")
    ds = ogr.Open(path)
    features = list(ds.GetLayer())
    table = FRAMES_200K if sheet.roman else FRAMES_1M
    pieces = 4 if sheet.roman else 0
    codes = [(f.GetField("ID"), f.GetField("L_CODE")) for f in features]
    expected = [c for _, _, c in table] + [400903] * pieces
    # the minute marks follow the frames (gdal_marks_check.py measures them)
    if codes[:len(expected)] != [(k + 1, c) for k, c in enumerate(expected)] or \
            any(c != 400901 for _, c in codes[len(expected):]):
        problems.append(f"{path}: records {codes[:len(expected) + 3]}..., expected {expected} and the marks")
        return
    edge, rows = edge_ring(out)
    if pieces:
        check_outer_pieces(features[len(table):len(expected)], edge, OUTER_200K[1 if latlong_scene else 0] + shift,
                           1e-9 if latlong_scene else 1e-3, path, problems)
    features = features[:len(table)]
    rings = []
    for f, (metres, degrees, _) in zip(features, table):
        frame = [p[:2] for p in f.GetGeometryRef().GetPoints()]
        margin = (degrees if latlong_scene else metres) + shift
        what = f"{path} record {f.GetField('ID')}"
        if metres == 0.0:
            if frame != edge:
                problems.append(f"{what}: the first frame is not the edge")
        else:
            check_frame_line(frame, edge, rows, margin, 1e-9 if latlong_scene else 1e-3, what, problems)
        rings.append(polygon(frame))
    for inside, outside in zip(rings, rings[1:]):
        if not outside.Contains(inside) and not outside.Equals(inside):
            problems.append(f"{path}: the frames do not nest")


HYPSL_SHEETS = [Sheet("N", 37), Sheet("N", 37, roman=6), Sheet("Q", 37), Sheet("Q", 37, south=True),
                Sheet("Q", 37, roman=14), Sheet("N", 37, joined=2), Sheet("N", 60, roman=36)]
FRAME_SHEETS = [Sheet("N", 37), Sheet("N", 37, roman=6), Sheet("Q", 37), Sheet("M", 40, roman=8, south=True)]


def main():
    tool = sys.argv[1]
    root = os.path.join(os.environ.get("VXK_TEST_TMP", "/tmp"), "gdal_lines_check")
    problems = []
    for sheet in HYPSL_SHEETS:
        out = os.path.join(root, "hypsl_" + sheet.name().replace(",", "_"))
        if not generate(tool, sheet, sheet.zone(), out):
            problems.append(f"{sheet.name()}: the generator answered false")
            continue
        check_hypsl(sheet, out, problems)
        print(f"{sheet.name()}: lines checked")
    for sheet in FRAME_SHEETS:
        for scene in (sheet.zone(), PULKOVO):
            out = os.path.join(root, "frame_" + sheet.name() + ("_latlong" if scene == PULKOVO else ""))
            if not generate(tool, sheet, scene, out):
                problems.append(f"{sheet.name()}: the generator answered false")
                continue
            check_frame(sheet, out, scene == PULKOVO, problems)
        print(f"{sheet.name()}: frames checked")
    # the checks must see a frame 2 mm off its margin, and a meridian out of place
    wrong_frame, wrong_lines = [], []
    check_frame(Sheet("N", 37), os.path.join(root, "frame_N-37"), False, wrong_frame, shift=0.002)
    check_hypsl(Sheet("N", 38), os.path.join(root, "hypsl_N-37"), wrong_lines)
    if not wrong_frame or not wrong_lines:
        problems.append("self-test: the checks missed a frame 2 mm off or the lines of another sheet")
    for p in problems:
        print("FAIL:", p)
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
